// CStdioFile: a CFile read and written through a C runtime stream, in text
// mode ("\r\n" <-> "\n") unless opened with typeBinary.
#include <afx.h>

#include <errno.h>
#include <fcntl.h>
#include <io.h>

IMPLEMENT_DYNAMIC(CStdioFile, CFile)

namespace {

[[noreturn]] void ThrowErrno(LPCTSTR lpszFileName) {
  int nErrno = errno;
  AfxThrowFileException(CFileException::ErrnoToException(nErrno), _doserrno, lpszFileName);
  for (;;) {
  }
}

} // namespace

CStdioFile::CStdioFile() : m_pStream(NULL) {}

CStdioFile::CStdioFile(FILE* pOpenStream) : m_pStream(pOpenStream) {
  if (pOpenStream == NULL) AfxThrowInvalidArgException();
  m_hFile = (HANDLE)_get_osfhandle(_fileno(pOpenStream));
}

CStdioFile::CStdioFile(LPCTSTR lpszFileName, UINT nOpenFlags) : m_pStream(NULL) {
  CFileException e;
  if (!Open(lpszFileName, nOpenFlags, &e))
    AfxThrowFileException(e.m_cause, e.m_lOsError, e.m_strFileName);
}

CStdioFile::~CStdioFile() {
  if (m_pStream != NULL && m_bCloseOnDelete) Abort();
}

BOOL CStdioFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pException) {
  if (m_pStream != NULL) Abort();
  m_pStream = NULL;

  // The stream's mode follows the CFile flags: create without modeNoTruncate
  // truncates, writing to an existing file appends, '+' adds the missing
  // direction.
  char szMode[4];
  int n = 0;
  if (nOpenFlags & modeCreate)
    szMode[n++] = (nOpenFlags & modeNoTruncate) ? 'a' : 'w';
  else if (nOpenFlags & modeWrite)
    szMode[n++] = 'a';
  else
    szMode[n++] = 'r';
  if ((szMode[0] == 'r' && (nOpenFlags & modeReadWrite)) ||
      (szMode[0] != 'r' && !(nOpenFlags & modeWrite)))
    szMode[n++] = '+';
  int nFlags = _O_RDONLY | _O_TEXT;
  if (nOpenFlags & (modeWrite | modeReadWrite)) nFlags ^= _O_RDONLY;
  if (nOpenFlags & typeBinary) {
    szMode[n++] = 'b';
    nFlags ^= _O_TEXT;
  } else {
    szMode[n++] = 't';
  }
  szMode[n] = '\0';

  if (!CFile::Open(lpszFileName, nOpenFlags & ~(UINT)(typeText | typeBinary), pException))
    return FALSE;

  int nHandle = _open_osfhandle((intptr_t)m_hFile, nFlags);
  if (nHandle != -1) m_pStream = _fdopen(nHandle, szMode);
  if (m_pStream == NULL) {
    int nErrno = errno;
    if (nHandle != -1)
      _close(nHandle); // closes m_hFile too
    else
      CloseHandle(m_hFile);
    m_hFile = INVALID_HANDLE_VALUE;
    m_bCloseOnDelete = FALSE;
    if (pException != NULL) {
      pException->m_lOsError = _doserrno;
      pException->m_cause = CFileException::ErrnoToException(nErrno);
      pException->m_strFileName = lpszFileName;
    }
    m_strFileName.Empty();
    return FALSE;
  }
  return TRUE;
}

UINT CStdioFile::Read(void* lpBuf, UINT nCount) {
  if (nCount == 0) return 0;
  if (lpBuf == NULL || m_pStream == NULL) AfxThrowInvalidArgException();
  size_t nRead = fread(lpBuf, 1, nCount, m_pStream);
  if (nRead == 0 && !feof(m_pStream)) {
    clearerr(m_pStream);
    ThrowErrno(m_strFileName);
  }
  if (ferror(m_pStream)) {
    clearerr(m_pStream);
    ThrowErrno(m_strFileName);
  }
  return (UINT)nRead;
}

void CStdioFile::Write(const void* lpBuf, UINT nCount) {
  if (nCount == 0) return;
  if (lpBuf == NULL || m_pStream == NULL) AfxThrowInvalidArgException();
  if (fwrite(lpBuf, 1, nCount, m_pStream) != nCount) {
    clearerr(m_pStream);
    ThrowErrno(m_strFileName);
  }
}

void CStdioFile::WriteString(LPCTSTR lpsz) {
  if (lpsz == NULL || m_pStream == NULL) AfxThrowInvalidArgException();
  if (fputs(lpsz, m_pStream) == EOF) {
    clearerr(m_pStream);
    AfxThrowFileException(CFileException::diskFull, _doserrno, m_strFileName);
  }
}

LPTSTR CStdioFile::ReadString(LPTSTR lpsz, UINT nMax) {
  if (lpsz == NULL || m_pStream == NULL) AfxThrowInvalidArgException();
  if (nMax == 0) return NULL;
  // fgets takes an int: a larger buffer is simply used in part.
  int nSize = nMax > (UINT)INT_MAX ? INT_MAX : (int)nMax;
  LPTSTR lpszResult = fgets(lpsz, nSize, m_pStream);
  if (lpszResult == NULL && !feof(m_pStream)) {
    clearerr(m_pStream);
    ThrowErrno(m_strFileName);
  }
  return lpszResult;
}

BOOL CStdioFile::ReadString(CString& rString) {
  rString.Empty();
  if (m_pStream == NULL) AfxThrowInvalidArgException();
  // Read in 128-character pieces until the newline or the end of the file:
  // any line length works, and memory grows with the line actually read.
  const int nPiece = 128;
  char piece[nPiece + 1];
  int nLen = 0;
  for (;;) {
    if (fgets(piece, nPiece + 1, m_pStream) == NULL) {
      if (!feof(m_pStream)) {
        clearerr(m_pStream);
        ThrowErrno(m_strFileName);
      }
      break;
    }
    int nPieceLen = lstrlen(piece);
    rString += piece;
    nLen += nPieceLen;
    if (nPieceLen == 0 || piece[nPieceLen - 1] == '\n') break;
  }
  // nLen counts the newline: an empty line is still a line read.
  if (nLen != 0 && rString[nLen - 1] == '\n') rString.Delete(nLen - 1, 1);
  return nLen != 0;
}

ULONGLONG CStdioFile::Seek(LONGLONG lOff, UINT nFrom) {
  if (m_pStream == NULL || nFrom > (UINT)end) AfxThrowInvalidArgException();
  static const int kOrigin[] = {SEEK_SET, SEEK_CUR, SEEK_END};
  if (_fseeki64(m_pStream, lOff, kOrigin[nFrom]) != 0)
    AfxThrowFileException(CFileException::badSeek, _doserrno, m_strFileName);
  return GetPosition();
}

ULONGLONG CStdioFile::GetPosition() const {
  if (m_pStream == NULL) AfxThrowInvalidArgException();
  __int64 pos = _ftelli64(m_pStream);
  if (pos == -1) AfxThrowFileException(CFileException::invalidFile, _doserrno, m_strFileName);
  return (ULONGLONG)pos;
}

ULONGLONG CStdioFile::GetLength() const {
  if (m_pStream == NULL) AfxThrowInvalidArgException();
  __int64 pos = _ftelli64(m_pStream);
  if (pos == -1 || _fseeki64(m_pStream, 0, SEEK_END) != 0)
    AfxThrowFileException(CFileException::invalidFile, _doserrno, m_strFileName);
  __int64 len = _ftelli64(m_pStream);
  if (_fseeki64(m_pStream, pos, SEEK_SET) != 0 || len == -1)
    AfxThrowFileException(CFileException::invalidFile, _doserrno, m_strFileName);
  return (ULONGLONG)len;
}

void CStdioFile::Flush() {
  if (m_pStream != NULL && fflush(m_pStream) != 0)
    AfxThrowFileException(CFileException::diskFull, _doserrno, m_strFileName);
}

void CStdioFile::Close() {
  int nErr = 0;
  if (m_pStream != NULL) nErr = fclose(m_pStream); // closes m_hFile as well
  m_hFile = INVALID_HANDLE_VALUE;
  m_bCloseOnDelete = FALSE;
  m_pStream = NULL;
  if (nErr != 0) {
    CString strName = m_strFileName;
    m_strFileName.Empty();
    AfxThrowFileException(CFileException::diskFull, _doserrno, strName);
  }
  m_strFileName.Empty();
}

void CStdioFile::Abort() {
  if (m_pStream != NULL && m_bCloseOnDelete) fclose(m_pStream);
  m_hFile = INVALID_HANDLE_VALUE;
  m_pStream = NULL;
  m_bCloseOnDelete = FALSE;
  m_strFileName.Empty();
}

CFile* CStdioFile::Duplicate() const {
  AfxThrowNotSupportedException();
  return NULL;
}

void CStdioFile::LockRange(ULONGLONG, ULONGLONG) { AfxThrowNotSupportedException(); }

void CStdioFile::UnlockRange(ULONGLONG, ULONGLONG) { AfxThrowNotSupportedException(); }
