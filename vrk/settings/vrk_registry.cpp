// The registry functions: key paths, single values, keys, and saving or
// restoring a whole key with the needed privilege.
#include "vrk_profile.h"

#include <afxwin.h>

CString VrkRegMakeKey(const char* section, const char* root, DWORD /*flags*/) {
  CString path;
  if (section == NULL) return path;
  if (root != NULL) {
    path.Format("%s\\%s", root, section);
    return path;
  }
  CWinApp* app = AfxGetApp();
  // An empty registry key counts as none: it would name Software\\<profile>.
  if (app == NULL || app->m_pszRegistryKey == NULL || *app->m_pszRegistryKey == '\0') return path;
  const char* profile = app->m_pszProfileName != NULL ? app->m_pszProfileName : "";
  path.Format("Software\\%s\\%s\\%s", app->m_pszRegistryKey, profile, section);
  return path;
}

int VrkRegKeyExists(const char* section, const char* root, DWORD flags) {
  CString path = VrkRegMakeKey(section, root, flags);
  if (path.IsEmpty()) return 0;
  HKEY hKey = NULL;
  if (RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_ALL_ACCESS, &hKey) != ERROR_SUCCESS) return 0;
  RegCloseKey(hKey);
  return 1;
}

CString VrkRegQueryString(HKEY hKey, const char* name, const char* defaultValue) {
  CString value;
  DWORD cb = 0;
  if (RegQueryValueExA(hKey, name, NULL, NULL, NULL, &cb) == ERROR_SUCCESS) {
    // One byte more than the stored size: a value saved without its
    // terminator (or as binary) still ends inside the buffer.
    char* p = value.GetBuffer((int)cb + 1);
    DWORD cbRead = cb;
    LONG rc = RegQueryValueExA(hKey, name, NULL, NULL, (BYTE*)p, &cbRead);
    p[rc == ERROR_SUCCESS && cbRead <= cb ? cbRead : 0] = '\0';
    value.ReleaseBuffer();
    if (rc == ERROR_SUCCESS) return value;
  }
  value = defaultValue != NULL ? defaultValue : "";
  return value;
}

DWORD VrkRegQueryDword(HKEY hKey, const char* name, DWORD defaultValue) {
  // Queried into a copy of the default: a failed query leaves the buffer
  // undefined.
  DWORD data = defaultValue, cb = sizeof(data);
  if (RegQueryValueExA(hKey, name, NULL, NULL, (BYTE*)&data, &cb) != ERROR_SUCCESS)
    return defaultValue;
  return data;
}

int VrkRegQueryBinary(HKEY hKey, const char* name, void* buffer, DWORD size) {
  // A NULL buffer would make the system report the size and succeed.
  if (buffer == NULL) return 0;
  DWORD cb = size;
  return RegQueryValueExA(hKey, name, NULL, NULL, (BYTE*)buffer, &cb) == ERROR_SUCCESS;
}

int VrkRegOpenKeyEx(HKEY parent, const char* subkey, HKEY* result, DWORD access) {
  if (result == NULL) return 0;
  return RegOpenKeyExA(parent, subkey, 0, access, result) == ERROR_SUCCESS;
}

int VrkRegCreateKeyEx(HKEY parent, const char* subkey, HKEY* result, DWORD access) {
  if (result == NULL) return 0;
  DWORD disposition;
  // The class string "REG_SZ" is what the library has always written.
  return RegCreateKeyExA(parent, subkey, 0, (LPSTR) "REG_SZ", 0, access, NULL, result,
                         &disposition) == ERROR_SUCCESS;
}

LONG VrkRegEnumKeyEx(HKEY hKey, DWORD index, char* name, DWORD* nameLength, FILETIME* lastWrite) {
  return RegEnumKeyExA(hKey, index, name, nameLength, NULL, NULL, NULL, lastWrite);
}

namespace {

// Opens parent\subkey and runs one save or restore on it with the privilege
// enabled. The privilege is put back to disabled only after the operation
// ran: when the key cannot be opened it stays enabled, as it always has.
template <class Op>
int WithPrivilege(const char* privilege, HKEY parent, const char* subkey, Op op) {
  int wasEnabled = VrkIsPrivledgeEnabled(privilege, NULL);
  if (!wasEnabled) VrkModifyPrivilege(privilege, TRUE, NULL); // failure ignored
  HKEY hKey = NULL;
  if (!VrkRegOpenKeyEx(parent, subkey, &hKey, KEY_ALL_ACCESS)) return 0;
  LONG rc = op(hKey);
  RegCloseKey(hKey);
  if (!wasEnabled) VrkModifyPrivilege(privilege, FALSE, NULL);
  return rc == ERROR_SUCCESS;
}

} // namespace

int VrkRegSaveKey(HKEY parent, const char* subkey, const char* file,
                  SECURITY_ATTRIBUTES* security) {
  if (file == NULL) return 0; // nothing to save to: the privilege is left alone
  return WithPrivilege(SE_BACKUP_NAME, parent, subkey,
                       [=](HKEY hKey) { return RegSaveKeyA(hKey, file, security); });
}

int VrkRegRestoreKey(HKEY parent, const char* subkey, const char* file, DWORD flags) {
  if (file == NULL) return 0;
  return WithPrivilege(SE_RESTORE_NAME, parent, subkey,
                       [=](HKEY hKey) { return RegRestoreKeyA(hKey, file, flags); });
}
