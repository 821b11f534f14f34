// vrk_filedlg.cpp - a file dialog that opens in the folder of the file last
// chosen with it, kept in the application's profile.
#include "vrk_dialogs.h"

namespace {
// Stands in for a missing request: a plain Open dialog, no profile.
tagVFileOpenStruct g_noRequest = {TRUE, NULL, NULL, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                                  NULL, NULL, NULL, NULL};

tagVFileOpenStruct& Request(tagVFileOpenStruct* pRequest) {
  return pRequest != NULL ? *pRequest : g_noRequest;
}
} // namespace

VFileDialog::VFileDialog(tagVFileOpenStruct* pRequest)
    : CFileDialog(Request(pRequest).bOpen, Request(pRequest).pszDefExt,
                  Request(pRequest).pszFileName, Request(pRequest).dwFlags,
                  Request(pRequest).pszFilter, Request(pRequest).pParent, 0, TRUE),
      m_pRequest(pRequest) {}

INT_PTR VFileDialog::DoModal() {
  CWinApp* pApp = AfxGetApp();
  BOOL bProfile = pApp != NULL && m_pRequest != NULL && m_pRequest->pszProfileSection != NULL &&
                  m_pRequest->pszProfileEntry != NULL;
  CString strFolder;
  if (bProfile) {
    strFolder =
        pApp->GetProfileString(m_pRequest->pszProfileSection, m_pRequest->pszProfileEntry, "");
    // A folder that is gone leaves the current directory as it is. Decided
    // here: the folder is offered as the initial one too (unless the host
    // set its own), as newer systems open at their own last-visited folder
    // rather than the current directory.
    if (!strFolder.IsEmpty() && ::SetCurrentDirectoryA(strFolder) && m_ofn.lpstrInitialDir == NULL)
      m_ofn.lpstrInitialDir = strFolder;
  }
  INT_PTR nResult = CFileDialog::DoModal();
  if (m_ofn.lpstrInitialDir == (const char*)strFolder) m_ofn.lpstrInitialDir = NULL;
  if (nResult == IDOK && bProfile) {
    CString strPath = GetPathName();
    int nSlash = strPath.ReverseFind('\\');
    if (nSlash >= 0)
      pApp->WriteProfileString(m_pRequest->pszProfileSection, m_pRequest->pszProfileEntry,
                               strPath.Left(nSlash));
  }
  return nResult;
}
