// vrk_colorctrl.h - a colour picker drawn as a combo box, and the pop-up
// grid of 20 colours it opens.
#ifndef VRK_COLORCTRL_H
#define VRK_COLORCTRL_H

#include "vrkdefs.h"
#include "vrk_popupwnd.h"
#include <afxwin.h>

// The number of colours in the picker's table, row by row in a 4 x 5 grid.
#define VRK_COLORTABLE_SIZE 20

// Shows its colour in a swatch; a click on the arrow at its right opens the
// grid below it. A colour chosen there is sent to the parent as
// WM_COMMAND with CBN_SELCHANGE.
class VRK_API VColorComboBox : public CWnd {
  DECLARE_DYNAMIC(VColorComboBox)
public:
  VColorComboBox();
  virtual ~VColorComboBox();

  BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
  COLORREF GetColor() const { return m_crColor; }
  // Stores and repaints; no notification.
  void SetColor(COLORREF crColor);
  // A changed colour is stored, painted at once and sent to the parent.
  void UpdateColor(COLORREF crColor);

protected:
  afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnPaint();
  afx_msg BOOL OnEraseBkgnd(CDC* pDC);
  DECLARE_MESSAGE_MAP()

  COLORREF m_crColor;
};

// The grid of colours (window class "VPopupColorCtrl"). It holds the mouse
// capture; a square clicked gives its colour to the owner and closes it.
// Made with new by the colour combo box; it deletes itself when its window
// is gone.
class VRK_API VPopupColorCtrl : public VPopupWindow {
  DECLARE_DYNAMIC(VPopupColorCtrl)
public:
  // The colour is looked up among the first 16 entries (else entry 0). A
  // null owner throws VInvalidDataException.
  VPopupColorCtrl(COLORREF crColor, VColorComboBox* pOwner);
  virtual ~VPopupColorCtrl();

  // The square under the point (client co-ordinates), or -1.
  int CursorToColorIndex(CPoint point);
  void DrawColorSquare(CDC* pDC, int nIndex, CPoint ptTopLeft);
  int GetSelectedIndex() const { return m_nSelected; }
  int GetHotIndex() const { return m_nHot; }
  COLORREF GetColor() const { return m_crColor; }

protected:
  virtual void PostNcDestroy();

  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg void OnMouseMove(UINT nFlags, CPoint point);
  afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
  afx_msg void OnPaint();
  afx_msg BOOL OnEraseBkgnd(CDC* pDC);
  DECLARE_MESSAGE_MAP()

  COLORREF m_crColor;
  int m_nSelected;
  int m_nHot;
  VColorComboBox* m_pOwner;
  HWND m_hWndCombo; // the owner's window, to know it still exists before it is called
};

#endif // VRK_COLORCTRL_H
