// The window side of threads and the application: the message pump used by
// modal loops, idle updates of the main window, AfxWinMain.
#include <afxwin.h>

BOOL AFXAPI AfxPumpMessage() {
  _AFX_THREAD_STATE* pState = AfxGetThreadState();
  CWinThread* pThread = pState->m_pCurrentWinThread;
  if (pThread != NULL) {
    BOOL bResult = pThread->PumpMessage();
    pState->m_msgCur = pThread->m_msgCur;
    return bResult;
  }
  // No CWinThread on this thread: the same pump without one.
  MSG* pMsg = &pState->m_msgCur;
  if (::GetMessage(pMsg, NULL, 0, 0) <= 0) return FALSE;
  if (pMsg->hwnd == NULL || !CWnd::WalkPreTranslateTree(NULL, pMsg)) {
    ::TranslateMessage(pMsg);
    ::DispatchMessage(pMsg);
  }
  return TRUE;
}

// The program's entry point behind WinMain: initialises afx and the
// application object, runs InitInstance, then the message loop (Run), or
// ExitInstance when InitInstance fails. Returns the exit code.
int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                      int nCmdShow) {
  int nReturnCode = -1;
  CWinThread* pThread = AfxGetThread();
  CWinApp* pApp = AfxGetApp();
  if (!AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow)) return nReturnCode;
  if (pApp != NULL && !pApp->InitApplication()) return nReturnCode;
  if (pThread == NULL) return nReturnCode;
  if (!pThread->InitInstance()) {
    if (pThread->m_pMainWnd != NULL) pThread->m_pMainWnd->DestroyWindow();
    nReturnCode = pThread->ExitInstance();
  } else {
    nReturnCode = pThread->Run();
  }
  return nReturnCode;
}

BOOL CWinApp::OnIdle(LONG lCount) {
  if (lCount <= 0) {
    CWinThread::OnIdle(lCount);
  } else if (lCount == 1) {
    CWinThread::OnIdle(lCount);
  }
  return lCount < 1; // one more call (lCount 1) after the first
}
