// VPopupWindow: takes the capture at creation and closes itself when it
// loses it.
#include "vrk_popupwnd.h"

IMPLEMENT_DYNAMIC(VPopupWindow, CWnd)

BEGIN_MESSAGE_MAP(VPopupWindow, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_CAPTURECHANGED()
ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

VPopupWindow::VPopupWindow() {}

VPopupWindow::~VPopupWindow() {}

int VPopupWindow::OnLButtonDownCheck(UINT /*nFlags*/, CPoint point) {
  CRect rcClient;
  GetClientRect(&rcClient);
  return !rcClient.PtInRect(point);
}

int VPopupWindow::OnCreate(LPCREATESTRUCT /*lpCreateStruct*/) {
  int nResult = (int)Default();
  SetCapture();
  return nResult;
}

// Posted, never sent: a derived handler that released the capture after a
// choice finishes its work on the still-living window.
void VPopupWindow::OnCaptureChanged(CWnd* /*pWnd*/) { PostMessage(WM_CLOSE, 0, 0); }

// The base handler of the button is deliberately not called.
void VPopupWindow::OnLButtonDown(UINT nFlags, CPoint point) {
  if (OnLButtonDownCheck(nFlags, point)) ::ReleaseCapture();
}
