// The coverage log of the test harness: the distinct trace formats reached
// during a run, written to a file in the coverage directory at the end.
#include "vrk_trace.h"

#include "vrk_profile.h"

#include <stdio.h>

#include <new>

namespace {
const char kHarnessKey[] = "Software\\Tamrix\\PELVTstHrns";
} // namespace

VTraceLogger::VTraceLogger() : m_nSwitchState(0) {}

VTraceLogger::~VTraceLogger() { FlushLog(); }

VTraceLogger& VTraceLogger::GetGlobalLogger() {
  // Made on first use, destroyed (and so flushed) at process exit.
  static VTraceLogger s_logger;
  return s_logger;
}

BOOL VTraceLogger::ReadCoverageSwitch() {
  CSingleLock lock(&m_lock, TRUE);
  if (m_nSwitchState == 0) {
    m_nSwitchState = -1;
    HKEY hKey = NULL;
    if (RegOpenKeyA(HKEY_CURRENT_USER, kHarnessKey, &hKey) == ERROR_SUCCESS) {
      // The key is closed before anything can throw out of the read.
      CString strDirectory;
      try {
        strDirectory = VrkRegQueryString(hKey, "CoverageDirectory", NULL);
      } catch (CException*) {
        RegCloseKey(hKey);
        throw;
      }
      RegCloseKey(hKey);
      m_strDirectory = strDirectory;
    }
    if (!m_strDirectory.IsEmpty()) m_nSwitchState = 1;
  }
  return m_nSwitchState == 1;
}

void VTraceLogger::AddFormat(const char* pszFormat) {
  if (pszFormat == NULL) return;
  CSingleLock lock(&m_lock, TRUE);
  try {
    // try_emplace leaves an entry already present as it is.
    m_log.try_emplace(static_cast<const void*>(pszFormat), pszFormat);
  } catch (std::bad_alloc&) {
    AfxThrowMemoryException();
  }
}

void VTraceLogger::FlushLog() {
  CSingleLock lock(&m_lock, TRUE);
  if (!m_log.empty() && !m_strDirectory.IsEmpty()) {
    // GetTempFileNameA refuses a directory too long for a path, so the name
    // buffer cannot overrun; then nothing is written.
    char szFile[MAX_PATH];
    if (GetTempFileNameA(m_strDirectory, "vthx", 0, szFile) != 0) {
      FILE* pFile = fopen(szFile, "wt");
      if (pFile != NULL) {
        for (const auto& entry : m_log) {
          fputs(entry.second, pFile);
          fputc('\n', pFile);
        }
        fclose(pFile);
      }
    }
  }
  m_log.clear();
}
