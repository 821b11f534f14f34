// vrk_combobox.h - combo boxes that complete what the user types, type ahead,
// show a drop-down of the owner's choice, list the installed font families
// and point sizes; and helpers for any combo box or list box.
#ifndef VRK_COMBOBOX_H
#define VRK_COMBOBOX_H

#include "vrkdefs.h"
#include <afxwin.h>

// ---- Helpers for any CComboBox or CListBox ----------------------------------

// Action flags of VrkComboBoxDoQuickenAction.
#define VRK_COMBO_COMPLETE 0x0002  // complete from the first matching entry, select the tail
#define VRK_COMBO_KEEPTYPED 0x0001 // keep the typed characters (their case) before the tail

// Selects the first entry whose item data equals dwItemData; TRUE also when
// none does. Null throws VInvalidDataException.
VRK_API BOOL VrkSetComboBox(CComboBox* pCombo, DWORD dwItemData);
VRK_API BOOL VrkSetListBox(CListBox* pList, DWORD dwItemData);
// TRUE for the drop-down list window of a combo box (class "ComboLBox").
VRK_API BOOL VrkComboBoxIsDropDown(HWND hWnd);
// The last child window of the combo box (its edit, for a drop-down combo).
VRK_API HWND VrkComboBoxGetChildEditCtrl(CComboBox* pCombo);
// Stores each child in *(HWND*)lParam and goes on; FALSE only for a null lParam.
VRK_API BOOL CALLBACK VrkComboBoxChildEnumProc(HWND hWnd, LPARAM lParam);
// The text the user sees. A drop-down combo whose edit was changed by the
// user (and whose list is closed) gives its window text and -1; otherwise the
// selected entry's text and index, or -1 with strText untouched.
VRK_API int VrkComboBoxGetSafeText(CComboBox* pCombo, CString& strText);
// The completion step: selects the first entry that begins with the window
// text and, with VRK_COMBO_COMPLETE, completes the text and selects the tail.
VRK_API void VrkComboBoxDoQuickenAction(CComboBox* pCombo, int nFlags);

#endif // VRK_COMBOBOX_H
