// CScrollView: a view with scroll bars over a total size given in logical
// units; the bars, scrolling by bar, wheel and program, and the DC's map
// mode and origin for drawing.
#include <afxwin.h>

#include <limits.h>
#include <stdlib.h>

IMPLEMENT_DYNAMIC(CScrollView, CView)

BEGIN_MESSAGE_MAP(CScrollView, CView)
ON_WM_SIZE()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()

const SIZE CScrollView::sizeDefault = {0, 0};

// No map mode yet: neither Set function was called.
static const int MM_NONE = 0;

CScrollView::CScrollView()
    : m_nMapMode(MM_NONE), m_totalLog(0, 0), m_totalDev(0, 0), m_pageDev(0, 0), m_lineDev(0, 0),
      m_bCenter(FALSE), m_bInsideUpdate(FALSE) {}

CScrollView::~CScrollView() {}

// ---- Sizes ------------------------------------------------------------------------------

// A logical size in the screen's device units for nMapMode (never negative).
static CSize ScreenSize(int nMapMode, SIZE sizeLog) {
  CWindowDC dc(NULL);
  dc.SetMapMode(nMapMode);
  CSize size(abs(sizeLog.cx), abs(sizeLog.cy));
  dc.LPtoDP(&size);
  return size;
}

void CScrollView::SetScrollSizes(int nMapMode, SIZE sizeTotal, const SIZE& sizePage,
                                 const SIZE& sizeLine) {
  // The two scaling modes have no fixed unit: SetScaleToFitSize stands for
  // them.
  ENSURE(nMapMode >= MM_TEXT && nMapMode <= MM_TWIPS);
  ENSURE(sizeTotal.cx >= 0 && sizeTotal.cy >= 0);
  int nOldMapMode = m_nMapMode;
  m_nMapMode = nMapMode;
  m_totalLog = sizeTotal;
  m_totalDev = ScreenSize(nMapMode, sizeTotal);
  m_pageDev = ScreenSize(nMapMode, sizePage);
  m_lineDev = ScreenSize(nMapMode, sizeLine);
  if (m_pageDev.cx == 0) m_pageDev.cx = m_totalDev.cx / 10;
  if (m_pageDev.cy == 0) m_pageDev.cy = m_totalDev.cy / 10;
  if (m_lineDev.cx == 0) m_lineDev.cx = m_pageDev.cx / 10;
  if (m_lineDev.cy == 0) m_lineDev.cy = m_pageDev.cy / 10;
  if (m_hWnd == NULL) return;
  UpdateBars();
  if (nOldMapMode != m_nMapMode) Invalidate(TRUE);
}

// A bar of the window's own taken away: no range, no position, hidden.
static void RemoveBar(CWnd* pWnd, int nBar) {
  SCROLLINFO info = {sizeof(SCROLLINFO), SIF_ALL, 0, 0, 0, 0, 0};
  pWnd->SetScrollInfo(nBar, &info, TRUE);
  pWnd->EnableScrollBarCtrl(nBar, FALSE);
}

void CScrollView::SetScaleToFitSize(SIZE sizeTotal) {
  ENSURE(sizeTotal.cx >= 0 && sizeTotal.cy >= 0);
  m_nMapMode = MM_SCALETOFIT;
  m_totalLog = sizeTotal;
  m_totalDev = sizeTotal;
  m_pageDev = m_lineDev = CSize(0, 0);
  if (m_hWnd == NULL) return;
  ScrollToDevicePosition(CPoint(0, 0));
  RemoveBar(this, SB_HORZ);
  RemoveBar(this, SB_VERT);
  // Stretched over what the window shows (known once the bars are gone).
  CRect rect;
  GetClientRect(&rect);
  m_totalDev = rect.Size();
  Invalidate(TRUE);
}

void CScrollView::GetDeviceScrollSizes(int& nMapMode, SIZE& sizeTotal, SIZE& sizePage,
                                       SIZE& sizeLine) const {
  nMapMode = m_nMapMode;
  sizeTotal = m_totalDev;
  sizePage = m_pageDev;
  sizeLine = m_lineDev;
}

// ---- Positions ----------------------------------------------------------------------

CPoint CScrollView::GetDeviceScrollPosition() const {
  return CPoint(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT));
}

CPoint CScrollView::GetScrollPosition() const {
  CPoint pt = GetDeviceScrollPosition();
  if (m_nMapMode > MM_TEXT) {
    CWindowDC dc(NULL);
    dc.SetMapMode(m_nMapMode);
    dc.DPtoLP(&pt);
  }
  return pt;
}

void CScrollView::ScrollToPosition(POINT pt) {
  // A view scaled to fit (or with no sizes yet) has nothing to scroll.
  ASSERT(m_nMapMode >= MM_TEXT);
  if (m_nMapMode < MM_TEXT) return;
  if (m_nMapMode != MM_TEXT) {
    CWindowDC dc(NULL);
    dc.SetMapMode(m_nMapMode);
    dc.LPtoDP(&pt);
  }
  int xMax = GetScrollLimit(SB_HORZ), yMax = GetScrollLimit(SB_VERT);
  pt.x = pt.x < 0 ? 0 : (pt.x > xMax ? xMax : pt.x);
  pt.y = pt.y < 0 ? 0 : (pt.y > yMax ? yMax : pt.y);
  ScrollToDevicePosition(pt);
}

void CScrollView::ScrollToDevicePosition(POINT ptDev) {
  // The bars may refuse a position out of their range: the window moves by
  // what they took.
  int xOrig = GetScrollPos(SB_HORZ), yOrig = GetScrollPos(SB_VERT);
  SetScrollPos(SB_HORZ, ptDev.x);
  SetScrollPos(SB_VERT, ptDev.y);
  int dx = xOrig - GetScrollPos(SB_HORZ), dy = yOrig - GetScrollPos(SB_VERT);
  if (dx != 0 || dy != 0) ScrollWindow(dx, dy);
}

// ---- The scroll bars ------------------------------------------------------------------

void CScrollView::GetScrollBarSizes(CSize& sizeSb) {
  sizeSb.cx = ::GetSystemMetrics(SM_CXVSCROLL);
  sizeSb.cy = ::GetSystemMetrics(SM_CYHSCROLL);
}

BOOL CScrollView::GetTrueClientSize(CSize& size, CSize& sizeSb) {
  CRect rect;
  GetClientRect(&rect);
  size = rect.Size();
  GetScrollBarSizes(sizeSb);
  // A bar that is shown takes room the view would have without it.
  DWORD dwStyle = GetStyle();
  if (dwStyle & WS_VSCROLL) size.cx += sizeSb.cx;
  if (dwStyle & WS_HSCROLL) size.cy += sizeSb.cy;
  return size.cx > sizeSb.cx && size.cy > sizeSb.cy;
}

void CScrollView::GetScrollBarState(CSize sizeClient, CSize& needSb, CSize& sizeRange,
                                    CPoint& ptMove) {
  CSize sizeSb;
  GetScrollBarSizes(sizeSb);
  // How far the view overhangs the window; each bar shown takes its width
  // from the other direction, which may then need its bar too.
  sizeRange = m_totalDev - sizeClient;
  needSb.cx = sizeRange.cx > 0;
  if (needSb.cx) sizeRange.cy += sizeSb.cy;
  needSb.cy = sizeRange.cy > 0;
  if (needSb.cy) {
    sizeRange.cx += sizeSb.cx;
    if (!needSb.cx && sizeRange.cx > 0) {
      needSb.cx = TRUE;
      sizeRange.cy += sizeSb.cy;
    }
  }
  if (!needSb.cx || sizeRange.cx < 0) sizeRange.cx = 0;
  if (!needSb.cy || sizeRange.cy < 0) sizeRange.cy = 0;
  // The position, kept inside the new range.
  ptMove = GetDeviceScrollPosition();
  if (ptMove.x > sizeRange.cx) ptMove.x = sizeRange.cx;
  if (ptMove.y > sizeRange.cy) ptMove.y = sizeRange.cy;
}

void CScrollView::UpdateBars() {
  // Showing or hiding a bar resizes the window, which comes back here.
  if (m_bInsideUpdate) return;
  m_bInsideUpdate = TRUE;
  CSize sizeClient, sizeSb;
  if (!GetTrueClientSize(sizeClient, sizeSb)) {
    // Too small for bars; a window not sized yet is left alone.
    CRect rect;
    GetClientRect(&rect);
    if (rect.right > 0 && rect.bottom > 0) {
      ScrollToDevicePosition(CPoint(0, 0));
      RemoveBar(this, SB_HORZ);
      RemoveBar(this, SB_VERT);
    }
    m_bInsideUpdate = FALSE;
    return;
  }
  CSize needSb, sizeRange;
  CPoint ptMove;
  GetScrollBarState(sizeClient, needSb, sizeRange, ptMove);
  if (needSb.cx) sizeClient.cy -= sizeSb.cy;
  if (needSb.cy) sizeClient.cx -= sizeSb.cx;
  ScrollToDevicePosition(ptMove);

  // A bar's range is the total size, its page what the window shows.
  const int nBars[2] = {SB_HORZ, SB_VERT};
  const BOOL bNeed[2] = {needSb.cx, needSb.cy};
  const int nTotal[2] = {m_totalDev.cx, m_totalDev.cy};
  const int nPage[2] = {sizeClient.cx, sizeClient.cy};
  for (int i = 0; i < 2; i++) {
    if (!bNeed[i]) {
      RemoveBar(this, nBars[i]);
      continue;
    }
    EnableScrollBarCtrl(nBars[i], TRUE);
    SCROLLINFO info = {
        sizeof(SCROLLINFO), SIF_PAGE | SIF_RANGE, 0, nTotal[i] - 1, (UINT)nPage[i], 0, 0};
    SetScrollInfo(nBars[i], &info, TRUE);
  }
  m_bInsideUpdate = FALSE;
}

void CScrollView::CheckScrollBars(BOOL& bHasHorzBar, BOOL& bHasVertBar) const {
  DWORD dwStyle = GetStyle();
  CScrollBar* pBar = GetScrollBarCtrl(SB_VERT);
  bHasVertBar = (pBar != NULL && pBar->IsWindowEnabled()) || (dwStyle & WS_VSCROLL) != 0;
  pBar = GetScrollBarCtrl(SB_HORZ);
  bHasHorzBar = (pBar != NULL && pBar->IsWindowEnabled()) || (dwStyle & WS_HSCROLL) != 0;
}

// ---- Scrolling ----------------------------------------------------------------------

// A position moved by a scroll code (one byte of OnScroll's code; 0xFF and
// the codes that only report, such as SB_ENDSCROLL, leave it).
static int ScrolledPos(int nPos, BYTE nCode, int nLine, int nPage, UINT nThumb) {
  switch (nCode) {
  case SB_TOP:
    return 0;
  case SB_BOTTOM:
    return INT_MAX;
  case SB_LINEUP:
    return nPos - nLine;
  case SB_LINEDOWN:
    return nPos + nLine;
  case SB_PAGEUP:
    return nPos - nPage;
  case SB_PAGEDOWN:
    return nPos + nPage;
  case SB_THUMBTRACK:
    return (int)nThumb;
  default:
    return nPos;
  }
}

BOOL CScrollView::OnScroll(UINT nScrollCode, UINT nPos, BOOL bDoScroll) {
  int xOrig = GetScrollPos(SB_HORZ), yOrig = GetScrollPos(SB_VERT);
  int x = ScrolledPos(xOrig, LOBYTE(nScrollCode), m_lineDev.cx, m_pageDev.cx, nPos);
  int y = ScrolledPos(yOrig, HIBYTE(nScrollCode), m_lineDev.cy, m_pageDev.cy, nPos);
  BOOL bResult = OnScrollBy(CSize(x - xOrig, y - yOrig), bDoScroll);
  if (bResult && bDoScroll) UpdateWindow();
  return bResult;
}

// nPos + nDelta kept in [0, nMax], without overflow.
static int ClampedPos(int nPos, int nDelta, int nMax) {
  long long n = (long long)nPos + nDelta;
  return n < 0 ? 0 : (n > nMax ? nMax : (int)n);
}

BOOL CScrollView::OnScrollBy(CSize sizeScroll, BOOL bDoScroll) {
  // No bar, no scrolling in that direction.
  BOOL bHasHorzBar, bHasVertBar;
  CheckScrollBars(bHasHorzBar, bHasVertBar);
  if (!bHasHorzBar) sizeScroll.cx = 0;
  if (!bHasVertBar) sizeScroll.cy = 0;
  int xOrig = GetScrollPos(SB_HORZ), yOrig = GetScrollPos(SB_VERT);
  int x = ClampedPos(xOrig, sizeScroll.cx, GetScrollLimit(SB_HORZ));
  int y = ClampedPos(yOrig, sizeScroll.cy, GetScrollLimit(SB_VERT));
  if (x == xOrig && y == yOrig) return FALSE;
  if (bDoScroll) {
    ScrollWindow(xOrig - x, yOrig - y);
    if (x != xOrig) SetScrollPos(SB_HORZ, x);
    if (y != yOrig) SetScrollPos(SB_VERT, y);
  }
  return TRUE;
}

// The thumb's position as the bar holds it (the message's 16 bits cut
// ranges beyond 65535).
static UINT TrackPos(CWnd* pWnd, int nBar, UINT nSBCode, UINT nPos) {
  SCROLLINFO info;
  if (nSBCode == SB_THUMBTRACK && pWnd->GetScrollInfo(nBar, &info, SIF_TRACKPOS))
    return (UINT)info.nTrackPos;
  return nPos;
}

void CScrollView::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) {
  // A scroll bar control of the view's own is its business, not a scroll.
  if (pScrollBar != NULL && pScrollBar->SendChildNotifyLastMsg()) return;
  if (pScrollBar != GetScrollBarCtrl(SB_HORZ)) return;
  OnScroll(MAKEWORD(nSBCode, 0xFF), TrackPos(this, SB_HORZ, nSBCode, nPos));
}

void CScrollView::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) {
  if (pScrollBar != NULL && pScrollBar->SendChildNotifyLastMsg()) return;
  if (pScrollBar != GetScrollBarCtrl(SB_VERT)) return;
  OnScroll(MAKEWORD(0xFF, nSBCode), TrackPos(this, SB_VERT, nSBCode, nPos));
}

BOOL CScrollView::OnMouseWheel(UINT fFlags, short zDelta, CPoint point) {
  if (m_nMapMode == MM_SCALETOFIT) return CView::OnMouseWheel(fFlags, zDelta, point);
  return DoMouseWheel(fFlags, zDelta, point);
}

BOOL CScrollView::DoMouseWheel(UINT fFlags, short zDelta, CPoint) {
  // Shift and Ctrl with the wheel mean something else (zoom...).
  if (fFlags & (MK_SHIFT | MK_CONTROL)) return FALSE;
  BOOL bHasHorzBar, bHasVertBar;
  CheckScrollBars(bHasHorzBar, bHasVertBar);
  if (!bHasHorzBar && !bHasVertBar) return FALSE;
  // The vertical bar first; a view with only a horizontal one turns it.
  UINT nLines = 3;
  ::SystemParametersInfo(SPI_GETWHEELSCROLLLINES, 0, &nLines, 0);
  int nLine = bHasVertBar ? m_lineDev.cy : m_lineDev.cx;
  int nPage = bHasVertBar ? m_pageDev.cy : m_pageDev.cx;
  int nDistance;
  if (nLines == WHEEL_PAGESCROLL) {
    nDistance = zDelta > 0 ? -nPage : nPage;
  } else {
    // Lines, at most a page a notch.
    nDistance = ::MulDiv(-zDelta, (int)nLines, WHEEL_DELTA) * nLine;
    if (nDistance > nPage) nDistance = nPage;
    if (nDistance < -nPage) nDistance = -nPage;
  }
  BOOL bResult = OnScrollBy(bHasVertBar ? CSize(0, nDistance) : CSize(nDistance, 0), TRUE);
  if (bResult) UpdateWindow();
  return bResult;
}

void CScrollView::OnSize(UINT nType, int cx, int cy) {
  CView::OnSize(nType, cx, cy);
  if (m_nMapMode == MM_SCALETOFIT)
    SetScaleToFitSize(m_totalLog); // the new scale
  else if (m_nMapMode != MM_NONE)
    UpdateBars();
}

// ---- Drawing ----------------------------------------------------------------------------

void CScrollView::OnPrepareDC(CDC* pDC, CPrintInfo* pInfo) {
  if (m_nMapMode == MM_SCALETOFIT) {
    pDC->SetMapMode(MM_ANISOTROPIC);
    pDC->SetWindowExt(m_totalLog);
    pDC->SetViewportExt(m_totalDev);
  } else if (m_nMapMode != MM_NONE) {
    pDC->SetMapMode(m_nMapMode);
  }
  // On the screen the document's origin moves with the scroll position; a
  // printer's page is laid out by the print job.
  if (!pDC->IsPrinting()) {
    CPoint ptOrg = -GetDeviceScrollPosition();
    if (m_bCenter) {
      CRect rect;
      GetClientRect(&rect);
      if (m_totalDev.cx < rect.Width()) ptOrg.x = (rect.Width() - m_totalDev.cx) / 2;
      if (m_totalDev.cy < rect.Height()) ptOrg.y = (rect.Height() - m_totalDev.cy) / 2;
    }
    pDC->SetViewportOrg(ptOrg);
  }
  CView::OnPrepareDC(pDC, pInfo);
}

void CScrollView::FillOutsideRect(CDC* pDC, CBrush* pBrush) {
  CRect rectClient;
  GetClientRect(&rectClient);
  // The strip right of the total width, then the one below it.
  CRect rect = rectClient;
  rect.left = m_totalDev.cx;
  if (!rect.IsRectEmpty()) pDC->FillRect(rect, pBrush);
  rect = rectClient;
  rect.right = m_totalDev.cx < rectClient.right ? m_totalDev.cx : rectClient.right;
  rect.top = m_totalDev.cy;
  if (!rect.IsRectEmpty()) pDC->FillRect(rect, pBrush);
}

void CScrollView::ResizeParentToFit(BOOL bShrinkOnly) {
  CFrameWnd* pFrame = GetParentFrame();
  if (pFrame == NULL || m_nMapMode == MM_NONE) return;
  CSize sizeClient, sizeSb;
  GetTrueClientSize(sizeClient, sizeSb);
  // What the view wants; a bar that stays takes room from the other side.
  CSize sizeWanted = m_totalDev;
  if (bShrinkOnly) {
    if (sizeWanted.cx > sizeClient.cx) {
      sizeWanted.cx = sizeClient.cx;
      sizeWanted.cy += sizeSb.cy;
    }
    if (sizeWanted.cy > sizeClient.cy) {
      sizeWanted.cy = sizeClient.cy;
      sizeWanted.cx += sizeSb.cx;
    }
    if (sizeWanted.cx > sizeClient.cx) sizeWanted.cx = sizeClient.cx;
  }
  CRect rectFrame;
  pFrame->GetWindowRect(&rectFrame);
  pFrame->SetWindowPos(NULL, 0, 0, rectFrame.Width() + sizeWanted.cx - sizeClient.cx,
                       rectFrame.Height() + sizeWanted.cy - sizeClient.cy,
                       SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}
