// The trace settings dialog: what it shows from the Profiler key, driven
// through its check boxes, edits, check list and browse button, and what it
// writes back.
#include <afxwin.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include "dlg_driver.h"
#include "msgbox_catcher.h"
#include "resource.h"
#include "scratch_registry.h"
#include "vrk_tracedlg.h"

namespace {

const char kKey[] = "Software\\Tamrix\\PELVrk Profiler";

bool Enabled(HWND hDlg, int nID) { return ::IsWindowEnabled(::GetDlgItem(hDlg, nID)) != FALSE; }
bool Checked(HWND hDlg, int nID) { return ::IsDlgButtonChecked(hDlg, nID) == BST_CHECKED; }

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
  DialogDriver driver;
  driver.Then(DialogDriver::WhenShown([](HWND hDlg) {
    EXPECT_TRUE(Checked(hDlg, IDC_VRK_TRACE_ENABLE));
    EXPECT_TRUE(Checked(hDlg, IDC_VRK_TRACE_TIMINGS));
    EXPECT_TRUE(Checked(hDlg, IDC_VRK_TRACE_CLOCKTIMES));
    EXPECT_FALSE(Checked(hDlg, IDC_VRK_TRACE_VERBATIM));
    EXPECT_EQ("4096", DialogDriver::Text(hDlg, IDC_VRK_TRACE_MAXLENGTH));
    EXPECT_EQ("C:\\trace.log", DialogDriver::Text(hDlg, IDC_VRK_TRACE_FILENAME));
    EXPECT_EQ("", DialogDriver::Text(hDlg, IDC_VRK_TRACE_DELIMITER)); // no tab here
    HWND hList = ::GetDlgItem(hDlg, IDC_VRK_TRACE_CATEGORIES);
    CCheckListBox* pList = (CCheckListBox*)CWnd::FromHandle(hList);
    ASSERT_EQ(3, pList->GetCount());
    EXPECT_EQ(1, pList->GetCheck(0));
    EXPECT_EQ(0, pList->GetCheck(1));
    EXPECT_EQ(1, pList->GetCheck(2));
    EXPECT_TRUE(::SendDlgItemMessageA(hDlg, IDC_VRK_TRACE_BROWSE, BM_GETIMAGE, IMAGE_BITMAP, 0));
    // The trace window takes the file controls out, the timings the clock.
    DialogDriver::Click(hDlg, IDC_VRK_TRACE_WINDOW);
    EXPECT_FALSE(Enabled(hDlg, IDC_VRK_TRACE_FILENAME));
    EXPECT_FALSE(Enabled(hDlg, IDC_VRK_TRACE_BROWSE));
    DialogDriver::Click(hDlg, IDC_VRK_TRACE_TIMINGS);
    EXPECT_FALSE(Enabled(hDlg, IDC_VRK_TRACE_CLOCKTIMES));
    DialogDriver::Click(hDlg, IDC_VRK_TRACE_TIMINGS);
    EXPECT_TRUE(Enabled(hDlg, IDC_VRK_TRACE_CLOCKTIMES));
    // Typed: a length that is no number, a suffix; the first category off
    // and the second on with the space bar.
    DialogDriver::Focus(hDlg, IDC_VRK_TRACE_MAXLENGTH);
    DialogDriver::Type("lots");
    DialogDriver::Focus(hDlg, IDC_VRK_TRACE_SUFFIX);
    DialogDriver::Type("<<");
    DialogDriver::Focus(hDlg, IDC_VRK_TRACE_CATEGORIES);
    ::SendMessageA(hList, LB_SETCURSEL, 0, 0);
    DialogDriver::Key(VK_SPACE);
    DialogDriver::Key(VK_DOWN);
    DialogDriver::Key(VK_SPACE);
    DialogDriver::Click(hDlg, IDOK);
  }));
  ASSERT_EQ(IDOK, dlg.DoModal());
  EXPECT_EQ(0x53u, Dword("Flags")); // the trace window added
  EXPECT_EQ(0u, Dword("MaxLength"));
  EXPECT_EQ(6u, Dword("Filter"));
  EXPECT_EQ("C:\\trace.log", String("FileName")); // saved though disabled
  EXPECT_EQ(">", String("Prefix"));
  EXPECT_EQ("<<", String("Suffix"));
  EXPECT_EQ("", String("Delimiter"));
}

TEST_F(TraceDialogTest, DisabledTracingAndNoCategories) {
  VVrkTraceDlg dlg; // no key, no table
  DialogDriver driver;
  driver.Then(DialogDriver::WhenShown([](HWND hDlg) {
    for (int id : {IDC_VRK_TRACE_WINDOW, IDC_VRK_TRACE_FILENAME, IDC_VRK_TRACE_BROWSE,
                   IDC_VRK_TRACE_PREFIX, IDC_VRK_TRACE_SUFFIX, IDC_VRK_TRACE_DELIMITER,
                   IDC_VRK_TRACE_VERBATIM, IDC_VRK_TRACE_TIMINGS, IDC_VRK_TRACE_CLOCKTIMES,
                   IDC_VRK_TRACE_MAXLENGTH, IDC_VRK_TRACE_CATEGORIES})
      EXPECT_FALSE(Enabled(hDlg, id)) << id;
    EXPECT_EQ(0, ::SendDlgItemMessageA(hDlg, IDC_VRK_TRACE_CATEGORIES, LB_GETCOUNT, 0, 0));
    DialogDriver::Click(hDlg, IDC_VRK_TRACE_ENABLE);
    EXPECT_TRUE(Enabled(hDlg, IDC_VRK_TRACE_FILENAME));
    EXPECT_FALSE(Enabled(hDlg, IDC_VRK_TRACE_CLOCKTIMES)); // timings are off
    DialogDriver::Click(hDlg, IDOK);
  }));
  ASSERT_EQ(IDOK, dlg.DoModal());
  EXPECT_EQ(1u, Dword("Flags"));
  EXPECT_EQ(0u, Dword("Filter"));
  EXPECT_EQ(0u, Dword("MaxLength")); // an empty length
  EXPECT_EQ("", String("FileName"));
}

TEST_F(TraceDialogTest, WrongTypesReadAsDefaultsAndCancelWritesNothing) {
  ScratchRegistry::WriteString(kKey, "Flags", "17");
  ScratchRegistry::WriteDword(kKey, "FileName", 7);
  ScratchRegistry::WriteBinary(kKey, "Prefix", std::vector<BYTE>(300, 'x')); // no terminator
  VVrkTraceDlg dlg;
  dlg.SetTraceFilters(m_filters, 3);
  DialogDriver driver;
  driver.Then(DialogDriver::WhenShown([](HWND hDlg) {
    EXPECT_FALSE(Checked(hDlg, IDC_VRK_TRACE_ENABLE));
    EXPECT_EQ("", DialogDriver::Text(hDlg, IDC_VRK_TRACE_FILENAME));
    EXPECT_EQ("", DialogDriver::Text(hDlg, IDC_VRK_TRACE_PREFIX));
    DialogDriver::Click(hDlg, IDCANCEL);
  }));
  EXPECT_EQ(IDCANCEL, dlg.DoModal());
  EXPECT_EQ(REG_SZ, ScratchRegistry::ValueType(kKey, "Flags"));
  EXPECT_EQ(7u, Dword("FileName"));
}

TEST_F(TraceDialogTest, BrowseFillsTheFileName) {
  ScratchRegistry::WriteDword(kKey, "Flags", 1);
  VVrkTraceDlg dlg;
  DialogDriver driver;
  std::string fileDialogTitle, fileName;
  driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
    DialogDriver::Click(hDlg, IDC_VRK_TRACE_BROWSE); // runs the file dialog below
    fileName = DialogDriver::Text(hDlg, IDC_VRK_TRACE_FILENAME);
    DialogDriver::Click(hDlg, IDOK);
  }));
  driver.Then([&](HWND hFileDlg) {
    fileDialogTitle = DialogDriver::Text(hFileDlg);
    HWND hName = ::GetDlgItem(hFileDlg, cmb13);
    if (hName == NULL) hName = ::GetDlgItem(hFileDlg, edt1);
    ::SetWindowTextA(hName, "C:\\new\\run.log"); // need not exist
    DialogDriver::Press(hFileDlg, IDOK);
  });
  ASSERT_EQ(IDOK, dlg.DoModal());
  EXPECT_EQ("Select output file", fileDialogTitle);
  EXPECT_EQ("C:\\new\\run.log", fileName);
  EXPECT_EQ("C:\\new\\run.log", String("FileName"));
}

} // namespace
