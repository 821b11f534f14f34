// Keeps tests from leaving traces under HKCU\Software\Tamrix: snapshots the
// keys and values there and, when destroyed, deletes what was added and puts
// back what was changed or removed.
#ifndef VRK_TESTS_SCRATCH_REGISTRY_H
#define VRK_TESTS_SCRATCH_REGISTRY_H

#include <windows.h>

#include <map>
#include <string>
#include <vector>

class ScratchRegistry {
public:
  // The guarded root, relative to HKEY_CURRENT_USER.
  static const char kRoot[];

  ScratchRegistry();
  ~ScratchRegistry();
  ScratchRegistry(const ScratchRegistry&) = delete;
  ScratchRegistry& operator=(const ScratchRegistry&) = delete;

  // Helpers for assertions; paths are relative to HKEY_CURRENT_USER.
  static bool KeyExists(const std::string& path);
  // The value's type, or REG_NONE when it is missing.
  static DWORD ValueType(const std::string& path, const std::string& name);
  static bool ValueExists(const std::string& path, const std::string& name) {
    return ValueType(path, name) != REG_NONE;
  }
  static bool ReadString(const std::string& path, const std::string& name, std::string* value);
  static bool ReadDword(const std::string& path, const std::string& name, DWORD* value);
  static bool ReadBinary(const std::string& path, const std::string& name,
                         std::vector<BYTE>* value);
  static bool WriteString(const std::string& path, const std::string& name,
                          const std::string& value);
  static bool WriteDword(const std::string& path, const std::string& name, DWORD value);
  static bool WriteBinary(const std::string& path, const std::string& name,
                          const std::vector<BYTE>& value);
  // Deletes a key with everything below it.
  static bool DeleteTree(const std::string& path);

private:
  struct Value {
    DWORD type;
    std::vector<BYTE> data;
  };
  typedef std::map<std::string, Value> Values; // by value name

  void Take(const std::string& path);

  std::map<std::string, Values> m_before; // by key path
};

#endif
