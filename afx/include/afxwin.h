// afxwin.h - the application framework: command targets, windows, dialogs
// and controls, threads, the application object, frames, documents and
// views, message boxes and the module's resources.
#ifndef __AFXWIN_H__
#define __AFXWIN_H__

#include "afx.h"
#include "afxcoll.h"
#include "afxres.h"

#include "atltypes.h"

class CWnd;
class CCmdTarget;
class CCmdUI;
class CWinThread;
class CWinApp;
class CDynLinkLibrary;
class CMenu;
class CScrollBar;
class CDataExchange;
class CDocument;
class CDocTemplate;
class CDocManager;
struct CCreateContext;

// Marks the message handlers of a class.
#define afx_msg

#include "afxstat_.h"
#include "afxgdi_.h"

// ---- Message maps -------------------------------------------------------------

#define AFX_MSG_CALL
typedef void (AFX_MSG_CALL CCmdTarget::*AFX_PMSG)(void);
typedef void (AFX_MSG_CALL CWnd::*AFX_PMSGW)(void);

struct AFX_MSGMAP_ENTRY {
  UINT nMessage; // the window message
  UINT nCode;    // the control code or WM_NOTIFY code
  UINT nID;      // the control id (or 0 for window messages)
  UINT nLastID;  // the last id of a range
  UINT_PTR nSig; // the handler signature (AfxSig), or a registered message's variable
  AFX_PMSG pfn;  // the handler
};

struct AFX_MSGMAP {
  const AFX_MSGMAP*(PASCAL* pfnGetBaseMap)();
  const AFX_MSGMAP_ENTRY* lpEntries;
};

#define DECLARE_MESSAGE_MAP()                                                                      \
protected:                                                                                         \
  static const AFX_MSGMAP* PASCAL GetThisMessageMap();                                             \
  virtual const AFX_MSGMAP* GetMessageMap() const;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                     \
  const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); }                \
  const AFX_MSGMAP* PASCAL theClass::GetThisMessageMap() {                                         \
    /* the ON_WM_ entries name their handlers through ThisClass; a map */                          \
    /* of ON_MESSAGE and ON_COMMAND entries alone leaves it unused */                              \
    [[maybe_unused]] typedef theClass ThisClass;                                                   \
    typedef baseClass TheBaseClass;                                                                \
    static const AFX_MSGMAP_ENTRY _messageEntries[] = {

#define END_MESSAGE_MAP()                                                                          \
  { 0, 0, 0, 0, AfxSig_end, (AFX_PMSG)0 }                                                          \
  }                                                                                                \
  ;                                                                                                \
  static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, &_messageEntries[0]};    \
  return &messageMap;                                                                              \
  }

// The entry of lpEntry's table (ending with AfxSig_end) for the message, code
// and id, or NULL.
AFX_API const AFX_MSGMAP_ENTRY* AFXAPI AfxFindMessageEntry(const AFX_MSGMAP_ENTRY* lpEntry,
                                                           UINT nMsg, UINT nCode, UINT nID);

// What OnCmdMsg reports instead of calling, when asked with a handler info.
struct AFX_CMDHANDLERINFO {
  CCmdTarget* pTarget;
  AFX_PMSG pmf;
};

// The extra argument of OnCmdMsg for WM_NOTIFY.
struct AFX_NOTIFY {
  LRESULT* pResult;
  NMHDR* pNMHDR;
};

// WM_CTLCOLOR's parameters as afx passes them to OnCtlColor entries.
struct AFX_CTLCOLOR {
  HWND hWnd;
  HDC hDC;
  UINT nCtlType;
};

// ---- CCmdTarget -------------------------------------------------------------

// The base of every class that receives commands: OnCmdMsg searches the
// class's message map, then its base classes' maps.
class AFX_API CCmdTarget : public CObject {
  DECLARE_DYNAMIC(CCmdTarget)
public:
  CCmdTarget();
  virtual ~CCmdTarget();

  // Routes a command (nCode CN_COMMAND, CN_UPDATE_COMMAND_UI or a control
  // code; the high word may carry a message such as WM_NOTIFY). With
  // pHandlerInfo, only reports whether a handler exists.
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

  // The hourglass while a long job runs: Begin and End nest (through the
  // application's DoWaitCursor); Restore shows it again after something,
  // such as a message box, changed the cursor.
  void BeginWaitCursor();
  void EndWaitCursor();
  void RestoreWaitCursor();

protected:
  static const AFX_MSGMAP* PASCAL GetThisMessageMap();
  virtual const AFX_MSGMAP* GetMessageMap() const;
};

#include "afxmsg_.h"

// ---- CCmdUI -------------------------------------------------------------------

// The user-interface item of one command being updated (a menu item or a
// control); handlers of ON_UPDATE_COMMAND_UI set its state.
class AFX_API CCmdUI {
public:
  CCmdUI();
  virtual ~CCmdUI() {}

  UINT m_nID;
  UINT m_nIndex;     // the menu item's position
  CMenu* m_pMenu;    // the menu, or NULL
  CMenu* m_pSubMenu; // the popup the item opens, or NULL
  CMenu* m_pParentMenu;
  CWnd* m_pOther; // the control, or NULL
  BOOL m_bEnableChanged;
  BOOL m_bContinueRouting;
  UINT m_nIndexMax;

  virtual void Enable(BOOL bOn = TRUE);
  virtual void SetCheck(int nCheck = 1); // 0 clear, 1 checked, 2 indeterminate
  virtual void SetRadio(BOOL bOn = TRUE);
  virtual void SetText(LPCTSTR lpszText);
  void ContinueRouting() { m_bContinueRouting = TRUE; }

  // Sends the update through pTarget; with bDisableIfNoHndler an item that
  // has no command handler is disabled.
  BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);
};

// The bitmap of the radio dot that CCmdUI::SetRadio puts in menu items,
// shared by the whole process.
AFX_API HBITMAP AFXAPI AfxGetRadioDotBitmap();

// ---- CWnd -----------------------------------------------------------------------

// The window class names afx registers (AfxRegisterWndClass makes more).
#define AFX_WND "AfxWnd90s"
#define AFX_WNDCONTROLBAR "AfxControlBar90s"
#define AFX_WNDMDIFRAME "AfxMDIFrame90s"
#define AFX_WNDFRAMEORVIEW "AfxFrameOrView90s"

// Sent to a window to learn whether its procedure is afx's (it answers 1).
#define WM_QUERYAFXWNDPROC 0x0360
// Sent by UpdateDialogControls / idle processing to update controls.
#define WM_IDLEUPDATECMDUI 0x0363
// Sent to a dialog's owner as a dialog opens (afx's kick-idle message).
#define WM_KICKIDLE 0x036A

// Flags of CWnd::RepositionBars, RunModalLoop and the WM_QUERYAFXWNDPROC family.
#define MLF_NOIDLEMSG 0x0001
#define MLF_NOKICKIDLE 0x0002
#define MLF_SHOWONIDLE 0x0004

// winuser.h names these as macros; CWnd has members of the same names.
#undef GetNextWindow

class AFX_API CWnd : public CCmdTarget {
  DECLARE_DYNCREATE(CWnd)
public:
  HWND m_hWnd;

  CWnd();
  explicit CWnd(HWND hWnd); // attached temporarily, as in MFC's CWnd(HWND)
  // Destroys the window if it is still attached.
  virtual ~CWnd();

  operator HWND() const { return AfxIsNullObject(this) ? NULL : m_hWnd; }
  HWND GetSafeHwnd() const { return AfxIsNullObject(this) ? NULL : m_hWnd; }
  BOOL operator==(const CWnd& wnd) const { return wnd.m_hWnd == m_hWnd; }
  BOOL operator!=(const CWnd& wnd) const { return wnd.m_hWnd != m_hWnd; }

  // ---- Handle map
  static CWnd* PASCAL FromHandle(HWND hWnd);
  static CWnd* PASCAL FromHandlePermanent(HWND hWnd);
  static void PASCAL DeleteTempMap();
  BOOL Attach(HWND hWndNew);
  HWND Detach();

  // ---- Subclassing
  BOOL SubclassWindow(HWND hWnd);
  BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
  HWND UnsubclassWindow();

  // ---- Creation
  virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                      const RECT& rect, CWnd* pParentWnd, UINT nID,
                      CCreateContext* pContext = NULL);
  virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName,
                        DWORD dwStyle, int x, int y, int nWidth, int nHeight, HWND hWndParent,
                        HMENU nIDorHMenu, LPVOID lpParam = NULL);
  virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName,
                        DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID,
                        LPVOID lpParam = NULL);
  virtual BOOL DestroyWindow();

  // ---- Styles
  DWORD GetStyle() const { return (DWORD)::GetWindowLong(m_hWnd, GWL_STYLE); }
  DWORD GetExStyle() const { return (DWORD)::GetWindowLong(m_hWnd, GWL_EXSTYLE); }
  BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
  BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
  static BOOL PASCAL ModifyStyle(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags);
  static BOOL PASCAL ModifyStyleEx(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags);

  // ---- Messages
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return ::SendMessage(m_hWnd, message, wParam, lParam);
  }
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return ::PostMessage(m_hWnd, message, wParam, lParam);
  }
  BOOL SendNotifyMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendNotifyMessage(m_hWnd, message, wParam, lParam);
  }
  // Sends the message to every descendant (bDeep) or child; with bOnlyPerm
  // only to windows that have a permanent CWnd.
  void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0,
                                BOOL bDeep = TRUE, BOOL bOnlyPerm = FALSE);
  static void PASCAL SendMessageToDescendants(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam,
                                              BOOL bDeep, BOOL bOnlyPerm);
  // The message now being handled (the thread's last sent message).
  static const MSG* PASCAL GetCurrentMessage();

  // ---- Text and font
  void SetWindowText(LPCTSTR lpszString) { ::SetWindowText(m_hWnd, lpszString); }
  int GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const {
    return ::GetWindowText(m_hWnd, lpszStringBuf, nMaxCount);
  }
  void GetWindowText(CString& rString) const;
  int GetWindowTextLength() const { return ::GetWindowTextLength(m_hWnd); }
  void SetFont(CFont* pFont, BOOL bRedraw = TRUE) {
    ::SendMessage(m_hWnd, WM_SETFONT, (WPARAM)pFont->GetSafeHandle(), bRedraw);
  }
  CFont* GetFont() const {
    return CFont::FromHandle((HFONT)::SendMessage(m_hWnd, WM_GETFONT, 0, 0));
  }

  // ---- Size and position
  void GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
  void GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }
  void ClientToScreen(LPPOINT lpPoint) const { ::ClientToScreen(m_hWnd, lpPoint); }
  void ClientToScreen(LPRECT lpRect) const;
  void ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }
  void ScreenToClient(LPRECT lpRect) const;
  void MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const {
    ::MapWindowPoints(m_hWnd, pwndTo->GetSafeHwnd(), lpPoint, nCount);
  }
  void MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const {
    ::MapWindowPoints(m_hWnd, pwndTo->GetSafeHwnd(), (LPPOINT)lpRect, 2);
  }
  void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE) {
    ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
  }
  void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE) {
    MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left,
               lpRect->bottom - lpRect->top, bRepaint);
  }
  BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags) {
    return ::SetWindowPos(m_hWnd, pWndInsertAfter->GetSafeHwnd(), x, y, cx, cy, nFlags);
  }
  void CenterWindow(CWnd* pAlternateOwner = NULL);
  BOOL GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const {
    lpwndpl->length = sizeof(WINDOWPLACEMENT);
    return ::GetWindowPlacement(m_hWnd, lpwndpl);
  }
  BOOL SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl) {
    return ::SetWindowPlacement(m_hWnd, lpwndpl);
  }

  // ---- Clipboard and shell
  BOOL OpenClipboard() { return ::OpenClipboard(m_hWnd); }
  // Whether files dropped from the shell arrive as WM_DROPFILES.
  void DragAcceptFiles(BOOL bAccept = TRUE) { ::DragAcceptFiles(m_hWnd, bAccept); }

  // ---- State
  BOOL ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
  BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
  BOOL EnableWindow(BOOL bEnable = TRUE) { return ::EnableWindow(m_hWnd, bEnable); }
  BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
  BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
  BOOL IsZoomed() const { return ::IsZoomed(m_hWnd); }
  BOOL IsChild(const CWnd* pWnd) const { return ::IsChild(m_hWnd, pWnd->GetSafeHwnd()); }
  int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
  int SetDlgCtrlID(int nID) { return (int)::SetWindowLong(m_hWnd, GWL_ID, nID); }

  // ---- Focus, capture, activation
  static CWnd* PASCAL GetFocus() { return FromHandle(::GetFocus()); }
  CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
  static CWnd* PASCAL GetCapture() { return FromHandle(::GetCapture()); }
  CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
  static CWnd* PASCAL GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
  CWnd* SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
  BOOL SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
  static CWnd* PASCAL GetForegroundWindow() { return FromHandle(::GetForegroundWindow()); }
  static CWnd* PASCAL GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }
  static CWnd* PASCAL WindowFromPoint(POINT point) { return FromHandle(::WindowFromPoint(point)); }
  static CWnd* PASCAL FindWindow(LPCTSTR lpszClassName, LPCTSTR lpszWindowName) {
    return FromHandle(::FindWindow(lpszClassName, lpszWindowName));
  }

  // ---- Timers
  UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse,
                    void(CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD) = NULL) {
    return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
  }
  BOOL KillTimer(UINT_PTR nIDEvent) { return ::KillTimer(m_hWnd, nIDEvent); }

  // ---- Painting
  CDC* GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
  CDC* GetWindowDC() { return CDC::FromHandle(::GetWindowDC(m_hWnd)); }
  int ReleaseDC(CDC* pDC) { return ::ReleaseDC(m_hWnd, pDC->GetSafeHdc()); }
  CDC* BeginPaint(LPPAINTSTRUCT lpPaint) { return CDC::FromHandle(::BeginPaint(m_hWnd, lpPaint)); }
  void EndPaint(LPPAINTSTRUCT lpPaint) { ::EndPaint(m_hWnd, lpPaint); }
  void Invalidate(BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, NULL, bErase); }
  void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE) {
    ::InvalidateRect(m_hWnd, lpRect, bErase);
  }
  void InvalidateRgn(CRgn* pRgn, BOOL bErase = TRUE) {
    ::InvalidateRgn(m_hWnd, (HRGN)pRgn->GetSafeHandle(), bErase);
  }
  void ValidateRect(LPCRECT lpRect) { ::ValidateRect(m_hWnd, lpRect); }
  void UpdateWindow() { ::UpdateWindow(m_hWnd); }
  BOOL RedrawWindow(LPCRECT lpRectUpdate = NULL, CRgn* prgnUpdate = NULL,
                    UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE) {
    return ::RedrawWindow(m_hWnd, lpRectUpdate, (HRGN)prgnUpdate->GetSafeHandle(), flags);
  }
  void SetRedraw(BOOL bRedraw = TRUE) { ::SendMessage(m_hWnd, WM_SETREDRAW, bRedraw, 0); }
  BOOL GetUpdateRect(LPRECT lpRect, BOOL bErase = FALSE) {
    return ::GetUpdateRect(m_hWnd, lpRect, bErase);
  }

  // ---- Relatives
  CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
  CWnd* SetParent(CWnd* pWndNewParent) {
    return FromHandle(::SetParent(m_hWnd, pWndNewParent->GetSafeHwnd()));
  }
  CWnd* GetOwner() const;
  void SetOwner(CWnd* pOwnerWnd) { m_hWndOwner = pOwnerWnd != NULL ? pOwnerWnd->m_hWnd : NULL; }
  CWnd* GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }
  CWnd* GetTopWindow() const { return FromHandle(::GetTopWindow(m_hWnd)); }
  CWnd* GetNextWindow(UINT nFlag = GW_HWNDNEXT) const {
    return FromHandle(::GetWindow(m_hWnd, nFlag));
  }
  CWnd* GetLastActivePopup() const { return FromHandle(::GetLastActivePopup(m_hWnd)); }
  // The first frame window (CFrameWnd) among the ancestors, or NULL.
  class CFrameWnd* GetParentFrame() const;
  class CFrameWnd* GetTopLevelFrame() const;
  // The top-level ancestor (the window itself when it is not a child).
  CWnd* GetTopLevelParent() const;
  CWnd* GetTopLevelOwner() const;
  CWnd* GetDescendantWindow(int nID, BOOL bOnlyPerm = FALSE) const;

  // Lays out the control bars among the children whose ids lie in
  // [nIDFirst, nIDLast] (WM_SIZEPARENT) and gives what is left to child
  // nIDLeftOver (reposQuery: only computes it into lpRectParam).
  enum RepositionFlags {
    reposDefault = 0,
    reposQuery = 1,
    reposExtra = 2,
    reposNoPosLeftOver = 0x8000
  };
  void RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlag = reposDefault,
                      LPRECT lpRectParam = NULL, LPCRECT lpRectClient = NULL, BOOL bStretch = TRUE);
  static BOOL PASCAL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);

  // ---- Dialog items
  CWnd* GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
  void GetDlgItem(int nID, HWND* phWnd) const { *phWnd = ::GetDlgItem(m_hWnd, nID); }
  void SetDlgItemText(int nID, LPCTSTR lpszString) { ::SetDlgItemText(m_hWnd, nID, lpszString); }
  int GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const {
    return ::GetDlgItemText(m_hWnd, nID, lpStr, nMaxCount);
  }
  int GetDlgItemText(int nID, CString& rString) const;
  void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE) {
    ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned);
  }
  UINT GetDlgItemInt(int nID, BOOL* lpTrans = NULL, BOOL bSigned = TRUE) const {
    return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned);
  }
  void CheckDlgButton(int nIDButton, UINT nCheck) { ::CheckDlgButton(m_hWnd, nIDButton, nCheck); }
  UINT IsDlgButtonChecked(int nIDButton) const { return ::IsDlgButtonChecked(m_hWnd, nIDButton); }
  void CheckRadioButton(int nIDFirst, int nIDLast, int nIDCheck) {
    ::CheckRadioButton(m_hWnd, nIDFirst, nIDLast, nIDCheck);
  }
  LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return ::SendDlgItemMessage(m_hWnd, nID, message, wParam, lParam);
  }
  CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const {
    return FromHandle(::GetNextDlgTabItem(m_hWnd, pWndCtl->GetSafeHwnd(), bPrevious));
  }
  CWnd* GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const {
    return FromHandle(::GetNextDlgGroupItem(m_hWnd, pWndCtl->GetSafeHwnd(), bPrevious));
  }
  // Reads the controls into members (TRUE) or writes them (FALSE) through
  // DoDataExchange; FALSE when a validation failed.
  BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
  // Sends WM_IDLEUPDATECMDUI's update to the child controls (pTarget's handlers).
  void UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);

  // ---- Menus
  CMenu* GetMenu() const;
  BOOL SetMenu(CMenu* pMenu);
  void DrawMenuBar() { ::DrawMenuBar(m_hWnd); }
  CMenu* GetSystemMenu(BOOL bRevert) const;

  // ---- Scrolling
  int GetScrollPos(int nBar) const { return ::GetScrollPos(m_hWnd, nBar); }
  int SetScrollPos(int nBar, int nPos, BOOL bRedraw = TRUE) {
    return ::SetScrollPos(m_hWnd, nBar, nPos, bRedraw);
  }
  void SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw = TRUE) {
    ::SetScrollRange(m_hWnd, nBar, nMinPos, nMaxPos, bRedraw);
  }
  BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
  BOOL SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
  void ShowScrollBar(UINT nBar, BOOL bShow = TRUE) { ::ShowScrollBar(m_hWnd, nBar, bShow); }
  // The highest position the thumb can reach: the range's maximum less the
  // page (less one), never below the minimum.
  int GetScrollLimit(int nBar);
  // The scroll bar control that stands for the window's own bar nBar (a
  // splitter's shared bar); NULL here: the window's own bars are used.
  virtual CScrollBar* GetScrollBarCtrl(int nBar) const;
  // Shows (bEnable) or hides the window's own bar(s): SB_HORZ, SB_VERT or
  // SB_BOTH.
  void EnableScrollBarCtrl(int nBar, BOOL bEnable = TRUE);
  BOOL EnableScrollBar(int nSBFlags, UINT nArrowFlags = ESB_ENABLE_BOTH) {
    return ::EnableScrollBar(m_hWnd, nSBFlags, nArrowFlags);
  }
  void ScrollWindow(int xAmount, int yAmount, LPCRECT lpRect = NULL, LPCRECT lpClipRect = NULL) {
    ::ScrollWindow(m_hWnd, xAmount, yAmount, lpRect, lpClipRect);
  }

  // ---- Message boxes and help
  int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = NULL, UINT nType = MB_OK);
  BOOL SetWindowContextHelpId(DWORD dwContextHelpId) {
    return ::SetWindowContextHelpId(m_hWnd, dwContextHelpId);
  }
  DWORD GetWindowContextHelpId() const { return ::GetWindowContextHelpId(m_hWnd); }

  // ---- Overridables
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
  virtual void PreSubclassWindow();
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  virtual void PostNcDestroy();
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
  virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  // A notification of this control's parent, offered to the control first;
  // TRUE when the control handled it (reflection).
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  virtual void DoDataExchange(CDataExchange* pDX);
  virtual BOOL ContinueModal();
  virtual void EndModalLoop(int nResult);
  virtual WNDPROC* GetSuperWndProcAddr();
  virtual BOOL OnToolHitTest(CPoint point, void* pTI) const {
    (void)point, (void)pTI;
    return FALSE;
  }
  virtual BOOL DestroyWindowOnDetach() { return TRUE; }
  virtual void CalcWindowRect(LPRECT lpClientRect, UINT nAdjustType = 0);

  // Passes the message being handled on to the default procedure.
  LRESULT Default();
  // Offers the message being handled to the child control hWndChild.
  static BOOL PASCAL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = NULL);
  BOOL SendChildNotifyLastMsg(LRESULT* pResult = NULL);
  BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  // Runs a modal message loop until EndModalLoop; returns its result.
  int RunModalLoop(DWORD dwFlags = 0);
  BOOL ExecuteDlgInit(LPCTSTR lpszResourceName);

  // ---- Message handlers that derived classes may put in their maps
  // (each passes the message on to the default procedure).
  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg void OnDestroy();
  afx_msg void OnNcDestroy();
  afx_msg void OnClose();
  afx_msg void OnPaint();
  afx_msg BOOL OnEraseBkgnd(CDC* pDC);
  afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
  afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);
  afx_msg void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  afx_msg void OnDeleteItem(int nIDCtl, LPDELETEITEMSTRUCT lpDeleteItemStruct);
  afx_msg int OnCompareItem(int nIDCtl, LPCOMPAREITEMSTRUCT lpCompareItemStruct);
  afx_msg void OnSysColorChange();
  afx_msg void OnPaletteChanged(CWnd* pFocusWnd);
  afx_msg BOOL OnQueryNewPalette();
  afx_msg void OnSettingChange(UINT uFlags, LPCTSTR lpszSection);
  afx_msg void OnCancelMode();
  afx_msg UINT OnGetDlgCode();
  afx_msg void OnMouseMove(UINT nFlags, CPoint point);
  afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
  afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
  afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
  afx_msg void OnRButtonDblClk(UINT nFlags, CPoint point);
  afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
  afx_msg void OnMButtonDblClk(UINT nFlags, CPoint point);
  afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
  afx_msg void OnNcLButtonUp(UINT nHitTest, CPoint point);
  afx_msg void OnNcLButtonDblClk(UINT nHitTest, CPoint point);
  afx_msg void OnNcRButtonDown(UINT nHitTest, CPoint point);
  afx_msg void OnNcRButtonDblClk(UINT nHitTest, CPoint point);
  afx_msg void OnNcMouseMove(UINT nHitTest, CPoint point);
  afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
  afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnSysChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg void OnKillFocus(CWnd* pNewWnd);
  afx_msg void OnCaptureChanged(CWnd* pWnd);
  afx_msg void OnContextMenu(CWnd* pWnd, CPoint pos);
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg void OnMove(int x, int y);
  afx_msg void OnTimer(UINT_PTR nIDEvent);
  afx_msg void OnEnable(BOOL bEnable);
  afx_msg void OnEnterMenuLoop(BOOL bIsTrackPopupMenu);
  afx_msg void OnExitMenuLoop(BOOL bIsTrackPopupMenu);
  afx_msg void OnShowWindow(BOOL bShow, UINT nStatus);
  afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
  afx_msg void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
  afx_msg LRESULT OnMenuChar(UINT nChar, UINT nFlags, CMenu* pMenu);
  afx_msg void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
  afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
  afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
  afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
  afx_msg void OnSysCommand(UINT nID, LPARAM lParam);
  afx_msg LRESULT OnNcHitTest(CPoint point);
  afx_msg void OnWindowPosChanged(WINDOWPOS* lpwndpos);
  afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
  afx_msg BOOL OnHelpInfo(HELPINFO* pHelpInfo);
  afx_msg void OnDropFiles(HDROP hDropInfo);
  afx_msg LRESULT OnNTCtlColor(WPARAM wParam, LPARAM lParam);

  HWND m_hWndOwner;   // the owner given to SetOwner (else the Windows owner)
  UINT m_nFlags;      // WF_... state flags
  WNDPROC m_pfnSuper; // the procedure afx's window procedure passes unhandled messages to
  int m_nModalResult; // the result of RunModalLoop

protected:
  DECLARE_MESSAGE_MAP()

private:
  CWnd(const CWnd&);
  void operator=(const CWnd&);
};

// CWnd::m_nFlags.
#define WF_TOOLTIPS 0x0001
#define WF_TEMPHIDE 0x0002
#define WF_STAYDISABLED 0x0004
#define WF_MODALLOOP 0x0008
#define WF_CONTINUEMODAL 0x0010
#define WF_OLECTLCONTAINER 0x0100
#define WF_TRACKINGTOOLTIPS 0x0400
#define WF_STAYACTIVE 0x0020
#define WF_NOPOPMSG 0x0040
#define WF_MODALDISABLE 0x0200
#define WF_KEEPMINIACTIVE 0x0800

// afx's window procedure: every CWnd's window is subclassed to it.
AFX_API LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
AFX_API WNDPROC AFXAPI AfxGetAfxWndProc();
// Calls pWnd's WindowProc with the thread's last-sent-message record set,
// turning an exception into the message's failure result.
AFX_API LRESULT AFXAPI AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam,
                                      LPARAM lParam);

// A window class name for the style, cursor, brush and icon, registered on
// first use ("Afx:<instance>:<style>:<cursor>:<brush>:<icon>" in hex).
AFX_API LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = 0,
                                           HBRUSH hbrBackground = 0, HICON hIcon = 0);
// Registers lpWndClass unless a class of that name is registered already.
AFX_API BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass);

// The thread's message pump used by modal loops: the current CWinThread's
// PumpMessage, or a plain one (with pre-translation through the windows)
// on a thread without one. FALSE on WM_QUIT.
AFX_API BOOL AFXAPI AfxPumpMessage();

// ---- CMenu --------------------------------------------------------------------

class AFX_API CMenu : public CObject {
  DECLARE_DYNCREATE(CMenu)
public:
  HMENU m_hMenu;

  CMenu() : m_hMenu(NULL) {}
  // Destroys the menu it owns.
  virtual ~CMenu();

  operator HMENU() const { return AfxIsNullObject(this) ? NULL : m_hMenu; }
  HMENU GetSafeHmenu() const { return AfxIsNullObject(this) ? NULL : m_hMenu; }
  BOOL operator==(const CMenu& menu) const { return menu.m_hMenu == m_hMenu; }
  BOOL operator!=(const CMenu& menu) const { return menu.m_hMenu != m_hMenu; }

  static CMenu* PASCAL FromHandle(HMENU hMenu);
  static CMenu* PASCAL FromHandlePermanent(HMENU hMenu);
  static void PASCAL DeleteTempMap();
  BOOL Attach(HMENU hMenu);
  HMENU Detach();

  BOOL CreateMenu();
  BOOL CreatePopupMenu();
  // From the resource chain (AfxFindResourceHandle, RT_MENU).
  BOOL LoadMenu(LPCTSTR lpszResourceName);
  BOOL LoadMenu(UINT nIDResource) { return LoadMenu(MAKEINTRESOURCE(nIDResource)); }
  BOOL LoadMenuIndirect(const void* lpMenuTemplate);
  BOOL DestroyMenu();

  BOOL DeleteMenu(UINT nPosition, UINT nFlags) { return ::DeleteMenu(m_hMenu, nPosition, nFlags); }
  BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = NULL) {
    return ::AppendMenu(m_hMenu, nFlags, nIDNewItem, lpszNewItem);
  }
  BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp) {
    return ::AppendMenu(m_hMenu, nFlags | MF_BITMAP, nIDNewItem, (LPCTSTR)pBmp->GetSafeHandle());
  }
  BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0,
                  LPCTSTR lpszNewItem = NULL) {
    return ::InsertMenu(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
  }
  BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0,
                  LPCTSTR lpszNewItem = NULL) {
    return ::ModifyMenu(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
  }
  BOOL RemoveMenu(UINT nPosition, UINT nFlags) { return ::RemoveMenu(m_hMenu, nPosition, nFlags); }
  UINT CheckMenuItem(UINT nIDCheckItem, UINT nCheck) {
    return (UINT)::CheckMenuItem(m_hMenu, nIDCheckItem, nCheck);
  }
  UINT EnableMenuItem(UINT nIDEnableItem, UINT nEnable) {
    return ::EnableMenuItem(m_hMenu, nIDEnableItem, nEnable);
  }
  BOOL CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags) {
    return ::CheckMenuRadioItem(m_hMenu, nIDFirst, nIDLast, nIDItem, nFlags);
  }
  BOOL SetMenuItemBitmaps(UINT nPosition, UINT nFlags, const CBitmap* pBmpUnchecked,
                          const CBitmap* pBmpChecked) {
    return ::SetMenuItemBitmaps(m_hMenu, nPosition, nFlags, (HBITMAP)pBmpUnchecked->GetSafeHandle(),
                                (HBITMAP)pBmpChecked->GetSafeHandle());
  }
  UINT GetMenuItemCount() const { return (UINT)::GetMenuItemCount(m_hMenu); }
  UINT GetMenuItemID(int nPos) const { return ::GetMenuItemID(m_hMenu, nPos); }
  UINT GetMenuState(UINT nID, UINT nFlags) const { return ::GetMenuState(m_hMenu, nID, nFlags); }
  int GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const {
    return ::GetMenuString(m_hMenu, nIDItem, lpString, nMaxCount, nFlags);
  }
  int GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const;
  BOOL GetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE) {
    return ::GetMenuItemInfo(m_hMenu, uItem, fByPos, lpMenuItemInfo);
  }
  BOOL SetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE) {
    return ::SetMenuItemInfo(m_hMenu, uItem, fByPos, lpMenuItemInfo);
  }
  BOOL InsertMenuItem(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE) {
    return ::InsertMenuItem(m_hMenu, uItem, fByPos, lpMenuItemInfo);
  }
  UINT GetDefaultItem(UINT gmdiFlags, BOOL fByPos = FALSE) {
    return ::GetMenuDefaultItem(m_hMenu, fByPos, gmdiFlags);
  }
  BOOL SetDefaultItem(UINT uItem, BOOL fByPos = FALSE) {
    return ::SetMenuDefaultItem(m_hMenu, uItem, fByPos);
  }
  CMenu* GetSubMenu(int nPos) const { return FromHandle(::GetSubMenu(m_hMenu, nPos)); }
  BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = NULL);
  BOOL TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm);

  // Owner-drawn items.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);

private:
  CMenu(const CMenu&);
  void operator=(const CMenu&);
};

// Resource type of a dialog's initial list and combo box strings.
#ifndef RT_DLGINIT
#define RT_DLGINIT MAKEINTRESOURCE(240)
#endif

// ---- Accelerators -----------------------------------------------------------------

// Loads an accelerator table from the resource chain; NULL when none has it.
AFX_API HACCEL AFXAPI AfxLoadAccelerators(LPCTSTR lpszResourceName);

// rString := string nIDS with %1 (and %2) replaced by the arguments.
AFX_API void AFXAPI AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1);
AFX_API void AFXAPI AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2);

// ---- CDataExchange ------------------------------------------------------------------

// The state of one UpdateData pass: the direction and the control being
// exchanged, so that Fail can put the focus back on it.
class AFX_API CDataExchange {
public:
  CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

  BOOL m_bSaveAndValidate; // TRUE: controls to members (and validation)
  CWnd* m_pDlgWnd;         // the dialog (or window) whose controls are exchanged
  HWND m_hWndLastControl;  // the last control prepared
  BOOL m_bEditLastControl; // whether it is an edit control

  HWND PrepareCtrl(int nIDC);
  HWND PrepareEditCtrl(int nIDC);
  // Gives the focus back to the last control (an edit's text selected) and
  // throws CUserException; it never returns.
  __declspec(noreturn) void Fail();
};

AFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
AFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value);
AFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
AFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value);
AFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value);
AFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value);
AFX_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, LPTSTR value, int nMaxLen);
AFX_API void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value);
AFX_API void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
AFX_API void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
AFX_API void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index);
AFX_API void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index);
AFX_API void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value);
AFX_API void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value);
AFX_API void AFXAPI DDV_MaxChars(CDataExchange* pDX, CString const& value, int nChars);
AFX_API void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal);
AFX_API void AFXAPI DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal);
AFX_API void AFXAPI DDV_MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal);
AFX_API void AFXAPI DDV_MinMaxDWord(CDataExchange* pDX, DWORD value, DWORD minVal, DWORD maxVal);
AFX_API void AFXAPI DDV_MinMaxDouble(CDataExchange* pDX, double const& value, double minVal,
                                     double maxVal);

// ---- CDialog -------------------------------------------------------------------------

class AFX_API CDialog : public CWnd {
  DECLARE_DYNAMIC(CDialog)
public:
  CDialog();
  explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = NULL);
  explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = NULL);
  virtual ~CDialog();

  // Modeless: the template from the resource chain.
  virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = NULL);
  virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = NULL);
  virtual BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = NULL,
                              void* lpDialogInit = NULL);
  BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = NULL,
                         void* lpDialogInit = NULL);

  // Modal: runs until EndDialog; IDOK, IDCANCEL or EndDialog's result, -1
  // when the dialog could not be created.
  virtual INT_PTR DoModal();
  void EndDialog(int nResult);

  virtual BOOL OnInitDialog();
  virtual void OnSetFont(CFont* pFont);
  virtual void OnOK();
  virtual void OnCancel();
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);
  virtual BOOL CheckAutoCenter();

  void MapDialogRect(LPRECT lpRect) const { ::MapDialogRect(m_hWnd, lpRect); }
  void NextDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 0, 0); }
  void PrevDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 1, 0); }
  void GotoDlgCtrl(CWnd* pWndCtrl);
  void SetDefID(UINT nID) { ::SendMessage(m_hWnd, DM_SETDEFID, nID, 0); }
  DWORD GetDefID() const { return (DWORD)::SendMessage(m_hWnd, DM_GETDEFID, 0, 0); }
  void SetHelpID(UINT nIDR) { m_nIDHelp = nIDR; }

  LPCTSTR m_lpszTemplateName;        // the template's name or MAKEINTRESOURCE id
  HGLOBAL m_hDialogTemplate;         // an indirect template (handle)
  LPCDLGTEMPLATE m_lpDialogTemplate; // an indirect template (pointer)
  void* m_lpDialogInit;
  CWnd* m_pParentWnd;
  HWND m_hWndTop;
  UINT m_nIDHelp;

  afx_msg LRESULT HandleInitDialog(WPARAM, LPARAM);
  afx_msg LRESULT HandleSetFont(WPARAM, LPARAM);

protected:
  HWND PreModal();
  void PostModal();
  BOOL CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst);
  DECLARE_MESSAGE_MAP()
};

// ---- Controls -------------------------------------------------------------------------

class AFX_API CStatic : public CWnd {
  DECLARE_DYNAMIC(CStatic)
public:
  CStatic() {}
  virtual ~CStatic();
  virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                      UINT nID = 0xffff);
  HICON SetIcon(HICON hIcon) { return (HICON)::SendMessage(m_hWnd, STM_SETICON, (WPARAM)hIcon, 0); }
  HICON GetIcon() const { return (HICON)::SendMessage(m_hWnd, STM_GETICON, 0, 0); }
  HBITMAP SetBitmap(HBITMAP hBitmap) {
    return (HBITMAP)::SendMessage(m_hWnd, STM_SETIMAGE, IMAGE_BITMAP, (LPARAM)hBitmap);
  }
  HBITMAP GetBitmap() const {
    return (HBITMAP)::SendMessage(m_hWnd, STM_GETIMAGE, IMAGE_BITMAP, 0);
  }
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};

class AFX_API CButton : public CWnd {
  DECLARE_DYNAMIC(CButton)
public:
  CButton() {}
  virtual ~CButton();
  virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                      UINT nID);
  UINT GetState() const { return (UINT)::SendMessage(m_hWnd, BM_GETSTATE, 0, 0); }
  void SetState(BOOL bHighlight) { ::SendMessage(m_hWnd, BM_SETSTATE, bHighlight, 0); }
  int GetCheck() const { return (int)::SendMessage(m_hWnd, BM_GETCHECK, 0, 0); }
  void SetCheck(int nCheck) { ::SendMessage(m_hWnd, BM_SETCHECK, nCheck, 0); }
  UINT GetButtonStyle() const { return (UINT)::GetWindowLong(m_hWnd, GWL_STYLE) & 0xFFFF; }
  void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE) {
    ::SendMessage(m_hWnd, BM_SETSTYLE, nStyle, (LPARAM)bRedraw);
  }
  HBITMAP SetBitmap(HBITMAP hBitmap) {
    return (HBITMAP)::SendMessage(m_hWnd, BM_SETIMAGE, IMAGE_BITMAP, (LPARAM)hBitmap);
  }
  HICON SetIcon(HICON hIcon) {
    return (HICON)::SendMessage(m_hWnd, BM_SETIMAGE, IMAGE_ICON, (LPARAM)hIcon);
  }
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};

class AFX_API CEdit : public CWnd {
  DECLARE_DYNAMIC(CEdit)
public:
  CEdit() {}
  virtual ~CEdit();
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
  BOOL CanUndo() const { return (BOOL)::SendMessage(m_hWnd, EM_CANUNDO, 0, 0); }
  int GetLineCount() const { return (int)::SendMessage(m_hWnd, EM_GETLINECOUNT, 0, 0); }
  BOOL GetModify() const { return (BOOL)::SendMessage(m_hWnd, EM_GETMODIFY, 0, 0); }
  void SetModify(BOOL bModified = TRUE) { ::SendMessage(m_hWnd, EM_SETMODIFY, bModified, 0); }
  void GetRect(LPRECT lpRect) const { ::SendMessage(m_hWnd, EM_GETRECT, 0, (LPARAM)lpRect); }
  DWORD GetSel() const { return (DWORD)::SendMessage(m_hWnd, EM_GETSEL, 0, 0); }
  void GetSel(int& nStartChar, int& nEndChar) const {
    ::SendMessage(m_hWnd, EM_GETSEL, (WPARAM)&nStartChar, (LPARAM)&nEndChar);
  }
  void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE) {
    ::SendMessage(m_hWnd, EM_SETSEL, LOWORD(dwSelection), HIWORD(dwSelection));
    if (!bNoScroll) ::SendMessage(m_hWnd, EM_SCROLLCARET, 0, 0);
  }
  void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE) {
    ::SendMessage(m_hWnd, EM_SETSEL, nStartChar, nEndChar);
    if (!bNoScroll) ::SendMessage(m_hWnd, EM_SCROLLCARET, 0, 0);
  }
  void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE) {
    ::SendMessage(m_hWnd, EM_REPLACESEL, bCanUndo, (LPARAM)lpszNewText);
  }
  void SetLimitText(UINT nMax) { ::SendMessage(m_hWnd, EM_SETLIMITTEXT, nMax, 0); }
  void LimitText(int nChars = 0) { ::SendMessage(m_hWnd, EM_LIMITTEXT, nChars, 0); }
  UINT GetLimitText() const { return (UINT)::SendMessage(m_hWnd, EM_GETLIMITTEXT, 0, 0); }
  int GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const;
  int LineIndex(int nLine = -1) const { return (int)::SendMessage(m_hWnd, EM_LINEINDEX, nLine, 0); }
  int LineLength(int nLine = -1) const {
    return (int)::SendMessage(m_hWnd, EM_LINELENGTH, nLine, 0);
  }
  int LineFromChar(int nIndex = -1) const {
    return (int)::SendMessage(m_hWnd, EM_LINEFROMCHAR, nIndex, 0);
  }
  void LineScroll(int nLines, int nChars = 0) {
    ::SendMessage(m_hWnd, EM_LINESCROLL, nChars, nLines);
  }
  BOOL SetReadOnly(BOOL bReadOnly = TRUE) {
    return (BOOL)::SendMessage(m_hWnd, EM_SETREADONLY, bReadOnly, 0);
  }
  void SetPasswordChar(TCHAR ch) { ::SendMessage(m_hWnd, EM_SETPASSWORDCHAR, (BYTE)ch, 0); }
  TCHAR GetPasswordChar() const { return (TCHAR)::SendMessage(m_hWnd, EM_GETPASSWORDCHAR, 0, 0); }
  void EmptyUndoBuffer() { ::SendMessage(m_hWnd, EM_EMPTYUNDOBUFFER, 0, 0); }
  BOOL Undo() { return (BOOL)::SendMessage(m_hWnd, EM_UNDO, 0, 0); }
  void Clear() { ::SendMessage(m_hWnd, WM_CLEAR, 0, 0); }
  void Copy() { ::SendMessage(m_hWnd, WM_COPY, 0, 0); }
  void Cut() { ::SendMessage(m_hWnd, WM_CUT, 0, 0); }
  void Paste() { ::SendMessage(m_hWnd, WM_PASTE, 0, 0); }
  void SetMargins(UINT nLeft, UINT nRight) {
    ::SendMessage(m_hWnd, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(nLeft, nRight));
  }
  DWORD GetMargins() const { return (DWORD)::SendMessage(m_hWnd, EM_GETMARGINS, 0, 0); }
};

class AFX_API CScrollBar : public CWnd {
  DECLARE_DYNAMIC(CScrollBar)
public:
  CScrollBar() {}
  virtual ~CScrollBar();
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
  int GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
  int SetScrollPos(int nPos, BOOL bRedraw = TRUE) {
    return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw);
  }
  void GetScrollRange(LPINT lpMinPos, LPINT lpMaxPos) const {
    ::GetScrollRange(m_hWnd, SB_CTL, lpMinPos, lpMaxPos);
  }
  void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE) {
    ::SetScrollRange(m_hWnd, SB_CTL, nMinPos, nMaxPos, bRedraw);
  }
};

class AFX_API CListBox : public CWnd {
  DECLARE_DYNAMIC(CListBox)
public:
  CListBox() {}
  virtual ~CListBox();
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetCount() const { return (int)::SendMessage(m_hWnd, LB_GETCOUNT, 0, 0); }
  int GetHorizontalExtent() const {
    return (int)::SendMessage(m_hWnd, LB_GETHORIZONTALEXTENT, 0, 0);
  }
  void SetHorizontalExtent(int cxExtent) {
    ::SendMessage(m_hWnd, LB_SETHORIZONTALEXTENT, cxExtent, 0);
  }
  int GetTopIndex() const { return (int)::SendMessage(m_hWnd, LB_GETTOPINDEX, 0, 0); }
  int SetTopIndex(int nIndex) { return (int)::SendMessage(m_hWnd, LB_SETTOPINDEX, nIndex, 0); }
  DWORD_PTR GetItemData(int nIndex) const {
    return (DWORD_PTR)::SendMessage(m_hWnd, LB_GETITEMDATA, nIndex, 0);
  }
  int SetItemData(int nIndex, DWORD_PTR dwItemData) {
    return (int)::SendMessage(m_hWnd, LB_SETITEMDATA, nIndex, (LPARAM)dwItemData);
  }
  void* GetItemDataPtr(int nIndex) const { return (void*)GetItemData(nIndex); }
  int SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, (DWORD_PTR)pData); }
  int GetItemRect(int nIndex, LPRECT lpRect) const {
    return (int)::SendMessage(m_hWnd, LB_GETITEMRECT, nIndex, (LPARAM)lpRect);
  }
  int GetSel(int nIndex) const { return (int)::SendMessage(m_hWnd, LB_GETSEL, nIndex, 0); }
  int GetText(int nIndex, LPTSTR lpszBuffer) const {
    return (int)::SendMessage(m_hWnd, LB_GETTEXT, nIndex, (LPARAM)lpszBuffer);
  }
  void GetText(int nIndex, CString& rString) const;
  int GetTextLen(int nIndex) const { return (int)::SendMessage(m_hWnd, LB_GETTEXTLEN, nIndex, 0); }
  int GetItemHeight(int nIndex) const {
    return (int)::SendMessage(m_hWnd, LB_GETITEMHEIGHT, nIndex, 0);
  }
  int SetItemHeight(int nIndex, UINT cyItemHeight) {
    return (int)::SendMessage(m_hWnd, LB_SETITEMHEIGHT, nIndex, MAKELONG(cyItemHeight, 0));
  }
  int GetCurSel() const { return (int)::SendMessage(m_hWnd, LB_GETCURSEL, 0, 0); }
  int SetCurSel(int nSelect) { return (int)::SendMessage(m_hWnd, LB_SETCURSEL, nSelect, 0); }
  int SetSel(int nIndex, BOOL bSelect = TRUE) {
    return (int)::SendMessage(m_hWnd, LB_SETSEL, bSelect, nIndex);
  }
  int GetSelCount() const { return (int)::SendMessage(m_hWnd, LB_GETSELCOUNT, 0, 0); }
  int GetSelItems(int nMaxItems, LPINT rgIndex) const {
    return (int)::SendMessage(m_hWnd, LB_GETSELITEMS, nMaxItems, (LPARAM)rgIndex);
  }
  int GetCaretIndex() const { return (int)::SendMessage(m_hWnd, LB_GETCARETINDEX, 0, 0); }
  int SetCaretIndex(int nIndex, BOOL bScroll = TRUE) {
    return (int)::SendMessage(m_hWnd, LB_SETCARETINDEX, nIndex, MAKELONG(bScroll, 0));
  }
  int AddString(LPCTSTR lpszItem) {
    return (int)::SendMessage(m_hWnd, LB_ADDSTRING, 0, (LPARAM)lpszItem);
  }
  int DeleteString(UINT nIndex) { return (int)::SendMessage(m_hWnd, LB_DELETESTRING, nIndex, 0); }
  int InsertString(int nIndex, LPCTSTR lpszItem) {
    return (int)::SendMessage(m_hWnd, LB_INSERTSTRING, nIndex, (LPARAM)lpszItem);
  }
  void ResetContent() { ::SendMessage(m_hWnd, LB_RESETCONTENT, 0, 0); }
  int FindString(int nStartAfter, LPCTSTR lpszItem) const {
    return (int)::SendMessage(m_hWnd, LB_FINDSTRING, nStartAfter, (LPARAM)lpszItem);
  }
  int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const {
    return (int)::SendMessage(m_hWnd, LB_FINDSTRINGEXACT, nIndexStart, (LPARAM)lpszFind);
  }
  int SelectString(int nStartAfter, LPCTSTR lpszItem) {
    return (int)::SendMessage(m_hWnd, LB_SELECTSTRING, nStartAfter, (LPARAM)lpszItem);
  }
  int ItemFromPoint(CPoint pt, BOOL& bOutside) const;

  // Owner-draw overridables, reached through reflection.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
  virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);
  virtual int VKeyToItem(UINT nKey, UINT nIndex);
  virtual int CharToItem(UINT nKey, UINT nIndex);
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};

// A list box whose items have a check box: owner-drawn (LBS_OWNERDRAWFIXED
// or VARIABLE with LBS_HASSTRINGS). Each item's check state and enabled
// flag are kept in a block the list box's item data points to; the item data
// the program sets and reads (LB_SETITEMDATA / LB_GETITEMDATA) lives in that
// block too. A click on the box or the space bar changes the check and sends
// CLBN_CHKCHANGE to the parent.
#define CLBN_CHKCHANGE 40

class AFX_API CCheckListBox : public CListBox {
  DECLARE_DYNAMIC(CCheckListBox)
public:
  CCheckListBox();
  virtual ~CCheckListBox();
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  void SetCheckStyle(UINT nStyle); // BS_CHECKBOX, BS_AUTOCHECKBOX, BS_AUTO3STATE, BS_3STATE
  UINT GetCheckStyle() { return m_nStyle; }
  void SetCheck(int nIndex, int nCheck);
  int GetCheck(int nIndex);
  void Enable(int nIndex, BOOL bEnabled = TRUE);
  BOOL IsEnabled(int nIndex);
  virtual CRect OnGetCheckPosition(CRect rectItem, CRect rectCheckBox);

  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

  afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
  afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);

protected:
  UINT m_nStyle;
  int CheckFromPoint(CPoint point, BOOL& bInCheck);
  void InvalidateCheck(int nIndex);
  // The check state that follows nCheck for the check style.
  int NextCheck(int nCheck) const;
  void ToggleCheck(int nIndex);
  DECLARE_MESSAGE_MAP()
};

class AFX_API CComboBox : public CWnd {
  DECLARE_DYNAMIC(CComboBox)
public:
  CComboBox() {}
  virtual ~CComboBox();
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetCount() const { return (int)::SendMessage(m_hWnd, CB_GETCOUNT, 0, 0); }
  int GetCurSel() const { return (int)::SendMessage(m_hWnd, CB_GETCURSEL, 0, 0); }
  int SetCurSel(int nSelect) { return (int)::SendMessage(m_hWnd, CB_SETCURSEL, nSelect, 0); }
  DWORD GetEditSel() const { return (DWORD)::SendMessage(m_hWnd, CB_GETEDITSEL, 0, 0); }
  BOOL LimitText(int nMaxChars) { return (BOOL)::SendMessage(m_hWnd, CB_LIMITTEXT, nMaxChars, 0); }
  BOOL SetEditSel(int nStartChar, int nEndChar) {
    return (BOOL)::SendMessage(m_hWnd, CB_SETEDITSEL, 0, MAKELONG(nStartChar, nEndChar));
  }
  DWORD_PTR GetItemData(int nIndex) const {
    return (DWORD_PTR)::SendMessage(m_hWnd, CB_GETITEMDATA, nIndex, 0);
  }
  int SetItemData(int nIndex, DWORD_PTR dwItemData) {
    return (int)::SendMessage(m_hWnd, CB_SETITEMDATA, nIndex, (LPARAM)dwItemData);
  }
  void* GetItemDataPtr(int nIndex) const { return (void*)GetItemData(nIndex); }
  int SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, (DWORD_PTR)pData); }
  int GetLBText(int nIndex, LPTSTR lpszText) const {
    return (int)::SendMessage(m_hWnd, CB_GETLBTEXT, nIndex, (LPARAM)lpszText);
  }
  void GetLBText(int nIndex, CString& rString) const;
  int GetLBTextLen(int nIndex) const {
    return (int)::SendMessage(m_hWnd, CB_GETLBTEXTLEN, nIndex, 0);
  }
  int SetItemHeight(int nIndex, UINT cyItemHeight) {
    return (int)::SendMessage(m_hWnd, CB_SETITEMHEIGHT, nIndex, MAKELONG(cyItemHeight, 0));
  }
  int GetItemHeight(int nIndex) const {
    return (int)::SendMessage(m_hWnd, CB_GETITEMHEIGHT, nIndex, 0);
  }
  int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const {
    return (int)::SendMessage(m_hWnd, CB_FINDSTRINGEXACT, nIndexStart, (LPARAM)lpszFind);
  }
  int SetExtendedUI(BOOL bExtended = TRUE) {
    return (int)::SendMessage(m_hWnd, CB_SETEXTENDEDUI, bExtended, 0);
  }
  BOOL GetExtendedUI() const { return (BOOL)::SendMessage(m_hWnd, CB_GETEXTENDEDUI, 0, 0); }
  void GetDroppedControlRect(LPRECT lprect) const {
    ::SendMessage(m_hWnd, CB_GETDROPPEDCONTROLRECT, 0, (LPARAM)lprect);
  }
  BOOL GetDroppedState() const { return (BOOL)::SendMessage(m_hWnd, CB_GETDROPPEDSTATE, 0, 0); }
  void ShowDropDown(BOOL bShowIt = TRUE) { ::SendMessage(m_hWnd, CB_SHOWDROPDOWN, bShowIt, 0); }
  int GetDroppedWidth() const { return (int)::SendMessage(m_hWnd, CB_GETDROPPEDWIDTH, 0, 0); }
  int SetDroppedWidth(UINT nWidth) {
    return (int)::SendMessage(m_hWnd, CB_SETDROPPEDWIDTH, nWidth, 0);
  }
  int GetTopIndex() const { return (int)::SendMessage(m_hWnd, CB_GETTOPINDEX, 0, 0); }
  int SetTopIndex(int nIndex) { return (int)::SendMessage(m_hWnd, CB_SETTOPINDEX, nIndex, 0); }
  int AddString(LPCTSTR lpszString) {
    return (int)::SendMessage(m_hWnd, CB_ADDSTRING, 0, (LPARAM)lpszString);
  }
  int DeleteString(UINT nIndex) { return (int)::SendMessage(m_hWnd, CB_DELETESTRING, nIndex, 0); }
  int InsertString(int nIndex, LPCTSTR lpszString) {
    return (int)::SendMessage(m_hWnd, CB_INSERTSTRING, nIndex, (LPARAM)lpszString);
  }
  void ResetContent() { ::SendMessage(m_hWnd, CB_RESETCONTENT, 0, 0); }
  int Dir(UINT attr, LPCTSTR lpszWildCard) {
    return (int)::SendMessage(m_hWnd, CB_DIR, attr, (LPARAM)lpszWildCard);
  }
  int FindString(int nStartAfter, LPCTSTR lpszString) const {
    return (int)::SendMessage(m_hWnd, CB_FINDSTRING, nStartAfter, (LPARAM)lpszString);
  }
  int SelectString(int nStartAfter, LPCTSTR lpszString) {
    return (int)::SendMessage(m_hWnd, CB_SELECTSTRING, nStartAfter, (LPARAM)lpszString);
  }
  void Clear() { ::SendMessage(m_hWnd, WM_CLEAR, 0, 0); }
  void Copy() { ::SendMessage(m_hWnd, WM_COPY, 0, 0); }
  void Cut() { ::SendMessage(m_hWnd, WM_CUT, 0, 0); }
  void Paste() { ::SendMessage(m_hWnd, WM_PASTE, 0, 0); }

  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
  virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};

// ---- CWinThread -------------------------------------------------------------

typedef UINT(AFX_CDECL* AFX_THREADPROC)(LPVOID);

class AFX_API CWinThread : public CCmdTarget {
  DECLARE_DYNAMIC(CWinThread)
public:
  CWinThread();
  CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam);
  virtual ~CWinThread();

  // Starts the thread; it runs the thread procedure, or InitInstance and Run.
  BOOL CreateThread(DWORD dwCreateFlags = 0, UINT nStackSize = 0,
                    LPSECURITY_ATTRIBUTES lpSecurityAttrs = NULL);

  CWnd* m_pMainWnd;   // the thread's main window
  CWnd* m_pActiveWnd; // the active window when in-place active, else NULL
  BOOL m_bAutoDelete; // delete this object when the thread ends
  HANDLE m_hThread;
  DWORD m_nThreadID;

  operator HANDLE() const { return m_hThread; }

  int GetThreadPriority();
  BOOL SetThreadPriority(int nPriority);
  DWORD SuspendThread();
  DWORD ResumeThread();
  BOOL PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam);

  virtual CWnd* GetMainWnd();

  // Overridables of a user-interface thread.
  virtual BOOL InitInstance();
  virtual int Run();
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  virtual BOOL PumpMessage();
  virtual BOOL OnIdle(LONG lCount);
  virtual BOOL IsIdleMessage(MSG* pMsg);
  virtual int ExitInstance();
  // Deletes the object when m_bAutoDelete is set.
  virtual void Delete();

  MSG m_msgCur;           // the message being processed
  LPVOID m_pThreadParams; // parameter of a worker thread
  AFX_THREADPROC m_pfnThreadProc;

  void CommonConstruct();
};

// A worker thread that runs pfnThreadProc(pParam).
AFX_API CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam,
                                          int nPriority = THREAD_PRIORITY_NORMAL,
                                          UINT nStackSize = 0, DWORD dwCreateFlags = 0,
                                          LPSECURITY_ATTRIBUTES lpSecurityAttrs = NULL);
// A user-interface thread: an object of pThreadClass (a CWinThread).
AFX_API CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* pThreadClass,
                                          int nPriority = THREAD_PRIORITY_NORMAL,
                                          UINT nStackSize = 0, DWORD dwCreateFlags = 0,
                                          LPSECURITY_ATTRIBUTES lpSecurityAttrs = NULL);
// Ends the calling thread (from inside it) with nExitCode.
AFX_API void AFXAPI AfxEndThread(UINT nExitCode, BOOL bDelete = TRUE);
AFX_API CWinThread* AFXAPI AfxGetThread();

// ---- CCommandLineInfo ------------------------------------------------------

// The program's command line as CWinApp::ParseCommandLine reads it: a file
// name opens it, /p and /pt print it, /Embedding, /Automation, /Register and
// /Unregister are noted; ProcessShellCommand carries the result out.
class AFX_API CCommandLineInfo : public CObject {
public:
  CCommandLineInfo();
  virtual ~CCommandLineInfo();
  // One parameter, without its leading '/' or '-' when bFlag.
  virtual void ParseParam(const TCHAR* pszParam, BOOL bFlag, BOOL bLast);

  BOOL m_bShowSplash;
  BOOL m_bRunEmbedded;
  BOOL m_bRunAutomated;
  enum {
    FileNew,
    FileOpen,
    FilePrint,
    FilePrintTo,
    FileDDE,
    AppRegister,
    AppUnregister,
    FileNothing = -1
  } m_nShellCommand;
  CString m_strFileName;
  CString m_strPrinterName;
  CString m_strDriverName;
  CString m_strPortName;

private:
  int m_nPrintToParams = 0; // the printer, driver and port names after /pt
};

// ---- CWinApp ----------------------------------------------------------------

class AFX_API CWinApp : public CWinThread {
  DECLARE_DYNAMIC(CWinApp)
public:
  explicit CWinApp(LPCTSTR lpszAppName = NULL);
  virtual ~CWinApp();

  // Strings allocated with malloc (the application may free and replace
  // them, as with MFC).
  LPCTSTR m_pszAppName;
  HINSTANCE m_hInstance;
  HINSTANCE m_hPrevInstance;
  LPTSTR m_lpCmdLine;
  int m_nCmdShow;
  LPCTSTR m_pszExeName;
  LPCTSTR m_pszHelpFilePath;
  LPCTSTR m_pszProfileName;
  LPCTSTR m_pszRegistryKey;

  // Settings: the registry under HKCU\Software\<key>\<profile> once
  // SetRegistryKey is called, otherwise the INI file m_pszProfileName.
  void SetRegistryKey(LPCTSTR lpszRegistryKey);
  void SetRegistryKey(UINT nIDRegistryKey);
  HKEY GetAppRegistryKey();
  HKEY GetSectionKey(LPCTSTR lpszSection);

  UINT GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault);
  BOOL WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue);
  CString GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault = NULL);
  BOOL WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue);
  BOOL GetProfileBinary(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPBYTE* ppData, UINT* pBytes);
  BOOL WriteProfileBinary(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPBYTE pData, UINT nBytes);

  virtual BOOL InitApplication();
  // Idle calls 0 and 1 do the thread's idle work; more are not asked for.
  virtual BOOL OnIdle(LONG lCount);
  virtual BOOL InitInstance();
  virtual int Run();
  virtual int ExitInstance();
  // Shows AfxMessageBox's box: caption, owner and default icon.
  virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);

  // Fills the instance handles and the exe, help, application and profile
  // names from the module (called by AfxWinInit).
  void SetCurrentHandles();

  // ---- Documents: the templates (deleted with the application object)
  // and the commands an application puts in its map (ID_FILE_NEW...).
  CDocManager* m_pDocManager = NULL;
  void AddDocTemplate(CDocTemplate* pTemplate);
  POSITION GetFirstDocTemplatePosition() const;
  CDocTemplate* GetNextDocTemplate(POSITION& pos) const;
  virtual CDocument* OpenDocumentFile(LPCTSTR lpszFileName);
  // The Open or Save As dialog; fileName is the proposed and then the chosen
  // name. FALSE when cancelled.
  virtual BOOL DoPromptFileName(CString& fileName, UINT nIDSTitle, DWORD lFlags,
                                BOOL bOpenFileDialog, CDocTemplate* pTemplate);
  virtual BOOL SaveAllModified();
  void CloseAllDocuments(BOOL bEndSession);
  int GetOpenDocumentCount();
  afx_msg void OnFileNew();
  afx_msg void OnFileOpen();
  afx_msg void OnAppExit();
  // Reads the program's arguments into rCmdInfo.
  void ParseCommandLine(CCommandLineInfo& rCmdInfo);
  // Does what the command line asked: a new document (the application's
  // ID_FILE_NEW handler), the file opened (and printed for /p and /pt), or
  // nothing; FALSE when it failed or the program should not go on.
  BOOL ProcessShellCommand(CCommandLineInfo& rCmdInfo);

  // ---- The shell's file types. RegisterShellFileTypes writes, under
  // HKEY_CLASSES_ROOT, for each template whose document strings have a
  // regFileTypeId: the type's key (its value regFileTypeName, else the id)
  // with shell\open\command = "<exe>" "%1", and each extension of filterExt
  // (several separated by ';') naming the type, unless another type already
  // has it. bCompat adds shell\print\command ("<exe>" /p "%1"),
  // shell\printto\command ("<exe>" /pt "%1" "%2" "%3" "%4"), DefaultIcon
  // ("<exe>,N": the N-th icon of the program, N counting the templates from
  // 1; 0 when the program has no such icon) and the extension's ShellNew
  // (NullFile = ""). EnableShellOpen keeps the atoms of the application's DDE
  // name and topic (m_atomApp: the exe's name, m_atomSystemTopic: "system"),
  // as MFC does. Left out: the DDE conversation itself (WM_DDE_EXECUTE's
  // open and print, the ddeexec keys and the /dde switch); the shell starts
  // the program with the file on its command line, which ProcessShellCommand
  // opens or prints.
  void EnableShellOpen();
  void RegisterShellFileTypes(BOOL bCompat = FALSE);
  // Removes what RegisterShellFileTypes wrote (an extension only while it
  // still names the template's type).
  void UnregisterShellFileTypes();
  ATOM m_atomApp = 0;
  ATOM m_atomSystemTopic = 0;

  // ---- Recent files: the File menu's list (ID_FILE_MRU_FILE1...), kept in
  // the profile's "Recent File List" section. NULL until
  // LoadStdProfileSettings; saved by ExitInstance.
  class CRecentFileList* m_pRecentFileList = NULL;
  // Reads the list of nMaxMRU files (0: no list) and the print preview's
  // page count.
  void LoadStdProfileSettings(UINT nMaxMRU = 4);
  void SaveStdProfileSettings();
  virtual void AddToRecentFileList(LPCTSTR lpszPathName);
  afx_msg void OnUpdateRecentFileMenu(CCmdUI* pCmdUI);
  afx_msg BOOL OnOpenRecentFile(UINT nID);
  UINT m_nNumPreviewPages = 0;

  // ---- The wait cursor: nCode 1 shows it (nesting), -1 ends one level and
  // puts back the cursor seen before the first level, 0 shows it again while
  // a level is open.
  virtual void DoWaitCursor(int nCode);
  int m_nWaitCursorCount = 0;
  HCURSOR m_hcurWaitCursorRestore = NULL;

  // ---- Cursors and icons: the application's resources (through the
  // resource chain), the system's (IDC_*, IDI_*) and the OEM ones (OCR_*,
  // OIC_*).
  HCURSOR LoadCursor(LPCTSTR lpszResourceName) const;
  HCURSOR LoadCursor(UINT nIDResource) const;
  HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const;
  HCURSOR LoadOEMCursor(UINT nIDCursor) const;
  HICON LoadIcon(LPCTSTR lpszResourceName) const;
  HICON LoadIcon(UINT nIDResource) const;
  HICON LoadStandardIcon(LPCTSTR lpszIconName) const;
  HICON LoadOEMIcon(UINT nIDIcon) const;

protected:
  DECLARE_MESSAGE_MAP()

public:
  // Deletes m_pDocManager when the application object goes.
  struct AFX_API CDocManagerDeleter {
    CWinApp* m_pApp;
    ~CDocManagerDeleter();
  };
  CDocManagerDeleter m_docManagerDeleter = {this};

  // ---- Printer set-up: the application's current printer, kept as global
  // DEVMODE and DEVNAMES blocks (NULL until a printer is chosen or looked up).
  HGLOBAL m_hDevMode;
  HGLOBAL m_hDevNames;
  // Fills *pPrintDlg with the current printer (the default one the first
  // time); FALSE when there is no printer.
  BOOL GetPrinterDeviceDefaults(PRINTDLG* pPrintDlg);
  // Makes the given blocks the current printer (frees the old ones when
  // bFreeOld).
  void SelectPrinter(HANDLE hDevNames, HANDLE hDevMode, BOOL bFreeOld = TRUE);
  // A DC for the current printer in dc; FALSE when there is none.
  BOOL CreatePrinterDC(CDC& dc);
  // ID_FILE_PRINT_SETUP: the print-setup form of the print dialog.
  void OnFilePrintSetup();
  void UpdatePrinterSelection(BOOL bForceDefaults);
  // Runs pPD with the application's printer and keeps the one chosen.
  virtual INT_PTR DoPrintDialog(class CPrintDialog* pPD);
};

AFX_API CWinApp* AFXAPI AfxGetApp();
AFX_API LPCTSTR AFXAPI AfxGetAppName();
AFX_API CWnd* AFXAPI AfxGetMainWnd();
// Records the program's instance and command line and initialises the
// application object (called once at start-up, before InitInstance).
AFX_API BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                               int nCmdShow);

// Called by WinMain: AfxWinInit, InitApplication, InitInstance and Run (or
// ExitInstance when InitInstance fails); returns the exit code.
AFX_API int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                              int nCmdShow);

// ---- Frames, documents and views ---------------------------------------------

class CDocument;
class CView;
class CFrameWnd;
class CMDIFrameWnd;
class CMDIChildWnd;
class CDocTemplate;
class CDocManager;
class CControlBar;
class CPrintInfo;
struct CPrintPreviewState;
class CPreviewView;

// What a frame needs to create its view for a document: the view's class,
// the document, the template and the frame. Handed to Create/LoadFrame and
// passed on to OnCreateClient and the view's WM_CREATE.
struct CCreateContext {
  CRuntimeClass* m_pNewViewClass;
  CDocument* m_pCurrentDoc;
  CDocTemplate* m_pNewDocTemplate;
  CView* m_pLastView;
  CFrameWnd* m_pCurrentFrame;
  CCreateContext()
      : m_pNewViewClass(NULL), m_pCurrentDoc(NULL), m_pNewDocTemplate(NULL), m_pLastView(NULL),
        m_pCurrentFrame(NULL) {}
};

// The style of a frame's view (the border becomes a client edge).
#define AFX_WS_DEFAULT_VIEW (WS_CHILD | WS_VISIBLE | WS_BORDER)

// rString := field iSubString of lpszFullString (fields end at chSep);
// FALSE when there are fewer fields.
AFX_API BOOL AFXAPI AfxExtractSubString(CString& rString, LPCTSTR lpszFullString, int iSubString,
                                        TCHAR chSep = '\n');

// Frame styles (in the low word of the window style, unused by Windows for
// overlapped windows): the document's name is shown in the title, before the
// application's name with FWS_PREFIXTITLE.
#define FWS_ADDTOTITLE 0x00008000L
#define FWS_PREFIXTITLE 0x00004000L
#define FWS_SNAPTOBARS 0x00002000L

// CFrameWnd::m_nShowDelay / ShowControlBar's delayed forms.
#define AFX_SHOWBAR_DELAY 0x0001

// A frame window: its menu, icon, accelerators and title come from one
// resource id (LoadFrame); it owns the active view, lays out its control bars
// and view (RecalcLayout), routes commands to the active view, itself and the
// application, and writes prompts and "Ready" to its status bar.
class AFX_API CFrameWnd : public CWnd {
  DECLARE_DYNCREATE(CFrameWnd)
public:
  // CW_USEDEFAULT for every corner: Windows chooses.
  static const CRect rectDefault;

  CFrameWnd();
  virtual ~CFrameWnd();

  BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
              const RECT& rect = rectDefault, CWnd* pParentWnd = NULL, LPCTSTR lpszMenuName = NULL,
              DWORD dwExStyle = 0, CCreateContext* pContext = NULL);
  // The menu, icon and accelerators named nIDResource and the title from
  // string nIDResource (its first "\n" field).
  virtual BOOL LoadFrame(UINT nIDResource,
                         DWORD dwDefaultStyle = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE,
                         CWnd* pParentWnd = NULL, CCreateContext* pContext = NULL);
  // A view of pContext->m_pNewViewClass as child nID; NULL on failure.
  CView* CreateView(CCreateContext* pContext, UINT nID = AFX_IDW_PANE_FIRST);

  // ---- Active view and document
  virtual CFrameWnd* GetActiveFrame();
  CView* GetActiveView() const { return m_pViewActive; }
  void SetActiveView(CView* pViewNew, BOOL bNotify = TRUE);
  virtual CDocument* GetActiveDocument();

  // ---- Showing, layout and title
  virtual void ActivateFrame(int nCmdShow = -1);
  void InitialUpdateFrame(CDocument* pDoc, BOOL bMakeVisible);
  virtual void RecalcLayout(BOOL bNotify = TRUE);
  void DelayRecalcLayout(BOOL bNotify = TRUE);
  virtual void OnUpdateFrameTitle(BOOL bAddToTitle);
  void UpdateFrameTitleForDocument(LPCTSTR lpszDocName);
  void DelayUpdateFrameTitle() { m_nIdleFlags |= idleTitle; }
  void SetTitle(LPCTSTR lpszTitle) { m_strTitle = lpszTitle; }
  CString GetTitle() const { return m_strTitle; }
  BOOL IsTracking() const { return m_nIDTracking != 0; }

  // ---- Control bars and the status bar
  // The control bar child with the id, or NULL.
  CControlBar* GetControlBar(UINT nID);
  void ShowControlBar(CControlBar* pBar, BOOL bShow, BOOL bDelay);
  // Docking to the frame's edges: EnableDocking names the edges bars may
  // take (CBRS_ALIGN_*); DockControlBar puts a bar at one, the dock bar's
  // (AFX_IDW_DOCKBAR_TOP...) or, with 0, the first of top, bottom, left and
  // right that both the bar and the frame allow. Left out: floating bars,
  // dragging a bar to another edge, and several bars side by side in one row
  // (lpRect is not used).
  void EnableDocking(DWORD dwDockStyle);
  void DockControlBar(CControlBar* pBar, UINT nDockBarID = 0, LPCRECT lpRect = NULL);
  DWORD m_dwDockStyle = 0; // the edges EnableDocking allowed
  // The window that shows messages: the AFX_IDW_STATUS_BAR child, or NULL.
  virtual CWnd* GetMessageBar();
  // Writes the text to the first pane of the status bar.
  void SetMessageText(LPCTSTR lpszText);
  void SetMessageText(UINT nID);
  // The prompt of command nID: its string up to the first "\n".
  virtual void GetMessageString(UINT nID, CString& rMessage) const;

  // ---- Accelerators
  HACCEL m_hAccelTable;
  BOOL LoadAccelTable(LPCTSTR lpszResourceName);
  virtual HACCEL GetDefaultAccelerator();

  // ---- Overridables
  virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);
  virtual BOOL OnCreateClient(LPCREATESTRUCT lpcs, CCreateContext* pContext);
  virtual void PostNcDestroy();
  // Print preview enters (bPreview) or leaves the frame, with pState as its
  // record: on entry the menu, the accelerators, the main pane and every
  // visible control bar of AFX_IDW_CONTROLBAR_FIRST to +31 but the status
  // bar are put aside (recorded in pState), the preview's keys are taken on
  // and closing the frame ends the preview instead; on leaving, all comes
  // back as recorded.
  virtual void OnSetPreviewMode(BOOL bPreview, CPrintPreviewState* pState);

  // ---- State
  CString m_strTitle;
  UINT m_nIDHelp;         // the resource id given to LoadFrame
  BOOL m_bAutoMenuEnable; // menu items without a handler are disabled
  HMENU m_hMenuDefault;   // the menu loaded by LoadFrame
  UINT m_nIDTracking;     // the command whose prompt is shown (0: none)
  UINT m_nIDLastMessage;  // the last message shown
  int m_nWindow;          // the window's number among its document's (-1: one)
  UINT m_nIdleFlags;
  enum IdleFlags { idleMenu = 1, idleTitle = 2, idleNotify = 4, idleLayout = 8 };
  CView* m_pViewActive;
  BOOL m_bInRecalcLayout;
  // While print preview shows: called when the frame is asked to close (the
  // preview ends); FALSE leaves the frame open.
  BOOL(CALLBACK* m_lpfnCloseProc)(CFrameWnd* pFrameWnd);

  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg void OnDestroy();
  afx_msg void OnClose();
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg BOOL OnEraseBkgnd(CDC* pDC);
  afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
  afx_msg void OnInitMenuPopup(CMenu* pMenu, UINT nIndex, BOOL bSysMenu);
  afx_msg void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
  afx_msg LRESULT OnSetMessageString(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnPopMessageString(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnIdleUpdateCmdUI(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnEnterIdle(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnRecalcParent(WPARAM wParam, LPARAM lParam);
  afx_msg void OnUpdateKeyIndicator(CCmdUI* pCmdUI);
  afx_msg void OnUpdateControlBarMenu(CCmdUI* pCmdUI);
  afx_msg BOOL OnBarCheck(UINT nID);

protected:
  // WM_CREATE's work: the client (view), the menu, layout.
  int OnCreateHelper(LPCREATESTRUCT lpcs, CCreateContext* pContext);
  DECLARE_MESSAGE_MAP()
};

// The MDI frame: its client is the system's MDICLIENT (AFX_IDW_PANE_FIRST),
// whose children are CMDIChildWnd frames; unhandled messages go through
// DefFrameProc. Commands go to the active child first.
class AFX_API CMDIFrameWnd : public CFrameWnd {
  DECLARE_DYNCREATE(CMDIFrameWnd)
public:
  CMDIFrameWnd();
  virtual ~CMDIFrameWnd();

  HWND m_hWndMDIClient;
  HMENU m_hMenuAlt; // the menu DelayUpdateFrameMenu asked for

  virtual BOOL LoadFrame(UINT nIDResource,
                         DWORD dwDefaultStyle = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE,
                         CWnd* pParentWnd = NULL, CCreateContext* pContext = NULL);
  virtual BOOL OnCreateClient(LPCREATESTRUCT lpcs, CCreateContext* pContext);
  // Creates the MDICLIENT; pWindowMenu is the popup that lists the children.
  virtual BOOL CreateClient(LPCREATESTRUCT lpCreateStruct, CMenu* pWindowMenu);
  // The popup of hMenuBar that holds the ID_WINDOW_ commands (else the one
  // before the last), or NULL.
  virtual HMENU GetWindowMenuPopup(HMENU hMenuBar);

  void MDIActivate(CWnd* pWndActivate);
  CMDIChildWnd* MDIGetActive(BOOL* pbMaximized = NULL) const;
  void MDIIconArrange();
  void MDIMaximize(CWnd* pWnd);
  void MDINext();
  void MDIPrev();
  void MDIRestore(CWnd* pWnd);
  CMenu* MDISetMenu(CMenu* pFrameMenu, CMenu* pWindowMenu);
  void MDITile();
  void MDITile(int nType);
  void MDICascade();
  void MDICascade(int nType);

  virtual CFrameWnd* GetActiveFrame();
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
  virtual LRESULT DefWindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam);
  virtual void OnUpdateFrameTitle(BOOL bAddToTitle);
  // Puts the active child's menu (or hMenuAlt, or the frame's own) on the bar.
  virtual void OnUpdateFrameMenu(HMENU hMenuAlt);
  void DelayUpdateFrameMenu(HMENU hMenuAlt);

  afx_msg void OnWindowNew();
  afx_msg BOOL OnMDIWindowCmd(UINT nID);
  afx_msg void OnUpdateMDIWindowCmd(CCmdUI* pCmdUI);
  afx_msg void OnDestroy();
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg LRESULT OnIdleUpdateCmdUI(WPARAM wParam, LPARAM lParam);

protected:
  DECLARE_MESSAGE_MAP()
};

// A frame inside an MDI frame's client. It shows its template's shared menu
// and accelerators while active; unhandled messages go through DefMDIChildProc.
class AFX_API CMDIChildWnd : public CFrameWnd {
  DECLARE_DYNCREATE(CMDIChildWnd)
public:
  CMDIChildWnd();
  virtual ~CMDIChildWnd();

  virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName,
                      DWORD dwStyle = WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW,
                      const RECT& rect = rectDefault, CMDIFrameWnd* pParentWnd = NULL,
                      CCreateContext* pContext = NULL);
  // Within the main MDI frame; the template's shared menu and accelerators
  // (pContext) are used rather than loading nIDResource's.
  virtual BOOL LoadFrame(UINT nIDResource,
                         DWORD dwDefaultStyle = WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW |
                                                FWS_ADDTOTITLE,
                         CWnd* pParentWnd = NULL, CCreateContext* pContext = NULL);

  CMDIFrameWnd* GetMDIFrame();
  void MDIDestroy();
  void MDIActivate();
  void MDIMaximize();
  void MDIRestore();
  void SetHandles(HMENU hMenu, HACCEL hAccel);

  HMENU m_hMenuShared; // the menu shown while active (the template's)

  virtual BOOL DestroyWindow();
  virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  virtual LRESULT DefWindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam);
  virtual void ActivateFrame(int nCmdShow = -1);
  virtual void OnUpdateFrameTitle(BOOL bAddToTitle);
  virtual void OnUpdateFrameMenu(BOOL bActive, CWnd* pActivateWnd, HMENU hMenuAlt);
  virtual CWnd* GetMessageBar();

  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg LRESULT OnMDIActivate(WPARAM wParam, LPARAM lParam);

protected:
  DECLARE_MESSAGE_MAP()
};

// A view: a child of a frame that shows a document. OnDraw paints it (screen
// and printer); OnUpdate is called when the document changes.
class AFX_API CView : public CWnd {
  DECLARE_DYNAMIC(CView)
protected:
  CView();

public:
  virtual ~CView();

  CDocument* GetDocument() const { return m_pDocument; }
  virtual BOOL IsSelected(const CObject* pDocItem) const;

  virtual void OnDraw(CDC* pDC) = 0;
  // After the document is loaded or created: calls OnUpdate(NULL, 0, NULL).
  virtual void OnInitialUpdate();
  // The document changed: invalidates the whole view.
  virtual void OnUpdate(CView* pSender, LPARAM lHint, CObject* pHint);
  // Before OnDraw; a printer DC gets nothing changed here.
  virtual void OnPrepareDC(CDC* pDC, CPrintInfo* pInfo = NULL);
  virtual void OnActivateView(BOOL bActivate, CView* pActivateView, CView* pDeactiveView);
  virtual void OnActivateFrame(UINT nState, CFrameWnd* pFrameWnd);

  // ---- Printing: the print job (OnFilePrint) calls these in turn.
  // OnPreparePrinting returns FALSE to cancel; the default does nothing and
  // lets the job go on (views override it to call DoPreparePrinting).
  // OnPrint calls OnDraw; the others do nothing.
  virtual BOOL OnPreparePrinting(CPrintInfo* pInfo);
  virtual void OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo);
  virtual void OnPrint(CDC* pDC, CPrintInfo* pInfo);
  virtual void OnEndPrinting(CDC* pDC, CPrintInfo* pInfo);
  // The print dialog and the printer DC for pInfo; FALSE when cancelled.
  BOOL DoPreparePrinting(CPrintInfo* pInfo);
  // ID_FILE_PRINT: prints the document (put it in a derived view's map).
  afx_msg void OnFilePrint();

  // ---- Print preview (afxpriv.h's CPreviewView shows it)
  // ID_FILE_PRINT_PREVIEW: DoPrintPreview with afx's toolbar and preview
  // view; a message box says when it cannot start.
  afx_msg void OnFilePrintPreview();
  // The top-level frame shows a preview of pPrintView's pages in a view of
  // pPreviewViewClass (a CPreviewView) under the dialog bar of template
  // nIDResource, in place of its own view and bars. FALSE when the preview
  // could not start (no printer, OnPreparePrinting cancelled): the frame is
  // as before and pState (made with new) is still the caller's; on success
  // the preview view owns it and deletes it when it goes.
  BOOL DoPrintPreview(UINT nIDResource, CView* pPrintView, CRuntimeClass* pPreviewViewClass,
                      CPrintPreviewState* pState);
  // The preview ends: OnEndPrinting, then the frame as it was before, its
  // active view too. point: where on the page (in the printer's pixels) the
  // preview's top left last was.
  virtual void OnEndPrintPreview(CDC* pDC, CPrintInfo* pInfo, POINT point, CPreviewView* pView);

  virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
  virtual void PostNcDestroy();
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

  CDocument* m_pDocument;

  afx_msg int OnCreate(LPCREATESTRUCT lpcs);
  afx_msg void OnDestroy();
  afx_msg void OnPaint();
  afx_msg LRESULT OnMouseActivate(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnInitialUpdateMsg(WPARAM wParam, LPARAM lParam);

protected:
  DECLARE_MESSAGE_MAP()
  friend class CDocument;
  friend class CFrameWnd;
};

// A view that is a control (a rich edit, a list...): the window is of the
// control's class, which paints itself.
class AFX_API CCtrlView : public CView {
  DECLARE_DYNAMIC(CCtrlView)
public:
  CCtrlView(LPCTSTR lpszClass, DWORD dwStyle);
  virtual ~CCtrlView();

  CString m_strClass;     // the control's window class
  DWORD m_dwDefaultStyle; // added to the style at creation

  virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
  virtual void OnDraw(CDC* pDC);
  afx_msg void OnPaint();

protected:
  DECLARE_MESSAGE_MAP()
};

// The map mode of a scroll view shown scaled to fit its window
// (SetScaleToFitSize).
#define MM_SCALETOFIT (-1)

// A view larger than its window: the window shows part of the view's total
// size and scroll bars move over the rest. Sizes are given in the logical
// units of the map mode (MM_TEXT, or a metric one such as MM_LOENGLISH whose
// y axis points up: the view's content then lies at negative y) and kept in
// device units (pixels of the screen). OnPrepareDC sets the map mode and
// puts the viewport origin at minus the scroll position, so OnDraw draws in
// document coordinates; a printer DC gets only the map mode. The scroll
// bars' positions are in device units; SB_LINE* and SB_PAGE* move by the
// line and page sizes, the wheel by the system's wheel lines (or a page).
// Left out: keyboard scrolling (as in MFC, a view adds it), the
// middle-button pan window, and splitter windows' shared bars.
class AFX_API CScrollView : public CView {
  DECLARE_DYNAMIC(CScrollView)
protected:
  CScrollView();

public:
  virtual ~CScrollView();

  // (0, 0): the page is a tenth of the total size, the line a tenth of the
  // page.
  static const SIZE sizeDefault;

  // nMapMode is MM_TEXT or a metric mode (not MM_ISOTROPIC/MM_ANISOTROPIC);
  // sizes are logical and not negative.
  void SetScrollSizes(int nMapMode, SIZE sizeTotal, const SIZE& sizePage = sizeDefault,
                      const SIZE& sizeLine = sizeDefault);
  // No scroll bars: sizeTotal (logical) is stretched over the client area.
  void SetScaleToFitSize(SIZE sizeTotal);

  CPoint GetScrollPosition() const; // logical
  CSize GetTotalSize() const { return m_totalLog; }
  void CheckScrollBars(BOOL& bHasHorzBar, BOOL& bHasVertBar) const;
  CPoint GetDeviceScrollPosition() const;
  void GetDeviceScrollSizes(int& nMapMode, SIZE& sizeTotal, SIZE& sizePage, SIZE& sizeLine) const;
  // Scrolls so that logical point pt is at the top left, kept in range.
  void ScrollToPosition(POINT pt);
  // Fills what lies right of and below the total size (call it from
  // OnEraseBkgnd with its unprepared DC).
  void FillOutsideRect(CDC* pDC, CBrush* pBrush);
  // Resizes the parent frame so that the view's client area is its total
  // size; bShrinkOnly only makes it smaller where it is larger.
  void ResizeParentToFit(BOOL bShrinkOnly = TRUE);
  // The wheel's scroll (fFlags with MK_SHIFT or MK_CONTROL: none); TRUE
  // when the view moved.
  BOOL DoMouseWheel(UINT fFlags, short zDelta, CPoint point);

  virtual void OnPrepareDC(CDC* pDC, CPrintInfo* pInfo = NULL);
  // nScrollCode: the horizontal SB_ code in the low byte, the vertical one
  // in the high byte (0xFF: none). FALSE when nothing would move; with
  // bDoScroll FALSE, only tells.
  virtual BOOL OnScroll(UINT nScrollCode, UINT nPos, BOOL bDoScroll = TRUE);
  virtual BOOL OnScrollBy(CSize sizeScroll, BOOL bDoScroll = TRUE);

  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
  afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
  afx_msg BOOL OnMouseWheel(UINT fFlags, short zDelta, CPoint point);

protected:
  int m_nMapMode;       // 0 until a Set function is called
  CSize m_totalLog;     // total size, logical
  CSize m_totalDev;     // total size, device
  CSize m_pageDev;      // page scroll, device
  CSize m_lineDev;      // line scroll, device
  BOOL m_bCenter;       // a view smaller than the window is centred in it
  BOOL m_bInsideUpdate; // UpdateBars is running (its bars resize the window)

  // Shows, hides and sizes the scroll bars for the client area and keeps
  // the position in range.
  void UpdateBars();
  // Moves to device position ptDev, unchecked.
  void ScrollToDevicePosition(POINT ptDev);
  // The client area with no scroll bars shown, and the bars' widths; FALSE
  // when it cannot hold both bars.
  BOOL GetTrueClientSize(CSize& size, CSize& sizeSb);
  void GetScrollBarSizes(CSize& sizeSb);
  // For a client area sizeClient (no bars shown): which bars are needed,
  // the scroll ranges, and the position kept in range.
  void GetScrollBarState(CSize sizeClient, CSize& needSb, CSize& sizeRange, CPoint& ptMove);

  DECLARE_MESSAGE_MAP()
};

// A document: the data behind views, read and written through CArchive
// (Serialize), with its title, path, modified flag and views.
class AFX_API CDocument : public CCmdTarget {
  DECLARE_DYNAMIC(CDocument)
public:
  CDocument();
  virtual ~CDocument();

  const CString& GetTitle() const { return m_strTitle; }
  virtual void SetTitle(LPCTSTR lpszTitle);
  const CString& GetPathName() const { return m_strPathName; }
  // Sets the path (made full) and the title from its file name.
  virtual void SetPathName(LPCTSTR lpszPathName, BOOL bAddToMRU = TRUE);
  CDocTemplate* GetDocTemplate() const { return m_pDocTemplate; }
  virtual BOOL IsModified() { return m_bModified; }
  virtual void SetModifiedFlag(BOOL bModified = TRUE) { m_bModified = bModified; }

  // ---- Views
  virtual POSITION GetFirstViewPosition() const { return m_viewList.GetHeadPosition(); }
  virtual CView* GetNextView(POSITION& rPosition) const;
  void AddView(CView* pView);
  void RemoveView(CView* pView);
  // OnUpdate(pSender, lHint, pHint) of every view but pSender.
  void UpdateAllViews(CView* pSender, LPARAM lHint = 0L, CObject* pHint = NULL);
  virtual void OnChangedViewList();
  virtual void UpdateFrameCounts();

  // ---- Life cycle
  virtual void DeleteContents();
  virtual BOOL OnNewDocument();
  virtual BOOL OnOpenDocument(LPCTSTR lpszPathName);
  virtual BOOL OnSaveDocument(LPCTSTR lpszPathName);
  virtual void OnCloseDocument();
  virtual BOOL CanCloseFrame(CFrameWnd* pFrame);
  virtual void PreCloseFrame(CFrameWnd* pFrame);
  // "Save changes to <title>?": Yes saves, No goes on, Cancel refuses.
  virtual BOOL SaveModified();
  virtual void ReportSaveLoadException(LPCTSTR lpszPathName, CException* e, BOOL bSaving,
                                       UINT nIDPDefault);
  virtual CFile* GetFile(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError);
  virtual void ReleaseFile(CFile* pFile, BOOL bAbort);
  // Saves to lpszPathName, or asks for a name first when it is NULL.
  virtual BOOL DoSave(LPCTSTR lpszPathName, BOOL bReplace = TRUE);
  virtual BOOL DoFileSave();

  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

  CString m_strTitle;
  CString m_strPathName;
  CDocTemplate* m_pDocTemplate;
  CPtrList m_viewList;
  BOOL m_bModified;
  BOOL m_bAutoDelete; // deleted when its last view goes
  BOOL m_bEmbedded;

  afx_msg void OnFileClose();
  afx_msg void OnFileSave();
  afx_msg void OnFileSaveAs();

protected:
  DECLARE_MESSAGE_MAP()
  friend class CDocTemplate;
};

// What a document type is made of: the document, frame and view classes and
// the resource id of the menu, icon, accelerators and the document strings.
class AFX_API CDocTemplate : public CCmdTarget {
  DECLARE_DYNAMIC(CDocTemplate)
protected:
  CDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass,
               CRuntimeClass* pViewClass);

public:
  virtual ~CDocTemplate();

  // The fields of string nIDResource, separated by "\n".
  enum DocStringIndex {
    windowTitle,
    docName,
    fileNewName,
    filterName,
    filterExt,
    regFileTypeId,
    regFileTypeName
  };
  virtual BOOL GetDocString(CString& rString, enum DocStringIndex index) const;
  // Loads the document strings (and, for MDI, the shared menu and table).
  virtual void LoadTemplate();

  virtual POSITION GetFirstDocPosition() const = 0;
  virtual CDocument* GetNextDoc(POSITION& rPos) const = 0;
  virtual void AddDocument(CDocument* pDoc);
  virtual void RemoveDocument(CDocument* pDoc);

  enum Confidence {
    noAttempt,
    maybeAttemptForeign,
    maybeAttemptNative,
    yesAttemptForeign,
    yesAttemptNative,
    yesAlreadyOpen
  };
  virtual Confidence MatchDocType(LPCTSTR lpszPathName, CDocument*& rpDocMatch);

  virtual CDocument* CreateNewDocument();
  virtual CFrameWnd* CreateNewFrame(CDocument* pDoc, CFrameWnd* pOther);
  virtual void InitialUpdateFrame(CFrameWnd* pFrame, CDocument* pDoc, BOOL bMakeVisible = TRUE);
  virtual BOOL SaveAllModified();
  virtual void CloseAllDocuments(BOOL bEndSession);
  virtual CDocument* OpenDocumentFile(LPCTSTR lpszPathName, BOOL bMakeVisible = TRUE) = 0;
  virtual void SetDefaultTitle(CDocument* pDocument) = 0;
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

  UINT m_nIDResource;
  CRuntimeClass* m_pDocClass;
  CRuntimeClass* m_pFrameClass;
  CRuntimeClass* m_pViewClass;
  CString m_strDocStrings;
  BOOL m_bAutoDelete; // deleted with the application's document manager
};

// One document at a time: a new or opened document replaces the old one in
// the same frame.
class AFX_API CSingleDocTemplate : public CDocTemplate {
  DECLARE_DYNAMIC(CSingleDocTemplate)
public:
  CSingleDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass,
                     CRuntimeClass* pViewClass);
  virtual ~CSingleDocTemplate();

  virtual void AddDocument(CDocument* pDoc);
  virtual void RemoveDocument(CDocument* pDoc);
  virtual POSITION GetFirstDocPosition() const;
  virtual CDocument* GetNextDoc(POSITION& rPos) const;
  virtual CDocument* OpenDocumentFile(LPCTSTR lpszPathName, BOOL bMakeVisible = TRUE);
  virtual void SetDefaultTitle(CDocument* pDocument);

  CDocument* m_pOnlyDoc;
};

// Any number of documents, each in its own MDI child; every child shows the
// template's one menu and accelerator table, loaded once and freed with it.
class AFX_API CMultiDocTemplate : public CDocTemplate {
  DECLARE_DYNAMIC(CMultiDocTemplate)
public:
  CMultiDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass,
                    CRuntimeClass* pViewClass);
  virtual ~CMultiDocTemplate();

  virtual void LoadTemplate();
  virtual void AddDocument(CDocument* pDoc);
  virtual void RemoveDocument(CDocument* pDoc);
  virtual POSITION GetFirstDocPosition() const;
  virtual CDocument* GetNextDoc(POSITION& rPos) const;
  virtual CDocument* OpenDocumentFile(LPCTSTR lpszPathName, BOOL bMakeVisible = TRUE);
  virtual void SetDefaultTitle(CDocument* pDocument);

  HMENU m_hMenuShared;
  HACCEL m_hAccelTable;
  CPtrList m_docList;
  UINT m_nUntitledCount; // numbers "Untitled1", "Untitled2"...
};

// The application's document templates, deleted with it.
class AFX_API CDocManager : public CObject {
  DECLARE_DYNAMIC(CDocManager)
public:
  CDocManager();
  virtual ~CDocManager();

  virtual void AddDocTemplate(CDocTemplate* pTemplate);
  virtual POSITION GetFirstDocTemplatePosition() const;
  virtual CDocTemplate* GetNextDocTemplate(POSITION& pos) const;
  virtual CDocument* OpenDocumentFile(LPCTSTR lpszFileName);
  virtual BOOL SaveAllModified();
  virtual void CloseAllDocuments(BOOL bEndSession);
  virtual int GetOpenDocumentCount();
  virtual BOOL DoPromptFileName(CString& fileName, UINT nIDSTitle, DWORD lFlags,
                                BOOL bOpenFileDialog, CDocTemplate* pTemplate);
  virtual void OnFileNew();
  virtual void OnFileOpen();

  CPtrList m_templateList;
};

// ---- Module resources -------------------------------------------------------

AFX_API HINSTANCE AFXAPI AfxGetInstanceHandle();
AFX_API HINSTANCE AFXAPI AfxGetResourceHandle();
AFX_API void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource);
// The module that holds a resource: the resource handle, then the extension
// libraries, then the system libraries, then afx itself.
AFX_API HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);
// Copies string nID into lpszBuf (at most nMaxBuf - 1 characters); returns
// the length, 0 when no module in the chain has the string.
AFX_API int AFXAPI AfxLoadString(UINT nID, LPTSTR lpszBuf, UINT nMaxBuf = 256);

// ---- Handle maps and the current message ------------------------------------

// While locked, temporary objects made by FromHandle (CWnd, CMenu, CDC, GDI
// objects) are kept; the last unlock deletes them when bDeleteTemps is set
// and returns TRUE. CWinThread::OnIdle does both.
AFX_API void AFXAPI AfxLockTempMaps();
AFX_API BOOL AFXAPI AfxUnlockTempMaps(BOOL bDeleteTemps = TRUE);

// The message afx's window procedure is handling now on this thread (its
// window, number, parameters, time and point).
AFX_API MSG* AFXAPI AfxGetCurrentMessage();

// ---- Message boxes ----------------------------------------------------------

AFX_API int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
AFX_API int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = (UINT)-1);

#include "afxdll_.h"

#endif // __AFXWIN_H__
