// VEditInComboBox and VEditComboBox: a drop-down combo box for in-place
// editing whose own child edit is a VEditCtrl.
#include "vrk_editmode.h"
#include "vrk_combobox.h"
#include "vrk_exception.h"

#include <string.h>

#define VRK_SOURCE_FILE ".\\vrk_editmode_combobox.cpp"

// ---- VEditInComboBox -------------------------------------------------------------

IMPLEMENT_DYNAMIC(VEditInComboBox, VEditCtrl)

void VEditInComboBox::GetVKeyFlags(UINT nChar, tagEndEditStruct& end) {
  if (nChar == VK_ESCAPE) end.nFlags |= VEEF_CANCEL;
  VEditCtrl::GetVKeyFlags(nChar, end);
}

void VEditInComboBox::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) {
  HWND hCombo = ::GetParent(m_hWnd);
  if (nChar == VK_ESCAPE && hCombo != NULL && ::SendMessage(hCombo, CB_GETDROPPEDSTATE, 0, 0)) {
    ::SendMessage(hCombo, CB_SHOWDROPDOWN, FALSE, 0);
    return;
  }
  VEditCtrl::OnKeyDown(nChar, nRepCnt, nFlags);
}

// ---- VEditComboBox ---------------------------------------------------------------

IMPLEMENT_DYNAMIC(VEditComboBox, CComboBox)

BEGIN_MESSAGE_MAP(VEditComboBox, CComboBox)
ON_WM_DESTROY()
ON_CONTROL_REFLECT(CBN_SELCHANGE, &VEditComboBox::OnListBoxSelChange)
ON_MESSAGE(VWM_ISMODIFIED, &VEditComboBox::OnIsModified)
END_MESSAGE_MAP()

VEditComboBox::VEditComboBox() : m_pEdit(NULL) {}

VEditComboBox::~VEditComboBox() { delete m_pEdit; }

// The parent and its font are taken before the creation's result is looked
// at; that order is part of the behaviour.
BOOL VEditComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  BOOL bCreated = CComboBox::Create(dwStyle, rect, pParentWnd, nID);
  CWnd* pParent = GetParent();
  if (pParent == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 100);
  SendMessage(WM_SETFONT, (WPARAM)pParent->SendMessage(WM_GETFONT), TRUE);
  if (!bCreated) return bCreated;

  m_pEdit = CreateEditControl();
  if (m_pEdit == NULL) return bCreated;
  if (m_pEdit->SubclassWindow(VrkComboBoxGetChildEditCtrl(this))) {
    PostSubclassChildEdit();
    return bCreated;
  }
  DestroyWindow();
  return FALSE;
}

VEditCtrl* VEditComboBox::CreateEditControl() { return new VEditInComboBox; }

void VEditComboBox::OnDestroy() {
  if (m_pEdit != NULL && m_pEdit->m_hWnd != NULL) {
    m_pEdit->UnsubclassWindow();
    delete m_pEdit;
    m_pEdit = NULL;
  }
  CComboBox::OnDestroy();
}

BOOL VEditComboBox::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  if (m_pEdit != NULL && m_pEdit->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  return CComboBox::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

void VEditComboBox::Clear() {
  if (m_pEdit != NULL) m_pEdit->SetWindowText("");
}

LRESULT VEditComboBox::OnIsModified(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  return m_pEdit != NULL && m_pEdit->IsModified();
}

// A choice from the list modifies the edit; WM_SETTEXT with the same text
// takes the modification back (verify-changed).
void VEditComboBox::OnListBoxSelChange() {
  if (m_pEdit == NULL || m_pEdit->m_hWnd == NULL) return;
  m_pEdit->PostMessage(VWM_DROPDOWNCHANGED, 0, 0);
  if (!m_pEdit->IsModified()) {
    m_pEdit->SetModifiedFlag(TRUE);
    m_pEdit->SetVerifyChanged(TRUE);
  }
}

void VEditComboBox::DoCheckForResize(BOOL n) {
  if (m_pEdit != NULL && m_pEdit->m_hWnd != NULL) m_pEdit->SendMessage(VWM_DROPDOWNCHANGED, n, 0);
}

// Call only on a created control: the edit is not tested here.
void VEditComboBox::DoSetCurSelection() {
  CString strText;
  GetWindowText(strText);
  int nIndex = FindStringExact(-1, strText);
  if (nIndex == CB_ERR) return;
  SetCurSel(nIndex);
  CString strEntry;
  GetLBText(nIndex, strEntry);
  if (strcmp(strEntry, strText) != 0) m_pEdit->SetModifiedFlag(TRUE);
}

void VEditComboBox::PrepareControl() {
  DoSetCurSelection();
  AdjustSize();
}

void VEditComboBox::AdjustSize() {
  if (m_hWnd == NULL) return;
  int n = GetCount();
  CRect rcWindow;
  GetWindowRect(&rcWindow);
  int w = 0;
  if (n <= 0) {
    SetWindowPos(NULL, 0, 0, rcWindow.Width(), rcWindow.Height() * 4, SWP_NOMOVE | SWP_NOZORDER);
  } else {
    CDC* pDC = GetDC();
    CFont* pFont = GetFont();
    CFont* pOldFont = pFont != NULL ? pDC->SelectObject(pFont) : NULL;
    for (int i = 0; i < n; i++) {
      CString strEntry;
      GetLBText(i, strEntry);
      strEntry += "WWW";
      SIZE size = {0, 0};
      ::GetTextExtentPoint32A(pDC->m_hDC, strEntry, strEntry.GetLength(), &size);
      POINT pt = {size.cx, 0};
      pDC->LPtoDP(&pt);
      if (pt.x > w) w = pt.x;
    }
    int nFieldHeight = GetItemHeight(-1);
    if (n > 10) n = 10;
    int nHeight = GetItemHeight(0) * n + nFieldHeight + 4 * ::GetSystemMetrics(SM_CYEDGE);
    if (pOldFont != NULL) pDC->SelectObject(pOldFont);
    ReleaseDC(pDC);
    SetWindowPos(NULL, 0, 0, rcWindow.Width(), nHeight, SWP_NOMOVE | SWP_NOZORDER);
    SetItemHeight(-1, LOWORD(nFieldHeight));
    SetDroppedWidth(w);
    // Deliberately only the edit gets the width with room for the scroll bar.
    if (w != 0) w += ::GetSystemMetrics(SM_CXVSCROLL) + 3 * ::GetSystemMetrics(SM_CXBORDER);
  }
  if (m_pEdit != NULL && m_pEdit->m_hWnd != NULL) m_pEdit->SendMessage(VWM_DROPDOWNCHANGED, w, 0);
}
