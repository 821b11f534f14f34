// CWnd::RepositionBars: the control bars among a window's children take
// their strips from the client area (WM_SIZEPARENT) and the left-over child
// gets what remains; every move goes through one DeferWindowPos batch.
#include <afxwin.h>
#include <afxpriv.h>
#include <afxbar_.h>

void AFXAPI AfxRepositionWindow(AFX_SIZEPARENTPARAMS* lpLayout, HWND hWnd, LPCRECT lpRect) {
  if (hWnd == NULL || lpRect == NULL) return;
  if (lpLayout != NULL && lpLayout->hDWP == NULL) return; // measuring only
  // The window's rectangle in its parent's client coordinates: a window that
  // is in place already is not moved (no needless repaint).
  CRect rectOld;
  ::GetWindowRect(hWnd, &rectOld);
  HWND hWndParent = ::GetParent(hWnd);
  if (hWndParent != NULL) ::MapWindowPoints(NULL, hWndParent, (LPPOINT)&rectOld, 2);
  if (::EqualRect(&rectOld, lpRect)) return;
  const UINT nFlags = SWP_NOACTIVATE | SWP_NOZORDER;
  int cx = lpRect->right - lpRect->left, cy = lpRect->bottom - lpRect->top;
  if (lpLayout != NULL)
    lpLayout->hDWP =
        ::DeferWindowPos(lpLayout->hDWP, hWnd, NULL, lpRect->left, lpRect->top, cx, cy, nFlags);
  else
    ::SetWindowPos(hWnd, NULL, lpRect->left, lpRect->top, cx, cy, nFlags);
}

void CWnd::RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlags,
                          LPRECT lpRectParam, LPCRECT lpRectClient, BOOL bStretch) {
  if (m_hWnd == NULL) return;
  const UINT nMode = nFlags & ~(UINT)reposNoPosLeftOver;
  // The query and the extra border both need the caller's rectangle.
  if ((nMode == reposQuery || nMode == reposExtra) && lpRectParam == NULL) return;

  AFX_SIZEPARENTPARAMS layout;
  layout.bStretch = bStretch;
  layout.sizeTotal.cx = layout.sizeTotal.cy = 0;
  if (lpRectClient != NULL)
    layout.rect = *lpRectClient;
  else
    ::GetClientRect(m_hWnd, &layout.rect);
  // Decided here: a batch for eight windows to start with; DeferWindowPos
  // grows it as bars are added.
  layout.hDWP = nMode == reposQuery ? NULL : ::BeginDeferWindowPos(8);

  // Bars in z-order: the first child takes the outermost strip.
  HWND hWndLeftOver = NULL;
  for (HWND hWndChild = ::GetTopWindow(m_hWnd); hWndChild != NULL;
       hWndChild = ::GetWindow(hWndChild, GW_HWNDNEXT)) {
    UINT nIDC = (UINT)(WORD)::GetDlgCtrlID(hWndChild);
    if (nIDC == nIDLeftOver) {
      hWndLeftOver = hWndChild;
    } else if (nIDC >= nIDFirst && nIDC <= nIDLast &&
               CWnd::FromHandlePermanent(hWndChild) != NULL) {
      ::SendMessage(hWndChild, WM_SIZEPARENT, 0, (LPARAM)&layout);
    }
  }

  if (nMode == reposQuery) {
    // What is left, or with no stretching the size the bars want.
    if (bStretch)
      ::CopyRect(lpRectParam, &layout.rect);
    else
      ::SetRect(lpRectParam, 0, 0, layout.sizeTotal.cx, layout.sizeTotal.cy);
    return;
  }

  if (nIDLeftOver != 0 && hWndLeftOver != NULL) {
    if (nMode == reposExtra) {
      // lpRectParam holds the widths to keep free on each side.
      layout.rect.left += lpRectParam->left;
      layout.rect.top += lpRectParam->top;
      layout.rect.right -= lpRectParam->right;
      layout.rect.bottom -= lpRectParam->bottom;
    }
    if (!(nFlags & reposNoPosLeftOver)) {
      // The client area is what is left: the window rectangle adds its
      // borders (a client edge stays inside, see CWnd::CalcWindowRect).
      CWnd* pLeftOver = CWnd::FromHandle(hWndLeftOver);
      pLeftOver->CalcWindowRect(&layout.rect);
      AfxRepositionWindow(&layout, hWndLeftOver, &layout.rect);
    }
  }

  if (layout.hDWP != NULL) ::EndDeferWindowPos(layout.hDWP);
}
