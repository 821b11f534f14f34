// 3D frames, simple frames and solid fills.
#include "vrk_gdi.h"

tag3DPens::tag3DPens()
    : m_penBlack(PS_SOLID, 1, RGB(0, 0, 0)),
      m_penShadow(PS_SOLID, 1, ::GetSysColor(COLOR_BTNSHADOW)),
      m_penWhite(PS_SOLID, 1, RGB(255, 255, 255)),
      m_penFace(PS_SOLID, 1, ::GetSysColor(COLOR_BTNFACE)) {}

// In reverse order of creation.
tag3DPens::~tag3DPens() {
  m_penFace.DeleteObject();
  m_penWhite.DeleteObject();
  m_penShadow.DeleteObject();
  m_penBlack.DeleteObject();
}

namespace {

void TopLeft(CDC* pDC, const CRect& r) {
  pDC->MoveTo(r.left, r.top);
  pDC->LineTo(r.right, r.top);
  pDC->MoveTo(r.left, r.top);
  pDC->LineTo(r.left, r.bottom);
}

// Inside the rectangle, as a sunken frame draws them.
void InnerBottomRight(CDC* pDC, const CRect& r) {
  pDC->MoveTo(r.right - 1, r.top);
  pDC->LineTo(r.right - 1, r.bottom);
  pDC->MoveTo(r.left, r.bottom - 1);
  pDC->LineTo(r.right, r.bottom - 1);
}

// On x = right and y = bottom, as a raised frame draws them.
void OuterBottomRight(CDC* pDC, const CRect& r) {
  pDC->MoveTo(r.right, r.top);
  pDC->LineTo(r.right, r.bottom + 1);
  pDC->MoveTo(r.left, r.bottom);
  pDC->LineTo(r.right, r.bottom);
}

} // namespace

void VrkDraw3DRect(CDC* pDC, tag3DPens* pPens, const RECT& rect, int bSunken) {
  if (pDC == NULL || pPens == NULL) return;
  CRect r(rect);
  CPen* pOldPen;
  if (bSunken) {
    pOldPen = pDC->SelectObject(&pPens->m_penShadow);
    TopLeft(pDC, r);
    r.DeflateRect(1, 1);
    pDC->SelectObject(&pPens->m_penBlack);
    TopLeft(pDC, r);
    r.InflateRect(1, 1);
    pDC->SelectObject(&pPens->m_penWhite);
    InnerBottomRight(pDC, r);
    r.DeflateRect(1, 1);
    pDC->SelectObject(&pPens->m_penFace);
    InnerBottomRight(pDC, r);
  } else {
    pOldPen = pDC->SelectObject(&pPens->m_penFace);
    TopLeft(pDC, r);
    r.DeflateRect(1, 1);
    pDC->SelectObject(&pPens->m_penWhite);
    TopLeft(pDC, r);
    r.InflateRect(1, 1);
    pDC->SelectObject(&pPens->m_penBlack);
    OuterBottomRight(pDC, r);
    r.DeflateRect(1, 1);
    pDC->SelectObject(&pPens->m_penShadow);
    OuterBottomRight(pDC, r);
  }
  pDC->SelectObject(pOldPen);
}

void VrkDraw3DRect(CDC* pDC, tag3DPens* pPens, const RECT& rect, int bSunken, COLORREF crFill) {
  if (pDC == NULL || pPens == NULL) return;
  CBrush brush(crFill);
  pDC->FillRect(&rect, &brush);
  VrkDraw3DRect(pDC, pPens, rect, bSunken);
}

void VrkDrawSimpleRect(CDC* pDC, CPen* pPen, const RECT& rect) {
  if (pDC == NULL || pPen == NULL) return;
  CPen* pOldPen = pDC->SelectObject(pPen);
  pDC->MoveTo(rect.left, rect.top);
  pDC->LineTo(rect.right - 1, rect.top);
  pDC->LineTo(rect.right - 1, rect.bottom - 1);
  pDC->LineTo(rect.left, rect.bottom - 1);
  pDC->LineTo(rect.left, rect.top);
  pDC->SelectObject(pOldPen);
}

COLORREF VrkFillSolidRect(CDC* pDC, RECT* pRect, COLORREF crFill, int bRestore) {
  if (pDC == NULL || pRect == NULL) return 0;
  COLORREF crOld = pDC->SetBkColor(crFill);
  pDC->ExtTextOut(0, 0, ETO_OPAQUE, pRect, NULL, 0, NULL);
  if (bRestore) pDC->SetBkColor(crOld);
  return crOld;
}
