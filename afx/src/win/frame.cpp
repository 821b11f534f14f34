// CFrameWnd: creation from one resource id, the client view, layout, the
// active view, titles, accelerators, activation and closing.
#include <afxwin.h>
#include <afxpriv.h>
#include "frame_impl.h"

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

const CRect CFrameWnd::rectDefault(CW_USEDEFAULT, CW_USEDEFAULT, 0, 0);

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_CLOSE()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_ERASEBKGND()
ON_WM_ACTIVATE()
ON_WM_INITMENUPOPUP()
ON_WM_MENUSELECT()
ON_MESSAGE(WM_SETMESSAGESTRING, OnSetMessageString)
ON_MESSAGE(WM_POPMESSAGESTRING, OnPopMessageString)
ON_MESSAGE(WM_IDLEUPDATECMDUI, OnIdleUpdateCmdUI)
ON_MESSAGE(WM_ENTERIDLE, OnEnterIdle)
ON_MESSAGE(WM_RECALCPARENT, OnRecalcParent)
ON_UPDATE_COMMAND_UI(ID_INDICATOR_CAPS, OnUpdateKeyIndicator)
ON_UPDATE_COMMAND_UI(ID_INDICATOR_NUM, OnUpdateKeyIndicator)
ON_UPDATE_COMMAND_UI(ID_INDICATOR_SCRL, OnUpdateKeyIndicator)
ON_UPDATE_COMMAND_UI(ID_INDICATOR_KANA, OnUpdateKeyIndicator)
ON_UPDATE_COMMAND_UI(ID_VIEW_STATUS_BAR, OnUpdateControlBarMenu)
ON_COMMAND_EX(ID_VIEW_STATUS_BAR, OnBarCheck)
ON_UPDATE_COMMAND_UI(ID_VIEW_TOOLBAR, OnUpdateControlBarMenu)
ON_COMMAND_EX(ID_VIEW_TOOLBAR, OnBarCheck)
END_MESSAGE_MAP()

// ---- Shared helpers ---------------------------------------------------------------

LPCTSTR AfxFrameOrViewClass() {
  HINSTANCE hInst = AfxGetInstanceHandle();
  if (hInst == NULL) hInst = ::GetModuleHandle(NULL);
  WNDCLASS wndcls;
  memset(&wndcls, 0, sizeof(wndcls));
  wndcls.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
  wndcls.lpfnWndProc = ::DefWindowProc;
  wndcls.hInstance = hInst;
  wndcls.hCursor = ::LoadCursor(NULL, IDC_ARROW);
  wndcls.hbrBackground = (HBRUSH)(COLOR_WINDOW + 1);
  wndcls.lpszClassName = AFX_WNDFRAMEORVIEW;
  return AfxRegisterClass(&wndcls) ? AFX_WNDFRAMEORVIEW : NULL;
}

void AfxSetWindowTextIfChanged(HWND hWnd, LPCTSTR lpszNew) {
  CString strOld;
  int nLen = ::GetWindowTextLength(hWnd);
  ::GetWindowText(hWnd, strOld.GetBufferSetLength(nLen), nLen + 1);
  strOld.ReleaseBuffer();
  if (strOld != lpszNew) ::SetWindowText(hWnd, lpszNew);
}

CString AfxFileNameOfPath(LPCTSTR lpszPathName) {
  LPCTSTR lpszName = lpszPathName;
  for (LPCTSTR p = lpszPathName; *p != '\0'; p = ::CharNext(p)) {
    if (*p == '\\' || *p == '/' || *p == ':') lpszName = p + 1;
  }
  return CString(lpszName);
}

BOOL AFXAPI AfxExtractSubString(CString& rString, LPCTSTR lpszFullString, int iSubString,
                                TCHAR chSep) {
  rString.Empty();
  if (lpszFullString == NULL || iSubString < 0) return FALSE;
  while (iSubString--) {
    lpszFullString = strchr(lpszFullString, chSep);
    if (lpszFullString == NULL) return FALSE;
    lpszFullString++; // past the separator
  }
  LPCTSTR lpchEnd = strchr(lpszFullString, chSep);
  int nLen = lpchEnd == NULL ? lstrlen(lpszFullString) : (int)(lpchEnd - lpszFullString);
  rString = CString(lpszFullString, nLen);
  return TRUE;
}

// ---- Construction -----------------------------------------------------------------

CFrameWnd::CFrameWnd()
    : m_hAccelTable(NULL), m_nIDHelp(0), m_bAutoMenuEnable(TRUE), m_hMenuDefault(NULL),
      m_nIDTracking(0), m_nIDLastMessage(0), m_nWindow(-1), m_nIdleFlags(0), m_pViewActive(NULL),
      m_bInRecalcLayout(FALSE), m_lpfnCloseProc(NULL) {}

CFrameWnd::~CFrameWnd() {}

// A frame object lives as long as its window.
void CFrameWnd::PostNcDestroy() { delete this; }

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCT& cs) {
  if (cs.lpszClass == NULL) {
    cs.lpszClass = AfxFrameOrViewClass();
    if (cs.lpszClass == NULL) return FALSE;
  }
  // "Document - Application", the order of today's shells.
  if (cs.style & FWS_ADDTOTITLE) cs.style |= FWS_PREFIXTITLE;
  return TRUE;
}

BOOL CFrameWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                       const RECT& rect, CWnd* pParentWnd, LPCTSTR lpszMenuName, DWORD dwExStyle,
                       CCreateContext* pContext) {
  HMENU hMenu = NULL;
  if (lpszMenuName != NULL) {
    HINSTANCE hInst = AfxFindResourceHandle(lpszMenuName, RT_MENU);
    hMenu = ::LoadMenu(hInst, lpszMenuName);
    if (hMenu == NULL) {
      PostNcDestroy(); // as when the window fails: the object goes
      return FALSE;
    }
  }
  m_strTitle = lpszWindowName;
  // rectDefault lets Windows choose both the place and the size.
  int x = rect.left, y = rect.top, cx, cy;
  if (rect.left == CW_USEDEFAULT) {
    cx = CW_USEDEFAULT;
    cy = CW_USEDEFAULT;
  } else {
    cx = rect.right - rect.left;
    cy = rect.bottom - rect.top;
  }
  if (!CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, x, y, cx, cy,
                pParentWnd->GetSafeHwnd(), hMenu, (LPVOID)pContext)) {
    if (hMenu != NULL) ::DestroyMenu(hMenu);
    return FALSE;
  }
  return TRUE;
}

// The window class for the frame: the one PreCreateWindow names, else the
// frame class with the icon of the resource id (when there is one).
LPCTSTR AfxIconWndClass(CFrameWnd* pFrame, DWORD dwDefaultStyle, UINT nIDResource) {
  CREATESTRUCT cs;
  memset(&cs, 0, sizeof(cs));
  cs.style = dwDefaultStyle;
  pFrame->PreCreateWindow(cs);
  // A class the frame chose itself is kept, unless it is the default one.
  if (cs.lpszClass != NULL && lstrcmp(cs.lpszClass, AFX_WNDFRAMEORVIEW) != 0) return cs.lpszClass;
  HINSTANCE hInst = AfxFindResourceHandle(MAKEINTRESOURCE(nIDResource), RT_GROUP_ICON);
  HICON hIcon = ::LoadIcon(hInst, MAKEINTRESOURCE(nIDResource));
  // An MDI frame without an icon of its own shows the standard one (the
  // application's copy of afxres.rc, else afx.dll's).
  if (hIcon == NULL && pFrame->IsKindOf(RUNTIME_CLASS(CMDIFrameWnd))) {
    LPCTSTR lpszStd = MAKEINTRESOURCE(AFX_IDI_STD_MDIFRAME);
    hIcon = ::LoadIcon(AfxFindResourceHandle(lpszStd, RT_GROUP_ICON), lpszStd);
  }
  if (hIcon == NULL) return NULL; // the default class
  WNDCLASS wndcls;
  HINSTANCE hInstClass = AfxGetInstanceHandle();
  if (hInstClass == NULL) hInstClass = ::GetModuleHandle(NULL);
  if (!::GetClassInfo(hInstClass, AFX_WNDFRAMEORVIEW, &wndcls)) return NULL;
  return AfxRegisterWndClass(wndcls.style, wndcls.hCursor, wndcls.hbrBackground, hIcon);
}

BOOL CFrameWnd::LoadFrame(UINT nIDResource, DWORD dwDefaultStyle, CWnd* pParentWnd,
                          CCreateContext* pContext) {
  m_nIDHelp = nIDResource;
  CString strFullString;
  if (strFullString.LoadString(nIDResource))
    AfxExtractSubString(m_strTitle, strFullString, 0); // the window title field
  LPCTSTR lpszClass = AfxIconWndClass(this, dwDefaultStyle, nIDResource);
  // The class name lives in a per-thread buffer: keep a copy over Create.
  CString strClass = lpszClass;
  CString strTitle = m_strTitle;
  if (!Create(lpszClass != NULL ? (LPCTSTR)strClass : NULL, strTitle, dwDefaultStyle, rectDefault,
              pParentWnd, MAKEINTRESOURCE(nIDResource), 0L, pContext))
    return FALSE; // the object is gone (PostNcDestroy)
  m_hMenuDefault = ::GetMenu(m_hWnd);
  LoadAccelTable(MAKEINTRESOURCE(nIDResource));
  // Without a context no document will send the views their first update.
  if (pContext == NULL) SendMessageToDescendants(WM_INITIALUPDATE, 0, 0, TRUE, TRUE);
  return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(LPCTSTR lpszResourceName) {
  if (m_hAccelTable != NULL) return FALSE; // only once
  m_hAccelTable = AfxLoadAccelerators(lpszResourceName);
  return m_hAccelTable != NULL;
}

HACCEL CFrameWnd::GetDefaultAccelerator() { return m_hAccelTable; }

int CFrameWnd::OnCreate(LPCREATESTRUCT lpcs) {
  return OnCreateHelper(lpcs, (CCreateContext*)lpcs->lpCreateParams);
}

int CFrameWnd::OnCreateHelper(LPCREATESTRUCT lpcs, CCreateContext* pContext) {
  if (CWnd::OnCreate(lpcs) == -1) return -1;
  if (!OnCreateClient(lpcs, pContext)) return -1;
  // The status bar (if any) shows the idle message once the queue runs.
  PostMessage(WM_SETMESSAGESTRING, AFX_IDS_IDLEMESSAGE);
  RecalcLayout();
  return 0;
}

BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCT, CCreateContext* pContext) {
  if (pContext != NULL && pContext->m_pNewViewClass != NULL) {
    if (CreateView(pContext, AFX_IDW_PANE_FIRST) == NULL) return FALSE;
  }
  return TRUE;
}

CView* CFrameWnd::CreateView(CCreateContext* pContext, UINT nID) {
  if (pContext == NULL || pContext->m_pNewViewClass == NULL) return NULL;
  CObject* pObject = pContext->m_pNewViewClass->CreateObject();
  if (pObject == NULL) return NULL;
  if (!pObject->IsKindOf(RUNTIME_CLASS(CView))) {
    delete pObject; // not a view: nothing to create
    return NULL;
  }
  CView* pView = (CView*)pObject;
  // A failed creation deletes the view (PostNcDestroy).
  if (!pView->Create(NULL, NULL, AFX_WS_DEFAULT_VIEW, CRect(0, 0, 0, 0), this, nID, pContext))
    return NULL;
  return pView;
}

// ---- Active view and document -------------------------------------------------

CFrameWnd* CFrameWnd::GetActiveFrame() { return this; }

void CFrameWnd::SetActiveView(CView* pViewNew, BOOL bNotify) {
  CView* pViewOld = m_pViewActive;
  if (pViewNew == pViewOld) return;
  m_pViewActive = NULL; // no activation while the old one is told
  if (pViewOld != NULL && bNotify) pViewOld->OnActivateView(FALSE, pViewNew, pViewOld);
  m_pViewActive = pViewNew;
  if (pViewNew != NULL && bNotify) pViewNew->OnActivateView(TRUE, pViewNew, pViewOld);
}

CDocument* CFrameWnd::GetActiveDocument() {
  CView* pView = GetActiveView();
  return pView != NULL ? pView->GetDocument() : NULL;
}

// ---- Showing and the first update -----------------------------------------------

// Brings the window (or its last active pop-up) to the top, except for the
// show commands that must not activate.
static void BringToTop(CFrameWnd* pFrame, int nCmdShow) {
  if (nCmdShow != SW_HIDE && nCmdShow != SW_MINIMIZE && nCmdShow != SW_SHOWMINNOACTIVE &&
      nCmdShow != SW_SHOWNA && nCmdShow != SW_SHOWNOACTIVATE)
    ::BringWindowToTop(::GetLastActivePopup(pFrame->m_hWnd));
}

void CFrameWnd::ActivateFrame(int nCmdShow) {
  if (nCmdShow == -1) {
    if (!IsWindowVisible())
      nCmdShow = SW_SHOWNORMAL;
    else if (IsIconic())
      nCmdShow = SW_RESTORE;
  }
  BringToTop(this, nCmdShow);
  if (nCmdShow != -1) {
    ShowWindow(nCmdShow);
    BringToTop(this, nCmdShow);
  }
}

void CFrameWnd::InitialUpdateFrame(CDocument* pDoc, BOOL bMakeVisible) {
  CView* pView = NULL;
  if (GetActiveView() == NULL) {
    CWnd* pWnd = GetDescendantWindow(AFX_IDW_PANE_FIRST, TRUE);
    if (pWnd != NULL && pWnd->IsKindOf(RUNTIME_CLASS(CView))) {
      pView = (CView*)pWnd;
      SetActiveView(pView, FALSE);
    }
  }
  if (bMakeVisible) {
    SendMessageToDescendants(WM_INITIALUPDATE, 0, 0, TRUE, TRUE);
    if (pView != NULL) pView->OnActivateFrame(WA_INACTIVE, this);
    // The first frame of the application is shown as the program was asked.
    int nCmdShow = -1;
    CWinApp* pApp = AfxGetApp();
    if (pApp != NULL && pApp->m_pMainWnd == NULL) {
      nCmdShow = pApp->m_nCmdShow;
      pApp->m_nCmdShow = -1; // only once
    }
    ActivateFrame(nCmdShow);
    if (pView != NULL) pView->OnActivateView(TRUE, pView, pView);
  }
  if (pDoc != NULL) pDoc->UpdateFrameCounts();
  OnUpdateFrameTitle(TRUE);
}

// ---- Layout ------------------------------------------------------------------------

void CFrameWnd::RecalcLayout(BOOL) {
  if (m_bInRecalcLayout) return; // a bar's reaction must not lay out again
  m_bInRecalcLayout = TRUE;
  RepositionBars(0, 0xffff, AFX_IDW_PANE_FIRST, reposDefault);
  m_bInRecalcLayout = FALSE;
}

void CFrameWnd::DelayRecalcLayout(BOOL bNotify) {
  m_nIdleFlags |= (idleLayout | (bNotify ? idleNotify : 0));
}

void CFrameWnd::OnSize(UINT nType, int cx, int cy) {
  CWnd::OnSize(nType, cx, cy); // MDI children need the default
  if (nType != SIZE_MINIMIZED) RecalcLayout();
}

LRESULT CFrameWnd::OnRecalcParent(WPARAM, LPARAM) {
  RecalcLayout();
  return 0;
}

BOOL CFrameWnd::OnEraseBkgnd(CDC* pDC) {
  // The view covers the client area: erasing under it only flickers.
  if (m_pViewActive != NULL) return TRUE;
  return CWnd::OnEraseBkgnd(pDC);
}

// ---- Titles ------------------------------------------------------------------------

void CFrameWnd::OnUpdateFrameTitle(BOOL bAddToTitle) {
  if ((GetStyle() & FWS_ADDTOTITLE) == 0) return; // the program sets the title itself
  CDocument* pDocument = GetActiveDocument();
  if (bAddToTitle && pDocument != NULL)
    UpdateFrameTitleForDocument(pDocument->GetTitle());
  else
    UpdateFrameTitleForDocument(NULL);
}

void CFrameWnd::UpdateFrameTitleForDocument(LPCTSTR lpszDocName) {
  CString strWindowNumber;
  if (m_nWindow > 0) strWindowNumber.Format(":%d", m_nWindow);
  CString strText;
  if (GetStyle() & FWS_PREFIXTITLE) {
    if (lpszDocName != NULL) {
      strText += lpszDocName;
      strText += strWindowNumber;
      strText += " - ";
    }
    strText += m_strTitle;
  } else {
    strText += m_strTitle;
    if (lpszDocName != NULL) {
      strText += " - ";
      strText += lpszDocName;
      strText += strWindowNumber;
    }
  }
  AfxSetWindowTextIfChanged(m_hWnd, strText);
}

// ---- Command routing and accelerators ------------------------------------------

// The active view (and through it the document and its template), then the
// frame, then the application.
BOOL CFrameWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  CView* pView = GetActiveView();
  if (pView != NULL && pView->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  CWinApp* pApp = AfxGetApp();
  return pApp != NULL && pApp->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

BOOL CFrameWnd::PreTranslateMessage(MSG* pMsg) {
  if (CWnd::PreTranslateMessage(pMsg)) return TRUE;
  if (pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST) {
    HACCEL hAccel = GetDefaultAccelerator();
    return hAccel != NULL && ::TranslateAccelerator(m_hWnd, hAccel, pMsg);
  }
  return FALSE;
}

// ---- Activation, focus, closing -------------------------------------------------

void CFrameWnd::OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized) {
  CWnd::OnActivate(nState, pWndOther, bMinimized);
  CView* pActiveView = GetActiveView();
  if (pActiveView == NULL) {
    CFrameWnd* pActiveFrame = GetActiveFrame();
    if (pActiveFrame != NULL) pActiveView = pActiveFrame->GetActiveView();
  }
  if (pActiveView != NULL) {
    if (nState != WA_INACTIVE && !bMinimized)
      pActiveView->OnActivateView(TRUE, pActiveView, pActiveView);
    pActiveView->OnActivateFrame(nState, this);
  }
}

void CFrameWnd::OnSetFocus(CWnd* pOldWnd) {
  if (m_pViewActive != NULL)
    m_pViewActive->SetFocus();
  else
    CWnd::OnSetFocus(pOldWnd);
}

void CFrameWnd::OnClose() {
  // Print preview shows: it decides (it ends, the frame stays).
  if (m_lpfnCloseProc != NULL && !(*m_lpfnCloseProc)(this)) return;
  CDocument* pDocument = GetActiveDocument();
  if (pDocument != NULL && !pDocument->CanCloseFrame(this)) return; // the user said Cancel
  CWinApp* pApp = AfxGetApp();
  if (pApp != NULL && pApp->m_pMainWnd == this) {
    // The main window: every document is offered for saving, then closed.
    if (pDocument == NULL && !pApp->SaveAllModified()) return;
    pApp->CloseAllDocuments(FALSE);
    // Closing the documents may have destroyed this window already.
    if (pApp->m_pMainWnd == NULL) return;
  }
  // The last frame of a document closes the document (which destroys it).
  if (pDocument != NULL && pDocument->m_bAutoDelete) {
    BOOL bOtherFrame = FALSE;
    POSITION pos = pDocument->GetFirstViewPosition();
    while (pos != NULL) {
      CView* pView = pDocument->GetNextView(pos);
      if (pView->GetParentFrame() != this) {
        bOtherFrame = TRUE;
        break;
      }
    }
    if (!bOtherFrame) {
      pDocument->OnCloseDocument();
      return;
    }
    pDocument->PreCloseFrame(this);
  }
  DestroyWindow();
}

void CFrameWnd::OnDestroy() {
  // A shared menu (an MDI template's) must not be destroyed with the window.
  if (m_hMenuDefault != NULL && ::GetMenu(m_hWnd) != m_hMenuDefault)
    ::SetMenu(m_hWnd, m_hMenuDefault);
  CWnd::OnDestroy();
}
