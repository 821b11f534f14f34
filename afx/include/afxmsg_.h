// afxmsg_.h - message-map entries: the handler signatures (AfxSig) and the
// ON_... macros. Included by afxwin.h after CWnd.
#ifndef AFXMSG__H
#define AFXMSG__H

// The handler signature of an entry: how the window procedure unpacks the
// message's parameters into the handler's arguments and its result back.
// Letters after "AfxSig_": result, then arguments: v void, b BOOL, i int,
// w UINT/WPARAM, l LPARAM/LRESULT, h handle, s pointer to a structure,
// p CPoint, D CDC*, W CWnd*, M CMenu*.
enum AfxSig {
  AfxSig_end = 0, // end of the entries

  // Commands and notifications (WM_COMMAND, WM_NOTIFY and their reflections).
  AfxSigCmd_v,        // void ()
  AfxSigCmd_b,        // BOOL ()        (_REFLECT_EX)
  AfxSigCmd_RANGE,    // void (UINT)
  AfxSigCmd_EX,       // BOOL (UINT)
  AfxSigNotify_v,     // void (NMHDR*, LRESULT*)
  AfxSigNotify_b,     // BOOL (NMHDR*, LRESULT*)
  AfxSigNotify_RANGE, // void (UINT, NMHDR*, LRESULT*)
  AfxSigNotify_EX,    // BOOL (UINT, NMHDR*, LRESULT*)
  AfxSigCmdUI,        // void (CCmdUI*)

  // Window messages.
  AfxSig_vv,     // void ()
  AfxSig_bv,     // BOOL ()
  AfxSig_wv,     // UINT ()
  AfxSig_lwl,    // LRESULT (WPARAM, LPARAM)     ON_MESSAGE, ON_REGISTERED_MESSAGE
  AfxSig_is,     // int (LPTSTR or a structure)  WM_CREATE, WM_COMPAREITEM reflected
  AfxSig_bD,     // BOOL (CDC*)                  WM_ERASEBKGND
  AfxSig_hDWw,   // HBRUSH (CDC*, CWnd*, UINT)   WM_CTLCOLOR
  AfxSig_hDw,    // HBRUSH (CDC*, UINT)          WM_CTLCOLOR reflected
  AfxSig_vOWNER, // void (int, structure*)       WM_DRAWITEM, WM_MEASUREITEM, WM_DELETEITEM
  AfxSig_iis,    // int (int, structure*)        WM_COMPAREITEM
  AfxSig_vs,     // void (structure*)            reflected owner-draw messages, WM_WINDOWPOS…
  AfxSig_vwp,    // void (UINT, CPoint)          mouse messages
  AfxSig_bwsp,   // BOOL (UINT, short, CPoint)   WM_MOUSEWHEEL
  AfxSig_vwww,   // void (UINT, UINT, UINT)      key messages
  AfxSig_vW,     // void (CWnd*)                 focus, capture
  AfxSig_vWp,    // void (CWnd*, CPoint)         WM_CONTEXTMENU
  AfxSig_vwii,   // void (UINT, int, int)        WM_SIZE
  AfxSig_vii,    // void (int, int)              WM_MOVE
  AfxSig_vw,     // void (UINT)                  WM_TIMER
  AfxSig_vb,     // void (BOOL)                  WM_ENABLE, WM_ENTER/EXITMENULOOP
  AfxSig_vbw,    // void (BOOL, UINT)            WM_SHOWWINDOW
  AfxSig_bWww,   // BOOL (CWnd*, UINT, UINT)     WM_SETCURSOR
  AfxSig_vMwb,   // void (CMenu*, UINT, BOOL)    WM_INITMENUPOPUP
  AfxSig_lwwM,   // LRESULT (UINT, UINT, CMenu*) WM_MENUCHAR
  AfxSig_vwwh,   // void (UINT, UINT, HMENU)     WM_MENUSELECT
  AfxSig_vws,    // void (UINT, LPCTSTR)         WM_SETTINGCHANGE
  AfxSig_vwwW,   // void (UINT, UINT, CScrollBar*) WM_HSCROLL, WM_VSCROLL
  AfxSig_vwWb,   // void (UINT, CWnd*, BOOL)     WM_ACTIVATE
  AfxSig_vwl,    // void (UINT, LPARAM)          WM_SYSCOMMAND
  AfxSig_lp,     // LRESULT (CPoint)             WM_NCHITTEST
  AfxSig_bs,     // BOOL (structure*)            WM_HELP
  AfxSig_vh,     // void (HANDLE)                WM_DROPFILES
};

// Notification codes of a command (CCmdTarget::OnCmdMsg's nCode).
#define CN_COMMAND 0
#define CN_UPDATE_COMMAND_UI ((UINT)(-1))
#define CN_EVENT ((UINT)(-2))
#define CN_OLECOMMAND ((UINT)(-3))
#define CN_OLE_UNREGISTER ((UINT)(-4))

// Reflected messages arrive at the child control as WM_REFLECT_BASE+message.
#define WM_REFLECT_BASE 0xBC00
// The message number message maps use for every WM_CTLCOLOR... message (the
// 16-bit Windows one); afx packs its parameters into an AFX_CTLCOLOR.
#ifndef WM_CTLCOLOR
#define WM_CTLCOLOR 0x0019
#endif

// ---- Window messages ----------------------------------------------------------

#define ON_WM_CREATE()                                                                             \
  {WM_CREATE,                                                                                      \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_is,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<int (AFX_MSG_CALL CWnd::*)(LPCREATESTRUCT)>(                  \
       &ThisClass::OnCreate))},
#define ON_WM_DESTROY()                                                                            \
  {WM_DESTROY,                                                                                     \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vv,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(void)>(&ThisClass::OnDestroy))},
#define ON_WM_NCDESTROY()                                                                          \
  {WM_NCDESTROY,                                                                                   \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vv,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(void)>(                           \
       &ThisClass::OnNcDestroy))},
#define ON_WM_CLOSE()                                                                              \
  {WM_CLOSE,                                                                                       \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vv,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(void)>(&ThisClass::OnClose))},
#define ON_WM_PAINT()                                                                              \
  {WM_PAINT,                                                                                       \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vv,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(void)>(&ThisClass::OnPaint))},
#define ON_WM_SYSCOLORCHANGE()                                                                     \
  {WM_SYSCOLORCHANGE,                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vv,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(void)>(                           \
       &ThisClass::OnSysColorChange))},
#define ON_WM_PALETTECHANGED()                                                                     \
  {WM_PALETTECHANGED,                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vW,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(CWnd*)>(                          \
       &ThisClass::OnPaletteChanged))},
#define ON_WM_QUERYNEWPALETTE()                                                                    \
  {WM_QUERYNEWPALETTE,                                                                             \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_bv,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<BOOL (AFX_MSG_CALL CWnd::*)(void)>(                           \
       &ThisClass::OnQueryNewPalette))},
#define ON_WM_CANCELMODE()                                                                         \
  {WM_CANCELMODE,                                                                                  \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vv,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(void)>(                           \
       &ThisClass::OnCancelMode))},
#define ON_WM_GETDLGCODE()                                                                         \
  {WM_GETDLGCODE,                                                                                  \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_wv,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<UINT (AFX_MSG_CALL CWnd::*)(void)>(                           \
       &ThisClass::OnGetDlgCode))},
#define ON_WM_ERASEBKGND()                                                                         \
  {WM_ERASEBKGND,                                                                                  \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_bD,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<BOOL (AFX_MSG_CALL CWnd::*)(CDC*)>(                           \
       &ThisClass::OnEraseBkgnd))},
#define ON_WM_CTLCOLOR()                                                                           \
  {WM_CTLCOLOR,                                                                                    \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_hDWw,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<HBRUSH (AFX_MSG_CALL CWnd::*)(CDC*, CWnd*, UINT)>(            \
       &ThisClass::OnCtlColor))},
#define ON_WM_DRAWITEM()                                                                           \
  {WM_DRAWITEM,                                                                                    \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vOWNER,                                                                                  \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(int, LPDRAWITEMSTRUCT)>(          \
       &ThisClass::OnDrawItem))},
#define ON_WM_MEASUREITEM()                                                                        \
  {WM_MEASUREITEM,                                                                                 \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vOWNER,                                                                                  \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(int, LPMEASUREITEMSTRUCT)>(       \
       &ThisClass::OnMeasureItem))},
#define ON_WM_DELETEITEM()                                                                         \
  {WM_DELETEITEM,                                                                                  \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vOWNER,                                                                                  \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(int, LPDELETEITEMSTRUCT)>(        \
       &ThisClass::OnDeleteItem))},
#define ON_WM_COMPAREITEM()                                                                        \
  {WM_COMPAREITEM,                                                                                 \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_iis,                                                                                     \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<int (AFX_MSG_CALL CWnd::*)(int, LPCOMPAREITEMSTRUCT)>(        \
       &ThisClass::OnCompareItem))},

#define AFX_ON_MOUSE(msg, fn)                                                                      \
  {msg,                                                                                            \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vwp,                                                                                     \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(UINT, CPoint)>(&ThisClass::fn))},
#define ON_WM_MOUSEMOVE() AFX_ON_MOUSE(WM_MOUSEMOVE, OnMouseMove)
#define ON_WM_LBUTTONDOWN() AFX_ON_MOUSE(WM_LBUTTONDOWN, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_ON_MOUSE(WM_LBUTTONUP, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_ON_MOUSE(WM_LBUTTONDBLCLK, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_ON_MOUSE(WM_RBUTTONDOWN, OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_ON_MOUSE(WM_RBUTTONUP, OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK() AFX_ON_MOUSE(WM_RBUTTONDBLCLK, OnRButtonDblClk)
#define ON_WM_MBUTTONDOWN() AFX_ON_MOUSE(WM_MBUTTONDOWN, OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_ON_MOUSE(WM_MBUTTONUP, OnMButtonUp)
#define ON_WM_MBUTTONDBLCLK() AFX_ON_MOUSE(WM_MBUTTONDBLCLK, OnMButtonDblClk)
// Non-client mouse messages: the hit-test code and the point in screen
// co-ordinates.
#define ON_WM_NCLBUTTONDOWN() AFX_ON_MOUSE(WM_NCLBUTTONDOWN, OnNcLButtonDown)
#define ON_WM_NCLBUTTONUP() AFX_ON_MOUSE(WM_NCLBUTTONUP, OnNcLButtonUp)
#define ON_WM_NCLBUTTONDBLCLK() AFX_ON_MOUSE(WM_NCLBUTTONDBLCLK, OnNcLButtonDblClk)
#define ON_WM_NCRBUTTONDOWN() AFX_ON_MOUSE(WM_NCRBUTTONDOWN, OnNcRButtonDown)
#define ON_WM_NCRBUTTONDBLCLK() AFX_ON_MOUSE(WM_NCRBUTTONDBLCLK, OnNcRButtonDblClk)
#define ON_WM_NCMOUSEMOVE() AFX_ON_MOUSE(WM_NCMOUSEMOVE, OnNcMouseMove)

#define ON_WM_MOUSEWHEEL()                                                                         \
  {WM_MOUSEWHEEL,                                                                                  \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_bwsp,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<BOOL (AFX_MSG_CALL CWnd::*)(UINT, short, CPoint)>(            \
       &ThisClass::OnMouseWheel))},

#define AFX_ON_KEY(msg, fn)                                                                        \
  {msg,                                                                                            \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vwww,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(UINT, UINT, UINT)>(               \
       &ThisClass::fn))},
#define ON_WM_KEYDOWN() AFX_ON_KEY(WM_KEYDOWN, OnKeyDown)
#define ON_WM_KEYUP() AFX_ON_KEY(WM_KEYUP, OnKeyUp)
#define ON_WM_CHAR() AFX_ON_KEY(WM_CHAR, OnChar)
#define ON_WM_SYSKEYDOWN() AFX_ON_KEY(WM_SYSKEYDOWN, OnSysKeyDown)
#define ON_WM_SYSKEYUP() AFX_ON_KEY(WM_SYSKEYUP, OnSysKeyUp)
#define ON_WM_SYSCHAR() AFX_ON_KEY(WM_SYSCHAR, OnSysChar)

#define ON_WM_SETFOCUS()                                                                           \
  {WM_SETFOCUS,                                                                                    \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vW,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(CWnd*)>(                          \
       &ThisClass::OnSetFocus))},
#define ON_WM_KILLFOCUS()                                                                          \
  {WM_KILLFOCUS,                                                                                   \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vW,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(CWnd*)>(                          \
       &ThisClass::OnKillFocus))},
#define ON_WM_CAPTURECHANGED()                                                                     \
  {WM_CAPTURECHANGED,                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vW,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(CWnd*)>(                          \
       &ThisClass::OnCaptureChanged))},
#define ON_WM_CONTEXTMENU()                                                                        \
  {WM_CONTEXTMENU,                                                                                 \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vWp,                                                                                     \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(CWnd*, CPoint)>(                  \
       &ThisClass::OnContextMenu))},
#define ON_WM_SIZE()                                                                               \
  {WM_SIZE,                                                                                        \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vwii,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(UINT, int, int)>(                 \
       &ThisClass::OnSize))},
#define ON_WM_MOVE()                                                                               \
  {WM_MOVE,                                                                                        \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vii,                                                                                     \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(int, int)>(&ThisClass::OnMove))},
#define ON_WM_TIMER()                                                                              \
  {WM_TIMER,                                                                                       \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vw,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(UINT_PTR)>(                       \
       &ThisClass::OnTimer))},
#define ON_WM_ENABLE()                                                                             \
  {WM_ENABLE,                                                                                      \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vb,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(BOOL)>(&ThisClass::OnEnable))},
#define ON_WM_ENTERMENULOOP()                                                                      \
  {WM_ENTERMENULOOP,                                                                               \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vb,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(BOOL)>(                           \
       &ThisClass::OnEnterMenuLoop))},
#define ON_WM_EXITMENULOOP()                                                                       \
  {WM_EXITMENULOOP,                                                                                \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vb,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(BOOL)>(                           \
       &ThisClass::OnExitMenuLoop))},
#define ON_WM_SHOWWINDOW()                                                                         \
  {WM_SHOWWINDOW,                                                                                  \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vbw,                                                                                     \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(BOOL, UINT)>(                     \
       &ThisClass::OnShowWindow))},
#define ON_WM_SETCURSOR()                                                                          \
  {WM_SETCURSOR,                                                                                   \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_bWww,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<BOOL (AFX_MSG_CALL CWnd::*)(CWnd*, UINT, UINT)>(              \
       &ThisClass::OnSetCursor))},
#define ON_WM_INITMENUPOPUP()                                                                      \
  {WM_INITMENUPOPUP,                                                                               \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vMwb,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(CMenu*, UINT, BOOL)>(             \
       &ThisClass::OnInitMenuPopup))},
#define ON_WM_MENUCHAR()                                                                           \
  {WM_MENUCHAR,                                                                                    \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_lwwM,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<LRESULT (AFX_MSG_CALL CWnd::*)(UINT, UINT, CMenu*)>(          \
       &ThisClass::OnMenuChar))},
#define ON_WM_MENUSELECT()                                                                         \
  {WM_MENUSELECT,                                                                                  \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vwwh,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(UINT, UINT, HMENU)>(              \
       &ThisClass::OnMenuSelect))},
#define ON_WM_SETTINGCHANGE()                                                                      \
  {WM_SETTINGCHANGE,                                                                               \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vws,                                                                                     \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(UINT, LPCTSTR)>(                  \
       &ThisClass::OnSettingChange))},
#define ON_WM_HSCROLL()                                                                            \
  {WM_HSCROLL,                                                                                     \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vwwW,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(UINT, UINT, CScrollBar*)>(        \
       &ThisClass::OnHScroll))},
#define ON_WM_VSCROLL()                                                                            \
  {WM_VSCROLL,                                                                                     \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vwwW,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(UINT, UINT, CScrollBar*)>(        \
       &ThisClass::OnVScroll))},
#define ON_WM_ACTIVATE()                                                                           \
  {WM_ACTIVATE,                                                                                    \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vwWb,                                                                                    \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(UINT, CWnd*, BOOL)>(              \
       &ThisClass::OnActivate))},
#define ON_WM_SYSCOMMAND()                                                                         \
  {WM_SYSCOMMAND,                                                                                  \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vwl,                                                                                     \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(UINT, LPARAM)>(                   \
       &ThisClass::OnSysCommand))},
#define ON_WM_NCHITTEST()                                                                          \
  {WM_NCHITTEST,                                                                                   \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_lp,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<LRESULT (AFX_MSG_CALL CWnd::*)(CPoint)>(                      \
       &ThisClass::OnNcHitTest))},
#define ON_WM_WINDOWPOSCHANGED()                                                                   \
  {WM_WINDOWPOSCHANGED,                                                                            \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vs,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(WINDOWPOS*)>(                     \
       &ThisClass::OnWindowPosChanged))},
#define ON_WM_GETMINMAXINFO()                                                                      \
  {WM_GETMINMAXINFO,                                                                               \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vs,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(MINMAXINFO*)>(                    \
       &ThisClass::OnGetMinMaxInfo))},
#define ON_WM_HELPINFO()                                                                           \
  {WM_HELP,                                                                                        \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_bs,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<BOOL (AFX_MSG_CALL CWnd::*)(HELPINFO*)>(                      \
       &ThisClass::OnHelpInfo))},
#define ON_WM_DROPFILES()                                                                          \
  {WM_DROPFILES,                                                                                   \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vh,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(HDROP)>(                          \
       &ThisClass::OnDropFiles))},

// ---- User-defined and registered messages ----------------------------------

#define ON_MESSAGE(message, memberFxn)                                                             \
  {message,                                                                                        \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_lwl,                                                                                     \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<LRESULT (AFX_MSG_CALL CWnd::*)(WPARAM, LPARAM)>(memberFxn))},
// The entry keeps the address of the variable holding the registered
// message's number (RegisterWindowMessage at run time) in its signature word.
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn)                                         \
  {0xC000,                                                                                         \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   (UINT_PTR)(UINT*)(&nMessageVariable),                                                           \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<LRESULT (AFX_MSG_CALL CWnd::*)(WPARAM, LPARAM)>(memberFxn))},

// ---- Commands ----------------------------------------------------------------

#define ON_COMMAND(id, memberFxn)                                                                  \
  {WM_COMMAND,                                                                                     \
   CN_COMMAND,                                                                                     \
   (WORD)id,                                                                                       \
   (WORD)id,                                                                                       \
   AfxSigCmd_v,                                                                                    \
   static_cast<AFX_PMSG>(static_cast<void (AFX_MSG_CALL CCmdTarget::*)(void)>(memberFxn))},
#define ON_COMMAND_EX(id, memberFxn)                                                               \
  {WM_COMMAND,   CN_COMMAND,                                                                       \
   (WORD)id,     (WORD)id,                                                                         \
   AfxSigCmd_EX, (AFX_PMSG)(static_cast<BOOL (AFX_MSG_CALL CCmdTarget::*)(UINT)>(memberFxn))},
#define ON_COMMAND_RANGE(id, idLast, memberFxn)                                                    \
  {WM_COMMAND,      CN_COMMAND,                                                                    \
   (WORD)id,        (WORD)idLast,                                                                  \
   AfxSigCmd_RANGE, (AFX_PMSG)(static_cast<void (AFX_MSG_CALL CCmdTarget::*)(UINT)>(memberFxn))},
#define ON_COMMAND_EX_RANGE(id, idLast, memberFxn)                                                 \
  {WM_COMMAND,   CN_COMMAND,                                                                       \
   (WORD)id,     (WORD)idLast,                                                                     \
   AfxSigCmd_EX, (AFX_PMSG)(static_cast<BOOL (AFX_MSG_CALL CCmdTarget::*)(UINT)>(memberFxn))},
#define ON_UPDATE_COMMAND_UI(id, memberFxn)                                                        \
  {WM_COMMAND,  CN_UPDATE_COMMAND_UI,                                                              \
   (WORD)id,    (WORD)id,                                                                          \
   AfxSigCmdUI, (AFX_PMSG)(static_cast<void (AFX_MSG_CALL CCmdTarget::*)(CCmdUI*)>(memberFxn))},
#define ON_UPDATE_COMMAND_UI_RANGE(id, idLast, memberFxn)                                          \
  {WM_COMMAND,  CN_UPDATE_COMMAND_UI,                                                              \
   (WORD)id,    (WORD)idLast,                                                                      \
   AfxSigCmdUI, (AFX_PMSG)(static_cast<void (AFX_MSG_CALL CCmdTarget::*)(CCmdUI*)>(memberFxn))},

// ---- Control notifications -----------------------------------------------------

#define ON_CONTROL(wNotifyCode, id, memberFxn)                                                     \
  {WM_COMMAND, (WORD)wNotifyCode, (WORD)id,                                                        \
   (WORD)id,   AfxSigCmd_v,       (static_cast<AFX_PMSG>(memberFxn))},
#define ON_CONTROL_RANGE(wNotifyCode, id, idLast, memberFxn)                                       \
  {WM_COMMAND,      (WORD)wNotifyCode,                                                             \
   (WORD)id,        (WORD)idLast,                                                                  \
   AfxSigCmd_RANGE, (AFX_PMSG)(static_cast<void (AFX_MSG_CALL CCmdTarget::*)(UINT)>(memberFxn))},
#define ON_NOTIFY(wNotifyCode, id, memberFxn)                                                      \
  {WM_NOTIFY,                                                                                      \
   (WORD)(int)wNotifyCode,                                                                         \
   (WORD)id,                                                                                       \
   (WORD)id,                                                                                       \
   AfxSigNotify_v,                                                                                 \
   (AFX_PMSG)(static_cast<void (AFX_MSG_CALL CCmdTarget::*)(NMHDR*, LRESULT*)>(memberFxn))},
#define ON_NOTIFY_RANGE(wNotifyCode, id, idLast, memberFxn)                                        \
  {WM_NOTIFY,                                                                                      \
   (WORD)(int)wNotifyCode,                                                                         \
   (WORD)id,                                                                                       \
   (WORD)idLast,                                                                                   \
   AfxSigNotify_RANGE,                                                                             \
   (AFX_PMSG)(static_cast<void (AFX_MSG_CALL CCmdTarget::*)(UINT, NMHDR*, LRESULT*)>(memberFxn))},
#define ON_NOTIFY_EX(wNotifyCode, id, memberFxn)                                                   \
  {WM_NOTIFY,                                                                                      \
   (WORD)(int)wNotifyCode,                                                                         \
   (WORD)id,                                                                                       \
   (WORD)id,                                                                                       \
   AfxSigNotify_EX,                                                                                \
   (AFX_PMSG)(static_cast<BOOL (AFX_MSG_CALL CCmdTarget::*)(UINT, NMHDR*, LRESULT*)>(memberFxn))},

// ---- Reflected notifications, handled by the control itself ---------------------

#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn)                                                 \
  {WM_COMMAND + WM_REFLECT_BASE,      (WORD)wNotifyCode, 0, 0, AfxSigCmd_v,                        \
   (static_cast<AFX_PMSG>(memberFxn))},
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn)                                              \
  {WM_COMMAND + WM_REFLECT_BASE,                                                                   \
   (WORD)wNotifyCode,                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSigCmd_b,                                                                                    \
   (AFX_PMSG)(static_cast<BOOL (AFX_MSG_CALL CCmdTarget::*)(void)>(memberFxn))},
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn)                                                  \
  {WM_NOTIFY + WM_REFLECT_BASE,                                                                    \
   (WORD)(int)wNotifyCode,                                                                         \
   0,                                                                                              \
   0,                                                                                              \
   AfxSigNotify_v,                                                                                 \
   (AFX_PMSG)(static_cast<void (AFX_MSG_CALL CCmdTarget::*)(NMHDR*, LRESULT*)>(memberFxn))},
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn)                                               \
  {WM_NOTIFY + WM_REFLECT_BASE,                                                                    \
   (WORD)(int)wNotifyCode,                                                                         \
   0,                                                                                              \
   0,                                                                                              \
   AfxSigNotify_b,                                                                                 \
   (AFX_PMSG)(static_cast<BOOL (AFX_MSG_CALL CCmdTarget::*)(NMHDR*, LRESULT*)>(memberFxn))},
#define ON_WM_CTLCOLOR_REFLECT()                                                                   \
  {WM_CTLCOLOR + WM_REFLECT_BASE,                                                                  \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_hDw,                                                                                     \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<HBRUSH (AFX_MSG_CALL CWnd::*)(CDC*, UINT)>(                   \
       &ThisClass::CtlColor))},
#define ON_WM_DRAWITEM_REFLECT()                                                                   \
  {WM_DRAWITEM + WM_REFLECT_BASE,                                                                  \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vs,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(LPDRAWITEMSTRUCT)>(               \
       &ThisClass::DrawItem))},
#define ON_WM_MEASUREITEM_REFLECT()                                                                \
  {WM_MEASUREITEM + WM_REFLECT_BASE,                                                               \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vs,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(LPMEASUREITEMSTRUCT)>(            \
       &ThisClass::MeasureItem))},
#define ON_WM_DELETEITEM_REFLECT()                                                                 \
  {WM_DELETEITEM + WM_REFLECT_BASE,                                                                \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_vs,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<void (AFX_MSG_CALL CWnd::*)(LPDELETEITEMSTRUCT)>(             \
       &ThisClass::DeleteItem))},
#define ON_WM_COMPAREITEM_REFLECT()                                                                \
  {WM_COMPAREITEM + WM_REFLECT_BASE,                                                               \
   0,                                                                                              \
   0,                                                                                              \
   0,                                                                                              \
   AfxSig_is,                                                                                      \
   (AFX_PMSG)(AFX_PMSGW)(static_cast<int (AFX_MSG_CALL CWnd::*)(LPCOMPAREITEMSTRUCT)>(             \
       &ThisClass::CompareItem))},

// ---- Control notification helpers ------------------------------------------------

#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)

#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_EN_ERRSPACE(id, memberFxn) ON_CONTROL(EN_ERRSPACE, id, memberFxn)
#define ON_EN_HSCROLL(id, memberFxn) ON_CONTROL(EN_HSCROLL, id, memberFxn)
#define ON_EN_VSCROLL(id, memberFxn) ON_CONTROL(EN_VSCROLL, id, memberFxn)

#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_DBLCLK(id, memberFxn) ON_CONTROL(CBN_DBLCLK, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)
#define ON_CBN_SELENDCANCEL(id, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, id, memberFxn)

#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_LBN_SETFOCUS(id, memberFxn) ON_CONTROL(LBN_SETFOCUS, id, memberFxn)
#define ON_LBN_KILLFOCUS(id, memberFxn) ON_CONTROL(LBN_KILLFOCUS, id, memberFxn)
#define ON_LBN_SELCANCEL(id, memberFxn) ON_CONTROL(LBN_SELCANCEL, id, memberFxn)

#endif // AFXMSG__H
