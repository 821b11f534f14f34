// vrk_inputdlg.cpp - the one-line input box (template 5033).
#include "vrk_dialogs.h"

#include "resource.h"

VInputDialog::VInputDialog()
    : CDialog(IDD_VRK_INPUT), m_bCaptionGiven(FALSE), m_bPromptGiven(FALSE), m_nLimit(0),
      m_dwStyle(0) {}

BOOL VInputDialog::DoModal(const char* pszPrompt, const char* pszCaption, const char* pszText,
                           DWORD dwStyle, UINT nLimit, UINT nHelpID) {
  VINPUTDLG request = {0, pszPrompt, pszCaption, pszText, dwStyle, nLimit, nHelpID};
  if (pszPrompt != NULL || nLimit != 0) request.mask |= VIDF_PROMPT;
  if (pszCaption != NULL) request.mask |= VIDF_CAPTION;
  if (pszText != NULL) request.mask |= VIDF_TEXT;
  if (dwStyle != 0) request.mask |= VIDF_STYLE;
  if (nHelpID != 0) request.mask |= VIDF_HELPID;
  return DoModal(request);
}

BOOL VInputDialog::DoModal(VINPUTDLG& request) {
  if (request.mask & VIDF_PROMPT) {
    // A limit without a prompt keeps the template's prompt.
    m_bPromptGiven = request.pszPrompt != NULL;
    m_strPrompt = request.pszPrompt;
    m_nLimit = request.nLimit;
  }
  if (request.mask & VIDF_CAPTION) {
    m_bCaptionGiven = request.pszCaption != NULL;
    m_strCaption = request.pszCaption;
  }
  if (request.mask & VIDF_TEXT) m_strInput = request.pszText;
  if (request.mask & VIDF_STYLE) m_dwStyle = request.dwStyle;
  if (request.mask & VIDF_HELPID) SetHelpID(request.nHelpID);
  return CDialog::DoModal() == IDOK;
}

void VInputDialog::DoDataExchange(CDataExchange* pDX) {
  CDialog::DoDataExchange(pDX);
  DDX_Text(pDX, IDC_VRK_INPUT_EDIT, m_strInput);
}

BOOL VInputDialog::OnInitDialog() {
  CDialog::OnInitDialog();
  if (m_bCaptionGiven) SetWindowText(m_strCaption);
  if (m_bPromptGiven) SetDlgItemText(IDC_VRK_INPUT_PROMPT, m_strPrompt);
  CEdit* pEdit = (CEdit*)GetDlgItem(IDC_VRK_INPUT_EDIT);
  if (pEdit == NULL) return TRUE;
  if (m_dwStyle != 0) {
    // WS_CHILD in the given style means "this is the whole style".
    DWORD dwStyle = (m_dwStyle & WS_CHILD) ? m_dwStyle : pEdit->GetStyle() | m_dwStyle;
    ::SetWindowLongA(pEdit->m_hWnd, GWL_STYLE, (LONG)dwStyle);
    if (dwStyle & ES_PASSWORD) pEdit->SetPasswordChar('*');
  }
  pEdit->SetSel(0, -1);
  pEdit->SendMessage(EM_SCROLLCARET);
  pEdit->SetFocus();
  pEdit->LimitText((int)m_nLimit); // 0: the system's maximum
  return FALSE;                    // the focus is on the edit
}
