// CCommonDialog and the hook procedure shared by the system's dialogs.
#include <afxdlgs.h>

IMPLEMENT_DYNAMIC(CCommonDialog, CDialog)

// The common dialog whose system function is running on this thread: the
// hook procedure attaches the dialog window to it at WM_INITDIALOG. (A CBT
// hook as for CDialog is not used: the system functions may create other
// windows of their own first, such as COM's hidden window.)
static thread_local CCommonDialog* t_pDlgRunning = NULL;

// The system provides the template.
CCommonDialog::CCommonDialog(CWnd* pParentWnd) { m_pParentWnd = pParentWnd; }

CCommonDialog::~CCommonDialog() {}

void CCommonDialog::OnOK() {
  if (!UpdateData(TRUE)) return; // the user was told; the dialog stays open
  Default();
}

void CCommonDialog::OnCancel() { Default(); }

BOOL CCommonDialog::RunSystemDialog(BOOL(WINAPI* pfnRun)(void*), void* pParam) {
  CCommonDialog* pOuter = t_pDlgRunning;
  t_pDlgRunning = this;
  // The hook procedure lets no exception out, so none crosses the system's
  // code.
  BOOL bResult = pfnRun(pParam);
  t_pDlgRunning = pOuter;
  // The window is gone (its WM_NCDESTROY detached it); a window the system
  // kept alive is let go here all the same.
  if (m_hWnd != NULL) UnsubclassWindow();
  return bResult;
}

UINT_PTR CCommonDialog::OnHookMessage(HWND, UINT, WPARAM, LPARAM) { return 0; }

// The dialog the hook window belongs to: the window itself, or for the
// explorer-style file dialog (whose hook runs a child dialog) its parent.
static HWND DialogOfHook(HWND hWnd) {
  if (::GetWindowLong(hWnd, GWL_STYLE) & WS_CHILD) {
    HWND hWndParent = ::GetParent(hWnd);
    if (hWndParent != NULL) return hWndParent;
  }
  return hWnd;
}

static UINT_PTR HookMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) {
  HWND hWndDlg = DialogOfHook(hWnd);
  CCommonDialog* pDlg = DYNAMIC_DOWNCAST(CCommonDialog, CWnd::FromHandlePermanent(hWndDlg));
  if (message == WM_INITDIALOG) {
    if (pDlg == NULL) {
      pDlg = t_pDlgRunning;
      if (pDlg == NULL || pDlg->m_hWnd != NULL || !pDlg->SubclassWindow(hWndDlg)) return TRUE;
    }
    // A dialog the system opens from this one (print setup from print) has
    // a window of its own and is left alone above.
    return (UINT_PTR)pDlg->OnInitDialog();
  }
  if (pDlg == NULL) return 0;
  if (message == WM_NOTIFY) {
    LRESULT lResult = 0;
    if (!pDlg->OnNotify(wParam, lParam, &lResult)) return 0;
    // Explorer-style hooks answer through the hook window's message result.
    ::SetWindowLongPtr(hWnd, DWLP_MSGRESULT, lResult);
    return TRUE;
  }
  return pDlg->OnHookMessage(hWnd, message, wParam, lParam);
}

UINT_PTR CALLBACK AfxCommDlgProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (hWnd == NULL) return 0;
  // An exception must not unwind through the system's dialog code: it is
  // reported here, as a window procedure would, and the message ends.
  try {
    return HookMessage(hWnd, message, wParam, lParam);
  } catch (CException* e) {
    e->ReportError();
    e->Delete();
  }
  return 0;
}
