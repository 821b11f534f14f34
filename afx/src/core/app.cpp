// CWinApp: the application object, its names and its settings (profile)
// functions over the registry or an INI file.
#include <afxwin.h>
#include <afxadv.h>
#include <afxres.h>

#include <limits.h>

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

// _tcsdup that raises CMemoryException instead of returning NULL.
static LPTSTR DupString(LPCTSTR psz) {
  LPTSTR pszCopy = _tcsdup(psz);
  if (pszCopy == NULL) AfxThrowMemoryException();
  return pszCopy;
}

CWinApp::CWinApp(LPCTSTR lpszAppName)
    : m_pszAppName(NULL), m_hInstance(NULL), m_hPrevInstance(NULL), m_lpCmdLine(NULL),
      m_nCmdShow(SW_SHOWNORMAL), m_pszExeName(NULL), m_pszHelpFilePath(NULL),
      m_pszProfileName(NULL), m_pszRegistryKey(NULL), m_hDevMode(NULL), m_hDevNames(NULL) {
  if (lpszAppName != NULL) m_pszAppName = DupString(lpszAppName);

  // The application object is the constructing thread's CWinThread; its
  // handle is the pseudo handle, never closed.
  AfxGetThreadState()->m_pCurrentWinThread = this;
  m_hThread = ::GetCurrentThread();
  m_nThreadID = ::GetCurrentThreadId();
  m_bAutoDelete = FALSE;
  AfxGetModuleState()->m_pCurrentWinApp = this;
}

CWinApp::~CWinApp() {
  AFX_MODULE_STATE* pModuleState = AfxGetModuleState();
  if (pModuleState->m_lpszCurrentAppName == m_pszAppName) pModuleState->m_lpszCurrentAppName = NULL;
  if (pModuleState->m_pCurrentWinApp == this) pModuleState->m_pCurrentWinApp = NULL;
  free((void*)m_pszAppName);
  free((void*)m_pszExeName);
  free((void*)m_pszHelpFilePath);
  free((void*)m_pszProfileName);
  free((void*)m_pszRegistryKey);
  if (m_hDevMode != NULL) ::GlobalFree(m_hDevMode);
  if (m_hDevNames != NULL) ::GlobalFree(m_hDevNames);
  delete m_pRecentFileList;
  if (m_atomApp != 0) ::GlobalDeleteAtom(m_atomApp);
  if (m_atomSystemTopic != 0) ::GlobalDeleteAtom(m_atomSystemTopic);
  m_hThread = NULL; // the pseudo handle of GetCurrentThread
}

CWinApp* AFXAPI AfxGetApp() { return AfxGetModuleState()->m_pCurrentWinApp; }

LPCTSTR AFXAPI AfxGetAppName() { return AfxGetModuleState()->m_lpszCurrentAppName; }

void CWinApp::SetCurrentHandles() {
  AFX_MODULE_STATE* pModuleState = AfxGetModuleState();
  if (m_hInstance == NULL) m_hInstance = pModuleState->m_hCurrentInstanceHandle;
  pModuleState->m_hCurrentInstanceHandle = m_hInstance;
  pModuleState->m_hCurrentResourceHandle = m_hInstance;

  // The module's path is bounded by the buffer; a longer one is refused by
  // GetModuleFileName and the names then stay empty rather than cut short.
  TCHAR szPath[MAX_PATH + 1];
  DWORD nLen = ::GetModuleFileName(m_hInstance, szPath, MAX_PATH);
  if (nLen == 0 || nLen >= MAX_PATH) nLen = 0;
  szPath[nLen] = '\0';

  // The file name and its extension (the last dot after the last separator),
  // stepping over double-byte characters.
  LPTSTR pszFileName = szPath;
  LPTSTR pszExt = NULL;
  for (LPTSTR p = szPath; *p != '\0'; p = ::CharNext(p)) {
    if (*p == '\\' || *p == '/' || *p == ':') {
      pszFileName = p + 1;
      pszExt = NULL;
    } else if (*p == '.') {
      pszExt = p;
    }
  }

  if (m_pszExeName == NULL) {
    TCHAR szExeName[MAX_PATH + 1];
    lstrcpyn(szExeName, pszFileName,
             (int)((pszExt != NULL ? pszExt - pszFileName : lstrlen(pszFileName)) + 1));
    m_pszExeName = DupString(szExeName);
  }
  if (m_pszHelpFilePath == NULL) {
    // The program's path with the extension .HLP.
    TCHAR szHelp[MAX_PATH + 8];
    int nStem = (int)(pszExt != NULL ? pszExt - szPath : lstrlen(szPath));
    lstrcpyn(szHelp, szPath, nStem + 1);
    lstrcat(szHelp, _T(".HLP"));
    m_pszHelpFilePath = DupString(szHelp);
  }
  if (m_pszAppName == NULL) {
    // The AFX_IDS_APP_TITLE string, else the program's name.
    TCHAR szTitle[256];
    if (AfxLoadString(AFX_IDS_APP_TITLE, szTitle, _countof(szTitle)) != 0)
      m_pszAppName = DupString(szTitle);
    else
      m_pszAppName = DupString(m_pszExeName);
  }
  pModuleState->m_lpszCurrentAppName = m_pszAppName;
  if (m_pszProfileName == NULL) {
    // "<exe>.INI" without a folder: Windows keeps it in the Windows folder.
    TCHAR szProfile[MAX_PATH + 8];
    lstrcpyn(szProfile, m_pszExeName, MAX_PATH);
    lstrcat(szProfile, _T(".INI"));
    m_pszProfileName = DupString(szProfile);
  }
}

BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                       int nCmdShow) {
  AFX_MODULE_STATE* pModuleState = AfxGetModuleState();
  if (hInstance != NULL) {
    pModuleState->m_hCurrentInstanceHandle = hInstance;
    pModuleState->m_hCurrentResourceHandle = hInstance;
  }
  CWinApp* pApp = AfxGetApp();
  if (pApp != NULL) {
    pApp->m_hInstance = pModuleState->m_hCurrentInstanceHandle;
    pApp->m_hPrevInstance = hPrevInstance;
    pApp->m_lpCmdLine = lpCmdLine;
    pApp->m_nCmdShow = nCmdShow;
    pApp->SetCurrentHandles();
  }
  return TRUE;
}

BOOL CWinApp::InitApplication() { return TRUE; }
BOOL CWinApp::InitInstance() { return TRUE; }
int CWinApp::Run() { return CWinThread::Run(); }
int CWinApp::ExitInstance() {
  SaveStdProfileSettings();
  return CWinThread::ExitInstance();
}

// ---- Where the settings live ------------------------------------------------

void CWinApp::SetRegistryKey(LPCTSTR lpszRegistryKey) {
  if (lpszRegistryKey == NULL) return; // decided here: no key, no change
  LPTSTR pszKey = DupString(lpszRegistryKey);
  LPTSTR pszProfile = m_pszAppName != NULL ? DupString(m_pszAppName) : NULL;
  free((void*)m_pszRegistryKey);
  m_pszRegistryKey = pszKey;
  // The settings move to HKCU\Software\<key>\<application name>.
  free((void*)m_pszProfileName);
  m_pszProfileName = pszProfile;
}

void CWinApp::SetRegistryKey(UINT nIDRegistryKey) {
  TCHAR szRegistryKey[256];
  // Decided here: a missing string leaves the settings where they are.
  if (AfxLoadString(nIDRegistryKey, szRegistryKey, _countof(szRegistryKey)) != 0)
    SetRegistryKey(szRegistryKey);
}

// Opens (creating as needed) HKCU\Software\<key>\<profile>; the caller closes
// it. NULL when SetRegistryKey was not called or the registry refuses.
HKEY CWinApp::GetAppRegistryKey() {
  if (m_pszRegistryKey == NULL || m_pszProfileName == NULL) return NULL;
  HKEY hSoftKey = NULL, hCompanyKey = NULL, hAppKey = NULL;
  DWORD dw;
  if (::RegOpenKeyEx(HKEY_CURRENT_USER, _T("Software"), 0, KEY_WRITE | KEY_READ, &hSoftKey) ==
      ERROR_SUCCESS) {
    if (::RegCreateKeyEx(hSoftKey, m_pszRegistryKey, 0, NULL, REG_OPTION_NON_VOLATILE,
                         KEY_WRITE | KEY_READ, NULL, &hCompanyKey, &dw) == ERROR_SUCCESS) {
      ::RegCreateKeyEx(hCompanyKey, m_pszProfileName, 0, NULL, REG_OPTION_NON_VOLATILE,
                       KEY_WRITE | KEY_READ, NULL, &hAppKey, &dw);
      ::RegCloseKey(hCompanyKey);
    }
    ::RegCloseKey(hSoftKey);
  }
  return hAppKey;
}

// Opens (creating as needed) the section's key below the application's key.
HKEY CWinApp::GetSectionKey(LPCTSTR lpszSection) {
  if (lpszSection == NULL) return NULL;
  HKEY hAppKey = GetAppRegistryKey();
  if (hAppKey == NULL) return NULL;
  HKEY hSectionKey = NULL;
  DWORD dw;
  ::RegCreateKeyEx(hAppKey, lpszSection, 0, NULL, REG_OPTION_NON_VOLATILE, KEY_WRITE | KEY_READ,
                   NULL, &hSectionKey, &dw);
  ::RegCloseKey(hAppKey);
  return hSectionKey;
}

// Decided here for both stores: a NULL section or entry reads the default
// and writes nothing (the Win32 calls would otherwise list or delete
// sections), and with no profile name the INI functions fail rather than
// fall back to WIN.INI.

namespace {
// Closes a registry key at the end of a scope.
class KeyHolder {
public:
  explicit KeyHolder(HKEY hKey) : m_hKey(hKey) {}
  ~KeyHolder() {
    if (m_hKey != NULL) ::RegCloseKey(m_hKey);
  }
  HKEY m_hKey;
};

// Reads a registry value of type dwWantType (or dwAltType) into a new[]
// buffer, with room for a terminating null. The size comes from the
// registry itself; a value that grows between the calls is read again.
BYTE* ReadRegValue(HKEY hKey, LPCTSTR lpszEntry, DWORD dwWantType, DWORD dwAltType,
                   DWORD* pdwSize) {
  for (int nTry = 0; nTry < 4; nTry++) {
    DWORD dwType = 0, dwCount = 0;
    if (::RegQueryValueEx(hKey, lpszEntry, NULL, &dwType, NULL, &dwCount) != ERROR_SUCCESS)
      return NULL;
    if (dwType != dwWantType && dwType != dwAltType) return NULL;
    BYTE* pData = new (std::nothrow) BYTE[dwCount + sizeof(TCHAR)];
    if (pData == NULL) AfxThrowMemoryException();
    DWORD dwRead = dwCount;
    LONG lResult = ::RegQueryValueEx(hKey, lpszEntry, NULL, &dwType, pData, &dwRead);
    if (lResult == ERROR_SUCCESS && (dwType == dwWantType || dwType == dwAltType)) {
      memset(pData + dwRead, 0, sizeof(TCHAR));
      *pdwSize = dwRead;
      return pData;
    }
    delete[] pData;
    if (lResult != ERROR_MORE_DATA) return NULL;
  }
  return NULL;
}
} // namespace

UINT CWinApp::GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault) {
  if (lpszSection == NULL || lpszEntry == NULL) return nDefault;
  if (m_pszRegistryKey != NULL) {
    KeyHolder secKey(GetSectionKey(lpszSection));
    if (secKey.m_hKey == NULL) return nDefault;
    DWORD dwValue = 0, dwType = 0, dwCount = sizeof(dwValue);
    // Only a DWORD counts; any other type reads as the default.
    if (::RegQueryValueEx(secKey.m_hKey, lpszEntry, NULL, &dwType, (LPBYTE)&dwValue, &dwCount) ==
            ERROR_SUCCESS &&
        dwType == REG_DWORD && dwCount == sizeof(dwValue))
      return (UINT)dwValue;
    return nDefault;
  }
  if (m_pszProfileName == NULL) return nDefault;
  return ::GetPrivateProfileInt(lpszSection, lpszEntry, nDefault, m_pszProfileName);
}

BOOL CWinApp::WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue) {
  if (lpszSection == NULL || lpszEntry == NULL) return FALSE;
  if (m_pszRegistryKey != NULL) {
    KeyHolder secKey(GetSectionKey(lpszSection));
    if (secKey.m_hKey == NULL) return FALSE;
    DWORD dwValue = (DWORD)nValue;
    return ::RegSetValueEx(secKey.m_hKey, lpszEntry, 0, REG_DWORD, (const BYTE*)&dwValue,
                           sizeof(dwValue)) == ERROR_SUCCESS;
  }
  if (m_pszProfileName == NULL) return FALSE;
  TCHAR szT[16];
  wsprintf(szT, _T("%d"), nValue);
  return ::WritePrivateProfileString(lpszSection, lpszEntry, szT, m_pszProfileName);
}

CString CWinApp::GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault) {
  if (lpszDefault == NULL) lpszDefault = _T("");
  if (lpszSection == NULL || lpszEntry == NULL) return CString(lpszDefault);
  if (m_pszRegistryKey != NULL) {
    KeyHolder secKey(GetSectionKey(lpszSection));
    if (secKey.m_hKey == NULL) return CString(lpszDefault);
    DWORD dwSize = 0;
    // REG_EXPAND_SZ is read as it is stored (not expanded).
    BYTE* pData = ReadRegValue(secKey.m_hKey, lpszEntry, REG_SZ, REG_EXPAND_SZ, &dwSize);
    if (pData == NULL) return CString(lpszDefault);
    // The stored text may or may not carry its terminating null.
    int nLen = (int)(dwSize / sizeof(TCHAR));
    while (nLen > 0 && ((LPCTSTR)pData)[nLen - 1] == '\0')
      nLen--;
    CString strValue;
    try {
      strValue.SetString((LPCTSTR)pData, nLen);
    } catch (...) {
      delete[] pData;
      throw;
    }
    delete[] pData;
    return strValue;
  }
  if (m_pszProfileName == NULL) return CString(lpszDefault);
  // Decided here: MFC reads into a 4,096-character buffer; the buffer grows
  // instead so that a long value is not cut, up to the 64 KB an INI line
  // can hold.
  CString strValue;
  for (DWORD nSize = 4096;; nSize *= 2) {
    LPTSTR pszBuf = strValue.GetBuffer((int)nSize);
    DWORD nLen = ::GetPrivateProfileString(lpszSection, lpszEntry, lpszDefault, pszBuf, nSize,
                                           m_pszProfileName);
    strValue.ReleaseBuffer((int)nLen);
    if (nLen < nSize - 1 || nSize >= 65536) break;
  }
  return strValue;
}

BOOL CWinApp::WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue) {
  if (lpszSection == NULL) return FALSE;
  if (m_pszRegistryKey != NULL) {
    if (lpszEntry == NULL) {
      // No entry: the whole section goes.
      KeyHolder appKey(GetAppRegistryKey());
      if (appKey.m_hKey == NULL) return FALSE;
      return ::RegDeleteKey(appKey.m_hKey, lpszSection) == ERROR_SUCCESS;
    }
    KeyHolder secKey(GetSectionKey(lpszSection));
    if (secKey.m_hKey == NULL) return FALSE;
    if (lpszValue == NULL) // no value: the entry goes
      return ::RegDeleteValue(secKey.m_hKey, lpszEntry) == ERROR_SUCCESS;
    return ::RegSetValueEx(secKey.m_hKey, lpszEntry, 0, REG_SZ, (const BYTE*)lpszValue,
                           (lstrlen(lpszValue) + 1) * sizeof(TCHAR)) == ERROR_SUCCESS;
  }
  if (m_pszProfileName == NULL) return FALSE;
  // WritePrivateProfileString deletes the section for a NULL entry and the
  // entry for a NULL value, as MFC documents.
  return ::WritePrivateProfileString(lpszSection, lpszEntry, lpszValue, m_pszProfileName);
}

// In an INI file binary data is text: two letters per byte, low nibble then
// high nibble, each as 'A' + nibble (MFC's format).
BOOL CWinApp::GetProfileBinary(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPBYTE* ppData,
                               UINT* pBytes) {
  if (ppData == NULL || pBytes == NULL) return FALSE;
  *ppData = NULL;
  *pBytes = 0;
  if (lpszSection == NULL || lpszEntry == NULL) return FALSE;
  if (m_pszRegistryKey != NULL) {
    KeyHolder secKey(GetSectionKey(lpszSection));
    if (secKey.m_hKey == NULL) return FALSE;
    DWORD dwSize = 0;
    BYTE* pData = ReadRegValue(secKey.m_hKey, lpszEntry, REG_BINARY, REG_BINARY, &dwSize);
    if (pData == NULL) return FALSE;
    *ppData = pData;
    *pBytes = dwSize;
    return TRUE;
  }
  CString str = GetProfileString(lpszSection, lpszEntry, NULL);
  int nLen = str.GetLength();
  // Decided here: text that is not of the format (odd length, letters
  // outside 'A'..'P') is refused rather than decoded into garbage.
  if (nLen == 0 || nLen % 2 != 0) return FALSE;
  LPCTSTR psz = str;
  for (int i = 0; i < nLen; i++) {
    if (psz[i] < 'A' || psz[i] > 'P') return FALSE;
  }
  UINT nBytes = (UINT)nLen / 2;
  BYTE* pData = new (std::nothrow) BYTE[nBytes];
  if (pData == NULL) AfxThrowMemoryException();
  for (UINT i = 0; i < nBytes; i++)
    pData[i] = (BYTE)(((psz[i * 2 + 1] - 'A') << 4) | (psz[i * 2] - 'A'));
  *ppData = pData;
  *pBytes = nBytes;
  return TRUE;
}

BOOL CWinApp::WriteProfileBinary(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPBYTE pData,
                                 UINT nBytes) {
  if (lpszSection == NULL || lpszEntry == NULL || (pData == NULL && nBytes != 0)) return FALSE;
  if (m_pszRegistryKey != NULL) {
    KeyHolder secKey(GetSectionKey(lpszSection));
    if (secKey.m_hKey == NULL) return FALSE;
    return ::RegSetValueEx(secKey.m_hKey, lpszEntry, 0, REG_BINARY, pData, nBytes) == ERROR_SUCCESS;
  }
  if (m_pszProfileName == NULL) return FALSE;
  if (nBytes > (UINT)(INT_MAX / 2 - 1)) return FALSE; // the text would not fit a string
  LPTSTR psz = new (std::nothrow) TCHAR[nBytes * 2 + 1];
  if (psz == NULL) AfxThrowMemoryException();
  for (UINT i = 0; i < nBytes; i++) {
    psz[i * 2] = (TCHAR)((pData[i] & 0x0F) + 'A');
    psz[i * 2 + 1] = (TCHAR)(((pData[i] >> 4) & 0x0F) + 'A');
  }
  psz[nBytes * 2] = '\0';
  BOOL bResult = ::WritePrivateProfileString(lpszSection, lpszEntry, psz, m_pszProfileName);
  delete[] psz;
  return bResult;
}
