// CCmdUI: updating menu items and controls through ON_UPDATE_COMMAND_UI,
// and the shared radio-dot bitmap.
#include <afxwin.h>

CCmdUI::CCmdUI()
    : m_nID(0), m_nIndex(0), m_pMenu(NULL), m_pSubMenu(NULL), m_pParentMenu(NULL), m_pOther(NULL),
      m_bEnableChanged(FALSE), m_bContinueRouting(FALSE), m_nIndexMax(0) {}

void CCmdUI::Enable(BOOL bOn) {
  if (m_pMenu != NULL) {
    if (m_pSubMenu != NULL) return; // a popup's state is not changed through its items
    m_pMenu->EnableMenuItem(m_nIndex,
                            MF_BYPOSITION | (bOn ? MF_ENABLED : (MF_DISABLED | MF_GRAYED)));
  } else if (m_pOther != NULL) {
    // A control losing its enabled state hands the focus on first.
    if (!bOn && ::GetFocus() == m_pOther->m_hWnd) {
      CWnd* pParent = m_pOther->GetParent();
      CWnd* pNext = pParent != NULL ? pParent->GetNextDlgTabItem(m_pOther) : NULL;
      if (pNext != NULL) pNext->SetFocus();
    }
    m_pOther->EnableWindow(bOn);
  }
  m_bEnableChanged = TRUE;
}

void CCmdUI::SetCheck(int nCheck) {
  if (m_pMenu != NULL) {
    if (m_pSubMenu != NULL) return;
    m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (nCheck ? MF_CHECKED : MF_UNCHECKED));
  } else if (m_pOther != NULL) {
    // Only buttons have a check state.
    if (m_pOther->SendMessage(WM_GETDLGCODE) & DLGC_BUTTON)
      m_pOther->SendMessage(BM_SETCHECK, nCheck);
  }
}

// Decided here: the dot is a monochrome bitmap of the menu check-mark size,
// white with a black disc of about half the height in the middle, made once
// for the process and never freed (menus keep using it).
static HBITMAP g_hbmMenuDot = NULL;

HBITMAP AFXAPI AfxGetRadioDotBitmap() {
  if (g_hbmMenuDot != NULL) return g_hbmMenuDot;
  int cx = ::GetSystemMetrics(SM_CXMENUCHECK);
  int cy = ::GetSystemMetrics(SM_CYMENUCHECK);
  if (cx <= 0 || cy <= 0) cx = cy = 13;
  HDC hdcScreen = ::GetDC(NULL);
  HDC hdc = ::CreateCompatibleDC(hdcScreen);
  ::ReleaseDC(NULL, hdcScreen);
  HBITMAP hbm = ::CreateBitmap(cx, cy, 1, 1, NULL);
  if (hdc == NULL || hbm == NULL) {
    if (hdc != NULL) ::DeleteDC(hdc);
    if (hbm != NULL) ::DeleteObject(hbm);
    return NULL;
  }
  HGDIOBJ hbmOld = ::SelectObject(hdc, hbm);
  ::PatBlt(hdc, 0, 0, cx, cy, WHITENESS);
  int d = cy / 2;
  int x = (cx - d) / 2, y = (cy - d) / 2;
  HGDIOBJ hOldBrush = ::SelectObject(hdc, ::GetStockObject(BLACK_BRUSH));
  HGDIOBJ hOldPen = ::SelectObject(hdc, ::GetStockObject(BLACK_PEN));
  ::Ellipse(hdc, x, y, x + d, y + d);
  ::SelectObject(hdc, hOldPen);
  ::SelectObject(hdc, hOldBrush);
  ::SelectObject(hdc, hbmOld);
  ::DeleteDC(hdc);
  if (::InterlockedCompareExchangePointer((PVOID*)&g_hbmMenuDot, hbm, NULL) != NULL)
    ::DeleteObject(hbm); // another thread made it first
  return g_hbmMenuDot;
}

void CCmdUI::SetRadio(BOOL bOn) {
  SetCheck(bOn ? 1 : 0);
  if (m_pMenu != NULL) {
    if (m_pSubMenu != NULL) return;
    // A menu item shows the dot instead of the check mark.
    HBITMAP hbmDot = AfxGetRadioDotBitmap();
    if (hbmDot != NULL)
      ::SetMenuItemBitmaps(m_pMenu->m_hMenu, m_nIndex, MF_BYPOSITION, NULL, hbmDot);
  }
}

void CCmdUI::SetText(LPCTSTR lpszText) {
  if (lpszText == NULL) lpszText = "";
  if (m_pMenu != NULL) {
    if (m_pSubMenu != NULL) return;
    // The item keeps its id and its state; only the text changes.
    UINT nState = m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION);
    nState &= ~(MF_BITMAP | MF_OWNERDRAW | MF_SEPARATOR | MF_POPUP | 0xFF00);
    m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | MF_STRING | nState, m_nID, lpszText);
  } else if (m_pOther != NULL) {
    CString strOld;
    m_pOther->GetWindowText(strOld);
    if (strOld != lpszText) m_pOther->SetWindowText(lpszText); // avoids flicker
  }
}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler) {
  if (pTarget == NULL || m_nID == 0 || LOWORD(m_nID) == 0xFFFF) return TRUE; // not a command
  m_bEnableChanged = FALSE;
  BOOL bResult = pTarget->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, NULL);
  if (bDisableIfNoHndler && !m_bEnableChanged) {
    AFX_CMDHANDLERINFO info;
    info.pTarget = NULL;
    Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
  }
  return bResult;
}

// Updates every child control that has a command id through pTarget.
void CWnd::UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler) {
  CCmdUI state;
  CWnd wndTemp; // stands for a control with no permanent object
  for (HWND hWndChild = ::GetTopWindow(m_hWnd); hWndChild != NULL;
       hWndChild = ::GetWindow(hWndChild, GW_HWNDNEXT)) {
    state.m_nID = (UINT)(WORD)::GetDlgCtrlID(hWndChild);
    CWnd* pCtrl = CWnd::FromHandlePermanent(hWndChild);
    if (pCtrl == NULL) {
      wndTemp.m_hWnd = hWndChild;
      pCtrl = &wndTemp;
    }
    state.m_pOther = pCtrl;
    // Only push buttons are disabled for want of a handler; check boxes and
    // radio buttons keep working without one.
    UINT nType = pCtrl->GetStyle() & 0x0F;
    BOOL bDisable = bDisableIfNoHndler && (pCtrl->SendMessage(WM_GETDLGCODE) & DLGC_BUTTON) &&
                    (nType == BS_PUSHBUTTON || nType == BS_DEFPUSHBUTTON);
    state.DoUpdate(pTarget, bDisable);
  }
  wndTemp.m_hWnd = NULL;
}
