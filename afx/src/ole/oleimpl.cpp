// Helpers shared by COleDataSource and COleDataObject.
#include "oleimpl.h"

void AfxOleFillFormatEtc(FORMATETC& formatEtc, CLIPFORMAT cfFormat, const FORMATETC* lpFormatEtcIn,
                         DWORD tymedDefault) {
  if (lpFormatEtcIn != NULL) {
    formatEtc = *lpFormatEtcIn;
    formatEtc.cfFormat = cfFormat;
    return;
  }
  formatEtc.cfFormat = cfFormat;
  formatEtc.ptd = NULL;
  formatEtc.dwAspect = DVASPECT_CONTENT;
  formatEtc.lindex = -1;
  formatEtc.tymed = tymedDefault;
}

HGLOBAL AfxOleCopyGlobal(HGLOBAL hSrc) {
  if (hSrc == NULL) return NULL;
  const SIZE_T nSize = ::GlobalSize(hSrc);
  const void* pSrc = ::GlobalLock(hSrc);
  if (pSrc == NULL) return NULL;
  HGLOBAL hDest = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_SHARE, nSize != 0 ? nSize : 1);
  void* pDest = hDest != NULL ? ::GlobalLock(hDest) : NULL;
  if (pDest == NULL) {
    if (hDest != NULL) ::GlobalFree(hDest);
    ::GlobalUnlock(hSrc);
    return NULL;
  }
  memcpy(pDest, pSrc, nSize);
  ::GlobalUnlock(hDest);
  ::GlobalUnlock(hSrc);
  return hDest;
}

HGLOBAL AfxOleGlobalFromStream(IStream* pStream, ULONGLONG nMaxBytes) {
  if (pStream == NULL) return NULL;
  STATSTG stat;
  if (FAILED(pStream->Stat(&stat, STATFLAG_NONAME))) return NULL;
  // The size comes from someone else's object: never trust it beyond the cap.
  if (stat.cbSize.QuadPart > nMaxBytes) return NULL;
  const ULONG nSize = (ULONG)stat.cbSize.QuadPart;
  LARGE_INTEGER zero;
  zero.QuadPart = 0;
  if (FAILED(pStream->Seek(zero, STREAM_SEEK_SET, NULL))) return NULL;
  HGLOBAL hGlobal = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_SHARE, nSize != 0 ? nSize : 1);
  if (hGlobal == NULL) return NULL;
  void* p = ::GlobalLock(hGlobal);
  ULONG nRead = 0;
  const HRESULT hr = p != NULL ? pStream->Read(p, nSize, &nRead) : E_FAIL;
  if (p != NULL) ::GlobalUnlock(hGlobal);
  if (FAILED(hr) || nRead != nSize) {
    ::GlobalFree(hGlobal);
    return NULL;
  }
  return hGlobal;
}
