// CPreviewView: print preview's pages, drawn by the printing view into
// metafiles made against the printer and played scaled onto the screen, and
// the preview toolbar's commands.
#include <afxwin.h>
#include <afxext.h>
#include <afxpriv.h>

IMPLEMENT_DYNCREATE(CPreviewView, CScrollView)

BEGIN_MESSAGE_MAP(CPreviewView, CScrollView)
ON_COMMAND(AFX_ID_PREVIEW_CLOSE, &CPreviewView::OnPreviewClose)
ON_COMMAND(AFX_ID_PREVIEW_PRINT, &CPreviewView::OnPreviewPrint)
ON_COMMAND(AFX_ID_PREVIEW_NEXT, &CPreviewView::OnNextPage)
ON_COMMAND(AFX_ID_PREVIEW_PREV, &CPreviewView::OnPrevPage)
ON_COMMAND(AFX_ID_PREVIEW_NUMPAGE, &CPreviewView::OnNumPageChange)
ON_COMMAND(AFX_ID_PREVIEW_ZOOMIN, &CPreviewView::OnZoomIn)
ON_COMMAND(AFX_ID_PREVIEW_ZOOMOUT, &CPreviewView::OnZoomOut)
ON_UPDATE_COMMAND_UI(AFX_ID_PREVIEW_NEXT, &CPreviewView::OnUpdateNextPage)
ON_UPDATE_COMMAND_UI(AFX_ID_PREVIEW_PREV, &CPreviewView::OnUpdatePrevPage)
ON_UPDATE_COMMAND_UI(AFX_ID_PREVIEW_NUMPAGE, &CPreviewView::OnUpdateNumPageChange)
ON_UPDATE_COMMAND_UI(AFX_ID_PREVIEW_ZOOMIN, &CPreviewView::OnUpdateZoomIn)
ON_UPDATE_COMMAND_UI(AFX_ID_PREVIEW_ZOOMOUT, &CPreviewView::OnUpdateZoomOut)
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
ON_WM_SETCURSOR()
END_MESSAGE_MAP()

// Decided here: the workspace shows 8 pixels around and between the pages;
// a page's shadow falls 3 pixels right and down; a scroll line is 16 pixels.
static const int kMargin = 8, kShadow = 3, kLine = 16;
static const UINT kNoPage = (UINT)-1;

CPreviewView::CPreviewView()
    : m_pOrigView(NULL), m_pPrintView(NULL), m_pPreviewDC(NULL), m_pPreviewInfo(NULL),
      m_pPreviewState(NULL), m_pToolBar(NULL), m_nZoomState(ZOOM_OUT), m_nMaxPages(2), m_nPages(1),
      m_nCurrentPage(1), m_sizePaper(0, 0), m_rectPrintable(0, 0, 0, 0), m_sizePrinterPPI(0, 0),
      m_bNextPage(FALSE), m_bMultiPage(FALSE) {
  m_bCenter = TRUE;
  m_hPageMeta[0] = m_hPageMeta[1] = NULL;
  m_nPageMeta[0] = m_nPageMeta[1] = kNoPage;
}

CPreviewView::~CPreviewView() {
  ClearPages();
  if (m_pPreviewDC != NULL) {
    // The printer DC is the print info's: it deletes it.
    m_pPreviewDC->m_hDC = NULL;
    m_pPreviewDC->ReleaseAttribDC();
    delete m_pPreviewDC;
  }
  delete m_pPreviewInfo;
  delete m_pPreviewState;
}

// ---- The print job -------------------------------------------------------------------

BOOL CPreviewView::SetPrintView(CView* pPrintView) {
  if (pPrintView == NULL || m_pPreviewInfo != NULL) return FALSE;
  m_pPrintView = pPrintView;
  m_pPreviewInfo = new CPrintInfo;
  m_pPreviewInfo->m_bPreview = TRUE;
  CWinApp* pApp = AfxGetApp();
  m_pPreviewInfo->m_nNumPreviewPages = pApp != NULL ? pApp->m_nNumPreviewPages : 0;
  m_pPreviewInfo->m_strPageDesc.LoadString(AFX_IDS_PREVIEWPAGEDESC);
  if (!pPrintView->OnPreparePrinting(m_pPreviewInfo)) return FALSE;
  // A view that asks for no printer is previewed on the application's.
  if (m_pPreviewInfo->m_pPD->m_pd.hDC == NULL && !pPrintView->DoPreparePrinting(m_pPreviewInfo))
    return FALSE;
  HDC hPrinter = m_pPreviewInfo->m_pPD->m_pd.hDC;
  m_sizePrinterPPI.cx = ::GetDeviceCaps(hPrinter, LOGPIXELSX);
  m_sizePrinterPPI.cy = ::GetDeviceCaps(hPrinter, LOGPIXELSY);
  CSize sizeRes(::GetDeviceCaps(hPrinter, HORZRES), ::GetDeviceCaps(hPrinter, VERTRES));
  if (m_sizePrinterPPI.cx <= 0 || m_sizePrinterPPI.cy <= 0 || sizeRes.cx <= 0 || sizeRes.cy <= 0)
    return FALSE; // no page to show
  // The paper, where the device knows it; else the printable area alone.
  m_sizePaper.cx = ::GetDeviceCaps(hPrinter, PHYSICALWIDTH);
  m_sizePaper.cy = ::GetDeviceCaps(hPrinter, PHYSICALHEIGHT);
  CPoint ptOffset(::GetDeviceCaps(hPrinter, PHYSICALOFFSETX),
                  ::GetDeviceCaps(hPrinter, PHYSICALOFFSETY));
  if (m_sizePaper.cx < sizeRes.cx || m_sizePaper.cy < sizeRes.cy) {
    m_sizePaper = sizeRes;
    ptOffset = CPoint(0, 0);
  }
  m_rectPrintable = CRect(ptOffset, sizeRes);

  m_pPreviewDC = new CDC;
  m_pPreviewDC->m_hDC = hPrinter;
  m_pPreviewDC->SetAttribDC(hPrinter);
  m_pPreviewDC->m_bPrinting = TRUE;
  pPrintView->OnBeginPrinting(m_pPreviewDC, m_pPreviewInfo);

  UINT nMin = m_pPreviewInfo->GetMinPage();
  m_bMultiPage = PageExists(nMin + 1);
  m_nPages = m_pPreviewInfo->m_nNumPreviewPages;
  if (m_nPages < 1 || !m_bMultiPage) m_nPages = 1;
  if (m_nPages > m_nMaxPages) m_nPages = m_nMaxPages;
  SetCurrentPage(m_pPreviewInfo->m_nCurPage, TRUE);
  return TRUE;
}

BOOL CPreviewView::PageExists(UINT nPage) {
  if (nPage < m_pPreviewInfo->GetMinPage() || nPage > m_pPreviewInfo->GetMaxPage()) return FALSE;
  // The view says, as before a printed page, whether there is one.
  HDC hPrinter = m_pPreviewDC->m_hAttribDC;
  UINT nCurPage = m_pPreviewInfo->m_nCurPage;
  m_pPreviewInfo->m_nCurPage = nPage;
  m_pPreviewInfo->m_bContinuePrinting = TRUE;
  int nSavedDC = ::SaveDC(hPrinter);
  m_pPrintView->OnPrepareDC(m_pPreviewDC, m_pPreviewInfo);
  ::RestoreDC(hPrinter, nSavedDC);
  BOOL bExists = m_pPreviewInfo->m_bContinuePrinting;
  m_pPreviewInfo->m_nCurPage = nCurPage;
  m_pPreviewInfo->m_bContinuePrinting = TRUE;
  return bExists;
}

HENHMETAFILE CPreviewView::DrawPage(UINT nPage) {
  HDC hPrinter = m_pPreviewDC->m_hAttribDC;
  // The metafile's frame is the printable area in its header's units
  // (0.01 mm, from the same sizes the header records), so that playing it
  // into a rectangle maps the printer's pixels onto it exactly.
  CRect rectFrame(0, 0, ::GetDeviceCaps(hPrinter, HORZSIZE) * 100,
                  ::GetDeviceCaps(hPrinter, VERTSIZE) * 100);
  HDC hMeta = ::CreateEnhMetaFile(hPrinter, NULL, &rectFrame, NULL);
  if (hMeta == NULL) return NULL;
  UINT nCurPage = m_pPreviewInfo->m_nCurPage;
  m_pPreviewInfo->m_nCurPage = nPage;
  m_pPreviewInfo->m_bContinuePrinting = TRUE;
  int nSavedDC = ::SaveDC(hPrinter);
  m_pPreviewDC->m_hDC = hMeta;
  // The DCs and the print info as they were, for the next page; the
  // metafile closed.
  auto restore = [&] {
    m_pPreviewDC->m_hDC = hPrinter;
    ::RestoreDC(hPrinter, nSavedDC);
    m_pPreviewInfo->m_nCurPage = nCurPage;
    return ::CloseEnhMetaFile(hMeta);
  };
  BOOL bPage = FALSE;
  try {
    m_pPrintView->OnPrepareDC(m_pPreviewDC, m_pPreviewInfo);
    bPage = m_pPreviewInfo->m_bContinuePrinting && nPage <= m_pPreviewInfo->GetMaxPage();
    if (bPage) {
      m_pPreviewInfo->m_rectDraw.SetRect(0, 0, m_rectPrintable.Width(), m_rectPrintable.Height());
      m_pPreviewDC->DPtoLP(&m_pPreviewInfo->m_rectDraw);
      m_pPrintView->OnPrint(m_pPreviewDC, m_pPreviewInfo);
    }
  } catch (CException*) {
    ::DeleteEnhMetaFile(restore()); // the page is lost
    throw;
  }
  HENHMETAFILE hMetaFile = restore();
  m_pPreviewInfo->m_bContinuePrinting = TRUE;
  if (bPage) return hMetaFile;
  ::DeleteEnhMetaFile(hMetaFile);
  return NULL;
}

void CPreviewView::ClearPages() {
  for (int i = 0; i < 2; i++) {
    if (m_hPageMeta[i] != NULL) ::DeleteEnhMetaFile(m_hPageMeta[i]);
    m_hPageMeta[i] = NULL;
    m_nPageMeta[i] = kNoPage;
  }
}

// ---- Pages and zoom ------------------------------------------------------------------

void CPreviewView::SetCurrentPage(UINT nPage, BOOL bClearRatios) {
  UINT nMin = m_pPreviewInfo->GetMinPage(), nMax = m_pPreviewInfo->GetMaxPage();
  m_nCurrentPage = nPage < nMin ? nMin : nPage > nMax ? nMax : nPage;
  m_pPreviewInfo->m_nCurPage = m_nCurrentPage;
  UINT nShown = GetPagesShown();
  m_bNextPage = PageExists(m_nCurrentPage + nShown);
  ClearPages();
  UpdateScrollSizes();
  if (bClearRatios) ScrollToPosition(CPoint(0, 0));
  Invalidate(TRUE);
  if (nShown > 1 && !PageExists(m_nCurrentPage + 1)) nShown = 1;
  OnDisplayPageNumber(m_nCurrentPage, nShown);
  if (m_pToolBar != NULL && m_pToolBar->m_hWnd != NULL)
    m_pToolBar->SendMessage(WM_IDLEUPDATECMDUI, TRUE);
}

void CPreviewView::SetZoomState(UINT nNewState, UINT nPage, CPoint point) {
  if (nNewState > ZOOM_IN) return;
  // The point as a place on the paper (in the printer's pixels).
  CPoint ptLog = ClientToLogical(point);
  int nSlot = PageAt(ptLog);
  CPoint ptPaper(-1, -1);
  if (nSlot >= 0 && m_nCurrentPage + nSlot == nPage) {
    CRect rect = GetPageRect(nSlot);
    ptPaper.x = MulDiv(ptLog.x - rect.left, m_sizePaper.cx, rect.Width());
    ptPaper.y = MulDiv(ptLog.y - rect.top, m_sizePaper.cy, rect.Height());
  }
  m_nZoomState = nNewState;
  SetCurrentPage(nPage, TRUE);
  if (ptPaper.x < 0) return;
  // The same place under the point again, as far as the view scrolls.
  CRect rect = GetPageRect(0);
  ScrollToPosition(CPoint(rect.left + MulDiv(ptPaper.x, rect.Width(), m_sizePaper.cx) - point.x,
                          rect.top + MulDiv(ptPaper.y, rect.Height(), m_sizePaper.cy) - point.y));
}

void CPreviewView::OnDisplayPageNumber(UINT nPage, UINT nPagesDisplayed) {
  CString strFormat, strText;
  if (!AfxExtractSubString(strFormat, m_pPreviewInfo->m_strPageDesc, nPagesDisplayed > 1 ? 1 : 0))
    return;
  strText.Format(strFormat, nPage, nPage + nPagesDisplayed - 1);
  CFrameWnd* pFrame = GetParentFrame();
  if (pFrame != NULL) pFrame->SetMessageText(strText);
}

// ---- Drawing -------------------------------------------------------------------------

CSize CPreviewView::GetPageSize() const {
  // The room the view has, scroll bars or not (so that they do not change
  // the pages' size).
  CRect rect;
  GetWindowRect(&rect);
  CRect rectClient(0, 0, 0, 0);
  ::AdjustWindowRectEx(&rectClient, GetStyle() & ~(WS_HSCROLL | WS_VSCROLL), FALSE, GetExStyle());
  int nShown = (int)GetPagesShown();
  int cxRoom = (rect.Width() - rectClient.Width() - kMargin * (nShown + 1) - kShadow) / nShown;
  int cyRoom = rect.Height() - rectClient.Height() - 2 * kMargin - kShadow;
  if (cxRoom < 1) cxRoom = 1;
  if (cyRoom < 1) cyRoom = 1;
  // The paper's shape in inches (printers' pixels need not be square).
  int cxPaper = MulDiv(m_sizePaper.cx, 1000, m_sizePrinterPPI.cx);
  int cyPaper = MulDiv(m_sizePaper.cy, 1000, m_sizePrinterPPI.cy);
  CSize size;
  if ((LONGLONG)cxRoom * cyPaper <= (LONGLONG)cyRoom * cxPaper)
    size = CSize(cxRoom, MulDiv(cxRoom, cyPaper, cxPaper));
  else
    size = CSize(MulDiv(cyRoom, cxPaper, cyPaper), cyRoom);
  int nZoom = m_nZoomState == ZOOM_IN ? 3 : m_nZoomState == ZOOM_MIDDLE ? 2 : 1;
  return CSize(size.cx * nZoom, size.cy * nZoom);
}

CSize CPreviewView::CalcTotalSize() const {
  CSize size = GetPageSize();
  int nShown = (int)GetPagesShown();
  return CSize(size.cx * nShown + kMargin * (nShown + 1) + kShadow,
               size.cy + 2 * kMargin + kShadow);
}

CRect CPreviewView::GetPageRect(UINT nSlot) const {
  CSize sizePage = GetPageSize();
  int x = kMargin + (int)nSlot * (sizePage.cx + kMargin);
  return CRect(x, kMargin, x + sizePage.cx, kMargin + sizePage.cy);
}

void CPreviewView::UpdateScrollSizes() {
  if (m_hWnd == NULL || m_pPreviewInfo == NULL) return;
  SetScrollSizes(MM_TEXT, CalcTotalSize(), sizeDefault, CSize(kLine, kLine));
}

CPoint CPreviewView::ClientToLogical(CPoint point) {
  CClientDC dc(this);
  OnPrepareDC(&dc);
  dc.DPtoLP(&point);
  return point;
}

void CPreviewView::OnDraw(CDC* pDC) {
  if (m_pPreviewInfo == NULL || m_pPreviewDC == NULL) return; // not prepared yet
  CRect rectClient;
  GetClientRect(&rectClient);
  pDC->DPtoLP(&rectClient); // the DC is scrolled
  pDC->FillSolidRect(&rectClient, ::GetSysColor(COLOR_APPWORKSPACE));
  for (UINT nSlot = 0; nSlot < GetPagesShown(); nSlot++) {
    UINT nPage = m_nCurrentPage + nSlot;
    if (m_nPageMeta[nSlot] != nPage) {
      if (m_hPageMeta[nSlot] != NULL) ::DeleteEnhMetaFile(m_hPageMeta[nSlot]);
      m_hPageMeta[nSlot] = DrawPage(nPage);
      m_nPageMeta[nSlot] = nPage;
    }
    // Past the end no paper is shown; an empty document shows a blank page.
    if (m_hPageMeta[nSlot] == NULL && nSlot > 0) break;
    CRect rectPage = GetPageRect(nSlot);
    CRect rectShadow = rectPage;
    rectShadow.OffsetRect(kShadow, kShadow);
    pDC->FillSolidRect(&rectShadow, ::GetSysColor(COLOR_3DDKSHADOW));
    pDC->FillSolidRect(&rectPage, RGB(255, 255, 255));
    if (m_hPageMeta[nSlot] == NULL) continue;
    // The printable area's place on the paper, scaled.
    CRect rectArea(rectPage.left + MulDiv(m_rectPrintable.left, rectPage.Width(), m_sizePaper.cx),
                   rectPage.top + MulDiv(m_rectPrintable.top, rectPage.Height(), m_sizePaper.cy),
                   rectPage.left + MulDiv(m_rectPrintable.right, rectPage.Width(), m_sizePaper.cx),
                   rectPage.top +
                       MulDiv(m_rectPrintable.bottom, rectPage.Height(), m_sizePaper.cy));
    int nSavedDC = pDC->SaveDC();
    pDC->IntersectClipRect(&rectPage);
    ::PlayEnhMetaFile(pDC->m_hDC, m_hPageMeta[nSlot], &rectArea);
    pDC->RestoreDC(nSavedDC);
  }
}

int CPreviewView::PageAt(CPoint ptLog) const {
  for (UINT nSlot = 0; nSlot < GetPagesShown(); nSlot++) {
    // Past the last page no paper is shown.
    if (nSlot > 0 && m_nPageMeta[nSlot] == m_nCurrentPage + nSlot && m_hPageMeta[nSlot] == NULL)
      break;
    if (GetPageRect(nSlot).PtInRect(ptLog)) return (int)nSlot;
  }
  return -1;
}

// OnDraw paints every pixel.
BOOL CPreviewView::OnEraseBkgnd(CDC*) { return TRUE; }

// ---- Zooming with the mouse -------------------------------------------------------

// The pages' size follows the view's.
void CPreviewView::OnSize(UINT nType, int cx, int cy) {
  CScrollView::OnSize(nType, cx, cy);
  UpdateScrollSizes();
  Invalidate(FALSE);
}

void CPreviewView::OnLButtonDown(UINT, CPoint point) {
  int nSlot = PageAt(ClientToLogical(point));
  if (nSlot < 0 || m_pPreviewInfo == NULL) return;
  if (m_nZoomState == ZOOM_IN)
    SetZoomState(ZOOM_OUT, m_nCurrentPage, point);
  else
    SetZoomState(m_nZoomState + 1, m_nCurrentPage + nSlot, point);
}

BOOL CPreviewView::OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message) {
  CPoint point;
  ::GetCursorPos(&point);
  ScreenToClient(&point);
  LPCTSTR lpszCursor = MAKEINTRESOURCE(AFX_IDC_MAGNIFY);
  HCURSOR hCursor = ::LoadCursor(AfxFindResourceHandle(lpszCursor, RT_GROUP_CURSOR), lpszCursor);
  if (nHitTest != HTCLIENT || PageAt(ClientToLogical(point)) < 0 || hCursor == NULL)
    return CScrollView::OnSetCursor(pWnd, nHitTest, message);
  ::SetCursor(hCursor);
  return TRUE;
}

// ---- The toolbar's commands ----------------------------------------------------------

void CPreviewView::OnPreviewClose() {
  if (m_pOrigView == NULL) return;
  if (m_pToolBar != NULL) {
    m_pToolBar->DestroyWindow(); // it deletes itself
    m_pToolBar = NULL;
  }
  m_pPreviewInfo->m_nCurPage = m_nCurrentPage;
  // Where the view's top left is on the page, in the printer's pixels.
  CSize sizePage = GetPageSize();
  CPoint ptScroll = GetDeviceScrollPosition();
  CPoint point(MulDiv(ptScroll.x, m_sizePaper.cx, sizePage.cx),
               MulDiv(ptScroll.y, m_sizePaper.cy, sizePage.cy));
  m_pOrigView->OnEndPrintPreview(m_pPreviewDC, m_pPreviewInfo, point, this); // this goes
}

void CPreviewView::OnPreviewPrint() {
  CFrameWnd* pFrame = GetParentFrame();
  OnPreviewClose(); // this is gone; the frame routes the command to the view again
  if (pFrame != NULL) pFrame->SendMessage(WM_COMMAND, ID_FILE_PRINT);
}

void CPreviewView::OnNextPage() {
  if (m_bNextPage) SetCurrentPage(m_nCurrentPage + 1, TRUE);
}

void CPreviewView::OnPrevPage() {
  if (m_nCurrentPage > m_pPreviewInfo->GetMinPage()) SetCurrentPage(m_nCurrentPage - 1, TRUE);
}

void CPreviewView::OnNumPageChange() {
  if (m_nZoomState != ZOOM_OUT || !m_bMultiPage) return;
  m_nPages = m_nPages == 1 ? m_nMaxPages : 1;
  // The application remembers the choice (and its profile, on exit).
  m_pPreviewInfo->m_nNumPreviewPages = m_nPages;
  CWinApp* pApp = AfxGetApp();
  if (pApp != NULL) pApp->m_nNumPreviewPages = m_nPages;
  SetCurrentPage(m_nCurrentPage, TRUE);
}

void CPreviewView::OnZoomIn() {
  if (m_nZoomState < ZOOM_IN) SetZoomState(m_nZoomState + 1, m_nCurrentPage, CPoint(0, 0));
}

void CPreviewView::OnZoomOut() {
  if (m_nZoomState > ZOOM_OUT) SetZoomState(m_nZoomState - 1, m_nCurrentPage, CPoint(0, 0));
}

void CPreviewView::OnUpdateNextPage(CCmdUI* pCmdUI) { pCmdUI->Enable(m_bNextPage); }

void CPreviewView::OnUpdatePrevPage(CCmdUI* pCmdUI) {
  pCmdUI->Enable(m_nCurrentPage > m_pPreviewInfo->GetMinPage());
}

void CPreviewView::OnUpdateNumPageChange(CCmdUI* pCmdUI) {
  CString strText;
  strText.LoadString(m_nPages == 1 ? AFX_IDS_TWOPAGE : AFX_IDS_ONEPAGE);
  pCmdUI->SetText(strText);
  pCmdUI->Enable(m_nZoomState == ZOOM_OUT && m_nMaxPages > 1 && m_bMultiPage);
}

void CPreviewView::OnUpdateZoomIn(CCmdUI* pCmdUI) { pCmdUI->Enable(m_nZoomState != ZOOM_IN); }

void CPreviewView::OnUpdateZoomOut(CCmdUI* pCmdUI) { pCmdUI->Enable(m_nZoomState != ZOOM_OUT); }
