// CControlBar: what every bar shares: its bar style, its share of the
// parent's layout (WM_SIZEPARENT), idle updates through the owner frame,
// delayed showing and the forwarding of its controls' messages.
#include <afxwin.h>
#include <afxbar_.h>

IMPLEMENT_DYNAMIC(CControlBar, CWnd)

BEGIN_MESSAGE_MAP(CControlBar, CWnd)
ON_MESSAGE(WM_SIZEPARENT, &CControlBar::OnSizeParent)
ON_MESSAGE(WM_IDLEUPDATECMDUI, &CControlBar::OnIdleUpdateCmdUI)
ON_MESSAGE(WM_NCCALCSIZE, &CControlBar::OnNcCalcSize)
ON_MESSAGE(WM_NCPAINT, &CControlBar::OnNcPaint)
END_MESSAGE_MAP()

// Decided here: six pixels at the ends of a bar, one above and below, two
// between items.
CControlBar::CControlBar()
    : m_bAutoDelete(FALSE), m_cxLeftBorder(6), m_cxRightBorder(6), m_cyTopBorder(1),
      m_cyBottomBorder(1), m_cxDefaultGap(2), m_nMRUWidth(32767), m_nCount(0), m_pData(NULL),
      m_dwStyle(0), m_dwDockStyle(0), m_pDockSite(NULL), m_nStateFlags(0) {}

CControlBar::~CControlBar() {
  // The derived class has freed m_pData; the window goes before the object.
  DestroyWindow();
}

void CControlBar::SetBorders(int cxLeft, int cyTop, int cxRight, int cyBottom) {
  m_cxLeftBorder = cxLeft;
  m_cyTopBorder = cyTop;
  m_cxRightBorder = cxRight;
  m_cyBottomBorder = cyBottom;
  // The client area shrinks or grows with the margins.
  if (m_hWnd != NULL)
    ::SetWindowPos(m_hWnd, NULL, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void CControlBar::SetBarStyle(DWORD dwStyle) {
  DWORD dwOldStyle = m_dwStyle;
  m_dwStyle = dwStyle & CBRS_ALL;
  if (dwOldStyle != m_dwStyle) OnBarStyleChange(dwOldStyle, m_dwStyle);
}

void CControlBar::OnBarStyleChange(DWORD, DWORD) {}

BOOL CControlBar::PreCreateWindow(CREATESTRUCT& cs) {
  if (cs.lpszClass == NULL) {
    // A bar of its own kind (no common control) gets afx's bar class.
    WNDCLASS wndcls;
    memset(&wndcls, 0, sizeof(wndcls));
    wndcls.style = CS_DBLCLKS;
    wndcls.lpfnWndProc = ::DefWindowProc;
    wndcls.hInstance = cs.hInstance;
    wndcls.hCursor = ::LoadCursor(NULL, IDC_ARROW);
    wndcls.hbrBackground = (HBRUSH)(COLOR_BTNFACE + 1);
    wndcls.lpszClassName = AFX_WNDCONTROLBAR;
    if (!AfxRegisterClass(&wndcls)) return FALSE;
    cs.lpszClass = AFX_WNDCONTROLBAR;
  }
  if (!CWnd::PreCreateWindow(cs)) return FALSE;
  // Bars overlap their siblings while the layout moves them.
  cs.style |= WS_CLIPSIBLINGS;
  CWnd* pParent = CWnd::FromHandlePermanent(cs.hwndParent);
  m_pDockSite =
      pParent != NULL && pParent->IsKindOf(RUNTIME_CLASS(CFrameWnd)) ? (CFrameWnd*)pParent : NULL;
  return TRUE;
}

void CControlBar::PostNcDestroy() {
  if (m_bAutoDelete) delete this;
}

// ---- Size --------------------------------------------------------------------------

CSize CControlBar::CalcFixedLayout(BOOL bStretch, BOOL bHorz) {
  // A stretched bar asks for all the room along its edge.
  return CSize(bStretch && bHorz ? 32767 : 0, bStretch && !bHorz ? 32767 : 0);
}

CSize CControlBar::CalcDynamicLayout(int nLength, DWORD dwMode) {
  // A docked bar asked for no particular length has its fixed size for its
  // edge; otherwise the orientation decides.
  if (nLength == -1 && !(dwMode & (LM_MRUWIDTH | LM_COMMIT)) &&
      (dwMode & (LM_HORZDOCK | LM_VERTDOCK)))
    return CalcFixedLayout((dwMode & LM_STRETCH) != 0, (dwMode & LM_HORZDOCK) != 0);
  return CalcFixedLayout((dwMode & LM_STRETCH) != 0, (dwMode & LM_HORZ) != 0);
}

void CControlBar::CalcInsideRect(CRect& rect, BOOL) const {
  rect.left += m_cxLeftBorder;
  rect.top += m_cyTopBorder;
  rect.right -= m_cxRightBorder;
  rect.bottom -= m_cyBottomBorder;
}

// ---- Borders -------------------------------------------------------------------------

LRESULT CControlBar::OnNcCalcSize(WPARAM wParam, LPARAM lParam) {
  LRESULT lResult = Default();
  RECT* pRect = wParam ? &((NCCALCSIZE_PARAMS*)lParam)->rgrc[0] : (RECT*)lParam;
  if (pRect == NULL) return lResult;
  pRect->left += m_cxLeftBorder;
  pRect->top += m_cyTopBorder;
  pRect->right -= m_cxRightBorder;
  pRect->bottom -= m_cyBottomBorder;
  // Margins wider than the window leave an empty client area, never a
  // negative one.
  if (pRect->right < pRect->left) pRect->right = pRect->left;
  if (pRect->bottom < pRect->top) pRect->bottom = pRect->top;
  return lResult;
}

LRESULT CControlBar::OnNcPaint(WPARAM, LPARAM) {
  Default();
  CRect rectWindow, rectClient;
  ::GetWindowRect(m_hWnd, &rectWindow);
  ::GetClientRect(m_hWnd, &rectClient);
  ::ClientToScreen(m_hWnd, (LPPOINT)&rectClient.left);
  ::ClientToScreen(m_hWnd, (LPPOINT)&rectClient.right);
  rectClient.OffsetRect(-rectWindow.left, -rectWindow.top);
  rectWindow.OffsetRect(-rectWindow.left, -rectWindow.top);
  HDC hDC = ::GetWindowDC(m_hWnd);
  if (hDC == NULL) return 0;
  ::ExcludeClipRect(hDC, rectClient.left, rectClient.top, rectClient.right, rectClient.bottom);
  ::FillRect(hDC, &rectWindow, ::GetSysColorBrush(COLOR_BTNFACE));
  ::ReleaseDC(m_hWnd, hDC);
  return 0;
}

// ---- Showing -----------------------------------------------------------------------

void CControlBar::DelayShow(BOOL bShow) {
  m_nStateFlags &= ~(delayHide | delayShow);
  BOOL bVisible = m_hWnd != NULL && (GetStyle() & WS_VISIBLE) != 0;
  if (bShow && !bVisible)
    m_nStateFlags |= delayShow;
  else if (!bShow && bVisible)
    m_nStateFlags |= delayHide;
}

BOOL CControlBar::IsVisible() const {
  if (m_nStateFlags & delayHide) return FALSE;
  if (m_nStateFlags & delayShow) return TRUE;
  return m_hWnd != NULL && (GetStyle() & WS_VISIBLE) != 0;
}

DWORD CControlBar::RecalcDelayShow(AFX_SIZEPARENTPARAMS* lpLayout) {
  DWORD dwStyle = (m_dwStyle & CBRS_ALL) | (GetStyle() & WS_VISIBLE);
  if (m_nStateFlags & (delayHide | delayShow)) {
    BOOL bShow = (m_nStateFlags & delayShow) != 0;
    if (lpLayout->hDWP != NULL) {
      // The layout moves windows: the pending change happens in its batch.
      m_nStateFlags &= ~(delayHide | delayShow);
      lpLayout->hDWP = ::DeferWindowPos(lpLayout->hDWP, m_hWnd, NULL, 0, 0, 0, 0,
                                        SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE |
                                            (bShow ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
    }
    dwStyle = bShow ? (dwStyle | WS_VISIBLE) : (dwStyle & ~WS_VISIBLE);
  }
  return dwStyle;
}

// ---- Layout ------------------------------------------------------------------------

LRESULT CControlBar::OnSizeParent(WPARAM, LPARAM lParam) {
  AFX_SIZEPARENTPARAMS* lpLayout = (AFX_SIZEPARENTPARAMS*)lParam;
  if (lpLayout == NULL) return 0;
  DWORD dwStyle = RecalcDelayShow(lpLayout);
  if (!(dwStyle & WS_VISIBLE) || !(dwStyle & CBRS_ALIGN_ANY)) return 0;

  CRect rect(lpLayout->rect);
  CSize sizeAvail = rect.Size();
  DWORD dwMode = lpLayout->bStretch ? LM_STRETCH : 0;
  dwMode |= (dwStyle & CBRS_ORIENT_HORZ) ? (LM_HORZ | LM_HORZDOCK) : LM_VERTDOCK;
  CSize size = CalcDynamicLayout(-1, dwMode);
  // Never more than the room left.
  size.cx = size.cx < sizeAvail.cx ? size.cx : sizeAvail.cx;
  size.cy = size.cy < sizeAvail.cy ? size.cy : sizeAvail.cy;
  if (size.cx < 0) size.cx = 0;
  if (size.cy < 0) size.cy = 0;

  if (dwStyle & CBRS_ORIENT_HORZ) {
    lpLayout->sizeTotal.cy += size.cy;
    if (size.cx > lpLayout->sizeTotal.cx) lpLayout->sizeTotal.cx = size.cx;
    if (dwStyle & CBRS_ALIGN_TOP) {
      lpLayout->rect.top += size.cy;
    } else {
      rect.top = rect.bottom - size.cy;
      lpLayout->rect.bottom -= size.cy;
    }
  } else {
    lpLayout->sizeTotal.cx += size.cx;
    if (size.cy > lpLayout->sizeTotal.cy) lpLayout->sizeTotal.cy = size.cy;
    if (dwStyle & CBRS_ALIGN_LEFT) {
      lpLayout->rect.left += size.cx;
    } else {
      rect.left = rect.right - size.cx;
      lpLayout->rect.right -= size.cx;
    }
  }
  rect.right = rect.left + size.cx;
  rect.bottom = rect.top + size.cy;
  AfxRepositionWindow(lpLayout, m_hWnd, &rect);
  return 0;
}

// ---- Idle update ---------------------------------------------------------------------

// Decided here: a bar in a window that is no frame (a dialog, a plain
// parent) is updated through its owner rather than not at all.
CCmdTarget* CControlBar::GetUpdateTarget() const {
  CWnd* pOwner = GetOwner();
  if (pOwner != NULL && pOwner->IsKindOf(RUNTIME_CLASS(CFrameWnd))) return pOwner;
  CFrameWnd* pFrame = GetParentFrame();
  if (pFrame != NULL) return pFrame;
  return pOwner;
}

LRESULT CControlBar::OnIdleUpdateCmdUI(WPARAM wParam, LPARAM) {
  // Hidden bars are not updated.
  if (!(GetStyle() & WS_VISIBLE)) return 0;
  CCmdTarget* pTarget = GetUpdateTarget();
  // The bars use the target only as a command target (CCmdUI::DoUpdate), so
  // an owner that is no frame may travel under OnUpdateCmdUI's frame type.
  if (pTarget != NULL) OnUpdateCmdUI(reinterpret_cast<CFrameWnd*>(pTarget), (BOOL)wParam);
  return 0;
}

// ---- Forwarding --------------------------------------------------------------------

// An empty tool tip text: the owner did not answer TTN_NEEDTEXT.
static BOOL IsUnansweredToolTip(LPARAM lParam) {
  NMHDR* pNMHDR = (NMHDR*)lParam;
  if (pNMHDR == NULL || (pNMHDR->code != TTN_NEEDTEXTA && pNMHDR->code != TTN_NEEDTEXTW))
    return FALSE;
  if (pNMHDR->code == TTN_NEEDTEXTA) {
    TOOLTIPTEXTA* pTTT = (TOOLTIPTEXTA*)pNMHDR;
    return (pTTT->lpszText == NULL || *pTTT->lpszText == '\0') && pTTT->szText[0] == '\0';
  }
  TOOLTIPTEXTW* pTTT = (TOOLTIPTEXTW*)pNMHDR;
  return (pTTT->lpszText == NULL || *pTTT->lpszText == 0) && pTTT->szText[0] == 0;
}

// Decided here: a tip the owner left empty is given by the bar itself, as
// frames give them: the text after the first '\n' of the string resource of
// the button's command (at most 79 characters, the size of szText).
static BOOL FillToolTip(NMHDR* pNMHDR) {
  BOOL bAnsi = pNMHDR->code == TTN_NEEDTEXTA;
  UINT uFlags = bAnsi ? ((TOOLTIPTEXTA*)pNMHDR)->uFlags : ((TOOLTIPTEXTW*)pNMHDR)->uFlags;
  UINT nID = (UINT)pNMHDR->idFrom;
  if ((uFlags & TTF_IDISHWND) || nID == 0) return FALSE;
  TCHAR szFull[256];
  if (AfxLoadString(nID, szFull, 256) == 0) return FALSE;
  CString strTip;
  if (!AfxExtractSubString(strTip, szFull, 1, '\n') || strTip.IsEmpty()) return FALSE;
  if (bAnsi) {
    TOOLTIPTEXTA* pTTT = (TOOLTIPTEXTA*)pNMHDR;
    lstrcpynA(pTTT->szText, strTip, sizeof(pTTT->szText));
    pTTT->lpszText = pTTT->szText;
  } else {
    TOOLTIPTEXTW* pTTT = (TOOLTIPTEXTW*)pNMHDR;
    const int nMax = sizeof(pTTT->szText) / sizeof(WCHAR);
    if (::MultiByteToWideChar(CP_ACP, 0, strTip, -1, pTTT->szText, nMax) == 0)
      pTTT->szText[nMax - 1] = 0; // cut to fit
    pTTT->lpszText = pTTT->szText;
  }
  return TRUE;
}

LRESULT CControlBar::WindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam) {
  switch (nMsg) {
  case WM_SETMESSAGESTRING:
  case WM_POPMESSAGESTRING: {
    // The frame that owns the bar shows the messages.
    CWnd* pOwner = GetOwner();
    return pOwner != NULL && pOwner->m_hWnd != m_hWnd ? pOwner->SendMessage(nMsg, wParam, lParam)
                                                      : 0;
  }
  case WM_COMMAND:
  case WM_NOTIFY:
  case WM_DRAWITEM:
  case WM_MEASUREITEM:
  case WM_DELETEITEM:
  case WM_COMPAREITEM:
  case WM_VKEYTOITEM:
  case WM_CHARTOITEM: {
    // The control itself (reflection) or the bar's map first, then the owner.
    LRESULT lResult = 0;
    if (OnWndMsg(nMsg, wParam, lParam, &lResult)) return lResult;
    CWnd* pOwner = GetOwner();
    if (pOwner == NULL || pOwner->m_hWnd == m_hWnd) return DefWindowProc(nMsg, wParam, lParam);
    lResult = pOwner->SendMessage(nMsg, wParam, lParam);
    // A tool tip the owner gave no text: the command's own tip, else the
    // control's handling.
    if (nMsg == WM_NOTIFY && IsUnansweredToolTip(lParam)) {
      if (FillToolTip((NMHDR*)lParam)) return 0;
      lResult = DefWindowProc(nMsg, wParam, lParam);
    }
    return lResult;
  }
  }
  return CWnd::WindowProc(nMsg, wParam, lParam);
}
