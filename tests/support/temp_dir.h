// A temporary folder for one test, removed with everything in it afterwards.
#ifndef VRK_TESTS_TEMP_DIR_H
#define VRK_TESTS_TEMP_DIR_H

#include <windows.h>

#include <string>

class TempDir {
public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  // The folder, a full path without a trailing backslash.
  const std::string& Path() const { return m_path; }
  // Path() + "\" + name.
  std::string File(const std::string& name) const;

  // Test conveniences: write or read a whole file as bytes.
  static bool WriteBytes(const std::string& path, const std::string& bytes);
  static std::string ReadBytes(const std::string& path);

private:
  std::string m_path;
};

#endif
