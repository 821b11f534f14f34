// vrk_msgbox.h - the library's own message box: the system's type word
// (buttons, icon, default button) on a dialog template of the resource module,
// the text in the system's message-box font, the application's name as the
// caption, and a box sized to its text.
#ifndef VRK_MSGBOX_H
#define VRK_MSGBOX_H

#include "vrkdefs.h"

#include <afxwin.h>

// The message box dialog (template 5049). Hosts may derive from it and show
// the derived class through VrkMessageBoxEx.
class VRK_API VrkMessageBoxDlg : public CDialog {
  DECLARE_DYNCREATE(VrkMessageBoxDlg)
public:
  enum { IDD = 5049 };

  explicit VrkMessageBoxDlg(CWnd* pParent = NULL);
  VrkMessageBoxDlg(const char* pszText, UINT nType, UINT nHelpID, CWnd* pParent = NULL);
  VrkMessageBoxDlg(UINT nIDText, UINT nType, UINT nHelpID, CWnd* pParent = NULL);

  // Sets the text (a string resource: empty when there is none), the type
  // word and the third word, which is kept with the box and not read by it.
  void Initialize(UINT nIDText, UINT nType, UINT nHelpID);
  void Initialize(const char* pszText, UINT nType, UINT nHelpID);

  virtual BOOL OnInitDialog();

protected:
  virtual void DoDataExchange(CDataExchange* pDX);
  afx_msg void OnButtonClicked(UINT nID);

  // The parts of OnInitDialog.
  void SetMessageFont();
  void SetBoxIcon();
  void SetButtons();
  // Sizes the text, places the buttons under it, sizes and centres the box.
  virtual void ArrangeDialog();

  CString m_strText;
  UINT m_nType;
  UINT m_nHelpID;
  CStatic m_wndIcon;    // control 5051
  CStatic m_wndMessage; // control 5050
  CButton m_btnOK, m_btnCancel, m_btnYes, m_btnNo, m_btnRetry, m_btnAbort, m_btnIgnore;
  UINT m_nButton1, m_nButton2, m_nButton3; // the visible buttons in order, 0 when absent
  CFont* m_pOldFont;
  CFont m_fontMessage;

  DECLARE_MESSAGE_MAP()
};

// Shows the box without a parent; returns the pressed button's id (IDOK to
// IDNO), or -1 when the box could not be shown.
VRK_API int AFXAPI VrkMessageBox(UINT nIDText, UINT nType = MB_OK, UINT nHelpID = 0);
VRK_API int AFXAPI VrkMessageBox(const char* pszText, UINT nType = MB_OK, UINT nHelpID = 0);

// The same with a class derived from VrkMessageBoxDlg; -1, with nothing
// shown, when the class is NULL or not such a class.
VRK_API int AFXAPI VrkMessageBoxEx(CRuntimeClass* pDlgClass, UINT nIDText, UINT nType = MB_OK,
                                   UINT nHelpID = 0);
VRK_API int AFXAPI VrkMessageBoxEx(CRuntimeClass* pDlgClass, const char* pszText,
                                   UINT nType = MB_OK, UINT nHelpID = 0);

// MessageBeep(nType).
VRK_API int AFXAPI VrkBeep(UINT nType);

#endif // VRK_MSGBOX_H
