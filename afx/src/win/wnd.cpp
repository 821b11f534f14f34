// CWnd: the handle map, creation through afx's CBT hook, subclassing,
// destruction and afx's window procedure.
#include <afxwin.h>
#include <afxres.h>
#include "handlemap.h"
#include "../core/afximpl.h"

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

// ---- Handle map ---------------------------------------------------------------

static void PASCAL SetWndHandle(CObject* pObject, HANDLE h) { ((CWnd*)pObject)->m_hWnd = (HWND)h; }

static CHandleMap* MapHWND(BOOL bCreate) {
  return AfxGetHandleMap(afxMapKindHWND, RUNTIME_CLASS(CWnd), &SetWndHandle, bCreate);
}

CWnd* PASCAL CWnd::FromHandle(HWND hWnd) {
  if (hWnd == NULL) return NULL;
  return (CWnd*)MapHWND(TRUE)->FromHandle(hWnd);
}

CWnd* PASCAL CWnd::FromHandlePermanent(HWND hWnd) {
  if (hWnd == NULL) return NULL;
  CHandleMap* pMap = MapHWND(FALSE);
  return pMap != NULL ? (CWnd*)pMap->LookupPermanent(hWnd) : NULL;
}

void PASCAL CWnd::DeleteTempMap() {
  CHandleMap* pMap = MapHWND(FALSE);
  if (pMap != NULL) pMap->DeleteTemp();
}

BOOL CWnd::Attach(HWND hWndNew) {
  if (hWndNew == NULL || m_hWnd != NULL) return FALSE;
  CHandleMap* pMap = MapHWND(TRUE);
  // One permanent object per window: a second Attach would leave the first
  // object pointing at a window it no longer receives messages for.
  if (pMap->LookupPermanent(hWndNew) != NULL) return FALSE;
  pMap->SetPermanent(hWndNew, this);
  m_hWnd = hWndNew;
  return TRUE;
}

HWND CWnd::Detach() {
  HWND hWnd = m_hWnd;
  if (hWnd != NULL) {
    CHandleMap* pMap = MapHWND(FALSE);
    if (pMap != NULL && pMap->LookupPermanent(hWnd) == this) pMap->RemoveHandle(hWnd);
    m_hWnd = NULL;
  }
  return hWnd;
}

// ---- Construction ---------------------------------------------------------------

CWnd::CWnd() : m_hWnd(NULL), m_hWndOwner(NULL), m_nFlags(0), m_pfnSuper(NULL), m_nModalResult(0) {}

CWnd::CWnd(HWND hWnd)
    : m_hWnd(hWnd), m_hWndOwner(NULL), m_nFlags(0), m_pfnSuper(NULL), m_nModalResult(0) {}

CWnd::~CWnd() {
  // A window still attached goes with its object; its WM_NCDESTROY detaches
  // it first, so PostNcDestroy sees no handle.
  if (m_hWnd != NULL && FromHandlePermanent(m_hWnd) == this) DestroyWindow();
}

// ---- Window classes ---------------------------------------------------------------

// The module whose instance window classes are registered with: the
// application's, else the executable's (a test host may have no CWinApp).
static HINSTANCE ClassInstance() {
  HINSTANCE hInst = AfxGetInstanceHandle();
  return hInst != NULL ? hInst : ::GetModuleHandle(NULL);
}

BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass) {
  WNDCLASS wndcls;
  if (::GetClassInfo(lpWndClass->hInstance, lpWndClass->lpszClassName, &wndcls)) return TRUE;
  return ::RegisterClass(lpWndClass) != 0;
}

LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground,
                                   HICON hIcon) {
  // The name is kept per thread, as the caller uses it straight away.
  static __thread TCHAR szName[80];
  HINSTANCE hInst = ClassInstance();
  if (hCursor == NULL && hbrBackground == NULL && hIcon == NULL)
    wsprintf(szName, "Afx:%08X:%x", (UINT)(UINT_PTR)hInst, nClassStyle);
  else
    wsprintf(szName, "Afx:%08X:%x:%08X:%08X:%08X", (UINT)(UINT_PTR)hInst, nClassStyle,
             (UINT)(UINT_PTR)hCursor, (UINT)(UINT_PTR)hbrBackground, (UINT)(UINT_PTR)hIcon);
  WNDCLASS wndcls;
  if (::GetClassInfo(hInst, szName, &wndcls)) return szName;
  memset(&wndcls, 0, sizeof(wndcls));
  wndcls.style = nClassStyle;
  wndcls.lpfnWndProc = ::DefWindowProc;
  wndcls.hInstance = hInst;
  wndcls.hIcon = hIcon;
  wndcls.hCursor = hCursor;
  wndcls.hbrBackground = hbrBackground;
  wndcls.lpszClassName = szName;
  if (!AfxRegisterClass(&wndcls)) AfxThrowResourceException();
  return szName;
}

// The default class of a CWnd created with no class name.
static LPCTSTR DefaultWndClass(HINSTANCE hInst) {
  WNDCLASS wndcls;
  memset(&wndcls, 0, sizeof(wndcls));
  wndcls.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
  wndcls.lpfnWndProc = ::DefWindowProc;
  wndcls.hInstance = hInst;
  wndcls.hCursor = ::LoadCursor(NULL, IDC_ARROW);
  wndcls.lpszClassName = AFX_WND;
  return AfxRegisterClass(&wndcls) ? AFX_WND : NULL;
}

// ---- Creation -------------------------------------------------------------------

// During CreateWindowEx the CBT hook gives the new handle to the CWnd being
// created and subclasses it to AfxWndProc before its first message
// (WM_GETMINMAXINFO / WM_NCCREATE), so the object sees WM_CREATE.
static LRESULT CALLBACK CbtFilterHook(int code, WPARAM wParam, LPARAM lParam) {
  _AFX_THREAD_STATE* pState = AfxGetThreadState();
  if (code == HCBT_CREATEWND && pState->m_pWndInit != NULL) {
    CWnd* pWndInit = pState->m_pWndInit;
    HWND hWnd = (HWND)wParam;
    pState->m_pWndInit = NULL; // windows its handlers create are not this one
    if (pWndInit->Attach(hWnd)) {
      pWndInit->PreSubclassWindow();
      WNDPROC pfnAfx = AfxGetAfxWndProc();
      WNDPROC pfnOld = (WNDPROC)::SetWindowLongPtr(hWnd, GWLP_WNDPROC, (LONG_PTR)pfnAfx);
      if (pfnOld != pfnAfx) *pWndInit->GetSuperWndProcAddr() = pfnOld;
    }
  }
  return ::CallNextHookEx(pState->m_hHookOldCbtFilter, code, wParam, lParam);
}

void AfxHookWindowCreate(CWnd* pWnd) {
  _AFX_THREAD_STATE* pState = AfxGetThreadState();
  if (pState->m_pWndInit == pWnd) return;
  if (pState->m_hHookOldCbtFilter == NULL) {
    pState->m_hHookOldCbtFilter =
        ::SetWindowsHookEx(WH_CBT, &CbtFilterHook, NULL, ::GetCurrentThreadId());
    if (pState->m_hHookOldCbtFilter == NULL) AfxThrowMemoryException();
  }
  pState->m_pWndInit = pWnd;
}

// FALSE when the hook never saw the window (creation failed early).
BOOL AfxUnhookWindowCreate() {
  _AFX_THREAD_STATE* pState = AfxGetThreadState();
  if (pState->m_hHookOldCbtFilter != NULL) {
    ::UnhookWindowsHookEx(pState->m_hHookOldCbtFilter);
    pState->m_hHookOldCbtFilter = NULL;
  }
  if (pState->m_pWndInit != NULL) {
    pState->m_pWndInit = NULL;
    return FALSE;
  }
  return TRUE;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs) {
  if (cs.lpszClass == NULL) {
    cs.lpszClass = DefaultWndClass(cs.hInstance);
    if (cs.lpszClass == NULL) return FALSE;
  }
  return TRUE;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    int x, int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu,
                    LPVOID lpParam) {
  if (m_hWnd != NULL) return FALSE; // already has a window
  CREATESTRUCT cs;
  cs.dwExStyle = dwExStyle;
  cs.lpszClass = lpszClassName;
  cs.lpszName = lpszWindowName;
  cs.style = dwStyle;
  cs.x = x;
  cs.y = y;
  cs.cx = nWidth;
  cs.cy = nHeight;
  cs.hwndParent = hWndParent;
  cs.hMenu = nIDorHMenu;
  cs.hInstance = ClassInstance();
  cs.lpCreateParams = lpParam;

  if (!PreCreateWindow(cs)) {
    PostNcDestroy();
    return FALSE;
  }
  AfxHookWindowCreate(this);
  HWND hWnd = ::CreateWindowEx(cs.dwExStyle, cs.lpszClass, cs.lpszName, cs.style, cs.x, cs.y, cs.cx,
                               cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
  if (!AfxUnhookWindowCreate()) PostNcDestroy(); // the hook never reached this object
  if (hWnd == NULL) return FALSE;
  return TRUE;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam) {
  return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                  rect.right - rect.left, rect.bottom - rect.top, pParentWnd->GetSafeHwnd(),
                  (HMENU)(UINT_PTR)nID, lpParam);
}

// A child window (WS_CHILD is added, as in MFC).
BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, CCreateContext* pContext) {
  return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID,
                  (LPVOID)pContext);
}

BOOL CWnd::DestroyWindow() {
  if (m_hWnd == NULL) return FALSE;
  HWND hWndOrig = m_hWnd;
  BOOL bPermanent = FromHandlePermanent(hWndOrig) == this;
  BOOL bResult = ::DestroyWindow(hWndOrig);
  // A permanent object was detached by its WM_NCDESTROY (and may be deleted
  // by now); any other is detached here.
  if (!bPermanent) Detach();
  return bResult;
}

void CWnd::PostNcDestroy() {} // a plain CWnd is not deleted with its window

void CWnd::PreSubclassWindow() {}

// ---- Subclassing ------------------------------------------------------------------

WNDPROC* CWnd::GetSuperWndProcAddr() { return &m_pfnSuper; }

BOOL CWnd::SubclassWindow(HWND hWnd) {
  if (!::IsWindow(hWnd) || !Attach(hWnd)) return FALSE;
  PreSubclassWindow();
  WNDPROC pfnAfx = AfxGetAfxWndProc();
  WNDPROC pfnOld = (WNDPROC)::SetWindowLongPtr(hWnd, GWLP_WNDPROC, (LONG_PTR)pfnAfx);
  if (pfnOld != pfnAfx) *GetSuperWndProcAddr() = pfnOld;
  return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent) {
  HWND hWndControl = ::GetDlgItem(pParent->GetSafeHwnd(), nID);
  return hWndControl != NULL && SubclassWindow(hWndControl);
}

HWND CWnd::UnsubclassWindow() {
  if (m_hWnd == NULL) return NULL;
  WNDPROC* lplpfn = GetSuperWndProcAddr();
  if (*lplpfn != NULL) ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, (LONG_PTR)*lplpfn);
  *lplpfn = NULL;
  return Detach();
}

// ---- Window procedure ---------------------------------------------------------------

// What an exception thrown by a handler becomes, as in MFC: WM_CREATE fails,
// WM_PAINT validates; otherwise the user is told ("Command failed." for a menu
// or accelerator command, else "Internal application error.") unless the
// exception is a CUserException, whose thrower told the user already.
static LRESULT ProcessWndProcException(CException* e, const MSG* pMsg) {
  if (pMsg->message == WM_CREATE) return -1;
  if (pMsg->message == WM_PAINT) {
    ::ValidateRect(pMsg->hwnd, NULL);
    return 0;
  }
  UINT nIDP = AFX_IDP_INTERNAL_FAILURE;
  LRESULT lResult = 0;
  if (pMsg->message == WM_COMMAND) {
    if ((HWND)pMsg->lParam == NULL) nIDP = AFX_IDP_COMMAND_FAILURE;
    lResult = TRUE;
  }
  if (e->IsKindOf(RUNTIME_CLASS(CMemoryException)))
    e->ReportError(MB_ICONEXCLAMATION | MB_SYSTEMMODAL, nIDP);
  else if (!e->IsKindOf(RUNTIME_CLASS(CUserException)))
    AfxMessageBox(nIDP, MB_ICONSTOP);
  return lResult;
}

LRESULT AFXAPI AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam) {
  _AFX_THREAD_STATE* pState = AfxGetThreadState();
  MSG oldState = pState->m_lastSentMsg; // messages nest: each restores its caller's record
  pState->m_lastSentMsg.hwnd = hWnd;
  pState->m_lastSentMsg.message = nMsg;
  pState->m_lastSentMsg.wParam = wParam;
  pState->m_lastSentMsg.lParam = lParam;
  LRESULT lResult;
  try {
    lResult = pWnd->WindowProc(nMsg, wParam, lParam);
  } catch (CException* e) {
    lResult = ProcessWndProcException(e, &pState->m_lastSentMsg);
    e->Delete();
  }
  pState->m_lastSentMsg = oldState;
  return lResult;
}

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam) {
  if (nMsg == WM_QUERYAFXWNDPROC) return 1;
  CWnd* pWnd;
  try {
    pWnd = CWnd::FromHandlePermanent(hWnd);
  } catch (CException* e) { // no memory for the thread's state
    e->Delete();
    pWnd = NULL;
  }
  if (pWnd == NULL || pWnd->m_hWnd != hWnd) return ::DefWindowProc(hWnd, nMsg, wParam, lParam);
  return AfxCallWndProc(pWnd, hWnd, nMsg, wParam, lParam);
}

WNDPROC AFXAPI AfxGetAfxWndProc() { return &AfxWndProc; }

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT lResult = 0;
  if (!OnWndMsg(message, wParam, lParam, &lResult))
    lResult = DefWindowProc(message, wParam, lParam);
  return lResult;
}

LRESULT CWnd::DefWindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam) {
  if (m_pfnSuper != NULL) return ::CallWindowProc(m_pfnSuper, m_hWnd, nMsg, wParam, lParam);
  return ::DefWindowProc(m_hWnd, nMsg, wParam, lParam);
}

LRESULT CWnd::Default() {
  const MSG& msg = AfxGetThreadState()->m_lastSentMsg;
  return DefWindowProc(msg.message, msg.wParam, msg.lParam);
}

const MSG* PASCAL CWnd::GetCurrentMessage() {
  MSG* pMsg = &AfxGetThreadState()->m_lastSentMsg;
  pMsg->time = ::GetMessageTime();
  DWORD dwPos = ::GetMessagePos();
  pMsg->pt.x = (short)LOWORD(dwPos);
  pMsg->pt.y = (short)HIWORD(dwPos);
  return pMsg;
}

// The window is going: the thread forgets it as main or active window (the
// main window's end quits the thread's loop), the original procedure is put
// back, the object detached, and PostNcDestroy may delete it.
void CWnd::OnNcDestroy() {
  CWinThread* pThread = AfxGetThread();
  if (pThread != NULL) {
    if (pThread->m_pMainWnd == this) {
      ::PostQuitMessage(0);
      pThread->m_pMainWnd = NULL;
    }
    if (pThread->m_pActiveWnd == this) pThread->m_pActiveWnd = NULL;
  }
  WNDPROC pfnWndProc = (WNDPROC)::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC);
  Default();
  if ((WNDPROC)::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC) == pfnWndProc && m_pfnSuper != NULL)
    ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, (LONG_PTR)m_pfnSuper);
  Detach();
  PostNcDestroy();
}
