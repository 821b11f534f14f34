// afxwin.h - the application framework: command targets, threads, the
// application object, message boxes and the module's resources. Window
// classes join this header later; CWnd is only named here.
#ifndef AFXWIN_H
#define AFXWIN_H

#include "afx.h"

class CWnd;
class CCmdTarget;
class CWinThread;
class CWinApp;
class CDynLinkLibrary;

#include "afxstat_.h"

// ---- CCmdTarget -------------------------------------------------------------

// The base of every class that receives commands (message maps come with the
// window classes).
class AFX_API CCmdTarget : public CObject {
  DECLARE_DYNAMIC(CCmdTarget)
public:
  CCmdTarget();
  virtual ~CCmdTarget();
};

// ---- CWinThread -------------------------------------------------------------

typedef UINT(AFX_CDECL* AFX_THREADPROC)(LPVOID);

class AFX_API CWinThread : public CCmdTarget {
  DECLARE_DYNAMIC(CWinThread)
public:
  CWinThread();
  CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam);
  virtual ~CWinThread();

  // Starts the thread; it runs the thread procedure, or InitInstance and Run.
  BOOL CreateThread(DWORD dwCreateFlags = 0, UINT nStackSize = 0,
                    LPSECURITY_ATTRIBUTES lpSecurityAttrs = NULL);

  CWnd* m_pMainWnd;   // the thread's main window
  CWnd* m_pActiveWnd; // the active window when in-place active, else NULL
  BOOL m_bAutoDelete; // delete this object when the thread ends
  HANDLE m_hThread;
  DWORD m_nThreadID;

  operator HANDLE() const { return m_hThread; }

  int GetThreadPriority();
  BOOL SetThreadPriority(int nPriority);
  DWORD SuspendThread();
  DWORD ResumeThread();
  BOOL PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam);

  virtual CWnd* GetMainWnd();

  // Overridables of a user-interface thread.
  virtual BOOL InitInstance();
  virtual int Run();
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  virtual BOOL PumpMessage();
  virtual BOOL OnIdle(LONG lCount);
  virtual BOOL IsIdleMessage(MSG* pMsg);
  virtual int ExitInstance();
  // Deletes the object when m_bAutoDelete is set.
  virtual void Delete();

  MSG m_msgCur;           // the message being processed
  LPVOID m_pThreadParams; // parameter of a worker thread
  AFX_THREADPROC m_pfnThreadProc;

  void CommonConstruct();
};

// A worker thread that runs pfnThreadProc(pParam).
AFX_API CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam,
                                          int nPriority = THREAD_PRIORITY_NORMAL,
                                          UINT nStackSize = 0, DWORD dwCreateFlags = 0,
                                          LPSECURITY_ATTRIBUTES lpSecurityAttrs = NULL);
// A user-interface thread: an object of pThreadClass (a CWinThread).
AFX_API CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* pThreadClass,
                                          int nPriority = THREAD_PRIORITY_NORMAL,
                                          UINT nStackSize = 0, DWORD dwCreateFlags = 0,
                                          LPSECURITY_ATTRIBUTES lpSecurityAttrs = NULL);
// Ends the calling thread (from inside it) with nExitCode.
AFX_API void AFXAPI AfxEndThread(UINT nExitCode, BOOL bDelete = TRUE);
AFX_API CWinThread* AFXAPI AfxGetThread();

// ---- CWinApp ----------------------------------------------------------------

class AFX_API CWinApp : public CWinThread {
  DECLARE_DYNAMIC(CWinApp)
public:
  explicit CWinApp(LPCTSTR lpszAppName = NULL);
  virtual ~CWinApp();

  // Strings allocated with malloc (the application may free and replace
  // them, as with MFC).
  LPCTSTR m_pszAppName;
  HINSTANCE m_hInstance;
  HINSTANCE m_hPrevInstance;
  LPTSTR m_lpCmdLine;
  int m_nCmdShow;
  LPCTSTR m_pszExeName;
  LPCTSTR m_pszHelpFilePath;
  LPCTSTR m_pszProfileName;
  LPCTSTR m_pszRegistryKey;

  // Settings: the registry under HKCU\Software\<key>\<profile> once
  // SetRegistryKey is called, otherwise the INI file m_pszProfileName.
  void SetRegistryKey(LPCTSTR lpszRegistryKey);
  void SetRegistryKey(UINT nIDRegistryKey);
  HKEY GetAppRegistryKey();
  HKEY GetSectionKey(LPCTSTR lpszSection);

  UINT GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault);
  BOOL WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue);
  CString GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault = NULL);
  BOOL WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue);
  BOOL GetProfileBinary(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPBYTE* ppData, UINT* pBytes);
  BOOL WriteProfileBinary(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPBYTE pData, UINT nBytes);

  virtual BOOL InitApplication();
  virtual BOOL InitInstance();
  virtual int Run();
  virtual int ExitInstance();
  // Shows AfxMessageBox's box: caption, owner and default icon.
  virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);

  // Fills the instance handles and the exe, help, application and profile
  // names from the module (called by AfxWinInit).
  void SetCurrentHandles();
};

AFX_API CWinApp* AFXAPI AfxGetApp();
AFX_API LPCTSTR AFXAPI AfxGetAppName();
AFX_API CWnd* AFXAPI AfxGetMainWnd();
// Records the program's instance and command line and initialises the
// application object (called once at start-up, before InitInstance).
AFX_API BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                               int nCmdShow);

// ---- Module resources -------------------------------------------------------

AFX_API HINSTANCE AFXAPI AfxGetInstanceHandle();
AFX_API HINSTANCE AFXAPI AfxGetResourceHandle();
AFX_API void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource);
// The module that holds a resource: the resource handle, then the extension
// libraries, then the system libraries, then afx itself.
AFX_API HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);
// Copies string nID into lpszBuf (at most nMaxBuf - 1 characters); returns
// the length, 0 when no module in the chain has the string.
AFX_API int AFXAPI AfxLoadString(UINT nID, LPTSTR lpszBuf, UINT nMaxBuf = 256);

// ---- Handle maps and the current message ------------------------------------

// While locked, temporary objects made by FromHandle (CWnd, CMenu, CDC, GDI
// objects) are kept; the last unlock deletes them when bDeleteTemps is set
// and returns TRUE. CWinThread::OnIdle does both.
AFX_API void AFXAPI AfxLockTempMaps();
AFX_API BOOL AFXAPI AfxUnlockTempMaps(BOOL bDeleteTemps = TRUE);

// The message afx's window procedure is handling now on this thread (its
// window, number, parameters, time and point).
AFX_API MSG* AFXAPI AfxGetCurrentMessage();

// ---- Message boxes ----------------------------------------------------------

AFX_API int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
AFX_API int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = (UINT)-1);

#include "afxdll_.h"

#endif // AFXWIN_H
