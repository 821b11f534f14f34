// VPopupWindow driven with real mouse input: the capture taken at creation,
// clicks inside and outside (the right and bottom edges count as outside), a
// release from inside a handler closing the window once, afterwards, and a
// second pop-up taking the capture from the first.
#include "vrk_popupwnd.h"

#include <gtest/gtest.h>

#include "user_input.h"

namespace {

// Counts its closes and presses; a release on the window gives up the capture
// from inside the handler, as a pop-up does once a choice is made.
class CTestPopup : public VPopupWindow {
public:
  int m_nCloses = 0;
  int m_nButtonUps = 0;
  BOOL m_bAliveAfterRelease = FALSE;
  BOOL Open(CWnd* pOwner, int x, int y) {
    LPCTSTR cls = AfxRegisterWndClass(0, ::LoadCursor(NULL, IDC_ARROW));
    return CreateEx(0, cls, "", WS_POPUP | WS_BORDER | WS_VISIBLE, x, y, 60, 40,
                    pOwner->GetSafeHwnd(), NULL);
  }
  afx_msg void OnClose() {
    ++m_nCloses;
    DestroyWindow();
  }
  afx_msg void OnLButtonUp(UINT nFlags, CPoint point) {
    if (OnLButtonDownCheck(nFlags, point)) return;
    ++m_nButtonUps;
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
    LPCTSTR cls = AfxRegisterWndClass(0, ::LoadCursor(NULL, IDC_ARROW));
    ASSERT_TRUE(m_owner.CreateEx(0, cls, "Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                 NULL, NULL));
    user_input::Focus(m_owner, m_owner);
  }
  void TearDown() override {
    if (::IsWindow(m_owner)) m_owner.DestroyWindow();
    user_input::Pump();
  }
  CWnd m_owner;
};

TEST_F(PopupTest, CreationTakesTheCaptureAndAClickOutsideClosesItOnce) {
  // Client points (the pop-up's client area is 58 x 38 inside its border).
  struct Case {
    int x, y;
    bool bCloses;
  } cases[] = {{0, 0, false},  {57, 37, false}, {58, 10, true},
               {10, 38, true}, {-1, 10, true},  {200, 150, true}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "click at " << c.x << "," << c.y);
    CTestPopup popup;
    ASSERT_TRUE(popup.Open(&m_owner, 50, 50));
    EXPECT_EQ(popup.m_hWnd, ::GetCapture());
    CRect rc;
    popup.GetClientRect(&rc);
    ASSERT_EQ(CSize(58, 38), rc.Size());

    POINT pt = {c.x, c.y};
    popup.ClientToScreen(&pt);
    user_input::MoveTo(pt);
    HWND hWnd = popup.m_hWnd;
    user_input::Button(MOUSEEVENTF_LEFTDOWN);
    EXPECT_EQ(c.bCloses ? NULL : hWnd, ::GetCapture());
    EXPECT_EQ(c.bCloses, !::IsWindow(hWnd));
    EXPECT_EQ(c.bCloses ? 1 : 0, popup.m_nCloses);
    // Inside, the press keeps the capture; the release goes to the derived
    // class, which gives it up: the window closes once, after the handler.
    user_input::Button(MOUSEEVENTF_LEFTUP);
    EXPECT_EQ(c.bCloses ? 0 : 1, popup.m_nButtonUps);
    EXPECT_EQ(!c.bCloses, popup.m_bAliveAfterRelease);
    EXPECT_FALSE(::IsWindow(popup.m_hWnd));
    EXPECT_EQ(1, popup.m_nCloses);
    EXPECT_EQ(nullptr, ::GetCapture());
  }
}

TEST_F(PopupTest, ASecondPopupTakesTheCaptureFromTheFirst) {
  CTestPopup first, second;
  ASSERT_TRUE(first.Open(&m_owner, 50, 50));
  ASSERT_TRUE(second.Open(&m_owner, 150, 50));
  user_input::Pump();
  EXPECT_FALSE(::IsWindow(first.m_hWnd));
  EXPECT_EQ(1, first.m_nCloses);
  EXPECT_TRUE(::IsWindow(second.m_hWnd));
  EXPECT_EQ(second.m_hWnd, ::GetCapture());
  EXPECT_EQ(0, second.m_nCloses);

  // Any other window taking the capture closes it as well.
  m_owner.SetCapture();
  user_input::Pump();
  EXPECT_FALSE(::IsWindow(second.m_hWnd));
  EXPECT_EQ(1, second.m_nCloses);
  ::ReleaseCapture();
}

TEST_F(PopupTest, OwnerDestroyedWhileOpen) {
  CTestPopup popup;
  ASSERT_TRUE(popup.Open(&m_owner, 50, 50));
  m_owner.DestroyWindow(); // destroys the owned pop-up with it
  user_input::Pump();
  EXPECT_FALSE(::IsWindow(popup.m_hWnd));
  EXPECT_EQ(nullptr, ::GetCapture());
  EXPECT_LE(popup.m_nCloses, 1);
}

} // namespace
