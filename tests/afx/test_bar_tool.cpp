// CToolBar against the real toolbar control: buttons, separators and images
// from a toolbar resource (type 241) and its bitmap, malformed resources and
// idle updates of the enabled and checked states.
#include <afxext.h>
#include <gtest/gtest.h>

#include "bar_testing.h"

namespace {

// Handlers as a frame would have them: A has a command, B is disabled, C
// checked; D has nothing.
class CHostWnd : public CWnd {
public:
  afx_msg void OnToolA() {}
  afx_msg void OnUpdateB(CCmdUI* pCmdUI) { pCmdUI->Enable(FALSE); }
  afx_msg void OnUpdateC(CCmdUI* pCmdUI) { pCmdUI->SetCheck(m_nCheckC); }
  int m_nCheckC = 1;
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CHostWnd, CWnd)
ON_COMMAND(ID_TOOL_A, &CHostWnd::OnToolA)
ON_UPDATE_COMMAND_UI(ID_TOOL_B, &CHostWnd::OnUpdateB)
ON_UPDATE_COMMAND_UI(ID_TOOL_C, &CHostWnd::OnUpdateC)
END_MESSAGE_MAP()

class ToolBarTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(
        m_parent.CreateEx(0, NULL, "host", WS_POPUP | WS_VISIBLE, 0, 0, 400, 200, NULL, NULL));
    ASSERT_TRUE(m_bar.Create(&m_parent));
  }
  void TearDown() override { m_parent.DestroyWindow(); }
  int State(UINT nID) { return m_bar.GetToolBarCtrl().GetState(nID); }
  CHostWnd m_parent;
  CToolBar m_bar;
};

// The colour image nImage of the toolbar's image list draws at (x, y) on
// white.
COLORREF ImageColour(CToolBar& bar, int nImage, int x = 8, int y = 7) {
  HIMAGELIST himl = (HIMAGELIST)bar.SendMessage(TB_GETIMAGELIST);
  HDC hdcScreen = ::GetDC(NULL);
  HDC hdc = ::CreateCompatibleDC(hdcScreen);
  HBITMAP hbm = ::CreateCompatibleBitmap(hdcScreen, 16, 15);
  ::ReleaseDC(NULL, hdcScreen);
  HGDIOBJ hOld = ::SelectObject(hdc, hbm);
  ::PatBlt(hdc, 0, 0, 16, 15, WHITENESS);
  ::ImageList_Draw(himl, nImage, hdc, 0, 0, ILD_NORMAL);
  COLORREF cr = ::GetPixel(hdc, x, y);
  ::SelectObject(hdc, hOld);
  ::DeleteObject(hbm);
  ::DeleteDC(hdc);
  return cr;
}

TEST_F(ToolBarTest, ResourceGivesButtonsSeparatorsAndImages) {
  ASSERT_TRUE(m_bar.LoadToolBar(IDR_TOOLBAR));
  EXPECT_EQ(4, m_bar.GetCount());
  EXPECT_EQ(4, m_bar.GetToolBarCtrl().GetButtonCount());
  const UINT ids[] = {ID_TOOL_A, ID_TOOL_B, ID_SEPARATOR, ID_TOOL_C};
  const UINT styles[] = {TBBS_BUTTON, TBBS_BUTTON, TBBS_SEPARATOR, TBBS_BUTTON};
  const int images[] = {0, 1, 6, 2}; // a separator's is its width
  for (int i = 0; i < 4; i++) {
    UINT nID, nStyle;
    int iImage;
    m_bar.GetButtonInfo(i, nID, nStyle, iImage);
    EXPECT_EQ(ids[i], nID) << i;
    EXPECT_EQ(styles[i], nStyle) << i;
    EXPECT_EQ(images[i], iImage) << i;
  }
  EXPECT_EQ(3, m_bar.CommandToIndex(ID_TOOL_C));
  EXPECT_EQ(-1, m_bar.CommandToIndex(ID_TOOL_D));

  // Buttons seven pixels larger than the 16 x 15 images, three images.
  EXPECT_EQ(CSize(23, 22), m_bar.GetToolBarCtrl().GetButtonSize());
  EXPECT_EQ(CSize(16, 15), m_bar.m_sizeImage);
  EXPECT_EQ(3, ::ImageList_GetImageCount((HIMAGELIST)m_bar.SendMessage(TB_GETIMAGELIST)));
  EXPECT_EQ(RGB(255, 0, 0), ImageColour(m_bar, 0));
  EXPECT_EQ(RGB(0, 255, 0), ImageColour(m_bar, 1));
  EXPECT_EQ(RGB(0, 0, 255), ImageColour(m_bar, 2));
  // The grey top row became the button face, which is transparent.
  EXPECT_EQ(RGB(255, 255, 255), ImageColour(m_bar, 0, 8, 0));

  // Loading again replaces the images rather than adding to them.
  ASSERT_TRUE(m_bar.LoadToolBar(IDR_TOOLBAR));
  EXPECT_EQ(4, m_bar.GetCount());
  EXPECT_EQ(3, ::ImageList_GetImageCount((HIMAGELIST)m_bar.SendMessage(TB_GETIMAGELIST)));
}

TEST_F(ToolBarTest, MalformedOrMissingResourcesAreRefused) {
  EXPECT_FALSE(m_bar.LoadToolBar(IDR_TOOLBAR_BADVERSION));
  EXPECT_FALSE(m_bar.LoadToolBar(IDR_TOOLBAR_TRUNCATED));
  EXPECT_FALSE(m_bar.LoadToolBar(IDR_TOOLBAR_WINDRES_TRUNCATED)); // windres's layout, cut short
  EXPECT_EQ(0, m_bar.GetCount());
  EXPECT_FALSE(m_bar.LoadToolBar(IDR_TOOLBAR_NOBITMAP));
  EXPECT_FALSE(m_bar.LoadToolBar(0x7FFF));
  EXPECT_FALSE(m_bar.LoadBitmap(0x7FFF));
  // Not created: nothing to load into.
  CToolBar unborn;
  EXPECT_FALSE(unborn.LoadToolBar(IDR_TOOLBAR));
  EXPECT_FALSE(unborn.SetButtons(NULL, 2));
}

TEST_F(ToolBarTest, IdleUpdateSetsEnabledAndCheckedStates) {
  const UINT ids[] = {ID_TOOL_A, ID_TOOL_B, ID_SEPARATOR, ID_TOOL_C, ID_TOOL_D};
  ASSERT_TRUE(m_bar.SetButtons(ids, 5));
  // Without disabling for want of a handler, D stays enabled.
  m_bar.SendMessage(WM_IDLEUPDATECMDUI, FALSE);
  EXPECT_TRUE(State(ID_TOOL_A) & TBSTATE_ENABLED);
  EXPECT_FALSE(State(ID_TOOL_B) & TBSTATE_ENABLED);
  EXPECT_TRUE(State(ID_TOOL_C) & TBSTATE_CHECKED);
  EXPECT_TRUE(State(ID_TOOL_D) & TBSTATE_ENABLED);
  // Checking made C a check box button.
  EXPECT_EQ((UINT)(TBBS_CHECKBOX | TBBS_CHECKED), m_bar.GetButtonStyle(3));

  m_bar.SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  EXPECT_TRUE(State(ID_TOOL_A) & TBSTATE_ENABLED);
  EXPECT_FALSE(State(ID_TOOL_D) & TBSTATE_ENABLED);

  m_parent.m_nCheckC = 2;
  m_bar.SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  EXPECT_FALSE(State(ID_TOOL_C) & TBSTATE_CHECKED);
  EXPECT_TRUE(State(ID_TOOL_C) & TBSTATE_INDETERMINATE);
  m_parent.m_nCheckC = 0;
  m_bar.SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  EXPECT_EQ(0, State(ID_TOOL_C) & (TBSTATE_CHECKED | TBSTATE_INDETERMINATE));
}

} // namespace
