// VStatusBar docked in a frame with the application's idle loop running:
// pane contents read back from the control and from the screen's pixels,
// nested progress against the bar's position and the message text, the lock
// holding off the frame's idle message, the bar's place in pixels, and
// progress calls out of order.
#include <vrk_statusbar.h>
#include <afxpriv.h>
#include <gtest/gtest.h>

#include "../../afx/frame_testing.h"
#include "exception_probe.h"

namespace {

const UINT IDB_PANE = 0x0400; // test_statusbar.rc: 24 x 12, red then blue
const COLORREF kRed = RGB(255, 0, 0), kBlue = RGB(0, 0, 255), kGreen = RGB(0, 128, 0);

class CStatusApp : public CWinApp {
public:
  CStatusApp() : CWinApp("Status Test") {}
};
CStatusApp theApp;

class StatusBarTest : public ::testing::Test {
protected:
  void SetUp() override {
    CRect rect(0, 0, 1000, 200); // the client area: the bar is 1000 wide
    ::AdjustWindowRectEx(&rect, WS_OVERLAPPEDWINDOW, FALSE, 0);
    m_pFrame = new CFrameWnd; // deleted with its window
    ASSERT_TRUE(
        m_pFrame->Create(NULL, "Status", WS_OVERLAPPEDWINDOW, CRect(CPoint(0, 0), rect.Size())));
    theApp.m_pMainWnd = m_pFrame;
    ASSERT_TRUE(m_bar.Create(m_pFrame));
    const UINT ids[] = {ID_SEPARATOR, ID_INDICATOR_CAPS, ID_INDICATOR_NUM, ID_INDICATOR_SCRL};
    ASSERT_TRUE(m_bar.SetIndicators(ids, 4));
    m_bar.GetStatusBarCtrl().SetMinHeight(20);
    m_pFrame->ShowWindow(SW_SHOW);
    Idle();
  }
  void TearDown() override {
    m_pFrame->DestroyWindow();
    theApp.m_pMainWnd = NULL;
    PumpAsApp();
  }
  // The application's loop: the queue, then idle processing, then what that
  // queued.
  void Idle() {
    PumpAsApp();
    theApp.OnIdle(0);
    PumpAsApp();
  }
  // The frame's idle message, as a toolbar asks for it when the mouse leaves.
  std::string IdleMessageShown() {
    m_pFrame->PostMessage(WM_POPMESSAGESTRING, AFX_IDS_IDLEMESSAGE);
    Idle();
    return (LPCSTR)WindowText(&m_bar);
  }
  int BarPos() { return (int)m_bar.GetDlgItem(1)->SendMessage(PBM_GETPOS); }
  BOOL BarShown() { return m_bar.GetDlgItem(1)->IsWindowVisible(); }
  COLORREF Pixel(int x, int y) {
    CClientDC dc(&m_bar);
    return dc.GetPixel(x, y);
  }
  CRect PaneRect(int nIndex) {
    CRect rect;
    m_bar.GetItemRect(nIndex, &rect);
    return rect;
  }
  CFrameWnd* m_pFrame = NULL;
  VStatusBar m_bar;
};

TEST_F(StatusBarTest, PanesShowFittedTextColouredTextAndBitmaps) {
  struct {
    int nIndex;
    UINT nStyle;
    int nWidth;
  } expected[] = {{1, 0, 0}, {2, 0x04000100, 0}, {3, 0x1000, 40}, {0, 0x04001000, 20}};
  CClientDC dc(&m_bar);
  dc.SelectObject(m_bar.GetFont());
  expected[0].nWidth = dc.GetTextExtent("Line 12, Col 7").cx;
  UINT nStyle0 = m_bar.GetPaneStyle(0);
  m_bar.SetPaneContents(1, "Line 12, Col 7", 0, TRUE);
  m_bar.SetPaneContents(2, "", 0, FALSE);     // hidden
  m_bar.SetPaneContents(0, "kept", 0, FALSE); // a text with no width: unchanged
  EXPECT_EQ(nStyle0, m_bar.GetPaneStyle(0));
  m_bar.SetPaneContents(3, RGB(255, 255, 0), kGreen, "Hot", 40, FALSE);
  m_bar.SetPaneContents(0, IDB_PANE, 0, TRUE);
  for (const auto& e : expected) {
    UINT nID, nStyle;
    int cxWidth;
    m_bar.GetPaneInfo(e.nIndex, nID, nStyle, cxWidth);
    EXPECT_EQ(e.nStyle, nStyle) << "pane " << e.nIndex;
    EXPECT_EQ(e.nWidth, cxWidth) << "pane " << e.nIndex;
  }
  EXPECT_EQ("Line 12, Col 7", m_bar.GetStatusBarCtrl().GetText(1));
  EXPECT_TRUE(m_bar.IsBitmapInPane(0));
  EXPECT_FALSE(m_bar.IsBitmapInPane(3));

  m_bar.UpdateWindow();
  // The bitmap from the pane's corner, unscaled: 12 red pixels, then blue
  // to the pane's edge.
  CRect rect = PaneRect(0);
  int x = rect.left;
  while (x < rect.right && Pixel(x, rect.top + 4) != kRed)
    x++;
  int xBlue = x;
  while (xBlue < rect.right && Pixel(xBlue, rect.top + 4) == kRed)
    xBlue++;
  EXPECT_EQ(12, xBlue - x);
  EXPECT_EQ(kBlue, Pixel(xBlue, rect.top + 4));
  EXPECT_EQ(kBlue, Pixel(rect.right - 3, rect.top + 4));
  // The coloured pane: green, with the text in it.
  rect = PaneRect(3);
  int nGreen = 0, nOther = 0;
  for (int y = rect.top + 2; y < rect.bottom - 2; y++)
    for (int x = rect.left + 2; x < rect.right - 2; x++)
      (Pixel(x, y) == kGreen ? nGreen : nOther)++;
  EXPECT_GT(nOther, 10);
  EXPECT_GT(nGreen, 3 * nOther);
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException),
            ThrownClass([&] { m_bar.SetPaneContents(4, "x", 10, FALSE); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { m_bar.IsBitmapInPane(-1); }));
}

TEST_F(StatusBarTest, NestedProgressShowsTheNewestAndLocksOutTheIdleMessage) {
  EXPECT_EQ("Ready", IdleMessageShown());
  POSITION posA = m_bar.StartProgress(0, 200, "Copying");
  ASSERT_NE(nullptr, posA);
  EXPECT_EQ(0, m_bar.SetProgressPos(posA, 100));
  EXPECT_EQ(50, BarPos());
  EXPECT_EQ("Copying", IdleMessageShown());

  // Bounds 50..150: 100 is 100 % (the lower bound is not subtracted).
  POSITION posB = m_bar.StartProgress(50, 150, "Packing");
  m_bar.SetProgressPos(posB, 100);
  EXPECT_EQ(100, BarPos());
  EXPECT_EQ(100, m_bar.SetProgressPos(posA, 150)); // the older one: the bar stays
  EXPECT_EQ(150, m_bar.StepIt(posA));
  EXPECT_EQ(100, BarPos());
  EXPECT_EQ("Packing", IdleMessageShown());

  m_bar.StopProgress(posB, "unused");
  EXPECT_EQ("Copying", std::string(WindowText(&m_bar)));
  EXPECT_EQ(80, BarPos()); // A at 160 of 200
  EXPECT_EQ("Copying", IdleMessageShown());
  EXPECT_EQ(160, m_bar.StepIt(posA)); // the bar's step: 10 of 200 is 5 %
  EXPECT_EQ(85, BarPos());

  m_bar.StopProgress(posA, "Done");
  EXPECT_EQ("Done", std::string(WindowText(&m_bar)));
  EXPECT_FALSE(BarShown());
  EXPECT_EQ("Ready", IdleMessageShown());

  m_bar.SetWindowTextAndLock("Held");
  EXPECT_EQ("Held", IdleMessageShown());
  m_bar.SetWindowTextAndUnlock("Free");
  EXPECT_EQ("Ready", IdleMessageShown());
}

TEST_F(StatusBarTest, BarSitsBesideTheTextInPixels) {
  // A message exactly 200 pixels wide in the bar's font.
  CClientDC dc(&m_bar);
  dc.SelectObject(m_bar.GetFont());
  int cxI = dc.GetTextExtent("i").cx, cxW = dc.GetTextExtent("W").cx;
  CString strText;
  for (int n = 0; n * cxW <= 200 && strText.IsEmpty(); n++)
    if ((200 - n * cxW) % cxI == 0) strText = CString('W', n) + CString('i', (200 - n * cxW) / cxI);
  ASSERT_EQ(200, dc.GetTextExtent(strText).cx);
  CRect rectBar;
  m_bar.GetWindowRect(&rectBar);
  ASSERT_EQ(CSize(1000, 20), rectBar.Size());

  POSITION pos = m_bar.StartProgress(0, 100, strText);
  m_bar.SetProgressPos(pos, 50);
  Idle();
  CRect rect;
  m_bar.GetDlgItem(1)->GetWindowRect(&rect);
  m_bar.ScreenToClient(&rect);
  EXPECT_EQ(CRect(210, 3, 397, 20), rect);
  // Its frame from x 210 to 396 and from y 3 down, the bar's background
  // around it, the left half filled.
  COLORREF crBack = Pixel(209, 10), crFrame = Pixel(210, 10), crFill = Pixel(212, 10);
  EXPECT_EQ(crBack, Pixel(397, 10));
  EXPECT_EQ(crBack, Pixel(300, 2));
  EXPECT_NE(crBack, crFrame);
  EXPECT_EQ(crFrame, Pixel(396, 10));
  EXPECT_EQ(crFrame, Pixel(300, 3));
  EXPECT_NE(crFill, Pixel(394, 10));
  EXPECT_EQ(crFill, Pixel(210 + 187 / 2 - 2, 10));
  EXPECT_NE(crFill, Pixel(210 + 187 / 2 + 2, 10));
}

TEST_F(StatusBarTest, ProgressCallsOutOfOrderAreHarmless) {
  m_bar.StopProgress(NULL, "Nothing ran"); // nothing started: the text, unlocked
  EXPECT_EQ("Nothing ran", std::string(WindowText(&m_bar)));
  EXPECT_EQ("Ready", IdleMessageShown());
  POSITION pos = m_bar.StartProgress(7, 7, "Empty range");
  m_bar.SetProgressPos(pos, 7);
  EXPECT_EQ(100, BarPos());
  m_bar.SetProgressPos(pos, 0);
  EXPECT_EQ(0, BarPos());
  m_bar.StopProgress(pos, "");

  // A thousand nested operations, stopped newest first; a stopped one's
  // handle changes nothing.
  std::vector<POSITION> positions;
  for (int i = 0; i < 1000; i++) {
    CString strText;
    strText.Format("Level %d", i);
    positions.push_back(m_bar.StartProgress(0, 1000, strText));
    m_bar.SetProgressPos(positions.back(), i);
  }
  for (int i = 999; i > 0; i--)
    m_bar.StopProgress(positions[i], "");
  EXPECT_EQ("Level 0", std::string(WindowText(&m_bar)));
  EXPECT_EQ(0, m_bar.SetProgressPos(positions[500], 900));
  EXPECT_EQ(0, BarPos());
  m_bar.StopProgress(positions[0], "All done");
  EXPECT_EQ("All done", std::string(WindowText(&m_bar)));
  EXPECT_FALSE(BarShown());
}

} // namespace
