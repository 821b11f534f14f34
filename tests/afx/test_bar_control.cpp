// CControlBar in a plain parent window. RepositionBars: bars take their
// strips from the edges in z-order, the left-over child gets exactly the
// middle; hidden and delayed bars take no room. Commands of controls on a
// bar reach the bar's owner.
#include <afxext.h>
#include <gtest/gtest.h>

#include "bar_testing.h"

namespace {

const UINT ID_BAR_TOP = AFX_IDW_CONTROLBAR_FIRST + 1;
const UINT ID_BAR_BOTTOM = AFX_IDW_CONTROLBAR_FIRST + 2;
const UINT ID_BAR_LEFT = AFX_IDW_CONTROLBAR_FIRST + 3;
const UINT ID_BAR_OUTSIDE = 100;

// A bar of a fixed natural size on afx's own bar window class.
class CFixedBar : public CControlBar {
public:
  CFixedBar(int cx, int cy) : m_size(cx, cy) {}
  BOOL Create(CWnd* pParent, DWORD dwBarStyle, UINT nID, DWORD dwWndStyle = WS_VISIBLE) {
    m_dwStyle = dwBarStyle & CBRS_ALL;
    return CWnd::CreateEx(0, NULL, NULL, WS_CHILD | dwWndStyle, CRect(0, 0, 0, 0), pParent, nID);
  }
  virtual CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz) {
    CSize size = m_size;
    if (bStretch && bHorz) size.cx = 32767;
    if (bStretch && !bHorz) size.cy = 32767;
    return size;
  }
  virtual void OnUpdateCmdUI(CFrameWnd*, BOOL) {}
  CSize m_size;
};

CRect RectInParent(CWnd& wnd) {
  CRect rect;
  wnd.GetWindowRect(&rect);
  wnd.GetParent()->ScreenToClient(&rect);
  return rect;
}

// The parent's command and message-string handlers.
class CHostWnd : public CWnd {
public:
  CHostWnd() : m_nCommands(0), m_nMessageID(0) {}
  afx_msg void OnBarButton() { m_nCommands++; }
  afx_msg LRESULT OnSetMessageString(WPARAM wParam, LPARAM) {
    m_nMessageID = (UINT)wParam;
    return 0;
  }
  int m_nCommands;
  UINT m_nMessageID;
  DECLARE_MESSAGE_MAP()
};
const UINT ID_BAR_BUTTON = 0x8201;
BEGIN_MESSAGE_MAP(CHostWnd, CWnd)
ON_COMMAND(ID_BAR_BUTTON, &CHostWnd::OnBarButton)
ON_MESSAGE(WM_SETMESSAGESTRING, &CHostWnd::OnSetMessageString)
END_MESSAGE_MAP()

class BarLayoutTest : public ::testing::Test {
protected:
  BarLayoutTest() : m_top(100, 30), m_bottom(120, 20), m_left(40, 50) {}
  void SetUp() override {
    ASSERT_TRUE(
        m_parent.CreateEx(0, NULL, "parent", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, NULL, NULL));
    ASSERT_TRUE(m_top.Create(&m_parent, CBRS_TOP, ID_BAR_TOP));
    ASSERT_TRUE(m_bottom.Create(&m_parent, CBRS_BOTTOM, ID_BAR_BOTTOM));
    ASSERT_TRUE(m_left.Create(&m_parent, CBRS_LEFT, ID_BAR_LEFT));
    ASSERT_TRUE(m_view.CreateEx(0, NULL, NULL, WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10),
                                &m_parent, AFX_IDW_PANE_FIRST));
  }
  void TearDown() override { m_parent.DestroyWindow(); }
  void Layout(UINT nFlags = CWnd::reposDefault, LPRECT lpRect = NULL) {
    m_parent.RepositionBars(AFX_IDW_CONTROLBAR_FIRST, AFX_IDW_CONTROLBAR_LAST, AFX_IDW_PANE_FIRST,
                            nFlags, lpRect);
  }
  CHostWnd m_parent;
  CFixedBar m_top, m_bottom, m_left;
  CWnd m_view;
};

TEST_F(BarLayoutTest, BarsTakeTheEdgesInOrderAndTheViewGetsTheMiddle) {
  Layout();
  EXPECT_EQ(CRect(0, 0, 400, 30), RectInParent(m_top));
  EXPECT_EQ(CRect(0, 280, 400, 300), RectInParent(m_bottom));
  // The left bar comes after both: it spans what they left.
  EXPECT_EQ(CRect(0, 30, 40, 280), RectInParent(m_left));
  EXPECT_EQ(CRect(40, 30, 400, 280), RectInParent(m_view));
  // The margins (six pixels at the ends, one above and below) lie outside
  // the client area.
  CRect rectClient;
  m_top.GetClientRect(&rectClient);
  m_top.MapWindowPoints(&m_parent, &rectClient);
  EXPECT_EQ(CRect(6, 1, 394, 29), rectClient);
  m_top.SetBorders(2, 3, 4, 5);
  m_top.GetClientRect(&rectClient);
  m_top.MapWindowPoints(&m_parent, &rectClient);
  EXPECT_EQ(CRect(2, 3, 396, 25), rectClient);
}

TEST_F(BarLayoutTest, HiddenDelayedAndForeignChildrenTakeNoRoom) {
  m_top.ShowWindow(SW_HIDE);
  Layout();
  EXPECT_EQ(CRect(40, 0, 400, 280), RectInParent(m_view));

  // DelayShow waits for the next layout, which shows the bar.
  m_top.DelayShow(TRUE);
  EXPECT_TRUE(m_top.IsVisible());
  EXPECT_FALSE(m_top.IsWindowVisible());
  Layout();
  EXPECT_TRUE(m_top.IsWindowVisible());
  EXPECT_EQ(CRect(40, 30, 400, 280), RectInParent(m_view));

  // A query does not carry out a pending hide but counts it.
  m_bottom.DelayShow(FALSE);
  CRect rect;
  Layout(CWnd::reposQuery, &rect);
  EXPECT_EQ(CRect(40, 30, 400, 300), rect);
  EXPECT_TRUE(m_bottom.IsWindowVisible());
  Layout();
  EXPECT_FALSE(m_bottom.IsWindowVisible());
  EXPECT_EQ(CRect(40, 30, 400, 300), RectInParent(m_view));

  // A bar whose id lies outside the range is not laid out.
  CFixedBar other(10, 25);
  ASSERT_TRUE(other.Create(&m_parent, CBRS_TOP, ID_BAR_OUTSIDE));
  Layout();
  EXPECT_EQ(CRect(40, 30, 400, 300), RectInParent(m_view));
  EXPECT_EQ(CRect(0, 0, 0, 0), RectInParent(other));
}

TEST_F(BarLayoutTest, ControlsOnABarReachTheOwner) {
  CButton button;
  ASSERT_TRUE(button.Create("Go", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(0, 0, 20, 20),
                            &m_top, ID_BAR_BUTTON));
  button.SendMessage(BM_CLICK);
  EXPECT_EQ(1, m_parent.m_nCommands);
  // Another owner takes them instead.
  CHostWnd other;
  ASSERT_TRUE(other.CreateEx(0, NULL, "other", WS_POPUP, 0, 0, 10, 10, NULL, NULL));
  m_top.SetOwner(&other);
  button.SendMessage(BM_CLICK);
  EXPECT_EQ(1, m_parent.m_nCommands);
  EXPECT_EQ(1, other.m_nCommands);
  // Message strings (the fly-by prompts) go to the owner as well.
  m_top.SendMessage(WM_SETMESSAGESTRING, ID_BAR_BUTTON);
  EXPECT_EQ(ID_BAR_BUTTON, other.m_nMessageID);
  other.DestroyWindow();
}

// Docking puts a bar at an edge both the frame and the bar allow (the first
// of top, bottom, left, right), or at the dock bar asked for.
TEST(BarFrame, DockControlBarTakesAnAllowedEdge) {
  CFrameWnd* pFrame = new CFrameWnd; // deletes itself with its window
  ASSERT_TRUE(pFrame->Create(NULL, "Docking", WS_OVERLAPPEDWINDOW, CRect(0, 0, 500, 400)));
  CToolBar toolBar;
  ASSERT_TRUE(toolBar.Create(pFrame));
  const UINT buttons[] = {ID_FILE_NEW, ID_FILE_OPEN};
  ASSERT_TRUE(toolBar.SetButtons(buttons, 2));
  CRect rectClient;
  pFrame->GetClientRect(&rectClient);

  pFrame->EnableDocking(CBRS_ALIGN_BOTTOM | CBRS_ALIGN_RIGHT);
  toolBar.EnableDocking(CBRS_ALIGN_ANY);
  pFrame->DockControlBar(&toolBar);
  EXPECT_EQ((DWORD)CBRS_ALIGN_BOTTOM, toolBar.GetBarStyle() & CBRS_ALIGN_ANY);
  EXPECT_EQ(rectClient.bottom, RectInParent(toolBar).bottom);
  EXPECT_EQ(rectClient.right, RectInParent(toolBar).Width());

  pFrame->DockControlBar(&toolBar, AFX_IDW_DOCKBAR_LEFT);
  EXPECT_EQ((DWORD)CBRS_ALIGN_LEFT, toolBar.GetBarStyle() & CBRS_ALIGN_ANY);
  CRect rect = RectInParent(toolBar);
  EXPECT_EQ(0, rect.left);
  EXPECT_EQ(rectClient.bottom, rect.Height());
  EXPECT_LT(rect.Width(), rect.Height());

  // No edge in common: the bar stays where it is.
  toolBar.EnableDocking(CBRS_ALIGN_TOP);
  pFrame->DockControlBar(&toolBar);
  EXPECT_EQ((DWORD)CBRS_ALIGN_LEFT, toolBar.GetBarStyle() & CBRS_ALIGN_ANY);
  pFrame->DestroyWindow();
}

} // namespace
