// afxobj_.h - CObject, CRuntimeClass, the run-time class macros and a minimal
// CDumpContext. Included by afx.h.
#ifndef AFXOBJ__H
#define AFXOBJ__H

#include "afxver_.h"

class CObject;
class CArchive;
class CDumpContext;
struct AFX_CLASSINIT;

// A class's run-time record, laid out as in MFC's DLL build: the base class is
// reached through a function so that records can live in different modules.
struct AFX_API CRuntimeClass {
  LPCSTR m_lpszClassName;
  int m_nObjectSize;
  UINT m_wSchema; // 0xFFFF for classes that are not serializable
  CObject*(PASCAL* m_pfnCreateObject)();
  CRuntimeClass*(PASCAL* m_pfnGetBaseClass)();

  CObject* CreateObject();
  BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;

  // Classes registered by IMPLEMENT_SERIAL, in any module, by name.
  static CRuntimeClass* PASCAL FromName(LPCSTR lpszClassName);
  static CRuntimeClass* PASCAL FromName(LPCWSTR lpszClassName);
  static CObject* PASCAL CreateObject(LPCSTR lpszClassName);
  static CObject* PASCAL CreateObject(LPCWSTR lpszClassName);

  // The class reference in an archive: schema word, name length, name.
  void Store(CArchive& ar) const;
  static CRuntimeClass* PASCAL Load(CArchive& ar, UINT* pwSchemaNum);

  CRuntimeClass* m_pNextClass; // kept for layout; the registry is separate
  const AFX_CLASSINIT* m_pClassInit;
};

// Registers a serializable class at static initialisation (IMPLEMENT_SERIAL).
struct AFX_API AFX_CLASSINIT {
  explicit AFX_CLASSINIT(CRuntimeClass* pNewClass);
};
void AFX_API AFXAPI AfxClassInit(CRuntimeClass* pNewClass);

// Bit or-ed into a schema number: the class reads older schemas itself
// (CArchive::GetObjectSchema) instead of failing with badSchema.
#define VERSIONABLE_SCHEMA (0x80000000)

#define _RUNTIME_CLASS(class_name) ((CRuntimeClass*)(&class_name::class##class_name))
#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                                                        \
protected:                                                                                 \
  static CRuntimeClass* PASCAL _GetBaseClass();                                            \
                                                                                           \
public:                                                                                    \
  static const CRuntimeClass class##class_name;                                            \
  static CRuntimeClass* PASCAL GetThisClass();                                             \
  virtual CRuntimeClass* GetRuntimeClass() const;

#define _DECLARE_DYNAMIC(class_name) DECLARE_DYNAMIC(class_name)

#define DECLARE_DYNCREATE(class_name)                                                      \
  DECLARE_DYNAMIC(class_name)                                                              \
  static CObject* PASCAL CreateObject();

#define _DECLARE_DYNCREATE(class_name) DECLARE_DYNCREATE(class_name)

// The extraction operator is defined here rather than by IMPLEMENT_SERIAL so
// that it needs no export of its own from the class's module.
#define DECLARE_SERIAL(class_name)                                                         \
  _DECLARE_DYNCREATE(class_name)                                                           \
  friend CArchive& AFXAPI operator>>(CArchive& ar, class_name*& pOb) {                     \
    pOb = (class_name*)ar.ReadObject(RUNTIME_CLASS(class_name));                           \
    return ar;                                                                             \
  }

#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, pfnNew, class_init)   \
  CRuntimeClass* PASCAL class_name::_GetBaseClass() { return RUNTIME_CLASS(base_class_name); } \
  AFX_COMDAT const CRuntimeClass class_name::class##class_name = {                         \
      #class_name, sizeof(class class_name), wSchema, pfnNew, &class_name::_GetBaseClass,  \
      NULL, class_init};                                                                   \
  CRuntimeClass* PASCAL class_name::GetThisClass() { return _RUNTIME_CLASS(class_name); }  \
  CRuntimeClass* class_name::GetRuntimeClass() const { return _RUNTIME_CLASS(class_name); }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                     \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, NULL, NULL)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                   \
  CObject* PASCAL class_name::CreateObject() { return new class_name; }                    \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, class_name::CreateObject,    \
                         NULL)

#define IMPLEMENT_SERIAL(class_name, base_class_name, wSchema)                             \
  CObject* PASCAL class_name::CreateObject() { return new class_name; }                    \
  extern AFX_CLASSINIT _init_##class_name;                                                 \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, class_name::CreateObject,   \
                         &_init_##class_name)                                              \
  AFX_CLASSINIT _init_##class_name(RUNTIME_CLASS(class_name));

// The root of the class tree. Virtual slots in MFC's order: GetRuntimeClass,
// the destructor, Serialize, AssertValid, Dump.
class AFX_API CObject {
public:
  virtual CRuntimeClass* GetRuntimeClass() const;
  virtual ~CObject() = 0;

  // Allocation failure throws CMemoryException, as everywhere in MFC.
  void* PASCAL operator new(size_t nSize);
  void* PASCAL operator new(size_t, void* p) { return p; }
  void PASCAL operator delete(void* p);
  void PASCAL operator delete(void*, void*) {}

protected:
  CObject() {}

private:
  CObject(const CObject& objectSrc);      // no copies unless a class defines them
  void operator=(const CObject& objectSrc);

public:
  BOOL IsSerializable() const;
  BOOL IsKindOf(const CRuntimeClass* pClass) const;

  virtual void Serialize(CArchive& ar);
  virtual void AssertValid() const;
  virtual void Dump(CDumpContext& dc) const;

  static const CRuntimeClass classCObject;
  static CRuntimeClass* PASCAL _GetBaseClass();
  static CRuntimeClass* PASCAL GetThisClass();
};

// Safe downcast: NULL when the object is not of the class.
#define DYNAMIC_DOWNCAST(class_name, object)                                               \
  (class_name*)AfxDynamicDownCast(RUNTIME_CLASS(class_name), object)
#define STATIC_DOWNCAST(class_name, object) (static_cast<class_name*>(object))
AFX_API CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject);

// Diagnostic output: to the debugger (OutputDebugString) or to a file.
class AFX_API CDumpContext {
public:
  explicit CDumpContext(CFile* pFile = NULL);

  int GetDepth() const { return m_nDepth; }
  void SetDepth(int nNewDepth) { m_nDepth = nNewDepth; }

  CDumpContext& operator<<(LPCSTR lpsz);
  CDumpContext& operator<<(LPCWSTR lpsz);
  CDumpContext& operator<<(const void* lp);
  CDumpContext& operator<<(const CObject* pOb);
  CDumpContext& operator<<(const CObject& ob);
  CDumpContext& operator<<(BYTE by);
  CDumpContext& operator<<(WORD w);
  CDumpContext& operator<<(UINT u);
  CDumpContext& operator<<(LONG l);
  CDumpContext& operator<<(DWORD dw);
  CDumpContext& operator<<(float f);
  CDumpContext& operator<<(double d);
  CDumpContext& operator<<(int n);
  CDumpContext& operator<<(LONGLONG n);
  CDumpContext& operator<<(ULONGLONG n);
  CDumpContext& operator<<(HWND h);
  CDumpContext& operator<<(HDC h);
  CDumpContext& operator<<(HMENU h);
  CDumpContext& operator<<(HACCEL h);
  CDumpContext& operator<<(HFONT h);
  void HexDump(LPCSTR lpszLine, BYTE* pby, int nBytes, int nWidth);
  void Flush();

protected:
  void OutputString(LPCSTR lpsz);

  int m_nDepth;
  CFile* m_pFile;

private:
  CDumpContext(const CDumpContext&);
  void operator=(const CDumpContext&);
};

// The debugger's dump context.
extern AFX_API CDumpContext afxDump;

#endif // AFXOBJ__H
