// VPopupWindow with real mouse input.
#include "vrk_popupwnd.h"

#include <gtest/gtest.h>

#include "user_input.h"

using namespace user_input;

namespace {

// A release inside gives up the capture from the handler, as once a choice is made.
class CTestPopup : public VPopupWindow {
public:
  int m_nCloses = 0;
  int m_bAliveAfterRelease = -1;
  BOOL Open(CWnd* pOwner, int x) {
    return CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_BORDER | WS_VISIBLE, x, 50, 60, 40,
                    pOwner->GetSafeHwnd(), NULL);
  }
  afx_msg void OnClose() { ++m_nCloses, DestroyWindow(); }
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

TEST(PopupWindow, PressOutsideReleaseInsideOrAnotherCaptureClosesOnce) {
  CWnd owner;
  ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), "Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                             0, 0, 400, 300, NULL, NULL));
  Focus(owner, owner);
  // Client points; the client area is 58 x 38 inside the border.
  POINT points[] = {{0, 0}, {57, 37}, {58, 10}, {10, 38}, {-1, 10}};
  for (POINT pt : points) {
    SCOPED_TRACE(testing::Message() << pt.x << "," << pt.y);
    bool bOutside = pt.x < 0 || pt.x > 57 || pt.y > 37;
    CTestPopup popup;
    ASSERT_TRUE(popup.Open(&owner, 50));
    HWND hWnd = popup.m_hWnd;
    EXPECT_EQ(hWnd, ::GetCapture());
    ::ClientToScreen(hWnd, &pt);
    MoveTo(pt);
    Mouse(MOUSEEVENTF_LEFTDOWN);
    EXPECT_TRUE(::GetCapture() == (bOutside ? NULL : hWnd) && bOutside == !::IsWindow(hWnd));
    Mouse(MOUSEEVENTF_LEFTUP);
    EXPECT_EQ(bOutside ? -1 : 1, popup.m_bAliveAfterRelease); // closed after the handler
    EXPECT_TRUE(!::IsWindow(hWnd) && popup.m_nCloses == 1);
  }

  CTestPopup first, second;
  ASSERT_TRUE(first.Open(&owner, 50));
  ASSERT_TRUE(second.Open(&owner, 150));
  Pump();
  EXPECT_TRUE(!::IsWindow(first.m_hWnd) && first.m_nCloses == 1 && ::GetCapture() == second);
  owner.SetCapture();
  Pump();
  EXPECT_TRUE(!::IsWindow(second.m_hWnd) && second.m_nCloses == 1);
  ::ReleaseCapture();
  owner.DestroyWindow();
}

} // namespace
