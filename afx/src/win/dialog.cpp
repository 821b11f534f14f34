// CDialog: modal and modeless dialogs from templates found through the
// resource chain, initialisation, OK/Cancel and keyboard handling.
#include <afxwin.h>
#include "../core/afximpl.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
ON_MESSAGE(WM_SETFONT, &CDialog::HandleSetFont)
END_MESSAGE_MAP()

CDialog::CDialog()
    : m_lpszTemplateName(NULL), m_hDialogTemplate(NULL), m_lpDialogTemplate(NULL),
      m_lpDialogInit(NULL), m_pParentWnd(NULL), m_hWndTop(NULL), m_nIDHelp(0) {}

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
    : m_lpszTemplateName(lpszTemplateName), m_hDialogTemplate(NULL), m_lpDialogTemplate(NULL),
      m_lpDialogInit(NULL), m_pParentWnd(pParentWnd), m_hWndTop(NULL), m_nIDHelp(0) {
  // A template named by number gives the dialog its help id.
  if (IS_INTRESOURCE(lpszTemplateName)) m_nIDHelp = LOWORD((DWORD_PTR)lpszTemplateName);
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : m_lpszTemplateName(MAKEINTRESOURCE(nIDTemplate)), m_hDialogTemplate(NULL),
      m_lpDialogTemplate(NULL), m_lpDialogInit(NULL), m_pParentWnd(pParentWnd), m_hWndTop(NULL),
      m_nIDHelp(nIDTemplate) {}

CDialog::~CDialog() {
  // A modeless dialog still open is destroyed with its object.
  if (m_hWnd != NULL) DestroyWindow();
}

// The dialog procedure behind the dialog class: only WM_INITDIALOG comes to
// it through DefDlgProc; the rest goes through AfxWndProc and the maps.
static INT_PTR CALLBACK AfxDlgProc(HWND hWnd, UINT message, WPARAM, LPARAM) {
  if (message == WM_INITDIALOG) {
    CDialog* pDlg = DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(hWnd));
    return pDlg != NULL ? pDlg->OnInitDialog() : TRUE;
  }
  return FALSE;
}

// The style word of a DLGTEMPLATE or DLGTEMPLATEEX.
static DWORD TemplateStyle(LPCDLGTEMPLATE lpTemplate) {
  const WORD* pw = (const WORD*)lpTemplate;
  if (pw[0] == 1 && pw[1] == 0xFFFF) return ((const DWORD*)lpTemplate)[3]; // the extended form
  return lpTemplate->style;
}

BOOL CDialog::CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd,
                                HINSTANCE hInst) {
  if (lpDialogTemplate == NULL) return FALSE;
  if (hInst == NULL) hInst = AfxGetResourceHandle();
  if (hInst == NULL) hInst = ::GetModuleHandle(NULL);
  // The CBT hook attaches the new dialog to this object before its first
  // message, as for any CWnd.
  AfxHookWindowCreate(this);
  HWND hWnd =
      ::CreateDialogIndirect(hInst, lpDialogTemplate, pParentWnd->GetSafeHwnd(), &AfxDlgProc);
  AfxUnhookWindowCreate();
  if (hWnd == NULL) return FALSE;
  return TRUE;
}

LPCDLGTEMPLATE AfxLoadDialogTemplate(LPCTSTR lpszTemplateName, HINSTANCE* phInst) {
  HINSTANCE hInst = AfxFindResourceHandle(lpszTemplateName, RT_DIALOG);
  *phInst = hInst;
  HRSRC hRes = hInst != NULL ? ::FindResource(hInst, lpszTemplateName, RT_DIALOG) : NULL;
  HGLOBAL hTemplate = hRes != NULL ? ::LoadResource(hInst, hRes) : NULL;
  return hTemplate != NULL ? (LPCDLGTEMPLATE)::LockResource(hTemplate) : NULL;
}

BOOL CDialog::CheckAutoCenter() {
  // Windows places a dialog that asks for it; the others are centred.
  const void* lpTemplate = m_lpDialogTemplate;
  if (lpTemplate == NULL && m_hDialogTemplate != NULL)
    lpTemplate = ::LockResource(m_hDialogTemplate);
  HINSTANCE hInst;
  if (lpTemplate == NULL && m_lpszTemplateName != NULL)
    lpTemplate = AfxLoadDialogTemplate(m_lpszTemplateName, &hInst);
  if (lpTemplate == NULL) return TRUE;
  return !(TemplateStyle((LPCDLGTEMPLATE)lpTemplate) & (DS_CENTER | DS_CENTERMOUSE | DS_ABSALIGN));
}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM) {
  CRect rectOld;
  GetWindowRect(&rectOld);
  LRESULT lResult = Default(); // DefDlgProc calls OnInitDialog through AfxDlgProc
  if (m_hWnd != NULL && !(GetStyle() & WS_CHILD)) {
    CRect rectNew;
    GetWindowRect(&rectNew);
    if (rectNew == rectOld && CheckAutoCenter()) CenterWindow();
  }
  return lResult;
}

LRESULT CDialog::HandleSetFont(WPARAM wParam, LPARAM) {
  OnSetFont(CFont::FromHandle((HFONT)wParam));
  return Default();
}

void CDialog::OnSetFont(CFont*) {}

BOOL CDialog::OnInitDialog() {
  ExecuteDlgInit(m_lpszTemplateName);
  // The members' values go into the controls (a failure here is the
  // program's, and the dialog still opens).
  UpdateData(FALSE);
  return TRUE; // the focus goes to the first control
}

void CDialog::OnOK() {
  if (!UpdateData(TRUE)) return; // the user was told; the dialog stays open
  EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

void CDialog::EndDialog(int nResult) {
  if (m_nFlags & (WF_MODALLOOP | WF_CONTINUEMODAL)) EndModalLoop(nResult);
  ::EndDialog(m_hWnd, nResult);
}

void CDialog::GotoDlgCtrl(CWnd* pWndCtrl) {
  if (pWndCtrl != NULL) ::SendMessage(m_hWnd, WM_NEXTDLGCTL, (WPARAM)pWndCtrl->m_hWnd, 1);
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg) {
  // Only keyboard and mouse input is the dialog manager's business.
  if ((pMsg->message < WM_KEYFIRST || pMsg->message > WM_KEYLAST) &&
      (pMsg->message < WM_MOUSEFIRST || pMsg->message > WM_MOUSELAST))
    return FALSE;
  if (pMsg->hwnd != m_hWnd && !::IsChild(m_hWnd, pMsg->hwnd)) return FALSE;
  return ::IsDialogMessage(m_hWnd, pMsg);
}

// Commands the dialog does not handle go on to the thread (the application).
BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  if ((nCode != CN_COMMAND && (UINT)nCode != CN_UPDATE_COMMAND_UI) || nID >= 0xF000 || nID == 0)
    return FALSE;
  CWinThread* pThread = AfxGetThread();
  return pThread != NULL && pThread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

// ---- Modeless ---------------------------------------------------------------------

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd) {
  m_lpszTemplateName = lpszTemplateName;
  if (IS_INTRESOURCE(lpszTemplateName) && m_nIDHelp == 0)
    m_nIDHelp = LOWORD((DWORD_PTR)lpszTemplateName);
  HINSTANCE hInst;
  LPCDLGTEMPLATE lpTemplate = AfxLoadDialogTemplate(lpszTemplateName, &hInst);
  if (lpTemplate == NULL) return FALSE;
  if (pParentWnd == NULL) pParentWnd = AfxGetMainWnd();
  m_pParentWnd = pParentWnd;
  return CreateDlgIndirect(lpTemplate, pParentWnd, hInst);
}

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd) {
  return Create(MAKEINTRESOURCE(nIDTemplate), pParentWnd);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd,
                             void* lpDialogInit) {
  if (pParentWnd == NULL) pParentWnd = AfxGetMainWnd();
  m_lpDialogInit = lpDialogInit;
  return CreateDlgIndirect(lpDialogTemplate, pParentWnd, NULL);
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd,
                                void* lpDialogInit) {
  m_lpDialogTemplate = lpDialogTemplate;
  m_pParentWnd = pParentWnd;
  m_lpDialogInit = lpDialogInit;
  return TRUE;
}

// ---- Modal -----------------------------------------------------------------------

// The owner of a modal dialog: the parent given, else the main window; a
// child is replaced by its top-level ancestor, which is disabled while the
// dialog runs (and re-enabled by PostModal).
HWND CDialog::PreModal() {
  HWND hWnd = m_pParentWnd->GetSafeHwnd();
  BOOL bGiven = hWnd != NULL;
  if (hWnd == NULL) hWnd = AfxGetMainWnd()->GetSafeHwnd();
  while (hWnd != NULL && (::GetWindowLong(hWnd, GWL_STYLE) & WS_CHILD))
    hWnd = ::GetParent(hWnd);
  HWND hWndTop = hWnd;
  for (HWND hWndTemp = hWnd; hWndTemp != NULL; hWndTemp = ::GetParent(hWndTemp))
    hWndTop = hWndTemp;
  if (!bGiven && hWnd != NULL) hWnd = ::GetLastActivePopup(hWnd);
  m_hWndTop = NULL;
  if (hWndTop != NULL && hWndTop != hWnd && ::IsWindowEnabled(hWndTop)) {
    m_hWndTop = hWndTop;
    ::EnableWindow(hWndTop, FALSE);
  }
  return hWnd;
}

void CDialog::PostModal() {
  Detach();
  if (m_hWndTop != NULL && ::IsWindow(m_hWndTop)) ::EnableWindow(m_hWndTop, TRUE);
  m_hWndTop = NULL;
}

INT_PTR CDialog::DoModal() {
  LPCDLGTEMPLATE lpDialogTemplate = m_lpDialogTemplate;
  HINSTANCE hInst = AfxGetResourceHandle();
  if (m_lpszTemplateName != NULL) {
    // Through the resource chain: a template in an extension or resource
    // module is found as well as one in the application.
    LPCDLGTEMPLATE lpFound = AfxLoadDialogTemplate(m_lpszTemplateName, &hInst);
    if (lpFound != NULL) lpDialogTemplate = lpFound;
  } else if (m_hDialogTemplate != NULL) {
    lpDialogTemplate = (LPCDLGTEMPLATE)::LockResource(m_hDialogTemplate);
  }
  if (lpDialogTemplate == NULL) return -1;

  HWND hWndParent = PreModal();
  BOOL bEnableParent = FALSE;
  if (hWndParent != NULL && hWndParent != ::GetDesktopWindow() && ::IsWindowEnabled(hWndParent)) {
    ::EnableWindow(hWndParent, FALSE);
    bEnableParent = TRUE;
  }
  m_nModalResult = -1;
  m_nFlags |= WF_CONTINUEMODAL; // EndDialog in OnInitDialog ends it before the loop
  try {
    if (CreateDlgIndirect(lpDialogTemplate, CWnd::FromHandle(hWndParent), hInst)) {
      if (m_nFlags & WF_CONTINUEMODAL) {
        DWORD dwFlags = MLF_SHOWONIDLE;
        if (GetStyle() & DS_NOIDLEMSG) dwFlags |= MLF_NOIDLEMSG;
        RunModalLoop(dwFlags);
      }
      if (m_hWnd != NULL)
        SetWindowPos(NULL, 0, 0, 0, 0,
                     SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    }
  } catch (CException* e) {
    e->Delete();
    m_nModalResult = -1;
  }
  m_nFlags &= ~(WF_MODALLOOP | WF_CONTINUEMODAL);
  if (bEnableParent) ::EnableWindow(hWndParent, TRUE);
  if (hWndParent != NULL && ::GetActiveWindow() == m_hWnd) ::SetActiveWindow(hWndParent);
  DestroyWindow();
  PostModal();
  return m_nModalResult;
}

// ---- Dialog initialisation data ---------------------------------------------------

// RT_DLGINIT data: records of control id, message, byte count and the bytes,
// ending with a zero id. Only the list and combo "add string" messages (in
// their 16-bit numbers, as the resource compiler writes them) are executed;
// a record running past the resource's end stops the walk.
BOOL CWnd::ExecuteDlgInit(LPCTSTR lpszResourceName) {
  if (lpszResourceName == NULL) return TRUE;
  HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, RT_DLGINIT);
  HRSRC hDlgInit = hInst != NULL ? ::FindResource(hInst, lpszResourceName, RT_DLGINIT) : NULL;
  if (hDlgInit == NULL) return TRUE;
  HGLOBAL hRes = ::LoadResource(hInst, hDlgInit);
  const BYTE* p = hRes != NULL ? (const BYTE*)::LockResource(hRes) : NULL;
  if (p == NULL) return FALSE;
  const BYTE* pEnd = p + ::SizeofResource(hInst, hDlgInit);
  while (p + sizeof(WORD) <= pEnd) {
    WORD nIDC = *(const WORD*)p;
    if (nIDC == 0) break;
    if (p + 2 * sizeof(WORD) + sizeof(DWORD) > pEnd) return FALSE;
    WORD nMsg = *(const WORD*)(p + 2);
    DWORD dwLen = *(const DWORD*)(p + 4);
    p += 8;
    if (dwLen > (DWORD)(pEnd - p)) return FALSE;
    const UINT kWin16LbAddString = 0x0401, kWin16CbAddString = 0x0403;
    UINT nMsg32 = nMsg == kWin16LbAddString   ? LB_ADDSTRING
                  : nMsg == kWin16CbAddString ? CB_ADDSTRING
                                              : 0;
    // The text must end inside the record.
    if (nMsg32 != 0 && dwLen > 0 && memchr(p, 0, dwLen) != NULL &&
        ::SendDlgItemMessage(m_hWnd, nIDC, nMsg32, 0, (LPARAM)p) < 0)
      return FALSE;
    p += dwLen;
  }
  return TRUE;
}
