// CFileDialog: the filter's bars turned into '\0' in m_ofn, the hook-based
// virtuals seeing the shown dialog, the chosen path's parts, and the
// multiple-selection list walked safely. (The file dialogs' own suite types
// names into the shown dialog.)
#include <afxdlgs.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "user_input.h"
#include "temp_dir.h"

namespace {

// The filter as the system sees it, up to the double '\0'.
TEST(FileDialog, FilterAndInitialNameInTheStructure) {
  CFileDialog dlg(TRUE, NULL, NULL, 0, "Text (*.txt)|*.txt|All files (*.*)|*.*||");
  EXPECT_EQ(std::string("Text (*.txt)\0*.txt\0All files (*.*)\0*.*\0\0", 40),
            std::string(dlg.m_ofn.lpstrFilter, 40));
  // Without the closing bars the list still ends with two '\0's.
  CFileDialog open(TRUE, NULL, NULL, 0, "Bitmaps|*.bmp");
  EXPECT_EQ(std::string("Bitmaps\0*.bmp\0\0", 15), std::string(open.m_ofn.lpstrFilter, 15));
  // An initial name longer than the buffer is cut to fit.
  std::string name(1000, 'n');
  CFileDialog longName(TRUE, NULL, name.c_str());
  EXPECT_EQ((size_t)_MAX_PATH - 1, strlen(longName.m_ofn.lpstrFile));
}

// Records what the hook-based virtuals saw while the dialog was shown, and
// refuses the first name it is offered.
class CCheckingFileDialog : public CFileDialog {
public:
  CCheckingFileDialog() : CFileDialog(FALSE, "log") {}
  int m_nInit = 0, m_nInitDone = 0, m_nFileOK = 0;
  BOOL m_bWindowAtInit = FALSE;
  CString m_strPathSeen, m_strFolderSeen, m_strNameSeen;

  virtual BOOL OnInitDialog() {
    m_nInit++;
    m_bWindowAtInit = ::IsWindow(m_hWnd);
    return CFileDialog::OnInitDialog();
  }
  virtual void OnInitDone() { m_nInitDone++; }
  virtual BOOL OnFileNameOK() {
    if (++m_nFileOK == 1) {
      m_strPathSeen = GetPathName();
      m_strFolderSeen = GetFolderPath();
      m_strNameSeen = GetFileName();
      return TRUE; // refused: the dialog stays open
    }
    return FALSE;
  }
};

TEST(FileDialog, VirtualsSeeTheShownDialogAndCanRefuseAName) {
  TempDir dir;
  DialogDriver driver;
  CCheckingFileDialog dlg;
  dlg.m_ofn.lpstrInitialDir = dir.Path().c_str();
  driver.Then([](HWND hDlg) {
    // The explorer-style dialog's name box is a combo box (cmb13); older
    // forms have an edit (edt1).
    ::SetDlgItemTextA(hDlg, ::GetDlgItem(hDlg, cmb13) ? cmb13 : edt1, "first");
    DialogDriver::Press(hDlg, IDOK);
    // Still open after the refusal: the second press is accepted.
    DialogDriver::Press(hDlg, IDOK);
  });
  ASSERT_EQ(IDOK, dlg.DoModal());
  EXPECT_EQ(1, dlg.m_nInit);
  EXPECT_TRUE(dlg.m_bWindowAtInit);
  EXPECT_EQ(1, dlg.m_nInitDone);
  EXPECT_EQ(2, dlg.m_nFileOK);
  // While shown, the dialog's own text (the default extension may not be
  // added yet).
  EXPECT_EQ(0, dlg.m_strPathSeen.Find(dir.File("first").c_str()));
  EXPECT_EQ(CString(dir.Path().c_str()), dlg.m_strFolderSeen);
  EXPECT_EQ(0, dlg.m_strNameSeen.Find("first"));
  EXPECT_EQ(CString(dir.File("first.log").c_str()), dlg.GetPathName());
  EXPECT_EQ(CString("first.log"), dlg.GetFileName());
  EXPECT_EQ(CString("log"), dlg.GetFileExt());
  EXPECT_EQ(CString("first"), dlg.GetFileTitle());
  EXPECT_EQ(CString(), dlg.GetFolderPath()); // only while shown
  EXPECT_EQ(NULL, dlg.m_hWnd);
}

class FileDialogList : public ::testing::Test {
protected:
  // Puts a list (with its '\0's) into the dialog's buffer.
  void SetList(CFileDialog& dlg, const std::string& list, DWORD dwFlags) {
    ASSERT_LE(list.size(), sizeof(m_buffer));
    memset(m_buffer, 'X', sizeof(m_buffer));
    memcpy(m_buffer, list.data(), list.size());
    dlg.m_ofn.lpstrFile = m_buffer;
    dlg.m_ofn.nMaxFile = (DWORD)list.size();
    dlg.m_ofn.Flags = dwFlags;
  }
  std::vector<std::string> Walk(const CFileDialog& dlg) {
    std::vector<std::string> paths;
    POSITION pos = dlg.GetStartPosition();
    while (pos != NULL && paths.size() < 10)
      paths.push_back((LPCTSTR)dlg.GetNextPathName(pos));
    return paths;
  }
  char m_buffer[256];
};

TEST_F(FileDialogList, EachFullPathAndNothingPastTheBuffer) {
  const DWORD kMulti = OFN_EXPLORER | OFN_ALLOWMULTISELECT;
  struct Case {
    std::string list;
    DWORD dwFlags;
    std::vector<std::string> paths;
  } cases[] = {
      {std::string("C:\\dir\0a.txt\0b.txt\0\0", 20), kMulti, {"C:\\dir\\a.txt", "C:\\dir\\b.txt"}},
      {std::string("C:\\dir\\one.txt\0\0", 16), kMulti, {"C:\\dir\\one.txt"}}, // one: once
      {std::string("C:\\\0x\0\0", 7), kMulti, {"C:\\x"}}, // a root: no second backslash
      {std::string("C:\\DIR A.TXT B.TXT\0", 19),
       OFN_ALLOWMULTISELECT, // old style: spaces
       {"C:\\DIR\\A.TXT", "C:\\DIR\\B.TXT"}},
      // The buffer ends inside the second name, or inside the only path.
      {std::string("C:\\d\0first\0sec", 14), kMulti, {"C:\\d\\first", "C:\\d\\sec"}},
      {std::string("C:\\abc", 6), OFN_EXPLORER, {"C:\\abc"}},
  };
  CFileDialog dlg(TRUE);
  for (size_t i = 0; i < sizeof(cases) / sizeof(cases[0]); i++) {
    SetList(dlg, cases[i].list, cases[i].dwFlags);
    EXPECT_EQ(cases[i].paths, Walk(dlg)) << "case " << i;
  }
  EXPECT_EQ(CString("C:\\abc"), dlg.GetPathName());
  // A position from elsewhere ends the walk.
  char other[4] = "x";
  POSITION pos = (POSITION)other;
  EXPECT_EQ(CString(), dlg.GetNextPathName(pos));
  EXPECT_EQ(NULL, pos);
}

} // namespace
