// CFile: an unbuffered binary file over a Win32 handle.
#include <afx.h>

IMPLEMENT_DYNAMIC(CFile, CObject)

const HANDLE CFile::hFileNull = INVALID_HANDLE_VALUE;

namespace {

[[noreturn]] void ThrowOsError(DWORD dwError, LPCTSTR lpszFileName) {
  AfxThrowFileException(CFileException::OsErrorToException((LONG)dwError), (LONG)dwError,
                        lpszFileName);
  for (;;) {
  }
}

// The name part of a path: what follows the last '\', '/' or ':'.
LPCTSTR FindFileName(LPCTSTR lpszPath) {
  LPCTSTR name = lpszPath;
  for (LPCTSTR p = lpszPath; *p != '\0'; p = CharNextA(p)) {
    if (*p == '\\' || *p == '/' || *p == ':') name = p + 1;
  }
  return name;
}

// The name without its extension (from the last '.'); scanned by
// characters so that a double-byte character's trail byte is never taken.
CString TitleOf(LPCTSTR lpszName) {
  LPCTSTR dot = NULL;
  for (LPCTSTR p = lpszName; *p != '\0'; p = CharNextA(p)) {
    if (*p == '.') dot = p;
  }
  if (dot == NULL) return CString(lpszName);
  return CString(lpszName, (int)(dot - lpszName));
}

CTime TimeOf(const FILETIME& ft) { return CTime::IsValidFILETIME(ft) ? CTime(ft) : CTime(); }

// A CTime as a FILETIME (UTC).
bool FileTimeOf(const CTime& time, FILETIME* pft) {
  ULONGLONG ticks = ((ULONGLONG)time.GetTime() + 11644473600ULL) * 10000000ULL;
  pft->dwLowDateTime = (DWORD)ticks;
  pft->dwHighDateTime = (DWORD)(ticks >> 32);
  return time.GetTime() > 0;
}

} // namespace

CFile::CFile() : m_hFile(INVALID_HANDLE_VALUE), m_bCloseOnDelete(FALSE) {}

CFile::CFile(HANDLE hFile) : m_hFile(hFile), m_bCloseOnDelete(FALSE) {}

CFile::CFile(LPCTSTR lpszFileName, UINT nOpenFlags)
    : m_hFile(INVALID_HANDLE_VALUE), m_bCloseOnDelete(FALSE) {
  CFileException e;
  if (!Open(lpszFileName, nOpenFlags, &e))
    AfxThrowFileException(e.m_cause, e.m_lOsError, e.m_strFileName);
}

CFile::~CFile() {
  // A destructor must not throw: close errors are lost here, as in MFC.
  if (m_hFile != INVALID_HANDLE_VALUE && m_bCloseOnDelete) Abort();
}

BOOL CFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pException) {
  // Opening an open file would leak its handle.
  if (m_hFile != INVALID_HANDLE_VALUE) Abort();
  nOpenFlags &= ~(UINT)typeBinary; // CFile is always binary
  m_bCloseOnDelete = FALSE;
  m_strFileName.Empty();

  // The full path is kept; a name that cannot fit MAX_PATH fails as badPath.
  TCHAR szFull[_MAX_PATH];
  LPTSTR pFilePart = NULL;
  DWORD nFull = 0;
  if (lpszFileName != NULL && lpszFileName[0] != '\0' && lstrlen(lpszFileName) < _MAX_PATH)
    nFull = GetFullPathName(lpszFileName, _MAX_PATH, szFull, &pFilePart);
  if (nFull == 0 || nFull >= _MAX_PATH) {
    if (pException != NULL) {
      pException->m_cause = CFileException::badPath;
      pException->m_lOsError = ERROR_BAD_PATHNAME;
      pException->m_strFileName = lpszFileName;
    }
    return FALSE;
  }
  // As MFC: the full path is the file's from here on, so that an error
  // report about a failed open (GetFilePath, GetStatus) can name the file.
  m_strFileName = szFull;

  DWORD dwAccess = 0;
  switch (nOpenFlags & 3) {
  case modeRead:
    dwAccess = GENERIC_READ;
    break;
  case modeWrite:
    dwAccess = GENERIC_WRITE;
    break;
  case modeReadWrite:
    dwAccess = GENERIC_READ | GENERIC_WRITE;
    break;
  default: // 3 is not a mode
    if (pException != NULL) {
      pException->m_cause = CFileException::genericException;
      pException->m_lOsError = ERROR_INVALID_PARAMETER;
      pException->m_strFileName = lpszFileName;
    }
    return FALSE;
  }

  DWORD dwShareMode = 0; // shareCompat and shareExclusive
  switch (nOpenFlags & 0x70) {
  case shareDenyWrite:
    dwShareMode = FILE_SHARE_READ;
    break;
  case shareDenyRead:
    dwShareMode = FILE_SHARE_WRITE;
    break;
  case shareDenyNone:
    dwShareMode = FILE_SHARE_READ | FILE_SHARE_WRITE;
    break;
  default:
    break;
  }

  SECURITY_ATTRIBUTES sa;
  sa.nLength = sizeof(sa);
  sa.lpSecurityDescriptor = NULL;
  sa.bInheritHandle = (nOpenFlags & modeNoInherit) == 0;

  DWORD dwCreateFlag = OPEN_EXISTING;
  if (nOpenFlags & modeCreate)
    dwCreateFlag = (nOpenFlags & modeNoTruncate) ? OPEN_ALWAYS : CREATE_ALWAYS;

  DWORD dwFlags = FILE_ATTRIBUTE_NORMAL;
  if (nOpenFlags & osNoBuffer) dwFlags |= FILE_FLAG_NO_BUFFERING;
  if (nOpenFlags & osWriteThrough) dwFlags |= FILE_FLAG_WRITE_THROUGH;
  if (nOpenFlags & osRandomAccess) dwFlags |= FILE_FLAG_RANDOM_ACCESS;
  if (nOpenFlags & osSequentialScan) dwFlags |= FILE_FLAG_SEQUENTIAL_SCAN;

  HANDLE hFile = CreateFile(lpszFileName, dwAccess, dwShareMode, &sa, dwCreateFlag, dwFlags, NULL);
  if (hFile == INVALID_HANDLE_VALUE) {
    if (pException != NULL) {
      pException->m_lOsError = (LONG)GetLastError();
      pException->m_cause = CFileException::OsErrorToException(pException->m_lOsError);
      pException->m_strFileName = lpszFileName; // the name as given
    }
    return FALSE;
  }
  m_hFile = hFile;
  m_bCloseOnDelete = TRUE;
  return TRUE;
}

UINT CFile::Read(void* lpBuf, UINT nCount) {
  if (nCount == 0) return 0;
  if (lpBuf == NULL) AfxThrowInvalidArgException();
  DWORD dwRead = 0;
  if (!ReadFile(m_hFile, lpBuf, nCount, &dwRead, NULL)) ThrowOsError(GetLastError(), m_strFileName);
  return (UINT)dwRead;
}

void CFile::Write(const void* lpBuf, UINT nCount) {
  if (nCount == 0) return;
  if (lpBuf == NULL) AfxThrowInvalidArgException();
  DWORD dwWritten = 0;
  if (!WriteFile(m_hFile, lpBuf, nCount, &dwWritten, NULL))
    ThrowOsError(GetLastError(), m_strFileName);
  // A short write means the disk is full.
  if (dwWritten != nCount) AfxThrowFileException(CFileException::diskFull, -1, m_strFileName);
}

ULONGLONG CFile::Seek(LONGLONG lOff, UINT nFrom) {
  if (nFrom > (UINT)end) AfxThrowInvalidArgException();
  LARGE_INTEGER distance, position;
  distance.QuadPart = lOff;
  if (!SetFilePointerEx(m_hFile, distance, &position, nFrom))
    ThrowOsError(GetLastError(), m_strFileName);
  return (ULONGLONG)position.QuadPart;
}

ULONGLONG CFile::GetPosition() const {
  LARGE_INTEGER zero, position;
  zero.QuadPart = 0;
  if (!SetFilePointerEx(m_hFile, zero, &position, FILE_CURRENT))
    ThrowOsError(GetLastError(), m_strFileName);
  return (ULONGLONG)position.QuadPart;
}

ULONGLONG CFile::GetLength() const {
  LARGE_INTEGER size;
  if (!GetFileSizeEx(m_hFile, &size)) ThrowOsError(GetLastError(), m_strFileName);
  return (ULONGLONG)size.QuadPart;
}

void CFile::SetLength(ULONGLONG dwNewLen) {
  Seek((LONGLONG)dwNewLen, begin);
  if (!SetEndOfFile(m_hFile)) ThrowOsError(GetLastError(), m_strFileName);
}

void CFile::Flush() {
  if (m_hFile == INVALID_HANDLE_VALUE) return;
  if (!FlushFileBuffers(m_hFile)) ThrowOsError(GetLastError(), m_strFileName);
}

void CFile::Close() {
  BOOL bError = FALSE;
  if (m_hFile != INVALID_HANDLE_VALUE) bError = !CloseHandle(m_hFile);
  DWORD dwError = bError ? GetLastError() : 0;
  m_hFile = INVALID_HANDLE_VALUE;
  m_bCloseOnDelete = FALSE;
  CString strName = m_strFileName;
  m_strFileName.Empty();
  if (bError) ThrowOsError(dwError, strName);
}

void CFile::Abort() {
  if (m_hFile != INVALID_HANDLE_VALUE) {
    CloseHandle(m_hFile); // errors ignored: that is what Abort is for
    m_hFile = INVALID_HANDLE_VALUE;
  }
  m_bCloseOnDelete = FALSE;
  m_strFileName.Empty();
}

CFile* CFile::Duplicate() const {
  HANDLE hFile;
  if (!DuplicateHandle(GetCurrentProcess(), m_hFile, GetCurrentProcess(), &hFile, 0, FALSE,
                       DUPLICATE_SAME_ACCESS))
    ThrowOsError(GetLastError(), m_strFileName);
  CFile* pFile = new CFile(hFile);
  pFile->m_bCloseOnDelete = m_bCloseOnDelete;
  pFile->m_strFileName = m_strFileName;
  return pFile;
}

void CFile::LockRange(ULONGLONG dwPos, ULONGLONG dwCount) {
  if (!LockFile(m_hFile, (DWORD)dwPos, (DWORD)(dwPos >> 32), (DWORD)dwCount,
                (DWORD)(dwCount >> 32)))
    ThrowOsError(GetLastError(), m_strFileName);
}

void CFile::UnlockRange(ULONGLONG dwPos, ULONGLONG dwCount) {
  if (!UnlockFile(m_hFile, (DWORD)dwPos, (DWORD)(dwPos >> 32), (DWORD)dwCount,
                  (DWORD)(dwCount >> 32)))
    ThrowOsError(GetLastError(), m_strFileName);
}

UINT CFile::GetBufferPtr(UINT nCommand, UINT, void** ppBufStart, void** ppBufMax) {
  // A disk file has no buffer of its own to hand out.
  if (nCommand != bufferCheck) {
    if (ppBufStart != NULL) *ppBufStart = NULL;
    if (ppBufMax != NULL) *ppBufMax = NULL;
  }
  return 0;
}

CString CFile::GetFileName() const { return CString(FindFileName(m_strFileName)); }

CString CFile::GetFileTitle() const { return TitleOf(FindFileName(m_strFileName)); }

CString CFile::GetFilePath() const { return m_strFileName; }

void CFile::SetFilePath(LPCTSTR lpszNewName) { m_strFileName = lpszNewName; }

BOOL CFile::GetStatus(CFileStatus& rStatus) const {
  rStatus = CFileStatus();
  lstrcpyn(rStatus.m_szFullName, m_strFileName, _MAX_PATH);
  if (m_hFile == INVALID_HANDLE_VALUE) return TRUE;

  FILETIME ftCreate, ftAccess, ftWrite;
  if (!GetFileTime(m_hFile, &ftCreate, &ftAccess, &ftWrite)) return FALSE;
  LARGE_INTEGER size;
  if (!GetFileSizeEx(m_hFile, &size)) return FALSE;
  rStatus.m_size = (ULONGLONG)size.QuadPart;
  DWORD dwAttribute =
      m_strFileName.IsEmpty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributes(m_strFileName);
  rStatus.m_attribute = dwAttribute == INVALID_FILE_ATTRIBUTES ? 0 : (BYTE)dwAttribute;
  rStatus.m_ctime = TimeOf(ftCreate);
  rStatus.m_atime = TimeOf(ftAccess);
  rStatus.m_mtime = TimeOf(ftWrite);
  if (rStatus.m_ctime.GetTime() == 0) rStatus.m_ctime = rStatus.m_mtime;
  if (rStatus.m_atime.GetTime() == 0) rStatus.m_atime = rStatus.m_mtime;
  return TRUE;
}

BOOL PASCAL CFile::GetStatus(LPCTSTR lpszFileName, CFileStatus& rStatus) {
  rStatus = CFileStatus();
  if (lpszFileName == NULL || lstrlen(lpszFileName) >= _MAX_PATH) return FALSE;
  LPTSTR pFilePart;
  DWORD n = GetFullPathName(lpszFileName, _MAX_PATH, rStatus.m_szFullName, &pFilePart);
  if (n == 0 || n >= _MAX_PATH) {
    rStatus.m_szFullName[0] = '\0';
    return FALSE;
  }
  WIN32_FIND_DATA fd;
  HANDLE hFind = FindFirstFile(lpszFileName, &fd);
  if (hFind == INVALID_HANDLE_VALUE) return FALSE;
  FindClose(hFind);
  rStatus.m_attribute = (BYTE)(fd.dwFileAttributes & ~FILE_ATTRIBUTE_NORMAL);
  rStatus.m_size = ((ULONGLONG)fd.nFileSizeHigh << 32) | fd.nFileSizeLow;
  rStatus.m_ctime = TimeOf(fd.ftCreationTime);
  rStatus.m_atime = TimeOf(fd.ftLastAccessTime);
  rStatus.m_mtime = TimeOf(fd.ftLastWriteTime);
  if (rStatus.m_ctime.GetTime() == 0) rStatus.m_ctime = rStatus.m_mtime;
  if (rStatus.m_atime.GetTime() == 0) rStatus.m_atime = rStatus.m_mtime;
  return TRUE;
}

void PASCAL CFile::SetStatus(LPCTSTR lpszFileName, const CFileStatus& status) {
  DWORD dwAttr = GetFileAttributes(lpszFileName);
  if (dwAttr == INVALID_FILE_ATTRIBUTES) ThrowOsError(GetLastError(), lpszFileName);
  // A read-only file must lose that attribute before its times can change.
  if ((DWORD)status.m_attribute != dwAttr && (dwAttr & readOnly)) {
    if (!SetFileAttributes(lpszFileName, (DWORD)status.m_attribute))
      ThrowOsError(GetLastError(), lpszFileName);
  }
  if (status.m_mtime.GetTime() != 0) {
    FILETIME ftWrite, ftAccess, ftCreate;
    FileTimeOf(status.m_mtime, &ftWrite);
    bool bAccess = FileTimeOf(status.m_atime, &ftAccess);
    bool bCreate = FileTimeOf(status.m_ctime, &ftCreate);
    HANDLE hFile = CreateFile(lpszFileName, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, NULL,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, NULL);
    if (hFile == INVALID_HANDLE_VALUE) ThrowOsError(GetLastError(), lpszFileName);
    BOOL bOk = SetFileTime(hFile, bCreate ? &ftCreate : NULL, bAccess ? &ftAccess : NULL, &ftWrite);
    DWORD dwError = GetLastError();
    CloseHandle(hFile);
    if (!bOk) ThrowOsError(dwError, lpszFileName);
  }
  if ((DWORD)status.m_attribute != dwAttr && !(dwAttr & readOnly)) {
    if (!SetFileAttributes(lpszFileName, (DWORD)status.m_attribute))
      ThrowOsError(GetLastError(), lpszFileName);
  }
}

void PASCAL CFile::Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName) {
  if (!MoveFile(lpszOldName, lpszNewName)) ThrowOsError(GetLastError(), lpszOldName);
}

void PASCAL CFile::Remove(LPCTSTR lpszFileName) {
  if (!DeleteFile(lpszFileName)) ThrowOsError(GetLastError(), lpszFileName);
}
