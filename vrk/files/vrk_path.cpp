// Path strings: splitting, qualifying, appending, resolving, shortening and
// the reserved device names.
#include "vrk_path.h"

#include <mbstring.h>
#include <string.h>

namespace {

inline bool IsSep(char c) { return c == '\\' || c == '/'; }

// The last character of psz (a lead byte's pair counts as one), or 0.
char LastChar(const char* psz) {
  size_t n = strlen(psz);
  if (n == 0) return 0;
  const unsigned char* p = _mbsdec((const unsigned char*)psz, (const unsigned char*)psz + n);
  return p != NULL && p + 1 == (const unsigned char*)psz + n ? (char)*p : 0;
}

// Copies at most cch - 1 bytes of [first, last) and terminates.
void CopyPiece(char* out, size_t cch, const char* first, const char* last) {
  size_t n = (size_t)(last - first);
  if (n >= cch) n = cch - 1;
  memcpy(out, first, n);
  out[n] = '\0';
}

// _splitpath's division of a path, each piece cut to its buffer instead of
// overrunning it (a 259-character folder part would not fit _MAX_DIR).
void SplitBounded(const char* path, char* drive, char* dir, char* fname, char* ext) {
  const char* p = path;
  if (p[0] != '\0' && p[1] == ':') {
    CopyPiece(drive, _MAX_DRIVE, p, p + 2);
    p += 2;
  } else {
    drive[0] = '\0';
  }
  const char* pLastSep = NULL;
  const char* pLastDot = NULL;
  for (const char* q = p; *q != '\0'; q = (const char*)_mbsinc((const unsigned char*)q)) {
    if (IsSep(*q)) {
      pLastSep = q;
      pLastDot = NULL;
    } else if (*q == '.') {
      pLastDot = q;
    }
  }
  const char* pName = pLastSep != NULL ? pLastSep + 1 : p;
  CopyPiece(dir, _MAX_DIR, p, pName);
  const char* pEnd = pName + strlen(pName);
  if (pLastDot == NULL) pLastDot = pEnd;
  CopyPiece(fname, _MAX_FNAME, pName, pLastDot);
  CopyPiece(ext, _MAX_EXT, pLastDot, pEnd);
}

const char* const kReservedNames[23] = {"CON",  "PRN",  "AUX",  "CLOCK$", "NUL",  "COM1",
                                        "COM2", "COM3", "COM4", "COM5",   "COM6", "COM7",
                                        "COM8", "COM9", "LPT1", "LPT2",   "LPT3", "LPT4",
                                        "LPT5", "LPT6", "LPT7", "LPT8",   "LPT9"};

} // namespace

// ---- VSplitPath -------------------------------------------------------------

VSplitPath::VSplitPath(const char* pszPath) {
  memset(m_szPath, 0, sizeof(m_szPath));
  memset(m_szDrive, 0, sizeof(m_szDrive));
  memset(m_szDir, 0, sizeof(m_szDir));
  memset(m_szFName, 0, sizeof(m_szFName));
  memset(m_szExt, 0, sizeof(m_szExt));
  Split(pszPath);
}

VSplitPath::~VSplitPath() {}

int VSplitPath::Split(const char* pszPath) {
  if (pszPath == NULL) return FALSE;
  CString strFull;
  if (!VrkFullPath(pszPath, strFull, TRUE)) return FALSE;
  lstrcpynA(m_szPath, strFull, _MAX_PATH);
  SplitBounded(m_szPath, m_szDrive, m_szDir, m_szFName, m_szExt);
  return TRUE;
}

// ---- Path strings ------------------------------------------------------------

void VrkRemoveTrailingSlash(char* psz) {
  if (psz == NULL || *psz == '\0') return;
  if (LastChar(psz) == '\\') psz[strlen(psz) - 1] = '\0';
}

void VrkRemoveTrailingSlash(CString& str) {
  if (!str.IsEmpty() && LastChar(str) == '\\') str.Truncate(str.GetLength() - 1);
}

CString VrkPathAppend(const char* pszFirst, const char* pszSecond) {
  CString strResult(pszFirst != NULL ? pszFirst : "");
  // The LAST character of the second part is tested, not its first: callers
  // depend on C:\a + b\ giving C:\ab\.
  if (!strResult.IsEmpty() && LastChar(strResult) != '\\' &&
      (pszSecond == NULL || LastChar(pszSecond) != '\\'))
    strResult += '\\';
  if (pszSecond != NULL) strResult += pszSecond;
  return strResult;
}

CString VrkPathResolve(const char* pszPath, const char* pszBaseDirectory) {
  if (pszPath == NULL) pszPath = ""; // decided: a NULL path resolves to the base
  CString strResult;
  size_t nLen = strlen(pszPath);
  if ((nLen >= 2 && pszPath[1] == ':') || (pszPath[0] == '\\' && pszPath[1] == '\\')) {
    strResult = pszPath;
  } else {
    if (pszBaseDirectory != NULL) {
      strResult = pszBaseDirectory;
    } else {
      char szCur[MAX_PATH];
      DWORD n = GetCurrentDirectoryA(MAX_PATH, szCur);
      if (n == 0 || n >= MAX_PATH) szCur[0] = '\0';
      strResult = szCur;
    }
    VrkRemoveTrailingSlash(strResult);
    // The first cut keeps its backslash, so later ..\ are consumed without
    // climbing: only one level is ever climbed (behaviour callers rely on).
    const char* p = pszPath;
    while (strncmp(p, "..\\", 3) == 0 && strResult.GetLength() > 2) {
      const unsigned char* pLast = _mbsrchr((const unsigned char*)(const char*)strResult, '\\');
      if (pLast != NULL)
        strResult.Truncate((int)(pLast - (const unsigned char*)(const char*)strResult) + 1);
      p += 3;
    }
    while (strncmp(p, "..\\", 3) == 0)
      p += 3;
    strResult = VrkPathAppend(strResult, p);
  }
  // Deletes .\ segments and, as it always has, the dot after any backslash.
  strResult.Replace("\\.", "");
  return strResult;
}

int VrkFullPath(char* pszOut, const char* pszIn, char** ppszFilePart, int bRemoveTrailingSlash) {
  if (pszOut == NULL || pszIn == NULL) return FALSE;
  char* pFilePart = NULL;
  DWORD n = GetFullPathNameA(pszIn, MAX_PATH, pszOut, &pFilePart);
  if (ppszFilePart != NULL) *ppszFilePart = pFilePart;
  // A result of MAX_PATH or more did not fit and was not written.
  if (n == 0 || n >= MAX_PATH) {
    lstrcpynA(pszOut, pszIn, MAX_PATH);
    if (ppszFilePart != NULL) *ppszFilePart = NULL;
    return FALSE;
  }
  CString strRoot;
  VrkGetRoot(pszOut, strRoot);
  DWORD dwFlags = 0;
  if (!GetVolumeInformationA(strRoot, NULL, 0, NULL, NULL, &dwFlags, NULL, 0)) return FALSE;
  if (!(dwFlags & FS_CASE_IS_PRESERVED)) CharUpperA(pszOut);
  if (!(dwFlags & FS_UNICODE_STORED_ON_DISK) && pFilePart != NULL) {
    WIN32_FIND_DATAA fd;
    HANDLE hFind = FindFirstFileA(pszIn, &fd);
    if (hFind != INVALID_HANDLE_VALUE) {
      FindClose(hFind);
      lstrcpynA(pFilePart, fd.cFileName, (int)(MAX_PATH - (pFilePart - pszOut)));
    }
  }
  if (bRemoveTrailingSlash) VrkRemoveTrailingSlash(pszOut);
  return TRUE;
}

int VrkFullPath(const char* pszIn, CString& strOut, int bRemoveTrailingSlash) {
  char szOut[MAX_PATH];
  memset(szOut, 0, sizeof(szOut));
  int bResult = VrkFullPath(szOut, pszIn, NULL, bRemoveTrailingSlash);
  if (bResult) strOut = szOut;
  return bResult;
}

CString VrkPathGetFileName(const char* pszPath) {
  VSplitPath split(pszPath);
  return split.GetFileName() + split.GetExtension();
}

void VrkGetRoot(const char* pszPath, CString& strRoot) {
  strRoot.Empty();
  if (pszPath == NULL) return;
  char szPath[MAX_PATH];
  lstrcpynA(szPath, pszPath, MAX_PATH);
  char* pUnc = NULL;
  char* p;
  for (p = szPath; *p != '\0'; p = (char*)_mbsinc((unsigned char*)p)) {
    if (IsSep(p[0]) && IsSep(p[1])) {
      pUnc = p;
      break;
    }
  }
  if (pUnc != NULL) {
    // \\server\share\ : skip the server, then end after the share's separator.
    p = pUnc + 2;
    while (*p != '\0' && !IsSep(*p))
      p = (char*)_mbsinc((unsigned char*)p);
    if (*p != '\0') {
      p++;
      while (*p != '\0' && !IsSep(*p))
        p = (char*)_mbsinc((unsigned char*)p);
      if (*p != '\0') p[1] = '\0';
    }
  } else {
    for (p = szPath; *p != '\0' && !IsSep(*p); p = (char*)_mbsinc((unsigned char*)p)) {
    }
    if (*p != '\0') p[1] = '\0';
  }
  strRoot = szPath;
}

void VrkGetRootPath(const char* pszPath, CString& strRootPath) {
  VSplitPath split(pszPath);
  strRootPath = VrkPathAppend(split.GetDrive(), split.GetDirectory());
  VrkRemoveTrailingSlash(strRootPath);
}

const char* VrkGetFileName(const char* pszPath) {
  if (pszPath == NULL) return NULL;
  const unsigned char* p = _mbsrchr((const unsigned char*)pszPath, '\\');
  if (p == NULL) p = _mbsrchr((const unsigned char*)pszPath, '/');
  return p != NULL ? (const char*)p + 1 : pszPath;
}

int VrkChangeExt(CString& strPath, const char* pszExtension) {
  int bResult = FALSE;
  // The last dot of the whole string: a dotted folder counts when the file
  // has no extension.
  const unsigned char* pDot = _mbsrchr((const unsigned char*)(const char*)strPath, '.');
  if (pDot != NULL) {
    int nDot = (int)(pDot - (const unsigned char*)(const char*)strPath);
    strPath.Truncate(pszExtension != NULL ? nDot + 1 : nDot);
    bResult = TRUE;
  } else {
    strPath += '.'; // also without an extension: a trailing dot, FALSE
  }
  if (pszExtension != NULL) {
    strPath += pszExtension;
    bResult = TRUE;
  }
  return bResult;
}

void VrkPathAbbreviateName(char* pszPath, int cchMax, int bAtLeastName) {
  if (pszPath == NULL) return;
  int nFull = (int)strlen(pszPath);
  const char* pName = pszPath;
  for (const char* p = pszPath; *p != '\0'; p = (const char*)_mbsinc((const unsigned char*)p)) {
    if (*p == '\\' || *p == '/' || *p == ':') pName = p + 1;
  }
  int nName = (int)strlen(pName);
  if (cchMax >= nFull) return;
  if (cchMax < nName) {
    if (bAtLeastName)
      memmove(pszPath, pName, nName + 1);
    else
      pszPath[0] = '\0';
    return;
  }

  // The end of the volume part: past C: or \\server, then past the share or
  // the first folder when more than three characters precede the name.
  const char* pVol = pszPath + (nFull >= 2 ? 2 : nFull);
  if (pszPath[0] == '\\' && pszPath[1] == '\\') {
    while (*pVol != '\0' && *pVol != '\\')
      pVol = (const char*)_mbsinc((const unsigned char*)pVol);
  }
  if (pName - pszPath > 3 && *pVol != '\0') {
    const unsigned char* pNext = _mbschr((const unsigned char*)pVol + 1, '\\');
    pVol = pNext != NULL ? (const char*)pNext : pszPath + nFull;
  }
  int nVol = (int)(pVol - pszPath);

  // Decided: when no backslash can start the kept rest (the volume swallowed
  // the path), the name alone is shown, as when the volume is too long.
  const char* pRest = NULL;
  if (cchMax >= nVol + nName + 5 && *pVol == '\\') {
    for (const char* p = pVol; p != NULL;
         p = (const char*)_mbschr((const unsigned char*)p + 1, '\\')) {
      if (nVol + 4 + (int)strlen(p) <= cchMax) {
        pRest = p;
        break;
      }
    }
  }
  if (pRest == NULL) {
    memmove(pszPath, pName, nName + 1);
    return;
  }
  // The result is shorter than the input, so it is built in place: the rest
  // moves right after the volume and the "\...".
  int nRest = (int)strlen(pRest);
  memmove(pszPath + nVol + 4, pRest, nRest + 1);
  memcpy(pszPath + nVol, "\\...", 4);
}

int VrkOSIsReservedDOSName(const char* pszPath) {
  if (pszPath == NULL) return FALSE;
  char szDrive[_MAX_DRIVE], szDir[_MAX_DIR], szName[_MAX_FNAME], szExt[_MAX_EXT];
  SplitBounded(pszPath, szDrive, szDir, szName, szExt);
  if (szName[0] == '\0') return FALSE;
  for (int i = 0; i < 23; i++) {
    if (_mbsicmp((const unsigned char*)szName, (const unsigned char*)kReservedNames[i]) == 0)
      return TRUE;
  }
  return FALSE;
}
