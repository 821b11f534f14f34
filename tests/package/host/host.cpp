// Uses afx and VRK through their installed headers and import libraries:
// VRK.dll starts (with its resource module), a path is built, and a value
// goes through an INI archive and back.
#include <afxwin.h>
#include <vrk_path.h>
#include <vrk_profile.h>
#include <stdio.h>

int main() {
  char szTemp[MAX_PATH];
  GetTempPathA(MAX_PATH, szTemp);
  CString strIni = VrkPathAppend(szTemp, "vrk_package_host.ini");
  CString strValue = VrkPathAppend("C:\\Host", "settings.ini");
  {
    VIniArchive ar;
    if (!ar.Open("Host", strIni, VRK_PROFILE_CREATE) || !ar.Write("Path", strValue)) return 2;
  }
  VIniArchive ar;
  CString strRead;
  if (!ar.Open("Host", strIni, 0) || !ar.Read("Path", strRead, "")) return 3;
  ar.Close();
  DeleteFileA(strIni);
  printf("%s\n", (LPCTSTR)strRead);
  return strRead == "C:\\Host\\settings.ini" ? 0 : 4;
}
