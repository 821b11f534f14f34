// Owner-drawn menus on a real CFrameWnd: toolbar images in both resource
// layouts, popups converted as they open (from the menu bar by keyboard
// input and as a tracked context menu), the system menu left alone, items
// measured and drawn into a memory DC and checked in pixels, mnemonics,
// chained hooks removed at WM_NCDESTROY, colour changes, and the
// accelerator copy.
#include <vrk_coolmenu.h>
#include <gtest/gtest.h>

#include "../../afx/gdi_canvas.h"
#include "coolmenu_testing.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

const COLORREF kBack = RGB(10, 120, 30);
const COLORREF kRed = RGB(255, 0, 0), kDarkRed = RGB(128, 0, 0), kOrange = RGB(255, 128, 0);
const CRect kImageBlock(4, 6, 16, 16); // where an item's image block lands (12 x 10)

COLORREF Sys(int n) { return ::GetSysColor(n); }

// Opens the protected members to the tests and counts the owner-draw calls.
class TestManager : public VCoolMenuManager {
public:
  using VCoolMenuManager::AppendAccelName;
  using VCoolMenuManager::ConvertMenu;
  using VCoolMenuManager::GetButtonInfo;
  using VCoolMenuManager::GetMenuFont;
  using VCoolMenuManager::HookWindow;
  using VCoolMenuManager::LoadAccel;
  using VCoolMenuManager::m_arToolbarIDs;
  using VCoolMenuManager::m_imageList;
  using VCoolMenuManager::m_pAccelTable;
  using VCoolMenuManager::m_sizeBox;
  using VCoolMenuManager::m_sizeImage;
  using VCoolMenuManager::OnMenuChar;
  int Image(WORD nID) {
    tagCoolMenuItemData* p = GetButtonInfo(nID);
    return p != NULL ? p->nImage : -2;
  }
  int m_nMeasured = 0, m_nDrawn = 0;

protected:
  BOOL OnMeasureItem(MEASUREITEMSTRUCT* p) override {
    m_nMeasured++;
    return VCoolMenuManager::OnMeasureItem(p);
  }
  BOOL OnDrawItem(DRAWITEMSTRUCT* p) override {
    m_nDrawn++;
    return VCoolMenuManager::OnDrawItem(p);
  }
};

// A hook that notes its tag for WM_APP and passes everything on.
class TagHook : public VCoolMenuSubclassWnd {
public:
  TagHook(std::string& log, char tag) : m_log(log), m_tag(tag) {}
  LRESULT WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) override {
    if (msg != WM_APP) return VCoolMenuSubclassWnd::WindowProc(msg, wParam, lParam);
    m_log += m_tag;
    return Default(); // the same, through the thread's current message
  }

private:
  std::string& m_log;
  char m_tag;
};

UINT g_nLastCommand = 0;
LONG_PTR g_procAtNcDestroy = 0;

// Records commands; ID_PLAIN shows the radio dot, ID_CHERRY is disabled.
class CoolFrame : public CFrameWnd {
public:
  BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pInfo) override {
    if (nCode == (int)CN_UPDATE_COMMAND_UI) {
      CCmdUI* pCmdUI = (CCmdUI*)pExtra;
      pCmdUI->Enable(nID != ID_CHERRY);
      if (nID == ID_PLAIN) pCmdUI->SetRadio(TRUE);
      return TRUE;
    }
    if (nCode == (int)CN_COMMAND && nID < 0xF000) {
      if (pInfo == NULL) g_nLastCommand = nID;
      return TRUE;
    }
    return CFrameWnd::OnCmdMsg(nID, nCode, pExtra, pInfo);
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

void Pump() {
  for (int i = 0; i < 10; i++) {
    MSG msg;
    while (::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE)) {
      if (msg.message == WM_QUIT) continue;
      if (!CWnd::WalkPreTranslateTree(NULL, &msg)) {
        ::TranslateMessage(&msg);
        ::DispatchMessage(&msg);
      }
    }
    ::Sleep(10);
  }
}

// Keys as a user types them: each virtual key down then up; a key preceded
// by VK_MENU is typed with Alt held.
void Type(std::initializer_list<WORD> keys) {
  std::vector<INPUT> inputs;
  bool bAlt = false;
  for (WORD vk : keys) {
    if (vk == VK_MENU) {
      bAlt = true;
      continue;
    }
    INPUT in;
    memset(&in, 0, sizeof(in));
    in.type = INPUT_KEYBOARD;
    if (bAlt) {
      in.ki.wVk = VK_MENU;
      inputs.push_back(in);
    }
    in.ki.wVk = vk;
    inputs.push_back(in);
    in.ki.dwFlags = KEYEVENTF_KEYUP;
    inputs.push_back(in);
    if (bAlt) {
      in.ki.wVk = VK_MENU;
      inputs.push_back(in);
      bAlt = false;
    }
  }
  ::SendInput((UINT)inputs.size(), inputs.data(), sizeof(INPUT));
}

// Ends a menu loop that input failed to end, so that a fault cannot hang
// the run.
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
    ::SetFocus(m_hWnd);
    Pump();
    m_manager.Install(m_pFrame);
    ASSERT_TRUE(m_manager.LoadToolbar(IDR_TB_MAIN));
    ASSERT_TRUE(m_manager.LoadToolbar(IDR_TB_SECOND));
    m_nTimer = ::SetTimer(NULL, 0, 3000, EndMenuLater);
    g_nLastCommand = 0;
  }
  void TearDown() override {
    ::KillTimer(NULL, m_nTimer);
    if (::IsWindow(m_hWnd)) ::DestroyWindow(m_hWnd);
    Pump();
  }
  CMenu* Popup(int i) { return CMenu::FromHandle(::GetSubMenu(::GetMenu(m_hWnd), i)); }
  // What the system sends as popup i of the menu bar opens.
  void Open(int i) {
    m_pFrame->SendMessage(WM_INITMENUPOPUP, (WPARAM)Popup(i)->m_hMenu, MAKELPARAM(i, FALSE));
  }
  static bool OwnerDrawn(CMenu* pMenu, int nPos) {
    return (pMenu->GetMenuState(nPos, MF_BYPOSITION) & MF_OWNERDRAW) != 0;
  }
  // Item nID drawn into a 160 x 24 canvas with the menu font.
  void Draw(Canvas& canvas, UINT nID, UINT nState, HMENU hMenu, UINT nAction = ODA_DRAWENTIRE) {
    canvas.Clear(kBack);
    canvas.DC().SelectObject(m_manager.GetMenuFont());
    DRAWITEMSTRUCT dis = {ODT_MENU,        0, nID, nAction, nState, (HWND)hMenu, canvas.Handle(),
                          {0, 0, 160, 24}, 0};
    EXPECT_EQ(TRUE, m_pFrame->SendMessage(WM_DRAWITEM, 0, (LPARAM)&dis)) << nID;
    canvas.DC().SelectStockObject(SYSTEM_FONT);
  }

  TestManager m_manager;
  CoolFrame* m_pFrame = NULL;
  HWND m_hWnd = NULL;
  LONG_PTR m_procOriginal = 0;
  UINT_PTR m_nTimer = 0;
};

TEST(CoolMenuToolbars, BothLayoutsOneButtonSizeAndRepeatedCommands) {
  TestManager manager;
  struct Case {
    UINT nID;
    BOOL bLoaded;
  } cases[] = {
      {IDR_TB_MAIN, TRUE},           {IDR_TB_SECOND, TRUE},    {IDR_TB_BIG, FALSE},
      {IDR_TB_TRUNCATED, FALSE},     {IDR_TB_NOBITMAP, FALSE}, {0x7777, FALSE},
      {IDR_TB_TRUNCATED_GNU, FALSE},
  };
  for (const Case& c : cases)
    EXPECT_EQ(c.bLoaded, manager.LoadToolbar(c.nID)) << c.nID;
  // The repeated ID_TOOL_X takes no image: ID_TOOL_Y gets the second one.
  struct Image {
    WORD nID;
    int nImage;
  } images[] = {{ID_FILE_NEW, 0}, {ID_FILE_OPEN, 1}, {ID_EDIT_COPY, 2},
                {ID_TOOL_X, 3},   {ID_TOOL_Y, 4},    {ID_TOOL_Z, -2}};
  for (const Image& i : images)
    EXPECT_EQ(i.nImage, manager.Image(i.nID)) << i.nID;
  EXPECT_EQ(6, manager.m_imageList.GetImageCount());
  ASSERT_EQ(2, manager.m_arToolbarIDs.GetSize());
  EXPECT_EQ((UINT)IDR_TB_SECOND, manager.m_arToolbarIDs[1]);
  EXPECT_EQ(CSize(16, 15), manager.m_sizeImage);
  EXPECT_EQ(CSize(20, 19), manager.m_sizeBox);

  const UINT failing[] = {IDR_TB_NOBITMAP, 0x7777};
  EXPECT_TRUE(manager.LoadToolbars(failing, 2));
  EXPECT_TRUE(manager.LoadToolbars(NULL, 0));
  EXPECT_EQ(2, manager.m_arToolbarIDs.GetSize());

  TestManager big; // the first toolbar sets the size
  EXPECT_TRUE(big.LoadToolbar(IDR_TB_BIG));
  EXPECT_EQ(CSize(28, 28), big.m_sizeBox);
  EXPECT_FALSE(big.LoadToolbar(IDR_TB_MAIN));
  EXPECT_EQ(1, big.m_imageList.GetImageCount());
}

TEST_F(CoolMenuTest, KeyboardOpensOwnerDrawnPopupAndItsMnemonicExecutes) {
  Type({VK_MENU, 'F', 'O'});
  Pump();
  EXPECT_EQ((UINT)ID_FILE_OPEN, g_nLastCommand);
  EXPECT_GT(m_manager.m_nMeasured, 0);
  EXPECT_GT(m_manager.m_nDrawn, 0);
  CMenu* pFile = Popup(0);
  const bool expected[] = {true, true, false, true, true, true, false}; // separator, SC_CLOSE
  for (int i = 0; i < 7; i++)
    EXPECT_EQ(expected[i], OwnerDrawn(pFile, i)) << i;
  EXPECT_STREQ("&New\tCtrl+N", m_manager.GetButtonInfo(ID_FILE_NEW)->strText);
  EXPECT_TRUE(m_manager.GetButtonInfo(0xF060) == NULL);

  // In another popup. Wine keeps the text of an item made owner-drawn and
  // finds its mnemonic itself, without WM_MENUCHAR (and ignores MNC_SELECT):
  // the manager's answers are checked on the message below.
  Type({VK_MENU, 'E', 'B'});
  Pump();
  EXPECT_EQ((UINT)ID_BANANA, g_nLastCommand);
}

TEST_F(CoolMenuTest, ContextMenuKeepsItsOwnTextsAndTheSystemMenuIsLeftAlone) {
  Open(0);
  CMenu context;
  ASSERT_TRUE(context.LoadMenu(IDR_CONTEXT));
  Type({VK_ESCAPE});
  context.GetSubMenu(0)->TrackPopupMenu(TPM_LEFTALIGN, 20, 20, m_pFrame);
  Pump();
  EXPECT_TRUE(OwnerDrawn(context.GetSubMenu(0), 0));
  tagCoolMenuItemData* pCopy = m_manager.GetButtonInfo(ID_EDIT_COPY);
  ASSERT_TRUE(pCopy != NULL);
  EXPECT_STREQ("&Copy", pCopy->strText);
  EXPECT_STREQ("Copy &here", pCopy->strContextText);
  EXPECT_STREQ("&New", m_manager.GetButtonInfo(ID_FILE_NEW)->strContextText);

  CMenu* pSystem = m_pFrame->GetSystemMenu(FALSE);
  ASSERT_TRUE(pSystem != NULL);
  m_pFrame->SendMessage(WM_INITMENUPOPUP, (WPARAM)pSystem->m_hMenu, MAKELPARAM(0, TRUE));
  for (UINT i = 0; i < pSystem->GetMenuItemCount(); i++)
    EXPECT_FALSE(OwnerDrawn(pSystem, i)) << i;
}

TEST_F(CoolMenuTest, ItemsAreMeasuredAndDrawnWithImageBoxTextAndAccelerator) {
  Open(0);
  Open(1);
  HMENU hFile = Popup(0)->m_hMenu, hEdit = Popup(1)->m_hMenu;
  MEASUREITEMSTRUCT mis = {ODT_MENU, 0, ID_FILE_NEW, 0, 0, 0};
  EXPECT_EQ(TRUE, m_pFrame->SendMessage(WM_MEASUREITEM, 0, (LPARAM)&mis));
  {
    CWindowDC dc(NULL);
    CFont* pOld = dc.SelectObject(m_manager.GetMenuFont());
    CRect r(0, 0, 0, 0);
    dc.DrawText(CString("&New\tCtrl+N"), &r, DT_SINGLELINE | DT_VCENTER | DT_CALCRECT);
    dc.SelectObject(pOld);
    EXPECT_EQ((UINT)(r.Width() + 46 - ::GetSystemMetrics(SM_CXMENUCHECK)), mis.itemWidth);
    EXPECT_EQ((UINT)std::max(r.Height(), ::GetSystemMetrics(SM_CYMENU)), mis.itemHeight);
  }
  MEASUREITEMSTRUCT sep = {ODT_MENU, 0, 0, 99, 99, 0};
  m_pFrame->SendMessage(WM_MEASUREITEM, 0, (LPARAM)&sep);
  EXPECT_EQ((UINT)::GetSystemMetrics(SM_CYMENU) / 2, sep.itemHeight);
  EXPECT_EQ(0u, sep.itemWidth);

  Canvas c(160, 24);
  const CRect text(23, 0, 140, 24), right(100, 0, 140, 24), beyond(140, 0, 160, 24);
  // Enabled image: the block in the box, the box in the menu colour, no
  // item fill, the accelerator right-aligned before the box-wide margin.
  Draw(c, ID_FILE_NEW, 0, hFile);
  EXPECT_EQ(120, c.Count(kRed, kImageBlock));
  EXPECT_EQ(Sys(COLOR_MENU), c.At(1, 3));
  EXPECT_EQ(kBack, c.At(150, 12));
  EXPECT_GT(c.Count(Sys(COLOR_MENUTEXT), right), 0);
  EXPECT_EQ(0, c.CountNot(kBack, beyond));
  // Selected: raised box, highlight fill from box width + 1.
  Draw(c, ID_FILE_NEW, ODS_SELECTED, hFile);
  EXPECT_EQ(120, c.Count(kRed, kImageBlock));
  EXPECT_EQ(Sys(COLOR_BTNHIGHLIGHT), c.At(10, 2));
  EXPECT_EQ(Sys(COLOR_BTNSHADOW), c.At(10, 20));
  EXPECT_EQ(kBack, c.At(20, 12));
  EXPECT_EQ(Sys(COLOR_HIGHLIGHT), c.At(21, 1));
  EXPECT_EQ(Sys(COLOR_HIGHLIGHT), c.At(155, 22));
  EXPECT_GT(c.Count(Sys(COLOR_HIGHLIGHTTEXT), text), 0);
  // Checked: a sunken box in the light face colour.
  Draw(c, ID_FILE_NEW, ODS_CHECKED, hFile);
  EXPECT_EQ(Sys(COLOR_3DLIGHT), c.At(2, 4));
  EXPECT_EQ(Sys(COLOR_BTNSHADOW), c.At(10, 2));
  EXPECT_EQ(Sys(COLOR_BTNHIGHLIGHT), c.At(10, 20));
  EXPECT_EQ(120, c.Count(kRed, kImageBlock));
  // Disabled: the block embossed, grey text over its highlight.
  Draw(c, ID_FILE_NEW, ODS_GRAYED, hFile);
  EXPECT_EQ(0, c.Count(kRed));
  EXPECT_EQ(120, c.Count(Sys(COLOR_3DSHADOW), kImageBlock));
  EXPECT_EQ(Sys(COLOR_3DHILIGHT), c.At(16, 16));
  EXPECT_GT(c.Count(Sys(COLOR_GRAYTEXT), text), 0);
  EXPECT_GT(c.Count(Sys(COLOR_3DHILIGHT), text), 0);
  m_manager.m_bDisabledByDrawState = TRUE;
  Draw(c, ID_FILE_NEW, ODS_GRAYED, hFile);
  EXPECT_EQ(0, c.Count(kRed));
  EXPECT_GT(c.CountNot(kBack, kImageBlock), 0);
  m_manager.m_bDisabledByDrawState = FALSE;
  // The image after the repeated button's.
  Draw(c, ID_TOOL_Y, 0, hFile);
  EXPECT_EQ(120, c.Count(kDarkRed, kImageBlock));
  EXPECT_EQ(0, c.Count(kOrange));

  // No image: the radio dot (set by the frame's update handler), the
  // system check mark, or nothing when unchecked.
  Draw(c, ID_PLAIN, ODS_CHECKED, hFile);
  int nDot = c.Count(RGB(0, 0, 0), CRect(0, 0, 20, 24));
  EXPECT_EQ(RGB(0, 0, 0), c.At(10, 11));
  EXPECT_GT(c.Count(Sys(COLOR_3DLIGHT), CRect(0, 0, 20, 24)), 50);
  Draw(c, ID_APPLE, ODS_CHECKED, hEdit);
  int nCheck = c.Count(RGB(0, 0, 0), CRect(0, 0, 20, 24));
  EXPECT_TRUE(nDot > 4 && nCheck > 4 && nDot != nCheck) << nDot << " " << nCheck;
  Draw(c, ID_PLAIN, ODS_SELECTED, hFile);
  EXPECT_EQ(Sys(COLOR_HIGHLIGHT), c.At(1, 3)); // the fill covers the empty box
  // Separator, unknown command, and not a menu.
  Draw(c, 0, 0, hFile);
  EXPECT_EQ(Sys(COLOR_BTNSHADOW), c.At(50, 12));
  EXPECT_EQ(Sys(COLOR_BTNHIGHLIGHT), c.At(50, 13));
  Draw(c, 0x7000, ODS_SELECTED, hFile);
  EXPECT_EQ(160 * 24, c.Count(kBack));
  DRAWITEMSTRUCT button = {ODT_BUTTON,      1, ID_FILE_NEW, ODA_DRAWENTIRE, 0, NULL, c.Handle(),
                           {0, 0, 160, 24}, 0};
  m_pFrame->SendMessage(WM_DRAWITEM, 0, (LPARAM)&button);
  EXPECT_EQ(160 * 24, c.Count(kBack));
}

TEST_F(CoolMenuTest, MnemonicsExecuteOneMatchAndCycleThroughSeveral) {
  Open(1);
  HMENU hEdit = Popup(1)->m_hMenu;
  struct Case {
    char ch;
    int nHilite;
    LRESULT expected;
  } cases[] = {
      {'b', -1, MAKELRESULT(1, MNC_EXECUTE)},
      {'C', -1, MAKELRESULT(3, MNC_EXECUTE)},
      {'a', -1, MAKELRESULT(0, MNC_SELECT)},
      {'A', 0, MAKELRESULT(2, MNC_SELECT)},
      {'a', 1, MAKELRESULT(2, MNC_SELECT)},
      {'a', 2, MAKELRESULT(0, MNC_SELECT)},
      {'z', -1, 0},
  };
  for (const Case& c : cases) {
    for (int i = 0; i < 4; i++) {
      MENUITEMINFO mii = {sizeof(mii)};
      mii.fMask = MIIM_STATE;
      mii.fState = i == c.nHilite ? MFS_HILITE : 0;
      ::SetMenuItemInfo(hEdit, i, TRUE, &mii);
    }
    EXPECT_EQ(c.expected,
              m_pFrame->SendMessage(WM_MENUCHAR, MAKEWPARAM(c.ch, MF_POPUP), (LPARAM)hEdit))
        << c.ch << " " << c.nHilite;
  }
}

TEST_F(CoolMenuTest, HooksChainAndAllGoAtNcDestroyWithTheProcedureBack) {
  std::string log;
  TagHook a(log, 'a'), b(log, 'b');
  a.HookWindow(m_pFrame);
  b.HookWindow(m_pFrame);
  EXPECT_EQ(42, m_pFrame->SendMessage(WM_APP));
  EXPECT_EQ("ba", log);
  a.HookWindow(NULL); // from the middle of the chain
  log.clear();
  EXPECT_EQ(42, m_pFrame->SendMessage(WM_APP));
  EXPECT_EQ("b", log);
  b.HookWindow(NULL); // the head: the manager's hook is the head again
  m_manager.HookWindow(NULL);
  EXPECT_EQ(m_procOriginal, ::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC));
  m_manager.HookWindow(m_pFrame);
  a.HookWindow(m_pFrame);
  b.HookWindow(m_pFrame);
  EXPECT_NE(m_procOriginal, ::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC));
  ::DestroyWindow(m_hWnd);
  EXPECT_EQ(m_procOriginal, g_procAtNcDestroy);
  EXPECT_FALSE(a.IsHooked() || b.IsHooked() || m_manager.IsHooked());
}

TEST_F(CoolMenuTest, ColourChangeRebuildsTheImagesWithTheSameIndices) {
  Open(0);
  const WORD ids[] = {ID_FILE_NEW, ID_FILE_OPEN, ID_EDIT_COPY, ID_TOOL_X, ID_TOOL_Y, ID_PLAIN};
  int before[6];
  for (int i = 0; i < 6; i++)
    before[i] = m_manager.Image(ids[i]);
  m_pFrame->SendMessage(WM_SYSCOLORCHANGE);
  for (int i = 0; i < 6; i++)
    EXPECT_EQ(before[i], m_manager.Image(ids[i])) << ids[i];
  EXPECT_EQ(-1, m_manager.Image(ID_PLAIN));
  EXPECT_EQ(6, m_manager.m_imageList.GetImageCount());
  EXPECT_EQ(2, m_manager.m_arToolbarIDs.GetSize());
  Canvas c(160, 24);
  Draw(c, ID_TOOL_Y, 0, Popup(0)->m_hMenu);
  EXPECT_EQ(120, c.Count(kDarkRed, kImageBlock));
}

TEST_F(CoolMenuTest, AcceleratorCopyLinksEachCommandsEntriesBackwards) {
  Open(0); // copies the frame's table
  ASSERT_TRUE(m_manager.m_pAccelTable != NULL);
  const WORD distances[] = {0, 0, 2, 2, 0, 3};
  for (int i = 0; i < 6; i++)
    EXPECT_EQ(distances[i], m_manager.m_pAccelTable[i].cmd) << i;
  struct Case {
    const char* pszText;
    UINT nID;
    BOOL bFound;
    const char* pszExpected;
  } cases[] = {
      {"&New\tCtrl+N", ID_FILE_NEW, TRUE, "&New\tAlt+F7, Shift+F6, Ctrl+N"},
      {"&Open", ID_FILE_OPEN, TRUE, "&Open\tCtrl+O, F5"},
      {"&Plain\told", ID_PLAIN, FALSE, "&Plain"},
      {"\tkept", ID_EDIT_COPY, TRUE, "\tkept\tCtrl+F8"},
  };
  for (const Case& c : cases) {
    CString str(c.pszText);
    EXPECT_EQ(c.bFound, m_manager.AppendAccelName(str, c.nID)) << c.pszText;
    EXPECT_STREQ(c.pszExpected, str);
  }
  // A thousand entries of one command; then none.
  std::vector<ACCEL> many(1000);
  for (int i = 0; i < 1000; i++)
    many[i] = {FVIRTKEY, (WORD)(VK_F1 + i % 12), ID_TOOL_Z};
  HACCEL hMany = ::CreateAcceleratorTable(many.data(), 1000);
  ASSERT_TRUE(hMany != NULL);
  m_manager.LoadAccel(hMany);
  CString str;
  EXPECT_TRUE(m_manager.AppendAccelName(str, ID_TOOL_Z));
  EXPECT_EQ(999, str.Replace(", ", ";"));
  ::DestroyAcceleratorTable(hMany);
  m_manager.LoadAccel(NULL);
  EXPECT_TRUE(m_manager.m_pAccelTable == NULL);
  EXPECT_FALSE(m_manager.AppendAccelName(str, ID_TOOL_Z));
}

TEST_F(CoolMenuTest, LongTextsAreCutToTheBufferAndTheRadioDotIsSmall) {
  CMenu menu;
  menu.CreatePopupMenu();
  CString strLong('x', 300);
  menu.AppendMenu(MF_STRING, ID_TOOL_Z, strLong);
  m_manager.ConvertMenu(&menu, 0, FALSE, TRUE);
  EXPECT_EQ(255, m_manager.GetButtonInfo(ID_TOOL_Z)->strText.GetLength());
  EXPECT_TRUE(OwnerDrawn(&menu, 0));

  HBITMAP hDot = VCoolMenuManager::GetMFCDotBitmap();
  ASSERT_TRUE(hDot != NULL);
  EXPECT_EQ(AfxGetRadioDotBitmap(), hDot);
  BITMAP bm;
  ::GetObject(hDot, sizeof(bm), &bm);
  CDC dc;
  dc.CreateCompatibleDC(NULL);
  HGDIOBJ hOld = ::SelectObject(dc.m_hDC, hDot);
  int nBlack = 0;
  for (int y = 0; y < bm.bmHeight; y++)
    for (int x = 0; x < bm.bmWidth; x++)
      nBlack += dc.GetPixel(x, y) == RGB(0, 0, 0);
  EXPECT_EQ(RGB(0, 0, 0), dc.GetPixel(bm.bmWidth / 2, bm.bmHeight / 2));
  EXPECT_EQ(RGB(255, 255, 255), dc.GetPixel(bm.bmWidth / 2 - 4, bm.bmHeight / 2));
  EXPECT_TRUE(nBlack >= 4 && nBlack <= 25) << nBlack;
  ::SelectObject(dc.m_hDC, hOld);
}

} // namespace
