// Helpers of the settings tests: archives over memory files and their bytes.
#ifndef VRK_TESTS_SETTINGS_TESTING_H
#define VRK_TESTS_SETTINGS_TESTING_H

#include <afx.h>

#include "exception_probe.h"

#include <string>

// The bytes a storing archive wrote, as one string.
template <class Fn> std::string Stored(Fn write) {
  CMemFile file;
  {
    CArchive ar(&file, CArchive::store);
    write(ar);
    ar.Close();
  }
  std::string bytes((size_t)file.GetLength(), '\0');
  file.SeekToBegin();
  if (!bytes.empty()) file.Read(&bytes[0], (UINT)bytes.size());
  return bytes;
}

// A loading archive over a copy of the given bytes.
class LoadingArchive {
public:
  explicit LoadingArchive(const std::string& bytes) : m_bytes(bytes), m_ar(NULL) {
    m_file.Write(m_bytes.data(), (UINT)m_bytes.size());
    m_file.SeekToBegin();
    m_ar = new CArchive(&m_file, CArchive::load);
  }
  ~LoadingArchive() { delete m_ar; }
  CArchive& operator*() { return *m_ar; }

private:
  std::string m_bytes;
  CMemFile m_file;
  CArchive* m_ar;
  LoadingArchive(const LoadingArchive&);
  void operator=(const LoadingArchive&);
};

#endif
