// VFileChangeNotify: a folder change notification, polled or served by an
// idle-priority worker thread.
#include "vrk_filechange.h"
#include "vrk_exception.h"

#include <afxwin.h>
#include <string.h>

namespace {

// The worker's start record: one movable global block that the worker owns.
struct tagVFileChangeStart {
  HWND hWnd;
  UINT_PTR nMessageOrCallback; // a UINT in the 32-bit library
  char szPath[260];
  BOOL bWatchSubtree;
  DWORD dwFilter;
  HANDLE hStopEvent;
};
static_assert(sizeof(void*) != 4 || sizeof(tagVFileChangeStart) == 280,
              "the 32-bit start record is 280 bytes");

UINT __cdecl FileChangeWorker(LPVOID pParam) {
  HGLOBAL hRecord = (HGLOBAL)pParam;
  tagVFileChangeStart* pStart = (tagVFileChangeStart*)GlobalLock(hRecord);
  if (pStart == NULL) {
    GlobalFree(hRecord);
    return 1;
  }
  HANDLE hChange =
      FindFirstChangeNotificationA(pStart->szPath, pStart->bWatchSubtree, pStart->dwFilter);
  if (hChange != INVALID_HANDLE_VALUE) {
    HANDLE handles[2] = {hChange, pStart->hStopEvent};
    for (;;) {
      DWORD dwWait = WaitForMultipleObjects(2, handles, FALSE, INFINITE);
      if (dwWait == WAIT_OBJECT_0) {
        // The path lives in this record: a window must copy it at once.
        if (pStart->hWnd != NULL)
          PostMessageA(pStart->hWnd, pStart->nMessageOrCallback, 0, (LPARAM)pStart->szPath);
        else if (pStart->nMessageOrCallback != 0)
          ((VFILECHANGEPROC)pStart->nMessageOrCallback)(pStart->szPath);
        if (!FindNextChangeNotification(hChange)) break;
      } else {
        if (dwWait == WAIT_FAILED) VrkReportError(GetLastError(), NULL, TRUE);
        break; // the stop event, or a failed wait
      }
    }
    FindCloseChangeNotification(hChange);
  }
  GlobalUnlock(hRecord);
  GlobalFree(hRecord);
  return 0;
}

} // namespace

VFileChangeNotify::VFileChangeNotify()
    : m_hChange(INVALID_HANDLE_VALUE), m_pThread(NULL), m_hStopEvent(INVALID_HANDLE_VALUE) {}

// Stop ends the polled handle first and returns: a second call ends a
// worker started beside it.
VFileChangeNotify::~VFileChangeNotify() {
  Stop();
  Stop();
}

int VFileChangeNotify::Run(const char* pszPath, int bWatchSubtree, unsigned long dwFilter) {
  Stop();
  if (pszPath == NULL) return FALSE;
  m_hChange = FindFirstChangeNotificationA(pszPath, bWatchSubtree, dwFilter);
  return m_hChange != INVALID_HANDLE_VALUE;
}

int VFileChangeNotify::IsSignaled() const {
  return m_hChange != INVALID_HANDLE_VALUE && WaitForSingleObject(m_hChange, 0) == WAIT_OBJECT_0;
}

int VFileChangeNotify::Run(HWND hWnd, UINT_PTR nMessageOrCallback, const char* pszPath,
                           int bWatchSubtree, unsigned long dwFilter) {
  if (pszPath == NULL) return FALSE;
  // Decided: an earlier worker is ended first; left running, its stop event
  // would be lost and it could never be joined. A polled handle is kept.
  if (m_pThread != NULL) {
    HANDLE hChange = m_hChange;
    m_hChange = INVALID_HANDLE_VALUE;
    Stop();
    m_hChange = hChange;
  }
  HGLOBAL hRecord = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(tagVFileChangeStart));
  if (hRecord == NULL) return FALSE;
  tagVFileChangeStart* pStart = (tagVFileChangeStart*)GlobalLock(hRecord);
  HANDLE hEvent = pStart != NULL ? CreateEventA(NULL, TRUE, FALSE, NULL) : NULL;
  if (hEvent != NULL) {
    pStart->hWnd = hWnd;
    pStart->nMessageOrCallback = nMessageOrCallback;
    lstrcpynA(pStart->szPath, pszPath, sizeof(pStart->szPath)); // bounded to 259
    pStart->bWatchSubtree = bWatchSubtree;
    pStart->dwFilter = dwFilter;
    pStart->hStopEvent = hEvent;
    m_hStopEvent = hEvent;
    GlobalUnlock(hRecord);
    pStart = NULL;
    // Started suspended and kept after it ends (decided): a worker that ends
    // at once, on a missing folder, would otherwise delete its CWinThread and
    // close the handle that Stop waits on.
    CWinThread* pThread = NULL;
    try {
      pThread = AfxBeginThread(FileChangeWorker, hRecord, THREAD_PRIORITY_IDLE, 0, CREATE_SUSPENDED,
                               NULL);
    } catch (CException* e) {
      e->Delete();
      pThread = NULL;
    }
    if (pThread != NULL) {
      pThread->m_bAutoDelete = FALSE;
      m_pThread = pThread;
      pThread->ResumeThread();
      return TRUE;
    }
  }
  if (pStart != NULL) GlobalUnlock(hRecord);
  if (hEvent != NULL) CloseHandle(hEvent);
  m_pThread = NULL;
  m_hStopEvent = INVALID_HANDLE_VALUE;
  GlobalFree(hRecord);
  return FALSE;
}

int VFileChangeNotify::Stop() {
  if (m_hChange != INVALID_HANDLE_VALUE) {
    BOOL bResult = FindCloseChangeNotification(m_hChange);
    m_hChange = INVALID_HANDLE_VALUE;
    return bResult;
  }
  if (m_pThread == NULL || m_hStopEvent == INVALID_HANDLE_VALUE) return TRUE;
  SetEvent(m_hStopEvent);
  WaitForSingleObject(m_pThread->m_hThread, INFINITE);
  CloseHandle(m_hStopEvent);
  m_hStopEvent = INVALID_HANDLE_VALUE;
  delete m_pThread;
  m_pThread = NULL;
  return TRUE;
}
