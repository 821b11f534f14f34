// AfxWinMain with an application object: InitInstance creates the main
// window, Run pumps until the main window is gone, ExitInstance's result is
// the exit code; a failed InitInstance skips the loop.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class CRunApp : public CWinApp {
public:
  CRunApp() : CWinApp("RunApp") {}
  BOOL m_bFailInit = FALSE;
  std::vector<std::string> m_log;
  int m_nIdleCalls = 0;

  virtual BOOL InitInstance() {
    m_log.push_back("InitInstance");
    if (m_bFailInit) return FALSE;
    CWnd* pMain = new CWnd;
    if (!pMain->CreateEx(0, NULL, "main", WS_POPUP, 0, 0, 10, 10, NULL, NULL)) return FALSE;
    m_pMainWnd = pMain;
    return TRUE;
  }
  // The first idle time closes the main window, which ends the loop.
  virtual BOOL OnIdle(LONG lCount) {
    if (m_nIdleCalls++ == 0) m_pMainWnd->PostMessage(WM_CLOSE);
    return CWinApp::OnIdle(lCount);
  }
  virtual int ExitInstance() {
    m_log.push_back("ExitInstance");
    CWinApp::ExitInstance();
    return m_bFailInit ? 3 : 7;
  }
};

CRunApp theApp;

TEST(WinAppRun, RunsUntilTheMainWindowCloses) {
  CWnd* pMainBefore = NULL;
  EXPECT_EQ(&theApp, AfxGetApp());
  EXPECT_EQ(pMainBefore, AfxGetMainWnd());
  EXPECT_EQ(7, AfxWinMain(::GetModuleHandle(NULL), NULL, (LPTSTR) "", SW_HIDE));
  std::vector<std::string> expected = {"InitInstance", "ExitInstance"};
  EXPECT_EQ(expected, theApp.m_log);
  EXPECT_EQ(NULL, theApp.m_pMainWnd); // forgotten as its window went
  EXPECT_EQ(1, theApp.m_nIdleCalls);  // the posted close ends idle time at once
}

TEST(WinAppRun, FailedInitInstanceSkipsTheLoop) {
  theApp.m_log.clear();
  theApp.m_bFailInit = TRUE;
  EXPECT_EQ(3, AfxWinMain(::GetModuleHandle(NULL), NULL, (LPTSTR) "", SW_HIDE));
  std::vector<std::string> expected = {"InitInstance", "ExitInstance"};
  EXPECT_EQ(expected, theApp.m_log);
}

} // namespace
