// CScrollView in a real frame: the bars its sizes give, clamped positions,
// scrolling by clicks on the bar and the wheel (OnDraw's page moving on the
// screen).
#include <afxwin.h>
#include <gtest/gtest.h>

#include <limits.h>

#include "user_input.h"

namespace {

const COLORREF kBlack = RGB(0, 0, 0);

// Draws, in its logical units, a white page with one black band m_rectBand.
class CBandView : public CScrollView {
public:
  CRect m_rectBand;
  virtual void OnDraw(CDC* pDC) {
    pDC->FillSolidRect(CRect(-9999, -9999, 9999, 9999), RGB(255, 255, 255));
    pDC->FillSolidRect(m_rectBand, kBlack);
  }
};

class ScrollViewTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_pFrame = new CFrameWnd;
    ASSERT_TRUE(m_pFrame->Create(NULL, "Scroll", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                 CRect(10, 10, 430, 470)));
    m_pView = new CBandView;
    ASSERT_TRUE(m_pView->Create(NULL, NULL, WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10), m_pFrame,
                                AFX_IDW_PANE_FIRST));
    m_pFrame->RecalcLayout();
    user_input::Focus(m_pFrame->m_hWnd, m_pView->m_hWnd);
  }
  void TearDown() override { m_pFrame->DestroyWindow(); }

  CSize Client() const {
    CRect rect;
    m_pView->GetClientRect(&rect);
    return rect.Size();
  }
  // The band's first row in column x as the screen shows it once painted
  // (-1: none); bRepaint: with the whole view painted again.
  int BandRow(int x, bool bRepaint = false) {
    if (bRepaint) m_pView->Invalidate();
    m_pView->UpdateWindow();
    user_input::Pump();
    CClientDC dc(m_pView);
    for (int y = 0; y < Client().cy; y++)
      if (dc.GetPixel(x, y) == kBlack) return y;
    return -1;
  }

  CWinApp m_app{"ScrollViewTest"};
  CFrameWnd* m_pFrame = NULL;
  CBandView* m_pView = NULL;
};

// Which bars a total size needs in a window of about 400 x 400 (a bar's
// range is the total size, its page what the window shows), and positions
// kept on the page.
TEST_F(ScrollViewTest, TotalSizeGivesBarsAndBoundsPositions) {
  const CSize client0 = Client();
  const int cxSb = ::GetSystemMetrics(SM_CXVSCROLL);
  const struct {
    CSize total;
    BOOL bHorz, bVert;
  } cases[] = {
      {CSize(1000, 2000), TRUE, TRUE},
      {CSize(client0.cx - cxSb - 5, 2000), FALSE, TRUE}, // fits beside the vertical bar
      {CSize(client0.cx - cxSb + 5, 2000), TRUE, TRUE},  // the vertical bar makes it overhang
      {client0, FALSE, FALSE},
  };
  for (const auto& c : cases) {
    m_pView->SetScrollSizes(MM_TEXT, c.total);
    BOOL bHorz = -1, bVert = -1;
    m_pView->CheckScrollBars(bHorz, bVert);
    EXPECT_EQ(CSize(c.bHorz, c.bVert), CSize(bHorz, bVert)) << c.total.cx;
    // A bar not needed is emptied.
    SCROLLINFO h = {sizeof(SCROLLINFO), SIF_ALL}, v = h;
    m_pView->GetScrollInfo(SB_HORZ, &h);
    m_pView->GetScrollInfo(SB_VERT, &v);
    EXPECT_EQ(c.bHorz ? CSize(c.total.cx - 1, Client().cx) : CSize(0, 0), CSize(h.nMax, h.nPage));
    EXPECT_EQ(c.bVert ? CSize(c.total.cy - 1, Client().cy) : CSize(0, 0), CSize(v.nMax, v.nPage));
  }
  // Positions beyond the page stop at its ends (less what the window shows).
  m_pView->SetScrollSizes(MM_TEXT, CSize(1000, 2000));
  const CPoint ptEnd = CPoint(1000, 2000) - Client();
  const CPoint positions[][2] = {{CPoint(5000, 5000), ptEnd},
                                 {CPoint(-10, -10), CPoint(0, 0)},
                                 {CPoint(123, 456), CPoint(123, 456)},
                                 {CPoint(INT_MAX, INT_MIN), CPoint(ptEnd.x, 0)}};
  for (const auto& c : positions) {
    m_pView->ScrollToPosition(c[0]);
    EXPECT_EQ(c[1], m_pView->GetScrollPosition()) << c[0].x << ", " << c[0].y;
  }
  EXPECT_TRUE(m_pView->OnScrollBy(CSize(0, INT_MAX)));
  EXPECT_EQ(ptEnd, m_pView->GetScrollPosition());
  EXPECT_FALSE(m_pView->OnScrollBy(CSize(0, 1)));
}

// Clicks on the vertical bar's arrows and shaft and a turn of the wheel move
// the view by a line, a page and three lines; the band drawn at row 300 of
// the page moves up the screen with it.
TEST_F(ScrollViewTest, BarClicksAndWheelScrollThePage) {
  m_pView->m_rectBand = CRect(0, 300, 1000, 320);
  m_pView->SetScrollSizes(MM_TEXT, CSize(1000, 2000), CSize(150, 150), CSize(20, 20));
  SCROLLBARINFO sbi = {sizeof(SCROLLBARINFO)};
  ASSERT_TRUE(::GetScrollBarInfo(m_pView->m_hWnd, OBJID_VSCROLL, &sbi));
  // (Wine's dxyLineButton is the thumb's size: an arrow is SM_CYVSCROLL.)
  const int x = (sbi.rcScrollBar.left + sbi.rcScrollBar.right) / 2;
  const int cyArrow = ::GetSystemMetrics(SM_CYVSCROLL), yBottom = sbi.rcScrollBar.bottom;
  // A click at y on the bar (press and release together: the bar's tracking
  // loop, entered on the press, ends on the release), or with y 0 the wheel
  // turned down a notch over the page.
  auto Act = [&](int y) {
    CPoint pt(x, y);
    if (y == 0) m_pView->ClientToScreen(&(pt = CPoint(60, 60)));
    user_input::MoveTo(pt);
    INPUT in[2] = {{INPUT_MOUSE}, {INPUT_MOUSE}};
    in[0].mi.dwFlags = y ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_WHEEL;
    in[0].mi.mouseData = y ? 0 : (DWORD)-WHEEL_DELTA;
    in[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    user_input::Send(std::vector<INPUT>(in, in + (y ? 2 : 1)));
  };
  const struct {
    const char* what;
    int y, nPos;
  } steps[] = {
      {"arrow down", yBottom - cyArrow / 2, 20},
      {"wheel down", 0, 80},
      {"arrow up", sbi.rcScrollBar.top + cyArrow / 2, 60},
      {"shaft below the thumb", yBottom - cyArrow - 4, 210},
  };
  ASSERT_EQ(300, BandRow(50));
  for (const auto& s : steps) {
    Act(s.y);
    SCOPED_TRACE(s.what);
    EXPECT_EQ(CPoint(0, s.nPos), m_pView->GetScrollPosition());
    EXPECT_EQ(300 - s.nPos, BandRow(50));
    EXPECT_EQ(300 - s.nPos, BandRow(50, true));
  }
}

} // namespace
