// vrk_moduledata.cpp - the facts about the host process that the library
// gathers once, before its entry point runs: the executable's path, name and
// version words, the user's locale acronyms and the platform flags.
#include "vrk_frame.h"

#include <mbstring.h>
#include <stdlib.h>
#include <string.h>

namespace {

// Filled by the constructor, which the C run-time's static initialisation
// runs before DllMain; read-only afterwards.
class VrkModuleData {
public:
  VrkModuleData();

  int m_bWin9x;
  int m_bMajorVersion4;
  CString m_strFullExePath;
  CString m_strExePath;
  CString m_strExeName;
  VS_FIXEDFILEINFO m_fileInfo;
  tagVersionWord m_productMajor;
  tagVersionWord m_productMinor;
  LCID m_lcid;
  CString m_strEnglishAcronym;
  CString m_strLocalAcronym;

private:
  void ReadVersion();
};

const LCID kEnglishLcid = 1033;

VrkModuleData::VrkModuleData() : m_bWin9x(0), m_bMajorVersion4(0), m_lcid(0) {
  OSVERSIONINFOA osvi;
  memset(&osvi, 0, sizeof(osvi));
  osvi.dwOSVersionInfoSize = sizeof(osvi);
  if (::GetVersionExA(&osvi)) {
    m_bWin9x = osvi.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS;
    m_bMajorVersion4 = osvi.dwMajorVersion == 4;
  }

  char szPath[_MAX_PATH + 1];
  DWORD nLen = ::GetModuleFileNameA(::GetModuleHandleA(NULL), szPath, _MAX_PATH);
  szPath[nLen < _MAX_PATH ? nLen : _MAX_PATH] = '\0'; // a cut name is not terminated on XP
  m_strFullExePath = szPath;

  char szDrive[_MAX_DRIVE], szDir[_MAX_DIR], szName[_MAX_FNAME], szExt[_MAX_EXT];
  _splitpath(szPath, szDrive, szDir, szName, szExt);
  m_strExePath = szDrive;
  m_strExePath += szDir;
  // The last character, found with the multibyte functions: in a DBCS path a
  // trail byte may have the value of a backslash.
  int nPathLen = m_strExePath.GetLength();
  if (nPathLen > 0) {
    const unsigned char* pBegin =
        reinterpret_cast<const unsigned char*>(static_cast<const char*>(m_strExePath));
    const unsigned char* pLast = _mbsdec(pBegin, pBegin + nPathLen);
    if (pLast != NULL && pLast == pBegin + nPathLen - 1 && *pLast == '\\')
      m_strExePath.Truncate(nPathLen - 1);
  }
  m_strExeName = szName;
  m_strExeName += szExt;

  ReadVersion();

  m_lcid = ::GetUserDefaultLCID();
  char szAcronym[20];
  if (::GetLocaleInfoA(kEnglishLcid, LOCALE_SABBREVLANGNAME, szAcronym, sizeof(szAcronym)))
    m_strEnglishAcronym = szAcronym;
  if (m_lcid != kEnglishLcid &&
      ::GetLocaleInfoA(m_lcid, LOCALE_SABBREVLANGNAME, szAcronym, sizeof(szAcronym)))
    m_strLocalAcronym = szAcronym;
  else
    m_strLocalAcronym = m_strEnglishAcronym;
}

// The pairs come from the file version words, not the product version
// words: that is what the library has always reported.
void VrkModuleData::ReadVersion() {
  memset(&m_fileInfo, 0, sizeof(m_fileInfo));
  m_productMajor.high = m_productMajor.low = 0;
  m_productMinor.high = m_productMinor.low = 0;

  DWORD dwHandle = 0;
  DWORD nSize = ::GetFileVersionInfoSizeA(m_strFullExePath, &dwHandle);
  if (nSize == 0) return;
  // No exception may leave a static initialiser: a failed allocation just
  // leaves the version unknown.
  void* pBlock = malloc(nSize);
  if (pBlock == NULL) return;
  VS_FIXEDFILEINFO* pInfo = NULL;
  UINT nInfoLen = 0;
  if (::GetFileVersionInfoA(m_strFullExePath, dwHandle, nSize, pBlock) &&
      ::VerQueryValueA(pBlock, "\\", reinterpret_cast<void**>(&pInfo), &nInfoLen) &&
      pInfo != NULL && nInfoLen >= sizeof(VS_FIXEDFILEINFO)) {
    m_fileInfo = *pInfo;
    m_productMajor.high = HIWORD(pInfo->dwFileVersionMS);
    m_productMajor.low = LOWORD(pInfo->dwFileVersionMS);
    m_productMinor.high = HIWORD(pInfo->dwFileVersionLS);
    m_productMinor.low = LOWORD(pInfo->dwFileVersionLS);
  }
  free(pBlock);
}

VrkModuleData g_moduleData;

} // namespace

const char* VrkPrivGetFullExePathName() { return g_moduleData.m_strFullExePath; }
const char* VrkPrivGetExePath() { return g_moduleData.m_strExePath; }
const char* VrkPrivGetExeName() { return g_moduleData.m_strExeName; }
DWORD VrkPrivGetLocalLangID() { return g_moduleData.m_lcid; }
const char* VrkPrivGetEnglishAcronym() { return g_moduleData.m_strEnglishAcronym; }
tagVersionWord VrkPrivGetProductMajorVersion() { return g_moduleData.m_productMajor; }
tagVersionWord VrkPrivGetProductMinorVersion() { return g_moduleData.m_productMinor; }
int VrkPrivIsWin9x() { return g_moduleData.m_bWin9x; }
int VrkPrivIsMajorVersion4() { return g_moduleData.m_bMajorVersion4; }

const char* VrkPrivGetLocaleAcronym(int bUseEnglish) {
  if (g_moduleData.m_strLocalAcronym.IsEmpty() && bUseEnglish)
    return g_moduleData.m_strEnglishAcronym;
  return g_moduleData.m_strLocalAcronym;
}

int VrkPrivAppendLocaleAcronym(CString& strText, int bEnglish) {
  const char* pszAcronym = bEnglish ? VrkPrivGetEnglishAcronym() : VrkPrivGetLocaleAcronym(TRUE);
  if (*pszAcronym == '\0') return 0;
  strText += pszAcronym;
  return 1;
}
