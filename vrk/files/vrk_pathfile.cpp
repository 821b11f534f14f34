// Folders and files on disk: creating folder chains, shell copy and delete,
// and attribute changes over a pattern.
#include "vrk_path.h"
#include "vrk_filefind.h"

#include <io.h>
#include <mbstring.h>
#include <new>
#include <shellapi.h>
#include <string.h>

namespace {

inline bool IsSep(char c) { return c == '\\' || c == '/'; }

// The shell wants double-zero-terminated names: at most 260 bytes in a zeroed
// 262-byte buffer. Decided: a longer name fails instead of being cut, since a
// cut name could name some other file to delete or overwrite.
bool ShellName(char (&buffer)[262], const char* pszName) {
  memset(buffer, 0, sizeof(buffer));
  size_t n = strlen(pszName);
  if (n > 260) {
    SetLastError(ERROR_FILENAME_EXCED_RANGE);
    return false;
  }
  memcpy(buffer, pszName, n);
  return true;
}

int ShellOperation(UINT wFunc, const char* pFrom, const char* pTo, unsigned short fFlags) {
  SHFILEOPSTRUCTA op;
  memset(&op, 0, sizeof(op));
  op.hwnd = NULL;
  op.wFunc = wFunc;
  op.pFrom = pFrom;
  op.pTo = pTo;
  op.fFlags = fFlags;
  op.lpszProgressTitle = "";
  return SHFileOperationA(&op) == 0 && !op.fAnyOperationsAborted;
}

// pszPath[0..nEnd] (the byte at nEnd included) into prefix.
void Prefix(char* prefix, const char* pszPath, int nEnd) {
  memcpy(prefix, pszPath, nEnd + 1);
  prefix[nEnd + 1] = '\0';
}

} // namespace

int VrkCreateDirectory(const char* pszPath, SECURITY_ATTRIBUTES* pSecurity) {
  if (pszPath == NULL) return FALSE;
  int n = (int)strlen(pszPath);
  // Bounded: every prefix is built in a MAX_PATH buffer.
  if (n >= MAX_PATH) {
    SetLastError(ERROR_FILENAME_EXCED_RANGE);
    return FALSE;
  }
  int nStart = 0;
  if (IsSep(pszPath[0]) && IsSep(pszPath[1])) {
    int i = 2;
    while (i < n && !IsSep(pszPath[i]))
      i++; // the server
    i++;
    while (i < n && !IsSep(pszPath[i]))
      i++; // the share
    nStart = i + 1;
  }
  if (nStart > n) {
    SetLastError(ERROR_DIRECTORY);
    return FALSE;
  }

  // Positions of the separators and of the end, found by character so that
  // a trail byte 0x5C is no separator; kept for the roll-back walk.
  int stops[MAX_PATH + 1];
  int nStops = 0;
  for (int i = nStart; i <= n; i++) {
    if (i == n || IsSep(pszPath[i]))
      stops[nStops++] = i;
    else if (_ismbblead((unsigned char)pszPath[i]) && pszPath[i + 1] != '\0')
      i++;
  }

  char szPrefix[MAX_PATH + 1];
  int nFirst = -1, nLast = -1; // indexes into stops of created folders
  DWORD dwError = 0;
  for (int k = 0; k < nStops; k++) {
    Prefix(szPrefix, pszPath, stops[k]);
    if (_access(szPrefix, 0) == 0) continue;
    if (CreateDirectoryA(szPrefix, pSecurity)) {
      if (nFirst < 0) nFirst = k;
      nLast = k;
    } else {
      dwError = GetLastError();
      break;
    }
  }
  if (dwError == 0) {
    if (nFirst >= 0) return TRUE;
    // Everything existed: reported as a failure, deliberately.
    SetLastError(ERROR_ALREADY_EXISTS);
    return FALSE;
  }
  // Remove what this call made, deepest first; stop at the first refusal.
  for (int k = nLast; nFirst >= 0 && k >= nFirst; k--) {
    Prefix(szPrefix, pszPath, stops[k]);
    if (!RemoveDirectoryA(szPrefix)) break;
  }
  SetLastError(dwError);
  return FALSE;
}

int VrkIsDirectory(const char* pszPath) {
  if (pszPath == NULL) return FALSE;
  DWORD dwAttr = GetFileAttributesA(pszPath);
  return dwAttr != INVALID_FILE_ATTRIBUTES && (dwAttr & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

int VrkRemoveFile(const char* pszPath, unsigned short fFlags) {
  if (pszPath == NULL) return FALSE;
  char szFrom[262];
  if (!ShellName(szFrom, pszPath)) return FALSE;
  return ShellOperation(FO_DELETE, szFrom, NULL, fFlags);
}

int VrkRemoveDirectory(const char* pszPath, unsigned short fFlags) {
  if (!VrkIsDirectory(pszPath)) return FALSE;
  return VrkRemoveFile(pszPath, fFlags);
}

int VrkCopyPathName(const char* pszFrom, const char* pszTo, unsigned short fFlags) {
  if (pszFrom == NULL || pszTo == NULL) return FALSE;
  char szFrom[262], szTo[262];
  if (!ShellName(szFrom, pszFrom) || !ShellName(szTo, pszTo)) return FALSE;
  return ShellOperation(FO_COPY, szFrom, szTo, fFlags);
}

int VrkCopyPathNameEx(CStringArray* pSources, const char* pszTo, unsigned short fFlags) {
  if (pSources == NULL || pSources->GetSize() == 0 || pszTo == NULL) return FALSE;
  char szTo[262];
  if (!ShellName(szTo, pszTo)) return FALSE;
  size_t nTotal = 1;
  for (INT_PTR i = 0; i < pSources->GetSize(); i++) {
    size_t nLen = (size_t)pSources->GetAt(i).GetLength() + 1;
    if (nTotal + nLen < nTotal) return FALSE; // cannot overflow in practice
    nTotal += nLen;
  }
  char* pList = (char*)calloc(nTotal, 1);
  if (pList == NULL) AfxThrowMemoryException();
  char* p = pList;
  for (INT_PTR i = 0; i < pSources->GetSize(); i++) {
    const CString& str = pSources->GetAt(i);
    memcpy(p, (const char*)str, str.GetLength());
    p += str.GetLength() + 1;
  }
  int bResult = ShellOperation(FO_COPY, pList, szTo, fFlags);
  free(pList);
  return bResult;
}

int VrkChangeFileAttributes(const char* pszPattern, unsigned long dwAttributes, int bSet,
                            int bRecurse) {
  if (pszPattern == NULL) return FALSE;
  // Decided: a pattern that matches nothing changes nothing and fails nothing.
  int bResult = TRUE;
  VFileFind find;
  if (!find.FindFile(pszPattern)) return TRUE;
  while (find.FindNextFile()) {
    if (find.IsDots()) continue;
    CString strPath = find.GetFilePath();
    DWORD dwAttr = GetFileAttributesA(strPath);
    if (dwAttr == INVALID_FILE_ATTRIBUTES) {
      bResult = FALSE;
      continue;
    }
    dwAttr = bSet ? (dwAttr | dwAttributes) : (dwAttr & ~dwAttributes);
    if (!SetFileAttributesA(strPath, dwAttr)) bResult = FALSE;
    if (bRecurse && find.IsDirectory() &&
        !VrkChangeFileAttributes(VrkPathAppend(strPath, "*.*"), dwAttributes, bSet, bRecurse))
      bResult = FALSE;
  }
  return bResult;
}
