#include "scratch_registry.h"

const char ScratchRegistry::kRoot[] = "Software\\Tamrix";

static HKEY Open(const std::string& path, REGSAM access = KEY_READ) {
  HKEY hKey = NULL;
  if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, access, &hKey) != ERROR_SUCCESS)
    return NULL;
  return hKey;
}

// The names of a key's subkeys or values.
static std::vector<std::string> Names(HKEY hKey, bool subkeys) {
  std::vector<std::string> names;
  for (DWORD i = 0;; i++) {
    char name[16384];
    DWORD cch = sizeof(name);
    LONG r = subkeys ? RegEnumKeyExA(hKey, i, name, &cch, NULL, NULL, NULL, NULL)
                     : RegEnumValueA(hKey, i, name, &cch, NULL, NULL, NULL, NULL);
    if (r != ERROR_SUCCESS) break;
    names.push_back(std::string(name, cch));
  }
  return names;
}

static bool QueryValue(HKEY hKey, const std::string& name, DWORD* type, std::vector<BYTE>* data) {
  DWORD cb = 0;
  if (RegQueryValueExA(hKey, name.c_str(), NULL, type, NULL, &cb) != ERROR_SUCCESS) return false;
  data->resize(cb);
  if (RegQueryValueExA(hKey, name.c_str(), NULL, type, data->empty() ? NULL : data->data(), &cb) !=
      ERROR_SUCCESS)
    return false;
  data->resize(cb);
  return true;
}

void ScratchRegistry::Take(const std::string& path) {
  HKEY hKey = Open(path);
  if (hKey == NULL) return;
  Values& values = m_before[path];
  for (const std::string& name : Names(hKey, false)) {
    Value v;
    if (QueryValue(hKey, name, &v.type, &v.data)) values[name] = v;
  }
  std::vector<std::string> subkeys = Names(hKey, true);
  RegCloseKey(hKey);
  for (const std::string& sub : subkeys)
    Take(path + "\\" + sub);
}

ScratchRegistry::ScratchRegistry() { Take(kRoot); }

// The whole root goes and the snapshot is written back: added keys and
// values vanish, changed and removed ones return as they were.
ScratchRegistry::~ScratchRegistry() {
  DeleteTree(kRoot);
  for (const auto& key : m_before) {
    HKEY hKey = NULL;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, key.first.c_str(), 0, NULL, 0, KEY_WRITE, NULL, &hKey,
                        NULL) != ERROR_SUCCESS)
      continue;
    for (const auto& value : key.second)
      RegSetValueExA(hKey, value.first.c_str(), 0, value.second.type, value.second.data.data(),
                     (DWORD)value.second.data.size());
    RegCloseKey(hKey);
  }
}

bool ScratchRegistry::KeyExists(const std::string& path) {
  HKEY hKey = Open(path);
  if (hKey == NULL) return false;
  RegCloseKey(hKey);
  return true;
}

// The value's type (REG_NONE when it is missing) and its data.
static DWORD Read(const std::string& path, const std::string& name, std::vector<BYTE>* data) {
  HKEY hKey = Open(path);
  DWORD type = REG_NONE;
  if (hKey != NULL && !QueryValue(hKey, name, &type, data)) type = REG_NONE;
  if (hKey != NULL) RegCloseKey(hKey);
  return type;
}

DWORD ScratchRegistry::ValueType(const std::string& path, const std::string& name) {
  std::vector<BYTE> data;
  return Read(path, name, &data);
}

bool ScratchRegistry::ReadString(const std::string& path, const std::string& name,
                                 std::string* value) {
  std::vector<BYTE> data;
  if (Read(path, name, &data) != REG_SZ) return false;
  value->assign(data.begin(), data.end());
  while (!value->empty() && value->back() == '\0')
    value->pop_back();
  return true;
}

bool ScratchRegistry::ReadDword(const std::string& path, const std::string& name, DWORD* value) {
  std::vector<BYTE> data;
  if (Read(path, name, &data) != REG_DWORD || data.size() != sizeof(DWORD)) return false;
  memcpy(value, data.data(), sizeof(DWORD));
  return true;
}

bool ScratchRegistry::ReadBinary(const std::string& path, const std::string& name,
                                 std::vector<BYTE>* value) {
  return Read(path, name, value) == REG_BINARY;
}

static bool Write(const std::string& path, const std::string& name, DWORD type, const void* data,
                  DWORD cb) {
  HKEY hKey = NULL;
  if (RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, NULL, 0, KEY_WRITE, NULL, &hKey, NULL) !=
      ERROR_SUCCESS)
    return false;
  bool ok = RegSetValueExA(hKey, name.c_str(), 0, type, (const BYTE*)data, cb) == ERROR_SUCCESS;
  RegCloseKey(hKey);
  return ok;
}

bool ScratchRegistry::WriteString(const std::string& path, const std::string& name,
                                  const std::string& value) {
  return Write(path, name, REG_SZ, value.c_str(), (DWORD)value.size() + 1);
}

bool ScratchRegistry::WriteDword(const std::string& path, const std::string& name, DWORD value) {
  return Write(path, name, REG_DWORD, &value, sizeof(value));
}

bool ScratchRegistry::WriteBinary(const std::string& path, const std::string& name,
                                  const std::vector<BYTE>& value) {
  return Write(path, name, REG_BINARY, value.data(), (DWORD)value.size());
}

bool ScratchRegistry::DeleteTree(const std::string& path) {
  HKEY hKey = Open(path, KEY_READ | KEY_WRITE);
  if (hKey == NULL) return !KeyExists(path);
  std::vector<std::string> subkeys = Names(hKey, true);
  RegCloseKey(hKey);
  for (const std::string& sub : subkeys)
    DeleteTree(path + "\\" + sub);
  return RegDeleteKeyA(HKEY_CURRENT_USER, path.c_str()) == ERROR_SUCCESS;
}
