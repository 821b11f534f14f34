// VAutoComboBox with its edit VAutoComboBoxEdit, and VTypeAheadComboBox:
// combo boxes that complete what the user types from their own list.
#include "vrk_combobox.h"
#include "vrk_exception.h"

#include <mbstring.h>
#include <string.h>

#define VRK_SOURCE_FILE ".\\vrk_autocombobox.cpp"

// ---- VAutoComboBoxEdit --------------------------------------------------------

BEGIN_MESSAGE_MAP(VAutoComboBoxEdit, CEdit)
ON_WM_CHAR()
END_MESSAGE_MAP()

void VAutoComboBoxEdit::SetParentComboBox(VAutoComboBox* pCombo) {
  if (pCombo == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 39);
  m_pCombo = pCombo;
}

// Control characters (backspace and the like) do not complete.
void VAutoComboBoxEdit::OnChar(UINT nChar, UINT /*nRepCnt*/, UINT /*nFlags*/) {
  Default();
  if (m_pCombo != NULL && nChar >= 32)
    VrkComboBoxDoQuickenAction(m_pCombo, VRK_COMBO_COMPLETE | VRK_COMBO_KEEPTYPED);
}

// ---- VAutoComboBox ------------------------------------------------------------

BEGIN_MESSAGE_MAP(VAutoComboBox, CComboBox)
ON_WM_CTLCOLOR()
ON_WM_DESTROY()
END_MESSAGE_MAP()

int VAutoComboBox::FindStringWithCase(int nStartAfter, LPCSTR psz) {
  if (psz == NULL) return -1;
  size_t nLen = strlen(psz);
  int nPrev = nStartAfter;
  for (;;) {
    int nFound = (int)SendMessage(CB_FINDSTRING, (WPARAM)nPrev, (LPARAM)psz);
    if (nFound == CB_ERR || nFound <= nPrev) return -1; // none, or wrapped around
    CString strEntry;
    GetLBText(nFound, strEntry);
    if (strncmp(strEntry, psz, nLen) == 0) return nFound;
    nPrev = nFound;
  }
}

int VAutoComboBox::FindStringExactWithCase(int nStartAfter, LPCSTR psz) {
  if (psz == NULL) return -1;
  int nPrev = nStartAfter;
  for (;;) {
    int nFound = (int)SendMessage(CB_FINDSTRINGEXACT, (WPARAM)nPrev, (LPARAM)psz);
    if (nFound == CB_ERR || nFound <= nPrev) return -1;
    CString strEntry;
    GetLBText(nFound, strEntry);
    if (_mbscmp((const unsigned char*)(LPCSTR)strEntry, (const unsigned char*)psz) == 0)
      return nFound;
    nPrev = nFound;
  }
}

void VAutoComboBox::SetEditText(LPCSTR psz) {
  if (psz == NULL) psz = "";
  if (m_edit.m_hWnd != NULL)
    m_edit.SetWindowText(psz);
  else
    SetWindowText(psz);
  int nIndex = FindStringWithCase(-1, psz);
  if (nIndex != -1) SetTopIndex(nIndex);
}

void VAutoComboBox::DoAutoComplete() {
  VrkComboBoxDoQuickenAction(this, VRK_COMBO_COMPLETE | VRK_COMBO_KEEPTYPED);
}

HBRUSH VAutoComboBox::OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor) {
  if (pDC == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 77);
  if (pWnd == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 78);
  if (nCtlColor == CTLCOLOR_EDIT && m_edit.m_hWnd == NULL && m_edit.SubclassWindow(pWnd->m_hWnd)) {
    m_edit.SetParentComboBox(this);
    CString strText;
    GetWindowText(strText);
    SetEditText(strText);
  }
  return CComboBox::OnCtlColor(pDC, pWnd, nCtlColor);
}

void VAutoComboBox::OnDestroy() {
  if (m_edit.m_hWnd != NULL) m_edit.UnsubclassWindow();
  CComboBox::OnDestroy();
}

// ---- VTypeAheadComboBox -------------------------------------------------------

BEGIN_MESSAGE_MAP(VTypeAheadComboBox, CComboBox)
ON_WM_GETDLGCODE()
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

UINT VTypeAheadComboBox::OnGetDlgCode() { return DLGC_WANTALLKEYS; }

// The key goes to OnTypeAheadChar alone: no default processing.
void VTypeAheadComboBox::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) {
  OnTypeAheadChar(nChar, nRepCnt, nFlags);
}

void VTypeAheadComboBox::OnTypeAheadChar(UINT nChar, UINT /*nRepCnt*/, UINT /*nFlags*/) {
  if (_ismbcprint(LOBYTE(nChar))) VrkComboBoxDoQuickenAction(this, GetComboActionFlags());
}
