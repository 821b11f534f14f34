// afxdlgs.h: the common dialogs (CCommonDialog, CFileDialog, CPrintDialog).
#ifndef __AFXDLGS_H__
#define __AFXDLGS_H__

#include "afxwin.h"
#include <commdlg.h>
#include <dlgs.h>

// ---- CCommonDialog ---------------------------------------------------------------

// The hook procedure of the common dialogs (lpfnHook, lpfnPrintHook,
// lpfnSetupHook): attaches the dialog to the CCommonDialog being run, calls
// its OnInitDialog and routes notifications to it.
AFX_API UINT_PTR CALLBACK AfxCommDlgProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

// The base of the dialogs the system provides (file, print). DoModal of a
// derived class runs the system's function; the dialog it creates is attached
// to the object from its WM_INITDIALOG on (through the dialog's hook
// procedure), so that the object's message map, OnInitDialog and the
// notification virtuals work while it is shown.
class AFX_API CCommonDialog : public CDialog {
  DECLARE_DYNAMIC(CCommonDialog)
public:
  explicit CCommonDialog(CWnd* pParentWnd);
  virtual ~CCommonDialog();

protected:
  // The system dialog ends itself: OK and Cancel exchange data and pass the
  // command on to it rather than calling EndDialog.
  virtual void OnOK();
  virtual void OnCancel();

  // Runs pfnRun(pParam) (the system's dialog function) with this object as
  // the dialog being shown on this thread; restores the previous one after
  // (a common dialog opened from inside another).
  BOOL RunSystemDialog(BOOL(WINAPI* pfnRun)(void*), void* pParam);

public:
  // Messages of the hook procedure other than WM_INITDIALOG and WM_NOTIFY
  // (the file dialog's registered messages); returns what the hook returns.
  virtual UINT_PTR OnHookMessage(HWND hWndHook, UINT message, WPARAM wParam, LPARAM lParam);
};

// ---- CFileDialog -----------------------------------------------------------------

// The Open and Save As dialogs (GetOpenFileName/GetSaveFileName). The
// constructor fills m_ofn; adjust it before DoModal.
class AFX_API CFileDialog : public CCommonDialog {
  DECLARE_DYNAMIC(CFileDialog)
public:
  // lpszFilter: pairs of "description|pattern|" ending with "|" (the bars
  // become the '\0's the system wants). dwSize: the OPENFILENAME size to
  // report, 0 for the full one. bVistaStyle: see m_bVistaStyle.
  explicit CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt = NULL, LPCTSTR lpszFileName = NULL,
                       DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       LPCTSTR lpszFilter = NULL, CWnd* pParentWnd = NULL, DWORD dwSize = 0,
                       BOOL bVistaStyle = TRUE);
  virtual ~CFileDialog();

  OPENFILENAME m_ofn;

  OPENFILENAME& GetOFN() { return m_ofn; }
  const OPENFILENAME& GetOFN() const { return m_ofn; }

  // IDOK or IDCANCEL (also when the system's function fails: see
  // CommDlgExtendedError).
  virtual INT_PTR DoModal();

  // The chosen file: while the dialog is shown, what it currently holds;
  // after DoModal, what was chosen. With OFN_ALLOWMULTISELECT, GetPathName is
  // the first string of the list (the folder when several files were chosen):
  // walk the list with GetStartPosition/GetNextPathName.
  CString GetPathName() const;
  CString GetFileName() const;  // name and extension
  CString GetFileExt() const;   // extension without the dot
  CString GetFileTitle() const; // name without the extension
  // The folder shown; only while the dialog is shown (empty otherwise).
  CString GetFolderPath() const;
  BOOL GetReadOnlyPref() const { return (m_ofn.Flags & OFN_READONLY) != 0; }
  POSITION GetStartPosition() const { return (POSITION)m_ofn.lpstrFile; }
  CString GetNextPathName(POSITION& pos) const;

  // While the dialog is shown (explorer style).
  void SetControlText(int nID, LPCSTR lpsz);
  void HideControl(int nID);
  void SetDefExt(LPCSTR lpsz);

  // Notifications while the dialog is shown.
  // Return TRUE to refuse the name (the dialog stays open).
  virtual BOOL OnFileNameOK();
  virtual void OnInitDone();
  virtual void OnFileNameChange();
  virtual void OnFolderChange();
  virtual void OnTypeChange();
  // OFN_SHAREWARN (the default), OFN_SHAREFALLTHROUGH or OFN_SHARENOWARN.
  virtual UINT OnShareViolation(LPCTSTR lpszPathName);
  // Old-style dialogs (without OFN_EXPLORER): a list box selection changed.
  virtual void OnLBSelChangedNotify(UINT nIDBox, UINT iCurSel, UINT nCode);

  virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);

protected:
  BOOL m_bOpenFileDialog;
  // FALSE: this library always shows the system's explorer-style dialog
  // with a hook (the bVistaStyle argument is accepted and has no effect), so
  // that the hook-based virtuals work the same everywhere.
  BOOL m_bVistaStyle;
  CString m_strFilter;           // the filter, bars turned into '\0'
  TCHAR m_szFileTitle[64];       // m_ofn.lpstrFileTitle
  TCHAR m_szFileName[_MAX_PATH]; // m_ofn.lpstrFile

public:
  virtual UINT_PTR OnHookMessage(HWND hWndHook, UINT message, WPARAM wParam, LPARAM lParam);

protected:
  // The explorer-style dialog's text for a CDM_ message; FALSE when the
  // dialog is not shown or the message failed.
  BOOL GetDialogString(UINT nMsg, CString& rString) const;
};

// ---- CColorDialog ----------------------------------------------------------------

// The system's colour dialog (ChooseColor). m_cc is filled by the
// constructor (CC_RGBINIT when clrInit is given, the custom colours shared
// by every colour dialog of the process) and may be changed before DoModal.
class AFX_API CColorDialog : public CCommonDialog {
  DECLARE_DYNAMIC(CColorDialog)
public:
  explicit CColorDialog(COLORREF clrInit = 0, DWORD dwFlags = 0, CWnd* pParentWnd = NULL);
  virtual ~CColorDialog();

  CHOOSECOLOR m_cc;

  // IDOK or IDCANCEL.
  virtual INT_PTR DoModal();
  // The colour chosen (or the initial one before DoModal).
  COLORREF GetColor() const { return m_cc.rgbResult; }
  // While the dialog is shown: selects the colour in it.
  void SetCurrentColor(COLORREF clr);
  // The 16 custom colours kept for the process.
  static COLORREF* PASCAL GetSavedCustomColors();
};

// ---- CPrintDialog ----------------------------------------------------------------

// The Print and Print Setup dialogs (PrintDlg). m_pd holds the choice: the
// printer's DEVMODE and DEVNAMES blocks (owned by whoever asked for the
// dialog, usually the application) and, with PD_RETURNDC, a printer DC
// (deleted by the caller, or by CPrintInfo for the print job's dialog).
class AFX_API CPrintDialog : public CCommonDialog {
  DECLARE_DYNAMIC(CPrintDialog)
public:
  explicit CPrintDialog(BOOL bPrintSetupOnly,
                        DWORD dwFlags = PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOPAGENUMS |
                                        PD_HIDEPRINTTOFILE | PD_NOSELECTION,
                        CWnd* pParentWnd = NULL);
  virtual ~CPrintDialog();

  PRINTDLG& m_pd;

  // IDOK or IDCANCEL (also when PrintDlg fails: see CommDlgExtendedError).
  virtual INT_PTR DoModal();
  // The default printer's blocks (and DC with PD_RETURNDC) without a dialog;
  // m_pd.hDevMode and m_pd.hDevNames must be NULL before.
  BOOL GetDefaults();

  // A DC for m_pd's blocks, stored in m_pd.hDC (a DC held there before is
  // not deleted: the caller owns it); NULL when it cannot be made.
  HDC CreatePrinterDC();
  HDC GetPrinterDC() const { return m_pd.hDC; }
  // The DEVMODE (locked; NULL when there is none).
  LPDEVMODE GetDevMode() const;
  CString GetDriverName() const;
  CString GetDeviceName() const;
  CString GetPortName() const;

  int GetCopies() const;
  // The page range; -1 unless PrintRange().
  int GetFromPage() const;
  int GetToPage() const;
  BOOL PrintAll() const { return !PrintRange() && !PrintSelection(); }
  BOOL PrintRange() const { return (m_pd.Flags & PD_PAGENUMS) != 0; }
  BOOL PrintSelection() const { return (m_pd.Flags & PD_SELECTION) != 0; }
  BOOL PrintCollate() const { return (m_pd.Flags & PD_COLLATE) != 0; }

protected:
  PRINTDLG m_pdActual; // what m_pd refers to
};

// A DC for the printer named by a DEVNAMES block, with the settings of a
// DEVMODE block (may be NULL); NULL when hDevNames is NULL or unusable.
AFX_API HDC AFXAPI AfxCreateDC(HGLOBAL hDevNames, HGLOBAL hDevMode);

#endif // __AFXDLGS_H__
