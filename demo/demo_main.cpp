// The VRK demo: a console host that loads VRK.dll and shows, as text, what
// the library does at start-up and with settings, recent lists and traces.
#include <windows.h>
#include <stdio.h>

#include "demo.h"

const char* DemoFolder() {
  static char s_szFolder[MAX_PATH] = "";
  if (s_szFolder[0] == '\0' && GetTempPathA(MAX_PATH, s_szFolder) == 0) lstrcpyA(s_szFolder, ".\\");
  return s_szFolder;
}

int main() {
  struct Section {
    const char* pszTitle;
    int (*pfnRun)();
  } sections[] = {
      {"Contacts through CArchive", DemoContacts},
      {"Module data and resource module", DemoModuleData},
      {"Settings round trip", DemoSettings},
      {"Recent list across runs", DemoRecentList},
      {"Trace file", DemoTrace},
  };
  int nFailed = 0;
  for (const Section& section : sections) {
    printf("== %s ==\n", section.pszTitle);
    if (section.pfnRun() != 0) {
      printf("-- FAILED\n");
      nFailed++;
    }
    printf("\n");
  }
  printf(nFailed == 0 ? "demo: OK\n" : "demo: %d section(s) FAILED\n", nFailed);
  return nFailed == 0 ? 0 : 1;
}
