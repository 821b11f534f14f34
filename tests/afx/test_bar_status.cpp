// CStatusBar against the real status bar control: indicator texts and pane
// widths read back from the control (SB_GETTEXT, SB_GETPARTS), the window
// text as the message pane, an owner-drawn pane painted and read back, and
// idle updates of the indicators.
#include <afxext.h>
#include <gtest/gtest.h>

#include <vector>

#include "bar_testing.h"
#include "exception_probe.h"

namespace {

const UINT kIndicators[] = {ID_SEPARATOR, ID_INDICATOR_CAPS, ID_INDICATOR_NUM, IDS_LINE};
const COLORREF kRed = RGB(255, 0, 0);

// The parent's update handlers, as a frame would have them.
class CHostWnd : public CWnd {
public:
  CHostWnd() : m_bCaps(FALSE), m_nNumCheck(1), m_strLine("Ln 42") {}
  afx_msg void OnUpdateCaps(CCmdUI* pCmdUI) { pCmdUI->Enable(m_bCaps); }
  afx_msg void OnUpdateNum(CCmdUI* pCmdUI) { pCmdUI->SetCheck(m_nNumCheck); }
  afx_msg void OnUpdateLine(CCmdUI* pCmdUI) { pCmdUI->SetText(m_strLine); }
  BOOL m_bCaps;
  int m_nNumCheck;
  CString m_strLine;
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CHostWnd, CWnd)
ON_UPDATE_COMMAND_UI(ID_INDICATOR_CAPS, &CHostWnd::OnUpdateCaps)
ON_UPDATE_COMMAND_UI(ID_INDICATOR_NUM, &CHostWnd::OnUpdateNum)
ON_UPDATE_COMMAND_UI(IDS_LINE, &CHostWnd::OnUpdateLine)
END_MESSAGE_MAP()

// Paints its owner-drawn panes red and records what it was asked to draw.
class CPaintingStatusBar : public CStatusBar {
public:
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDIS) {
    m_items.push_back(lpDIS->itemID);
    m_rects.push_back(lpDIS->rcItem);
    m_texts.push_back(lpDIS->itemData != 0 ? (LPCTSTR)lpDIS->itemData : "");
    ::SetBkColor(lpDIS->hDC, kRed);
    ::ExtTextOut(lpDIS->hDC, 0, 0, ETO_OPAQUE, &lpDIS->rcItem, NULL, 0, NULL);
  }
  std::vector<UINT> m_items;
  std::vector<CRect> m_rects;
  std::vector<CString> m_texts;
};

// A bar that updates one of its panes itself, before its owner is asked.
class CSelfUpdatingBar : public CStatusBar {
public:
  afx_msg void OnUpdateLine(CCmdUI* pCmdUI) { pCmdUI->SetText("own"); }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CSelfUpdatingBar, CStatusBar)
ON_UPDATE_COMMAND_UI(IDS_LINE, &CSelfUpdatingBar::OnUpdateLine)
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
  UINT nID, nStyle;
  int cxWidth;
  bar.GetPaneInfo(0, nID, nStyle, cxWidth);
  EXPECT_EQ((UINT)ID_SEPARATOR, nID);
  EXPECT_EQ((UINT)(SBPS_STRETCH | SBPS_NOBORDERS), nStyle);
  bar.GetPaneInfo(1, nID, nStyle, cxWidth);
  EXPECT_EQ((UINT)SBPS_NORMAL, nStyle);
  EXPECT_EQ(TextWidth("CAP"), cxWidth);

  // A narrower bar: only the stretching pane gives way.
  bar.MoveWindow(0, 0, 500, 20);
  rights = Rights(bar);
  EXPECT_EQ(500, rights[3]);
  EXPECT_EQ(TextWidth("CAP") + 6, rights[1] - rights[0] - nGap);
}

TEST_F(StatusBarTest, MissingStringOrTooManyPanesKeepTheOldIndicators) {
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
}

TEST_F(StatusBarTest, WindowTextIsTheMessagePane) {
  CStatusBar bar;
  Place(bar);
  bar.SetWindowText("Ready");
  EXPECT_EQ("Ready", Shown(bar, 0));
  EXPECT_EQ("Ready", bar.GetPaneText(0));
  CString str;
  bar.GetWindowText(str);
  EXPECT_EQ("Ready", str);
  EXPECT_EQ(5, bar.GetWindowTextLength());
  char sz[4];
  EXPECT_EQ(3, bar.GetWindowText(sz, sizeof(sz))); // bounded by the buffer
  EXPECT_STREQ("Rea", sz);

  // Without an ID_SEPARATOR pane there is no message pane.
  const UINT noMessage[] = {ID_INDICATOR_CAPS};
  ASSERT_TRUE(bar.SetIndicators(noMessage, 1));
  EXPECT_FALSE(::SetWindowText(bar.m_hWnd, "lost"));
  EXPECT_EQ(0, bar.GetWindowTextLength());
  EXPECT_EQ("CAP", Shown(bar, 0));
}

TEST_F(StatusBarTest, PaneTextUpdatesNowOrAtTheNextUpdate) {
  CStatusBar bar;
  Place(bar);
  EXPECT_TRUE(bar.SetPaneText(3, "Ln 7, Col 1"));
  EXPECT_EQ("Ln 7, Col 1", Shown(bar, 3));
  EXPECT_TRUE(bar.SetPaneText(3, "Ln 8, Col 1", FALSE));
  EXPECT_EQ("Ln 7, Col 1", Shown(bar, 3));
  EXPECT_EQ("Ln 8, Col 1", bar.GetPaneText(3));
  bar.UpdateAllPanes(FALSE, FALSE);
  EXPECT_EQ("Ln 8, Col 1", Shown(bar, 3));
  EXPECT_TRUE(bar.SetPaneText(3, NULL));
  EXPECT_EQ("", Shown(bar, 3));
}

TEST_F(StatusBarTest, IndexOutsideThePanesIsAnInvalidArgument) {
  CStatusBar bar;
  Place(bar);
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bar.GetPaneText(4); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bar.SetPaneText(-1, "x"); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException),
            ThrownClass([&] { bar.SetPaneInfo(9, 0, 0, 10); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bar.GetItemID(4); }));
  CRect rect;
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bar.GetItemRect(4, &rect); }));
}

TEST_F(StatusBarTest, OwnerDrawnPaneIsDrawnInItsRectangle) {
  CPaintingStatusBar bar;
  Place(bar);
  bar.SetPaneStyle(2, SBPS_OWNERDRAW);
  CRect rectPane;
  bar.GetItemRect(2, &rectPane);
  ASSERT_FALSE(rectPane.IsRectEmpty());

  // The control paints into a white bitmap; its parent's WM_DRAWITEM comes
  // back to the bar's DrawItem.
  CRect rectBar;
  bar.GetClientRect(&rectBar);
  HDC hdcScreen = ::GetDC(NULL);
  HDC hdc = ::CreateCompatibleDC(hdcScreen);
  HBITMAP hbm = ::CreateCompatibleBitmap(hdcScreen, rectBar.Width(), rectBar.Height());
  ::ReleaseDC(NULL, hdcScreen);
  HGDIOBJ hOld = ::SelectObject(hdc, hbm);
  ::PatBlt(hdc, 0, 0, rectBar.Width(), rectBar.Height(), WHITENESS);
  bar.m_items.clear();
  bar.m_rects.clear();
  bar.m_texts.clear();
  bar.SendMessage(WM_PAINT, (WPARAM)hdc);

  ASSERT_EQ(1u, bar.m_items.size());
  EXPECT_EQ(2u, bar.m_items[0]);
  EXPECT_EQ("NUM", bar.m_texts[0]);
  CRect rectItem = bar.m_rects[0];
  EXPECT_EQ(rectPane, rectItem);
  // Red inside the item, nowhere in the other panes.
  int nRed = 0, nRedOutside = 0;
  for (int y = 0; y < rectBar.Height(); y++)
    for (int x = 0; x < rectBar.Width(); x++) {
      if (::GetPixel(hdc, x, y) != kRed) continue;
      if (rectItem.PtInRect(CPoint(x, y)))
        nRed++;
      else
        nRedOutside++;
    }
  ::SelectObject(hdc, hOld);
  ::DeleteObject(hbm);
  ::DeleteDC(hdc);
  EXPECT_EQ(rectItem.Width() * rectItem.Height(), nRed);
  EXPECT_EQ(0, nRedOutside);
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

  m_parent.m_bCaps = TRUE;
  m_parent.m_nNumCheck = 0;
  m_parent.m_strLine = "Ln 43";
  bar.SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  EXPECT_EQ("CAP", Shown(bar, 1));
  EXPECT_FALSE(bar.GetPaneStyle(1) & SBPS_DISABLED);
  Shown(bar, 2, &nType);
  EXPECT_EQ(0, nType);
  EXPECT_EQ("Ln 43", Shown(bar, 3));

  // A hidden bar is not updated.
  bar.ShowWindow(SW_HIDE);
  m_parent.m_strLine = "Ln 44";
  bar.SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  EXPECT_EQ("Ln 43", Shown(bar, 3));
}

TEST_F(StatusBarTest, BarsOwnUpdateHandlerComesFirst) {
  CSelfUpdatingBar bar;
  Place(bar);
  bar.SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  EXPECT_EQ("own", Shown(bar, 3));
  EXPECT_EQ("", Shown(bar, 1)); // the owner still updates the rest
}

TEST(StatusBarGrip, SizeableParentGetsAGripThatLetsTheMouseThrough) {
  CWnd parent;
  ASSERT_TRUE(parent.CreateEx(0, NULL, "sizeable", WS_POPUP | WS_THICKFRAME | WS_VISIBLE, 0, 0, 300,
                              200, NULL, NULL));
  CStatusBar bar;
  ASSERT_TRUE(bar.Create(&parent));
  EXPECT_TRUE(bar.GetStyle() & SBARS_SIZEGRIP);
  parent.RepositionBars(0, 0xFFFF, 0);
  CRect rect;
  bar.GetWindowRect(&rect);
  LPARAM lCorner = MAKELPARAM(rect.right - 2, rect.bottom - 2);
  // The control itself calls the corner the bottom-right sizing border.
  EXPECT_EQ(HTBOTTOMRIGHT, bar.DefWindowProc(WM_NCHITTEST, 0, lCorner));
  EXPECT_EQ(HTTRANSPARENT, bar.SendMessage(WM_NCHITTEST, 0, lCorner));
  LPARAM lMiddle = MAKELPARAM(rect.left + 5, rect.top + 5);
  EXPECT_EQ(HTCLIENT, bar.SendMessage(WM_NCHITTEST, 0, lMiddle));
  parent.DestroyWindow();

  // A parent of fixed size: no grip.
  ASSERT_TRUE(parent.CreateEx(0, NULL, "fixed", WS_POPUP, 0, 0, 300, 200, NULL, NULL));
  CStatusBar plain;
  ASSERT_TRUE(plain.Create(&parent));
  EXPECT_FALSE(plain.GetStyle() & SBARS_SIZEGRIP);
  parent.DestroyWindow();
}

} // namespace
