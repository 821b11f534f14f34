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

// The stream belongs to someone else: its reported size is only a hint, and
// the block grows with what is really read, never past nMaxBytes.
HGLOBAL AfxOleGlobalFromStream(IStream* pStream, ULONGLONG nMaxBytes) {
  if (pStream == NULL) return NULL;
  LARGE_INTEGER zero;
  zero.QuadPart = 0;
  if (FAILED(pStream->Seek(zero, STREAM_SEEK_SET, NULL))) return NULL;
  const SIZE_T kChunk = 0x10000;
  STATSTG stat;
  SIZE_T nAlloc = kChunk;
  if (SUCCEEDED(pStream->Stat(&stat, STATFLAG_NONAME)) && stat.cbSize.QuadPart < kChunk)
    nAlloc = (SIZE_T)stat.cbSize.QuadPart + 1; // one more byte sees the end
  HGLOBAL hGlobal = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_SHARE, nAlloc);
  if (hGlobal == NULL) return NULL;
  SIZE_T nUsed = 0;
  for (;;) {
    if (nUsed == nAlloc) {
      if (nAlloc >= nMaxBytes) break; // too large: refused below
      const SIZE_T nNew = nAlloc + (nAlloc < kChunk ? kChunk : nAlloc);
      HGLOBAL hNew =
          ::GlobalReAlloc(hGlobal, nNew < nMaxBytes ? nNew : (SIZE_T)nMaxBytes, GMEM_MOVEABLE);
      if (hNew == NULL) break;
      hGlobal = hNew;
      nAlloc = ::GlobalSize(hGlobal);
    }
    BYTE* p = (BYTE*)::GlobalLock(hGlobal);
    if (p == NULL) break;
    ULONG nRead = 0;
    const HRESULT hr = pStream->Read(p + nUsed, (ULONG)(nAlloc - nUsed), &nRead);
    ::GlobalUnlock(hGlobal);
    if (FAILED(hr) || nRead > nAlloc - nUsed) break;
    nUsed += nRead;
    if (nRead == 0 || nUsed < nAlloc) { // the end of the stream
      HGLOBAL hFinal = ::GlobalReAlloc(hGlobal, nUsed != 0 ? nUsed : 1, GMEM_MOVEABLE);
      return hFinal != NULL ? hFinal : hGlobal;
    }
  }
  ::GlobalFree(hGlobal);
  return NULL;
}
