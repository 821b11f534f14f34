// afxbar_.h: control bars (CControlBar, CStatusBar, CToolBar, CDialogBar);
// included by afxext.h.
//
// Bars are laid out by CWnd::RepositionBars: each visible bar whose id lies
// in the range takes a strip from an edge of the parent's client area
// (WM_SIZEPARENT) and the left-over child gets the rest. Docking goes as far
// as bars placed at the frame's edges (CBRS_TOP, CBRS_BOTTOM, CBRS_LEFT,
// CBRS_RIGHT); bars cannot be dragged off or floated in their own window.
#ifndef AFXBAR__H
#define AFXBAR__H

#include "afxwin.h"
#include "afxcmn.h"
#include "afxpriv.h"
#include "afxres.h"

// ---- Bar styles (CControlBar::m_dwStyle) ----------------------------------------

#ifndef CBRS_ALIGN_LEFT
#define CBRS_ALIGN_LEFT 0x1000L
#define CBRS_ALIGN_TOP 0x2000L
#define CBRS_ALIGN_RIGHT 0x4000L
#define CBRS_ALIGN_BOTTOM 0x8000L
#define CBRS_ALIGN_ANY 0xF000L

#define CBRS_BORDER_LEFT 0x0100L
#define CBRS_BORDER_TOP 0x0200L
#define CBRS_BORDER_RIGHT 0x0400L
#define CBRS_BORDER_BOTTOM 0x0800L
#define CBRS_BORDER_ANY 0x0F00L

#define CBRS_TOOLTIPS 0x0010L
#define CBRS_FLYBY 0x0020L
#define CBRS_FLOAT_MULTI 0x0040L
#define CBRS_BORDER_3D 0x0080L
#define CBRS_HIDE_INPLACE 0x0008L
#define CBRS_SIZE_DYNAMIC 0x0004L
#define CBRS_SIZE_FIXED 0x0002L
#define CBRS_FLOATING 0x0001L
#define CBRS_GRIPPER 0x00400000L

#define CBRS_ORIENT_HORZ (CBRS_ALIGN_TOP | CBRS_ALIGN_BOTTOM)
#define CBRS_ORIENT_VERT (CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT)
#define CBRS_ORIENT_ANY (CBRS_ORIENT_HORZ | CBRS_ORIENT_VERT)

// Every bit that belongs to the bar; the rest of a Create style is the
// window's. (CBRS_GRIPPER shares its bit with WS_DLGFRAME, so bars strip
// these bits before creating their window.)
#define CBRS_ALL 0x0040FFFFL

#define CBRS_NOALIGN 0x00000000L
#define CBRS_LEFT (CBRS_ALIGN_LEFT | CBRS_BORDER_RIGHT)
#define CBRS_TOP (CBRS_ALIGN_TOP | CBRS_BORDER_BOTTOM)
#define CBRS_RIGHT (CBRS_ALIGN_RIGHT | CBRS_BORDER_LEFT)
#define CBRS_BOTTOM (CBRS_ALIGN_BOTTOM | CBRS_BORDER_TOP)
#endif

// ---- CalcDynamicLayout modes ---------------------------------------------------

#define LM_STRETCH 0x01  // stretch across the parent (the frame's width or height)
#define LM_HORZ 0x02     // horizontal, else vertical
#define LM_MRUWIDTH 0x04 // the most recently used width
#define LM_HORZDOCK 0x08 // docked at the top or bottom
#define LM_VERTDOCK 0x10 // docked at the left or right
#define LM_LENGTHY 0x20  // nLength is a height, else a width
#define LM_COMMIT 0x40   // keep the size computed

// ---- Status bar pane styles ----------------------------------------------------

#define SBPS_NORMAL 0x0000
#define SBPS_NOBORDERS SBT_NOBORDERS // 0x0100
#define SBPS_POPOUT SBT_POPOUT       // 0x0200
#define SBPS_OWNERDRAW SBT_OWNERDRAW // 0x1000
#define SBPS_DISABLED 0x04000000     // the text is not shown
#define SBPS_STRETCH 0x08000000      // takes the width the other panes leave

// ---- Toolbar button styles: the control's style in the low word, its state
// in the high word; TBBS_DISABLED is the enabled state bit inverted. ------------

#define TBBS_BUTTON MAKELONG(TBSTYLE_BUTTON, 0)
#define TBBS_SEPARATOR MAKELONG(TBSTYLE_SEP, 0)
#define TBBS_CHECKBOX MAKELONG(TBSTYLE_CHECK, 0)
#define TBBS_GROUP MAKELONG(TBSTYLE_GROUP, 0)
#define TBBS_CHECKGROUP (TBBS_GROUP | TBBS_CHECKBOX)
#define TBBS_DROPDOWN MAKELONG(TBSTYLE_DROPDOWN, 0)
#define TBBS_AUTOSIZE MAKELONG(TBSTYLE_AUTOSIZE, 0)
#define TBBS_NOPREFIX MAKELONG(TBSTYLE_NOPREFIX, 0)
#define TBBS_CHECKED MAKELONG(0, TBSTATE_CHECKED)
#define TBBS_PRESSED MAKELONG(0, TBSTATE_PRESSED)
#define TBBS_DISABLED MAKELONG(0, TBSTATE_ENABLED)
#define TBBS_INDETERMINATE MAKELONG(0, TBSTATE_INDETERMINATE)
#define TBBS_HIDDEN MAKELONG(0, TBSTATE_HIDDEN)
#define TBBS_WRAPPED MAKELONG(0, TBSTATE_WRAP)
#define TBBS_ELLIPSES MAKELONG(0, TBSTATE_ELLIPSES)
#define TBBS_MARKED MAKELONG(0, TBSTATE_MARKED)

// The toolbar resource (RT_TOOLBAR, 241): these words, then wItemCount
// command ids (0 for a separator).
struct CToolBarData {
  WORD wVersion; // 1
  WORD wWidth;   // of one image
  WORD wHeight;
  WORD wItemCount;
  WORD* items() { return (WORD*)(this + 1); }
};

// Moves hWnd to *lpRect (the parent's client coordinates) through the
// layout's deferred positions; nothing when it is there already or when the
// layout only measures (hDWP NULL). With no layout it moves at once.
AFX_API void AFXAPI AfxRepositionWindow(AFX_SIZEPARENTPARAMS* lpLayout, HWND hWnd, LPCRECT lpRect);

// ---- CControlBar ----------------------------------------------------------------

class AFX_API CControlBar : public CWnd {
  DECLARE_DYNAMIC(CControlBar)
protected:
  CControlBar();

public:
  virtual ~CControlBar();

  // The number of panes or buttons.
  int GetCount() const { return m_nCount; }
  // The margins of the bar, inside its window and around its client area.
  void SetBorders(int cxLeft = 0, int cyTop = 0, int cxRight = 0, int cyBottom = 0);
  void SetBorders(LPCRECT lpRect) {
    SetBorders(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
  }
  CRect GetBorders() const {
    return CRect(m_cxLeftBorder, m_cyTopBorder, m_cxRightBorder, m_cyBottomBorder);
  }

  DWORD GetBarStyle() { return m_dwStyle; }
  // Only the bar bits (CBRS_ALL) are kept.
  void SetBarStyle(DWORD dwStyle);
  // The edges the bar may sit at (CBRS_ALIGN_*); kept for the frame.
  void EnableDocking(DWORD dwDockStyle) { m_dwDockStyle = dwDockStyle & CBRS_ALIGN_ANY; }
  // The frame the bar is laid out in (its parent frame).
  class CFrameWnd* GetDockingFrame() const {
    return GetParentFrame();
  }
  // Bars are never floating here.
  BOOL IsFloating() const { return FALSE; }
  virtual BOOL IsDockBar() const { return FALSE; }

  // The bar's size: a fixed one (bStretch: as wide or as high as the parent
  // allows), or for the mode (LM_*) when nLength is -1.
  virtual CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz);
  virtual CSize CalcDynamicLayout(int nLength, DWORD nMode);

  // Updates the bar's items through pTarget's ON_UPDATE_COMMAND_UI handlers.
  virtual void OnUpdateCmdUI(class CFrameWnd* pTarget, BOOL bDisableIfNoHndler) = 0;

  // Shows or hides the bar at the next layout (RepositionBars).
  virtual void DelayShow(BOOL bShow);
  // Visible, counting a pending DelayShow.
  virtual BOOL IsVisible() const;
  // Applies a pending DelayShow when the layout moves windows; the bar
  // style with WS_VISIBLE as the layout should see it.
  virtual DWORD RecalcDelayShow(AFX_SIZEPARENTPARAMS* lpLayout);

  // rect (the bar's window rectangle) less the bar's margins: its client
  // area, where its items go.
  virtual void CalcInsideRect(CRect& rect, BOOL bHorz) const;
  virtual void OnBarStyleChange(DWORD dwOldStyle, DWORD dwNewStyle);

  BOOL m_bAutoDelete; // delete the object when its window goes

  int m_cxLeftBorder, m_cxRightBorder;
  int m_cyTopBorder, m_cyBottomBorder;
  int m_cxDefaultGap; // between items, for bars of the application's own
  UINT m_nMRUWidth;   // MFC's floating width: kept, bars never float here

  int m_nCount;                 // panes or buttons
  void* m_pData;                // the derived class's per-item data
  DWORD m_dwStyle;              // CBRS_* bits
  DWORD m_dwDockStyle;          // edges allowed by EnableDocking
  class CFrameWnd* m_pDockSite; // the frame the bar was created in, or NULL

protected:
  enum { delayHide = 1, delayShow = 2 };
  UINT m_nStateFlags;

  virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
  virtual void PostNcDestroy();
  // Commands and notifications from controls placed on the bar go on to the
  // bar's owner when the bar does not handle them.
  virtual LRESULT WindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam);

  // The target of idle updates: the owner when it is a frame, else the
  // parent frame, else the owner.
  CCmdTarget* GetUpdateTarget() const;

  afx_msg LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnIdleUpdateCmdUI(WPARAM wParam, LPARAM lParam);
  // The borders (m_cxLeftBorder...) lie outside the client area, painted in
  // the button face colour: a control on a bar draws inside them.
  afx_msg LRESULT OnNcCalcSize(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnNcPaint(WPARAM wParam, LPARAM lParam);
  DECLARE_MESSAGE_MAP()
};

// ---- CStatusBar -------------------------------------------------------------------

// One pane: its command id, text width, SBPS_ style and text.
struct AFX_STATUSPANE {
  UINT nID;
  int cxText;
  UINT nStyle;
  UINT nFlags; // SBPF_UPDATE: the text is still to be sent to the control
  CString strText;
};
#define SBPF_UPDATE 0x0001

class AFX_API CStatusBar : public CControlBar {
  DECLARE_DYNAMIC(CStatusBar)
public:
  CStatusBar();
  virtual ~CStatusBar();

  virtual BOOL Create(CWnd* pParentWnd, DWORD dwStyle = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM,
                      UINT nID = AFX_IDW_STATUS_BAR);
  // dwCtrlStyle: the control's own styles (SBARS_SIZEGRIP, SBT_TOOLTIPS).
  virtual BOOL CreateEx(CWnd* pParentWnd, DWORD dwCtrlStyle = 0,
                        DWORD dwStyle = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM,
                        UINT nID = AFX_IDW_STATUS_BAR);

  // One pane per id: its text is the string resource of that id, the pane as
  // wide as the text; ID_SEPARATOR gives an empty pane (the first one
  // stretches). FALSE when a string is missing.
  BOOL SetIndicators(const UINT* lpIDArray, int nIDCount);

  // The index of the pane with the id, -1 when none.
  int CommandToIndex(UINT nIDFind) const;
  UINT GetItemID(int nIndex) const;
  void GetItemRect(int nIndex, LPRECT lpRect) const;

  void GetPaneText(int nIndex, CString& rString) const;
  CString GetPaneText(int nIndex) const;
  BOOL SetPaneText(int nIndex, LPCTSTR lpszNewText, BOOL bUpdate = TRUE);

  void GetPaneInfo(int nIndex, UINT& nID, UINT& nStyle, int& cxWidth) const;
  void SetPaneInfo(int nIndex, UINT nID, UINT nStyle, int cxWidth);
  UINT GetPaneStyle(int nIndex) const;
  void SetPaneStyle(int nIndex, UINT nStyle);

  CStatusBarCtrl& GetStatusBarCtrl() const { return *(CStatusBarCtrl*)this; }

  // Draws an owner-drawn pane (SBPS_OWNERDRAW): reached through the
  // parent's WM_DRAWITEM. Does nothing here.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

  virtual CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz);
  virtual void OnUpdateCmdUI(class CFrameWnd* pTarget, BOOL bDisableIfNoHndler);
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

  // Sends the parts (bUpdateRects) and the texts not yet shown or, with
  // bUpdateText, every text to the control.
  void UpdateAllPanes(BOOL bUpdateRects, BOOL bUpdateText);

  int m_nMinHeight;

protected:
  AFX_STATUSPANE* _GetPanePtr(int nIndex) const;
  // Sends one pane's text and style to the control.
  void SendPaneText(int nIndex);
  void FreePanes();

  // The text of the first ID_SEPARATOR pane is the window's text: the frame
  // puts its messages there with SetWindowText.
  afx_msg LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnGetText(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnGetTextLength(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnSetMinHeight(WPARAM wParam, LPARAM lParam);
  afx_msg void OnSize(UINT nType, int cx, int cy);
  // The size grip lets the mouse through to the frame, which sizes itself.
  afx_msg LRESULT OnNcHitTest(CPoint point);
  DECLARE_MESSAGE_MAP()
};

// ---- CToolBar ---------------------------------------------------------------------

class AFX_API CToolBar : public CControlBar {
  DECLARE_DYNAMIC(CToolBar)
public:
  CToolBar();
  virtual ~CToolBar();

  virtual BOOL Create(CWnd* pParentWnd, DWORD dwStyle = WS_CHILD | WS_VISIBLE | CBRS_TOP,
                      UINT nID = AFX_IDW_TOOLBAR);
  // dwCtrlStyle: the control's own styles (TBSTYLE_FLAT, TBSTYLE_LIST...).
  virtual BOOL CreateEx(CWnd* pParentWnd, DWORD dwCtrlStyle = TBSTYLE_FLAT,
                        DWORD dwStyle = WS_CHILD | WS_VISIBLE | CBRS_ALIGN_TOP,
                        CRect rcBorders = CRect(0, 0, 0, 0), UINT nID = AFX_IDW_TOOLBAR);

  // Button size (at least the image size plus 7 by 6) and image size; before
  // the bitmap is loaded.
  void SetSizes(SIZE sizeButton, SIZE sizeImage);
  void SetHeight(int cyHeight);

  // The toolbar resource of that name (RT_TOOLBAR) and the bitmap of the
  // same name: sizes, images and buttons. FALSE when either is missing or
  // malformed.
  BOOL LoadToolBar(LPCTSTR lpszResourceName);
  BOOL LoadToolBar(UINT nIDResource) { return LoadToolBar(MAKEINTRESOURCE(nIDResource)); }
  // The button images, with the standard greys made the system's colours.
  BOOL LoadBitmap(LPCTSTR lpszResourceName);
  BOOL LoadBitmap(UINT nIDResource) { return LoadBitmap(MAKEINTRESOURCE(nIDResource)); }
  BOOL SetBitmap(HBITMAP hbmImageWell);
  // One button per id, images in order; ID_SEPARATOR gives a separator.
  // With no ids, nIDCount separators to be filled with SetButtonInfo.
  BOOL SetButtons(const UINT* lpIDArray, int nIDCount);

  int CommandToIndex(UINT nIDFind) const;
  UINT GetItemID(int nIndex) const;
  virtual void GetItemRect(int nIndex, LPRECT lpRect) const;
  UINT GetButtonStyle(int nIndex) const;
  void SetButtonStyle(int nIndex, UINT nStyle);
  // For a separator, iImage is its width.
  void GetButtonInfo(int nIndex, UINT& nID, UINT& nStyle, int& iImage) const;
  void SetButtonInfo(int nIndex, UINT nID, UINT nStyle, int iImage);

  CToolBarCtrl& GetToolBarCtrl() const { return *(CToolBarCtrl*)this; }

  virtual CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz);
  virtual void OnUpdateCmdUI(class CFrameWnd* pTarget, BOOL bDisableIfNoHndler);

  CSize m_sizeButton;
  CSize m_sizeImage;
  HBITMAP m_hbmImageWell; // the loaded bitmap, owned

protected:
  // The button at nIndex with its state's enabled bit inverted (TBBS_ form).
  BOOL GetButtonRaw(int nIndex, TBBUTTON* pButton) const;
  void SetButtonRaw(int nIndex, const TBBUTTON* pButton);
  // The size of one row (bHorz) or column of the buttons, borders included.
  CSize CalcSize(BOOL bHorz) const;
  CSize GetControlMargin() const;
  // Marks the buttons TBBS_WRAPPED for a column (!bHorz), clears the marks
  // for a row.
  void WrapButtons(BOOL bHorz);

  // With CBRS_FLYBY the owner is told of the button under the mouse
  // (WM_SETMESSAGESTRING with its id) and of the mouse leaving the buttons
  // (WM_POPMESSAGESTRING with AFX_IDS_IDLEMESSAGE).
  UINT m_nFlyByID; // the button the owner was last told of, 0 for none
  afx_msg void OnMouseMove(UINT nFlags, CPoint point);
  afx_msg LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);
  DECLARE_MESSAGE_MAP()
};

// ---- CDialogBar ---------------------------------------------------------------------

// A bar made from a dialog template: its controls' commands and
// notifications go to the owner (the frame), which routes them; the controls
// are enabled, checked and captioned by the owner's ON_UPDATE_COMMAND_UI
// handlers at idle time. At the top or bottom it is as high as the template
// and as wide as the frame; at the left or right, as wide as the template.
// The template must be a WS_CHILD dialog without WS_VISIBLE; the bar shows
// itself once made. Keys typed in it work the frame's accelerators first,
// then the dialog's navigation (Tab, mnemonics).
class AFX_API CDialogBar : public CControlBar {
  DECLARE_DYNAMIC(CDialogBar)
public:
  CDialogBar();
  virtual ~CDialogBar();

  // nStyle: CBRS_ alignment (and other bar) styles; nID: the bar's child id.
  virtual BOOL Create(CWnd* pParentWnd, LPCTSTR lpszTemplateName, UINT nStyle, UINT nID);
  virtual BOOL Create(CWnd* pParentWnd, UINT nIDTemplate, UINT nStyle, UINT nID) {
    return Create(pParentWnd, MAKEINTRESOURCE(nIDTemplate), nStyle, nID);
  }

  virtual CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz);
  virtual void OnUpdateCmdUI(class CFrameWnd* pTarget, BOOL bDisableIfNoHndler);
  virtual BOOL PreTranslateMessage(MSG* pMsg);

  CSize m_sizeDefault; // the template's size with the bar's margins
};

#endif // AFXBAR__H
