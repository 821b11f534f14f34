// vrk_msgbox.cpp - the library's message box (template 5049).
#include "vrk_msgbox.h"

#include "resource.h"

#include <algorithm>

namespace {

// The box's buttons, in the order of the dialog's button members.
const UINT kButtonIDs[7] = {IDOK, IDCANCEL, IDYES, IDNO, IDRETRY, IDABORT, IDIGNORE};

// The visible buttons of each button set (type & 0x0F), in their order.
const UINT kButtonSets[6][3] = {
    {IDOK, 0, 0},                 // MB_OK
    {IDOK, IDCANCEL, 0},          // MB_OKCANCEL
    {IDABORT, IDRETRY, IDIGNORE}, // MB_ABORTRETRYIGNORE
    {IDYES, IDNO, IDCANCEL},      // MB_YESNOCANCEL
    {IDYES, IDNO, 0},             // MB_YESNO
    {IDRETRY, IDCANCEL, 0},       // MB_RETRYCANCEL
};

// Decided here: a button set above 5 (the system's newer sets) shows OK.
const UINT* ButtonSet(UINT nType) {
  UINT nSet = nType & MB_TYPEMASK;
  return kButtonSets[nSet < 6 ? nSet : 0];
}

// Layout in dialog units, converted with the message font; chosen so that
// the box looks like the system's.
const int kMarginX = 8, kMarginY = 8; // around the contents
const int kIconGap = 8;               // between the icon and the text
const int kButtonGapY = 10;           // between the text and the buttons
const int kButtonWidth = 50, kButtonHeight = 14, kButtonGapX = 6;

} // namespace

IMPLEMENT_DYNCREATE(VrkMessageBoxDlg, CDialog)

BEGIN_MESSAGE_MAP(VrkMessageBoxDlg, CDialog)
ON_CONTROL_RANGE(BN_CLICKED, IDOK, IDNO, &VrkMessageBoxDlg::OnButtonClicked)
END_MESSAGE_MAP()

VrkMessageBoxDlg::VrkMessageBoxDlg(CWnd* pParent)
    : CDialog(IDD, pParent), m_nType(0), m_nHelpID(0), m_nButton1(IDOK), m_nButton2(0),
      m_nButton3(0), m_pOldFont(NULL) {}

VrkMessageBoxDlg::VrkMessageBoxDlg(const char* pszText, UINT nType, UINT nHelpID, CWnd* pParent)
    : CDialog(IDD, pParent), m_pOldFont(NULL) {
  Initialize(pszText, nType, nHelpID);
}

VrkMessageBoxDlg::VrkMessageBoxDlg(UINT nIDText, UINT nType, UINT nHelpID, CWnd* pParent)
    : CDialog(IDD, pParent), m_pOldFont(NULL) {
  Initialize(nIDText, nType, nHelpID);
}

void VrkMessageBoxDlg::Initialize(UINT nIDText, UINT nType, UINT nHelpID) {
  CString strText;
  if (!strText.LoadString(nIDText)) strText.Empty();
  Initialize(strText, nType, nHelpID);
}

void VrkMessageBoxDlg::Initialize(const char* pszText, UINT nType, UINT nHelpID) {
  m_strText = pszText != NULL ? pszText : "";
  m_nType = nType;
  m_nHelpID = nHelpID;
  m_nButton1 = IDOK;
  m_nButton2 = m_nButton3 = 0;
}

void VrkMessageBoxDlg::DoDataExchange(CDataExchange* pDX) {
  CDialog::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_VRK_MSGBOX_ICON, m_wndIcon);
  DDX_Control(pDX, IDC_VRK_MSGBOX_TEXT, m_wndMessage);
  CButton* buttons[7] = {&m_btnOK,    &m_btnCancel, &m_btnYes,   &m_btnNo,
                         &m_btnRetry, &m_btnAbort,  &m_btnIgnore};
  for (int i = 0; i < 7; i++)
    DDX_Control(pDX, kButtonIDs[i], *buttons[i]);
  DDX_Text(pDX, IDC_VRK_MSGBOX_TEXT, m_strText);
}

BOOL VrkMessageBoxDlg::OnInitDialog() {
  SetMessageFont();
  CDialog::OnInitDialog();
  CWinApp* pApp = AfxGetApp();
  if (pApp != NULL && pApp->m_pszAppName != NULL) SetWindowText(pApp->m_pszAppName);
  SetBoxIcon();
  SetButtons();
  ArrangeDialog();
  return FALSE; // the focus is on the default button
}

void VrkMessageBoxDlg::SetMessageFont() {
  NONCLIENTMETRICSA ncm;
  memset(&ncm, 0, sizeof(ncm));
  ncm.cbSize = sizeof(ncm);
  m_fontMessage.DeleteObject();
  if (!::SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(ncm), &ncm, 0) ||
      !m_fontMessage.CreateFontIndirect(&ncm.lfMessageFont))
    return; // the template's font stays
  m_pOldFont = CFont::FromHandle((HFONT)SendMessage(WM_GETFONT));
  SendMessage(WM_SETFONT, (WPARAM)m_fontMessage.GetSafeHandle(), TRUE);
  SendMessageToDescendants(WM_SETFONT, (WPARAM)m_fontMessage.GetSafeHandle(), TRUE, FALSE);
}

void VrkMessageBoxDlg::SetBoxIcon() {
  LPCSTR pszIcon;
  switch (m_nType & MB_ICONMASK) {
  case MB_ICONHAND:
    pszIcon = IDI_HAND;
    break;
  case MB_ICONQUESTION:
    pszIcon = IDI_QUESTION;
    break;
  case MB_ICONASTERISK:
    pszIcon = IDI_INFORMATION;
    break;
  default: // no icon bits included: the box still warns
    pszIcon = IDI_EXCLAMATION;
    break;
  }
  m_wndIcon.SetIcon(::LoadIconA(NULL, pszIcon));
}

void VrkMessageBoxDlg::SetButtons() {
  const UINT* pSet = ButtonSet(m_nType);
  m_nButton1 = pSet[0];
  m_nButton2 = pSet[1];
  m_nButton3 = pSet[2];
  UINT nDefault = m_nButton1;
  if ((m_nType & MB_DEFMASK) == MB_DEFBUTTON2 && m_nButton2 != 0) nDefault = m_nButton2;
  if ((m_nType & MB_DEFMASK) == MB_DEFBUTTON3 && m_nButton3 != 0) nDefault = m_nButton3;
  for (UINT nID : kButtonIDs) {
    CWnd* pButton = GetDlgItem(nID);
    if (pButton == NULL) continue;
    BOOL bVisible = nID == m_nButton1 || nID == m_nButton2 || nID == m_nButton3;
    pButton->ShowWindow(bVisible ? SW_SHOW : SW_HIDE);
    pButton->SendMessage(BM_SETSTYLE, nID == nDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
  }
  SetDefID(nDefault);
  if (CWnd* pDefault = GetDlgItem(nDefault)) GotoDlgCtrl(pDefault);
  // A box that cannot be cancelled has no working close box, as the
  // system's: only a Cancel button, or OK alone, answers Escape.
  if (m_nButton1 != IDOK && m_nButton2 != IDCANCEL && m_nButton3 != IDCANCEL) {
    if (CMenu* pMenu = GetSystemMenu(FALSE))
      pMenu->EnableMenuItem(SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
  }
}

void VrkMessageBoxDlg::OnButtonClicked(UINT nID) {
  if (nID == m_nButton1 || nID == m_nButton2 || nID == m_nButton3) {
    EndDialog((int)nID);
  } else if (nID == IDCANCEL && m_nButton1 == IDOK && m_nButton2 == 0) {
    EndDialog(IDOK); // Escape on a box with OK alone, as the system's
  }
  // Escape or the close box of a box without Cancel: nothing.
}

void VrkMessageBoxDlg::ArrangeDialog() {
  CClientDC dc(this);
  CFont* pFont = GetFont();
  CFont* pOld = pFont != NULL ? dc.SelectObject(pFont) : NULL;
  // Dialog units from the font, as dialog templates are converted.
  TEXTMETRIC tm;
  dc.GetTextMetrics(&tm);
  CSize sizeAlpha = dc.GetTextExtent("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", 52);
  int cxChar = (sizeAlpha.cx / 26 + 1) / 2, cyChar = tm.tmHeight;
  auto dx = [cxChar](int n) { return ::MulDiv(n, cxChar, 4); };
  auto dy = [cyChar](int n) { return ::MulDiv(n, cyChar, 8); };

  int cxIcon = ::GetSystemMetrics(SM_CXICON), cyIcon = ::GetSystemMetrics(SM_CYICON);
  CRect rcDesktop;
  ::GetWindowRect(::GetDesktopWindow(), &rcDesktop);
  int cxMax = rcDesktop.Width() - 2 * (int)(rcDesktop.Width() * 0.22) - 2 * dx(kMarginX) - cxIcon -
              dx(kIconGap);
  if (cxMax < dx(kButtonWidth)) cxMax = dx(kButtonWidth);

  // The static control draws with these flags (SS_NOPREFIX, SS_EDITCONTROL).
  const UINT nFlags = DT_CALCRECT | DT_NOPREFIX | DT_EXPANDTABS;
  CRect rcText(0, 0, cxMax, 0);
  dc.DrawText(m_strText, &rcText, nFlags | DT_SINGLELINE);
  // Decided here: a text with line breaks is measured wrapped too, so that
  // every line gets its room.
  if (rcText.Width() > cxMax || m_strText.FindOneOf("\r\n") >= 0) {
    rcText.SetRect(0, 0, cxMax, 0);
    dc.DrawText(m_strText, &rcText, nFlags | DT_WORDBREAK | DT_EDITCONTROL);
  }
  if (pOld != NULL) dc.SelectObject(pOld);
  // A word wider than the line is broken by the control; the box never grows
  // past the screen, so its buttons stay reachable (the text is then cut at
  // the last whole line that fits).
  CSize sizeText((std::min)((int)rcText.Width(), cxMax), rcText.Height());
  CRect rcFrame(0, 0, 0, 0);
  ::AdjustWindowRectEx(&rcFrame, GetStyle(), FALSE, GetExStyle());
  int cyMax = rcDesktop.Height() - rcFrame.Height() - 2 * dy(kMarginY) - dy(kButtonGapY) -
              dy(kButtonHeight);
  if (sizeText.cy > cyMax) sizeText.cy = (std::max)(cyMax, cyChar);

  // A text no taller than the icon stands centred beside it.
  if (sizeText.cy <= cyIcon) {
    m_wndMessage.ModifyStyle(0, SS_CENTERIMAGE);
    sizeText.cy = cyIcon;
  }
  int xText = dx(kMarginX) + cxIcon + dx(kIconGap), yTop = dy(kMarginY);
  m_wndIcon.SetWindowPos(NULL, dx(kMarginX), yTop, cxIcon, cyIcon, SWP_NOZORDER | SWP_NOACTIVATE);
  m_wndMessage.SetWindowPos(NULL, xText, yTop, sizeText.cx, sizeText.cy,
                            SWP_NOZORDER | SWP_NOACTIVATE);

  int nButtons = m_nButton3 != 0 ? 3 : m_nButton2 != 0 ? 2 : 1;
  int cxRow = nButtons * dx(kButtonWidth) + (nButtons - 1) * dx(kButtonGapX);
  int cxClient = (std::max)(xText + (int)sizeText.cx + dx(kMarginX), cxRow + 2 * dx(kMarginX));
  int yButtons = yTop + (std::max)(cyIcon, (int)sizeText.cy) + dy(kButtonGapY);
  int cyClient = yButtons + dy(kButtonHeight) + dy(kMarginY);
  UINT buttons[3] = {m_nButton1, m_nButton2, m_nButton3};
  for (int i = 0; i < nButtons; i++) {
    int x = (cxClient - cxRow) / 2 + i * (dx(kButtonWidth) + dx(kButtonGapX));
    if (CWnd* pButton = GetDlgItem(buttons[i]))
      pButton->SetWindowPos(NULL, x, yButtons, dx(kButtonWidth), dy(kButtonHeight),
                            SWP_NOZORDER | SWP_NOACTIVATE);
  }
  SetWindowPos(NULL, 0, 0, cxClient + rcFrame.Width(), cyClient + rcFrame.Height(),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  CenterWindow(CWnd::GetDesktopWindow());
}

// ---- Free functions ---------------------------------------------------------------

int AFXAPI VrkMessageBox(UINT nIDText, UINT nType, UINT nHelpID) {
  VrkMessageBoxDlg dlg(nIDText, nType, nHelpID, NULL);
  return (int)dlg.DoModal();
}

int AFXAPI VrkMessageBox(const char* pszText, UINT nType, UINT nHelpID) {
  VrkMessageBoxDlg dlg(pszText, nType, nHelpID, NULL);
  return (int)dlg.DoModal();
}

namespace {

// An object of the class when it is a creatable message box class.
VrkMessageBoxDlg* CreateBox(CRuntimeClass* pDlgClass) {
  if (pDlgClass == NULL || !pDlgClass->IsDerivedFrom(RUNTIME_CLASS(VrkMessageBoxDlg))) return NULL;
  return static_cast<VrkMessageBoxDlg*>(pDlgClass->CreateObject());
}

template <typename TText>
int RunBox(CRuntimeClass* pDlgClass, TText text, UINT nType, UINT nHelpID) {
  VrkMessageBoxDlg* pDlg = CreateBox(pDlgClass);
  if (pDlg == NULL) return -1;
  int nResult = -1;
  try {
    pDlg->Initialize(text, nType, nHelpID);
    nResult = (int)pDlg->DoModal();
  } catch (...) {
    delete pDlg;
    throw;
  }
  delete pDlg;
  return nResult;
}

} // namespace

int AFXAPI VrkMessageBoxEx(CRuntimeClass* pDlgClass, UINT nIDText, UINT nType, UINT nHelpID) {
  return RunBox(pDlgClass, nIDText, nType, nHelpID);
}

int AFXAPI VrkMessageBoxEx(CRuntimeClass* pDlgClass, const char* pszText, UINT nType,
                           UINT nHelpID) {
  return RunBox(pDlgClass, pszText, nType, nHelpID);
}

int AFXAPI VrkBeep(UINT nType) { return ::MessageBeep(nType); }
