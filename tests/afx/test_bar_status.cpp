// CStatusBar against the real status bar control: indicator texts and pane
// widths read back from the control (SB_GETTEXT, SB_GETPARTS), bad indexes
// and idle updates of the indicators. Owner-drawn panes are drawn and read
// back by VStatusBar's tests.
#include <afxext.h>
#include <gtest/gtest.h>

#include <vector>

#include "bar_testing.h"
#include "exception_probe.h"

namespace {

const UINT kIndicators[] = {ID_SEPARATOR, ID_INDICATOR_CAPS, ID_INDICATOR_NUM, IDS_LINE};

// The parent's update handlers, as a frame would have them.
class CHostWnd : public CWnd {
public:
  afx_msg void OnUpdateCaps(CCmdUI* pCmdUI) { pCmdUI->Enable(FALSE); }
  afx_msg void OnUpdateNum(CCmdUI* pCmdUI) { pCmdUI->SetCheck(1); }
  afx_msg void OnUpdateLine(CCmdUI* pCmdUI) { pCmdUI->SetText(m_strLine); }
  CString m_strLine = "Ln 42";
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CHostWnd, CWnd)
ON_UPDATE_COMMAND_UI(ID_INDICATOR_CAPS, &CHostWnd::OnUpdateCaps)
ON_UPDATE_COMMAND_UI(ID_INDICATOR_NUM, &CHostWnd::OnUpdateNum)
ON_UPDATE_COMMAND_UI(IDS_LINE, &CHostWnd::OnUpdateLine)
END_MESSAGE_MAP()

int TextWidth(LPCTSTR lpsz) {
  HDC hDC = ::GetDC(NULL);
  HGDIOBJ hOld = ::SelectObject(hDC, ::GetStockObject(DEFAULT_GUI_FONT));
  SIZE size = {0, 0};
  ::GetTextExtentPoint32(hDC, lpsz, lstrlen(lpsz), &size);
  ::SelectObject(hDC, hOld);
  ::ReleaseDC(NULL, hDC);
  return size.cx;
}

class StatusBarTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(
        m_parent.CreateEx(0, NULL, "host", WS_POPUP | WS_VISIBLE, 0, 0, 600, 200, NULL, NULL));
  }
  void TearDown() override { m_parent.DestroyWindow(); }
  void Place(CStatusBar& bar) {
    ASSERT_TRUE(bar.Create(&m_parent));
    ASSERT_TRUE(bar.SetIndicators(kIndicators, 4));
    m_parent.RepositionBars(0, 0xFFFF, 0);
  }
  // The text the control shows in a pane, and its drawing type.
  static CString Shown(CStatusBar& bar, int nPane, int* pType = NULL) {
    return bar.GetStatusBarCtrl().GetText(nPane, pType);
  }
  static std::vector<int> Rights(CStatusBar& bar) {
    int rg[256];
    int n = bar.GetStatusBarCtrl().GetParts(256, rg);
    return std::vector<int>(rg, rg + n);
  }
  static int Gap(CStatusBar& bar) {
    int nHorz, nVert, nGap;
    bar.GetStatusBarCtrl().GetBorders(nHorz, nVert, nGap);
    return nGap;
  }
  CHostWnd m_parent;
};

TEST_F(StatusBarTest, IndicatorsShowTheirStringsInPanesSizedToThem) {
  CStatusBar bar;
  Place(bar);
  EXPECT_EQ(4, bar.GetCount());
  EXPECT_EQ("", Shown(bar, 0));
  EXPECT_EQ("CAP", Shown(bar, 1));
  EXPECT_EQ("NUM", Shown(bar, 2));
  EXPECT_EQ("Ln 0000, Col 000", Shown(bar, 3));
  EXPECT_EQ(2, bar.CommandToIndex(ID_INDICATOR_NUM));
  EXPECT_EQ(-1, bar.CommandToIndex(ID_INDICATOR_SCRL));
  EXPECT_EQ((UINT)IDS_LINE, bar.GetItemID(3));

  // Each indicator is its text wide plus six pixels of border; the message
  // pane stretches to fill the rest of the bar's 600 pixels.
  std::vector<int> rights = Rights(bar);
  ASSERT_EQ(4u, rights.size());
  int nGap = Gap(bar);
  EXPECT_EQ(TextWidth("CAP") + 6, rights[1] - rights[0] - nGap);
  EXPECT_EQ(TextWidth("NUM") + 6, rights[2] - rights[1] - nGap);
  EXPECT_EQ(TextWidth("Ln 0000, Col 000") + 6, rights[3] - rights[2] - nGap);
  EXPECT_EQ(600, rights[3]);
}

// A missing string or too many panes keep the old indicators; an index
// outside the panes is an invalid argument.
TEST_F(StatusBarTest, BadIndicatorsAndIndexesAreRefused) {
  CStatusBar bar;
  Place(bar);
  const UINT bad[] = {ID_SEPARATOR, IDS_MISSING};
  EXPECT_FALSE(bar.SetIndicators(bad, 2));
  EXPECT_FALSE(bar.SetIndicators(kIndicators, -1));
  std::vector<UINT> many(257, ID_SEPARATOR);
  EXPECT_FALSE(bar.SetIndicators(&many[0], 257));
  EXPECT_EQ(4, bar.GetCount());
  EXPECT_EQ("CAP", Shown(bar, 1));
  // Indicators may be set before the window exists.
  CStatusBar early;
  ASSERT_TRUE(early.SetIndicators(kIndicators, 4));
  ASSERT_TRUE(early.Create(&m_parent));
  EXPECT_EQ("NUM", Shown(early, 2));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bar.GetPaneText(4); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bar.SetPaneText(-1, "x"); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException),
            ThrownClass([&] { bar.SetPaneInfo(9, 0, 0, 10); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bar.GetItemID(4); }));
  CRect rect;
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bar.GetItemRect(4, &rect); }));
}

TEST_F(StatusBarTest, IdleUpdateEnablesChecksAndSetsIndicatorTexts) {
  CStatusBar bar;
  Place(bar);
  bar.SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  // Disabled: the text is hidden, the pane marked.
  EXPECT_EQ("", Shown(bar, 1));
  EXPECT_TRUE(bar.GetPaneStyle(1) & SBPS_DISABLED);
  // Checked: the pane pops out.
  int nType = 0;
  EXPECT_EQ("NUM", Shown(bar, 2, &nType));
  EXPECT_EQ(SBT_POPOUT, nType);
  EXPECT_EQ("Ln 42", Shown(bar, 3));
  // The message pane has no command and is left alone.
  EXPECT_EQ((UINT)(SBPS_STRETCH | SBPS_NOBORDERS), bar.GetPaneStyle(0));

  // A hidden bar is not updated.
  bar.ShowWindow(SW_HIDE);
  m_parent.m_strLine = "Ln 44";
  bar.SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  EXPECT_EQ("Ln 42", Shown(bar, 3));
}

} // namespace
