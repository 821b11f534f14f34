// vrk_resourcedll.cpp - loading a language resource module (vrk_ENU,
// vrk_DEU, ...) and reading RT_RCDATA resources.
#include "vrk_frame.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

namespace {

const LCID kEnglishLcid = 1033;

HINSTANCE LoadModule(const char* pszName, DWORD dwFlags) {
  return (dwFlags & VRK_LOADRES_AFXLOAD) ? AfxLoadLibrary(pszName) : ::LoadLibraryA(pszName);
}

// Loads pszName through the system search order, then from the folder of the
// module that supplies the application's resources (which need not be on
// the search path).
HINSTANCE LoadBesideResources(const CString& strName, DWORD dwFlags) {
  HINSTANCE hInst = LoadModule(strName, dwFlags);
  if (hInst != NULL) return hInst;

  char szModule[_MAX_PATH + 1];
  DWORD nLen = ::GetModuleFileNameA(AfxGetResourceHandle(), szModule, _MAX_PATH);
  if (nLen == 0) return NULL;
  szModule[nLen < _MAX_PATH ? nLen : _MAX_PATH] = '\0';
  char szDrive[_MAX_DRIVE], szDir[_MAX_DIR];
  _splitpath(szModule, szDrive, szDir, NULL, NULL);
  if (szDir[0] == '\0') return NULL;
  // _makepath does not bound its output: a name that would not fit in a
  // path is simply not found.
  if (strlen(szDrive) + strlen(szDir) + strName.GetLength() >= _MAX_PATH) return NULL;
  char szPath[_MAX_PATH];
  _makepath(szPath, szDrive, szDir, strName, NULL);
  return LoadModule(szPath, dwFlags);
}

HINSTANCE LoadResourceDll(const char* pszBaseName, const char* pszLanguage, DWORD dwFlags) {
  CString strPrefix(pszBaseName);
  strPrefix += '_';
  CString strName = strPrefix;
  const char* pszEnglish = VrkPrivGetEnglishAcronym();

  HINSTANCE hInst = NULL;
  if (pszLanguage != NULL) {
    strName += pszLanguage;
    hInst = LoadBesideResources(strName, dwFlags);
  } else if (*pszEnglish != '\0') {
    strName += pszEnglish;
    hInst = LoadBesideResources(strName, dwFlags);
  }
  if (hInst != NULL) return hInst;

  // The two-argument form thus tries the English name twice; that is kept.
  if (VrkPrivGetLocalLangID() != kEnglishLcid && (dwFlags & VRK_LOADRES_ENGLISH_RETRY) &&
      *pszEnglish != '\0') {
    strName = strPrefix + pszEnglish;
    hInst = LoadBesideResources(strName, dwFlags);
    if (hInst != NULL) return hInst;
  }

  if (dwFlags & VRK_LOADRES_MESSAGEBOX) {
    char szText[256];
    _snprintf(szText, sizeof(szText) - 1, "The dynamic link library %s could not be found",
              static_cast<const char*>(strName));
    szText[sizeof(szText) - 1] = '\0';
    ::MessageBoxA(NULL, szText, "", MB_OK);
  }
  return NULL;
}

} // namespace

HINSTANCE VrkOSLoadResourceDll(const char* pszBaseName, DWORD dwFlags) {
  if (pszBaseName == NULL) return NULL;
  return LoadResourceDll(pszBaseName, NULL, dwFlags);
}

HINSTANCE VrkOSLoadResourceDll(const char* pszBaseName, const char* pszLanguage, DWORD dwFlags) {
  if (pszBaseName == NULL) return NULL;
  // A missing language is the two-argument form's English attempt.
  return LoadResourceDll(pszBaseName, pszLanguage, dwFlags);
}

// Neither the destructor nor Unload frees the module: MFC's resource chain
// may still point at it.
VExplicitResourceDll::~VExplicitResourceDll() { m_hInstance = NULL; }

BOOL VExplicitResourceDll::Load(const char* pszBaseName) {
  m_hInstance = VrkOSLoadResourceDll(pszBaseName, 7);
  return m_hInstance != NULL;
}

BOOL VExplicitResourceDll::Load(const char* pszBaseName, const char* pszLanguage) {
  m_hInstance = VrkOSLoadResourceDll(pszBaseName, pszLanguage, 7);
  return m_hInstance != NULL;
}

HGLOBAL VrkPrivLoadData(UINT nID) {
  return VrkPrivLoadData(nID, AfxFindResourceHandle(MAKEINTRESOURCE(nID), RT_RCDATA));
}

HGLOBAL VrkPrivLoadData(UINT nID, HINSTANCE hModule) {
  HRSRC hRes = ::FindResourceA(hModule, MAKEINTRESOURCE(nID), RT_RCDATA);
  return hRes != NULL ? ::LoadResource(hModule, hRes) : NULL;
}

// The data need not be zero-terminated: exactly SizeofResource bytes are
// taken. A missing resource returns NULL and leaves the text as it was.
HGLOBAL VrkPrivLockAndLoadText(UINT nID, HINSTANCE hModule, CString& strText) {
  HRSRC hRes = ::FindResourceA(hModule, MAKEINTRESOURCE(nID), RT_RCDATA);
  if (hRes == NULL) return NULL;
  HGLOBAL hData = ::LoadResource(hModule, hRes);
  if (hData == NULL) return NULL;
  const char* pData = static_cast<const char*>(::LockResource(hData));
  DWORD nSize = ::SizeofResource(hModule, hRes);
  if (pData == NULL) return hData;
  strText = CString(pData, static_cast<int>(nSize));
  return hData;
}
