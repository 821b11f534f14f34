// CFrameWnd on real windows: what LoadFrame takes from one resource id (the
// title, menu and icon; the keyboard map's suite presses a key of the
// accelerators it loads), the status bar's messages and menu prompts,
// command routing through the active view, and the view's layout.
#include <afxext.h>
#include <gtest/gtest.h>

#include "frame_testing.h"

namespace {

int g_nFramesDeleted = 0;

class CTestFrame : public CFrameWnd {
public:
  int m_nRefresh = 0;
  virtual ~CTestFrame() { g_nFramesDeleted++; }
  afx_msg void OnRefresh() { m_nRefresh++; }
  afx_msg void OnNew() {}
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CTestFrame, CFrameWnd)
ON_COMMAND(ID_REFRESH, &CTestFrame::OnRefresh)
ON_COMMAND(ID_FILE_NEW, &CTestFrame::OnNew)
END_MESSAGE_MAP()

// A view that takes ID_REFRESH before its frame and counts its updates.
class CTestView : public CView {
  DECLARE_DYNCREATE(CTestView)
public:
  int m_nRefresh = 0;
  int m_nInitialUpdates = 0;
  virtual void OnDraw(CDC*) {}
  virtual void OnInitialUpdate() {
    m_nInitialUpdates++;
    CView::OnInitialUpdate();
  }
  afx_msg void OnRefresh() { m_nRefresh++; }
  DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNCREATE(CTestView, CView)
BEGIN_MESSAGE_MAP(CTestView, CView)
ON_COMMAND(ID_REFRESH, &CTestView::OnRefresh)
END_MESSAGE_MAP()

class FrameTest : public ::testing::Test {
protected:
  void TearDown() override {
    if (::IsWindow(m_hWndFrame)) ::DestroyWindow(m_hWndFrame);
    PumpAsApp();
  }
  CTestFrame* Load(DWORD dwStyle = WS_OVERLAPPEDWINDOW, CCreateContext* pContext = NULL) {
    CTestFrame* pFrame = new CTestFrame; // deleted with its window
    if (!pFrame->LoadFrame(IDR_FRAME, dwStyle, NULL, pContext)) return NULL;
    m_hWndFrame = pFrame->m_hWnd;
    return pFrame;
  }
  HWND m_hWndFrame = NULL;
};

TEST_F(FrameTest, LoadFrameTakesTitleMenuAndIconFromOneIdAndFailsWithoutAMenu) {
  CTestFrame* pFrame = Load();
  ASSERT_NE(nullptr, pFrame);
  EXPECT_STREQ("Frame Test", WindowText(pFrame)); // the first "\n" field only
  EXPECT_EQ(IDR_FRAME, pFrame->m_nIDHelp);

  EXPECT_EQ(::GetMenu(pFrame->m_hWnd), pFrame->m_hMenuDefault);
  ASSERT_NE(nullptr, pFrame->m_hMenuDefault);
  // The window class carries the icon of the same id.
  HICON hIcon = ::LoadIcon(::GetModuleHandle(NULL), MAKEINTRESOURCE(IDR_FRAME));
  ASSERT_NE(nullptr, hIcon);
  EXPECT_EQ((ULONG_PTR)hIcon, ::GetClassLongPtr(pFrame->m_hWnd, GCLP_HICON));

  // A missing menu fails the load, and the frame deletes itself.
  int nDeletedBefore = g_nFramesDeleted;
  EXPECT_FALSE((new CTestFrame)->LoadFrame(IDR_NOMENU));
  EXPECT_EQ(nDeletedBefore + 1, g_nFramesDeleted);
}

TEST_F(FrameTest, StatusBarShowsPromptsMessagesAndTheIdleMessage) {
  CTestFrame* pFrame = Load();
  ASSERT_NE(nullptr, pFrame);
  CStatusBar statusBar;
  ASSERT_TRUE(statusBar.Create(pFrame));
  const UINT panes[] = {ID_SEPARATOR};
  ASSERT_TRUE(statusBar.SetIndicators(panes, 1));
  EXPECT_EQ(&statusBar, pFrame->GetMessageBar());
  PumpAsApp(); // the message the frame posted as it was created
  EXPECT_STREQ("Ready", WindowText(&statusBar));

  pFrame->SetMessageText(ID_REFRESH); // the prompt: the string up to "\n"
  EXPECT_STREQ("Reloads the sheet", WindowText(&statusBar));
  pFrame->SetMessageText("Copying...");
  EXPECT_STREQ("Copying...", WindowText(&statusBar));

  // A menu item's prompt appears when the menu loop goes idle; until then a
  // pop-up message does not replace what is shown...
  pFrame->SendMessage(WM_MENUSELECT, MAKEWPARAM(ID_FILE_NEW, MF_STRING),
                      (LPARAM)::GetMenu(*pFrame));
  pFrame->SendMessage(WM_POPMESSAGESTRING, AFX_IDS_IDLEMESSAGE);
  EXPECT_STREQ("Copying...", WindowText(&statusBar));
  pFrame->SendMessage(WM_ENTERIDLE, MSGF_MENU, 0);
  EXPECT_STREQ("Creates a document", WindowText(&statusBar));
  // ...and closing the menu brings back the idle message.
  pFrame->SendMessage(WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
  EXPECT_STREQ("Ready", WindowText(&statusBar));

  // A prompt noted but not shown yet is shown at idle time.
  pFrame->m_nIDTracking = ID_REFRESH;
  pFrame->SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  EXPECT_STREQ("Reloads the sheet", WindowText(&statusBar));
  statusBar.DestroyWindow();
}

TEST_F(FrameTest, ViewFromTheContextFillsTheFrameAndTakesCommandsFirst) {
  CCreateContext context;
  context.m_pNewViewClass = RUNTIME_CLASS(CTestView);
  CTestFrame* pFrame = Load(WS_OVERLAPPEDWINDOW, &context);
  ASSERT_NE(nullptr, pFrame);
  CWnd* pPane = pFrame->GetDlgItem(AFX_IDW_PANE_FIRST);
  ASSERT_NE(nullptr, pPane);
  CTestView* pView = DYNAMIC_DOWNCAST(CTestView, CWnd::FromHandlePermanent(pPane->m_hWnd));
  ASSERT_NE(nullptr, pView);
  EXPECT_TRUE(pView->GetExStyle() & WS_EX_CLIENTEDGE); // the border became a client edge
  EXPECT_EQ(pFrame, pView->GetParentFrame());

  pFrame->InitialUpdateFrame(NULL, TRUE);
  EXPECT_EQ(pView, pFrame->GetActiveView());
  EXPECT_EQ(1, pView->m_nInitialUpdates);
  EXPECT_TRUE(pFrame->IsWindowVisible());

  // Resizing lays the view out over the whole client area.
  pFrame->MoveWindow(10, 10, 420, 300);
  CRect rectClient, rectView;
  pFrame->GetClientRect(&rectClient);
  pView->GetWindowRect(&rectView);
  pFrame->ScreenToClient(&rectView);
  EXPECT_EQ(rectClient, rectView);

  pFrame->SendMessage(WM_COMMAND, ID_REFRESH);
  EXPECT_EQ(1, pView->m_nRefresh);
  EXPECT_EQ(0, pFrame->m_nRefresh);
  pFrame->SetActiveView(NULL);
  pFrame->SendMessage(WM_COMMAND, ID_REFRESH);
  EXPECT_EQ(1, pFrame->m_nRefresh);
}

} // namespace
