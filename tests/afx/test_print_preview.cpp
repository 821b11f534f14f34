// Print preview of an SDI frame's view on the test prefix's printer: the
// preview in place of the view, toolbar and menu, its buttons, the pages as
// the view prints them (read back from the screen), paging, and the ways out
// (the Close button clicked, Escape, closing the frame, Print), each giving
// the frame back as it was and freeing the printer DC.
#include <afxext.h>
#include <afxpriv.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "frame_testing.h"
#include "gdi_canvas.h"
#include "msgbox_catcher.h"
#include "print_testing.h"
#include "user_input.h"

namespace {

// Two pages: the first blackens the top-left quarter of the printable area,
// the second the bottom-right one.
class CQuarterView : public CView {
public:
  std::vector<UINT> m_pages; // OnPrint's, in order
  BOOL m_bPreview = FALSE;
  HDC m_hPrinterDC = NULL;
  int m_nEndPrinting = 0;
  BOOL m_bCancel = FALSE; // OnPreparePrinting cancels

  virtual void OnDraw(CDC*) {}
  virtual BOOL OnPreparePrinting(CPrintInfo* pInfo) {
    if (m_bCancel) return FALSE;
    pInfo->SetMaxPage(2);
    return DoPreparePrinting(pInfo);
  }
  virtual void OnPrint(CDC* pDC, CPrintInfo* pInfo) {
    m_pages.push_back(pInfo->m_nCurPage);
    m_bPreview = pInfo->m_bPreview;
    m_hPrinterDC = pDC->m_hAttribDC;
    CRect r = pInfo->m_rectDraw;
    CPoint mid = r.CenterPoint();
    CRect quarter = pInfo->m_nCurPage == 1 ? CRect(r.TopLeft(), mid) : CRect(mid, r.BottomRight());
    pDC->FillSolidRect(&quarter, RGB(0, 0, 0));
  }
  virtual void OnEndPrinting(CDC*, CPrintInfo*) { m_nEndPrinting++; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CQuarterView, CView)
ON_COMMAND(ID_FILE_PRINT, &CView::OnFilePrint)
ON_COMMAND(ID_FILE_PRINT_PREVIEW, &CView::OnFilePrintPreview)
END_MESSAGE_MAP()

const COLORREF kBlack = RGB(0, 0, 0), kWhite = RGB(255, 255, 255);

class PrintPreview : public ::testing::Test {
protected:
  void SetUp() override {
    m_doc.m_bAutoDelete = FALSE;
    m_pFrame = new CFrameWnd;
    ASSERT_TRUE(m_pFrame->LoadFrame(IDR_PREVIEW, WS_OVERLAPPEDWINDOW));
    m_hMenu = ::GetMenu(m_pFrame->m_hWnd);
    CCreateContext context;
    context.m_pCurrentDoc = &m_doc;
    m_pView = new CQuarterView;
    ASSERT_TRUE(m_pView->Create(NULL, NULL, AFX_WS_DEFAULT_VIEW, CRect(0, 0, 0, 0), m_pFrame,
                                AFX_IDW_PANE_FIRST, &context));
    const UINT buttons[] = {ID_FILE_PRINT_PREVIEW, ID_FILE_PRINT}, panes[] = {ID_SEPARATOR};
    ASSERT_TRUE(m_toolBar.Create(m_pFrame) && m_toolBar.SetButtons(buttons, 2));
    ASSERT_TRUE(m_statusBar.Create(m_pFrame) && m_statusBar.SetIndicators(panes, 1));
    m_pFrame->SetActiveView(m_pView);
    m_pFrame->SetWindowPos(NULL, 0, 0, 640, 480, SWP_NOZORDER | SWP_SHOWWINDOW);
    user_input::Focus(m_pFrame->m_hWnd, m_pView->m_hWnd);
  }
  void TearDown() override {
    if (m_pFrame != NULL && m_pFrame->m_hWnd != NULL) m_pFrame->DestroyWindow();
  }

  CPreviewView* Preview() { return DYNAMIC_DOWNCAST(CPreviewView, m_pFrame->GetActiveView()); }
  CWnd* PreviewBar() { return m_pFrame->GetDlgItem(AFX_IDW_PREVIEW_BAR); }
  void StartPreview() {
    m_pFrame->SendMessage(WM_COMMAND, ID_FILE_PRINT_PREVIEW);
    ASSERT_TRUE(Preview() != NULL);
    Preview()->UpdateWindow();
    user_input::Pump();
  }
  void ClickButton(UINT nID) {
    HWND hButton = ::GetDlgItem(PreviewBar()->m_hWnd, nID);
    CRect rect;
    ::GetClientRect(hButton, &rect);
    user_input::Click(rect.CenterPoint(), hButton);
    if (Preview() != NULL) Preview()->UpdateWindow();
  }
  CRect ClientRect() {
    CRect rect;
    Preview()->GetClientRect(&rect);
    return rect;
  }
  // The preview as the screen shows it.
  std::unique_ptr<Canvas> Capture() {
    CRect rect = ClientRect();
    std::unique_ptr<Canvas> canvas(new Canvas(rect.Width(), rect.Height()));
    CClientDC dc(Preview());
    canvas->DC().BitBlt(0, 0, rect.Width(), rect.Height(), &dc, 0, 0, SRCCOPY);
    return canvas;
  }
  // The bounds of the pixels of colour clr within rect.
  static CRect Bounds(const Canvas& canvas, const CRect& rect, COLORREF clr) {
    CRect r(rect.right, rect.bottom, rect.left, rect.top);
    for (int y = rect.top; y < rect.bottom; y++)
      for (int x = rect.left; x < rect.right; x++)
        if (canvas.At(x, y) == clr) r |= CRect(x, y, x + 1, y + 1);
    return r;
  }
  // Everything is back as before the preview, the printer DC gone.
  void ExpectRestored() {
    EXPECT_EQ(m_pView, m_pFrame->GetActiveView());
    EXPECT_TRUE(m_pView->IsWindowVisible());
    EXPECT_EQ(AFX_IDW_PANE_FIRST, m_pView->GetDlgCtrlID());
    EXPECT_TRUE(m_toolBar.IsWindowVisible());
    EXPECT_TRUE(m_statusBar.IsWindowVisible());
    EXPECT_EQ(m_hMenu, ::GetMenu(m_pFrame->m_hWnd));
    EXPECT_TRUE(PreviewBar() == NULL);
    EXPECT_EQ(1, m_pView->m_nEndPrinting);
    EXPECT_EQ(0u, ::GetObjectType(m_pView->m_hPrinterDC));
    EXPECT_EQ(m_pView->m_hWnd, ::GetFocus());
  }

  CWinApp m_app{"PrintPreviewTest"};
  CDocument m_doc;
  CFrameWnd* m_pFrame = NULL;
  CQuarterView* m_pView = NULL;
  CToolBar m_toolBar;
  CStatusBar m_statusBar;
  HMENU m_hMenu = NULL;
};

TEST_F(PrintPreview, ShowsThePagesScaledAndPagesThroughTheButtons) {
  StartPreview();
  EXPECT_FALSE(m_pView->IsWindowVisible());
  EXPECT_FALSE(m_toolBar.IsWindowVisible());
  EXPECT_TRUE(m_statusBar.IsWindowVisible());
  EXPECT_TRUE(::GetMenu(m_pFrame->m_hWnd) == NULL);
  ASSERT_TRUE(PreviewBar() != NULL);
  EXPECT_EQ(std::vector<UINT>{1}, m_pView->m_pages);
  EXPECT_TRUE(m_pView->m_bPreview);

  // Each button clicked in turn: the buttons' states and captions after it,
  // the status bar, the last page printed and, on one page fitting the view,
  // the page's black quarter inside the white paper.
  struct {
    UINT nClick; // 0: none yet
    UINT nPage;
    BOOL bNext, bPrev, bNumPage, bZoomIn, bZoomOut;
    const char *pszNumPage, *pszStatus;
  } steps[] = {
      {0, 1, TRUE, FALSE, TRUE, TRUE, FALSE, "&Two Page", "Page 1"},
      {AFX_ID_PREVIEW_NEXT, 2, FALSE, TRUE, TRUE, TRUE, FALSE, "&Two Page", "Page 2"},
      {AFX_ID_PREVIEW_PREV, 1, TRUE, FALSE, TRUE, TRUE, FALSE, "&Two Page", "Page 1"},
      {AFX_ID_PREVIEW_NUMPAGE, 2, FALSE, FALSE, TRUE, TRUE, FALSE, "&One Page", "Pages 1-2"},
      {AFX_ID_PREVIEW_ZOOMIN, 1, TRUE, FALSE, FALSE, TRUE, TRUE, "&One Page", "Page 1"},
      {AFX_ID_PREVIEW_ZOOMIN, 1, TRUE, FALSE, FALSE, FALSE, TRUE, "&One Page", "Page 1"},
  };
  for (const auto& step : steps) {
    SCOPED_TRACE(step.nClick);
    if (step.nClick != 0) ClickButton(step.nClick);
    EXPECT_EQ(step.nPage, m_pView->m_pages.back());
    HWND hBar = PreviewBar()->m_hWnd;
    const struct {
      UINT nID;
      BOOL bEnabled;
      const char* pszText;
    } buttons[] = {{AFX_ID_PREVIEW_PRINT, TRUE, "&Print..."},
                   {AFX_ID_PREVIEW_NEXT, step.bNext, "&Next Page"},
                   {AFX_ID_PREVIEW_PREV, step.bPrev, "Pre&v Page"},
                   {AFX_ID_PREVIEW_NUMPAGE, step.bNumPage, step.pszNumPage},
                   {AFX_ID_PREVIEW_ZOOMIN, step.bZoomIn, "Zoom &In"},
                   {AFX_ID_PREVIEW_ZOOMOUT, step.bZoomOut, "Zoom &Out"},
                   {AFX_ID_PREVIEW_CLOSE, TRUE, "&Close"}};
    for (const auto& button : buttons) {
      EXPECT_EQ(button.bEnabled, ::IsWindowEnabled(::GetDlgItem(hBar, button.nID))) << button.nID;
      EXPECT_EQ(button.pszText, user_input::Text(hBar, button.nID));
    }
    EXPECT_EQ(step.pszStatus, std::string(m_statusBar.GetPaneText(0)));
    // Zoomed, the page is taller than the view: it scrolls.
    EXPECT_EQ(step.bZoomOut, (Preview()->GetStyle() & WS_VSCROLL) != 0);
    if (step.nClick == AFX_ID_PREVIEW_NUMPAGE || step.nClick == AFX_ID_PREVIEW_ZOOMIN) continue;

    // The paper: the white pixels' bounds, with the workspace around it, and
    // the page's quarter: the black inside it.
    std::unique_ptr<Canvas> canvas = Capture();
    CRect paper = Bounds(*canvas, ClientRect(), kWhite), ink = Bounds(*canvas, paper, kBlack);
    ASSERT_FALSE(paper.IsRectEmpty());
    EXPECT_EQ(::GetSysColor(COLOR_APPWORKSPACE), canvas->At(1, 1));
    EXPECT_GT(paper.left, 0);
    EXPECT_GT(paper.top, 0);
    EXPECT_NEAR(paper.Height() * 850 / paper.Width(), 1100, 25); // letter paper
    // Half the printable area's width and height (94% of the paper's).
    EXPECT_NEAR(ink.Width() * 100 / paper.Width(), 47, 3);
    EXPECT_NEAR(ink.Height() * 100 / paper.Height(), 47, 3);
    bool bFirstQuarter = step.nPage == 1;
    EXPECT_EQ(bFirstQuarter, ink.CenterPoint().x < paper.CenterPoint().x);
    EXPECT_EQ(bFirstQuarter, ink.CenterPoint().y < paper.CenterPoint().y);
  }

  // On page 2, a click on the page zooms out from the last step, and then in
  // with the place clicked (on the black quarter, where the page's top is
  // white) scrolled to the pointer's height; the page is as wide as the view.
  ClickButton(AFX_ID_PREVIEW_NEXT);
  HWND hPreview = Preview()->m_hWnd;
  for (BOOL bZoomIn : {FALSE, TRUE}) {
    CRect paper = Bounds(*Capture(), ClientRect(), kWhite);
    CPoint point(paper.left + paper.Width() * 7 / 10, paper.top + paper.Height() * 7 / 10);
    user_input::Click(point, hPreview);
    Preview()->UpdateWindow();
    HWND hZoomOut = ::GetDlgItem(PreviewBar()->m_hWnd, AFX_ID_PREVIEW_ZOOMOUT);
    EXPECT_EQ(bZoomIn, ::IsWindowEnabled(hZoomOut));
    std::unique_ptr<Canvas> canvas = Capture();
    paper = Bounds(*canvas, ClientRect(), kWhite);
    EXPECT_TRUE(!bZoomIn || canvas->At(paper.left + paper.Width() * 7 / 10, point.y) == kBlack);
  }

  ClickButton(AFX_ID_PREVIEW_CLOSE);
  ExpectRestored();
  EXPECT_EQ("Ready", std::string(m_statusBar.GetPaneText(0)));
}

// Escape, closing the frame and Print each end the preview and give the
// frame back; Print then goes on to print the view (its dialog, cancelled).
TEST_F(PrintPreview, EscapeClosingAndPrintEndThePreview) {
  enum Way { kEscape, kCloseFrame, kPrint };
  for (Way way : {kEscape, kCloseFrame, kPrint}) {
    SCOPED_TRACE(way);
    m_pView->m_nEndPrinting = 0;
    DialogDriver driver; // any dialog is cancelled
    StartPreview();
    if (way == kEscape)
      user_input::Press(VK_ESCAPE);
    else if (way == kCloseFrame)
      m_pFrame->SendMessage(WM_CLOSE);
    else
      ClickButton(AFX_ID_PREVIEW_PRINT);
    ASSERT_TRUE(::IsWindow(m_pFrame->m_hWnd));
    ExpectRestored();
    EXPECT_EQ(way == kPrint ? 1u : 0u, driver.Captions().size());
  }
}

// A preview the view cancels says so and leaves the frame as it was.
TEST_F(PrintPreview, CancelledByTheViewLeavesTheFrameAsItWas) {
  m_pView->m_bCancel = TRUE;
  MsgBoxCatcher catcher;
  m_pFrame->SendMessage(WM_COMMAND, ID_FILE_PRINT_PREVIEW);
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ("Command failed.", catcher.Last().text);
  EXPECT_EQ(m_pView, m_pFrame->GetActiveView());
  EXPECT_TRUE(m_pView->IsWindowVisible() && m_toolBar.IsWindowVisible());
  EXPECT_EQ(m_hMenu, ::GetMenu(m_pFrame->m_hWnd));
  EXPECT_TRUE(PreviewBar() == NULL);
}

} // namespace
