// In-place editing in an MDI view and a dialog, driven by real keys and
// clicks: entering edit mode (message 5604 to the view), the mouse hook's
// queries for clicks and wheel turns outside, commit and cancel keys, Tab to
// the next control, Escape in a combo box with its list open, Alt+F4 turned
// into an SC_CLOSE query, the frames' accelerators translated by the keyboard
// hook, and edits destroyed or replaced in the middle of an edit.
#include "vrk_editmode.h"

#include <afxext.h>
#include <gtest/gtest.h>

#include <vector>

#include "controls_testing.h"
#include "user_input.h"

namespace {

// An edit that records the end-edit queries it answers.
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
protected:
  virtual VEditCtrl* CreateEditControl() { return new CCellComboEdit; }
};

// The main frame records the system commands that reach it.
class CMainFrame : public CMDIFrameWnd {
public:
  std::vector<UINT> m_sysCommands;
  afx_msg void OnSysCommand(UINT nID, LPARAM lParam) {
    m_sysCommands.push_back(nID & 0xFFF0);
    if ((nID & 0xFFF0) != SC_KEYMENU) CMDIFrameWnd::OnSysCommand(nID, lParam);
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CMainFrame, CMDIFrameWnd)
ON_WM_SYSCOMMAND()
END_MESSAGE_MAP()

// A view with an in-place edit, a button and an in-place combo box; it logs
// the edit-mode messages and where its commands came from.
class CCellView : public CView {
  DECLARE_DYNCREATE(CCellView)
public:
  CCellEdit m_edit;
  CButton m_button;
  CCellCombo m_combo;
  std::vector<LPARAM> m_editModes;
  std::vector<std::pair<UINT, HWND>> m_commands; // command and the window it was sent to
  int m_nClicks = 0;

  virtual void OnDraw(CDC*) {}
  afx_msg int OnCreate(LPCREATESTRUCT lpcs) {
    if (CView::OnCreate(lpcs) == -1) return -1;
    m_edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(10, 10, 160, 34), this, IDC_FIRST);
    m_button.Create("Button", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(200, 10, 300, 34), this,
                    IDC_BUTTON);
    m_combo.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN, CRect(10, 60, 160, 200), this,
                   IDC_COMBO);
    for (const char* psz : {"Abcde", "Beta", "Gamma"})
      m_combo.AddString(psz);
    return 0;
  }
  afx_msg LRESULT OnEditMode(WPARAM, LPARAM lParam) {
    m_editModes.push_back(lParam);
    return 0;
  }
  afx_msg void OnButton() { ++m_nClicks; }
  void Record(UINT nID) { m_commands.push_back({nID, GetCurrentMessage()->hwnd}); }
  afx_msg void OnChildCmd() { Record(ID_CHILDCMD); }
  afx_msg void OnMainCmd() { Record(ID_MAINCMD); }
  DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNCREATE(CCellView, CView)
BEGIN_MESSAGE_MAP(CCellView, CView)
ON_WM_CREATE()
ON_MESSAGE(VWM_EDITMODE, &CCellView::OnEditMode)
ON_BN_CLICKED(IDC_BUTTON, &CCellView::OnButton)
ON_COMMAND(ID_CHILDCMD, &CCellView::OnChildCmd)
ON_COMMAND(ID_MAINCMD, &CCellView::OnMainCmd)
END_MESSAGE_MAP()

class CSheetDoc : public CDocument {
  DECLARE_DYNCREATE(CSheetDoc)
};
IMPLEMENT_DYNCREATE(CSheetDoc, CDocument)

// The application counts the wheel messages its run loop sees.
class CEditModeApp : public CWinApp {
public:
  CEditModeApp() : CWinApp("Edit Mode Test") {}
  int m_nWheels = 0;
  virtual BOOL PreTranslateMessage(MSG* pMsg) {
    if (pMsg->message == WM_MOUSEWHEEL) ++m_nWheels;
    return CWinApp::PreTranslateMessage(pMsg);
  }
};
CEditModeApp theApp;

tagEditModeSession& Session() { return *VEditCtrl::GetEditModeSession(); }

POINT CentreOf(CWnd* pWnd) {
  CRect rc;
  pWnd->GetWindowRect(&rc);
  return rc.CenterPoint();
}

class EditModeTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_pTemplate = new CMultiDocTemplate(IDR_SHEET, RUNTIME_CLASS(CSheetDoc),
                                        RUNTIME_CLASS(CMDIChildWnd), RUNTIME_CLASS(CCellView));
    theApp.AddDocTemplate(m_pTemplate);
    m_pMainFrame = new CMainFrame;
    ASSERT_TRUE(m_pMainFrame->LoadFrame(IDR_MAINFRAME));
    theApp.m_pMainWnd = m_pMainFrame;
    m_pMainFrame->ShowWindow(SW_SHOWMAXIMIZED);
    CDocument* pDoc = m_pTemplate->OpenDocumentFile(NULL);
    ASSERT_NE(nullptr, pDoc);
    POSITION pos = pDoc->GetFirstViewPosition();
    m_pView = (CCellView*)pDoc->GetNextView(pos);
    m_pView->GetParentFrame()->ShowWindow(SW_SHOWMAXIMIZED);
    user_input::Focus(*m_pMainFrame, m_pView->m_edit);
  }
  void TearDown() override {
    if (theApp.m_pMainWnd != NULL) theApp.m_pMainWnd->DestroyWindow();
    user_input::Pump();
    delete theApp.m_pDocManager;
    theApp.m_pDocManager = NULL;
    // Nothing of an edit may outlive its windows.
    EXPECT_EQ(nullptr, Session().pEdit);
    EXPECT_EQ(nullptr, Session().hMouseHook);
    EXPECT_EQ(nullptr, Session().hKeyboardHook);
  }
  // Leaves edit mode and enters it again through the focus.
  void Reenter(CWnd* pEdit) {
    VEditCtrl::EndEditMode();
    m_pView->SetFocus();
    user_input::Focus(*m_pMainFrame, *pEdit);
  }
  CMultiDocTemplate* m_pTemplate = NULL;
  CMainFrame* m_pMainFrame = NULL;
  CCellView* m_pView = NULL;
};

TEST_F(EditModeTest, FocusEntersEditModeAndTellsTheView) {
  CCellEdit& edit = m_pView->m_edit;
  ASSERT_EQ(std::vector<LPARAM>{(LPARAM)&edit}, m_pView->m_editModes);
  EXPECT_EQ(&edit, Session().pEdit);
  EXPECT_EQ(m_pView->m_hWnd, Session().hWndOwner);
  EXPECT_NE(nullptr, Session().hMouseHook);
  EXPECT_NE(nullptr, Session().hKeyboardHook);
  // The child frame's and the main frame's accelerators, one entry each.
  EXPECT_NE(nullptr, Session().hFrameAccel);
  EXPECT_EQ(1, Session().nFrameAccelCount);
  EXPECT_EQ(m_pMainFrame->m_hAccelTable, Session().hMainAccel);
  EXPECT_EQ(1, Session().nMainAccelCount);
  EXPECT_TRUE(VEditCtrl::IsEditModeWnd(edit));
  EXPECT_TRUE(VEditCtrl::IsEditModeWnd(*m_pView));
  EXPECT_FALSE(VEditCtrl::IsEditModeWnd(m_pView->m_button));
  EXPECT_EQ(WS_EX_CLIENTEDGE, edit.GetExStyle() & WS_EX_CLIENTEDGE);

  VEditCtrl::EndEditMode();
  EXPECT_EQ((LPARAM)0, m_pView->m_editModes.back());
  EXPECT_EQ(nullptr, Session().pEdit);
}

TEST_F(EditModeTest, ClickOnAnotherControlAsksTheEdit) {
  struct Case {
    BOOL bModified;
    LRESULT answer;
    DWORD nFlags;
    bool bEnds, bClickGoesOn;
  } cases[] = {
      {FALSE, TRUE, 0x10000001, true, true}, // the base answer: ends, the click goes on
      {TRUE, 0x21, 0x10000002, true, false}, // bit 0x20 eats the click
      {TRUE, 0x02, 0x10000002, true, false}, // no bit 0x01: eaten
      {FALSE, 0, 0x10000001, false, false},  // refused: the focus goes back to the edit
  };
  CCellEdit& edit = m_pView->m_edit;
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "answer " << c.answer);
    Reenter(&edit);
    ASSERT_EQ(&edit, Session().pEdit);
    edit.SetModifiedFlag(c.bModified);
    edit.m_answer = (BOOL)c.answer;
    edit.m_queries.clear();
    int nClicks = m_pView->m_nClicks;
    size_t nEditModes = m_pView->m_editModes.size();

    POINT pt = CentreOf(&m_pView->m_button);
    user_input::Click(pt);
    ASSERT_EQ(1u, edit.m_queries.size());
    EXPECT_EQ(c.nFlags, edit.m_queries[0].nFlags);
    EXPECT_EQ(pt.x, edit.m_queries[0].x);
    EXPECT_EQ(pt.y, edit.m_queries[0].y);
    EXPECT_EQ(0u, edit.m_queries[0].nKey);
    EXPECT_EQ(c.bEnds ? nullptr : &edit, Session().pEdit);
    EXPECT_EQ(c.bEnds ? nEditModes + 1 : nEditModes, m_pView->m_editModes.size());
    EXPECT_EQ(nClicks + (c.bClickGoesOn ? 1 : 0), m_pView->m_nClicks);
    if (!c.bEnds) {
      EXPECT_EQ(edit.m_hWnd, ::GetFocus());
    }
  }
}

TEST_F(EditModeTest, WheelOutsideAsksAndIsAlwaysEaten) {
  CCellEdit& edit = m_pView->m_edit;
  edit.m_answer = TRUE | 0x01;
  int nWheels = theApp.m_nWheels;
  user_input::Wheel(CentreOf(&m_pView->m_button));
  ASSERT_EQ(1u, edit.m_queries.size());
  EXPECT_EQ(0x10000001u, edit.m_queries[0].nFlags);
  EXPECT_EQ(nullptr, Session().pEdit);
  EXPECT_EQ(nWheels, theApp.m_nWheels);

  // Out of edit mode the same turn reaches the application.
  user_input::Wheel(CentreOf(&m_pView->m_button));
  EXPECT_EQ(nWheels + 1, theApp.m_nWheels);
  EXPECT_EQ(1u, edit.m_queries.size());
}

TEST_F(EditModeTest, AltF4BecomesAnEndEditQueryWithSysClose) {
  CCellEdit& edit = m_pView->m_edit;
  user_input::Press(VK_F4, {VK_MENU});
  ASSERT_EQ(1u, edit.m_queries.size());
  EXPECT_EQ(0xA0000001u, edit.m_queries[0].nFlags);
  EXPECT_EQ((UINT)SC_CLOSE, edit.m_queries[0].nKey);
  EXPECT_EQ(nullptr, Session().pEdit); // the base answer ends the edit
  for (UINT nID : m_pMainFrame->m_sysCommands)
    EXPECT_NE((UINT)SC_CLOSE, nID);
  EXPECT_TRUE(::IsWindow(m_pView->m_hWnd));
}

TEST_F(EditModeTest, FrameAcceleratorsWorkWhileEditing) {
  // While editing, the keyboard hook posts the command to the owner (the
  // view); outside edit mode the frames translate the key themselves.
  user_input::Press(VK_F7);
  user_input::Press(VK_F8);
  ASSERT_EQ(2u, m_pView->m_commands.size());
  EXPECT_EQ(ID_CHILDCMD, m_pView->m_commands[0].first);
  EXPECT_EQ(m_pView->m_hWnd, m_pView->m_commands[0].second);
  EXPECT_EQ(ID_MAINCMD, m_pView->m_commands[1].first);
  EXPECT_EQ(m_pView->m_hWnd, m_pView->m_commands[1].second);
  EXPECT_EQ(&m_pView->m_edit, Session().pEdit);
  EXPECT_STREQ("", [&] {
    CString s;
    m_pView->m_edit.GetWindowText(s);
    return s;
  }());

  VEditCtrl::EndEditMode();
  user_input::Press(VK_F7);
  ASSERT_EQ(3u, m_pView->m_commands.size());
  EXPECT_EQ(ID_CHILDCMD, m_pView->m_commands[2].first);
  EXPECT_NE(m_pView->m_hWnd, m_pView->m_commands[2].second);
}

TEST_F(EditModeTest, EscapeInAComboClosesTheListFirst) {
  CCellCombo& combo = m_pView->m_combo;
  CCellComboEdit* pEdit = (CCellComboEdit*)combo.GetEditCtrl();
  ASSERT_NE(nullptr, pEdit);
  Reenter(pEdit);
  ASSERT_EQ(pEdit, Session().pEdit);
  EXPECT_EQ(combo.m_hWnd, Session().hWndOwner);

  CRect rc;
  combo.GetClientRect(&rc);
  user_input::ClickClient(combo, rc.right - 5, rc.Height() / 2); // the arrow
  ASSERT_TRUE(combo.GetDroppedState());
  EXPECT_EQ(pEdit, Session().pEdit);

  user_input::Press(VK_ESCAPE);
  EXPECT_FALSE(combo.GetDroppedState());
  EXPECT_TRUE(pEdit->m_queries.empty());
  EXPECT_EQ(pEdit, Session().pEdit);

  user_input::Press(VK_ESCAPE);
  ASSERT_EQ(1u, pEdit->m_queries.size());
  EXPECT_EQ(0x20000001u, pEdit->m_queries[0].nFlags);
  EXPECT_EQ((UINT)VK_ESCAPE, pEdit->m_queries[0].nKey);
  EXPECT_EQ(nullptr, Session().pEdit);
}

TEST_F(EditModeTest, SettingTextWithVerificationKeepsOnlyRealChanges) {
  struct Case {
    BOOL bModified, bVerify;
    const char* pszNew;
    BOOL bModifiedAfter;
  } cases[] = {{TRUE, TRUE, "same", FALSE},
               {TRUE, TRUE, "other", TRUE},
               {TRUE, FALSE, "same", TRUE},
               {FALSE, FALSE, "other", FALSE}};
  CCellEdit& edit = m_pView->m_edit;
  for (const Case& c : cases) {
    edit.SetWindowText("same");
    edit.SetModifiedFlag(c.bModified);
    edit.SetVerifyChanged(c.bVerify);
    edit.SetWindowText(c.pszNew);
    EXPECT_EQ(c.bModifiedAfter, edit.IsModified()) << c.pszNew;
    EXPECT_EQ(c.bModifiedAfter, (BOOL)edit.SendMessage(VWM_ISMODIFIED));
    EXPECT_FALSE(edit.GetVerifyChanged());
  }
}

TEST_F(EditModeTest, EditsDestroyedOrReplacedDuringEditModeLeaveNothingBehind) {
  CCellEdit& edit = m_pView->m_edit;
  HHOOK hMouse = Session().hMouseHook, hKeyboard = Session().hKeyboardHook;
  // A second edit: its construction resets the flag, its focus takes over.
  CCellEdit* pSecond = new CCellEdit;
  ASSERT_TRUE(pSecond->Create(WS_CHILD | WS_VISIBLE, CRect(10, 220, 160, 244), m_pView, 0x500));
  user_input::Focus(*m_pMainFrame, *pSecond);
  EXPECT_EQ(pSecond, Session().pEdit);
  EXPECT_EQ((LPARAM)pSecond, m_pView->m_editModes.back());
  EXPECT_FALSE(::UnhookWindowsHookEx(hMouse)); // the first edit's hooks are gone
  EXPECT_FALSE(::UnhookWindowsHookEx(hKeyboard));

  // Deleting the object in the middle of the edit.
  hMouse = Session().hMouseHook;
  delete pSecond;
  EXPECT_EQ(nullptr, Session().pEdit);
  EXPECT_EQ((LPARAM)0, m_pView->m_editModes.back());
  EXPECT_FALSE(::UnhookWindowsHookEx(hMouse));

  // Destroying the window in the middle of the edit.
  Reenter(&edit);
  ASSERT_EQ(&edit, Session().pEdit);
  hMouse = Session().hMouseHook;
  size_t nEditModes = m_pView->m_editModes.size();
  edit.DestroyWindow();
  EXPECT_EQ(nullptr, Session().pEdit);
  EXPECT_EQ(nullptr, Session().hKeyboardHook);
  EXPECT_EQ(nEditModes + 1, m_pView->m_editModes.size());
  EXPECT_EQ((LPARAM)0, m_pView->m_editModes.back());
  EXPECT_FALSE(::UnhookWindowsHookEx(hMouse));
  // Input goes on normally afterwards.
  user_input::Click(CentreOf(&m_pView->m_button));
  EXPECT_EQ(1, m_pView->m_nClicks);
}

// Tab and Enter in a dialog: WM_GETDLGCODE keeps them from the dialog
// manager, the edit commits, and Tab moves on to the next tab stop.
TEST_F(EditModeTest, TabAndEnterCommitInADialog) {
  struct Case {
    WORD vk;
    UINT nFocusId;
  } cases[] = {{VK_TAB, IDC_SECOND}, {VK_RETURN, IDC_FIRST}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "key " << c.vk);
    CDialog dlg;
    ASSERT_TRUE(dlg.Create(IDD_CELLS, m_pMainFrame));
    CCellEdit edit;
    ASSERT_TRUE(edit.SubclassDlgItem(IDC_FIRST, &dlg));
    user_input::Focus(dlg, ::GetDlgItem(dlg, IDC_SECOND));
    user_input::Focus(dlg, edit);
    ASSERT_EQ(&edit, Session().pEdit);
    EXPECT_EQ(dlg.m_hWnd, Session().hWndOwner);

    user_input::Press(c.vk);
    ASSERT_EQ(1u, edit.m_queries.size());
    EXPECT_EQ(0x20000002u, edit.m_queries[0].nFlags);
    EXPECT_EQ((UINT)c.vk, edit.m_queries[0].nKey);
    EXPECT_EQ(nullptr, Session().pEdit);
    EXPECT_EQ(::GetDlgItem(dlg, c.nFocusId), ::GetFocus());
    EXPECT_TRUE(::IsWindow(dlg)); // Enter did not reach the dialog as IDOK
    dlg.DestroyWindow();
  }
}

// Each key completes from the list before the edit takes its character
// (completion without keeping the typed case): "ab" shows the entry's "Ab".
TEST_F(EditModeTest, KeysInTheComboCompleteFromTheList) {
  CCellCombo& combo = m_pView->m_combo;
  Reenter(combo.GetEditCtrl());
  user_input::Type("ab");
  CString strText;
  combo.GetWindowText(strText);
  EXPECT_STREQ("Ab", strText);
  user_input::Type("z");
  combo.GetWindowText(strText);
  EXPECT_STREQ("Abz", strText);
  EXPECT_EQ(combo.GetEditCtrl(), Session().pEdit);
}

} // namespace
