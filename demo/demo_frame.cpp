// The demo's start-up section: the module data VRK.dll gathered before its
// entry point ran, and which language resource module it chose, and why.
#include <afxwin.h>
#include <vrk_exception.h>
#include <vrk_frame.h>
#include <vrk_profile.h>
#include <stdio.h>

#include "demo.h"

namespace {

CString ModulePath(HMODULE hModule) {
  char szPath[MAX_PATH] = "";
  if (hModule != NULL) GetModuleFileNameA(hModule, szPath, MAX_PATH);
  return szPath;
}

} // namespace

int DemoModuleData() {
  printf("executable        %s\n", VrkPrivGetFullExePathName());
  printf("folder            %s\n", VrkPrivGetExePath());
  printf("name              %s\n", VrkPrivGetExeName());
  printf("user LCID         %lu\n", (unsigned long)VrkPrivGetLocalLangID());
  printf("acronyms          English %s, local %s\n", VrkPrivGetEnglishAcronym(),
         VrkPrivGetLocaleAcronym(TRUE));
  tagVersionWord major = VrkPrivGetProductMajorVersion();
  tagVersionWord minor = VrkPrivGetProductMinorVersion();
  printf("version words     (%ld, %ld) (%ld, %ld)  [file version %ld.%ld.%ld.%ld]\n", major.high,
         major.low, minor.high, minor.low, major.high, major.low, minor.high, minor.low);

  // The same settings the entry point read, read-only.
  VRegArchive settings;
  int nUseSystem = 1;
  CString strLanguage("ENU");
  BOOL bOpen = settings.Open("Settings", "Software\\Tamrix\\PEL", VRK_PROFILE_READONLY);
  if (bOpen) {
    settings.Read("UseSystem", nUseSystem, 1);
    if (nUseSystem == 0) settings.Read("Language", strLanguage, "ENU");
    settings.Close();
  }
  printf("settings          HKCU\\Software\\Tamrix\\PEL\\Settings: UseSystem %d", nUseSystem);
  if (nUseSystem == 0) printf(", Language %s", (const char*)strLanguage);
  printf("\n");

  CString strEnglish = CString("vrk_") + VrkPrivGetEnglishAcronym();
  HMODULE hEnglish = GetModuleHandleA(strEnglish);
  if (nUseSystem != 0) {
    printf("resource module   %s: UseSystem is on, so the English module\n",
           (const char*)ModulePath(hEnglish));
  } else {
    HMODULE hChosen = GetModuleHandleA(CString("vrk_") + strLanguage);
    if (hChosen != NULL)
      printf("resource module   %s: the configured language %s\n", (const char*)ModulePath(hChosen),
             (const char*)strLanguage);
    else
      printf("resource module   %s: vrk_%s was not found, so English\n",
             (const char*)ModulePath(hEnglish), (const char*)strLanguage);
  }
  printf("a library text    \"%s\"\n", (const char*)VTempStr(5013, 42ul));
  printf("(UseSystem 0 with Language DEU in that key chooses vrk_DEU.dll when it is\n"
         " on the search path or beside the application's resource module)\n");
  return major.high == 2 && major.low == 5 && minor.high == 0 && minor.low == 17 ? 0 : 1;
}
