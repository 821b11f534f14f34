// vrk_zoomdlg.cpp - the zoom percentage chooser (template 5002).
#include "vrk_dialogs.h"

#include "resource.h"

namespace {

// The radio group in tab order: its position is the dialog's m_nRadio.
const UINT kRadios[8] = {IDC_VRK_ZOOM_200, IDC_VRK_ZOOM_100,       IDC_VRK_ZOOM_75,
                         IDC_VRK_ZOOM_50,  IDC_VRK_ZOOM_PAGEWIDTH, IDC_VRK_ZOOM_WHOLEPAGE,
                         IDC_VRK_ZOOM_25,  IDC_VRK_ZOOM_CUSTOM};
// The percentage of each position; 0 for the positions that carry none.
const UINT kPercents[8] = {200, 100, 75, 50, 0, 0, 25, 0};
const int kPageWidth = 4, kWholePage = 5, kCustom = 7;

int PositionOfID(UINT nID) {
  for (int i = 0; i < 8; i++)
    if (kRadios[i] == nID) return i;
  return kCustom;
}

int PositionOfPercent(UINT nPercent) {
  for (int i = 0; i < 8; i++)
    if (kPercents[i] != 0 && kPercents[i] == nPercent) return i;
  return kCustom;
}

} // namespace

BEGIN_MESSAGE_MAP(VZoomDialog, CDialog)
ON_EN_CHANGE(IDC_VRK_ZOOM_PERCENT, &VZoomDialog::OnChangeZoomPct)
ON_CONTROL_RANGE(BN_CLICKED, IDC_VRK_ZOOM_200, IDC_VRK_ZOOM_25, &VZoomDialog::OnClickZoomPct)
ON_BN_CLICKED(IDC_VRK_ZOOM_PAGEWIDTH, &VZoomDialog::OnZoomPageWidth)
ON_BN_CLICKED(IDC_VRK_ZOOM_WHOLEPAGE, &VZoomDialog::OnZoomWholePage)
ON_BN_CLICKED(IDC_VRK_ZOOM_CUSTOM, &VZoomDialog::OnZoomCustom)
END_MESSAGE_MAP()

VZoomDialog::VZoomDialog(CWnd* pParent)
    : CDialog(IDD_VRK_ZOOM, pParent), m_nMinimum(5), m_nMaximum(500), m_nPercent(0), m_nRadio(1),
      m_bPageWidth(FALSE), m_bWholePage(FALSE), m_bShowing(FALSE) {}

VZoomDialog::VZoomDialog(UINT nMinimum, UINT nMaximum, CWnd* pParent)
    : CDialog(IDD_VRK_ZOOM, pParent), m_nMinimum(nMinimum), m_nMaximum(nMaximum), m_nPercent(0),
      m_nRadio(1), m_bPageWidth(FALSE), m_bWholePage(FALSE), m_bShowing(FALSE) {
  if (m_nMinimum > m_nMaximum) {
    m_nMinimum = nMaximum;
    m_nMaximum = nMinimum;
  }
}

UINT VZoomDialog::CalculateZoom(int) { return m_nPercent; }

void VZoomDialog::DoDataExchange(CDataExchange* pDX) {
  CDialog::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_VRK_ZOOM_SPIN, m_spin);
  DDX_Text(pDX, IDC_VRK_ZOOM_PERCENT, m_nPercent);
  DDX_Radio(pDX, IDC_VRK_ZOOM_200, m_nRadio);
  EnableOK();
}

BOOL VZoomDialog::OnInitDialog() {
  m_bShowing = TRUE; // the edit is filled by the data exchange
  CDialog::OnInitDialog();
  CenterWindow();
  if (m_bPageWidth)
    CheckPosition(kPageWidth); // wins when both fits are set
  else if (m_bWholePage)
    CheckPosition(kWholePage);
  else
    CheckPosition(PositionOfPercent(m_nPercent));
  if (CWnd* pEdit = GetDlgItem(IDC_VRK_ZOOM_PERCENT)) {
    m_spin.SetBuddy(pEdit);
    m_spin.SetBase(10);
    m_spin.SetRange32((int)m_nMinimum, (int)m_nMaximum);
    m_spin.SetPos32((int)m_nPercent);
    ((CEdit*)pEdit)->LimitText(3);
  }
  m_bShowing = FALSE;
  ShowPercent(); // the spin may have moved a percentage outside its range
  EnableOK();
  return TRUE;
}

void VZoomDialog::CheckPosition(int nPosition) {
  for (int i = 0; i < 8; i++)
    CheckDlgButton(kRadios[i], BST_UNCHECKED);
  if (nPosition >= 0 && nPosition < 8) CheckDlgButton(kRadios[nPosition], BST_CHECKED);
  m_nRadio = nPosition;
}

void VZoomDialog::ShowPercent() {
  BOOL bShowing = m_bShowing;
  m_bShowing = TRUE;
  SetDlgItemInt(IDC_VRK_ZOOM_PERCENT, m_nPercent, FALSE);
  m_bShowing = bShowing;
}

void VZoomDialog::EnableOK() {
  if (CWnd* pOK = GetDlgItem(IDOK)) pOK->EnableWindow(m_nPercent >= m_nMinimum);
}

// Read without the data exchange, which would complain at every keystroke
// of a half-typed number: an empty edit is 0.
void VZoomDialog::OnChangeZoomPct() {
  if (m_bShowing || m_hWnd == NULL) return;
  BOOL bNumber = FALSE;
  UINT nPercent = GetDlgItemInt(IDC_VRK_ZOOM_PERCENT, &bNumber, FALSE);
  m_nPercent = bNumber ? nPercent : 0;
  if (m_nPercent > m_nMaximum) {
    m_nPercent = m_nMaximum;
    ShowPercent();
  }
  // Decided here: any typed percentage ends a fit, not only a custom one,
  // so that the fit flags never contradict the checked button.
  m_bPageWidth = m_bWholePage = FALSE;
  CheckPosition(PositionOfPercent(m_nPercent));
  EnableOK();
}

void VZoomDialog::OnClickZoomPct(UINT nID) {
  m_bPageWidth = m_bWholePage = FALSE;
  int nPosition = PositionOfID(nID);
  if (kPercents[nPosition] != 0) m_nPercent = kPercents[nPosition];
  ShowPercent();
  CheckPosition(nPosition);
  EnableOK();
}

void VZoomDialog::OnFit(int nWhich) {
  m_nPercent = CalculateZoom(nWhich);
  ShowPercent();
  m_bPageWidth = nWhich == kPageWidth;
  m_bWholePage = nWhich == kWholePage;
  CheckPosition(nWhich);
  EnableOK();
}

void VZoomDialog::OnZoomPageWidth() { OnFit(kPageWidth); }
void VZoomDialog::OnZoomWholePage() { OnFit(kWholePage); }

void VZoomDialog::OnZoomCustom() {
  m_bPageWidth = m_bWholePage = FALSE;
  CheckPosition(kCustom);
  if (m_nPercent < m_nMinimum) {
    m_nPercent = m_nMinimum;
    ShowPercent();
  }
  EnableOK();
  GotoDlgCtrl(GetDlgItem(IDC_VRK_ZOOM_PERCENT));
}

void VZoomDialog::OnOK() {
  m_bShowing = TRUE; // the data exchange reads; nothing is to be re-chosen
  CDialog::OnOK();
  m_bShowing = FALSE;
  if (m_nRadio >= 0 && m_nRadio < 8 && kPercents[m_nRadio] != 0) m_nPercent = kPercents[m_nRadio];
}
