// The demo's settings section: the same values saved and loaded through the
// archive interface, once in the registry (VRegArchive) and once in an INI
// file (VIniArchive).
#include <afxwin.h>
#include <vrk_profile.h>
#include <stdio.h>

#include "demo.h"

namespace {

struct WindowSettings {
  DWORD dwLeft;
  DWORD dwTop;
  CString strTitle;
  BYTE layout[6];
};

// Written against the base class: either store serves.
void Save(VProfileArchive& ar, WindowSettings& settings) {
  ar.Write("Left", settings.dwLeft);
  ar.Write("Top", settings.dwTop);
  ar.Write("Title", settings.strTitle);
  ar.Write("Layout", settings.layout, sizeof(settings.layout));
}

void Load(VProfileArchive& ar, WindowSettings& settings) {
  ar.Read("Left", settings.dwLeft, 0);
  ar.Read("Top", settings.dwTop, 0);
  ar.Read("Title", settings.strTitle, "(none)");
  memset(settings.layout, 0, sizeof(settings.layout));
  ar.Read("Layout", settings.layout, sizeof(settings.layout));
}

bool Same(const WindowSettings& a, const WindowSettings& b) {
  return a.dwLeft == b.dwLeft && a.dwTop == b.dwTop && a.strTitle == b.strTitle &&
         memcmp(a.layout, b.layout, sizeof(a.layout)) == 0;
}

void Print(const char* pszWhere, const WindowSettings& s) {
  printf("  %-9s Left %lu, Top %lu, Title \"%s\", Layout %02X %02X %02X %02X %02X %02X\n", pszWhere,
         (unsigned long)s.dwLeft, (unsigned long)s.dwTop, (const char*)s.strTitle, s.layout[0],
         s.layout[1], s.layout[2], s.layout[3], s.layout[4], s.layout[5]);
}

} // namespace

int DemoSettings() {
  WindowSettings saved = {120, 64, "VRK demo window", {1, 2, 3, 0xA0, 0xB0, 0xC0}};
  Print("saved", saved);
  int nFailed = 0;

  VRegArchive reg;
  if (!reg.Open("Window", "Software\\Tamrix\\VRK Demo", 0)) {
    printf("  cannot open HKCU\\Software\\Tamrix\\VRK Demo\\Window\n");
    return 1;
  }
  Save(reg, saved);
  reg.Close();
  WindowSettings fromReg;
  reg.Open("Window", "Software\\Tamrix\\VRK Demo", VRK_PROFILE_READONLY);
  Load(reg, fromReg);
  reg.Close();
  Print("registry", fromReg);
  printf("            (HKCU\\Software\\Tamrix\\VRK Demo\\Window) %s\n",
         Same(saved, fromReg) ? "same" : "DIFFERENT");
  nFailed += !Same(saved, fromReg);

  CString strIni = CString(DemoFolder()) + "vrk_demo.ini";
  VIniArchive ini;
  if (!ini.Open("Window", strIni, VRK_PROFILE_CREATE)) {
    printf("  cannot create %s\n", (const char*)strIni);
    return 1;
  }
  Save(ini, saved);
  ini.Close();
  WindowSettings fromIni;
  ini.Open("Window", strIni, 0);
  Load(ini, fromIni);
  ini.Close();
  Print("INI file", fromIni);
  printf("            (%s) %s\n", (const char*)strIni, Same(saved, fromIni) ? "same" : "DIFFERENT");
  nFailed += !Same(saved, fromIni);

  // The file as the system wrote it.
  CStdioFile file;
  if (file.Open(strIni, CFile::modeRead | CFile::typeText)) {
    CString strLine;
    while (file.ReadString(strLine))
      printf("    | %s\n", (const char*)strLine);
  }
  return nFailed;
}
