// vrk_tracedlg.h - the dialog in which a user edits the trace settings in
// HKCU\Software\Tamrix\PELVrk Profiler; they apply from the next run.
#ifndef VRK_TRACEDLG_H
#define VRK_TRACEDLG_H

#include "vrkdefs.h"

#include <afxwin.h>

// One named trace category of the host: the check list builds the "Filter"
// mask from the masks of the checked ones.
struct tagTraceFilter {
  const char* pszName;
  DWORD dwMask;
};

// The trace settings dialog (template 5015).
class VRK_API VVrkTraceDlg : public CDialog {
public:
  explicit VVrkTraceDlg(CWnd* pParent = NULL);

  // The host's categories; the table is not copied and must outlive the
  // dialog's initialisation.
  void SetTraceFilters(tagTraceFilter* pFilters, int nCount);

  virtual BOOL OnInitDialog();

protected:
  virtual void DoDataExchange(CDataExchange* pDX);
  virtual void OnOK();
  afx_msg void OnButtonBrowse();
  afx_msg void OnCheckEnable();
  afx_msg void OnCheckTrace();
  afx_msg void OnCheckFunctimings();
  afx_msg void OnHelp();

  void EnableAll(BOOL bEnable);
  void EnableOutputFile(BOOL bEnable);
  void EnableEntryExitTimings(BOOL bEnable);

  // Reads the settings from the registry into the fields; the "Filter".
  DWORD ReadSettings();
  void FillCategories(DWORD dwFilter);
  // Writes the fields; FALSE when the key cannot be opened or made.
  BOOL WriteSettings();

  BOOL m_bEnabled;
  BOOL m_bClockTimes;
  BOOL m_bVerbatim;
  BOOL m_bTimings;
  BOOL m_bTraceWindow;
  CString m_strDelimiter;
  CString m_strMaxLength;
  CString m_strFileName;
  CString m_strPrefix;
  CString m_strSuffix;
  CButton m_btnBrowse;        // control 5021
  CCheckListBox m_lstFilters; // control 5047
  CBitmap m_bmpBrowse;        // bitmap 5016
  tagTraceFilter* m_pFilters;
  int m_nFilters;

  DECLARE_MESSAGE_MAP()
};

#endif // VRK_TRACEDLG_H
