// CWnd: its own message map and default handlers, the member wrappers that
// need more than one call, relatives, data exchange and the modal loop.
#include <afxwin.h>
#include <afxres.h>
#include "../core/afximpl.h"

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
ON_WM_DRAWITEM()
ON_WM_MEASUREITEM()
ON_WM_DELETEITEM()
ON_WM_COMPAREITEM()
ON_WM_CTLCOLOR()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_MESSAGE(WM_CTLCOLORMSGBOX, OnNTCtlColor)
ON_MESSAGE(WM_CTLCOLOREDIT, OnNTCtlColor)
ON_MESSAGE(WM_CTLCOLORLISTBOX, OnNTCtlColor)
ON_MESSAGE(WM_CTLCOLORBTN, OnNTCtlColor)
ON_MESSAGE(WM_CTLCOLORDLG, OnNTCtlColor)
ON_MESSAGE(WM_CTLCOLORSCROLLBAR, OnNTCtlColor)
ON_MESSAGE(WM_CTLCOLORSTATIC, OnNTCtlColor)
END_MESSAGE_MAP()

// ---- Default handlers: the message goes on to the default procedure -----------

int CWnd::OnCreate(LPCREATESTRUCT) { return (int)Default(); }
void CWnd::OnDestroy() { Default(); }
void CWnd::OnClose() { Default(); }
void CWnd::OnPaint() { Default(); }
BOOL CWnd::OnEraseBkgnd(CDC*) { return (BOOL)Default(); }
void CWnd::OnSysColorChange() { Default(); }
void CWnd::OnPaletteChanged(CWnd*) { Default(); }
BOOL CWnd::OnQueryNewPalette() { return (BOOL)Default(); }
void CWnd::OnSettingChange(UINT, LPCTSTR) { Default(); }
void CWnd::OnCancelMode() { Default(); }
UINT CWnd::OnGetDlgCode() { return (UINT)Default(); }
void CWnd::OnMouseMove(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnRButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnMButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnMButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnMButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnNcLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnNcLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnNcLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnNcRButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnNcRButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnNcMouseMove(UINT, CPoint) { Default(); }
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) { return (BOOL)Default(); }
void CWnd::OnKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnSetFocus(CWnd*) { Default(); }
void CWnd::OnKillFocus(CWnd*) { Default(); }
void CWnd::OnCaptureChanged(CWnd*) { Default(); }
void CWnd::OnContextMenu(CWnd*, CPoint) { Default(); }
void CWnd::OnSize(UINT, int, int) { Default(); }
void CWnd::OnMove(int, int) { Default(); }
void CWnd::OnTimer(UINT_PTR) { Default(); }
void CWnd::OnEnable(BOOL) { Default(); }
void CWnd::OnEnterMenuLoop(BOOL) { Default(); }
void CWnd::OnExitMenuLoop(BOOL) { Default(); }
void CWnd::OnShowWindow(BOOL, UINT) { Default(); }
BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT) { return (BOOL)Default(); }
void CWnd::OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }
LRESULT CWnd::OnMenuChar(UINT, UINT, CMenu*) { return Default(); }
void CWnd::OnMenuSelect(UINT, UINT, HMENU) { Default(); }
void CWnd::OnActivate(UINT, CWnd*, BOOL) { Default(); }
void CWnd::OnSysCommand(UINT, LPARAM) { Default(); }
LRESULT CWnd::OnNcHitTest(CPoint) { return Default(); }
void CWnd::OnWindowPosChanged(WINDOWPOS*) { Default(); }
void CWnd::OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
BOOL CWnd::OnHelpInfo(HELPINFO*) { return (BOOL)Default(); }
void CWnd::OnDropFiles(HDROP) { Default(); }

// ---- Owner draw, scroll and colour messages: offered to the control first -------

// A message without its structure (sent by mistake) goes straight on.
void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct) {
  if (lpDrawItemStruct != NULL && lpDrawItemStruct->CtlType != ODT_MENU &&
      ReflectLastMsg(lpDrawItemStruct->hwndItem))
    return;
  Default();
}

void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT lpMeasureItemStruct) {
  // The message names the control by id only.
  if (lpMeasureItemStruct != NULL && lpMeasureItemStruct->CtlType != ODT_MENU) {
    CWnd* pChild = GetDescendantWindow(lpMeasureItemStruct->CtlID, TRUE);
    if (pChild != NULL && pChild->SendChildNotifyLastMsg()) return;
  }
  Default();
}

void CWnd::OnDeleteItem(int, LPDELETEITEMSTRUCT lpDeleteItemStruct) {
  if (lpDeleteItemStruct != NULL && ReflectLastMsg(lpDeleteItemStruct->hwndItem)) return;
  Default();
}

int CWnd::OnCompareItem(int, LPCOMPAREITEMSTRUCT lpCompareItemStruct) {
  LRESULT lResult;
  if (lpCompareItemStruct != NULL && ReflectLastMsg(lpCompareItemStruct->hwndItem, &lResult))
    return (int)lResult;
  return (int)Default();
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar* pScrollBar) {
  if (pScrollBar != NULL && ReflectLastMsg(pScrollBar->GetSafeHwnd())) return;
  Default();
}

void CWnd::OnVScroll(UINT, UINT, CScrollBar* pScrollBar) {
  if (pScrollBar != NULL && ReflectLastMsg(pScrollBar->GetSafeHwnd())) return;
  Default();
}

// Every WM_CTLCOLOR... message reaches the map as WM_CTLCOLOR with its
// parameters in an AFX_CTLCOLOR. The thread's record still holds the original
// message, which reflection and Default use.
LRESULT CWnd::OnNTCtlColor(WPARAM wParam, LPARAM lParam) {
  AFX_CTLCOLOR ctl;
  ctl.hDC = (HDC)wParam;
  ctl.hWnd = (HWND)lParam;
  ctl.nCtlType = AfxGetThreadState()->m_lastSentMsg.message - WM_CTLCOLORMSGBOX;
  return WindowProc(WM_CTLCOLOR, 0, (LPARAM)&ctl);
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT) {
  LRESULT lResult;
  if (pWnd != NULL && ReflectLastMsg(pWnd->m_hWnd, &lResult)) return (HBRUSH)lResult;
  return (HBRUSH)Default();
}

// ---- Texts, rectangles, styles -------------------------------------------------

void CWnd::GetWindowText(CString& rString) const {
  int nLen = ::GetWindowTextLength(m_hWnd);
  ::GetWindowText(m_hWnd, rString.GetBufferSetLength(nLen), nLen + 1);
  rString.ReleaseBuffer();
}

int CWnd::GetDlgItemText(int nID, CString& rString) const {
  rString.Empty();
  HWND hWnd = ::GetDlgItem(m_hWnd, nID);
  if (hWnd != NULL) {
    int nLen = ::GetWindowTextLength(hWnd);
    ::GetWindowText(hWnd, rString.GetBufferSetLength(nLen), nLen + 1);
    rString.ReleaseBuffer();
  }
  return rString.GetLength();
}

void CWnd::ClientToScreen(LPRECT lpRect) const {
  ::ClientToScreen(m_hWnd, (LPPOINT)lpRect);
  ::ClientToScreen(m_hWnd, ((LPPOINT)lpRect) + 1);
  if (GetExStyle() & WS_EX_LAYOUTRTL) CRect::SwapLeftRight(lpRect);
}

void CWnd::ScreenToClient(LPRECT lpRect) const {
  ::ScreenToClient(m_hWnd, (LPPOINT)lpRect);
  ::ScreenToClient(m_hWnd, ((LPPOINT)lpRect) + 1);
  if (GetExStyle() & WS_EX_LAYOUTRTL) CRect::SwapLeftRight(lpRect);
}

static BOOL ModifyStyleImpl(HWND hWnd, int nStyleOffset, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  DWORD dwStyle = (DWORD)::GetWindowLong(hWnd, nStyleOffset);
  DWORD dwNewStyle = (dwStyle & ~dwRemove) | dwAdd;
  if (dwStyle == dwNewStyle) return FALSE;
  ::SetWindowLong(hWnd, nStyleOffset, (LONG)dwNewStyle);
  if (nFlags != 0)
    ::SetWindowPos(hWnd, NULL, 0, 0, 0, 0,
                   SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
  return TRUE;
}

BOOL PASCAL CWnd::ModifyStyle(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyStyleImpl(hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL PASCAL CWnd::ModifyStyleEx(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyStyleImpl(hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyStyleImpl(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyStyleImpl(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask) {
  lpScrollInfo->cbSize = sizeof(SCROLLINFO);
  lpScrollInfo->fMask = nMask;
  return ::GetScrollInfo(m_hWnd, nBar, lpScrollInfo);
}

BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw) {
  lpScrollInfo->cbSize = sizeof(SCROLLINFO);
  ::SetScrollInfo(m_hWnd, nBar, lpScrollInfo, bRedraw);
  return TRUE;
}

int CWnd::GetScrollLimit(int nBar) {
  SCROLLINFO info;
  if (!GetScrollInfo(nBar, &info, SIF_RANGE | SIF_PAGE)) return 0;
  int nLimit = info.nMax - (info.nPage > 1 ? (int)info.nPage - 1 : 0);
  return nLimit < info.nMin ? info.nMin : nLimit;
}

CScrollBar* CWnd::GetScrollBarCtrl(int) const { return NULL; }

void CWnd::EnableScrollBarCtrl(int nBar, BOOL bEnable) {
  // A splitter's shared bar is enabled, the window's own one shown.
  if (nBar == SB_BOTH) {
    EnableScrollBarCtrl(SB_HORZ, bEnable);
    EnableScrollBarCtrl(SB_VERT, bEnable);
  } else if (CScrollBar* pBar = GetScrollBarCtrl(nBar)) {
    pBar->EnableWindow(bEnable);
  } else {
    ::ShowScrollBar(m_hWnd, nBar, bEnable);
  }
}

// nAdjustType 0 (adjustBorder) leaves a client edge out: the edge lies
// inside the rectangle asked for, as for a view laid out between bars.
void CWnd::CalcWindowRect(LPRECT lpClientRect, UINT nAdjustType) {
  DWORD dwExStyle = GetExStyle();
  if (nAdjustType == 0) dwExStyle &= ~WS_EX_CLIENTEDGE;
  ::AdjustWindowRectEx(lpClientRect, GetStyle(), FALSE, dwExStyle);
}

// A child is centred in its parent's client area; any other window over its
// owner (or the given window), or over the work area when there is none or it
// is hidden or minimised. The result is kept inside the work area.
void CWnd::CenterWindow(CWnd* pAlternateOwner) {
  DWORD dwStyle = GetStyle();
  HWND hWndCenter = pAlternateOwner->GetSafeHwnd();
  if (hWndCenter == NULL)
    hWndCenter = (dwStyle & WS_CHILD) ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);
  CRect rcDlg;
  GetWindowRect(&rcDlg);
  CRect rcArea, rcCenter;
  if (!(dwStyle & WS_CHILD)) {
    if (hWndCenter != NULL && (!::IsWindowVisible(hWndCenter) || ::IsIconic(hWndCenter)))
      hWndCenter = NULL;
    ::SystemParametersInfo(SPI_GETWORKAREA, 0, &rcArea, 0);
    if (hWndCenter == NULL)
      rcCenter = rcArea;
    else
      ::GetWindowRect(hWndCenter, &rcCenter);
  } else {
    ::GetClientRect(hWndCenter, &rcArea);
    ::GetClientRect(hWndCenter, &rcCenter);
    ::MapWindowPoints(hWndCenter, ::GetParent(m_hWnd), (LPPOINT)&rcCenter, 2);
  }
  int xLeft = (rcCenter.left + rcCenter.right) / 2 - rcDlg.Width() / 2;
  int yTop = (rcCenter.top + rcCenter.bottom) / 2 - rcDlg.Height() / 2;
  if (xLeft + rcDlg.Width() > rcArea.right) xLeft = rcArea.right - rcDlg.Width();
  if (xLeft < rcArea.left) xLeft = rcArea.left;
  if (yTop + rcDlg.Height() > rcArea.bottom) yTop = rcArea.bottom - rcDlg.Height();
  if (yTop < rcArea.top) yTop = rcArea.top;
  SetWindowPos(NULL, xLeft, yTop, -1, -1, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType) {
  if (lpszCaption == NULL) lpszCaption = AfxGetAppName();
  return ::MessageBox(m_hWnd, lpszText, lpszCaption, nType);
}

// ---- Relatives ------------------------------------------------------------------

CWnd* CWnd::GetOwner() const {
  return m_hWndOwner != NULL ? CWnd::FromHandle(m_hWndOwner) : GetParent();
}

// A child's parent, a pop-up's owner.
static HWND ParentOwner(HWND hWnd) {
  return (::GetWindowLong(hWnd, GWL_STYLE) & WS_CHILD) ? ::GetParent(hWnd)
                                                       : ::GetWindow(hWnd, GW_OWNER);
}

CWnd* CWnd::GetTopLevelParent() const {
  if (m_hWnd == NULL) return NULL;
  HWND hWndParent = m_hWnd;
  HWND hWndT;
  while ((hWndT = ParentOwner(hWndParent)) != NULL)
    hWndParent = hWndT;
  return CWnd::FromHandle(hWndParent);
}

CWnd* CWnd::GetTopLevelOwner() const {
  if (m_hWnd == NULL) return NULL;
  HWND hWndOwner = m_hWnd;
  HWND hWndT;
  while ((hWndT = ::GetWindow(hWndOwner, GW_OWNER)) != NULL)
    hWndOwner = hWndT;
  return CWnd::FromHandle(hWndOwner);
}

static BOOL IsFrameWnd(const CWnd* pWnd) { return pWnd->IsKindOf(RUNTIME_CLASS(CFrameWnd)); }

CFrameWnd* CWnd::GetParentFrame() const {
  if (m_hWnd == NULL) return NULL;
  for (CWnd* pParent = GetParent(); pParent != NULL; pParent = pParent->GetParent()) {
    if (IsFrameWnd(pParent)) return (CFrameWnd*)pParent;
  }
  return NULL;
}

CFrameWnd* CWnd::GetTopLevelFrame() const {
  if (m_hWnd == NULL) return NULL;
  CWnd* pFrame = IsFrameWnd(this) ? (CWnd*)this : (CWnd*)GetParentFrame();
  while (pFrame != NULL) {
    CWnd* pNext = (CWnd*)pFrame->GetParentFrame();
    if (pNext == NULL) break;
    pFrame = pNext;
  }
  return (CFrameWnd*)pFrame;
}

static HWND FindDescendant(HWND hWnd, int nID, BOOL bOnlyPerm) {
  for (HWND hWndChild = ::GetTopWindow(hWnd); hWndChild != NULL;
       hWndChild = ::GetWindow(hWndChild, GW_HWNDNEXT)) {
    if (::GetDlgCtrlID(hWndChild) == nID &&
        (!bOnlyPerm || CWnd::FromHandlePermanent(hWndChild) != NULL))
      return hWndChild;
  }
  for (HWND hWndChild = ::GetTopWindow(hWnd); hWndChild != NULL;
       hWndChild = ::GetWindow(hWndChild, GW_HWNDNEXT)) {
    HWND hWndFound = FindDescendant(hWndChild, nID, bOnlyPerm);
    if (hWndFound != NULL) return hWndFound;
  }
  return NULL;
}

CWnd* CWnd::GetDescendantWindow(int nID, BOOL bOnlyPerm) const {
  HWND hWnd = FindDescendant(m_hWnd, nID, bOnlyPerm);
  return bOnlyPerm ? FromHandlePermanent(hWnd) : FromHandle(hWnd);
}

void PASCAL CWnd::SendMessageToDescendants(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam,
                                           BOOL bDeep, BOOL bOnlyPerm) {
  for (HWND hWndChild = ::GetTopWindow(hWnd); hWndChild != NULL;
       hWndChild = ::GetWindow(hWndChild, GW_HWNDNEXT)) {
    if (!bOnlyPerm) {
      ::SendMessage(hWndChild, message, wParam, lParam);
    } else {
      CWnd* pWnd = FromHandlePermanent(hWndChild);
      if (pWnd != NULL) AfxCallWndProc(pWnd, hWndChild, message, wParam, lParam);
    }
    if (bDeep && ::GetTopWindow(hWndChild) != NULL)
      SendMessageToDescendants(hWndChild, message, wParam, lParam, bDeep, bOnlyPerm);
  }
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep,
                                    BOOL bOnlyPerm) {
  SendMessageToDescendants(m_hWnd, message, wParam, lParam, bDeep, bOnlyPerm);
}

BOOL PASCAL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg) {
  for (HWND hWnd = pMsg->hwnd; hWnd != NULL; hWnd = ::GetParent(hWnd)) {
    CWnd* pWnd = FromHandlePermanent(hWnd);
    if (pWnd != NULL && pWnd->PreTranslateMessage(pMsg)) return TRUE;
    if (hWnd == hWndStop) break; // no further than the stop window
  }
  return FALSE;
}

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

// ---- Data exchange ---------------------------------------------------------------

void CWnd::DoDataExchange(CDataExchange*) {}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate) {
  CDataExchange dx(this, bSaveAndValidate);
  // Controls changed by the exchange must not reach their handlers.
  _AFX_THREAD_STATE* pState = AfxGetThreadState();
  HWND hWndOldLockout = pState->m_hLockoutNotifyWindow;
  pState->m_hLockoutNotifyWindow = m_hWnd;
  BOOL bOK = FALSE;
  try {
    DoDataExchange(&dx);
    bOK = TRUE;
  } catch (CUserException* e) {
    e->Delete(); // the user was told by the failing DDX/DDV routine
  } catch (CException* e) {
    e->ReportError(MB_ICONEXCLAMATION, AFX_IDP_INTERNAL_FAILURE);
    e->Delete();
  }
  pState->m_hLockoutNotifyWindow = hWndOldLockout;
  return bOK;
}

// ---- Modal loop -------------------------------------------------------------------

BOOL CWnd::ContinueModal() { return (m_nFlags & WF_CONTINUEMODAL) != 0; }

void CWnd::EndModalLoop(int nResult) {
  m_nModalResult = nResult;
  if (m_nFlags & WF_CONTINUEMODAL) {
    m_nFlags &= ~WF_CONTINUEMODAL;
    PostMessage(WM_NULL); // wakes the loop so that it sees the end
  }
}

int CWnd::RunModalLoop(DWORD dwFlags) {
  BOOL bIdle = TRUE;
  LONG lIdleCount = 0;
  BOOL bShowIdle = (dwFlags & MLF_SHOWONIDLE) && !(GetStyle() & WS_VISIBLE);
  HWND hWndParent = ::GetParent(m_hWnd);
  m_nFlags |= (WF_MODALLOOP | WF_CONTINUEMODAL);
  MSG* pMsg = &AfxGetThreadState()->m_msgCur;
  HWND hWnd = m_hWnd; // the object may be gone once the loop ends by destruction
  for (;;) {
    while (bIdle && !::PeekMessage(pMsg, NULL, 0, 0, PM_NOREMOVE)) {
      if (bShowIdle) { // shown once the queue first goes idle
        ShowWindow(SW_SHOWNORMAL);
        UpdateWindow();
        bShowIdle = FALSE;
      }
      if (!(dwFlags & MLF_NOIDLEMSG) && hWndParent != NULL && lIdleCount == 0)
        ::SendMessage(hWndParent, WM_ENTERIDLE, MSGF_DIALOGBOX, (LPARAM)hWnd);
      if ((dwFlags & MLF_NOKICKIDLE) ||
          !::SendMessage(hWnd, WM_KICKIDLE, MSGF_DIALOGBOX, lIdleCount++))
        bIdle = FALSE;
    }
    do {
      if (!AfxPumpMessage()) {
        ::PostQuitMessage(0); // the outer loop must see WM_QUIT too
        return -1;
      }
      if (bShowIdle && (pMsg->message == 0x118 || pMsg->message == WM_SYSKEYDOWN)) {
        ShowWindow(SW_SHOWNORMAL);
        UpdateWindow();
        bShowIdle = FALSE;
      }
      if (!::IsWindow(hWnd) || !ContinueModal()) goto ExitModal;
      if (pMsg->message != WM_PAINT && pMsg->message != 0x118) {
        bIdle = TRUE;
        lIdleCount = 0;
      }
    } while (::PeekMessage(pMsg, NULL, 0, 0, PM_NOREMOVE));
  }
ExitModal:
  m_nFlags &= ~(WF_MODALLOOP | WF_CONTINUEMODAL);
  return m_nModalResult;
}
