// CColorDialog: the system's colour dialog.
#include <afxdlgs.h>

IMPLEMENT_DYNAMIC(CColorDialog, CCommonDialog)

COLORREF* PASCAL CColorDialog::GetSavedCustomColors() {
  // Shared by every colour dialog of the process; white until chosen.
  static COLORREF s_clrCustom[16];
  static const bool s_bFilled = [] {
    for (COLORREF& clr : s_clrCustom)
      clr = RGB(255, 255, 255);
    return true;
  }();
  (void)s_bFilled;
  return s_clrCustom;
}

CColorDialog::CColorDialog(COLORREF clrInit, DWORD dwFlags, CWnd* pParentWnd)
    : CCommonDialog(pParentWnd) {
  memset(&m_cc, 0, sizeof(m_cc));
  m_cc.lStructSize = sizeof(m_cc);
  m_cc.lpCustColors = GetSavedCustomColors();
  m_cc.Flags = dwFlags | CC_ENABLEHOOK;
  m_cc.lpfnHook = (LPCCHOOKPROC)AfxCommDlgProc;
  m_cc.rgbResult = clrInit;
  if (clrInit != 0) m_cc.Flags |= CC_RGBINIT;
}

CColorDialog::~CColorDialog() {}

static BOOL WINAPI RunChooseColor(void* pParam) { return ::ChooseColor((CHOOSECOLOR*)pParam); }

INT_PTR CColorDialog::DoModal() {
  if ((m_cc.Flags & CC_ENABLEHOOK) && m_cc.lpfnHook == NULL)
    m_cc.lpfnHook = (LPCCHOOKPROC)AfxCommDlgProc;
  m_cc.hwndOwner = PreModal();
  BOOL bResult = RunSystemDialog(&RunChooseColor, &m_cc);
  PostModal();
  return bResult ? IDOK : IDCANCEL;
}

// The dialog takes a colour through its registered "set RGB" message.
void CColorDialog::SetCurrentColor(COLORREF clr) {
  if (m_hWnd == NULL) return;
  static const UINT s_nSetRGBString = ::RegisterWindowMessage(SETRGBSTRING);
  ::SendMessage(m_hWnd, s_nSetRGBString, 0, (LPARAM)clr);
}
