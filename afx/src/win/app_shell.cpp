// CWinApp and the shell: the document types written to HKEY_CLASSES_ROOT so
// that a double-click on a document starts the program with it, and the DDE
// atoms of EnableShellOpen.
#include <afxwin.h>
#include <afxcoll.h>
#include <shellapi.h>
#include <shlwapi.h>

void CWinApp::EnableShellOpen() {
  if (m_atomApp != 0) return; // already enabled
  CString strName = m_pszExeName != NULL ? m_pszExeName : m_pszAppName;
  m_atomApp = ::GlobalAddAtom(strName);
  m_atomSystemTopic = ::GlobalAddAtom(_T("system"));
}

// HKEY_CLASSES_ROOT\lpszKey's value lpszName (NULL: the default one) :=
// lpszValue, the key made as needed.
static BOOL SetClassesValue(LPCTSTR lpszKey, LPCTSTR lpszValue, LPCTSTR lpszName = NULL) {
  HKEY hKey;
  if (::RegCreateKeyEx(HKEY_CLASSES_ROOT, lpszKey, 0, NULL, REG_OPTION_NON_VOLATILE, KEY_SET_VALUE,
                       NULL, &hKey, NULL) != ERROR_SUCCESS)
    return FALSE;
  LONG lResult = ::RegSetValueEx(hKey, lpszName, 0, REG_SZ, (const BYTE*)lpszValue,
                                 (DWORD)((lstrlen(lpszValue) + 1) * sizeof(TCHAR)));
  ::RegCloseKey(hKey);
  return lResult == ERROR_SUCCESS;
}

// The default value of HKEY_CLASSES_ROOT\lpszKey ("" when there is none).
static CString ClassesValue(LPCTSTR lpszKey) {
  TCHAR szValue[MAX_PATH * 2] = _T("");
  DWORD cbValue = sizeof(szValue) - sizeof(TCHAR); // room kept for the end
  DWORD dwType = REG_NONE;
  if (::SHGetValue(HKEY_CLASSES_ROOT, lpszKey, NULL, &dwType, szValue, &cbValue) != ERROR_SUCCESS ||
      dwType != REG_SZ)
    return CString();
  szValue[cbValue / sizeof(TCHAR)] = 0; // a value stored without its end
  return CString(szValue);
}

// The extensions of a filterExt string: ".dib", or ".txt;.log" (a leading
// '*' is allowed); anything not starting with '.' is skipped.
static void Extensions(const CString& strFilterExt, CStringArray& exts) {
  for (int i = 0;; i++) {
    CString strExt;
    if (!AfxExtractSubString(strExt, strFilterExt, i, ';')) break;
    strExt.Trim();
    strExt.TrimLeft(_T('*'));
    if (strExt.GetLength() > 1 && strExt[0] == _T('.')) exts.Add(strExt);
  }
}

// The template's registry type id and extensions; FALSE when it has no id.
static BOOL TemplateFileType(CDocTemplate* pTemplate, CString& strFileTypeId, CStringArray& exts) {
  if (!pTemplate->GetDocString(strFileTypeId, CDocTemplate::regFileTypeId)) return FALSE;
  strFileTypeId.Trim();
  if (strFileTypeId.IsEmpty()) return FALSE;
  CString strFilterExt;
  if (pTemplate->GetDocString(strFilterExt, CDocTemplate::filterExt))
    Extensions(strFilterExt, exts);
  return TRUE;
}

// The program's icon number nIcon when it has one, else 0.
static int IconIndex(const CString& strPath, int nIcon) {
  HICON hIcon = ::ExtractIcon(AfxGetInstanceHandle(), strPath, (UINT)nIcon);
  if ((UINT_PTR)hIcon <= 1) return 0; // none (NULL) or not a program (1)
  ::DestroyIcon(hIcon);
  return nIcon;
}

void CWinApp::RegisterShellFileTypes(BOOL bCompat) {
  if (m_pDocManager == NULL) return;
  TCHAR szPath[MAX_PATH + 1];
  DWORD nLen = ::GetModuleFileName(AfxGetInstanceHandle(), szPath, MAX_PATH);
  if (nLen == 0 || nLen >= MAX_PATH) return; // no path, or one cut short
  szPath[nLen] = 0;
  CString strPath = szPath;
  CString strCommand = _T("\"") + strPath + _T("\"");

  int nTemplate = 0;
  POSITION pos = GetFirstDocTemplatePosition();
  while (pos != NULL) {
    CDocTemplate* pTemplate = GetNextDocTemplate(pos);
    nTemplate++; // the icons: the program's first, then one a template
    CString strFileTypeId, strFileTypeName;
    CStringArray exts;
    if (!TemplateFileType(pTemplate, strFileTypeId, exts)) continue;
    // Decided here: a type with no name of its own shows its id.
    if (!pTemplate->GetDocString(strFileTypeName, CDocTemplate::regFileTypeName) ||
        strFileTypeName.IsEmpty())
      strFileTypeName = strFileTypeId;
    if (!SetClassesValue(strFileTypeId, strFileTypeName)) continue; // not writable
    SetClassesValue(strFileTypeId + _T("\\shell\\open\\command"), strCommand + _T(" \"%1\""));
    if (bCompat) {
      SetClassesValue(strFileTypeId + _T("\\shell\\print\\command"), strCommand + _T(" /p \"%1\""));
      SetClassesValue(strFileTypeId + _T("\\shell\\printto\\command"),
                      strCommand + _T(" /pt \"%1\" \"%2\" \"%3\" \"%4\""));
      CString strIcon;
      strIcon.Format(_T("%s,%d"), (LPCTSTR)strPath, IconIndex(strPath, nTemplate));
      SetClassesValue(strFileTypeId + _T("\\DefaultIcon"), strIcon);
    }
    // An extension another type has is left to it.
    for (INT_PTR i = 0; i < exts.GetSize(); i++) {
      CString strOwner = ClassesValue(exts[i]);
      if (!strOwner.IsEmpty() && strOwner.CompareNoCase(strFileTypeId) != 0) continue;
      if (SetClassesValue(exts[i], strFileTypeId) && bCompat)
        SetClassesValue(exts[i] + _T("\\ShellNew"), _T(""), _T("NullFile"));
    }
  }
}

// Deletes HKEY_CLASSES_ROOT\lpszKey when nothing is left in it.
static void DeleteClassesKeyIfEmpty(LPCTSTR lpszKey) {
  HKEY hKey;
  if (::RegOpenKeyEx(HKEY_CLASSES_ROOT, lpszKey, 0, KEY_READ, &hKey) != ERROR_SUCCESS) return;
  DWORD nSubKeys = 0, nValues = 0;
  LONG lResult = ::RegQueryInfoKey(hKey, NULL, NULL, NULL, &nSubKeys, NULL, NULL, &nValues, NULL,
                                   NULL, NULL, NULL);
  ::RegCloseKey(hKey);
  if (lResult == ERROR_SUCCESS && nSubKeys == 0 && nValues == 0)
    ::RegDeleteKey(HKEY_CLASSES_ROOT, lpszKey);
}

void CWinApp::UnregisterShellFileTypes() {
  if (m_pDocManager == NULL) return;
  POSITION pos = GetFirstDocTemplatePosition();
  while (pos != NULL) {
    CString strFileTypeId;
    CStringArray exts;
    if (!TemplateFileType(GetNextDocTemplate(pos), strFileTypeId, exts)) continue;
    // The extension keeps what others put there.
    for (INT_PTR i = 0; i < exts.GetSize(); i++) {
      if (ClassesValue(exts[i]).CompareNoCase(strFileTypeId) != 0) continue;
      ::SHDeleteKey(HKEY_CLASSES_ROOT, exts[i] + _T("\\ShellNew"));
      ::SHDeleteValue(HKEY_CLASSES_ROOT, exts[i], NULL);
      DeleteClassesKeyIfEmpty(exts[i]);
    }
    ::SHDeleteKey(HKEY_CLASSES_ROOT, strFileTypeId);
  }
}
