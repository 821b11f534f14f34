// Folders known to the system and the shell: Windows, system and special
// folders, and long path names through the desktop folder.
#include "vrk_path.h"

#include <shlobj.h>
#include <string.h>
#include <wchar.h>

namespace {

void FreeItemList(LPITEMIDLIST pidl) {
  IMalloc* pMalloc = NULL;
  if (pidl != NULL && SUCCEEDED(SHGetMalloc(&pMalloc))) {
    pMalloc->Free(pidl);
    pMalloc->Release();
  }
}

} // namespace

CString VrkPathGetWindowsDirectory() {
  char sz[MAX_PATH];
  UINT n = GetWindowsDirectoryA(sz, MAX_PATH);
  return n == 0 || n >= MAX_PATH ? CString() : CString(sz);
}

CString VrkPathGetSystemDirectory() {
  char sz[MAX_PATH];
  UINT n = GetSystemDirectoryA(sz, MAX_PATH);
  return n == 0 || n >= MAX_PATH ? CString() : CString(sz);
}

CString VrkPathGetSpecialFolderPath(int nFolder) {
  // Decided: any failing shell call gives an empty string.
  CString strPath;
  LPITEMIDLIST pidl = NULL;
  if (SUCCEEDED(SHGetSpecialFolderLocation(NULL, nFolder, &pidl)) && pidl != NULL) {
    char sz[MAX_PATH];
    memset(sz, 0, sizeof(sz));
    if (SHGetPathFromIDListA(pidl, sz)) strPath = sz;
    FreeItemList(pidl);
  }
  return strPath;
}

unsigned long VrkPathGetLongPathNameEx(wchar_t* pszShort, wchar_t* pszLong, unsigned long) {
  if (pszShort == NULL || pszLong == NULL) return 0;
  IShellFolder* pDesktop = NULL;
  if (FAILED(SHGetDesktopFolder(&pDesktop)) || pDesktop == NULL) return 0;
  unsigned long nResult = 0;
  LPITEMIDLIST pidl = NULL;
  ULONG nEaten = 0;
  if (SUCCEEDED(pDesktop->ParseDisplayName(NULL, NULL, pszShort, &nEaten, &pidl, NULL)) &&
      pidl != NULL) {
    if (SHGetPathFromIDListW(pidl, pszLong)) nResult = (unsigned long)wcslen(pszLong);
    FreeItemList(pidl);
  }
  pDesktop->Release();
  return nResult;
}

unsigned long VrkPathGetLongPathName(const CString& strShort, CString& strLong,
                                     unsigned long nSize) {
  wchar_t wszShort[MAX_PATH];
  wchar_t wszLong[MAX_PATH];
  memset(wszLong, 0, sizeof(wszLong));
  // A name that does not fit 260 wide characters is no path: 0, empty.
  unsigned long nResult = 0;
  if (MultiByteToWideChar(CP_ACP, 0, strShort, -1, wszShort, MAX_PATH) > 0)
    nResult = VrkPathGetLongPathNameEx(wszShort, wszLong, nSize);
  char szLong[MAX_PATH * 2];
  if (nResult != 0 &&
      WideCharToMultiByte(CP_ACP, 0, wszLong, -1, szLong, sizeof(szLong), NULL, NULL) > 0)
    strLong = szLong;
  else
    strLong.Empty();
  return nResult;
}
