// afxcmnbar_.h: the status bar and toolbar common controls (CStatusBarCtrl,
// CToolBarCtrl); included by afxcmn.h. Thin wrappers: each member is the
// control's own message. CStatusBar and CToolBar hand out their window as
// these classes (GetStatusBarCtrl, GetToolBarCtrl), so the wrappers hold no
// data of their own.
#ifndef AFXCMNBAR__H
#define AFXCMNBAR__H

class AFX_API CStatusBarCtrl : public CWnd {
  DECLARE_DYNAMIC(CStatusBarCtrl)
public:
  CStatusBarCtrl() {}
  virtual ~CStatusBarCtrl();
  // A child status bar (STATUSCLASSNAME); the common controls are
  // initialised first.
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // nType: 0, SBT_NOBORDERS, SBT_POPOUT, SBT_RTLREADING or SBT_OWNERDRAW.
  BOOL SetText(LPCTSTR lpszText, int nPane, int nType) {
    return (BOOL)::SendMessage(m_hWnd, SB_SETTEXT, (WPARAM)(nPane | nType), (LPARAM)lpszText);
  }
  // The pane's text length; *pType receives its drawing type.
  int GetText(LPTSTR lpszText, int nPane, int* pType = NULL) const;
  CString GetText(int nPane, int* pType = NULL) const;
  int GetTextLength(int nPane, int* pType = NULL) const;
  // Right edges of the parts (-1: up to the right border).
  BOOL SetParts(int nParts, int* pWidths) {
    return (BOOL)::SendMessage(m_hWnd, SB_SETPARTS, nParts, (LPARAM)pWidths);
  }
  int GetParts(int nParts, int* pParts) const {
    return (int)::SendMessage(m_hWnd, SB_GETPARTS, nParts, (LPARAM)pParts);
  }
  // Horizontal border, vertical border and the gap between parts.
  BOOL GetBorders(int* pBorders) const {
    return (BOOL)::SendMessage(m_hWnd, SB_GETBORDERS, 0, (LPARAM)pBorders);
  }
  BOOL GetBorders(int& nHorz, int& nVert, int& nSpacing) const;
  void SetMinHeight(int nMin) { ::SendMessage(m_hWnd, SB_SETMINHEIGHT, nMin, 0); }
  BOOL SetSimple(BOOL bSimple = TRUE) { return (BOOL)::SendMessage(m_hWnd, SB_SIMPLE, bSimple, 0); }
  BOOL IsSimple() const { return (BOOL)::SendMessage(m_hWnd, SB_ISSIMPLE, 0, 0); }
  BOOL GetRect(int nPane, LPRECT lpRect) const {
    return (BOOL)::SendMessage(m_hWnd, SB_GETRECT, nPane, (LPARAM)lpRect);
  }
  void SetTipText(int nPane, LPCTSTR pszTipText) {
    ::SendMessage(m_hWnd, SB_SETTIPTEXT, nPane, (LPARAM)pszTipText);
  }
  BOOL SetIcon(int nPane, HICON hIcon) {
    return (BOOL)::SendMessage(m_hWnd, SB_SETICON, nPane, (LPARAM)hIcon);
  }
  COLORREF SetBkColor(COLORREF cr) {
    return (COLORREF)::SendMessage(m_hWnd, SB_SETBKCOLOR, 0, (LPARAM)cr);
  }
};

class AFX_API CToolBarCtrl : public CWnd {
  DECLARE_DYNAMIC(CToolBarCtrl)
public:
  CToolBarCtrl() {}
  virtual ~CToolBarCtrl();
  // A child toolbar (TOOLBARCLASSNAME), told the size of TBBUTTON.
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetButtonCount() const { return (int)::SendMessage(m_hWnd, TB_BUTTONCOUNT, 0, 0); }
  BOOL GetButton(int nIndex, LPTBBUTTON lpButton) const {
    return (BOOL)::SendMessage(m_hWnd, TB_GETBUTTON, nIndex, (LPARAM)lpButton);
  }
  BOOL AddButtons(int nNumButtons, LPTBBUTTON lpButtons) {
    return (BOOL)::SendMessage(m_hWnd, TB_ADDBUTTONS, nNumButtons, (LPARAM)lpButtons);
  }
  BOOL InsertButton(int nIndex, LPTBBUTTON lpButton) {
    return (BOOL)::SendMessage(m_hWnd, TB_INSERTBUTTON, nIndex, (LPARAM)lpButton);
  }
  BOOL DeleteButton(int nIndex) { return (BOOL)::SendMessage(m_hWnd, TB_DELETEBUTTON, nIndex, 0); }
  // The index of the button with the command id, -1 when none.
  int CommandToIndex(UINT nID) const {
    return (int)::SendMessage(m_hWnd, TB_COMMANDTOINDEX, nID, 0);
  }
  BOOL GetItemRect(int nIndex, LPRECT lpRect) const {
    return (BOOL)::SendMessage(m_hWnd, TB_GETITEMRECT, nIndex, (LPARAM)lpRect);
  }
  // Adds nNumButtons images from the bitmap; the index of the first.
  int AddBitmap(int nNumButtons, CBitmap* pBitmap);
  int AddBitmap(int nNumButtons, UINT nBitmapID);
  BOOL SetBitmapSize(CSize size) {
    return (BOOL)::SendMessage(m_hWnd, TB_SETBITMAPSIZE, 0, MAKELPARAM(size.cx, size.cy));
  }
  BOOL SetButtonSize(CSize size) {
    return (BOOL)::SendMessage(m_hWnd, TB_SETBUTTONSIZE, 0, MAKELPARAM(size.cx, size.cy));
  }
  CSize GetButtonSize() const;
  void AutoSize() { ::SendMessage(m_hWnd, TB_AUTOSIZE, 0, 0); }
  CImageList* GetImageList() const {
    return CImageList::FromHandle((HIMAGELIST)::SendMessage(m_hWnd, TB_GETIMAGELIST, 0, 0));
  }
  CImageList* SetImageList(CImageList* pImageList) {
    return CImageList::FromHandle(
        (HIMAGELIST)::SendMessage(m_hWnd, TB_SETIMAGELIST, 0, (LPARAM)pImageList->GetSafeHandle()));
  }
  // The TBSTATE_ flags of the button with the command id, -1 when none.
  int GetState(int nID) const { return (int)::SendMessage(m_hWnd, TB_GETSTATE, nID, 0); }
  BOOL SetState(int nID, UINT nState) {
    return (BOOL)::SendMessage(m_hWnd, TB_SETSTATE, nID, MAKELPARAM(nState, 0));
  }
  BOOL EnableButton(int nID, BOOL bEnable = TRUE) {
    return (BOOL)::SendMessage(m_hWnd, TB_ENABLEBUTTON, nID, MAKELPARAM(bEnable, 0));
  }
  BOOL CheckButton(int nID, BOOL bCheck = TRUE) {
    return (BOOL)::SendMessage(m_hWnd, TB_CHECKBUTTON, nID, MAKELPARAM(bCheck, 0));
  }
  BOOL PressButton(int nID, BOOL bPress = TRUE) {
    return (BOOL)::SendMessage(m_hWnd, TB_PRESSBUTTON, nID, MAKELPARAM(bPress, 0));
  }
  BOOL HideButton(int nID, BOOL bHide = TRUE) {
    return (BOOL)::SendMessage(m_hWnd, TB_HIDEBUTTON, nID, MAKELPARAM(bHide, 0));
  }
  BOOL Indeterminate(int nID, BOOL bIndeterminate = TRUE) {
    return (BOOL)::SendMessage(m_hWnd, TB_INDETERMINATE, nID, MAKELPARAM(bIndeterminate, 0));
  }
  BOOL IsButtonEnabled(int nID) const {
    return (BOOL)::SendMessage(m_hWnd, TB_ISBUTTONENABLED, nID, 0);
  }
  BOOL IsButtonChecked(int nID) const {
    return (BOOL)::SendMessage(m_hWnd, TB_ISBUTTONCHECKED, nID, 0);
  }
  BOOL IsButtonPressed(int nID) const {
    return (BOOL)::SendMessage(m_hWnd, TB_ISBUTTONPRESSED, nID, 0);
  }
  BOOL IsButtonHidden(int nID) const {
    return (BOOL)::SendMessage(m_hWnd, TB_ISBUTTONHIDDEN, nID, 0);
  }
  BOOL GetButtonInfo(int nID, TBBUTTONINFO* ptbbi) const {
    return (BOOL)::SendMessage(m_hWnd, TB_GETBUTTONINFO, nID, (LPARAM)ptbbi);
  }
  BOOL SetButtonInfo(int nID, TBBUTTONINFO* ptbbi) {
    return (BOOL)::SendMessage(m_hWnd, TB_SETBUTTONINFO, nID, (LPARAM)ptbbi);
  }
  DWORD GetStyle() const { return (DWORD)::SendMessage(m_hWnd, TB_GETSTYLE, 0, 0); }
  void SetStyle(DWORD dwStyle) { ::SendMessage(m_hWnd, TB_SETSTYLE, 0, dwStyle); }
  int GetRows() const { return (int)::SendMessage(m_hWnd, TB_GETROWS, 0, 0); }
  void SetOwner(CWnd* pWnd) { ::SendMessage(m_hWnd, TB_SETPARENT, (WPARAM)pWnd->GetSafeHwnd(), 0); }
};

#endif // AFXCMNBAR__H
