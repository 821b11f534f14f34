// CObject, CRuntimeClass and the run-time class registry.
#include <afx.h>
#include "afximpl.h"

#include <vector>

// ---- CObject ---------------------------------------------------------------

// CObject's own record has no base class.
static CRuntimeClass* PASCAL NoBaseClass() { return NULL; }

const CRuntimeClass CObject::classCObject = {
    "CObject", sizeof(CObject), 0xFFFF, NULL, &NoBaseClass, NULL, NULL};

CRuntimeClass* PASCAL CObject::_GetBaseClass() { return NULL; }
CRuntimeClass* PASCAL CObject::GetThisClass() { return _RUNTIME_CLASS(CObject); }
CRuntimeClass* CObject::GetRuntimeClass() const { return _RUNTIME_CLASS(CObject); }

CObject::~CObject() {}

void* PASCAL CObject::operator new(size_t nSize) {
  void* p = ::operator new(nSize, std::nothrow);
  if (p == NULL) AfxThrowMemoryException();
  return p;
}

void PASCAL CObject::operator delete(void* p) { ::operator delete(p); }

BOOL CObject::IsSerializable() const { return GetRuntimeClass()->m_wSchema != 0xFFFF; }

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const {
  return GetRuntimeClass()->IsDerivedFrom(pClass);
}

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& dc) const {
  dc << "a " << GetRuntimeClass()->m_lpszClassName << " at " << (const void*)this << "\n";
}

CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject) {
  return pObject != NULL && pObject->IsKindOf(pClass) ? pObject : NULL;
}

// ---- CRuntimeClass ---------------------------------------------------------

CObject* CRuntimeClass::CreateObject() {
  if (m_pfnCreateObject == NULL) return NULL;
  return (*m_pfnCreateObject)();
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const {
  for (const CRuntimeClass* p = this; p != NULL;
       p = p->m_pfnGetBaseClass ? (*p->m_pfnGetBaseClass)() : NULL) {
    if (p == pBaseClass) return TRUE;
  }
  return FALSE;
}

// One registry for the process: afx.dll is shared by the host and every
// extension module, so a class serialised by one is found by all. The records
// themselves stay read-only.
static std::vector<CRuntimeClass*>& ClassRegistry() {
  static std::vector<CRuntimeClass*> registry;
  return registry;
}

static CRITICAL_SECTION* RegistryLock() {
  static CRITICAL_SECTION cs;
  static bool made = (InitializeCriticalSection(&cs), true);
  (void)made;
  return &cs;
}

void AFXAPI AfxClassInit(CRuntimeClass* pNewClass) {
  EnterCriticalSection(RegistryLock());
  ClassRegistry().push_back(pNewClass);
  LeaveCriticalSection(RegistryLock());
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* pNewClass) { AfxClassInit(pNewClass); }

// A module that unloads takes its class records with it.
void AfxRemoveModuleClasses(HMODULE hModule) {
  EnterCriticalSection(RegistryLock());
  std::vector<CRuntimeClass*>& registry = ClassRegistry();
  for (size_t i = registry.size(); i-- > 0;) {
    HMODULE owner = NULL;
    if (GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           (LPCSTR)registry[i], &owner) &&
        owner == hModule)
      registry.erase(registry.begin() + i);
  }
  LeaveCriticalSection(RegistryLock());
}

CRuntimeClass* PASCAL CRuntimeClass::FromName(LPCSTR lpszClassName) {
  if (lpszClassName == NULL) return NULL;
  CRuntimeClass* found = NULL;
  EnterCriticalSection(RegistryLock());
  // The newest registration wins, as a module loaded later heads MFC's chain.
  std::vector<CRuntimeClass*>& registry = ClassRegistry();
  for (size_t i = registry.size(); i-- > 0;) {
    if (lstrcmpA(registry[i]->m_lpszClassName, lpszClassName) == 0) {
      found = registry[i];
      break;
    }
  }
  LeaveCriticalSection(RegistryLock());
  return found;
}

CRuntimeClass* PASCAL CRuntimeClass::FromName(LPCWSTR lpszClassName) {
  if (lpszClassName == NULL) return NULL;
  char name[256];
  if (WideCharToMultiByte(CP_ACP, 0, lpszClassName, -1, name, sizeof(name), NULL, NULL) == 0)
    return NULL;
  return FromName(name);
}

CObject* PASCAL CRuntimeClass::CreateObject(LPCSTR lpszClassName) {
  CRuntimeClass* pClass = FromName(lpszClassName);
  return pClass != NULL ? pClass->CreateObject() : NULL;
}

CObject* PASCAL CRuntimeClass::CreateObject(LPCWSTR lpszClassName) {
  CRuntimeClass* pClass = FromName(lpszClassName);
  return pClass != NULL ? pClass->CreateObject() : NULL;
}

void AFXAPI AfxAssertFailedLine(LPCSTR lpszFileName, int nLine) {
  char text[400];
  wsprintfA(text, "Assertion failed: %s(%d)\n", lpszFileName, nLine);
  OutputDebugStringA(text);
}
