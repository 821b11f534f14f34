// CMDIFrameWnd and CMDIChildWnd: the MDICLIENT, the children created in it,
// their shared menus and accelerators, activation and the Window menu.
#include <afxwin.h>
#include <afxpriv.h>
#include "../core/afximpl.h"
#include "frame_impl.h"

IMPLEMENT_DYNCREATE(CMDIFrameWnd, CFrameWnd)
IMPLEMENT_DYNCREATE(CMDIChildWnd, CFrameWnd)

// ---- CMDIFrameWnd --------------------------------------------------------------------

BEGIN_MESSAGE_MAP(CMDIFrameWnd, CFrameWnd)
ON_WM_DESTROY()
ON_WM_SIZE()
ON_MESSAGE(WM_IDLEUPDATECMDUI, OnIdleUpdateCmdUI)
ON_COMMAND(ID_WINDOW_NEW, OnWindowNew)
ON_COMMAND_EX(ID_WINDOW_ARRANGE, OnMDIWindowCmd)
ON_COMMAND_EX(ID_WINDOW_CASCADE, OnMDIWindowCmd)
ON_COMMAND_EX(ID_WINDOW_TILE_HORZ, OnMDIWindowCmd)
ON_COMMAND_EX(ID_WINDOW_TILE_VERT, OnMDIWindowCmd)
ON_UPDATE_COMMAND_UI(ID_WINDOW_ARRANGE, OnUpdateMDIWindowCmd)
ON_UPDATE_COMMAND_UI(ID_WINDOW_CASCADE, OnUpdateMDIWindowCmd)
ON_UPDATE_COMMAND_UI(ID_WINDOW_TILE_HORZ, OnUpdateMDIWindowCmd)
ON_UPDATE_COMMAND_UI(ID_WINDOW_TILE_VERT, OnUpdateMDIWindowCmd)
ON_UPDATE_COMMAND_UI(ID_WINDOW_NEW, OnUpdateMDIWindowCmd)
END_MESSAGE_MAP()

CMDIFrameWnd::CMDIFrameWnd() : m_hWndMDIClient(NULL), m_hMenuAlt(NULL) {}

CMDIFrameWnd::~CMDIFrameWnd() {}

BOOL CMDIFrameWnd::LoadFrame(UINT nIDResource, DWORD dwDefaultStyle, CWnd* pParentWnd,
                             CCreateContext* pContext) {
  if (!CFrameWnd::LoadFrame(nIDResource, dwDefaultStyle, pParentWnd, pContext)) return FALSE;
  // The menu shown while no child is active.
  m_hMenuDefault = ::GetMenu(m_hWnd);
  return TRUE;
}

HMENU CMDIFrameWnd::GetWindowMenuPopup(HMENU hMenuBar) {
  if (hMenuBar == NULL) return NULL;
  int iItem = ::GetMenuItemCount(hMenuBar);
  while (iItem-- > 0) {
    HMENU hMenuPop = ::GetSubMenu(hMenuBar, iItem);
    if (hMenuPop == NULL) continue;
    int iItemMax = ::GetMenuItemCount(hMenuPop);
    for (int iItemPop = 0; iItemPop < iItemMax; iItemPop++) {
      UINT nID = ::GetMenuItemID(hMenuPop, iItemPop);
      if (nID >= AFX_IDM_WINDOW_FIRST && nID <= AFX_IDM_WINDOW_LAST) return hMenuPop;
    }
  }
  return NULL;
}

BOOL CMDIFrameWnd::OnCreateClient(LPCREATESTRUCT lpcs, CCreateContext*) {
  // The Window menu: the popup with the ID_WINDOW_ commands, else (by the
  // usual layout, Window before Help) the one before the last.
  HMENU hMenuBar = ::GetMenu(m_hWnd);
  HMENU hWindowMenu = GetWindowMenuPopup(hMenuBar);
  if (hWindowMenu == NULL && hMenuBar != NULL && ::GetMenuItemCount(hMenuBar) >= 2)
    hWindowMenu = ::GetSubMenu(hMenuBar, ::GetMenuItemCount(hMenuBar) - 2);
  return CreateClient(lpcs, CMenu::FromHandle(hWindowMenu));
}

BOOL CMDIFrameWnd::CreateClient(LPCREATESTRUCT lpCreateStruct, CMenu* pWindowMenu) {
  CLIENTCREATESTRUCT ccs;
  ccs.hWindowMenu = pWindowMenu->GetSafeHmenu();
  ccs.idFirstChild = AFX_IDM_FIRST_MDICHILD;
  DWORD dwStyle = WS_VISIBLE | WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | MDIS_ALLCHILDSTYLES;
  // The frame's scroll bars become the client's.
  if (lpCreateStruct != NULL && (lpCreateStruct->style & (WS_HSCROLL | WS_VSCROLL))) {
    dwStyle |= (lpCreateStruct->style & (WS_HSCROLL | WS_VSCROLL));
    ModifyStyle(WS_HSCROLL | WS_VSCROLL, 0, SWP_NOREDRAW | SWP_FRAMECHANGED);
  }
  HINSTANCE hInst = AfxGetInstanceHandle();
  if (hInst == NULL) hInst = ::GetModuleHandle(NULL);
  m_hWndMDIClient =
      ::CreateWindowEx(WS_EX_CLIENTEDGE, "MDICLIENT", NULL, dwStyle, 0, 0, 0, 0, m_hWnd,
                       (HMENU)(UINT_PTR)AFX_IDW_PANE_FIRST, hInst, (LPVOID)&ccs);
  if (m_hWndMDIClient == NULL) return FALSE;
  ::BringWindowToTop(m_hWndMDIClient);
  return TRUE;
}

LRESULT CMDIFrameWnd::DefWindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam) {
  return ::DefFrameProc(m_hWnd, m_hWndMDIClient, nMsg, wParam, lParam);
}

void CMDIFrameWnd::OnSize(UINT nType, int, int) {
  // Not the default: DefFrameProc would give the client the whole area,
  // over the control bars.
  if (nType != SIZE_MINIMIZED) RecalcLayout();
}

void CMDIFrameWnd::OnDestroy() {
  CFrameWnd::OnDestroy();
  // Through the client, so that it takes its child list out of the menu.
  if (m_hMenuDefault != NULL && ::GetMenu(m_hWnd) != m_hMenuDefault && m_hWndMDIClient != NULL)
    ::SendMessage(m_hWndMDIClient, WM_MDISETMENU, (WPARAM)m_hMenuDefault, 0);
}

CMDIChildWnd* CMDIFrameWnd::MDIGetActive(BOOL* pbMaximized) const {
  if (pbMaximized != NULL) *pbMaximized = FALSE;
  if (m_hWndMDIClient == NULL) return NULL;
  HWND hWnd = (HWND)::SendMessage(m_hWndMDIClient, WM_MDIGETACTIVE, 0, (LPARAM)pbMaximized);
  CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
  if (pWnd == NULL || !pWnd->IsKindOf(RUNTIME_CLASS(CMDIChildWnd))) return NULL;
  return (CMDIChildWnd*)pWnd;
}

void CMDIFrameWnd::MDIActivate(CWnd* pWndActivate) {
  ::SendMessage(m_hWndMDIClient, WM_MDIACTIVATE, (WPARAM)pWndActivate->GetSafeHwnd(), 0);
}
void CMDIFrameWnd::MDIIconArrange() { ::SendMessage(m_hWndMDIClient, WM_MDIICONARRANGE, 0, 0); }
void CMDIFrameWnd::MDIMaximize(CWnd* pWnd) {
  ::SendMessage(m_hWndMDIClient, WM_MDIMAXIMIZE, (WPARAM)pWnd->GetSafeHwnd(), 0);
}
void CMDIFrameWnd::MDINext() { ::SendMessage(m_hWndMDIClient, WM_MDINEXT, 0, 0); }
void CMDIFrameWnd::MDIPrev() { ::SendMessage(m_hWndMDIClient, WM_MDINEXT, 0, 1); }
void CMDIFrameWnd::MDIRestore(CWnd* pWnd) {
  ::SendMessage(m_hWndMDIClient, WM_MDIRESTORE, (WPARAM)pWnd->GetSafeHwnd(), 0);
}
CMenu* CMDIFrameWnd::MDISetMenu(CMenu* pFrameMenu, CMenu* pWindowMenu) {
  return CMenu::FromHandle((HMENU)::SendMessage(m_hWndMDIClient, WM_MDISETMENU,
                                                (WPARAM)pFrameMenu->GetSafeHmenu(),
                                                (LPARAM)pWindowMenu->GetSafeHmenu()));
}
void CMDIFrameWnd::MDITile() { ::SendMessage(m_hWndMDIClient, WM_MDITILE, 0, 0); }
void CMDIFrameWnd::MDITile(int nType) { ::SendMessage(m_hWndMDIClient, WM_MDITILE, nType, 0); }
void CMDIFrameWnd::MDICascade() { ::SendMessage(m_hWndMDIClient, WM_MDICASCADE, 0, 0); }
void CMDIFrameWnd::MDICascade(int nType) {
  ::SendMessage(m_hWndMDIClient, WM_MDICASCADE, nType, 0);
}

CFrameWnd* CMDIFrameWnd::GetActiveFrame() {
  CMDIChildWnd* pActiveChild = MDIGetActive();
  return pActiveChild != NULL ? (CFrameWnd*)pActiveChild : (CFrameWnd*)this;
}

// The active child's view and document first, then the frame's own routing.
BOOL CMDIFrameWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  CMDIChildWnd* pActiveChild = MDIGetActive();
  if (pActiveChild != NULL && pActiveChild->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  return CFrameWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

BOOL CMDIFrameWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  // The active child sees the command first (its own OnCommand checks the
  // item's update handler in its context).
  CMDIChildWnd* pActiveChild = MDIGetActive();
  if (pActiveChild != NULL &&
      AfxCallWndProc(pActiveChild, pActiveChild->m_hWnd, WM_COMMAND, wParam, lParam) != 0)
    return TRUE;
  if (CFrameWnd::OnCommand(wParam, lParam)) return TRUE;
  // The Window menu's list of children (and "More Windows") is the client's.
  if (lParam == 0 && (LOWORD(wParam) & 0xF000) == 0xF000) {
    DefWindowProc(WM_COMMAND, wParam, lParam);
    return TRUE;
  }
  return FALSE;
}

// The active child's accelerators (translated in this frame's context), then
// the frame's own, then the client's (Ctrl+F4, Ctrl+F6).
BOOL CMDIFrameWnd::PreTranslateMessage(MSG* pMsg) {
  if (CWnd::PreTranslateMessage(pMsg)) return TRUE;
  // While print preview shows, the hidden child's keys do nothing.
  CMDIChildWnd* pActiveChild = m_lpfnCloseProc == NULL ? MDIGetActive() : NULL;
  if (pActiveChild != NULL && pActiveChild->PreTranslateMessage(pMsg)) return TRUE;
  if (pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST) {
    if (m_hAccelTable != NULL && ::TranslateAccelerator(m_hWnd, m_hAccelTable, pMsg)) return TRUE;
    if (GetActiveView() == NULL &&
        (pMsg->message == WM_KEYDOWN || pMsg->message == WM_SYSKEYDOWN) &&
        ::TranslateMDISysAccel(m_hWndMDIClient, pMsg))
      return TRUE;
  }
  return FALSE;
}

void CMDIFrameWnd::OnUpdateFrameTitle(BOOL bAddToTitle) {
  if ((GetStyle() & FWS_ADDTOTITLE) == 0) return;
  CMDIChildWnd* pActiveChild = bAddToTitle ? MDIGetActive() : NULL;
  // A maximised child's title is shown by the system after the frame's.
  if (pActiveChild != NULL && (pActiveChild->GetStyle() & WS_MAXIMIZE) == 0) {
    CDocument* pDocument = pActiveChild->GetActiveDocument();
    if (pDocument != NULL) {
      UpdateFrameTitleForDocument(pDocument->GetTitle());
      return;
    }
    CString strTitle = pActiveChild->GetTitle();
    UpdateFrameTitleForDocument(strTitle.IsEmpty() ? NULL : (LPCTSTR)strTitle);
    return;
  }
  UpdateFrameTitleForDocument(NULL);
}

void CMDIFrameWnd::OnUpdateFrameMenu(HMENU hMenuAlt) {
  CMDIChildWnd* pActiveWnd = MDIGetActive();
  if (pActiveWnd != NULL) {
    pActiveWnd->OnUpdateFrameMenu(TRUE, pActiveWnd, hMenuAlt);
  } else {
    if (hMenuAlt == NULL) hMenuAlt = m_hMenuDefault;
    ::SendMessage(m_hWndMDIClient, WM_MDISETMENU, (WPARAM)hMenuAlt, 0);
  }
}

void CMDIFrameWnd::DelayUpdateFrameMenu(HMENU hMenuAlt) {
  m_hMenuAlt = hMenuAlt;
  m_nIdleFlags |= idleMenu;
}

LRESULT CMDIFrameWnd::OnIdleUpdateCmdUI(WPARAM wParam, LPARAM lParam) {
  if (m_nIdleFlags & idleMenu) {
    m_nIdleFlags &= ~idleMenu;
    OnUpdateFrameMenu(m_hMenuAlt);
    DrawMenuBar();
  }
  return CFrameWnd::OnIdleUpdateCmdUI(wParam, lParam);
}

// ID_WINDOW_NEW: another frame on the active document.
void CMDIFrameWnd::OnWindowNew() {
  CMDIChildWnd* pActiveChild = MDIGetActive();
  CDocument* pDocument;
  if (pActiveChild == NULL || (pDocument = pActiveChild->GetActiveDocument()) == NULL) {
    AfxMessageBox(AFX_IDP_COMMAND_FAILURE);
    return;
  }
  CDocTemplate* pTemplate = pDocument->GetDocTemplate();
  if (pTemplate == NULL) {
    AfxMessageBox(AFX_IDP_COMMAND_FAILURE);
    return;
  }
  CFrameWnd* pFrame = pTemplate->CreateNewFrame(pDocument, pActiveChild);
  if (pFrame == NULL) {
    AfxMessageBox(AFX_IDP_COMMAND_FAILURE);
    return;
  }
  pTemplate->InitialUpdateFrame(pFrame, pDocument);
}

BOOL CMDIFrameWnd::OnMDIWindowCmd(UINT nID) {
  UINT nMsg;
  WPARAM wParam = 0;
  switch (nID) {
  case ID_WINDOW_ARRANGE:
    nMsg = WM_MDIICONARRANGE;
    break;
  case ID_WINDOW_CASCADE:
    nMsg = WM_MDICASCADE;
    break;
  case ID_WINDOW_TILE_HORZ:
    nMsg = WM_MDITILE;
    wParam = MDITILE_HORIZONTAL;
    break;
  case ID_WINDOW_TILE_VERT:
    nMsg = WM_MDITILE;
    wParam = MDITILE_VERTICAL;
    break;
  default:
    return FALSE;
  }
  ::SendMessage(m_hWndMDIClient, nMsg, wParam, 0);
  return TRUE;
}

void CMDIFrameWnd::OnUpdateMDIWindowCmd(CCmdUI* pCmdUI) { pCmdUI->Enable(MDIGetActive() != NULL); }

// ---- CMDIChildWnd --------------------------------------------------------------------

BEGIN_MESSAGE_MAP(CMDIChildWnd, CFrameWnd)
ON_WM_CREATE()
ON_MESSAGE(WM_MDIACTIVATE, OnMDIActivate)
END_MESSAGE_MAP()

CMDIChildWnd::CMDIChildWnd() : m_hMenuShared(NULL) {}

CMDIChildWnd::~CMDIChildWnd() {}

CMDIFrameWnd* CMDIChildWnd::GetMDIFrame() {
  HWND hWndClient = ::GetParent(m_hWnd);
  if (hWndClient == NULL) return NULL;
  CWnd* pFrame = CWnd::FromHandlePermanent(::GetParent(hWndClient));
  if (pFrame == NULL || !pFrame->IsKindOf(RUNTIME_CLASS(CMDIFrameWnd))) return NULL;
  return (CMDIFrameWnd*)pFrame;
}

BOOL CMDIChildWnd::PreCreateWindow(CREATESTRUCT& cs) {
  cs.style |= WS_CHILD; // an MDI child always is one
  return CFrameWnd::PreCreateWindow(cs);
}

BOOL CMDIChildWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                          const RECT& rect, CMDIFrameWnd* pParentWnd, CCreateContext* pContext) {
  if (pParentWnd == NULL) {
    CWinThread* pThread = AfxGetThread();
    CWnd* pMainWnd = pThread != NULL ? pThread->m_pMainWnd : NULL;
    if (pMainWnd == NULL || !pMainWnd->IsKindOf(RUNTIME_CLASS(CMDIFrameWnd))) {
      PostNcDestroy();
      return FALSE; // no MDI frame to live in
    }
    pParentWnd = (CMDIFrameWnd*)pMainWnd;
  }
  if (pParentWnd->m_hWndMDIClient == NULL) {
    PostNcDestroy();
    return FALSE;
  }
  pParentWnd->RecalcLayout(); // the client at its place before the child is sized

  CREATESTRUCT cs;
  memset(&cs, 0, sizeof(cs));
  cs.lpszClass = lpszClassName;
  cs.lpszName = lpszWindowName;
  cs.style = dwStyle;
  if (rect.left == CW_USEDEFAULT) {
    cs.x = cs.y = cs.cx = cs.cy = CW_USEDEFAULT;
  } else {
    cs.x = rect.left;
    cs.y = rect.top;
    cs.cx = rect.right - rect.left;
    cs.cy = rect.bottom - rect.top;
  }
  cs.hwndParent = pParentWnd->m_hWnd;
  cs.hInstance = AfxGetInstanceHandle();
  if (cs.hInstance == NULL) cs.hInstance = ::GetModuleHandle(NULL);
  cs.lpCreateParams = (LPVOID)pContext;
  if (!PreCreateWindow(cs)) {
    PostNcDestroy();
    return FALSE;
  }
  m_strTitle = lpszWindowName;

  MDICREATESTRUCT mcs;
  mcs.szClass = cs.lpszClass;
  mcs.szTitle = cs.lpszName;
  mcs.hOwner = cs.hInstance;
  mcs.x = cs.x;
  mcs.y = cs.y;
  mcs.cx = cs.cx;
  mcs.cy = cs.cy;
  mcs.style = cs.style & ~(WS_MAXIMIZE | WS_VISIBLE); // shown below, once whole
  mcs.lParam = (LPARAM)cs.lpCreateParams;
  AfxHookWindowCreate(this);
  HWND hWnd = (HWND)::SendMessage(pParentWnd->m_hWndMDIClient, WM_MDICREATE, 0, (LPARAM)&mcs);
  if (!AfxUnhookWindowCreate()) PostNcDestroy(); // the hook never reached this object
  if (hWnd == NULL) return FALSE;
  if (cs.style & WS_VISIBLE) {
    ::BringWindowToTop(hWnd);
    if (cs.style & WS_MINIMIZE)
      ShowWindow(SW_SHOWMINIMIZED);
    else if (cs.style & WS_MAXIMIZE)
      ShowWindow(SW_SHOWMAXIMIZED);
    else
      ShowWindow(SW_SHOWNORMAL);
    pParentWnd->MDIActivate(this);
    ::SendMessage(pParentWnd->m_hWndMDIClient, WM_MDIREFRESHMENU, 0, 0);
  }
  return TRUE;
}

BOOL CMDIChildWnd::LoadFrame(UINT nIDResource, DWORD dwDefaultStyle, CWnd* pParentWnd,
                             CCreateContext* pContext) {
  m_nIDHelp = nIDResource;
  // The template's shared menu and accelerators; the child loads none.
  if (pContext != NULL && pContext->m_pNewDocTemplate != NULL &&
      pContext->m_pNewDocTemplate->IsKindOf(RUNTIME_CLASS(CMultiDocTemplate))) {
    CMultiDocTemplate* pTemplate = (CMultiDocTemplate*)pContext->m_pNewDocTemplate;
    m_hMenuShared = pTemplate->m_hMenuShared;
    m_hAccelTable = pTemplate->m_hAccelTable;
  }
  // The child's own title is the document name field of the string.
  CString strFullString, strTitle;
  if (strFullString.LoadString(nIDResource))
    AfxExtractSubString(strTitle, strFullString, CDocTemplate::docName);
  // Copied: the name lives in a per-thread buffer.
  CString strClass = AfxIconWndClass(this, dwDefaultStyle, nIDResource);
  CWnd* pParent = pParentWnd;
  if (pParent != NULL && !pParent->IsKindOf(RUNTIME_CLASS(CMDIFrameWnd))) pParent = NULL;
  return Create(strClass.IsEmpty() ? NULL : (LPCTSTR)strClass, strTitle, dwDefaultStyle,
                rectDefault, (CMDIFrameWnd*)pParent, pContext);
}

int CMDIChildWnd::OnCreate(LPCREATESTRUCT lpCreateStruct) {
  // The context travels in the MDICREATESTRUCT's lParam.
  MDICREATESTRUCT* lpmcs = (MDICREATESTRUCT*)lpCreateStruct->lpCreateParams;
  CCreateContext* pContext = lpmcs != NULL ? (CCreateContext*)lpmcs->lParam : NULL;
  return OnCreateHelper(lpCreateStruct, pContext);
}

LRESULT CMDIChildWnd::DefWindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam) {
  return ::DefMDIChildProc(m_hWnd, nMsg, wParam, lParam);
}

BOOL CMDIChildWnd::DestroyWindow() {
  if (m_hWnd == NULL) return FALSE;
  // The frame's title is not rewritten while the child goes, only after.
  CMDIFrameWnd* pFrameWnd = GetMDIFrame();
  HWND hWndFrame = pFrameWnd != NULL ? pFrameWnd->m_hWnd : NULL;
  LONG dwStyle = 0;
  if (hWndFrame != NULL) {
    dwStyle = ::GetWindowLong(hWndFrame, GWL_STYLE);
    ::SetWindowLong(hWndFrame, GWL_STYLE, dwStyle & ~FWS_ADDTOTITLE);
  }
  MDIDestroy();
  if (hWndFrame != NULL && ::IsWindow(hWndFrame)) {
    ::SetWindowLong(hWndFrame, GWL_STYLE, dwStyle);
    pFrameWnd->OnUpdateFrameTitle(TRUE);
  }
  return TRUE;
}

void CMDIChildWnd::MDIDestroy() {
  ::SendMessage(::GetParent(m_hWnd), WM_MDIDESTROY, (WPARAM)m_hWnd, 0);
}
void CMDIChildWnd::MDIActivate() {
  ::SendMessage(::GetParent(m_hWnd), WM_MDIACTIVATE, (WPARAM)m_hWnd, 0);
}
void CMDIChildWnd::MDIMaximize() {
  ::SendMessage(::GetParent(m_hWnd), WM_MDIMAXIMIZE, (WPARAM)m_hWnd, 0);
}
void CMDIChildWnd::MDIRestore() {
  ::SendMessage(::GetParent(m_hWnd), WM_MDIRESTORE, (WPARAM)m_hWnd, 0);
}

void CMDIChildWnd::SetHandles(HMENU hMenu, HACCEL hAccel) {
  m_hMenuShared = hMenu;
  m_hAccelTable = hAccel;
}

CWnd* CMDIChildWnd::GetMessageBar() {
  CMDIFrameWnd* pFrame = GetMDIFrame();
  return pFrame != NULL ? pFrame->GetMessageBar() : NULL;
}

// Accelerators of the child are translated in the MDI frame's context: the
// child has no menu, and the command goes to the frame, which routes it to
// the active child first.
BOOL CMDIChildWnd::PreTranslateMessage(MSG* pMsg) {
  if (CWnd::PreTranslateMessage(pMsg)) return TRUE;
  if (pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST) {
    HACCEL hAccel = GetDefaultAccelerator();
    CMDIFrameWnd* pFrame = GetMDIFrame();
    return hAccel != NULL && pFrame != NULL && ::TranslateAccelerator(pFrame->m_hWnd, hAccel, pMsg);
  }
  return FALSE;
}

void CMDIChildWnd::ActivateFrame(int nCmdShow) {
  BOOL bVisibleThen = (GetStyle() & WS_VISIBLE) != 0;
  CMDIFrameWnd* pFrameWnd = GetMDIFrame();
  if (nCmdShow == -1 && pFrameWnd != NULL) {
    // Maximised like the child that was active, if it was.
    BOOL bMaximized;
    pFrameWnd->MDIGetActive(&bMaximized);
    DWORD dwStyle = GetStyle();
    if (bMaximized || (dwStyle & WS_MAXIMIZE))
      nCmdShow = SW_SHOWMAXIMIZED;
    else if (dwStyle & WS_MINIMIZE)
      nCmdShow = SW_SHOWMINIMIZED;
  }
  CFrameWnd::ActivateFrame(nCmdShow);
  if (pFrameWnd == NULL) return;
  ::SendMessage(pFrameWnd->m_hWndMDIClient, WM_MDIREFRESHMENU, 0, 0);
  BOOL bVisibleNow = (GetStyle() & WS_VISIBLE) != 0;
  if (bVisibleNow && !bVisibleThen) pFrameWnd->MDIActivate(this); // shown means active
}

// wParam: the child losing activation; lParam: the one gaining it.
LRESULT CMDIChildWnd::OnMDIActivate(WPARAM wParam, LPARAM lParam) {
  Default();
  HWND hWndDeactivate = (HWND)wParam;
  HWND hWndActivate = (HWND)lParam;
  BOOL bActivate = hWndActivate == m_hWnd;
  (void)hWndDeactivate;
  CView* pActiveView = GetActiveView();
  if (!bActivate && pActiveView != NULL)
    pActiveView->OnActivateView(FALSE, pActiveView, pActiveView);
  // The frame's title names the newly active document (none when the last goes).
  OnUpdateFrameTitle(bActivate || hWndActivate != NULL);
  CMDIFrameWnd* pFrame = GetMDIFrame();
  if (bActivate && pActiveView != NULL && pFrame != NULL && pFrame->m_hWnd == ::GetActiveWindow())
    pActiveView->OnActivateView(TRUE, pActiveView, pActiveView);
  OnUpdateFrameMenu(bActivate, CWnd::FromHandle(hWndActivate), NULL);
  if (pFrame != NULL) pFrame->DrawMenuBar();
  return 0;
}

// The menu bar follows the active child: its shared menu while it is active,
// the frame's own when the last child goes.
void CMDIChildWnd::OnUpdateFrameMenu(BOOL bActive, CWnd* pActivateWnd, HMENU hMenuAlt) {
  CMDIFrameWnd* pFrame = GetMDIFrame();
  if (pFrame == NULL) return;
  if (hMenuAlt == NULL) hMenuAlt = m_hMenuShared;
  if (hMenuAlt != NULL && bActive) {
    ::SendMessage(pFrame->m_hWndMDIClient, WM_MDISETMENU, (WPARAM)hMenuAlt,
                  (LPARAM)pFrame->GetWindowMenuPopup(hMenuAlt));
  } else if (hMenuAlt != NULL && !bActive && pActivateWnd == NULL) {
    ::SendMessage(pFrame->m_hWndMDIClient, WM_MDISETMENU, (WPARAM)pFrame->m_hMenuDefault,
                  (LPARAM)pFrame->GetWindowMenuPopup(pFrame->m_hMenuDefault));
  } else {
    ::SendMessage(pFrame->m_hWndMDIClient, WM_MDIREFRESHMENU, 0, 0);
  }
}

void CMDIChildWnd::OnUpdateFrameTitle(BOOL bAddToTitle) {
  CMDIFrameWnd* pFrame = GetMDIFrame();
  if (pFrame != NULL) pFrame->OnUpdateFrameTitle(bAddToTitle);
  if ((GetStyle() & FWS_ADDTOTITLE) == 0) return;
  if (!bAddToTitle) return;
  CDocument* pDocument = GetActiveDocument();
  CString strText = pDocument != NULL ? pDocument->GetTitle() : m_strTitle;
  if (m_nWindow > 0) {
    CString strNumber;
    strNumber.Format(":%d", m_nWindow);
    strText += strNumber;
  }
  AfxSetWindowTextIfChanged(m_hWnd, strText);
}
