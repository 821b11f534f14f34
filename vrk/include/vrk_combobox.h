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

// ---- Completing combo boxes ---------------------------------------------------

class VAutoComboBox;

// The edit of a VAutoComboBox: after each printable character the combo
// box completes the text from its list.
class VRK_API VAutoComboBoxEdit : public CEdit {
public:
  VAutoComboBoxEdit() : m_pCombo(NULL) {}
  virtual ~VAutoComboBoxEdit() {}
  // Null throws VInvalidDataException.
  void SetParentComboBox(VAutoComboBox* pCombo);

protected:
  afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  DECLARE_MESSAGE_MAP()

  VAutoComboBox* m_pCombo;
};

// A drop-down combo box that completes what the user types from its list,
// keeping the case of the typed characters. Its own edit is taken over on its
// first colour request.
class VRK_API VAutoComboBox : public CComboBox {
public:
  VAutoComboBox() {}
  virtual ~VAutoComboBox() {}

  // The next entry after nStartAfter that begins with psz, compared with
  // case; -1 when none (the search stops when it wraps around).
  int FindStringWithCase(int nStartAfter, LPCSTR psz);
  // The same for an entry equal to psz.
  int FindStringExactWithCase(int nStartAfter, LPCSTR psz);
  // Sets the edit's text and scrolls the list to the first entry that begins
  // with it (with case), without selecting it.
  void SetEditText(LPCSTR psz);
  void DoAutoComplete();

protected:
  afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
  afx_msg void OnDestroy();
  DECLARE_MESSAGE_MAP()

  VAutoComboBoxEdit m_edit;
  CListBox m_listBox; // kept for the drop-down list; not used by the operations here
};

// A combo box that completes on each printable key it receives.
class VRK_API VTypeAheadComboBox : public CComboBox {
public:
  VTypeAheadComboBox() {}
  virtual ~VTypeAheadComboBox() {}

protected:
  virtual void OnTypeAheadChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  // Flags of the completion; VRK_COMBO_COMPLETE by default.
  virtual int GetComboActionFlags() const { return VRK_COMBO_COMPLETE; }

  afx_msg UINT OnGetDlgCode();
  afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  DECLARE_MESSAGE_MAP()
};

// ---- A push button drawn as a combo box ------------------------------------------

// Clicked, it sends its parent WM_COMMAND with notification code 1; a derived
// class overrides ShowDropDown to open a drop-down of its own.
class VRK_API VCustomComboBox : public CButton {
  DECLARE_DYNCREATE(VCustomComboBox)
public:
  VCustomComboBox();
  virtual ~VCustomComboBox();

  virtual void SetWindowSize();
  virtual BOOL ShowDropDown();
  virtual void DrawUserArea(DRAWITEMSTRUCT* lpDIS);
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDIS);
  const CRect& GetButtonRect() const { return m_rcButton; }

protected:
  virtual void PreSubclassWindow();

  afx_msg void OnClicked();
  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);
  // Not mapped: the button's own handling of a lost capture stays.
  afx_msg void OnCaptureChanged(CWnd* /*pWnd*/) {}
  DECLARE_MESSAGE_MAP()

  int m_nReserved;  // 0
  CRect m_rcButton; // the drop button within the client area
};

// ---- Font faces and point sizes ---------------------------------------------

// The installed font families (from GDI+). A VPointSizeComboBox that follows
// it in Z order is refilled when the face changes, keeping the chosen size.
class VRK_API VFaceNameComboBox : public CComboBox {
public:
  VFaceNameComboBox() {}
  virtual ~VFaceNameComboBox() {}
  // The filter is accepted and not consulted.
  virtual void AddFaceNames(int(CALLBACK* pfnFilter)(ENUMLOGFONTA*));

protected:
  virtual void PreSubclassWindow();
  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg BOOL OnSelChange();
  DECLARE_MESSAGE_MAP()
};

// The 23 fixed point sizes, each with its size as item data.
class VRK_API VPointSizeComboBox : public CComboBox {
  DECLARE_DYNAMIC(VPointSizeComboBox)
public:
  VPointSizeComboBox() {}
  virtual ~VPointSizeComboBox() {}
  // The face does not change the list.
  virtual void AddPointSizes(LPCSTR pszFaceName);
};

#endif // VRK_COMBOBOX_H
