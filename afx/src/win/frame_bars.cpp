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
