// Owner-drawn menus on a real CFrameWnd, opened by keyboard input and drawn
// into a memory DC checked in pixels.
#include <vrk_coolmenu.h>
#include <gtest/gtest.h>

#include "../drawing/drawing_testing.h"
#include "coolmenu_testing.h"
#include "user_input.h"

namespace {

COLORREF Sys(int n) { return ::GetSysColor(n); }

class TestManager : public VCoolMenuManager {
public:
  using VCoolMenuManager::AppendAccelName;
  using VCoolMenuManager::ConvertMenu;
  using VCoolMenuManager::GetButtonInfo;
  using VCoolMenuManager::GetMenuFont;
  using VCoolMenuManager::HookWindow;
  using VCoolMenuManager::LoadAccel;
  using VCoolMenuManager::m_imageList;
  using VCoolMenuManager::m_pAccelTable;
  using VCoolMenuManager::m_sizeBox;
  int Image(WORD nID) { return GetButtonInfo(nID) ? GetButtonInfo(nID)->nImage : -2; }
};

class TagHook : public VCoolMenuSubclassWnd {
public:
  TagHook(std::string& log, char tag) : m_log(log), m_tag(tag) {}
  LRESULT WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) override {
    if (msg != WM_APP) return VCoolMenuSubclassWnd::WindowProc(msg, wParam, lParam);
    m_log += m_tag;
    return Default();
  }
  std::string& m_log;
  char m_tag;
};

UINT g_nLastCommand = 0;
LONG_PTR g_procAtNcDestroy = 0;

class CoolFrame : public CFrameWnd {
public:
  BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pInfo) override {
    if (nCode == (int)CN_UPDATE_COMMAND_UI && nID == ID_PLAIN) ((CCmdUI*)pExtra)->SetRadio(TRUE);
    if (nCode == (int)CN_COMMAND && nID < 0xF000 && pInfo == NULL) g_nLastCommand = nID;
    return nID < 0xF000 || CFrameWnd::OnCmdMsg(nID, nCode, pExtra, pInfo);
  }
  afx_msg LRESULT OnApp(WPARAM, LPARAM) { return 42; }
  afx_msg void OnNcDestroy() {
    g_procAtNcDestroy = ::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC);
    CFrameWnd::OnNcDestroy();
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CoolFrame, CFrameWnd)
ON_MESSAGE(WM_APP, &CoolFrame::OnApp)
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

using user_input::Key;
using user_input::Pump;

// Alt+menu, then item: queued at once, so that the menu loop finds them.
void ChooseFromMenuBar(WORD menu, WORD item) {
  user_input::Send({Key(VK_MENU, 0), Key(menu, 0), Key(menu, KEYEVENTF_KEYUP),
                    Key(VK_MENU, KEYEVENTF_KEYUP), Key(item, 0), Key(item, KEYEVENTF_KEYUP)});
}

// Ends a menu loop that input failed to end, so that a fault cannot hang.
void CALLBACK EndMenuLater(HWND, UINT, UINT_PTR, DWORD) { ::EndMenu(); }

class CoolMenuTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_pFrame = new CoolFrame; // deleted with its window
    ASSERT_TRUE(m_pFrame->LoadFrame(IDR_COOLFRAME, WS_OVERLAPPEDWINDOW));
    m_hWnd = m_pFrame->m_hWnd;
    m_procOriginal = ::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC);
    m_pFrame->ShowWindow(SW_SHOW);
    ::SetForegroundWindow(m_hWnd);
    Pump();
    m_manager.Install(m_pFrame);
    ASSERT_TRUE(m_manager.LoadToolbar(IDR_TB_MAIN) && m_manager.LoadToolbar(IDR_TB_SECOND));
    m_nTimer = ::SetTimer(NULL, 0, 3000, EndMenuLater);
    g_nLastCommand = 0;
  }
  void TearDown() override {
    ::KillTimer(NULL, m_nTimer);
    if (::IsWindow(m_hWnd)) ::DestroyWindow(m_hWnd);
    Pump();
  }
  CMenu* Popup(int i) { return CMenu::FromHandle(::GetSubMenu(::GetMenu(m_hWnd), i)); }
  void Open(int i) { // as the system does when popup i of the menu bar opens
    m_pFrame->SendMessage(WM_INITMENUPOPUP, (WPARAM)Popup(i)->m_hMenu, MAKELPARAM(i, FALSE));
  }
  static bool OwnerDrawn(CMenu* pMenu, int nPos) {
    return (pMenu->GetMenuState(nPos, MF_BYPOSITION) & MF_OWNERDRAW) != 0;
  }
  // Item nID of popup nMenu drawn into a 160 x 24 canvas with the menu font.
  void Draw(Canvas& c, UINT nID, UINT nState, int nMenu) {
    c.Clear(kBack);
    c.DC().SelectObject(m_manager.GetMenuFont());
    c.DC().SetTextColor(RGB(0, 0, 0)); // the colour of a check mark's ink
    DRAWITEMSTRUCT dis = {
        ODT_MENU,        0, nID, ODA_DRAWENTIRE, nState, (HWND)Popup(nMenu)->m_hMenu, c.Handle(),
        {0, 0, 160, 24}, 0};
    EXPECT_EQ(TRUE, m_pFrame->SendMessage(WM_DRAWITEM, 0, (LPARAM)&dis)) << nID;
    c.DC().SelectStockObject(SYSTEM_FONT);
  }

  TestManager m_manager;
  CoolFrame* m_pFrame = NULL;
  HWND m_hWnd = NULL;
  LONG_PTR m_procOriginal = 0;
  UINT_PTR m_nTimer = 0;
};

TEST(CoolMenuToolbars, BothLayoutsOneButtonSizeAndRepeatedCommands) {
  TestManager manager;
  EXPECT_TRUE(manager.LoadToolbar(IDR_TB_MAIN) && manager.LoadToolbar(IDR_TB_SECOND));
  const UINT refused[] = {IDR_TB_BIG,   IDR_TB_TRUNCATED, IDR_TB_TRUNCATED_GNU,
                          IDR_TB_EMPTY, IDR_TB_NOBITMAP,  0x7777};
  for (UINT nID : refused)
    EXPECT_FALSE(manager.LoadToolbar(nID)) << nID;
  EXPECT_TRUE(manager.LoadToolbars(refused, 6) && manager.LoadToolbars(NULL, 0));
  EXPECT_TRUE(manager.Image(ID_TOOL_Z) == -2 && manager.m_imageList.GetImageCount() == 6);
  EXPECT_EQ(CSize(20, 19), manager.m_sizeBox);
  TestManager big; // the first toolbar sets the size
  EXPECT_TRUE(big.LoadToolbar(IDR_TB_BIG) && !big.LoadToolbar(IDR_TB_MAIN));
  EXPECT_TRUE(big.m_sizeBox == CSize(28, 28) && big.m_imageList.GetImageCount() == 1);
}

// Wine finds the mnemonic of an owner-drawn item itself, without WM_MENUCHAR.
TEST_F(CoolMenuTest, KeyboardOpensOwnerDrawnPopupsContextMenusKeepTheirTexts) {
  ChooseFromMenuBar('F', 'O');
  EXPECT_EQ((UINT)ID_FILE_OPEN, g_nLastCommand);
  const bool expected[] = {true, true, false, true, true, true, false}; // separator, SC_CLOSE
  for (int i = 0; i < 7; i++)
    EXPECT_EQ(expected[i], OwnerDrawn(Popup(0), i)) << i;
  EXPECT_STREQ("&New\tCtrl+N", m_manager.GetButtonInfo(ID_FILE_NEW)->strText);
  ChooseFromMenuBar('E', 'B');
  EXPECT_EQ((UINT)ID_BANANA, g_nLastCommand);
  CMenu context;
  ASSERT_TRUE(context.LoadMenu(IDR_CONTEXT));
  INPUT escape[] = {Key(VK_ESCAPE, 0), Key(VK_ESCAPE, KEYEVENTF_KEYUP)}; // for the loop below
  ::SendInput(2, escape, sizeof(INPUT));
  context.GetSubMenu(0)->TrackPopupMenu(TPM_LEFTALIGN, 20, 20, m_pFrame);
  EXPECT_TRUE(OwnerDrawn(context.GetSubMenu(0), 0));
  EXPECT_STREQ("&Copy", m_manager.GetButtonInfo(ID_EDIT_COPY)->strText);
  EXPECT_STREQ("Copy &here", m_manager.GetButtonInfo(ID_EDIT_COPY)->strContextText);
  CMenu* pSystem = m_pFrame->GetSystemMenu(FALSE);
  m_pFrame->SendMessage(WM_INITMENUPOPUP, (WPARAM)pSystem->m_hMenu, MAKELPARAM(0, TRUE));
  for (UINT i = 0; i < pSystem->GetMenuItemCount(); i++)
    EXPECT_FALSE(OwnerDrawn(pSystem, i)) << i;
}

TEST_F(CoolMenuTest, ItemsMeasuredDrawnAndFoundByMnemonic) {
  Open(0);
  Open(1);
  MEASUREITEMSTRUCT mis = {ODT_MENU, 0, ID_FILE_NEW}, sep = {ODT_MENU, 0, 0, 99, 99};
  EXPECT_EQ(TRUE, m_pFrame->SendMessage(WM_MEASUREITEM, 0, (LPARAM)&mis));
  m_pFrame->SendMessage(WM_MEASUREITEM, 0, (LPARAM)&sep);
  const UINT cyMenu = ::GetSystemMetrics(SM_CYMENU);
  EXPECT_TRUE(mis.itemWidth > 46 && mis.itemHeight >= cyMenu);
  EXPECT_TRUE(sep.itemHeight == cyMenu / 2 && sep.itemWidth == 0);
  // Column x = 10 (y 0 to 23) and row y = 12 (x 0 to 22) of each item: the
  // box is (0,2)-(20,21), the image's coloured block (4,6)-(16,16). Letters
  // as in the legend, the first colour that matches (Wine's menu colour is
  // white, its grey text the button shadow).
  const Legend l = {{'H', Sys(COLOR_HIGHLIGHT)}, {'r', RGB(255, 0, 0)},
                    {'l', Sys(COLOR_3DLIGHT)},   {'s', Sys(COLOR_BTNSHADOW)},
                    {'w', Sys(COLOR_MENU)},      {'w', Sys(COLOR_BTNHIGHLIGHT)},
                    {'k', RGB(0, 0, 0)}};
  const std::string r10(10, 'r'), r12(12, 'r'), s10(10, 's'), s12(12, 's');
  // clang-format off
  struct { UINT nID, nState; int nMenu; std::string column, row; } cases[] = {
      {ID_FILE_NEW, 0, 0, "..wwww" + r10 + "wwwww...", "wwww" + r12 + "wwww..."},
      {ID_FILE_NEW, ODS_SELECTED, 0, "..wwww" + r10 + "wwwws...", "wwww" + r12 + "wwws.HH"},
      {ID_FILE_NEW, ODS_CHECKED, 0, "..slll" + r10 + "llllw...", "slll" + r12 + "lllw..."},
      {ID_FILE_NEW, ODS_GRAYED, 0, "......" + s10 + "w.......", "...." + s12 + "w......"},
      {ID_PLAIN, ODS_CHECKED, 0, ".....slllkkkkklllw......", "...slllkkkkklllw......."},
      {ID_PLAIN, ODS_SELECTED, 0, std::string(24, 'H'), std::string(23, 'H')},
      {0, 0, 0, std::string(12, '.') + "sw" + std::string(10, '.'), std::string(23, 's')},
      {0x7000, ODS_SELECTED, 0, std::string(24, '.'), std::string(23, '.')}};
  // clang-format on
  Canvas c(160, 24);
  for (const auto& t : cases) {
    Draw(c, t.nID, t.nState, t.nMenu);
    EXPECT_EQ(t.column, Pixels(c, 10, 0, 0, 1, 24, l)) << t.nID << " " << t.nState;
    EXPECT_EQ(t.row, Pixels(c, 0, 12, 1, 0, 23, l)) << t.nID << " " << t.nState;
  }
  // The accelerator ends at the box-wide right margin; grey text has its
  // highlight copy; the disabled look by DrawState and the system check mark.
  Draw(c, ID_FILE_NEW, 0, 0);
  EXPECT_TRUE(c.Count(0, CRect(110, 0, 140, 24)) > 0 &&
              c.CountNot(kBack, CRect(140, 0, 160, 24)) == 0);
  Draw(c, ID_FILE_NEW, ODS_GRAYED, 0);
  EXPECT_TRUE(c.Count(Sys(COLOR_GRAYTEXT), CRect(23, 0, 140, 24)) > 0 &&
              c.Count(Sys(COLOR_3DHILIGHT), CRect(23, 0, 140, 24)) > 0);
  m_manager.m_bDisabledByDrawState = TRUE;
  Draw(c, ID_FILE_NEW, ODS_GRAYED, 0);
  EXPECT_TRUE(c.Count(RGB(255, 0, 0)) == 0 && c.CountNot(kBack, CRect(4, 6, 16, 16)) > 0);
  Draw(c, ID_APPLE, ODS_CHECKED, 1);
  EXPECT_GT(c.Count(0, CRect(0, 0, 20, 24)), 10);
  // A colour change rebuilds the images with the same indices.
  m_pFrame->SendMessage(WM_SYSCOLORCHANGE);
  const WORD ids[] = {ID_FILE_NEW, ID_FILE_OPEN, ID_EDIT_COPY, ID_TOOL_X, ID_TOOL_Y, ID_PLAIN};
  for (int i = 0; i < 6; i++)
    EXPECT_EQ(i < 5 ? i : -1, m_manager.Image(ids[i])) << ids[i];
  Draw(c, ID_TOOL_Y, 0, 0);
  EXPECT_EQ(120, c.Count(RGB(128, 0, 0), CRect(4, 6, 16, 16)));
  // Mnemonics of &Apple, &Banana, &Avocado, &Cherry: one match runs, several cycle.
  HMENU hEdit = Popup(1)->m_hMenu;
  // clang-format off
  struct { char ch; int nHilite; LRESULT expected; } keys[] = {
      {'b', -1, MAKELRESULT(1, MNC_EXECUTE)}, {'C', -1, MAKELRESULT(3, MNC_EXECUTE)},
      {'a', -1, MAKELRESULT(0, MNC_SELECT)}, {'A', 0, MAKELRESULT(2, MNC_SELECT)},
      {'a', 1, MAKELRESULT(2, MNC_SELECT)}, {'a', 2, MAKELRESULT(0, MNC_SELECT)}, {'z', -1, 0}};
  // clang-format on
  for (const auto& k : keys) {
    for (int i = 0; i < 4; i++) {
      MENUITEMINFO mii = {sizeof(mii), MIIM_STATE, 0, (UINT)(i == k.nHilite ? MFS_HILITE : 0)};
      ::SetMenuItemInfo(hEdit, i, TRUE, &mii);
    }
    EXPECT_EQ(k.expected,
              m_pFrame->SendMessage(WM_MENUCHAR, MAKEWPARAM(k.ch, MF_POPUP), (LPARAM)hEdit))
        << k.ch << " " << k.nHilite;
  }
}

TEST_F(CoolMenuTest, HooksChainAndAllGoAtNcDestroyWithTheProcedureBack) {
  std::string log;
  TagHook a(log, 'a'), b(log, 'b');
  a.HookWindow(m_pFrame);
  b.HookWindow(m_pFrame);
  EXPECT_EQ(42, m_pFrame->SendMessage(WM_APP));
  a.HookWindow(NULL); // from the middle of the chain
  EXPECT_EQ(42, m_pFrame->SendMessage(WM_APP));
  EXPECT_EQ("bab", log);
  b.HookWindow(NULL); // the head: the manager's hook is the head again
  m_manager.HookWindow(NULL);
  EXPECT_EQ(m_procOriginal, ::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC));
  a.HookWindow(m_pFrame), b.HookWindow(m_pFrame), m_manager.HookWindow(m_pFrame);
  ::DestroyWindow(m_hWnd);
  EXPECT_EQ(m_procOriginal, g_procAtNcDestroy);
  EXPECT_FALSE(a.IsHooked() || b.IsHooked() || m_manager.IsHooked());
}

TEST_F(CoolMenuTest, AcceleratorCopyLongTextsAndTheRadioDot) {
  Open(0); // copies the frame's table
  ASSERT_TRUE(m_manager.m_pAccelTable != NULL);
  const WORD distances[] = {0, 0, 2, 2, 0, 3};
  for (int i = 0; i < 6; i++)
    EXPECT_EQ(distances[i], m_manager.m_pAccelTable[i].cmd) << i;
  // clang-format off
  struct { const char *pszText, *pszExpected; UINT nID; } cases[] = {
      {"&New\tCtrl+N", "&New\tAlt+F7, Shift+F6, Ctrl+N", ID_FILE_NEW},
      {"&Open", "&Open\tCtrl+O, F5", ID_FILE_OPEN}, {"\tkept", "\tkept\tCtrl+F8", ID_EDIT_COPY},
      {"&Plain\told", "&Plain", ID_PLAIN}}; // no accelerator: FALSE
  // clang-format on
  for (const auto& c : cases) {
    CString str(c.pszText);
    EXPECT_EQ(c.nID != ID_PLAIN, m_manager.AppendAccelName(str, c.nID)) << c.pszText;
    EXPECT_STREQ(c.pszExpected, str);
  }
  std::vector<ACCEL> many(1000, ACCEL{FVIRTKEY, VK_F1, ID_TOOL_Z}); // a thousand, then none
  HACCEL hMany = ::CreateAcceleratorTable(many.data(), 1000);
  m_manager.LoadAccel(hMany);
  CString str;
  EXPECT_TRUE(m_manager.AppendAccelName(str, ID_TOOL_Z) && str.Replace(", ", ";") == 999);
  ::DestroyAcceleratorTable(hMany);
  m_manager.LoadAccel(NULL);
  EXPECT_TRUE(m_manager.m_pAccelTable == NULL && !m_manager.AppendAccelName(str, ID_TOOL_Z));
  CMenu menu; // a text longer than the buffer is cut
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_STRING, ID_TOOL_Z, CString('x', 300));
  m_manager.ConvertMenu(&menu, 0, FALSE, TRUE);
  EXPECT_TRUE(m_manager.GetButtonInfo(ID_TOOL_Z)->strText.GetLength() == 255 &&
              OwnerDrawn(&menu, 0));
  EXPECT_EQ(AfxGetRadioDotBitmap(), VCoolMenuManager::GetMFCDotBitmap());
}

} // namespace
