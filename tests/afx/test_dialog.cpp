// CDialog and data exchange: a modal dialog whose template lives in a
// separate resource module runs with its owner disabled and returns what was
// typed into it; validation failures in a modeless dialog tell the user and
// keep the dialog open. (VRK's dialogs' suites type into real dialogs.)
#include <afxwin.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "msgbox_catcher.h"
#include "fixture_ids.h"

namespace {

const WORD IDC_NAME = IDC_FIXTURE_NAME;
const WORD IDC_COUNT = IDC_FIXTURE_COUNT;
const WORD IDC_CHECK = IDC_FIXTURE_CHECK;
const WORD IDC_RADIO1 = IDC_FIXTURE_RADIO1;
const WORD IDC_RADIO2 = IDC_FIXTURE_RADIO2;
const WORD IDC_REAL = IDC_FIXTURE_REAL;

// The resource-only fixture module, whose dialog template the executable
// lacks, as the resource handle while this lives.
class FixtureResources {
public:
  FixtureResources()
      : m_hModule(::LoadLibraryEx("vrk_fixture_res.dll", NULL, LOAD_LIBRARY_AS_DATAFILE)),
        m_hOld(AfxGetResourceHandle()) {
    if (m_hModule != NULL) AfxSetResourceHandle(m_hModule);
  }
  ~FixtureResources() {
    AfxSetResourceHandle(m_hOld);
    if (m_hModule != NULL) ::FreeLibrary(m_hModule);
  }
  HMODULE Handle() const { return m_hModule; }

private:
  HMODULE m_hModule;
  HINSTANCE m_hOld;
};

class CTestDialog : public CDialog {
public:
  CTestDialog() : CDialog(IDD_FIXTURE) {}
  CString m_strName = "initial";
  int m_nCount = 5;
  int m_nCheck = 1;
  int m_nRadio = 0;
  double m_dReal = 2.5;

  virtual void DoDataExchange(CDataExchange* pDX) {
    DDX_Text(pDX, IDC_NAME, m_strName);
    DDV_MaxChars(pDX, m_strName, 10);
    DDX_Text(pDX, IDC_COUNT, m_nCount);
    DDV_MinMaxInt(pDX, m_nCount, 0, 100);
    DDX_Check(pDX, IDC_CHECK, m_nCheck);
    DDX_Radio(pDX, IDC_RADIO1, m_nRadio);
    DDX_Text(pDX, IDC_REAL, m_dReal);
  }
};

// Types into its fields as it opens and presses OK; notes what it saw.
class CTypingDialog : public CTestDialog {
public:
  BOOL m_bOwnerEnabled = TRUE;
  CString m_strCountShown;
  virtual BOOL OnInitDialog() {
    CTestDialog::OnInitDialog();
    m_bOwnerEnabled = m_pParentWnd->IsWindowEnabled();
    GetDlgItemText(IDC_COUNT, m_strCountShown);
    SetDlgItemText(IDC_NAME, "Ada");
    SetDlgItemText(IDC_COUNT, " 42 ");
    SetDlgItemText(IDC_REAL, "-0.125");
    CheckDlgButton(IDC_CHECK, BST_UNCHECKED);
    CheckRadioButton(IDC_RADIO1, IDC_RADIO2, IDC_RADIO2);
    PostMessage(WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), (LPARAM)::GetDlgItem(m_hWnd, IDOK));
    return TRUE;
  }
};

class ModalTest : public ::testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(m_resources.Handle() != NULL); }
  FixtureResources m_resources;
};

// The template lives in the resource module only; the owner is disabled
// while the dialog runs.
TEST_F(ModalTest, TemplateFromAResourceModuleRunsAndReturnsItsValues) {
  ASSERT_EQ(NULL, ::FindResource(::GetModuleHandle(NULL), MAKEINTRESOURCE(IDD_FIXTURE), RT_DIALOG));
  CWnd owner;
  ASSERT_TRUE(owner.CreateEx(0, NULL, "owner", WS_POPUP, 0, 0, 50, 50, NULL, NULL));
  CTypingDialog dlg;
  dlg.m_pParentWnd = &owner;
  EXPECT_EQ(IDOK, dlg.DoModal());
  EXPECT_FALSE(dlg.m_bOwnerEnabled);
  EXPECT_TRUE(owner.IsWindowEnabled());
  EXPECT_STREQ("5", dlg.m_strCountShown); // the members went into the controls
  EXPECT_STREQ("Ada", dlg.m_strName);
  EXPECT_EQ(42, dlg.m_nCount);
  EXPECT_EQ(0, dlg.m_nCheck);
  EXPECT_EQ(1, dlg.m_nRadio);
  EXPECT_DOUBLE_EQ(-0.125, dlg.m_dReal);
  EXPECT_EQ(NULL, dlg.m_hWnd); // destroyed and detached
  EXPECT_EQ((UINT)IDD_FIXTURE, dlg.m_nIDHelp);
  owner.DestroyWindow();
  CDialog missing(4321); // a template nowhere
  EXPECT_EQ(-1, missing.DoModal());
}

// The hidden dialog activates when the failing field takes the focus, and
// the box catcher then "answers" it too: only the message boxes' texts count,
// and the dialog ignores the answer.
std::vector<std::string> MessageTexts(const MsgBoxCatcher& catcher) {
  std::vector<std::string> texts;
  for (const CaughtBox& box : catcher.Boxes())
    if (!box.text.empty()) texts.push_back(box.text);
  return texts;
}

class CQuietDialog : public CTestDialog {
public:
  virtual void OnOK() {}
  virtual void OnCancel() {}
};

class ModelessTest : public ModalTest {
protected:
  void SetUp() override {
    ModalTest::SetUp();
    ASSERT_TRUE(m_dlg.Create(IDD_FIXTURE)); // hidden: only the message boxes activate
  }
  void TearDown() override { m_dlg.DestroyWindow(); }
  CQuietDialog m_dlg;
};

// Numbers too long for any buffer or for int's range fail as any bad
// number does, instead of overrunning.
TEST_F(ModelessTest, BadNumbersRangesAndLengthsNameTheirLimits) {
  MsgBoxCatcher catcher;
  m_dlg.SetDlgItemText(IDC_COUNT, "12abc");
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  EXPECT_EQ(::GetDlgItem(m_dlg.m_hWnd, IDC_COUNT), ::GetFocus()); // the field is selected
  EXPECT_EQ(5, m_dlg.m_nCount);                                   // unchanged
  m_dlg.SetDlgItemText(IDC_COUNT, "101");
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  m_dlg.SetDlgItemText(IDC_COUNT, "100");
  m_dlg.SetDlgItemText(IDC_NAME, "elevenchars");
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  m_dlg.SetDlgItemText(IDC_NAME, "tenchars!!");
  m_dlg.SetDlgItemText(IDC_REAL, "1e400x");
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  m_dlg.SetDlgItemText(IDC_REAL, "3");
  m_dlg.SetDlgItemText(IDC_COUNT, std::string(5000, '7').c_str());
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  m_dlg.SetDlgItemText(IDC_COUNT, "99999999999999999999");
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  std::vector<std::string> expected = {"Please enter an integer.",
                                       "Please enter an integer between 0 and 100.",
                                       "Please enter no more than 10 characters.",
                                       "Please enter a number.",
                                       "Please enter an integer.",
                                       "Please enter an integer."};
  EXPECT_EQ(expected, MessageTexts(catcher));
  m_dlg.SetDlgItemText(IDC_COUNT, "100");
  EXPECT_TRUE(m_dlg.UpdateData(TRUE));
  EXPECT_EQ(100, m_dlg.m_nCount);
  EXPECT_STREQ("tenchars!!", m_dlg.m_strName);
  // Writing sets the edit's limit from DDV_MaxChars.
  EXPECT_TRUE(m_dlg.UpdateData(FALSE));
  EXPECT_EQ(10, ::SendDlgItemMessage(m_dlg.m_hWnd, IDC_NAME, EM_GETLIMITTEXT, 0, 0));
}

class CDdxProbe : public CDialog {
public:
  virtual void OnOK() {}
  virtual void OnCancel() {}
  UINT m_nUnsigned = 0;
  DWORD m_dw = 0;
  CString m_strList;
  int m_nListIndex = -1;
  CEdit m_edit;
  int m_nMissing = 0;
  BOOL m_bMissing = FALSE;
  virtual void DoDataExchange(CDataExchange* pDX) {
    DDX_Control(pDX, IDC_NAME, m_edit);
    DDX_Text(pDX, IDC_COUNT, m_nUnsigned);
    DDV_MinMaxUInt(pDX, m_nUnsigned, 1, 10);
    DDX_Text(pDX, IDC_REAL, m_dw);
    if (m_bMissing) DDX_Text(pDX, 9999, m_nMissing);
  }
};

TEST(Ddx, UnsignedRefusesMinusAndControlsAreSubclassedOnce) {
  FixtureResources resources;
  // The template, as a host holding one in memory would pass it.
  HRSRC hFound = ::FindResource(resources.Handle(), MAKEINTRESOURCE(IDD_FIXTURE), RT_DIALOG);
  ASSERT_TRUE(hFound != NULL);
  CDdxProbe dlg;
  ASSERT_TRUE(dlg.CreateIndirect(
      (LPCDLGTEMPLATE)::LockResource(::LoadResource(resources.Handle(), hFound))));
  MsgBoxCatcher catcher;
  EXPECT_EQ(::GetDlgItem(dlg.m_hWnd, IDC_NAME), dlg.m_edit.m_hWnd); // from OnInitDialog
  EXPECT_EQ(&dlg.m_edit, CWnd::FromHandlePermanent(dlg.m_edit.m_hWnd));
  dlg.SetDlgItemText(IDC_COUNT, "-3");
  EXPECT_FALSE(dlg.UpdateData(TRUE));
  dlg.SetDlgItemText(IDC_COUNT, "11");
  EXPECT_FALSE(dlg.UpdateData(TRUE));
  std::vector<std::string> expected = {"Please enter a positive integer.",
                                       "Please enter an integer between 1 and 10."};
  EXPECT_EQ(expected, MessageTexts(catcher));
  dlg.SetDlgItemText(IDC_COUNT, "10");
  dlg.SetDlgItemText(IDC_REAL, "4294967295");
  EXPECT_TRUE(dlg.UpdateData(TRUE));
  EXPECT_EQ(10u, dlg.m_nUnsigned);
  EXPECT_EQ(4294967295u, dlg.m_dw);
  // A control the dialog lacks is the program's error: reported, not a crash.
  dlg.m_bMissing = TRUE;
  catcher.Clear();
  EXPECT_FALSE(dlg.UpdateData(TRUE));
  EXPECT_EQ(1u, MessageTexts(catcher).size());
  dlg.DestroyWindow();
  EXPECT_EQ(NULL, dlg.m_edit.m_hWnd);
}

} // namespace
