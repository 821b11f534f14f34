// vrk_errormsg.cpp - the system's texts for Win32 error codes, as strings and
// as message boxes.
#include "vrk_exception.h"

#include "resource.h"

int VrkGetErrorMsg(CString& strText, DWORD dwError) {
  LPSTR pszBuffer = NULL;
  DWORD nChars = ::FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM, NULL,
                                  dwError, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                                  reinterpret_cast<LPSTR>(&pszBuffer), 0, NULL);
  // The system's trailing line break is kept.
  if (nChars != 0 && pszBuffer != NULL) {
    try {
      strText = CString(pszBuffer, static_cast<int>(nChars));
    } catch (CException*) {
      ::LocalFree(pszBuffer);
      throw;
    }
  }
  if (pszBuffer != NULL) ::LocalFree(pszBuffer);
  return static_cast<int>(nChars);
}

int VrkGetLastErrorMsg(CString& strText) { return VrkGetErrorMsg(strText, ::GetLastError()); }

int VrkReportError(DWORD dwError, const char* pszPrefix, int bShowCode) {
  CString strSystem;
  int nChars = VrkGetErrorMsg(strSystem, dwError);
  if (nChars == 0) return 0; // no system text: no box at all
  CString strText;
  if (pszPrefix != NULL) {
    strText = pszPrefix;
    strText += '\n';
  }
  strText += strSystem;
  if (bShowCode) {
    CString strCode;
    strCode.Format(IDS_VRK_ERROR_CODE, dwError);
    strText += strCode;
  }
  AfxMessageBox(strText, MB_OK, 0);
  return nChars;
}

int VrkReportLastError() { return VrkReportError(::GetLastError(), NULL, 0); }
