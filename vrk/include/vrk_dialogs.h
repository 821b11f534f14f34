// vrk_dialogs.h - ready-made dialogs for hosts: a one-line input box, a zoom
// percentage chooser, a file dialog that remembers its last folder in the
// application's profile, the shell's folder browser, and a data-exchange
// helper for single flag bits.
#ifndef VRK_DIALOGS_H
#define VRK_DIALOGS_H

#include "vrkdefs.h"

#include <afxcmn.h>
#include <afxdlgs.h>
#include <afxwin.h>
#include <shlobj.h>

// ---- VInputDialog -----------------------------------------------------------------

// Mask bits of VINPUTDLG: which fields are used.
#define VIDF_PROMPT 0x0001  // pszPrompt and nLimit
#define VIDF_CAPTION 0x0002 // pszCaption
#define VIDF_STYLE 0x0004   // dwStyle
#define VIDF_HELPID 0x0010  // nHelpID
#define VIDF_TEXT 0x0100    // pszText

// The request of VInputDialog::DoModal.
struct VINPUTDLG {
  DWORD mask;
  const char* pszPrompt;  // VIDF_PROMPT; NULL keeps the template's prompt
  const char* pszCaption; // VIDF_CAPTION
  const char* pszText;    // VIDF_TEXT: the initial text
  DWORD dwStyle;          // VIDF_STYLE: added to the edit's style; with WS_CHILD, the whole style
  UINT nLimit;            // VIDF_PROMPT (the same bit): the most characters, 0 for the system's
  UINT nHelpID;           // VIDF_HELPID: the dialog's help identifier
};

// A one-line text input box (template 5033).
class VRK_API VInputDialog : public CDialog {
public:
  VInputDialog();

  // Each non-zero argument is used (a limit sets VIDF_PROMPT too); TRUE when
  // the box was closed with OK.
  BOOL DoModal(const char* pszPrompt, const char* pszCaption = NULL, const char* pszText = NULL,
               DWORD dwStyle = 0, UINT nLimit = 0, UINT nHelpID = 0);
  BOOL DoModal(VINPUTDLG& request);

  void GetInput(CString& strInput) const { strInput = m_strInput; }

  virtual BOOL OnInitDialog();

protected:
  virtual void DoDataExchange(CDataExchange* pDX);

  CString m_strInput;
  CString m_strCaption;
  CString m_strPrompt;
  BOOL m_bCaptionGiven;
  BOOL m_bPromptGiven;
  UINT m_nLimit;
  DWORD m_dwStyle;
};

// ---- VZoomDialog ------------------------------------------------------------------

// A zoom percentage chooser (template 5002): fixed percentages, fit to the
// page width or the whole page, or a custom percentage with a spin button.
class VRK_API VZoomDialog : public CDialog {
public:
  explicit VZoomDialog(CWnd* pParent = NULL);
  // A minimum above the maximum is swapped (decided here: both stay usable).
  VZoomDialog(UINT nMinimum, UINT nMaximum, CWnd* pParent = NULL);

  UINT GetZoomPercent() const { return m_nPercent; }
  void SetZoomPercent(UINT nPercent) { m_nPercent = nPercent; }
  BOOL IsZoomPageWidth() const { return m_bPageWidth; }
  void SetZoomPageWidth(BOOL bFit) { m_bPageWidth = bFit; }
  BOOL IsZoomWholePage() const { return m_bWholePage; }
  void SetZoomWholePage(BOOL bFit) { m_bWholePage = bFit; }

  // The percentage of a fit: 4 for the page width, 5 for the whole page.
  // The host's view knows its page; this one keeps the current percentage.
  virtual UINT CalculateZoom(int nWhich);

  virtual BOOL OnInitDialog();

protected:
  virtual void DoDataExchange(CDataExchange* pDX);
  virtual void OnOK();
  afx_msg void OnChangeZoomPct();
  afx_msg void OnClickZoomPct(UINT nID);
  afx_msg void OnZoomPageWidth();
  afx_msg void OnZoomWholePage();
  afx_msg void OnZoomCustom();

  // Checks the one radio button of the group at a position (0..7).
  void CheckPosition(int nPosition);
  // Shows the percentage in the edit without reacting to the change.
  void ShowPercent();
  void EnableOK();
  void OnFit(int nWhich);

  CSpinButtonCtrl m_spin;
  UINT m_nMinimum;
  UINT m_nMaximum;
  UINT m_nPercent;
  int m_nRadio; // the checked radio button's position in the group
  BOOL m_bPageWidth;
  BOOL m_bWholePage;

private:
  BOOL m_bShowing; // the edit is being written by the dialog itself
  DECLARE_MESSAGE_MAP()
};

// ---- VFileDialog ------------------------------------------------------------------

// The request of VFileDialog.
struct tagVFileOpenStruct {
  BOOL bOpen;              // TRUE for an Open dialog, FALSE for Save As
  const char* pszDefExt;   // default extension
  const char* pszFileName; // initial file name
  DWORD dwFlags;           // OFN_ flags
  const char* pszFilter;   // "description|pattern|...|"
  CWnd* pParent;
  const char* pszProfileSection; // with the entry: where the last folder is kept
  const char* pszProfileEntry;
};

// A file dialog that opens in the folder of the file last chosen with the
// same profile section and entry (in the application's profile).
class VRK_API VFileDialog : public CFileDialog {
public:
  // The record is kept, not copied; NULL gives a plain Open dialog.
  explicit VFileDialog(tagVFileOpenStruct* pRequest);

  virtual INT_PTR DoModal();

protected:
  tagVFileOpenStruct* m_pRequest;
};

// ---- VFolderDialog ----------------------------------------------------------------

// The shell's folder browser.
class VRK_API VFolderDialog {
public:
  // The title is string 5000 when nIDTitle is below 1; the owner is the
  // thread's main window when hOwner is NULL.
  explicit VFolderDialog(HWND hOwner = NULL, int nIDTitle = 0);

  void SetTitle(const char* pszTitle); // NULL: no change
  void SetTitle(int nIDTitle);         // below 1: no change
  // The folder selected when the browser opens (NULL: no change); without
  // one, the current directory.
  void SetSelectedFolder(const char* pszFolder);
  const char* GetSelectedFolder() const { return m_szSelected; }
  const char* GetDisplayFolder() const { return m_szDisplay; }
  // For the host to adjust before DoModal (the buffers, title and callback
  // are set by DoModal).
  BROWSEINFOA& GetBrowseInfo() { return m_bi; }

  // 1 when a folder was chosen, 0 when cancelled.
  int DoModal();

protected:
  static int CALLBACK BrowseCallback(HWND hWnd, UINT uMsg, LPARAM lParam, LPARAM lpData);

  BROWSEINFOA m_bi;
  char m_szTitle[_MAX_PATH];
  char m_szSelected[_MAX_PATH];
  char m_szDisplay[_MAX_PATH];
  CString m_strInitial;
};

// ---- Data exchange ----------------------------------------------------------------

// A check box for one bit of a flag word: loading checks the box exactly when
// the bit is set; saving sets the bit when the box is checked and clears it
// otherwise (a grey box clears it).
VRK_API void AFXAPI VDDX_CheckBit(CDataExchange* pDX, int nIDC, DWORD& dwFlags, DWORD dwBit);

#endif // VRK_DIALOGS_H
