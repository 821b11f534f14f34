// The wizard-style application of tests/afx/wizard, built as MFC developers
// write one, run as its own process and driven by key presses: its toolbar
// (a TOOLBAR statement) and status bar show, the View menu hides and shows
// them, a file opened goes to the File menu's recent files and reopens from
// there in the next run, the colour dialog opens, and File > Exit ends it.
#include <afxwin.h>
#include <afxres.h>
#include <gtest/gtest.h>
#include <commctrl.h>

#include <string>

#include "temp_dir.h"
#include "user_input.h"

namespace {

const char kSettingsKey[] = "Software\\VRK Wizard Test";

struct App {
  PROCESS_INFORMATION pi = {};
  HWND hMain = NULL;
  ~App() {
    if (pi.hProcess == NULL) return;
    if (::WaitForSingleObject(pi.hProcess, 0) == WAIT_TIMEOUT) ::TerminateProcess(pi.hProcess, 99);
    ::CloseHandle(pi.hProcess);
    ::CloseHandle(pi.hThread);
  }
};

// Waits up to five seconds for the condition, letting the application run.
template <class Fn> bool WaitFor(Fn fn) {
  for (int i = 0; i < 250; i++) {
    if (fn()) return true;
    ::Sleep(20);
  }
  return fn();
}

// The process's visible top-level window of the given class (NULL: any).
struct FindWindowOf {
  DWORD dwProcessId;
  const char* pszClass;
  HWND hWnd;
};

BOOL CALLBACK FindWindowProc(HWND hWnd, LPARAM lParam) {
  FindWindowOf* pFind = (FindWindowOf*)lParam;
  DWORD dwPid = 0;
  ::GetWindowThreadProcessId(hWnd, &dwPid);
  char szClass[64] = "";
  ::GetClassNameA(hWnd, szClass, sizeof(szClass));
  if (dwPid != pFind->dwProcessId || !::IsWindowVisible(hWnd) ||
      (pFind->pszClass != NULL && strcmp(szClass, pFind->pszClass) != 0))
    return TRUE;
  pFind->hWnd = hWnd;
  return FALSE;
}

HWND TopWindowOf(DWORD dwProcessId, const char* pszClass) {
  FindWindowOf find = {dwProcessId, pszClass, NULL};
  ::EnumWindows(FindWindowProc, (LPARAM)&find);
  return find.hWnd;
}

void Start(App& app, const std::string& args) {
  char szExe[MAX_PATH];
  ::GetModuleFileNameA(NULL, szExe, MAX_PATH);
  std::string cmd = std::string(szExe);
  cmd = "\"" + cmd.substr(0, cmd.rfind('\\') + 1) + "afx_wizardapp.exe\" " + args;
  STARTUPINFOA si = {sizeof(si)};
  ASSERT_TRUE(::CreateProcessA(NULL, &cmd[0], NULL, NULL, FALSE, 0, NULL, NULL, &si, &app.pi));
  ASSERT_TRUE(WaitFor([&] { return (app.hMain = TopWindowOf(app.pi.dwProcessId, NULL)) != NULL; }))
      << "the application showed no window";
  user_input::Focus(app.hMain, app.hMain);
}

std::string Title(HWND hWnd) {
  char sz[256] = "";
  ::GetWindowTextA(hWnd, sz, sizeof(sz));
  return sz;
}

// Alt, then each mnemonic in turn: a menu command chosen from the keyboard.
void Menu(App& app, std::initializer_list<WORD> mnemonics) {
  user_input::Focus(app.hMain, app.hMain);
  user_input::Press(VK_MENU);
  for (WORD key : mnemonics) {
    ::Sleep(50);
    user_input::Press(key);
  }
}

bool Ended(App& app) { return ::WaitForSingleObject(app.pi.hProcess, 5000) == WAIT_OBJECT_0; }

TEST(WizardApp, BarsViewMenuRecentFilesColourDialogAndExit) {
  ::RegDeleteTreeA(HKEY_CURRENT_USER, kSettingsKey);
  TempDir dir;
  std::string path = dir.File("notes.wiz");
  ASSERT_TRUE(TempDir::WriteBytes(path, "notes"));
  {
    App app;
    Start(app, "\"" + path + "\"");
    EXPECT_NE(std::string::npos, Title(app.hMain).find("notes.wiz")) << Title(app.hMain);

    // Toolbar and status bar; the toolbar's ids from its TOOLBAR statement.
    HWND hToolBar = ::GetDlgItem(app.hMain, AFX_IDW_TOOLBAR);
    HWND hStatusBar = ::GetDlgItem(app.hMain, AFX_IDW_STATUS_BAR);
    ASSERT_NE(nullptr, hToolBar);
    ASSERT_NE(nullptr, hStatusBar);
    EXPECT_TRUE(::IsWindowVisible(hToolBar));
    EXPECT_TRUE(::IsWindowVisible(hStatusBar));
    EXPECT_EQ(4, ::SendMessage(hToolBar, TB_BUTTONCOUNT, 0, 0));
    EXPECT_EQ(3, ::SendMessage(hToolBar, TB_COMMANDTOINDEX, 32771, 0));

    // View > Toolbar and View > Status Bar hide and show them.
    Menu(app, {'V', 'T'});
    EXPECT_TRUE(WaitFor([&] { return !::IsWindowVisible(hToolBar); })) << "View > Toolbar";
    Menu(app, {'V', 'S'});
    EXPECT_TRUE(WaitFor([&] { return !::IsWindowVisible(hStatusBar); })) << "View > Status Bar";
    Menu(app, {'V', 'T'});
    EXPECT_TRUE(WaitFor([&] { return ::IsWindowVisible(hToolBar); }));
    EXPECT_FALSE(::IsWindowVisible(hStatusBar));

    // View > Background Colour opens the colour dialog; Escape closes it.
    Menu(app, {'V', 'C'});
    HWND hDialog = NULL;
    EXPECT_TRUE(WaitFor([&] {
      return (hDialog = TopWindowOf(app.pi.dwProcessId, "#32770")) != NULL;
    })) << "no colour dialog";
    if (hDialog != NULL) {
      user_input::Focus(hDialog, hDialog);
      user_input::Press(VK_ESCAPE);
      EXPECT_TRUE(WaitFor([&] { return !::IsWindow(hDialog); }));
    }

    // File > Exit ends it, keeping the file in the recent list.
    Menu(app, {'F', 'X'});
    ASSERT_TRUE(Ended(app)) << "File > Exit did not end the application";
    DWORD dwExit = 1;
    ::GetExitCodeProcess(app.pi.hProcess, &dwExit);
    EXPECT_EQ(0u, dwExit);
  }
  char szFile1[MAX_PATH] = "";
  DWORD cb = sizeof(szFile1);
  EXPECT_EQ(ERROR_SUCCESS,
            ::RegGetValueA(HKEY_CURRENT_USER, "Software\\VRK Wizard Test\\Wizard\\Recent File List",
                           "File1", RRF_RT_REG_SZ, NULL, szFile1, &cb));
  EXPECT_STRCASEEQ(path.c_str(), szFile1);

  // The next run lists it first in the File menu: its mnemonic reopens it.
  {
    App app;
    Start(app, "");
    EXPECT_EQ(std::string::npos, Title(app.hMain).find("notes.wiz"));
    Menu(app, {'F', '1'});
    EXPECT_TRUE(WaitFor([&] { return Title(app.hMain).find("notes.wiz") != std::string::npos; }))
        << Title(app.hMain);
    Menu(app, {'F', 'X'});
    EXPECT_TRUE(Ended(app));
  }
  ::RegDeleteTreeA(HKEY_CURRENT_USER, kSettingsKey);
}

} // namespace
