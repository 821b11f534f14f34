// vrk_tracedlg.cpp - the trace settings dialog (template 5015): edits the
// values of HKCU\Software\Tamrix\PELVrk Profiler that the trace facility
// reads once per process.
#include "vrk_tracedlg.h"

#include <afxdlgs.h>
#include <stdlib.h>

#include "resource.h"
#include "vrk_trace.h"

namespace {

const char kProfilerKey[] = "Software\\Tamrix\\PELVrk Profiler";

// The check boxes, their fields' flag bits.
struct CheckBit {
  int nID;
  DWORD dwBit;
};
const CheckBit kChecks[5] = {{IDC_VRK_TRACE_ENABLE, VTRACE_ENABLED},
                             {IDC_VRK_TRACE_TIMINGS, VTRACE_TIMINGS},
                             {IDC_VRK_TRACE_WINDOW, VTRACE_TRACEWINDOW},
                             {IDC_VRK_TRACE_VERBATIM, VTRACE_VERBATIM},
                             {IDC_VRK_TRACE_CLOCKTIMES, VTRACE_CLOCKTIMES}};

// What EnableAll switches: everything below the enabling check but the
// buttons that close the dialog.
const int kAllControls[] = {
    IDC_VRK_TRACE_WINDOW,    IDC_VRK_TRACE_FILENAME,  IDC_VRK_TRACE_BROWSE,
    IDC_VRK_TRACE_PREFIX,    IDC_VRK_TRACE_SUFFIX,    IDC_VRK_TRACE_DELIMITER,
    IDC_VRK_TRACE_VERBATIM,  IDC_VRK_TRACE_TIMINGS,   IDC_VRK_TRACE_CLOCKTIMES,
    IDC_VRK_TRACE_MAXLENGTH, IDC_VRK_TRACE_CATEGORIES};

// A value of another type than the one expected reads as the default: a
// hand-edited key never turns into flags or texts nobody wrote.
DWORD ReadDword(HKEY hKey, const char* pszName) {
  DWORD dwType = 0, dwValue = 0, cb = sizeof(dwValue);
  if (::RegQueryValueExA(hKey, pszName, NULL, &dwType, (BYTE*)&dwValue, &cb) != ERROR_SUCCESS ||
      dwType != REG_DWORD || cb != sizeof(dwValue))
    return 0;
  return dwValue;
}

CString ReadString(HKEY hKey, const char* pszName) {
  CString strValue;
  DWORD dwType = 0, cb = 0;
  if (::RegQueryValueExA(hKey, pszName, NULL, &dwType, NULL, &cb) != ERROR_SUCCESS ||
      (dwType != REG_SZ && dwType != REG_EXPAND_SZ))
    return strValue;
  // One byte more than stored: a value written without its terminator
  // still ends inside the buffer.
  char* p = strValue.GetBuffer((int)cb + 1);
  DWORD cbRead = cb;
  LONG nResult = ::RegQueryValueExA(hKey, pszName, NULL, &dwType, (BYTE*)p, &cbRead);
  p[nResult == ERROR_SUCCESS && cbRead <= cb ? cbRead : 0] = '\0';
  strValue.ReleaseBuffer();
  return strValue;
}

void WriteDword(HKEY hKey, const char* pszName, DWORD dwValue) {
  ::RegSetValueExA(hKey, pszName, 0, REG_DWORD, (const BYTE*)&dwValue, sizeof(dwValue));
}

void WriteString(HKEY hKey, const char* pszName, const CString& strValue) {
  ::RegSetValueExA(hKey, pszName, 0, REG_SZ, (const BYTE*)(const char*)strValue,
                   (DWORD)strValue.GetLength() + 1);
}

} // namespace

BEGIN_MESSAGE_MAP(VVrkTraceDlg, CDialog)
ON_BN_CLICKED(IDC_VRK_TRACE_BROWSE, &VVrkTraceDlg::OnButtonBrowse)
ON_BN_CLICKED(IDC_VRK_TRACE_ENABLE, &VVrkTraceDlg::OnCheckEnable)
ON_BN_CLICKED(IDC_VRK_TRACE_WINDOW, &VVrkTraceDlg::OnCheckTrace)
ON_BN_CLICKED(IDC_VRK_TRACE_TIMINGS, &VVrkTraceDlg::OnCheckFunctimings)
ON_BN_CLICKED(ID_HELP, &VVrkTraceDlg::OnHelp)
END_MESSAGE_MAP()

VVrkTraceDlg::VVrkTraceDlg(CWnd* pParent)
    : CDialog(IDD_VRK_TRACE, pParent), m_bEnabled(FALSE), m_bClockTimes(FALSE), m_bVerbatim(FALSE),
      m_bTimings(FALSE), m_bTraceWindow(FALSE), m_pFilters(NULL), m_nFilters(0) {}

void VVrkTraceDlg::SetTraceFilters(tagTraceFilter* pFilters, int nCount) {
  m_pFilters = pFilters;
  m_nFilters = pFilters != NULL && nCount > 0 ? nCount : 0;
}

void VVrkTraceDlg::DoDataExchange(CDataExchange* pDX) {
  CDialog::DoDataExchange(pDX);
  DDX_Control(pDX, IDC_VRK_TRACE_BROWSE, m_btnBrowse);
  DDX_Control(pDX, IDC_VRK_TRACE_CATEGORIES, m_lstFilters);
  DDX_Check(pDX, IDC_VRK_TRACE_ENABLE, m_bEnabled);
  DDX_Check(pDX, IDC_VRK_TRACE_CLOCKTIMES, m_bClockTimes);
  DDX_Check(pDX, IDC_VRK_TRACE_VERBATIM, m_bVerbatim);
  DDX_Check(pDX, IDC_VRK_TRACE_TIMINGS, m_bTimings);
  DDX_Check(pDX, IDC_VRK_TRACE_WINDOW, m_bTraceWindow);
  DDX_Text(pDX, IDC_VRK_TRACE_DELIMITER, m_strDelimiter);
  DDV_MaxChars(pDX, m_strDelimiter, 20);
  DDX_Text(pDX, IDC_VRK_TRACE_MAXLENGTH, m_strMaxLength);
  DDV_MaxChars(pDX, m_strMaxLength, 10);
  DDX_Text(pDX, IDC_VRK_TRACE_FILENAME, m_strFileName);
  DDV_MaxChars(pDX, m_strFileName, 256);
  DDX_Text(pDX, IDC_VRK_TRACE_PREFIX, m_strPrefix);
  DDV_MaxChars(pDX, m_strPrefix, 20);
  DDX_Text(pDX, IDC_VRK_TRACE_SUFFIX, m_strSuffix);
  DDV_MaxChars(pDX, m_strSuffix, 20);
}

DWORD VVrkTraceDlg::ReadSettings() {
  HKEY hKey = NULL;
  if (::RegOpenKeyA(HKEY_CURRENT_USER, kProfilerKey, &hKey) != ERROR_SUCCESS) return 0;
  DWORD dwFlags = ReadDword(hKey, "Flags");
  m_strMaxLength.Format("%lu", ReadDword(hKey, "MaxLength"));
  m_bEnabled = (dwFlags & VTRACE_ENABLED) != 0;
  m_bTimings = (dwFlags & VTRACE_TIMINGS) != 0;
  m_bTraceWindow = (dwFlags & VTRACE_TRACEWINDOW) != 0;
  m_bVerbatim = (dwFlags & VTRACE_VERBATIM) != 0;
  m_bClockTimes = (dwFlags & VTRACE_CLOCKTIMES) != 0;
  // The dialog shows an empty delimiter when none is stored, where the
  // trace facility uses a tab.
  m_strDelimiter = ReadString(hKey, "Delimiter");
  m_strFileName = ReadString(hKey, "FileName");
  m_strPrefix = ReadString(hKey, "Prefix");
  m_strSuffix = ReadString(hKey, "Suffix");
  DWORD dwFilter = ReadDword(hKey, "Filter");
  ::RegCloseKey(hKey);
  return dwFilter;
}

BOOL VVrkTraceDlg::OnInitDialog() {
  DWORD dwFilter = ReadSettings();
  CDialog::OnInitDialog();
  if (m_bEnabled) {
    EnableOutputFile(!m_bTraceWindow);
    EnableEntryExitTimings(m_bTimings);
  } else {
    EnableAll(FALSE);
  }
  FillCategories(dwFilter);
  if (m_bmpBrowse.GetSafeHandle() == NULL) m_bmpBrowse.LoadMappedBitmap(IDB_VRK_BROWSE);
  m_btnBrowse.SendMessage(BM_SETIMAGE, IMAGE_BITMAP, (LPARAM)m_bmpBrowse.GetSafeHandle());
  return TRUE;
}

// The table is walked by advancing its pointer: it is shown once per dialog
// object (a second showing lists nothing rather than reading past its end).
void VVrkTraceDlg::FillCategories(DWORD dwFilter) {
  m_lstFilters.ResetContent();
  for (; m_nFilters > 0 && m_pFilters != NULL; m_nFilters--, m_pFilters++) {
    int nIndex = m_lstFilters.AddString(m_pFilters->pszName != NULL ? m_pFilters->pszName : "");
    if (nIndex < 0) continue;
    m_lstFilters.SetItemData(nIndex, m_pFilters->dwMask);
    if (m_pFilters->dwMask & dwFilter) m_lstFilters.SetCheck(nIndex, 1);
  }
}

BOOL VVrkTraceDlg::WriteSettings() {
  HKEY hKey = NULL;
  if (::RegOpenKeyA(HKEY_CURRENT_USER, kProfilerKey, &hKey) != ERROR_SUCCESS &&
      ::RegCreateKeyExA(HKEY_CURRENT_USER, kProfilerKey, 0, NULL, REG_OPTION_NON_VOLATILE,
                        KEY_READ | KEY_WRITE, NULL, &hKey, NULL) != ERROR_SUCCESS)
    return FALSE;
  DWORD dwFilter = 0;
  for (int i = 0; i < m_lstFilters.GetCount(); i++)
    if (m_lstFilters.GetCheck(i) == 1) dwFilter |= (DWORD)m_lstFilters.GetItemData(i);
  WriteDword(hKey, "Filter", dwFilter);
  BOOL checks[5] = {m_bEnabled, m_bTimings, m_bTraceWindow, m_bVerbatim, m_bClockTimes};
  DWORD dwFlags = 0;
  for (int i = 0; i < 5; i++)
    if (checks[i]) dwFlags |= kChecks[i].dwBit;
  WriteDword(hKey, "Flags", dwFlags);
  WriteDword(hKey, "MaxLength", (DWORD)atoi(m_strMaxLength)); // empty or not a number: 0
  WriteString(hKey, "Delimiter", m_strDelimiter);
  WriteString(hKey, "FileName", m_strFileName);
  WriteString(hKey, "Prefix", m_strPrefix);
  WriteString(hKey, "Suffix", m_strSuffix);
  ::RegCloseKey(hKey);
  return TRUE;
}

void VVrkTraceDlg::OnOK() {
  if (!UpdateData(TRUE)) return;
  if (!WriteSettings()) {
    ::MessageBoxA(NULL, "Unknown error: unable to create registry key", "VTrace", MB_OK);
    return; // the dialog stays open
  }
  EndDialog(IDOK);
}

void VVrkTraceDlg::OnButtonBrowse() {
  CFileDialog dlg(TRUE, NULL, NULL, OFN_NOVALIDATE, NULL, this);
  dlg.m_ofn.lpstrTitle = "Select output file";
  if (dlg.DoModal() == IDOK) SetDlgItemText(IDC_VRK_TRACE_FILENAME, dlg.GetPathName());
}

void VVrkTraceDlg::OnCheckEnable() {
  BOOL bEnable = IsDlgButtonChecked(IDC_VRK_TRACE_ENABLE) == BST_CHECKED;
  EnableAll(bEnable);
  if (bEnable) {
    OnCheckTrace();
    OnCheckFunctimings();
  }
}

void VVrkTraceDlg::OnCheckTrace() {
  EnableOutputFile(IsDlgButtonChecked(IDC_VRK_TRACE_WINDOW) != BST_CHECKED);
}

void VVrkTraceDlg::OnCheckFunctimings() {
  EnableEntryExitTimings(IsDlgButtonChecked(IDC_VRK_TRACE_TIMINGS) == BST_CHECKED);
}

void VVrkTraceDlg::OnHelp() {
  CDialog dlg(IDD_VRK_TRACEHELP, this);
  dlg.DoModal();
}

void VVrkTraceDlg::EnableAll(BOOL bEnable) {
  for (int nID : kAllControls)
    if (CWnd* pWnd = GetDlgItem(nID)) pWnd->EnableWindow(bEnable);
}

void VVrkTraceDlg::EnableOutputFile(BOOL bEnable) {
  if (CWnd* pWnd = GetDlgItem(IDC_VRK_TRACE_FILENAME)) pWnd->EnableWindow(bEnable);
  if (CWnd* pWnd = GetDlgItem(IDC_VRK_TRACE_BROWSE)) pWnd->EnableWindow(bEnable);
}

void VVrkTraceDlg::EnableEntryExitTimings(BOOL bEnable) {
  if (CWnd* pWnd = GetDlgItem(IDC_VRK_TRACE_CLOCKTIMES)) pWnd->EnableWindow(bEnable);
}
