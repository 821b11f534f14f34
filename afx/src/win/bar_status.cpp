// CStatusBar: a bar on the status bar common control. The panes (id, text
// width, style, text) are kept here and sent to the control as parts and
// part texts; idle updates reach the panes through a CCmdUI of their own.
#include <afxwin.h>
#include <afxbar_.h>

#include <new>

#include "bar_impl.h"

IMPLEMENT_DYNAMIC(CStatusBar, CControlBar)

BEGIN_MESSAGE_MAP(CStatusBar, CControlBar)
ON_MESSAGE(WM_SETTEXT, &CStatusBar::OnSetText)
ON_MESSAGE(WM_GETTEXT, &CStatusBar::OnGetText)
ON_MESSAGE(WM_GETTEXTLENGTH, &CStatusBar::OnGetTextLength)
ON_MESSAGE(SB_SETMINHEIGHT, &CStatusBar::OnSetMinHeight)
ON_WM_SIZE()
ON_WM_NCHITTEST()
END_MESSAGE_MAP()

namespace {
// The control has at most 256 parts; more indicators are refused.
const int kMaxPanes = 256;
// Room for a pane's border and margins around its text: three pixels a side.
const int kPaneBorder = 6;
// The SB_SETTEXT type bits a pane style carries.
const UINT kTextTypeBits = SBT_NOBORDERS | SBT_POPOUT | SBT_OWNERDRAW | SBT_RTLREADING;

// Updates a pane through its status bar: enabling shows the text, checking
// makes the pane pop out.
class CStatusCmdUI : public CCmdUI {
public:
  virtual void Enable(BOOL bOn) {
    m_bEnableChanged = TRUE;
    CStatusBar* pBar = (CStatusBar*)m_pOther;
    UINT nStyle = pBar->GetPaneStyle(m_nIndex) & ~SBPS_DISABLED;
    if (!bOn) nStyle |= SBPS_DISABLED;
    pBar->SetPaneStyle(m_nIndex, nStyle);
  }
  virtual void SetCheck(int nCheck) {
    CStatusBar* pBar = (CStatusBar*)m_pOther;
    UINT nStyle = pBar->GetPaneStyle(m_nIndex) & ~SBPS_POPOUT;
    if (nCheck != 0) nStyle |= SBPS_POPOUT;
    pBar->SetPaneStyle(m_nIndex, nStyle);
  }
  virtual void SetText(LPCTSTR lpszText) {
    ((CStatusBar*)m_pOther)->SetPaneText(m_nIndex, lpszText);
  }
};

} // namespace

// Decided here: the control draws its own frame, so the bar keeps no side
// margins; two pixels stay free above the panes.
CStatusBar::CStatusBar() : m_nMinHeight(0) {
  m_cxLeftBorder = m_cxRightBorder = 0;
  m_cyTopBorder = 2;
  m_cyBottomBorder = 0;
}

CStatusBar::~CStatusBar() {
  DestroyWindow();
  FreePanes();
}

void CStatusBar::FreePanes() {
  delete[](AFX_STATUSPANE*) m_pData;
  m_pData = NULL;
  m_nCount = 0;
}

BOOL CStatusBar::Create(CWnd* pParentWnd, DWORD dwStyle, UINT nID) {
  return CreateEx(pParentWnd, 0, dwStyle, nID);
}

BOOL CStatusBar::CreateEx(CWnd* pParentWnd, DWORD dwCtrlStyle, DWORD dwStyle, UINT nID) {
  if (pParentWnd == NULL || pParentWnd->m_hWnd == NULL) return FALSE;
  AfxInitBarClasses();
  m_dwStyle = dwStyle & CBRS_ALL;
  // The bar places itself: the control must neither move to its parent's
  // edge nor size itself.
  dwStyle = (dwStyle & ~CBRS_ALL) | dwCtrlStyle | CCS_NOPARENTALIGN | CCS_NOMOVEY | CCS_NODIVIDER |
            CCS_NORESIZE;
  // A bar at the bottom of a sizeable window gets the size grip.
  if ((m_dwStyle & CBRS_ALIGN_ANY) == CBRS_ALIGN_BOTTOM && (pParentWnd->GetStyle() & WS_THICKFRAME))
    dwStyle |= SBARS_SIZEGRIP;
  if (!CWnd::Create(STATUSCLASSNAME, NULL, dwStyle, CRect(0, 0, 0, 0), pParentWnd, nID))
    return FALSE;
  // Decided here: with no font of its own the bar uses the default GUI font,
  // so that text widths are measured with the font the panes are drawn in.
  if (SendMessage(WM_GETFONT) == 0)
    SendMessage(WM_SETFONT, (WPARAM)::GetStockObject(DEFAULT_GUI_FONT), FALSE);
  return TRUE;
}

// ---- Panes -----------------------------------------------------------------------------

AFX_STATUSPANE* CStatusBar::_GetPanePtr(int nIndex) const {
  if (nIndex < 0 || nIndex >= m_nCount || m_pData == NULL) AfxThrowInvalidArgException();
  return &((AFX_STATUSPANE*)m_pData)[nIndex];
}

BOOL CStatusBar::SetIndicators(const UINT* lpIDArray, int nIDCount) {
  if (nIDCount < 0 || nIDCount > kMaxPanes) return FALSE;
  AFX_STATUSPANE* pPanes = NULL;
  if (nIDCount > 0) {
    pPanes = new (std::nothrow) AFX_STATUSPANE[nIDCount];
    if (pPanes == NULL) AfxThrowMemoryException();
  }
  // Texts are measured with the bar's font (the default GUI font before the
  // window exists).
  HDC hDC = ::GetDC(NULL);
  HFONT hFont = m_hWnd != NULL ? (HFONT)SendMessage(WM_GETFONT) : NULL;
  if (hFont == NULL) hFont = (HFONT)::GetStockObject(DEFAULT_GUI_FONT);
  HGDIOBJ hOldFont = ::SelectObject(hDC, hFont);
  BOOL bResult = TRUE;
  for (int i = 0; i < nIDCount; i++) {
    AFX_STATUSPANE& pane = pPanes[i];
    pane.nID = lpIDArray != NULL ? lpIDArray[i] : ID_SEPARATOR;
    pane.nStyle = SBPS_NORMAL;
    pane.nFlags = SBPF_UPDATE;
    pane.cxText = 0;
    if (pane.nID != ID_SEPARATOR) {
      if (!pane.strText.LoadString(pane.nID)) {
        bResult = FALSE; // an indicator needs its text
        break;
      }
      SIZE size = {0, 0};
      ::GetTextExtentPoint32(hDC, pane.strText, pane.strText.GetLength(), &size);
      pane.cxText = size.cx;
    } else {
      // Decided here: a pane without an indicator is a quarter of the
      // screen wide; the first one stretches and has no border (the
      // message pane).
      pane.cxText = ::GetSystemMetrics(SM_CXSCREEN) / 4;
      if (i == 0) pane.nStyle |= SBPS_STRETCH | SBPS_NOBORDERS;
    }
  }
  ::SelectObject(hDC, hOldFont);
  ::ReleaseDC(NULL, hDC);
  if (!bResult) {
    delete[] pPanes;
    return FALSE;
  }
  FreePanes();
  m_pData = pPanes;
  m_nCount = nIDCount;
  if (m_hWnd != NULL) UpdateAllPanes(TRUE, TRUE);
  return TRUE;
}

int CStatusBar::CommandToIndex(UINT nIDFind) const {
  const AFX_STATUSPANE* pPanes = (const AFX_STATUSPANE*)m_pData;
  for (int i = 0; i < m_nCount; i++) {
    if (pPanes[i].nID == nIDFind) return i;
  }
  return -1;
}

UINT CStatusBar::GetItemID(int nIndex) const { return _GetPanePtr(nIndex)->nID; }

void CStatusBar::GetItemRect(int nIndex, LPRECT lpRect) const {
  _GetPanePtr(nIndex);
  if (lpRect == NULL) return;
  CStatusBar* pThis = const_cast<CStatusBar*>(this);
  if (!pThis->DefWindowProc(SB_GETRECT, nIndex, (LPARAM)lpRect)) ::SetRectEmpty(lpRect);
}

void CStatusBar::GetPaneText(int nIndex, CString& rString) const {
  rString = _GetPanePtr(nIndex)->strText;
}

CString CStatusBar::GetPaneText(int nIndex) const { return _GetPanePtr(nIndex)->strText; }

BOOL CStatusBar::SetPaneText(int nIndex, LPCTSTR lpszNewText, BOOL bUpdate) {
  AFX_STATUSPANE* pPane = _GetPanePtr(nIndex);
  if (lpszNewText == NULL) lpszNewText = "";
  // The same text again changes nothing on screen (no flicker).
  if (!(pPane->nFlags & SBPF_UPDATE) && pPane->strText == lpszNewText) return TRUE;
  pPane->strText = lpszNewText;
  if (!bUpdate || m_hWnd == NULL) {
    pPane->nFlags |= SBPF_UPDATE; // sent at the next update of the panes
    return TRUE;
  }
  SendPaneText(nIndex);
  return TRUE;
}

void CStatusBar::SendPaneText(int nIndex) {
  AFX_STATUSPANE* pPane = _GetPanePtr(nIndex);
  pPane->nFlags &= ~SBPF_UPDATE;
  if (m_hWnd == NULL) return;
  // A disabled pane shows no text; an owner-drawn one gets its text as the
  // item data of WM_DRAWITEM.
  LPCTSTR lpszShown = (pPane->nStyle & SBPS_DISABLED) ? "" : (LPCTSTR)pPane->strText;
  DefWindowProc(SB_SETTEXT, (WPARAM)(nIndex | (pPane->nStyle & kTextTypeBits)), (LPARAM)lpszShown);
}

void CStatusBar::GetPaneInfo(int nIndex, UINT& nID, UINT& nStyle, int& cxWidth) const {
  const AFX_STATUSPANE* pPane = _GetPanePtr(nIndex);
  nID = pPane->nID;
  nStyle = pPane->nStyle;
  cxWidth = pPane->cxText;
}

void CStatusBar::SetPaneInfo(int nIndex, UINT nID, UINT nStyle, int cxWidth) {
  AFX_STATUSPANE* pPane = _GetPanePtr(nIndex);
  pPane->nID = nID;
  BOOL bRects = FALSE;
  if (pPane->nStyle != nStyle) {
    bRects = ((pPane->nStyle ^ nStyle) & SBPS_STRETCH) != 0;
    pPane->nStyle = nStyle;
    SendPaneText(nIndex); // the control takes the new type with the text
  }
  if (cxWidth < 0) cxWidth = 0;
  if (pPane->cxText != cxWidth) {
    pPane->cxText = cxWidth;
    bRects = TRUE;
  }
  if (bRects && m_hWnd != NULL) UpdateAllPanes(TRUE, FALSE);
}

UINT CStatusBar::GetPaneStyle(int nIndex) const { return _GetPanePtr(nIndex)->nStyle; }

void CStatusBar::SetPaneStyle(int nIndex, UINT nStyle) {
  AFX_STATUSPANE* pPane = _GetPanePtr(nIndex);
  if (pPane->nStyle == nStyle) return;
  BOOL bRects = ((pPane->nStyle ^ nStyle) & SBPS_STRETCH) != 0;
  pPane->nStyle = nStyle;
  SendPaneText(nIndex);
  if (bRects && m_hWnd != NULL) UpdateAllPanes(TRUE, FALSE);
}

void CStatusBar::UpdateAllPanes(BOOL bUpdateRects, BOOL bUpdateText) {
  if (m_hWnd == NULL) return;
  AFX_STATUSPANE* pPanes = (AFX_STATUSPANE*)m_pData;
  if (bUpdateRects && m_nCount > 0) {
    CRect rect; // the borders lie outside it already
    GetClientRect(&rect);
    int rgBorders[3] = {0, 0, 0};
    DefWindowProc(SB_GETBORDERS, 0, (LPARAM)rgBorders);
    int nGap = rgBorders[2];
    // Each pane is its text wide plus its border; the first stretching pane
    // takes what the others leave (never less than its own width).
    int cxFixed = 0;
    for (int i = 0; i < m_nCount; i++)
      cxFixed += pPanes[i].cxText + kPaneBorder + (i > 0 ? nGap : 0);
    int cxExtra = rect.Width() - cxFixed;
    if (cxExtra < 0) cxExtra = 0;
    int rgRights[kMaxPanes];
    int x = rect.left;
    BOOL bStretched = FALSE;
    for (int i = 0; i < m_nCount; i++) {
      if (i > 0) x += nGap;
      x += pPanes[i].cxText + kPaneBorder;
      if (!bStretched && (pPanes[i].nStyle & SBPS_STRETCH)) {
        x += cxExtra;
        bStretched = TRUE;
      }
      rgRights[i] = x;
    }
    // Only a change of the parts goes to the control (no needless repaint).
    int rgOld[kMaxPanes];
    int nOld = (int)DefWindowProc(SB_GETPARTS, kMaxPanes, (LPARAM)rgOld);
    if (nOld != m_nCount || memcmp(rgOld, rgRights, m_nCount * sizeof(int)) != 0)
      DefWindowProc(SB_SETPARTS, m_nCount, (LPARAM)rgRights);
  }
  for (int i = 0; i < m_nCount; i++) {
    if (bUpdateText || (pPanes[i].nFlags & SBPF_UPDATE)) SendPaneText(i);
  }
}

// ---- Size and updates ---------------------------------------------------------------

CSize CStatusBar::CalcFixedLayout(BOOL bStretch, BOOL bHorz) {
  CSize size = CControlBar::CalcFixedLayout(bStretch, bHorz);
  // One line of the bar's font, the control's borders and the bar's own.
  HDC hDC = ::GetDC(NULL);
  HFONT hFont = m_hWnd != NULL ? (HFONT)SendMessage(WM_GETFONT) : NULL;
  if (hFont == NULL) hFont = (HFONT)::GetStockObject(DEFAULT_GUI_FONT);
  HGDIOBJ hOldFont = ::SelectObject(hDC, hFont);
  TEXTMETRIC tm;
  memset(&tm, 0, sizeof(tm));
  ::GetTextMetrics(hDC, &tm);
  ::SelectObject(hDC, hOldFont);
  ::ReleaseDC(NULL, hDC);
  int rgBorders[3] = {0, 0, 0};
  if (m_hWnd != NULL) DefWindowProc(SB_GETBORDERS, 0, (LPARAM)rgBorders);
  size.cy = tm.tmHeight - tm.tmInternalLeading - 1 + rgBorders[1] * 2 +
            ::GetSystemMetrics(SM_CYBORDER) * 2 + m_cyTopBorder + m_cyBottomBorder;
  if (size.cy < m_nMinHeight) size.cy = m_nMinHeight;
  return size;
}

void CStatusBar::OnUpdateCmdUI(CFrameWnd* pTarget, BOOL bDisableIfNoHndler) {
  CStatusCmdUI state;
  state.m_pOther = this;
  state.m_nIndexMax = (UINT)m_nCount;
  for (int i = 0; i < m_nCount; i++) {
    state.m_nIndex = (UINT)i;
    state.m_nID = ((AFX_STATUSPANE*)m_pData)[i].nID;
    // The bar's own handlers first, then the target's.
    if (CWnd::OnCmdMsg(state.m_nID, CN_UPDATE_COMMAND_UI, &state, NULL)) continue;
    state.DoUpdate(reinterpret_cast<CCmdTarget*>(pTarget), FALSE);
  }
  // Controls placed on the bar, then the texts set without an update.
  UpdateDialogControls(reinterpret_cast<CCmdTarget*>(pTarget), bDisableIfNoHndler);
  UpdateAllPanes(FALSE, FALSE);
}

void CStatusBar::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CStatusBar::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CControlBar::OnChildNotify(message, wParam, lParam, pResult);
  if (lParam != 0) DrawItem((LPDRAWITEMSTRUCT)lParam);
  if (pResult != NULL) *pResult = TRUE;
  return TRUE;
}

// ---- Messages ---------------------------------------------------------------------------

LRESULT CStatusBar::OnSetText(WPARAM, LPARAM lParam) {
  int nIndex = CommandToIndex(ID_SEPARATOR);
  if (nIndex < 0) return FALSE;
  return SetPaneText(nIndex, (LPCTSTR)lParam);
}

LRESULT CStatusBar::OnGetText(WPARAM wParam, LPARAM lParam) {
  LPTSTR lpszDest = (LPTSTR)lParam;
  int nMax = (int)wParam;
  if (lpszDest == NULL || nMax <= 0) return 0;
  int nIndex = CommandToIndex(ID_SEPARATOR);
  const CString& str = nIndex >= 0 ? _GetPanePtr(nIndex)->strText : CString();
  // Bounded by the caller's buffer, as for any window text.
  int nLen = str.GetLength() < nMax - 1 ? str.GetLength() : nMax - 1;
  memcpy(lpszDest, (LPCTSTR)str, nLen * sizeof(TCHAR));
  lpszDest[nLen] = '\0';
  return nLen;
}

LRESULT CStatusBar::OnGetTextLength(WPARAM, LPARAM) {
  int nIndex = CommandToIndex(ID_SEPARATOR);
  return nIndex >= 0 ? _GetPanePtr(nIndex)->strText.GetLength() : 0;
}

LRESULT CStatusBar::OnSetMinHeight(WPARAM wParam, LPARAM) {
  m_nMinHeight = (int)wParam;
  return Default();
}

void CStatusBar::OnSize(UINT, int, int) {
  Default();
  // The stretching pane follows the new width.
  UpdateAllPanes(TRUE, FALSE);
}

LRESULT CStatusBar::OnNcHitTest(CPoint) {
  LRESULT lResult = Default();
  return lResult == HTBOTTOMRIGHT ? HTTRANSPARENT : lResult;
}
