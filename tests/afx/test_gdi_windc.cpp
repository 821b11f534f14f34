// The window DCs: CClientDC covers the client area and is the window's;
// CPaintDC paints the update region and validates it.
#include <gtest/gtest.h>

#include <afxwin.h>

namespace {

RECT g_rcPaint;
int g_nPaints;

// A window that paints with CPaintDC and records what BeginPaint reported.
LRESULT CALLBACK PaintProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT) {
    CPaintDC dc(CWnd::FromHandle(hWnd));
    g_rcPaint = dc.m_ps.rcPaint;
    g_nPaints++;
    dc.FillSolidRect(&dc.m_ps.rcPaint, RGB(255, 0, 0));
    return 0;
  }
  return ::DefWindowProc(hWnd, message, wParam, lParam);
}

class WindowDCTest : public ::testing::Test {
protected:
  void SetUp() override {
    WNDCLASSA wc;
    memset(&wc, 0, sizeof(wc));
    wc.lpfnWndProc = PaintProc;
    wc.hInstance = ::GetModuleHandle(NULL);
    wc.lpszClassName = "AfxGdiWinDCTest";
    ::RegisterClassA(&wc);
    m_hWnd = ::CreateWindowExA(0, "AfxGdiWinDCTest", "dc", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                               200, 150, NULL, NULL, wc.hInstance, NULL);
    ASSERT_TRUE(m_hWnd != NULL);
    ::UpdateWindow(m_hWnd);
    g_nPaints = 0;
  }
  void TearDown() override {
    ::DestroyWindow(m_hWnd);
    CWnd::DeleteTempMap();
  }
  CWnd* Wnd() { return CWnd::FromHandle(m_hWnd); }
  HWND m_hWnd;
};

} // namespace

TEST_F(WindowDCTest, ClientDCCoversTheClientArea) {
  CRect client;
  ::GetClientRect(m_hWnd, &client);
  CClientDC dc(Wnd());
  ASSERT_TRUE(dc.m_hDC != NULL);
  EXPECT_EQ(dc.m_hDC, dc.m_hAttribDC);
  EXPECT_EQ(m_hWnd, ::WindowFromDC(dc.m_hDC));
  EXPECT_EQ(m_hWnd, dc.GetWindow()->GetSafeHwnd());
  EXPECT_EQ(&dc, CDC::FromHandle(dc.m_hDC)); // attached: permanent
  CRect box;
  dc.GetClipBox(&box);
  EXPECT_TRUE(box == client);
}

TEST_F(WindowDCTest, PaintDCPaintsTheUpdateRegionAndValidatesIt) {
  RECT dirty = {5, 6, 25, 36};
  ::InvalidateRect(m_hWnd, &dirty, FALSE);
  ::UpdateWindow(m_hWnd);
  EXPECT_EQ(1, g_nPaints);
  EXPECT_TRUE(CRect(g_rcPaint) == CRect(dirty));
  // EndPaint ran in the destructor: nothing is left to paint.
  EXPECT_FALSE(::GetUpdateRect(m_hWnd, NULL, FALSE));
  ::UpdateWindow(m_hWnd);
  EXPECT_EQ(1, g_nPaints);
}
