// CFileDialog: the system's Open and Save As dialogs with MFC's members.
#include <afxdlgs.h>

IMPLEMENT_DYNAMIC(CFileDialog, CCommonDialog)

// The length of a string in a buffer of nMax characters: never past the
// buffer, whether or not the string ends inside it.
static int BoundedLength(LPCTSTR psz, size_t nMax) {
  if (psz == NULL) return 0;
  const void* pEnd = memchr(psz, 0, nMax);
  return pEnd != NULL ? (int)((LPCTSTR)pEnd - psz) : (int)nMax;
}

CFileDialog::CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt, LPCTSTR lpszFileName,
                         DWORD dwFlags, LPCTSTR lpszFilter, CWnd* pParentWnd, DWORD dwSize,
                         BOOL /*bVistaStyle*/)
    : CCommonDialog(pParentWnd), m_bOpenFileDialog(bOpenFileDialog), m_bVistaStyle(FALSE) {
  memset(&m_ofn, 0, sizeof(m_ofn));
  m_szFileName[0] = '\0';
  m_szFileTitle[0] = '\0';
  // A smaller size asks for an older form of the structure; a larger one
  // cannot be honoured.
  m_ofn.lStructSize = (dwSize == 0 || dwSize > sizeof(m_ofn)) ? sizeof(m_ofn) : dwSize;
  m_ofn.lpstrFile = m_szFileName;
  m_ofn.nMaxFile = _MAX_PATH;
  m_ofn.lpstrDefExt = lpszDefExt;
  m_ofn.lpstrFileTitle = m_szFileTitle;
  m_ofn.nMaxFileTitle = sizeof(m_szFileTitle) / sizeof(TCHAR);
  m_ofn.Flags = dwFlags | OFN_ENABLEHOOK | OFN_EXPLORER;
  m_ofn.hInstance = AfxGetResourceHandle();
  m_ofn.lpfnHook = (LPOFNHOOKPROC)AfxCommDlgProc;

  // An initial name longer than the buffer is cut to fit (the dialog could
  // not hold it either).
  if (lpszFileName != NULL) lstrcpyn(m_szFileName, lpszFileName, _MAX_PATH);

  if (lpszFilter != NULL) {
    // The bars become '\0'. One more '\0' past the string's own terminator
    // ends the list even when the caller left out the closing bar.
    int nLen = lstrlen(lpszFilter);
    LPTSTR pch = m_strFilter.GetBuffer(nLen + 1);
    memcpy(pch, lpszFilter, nLen * sizeof(TCHAR));
    pch[nLen] = '\0';
    pch[nLen + 1] = '\0';
    for (int i = 0; i < nLen; i++)
      if (pch[i] == '|') pch[i] = '\0';
    m_strFilter.ReleaseBuffer(nLen);
    m_ofn.lpstrFilter = m_strFilter;
  }
}

CFileDialog::~CFileDialog() {}

static BOOL WINAPI RunOpen(void* pOfn) { return ::GetOpenFileName((OPENFILENAME*)pOfn); }
static BOOL WINAPI RunSave(void* pOfn) { return ::GetSaveFileName((OPENFILENAME*)pOfn); }

INT_PTR CFileDialog::DoModal() {
  if ((m_ofn.Flags & OFN_ENABLEHOOK) && m_ofn.lpfnHook == NULL)
    m_ofn.lpfnHook = (LPOFNHOOKPROC)AfxCommDlgProc;
  m_ofn.hwndOwner = PreModal();
  BOOL bResult = RunSystemDialog(m_bOpenFileDialog ? &RunOpen : &RunSave, &m_ofn);
  PostModal();
  return bResult ? IDOK : IDCANCEL;
}

// ---- The chosen file -------------------------------------------------------------

BOOL CFileDialog::GetDialogString(UINT nMsg, CString& rString) const {
  if (m_hWnd == NULL || !(m_ofn.Flags & OFN_EXPLORER)) return FALSE;
  // The dialog answers the size it needs, terminator included.
  int nSize = (int)::SendMessage(m_hWnd, nMsg, 0, 0);
  if (nSize <= 0) return FALSE;
  LPTSTR pch = rString.GetBuffer(nSize);
  int nGot = (int)::SendMessage(m_hWnd, nMsg, (WPARAM)nSize, (LPARAM)pch);
  if (nGot <= 0) {
    rString.ReleaseBuffer(0);
    return FALSE;
  }
  pch[nSize - 1] = '\0';
  rString.ReleaseBuffer();
  return TRUE;
}

CString CFileDialog::GetPathName() const {
  CString strResult;
  if (GetDialogString(CDM_GETFILEPATH, strResult)) return strResult;
  return CString(m_ofn.lpstrFile, BoundedLength(m_ofn.lpstrFile, m_ofn.nMaxFile));
}

CString CFileDialog::GetFileName() const {
  CString strResult;
  if (GetDialogString(CDM_GETSPEC, strResult)) return strResult;
  if (m_ofn.lpstrFileTitle != NULL && m_ofn.nMaxFileTitle != 0)
    return CString(m_ofn.lpstrFileTitle, BoundedLength(m_ofn.lpstrFileTitle, m_ofn.nMaxFileTitle));
  // Without a title buffer: the name part of the full path.
  int nLen = BoundedLength(m_ofn.lpstrFile, m_ofn.nMaxFile);
  if (m_ofn.nFileOffset >= nLen) return CString();
  return CString(m_ofn.lpstrFile + m_ofn.nFileOffset, nLen - m_ofn.nFileOffset);
}

CString CFileDialog::GetFileExt() const {
  CString strName;
  if (GetDialogString(CDM_GETSPEC, strName)) {
    int nDot = strName.ReverseFind('.');
    return nDot >= 0 ? strName.Mid(nDot + 1) : CString();
  }
  int nLen = BoundedLength(m_ofn.lpstrFile, m_ofn.nMaxFile);
  if (m_ofn.nFileExtension == 0 || m_ofn.nFileExtension >= nLen) return CString();
  return CString(m_ofn.lpstrFile + m_ofn.nFileExtension, nLen - m_ofn.nFileExtension);
}

CString CFileDialog::GetFileTitle() const {
  CString strName = GetFileName();
  int nDot = strName.ReverseFind('.');
  if (nDot >= 0) strName.Truncate(nDot);
  return strName;
}

CString CFileDialog::GetFolderPath() const {
  CString strResult;
  GetDialogString(CDM_GETFOLDERPATH, strResult);
  return strResult;
}

// The list a multiple selection leaves in m_ofn.lpstrFile: explorer style
// "folder\0name\0name\0\0", old style "folder name name\0"; a single file is
// the one full path. Nothing past nMaxFile is read.
CString CFileDialog::GetNextPathName(POSITION& pos) const {
  LPCTSTR pBegin = m_ofn.lpstrFile;
  LPCTSTR p = (LPCTSTR)pos;
  pos = NULL;
  if (pBegin == NULL || m_ofn.nMaxFile == 0 || p < pBegin || p >= pBegin + m_ofn.nMaxFile)
    return CString();
  LPCTSTR pEnd = pBegin + m_ofn.nMaxFile;
  const TCHAR chDelimiter = (m_ofn.Flags & OFN_EXPLORER) ? '\0' : ' ';

  // The first string: the folder of several files, or the one file.
  LPCTSTR pFirstEnd = pBegin;
  while (pFirstEnd < pEnd && *pFirstEnd != '\0' && *pFirstEnd != chDelimiter)
    pFirstEnd++;
  BOOL bSingle = !(m_ofn.Flags & OFN_ALLOWMULTISELECT) || pFirstEnd + 1 >= pEnd ||
                 (*pFirstEnd == '\0' && (chDelimiter != '\0' || pFirstEnd[1] == '\0'));
  if (bSingle) return CString(pBegin, BoundedLength(pBegin, pEnd - pBegin));
  if (p == pBegin) p = pFirstEnd + 1;

  LPCTSTR pNameEnd = p;
  while (pNameEnd < pEnd && *pNameEnd != '\0' && *pNameEnd != chDelimiter)
    pNameEnd++;
  CString strName(p, (int)(pNameEnd - p));
  if (pNameEnd + 1 < pEnd && *pNameEnd != '\0' && pNameEnd[1] != '\0')
    pos = (POSITION)(pNameEnd + 1); // old style: a space, more names follow
  else if (chDelimiter == '\0' && pNameEnd + 1 < pEnd && pNameEnd[1] != '\0')
    pos = (POSITION)(pNameEnd + 1);

  // A name that is a full path already stands as it is.
  if (strName.GetLength() >= 2 && (strName[1] == ':' || strName[0] == '\\')) return strName;
  CString strPath(pBegin, (int)(pFirstEnd - pBegin));
  if (strPath.IsEmpty() || strPath[strPath.GetLength() - 1] != '\\') strPath += '\\';
  return strPath + strName;
}

// ---- While the dialog is shown -----------------------------------------------------

void CFileDialog::SetControlText(int nID, LPCSTR lpsz) {
  if (m_hWnd != NULL) ::SendMessage(m_hWnd, CDM_SETCONTROLTEXT, (WPARAM)nID, (LPARAM)lpsz);
}

void CFileDialog::HideControl(int nID) {
  if (m_hWnd != NULL) ::SendMessage(m_hWnd, CDM_HIDECONTROL, (WPARAM)nID, 0);
}

void CFileDialog::SetDefExt(LPCSTR lpsz) {
  if (m_hWnd != NULL) ::SendMessage(m_hWnd, CDM_SETDEFEXT, 0, (LPARAM)lpsz);
}

BOOL CFileDialog::OnFileNameOK() { return FALSE; }
void CFileDialog::OnInitDone() {}
void CFileDialog::OnFileNameChange() {}
void CFileDialog::OnFolderChange() {}
void CFileDialog::OnTypeChange() {}
UINT CFileDialog::OnShareViolation(LPCTSTR) { return OFN_SHAREWARN; }
void CFileDialog::OnLBSelChangedNotify(UINT, UINT, UINT) {}

// Explorer style: the CDN_ notifications reach the hook as WM_NOTIFY.
BOOL CFileDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  const OFNOTIFY* pNotify = (const OFNOTIFY*)lParam;
  if (pNotify != NULL && pResult != NULL) {
    switch (pNotify->hdr.code) {
    case CDN_INITDONE:
      OnInitDone();
      return TRUE;
    case CDN_SELCHANGE:
      OnFileNameChange();
      return TRUE;
    case CDN_FOLDERCHANGE:
      OnFolderChange();
      return TRUE;
    case CDN_TYPECHANGE:
      OnTypeChange();
      return TRUE;
    case CDN_SHAREVIOLATION:
      *pResult = OnShareViolation(pNotify->pszFile);
      return TRUE;
    case CDN_FILEOK:
      *pResult = OnFileNameOK() ? 1 : 0; // non-zero keeps the dialog open
      return TRUE;
    }
  }
  return CCommonDialog::OnNotify(wParam, lParam, pResult);
}

// Old style: the registered messages the dialog sends its hook.
UINT_PTR CFileDialog::OnHookMessage(HWND hWndHook, UINT message, WPARAM wParam, LPARAM lParam) {
  // An explorer-style dialog may send these as well: its notifications have
  // already called the virtuals.
  if (m_ofn.Flags & OFN_EXPLORER) return 0;
  static const UINT s_nMsgFileOK = ::RegisterWindowMessage(FILEOKSTRING);
  static const UINT s_nMsgShareViolation = ::RegisterWindowMessage(SHAREVISTRING);
  static const UINT s_nMsgLBSelChange = ::RegisterWindowMessage(LBSELCHSTRING);
  if (message == s_nMsgFileOK) return OnFileNameOK() ? 1 : 0;
  if (message == s_nMsgShareViolation) return OnShareViolation((LPCTSTR)lParam);
  if (message == s_nMsgLBSelChange) {
    OnLBSelChangedNotify((UINT)wParam, LOWORD(lParam), HIWORD(lParam));
    return 0;
  }
  return CCommonDialog::OnHookMessage(hWndHook, message, wParam, lParam);
}
