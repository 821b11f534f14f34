// In-place editing in an MDI view and a dialog, driven by real keys and clicks.
#include "vrk_editmode.h"

#include <afxext.h>
#include <gtest/gtest.h>

#include "controls_testing.h"
#include "user_input.h"

using namespace user_input;

namespace {

template <class Base> class CLogging : public Base {
public:
  std::vector<tagEndEditStruct> m_queries;
  BOOL m_answer = TRUE;
  virtual BOOL OnQueryEndEdit(tagEndEditStruct* pEnd) {
    m_queries.push_back(*pEnd);
    return m_answer;
  }
};
typedef CLogging<VEditCtrl> CCellEdit;
typedef CLogging<VEditInComboBox> CCellComboEdit;

class CCellCombo : public VEditComboBox {
  virtual VEditCtrl* CreateEditControl() { return new CCellComboEdit; }
};

class CSheetDoc : public CDocument {
  DECLARE_DYNCREATE(CSheetDoc)
};
IMPLEMENT_DYNCREATE(CSheetDoc, CDocument)

class CCellView : public CView {
  DECLARE_DYNCREATE(CCellView)
public:
  CCellEdit m_edit;
  CButton m_button;
  CCellCombo m_combo;
  std::vector<LPARAM> m_editModes;
  std::vector<std::pair<UINT, HWND>> m_commands;
  int m_nClicks = 0;
  virtual void OnDraw(CDC*) {}
  afx_msg int OnCreate(LPCREATESTRUCT lpcs) {
    CView::OnCreate(lpcs);
    m_edit.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 160, 34), this, IDC_FIRST);
    m_button.Create("Button", WS_CHILD | WS_VISIBLE, CRect(200, 10, 300, 34), this, IDC_BUTTON);
    m_combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, CRect(10, 60, 160, 200), this, IDC_COMBO);
    for (const char* psz : {"Abcde", "Beta", "Gamma"})
      m_combo.AddString(psz);
    return 0;
  }
  afx_msg LRESULT OnEditMode(WPARAM, LPARAM lParam) {
    m_editModes.push_back(lParam);
    return 0;
  }
  afx_msg void OnButton() { ++m_nClicks; }
  afx_msg void OnCmd(UINT nID) { m_commands.push_back({nID, GetCurrentMessage()->hwnd}); }
  DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNCREATE(CCellView, CView)
BEGIN_MESSAGE_MAP(CCellView, CView)
ON_WM_CREATE()
ON_MESSAGE(VWM_EDITMODE, &CCellView::OnEditMode)
ON_BN_CLICKED(IDC_BUTTON, &CCellView::OnButton)
ON_COMMAND_RANGE(ID_CHILDCMD, ID_MAINCMD, &CCellView::OnCmd)
END_MESSAGE_MAP()

class CEditModeApp : public CWinApp {
public:
  int m_nWheels = 0;
  virtual BOOL PreTranslateMessage(MSG* pMsg) {
    m_nWheels += pMsg->message == WM_MOUSEWHEEL;
    return CWinApp::PreTranslateMessage(pMsg);
  }
};
CEditModeApp theApp;

tagEditModeSession& Session() { return *VEditCtrl::GetEditModeSession(); }

POINT CentreOf(HWND hWnd) {
  CRect rc;
  ::GetWindowRect(hWnd, &rc);
  return rc.CenterPoint();
}

class EditModeTest : public ::testing::Test {
protected:
  void SetUp() override {
    CMultiDocTemplate* pTemplate = new CMultiDocTemplate(
        IDR_SHEET, RUNTIME_CLASS(CSheetDoc), RUNTIME_CLASS(CMDIChildWnd), RUNTIME_CLASS(CCellView));
    theApp.AddDocTemplate(pTemplate);
    m_pMain = new CMDIFrameWnd;
    ASSERT_TRUE(m_pMain->LoadFrame(IDR_MAINFRAME));
    theApp.m_pMainWnd = m_pMain;
    m_pMain->ShowWindow(SW_SHOWMAXIMIZED);
    CDocument* pDoc = pTemplate->OpenDocumentFile(NULL);
    ASSERT_NE(nullptr, pDoc);
    POSITION pos = pDoc->GetFirstViewPosition();
    m_pView = (CCellView*)pDoc->GetNextView(pos);
    m_pView->GetParentFrame()->ShowWindow(SW_SHOWMAXIMIZED);
    Focus(*m_pMain, m_pView->m_edit);
  }
  void TearDown() override {
    theApp.m_pMainWnd->DestroyWindow();
    Pump();
    delete theApp.m_pDocManager;
    theApp.m_pDocManager = NULL;
    EXPECT_EQ(nullptr, Session().pEdit); // nothing outlives the windows
    EXPECT_EQ(nullptr, Session().hMouseHook);
  }
  void Reenter(HWND hEdit) {
    VEditCtrl::EndEditMode();
    m_pView->SetFocus();
    Focus(*m_pMain, hEdit);
  }
  CMDIFrameWnd* m_pMain = NULL;
  CCellView* m_pView = NULL;
};

TEST_F(EditModeTest, ClickWheelAndAltF4OutsideAskTheEdit) {
  // clang-format off
  // nInput 0: a click on the button, 1: a wheel turn over it, 2: Alt+F4; answer 0: refused.
  struct Case { int nInput; BOOL bModified, answer; DWORD nFlags; bool bGoesOn; } cases[] = {
      {0, FALSE, TRUE, 0x10000001, true},  // ends, the click goes on
      {0, TRUE, 0x21, 0x10000002, false},  // bit 0x20 eats it
      {0, TRUE, 0x02, 0x10000002, false},  // so does a missing bit 0x01
      {0, FALSE, 0, 0x10000001, false},    // refused: the focus stays
      {1, FALSE, TRUE, 0x10000001, false}, // a wheel turn is always eaten
      {2, FALSE, TRUE, 0xA0000001, false}, // never reaches the frame
  };
  // clang-format on
  CCellEdit& edit = m_pView->m_edit;
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.nInput << " answer " << c.answer);
    Reenter(edit);
    edit.SetModifiedFlag(c.bModified);
    edit.m_answer = c.answer;
    edit.m_queries.clear();
    int nClicks = m_pView->m_nClicks;
    POINT pt = CentreOf(m_pView->m_button);
    if (c.nInput == 0) Click(pt);
    if (c.nInput == 1) Wheel(pt);
    if (c.nInput == 2) Press(VK_F4, {VK_MENU});
    ASSERT_EQ(1u, edit.m_queries.size());
    const tagEndEditStruct& q = edit.m_queries[0];
    EXPECT_EQ(c.nFlags, q.nFlags);
    EXPECT_EQ(c.nInput == 2 ? CPoint(0, 0) : CPoint(pt), CPoint(q.x, q.y));
    EXPECT_EQ(c.nInput == 2 ? (UINT)SC_CLOSE : 0u, q.nKey);
    EXPECT_TRUE(Session().pEdit == (c.answer ? nullptr : &edit) &&
                m_pView->m_editModes.back() == (c.answer ? (LPARAM)0 : (LPARAM)&edit));
    EXPECT_EQ(c.bGoesOn, m_pView->m_nClicks > nClicks);
    EXPECT_EQ(c.bGoesOn ? m_pView->m_button.m_hWnd : edit.m_hWnd, ::GetFocus());
  }
  EXPECT_TRUE(::IsWindow(*m_pMain) && theApp.m_nWheels == 0); // no close, no wheel reached the app
  Wheel(CentreOf(m_pView->m_button));                         // outside edit mode it arrives
  EXPECT_EQ(1, theApp.m_nWheels);
}

TEST_F(EditModeTest, ComboEscapeClosesTheListFirstAndKeysComplete) {
  CCellCombo& combo = m_pView->m_combo;
  CCellComboEdit* pEdit = (CCellComboEdit*)combo.GetEditCtrl();
  Reenter(*pEdit);
  ASSERT_EQ(pEdit, Session().pEdit);
  Type("ab"); // each key completes (in the entry's case) before the edit takes it
  EXPECT_EQ("Ab", Text(combo));
  CRect rc;
  combo.GetClientRect(&rc);
  Click({rc.right - 5, rc.Height() / 2}, combo); // the arrow
  ASSERT_TRUE(combo.GetDroppedState());
  Press(VK_ESCAPE);
  EXPECT_TRUE(!combo.GetDroppedState() && pEdit->m_queries.empty());
  Press(VK_ESCAPE);
  ASSERT_EQ(1u, pEdit->m_queries.size());
  EXPECT_TRUE(pEdit->m_queries[0].nFlags == 0x20000001 && pEdit->m_queries[0].nKey == VK_ESCAPE);
  EXPECT_EQ(nullptr, Session().pEdit);
  // A choice from the list with the mouse marks the edit modified (5002).
  EXPECT_EQ(FALSE, combo.SendMessage(VWM_ISMODIFIED));
  Click({rc.right - 14, rc.Height() / 2}, combo); // not a double click
  COMBOBOXINFO info = {sizeof(info)};
  ::GetComboBoxInfo(combo, &info);
  Click({5, combo.GetItemHeight(0) * 3 / 2}, info.hwndList);
  EXPECT_TRUE(combo.GetCurSel() == 1 && combo.SendMessage(VWM_ISMODIFIED) == TRUE);
}

TEST_F(EditModeTest, AcceleratorsWorkAndEditsReplacedOrDestroyedLeaveNothing) {
  ASSERT_EQ(std::vector<LPARAM>{(LPARAM)&m_pView->m_edit}, m_pView->m_editModes);
  EXPECT_EQ(m_pView->m_hWnd, Session().hWndOwner);
  Press(VK_F7); // the child's and the main frame's keys, posted to the view
  Press(VK_F8);
  HWND hView = m_pView->m_hWnd;
  EXPECT_EQ((std::vector<std::pair<UINT, HWND>>{{ID_CHILDCMD, hView}, {ID_MAINCMD, hView}}),
            m_pView->m_commands);
  HHOOK hFirst = Session().hMouseHook;
  CCellEdit* pSecond = new CCellEdit; // its focus takes edit mode over
  ASSERT_TRUE(pSecond->Create(WS_CHILD | WS_VISIBLE, CRect(10, 220, 160, 244), m_pView, 0x500));
  Focus(*m_pMain, *pSecond);
  EXPECT_EQ(pSecond, Session().pEdit);
  EXPECT_FALSE(::UnhookWindowsHookEx(hFirst)); // already removed
  HHOOK hSecond = Session().hMouseHook;
  delete pSecond;
  EXPECT_TRUE(Session().pEdit == nullptr && m_pView->m_editModes.back() == 0);
  EXPECT_FALSE(::UnhookWindowsHookEx(hSecond));
  Reenter(m_pView->m_edit);
  size_t nEditModes = m_pView->m_editModes.size();
  m_pView->m_edit.DestroyWindow();
  EXPECT_TRUE(Session().pEdit == nullptr && Session().hKeyboardHook == nullptr &&
              m_pView->m_editModes.size() == nEditModes + 1);
  Click(CentreOf(m_pView->m_button)); // input goes on normally
  EXPECT_EQ(1, m_pView->m_nClicks);
}

// WM_GETDLGCODE keeps Tab and Enter from the dialog manager.
TEST_F(EditModeTest, TabAndEnterCommitInADialog) {
  for (WORD vk : {VK_TAB, VK_RETURN}) {
    CDialog dlg;
    ASSERT_TRUE(dlg.Create(IDD_CELLS, m_pMain));
    CCellEdit edit;
    ASSERT_TRUE(edit.SubclassDlgItem(IDC_FIRST, &dlg));
    Focus(dlg, ::GetDlgItem(dlg, IDC_SECOND));
    Focus(dlg, edit);
    EXPECT_EQ(dlg.m_hWnd, Session().hWndOwner);
    Press(vk);
    ASSERT_EQ(1u, edit.m_queries.size());
    EXPECT_TRUE(edit.m_queries[0].nFlags == 0x20000002 && edit.m_queries[0].nKey == vk);
    EXPECT_EQ(::GetDlgItem(dlg, vk == VK_TAB ? IDC_SECOND : IDC_FIRST), ::GetFocus());
    EXPECT_TRUE(Session().pEdit == nullptr && ::IsWindow(dlg)); // Enter did not reach the dialog
    dlg.DestroyWindow();
  }
}

} // namespace
