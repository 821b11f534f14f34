// vrk_folderdlg.cpp - the shell's folder browser.
#include "vrk_dialogs.h"

#include "resource.h"

#include <string.h>

namespace {
// Copies at most the buffer's size, always terminated.
void CopyText(char (&szDest)[_MAX_PATH], const char* pszSource) {
  lstrcpynA(szDest, pszSource, _MAX_PATH);
}
} // namespace

VFolderDialog::VFolderDialog(HWND hOwner, int nIDTitle) {
  memset(&m_bi, 0, sizeof(m_bi));
  m_szTitle[0] = m_szSelected[0] = m_szDisplay[0] = '\0';
  SetTitle(nIDTitle < 1 ? (int)IDS_VRK_FOLDER_TITLE : nIDTitle);
  m_bi.hwndOwner = hOwner != NULL ? hOwner : AfxGetMainWnd()->GetSafeHwnd();
  m_bi.ulFlags = BIF_RETURNONLYFSDIRS | BIF_RETURNFSANCESTORS;
}

void VFolderDialog::SetTitle(const char* pszTitle) {
  if (pszTitle != NULL) CopyText(m_szTitle, pszTitle);
}

void VFolderDialog::SetTitle(int nIDTitle) {
  if (nIDTitle < 1) return;
  CString strTitle;
  if (strTitle.LoadString((UINT)nIDTitle)) CopyText(m_szTitle, strTitle);
}

void VFolderDialog::SetSelectedFolder(const char* pszFolder) {
  if (pszFolder != NULL) m_strInitial = pszFolder;
}

int CALLBACK VFolderDialog::BrowseCallback(HWND hWnd, UINT uMsg, LPARAM, LPARAM lpData) {
  if (uMsg == BFFM_INITIALIZED) {
    char szCurrent[_MAX_PATH] = "";
    const char* pszFolder = (const char*)lpData;
    if (pszFolder == NULL) {
      DWORD nLength = ::GetCurrentDirectoryA(_MAX_PATH, szCurrent);
      if (nLength > 0 && nLength < _MAX_PATH) pszFolder = szCurrent;
    }
    if (pszFolder != NULL) ::SendMessageA(hWnd, BFFM_SETSELECTIONA, TRUE, (LPARAM)pszFolder);
  }
  return 0;
}

int VFolderDialog::DoModal() {
  IMalloc* pMalloc = NULL;
  if (FAILED(::SHGetMalloc(&pMalloc)) || pMalloc == NULL) return 0;
  m_bi.pszDisplayName = m_szSelected;
  m_bi.lpszTitle = m_szTitle;
  m_bi.lpfn = &BrowseCallback;
  m_bi.lParam = m_strInitial.IsEmpty() ? 0 : (LPARAM)(const char*)m_strInitial;
  int nResult = 0;
  // Some shells write into the name buffer even when cancelled: a cancel
  // keeps the last selection.
  char szKept[_MAX_PATH];
  memcpy(szKept, m_szSelected, sizeof(szKept));
  LPITEMIDLIST pidl = ::SHBrowseForFolderA(&m_bi);
  if (pidl == NULL) {
    memcpy(m_szSelected, szKept, sizeof(szKept));
  } else {
    CopyText(m_szDisplay, m_szSelected);
    // A folder outside the file system keeps its display name here; the
    // choice counts all the same.
    ::SHGetPathFromIDListA(pidl, m_szSelected);
    nResult = 1;
    pMalloc->Free(pidl);
  }
  pMalloc->Release();
  return nResult;
}
