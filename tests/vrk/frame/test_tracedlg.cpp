// The trace settings dialog: what it shows from the Profiler key, driven
// through its check boxes, edits, check list and browse button, and what it
// writes back.
#include <afxwin.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include "resource.h"
#include "scratch_registry.h"
#include "user_input.h"
#include "vrk_tracedlg.h"

using namespace user_input;

namespace {

const char kKey[] = "Software\\Tamrix\\PELVrk Profiler";

bool Enabled(HWND hDlg, int nID) { return ::IsWindowEnabled(::GetDlgItem(hDlg, nID)) != FALSE; }
DWORD Dword(const char* pszName) {
  DWORD dw = 0xDEAD;
  ScratchRegistry::ReadDword(kKey, pszName, &dw);
  return dw;
}
std::string String(const char* pszName) {
  std::string s = "<none>";
  ScratchRegistry::ReadString(kKey, pszName, &s);
  return s;
}

class TraceDialogTest : public ::testing::Test {
protected:
  void SetUp() override { ScratchRegistry::DeleteTree(kKey); }
  ScratchRegistry m_registry;
  DialogDriver m_driver;
  tagTraceFilter m_filters[3] = {{"Files", 1}, {"Printing", 2}, {"Menus", 4}};
};

TEST_F(TraceDialogTest, ShowsTheKeyAndWritesWhatTheUserChanged) {
  ScratchRegistry::WriteDword(kKey, "Flags", 0x43); // enabled, timings, clock times
  ScratchRegistry::WriteDword(kKey, "MaxLength", 4096);
  ScratchRegistry::WriteDword(kKey, "Filter", 5);
  ScratchRegistry::WriteString(kKey, "FileName", "C:\\trace.log");
  ScratchRegistry::WriteString(kKey, "Prefix", ">");
  VVrkTraceDlg dlg;
  dlg.SetTraceFilters(m_filters, 3);
  m_driver.Then(DialogDriver::WhenShown([](HWND hDlg) {
    // What is loaded and left alone shows in what is written back.
    EXPECT_EQ("4096", Text(hDlg, IDC_VRK_TRACE_MAXLENGTH));
    EXPECT_TRUE(::SendDlgItemMessageA(hDlg, IDC_VRK_TRACE_BROWSE, BM_GETIMAGE, IMAGE_BITMAP, 0));
    // The trace window takes the file controls out.
    ClickItem(hDlg, IDC_VRK_TRACE_WINDOW);
    EXPECT_FALSE(Enabled(hDlg, IDC_VRK_TRACE_FILENAME) || Enabled(hDlg, IDC_VRK_TRACE_BROWSE));
    // Typed: a length that is no number and a suffix; the first category
    // off and the second on with the space bar.
    FocusItem(hDlg, IDC_VRK_TRACE_MAXLENGTH);
    Type("lots");
    FocusItem(hDlg, IDC_VRK_TRACE_SUFFIX);
    Type("<<");
    FocusItem(hDlg, IDC_VRK_TRACE_CATEGORIES);
    ::SendDlgItemMessageA(hDlg, IDC_VRK_TRACE_CATEGORIES, LB_SETCURSEL, 0, 0);
    for (WORD vk : {VK_SPACE, VK_DOWN, VK_SPACE})
      Press(vk);
    ClickItem(hDlg, IDOK);
  }));
  ASSERT_EQ(IDOK, dlg.DoModal());
  EXPECT_EQ(0x53u, Dword("Flags")); // the trace window added
  EXPECT_EQ(0u, Dword("MaxLength"));
  EXPECT_EQ(6u, Dword("Filter"));                 // loaded as 1, 0, 1; two toggled
  EXPECT_EQ("C:\\trace.log", String("FileName")); // saved though disabled
  EXPECT_EQ(">", String("Prefix"));
  EXPECT_EQ("<<", String("Suffix"));
  EXPECT_EQ("", String("Delimiter"));
}

// Values of the wrong type read as none, and a cancel writes nothing; then no key at all.
TEST_F(TraceDialogTest, WrongTypesCancelledThenNoKeyAndBrowse) {
  ScratchRegistry::WriteString(kKey, "Flags", "17");
  ScratchRegistry::WriteDword(kKey, "FileName", 7);
  ScratchRegistry::WriteBinary(kKey, "Prefix", std::vector<BYTE>(300, 'x')); // no terminator
  VVrkTraceDlg wrong;
  wrong.SetTraceFilters(m_filters, 3);
  m_driver.Then(DialogDriver::WhenShown([](HWND hDlg) {
    EXPECT_FALSE(::IsDlgButtonChecked(hDlg, IDC_VRK_TRACE_ENABLE));
    EXPECT_EQ("|", Text(hDlg, IDC_VRK_TRACE_FILENAME) + "|" + Text(hDlg, IDC_VRK_TRACE_PREFIX));
    ClickItem(hDlg, IDCANCEL);
  }));
  EXPECT_EQ(IDCANCEL, wrong.DoModal());
  EXPECT_TRUE(ScratchRegistry::ValueType(kKey, "Flags") == REG_SZ && Dword("FileName") == 7);
  ScratchRegistry::DeleteTree(kKey);
  VVrkTraceDlg dlg; // no key, no table: all but the enabling check is off
  m_driver.Then(DialogDriver::WhenShown([](HWND hDlg) {
    for (int id = IDC_VRK_TRACE_FILENAME; id <= IDC_VRK_TRACE_CATEGORIES; id++)
      EXPECT_FALSE(::GetDlgItem(hDlg, id) && Enabled(hDlg, id)) << id;
    EXPECT_EQ(0, ::SendDlgItemMessageA(hDlg, IDC_VRK_TRACE_CATEGORIES, LB_GETCOUNT, 0, 0));
    ClickItem(hDlg, IDC_VRK_TRACE_ENABLE);
    EXPECT_FALSE(Enabled(hDlg, IDC_VRK_TRACE_CLOCKTIMES)); // timings are off
    ClickItem(hDlg, IDC_VRK_TRACE_BROWSE);                 // runs the file dialog below
    EXPECT_EQ("C:\\new\\run.log", Text(hDlg, IDC_VRK_TRACE_FILENAME));
    ClickItem(hDlg, IDOK);
  }));
  m_driver.Then([](HWND hFileDlg) {
    EXPECT_EQ("Select output file", Text(hFileDlg));
    ::SetDlgItemTextA(hFileDlg, ::GetDlgItem(hFileDlg, cmb13) ? cmb13 : edt1, "C:\\new\\run.log");
    DialogDriver::Press(hFileDlg, IDOK); // the file need not exist
  });
  ASSERT_EQ(IDOK, dlg.DoModal());
  EXPECT_EQ(1u, Dword("Flags"));
  EXPECT_EQ(0u, Dword("Filter"));
  EXPECT_EQ(0u, Dword("MaxLength")); // an empty length
  EXPECT_EQ("C:\\new\\run.log", String("FileName"));
}

} // namespace
