// CMemFile: a file held in a memory block that grows in nGrowBytes steps.
#include <afx.h>

IMPLEMENT_DYNAMIC(CMemFile, CFile)

CMemFile::CMemFile(UINT nGrowBytes)
    : m_nGrowBytes(nGrowBytes), m_nPosition(0), m_nBufferSize(0), m_nFileSize(0), m_lpBuffer(NULL),
      m_bAutoDelete(TRUE) {}

CMemFile::CMemFile(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes)
    : m_nGrowBytes(0), m_nPosition(0), m_nBufferSize(0), m_nFileSize(0), m_lpBuffer(NULL),
      m_bAutoDelete(FALSE) {
  Attach(lpBuffer, nBufferSize, nGrowBytes);
}

CMemFile::~CMemFile() {
  // A derived class with its own Free closes in its own destructor.
  if (m_lpBuffer != NULL) Close();
}

void CMemFile::Attach(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes) {
  if (lpBuffer == NULL && nBufferSize != 0) AfxThrowInvalidArgException();
  // Attaching over an owned block would leak it.
  if (m_lpBuffer != NULL) Close();
  m_nGrowBytes = nGrowBytes;
  m_nPosition = 0;
  m_nBufferSize = nBufferSize;
  // A fixed block is the whole file; a growable one starts empty.
  m_nFileSize = nGrowBytes == 0 ? nBufferSize : 0;
  m_lpBuffer = lpBuffer;
  m_bAutoDelete = FALSE;
}

BYTE* CMemFile::Detach() {
  BYTE* lpBuffer = m_lpBuffer;
  m_lpBuffer = NULL;
  m_nFileSize = 0;
  m_nBufferSize = 0;
  m_nPosition = 0;
  return lpBuffer;
}

BYTE* CMemFile::Alloc(SIZE_T nBytes) { return (BYTE*)malloc(nBytes); }

BYTE* CMemFile::Realloc(BYTE* lpMem, SIZE_T nBytes) {
  if (nBytes == 0) {
    Free(lpMem);
    return NULL;
  }
  return (BYTE*)realloc(lpMem, nBytes);
}

BYTE* CMemFile::Memcpy(BYTE* lpMemTarget, const BYTE* lpMemSource, SIZE_T nBytes) {
  return (BYTE*)memcpy(lpMemTarget, lpMemSource, nBytes);
}

void CMemFile::Free(BYTE* lpMem) { free(lpMem); }

void CMemFile::GrowFile(SIZE_T dwNewLen) {
  if (dwNewLen <= m_nBufferSize) return;
  // A fixed buffer cannot take more: the "disk" is full.
  if (m_nGrowBytes == 0) AfxThrowFileException(CFileException::diskFull, -1, m_strFileName);
  // The buffer grows by whole steps of nGrowBytes; the step count is worked
  // out at once rather than added in a loop, and overflow is refused.
  SIZE_T nSteps = (dwNewLen - m_nBufferSize + m_nGrowBytes - 1) / m_nGrowBytes;
  if (nSteps > ((SIZE_T)-1 - m_nBufferSize) / m_nGrowBytes) AfxThrowMemoryException();
  SIZE_T nNewBufferSize = m_nBufferSize + nSteps * m_nGrowBytes;
  BYTE* lpNew = m_lpBuffer == NULL ? Alloc(nNewBufferSize) : Realloc(m_lpBuffer, nNewBufferSize);
  if (lpNew == NULL) AfxThrowMemoryException();
  m_lpBuffer = lpNew;
  m_nBufferSize = nNewBufferSize;
}

ULONGLONG CMemFile::GetLength() const { return m_nFileSize; }

ULONGLONG CMemFile::GetPosition() const { return m_nPosition; }

void CMemFile::SetLength(ULONGLONG dwNewLen) {
  if (dwNewLen > (SIZE_T)-1) AfxThrowMemoryException();
  SIZE_T nNewLen = (SIZE_T)dwNewLen;
  if (nNewLen > m_nBufferSize) GrowFile(nNewLen);
  // Bytes added at the end read as zeros rather than old heap contents.
  if (nNewLen > m_nFileSize) memset(m_lpBuffer + m_nFileSize, 0, nNewLen - m_nFileSize);
  if (nNewLen < m_nPosition) m_nPosition = nNewLen;
  m_nFileSize = nNewLen;
}

UINT CMemFile::Read(void* lpBuf, UINT nCount) {
  if (nCount == 0) return 0;
  if (lpBuf == NULL) AfxThrowInvalidArgException();
  if (m_nPosition >= m_nFileSize) return 0;
  SIZE_T nAvail = m_nFileSize - m_nPosition;
  UINT nRead = nCount < nAvail ? nCount : (UINT)nAvail;
  Memcpy((BYTE*)lpBuf, m_lpBuffer + m_nPosition, nRead);
  m_nPosition += nRead;
  return nRead;
}

void CMemFile::Write(const void* lpBuf, UINT nCount) {
  if (nCount == 0) return;
  if (lpBuf == NULL) AfxThrowInvalidArgException();
  if (nCount > (SIZE_T)-1 - m_nPosition)
    AfxThrowFileException(CFileException::diskFull, -1, m_strFileName);
  SIZE_T nEnd = m_nPosition + nCount;
  if (nEnd > m_nBufferSize) GrowFile(nEnd);
  // Writing after a seek past the end: the gap reads as zeros.
  if (m_nPosition > m_nFileSize) memset(m_lpBuffer + m_nFileSize, 0, m_nPosition - m_nFileSize);
  Memcpy(m_lpBuffer + m_nPosition, (const BYTE*)lpBuf, nCount);
  m_nPosition = nEnd;
  if (m_nPosition > m_nFileSize) m_nFileSize = m_nPosition;
}

ULONGLONG CMemFile::Seek(LONGLONG lOff, UINT nFrom) {
  LONGLONG base;
  switch (nFrom) {
  case begin:
    base = 0;
    break;
  case current:
    base = (LONGLONG)m_nPosition;
    break;
  case end:
    base = (LONGLONG)m_nFileSize;
    break;
  default:
    AfxThrowInvalidArgException();
    return 0;
  }
  LONGLONG lNewPos = base + lOff;
  // Before the start, or beyond what a memory block can address.
  if (lNewPos < 0 || (ULONGLONG)lNewPos > (SIZE_T)-1)
    AfxThrowFileException(CFileException::badSeek, -1, m_strFileName);
  m_nPosition = (SIZE_T)lNewPos;
  return m_nPosition;
}

void CMemFile::Flush() {}

void CMemFile::Close() {
  m_nGrowBytes = 0;
  m_nPosition = 0;
  m_nBufferSize = 0;
  m_nFileSize = 0;
  if (m_lpBuffer != NULL && m_bAutoDelete) Free(m_lpBuffer);
  m_lpBuffer = NULL;
}

void CMemFile::Abort() { Close(); }

BOOL CMemFile::GetStatus(CFileStatus& rStatus) const {
  rStatus = CFileStatus();
  rStatus.m_size = m_nFileSize;
  return TRUE;
}

UINT CMemFile::GetBufferPtr(UINT nCommand, UINT nCount, void** ppBufStart, void** ppBufMax) {
  switch (nCommand) {
  case bufferCheck:
    return bufferDirect;
  case bufferCommit:
    // The caller wrote nCount bytes at the position: take them into the file.
    if (nCount > m_nBufferSize - m_nPosition || m_nPosition > m_nBufferSize)
      AfxThrowInvalidArgException();
    m_nPosition += nCount;
    if (m_nPosition > m_nFileSize) m_nFileSize = m_nPosition;
    return 0;
  case bufferWrite:
  case bufferRead:
    break;
  default:
    AfxThrowInvalidArgException();
  }
  if (ppBufStart == NULL || ppBufMax == NULL) AfxThrowInvalidArgException();

  SIZE_T nStart = m_nPosition;
  SIZE_T nEnd;
  if (nCommand == bufferWrite) {
    // Room for nCount bytes, growing the block when it may grow; a fixed
    // block gives what it has.
    SIZE_T nWanted = nCount > (SIZE_T)-1 - nStart ? (SIZE_T)-1 : nStart + nCount;
    if (nWanted > m_nBufferSize && m_nGrowBytes != 0) GrowFile(nWanted);
    nEnd = nWanted < m_nBufferSize ? nWanted : m_nBufferSize;
    if (nStart > nEnd) nStart = nEnd;
  } else {
    // Up to nCount bytes of the file ((UINT)-1: all the rest); the position
    // moves past them.
    if (nStart > m_nFileSize) nStart = m_nFileSize;
    SIZE_T nAvail = m_nFileSize - nStart;
    nEnd = nStart + (nCount < nAvail ? nCount : nAvail);
    m_nPosition = nEnd;
  }
  *ppBufStart = m_lpBuffer + nStart;
  *ppBufMax = m_lpBuffer + nEnd;
  return (UINT)(nEnd - nStart);
}

CFile* CMemFile::Duplicate() const {
  AfxThrowNotSupportedException();
  return NULL;
}

void CMemFile::LockRange(ULONGLONG, ULONGLONG) { AfxThrowNotSupportedException(); }

void CMemFile::UnlockRange(ULONGLONG, ULONGLONG) { AfxThrowNotSupportedException(); }
