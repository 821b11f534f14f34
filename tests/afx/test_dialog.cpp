// CDialog and data exchange: a modal dialog whose template lives in a
// separate resource module runs, is driven by posted messages and returns
// its values; validation failures tell the user and keep the dialog open;
// modeless dialogs and the modal owner.
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
const UINT WM_DRIVE = WM_APP + 7;

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
  // What the driver types before pressing a button.
  CString m_strTypeName, m_strTypeCount, m_strTypeReal;
  UINT m_nPress = IDOK;
  int m_nOKs = 0;
  std::vector<std::string> m_initialTexts;

  virtual void DoDataExchange(CDataExchange* pDX) {
    DDX_Text(pDX, IDC_NAME, m_strName);
    DDV_MaxChars(pDX, m_strName, 10);
    DDX_Text(pDX, IDC_COUNT, m_nCount);
    DDV_MinMaxInt(pDX, m_nCount, 0, 100);
    DDX_Check(pDX, IDC_CHECK, m_nCheck);
    DDX_Radio(pDX, IDC_RADIO1, m_nRadio);
    DDX_Text(pDX, IDC_REAL, m_dReal);
  }
  virtual BOOL OnInitDialog() {
    CDialog::OnInitDialog();
    for (int nID : {IDC_NAME, IDC_COUNT, IDC_REAL}) {
      CString str;
      GetDlgItemText(nID, str);
      m_initialTexts.push_back((LPCTSTR)str);
    }
    PostMessage(WM_DRIVE);
    return TRUE;
  }
  virtual void OnOK() {
    m_nOKs++;
    CDialog::OnOK();
  }
  afx_msg LRESULT OnDrive(WPARAM, LPARAM) {
    SetDlgItemText(IDC_NAME, m_strTypeName);
    SetDlgItemText(IDC_COUNT, m_strTypeCount);
    SetDlgItemText(IDC_REAL, m_strTypeReal);
    CheckDlgButton(IDC_CHECK, BST_UNCHECKED);
    CheckRadioButton(IDC_RADIO1, IDC_RADIO2, IDC_RADIO2);
    // As a click on the button would: a command from the control.
    PostMessage(WM_COMMAND, MAKEWPARAM(m_nPress, BN_CLICKED),
                (LPARAM)::GetDlgItem(m_hWnd, m_nPress));
    return 0;
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
ON_MESSAGE(WM_DRIVE, &CTestDialog::OnDrive)
END_MESSAGE_MAP()

class ModalTest : public ::testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(m_resources.Handle() != NULL); }
  FixtureResources m_resources;
};

TEST_F(ModalTest, TemplateFromAResourceModuleRunsAndReturnsItsValues) {
  // The executable itself has no such template.
  ASSERT_EQ(NULL, ::FindResource(::GetModuleHandle(NULL), MAKEINTRESOURCE(IDD_FIXTURE), RT_DIALOG));
  CTestDialog dlg;
  dlg.m_strTypeName = "Ada";
  dlg.m_strTypeCount = " 42 ";
  dlg.m_strTypeReal = "-0.125";
  EXPECT_EQ(IDOK, dlg.DoModal());
  // The members went into the controls as the dialog opened.
  std::vector<std::string> expected = {"initial", "5", "2.5"};
  EXPECT_EQ(expected, dlg.m_initialTexts);
  EXPECT_STREQ("Ada", dlg.m_strName);
  EXPECT_EQ(42, dlg.m_nCount);
  EXPECT_EQ(0, dlg.m_nCheck);
  EXPECT_EQ(1, dlg.m_nRadio);
  EXPECT_DOUBLE_EQ(-0.125, dlg.m_dReal);
  EXPECT_EQ(NULL, dlg.m_hWnd); // destroyed and detached
  EXPECT_EQ((UINT)IDD_FIXTURE, dlg.m_nIDHelp);
}

TEST_F(ModalTest, MissingTemplateReturnsMinusOne) {
  CDialog dlg(4321);
  EXPECT_EQ(-1, dlg.DoModal());
}

TEST_F(ModalTest, ModalDialogDisablesItsOwnerWhileRunning) {
  CWnd owner;
  ASSERT_TRUE(owner.CreateEx(0, NULL, "owner", WS_POPUP, 0, 0, 50, 50, NULL, NULL));
  struct COwnerCheck : CTestDialog {
    BOOL bOwnerEnabled = TRUE;
    virtual BOOL OnInitDialog() {
      bOwnerEnabled = m_pParentWnd->IsWindowEnabled();
      return CTestDialog::OnInitDialog();
    }
  } dlg;
  dlg.m_pParentWnd = &owner;
  dlg.m_nPress = IDCANCEL;
  EXPECT_EQ(IDCANCEL, dlg.DoModal());
  EXPECT_FALSE(dlg.bOwnerEnabled);
  EXPECT_TRUE(owner.IsWindowEnabled());
  owner.DestroyWindow();
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
  virtual void OnOK() { m_nOKs++; }
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

TEST_F(ModelessTest, BadNumberTellsTheUserAndSelectsTheField) {
  MsgBoxCatcher catcher;
  m_dlg.SetDlgItemText(IDC_COUNT, "12abc");
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  EXPECT_EQ(std::vector<std::string>{"Please enter an integer."}, MessageTexts(catcher));
  EXPECT_EQ(::GetDlgItem(m_dlg.m_hWnd, IDC_COUNT), ::GetFocus());
  EXPECT_EQ(5, m_dlg.m_nCount); // unchanged
}

TEST_F(ModelessTest, RangeAndLengthChecksNameTheirLimits) {
  MsgBoxCatcher catcher;
  m_dlg.SetDlgItemText(IDC_COUNT, "101");
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  m_dlg.SetDlgItemText(IDC_COUNT, "100");
  m_dlg.SetDlgItemText(IDC_NAME, "elevenchars");
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  m_dlg.SetDlgItemText(IDC_NAME, "tenchars!!");
  m_dlg.SetDlgItemText(IDC_REAL, "1e400x");
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  std::vector<std::string> expected = {"Please enter an integer between 0 and 100.",
                                       "Please enter no more than 10 characters.",
                                       "Please enter a number."};
  EXPECT_EQ(expected, MessageTexts(catcher));
  m_dlg.SetDlgItemText(IDC_REAL, "3");
  EXPECT_TRUE(m_dlg.UpdateData(TRUE));
  EXPECT_EQ(100, m_dlg.m_nCount);
  EXPECT_STREQ("tenchars!!", m_dlg.m_strName);
  // Writing sets the edit's limit from DDV_MaxChars.
  EXPECT_TRUE(m_dlg.UpdateData(FALSE));
  EXPECT_EQ(10, ::SendDlgItemMessage(m_dlg.m_hWnd, IDC_NAME, EM_GETLIMITTEXT, 0, 0));
}

TEST_F(ModelessTest, OverlongNumberTextFailsInsteadOfOverrunning) {
  MsgBoxCatcher catcher;
  std::string strLong(5000, '7');
  m_dlg.SetDlgItemText(IDC_COUNT, strLong.c_str());
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  m_dlg.SetDlgItemText(IDC_COUNT, "99999999999999999999"); // out of int's range
  EXPECT_FALSE(m_dlg.UpdateData(TRUE));
  EXPECT_EQ(2u, MessageTexts(catcher).size());
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
