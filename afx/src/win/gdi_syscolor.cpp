// AfxLoadSysColorBitmap: a bitmap resource with the standard button greys
// replaced by the current system colours.
#include <afxwin.h>
#include <afxgdi_.h>

namespace {

struct SysColorMap {
  BYTE red, green, blue; // the colour as drawn in the resource
  int nSysColor;         // the system colour that replaces it
};

const SysColorMap kSysColorMap[] = {
    {0x00, 0x00, 0x00, COLOR_BTNTEXT},      // black
    {0x80, 0x80, 0x80, COLOR_BTNSHADOW},    // dark grey
    {0xC0, 0xC0, 0xC0, COLOR_BTNFACE},      // light grey
    {0xFF, 0xFF, 0xFF, COLOR_BTNHIGHLIGHT}, // white
};

// Checks that the resource holds a whole DIB with a colour table and bits
// the size its header claims; returns the size of header plus colour table,
// or 0. Only uncompressed DIBs of 1, 4 or 8 bits per pixel qualify: those
// are the ones with a colour table to remap (left to the implementer: other
// formats are refused rather than loaded unmapped).
DWORD CheckColorTableDib(const BITMAPINFOHEADER* pHeader, DWORD cbResource) {
  if (cbResource < sizeof(BITMAPINFOHEADER)) return 0;
  if (pHeader->biSize < sizeof(BITMAPINFOHEADER) || pHeader->biSize > cbResource) return 0;
  const WORD nBitCount = pHeader->biBitCount;
  if (nBitCount != 1 && nBitCount != 4 && nBitCount != 8) return 0;
  if (pHeader->biCompression != BI_RGB || pHeader->biPlanes != 1) return 0;
  if (pHeader->biWidth <= 0 || pHeader->biHeight == 0) return 0;

  const DWORD nMaxColors = 1u << nBitCount;
  const DWORD nColors = pHeader->biClrUsed == 0 ? nMaxColors : pHeader->biClrUsed;
  if (nColors > nMaxColors) return 0;
  const unsigned long long cbInfo = pHeader->biSize + (unsigned long long)nColors * sizeof(RGBQUAD);
  // 64-bit arithmetic: a corrupt width or height cannot wrap the sum.
  const unsigned long long nHeight =
      pHeader->biHeight < 0 ? -(long long)pHeader->biHeight : pHeader->biHeight;
  const unsigned long long cbStride =
      (((unsigned long long)pHeader->biWidth * nBitCount + 31) / 32) * 4;
  if (cbInfo + cbStride * nHeight > cbResource) return 0;
  return (DWORD)cbInfo;
}

} // namespace

HBITMAP AFXAPI AfxLoadSysColorBitmap(HINSTANCE hInst, HRSRC hRsrc, BOOL bMono) {
  if (hRsrc == NULL) return NULL;
  HGLOBAL hGlobal = ::LoadResource(hInst, hRsrc);
  if (hGlobal == NULL) return NULL;
  const BITMAPINFOHEADER* pResource = (const BITMAPINFOHEADER*)::LockResource(hGlobal);
  if (pResource == NULL) return NULL;
  const DWORD cbInfo = CheckColorTableDib(pResource, ::SizeofResource(hInst, hRsrc));
  if (cbInfo == 0) return NULL;

  // Resources are read-only: the header and colour table are remapped in a
  // copy, and the bits are read from the resource in place.
  BITMAPINFOHEADER* pInfo = (BITMAPINFOHEADER*)malloc(cbInfo);
  if (pInfo == NULL) AfxThrowMemoryException();
  memcpy(pInfo, pResource, cbInfo);
  RGBQUAD* pColorTable = (RGBQUAD*)((BYTE*)pInfo + pInfo->biSize);
  const int nColors = (int)((cbInfo - pInfo->biSize) / sizeof(RGBQUAD));
  for (int iColor = 0; iColor < nColors; iColor++) {
    for (size_t i = 0; i < _countof(kSysColorMap); i++) {
      const SysColorMap& map = kSysColorMap[i];
      RGBQUAD& entry = pColorTable[iColor];
      if (entry.rgbRed == map.red && entry.rgbGreen == map.green && entry.rgbBlue == map.blue) {
        const COLORREF clrSys = ::GetSysColor(map.nSysColor);
        entry.rgbRed = GetRValue(clrSys);
        entry.rgbGreen = GetGValue(clrSys);
        entry.rgbBlue = GetBValue(clrSys);
        break;
      }
    }
  }

  const int nWidth = (int)pInfo->biWidth;
  const int nHeight = pInfo->biHeight < 0 ? -(int)pInfo->biHeight : (int)pInfo->biHeight;
  const BYTE* pBits = (const BYTE*)pResource + cbInfo;

  HBITMAP hBitmap = NULL;
  HDC hScreenDC = ::GetDC(NULL);
  if (hScreenDC != NULL) {
    hBitmap = bMono ? ::CreateBitmap(nWidth, nHeight, 1, 1, NULL)
                    : ::CreateCompatibleBitmap(hScreenDC, nWidth, nHeight);
    HDC hMemDC = ::CreateCompatibleDC(hScreenDC);
    if (hBitmap != NULL && hMemDC != NULL) {
      HGDIOBJ hOld = ::SelectObject(hMemDC, hBitmap);
      ::StretchDIBits(hMemDC, 0, 0, nWidth, nHeight, 0, 0, nWidth, nHeight, pBits,
                      (const BITMAPINFO*)pInfo, DIB_RGB_COLORS, SRCCOPY);
      ::SelectObject(hMemDC, hOld);
    } else if (hBitmap != NULL) {
      ::DeleteObject(hBitmap);
      hBitmap = NULL;
    }
    if (hMemDC != NULL) ::DeleteDC(hMemDC);
    ::ReleaseDC(NULL, hScreenDC);
  }
  free(pInfo);
  return hBitmap;
}
