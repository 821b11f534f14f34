// Threads: worker and user-interface threads, exit codes, auto-delete and
// the per-thread state.
#include <afxwin.h>
#include <gtest/gtest.h>
#include "exception_probe.h"

namespace {

struct WorkerData {
  LONG ran = 0;
  CWinThread* seenThread = nullptr;
  _AFX_THREAD_STATE* seenState = nullptr;
  LPVOID seenParam = nullptr;
};

UINT AFX_CDECL RecordingProc(LPVOID pParam) {
  WorkerData* data = (WorkerData*)pParam;
  data->seenThread = AfxGetThread();
  data->seenState = AfxGetThreadState();
  data->seenParam = pParam;
  InterlockedExchange(&data->ran, 1);
  return 17;
}

// Waits for a thread started suspended with m_bAutoDelete cleared; returns
// its exit code.
DWORD Finish(CWinThread* pThread) {
  EXPECT_NE(WaitForSingleObject(pThread->m_hThread, 10000), (DWORD)WAIT_TIMEOUT);
  DWORD code = 0;
  GetExitCodeThread(pThread->m_hThread, &code);
  delete pThread;
  return code;
}

// Records its own destruction.
class CTrackedThread : public CWinThread {
public:
  CTrackedThread(AFX_THREADPROC pfn, LPVOID param, HANDLE hDeleted)
      : CWinThread(pfn, param), m_hDeleted(hDeleted) {}
  ~CTrackedThread() { SetEvent(m_hDeleted); }
  HANDLE m_hDeleted;
};

} // namespace

TEST(WorkerThread, RunsProcWithParamAndItsExitCodeBadArgumentsRaiseInvalidArg) {
  _AFX_THREAD_STATE* pMine = AfxGetThreadState(); // made before the worker's
  WorkerData data;
  CWinThread* pThread =
      AfxBeginThread(RecordingProc, &data, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
  ASSERT_NE(pThread, nullptr);
  pThread->m_bAutoDelete = FALSE;
  EXPECT_NE(pThread->m_nThreadID, 0u);
  EXPECT_EQ((HANDLE)*pThread, pThread->m_hThread);
  pThread->ResumeThread();
  EXPECT_EQ(Finish(pThread), 17u);
  EXPECT_EQ(data.seenThread, pThread); // AfxGetThread inside the worker
  EXPECT_EQ(data.seenParam, &data);
  EXPECT_NE(data.seenState, nullptr); // a thread state of its own
  EXPECT_NE(data.seenState, pMine);

  // With m_bAutoDelete, the object goes at the thread's end.
  HANDLE hDeleted = CreateEvent(NULL, TRUE, FALSE, NULL);
  WorkerData again;
  CTrackedThread* pTracked = new CTrackedThread(RecordingProc, &again, hDeleted);
  ASSERT_TRUE(pTracked->CreateThread());
  EXPECT_EQ(WaitForSingleObject(hDeleted, 10000), (DWORD)WAIT_OBJECT_0);
  EXPECT_EQ(again.ran, 1);
  CloseHandle(hDeleted);

  // Bad arguments raise an invalid argument.
  EXPECT_EQ(ThrownClass([] { AfxBeginThread((AFX_THREADPROC)NULL, NULL); }),
            RUNTIME_CLASS(CInvalidArgException));
  // A class that is not a CWinThread cannot run a thread.
  EXPECT_EQ(ThrownClass([] { AfxBeginThread(RUNTIME_CLASS(CCmdTarget)); }),
            RUNTIME_CLASS(CInvalidArgException));
  EXPECT_EQ(ThrownClass([] { AfxBeginThread((CRuntimeClass*)NULL); }),
            RUNTIME_CLASS(CInvalidArgException));
}

// A user-interface thread: InitInstance makes the message queue and says so;
// Run pumps messages until WM_QUIT, whose code becomes the exit code.
class CUiThread : public CWinThread {
  DECLARE_DYNCREATE(CUiThread)
public:
  static HANDLE s_hReady;
  static LONG s_nMessages;
  static bool s_bInit;
  virtual BOOL InitInstance() {
    MSG msg;
    PeekMessage(&msg, NULL, 0, 0, PM_NOREMOVE);
    SetEvent(s_hReady);
    return s_bInit;
  }
  virtual BOOL PreTranslateMessage(MSG* pMsg) {
    if (pMsg->message == WM_APP) InterlockedIncrement(&s_nMessages);
    return FALSE;
  }
  virtual int ExitInstance() { return s_bInit ? CWinThread::ExitInstance() : 99; }
};
IMPLEMENT_DYNCREATE(CUiThread, CWinThread)
HANDLE CUiThread::s_hReady = NULL;
LONG CUiThread::s_nMessages = 0;
bool CUiThread::s_bInit = true;

TEST(UiThread, RunsMessageLoopUntilQuitOrEndsAtAFailedInit) {
  CUiThread::s_hReady = CreateEvent(NULL, FALSE, FALSE, NULL);
  CUiThread::s_nMessages = 0;
  CUiThread::s_bInit = true;
  CWinThread* pThread =
      AfxBeginThread(RUNTIME_CLASS(CUiThread), THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
  ASSERT_NE(pThread, nullptr);
  EXPECT_TRUE(pThread->IsKindOf(RUNTIME_CLASS(CUiThread)));
  pThread->m_bAutoDelete = FALSE;
  pThread->ResumeThread();
  ASSERT_EQ(WaitForSingleObject(CUiThread::s_hReady, 10000), (DWORD)WAIT_OBJECT_0);
  EXPECT_TRUE(pThread->PostThreadMessage(WM_APP, 0, 0));
  EXPECT_TRUE(pThread->PostThreadMessage(WM_APP, 0, 0));
  EXPECT_TRUE(pThread->PostThreadMessage(WM_QUIT, 7, 0));
  EXPECT_EQ(Finish(pThread), 7u);
  EXPECT_EQ(CUiThread::s_nMessages, 2);

  // A failed InitInstance goes straight to ExitInstance, whose code is the exit code.
  CUiThread::s_bInit = false;
  pThread = AfxBeginThread(RUNTIME_CLASS(CUiThread), THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
  ASSERT_NE(pThread, nullptr);
  pThread->m_bAutoDelete = FALSE;
  pThread->ResumeThread();
  EXPECT_EQ(Finish(pThread), 99u);
  CUiThread::s_bInit = true;
  CloseHandle(CUiThread::s_hReady);
}
