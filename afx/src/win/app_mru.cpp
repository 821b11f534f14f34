// The recent-file list: CRecentFileList, kept in the application's profile,
// and CWinApp's File menu entries for it.
#include <afxwin.h>
#include <afxadv.h>

CRecentFileList::CRecentFileList(UINT nStart, LPCTSTR lpszSection, LPCTSTR lpszEntryFormat,
                                 int nSize, int nMaxDispLen)
    : m_arrNames(NULL), m_strSectionName(lpszSection), m_strEntryFormat(lpszEntryFormat),
      m_nStart(nStart), m_nSize(nSize < 0 ? 0 : nSize), m_nMaxDisplayLength(nMaxDispLen) {
  m_arrNames = new CString[m_nSize > 0 ? m_nSize : 1];
}

CRecentFileList::~CRecentFileList() { delete[] m_arrNames; }

void CRecentFileList::Add(LPCTSTR lpszPathName) {
  if (lpszPathName == NULL || *lpszPathName == '\0' || m_nSize == 0) return;
  TCHAR szFull[MAX_PATH];
  CString strPath = lpszPathName;
  DWORD nLen = ::GetFullPathName(lpszPathName, MAX_PATH, szFull, NULL);
  if (nLen > 0 && nLen < MAX_PATH) strPath = szFull;
  // Where it was (or the last place), everything above moves down one.
  int iMRU = 0;
  while (iMRU < m_nSize - 1 && m_arrNames[iMRU].CompareNoCase(strPath) != 0)
    iMRU++;
  for (; iMRU > 0; iMRU--)
    m_arrNames[iMRU] = m_arrNames[iMRU - 1];
  m_arrNames[0] = strPath;
}

void CRecentFileList::Remove(int nIndex) {
  if (nIndex < 0 || nIndex >= m_nSize) return;
  for (int i = nIndex; i < m_nSize - 1; i++)
    m_arrNames[i] = m_arrNames[i + 1];
  m_arrNames[m_nSize - 1].Empty();
}

BOOL CRecentFileList::GetDisplayName(CString& strName, int nIndex, LPCTSTR lpszCurDir, int nCurDir,
                                     BOOL bAtLeastName) const {
  if (nIndex < 0 || nIndex >= m_nSize || m_arrNames[nIndex].IsEmpty()) return FALSE;
  const CString& strPath = m_arrNames[nIndex];
  int nSlash = strPath.ReverseFind('\\');
  // In the current folder: the file name alone.
  if (lpszCurDir != NULL && nCurDir > 0 && nSlash == nCurDir &&
      strPath.Left(nCurDir).CompareNoCase(CString(lpszCurDir).Left(nCurDir)) == 0) {
    strName = strPath.Mid(nSlash + 1);
    return TRUE;
  }
  strName = strPath;
  // Too long: the start (drive) and the end, joined by "...", keeping at
  // least the file name when asked.
  if (m_nMaxDisplayLength > 0 && strName.GetLength() > m_nMaxDisplayLength) {
    CString strFile = strPath.Mid(nSlash + 1);
    int nKeep = m_nMaxDisplayLength - 3 - strFile.GetLength();
    if (nKeep >= 3)
      strName = strPath.Left(3) + "..." + strPath.Right(m_nMaxDisplayLength - 6);
    else
      strName = bAtLeastName ? strFile : strPath.Right(m_nMaxDisplayLength);
  }
  return TRUE;
}

void CRecentFileList::UpdateMenu(CCmdUI* pCmdUI) {
  CMenu* pMenu = pCmdUI->m_pMenu;
  if (m_strOriginal.IsEmpty() && pMenu != NULL)
    pMenu->GetMenuString(pCmdUI->m_nID, m_strOriginal, MF_BYCOMMAND);
  if (m_nSize == 0 || m_arrNames[0].IsEmpty()) {
    if (!m_strOriginal.IsEmpty()) pCmdUI->SetText(m_strOriginal);
    pCmdUI->Enable(FALSE);
    return;
  }
  if (pMenu == NULL) return;
  for (int i = 0; i < m_nSize; i++)
    pMenu->DeleteMenu(m_nStart + i, MF_BYCOMMAND);
  TCHAR szCurDir[MAX_PATH];
  DWORD nCurDir = ::GetCurrentDirectory(MAX_PATH, szCurDir);
  if (nCurDir >= MAX_PATH) nCurDir = 0;
  int nInserted = 0;
  for (int i = 0; i < m_nSize; i++) {
    CString strName;
    if (!GetDisplayName(strName, i, szCurDir, (int)nCurDir)) break;
    strName.Replace("&", "&&"); // a name's own ampersands are not mnemonics
    CString strItem;
    strItem.Format("&%d %s", (i + 1) % 10, (LPCTSTR)strName);
    pMenu->InsertMenu(pCmdUI->m_nIndex + nInserted, MF_STRING | MF_BYPOSITION, m_nStart + i,
                      strItem);
    nInserted++;
  }
  // The frame's walk over the menu goes on after the inserted items.
  pCmdUI->m_nIndex += nInserted - 1;
  pCmdUI->m_nIndexMax = pMenu->GetMenuItemCount();
  pCmdUI->m_bEnableChanged = TRUE;
}

void CRecentFileList::ReadList() {
  CWinApp* pApp = AfxGetApp();
  if (pApp == NULL) return;
  for (int i = 0; i < m_nSize; i++) {
    CString strEntry;
    strEntry.Format(m_strEntryFormat, i + 1);
    m_arrNames[i] = pApp->GetProfileString(m_strSectionName, strEntry, "");
  }
}

void CRecentFileList::WriteList() {
  CWinApp* pApp = AfxGetApp();
  if (pApp == NULL) return;
  for (int i = 0; i < m_nSize; i++) {
    CString strEntry;
    strEntry.Format(m_strEntryFormat, i + 1);
    // Empty entries are removed rather than kept blank.
    pApp->WriteProfileString(m_strSectionName, strEntry,
                             m_arrNames[i].IsEmpty() ? NULL : (LPCTSTR)m_arrNames[i]);
  }
}

// ---- CWinApp ---------------------------------------------------------------------------------

void CWinApp::LoadStdProfileSettings(UINT nMaxMRU) {
  if (nMaxMRU > 16) nMaxMRU = 16; // ID_FILE_MRU_FILE1 to ID_FILE_MRU_FILE16
  delete m_pRecentFileList;
  m_pRecentFileList = NULL;
  if (nMaxMRU != 0) {
    m_pRecentFileList =
        new CRecentFileList(ID_FILE_MRU_FILE1, "Recent File List", "File%d", (int)nMaxMRU);
    m_pRecentFileList->ReadList();
  }
  m_nNumPreviewPages = GetProfileInt("Settings", "PreviewPages", 0);
}

void CWinApp::SaveStdProfileSettings() {
  if (m_pRecentFileList != NULL) m_pRecentFileList->WriteList();
  if (m_nNumPreviewPages != 0) WriteProfileInt("Settings", "PreviewPages", (int)m_nNumPreviewPages);
}

void CWinApp::AddToRecentFileList(LPCTSTR lpszPathName) {
  if (m_pRecentFileList != NULL) m_pRecentFileList->Add(lpszPathName);
}

void CWinApp::OnUpdateRecentFileMenu(CCmdUI* pCmdUI) {
  if (m_pRecentFileList == NULL)
    pCmdUI->Enable(FALSE);
  else
    m_pRecentFileList->UpdateMenu(pCmdUI);
}

// Opens the file of the entry; one that no longer opens leaves the list.
BOOL CWinApp::OnOpenRecentFile(UINT nID) {
  if (m_pRecentFileList == NULL) return FALSE;
  int nIndex = (int)nID - ID_FILE_MRU_FILE1;
  if (nIndex < 0 || nIndex >= m_pRecentFileList->GetSize()) return FALSE;
  CString strPath = (*m_pRecentFileList)[nIndex];
  if (strPath.IsEmpty()) return FALSE;
  if (OpenDocumentFile(strPath) == NULL) m_pRecentFileList->Remove(nIndex);
  return TRUE;
}
