// vrk_popupwnd.h - the base of short-lived pop-up windows that hold the mouse
// capture for as long as they live.
#ifndef VRK_POPUPWND_H
#define VRK_POPUPWND_H

#include "vrkdefs.h"
#include <afxwin.h>

// Life of a pop-up: creation takes the mouse capture; a button press outside
// (as OnLButtonDownCheck decides) releases it; any loss of the capture posts
// WM_CLOSE to the window, so it closes once the current message is handled.
// Window class, styles and placement belong to the derived class.
class VRK_API VPopupWindow : public CWnd {
  DECLARE_DYNAMIC(VPopupWindow)
public:
  VPopupWindow();
  virtual ~VPopupWindow();

protected:
  // Non-zero when the point (client co-ordinates) lies outside the client
  // rectangle; its right and bottom edges count as outside. nFlags is unused.
  virtual int OnLButtonDownCheck(UINT nFlags, CPoint point);

  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg void OnCaptureChanged(CWnd* pWnd);
  afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
  DECLARE_MESSAGE_MAP()
};

#endif // VRK_POPUPWND_H
