// VRegArchive: a profile archive on a key under HKEY_CURRENT_USER.
#include "vrk_profile.h"

#include <map>
#include <string.h>

// Copies of an archive share its key handle. Each copy holds one share of
// it, and the handle is closed when the last share is given back: a copy
// that closes or reopens never closes a key another copy still writes to
// (a closed handle may be reused at once by the next key opened, and the
// other copy's writes would then land in that key). The count is
// process-wide and locked, since copies may live on different threads.
namespace {

CRITICAL_SECTION* ShareLock() {
  static CRITICAL_SECTION cs;
  static const bool bReady = (InitializeCriticalSection(&cs), true);
  (void)bReady;
  return &cs;
}

// Never destroyed: an archive in a host's static data may close after
// this module's statics are gone.
std::map<HKEY, int>& Shares() {
  static std::map<HKEY, int>* pShares = new std::map<HKEY, int>;
  return *pShares;
}

void AddShare(HKEY hKey) {
  if (hKey == NULL) return;
  EnterCriticalSection(ShareLock());
  Shares()[hKey]++;
  LeaveCriticalSection(ShareLock());
}

// Gives one share back; closes the key with the last one. The result is
// the close's when this was the last share, else ERROR_SUCCESS.
LONG ReleaseShare(HKEY hKey) {
  EnterCriticalSection(ShareLock());
  std::map<HKEY, int>::iterator it = Shares().find(hKey);
  const bool bLast = it == Shares().end() || --it->second == 0;
  if (bLast && it != Shares().end()) Shares().erase(it);
  // Closed under the lock, so that no other thread's Open can be handed
  // the same value before the count is gone.
  const LONG rc = bLast ? RegCloseKey(hKey) : ERROR_SUCCESS;
  LeaveCriticalSection(ShareLock());
  return rc;
}

} // namespace

VRegArchive::VRegArchive() : m_hKey(NULL) {}

VRegArchive::VRegArchive(const VRegArchive& other) : VProfileArchive(), m_hKey(other.m_hKey) {
  AddShare(m_hKey);
}

VRegArchive& VRegArchive::operator=(const VRegArchive& other) {
  AddShare(other.m_hKey); // first, so that self-assignment keeps the key
  if (m_hKey != NULL) ReleaseShare(m_hKey);
  m_hKey = other.m_hKey;
  return *this;
}

VRegArchive::~VRegArchive() {
  if (m_hKey != NULL) ReleaseShare(m_hKey);
}

int VRegArchive::Open(const char* section, const char* root, DWORD flags) {
  Close(); // reopening must not leak a key; a failed Open leaves it closed
  CString path = VrkRegMakeKey(section, root, flags);
  if (path.IsEmpty()) return 0;
  DWORD access = (flags & VRK_PROFILE_READONLY) ? KEY_READ : KEY_ALL_ACCESS;
  HKEY hKey = NULL;
  if (!VrkRegCreateKeyEx(HKEY_CURRENT_USER, path, &hKey, access)) return 0;
  m_hKey = hKey;
  AddShare(m_hKey);
  return 1;
}

int VRegArchive::Open(VREGOPENSTANDARDS which) {
  // "Environment\" or "\": the key path of an empty section under the root.
  return Open("", which == VREG_OPEN_ENVIRONMENT ? "Environment" : "", 0);
}

int VRegArchive::Open(HKEY parent, const char* subkey, DWORD flags) {
  Close();
  HKEY hKey = NULL;
  int ok;
  if (flags & VRK_PROFILE_CREATE)
    ok = VrkRegCreateKeyEx(parent, subkey, &hKey, KEY_ALL_ACCESS);
  else
    ok = RegOpenKeyExA(parent, subkey, 0, KEY_ALL_ACCESS, &hKey) == ERROR_SUCCESS;
  if (!ok) return 0;
  m_hKey = hKey;
  AddShare(m_hKey);
  return 1;
}

int VRegArchive::Read(const char* name, void* buffer, DWORD size) {
  if (m_hKey == NULL || buffer == NULL) return 0;
  DWORD cb = size;
  return RegQueryValueExA(m_hKey, name, NULL, NULL, (BYTE*)buffer, &cb) == ERROR_SUCCESS;
}

int VRegArchive::Read(const char* name, CString& value, const char* defaultValue) {
  if (m_hKey == NULL) {
    value = defaultValue != NULL ? defaultValue : "";
    return 0;
  }
  value = VrkRegQueryString(m_hKey, name, defaultValue);
  return 1;
}

// The stored type is not checked. The query goes through a copy of the
// default because the system leaves the buffer undefined when it fails
// (a value longer than 4 bytes), and the default must then survive.
int VRegArchive::Read(const char* name, DWORD& value, DWORD defaultValue) {
  value = defaultValue;
  if (m_hKey == NULL) return 0;
  DWORD data = defaultValue, cb = sizeof(data);
  if (RegQueryValueExA(m_hKey, name, NULL, NULL, (BYTE*)&data, &cb) == ERROR_SUCCESS) value = data;
  return 1;
}

int VRegArchive::Read(const char* name, int& value, int defaultValue) {
  DWORD data;
  int ok = Read(name, data, (DWORD)defaultValue);
  value = (int)data;
  return ok;
}

int VRegArchive::Write(const char* name, void* buffer, DWORD size) {
  if (m_hKey == NULL || buffer == NULL) return 0;
  // Success whatever the system said, unlike the integer write.
  RegSetValueExA(m_hKey, name, 0, REG_BINARY, (const BYTE*)buffer, size);
  return 1;
}

int VRegArchive::Write(const char* name, const char* value) {
  if (m_hKey == NULL || value == NULL) return 0;
  // Success whatever the system said, unlike the integer write.
  RegSetValueExA(m_hKey, name, 0, REG_SZ, (const BYTE*)value, (DWORD)strlen(value) + 1);
  return 1;
}

int VRegArchive::Write(const char* name, DWORD value) {
  if (m_hKey == NULL) return 0;
  return RegSetValueExA(m_hKey, name, 0, REG_DWORD, (const BYTE*)&value, sizeof(value)) ==
         ERROR_SUCCESS;
}

int VRegArchive::Close() {
  if (m_hKey == NULL) return 0;
  // Only this archive's share: copies keep the key open.
  LONG rc = ReleaseShare(m_hKey);
  m_hKey = NULL;
  return rc == ERROR_SUCCESS;
}
