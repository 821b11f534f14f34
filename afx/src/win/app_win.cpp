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

// ---- Cursors and icons ---------------------------------------------------------------------

HCURSOR CWinApp::LoadCursor(LPCTSTR lpszResourceName) const {
  return ::LoadCursor(AfxFindResourceHandle(lpszResourceName, RT_GROUP_CURSOR), lpszResourceName);
}

HCURSOR CWinApp::LoadCursor(UINT nIDResource) const {
  return LoadCursor(MAKEINTRESOURCE(nIDResource));
}

void CWinApp::DoWaitCursor(int nCode) {
  HCURSOR hcurWait = ::LoadCursor(NULL, IDC_WAIT);
  if (nCode == 0) {
    if (m_nWaitCursorCount > 0) ::SetCursor(hcurWait);
    return;
  }
  m_nWaitCursorCount += nCode > 0 ? 1 : -1;
  if (m_nWaitCursorCount > 0) {
    HCURSOR hcurPrev = ::SetCursor(hcurWait);
    if (nCode > 0 && m_nWaitCursorCount == 1) m_hcurWaitCursorRestore = hcurPrev;
  } else {
    // An unmatched End does not go below zero.
    m_nWaitCursorCount = 0;
    ::SetCursor(m_hcurWaitCursorRestore);
  }
}

HCURSOR CWinApp::LoadStandardCursor(LPCTSTR lpszCursorName) const {
  return ::LoadCursor(NULL, lpszCursorName);
}

// The OEM cursors and icons (OCR_*, OIC_*) are the system's images.
HCURSOR CWinApp::LoadOEMCursor(UINT nIDCursor) const {
  return (HCURSOR)::LoadImage(NULL, MAKEINTRESOURCE(nIDCursor), IMAGE_CURSOR, 0, 0,
                              LR_DEFAULTSIZE | LR_SHARED);
}

HICON CWinApp::LoadIcon(LPCTSTR lpszResourceName) const {
  return ::LoadIcon(AfxFindResourceHandle(lpszResourceName, RT_GROUP_ICON), lpszResourceName);
}

HICON CWinApp::LoadIcon(UINT nIDResource) const { return LoadIcon(MAKEINTRESOURCE(nIDResource)); }

HICON CWinApp::LoadStandardIcon(LPCTSTR lpszIconName) const {
  return ::LoadIcon(NULL, lpszIconName);
}

HICON CWinApp::LoadOEMIcon(UINT nIDIcon) const {
  return (HICON)::LoadImage(NULL, MAKEINTRESOURCE(nIDIcon), IMAGE_ICON, 0, 0,
                            LR_DEFAULTSIZE | LR_SHARED);
}
