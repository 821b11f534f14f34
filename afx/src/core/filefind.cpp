// CFileFind: FindFirstFile/FindNextFile with MFC's one-ahead protocol.
#include <afx.h>

IMPLEMENT_DYNAMIC(CFileFind, CObject)

#define FOUND(p) ((const WIN32_FIND_DATA*)(p))

CFileFind::CFileFind()
    : m_pFoundInfo(NULL), m_pNextInfo(NULL), m_hContext(NULL), m_chDirSeparator('\\') {}

CFileFind::~CFileFind() { Close(); }

void CFileFind::Close() {
  delete (WIN32_FIND_DATA*)m_pFoundInfo;
  m_pFoundInfo = NULL;
  delete (WIN32_FIND_DATA*)m_pNextInfo;
  m_pNextInfo = NULL;
  if (m_hContext != NULL) {
    if (m_hContext != INVALID_HANDLE_VALUE) CloseContext();
    m_hContext = NULL;
  }
}

void CFileFind::CloseContext() { ::FindClose(m_hContext); }

BOOL CFileFind::FindFile(LPCTSTR pstrName, DWORD) {
  Close();
  if (pstrName == NULL)
    pstrName = _T("*.*");
  else if (lstrlen(pstrName) >= MAX_PATH) {
    SetLastError(ERROR_BAD_ARGUMENTS);
    return FALSE;
  }
  WIN32_FIND_DATA* pNext = new (std::nothrow) WIN32_FIND_DATA;
  if (pNext == NULL) AfxThrowMemoryException();
  m_pNextInfo = pNext;
  m_hContext = ::FindFirstFile(pstrName, pNext);
  if (m_hContext == INVALID_HANDLE_VALUE) {
    DWORD dwError = GetLastError();
    Close();
    SetLastError(dwError);
    return FALSE;
  }

  // The root is the full path of the pattern up to its last separator.
  TCHAR szRoot[MAX_PATH];
  LPTSTR pFilePart;
  DWORD n = GetFullPathName(pstrName, MAX_PATH, szRoot, &pFilePart);
  if (n == 0 || n >= MAX_PATH) {
    Close();
    SetLastError(ERROR_INVALID_NAME);
    return FALSE;
  }
  LPTSTR pLast = NULL;
  for (LPTSTR p = szRoot; *p != '\0'; p = CharNextA(p)) {
    if (*p == '\\' || *p == '/') pLast = p;
  }
  if (pLast != NULL) *pLast = '\0';
  m_strRoot = szRoot;
  return TRUE;
}

BOOL CFileFind::FindNextFile() {
  if (m_hContext == NULL) return FALSE;
  if (m_pFoundInfo == NULL) {
    m_pFoundInfo = new (std::nothrow) WIN32_FIND_DATA;
    if (m_pFoundInfo == NULL) AfxThrowMemoryException();
  }
  void* pTemp = m_pFoundInfo;
  m_pFoundInfo = m_pNextInfo;
  m_pNextInfo = pTemp;
  return ::FindNextFile(m_hContext, (WIN32_FIND_DATA*)m_pNextInfo);
}

CString CFileFind::GetFileName() const {
  return m_pFoundInfo != NULL ? CString(FOUND(m_pFoundInfo)->cFileName) : CString();
}

CString CFileFind::GetFilePath() const {
  CString strResult = m_strRoot;
  int n = strResult.GetLength();
  if (n == 0 || (strResult[n - 1] != '\\' && strResult[n - 1] != '/'))
    strResult += m_chDirSeparator;
  strResult += GetFileName();
  return strResult;
}

CString CFileFind::GetFileTitle() const {
  CString strName = GetFileName();
  int nDot = strName.ReverseFind('.');
  return nDot < 0 ? strName : strName.Left(nDot);
}

CString CFileFind::GetRoot() const { return m_strRoot; }

ULONGLONG CFileFind::GetLength() const {
  if (m_pFoundInfo == NULL) return 0;
  return ((ULONGLONG)FOUND(m_pFoundInfo)->nFileSizeHigh << 32) | FOUND(m_pFoundInfo)->nFileSizeLow;
}

BOOL CFileFind::MatchesMask(DWORD dwMask) const {
  return m_pFoundInfo != NULL && (FOUND(m_pFoundInfo)->dwFileAttributes & dwMask) != 0;
}

BOOL CFileFind::IsDots() const {
  if (m_pFoundInfo == NULL || !IsDirectory()) return FALSE;
  LPCTSTR name = FOUND(m_pFoundInfo)->cFileName;
  return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

static BOOL CopyTime(const void* pInfo, FILETIME WIN32_FIND_DATA::*member, FILETIME* pTime) {
  if (pInfo == NULL || pTime == NULL) return FALSE;
  *pTime = FOUND(pInfo)->*member;
  return TRUE;
}

static BOOL ToCTime(const void* pInfo, FILETIME WIN32_FIND_DATA::*member, CTime& refTime) {
  if (pInfo == NULL) return FALSE;
  const FILETIME& ft = FOUND(pInfo)->*member;
  if (!CTime::IsValidFILETIME(ft)) {
    refTime = CTime();
    return FALSE;
  }
  refTime = CTime(ft);
  return TRUE;
}

BOOL CFileFind::GetLastWriteTime(FILETIME* pTimeStamp) const {
  return CopyTime(m_pFoundInfo, &WIN32_FIND_DATA::ftLastWriteTime, pTimeStamp);
}
BOOL CFileFind::GetLastAccessTime(FILETIME* pTimeStamp) const {
  return CopyTime(m_pFoundInfo, &WIN32_FIND_DATA::ftLastAccessTime, pTimeStamp);
}
BOOL CFileFind::GetCreationTime(FILETIME* pTimeStamp) const {
  return CopyTime(m_pFoundInfo, &WIN32_FIND_DATA::ftCreationTime, pTimeStamp);
}
BOOL CFileFind::GetLastWriteTime(CTime& refTime) const {
  return ToCTime(m_pFoundInfo, &WIN32_FIND_DATA::ftLastWriteTime, refTime);
}
BOOL CFileFind::GetLastAccessTime(CTime& refTime) const {
  return ToCTime(m_pFoundInfo, &WIN32_FIND_DATA::ftLastAccessTime, refTime);
}
BOOL CFileFind::GetCreationTime(CTime& refTime) const {
  return ToCTime(m_pFoundInfo, &WIN32_FIND_DATA::ftCreationTime, refTime);
}
