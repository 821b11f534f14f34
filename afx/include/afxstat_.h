// afxstat_.h - the process's module state and the per-thread state.
#ifndef AFXSTAT__H
#define AFXSTAT__H

#include "afxver_.h"

class CWinApp;
class CWinThread;
class CDynLinkLibrary;
class CWnd;
class CHandleMap;

// One module state serves the whole process: afx.dll is shared by the host
// and its extension modules, so they share the application object, the
// instance and resource handles and the chain of extension libraries.
class AFX_API AFX_MODULE_STATE {
public:
  AFX_MODULE_STATE();
  ~AFX_MODULE_STATE();

  CWinApp* m_pCurrentWinApp;
  HINSTANCE m_hCurrentInstanceHandle;
  HINSTANCE m_hCurrentResourceHandle;
  LPCTSTR m_lpszCurrentAppName;
  BYTE m_bDLL;    // the module state of a DLL (never, here)
  BYTE m_bSystem; // the module state of a system module (never, here)

  // The resource chain: the most recently constructed library first.
  CDynLinkLibrary* m_pFirstDLL;
  // Guards m_pFirstDLL and the libraries' links.
  CRITICAL_SECTION m_csLibraryList;

private:
  AFX_MODULE_STATE(const AFX_MODULE_STATE&);
  void operator=(const AFX_MODULE_STATE&);
};

AFX_API AFX_MODULE_STATE* AFXAPI AfxGetModuleState();

// What afx keeps per thread; made on first use, freed when the thread ends.
class AFX_API _AFX_THREAD_STATE {
public:
  _AFX_THREAD_STATE();
  ~_AFX_THREAD_STATE();

  // The CWinThread running on this thread (the application object on the
  // thread that constructed it), or NULL.
  CWinThread* m_pCurrentWinThread;

  // The message that afx's window procedure is handling now
  // (AfxGetCurrentMessage); saved and restored around each nested send.
  MSG m_lastSentMsg;
  // The window that CWnd::CreateEx is creating: its first messages attach
  // the handle to it through the CBT hook below.
  CWnd* m_pWndInit;
  HHOOK m_hHookOldCbtFilter;
  // The thread's handle maps (CWnd, CMenu, CDC, CGdiObject, CImageList) and
  // the lock count that keeps temporary objects alive while non-zero.
  CHandleMap* m_pHandleMaps[8];
  int m_nTempMapLock;
  // afx's window-procedure message-map cache (private to afx.dll).
  void* m_pMsgCache;
  // While UpdateData runs, control notifications to this window are dropped.
  HWND m_hLockoutNotifyWindow;
  // The message AfxPumpMessage took last (modal loops read it).
  MSG m_msgCur;

private:
  _AFX_THREAD_STATE(const _AFX_THREAD_STATE&);
  void operator=(const _AFX_THREAD_STATE&);
};

AFX_API _AFX_THREAD_STATE* AFXAPI AfxGetThreadState();

#endif // AFXSTAT__H
