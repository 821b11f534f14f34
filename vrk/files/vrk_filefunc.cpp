// Whole-file functions: access test, copy, compare, position, end-of-file
// tests and the line counter.
#include "vrk_filefunc.h"

#include <io.h>
#include <mbstring.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/types.h>

namespace {

const unsigned int kBlockSize = 4096;

// Opens read-only; *pbShared is set when another process holds the file
// with a sharing mode that excludes us.
BOOL OpenForCompare(CFile& file, const char* pszName, BOOL* pbShared) {
  CFileException error;
  if (file.Open(pszName, CFile::modeRead | CFile::shareDenyNone, &error)) return TRUE;
  if (error.m_lOsError == ERROR_SHARING_VIOLATION) *pbShared = TRUE;
  return FALSE;
}

} // namespace

int VrkFileAccess(const char* pszPath, int nMode) {
  if (pszPath == NULL || _access(pszPath, 0) != 0) return 2;
  if (nMode == 0) return 0;
  UINT nFlags;
  switch (nMode) {
  case 2:
    nFlags = CFile::modeWrite;
    break;
  case 6:
    nFlags = CFile::modeReadWrite;
    break;
  default: // 4 and anything else
    nFlags = CFile::modeRead;
    break;
  }
  CFile file;
  if (!file.Open(pszPath, nFlags)) return 13;
  file.Abort(); // only the open mattered
  return 0;
}

// File exceptions of the copy reach the caller, as CFile's own do.
unsigned long VrkFileCopy(CFile* pDest, CFile* pSource) {
  if (pDest == NULL || pSource == NULL) return 0;
  unsigned char buffer[kBlockSize];
  unsigned long nTotal = 0;
  for (;;) {
    const UINT nRead = pSource->Read(buffer, kBlockSize);
    if (nRead == 0) break;
    pDest->Write(buffer, nRead);
    nTotal += nRead;
  }
  return nTotal;
}

int VrkFileCopy(const char* pszDest, const char* pszSource) {
  if (pszDest == NULL || pszSource == NULL) return FALSE;
  CFile source, dest;
  if (!source.Open(pszSource, CFile::modeRead | CFile::shareDenyNone)) return FALSE;
  if (!dest.Open(pszDest, CFile::modeCreate | CFile::modeWrite)) return FALSE;
  VrkFileCopy(&dest, &source);
  dest.Close();
  return TRUE;
}

int VrkFileComp(const char* pszFirst, const char* pszSecond, long& nResult) {
  if (pszFirst == NULL || pszSecond == NULL) return FALSE;
  if (_access(pszFirst, 0) == 0 &&
      _mbsicmp((const unsigned char*)pszFirst, (const unsigned char*)pszSecond) == 0) {
    nResult = 0;
    return TRUE;
  }
  struct _stat first, second;
  if (_stat(pszFirst, &first) != 0 || _stat(pszSecond, &second) != 0) return FALSE;
  nResult = (long)first.st_size - (long)second.st_size;
  if (first.st_size != second.st_size || first.st_size == 0) return TRUE;

  // The order of the retry is ours: first then second; when the second will
  // not open, the first is closed and the pair opened second then first.
  CFile fileFirst, fileSecond;
  BOOL bShared = FALSE;
  if (!OpenForCompare(fileFirst, pszFirst, &bShared)) return bShared;
  if (!OpenForCompare(fileSecond, pszSecond, &bShared)) {
    if (bShared) return TRUE;
    fileFirst.Abort();
    if (!OpenForCompare(fileSecond, pszSecond, &bShared) ||
        !OpenForCompare(fileFirst, pszFirst, &bShared))
      return bShared;
  }

  // Two 4 KB blocks: on the heap, so that deep callers keep their stack.
  unsigned char* pBlocks = (unsigned char*)malloc(2 * kBlockSize);
  if (pBlocks == NULL) AfxThrowMemoryException();
  unsigned char* pFirst = pBlocks;
  unsigned char* pSecond = pBlocks + kBlockSize;
  int bOk = TRUE;
  try {
    for (;;) {
      const UINT nRead = fileFirst.Read(pFirst, kBlockSize);
      if (nRead == 0) break;
      const UINT nOther = fileSecond.Read(pSecond, nRead);
      // A second file that changed under us and came short compares smaller.
      int nDiff = 0;
      for (UINT i = 0; i < nRead && nDiff == 0; ++i) {
        if (i >= nOther)
          nDiff = 1;
        else if (pFirst[i] != pSecond[i])
          nDiff = pFirst[i] < pSecond[i] ? -1 : 1;
      }
      nResult = nDiff;
      if (nDiff != 0) break;
    }
  } catch (CFileException* e) {
    // A read error leaves the comparison undecided.
    e->Delete();
    bOk = FALSE;
  }
  free(pBlocks);
  return bOk;
}

unsigned long VrkFileGetPos(void* hFile) { return SetFilePointer(hFile, 0, NULL, FILE_CURRENT); }

// TRUE from position 1 up to one past the end, FALSE at position 0 of a
// non-empty file: the unsigned pos - 1 wraps there.
int VrkFileEOF(void* hFile) {
  const unsigned long nSize = GetFileSize(hFile, NULL);
  const unsigned long nPos = VrkFileGetPos(hFile);
  if (nSize == 0) return TRUE;
  return nSize >= nPos - 1;
}

// A NULL file has nothing left to read: TRUE.
int VrkFileEOF(CFile* pFile) {
  if (pFile == NULL) return TRUE;
  return VrkFileEOF((void*)pFile->m_hFile);
}

int VrkFileEOF(CArchive& ar) { return VrkFileEOF(ar.GetFile()); }

int VrkCountLines(const char* psz) {
  if (psz == NULL || *psz == '\0') return 0;
  int nLines = 1;
  const unsigned char* p = (const unsigned char*)psz;
  while (*p != '\0') {
    if (*p == '\n') ++nLines;
    // A lead byte takes its trail byte along, unless the string ends there.
    p += (IsDBCSLeadByte(*p) && p[1] != '\0') ? 2 : 1;
  }
  return nLines;
}
