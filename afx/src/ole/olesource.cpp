// COleDataSource: the format cache, its IDataObject, its format enumerator
// and its place on the clipboard.
#include <afxadv.h>

#include "oleimpl.h"

IMPLEMENT_DYNAMIC(COleDataSource, CCmdTarget)

namespace {

// The source that SetClipboard placed last; cleared when that source dies.
COleDataSource* volatile g_pClipboardSource = NULL;

// Formats whose "global" handle is a GDI object.
bool IsGdiFormat(CLIPFORMAT cf) { return cf == CF_BITMAP || cf == CF_PALETTE; }

// A copy of *ptd in task memory (the caller frees it), or NULL.
DVTARGETDEVICE* CopyTargetDevice(const DVTARGETDEVICE* ptd) {
  if (ptd == NULL) return NULL;
  DVTARGETDEVICE* pCopy = (DVTARGETDEVICE*)::CoTaskMemAlloc(ptd->tdSize);
  if (pCopy != NULL) memcpy(pCopy, ptd, ptd->tdSize);
  return pCopy;
}

// A copy of a cached medium for a receiver, who releases it with
// ReleaseStgMedium; the cache keeps its own.
HRESULT CopyStgMedium(CLIPFORMAT cf, STGMEDIUM* pDest, const STGMEDIUM* pSrc) {
  memset(pDest, 0, sizeof(*pDest));
  switch (pSrc->tymed) {
  case TYMED_HGLOBAL:
    pDest->hGlobal = AfxOleCopyGlobal(pSrc->hGlobal);
    if (pDest->hGlobal == NULL) return E_OUTOFMEMORY;
    break;
  case TYMED_GDI:
  case TYMED_MFPICT:
  case TYMED_ENHMF:
    pDest->hGlobal = (HGLOBAL)::OleDuplicateData(pSrc->hGlobal, cf, GMEM_MOVEABLE | GMEM_SHARE);
    if (pDest->hGlobal == NULL) return E_OUTOFMEMORY;
    break;
  case TYMED_ISTREAM:
  case TYMED_ISTORAGE:
    // Shared, as OLE does: the receiver releases its own reference.
    pDest->pstm = pSrc->pstm;
    if (pDest->pstm != NULL) pDest->pstm->AddRef();
    break;
  case TYMED_FILE: {
    if (pSrc->lpszFileName == NULL) return DV_E_STGMEDIUM;
    const size_t nBytes = (wcslen(pSrc->lpszFileName) + 1) * sizeof(WCHAR);
    pDest->lpszFileName = (LPOLESTR)::CoTaskMemAlloc(nBytes);
    if (pDest->lpszFileName == NULL) return E_OUTOFMEMORY;
    memcpy(pDest->lpszFileName, pSrc->lpszFileName, nBytes);
    break;
  }
  default:
    return DV_E_TYMED;
  }
  pDest->tymed = pSrc->tymed;
  return S_OK;
}

// The formats of one direction, as they stood when EnumFormatEtc was called.
class CFormatEnumerator : public IEnumFORMATETC {
public:
  CFormatEnumerator() : m_nRef(1), m_pFormats(NULL), m_nCount(0), m_nNext(0) {}

  // FALSE when memory runs out.
  BOOL Init(const FORMATETC* pFormats, UINT nCount) {
    if (nCount != 0) {
      m_pFormats = new (std::nothrow) FORMATETC[nCount];
      if (m_pFormats == NULL) return FALSE;
    }
    for (UINT i = 0; i < nCount; i++) {
      m_pFormats[i] = pFormats[i];
      m_pFormats[i].ptd = CopyTargetDevice(pFormats[i].ptd);
    }
    m_nCount = nCount;
    return TRUE;
  }

  STDMETHOD(QueryInterface)(REFIID riid, void** ppv) {
    if (ppv == NULL) return E_POINTER;
    if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IEnumFORMATETC)) {
      *ppv = static_cast<IEnumFORMATETC*>(this);
      AddRef();
      return S_OK;
    }
    *ppv = NULL;
    return E_NOINTERFACE;
  }
  STDMETHOD_(ULONG, AddRef)() { return (ULONG)::InterlockedIncrement(&m_nRef); }
  STDMETHOD_(ULONG, Release)() {
    const LONG n = ::InterlockedDecrement(&m_nRef);
    if (n == 0) delete this;
    return (ULONG)n;
  }
  STDMETHOD(Next)(ULONG celt, FORMATETC* rgelt, ULONG* pceltFetched) {
    if (rgelt == NULL || (celt != 1 && pceltFetched == NULL)) return E_POINTER;
    ULONG n = 0;
    while (n < celt && m_nNext < m_nCount) {
      rgelt[n] = m_pFormats[m_nNext++];
      rgelt[n].ptd = CopyTargetDevice(rgelt[n].ptd);
      n++;
    }
    if (pceltFetched != NULL) *pceltFetched = n;
    return n == celt ? S_OK : S_FALSE;
  }
  STDMETHOD(Skip)(ULONG celt) {
    const UINT nLeft = m_nCount - m_nNext;
    if (celt > nLeft) {
      m_nNext = m_nCount;
      return S_FALSE;
    }
    m_nNext += celt;
    return S_OK;
  }
  STDMETHOD(Reset)() {
    m_nNext = 0;
    return S_OK;
  }
  STDMETHOD(Clone)(IEnumFORMATETC** ppenum) {
    if (ppenum == NULL) return E_POINTER;
    *ppenum = NULL;
    CFormatEnumerator* pClone = new (std::nothrow) CFormatEnumerator;
    if (pClone == NULL) return E_OUTOFMEMORY;
    if (!pClone->Init(m_pFormats, m_nCount)) {
      pClone->Release();
      return E_OUTOFMEMORY;
    }
    pClone->m_nNext = m_nNext;
    *ppenum = pClone;
    return S_OK;
  }

private:
  virtual ~CFormatEnumerator() {
    for (UINT i = 0; i < m_nCount; i++)
      ::CoTaskMemFree(m_pFormats[i].ptd);
    delete[] m_pFormats;
  }

  LONG m_nRef;
  FORMATETC* m_pFormats;
  UINT m_nCount;
  UINT m_nNext;
};

} // namespace

// ---- Construction and the cache ---------------------------------------------------

COleDataSource::COleDataSource()
    : m_pDataCache(NULL), m_nMaxSize(0), m_nSize(0), m_nGrowBy(10), m_dwRef(1) {}

COleDataSource::~COleDataSource() {
  // Deleted while still on the clipboard (a misuse: references remain):
  // render the data there first so that the clipboard does not keep a
  // pointer to a dead object. The clipboard's release must not delete us a
  // second time. A source the clipboard released itself (no references
  // left) may still look current while OLE replaces or empties it.
  if (m_dwRef > 0 && ::OleIsCurrentClipboard(&m_xDataObject) == S_OK) {
    m_dwRef += 0x10000;
    ::OleFlushClipboard();
  }
  ::InterlockedCompareExchangePointer((PVOID volatile*)&g_pClipboardSource, NULL, this);
  Empty();
  free(m_pDataCache);
}

COleDataSource::AFX_DATACACHE_ENTRY* COleDataSource::Lookup(LPFORMATETC lpFormatEtc,
                                                            DATADIR nDataDir) const {
  for (UINT i = 0; i < m_nSize; i++) {
    AFX_DATACACHE_ENTRY* pEntry = &m_pDataCache[i];
    const FORMATETC& fmt = pEntry->m_formatEtc;
    if (pEntry->m_nDataDir != nDataDir || fmt.cfFormat != lpFormatEtc->cfFormat) continue;
    if (fmt.dwAspect != lpFormatEtc->dwAspect) continue;
    if (lpFormatEtc->lindex != -1 && fmt.lindex != lpFormatEtc->lindex) continue;
    if ((fmt.tymed & lpFormatEtc->tymed) == 0) continue;
    return pEntry;
  }
  return NULL;
}

COleDataSource::AFX_DATACACHE_ENTRY* COleDataSource::GetCacheEntry(LPFORMATETC lpFormatEtc,
                                                                   DATADIR nDataDir) {
  for (UINT i = 0; i < m_nSize; i++) {
    AFX_DATACACHE_ENTRY* pEntry = &m_pDataCache[i];
    const FORMATETC& fmt = pEntry->m_formatEtc;
    if (pEntry->m_nDataDir == nDataDir && fmt.cfFormat == lpFormatEtc->cfFormat &&
        fmt.dwAspect == lpFormatEtc->dwAspect && fmt.lindex == lpFormatEtc->lindex &&
        fmt.tymed == lpFormatEtc->tymed) {
      // Replaced where it stands, so the formats keep their order.
      ::CoTaskMemFree(pEntry->m_formatEtc.ptd);
      if (pEntry->m_stgMedium.tymed != TYMED_NULL) ::ReleaseStgMedium(&pEntry->m_stgMedium);
      memset(&pEntry->m_stgMedium, 0, sizeof(STGMEDIUM));
      pEntry->m_formatEtc = *lpFormatEtc;
      pEntry->m_formatEtc.ptd = CopyTargetDevice(lpFormatEtc->ptd);
      return pEntry;
    }
  }
  if (m_nSize == m_nMaxSize) {
    const UINT nNewMax = m_nMaxSize + m_nGrowBy;
    AFX_DATACACHE_ENTRY* pNew =
        (AFX_DATACACHE_ENTRY*)realloc(m_pDataCache, nNewMax * sizeof(AFX_DATACACHE_ENTRY));
    if (pNew == NULL) AfxThrowMemoryException();
    m_pDataCache = pNew;
    m_nMaxSize = nNewMax;
  }
  AFX_DATACACHE_ENTRY* pEntry = &m_pDataCache[m_nSize++];
  pEntry->m_formatEtc = *lpFormatEtc;
  pEntry->m_formatEtc.ptd = CopyTargetDevice(lpFormatEtc->ptd);
  memset(&pEntry->m_stgMedium, 0, sizeof(STGMEDIUM));
  pEntry->m_nDataDir = nDataDir;
  return pEntry;
}

void COleDataSource::CacheGlobalData(CLIPFORMAT cfFormat, HGLOBAL hGlobal,
                                     LPFORMATETC lpFormatEtc) {
  STGMEDIUM stgMedium;
  stgMedium.tymed = IsGdiFormat(cfFormat) ? TYMED_GDI : TYMED_HGLOBAL;
  stgMedium.hGlobal = hGlobal;
  stgMedium.pUnkForRelease = NULL;
  FORMATETC formatEtc;
  AfxOleFillFormatEtc(formatEtc, cfFormat, lpFormatEtc, stgMedium.tymed);
  formatEtc.tymed = stgMedium.tymed; // the medium is what it is
  CacheData(cfFormat, &stgMedium, &formatEtc);
}

void COleDataSource::CacheData(CLIPFORMAT cfFormat, LPSTGMEDIUM lpStgMedium,
                               LPFORMATETC lpFormatEtc) {
  if (lpStgMedium == NULL || lpStgMedium->tymed == TYMED_NULL) AfxThrowInvalidArgException();
  FORMATETC formatEtc;
  AfxOleFillFormatEtc(formatEtc, cfFormat, lpFormatEtc, lpStgMedium->tymed);
  formatEtc.tymed = lpStgMedium->tymed;
  AFX_DATACACHE_ENTRY* pEntry;
  try {
    pEntry = GetCacheEntry(&formatEtc, DATADIR_GET);
  } catch (CException*) {
    ::ReleaseStgMedium(lpStgMedium); // ours now, even when it cannot be kept
    throw;
  }
  pEntry->m_stgMedium = *lpStgMedium;
}

void COleDataSource::DelayRenderData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc) {
  FORMATETC formatEtc;
  AfxOleFillFormatEtc(formatEtc, cfFormat, lpFormatEtc, TYMED_HGLOBAL);
  GetCacheEntry(&formatEtc, DATADIR_GET);
}

void COleDataSource::DelayRenderFileData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc) {
  FORMATETC formatEtc;
  AfxOleFillFormatEtc(formatEtc, cfFormat, lpFormatEtc, TYMED_HGLOBAL | TYMED_ISTREAM);
  GetCacheEntry(&formatEtc, DATADIR_GET);
}

void COleDataSource::DelaySetData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc) {
  FORMATETC formatEtc;
  AfxOleFillFormatEtc(formatEtc, cfFormat, lpFormatEtc, TYMED_HGLOBAL);
  GetCacheEntry(&formatEtc, DATADIR_SET);
}

void COleDataSource::Empty() {
  for (UINT i = 0; i < m_nSize; i++) {
    AFX_DATACACHE_ENTRY* pEntry = &m_pDataCache[i];
    ::CoTaskMemFree(pEntry->m_formatEtc.ptd);
    if (pEntry->m_stgMedium.tymed != TYMED_NULL) ::ReleaseStgMedium(&pEntry->m_stgMedium);
  }
  m_nSize = 0;
}

// ---- The clipboard ---------------------------------------------------------------------

void COleDataSource::SetClipboard() {
  if (SUCCEEDED(::OleSetClipboard(&m_xDataObject)))
    ::InterlockedExchangePointer((PVOID volatile*)&g_pClipboardSource, this);
  // The creator's reference goes to the clipboard (which took its own); if
  // OLE refused, this deletes the source.
  InternalRelease();
}

void PASCAL COleDataSource::FlushClipboard() {
  if (GetClipboardOwner() != NULL) ::OleFlushClipboard();
}

COleDataSource* PASCAL COleDataSource::GetClipboardOwner() {
  COleDataSource* pSource = g_pClipboardSource;
  if (pSource == NULL || ::OleIsCurrentClipboard(&pSource->m_xDataObject) != S_OK) return NULL;
  return pSource;
}

// ---- Rendering ------------------------------------------------------------------------

BOOL COleDataSource::OnRenderData(LPFORMATETC lpFormatEtc, LPSTGMEDIUM lpStgMedium) {
  const bool bFill = lpStgMedium->tymed != TYMED_NULL; // GetDataHere: fill in place
  if (lpFormatEtc->tymed & TYMED_HGLOBAL) {
    HGLOBAL hGlobal = bFill ? lpStgMedium->hGlobal : NULL;
    if (OnRenderGlobalData(lpFormatEtc, &hGlobal)) {
      lpStgMedium->tymed = TYMED_HGLOBAL;
      lpStgMedium->hGlobal = hGlobal;
      lpStgMedium->pUnkForRelease = NULL;
      return TRUE;
    }
  }
  if (bFill || (lpFormatEtc->tymed & (TYMED_HGLOBAL | TYMED_ISTREAM)) == 0) return FALSE;
  // A file rendering into a shared memory file, handed over as a block or
  // as a stream on the block.
  CSharedFile file(GMEM_MOVEABLE | GMEM_SHARE);
  if (!OnRenderFileData(lpFormatEtc, &file)) return FALSE;
  const ULONGLONG nLength = file.GetLength();
  HGLOBAL hGlobal = file.Detach();
  if (hGlobal == NULL) return FALSE;
  if (lpFormatEtc->tymed & TYMED_HGLOBAL) {
    lpStgMedium->tymed = TYMED_HGLOBAL;
    lpStgMedium->hGlobal = hGlobal;
    lpStgMedium->pUnkForRelease = NULL;
    return TRUE;
  }
  IStream* pStream = NULL;
  if (FAILED(::CreateStreamOnHGlobal(hGlobal, TRUE, &pStream))) {
    ::GlobalFree(hGlobal);
    return FALSE;
  }
  ULARGE_INTEGER size;
  size.QuadPart = nLength; // the block may be larger than what was written
  pStream->SetSize(size);
  lpStgMedium->tymed = TYMED_ISTREAM;
  lpStgMedium->pstm = pStream;
  lpStgMedium->pUnkForRelease = NULL;
  return TRUE;
}

BOOL COleDataSource::OnRenderGlobalData(LPFORMATETC, HGLOBAL*) { return FALSE; }
BOOL COleDataSource::OnRenderFileData(LPFORMATETC, CFile*) { return FALSE; }
BOOL COleDataSource::OnSetData(LPFORMATETC, LPSTGMEDIUM, BOOL) { return FALSE; }

// ---- Reference counting -----------------------------------------------------------------

LPUNKNOWN COleDataSource::GetInterface(const void* iid) {
  const IID& riid = *(const IID*)iid;
  if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IDataObject)) return &m_xDataObject;
  return NULL;
}

DWORD COleDataSource::ExternalQueryInterface(const void* iid, LPVOID* ppvObj) {
  return (DWORD)m_xDataObject.QueryInterface(*(const IID*)iid, ppvObj);
}

DWORD COleDataSource::InternalAddRef() { return (DWORD)::InterlockedIncrement(&m_dwRef); }

DWORD COleDataSource::InternalRelease() {
  const LONG n = ::InterlockedDecrement(&m_dwRef);
  if (n == 0) OnFinalRelease();
  return (DWORD)n;
}

void COleDataSource::OnFinalRelease() { delete this; }

// ---- IDataObject ------------------------------------------------------------------------

// The interface is a member of its source, at a fixed offset.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
COleDataSource* COleDataSource::XDataObject::This() {
  return (COleDataSource*)((BYTE*)this - offsetof(COleDataSource, m_xDataObject));
}
#pragma GCC diagnostic pop

STDMETHODIMP COleDataSource::XDataObject::QueryInterface(REFIID riid, void** ppvObject) {
  if (ppvObject == NULL) return E_POINTER;
  *ppvObject = This()->GetInterface(&riid);
  if (*ppvObject == NULL) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) COleDataSource::XDataObject::AddRef() { return This()->InternalAddRef(); }

STDMETHODIMP_(ULONG) COleDataSource::XDataObject::Release() { return This()->InternalRelease(); }

// MFC's exceptions do not cross a COM boundary: they become HRESULTs.
STDMETHODIMP COleDataSource::XDataObject::GetData(FORMATETC* pformatetcIn, STGMEDIUM* pmedium) {
  if (pformatetcIn == NULL || pmedium == NULL) return E_POINTER;
  memset(pmedium, 0, sizeof(*pmedium));
  COleDataSource* pThis = This();
  AFX_DATACACHE_ENTRY* pEntry = pThis->Lookup(pformatetcIn, DATADIR_GET);
  if (pEntry == NULL) return DV_E_FORMATETC;
  if (pEntry->m_stgMedium.tymed != TYMED_NULL)
    return CopyStgMedium(pformatetcIn->cfFormat, pmedium, &pEntry->m_stgMedium);
  // Delayed: render in a medium that both sides accept.
  FORMATETC formatEtc = *pformatetcIn;
  formatEtc.tymed &= pEntry->m_formatEtc.tymed;
  try {
    if (pThis->OnRenderData(&formatEtc, pmedium)) return S_OK;
  } catch (CException* e) {
    e->Delete();
    return E_UNEXPECTED;
  }
  memset(pmedium, 0, sizeof(*pmedium));
  return DV_E_FORMATETC;
}

STDMETHODIMP COleDataSource::XDataObject::GetDataHere(FORMATETC* pformatetc, STGMEDIUM* pmedium) {
  if (pformatetc == NULL || pmedium == NULL) return E_POINTER;
  COleDataSource* pThis = This();
  AFX_DATACACHE_ENTRY* pEntry = pThis->Lookup(pformatetc, DATADIR_GET);
  if (pEntry == NULL) return DV_E_FORMATETC;
  const STGMEDIUM& cached = pEntry->m_stgMedium;
  if (cached.tymed == TYMED_NULL) { // delayed: fill the caller's medium
    if (pmedium->tymed != TYMED_HGLOBAL || (pEntry->m_formatEtc.tymed & TYMED_HGLOBAL) == 0)
      return DV_E_TYMED;
    FORMATETC formatEtc = *pformatetc;
    formatEtc.tymed = TYMED_HGLOBAL;
    try {
      return pThis->OnRenderData(&formatEtc, pmedium) ? S_OK : E_FAIL;
    } catch (CException* e) {
      e->Delete();
      return E_UNEXPECTED;
    }
  }
  if (cached.tymed != TYMED_HGLOBAL) return DV_E_TYMED;
  const SIZE_T nSize = ::GlobalSize(cached.hGlobal);
  if (pmedium->tymed == TYMED_HGLOBAL) {
    if (::GlobalSize(pmedium->hGlobal) < nSize) return STG_E_MEDIUMFULL;
    void* pDest = ::GlobalLock(pmedium->hGlobal);
    const void* pSrc = ::GlobalLock(cached.hGlobal);
    if (pDest != NULL && pSrc != NULL) memcpy(pDest, pSrc, nSize);
    if (pSrc != NULL) ::GlobalUnlock(cached.hGlobal);
    if (pDest != NULL) ::GlobalUnlock(pmedium->hGlobal);
    return pDest != NULL && pSrc != NULL ? S_OK : E_OUTOFMEMORY;
  }
  if (pmedium->tymed == TYMED_ISTREAM && pmedium->pstm != NULL) {
    const void* pSrc = ::GlobalLock(cached.hGlobal);
    if (pSrc == NULL) return E_OUTOFMEMORY;
    ULONG nWritten = 0;
    const HRESULT hr = pmedium->pstm->Write(pSrc, (ULONG)nSize, &nWritten);
    ::GlobalUnlock(cached.hGlobal);
    return FAILED(hr) ? hr : (nWritten == nSize ? S_OK : STG_E_MEDIUMFULL);
  }
  return DV_E_TYMED;
}

STDMETHODIMP COleDataSource::XDataObject::QueryGetData(FORMATETC* pformatetc) {
  if (pformatetc == NULL) return E_POINTER;
  return This()->Lookup(pformatetc, DATADIR_GET) != NULL ? S_OK : DV_E_FORMATETC;
}

STDMETHODIMP COleDataSource::XDataObject::GetCanonicalFormatEtc(FORMATETC* pformatectIn,
                                                                FORMATETC* pformatetcOut) {
  if (pformatectIn == NULL || pformatetcOut == NULL) return E_POINTER;
  *pformatetcOut = *pformatectIn;
  pformatetcOut->ptd = NULL;
  return DATA_S_SAMEFORMATETC;
}

STDMETHODIMP COleDataSource::XDataObject::SetData(FORMATETC* pformatetc, STGMEDIUM* pmedium,
                                                  BOOL fRelease) {
  if (pformatetc == NULL || pmedium == NULL) return E_POINTER;
  COleDataSource* pThis = This();
  if (pThis->Lookup(pformatetc, DATADIR_SET) == NULL) return DV_E_FORMATETC;
  try {
    return pThis->OnSetData(pformatetc, pmedium, fRelease) ? S_OK : E_FAIL;
  } catch (CException* e) {
    e->Delete();
    return E_UNEXPECTED;
  }
}

STDMETHODIMP COleDataSource::XDataObject::EnumFormatEtc(DWORD dwDirection,
                                                        IEnumFORMATETC** ppenumFormatEtc) {
  if (ppenumFormatEtc == NULL) return E_POINTER;
  *ppenumFormatEtc = NULL;
  if (dwDirection != DATADIR_GET && dwDirection != DATADIR_SET) return E_INVALIDARG;
  COleDataSource* pThis = This();
  FORMATETC* pFormats = NULL;
  UINT nCount = 0;
  if (pThis->m_nSize != 0) {
    pFormats = new (std::nothrow) FORMATETC[pThis->m_nSize];
    if (pFormats == NULL) return E_OUTOFMEMORY;
    for (UINT i = 0; i < pThis->m_nSize; i++) {
      if (pThis->m_pDataCache[i].m_nDataDir == (DATADIR)dwDirection)
        pFormats[nCount++] = pThis->m_pDataCache[i].m_formatEtc;
    }
  }
  CFormatEnumerator* pEnum = new (std::nothrow) CFormatEnumerator;
  const BOOL bOk = pEnum != NULL && pEnum->Init(pFormats, nCount);
  delete[] pFormats;
  if (!bOk) {
    if (pEnum != NULL) pEnum->Release();
    return E_OUTOFMEMORY;
  }
  *ppenumFormatEtc = pEnum;
  return S_OK;
}

STDMETHODIMP COleDataSource::XDataObject::DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) {
  return OLE_E_ADVISENOTSUPPORTED;
}

STDMETHODIMP COleDataSource::XDataObject::DUnadvise(DWORD) { return OLE_E_ADVISENOTSUPPORTED; }

STDMETHODIMP COleDataSource::XDataObject::EnumDAdvise(IEnumSTATDATA**) {
  return OLE_E_ADVISENOTSUPPORTED;
}
