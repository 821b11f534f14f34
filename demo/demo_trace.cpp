// The demo's trace section: it points HKCU\Software\Tamrix\PELVrk Profiler at
// a file of its own, writes a few lines through VrkTrace and shows the file.
// The values it changes are put back afterwards.
#include <afxwin.h>
#include <vrk_trace.h>
#include <stdio.h>

#include <vector>

#include "demo.h"

namespace {

const char kProfilerKey[] = "Software\\Tamrix\\PELVrk Profiler";
const char* const kValues[] = {"Flags", "FileName", "Filter", "Prefix", "Suffix"};

struct SavedValue {
  bool bPresent;
  DWORD dwType;
  std::vector<BYTE> data;
};

} // namespace

int DemoTrace() {
  HKEY hKey;
  if (RegCreateKeyExA(HKEY_CURRENT_USER, kProfilerKey, 0, NULL, 0, KEY_ALL_ACCESS, NULL, &hKey,
                      NULL) != ERROR_SUCCESS) {
    printf("  cannot open HKCU\\%s\n", kProfilerKey);
    return 1;
  }
  SavedValue saved[5];
  for (int i = 0; i < 5; i++) {
    DWORD nSize = 0;
    saved[i].bPresent =
        RegQueryValueExA(hKey, kValues[i], NULL, &saved[i].dwType, NULL, &nSize) == ERROR_SUCCESS;
    if (saved[i].bPresent) {
      saved[i].data.resize(nSize + 1);
      RegQueryValueExA(hKey, kValues[i], NULL, NULL, &saved[i].data[0], &nSize);
      saved[i].data.resize(nSize);
    }
  }

  CString strFile = CString(DemoFolder()) + "vrk_demo_trace.txt";
  DeleteFileA(strFile);
  DWORD dwFlags = VTRACE_ENABLED, dwFilter = 0xFFFFFFFF;
  RegSetValueExA(hKey, "Flags", 0, REG_DWORD, (const BYTE*)&dwFlags, 4);
  RegSetValueExA(hKey, "Filter", 0, REG_DWORD, (const BYTE*)&dwFilter, 4);
  RegSetValueExA(hKey, "FileName", 0, REG_SZ, (const BYTE*)(const char*)strFile,
                 strFile.GetLength() + 1);
  RegSetValueExA(hKey, "Prefix", 0, REG_SZ, (const BYTE*)"demo| ", 7);
  RegSetValueExA(hKey, "Suffix", 0, REG_SZ, (const BYTE*)" |", 3);
  printf("  HKCU\\%s: Flags 1, Filter 0xFFFFFFFF, FileName %s\n", kProfilerKey,
         (const char*)strFile);

  VrkTrace(1, "demo started, %d sections", 5);
  VrkTrace(2, "settings stored under %s", "Software\\Tamrix\\VRK Demo");
  {
    VTrace scope(4, "a scope of %d steps", 3);
    Sleep(20);
  }
  printf("  tracing is %s, flags %lu, filter 0x%08lX\n", VrkTraceIsEnabled() ? "on" : "off",
         (unsigned long)VrkTraceGetFlags(), (unsigned long)VrkTraceGetFilter());

  // Put the settings back as they were.
  for (int i = 0; i < 5; i++) {
    if (saved[i].bPresent)
      RegSetValueExA(hKey, kValues[i], 0, saved[i].dwType,
                     saved[i].data.empty() ? NULL : &saved[i].data[0], (DWORD)saved[i].data.size());
    else
      RegDeleteValueA(hKey, kValues[i]);
  }
  RegCloseKey(hKey);

  int nLines = 0;
  CStdioFile file;
  if (file.Open(strFile, CFile::modeRead | CFile::shareDenyNone | CFile::typeText)) {
    CString strLine;
    while (file.ReadString(strLine)) {
      printf("    | %s\n", (const char*)strLine);
      nLines++;
    }
  }
  printf("  %d line(s) in %s\n", nLines, (const char*)strFile);
  return nLines == 3 ? 0 : 1;
}
