// Ids shared by the frame, document, MDI and rich edit tests and their
// resources, and helpers of those tests. The resource compiler reads this
// file too: it sees only the #defines.
#ifndef VRK_TESTS_FRAME_TESTING_H
#define VRK_TESTS_FRAME_TESTING_H

#define IDR_FRAME 0x0300
#define IDR_NOMENU 0x0301
#define IDR_NOTES 0x0310
#define IDR_MAINFRAME 0x0320
#define IDR_SHEET 0x0321
#define IDR_RICHDOC 0x0330
#define IDR_PREVIEW 0x0340

#define ID_REFRESH 0x8201

#ifndef RC_INVOKED
#include <afxwin.h>

// Serves the thread's queued messages as the application's run loop would
// (pre-translation included; without an application object, through the
// window tree), without waiting for more. A closed main window's WM_QUIT is
// dropped.
inline void PumpAsApp() {
  MSG msg;
  while (::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE)) {
    if (msg.message == WM_QUIT) continue;
    CWinThread* pThread = AfxGetThread();
    if (pThread != NULL ? !pThread->PreTranslateMessage(&msg)
                        : !CWnd::WalkPreTranslateTree(NULL, &msg)) {
      ::TranslateMessage(&msg);
      ::DispatchMessage(&msg);
    }
  }
}

// A window's text, as the user sees it.
inline CString WindowText(CWnd* pWnd) {
  CString str;
  pWnd->GetWindowText(str);
  return str;
}
#endif

#endif
