// CWinThread, AfxBeginThread and AfxEndThread.
#include <afxwin.h>

#include <process.h>

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

// WM_SYSTIMER: the caret's blink timer; like WM_PAINT it never ends idleness.
static const UINT kSysTimer = 0x0118;

void CWinThread::CommonConstruct() {
  m_pMainWnd = NULL;
  m_pActiveWnd = NULL;
  m_bAutoDelete = TRUE;
  m_hThread = NULL;
  m_nThreadID = 0;
  memset(&m_msgCur, 0, sizeof(m_msgCur));
}

CWinThread::CWinThread() : m_pThreadParams(NULL), m_pfnThreadProc(NULL) { CommonConstruct(); }

CWinThread::CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam)
    : m_pThreadParams(pParam), m_pfnThreadProc(pfnThreadProc) {
  CommonConstruct();
}

CWinThread::~CWinThread() {
  if (m_hThread != NULL) ::CloseHandle(m_hThread);
  try {
    _AFX_THREAD_STATE* pState = AfxGetThreadState();
    if (pState->m_pCurrentWinThread == this) pState->m_pCurrentWinThread = NULL;
  } catch (CException* e) {
    e->Delete(); // no state could be made, so it cannot point here
  }
}

// The new thread's first code: it records itself as the thread's CWinThread,
// runs the worker procedure or the InitInstance/Run/ExitInstance cycle, and
// ends through AfxEndThread (which deletes an auto-delete object).
static unsigned __stdcall ThreadEntry(void* pParam) {
  CWinThread* pThread = (CWinThread*)pParam;
  UINT nResult;
  try {
    AfxGetThreadState()->m_pCurrentWinThread = pThread;
  } catch (CException* e) {
    e->Delete();
    AfxEndThread((UINT)-1); // no memory for the thread's state
  }
  if (pThread->m_pfnThreadProc != NULL)
    nResult = (*pThread->m_pfnThreadProc)(pThread->m_pThreadParams);
  else if (!pThread->InitInstance())
    nResult = pThread->ExitInstance();
  else
    nResult = pThread->Run();
  AfxEndThread(nResult);
  return 0; // not reached
}

// Decided here: the thread is always created suspended so that m_hThread and
// m_nThreadID are set before it runs; it is resumed unless the caller asked
// for CREATE_SUSPENDED (then ResumeThread starts it). The thread sets up its
// own afx state as it starts.
BOOL CWinThread::CreateThread(DWORD dwCreateFlags, UINT nStackSize,
                              LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  if (m_hThread != NULL) return FALSE; // already running
  unsigned nThreadID = 0;
  m_hThread = (HANDLE)_beginthreadex(lpSecurityAttrs, nStackSize, &ThreadEntry, this,
                                     dwCreateFlags | CREATE_SUSPENDED, &nThreadID);
  if (m_hThread == NULL) return FALSE;
  m_nThreadID = nThreadID;
  if (!(dwCreateFlags & CREATE_SUSPENDED)) ::ResumeThread(m_hThread);
  return TRUE;
}

int CWinThread::GetThreadPriority() { return ::GetThreadPriority(m_hThread); }

BOOL CWinThread::SetThreadPriority(int nPriority) {
  return ::SetThreadPriority(m_hThread, nPriority);
}

DWORD CWinThread::SuspendThread() { return ::SuspendThread(m_hThread); }

DWORD CWinThread::ResumeThread() { return ::ResumeThread(m_hThread); }

BOOL CWinThread::PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return ::PostThreadMessage(m_nThreadID, message, wParam, lParam);
}

// An in-place active window stands for the main window.
CWnd* CWinThread::GetMainWnd() { return m_pActiveWnd != NULL ? m_pActiveWnd : m_pMainWnd; }

BOOL CWinThread::InitInstance() { return FALSE; } // by default, no message loop

// A window's message goes up its parent chain (to the main window) through
// PreTranslateMessage; a message for a window outside the main window's tree
// (a modeless dialog, say) gets a last chance through the main window.
BOOL CWinThread::PreTranslateMessage(MSG* pMsg) {
  if (pMsg->hwnd == NULL) return FALSE; // a thread message
  CWnd* pMainWnd = AfxGetMainWnd();
  if (CWnd::WalkPreTranslateTree(pMainWnd->GetSafeHwnd(), pMsg)) return TRUE;
  if (pMainWnd != NULL) {
    CWnd* pWnd = CWnd::FromHandle(pMsg->hwnd);
    if (pWnd->GetTopLevelParent() != pMainWnd) return pMainWnd->PreTranslateMessage(pMsg);
  }
  return FALSE;
}

BOOL CWinThread::PumpMessage() {
  // 0 is WM_QUIT, -1 an error: both end the loop.
  if (::GetMessage(&m_msgCur, NULL, 0, 0) <= 0) return FALSE;
  if (!PreTranslateMessage(&m_msgCur)) {
    ::TranslateMessage(&m_msgCur);
    ::DispatchMessage(&m_msgCur);
  }
  return TRUE;
}

// The first idle call updates the visible main window's user-interface
// objects (WM_IDLEUPDATECMDUI to it and its permanent descendants); every
// idle call then deletes the temporary handle-map objects unless someone holds
// the temporary-map lock. The base asks for no further calls.
BOOL CWinThread::OnIdle(LONG lCount) {
  if (lCount <= 0) {
    CWnd* pMainWnd = m_pMainWnd;
    if (pMainWnd != NULL && pMainWnd->m_hWnd != NULL && pMainWnd->IsWindowVisible()) {
      AfxCallWndProc(pMainWnd, pMainWnd->m_hWnd, WM_IDLEUPDATECMDUI, (WPARAM)TRUE, 0);
      pMainWnd->SendMessageToDescendants(WM_IDLEUPDATECMDUI, (WPARAM)TRUE, 0, TRUE, TRUE);
    }
  }
  if (lCount >= 0 && AfxGetThreadState()->m_nTempMapLock == 0) {
    AfxLockTempMaps();
    AfxUnlockTempMaps(TRUE);
  }
  return lCount < 0;
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg) {
  return pMsg->message != WM_PAINT && pMsg->message != kSysTimer;
}

// The message loop: idle processing while the queue is empty, then messages
// until WM_QUIT, whose wParam ExitInstance returns.
int CWinThread::Run() {
  BOOL bIdle = TRUE;
  LONG lIdleCount = 0;
  MSG msg;
  for (;;) {
    while (bIdle && !::PeekMessage(&msg, NULL, 0, 0, PM_NOREMOVE)) {
      if (!OnIdle(lIdleCount++)) bIdle = FALSE;
    }
    do {
      if (!PumpMessage()) return ExitInstance();
      if (IsIdleMessage(&m_msgCur)) {
        bIdle = TRUE;
        lIdleCount = 0;
      }
    } while (::PeekMessage(&msg, NULL, 0, 0, PM_NOREMOVE));
  }
}

int CWinThread::ExitInstance() { return (int)m_msgCur.wParam; }

void CWinThread::Delete() {
  if (m_bAutoDelete) delete this;
}

// ---- Global functions -------------------------------------------------------

CWinThread* AFXAPI AfxGetThread() { return AfxGetThreadState()->m_pCurrentWinThread; }

CWnd* AFXAPI AfxGetMainWnd() {
  CWinThread* pThread = AfxGetThread();
  return pThread != NULL ? pThread->GetMainWnd() : NULL;
}

// Starts a thread object made suspended: the priority is set before it runs.
static CWinThread* StartThread(CWinThread* pThread, int nPriority, UINT nStackSize,
                               DWORD dwCreateFlags, LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  if (!pThread->CreateThread(dwCreateFlags | CREATE_SUSPENDED, nStackSize, lpSecurityAttrs)) {
    pThread->Delete();
    return NULL;
  }
  pThread->SetThreadPriority(nPriority);
  if (!(dwCreateFlags & CREATE_SUSPENDED)) pThread->ResumeThread();
  return pThread;
}

CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam, int nPriority,
                                  UINT nStackSize, DWORD dwCreateFlags,
                                  LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  if (pfnThreadProc == NULL) AfxThrowInvalidArgException();
  CWinThread* pThread = new CWinThread(pfnThreadProc, pParam);
  return StartThread(pThread, nPriority, nStackSize, dwCreateFlags, lpSecurityAttrs);
}

CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* pThreadClass, int nPriority, UINT nStackSize,
                                  DWORD dwCreateFlags, LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  if (pThreadClass == NULL || pThreadClass->m_pfnCreateObject == NULL ||
      !pThreadClass->IsDerivedFrom(RUNTIME_CLASS(CWinThread)))
    AfxThrowInvalidArgException();
  CWinThread* pThread = (CWinThread*)pThreadClass->CreateObject();
  if (pThread == NULL) AfxThrowMemoryException();
  return StartThread(pThread, nPriority, nStackSize, dwCreateFlags, lpSecurityAttrs);
}

void AFXAPI AfxEndThread(UINT nExitCode, BOOL bDelete) {
  _AFX_THREAD_STATE* pState = AfxGetThreadState();
  CWinThread* pThread = pState->m_pCurrentWinThread;
  if (pThread != NULL) {
    pState->m_pCurrentWinThread = NULL;
    if (bDelete) pThread->Delete();
  }
  // The thread state itself is freed as the thread detaches from afx.dll.
  _endthreadex(nExitCode);
}
