// The file dialog that remembers its folder in the application's profile,
// across two runs of a host, and the shell's folder browser: each shown by
// the system and answered through its real controls.
#include <afxwin.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "dlg_driver.h"
#include "scratch_registry.h"
#include "temp_dir.h"
#include "vrk_dialogs.h"

namespace {

const char kApp[] = "VrkDialogsTest";
const char kProfileKey[] = "Software\\Tamrix\\VrkDialogsTest\\Files";

class FileDialogTest : public ::testing::Test {
protected:
  void SetUp() override {
    ::GetCurrentDirectoryA(MAX_PATH, m_szCurrent);
    ::CreateDirectoryA(m_dir.File("start").c_str(), NULL);
    ::CreateDirectoryA(m_dir.File("reports").c_str(), NULL);
  }
  void TearDown() override { ::SetCurrentDirectoryA(m_szCurrent); }

  // One run of a host: an application with its profile in the registry
  // shows the dialog, starting in the folder "start"; returns the folder the
  // dialog showed.
  std::string RunHost(const std::string& typed, INT_PTR* pResult) {
    CWinApp app(kApp);
    app.SetRegistryKey("Tamrix");
    ::SetCurrentDirectoryA(m_dir.File("start").c_str());
    tagVFileOpenStruct request = {FALSE,          "txt", NULL,    OFN_HIDEREADONLY,
                                  "Text|*.txt||", NULL,  "Files", "LastDir"};
    VFileDialog dlg(&request);
    std::string shown;
    DialogDriver driver;
    driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      char sz[MAX_PATH] = "";
      ::SendMessageA(hDlg, CDM_GETFOLDERPATH, MAX_PATH, (LPARAM)sz);
      shown = sz;
      if (typed.empty()) return DialogDriver::Click(hDlg, IDCANCEL);
      HWND hName = ::GetDlgItem(hDlg, cmb13);
      if (hName == NULL) hName = ::GetDlgItem(hDlg, edt1);
      ::SetWindowTextA(hName, typed.c_str());
      DialogDriver::Click(hDlg, IDOK);
    }));
    *pResult = dlg.DoModal();
    return shown;
  }

  std::string Stored() {
    std::string value;
    ScratchRegistry::ReadString(kProfileKey, "LastDir", &value);
    return value;
  }

  ScratchRegistry m_registry;
  TempDir m_dir;
  char m_szCurrent[MAX_PATH];
};

TEST_F(FileDialogTest, NextRunOpensInTheLastFolder) {
  INT_PTR nResult = 0;
  EXPECT_EQ(m_dir.File("start"), RunHost(m_dir.File("reports\\june"), &nResult));
  EXPECT_EQ(IDOK, nResult);
  EXPECT_EQ(m_dir.File("reports"), Stored());
  // The next run starts in "start" again, but the dialog opens in "reports".
  EXPECT_EQ(m_dir.File("reports"), RunHost("", &nResult));
  EXPECT_EQ(IDCANCEL, nResult);
  EXPECT_EQ(m_dir.File("reports"), Stored()); // a cancel writes nothing
}

TEST_F(FileDialogTest, VanishedFolderLeavesTheCurrentOne) {
  ScratchRegistry::WriteString(kProfileKey, "LastDir", m_dir.File("gone"));
  INT_PTR nResult = 0;
  EXPECT_EQ(m_dir.File("start"), RunHost("", &nResult));
  EXPECT_EQ(IDCANCEL, nResult);
  EXPECT_EQ(m_dir.File("gone"), Stored());
}

// ---- The folder browser ------------------------------------------------------------

// Finds a static text of the browser by its text.
bool HasText(HWND hDlg, const char* pszText) {
  for (HWND h = ::GetWindow(hDlg, GW_CHILD); h != NULL; h = ::GetWindow(h, GW_HWNDNEXT))
    if (DialogDriver::Text(h) == pszText) return true;
  return false;
}

TEST(FolderDialog, OpensAtTheCurrentOrGivenFolder) {
  TempDir dir;
  ::CreateDirectoryA(dir.File("sub").c_str(), NULL);
  char szCurrent[MAX_PATH];
  ::GetCurrentDirectoryA(MAX_PATH, szCurrent);
  ::SetCurrentDirectoryA(dir.Path().c_str());
  struct Case {
    const char* initial;
    int nTitle;
    int button;
    int result;
    std::string selected, display;
    const char* title;
  } cases[] = {
      {NULL, 0, IDOK, 1, dir.Path(), dir.Path().substr(dir.Path().rfind('\\') + 1),
       "Select a folder"},
      {"sub", 5004, IDOK, 1, dir.File("sub"), "sub", "The file could not be opened"},
      {NULL, 0, IDCANCEL, 0, "", "", "Select a folder"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.result);
    VFolderDialog dlg(NULL, c.nTitle);
    if (c.initial != NULL) dlg.SetSelectedFolder(dir.File(c.initial).c_str());
    bool titled = false;
    DialogDriver driver;
    driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      titled = HasText(hDlg, c.title);
      DialogDriver::Click(hDlg, c.button);
    }));
    EXPECT_EQ(c.result, dlg.DoModal());
    EXPECT_TRUE(titled);
    EXPECT_EQ(c.selected, dlg.GetSelectedFolder());
    // The shell's display name: the folder's name (Wine gives the path).
    std::string display = dlg.GetDisplayFolder();
    EXPECT_EQ(c.display,
              display.substr(display.size() - std::min(display.size(), c.display.size())));
  }
  ::SetCurrentDirectoryA(szCurrent);
}

} // namespace
