// COleDataObject: reading formats and data from any IDataObject, the
// clipboard's included.
#include <afxadv.h>

#include "oleimpl.h"

namespace {

// What a stream's or another medium's data may take in memory when it is
// copied into a global block for the caller.
const ULONGLONG kMaxCopyBytes = 0x40000000;

// Every medium a caller may get when it names none.
const DWORD kAnyTymed = TYMED_HGLOBAL | TYMED_FILE | TYMED_ISTREAM | TYMED_ISTORAGE | TYMED_GDI |
                        TYMED_MFPICT | TYMED_ENHMF;

} // namespace

COleDataObject::COleDataObject()
    : m_lpDataObject(NULL), m_lpEnumerator(NULL), m_bAutoRelease(TRUE), m_bClipboard(FALSE) {}

COleDataObject::~COleDataObject() { Release(); }

void COleDataObject::Attach(LPDATAOBJECT lpDataObject, BOOL bAutoRelease) {
  Release();
  m_lpDataObject = lpDataObject;
  m_bAutoRelease = bAutoRelease;
}

LPDATAOBJECT COleDataObject::Detach() {
  LPDATAOBJECT lpDataObject = m_lpDataObject;
  if (m_lpEnumerator != NULL) {
    m_lpEnumerator->Release();
    m_lpEnumerator = NULL;
  }
  m_lpDataObject = NULL;
  m_bClipboard = FALSE;
  return lpDataObject;
}

void COleDataObject::Release() {
  if (m_lpEnumerator != NULL) {
    m_lpEnumerator->Release();
    m_lpEnumerator = NULL;
  }
  if (m_lpDataObject != NULL) {
    if (m_bAutoRelease) m_lpDataObject->Release();
    m_lpDataObject = NULL;
  }
  m_bClipboard = FALSE;
}

BOOL COleDataObject::AttachClipboard() {
  Release();
  LPDATAOBJECT lpDataObject = NULL;
  if (FAILED(::OleGetClipboard(&lpDataObject)) || lpDataObject == NULL) return FALSE;
  Attach(lpDataObject, TRUE);
  m_bClipboard = TRUE;
  return TRUE;
}

LPDATAOBJECT COleDataObject::GetIDataObject(BOOL bAddRef) {
  if (m_lpDataObject != NULL && bAddRef) m_lpDataObject->AddRef();
  return m_lpDataObject;
}

void COleDataObject::BeginEnumFormats() {
  if (m_lpEnumerator != NULL) {
    m_lpEnumerator->Release();
    m_lpEnumerator = NULL;
  }
  if (m_lpDataObject == NULL) return;
  if (FAILED(m_lpDataObject->EnumFormatEtc(DATADIR_GET, &m_lpEnumerator))) m_lpEnumerator = NULL;
}

BOOL COleDataObject::GetNextFormat(LPFORMATETC lpFormatEtc) {
  if (lpFormatEtc == NULL || m_lpEnumerator == NULL) return FALSE;
  ULONG nFetched = 0;
  return m_lpEnumerator->Next(1, lpFormatEtc, &nFetched) == S_OK && nFetched == 1;
}

BOOL COleDataObject::IsDataAvailable(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc) {
  if (m_lpDataObject == NULL) return FALSE;
  FORMATETC formatEtc;
  AfxOleFillFormatEtc(formatEtc, cfFormat, lpFormatEtc, kAnyTymed);
  return m_lpDataObject->QueryGetData(&formatEtc) == S_OK;
}

BOOL COleDataObject::GetData(CLIPFORMAT cfFormat, LPSTGMEDIUM lpStgMedium,
                             LPFORMATETC lpFormatEtc) {
  if (lpStgMedium == NULL) return FALSE;
  memset(lpStgMedium, 0, sizeof(*lpStgMedium));
  if (m_lpDataObject == NULL) return FALSE;
  FORMATETC formatEtc;
  AfxOleFillFormatEtc(formatEtc, cfFormat, lpFormatEtc, kAnyTymed);
  if (m_lpDataObject->GetData(&formatEtc, lpStgMedium) != S_OK) {
    memset(lpStgMedium, 0, sizeof(*lpStgMedium));
    return FALSE;
  }
  return TRUE;
}

HGLOBAL COleDataObject::GetGlobalData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc) {
  FORMATETC formatEtc;
  AfxOleFillFormatEtc(formatEtc, cfFormat, lpFormatEtc, TYMED_HGLOBAL | TYMED_ISTREAM);
  STGMEDIUM stgMedium;
  if (!GetData(cfFormat, &stgMedium, &formatEtc)) return NULL;
  // A block with no one else to release it is the caller's as it stands;
  // anything else is copied and the medium given back.
  if (stgMedium.tymed == TYMED_HGLOBAL && stgMedium.pUnkForRelease == NULL)
    return stgMedium.hGlobal;
  HGLOBAL hGlobal = NULL;
  if (stgMedium.tymed == TYMED_HGLOBAL)
    hGlobal = AfxOleCopyGlobal(stgMedium.hGlobal);
  else if (stgMedium.tymed == TYMED_ISTREAM)
    hGlobal = AfxOleGlobalFromStream(stgMedium.pstm, kMaxCopyBytes);
  ::ReleaseStgMedium(&stgMedium);
  return hGlobal;
}

CFile* COleDataObject::GetFileData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc) {
  HGLOBAL hGlobal = GetGlobalData(cfFormat, lpFormatEtc);
  if (hGlobal == NULL) return NULL;
  CSharedFile* pFile = NULL;
  try {
    pFile = new CSharedFile(GMEM_MOVEABLE | GMEM_SHARE); // CObject's new throws
    pFile->SetHandle(hGlobal, FALSE);                    // the file frees the block when deleted
  } catch (CException*) {
    delete pFile;
    ::GlobalFree(hGlobal);
    throw;
  }
  return pFile;
}
