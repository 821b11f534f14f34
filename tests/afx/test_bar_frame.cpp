// Bars docked in a real frame window: RecalcLayout leaves the view between
// the toolbar and the status bar, the frame's messages land in the message
// pane, idle updates reach the indicators through the frame's handlers, and
// hiding a bar gives its room to the view.
#include <afxext.h>
#include <gtest/gtest.h>

#include "bar_testing.h"

namespace {

class CBarFrame : public CFrameWnd {
public:
  CBarFrame() : m_strLine("Ln 1") {}
  afx_msg void OnUpdateLine(CCmdUI* pCmdUI) { pCmdUI->SetText(m_strLine); }
  CString m_strLine;
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CBarFrame, CFrameWnd)
ON_UPDATE_COMMAND_UI(IDS_LINE, &CBarFrame::OnUpdateLine)
END_MESSAGE_MAP()

CRect RectInParent(CWnd& wnd) {
  CRect rect;
  wnd.GetWindowRect(&rect);
  wnd.GetParent()->ScreenToClient(&rect);
  return rect;
}

TEST(BarFrame, RecalcLayoutLeavesTheViewBetweenTheBars) {
  // The frame deletes itself with its window.
  CBarFrame* pFrame = new CBarFrame;
  ASSERT_TRUE(pFrame->Create(NULL, "Bars", WS_OVERLAPPEDWINDOW, CRect(0, 0, 500, 400)));
  CToolBar toolBar;
  ASSERT_TRUE(toolBar.Create(pFrame));
  const UINT buttons[] = {ID_FILE_NEW, ID_FILE_OPEN, ID_SEPARATOR, ID_FILE_SAVE};
  ASSERT_TRUE(toolBar.SetButtons(buttons, 4));
  CStatusBar statusBar;
  ASSERT_TRUE(statusBar.Create(pFrame));
  const UINT panes[] = {ID_SEPARATOR, ID_SEPARATOR};
  ASSERT_TRUE(statusBar.SetIndicators(panes, 2));
  statusBar.SetPaneInfo(1, IDS_LINE, SBPS_NORMAL, 80);
  // A view as frames make them: its border is a client edge.
  CWnd view;
  ASSERT_TRUE(view.CreateEx(WS_EX_CLIENTEDGE, NULL, NULL, WS_CHILD | WS_VISIBLE,
                            CRect(0, 0, 10, 10), pFrame, AFX_IDW_PANE_FIRST));
  pFrame->RecalcLayout();
  EXPECT_EQ(pFrame, toolBar.GetDockingFrame());
  EXPECT_EQ(pFrame, statusBar.m_pDockSite);

  CRect rectClient;
  pFrame->GetClientRect(&rectClient);
  int cyTool = toolBar.CalcFixedLayout(TRUE, TRUE).cy;
  int cyStatus = statusBar.CalcFixedLayout(TRUE, TRUE).cy;
  EXPECT_EQ(CRect(0, 0, rectClient.right, cyTool), RectInParent(toolBar));
  EXPECT_EQ(CRect(0, rectClient.bottom - cyStatus, rectClient.right, rectClient.bottom),
            RectInParent(statusBar));
  EXPECT_EQ(CRect(0, cyTool, rectClient.right, rectClient.bottom - cyStatus), RectInParent(view));
  // The buttons sit inside the toolbar's margins, none clipped.
  CRect rectButton;
  toolBar.GetItemRect(0, &rectButton);
  toolBar.MapWindowPoints(pFrame, &rectButton);
  EXPECT_EQ(toolBar.m_cxLeftBorder, rectButton.left);
  EXPECT_GE(rectButton.top, toolBar.m_cyTopBorder);
  EXPECT_EQ(cyTool - toolBar.m_cyBottomBorder, rectButton.bottom);

  // The frame's prompts go to the message pane; idle updates reach the
  // indicator through the frame's handler.
  EXPECT_EQ(&statusBar, pFrame->GetMessageBar());
  pFrame->SetMessageText("Opening...");
  EXPECT_EQ("Opening...", statusBar.GetStatusBarCtrl().GetText(0));
  pFrame->m_strLine = "Ln 12";
  pFrame->SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE, 0, TRUE, TRUE);
  EXPECT_EQ("Ln 12", statusBar.GetStatusBarCtrl().GetText(1));

  // Hiding the toolbar gives its strip to the view.
  EXPECT_EQ(&toolBar, pFrame->GetControlBar(AFX_IDW_TOOLBAR));
  pFrame->ShowControlBar(&toolBar, FALSE, FALSE);
  pFrame->RecalcLayout();
  EXPECT_FALSE(toolBar.IsWindowVisible());
  EXPECT_EQ(CRect(0, 0, rectClient.right, rectClient.bottom - cyStatus), RectInParent(view));

  // A larger frame: the bars follow its new width.
  pFrame->SetWindowPos(NULL, 0, 0, 600, 450, SWP_NOMOVE | SWP_NOZORDER);
  pFrame->RecalcLayout();
  pFrame->GetClientRect(&rectClient);
  EXPECT_EQ(rectClient.right, RectInParent(statusBar).right);
  EXPECT_EQ(rectClient.bottom - cyStatus, RectInParent(view).bottom);
  pFrame->DestroyWindow();
}

} // namespace
