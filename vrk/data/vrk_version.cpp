// Version words and their ordering; the version resource of a file.
#include "vrk_version.h"

#include <new>
#include <string.h>

int operator==(tagVersionWord a, tagVersionWord b) { return a.high == b.high && a.low == b.low; }

// Lexicographic and signed: the high part decides, the low part breaks ties.
int operator<(tagVersionWord a, tagVersionWord b) {
  return a.high < b.high || (a.high == b.high && a.low < b.low);
}

int operator>(tagVersionWord a, tagVersionWord b) { return b < a; }

// ---- VrkFileVersionInfo -----------------------------------------------------

VrkFileVersionInfo::VrkFileVersionInfo()
    : m_pVersionData(NULL), m_pTranslation(NULL), m_pFixedInfo(NULL) {}

VrkFileVersionInfo::~VrkFileVersionInfo() { delete[] m_pVersionData; }

int VrkFileVersionInfo::GetFileVersionInfoA(const char* pszFile) {
  if (pszFile == NULL) return FALSE;
  // The name is never stored, so any non-empty name counts as a new file.
  if (m_strFileName != pszFile) {
    delete[] m_pVersionData;
    m_pVersionData = NULL;
    m_pTranslation = NULL;
    m_pFixedInfo = NULL;
  }
  // The system functions take a path of at most _MAX_PATH characters: a
  // longer name is cut there, as the fixed buffer always did.
  char szFile[_MAX_PATH];
  lstrcpynA(szFile, pszFile, _MAX_PATH);
  DWORD dwHandle = 0;
  DWORD nSize = ::GetFileVersionInfoSizeA(szFile, &dwHandle);
  if ((int)nSize < 1) return FALSE;

  BYTE* pData = new (std::nothrow) BYTE[nSize];
  if (pData == NULL) AfxThrowMemoryException();
  delete[] m_pVersionData;
  m_pVersionData = pData;
  m_pTranslation = NULL;
  m_pFixedInfo = NULL;
  if (!::GetFileVersionInfoA(szFile, 0, nSize, pData)) return FALSE;

  UINT nLen = 0;
  void* pFixed = NULL;
  if (!::VerQueryValueA(pData, "\\", &pFixed, &nLen) || pFixed == NULL) return FALSE;
  m_pFixedInfo = (VS_FIXEDFILEINFO*)pFixed;
  void* pTrans = NULL;
  if (!::VerQueryValueA(pData, "\\VarFileInfo\\Translation", &pTrans, &nLen) || pTrans == NULL)
    return FALSE;
  m_pTranslation = (WORD*)pTrans;
  return m_pFixedInfo->dwSignature == 0xFEEF04BD;
}

CString VrkFileVersionInfo::GetValue(const char* pszKey) {
  CString strValue;
  // Without a translation there is no path to look in.
  if (m_pVersionData == NULL || m_pTranslation == NULL || pszKey == NULL) return strValue;
  CString strPath;
  strPath.Format("\\StringFileInfo\\%04x%04x\\%s", m_pTranslation[0], m_pTranslation[1], pszKey);
  void* pValue = NULL;
  UINT nLen = 0;
  if (::VerQueryValueA(m_pVersionData, (LPSTR)(LPCSTR)strPath, &pValue, &nLen) && pValue != NULL &&
      nLen > 0)
    strValue = CString((LPCSTR)pValue, (int)strnlen((LPCSTR)pValue, nLen)); // nLen counts the zero
  return strValue;
}
