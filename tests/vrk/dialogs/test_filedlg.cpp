// The file dialog keeping its folder in the profile, and the folder browser, answered
// through their real controls.
#include <afxwin.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "user_input.h"
#include "scratch_registry.h"
#include "temp_dir.h"
#include "vrk_dialogs.h"

using namespace user_input;

namespace {

const char kProfileKey[] = "Software\\Tamrix\\VrkDialogsTest\\Files";

// One run of a host, started in the folder "start": the dialog (keeping its
// folder in the profile or not) gets the name typed (none: Cancel); returns
// the folder it showed.
std::string RunHost(const TempDir& dir, const std::string& typed, bool bProfile = true) {
  CWinApp app("VrkDialogsTest");
  app.SetRegistryKey("Tamrix");
  char szCurrent[MAX_PATH];
  ::GetCurrentDirectoryA(MAX_PATH, szCurrent);
  ::CreateDirectoryA(dir.File("start").c_str(), NULL);
  ::SetCurrentDirectoryA(dir.File("start").c_str());
  tagVFileOpenStruct request = {FALSE,          "txt", NULL,    OFN_HIDEREADONLY,
                                "Text|*.txt||", NULL,  "Files", "LastDir"};
  if (!bProfile) request.pszProfileSection = NULL;
  VFileDialog dlg(&request);
  std::string shown;
  DialogDriver driver;
  driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
    char sz[MAX_PATH] = "";
    ::SendMessageA(hDlg, CDM_GETFOLDERPATH, MAX_PATH, (LPARAM)sz);
    shown = sz;
    ::SetDlgItemTextA(hDlg, ::GetDlgItem(hDlg, cmb13) ? cmb13 : edt1, typed.c_str());
    ClickItem(hDlg, typed.empty() ? IDCANCEL : IDOK);
  }));
  EXPECT_EQ(typed.empty() ? IDCANCEL : IDOK, dlg.DoModal());
  ::SetCurrentDirectoryA(szCurrent);
  return shown;
}

std::string Stored() {
  std::string value = "<none>";
  ScratchRegistry::ReadString(kProfileKey, "LastDir", &value);
  return value;
}

TEST(FileDialog, NextRunOpensInTheLastFolder) {
  ScratchRegistry registry;
  TempDir dir;
  ::CreateDirectoryA(dir.File("reports").c_str(), NULL);
  ::CreateDirectoryA(dir.File("other").c_str(), NULL);
  RunHost(dir, dir.File("reports\\june")); // opens where the system likes
  EXPECT_EQ(dir.File("reports"), Stored());
  // A dialog that keeps no folder leaves the profile alone.
  RunHost(dir, dir.File("other\\july"), false);
  EXPECT_EQ(dir.File("reports"), Stored());
  // The next run starts in "start" again, but the dialog opens in "reports".
  EXPECT_EQ(dir.File("reports"), RunHost(dir, ""));
  EXPECT_EQ(dir.File("reports"), Stored()); // a cancel writes nothing
  // A folder that is gone is not offered; nothing fails.
  ScratchRegistry::WriteString(kProfileKey, "LastDir", dir.File("gone"));
  EXPECT_NE(dir.File("gone"), RunHost(dir, ""));
  EXPECT_EQ(dir.File("gone"), Stored());
}

TEST(FolderDialog, OpensAtTheCurrentOrGivenFolder) {
  TempDir dir;
  ::CreateDirectoryA(dir.File("sub").c_str(), NULL);
  char szCurrent[MAX_PATH];
  ::GetCurrentDirectoryA(MAX_PATH, szCurrent);
  ::SetCurrentDirectoryA(dir.Path().c_str());
  // clang-format off
  struct Case { const char* initial; int nTitle, button; std::string selected, title; } cases[] = {
      {NULL, 0, IDOK, dir.Path(), "Select a folder"}, {NULL, 0, IDCANCEL, "", "Select a folder"},
      {"sub", 5004, IDOK, dir.File("sub"), "The file could not be opened"}};
  // clang-format on
  for (const Case& c : cases) {
    SCOPED_TRACE(c.title);
    VFolderDialog dlg(NULL, c.nTitle);
    if (c.initial != NULL) dlg.SetSelectedFolder(dir.File(c.initial).c_str());
    DialogDriver driver;
    driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      EXPECT_TRUE(::FindWindowExA(hDlg, NULL, "Static", c.title.c_str()) != NULL);
      ClickItem(hDlg, c.button);
    }));
    EXPECT_EQ(c.button == IDOK ? 1 : 0, dlg.DoModal());
    EXPECT_EQ(c.selected, dlg.GetSelectedFolder());
    // The shell's display name ends with the folder's name.
    std::string display = dlg.GetDisplayFolder();
    std::string name = c.selected.substr(c.selected.rfind('\\') + 1);
    EXPECT_EQ(name, display.substr(display.size() - std::min(display.size(), name.size())));
  }
  ::SetCurrentDirectoryA(szCurrent);
}

} // namespace
