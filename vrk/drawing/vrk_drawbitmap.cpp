// Bitmaps and icons: loading from the resource chain, drawing at size,
// centred or stretched, and embossed images of an image list.
#include "vrk_gdi.h"

HBITMAP VrkLoadImageBitmap(UINT nID, UINT nFlags, int cx, int cy) {
  HINSTANCE hInst = AfxFindResourceHandle(MAKEINTRESOURCE(nID), RT_BITMAP);
  // The framework answers with the application's module when no module of
  // the chain holds the bitmap.
  if (hInst == NULL || ::FindResource(hInst, MAKEINTRESOURCE(nID), RT_BITMAP) == NULL) return NULL;
  return (HBITMAP)::LoadImageA(hInst, MAKEINTRESOURCE(nID), IMAGE_BITMAP, cx, cy, nFlags);
}

BOOL VrkDrawSmallIcon(HDC hDC, POINT pt, HICON hIcon) {
  if (hDC == NULL || hIcon == NULL) return FALSE;
  return ::DrawIconEx(hDC, pt.x, pt.y, hIcon, 0, 0, 0, NULL, DI_IMAGE);
}

BOOL VrkDrawBitmap(CDC* pDC, CBitmap* pBitmap, CRect* pDest, CSize* pSize, bool bCenter) {
  if (pDC == NULL || pBitmap == NULL || pBitmap->m_hObject == NULL) return FALSE;
  BITMAP bm = {0, 0, 0, 0, 0, 0, NULL};
  if (pDest == NULL || pSize == NULL) pBitmap->GetBitmap(&bm);
  CSize sizeSrc = pSize != NULL ? *pSize : CSize(bm.bmWidth, bm.bmHeight);
  CRect rDest = pDest != NULL ? *pDest : CRect(0, 0, bm.bmWidth, bm.bmHeight);
  CDC dcMem;
  if (!dcMem.CreateCompatibleDC(pDC)) return FALSE;
  CBitmap* pOld = dcMem.SelectObject(pBitmap);
  if (pOld == NULL) return FALSE;
  BOOL bResult;
  if (rDest.Size() == sizeSrc) {
    bResult = pDC->BitBlt(rDest.left, rDest.top, sizeSrc.cx, sizeSrc.cy, &dcMem, 0, 0, SRCCOPY);
  } else if (bCenter) {
    // The absolute difference: a bitmap larger than the destination moves
    // right and down too.
    int x = rDest.left + abs(rDest.Width() - sizeSrc.cx) / 2;
    int y = rDest.top + abs(rDest.Height() - sizeSrc.cy) / 2;
    bResult = pDC->BitBlt(x, y, sizeSrc.cx, sizeSrc.cy, &dcMem, 0, 0, SRCCOPY);
  } else {
    bResult = pDC->StretchBlt(rDest.left, rDest.top, rDest.Width(), rDest.Height(), &dcMem, 0, 0,
                              sizeSrc.cx, sizeSrc.cy, SRCCOPY);
  }
  dcMem.SelectObject(pOld);
  return bResult;
}

BOOL VrkDrawBitmap(CDC* pDC, UINT nID, CRect* pDest, CSize* pSize, bool bCenter) {
  if (pDC == NULL) return FALSE;
  HBITMAP hBitmap = VrkLoadImageBitmap(nID, LR_DEFAULTCOLOR, 0, 0);
  if (hBitmap == NULL) return FALSE;
  CBitmap bitmap;
  bitmap.Attach(hBitmap);
  return VrkDrawBitmap(pDC, &bitmap, pDest, pSize, bCenter);
}

// Paints the brush where the source is black and keeps the target where it
// is white.
static const DWORD kRopBrushWhereBlack = 0xB8074A;

void VrkDrawEmbossed(CDC* pDC, CImageList* pImageList, int nImage, CPoint pt, int bColor) {
  if (pDC == NULL || pImageList == NULL) return;
  IMAGEINFO info;
  if (!pImageList->GetImageInfo(nImage, &info)) return;
  int w = info.rcImage.right - info.rcImage.left;
  int h = info.rcImage.bottom - info.rcImage.top;
  CDC dcMem;
  CBitmap bitmap;
  if (!dcMem.CreateCompatibleDC(pDC)) return;
  BOOL bMade =
      bColor ? bitmap.CreateCompatibleBitmap(pDC, w, h) : bitmap.CreateBitmap(w, h, 1, 1, NULL);
  if (!bMade) return;
  CBitmap* pOldBitmap = dcMem.SelectObject(&bitmap);
  CRect rImage(0, 0, w, h);
  dcMem.FillRect(&rImage, VrkGetStockBrush(1));
  pImageList->Draw(&dcMem, nImage, CPoint(0, 0), ILD_NORMAL);

  COLORREF crOldBk = pDC->SetBkColor(RGB(255, 255, 255));
  CBrush brushHighlight(::GetSysColor(COLOR_BTNHIGHLIGHT));
  CBrush brushShadow(::GetSysColor(COLOR_BTNSHADOW));
  CBrush* pOldBrush = pDC->SelectObject(&brushHighlight);
  pDC->BitBlt(pt.x + 1, pt.y + 1, w, h, &dcMem, 0, 0, kRopBrushWhereBlack);
  pDC->SelectObject(&brushShadow);
  pDC->BitBlt(pt.x, pt.y, w, h, &dcMem, 0, 0, kRopBrushWhereBlack);
  pDC->SelectObject(pOldBrush);
  pDC->SetBkColor(crOldBk);
  dcMem.SelectObject(pOldBitmap);
}
