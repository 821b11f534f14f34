// AfxMessageBox and CWinApp::DoMessageBox: the application's message box with
// its caption, owner and default icon.
#include <afxwin.h>

// The owner of a box: the thread's main window (else its active window),
// raised to its top-level window and then to that window's last active
// pop-up, so that the box sits above whatever the user last worked in.
static HWND SafeOwner(HWND* phWndTop) {
  *phWndTop = NULL;
  HWND hWnd = AfxGetMainWnd()->GetSafeHwnd();
  if (hWnd == NULL) hWnd = ::GetActiveWindow();
  if (hWnd == NULL) return NULL;
  HWND hWndTop = hWnd;
  while (::GetWindowLong(hWndTop, GWL_STYLE) & WS_CHILD) {
    HWND hParent = ::GetParent(hWndTop);
    if (hParent == NULL) break;
    hWndTop = hParent;
  }
  hWnd = ::GetLastActivePopup(hWndTop);
  // A pop-up owner is disabled by MessageBox itself; the top-level window
  // behind it is disabled here for the box's lifetime.
  if (hWndTop != hWnd && ::IsWindowEnabled(hWndTop)) {
    ::EnableWindow(hWndTop, FALSE);
    *phWndTop = hWndTop;
  }
  return hWnd;
}

// Shows the box for pApp (NULL when there is no application object).
static int ShowAppMessageBox(CWinApp* pApp, LPCTSTR lpszPrompt, UINT nType) {
  HWND hWndTop;
  HWND hWnd = SafeOwner(&hWndTop);

  // No icon asked for: the one that suits the buttons.
  if ((nType & MB_ICONMASK) == 0) {
    switch (nType & MB_TYPEMASK) {
    case MB_OK:
    case MB_OKCANCEL:
      nType |= MB_ICONEXCLAMATION;
      break;
    case MB_YESNO:
    case MB_YESNOCANCEL:
      nType |= MB_ICONQUESTION;
      break;
    default: // abort/retry/ignore and retry/cancel: the caller chooses
      break;
    }
  }

  // The caption: the application's name, or without one the program's file
  // name (as GetModuleFileName gives it).
  TCHAR szExeName[MAX_PATH + 1];
  LPCTSTR pszCaption = pApp != NULL ? pApp->m_pszAppName : NULL;
  if (pszCaption == NULL) {
    DWORD nLen = ::GetModuleFileName(NULL, szExeName, MAX_PATH);
    szExeName[nLen <= MAX_PATH ? nLen : MAX_PATH] = '\0';
    pszCaption = szExeName;
  }

  int nResult = ::MessageBox(hWnd, lpszPrompt != NULL ? lpszPrompt : _T(""), pszCaption, nType);
  if (hWndTop != NULL) ::EnableWindow(hWndTop, TRUE);
  return nResult;
}

// nIDPrompt is the box's help context; afx has no help system, so it only
// reaches overrides of DoMessageBox.
int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT) {
  return ShowAppMessageBox(this, lpszPrompt, nType);
}

int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp) {
  CWinApp* pApp = AfxGetApp();
  if (pApp != NULL) return pApp->DoMessageBox(lpszText, nType, nIDHelp);
  return ShowAppMessageBox(NULL, lpszText, nType);
}

// The prompt comes from the resource chain. As in MFC's release build, a
// missing string still shows the box, with no text, so the caller gets an
// answer; the help context defaults to the prompt's id.
int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp) {
  CString string;
  if (!string.LoadString(nIDPrompt)) string.Empty();
  if (nIDHelp == (UINT)-1) nIDHelp = nIDPrompt;
  return AfxMessageBox(string, nType, nIDHelp);
}
