// Message maps for commands and notifications: command routing and ranges,
// update handlers on menus, reflection of control notifications and colours
// to the control, exceptions in command handlers.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "msgbox_catcher.h"

namespace {

const UINT ID_ONE = 40001;
const UINT ID_DISABLED = 40002;
const UINT ID_RANGE_FIRST = 40010;
const UINT ID_RANGE_LAST = 40019;
const UINT ID_THROWS = 40040;
const UINT ID_UNHANDLED = 40030;
const UINT IDC_BUTTON = 101;
const UINT IDC_PLAIN = 102;
const UINT NM_CUSTOM = (UINT)-900;

class CCommandWnd : public CWnd {
public:
  std::vector<std::string> log;
  afx_msg void OnOne() { log.push_back("One"); }
  afx_msg void OnDisabled() { log.push_back("Disabled"); }
  afx_msg void OnUpdateDisabled(CCmdUI* pCmdUI) { pCmdUI->Enable(FALSE); }
  afx_msg void OnRange(UINT nID) { log.push_back("Range " + std::to_string(nID - ID_RANGE_FIRST)); }
  afx_msg void OnThrows() { AfxThrowNotSupportedException(); }
  afx_msg void OnPlainClicked() { log.push_back("Plain clicked"); }
  afx_msg void OnCustomNotify(NMHDR* pNMHDR, LRESULT* pResult) {
    log.push_back("Parent notify " + std::to_string(pNMHDR->idFrom));
    *pResult = 77;
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CCommandWnd, CWnd)
ON_COMMAND(ID_ONE, &CCommandWnd::OnOne)
ON_COMMAND(ID_DISABLED, &CCommandWnd::OnDisabled)
ON_UPDATE_COMMAND_UI(ID_DISABLED, &CCommandWnd::OnUpdateDisabled)
ON_COMMAND_RANGE(ID_RANGE_FIRST, ID_RANGE_LAST, &CCommandWnd::OnRange)
ON_COMMAND(ID_THROWS, &CCommandWnd::OnThrows)
ON_BN_CLICKED(IDC_PLAIN, &CCommandWnd::OnPlainClicked)
ON_NOTIFY(NM_CUSTOM, IDC_PLAIN, &CCommandWnd::OnCustomNotify)
ON_NOTIFY(NM_CUSTOM, IDC_BUTTON, &CCommandWnd::OnCustomNotify)
END_MESSAGE_MAP()

class CommandTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(m_wnd.CreateEx(0, NULL, "commands", WS_POPUP, 0, 0, 200, 200, NULL, NULL));
  }
  void TearDown() override { m_wnd.DestroyWindow(); }
  // A menu item or accelerator command.
  LRESULT Command(UINT nID) { return m_wnd.SendMessage(WM_COMMAND, MAKEWPARAM(nID, 0), 0); }
  CCommandWnd m_wnd;
};

// A command its update handler disables is refused; OnCmdMsg with a handler
// info reports the handler without calling it; an exception in a handler is
// reported.
TEST_F(CommandTest, CommandsAndRangesReachTheirHandlers) {
  Command(ID_ONE);
  Command(ID_RANGE_FIRST);
  Command(ID_RANGE_LAST);
  Command(ID_RANGE_LAST + 1); // outside the range: no handler
  Command(ID_UNHANDLED);
  Command(ID_DISABLED);
  AFX_CMDHANDLERINFO info = {NULL, NULL};
  EXPECT_TRUE(m_wnd.OnCmdMsg(ID_ONE, CN_COMMAND, NULL, &info));
  EXPECT_EQ(&m_wnd, info.pTarget);
  EXPECT_TRUE(info.pmf != NULL);
  EXPECT_FALSE(m_wnd.OnCmdMsg(ID_UNHANDLED, CN_COMMAND, NULL, &info));
  std::vector<std::string> expected = {"One", "Range 0", "Range 9"};
  EXPECT_EQ(expected, m_wnd.log);
  MsgBoxCatcher catcher;
  EXPECT_EQ(TRUE, Command(ID_THROWS));
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ("Command failed.", catcher.Last().text);
}

TEST_F(CommandTest, CmdUIOnAMenuEnablesChecksShowsTheDotAndSetsText) {
  CMenu menu;
  ASSERT_TRUE(menu.CreatePopupMenu());
  menu.AppendMenu(MF_STRING, ID_ONE, "One");
  menu.AppendMenu(MF_STRING, ID_DISABLED, "Disabled");
  menu.AppendMenu(MF_STRING, ID_UNHANDLED, "Unhandled");
  CCmdUI state;
  state.m_pMenu = &menu;
  state.m_nIndexMax = menu.GetMenuItemCount();
  for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; state.m_nIndex++) {
    state.m_nID = menu.GetMenuItemID(state.m_nIndex);
    state.DoUpdate(&m_wnd, TRUE);
  }
  EXPECT_EQ(0u, menu.GetMenuState(ID_ONE, MF_BYCOMMAND) & MF_GRAYED);
  EXPECT_NE(0u, menu.GetMenuState(ID_DISABLED, MF_BYCOMMAND) & MF_GRAYED);  // its handler
  EXPECT_NE(0u, menu.GetMenuState(ID_UNHANDLED, MF_BYCOMMAND) & MF_GRAYED); // no handler

  state.m_nIndex = 0;
  state.m_nID = ID_ONE;
  state.SetRadio(TRUE);
  EXPECT_NE(0u, menu.GetMenuState(ID_ONE, MF_BYCOMMAND) & MF_CHECKED);
  MENUITEMINFO mii = {sizeof(mii)};
  mii.fMask = MIIM_CHECKMARKS;
  ASSERT_TRUE(menu.GetMenuItemInfo(0, &mii, TRUE));
  EXPECT_EQ(AfxGetRadioDotBitmap(), mii.hbmpChecked); // the cool menu's suite draws it

  state.SetCheck(0);
  EXPECT_EQ(0u, menu.GetMenuState(ID_ONE, MF_BYCOMMAND) & MF_CHECKED);
  state.SetText("Renamed\tCtrl+R");
  CString strText;
  menu.GetMenuString(0, strText, MF_BYPOSITION);
  EXPECT_STREQ("Renamed\tCtrl+R", strText);
  EXPECT_EQ(ID_ONE, menu.GetMenuItemID(0)); // the id is kept
}

class CReflectingButton : public CButton {
public:
  std::vector<std::string>* pLog = nullptr;
  HBRUSH hBrush = NULL;
  afx_msg void OnNotifyReflect(NMHDR*, LRESULT* pResult) {
    pLog->push_back("Button handled notify");
    *pResult = 5;
  }
  afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor) {
    pLog->push_back("Button colour " + std::to_string(nCtlColor));
    pDC->SetTextColor(RGB(1, 2, 3));
    return hBrush;
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CReflectingButton, CButton)
ON_NOTIFY_REFLECT(NM_CUSTOM, &CReflectingButton::OnNotifyReflect)
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

// Notifications and colours are reflected to a control that maps them; the
// parent handles the rest. (Reflected clicks and owner draw: the custom
// combo box's and VStatusBar's suites.)
TEST_F(CommandTest, NotificationsAndColoursAreReflectedToTheControl) {
  CReflectingButton button;
  button.pLog = &m_wnd.log;
  ASSERT_TRUE(button.Create("b", WS_CHILD, CRect(0, 0, 50, 20), &m_wnd, IDC_BUTTON));
  HWND hPlain = ::CreateWindow("BUTTON", "p", WS_CHILD, 0, 30, 50, 20, m_wnd.m_hWnd,
                               (HMENU)(UINT_PTR)IDC_PLAIN, NULL, NULL);
  m_wnd.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_PLAIN, BN_CLICKED), (LPARAM)hPlain);

  NMHDR nm = {button.m_hWnd, IDC_BUTTON, NM_CUSTOM};
  EXPECT_EQ(5, m_wnd.SendMessage(WM_NOTIFY, IDC_BUTTON, (LPARAM)&nm));
  NMHDR nmPlain = {hPlain, IDC_PLAIN, NM_CUSTOM};
  EXPECT_EQ(77, m_wnd.SendMessage(WM_NOTIFY, IDC_PLAIN, (LPARAM)&nmPlain));
  std::vector<std::string> expected = {"Plain clicked", "Button handled notify",
                                       "Parent notify 102"};
  EXPECT_EQ(expected, m_wnd.log);
  m_wnd.log.clear();

  // Colours reach the control too.
  button.hBrush = (HBRUSH)::GetStockObject(GRAY_BRUSH);
  HDC hdc = ::GetDC(m_wnd.m_hWnd);
  LRESULT lBrush = m_wnd.SendMessage(WM_CTLCOLORBTN, (WPARAM)hdc, (LPARAM)button.m_hWnd);
  EXPECT_EQ((LRESULT)button.hBrush, lBrush);
  EXPECT_EQ(RGB(1, 2, 3), ::GetTextColor(hdc));
  // A NULL brush from the control leaves the message to the parent's default.
  button.hBrush = NULL;
  m_wnd.SendMessage(WM_CTLCOLORSTATIC, (WPARAM)hdc, (LPARAM)button.m_hWnd);
  ::ReleaseDC(m_wnd.m_hWnd, hdc);
  expected = {"Button colour 3", "Button colour 6"};
  EXPECT_EQ(expected, m_wnd.log);
}

TEST_F(CommandTest, NotificationsWithBadHeadersAreIgnored) {
  EXPECT_EQ(0, m_wnd.SendMessage(WM_NOTIFY, 0, 0));
  m_wnd.SendMessage(WM_DRAWITEM, 1, 0); // no structures: passed on, no crash
  m_wnd.SendMessage(WM_MEASUREITEM, 1, 0);
  m_wnd.SendMessage(WM_DELETEITEM, 1, 0);
  m_wnd.SendMessage(WM_COMPAREITEM, 1, 0);
  NMHDR nm = {NULL, 5, NM_CUSTOM};
  EXPECT_EQ(0, m_wnd.SendMessage(WM_NOTIFY, 5, (LPARAM)&nm));
  EXPECT_TRUE(m_wnd.log.empty());
}

} // namespace
