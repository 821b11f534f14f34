// VPopupWindow with real mouse input: the capture taken at creation, presses
// inside and outside (the right and bottom edges are outside), a release in
// a derived handler closing the window once, afterwards, and a second pop-up
// or another window taking the capture.
#include "vrk_popupwnd.h"

#include <gtest/gtest.h>

#include "user_input.h"

namespace {

// Counts its closes; a button release inside gives up the capture from the
// handler, as a pop-up does once a choice is made.
class CTestPopup : public VPopupWindow {
public:
  int m_nCloses = 0;
  int m_bAliveAfterRelease = -1;
  BOOL Open(CWnd* pOwner, int x) {
    return CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_BORDER | WS_VISIBLE, x, 50, 60, 40,
                    pOwner->GetSafeHwnd(), NULL);
  }
  afx_msg void OnClose() {
    ++m_nCloses;
    DestroyWindow();
  }
  afx_msg void OnLButtonUp(UINT nFlags, CPoint point) {
    if (OnLButtonDownCheck(nFlags, point)) return;
    ::ReleaseCapture();
    m_bAliveAfterRelease = ::IsWindow(m_hWnd) && ::GetCapture() == NULL;
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CTestPopup, VPopupWindow)
ON_WM_CLOSE()
ON_WM_LBUTTONUP()
END_MESSAGE_MAP()

class PopupTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(m_owner.CreateEx(0, AfxRegisterWndClass(0), "Owner",
                                 WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300, NULL, NULL));
    user_input::Focus(m_owner, m_owner);
  }
  void TearDown() override {
    if (::IsWindow(m_owner)) m_owner.DestroyWindow();
    user_input::Pump();
    EXPECT_EQ(nullptr, ::GetCapture());
  }
  CWnd m_owner;
};

TEST_F(PopupTest, PressOutsideOrReleaseInsideClosesOnce) {
  // Client points; the client area is 58 x 38 inside the border.
  struct Case {
    int x, y;
    bool bOutside;
  } cases[] = {{0, 0, false},  {57, 37, false}, {58, 10, true},
               {10, 38, true}, {-1, 10, true},  {200, 150, true}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.x << "," << c.y);
    CTestPopup popup;
    ASSERT_TRUE(popup.Open(&m_owner, 50));
    HWND hWnd = popup.m_hWnd;
    EXPECT_EQ(hWnd, ::GetCapture());
    POINT pt = {c.x, c.y};
    ::ClientToScreen(hWnd, &pt);
    user_input::MoveTo(pt);
    user_input::Send({user_input::Mouse(MOUSEEVENTF_LEFTDOWN)});
    EXPECT_EQ(c.bOutside ? NULL : hWnd, ::GetCapture());
    EXPECT_EQ(c.bOutside, !::IsWindow(hWnd));
    user_input::Send({user_input::Mouse(MOUSEEVENTF_LEFTUP)});
    EXPECT_EQ(c.bOutside ? -1 : 1, popup.m_bAliveAfterRelease); // closed after the handler
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(1, popup.m_nCloses);
  }
}

TEST_F(PopupTest, AnyOtherCaptureClosesIt) {
  CTestPopup first, second;
  ASSERT_TRUE(first.Open(&m_owner, 50));
  ASSERT_TRUE(second.Open(&m_owner, 150));
  user_input::Pump();
  EXPECT_FALSE(::IsWindow(first.m_hWnd));
  EXPECT_EQ(1, first.m_nCloses);
  EXPECT_EQ(second.m_hWnd, ::GetCapture());
  m_owner.SetCapture();
  user_input::Pump();
  EXPECT_FALSE(::IsWindow(second.m_hWnd));
  EXPECT_EQ(1, second.m_nCloses);
  ::ReleaseCapture();

  CTestPopup third; // its owner destroyed while it is open takes it along
  ASSERT_TRUE(third.Open(&m_owner, 50));
  m_owner.DestroyWindow();
  user_input::Pump();
  EXPECT_FALSE(::IsWindow(third.m_hWnd));
}

} // namespace
