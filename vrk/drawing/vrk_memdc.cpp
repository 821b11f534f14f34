// VMemDC: an off-screen DC with a surface the size of a rectangle.
#include "vrk_memdc.h"

IMPLEMENT_DYNAMIC(VMemDC, CDC)

VMemDC::VMemDC() : m_pOldBitmap(NULL), m_bPaintStruct(FALSE), m_hOldBitmap(NULL) {
  memset(&m_ps, 0, sizeof(m_ps));
}

VMemDC::~VMemDC() {
  if (m_hOldBitmap != NULL && m_hDC != NULL) ::SelectObject(m_hDC, m_hOldBitmap);
  m_bitmap.DeleteObject();
  DeleteDC();
}

int VMemDC::Create(CDC* pDC, const RECT& rect, CBrush* pBrush, const PAINTSTRUCT* pPS) {
  if (pDC == NULL || m_hDC != NULL) return 0;
  if (!Attach(::CreateCompatibleDC(pDC->m_hDC))) return 0;
  int cx = rect.right - rect.left;
  int cy = rect.bottom - rect.top;
  // CreateBitmap answers an empty size with the 1x1 stock bitmap: refused.
  if (cx <= 0 || cy <= 0) return 0;
  HDC hAttrib = pDC->m_hAttribDC != NULL ? pDC->m_hAttribDC : pDC->m_hDC;
  if (!m_bitmap.CreateBitmap(cx, cy, ::GetDeviceCaps(hAttrib, PLANES),
                             ::GetDeviceCaps(hAttrib, BITSPIXEL), NULL))
    return 0;
  m_pOldBitmap = SelectObject(&m_bitmap);
  if (m_pOldBitmap == NULL) return 0;
  m_hOldBitmap = m_pOldBitmap->m_hObject;
  CRect rFill(0, 0, cx, cy);
  if (pBrush != NULL)
    FillRect(&rFill, pBrush);
  else
    ::FillRect(m_hDC, &rFill, (HBRUSH)::GetCurrentObject(hAttrib, OBJ_BRUSH));
  if (pPS != NULL) {
    m_ps = *pPS;
    m_bPaintStruct = TRUE;
  }
  return 1;
}

int VMemDC::Create(CDC* pDC, const RECT& rect, COLORREF crFill, const PAINTSTRUCT* pPS) {
  CBrush brush;
  if (!brush.CreateSolidBrush(crFill)) return 0;
  return Create(pDC, rect, &brush, pPS);
}

int VMemDC::Copy(CDC* pDst, const RECT& rect, const POINT* pSrc) {
  if (pDst == NULL) return 0;
  POINT ptSrc = {0, 0};
  if (pSrc != NULL) ptSrc = *pSrc;
  return pDst->BitBlt(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, this,
                      ptSrc.x, ptSrc.y, SRCCOPY);
}

CBitmap* VMemDC::Release() {
  if (m_hOldBitmap == NULL) return NULL;
  CBitmap* pSurface = (CBitmap*)CGdiObject::FromHandle(::SelectObject(m_hDC, m_hOldBitmap));
  m_pOldBitmap = NULL;
  m_hOldBitmap = NULL;
  m_bPaintStruct = FALSE;
  return pSurface;
}
