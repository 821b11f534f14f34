// afxfile_.h - files: CFileStatus, CFile, CStdioFile, CMemFile and CFileFind.
// Included by afx.h.
#ifndef AFXFILE_H
#define AFXFILE_H

#include "afxver_.h"
#include "afxstr.h"
#include "afxobj_.h"
#include "atltime.h"
#include <stdio.h>

class CFileException;

// What CFile::GetStatus reports about a file.
struct CFileStatus {
  CTime m_ctime;    // creation time
  CTime m_mtime;    // last modification time
  CTime m_atime;    // last access time
  ULONGLONG m_size; // size in bytes
  BYTE m_attribute; // CFile::Attribute bits
  BYTE m_padding;
  TCHAR m_szFullName[_MAX_PATH]; // absolute path
};

// Unbuffered binary file over a Win32 handle.
class AFX_API CFile : public CObject {
  DECLARE_DYNAMIC(CFile)

public:
  enum OpenFlags {
    modeRead = (int)0x00000,
    modeWrite = (int)0x00001,
    modeReadWrite = (int)0x00002,
    shareCompat = (int)0x00000,
    shareExclusive = (int)0x00010,
    shareDenyWrite = (int)0x00020,
    shareDenyRead = (int)0x00030,
    shareDenyNone = (int)0x00040,
    modeNoInherit = (int)0x00080,
    modeCreate = (int)0x01000,
    modeNoTruncate = (int)0x02000,
    typeText = (int)0x04000, // typeText and typeBinary are for derived classes
    typeBinary = (int)0x08000,
    osNoBuffer = (int)0x10000,
    osWriteThrough = (int)0x20000,
    osRandomAccess = (int)0x40000,
    osSequentialScan = (int)0x80000,
  };

  enum Attribute {
    normal = 0x00,
    readOnly = 0x01,
    hidden = 0x02,
    system = 0x04,
    volume = 0x08,
    directory = 0x10,
    archive = 0x20
  };

  enum SeekPosition { begin = 0x0, current = 0x1, end = 0x2 };

  static const HANDLE hFileNull;

  CFile();
  CFile(HANDLE hFile); // attaches; the handle is not closed on destruction
  // Opens the file or throws CFileException.
  CFile(LPCTSTR lpszFileName, UINT nOpenFlags);
  virtual ~CFile();

  HANDLE m_hFile;
  operator HANDLE() const { return m_hFile; }

  virtual ULONGLONG GetPosition() const;
  BOOL GetStatus(CFileStatus& rStatus) const;
  virtual CString GetFileName() const;
  virtual CString GetFileTitle() const;
  virtual CString GetFilePath() const;
  virtual void SetFilePath(LPCTSTR lpszNewName);

  // FALSE on failure, with the cause in *pError when given.
  virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = NULL);

  static void PASCAL Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName);
  static void PASCAL Remove(LPCTSTR lpszFileName);
  static BOOL PASCAL GetStatus(LPCTSTR lpszFileName, CFileStatus& rStatus);
  static void PASCAL SetStatus(LPCTSTR lpszFileName, const CFileStatus& status);

  ULONGLONG SeekToEnd() { return Seek(0, CFile::end); }
  void SeekToBegin() { Seek(0, CFile::begin); }

  virtual CFile* Duplicate() const;
  virtual ULONGLONG Seek(LONGLONG lOff, UINT nFrom);
  virtual void SetLength(ULONGLONG dwNewLen);
  virtual ULONGLONG GetLength() const;
  virtual UINT Read(void* lpBuf, UINT nCount);
  virtual void Write(const void* lpBuf, UINT nCount);
  virtual void LockRange(ULONGLONG dwPos, ULONGLONG dwCount);
  virtual void UnlockRange(ULONGLONG dwPos, ULONGLONG dwCount);
  virtual void Abort(); // closes, ignoring errors
  virtual void Flush();
  virtual void Close();

  // Direct access to a file's own buffer (CMemFile); CArchive uses it.
  enum BufferCommand { bufferRead, bufferWrite, bufferCommit, bufferCheck };
  enum BufferFlags { bufferDirect = 0x01, bufferBlocking = 0x02 };
  virtual UINT GetBufferPtr(UINT nCommand, UINT nCount = 0, void** ppBufStart = NULL,
                            void** ppBufMax = NULL);

  BOOL m_bCloseOnDelete;
  CString m_strFileName;
};

// Buffered text or binary file over a C runtime stream.
class AFX_API CStdioFile : public CFile {
  DECLARE_DYNAMIC(CStdioFile)

public:
  CStdioFile();
  CStdioFile(FILE* pOpenStream); // attaches; the stream is not closed on destruction
  CStdioFile(LPCTSTR lpszFileName, UINT nOpenFlags);
  virtual ~CStdioFile();

  FILE* m_pStream;

  virtual void WriteString(LPCTSTR lpsz);
  // Up to nMax - 1 characters, keeping the newline; NULL at end of file.
  virtual LPTSTR ReadString(LPTSTR lpsz, UINT nMax);
  // One line without its newline; FALSE at end of file.
  virtual BOOL ReadString(CString& rString);

  virtual ULONGLONG GetPosition() const;
  virtual ULONGLONG GetLength() const;
  virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = NULL);
  virtual UINT Read(void* lpBuf, UINT nCount);
  virtual void Write(const void* lpBuf, UINT nCount);
  virtual ULONGLONG Seek(LONGLONG lOff, UINT nFrom);
  virtual void Abort();
  virtual void Flush();
  virtual void Close();

  // Not supported on a stream: throw CNotSupportedException.
  virtual CFile* Duplicate() const;
  virtual void LockRange(ULONGLONG dwPos, ULONGLONG dwCount);
  virtual void UnlockRange(ULONGLONG dwPos, ULONGLONG dwCount);
};

// A file in memory, growing in steps of nGrowBytes.
class AFX_API CMemFile : public CFile {
  DECLARE_DYNAMIC(CMemFile)

public:
  CMemFile(UINT nGrowBytes = 1024);
  // Over the caller's buffer; with nGrowBytes 0 the file is the whole buffer
  // and cannot grow, otherwise it starts empty.
  CMemFile(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes = 0);
  virtual ~CMemFile();

  void Attach(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes = 0);
  BYTE* Detach(); // the buffer, now the caller's; the file is left empty

  BOOL GetStatus(CFileStatus& rStatus) const;

  virtual ULONGLONG GetPosition() const;
  virtual ULONGLONG Seek(LONGLONG lOff, UINT nFrom);
  virtual void SetLength(ULONGLONG dwNewLen);
  virtual UINT Read(void* lpBuf, UINT nCount);
  virtual void Write(const void* lpBuf, UINT nCount);
  virtual void Abort();
  virtual void Flush();
  virtual void Close();
  virtual UINT GetBufferPtr(UINT nCommand, UINT nCount = 0, void** ppBufStart = NULL,
                            void** ppBufMax = NULL);
  virtual ULONGLONG GetLength() const;

  // Not supported in memory: throw CNotSupportedException.
  virtual CFile* Duplicate() const;
  virtual void LockRange(ULONGLONG dwPos, ULONGLONG dwCount);
  virtual void UnlockRange(ULONGLONG dwPos, ULONGLONG dwCount);

protected:
  virtual BYTE* Alloc(SIZE_T nBytes);
  virtual BYTE* Realloc(BYTE* lpMem, SIZE_T nBytes);
  virtual BYTE* Memcpy(BYTE* lpMemTarget, const BYTE* lpMemSource, SIZE_T nBytes);
  virtual void Free(BYTE* lpMem);
  virtual void GrowFile(SIZE_T dwNewLen);

  SIZE_T m_nGrowBytes;
  SIZE_T m_nPosition;
  SIZE_T m_nBufferSize;
  SIZE_T m_nFileSize;
  BYTE* m_lpBuffer;
  BOOL m_bAutoDelete;
};

// Walks the files matching a wildcard.
class AFX_API CFileFind : public CObject {
  DECLARE_DYNAMIC(CFileFind)

public:
  CFileFind();
  virtual ~CFileFind();

  ULONGLONG GetLength() const;
  virtual CString GetFileName() const;
  virtual CString GetFilePath() const;
  virtual CString GetFileTitle() const;
  virtual CString GetRoot() const;

  virtual BOOL GetLastWriteTime(FILETIME* pTimeStamp) const;
  virtual BOOL GetLastAccessTime(FILETIME* pTimeStamp) const;
  virtual BOOL GetCreationTime(FILETIME* pTimeStamp) const;
  virtual BOOL GetLastWriteTime(CTime& refTime) const;
  virtual BOOL GetLastAccessTime(CTime& refTime) const;
  virtual BOOL GetCreationTime(CTime& refTime) const;

  virtual BOOL MatchesMask(DWORD dwMask) const;
  virtual BOOL IsDots() const;
  BOOL IsReadOnly() const { return MatchesMask(FILE_ATTRIBUTE_READONLY); }
  BOOL IsDirectory() const { return MatchesMask(FILE_ATTRIBUTE_DIRECTORY); }
  BOOL IsCompressed() const { return MatchesMask(FILE_ATTRIBUTE_COMPRESSED); }
  BOOL IsSystem() const { return MatchesMask(FILE_ATTRIBUTE_SYSTEM); }
  BOOL IsHidden() const { return MatchesMask(FILE_ATTRIBUTE_HIDDEN); }
  BOOL IsTemporary() const { return MatchesMask(FILE_ATTRIBUTE_TEMPORARY); }
  BOOL IsNormal() const { return MatchesMask(FILE_ATTRIBUTE_NORMAL); }
  BOOL IsArchived() const { return MatchesMask(FILE_ATTRIBUTE_ARCHIVE); }

  void Close();
  // Starts a search ("*.*" when NULL). The first match becomes current on
  // the first FindNextFile, which returns FALSE when that match is the last.
  virtual BOOL FindFile(LPCTSTR pstrName = NULL, DWORD dwUnused = 0);
  virtual BOOL FindNextFile();

protected:
  virtual void CloseContext();

  void* m_pFoundInfo;
  void* m_pNextInfo;
  HANDLE m_hContext;
  CString m_strRoot;
  TCHAR m_chDirSeparator;
};

#endif // AFXFILE_H
