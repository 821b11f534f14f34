// Helpers of the settings tests: archives over memory files and their bytes.
#ifndef VRK_TESTS_SETTINGS_TESTING_H
#define VRK_TESTS_SETTINGS_TESTING_H

#include <afx.h>

#include "archive_bytes.h"
#include "exception_probe.h"

#include <string>

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
