// Helpers for any combo box or list box, and the completion step shared by
// the completing combo boxes and the in-place editing combo box.
#include "vrk_combobox.h"
#include "vrk_exception.h"

#define VRK_SOURCE_FILE ".\\vrk_combobox.cpp"

BOOL VrkSetListBox(CListBox* pList, DWORD dwItemData) {
  if (pList == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 52);
  int nCount = pList->GetCount();
  for (int i = 0; i < nCount; i++) {
    if ((DWORD)pList->GetItemData(i) == dwItemData) {
      pList->SetCurSel(i);
      break;
    }
  }
  return TRUE;
}

BOOL VrkSetComboBox(CComboBox* pCombo, DWORD dwItemData) {
  if (pCombo == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 74);
  int nCount = pCombo->GetCount();
  for (int i = 0; i < nCount; i++) {
    if ((DWORD)pCombo->GetItemData(i) == dwItemData) {
      pCombo->SetCurSel(i);
      break;
    }
  }
  return TRUE;
}

BOOL VrkComboBoxIsDropDown(HWND hWnd) {
  if (hWnd == NULL || !::IsWindow(hWnd)) return FALSE;
  char szClass[11]; // "ComboLBox" and its terminator; longer names are cut and differ
  if (::GetClassNameA(hWnd, szClass, sizeof(szClass)) == 0) return FALSE;
  return lstrcmpiA(szClass, "ComboLBox") == 0;
}

BOOL CALLBACK VrkComboBoxChildEnumProc(HWND hWnd, LPARAM lParam) {
  if (lParam == 0) return FALSE;
  *(HWND*)lParam = hWnd;
  return TRUE;
}

HWND VrkComboBoxGetChildEditCtrl(CComboBox* pCombo) {
  if (pCombo == NULL || pCombo->m_hWnd == NULL) return NULL;
  HWND hChild = NULL;
  ::EnumChildWindows(pCombo->m_hWnd, VrkComboBoxChildEnumProc, (LPARAM)&hChild);
  return hChild;
}

// A null combo box has no text: -1, strText untouched.
int VrkComboBoxGetSafeText(CComboBox* pCombo, CString& strText) {
  if (pCombo == NULL || !::IsWindow(pCombo->m_hWnd)) return -1;
  if (!pCombo->GetDroppedState() && (pCombo->GetStyle() & CBS_DROPDOWN)) {
    HWND hEdit = VrkComboBoxGetChildEditCtrl(pCombo);
    if (hEdit != NULL && ::SendMessage(hEdit, EM_GETMODIFY, 0, 0)) {
      pCombo->GetWindowText(strText);
      return -1;
    }
  }
  int nSel = pCombo->GetCurSel();
  if (nSel == CB_ERR) return -1;
  pCombo->GetLBText(nSel, strText);
  return nSel;
}

void VrkComboBoxDoQuickenAction(CComboBox* pCombo, int nFlags) {
  if (pCombo == NULL || !::IsWindow(pCombo->m_hWnd)) return;
  CString strTyped;
  pCombo->GetWindowText(strTyped);
  int nIndex = (int)pCombo->SendMessage(CB_FINDSTRING, (WPARAM)-1, (LPARAM)(LPCSTR)strTyped);
  if (nIndex == CB_ERR) return;
  pCombo->SetCurSel(nIndex);
  if (!(nFlags & VRK_COMBO_COMPLETE)) return;

  CString strEntry;
  pCombo->GetLBText(nIndex, strEntry);
  int nTyped = strTyped.GetLength();
  int nEntry = strEntry.GetLength();
  if ((nFlags & VRK_COMBO_KEEPTYPED) && nTyped <= nEntry)
    strEntry = strTyped + strEntry.Right(nEntry - nTyped);
  pCombo->SetWindowText(strEntry);
  if (nTyped <= nEntry) pCombo->SetEditSel(nTyped, -1);
}
