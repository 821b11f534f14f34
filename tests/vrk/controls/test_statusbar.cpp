// VStatusBar docked in a frame with the application's idle loop running.
#include <vrk_statusbar.h>
#include <afxpriv.h>
#include <gtest/gtest.h>

#include "../../afx/frame_testing.h"
#include "exception_probe.h"

namespace {

const UINT IDB_PANE = 0x0400; // test_statusbar.rc: 24 x 12, red then blue
const COLORREF kRed = RGB(255, 0, 0), kBlue = RGB(0, 0, 255), kGreen = RGB(0, 128, 0);

CWinApp theApp("Status Test");

class StatusBarTest : public ::testing::Test {
protected:
  void SetUp() override {
    CRect rect(0, 0, 1000, 200); // the client area, as wide as the bar
    ::AdjustWindowRectEx(&rect, WS_OVERLAPPEDWINDOW, FALSE, 0);
    m_pFrame = new CFrameWnd; // deleted with its window
    ASSERT_TRUE(
        m_pFrame->Create(NULL, "Status", WS_OVERLAPPEDWINDOW, CRect(CPoint(), rect.Size())));
    theApp.m_pMainWnd = m_pFrame;
    const UINT ids[] = {ID_SEPARATOR, ID_INDICATOR_CAPS, ID_INDICATOR_NUM, ID_INDICATOR_SCRL};
    ASSERT_TRUE(m_bar.Create(m_pFrame) && m_bar.SetIndicators(ids, 4));
    m_bar.GetStatusBarCtrl().SetMinHeight(20);
    m_pFrame->ShowWindow(SW_SHOW);
    Idle();
  }
  void TearDown() override { m_pFrame->DestroyWindow(); }
  void Idle() {
    PumpAsApp();
    theApp.OnIdle(0);
    PumpAsApp();
  }
  std::string Shown() { return (LPCSTR)WindowText(&m_bar); }
  // As a toolbar asks for it when the mouse leaves.
  std::string ShownAfterIdleMessage() {
    m_pFrame->PostMessage(WM_POPMESSAGESTRING, AFX_IDS_IDLEMESSAGE);
    Idle();
    return Shown();
  }
  int BarPos() { return (int)m_bar.GetDlgItem(1)->SendMessage(PBM_GETPOS); }
  COLORREF Pixel(int x, int y) { return CClientDC(&m_bar).GetPixel(x, y); }
  CFrameWnd* m_pFrame = NULL;
  VStatusBar m_bar;
};

TEST_F(StatusBarTest, PanesShowFittedTextColouredTextAndBitmaps) {
  CClientDC dc(&m_bar);
  dc.SelectObject(m_bar.GetFont());
  UINT nStyle0 = m_bar.GetPaneStyle(0);
  m_bar.SetPaneContents(1, "Ln 12", 0, TRUE);
  m_bar.SetPaneContents(2, "", 0, FALSE);     // hidden
  m_bar.SetPaneContents(0, "kept", 0, FALSE); // a text with no width: unchanged
  EXPECT_EQ(nStyle0, m_bar.GetPaneStyle(0));
  m_bar.SetPaneContents(3, RGB(255, 255, 0), kGreen, "Hot", 40, FALSE);
  m_bar.SetPaneContents(0, IDB_PANE, 0, TRUE); // 24 wide
  CString strInfo, strExpected;
  for (int i = 0; i < 4; i++) {
    UINT nID, nStyle;
    int cxWidth;
    m_bar.GetPaneInfo(i, nID, nStyle, cxWidth);
    strInfo.AppendFormat("%x/%d ", nStyle, cxWidth);
  }
  strExpected.Format("4001000/20 0/%d 4000100/0 1000/40 ", dc.GetTextExtent("Ln 12").cx);
  EXPECT_EQ(strExpected, strInfo);
  EXPECT_TRUE(m_bar.GetStatusBarCtrl().GetText(1) == "Ln 12" && m_bar.IsBitmapInPane(0) &&
              !m_bar.IsBitmapInPane(3));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { m_bar.IsBitmapInPane(4); }));
  // The bitmap from the pane's corner, unscaled: 12 red pixels, then blue
  // to the pane's edge. The coloured pane: all green behind its text.
  m_bar.UpdateWindow();
  CRect rect;
  m_bar.GetItemRect(0, &rect);
  int y = rect.top + 4, x = rect.left, xBlue;
  while (x < rect.right && Pixel(x, y) != kRed)
    x++;
  for (xBlue = x; xBlue < rect.right && Pixel(xBlue, y) == kRed;)
    xBlue++;
  EXPECT_TRUE(xBlue - x == 12 && Pixel(xBlue, y) == kBlue && Pixel(rect.right - 3, y) == kBlue);
  m_bar.GetItemRect(3, &rect);
  EXPECT_TRUE(Pixel(rect.left + 3, rect.top + 3) == kGreen &&
              Pixel(rect.right - 3, rect.bottom - 3) == kGreen);
}

TEST_F(StatusBarTest, NestedProgressLockAndCallsOutOfOrder) {
  EXPECT_EQ("Ready", ShownAfterIdleMessage());
  POSITION posA = m_bar.StartProgress(0, 200, "Copying");
  EXPECT_TRUE(m_bar.SetProgressPos(posA, 100) == 0 && BarPos() == 50);
  POSITION posB = m_bar.StartProgress(50, 150, "Packing");
  m_bar.SetProgressPos(posB, 100); // 100 % of 50..150: the lower bound is not subtracted
  EXPECT_EQ(100, BarPos());
  EXPECT_EQ(100, m_bar.SetProgressPos(posA, 150)); // the older one: the bar stays
  EXPECT_TRUE(m_bar.StepIt(posA) == 150 && BarPos() == 100);
  EXPECT_EQ("Packing", ShownAfterIdleMessage());

  m_bar.StopProgress(posB, "unused");
  EXPECT_TRUE(Shown() == "Copying" && BarPos() == 80); // A at 160 of 200
  EXPECT_EQ("Copying", ShownAfterIdleMessage());
  EXPECT_TRUE(m_bar.StepIt(posA) == 160 && BarPos() == 85); // the bar's step: 10 of 200 is 5 %
  EXPECT_EQ(10, m_bar.SetStep(posA, 20));                   // 10 % of 0..200 from now on
  m_bar.StepIt(posA);
  EXPECT_EQ(95, BarPos());
  m_bar.StopProgress(posA, "Done");
  EXPECT_EQ("Done", Shown());
  EXPECT_EQ("Ready", ShownAfterIdleMessage());
  m_bar.SetWindowTextAndLock("Held");
  EXPECT_EQ("Held", ShownAfterIdleMessage());
  m_bar.SetWindowTextAndUnlock("Free");
  EXPECT_EQ("Ready", ShownAfterIdleMessage());
  m_bar.StopProgress(NULL, "Nothing ran"); // the text, unlocked
  EXPECT_EQ("Nothing ran", Shown());
  EXPECT_EQ("Ready", ShownAfterIdleMessage());
  POSITION pos = m_bar.StartProgress(7, 7, "Empty range");
  m_bar.SetProgressPos(pos, 7); // no division by the empty range
  EXPECT_EQ(100, BarPos());
  m_bar.StopProgress(pos, "");
  // A thousand nested stopped newest first; a stopped one's handle changes nothing.
  POSITION positions[1000];
  for (int i = 0; i < 1000; i++)
    m_bar.SetProgressPos(positions[i] = m_bar.StartProgress(0, 1000, CString('L', i + 1)), i);
  for (int i = 999; i > 0; i--)
    m_bar.StopProgress(positions[i], "");
  EXPECT_EQ("L", Shown());
  EXPECT_EQ(0, m_bar.SetProgressPos(positions[500], 900));
  m_bar.StopProgress(positions[0], "All done");
  EXPECT_EQ("All done", Shown());
  EXPECT_FALSE(m_bar.GetDlgItem(1)->IsWindowVisible());
}

TEST_F(StatusBarTest, BarSitsBesideTheTextInPixels) {
  CClientDC dc(&m_bar); // a message exactly 200 pixels wide in the bar's font
  dc.SelectObject(m_bar.GetFont());
  int cxI = dc.GetTextExtent("i").cx, cxW = dc.GetTextExtent("W").cx, n = 0;
  while (n * cxW < 200 && (200 - n * cxW) % cxI != 0)
    n++;
  CString strText = CString('W', n) + CString('i', (200 - n * cxW) / cxI);
  ASSERT_EQ(200, dc.GetTextExtent(strText).cx);
  CRect rect;
  m_bar.GetWindowRect(&rect);
  ASSERT_EQ(CSize(1000, 20), rect.Size());
  m_bar.SetProgressPos(m_bar.StartProgress(0, 100, strText), 50);
  Idle();
  m_bar.GetDlgItem(1)->GetWindowRect(&rect);
  m_bar.ScreenToClient(&rect);
  EXPECT_EQ(CRect(210, 3, 397, 20), rect);
  COLORREF crBack = Pixel(209, 10), crFill = Pixel(212, 10); // the left half filled
  EXPECT_TRUE(crBack != Pixel(210, 10) && crBack == Pixel(397, 10) && crBack == Pixel(300, 2));
  EXPECT_TRUE(crFill == Pixel(210 + 187 / 2 - 2, 10) && crFill != Pixel(210 + 187 / 2 + 2, 10));
}

} // namespace
