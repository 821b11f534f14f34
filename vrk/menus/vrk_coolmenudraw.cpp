// VCoolMenuManager: measuring and drawing owner-drawn menu items: the
// button image (or check mark) in a box at the left, the text, and the
// accelerator text right-aligned.
#include "vrk_coolmenu.h"

#include "vrk_coolmenu_priv.h"

// The system's check-mark bitmap (winuser.h names it only with OEMRESOURCE).
#ifndef OBM_CHECK
#define OBM_CHECK 32760
#endif

namespace {

// Paints the brush where the source is black and keeps the target where it
// is white.
const DWORD kRopBrushWhereBlack = 0xB8074A;

const CString& ItemText(const tagCoolMenuItemData* pData) {
  return g_bVrkCoolMenuContext ? pData->strContextText : pData->strText;
}

} // namespace

BOOL VCoolMenuManager::OnMeasureItem(MEASUREITEMSTRUCT* pMIS) {
  if (pMIS == NULL || pMIS->CtlType != ODT_MENU) return FALSE;
  CFont* pFont = GetMenuFont(); // and the menu metrics with it
  if (pMIS->itemID == 0) {      // a separator
    pMIS->itemHeight = m_cyMenu / 2;
    pMIS->itemWidth = 0;
    return TRUE;
  }
  tagCoolMenuItemData* pData = GetButtonInfo((WORD)pMIS->itemID);
  if (pData == NULL) return FALSE;
  // The hooked window's DC (the screen's before Install): the same metrics,
  // and cheaper to get than the screen's.
  CWindowDC dc(m_pWndHooked);
  CFont* pOldFont = dc.SelectObject(pFont);
  CRect r(0, 0, 0, 0);
  dc.DrawText(ItemText(pData), &r, DT_SINGLELINE | DT_VCENTER | DT_CALCRECT);
  dc.SelectObject(pOldFont);
  pMIS->itemHeight = r.Height() > m_cyMenu ? r.Height() : m_cyMenu;
  // The system adds the check-mark width to every owner-drawn item.
  pMIS->itemWidth = r.Width() + 2 * m_sizeBox.cx + 6 - m_cxMenuCheck;
  return TRUE;
}

BOOL VCoolMenuManager::OnDrawItem(DRAWITEMSTRUCT* pDIS) {
  if (pDIS == NULL || pDIS->CtlType != ODT_MENU) return FALSE;
  CDC dc;
  dc.Attach(pDIS->hDC);
  CRect rcItem(pDIS->rcItem);
  if (pDIS->itemID == 0) { // a separator: an etched line across the middle
    CRect r(rcItem);
    r.top += r.Height() / 2;
    dc.DrawEdge(&r, EDGE_ETCHED, BF_TOP);
    dc.Detach();
    return TRUE;
  }
  tagCoolMenuItemData* pData = GetButtonInfo((WORD)pDIS->itemID);
  if (pData == NULL) {
    dc.Detach();
    return TRUE;
  }
  BOOL bSelected = (pDIS->itemState & ODS_SELECTED) != 0;
  BOOL bChecked = (pDIS->itemState & ODS_CHECKED) != 0;
  BOOL bDisabled = (pDIS->itemState & ODS_GRAYED) != 0;

  CRect rcButton(rcItem.TopLeft(), m_sizeBox);
  rcButton.OffsetRect(0, (rcItem.Height() - m_sizeBox.cy) / 2);
  BOOL bButton = FALSE;
  if (pData->nImage >= 0) {
    CPoint pt(rcButton.left + (m_sizeBox.cx - m_sizeImage.cx) / 2,
              rcButton.top + (m_sizeBox.cy - m_sizeImage.cy) / 2);
    if (!bDisabled) {
      int nFace = bChecked && !bSelected ? COLOR_3DLIGHT : COLOR_MENU;
      dc.FillRect(&rcButton, CBrush::FromHandle(::GetSysColorBrush(nFace)));
      if (bSelected || bChecked)
        dc.DrawEdge(&rcButton, bChecked ? BDR_SUNKENOUTER : BDR_RAISEDINNER, BF_RECT);
      m_imageList.Draw(&dc, pData->nImage, pt, ILD_TRANSPARENT);
    } else if (!m_bDisabledByDrawState) {
      DrawEmbossed(dc, pData->nImage, pt);
    } else {
      HICON hIcon = ::ImageList_GetIcon(m_imageList.m_hImageList, pData->nImage, ILD_NORMAL);
      if (hIcon != NULL) {
        dc.DrawState(pt, CSize(0, 0), hIcon, DST_ICON | DSS_DISABLED, (HBRUSH)NULL);
        ::DestroyIcon(hIcon);
      }
    }
    bButton = TRUE;
  } else {
    MENUITEMINFO mii;
    memset(&mii, 0, sizeof(mii));
    mii.cbSize = sizeof(mii);
    mii.fMask = MIIM_CHECKMARKS;
    ::GetMenuItemInfo((HMENU)pDIS->hwndItem, pDIS->itemID, FALSE, &mii);
    HBITMAP hbm = bChecked ? mii.hbmpChecked : mii.hbmpUnchecked;
    if (bChecked || hbm != NULL) bButton = Draw3DCheckmark(dc, rcButton, bSelected, hbm);
  }

  COLORREF crBack = ::GetSysColor(bSelected ? COLOR_HIGHLIGHT : COLOR_MENU);
  if (bSelected || pDIS->itemAction == ODA_SELECT) {
    CRect rcFill(rcItem);
    if (bButton) rcFill.left += m_sizeBox.cx + 1;
    dc.FillSolidRect(&rcFill, crBack);
  }
  CRect rcText(rcItem);
  rcText.left += m_sizeBox.cx + 3;
  rcText.right -= m_sizeBox.cx;
  dc.SetBkMode(TRANSPARENT);
  COLORREF crText = ::GetSysColor(bDisabled   ? COLOR_GRAYTEXT
                                  : bSelected ? COLOR_HIGHLIGHTTEXT
                                              : COLOR_MENUTEXT);
  if (bDisabled && (!bSelected || crText == crBack)) {
    CRect rcShadow(rcText);
    rcShadow.OffsetRect(1, 1);
    DrawMenuText(dc, rcShadow, ItemText(pData), ::GetSysColor(COLOR_3DHILIGHT));
  }
  DrawMenuText(dc, rcText, ItemText(pData), crText);
  dc.Detach();
  return TRUE;
}

void VCoolMenuManager::DrawMenuText(CDC& dc, CRect rc, CString strText, COLORREF colour) {
  int nTab = strText.Find('\t');
  CString strLeft = nTab >= 0 ? strText.Left(nTab) : strText;
  dc.SetTextColor(colour);
  dc.DrawText(strLeft, &rc, DT_SINGLELINE | DT_VCENTER | DT_LEFT);
  if (nTab > 0) dc.DrawText(strText.Mid(nTab + 1), &rc, DT_SINGLELINE | DT_VCENTER | DT_RIGHT);
}

BOOL VCoolMenuManager::Draw3DCheckmark(CDC& dc, const CRect& rc, BOOL bSelected, HBITMAP hbmCheck) {
  HBITMAP hbmSystem = NULL;
  if (hbmCheck == NULL) hbmCheck = hbmSystem = ::LoadBitmap(NULL, MAKEINTRESOURCE(OBM_CHECK));
  BITMAP bm;
  if (hbmCheck == NULL || ::GetObject(hbmCheck, sizeof(bm), &bm) == 0) return FALSE;
  CRect rcDest(rc);
  CPoint ptSrc(0, 0);
  BOOL bWider = rc.Width() > bm.bmWidth;
  if (!bWider) { // the bitmap's middle fills the rectangle
    ptSrc = CPoint((bm.bmWidth - rc.Width()) / 2, (bm.bmHeight - rc.Height()) / 2);
  } else {
    rcDest = CRect(
        CPoint(rc.left + (rc.Width() - bm.bmWidth) / 2, rc.top + (rc.Height() - bm.bmHeight) / 2),
        CSize(bm.bmWidth, bm.bmHeight));
  }
  CDC dcMem;
  if (dcMem.CreateCompatibleDC(&dc)) {
    HGDIOBJ hOld = ::SelectObject(dcMem.m_hDC, hbmCheck);
    COLORREF crOldBk = dc.SetBkColor(::GetSysColor(bSelected ? COLOR_MENU : COLOR_3DLIGHT));
    dc.BitBlt(rcDest.left, rcDest.top, rcDest.Width(), rcDest.Height(), &dcMem, ptSrc.x, ptSrc.y,
              SRCCOPY);
    dc.SetBkColor(crOldBk);
    ::SelectObject(dcMem.m_hDC, hOld);
  }
  if (bWider) rcDest.InflateRect(1, 1);
  dc.DrawEdge(&rcDest, BDR_SUNKENOUTER, BF_RECT);
  if (hbmSystem != NULL) ::DeleteObject(hbmSystem);
  return TRUE;
}

// The image's shape: in COLOR_3DHILIGHT one pixel right and down, then in
// COLOR_3DSHADOW.
void VCoolMenuManager::DrawEmbossed(CDC& dc, int nImage, CPoint pt) {
  IMAGEINFO info;
  if (!m_imageList.GetImageInfo(nImage, &info)) return;
  int cx = info.rcImage.right - info.rcImage.left;
  int cy = info.rcImage.bottom - info.rcImage.top;
  CDC dcMem;
  CBitmap bitmap;
  if (!dcMem.CreateCompatibleDC(&dc)) return;
  BOOL bMade = m_bColourEmboss ? bitmap.CreateCompatibleBitmap(&dc, cx, cy)
                               : bitmap.CreateBitmap(cx, cy, 1, 1, NULL);
  if (!bMade) return;
  CBitmap* pOldBitmap = dcMem.SelectObject(&bitmap);
  dcMem.PatBlt(0, 0, cx, cy, WHITENESS);
  m_imageList.Draw(&dcMem, nImage, CPoint(0, 0), ILD_TRANSPARENT);

  COLORREF crOldBk = dc.SetBkColor(RGB(255, 255, 255));
  CBrush brushHilite(::GetSysColor(COLOR_3DHILIGHT));
  CBrush brushShadow(::GetSysColor(COLOR_3DSHADOW));
  CBrush* pOldBrush = dc.SelectObject(&brushHilite);
  dc.BitBlt(pt.x + 1, pt.y + 1, cx, cy, &dcMem, 0, 0, kRopBrushWhereBlack);
  dc.SelectObject(&brushShadow);
  dc.BitBlt(pt.x, pt.y, cx, cy, &dcMem, 0, 0, kRopBrushWhereBlack);
  dc.SelectObject(pOldBrush);
  dc.SetBkColor(crOldBk);
  dcMem.SelectObject(pOldBitmap);
}
