// afxarc_.h - CArchive: buffered binary serialisation in MFC's persistent
// format (class tags, object ids, length-prefixed strings). Included by afx.h.
#ifndef AFXARC_H
#define AFXARC_H

#include "afxver_.h"
#include "afxstr.h"
#include "afxobj_.h"
#include "afxfile_.h"

class CDocument;
struct CArchiveMaps; // the object/class maps, private to archive.cpp

class AFX_API CArchive {
public:
  enum Mode { store = 0, load = 1, bNoFlushOnDelete = 2, bNoByteSwap = 4 };

  // The archive uses lpBuf (nBufSize bytes) when given, else its own buffer.
  // A file with a direct buffer (CMemFile) is read in place.
  CArchive(CFile* pFile, UINT nMode, int nBufSize = 4096, void* lpBuf = NULL);
  // Flushes unless bNoFlushOnDelete; never throws (errors are lost: call Close).
  ~CArchive();

  enum LoadArrayObjType { typeUndefined = 0, typeCRuntimeClass = 1, typeCObject = 2 };

  BOOL IsLoading() const { return (m_nMode & CArchive::load) != 0; }
  BOOL IsStoring() const { return (m_nMode & CArchive::load) == 0; }
  BOOL IsByteSwapping() const { return FALSE; }
  BOOL IsBufferEmpty() const;
  CFile* GetFile() const { return m_pFile; }
  UINT GetBufferSize() const { return m_nBufSize; }

  // The schema of the object being loaded; -1 after the first call.
  UINT GetObjectSchema();
  void SetObjectSchema(UINT nSchema) { m_nObjectSchema = nSchema; }

  CDocument* m_pDocument;

  // Raw bytes. Read returns fewer than nMax at the end of the file.
  UINT Read(void* lpBuf, UINT nMax);
  void EnsureRead(void* lpBuf, UINT nCount); // throws endOfFile when short
  void Write(const void* lpBuf, UINT nMax);
  void Flush();
  void Close();
  void Abort(); // drops the buffer and the maps without writing

  // Text lines: "\n" or "\r\n" ends a line.
  void WriteString(LPCTSTR lpsz);
  LPTSTR ReadString(LPTSTR lpsz, UINT nMax);
  BOOL ReadString(CString& rString);

  CArchive& operator<<(BYTE by) { return _Store(by); }
  CArchive& operator<<(WORD w) { return _Store(w); }
  CArchive& operator<<(LONG l) { return _Store(l); }
  CArchive& operator<<(DWORD dw) { return _Store(dw); }
  CArchive& operator<<(float f) { return _Store(f); }
  CArchive& operator<<(double d) { return _Store(d); }
  CArchive& operator<<(LONGLONG dwdw) { return _Store(dwdw); }
  CArchive& operator<<(ULONGLONG dwdw) { return _Store(dwdw); }
  CArchive& operator<<(int i) { return _Store((LONG)i); }
  CArchive& operator<<(short w) { return _Store((WORD)w); }
  CArchive& operator<<(char ch) { return _Store((BYTE)ch); }
  CArchive& operator<<(wchar_t ch) { return _Store((WORD)ch); }
  CArchive& operator<<(unsigned u) { return _Store((LONG)u); }
  CArchive& operator<<(bool b) { return _Store((BYTE)(b ? 1 : 0)); }

  CArchive& operator>>(BYTE& by) { return _Load(by); }
  CArchive& operator>>(WORD& w) { return _Load(w); }
  CArchive& operator>>(LONG& l) { return _Load(l); }
  CArchive& operator>>(DWORD& dw) { return _Load(dw); }
  CArchive& operator>>(float& f) { return _Load(f); }
  CArchive& operator>>(double& d) { return _Load(d); }
  CArchive& operator>>(LONGLONG& dwdw) { return _Load(dwdw); }
  CArchive& operator>>(ULONGLONG& dwdw) { return _Load(dwdw); }
  CArchive& operator>>(int& i) { return _LoadAs<LONG>(i); }
  CArchive& operator>>(short& w) { return _LoadAs<WORD>(w); }
  CArchive& operator>>(char& ch) { return _LoadAs<BYTE>(ch); }
  CArchive& operator>>(wchar_t& ch) { return _LoadAs<WORD>(ch); }
  CArchive& operator>>(unsigned& u) { return _LoadAs<LONG>(u); }
  CArchive& operator>>(bool& b) {
    BYTE by;
    _Load(by);
    b = by != 0;
    return *this;
  }

  // Objects, by pointer, with class tags and shared-object ids.
  CObject* ReadObject(const CRuntimeClass* pClass);
  void WriteObject(const CObject* pOb);
  void MapObject(const CObject* pOb);

  void WriteClass(const CRuntimeClass* pClassRef);
  CRuntimeClass* ReadClass(const CRuntimeClass* pClassRefRequested = NULL, UINT* pSchema = NULL,
                           DWORD* pObTag = NULL);
  void SerializeClass(const CRuntimeClass* pClassRef);

  // Sizes of the object maps: hash size and block size when storing, the
  // growth step of the object array when loading. Only before the first object.
  void SetStoreParams(UINT nHashSize = 2053, UINT nBlockSize = 128);
  void SetLoadParams(UINT nGrowBy = 1024);

  // Element counts: a WORD, or 0xFFFF and a DWORD.
  void WriteCount(DWORD_PTR dwCount);
  DWORD_PTR ReadCount();

  // Bytes the file can still supply (buffered + unread), or (ULONGLONG)-1
  // when the file cannot tell. Used to refuse absurd lengths early.
  ULONGLONG GetBytesAvailable() const;

  CString m_strFileName;
  BOOL m_bForceFlat;
  BOOL m_bDirectBuffer;
  BOOL m_bBlocking;

  // Makes nBytesNeeded more bytes available in the buffer or throws endOfFile.
  void FillBuffer(UINT nBytesNeeded);
  void CheckCount(); // throws badIndex when the maps are full

protected:
  UINT m_nObjectSchema;
  CFile* m_pFile;
  UINT m_nMode;
  BOOL m_bUserBuf;
  int m_nBufSize;
  BYTE* m_lpBufCur;
  BYTE* m_lpBufMax;
  BYTE* m_lpBufStart;

  UINT m_nMapCount; // next index of the shared object/class sequence
  CArchiveMaps* m_pMaps;
  UINT m_nGrowSize;
  UINT m_nHashSize;

private:
  friend CArchive& AFXAPI operator<<(CArchive& ar, const CString& str);
  friend CArchive& AFXAPI operator>>(CArchive& ar, CString& str);
  // The string operators' general paths: long, wide or straddling the buffer.
  void StoreCString(const CString& str);
  void LoadCString(CString& str);

  CArchive(const CArchive&);
  void operator=(const CArchive&);

  UINT FillSome(UINT nWanted);
  static void PASCAL ThrowReadOnly(const CArchive* ar);
  static void PASCAL ThrowWriteOnly(const CArchive* ar);

  // The inline fast path: one bounds check and a copy into the buffer.
  template <class T> CArchive& _Store(T value) {
    BYTE* p = m_lpBufCur;
    if (__builtin_expect((m_nMode & CArchive::load) != 0 || (size_t)(m_lpBufMax - p) < sizeof(T),
                         0)) {
      if (m_nMode & CArchive::load) ThrowReadOnly(this);
      Flush();
      p = m_lpBufCur;
    }
    memcpy(p, &value, sizeof(T));
    m_lpBufCur = p + sizeof(T);
    return *this;
  }
  template <class T> CArchive& _Load(T& value) {
    BYTE* p = m_lpBufCur;
    if (__builtin_expect((m_nMode & CArchive::load) == 0 || (size_t)(m_lpBufMax - p) < sizeof(T),
                         0)) {
      if (!(m_nMode & CArchive::load)) ThrowWriteOnly(this);
      FillBuffer((UINT)(sizeof(T) - (m_lpBufMax - m_lpBufCur)));
      p = m_lpBufCur;
    }
    memcpy(&value, p, sizeof(T));
    m_lpBufCur = p + sizeof(T);
    return *this;
  }
  template <class TStored, class T> CArchive& _LoadAs(T& value) {
    TStored stored;
    _Load(stored);
    value = (T)stored;
    return *this;
  }
};

// Objects: WriteObject / ReadObject with any class.
AFX_API CArchive& AFXAPI operator<<(CArchive& ar, const CObject* pOb);
AFX_API CArchive& AFXAPI operator>>(CArchive& ar, CObject*& pOb);
AFX_API CArchive& AFXAPI operator>>(CArchive& ar, const CObject*& pOb);

// Strings with MFC's length prefix: a BYTE below 0xFF; else 0xFF and a WORD
// below 0xFFFE; else 0xFF 0xFFFF and a DWORD. Loading also accepts the 0xFFFE
// marker of a wide string and converts it to the ANSI code page.
// Short strings wholly inside the buffer take the inline path.
inline CArchive& AFXAPI operator<<(CArchive& ar, const CString& str) {
  UINT n = (UINT)str.GetLength();
  if (n < 0xFF && !(ar.m_nMode & CArchive::load) && (size_t)(ar.m_lpBufMax - ar.m_lpBufCur) > n) {
    *ar.m_lpBufCur++ = (BYTE)n;
    memcpy(ar.m_lpBufCur, str.GetString(), n);
    ar.m_lpBufCur += n;
    return ar;
  }
  ar.StoreCString(str);
  return ar;
}
inline CArchive& AFXAPI operator>>(CArchive& ar, CString& str) {
  if ((ar.m_nMode & CArchive::load) && ar.m_lpBufCur < ar.m_lpBufMax) {
    UINT n = *ar.m_lpBufCur;
    if (n < 0xFF && (size_t)(ar.m_lpBufMax - ar.m_lpBufCur) > n) {
      str.SetString((const char*)ar.m_lpBufCur + 1, (int)n);
      ar.m_lpBufCur += 1 + n;
      return ar;
    }
  }
  ar.LoadCString(str);
  return ar;
}

// The length prefix on its own; *pnCharSize gets 1 or 2 (wide) when reading.
AFX_API void AFXAPI AfxWriteStringLength(CArchive& ar, UINT_PTR nLength, BOOL bUnicode);
AFX_API UINT_PTR AFXAPI AfxReadStringLength(CArchive& ar, int& nCharSize);

#endif // AFXARC_H
