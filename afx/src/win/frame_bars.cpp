// CFrameWnd and its control bars: finding one by id, showing and hiding it,
// and the View menu items that do so.
#include <afxwin.h>
#include <afxext.h>

// ---- Control bars ------------------------------------------------------------------

CControlBar* CFrameWnd::GetControlBar(UINT nID) {
  if (nID == 0) return NULL;
  CWnd* pWnd = GetDescendantWindow(nID, TRUE);
  if (pWnd == NULL || !pWnd->IsKindOf(RUNTIME_CLASS(CControlBar))) return NULL;
  return (CControlBar*)pWnd;
}

void CFrameWnd::ShowControlBar(CControlBar* pBar, BOOL bShow, BOOL bDelay) {
  if (pBar == NULL) return;
  pBar->SetWindowPos(NULL, 0, 0, 0, 0,
                     SWP_NOZORDER | SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE |
                         (bShow ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
  if (bDelay)
    DelayRecalcLayout();
  else
    RecalcLayout();
}

// ---- Docking -----------------------------------------------------------------------

void CFrameWnd::EnableDocking(DWORD dwDockStyle) { m_dwDockStyle = dwDockStyle & CBRS_ALIGN_ANY; }

// The edge of each dock bar, in the order a bar docked anywhere tries them.
static const struct {
  UINT nDockBarID;
  DWORD dwAlign;
} s_dockEdges[] = {{AFX_IDW_DOCKBAR_TOP, CBRS_ALIGN_TOP},
                   {AFX_IDW_DOCKBAR_BOTTOM, CBRS_ALIGN_BOTTOM},
                   {AFX_IDW_DOCKBAR_LEFT, CBRS_ALIGN_LEFT},
                   {AFX_IDW_DOCKBAR_RIGHT, CBRS_ALIGN_RIGHT}};

void CFrameWnd::DockControlBar(CControlBar* pBar, UINT nDockBarID, LPCRECT) {
  if (pBar == NULL || pBar->m_hWnd == NULL) return;
  DWORD dwAllowed = m_dwDockStyle & pBar->m_dwDockStyle;
  DWORD dwAlign = 0;
  for (const auto& edge : s_dockEdges) {
    bool bAsked = nDockBarID == 0 ? (dwAllowed & edge.dwAlign) != 0 : nDockBarID == edge.nDockBarID;
    if (bAsked) {
      dwAlign = edge.dwAlign;
      break;
    }
  }
  if (dwAlign == 0) return; // no edge it may take: it stays where it is
  pBar->m_pDockSite = this;
  pBar->SetBarStyle((pBar->GetBarStyle() & ~CBRS_ALIGN_ANY) | dwAlign);
  RecalcLayout();
}

void CFrameWnd::OnUpdateControlBarMenu(CCmdUI* pCmdUI) {
  CControlBar* pBar = GetControlBar(pCmdUI->m_nID);
  if (pBar != NULL) {
    pCmdUI->SetCheck((pBar->GetStyle() & WS_VISIBLE) != 0);
    return;
  }
  pCmdUI->ContinueRouting();
}

BOOL CFrameWnd::OnBarCheck(UINT nID) {
  CControlBar* pBar = GetControlBar(nID);
  if (pBar == NULL) return FALSE;
  ShowControlBar(pBar, (pBar->GetStyle() & WS_VISIBLE) == 0, FALSE);
  return TRUE;
}
