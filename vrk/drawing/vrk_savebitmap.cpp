// SaveBitmap: a bitmap written as a Windows BMP file.
#include "vrk_gdi.h"

namespace {

// Planes times bits per pixel, rounded up to a depth a BMP file has.
WORD FileDepth(const BITMAP& bm) {
  int c = bm.bmPlanes * bm.bmBitsPixel;
  static const WORD kDepths[] = {1, 4, 8, 16, 24};
  for (WORD d : kDepths)
    if (c <= d) return d;
  return 32;
}

} // namespace

int SaveBitmap(HDC hDC, const char* pszFile, HBITMAP hBitmap) {
  if (hDC == NULL || pszFile == NULL || hBitmap == NULL) return 0;
  BITMAP bm;
  if (::GetObject(hBitmap, sizeof(bm), &bm) != sizeof(bm)) return 0;
  WORD c = FileDepth(bm);
  DWORD nColors = c < 24 ? (DWORD)1 << c : 0;
  // A 32-bit header has room for one (unused) entry.
  DWORD nRoom = c < 24 ? nColors : (c == 32 ? 1 : 0);
  DWORD cbStride = (((DWORD)bm.bmWidth * c + 31) & ~31u) / 8;
  DWORD cbImage = cbStride * (DWORD)bm.bmHeight;
  BITMAPINFOHEADER* pHeader =
      (BITMAPINFOHEADER*)calloc(1, sizeof(BITMAPINFOHEADER) + nRoom * sizeof(RGBQUAD));
  if (pHeader == NULL) return 0;
  pHeader->biSize = sizeof(BITMAPINFOHEADER);
  pHeader->biWidth = bm.bmWidth;
  pHeader->biHeight = bm.bmHeight;
  pHeader->biPlanes = 1;
  pHeader->biBitCount = c;
  pHeader->biCompression = BI_RGB;
  pHeader->biClrUsed = nColors;
  pHeader->biSizeImage = cbImage;
  pHeader->biClrImportant = 0;
  BYTE* pBits = (BYTE*)malloc(cbImage != 0 ? cbImage : 1);
  if (pBits == NULL) {
    free(pHeader);
    return 0;
  }
  ::GetDIBits(hDC, hBitmap, 0, (UINT)bm.bmHeight, pBits, (BITMAPINFO*)pHeader, DIB_RGB_COLORS);
  // GetDIBits may have filled in fields of its own; the file keeps ours.
  pHeader->biClrUsed = nColors;
  pHeader->biSizeImage = cbImage;
  pHeader->biClrImportant = 0;

  HANDLE hFile = ::CreateFileA(pszFile, GENERIC_READ | GENERIC_WRITE, 0, NULL, CREATE_ALWAYS,
                               FILE_ATTRIBUTE_NORMAL, NULL);
  int nResult = 0;
  if (hFile != INVALID_HANDLE_VALUE) {
    DWORD cbHeader = sizeof(BITMAPINFOHEADER) + nColors * sizeof(RGBQUAD);
    BITMAPFILEHEADER file;
    file.bfType = 0x4D42; // "BM"
    file.bfSize = sizeof(BITMAPFILEHEADER) + cbHeader + cbImage;
    file.bfReserved1 = 0;
    file.bfReserved2 = 0;
    file.bfOffBits = sizeof(BITMAPFILEHEADER) + cbHeader;
    DWORD cbDone;
    ::WriteFile(hFile, &file, sizeof(file), &cbDone, NULL);
    ::WriteFile(hFile, pHeader, cbHeader, &cbDone, NULL);
    ::WriteFile(hFile, pBits, cbImage, &cbDone, NULL);
    ::CloseHandle(hFile);
    nResult = 1;
  }
  free(pBits);
  free(pHeader);
  return nResult;
}
