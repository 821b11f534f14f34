// Input as a user gives it: keys and mouse buttons go through SendInput into
// the system's queue, so hooks, WM_CHAR translation, WM_GETDLGCODE and dialog
// navigation take part; Pump() serves the queue as the run loop does.
// While a DialogDriver lives, each dialog (#32770) that activates on this
// thread goes to the next queued action (none left: cancelled), as it
// activates; WhenShown runs an action from the dialog's own loop once it is
// shown and focused, so that typed input reaches its controls.
#ifndef VRK_TESTS_USER_INPUT_H
#define VRK_TESTS_USER_INPUT_H

#include <afxwin.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace user_input {

// Serves what is queued or arrives within a few idle rounds of 5 ms,
// pre-translated as the run loop does (an active system dialog with no
// CDialog navigates through its own dialog manager).
inline void Pump(int nIdleRounds = 3) {
  for (int nIdle = 0; nIdle < nIdleRounds;) {
    MSG msg;
    if (!::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE)) {
      ++nIdle;
      ::MsgWaitForMultipleObjects(0, NULL, FALSE, 5, QS_ALLINPUT);
      continue;
    }
    nIdle = 0;
    CWinApp* pApp = AfxGetApp();
    HWND hActive = ::GetActiveWindow();
    char szClass[8] = "";
    if (msg.message == WM_QUIT ||
        (pApp ? pApp->PreTranslateMessage(&msg) : CWnd::WalkPreTranslateTree(NULL, &msg)) ||
        (::GetClassNameA(hActive, szClass, 8) && lstrcmpA(szClass, "#32770") == 0 &&
         ::IsDialogMessageA(hActive, &msg)))
      continue;
    ::TranslateMessage(&msg);
    ::DispatchMessage(&msg);
  }
}

inline void Send(std::vector<INPUT> in) {
  ::SendInput((UINT)in.size(), in.data(), sizeof(INPUT));
  Pump();
}

inline INPUT Key(WORD vk, DWORD dwFlags) {
  INPUT in = {INPUT_KEYBOARD};
  in.ki.wVk = vk;
  in.ki.wScan = (WORD)::MapVirtualKeyA(vk, MAPVK_VK_TO_VSC);
  in.ki.dwFlags = dwFlags;
  return in;
}

// Presses vk while the modifiers (VK_SHIFT, VK_CONTROL, VK_MENU) are held.
inline void Press(WORD vk, std::vector<WORD> mods = {}) {
  std::vector<INPUT> in;
  for (WORD m : mods)
    in.push_back(Key(m, 0));
  in.push_back(Key(vk, 0));
  in.push_back(Key(vk, KEYEVENTF_KEYUP));
  for (auto it = mods.rbegin(); it != mods.rend(); ++it)
    in.push_back(Key(*it, KEYEVENTF_KEYUP));
  Send(in);
}

// Types characters key by key (capitals and symbols with Shift).
inline void Type(const std::string& text) {
  for (char c : text) {
    SHORT code = ::VkKeyScanA(c);
    Press(LOBYTE(code), (code & 0x100) ? std::vector<WORD>{VK_SHIFT} : std::vector<WORD>{});
  }
}

inline void Mouse(DWORD dwFlags, DWORD dwData = 0) {
  INPUT in = {INPUT_MOUSE};
  in.mi.dwFlags = dwFlags;
  in.mi.mouseData = dwData;
  Send({in});
}

inline void MoveTo(POINT pt) { // on the screen
  ::SetCursorPos(pt.x, pt.y);
  Mouse(MOUSEEVENTF_MOVE);
}

// A left click at pt, of hWnd's client area if given, else of the screen.
inline void Click(POINT pt, HWND hWnd = NULL) {
  if (hWnd != NULL) ::ClientToScreen(hWnd, &pt);
  MoveTo(pt);
  Mouse(MOUSEEVENTF_LEFTDOWN);
  Mouse(MOUSEEVENTF_LEFTUP);
}

// One notch of the wheel with the cursor at pt.
inline void Wheel(POINT pt) {
  MoveTo(pt);
  Mouse(MOUSEEVENTF_WHEEL, WHEEL_DELTA);
}

// Brings the top-level window forward and puts the focus on hWndFocus.
inline void Focus(HWND hWndTop, HWND hWndFocus) {
  ::SetForegroundWindow(hWndTop);
  ::SetFocus(hWndFocus);
  Pump();
}

// Focuses a dialog's control as Tab does (an edit's text selected).
inline void FocusItem(HWND hDlg, int nID) {
  ::SetForegroundWindow(hDlg);
  ::SendMessageA(hDlg, WM_NEXTDLGCTL, (WPARAM)::GetDlgItem(hDlg, nID), TRUE);
  Pump();
}

// A button of a dialog clicked (BM_CLICK), served.
inline void ClickItem(HWND hDlg, int nID) {
  ::SendMessageA(::GetDlgItem(hDlg, nID), BM_CLICK, 0, 0);
  Pump();
}

inline std::string Text(HWND hWnd) {
  std::string text(::GetWindowTextLengthA(hWnd) + 1, '\0');
  text.resize(::GetWindowTextA(hWnd, &text[0], (int)text.size()));
  return text;
}
inline std::string Text(HWND hDlg, int nID) { return Text(::GetDlgItem(hDlg, nID)); }

} // namespace user_input

class DialogDriver {
public:
  typedef std::function<void(HWND)> Action;

  DialogDriver() : m_pOuter(s_pCurrent) {
    m_hook = ::SetWindowsHookExA(WH_CBT, &CbtProc, NULL, ::GetCurrentThreadId());
    s_pCurrent = this;
  }
  ~DialogDriver() {
    ::UnhookWindowsHookEx(m_hook);
    s_pCurrent = m_pOuter;
  }
  DialogDriver(const DialogDriver&) = delete;
  DialogDriver& operator=(const DialogDriver&) = delete;

  void Then(Action action) { m_actions.push_back(action); }
  // The captions of the dialogs seen, in order.
  const std::vector<std::string>& Captions() const { return m_captions; }

  // A button press posted, to come once the dialog's loop runs.
  static void Press(HWND hDlg, int nID) {
    ::PostMessageA(hDlg, WM_COMMAND, MAKEWPARAM(nID, BN_CLICKED), (LPARAM)::GetDlgItem(hDlg, nID));
  }

  static Action WhenShown(Action action) {
    return [action](HWND hDlg) {
      ::SetPropA(hDlg, "VrkWhenShown", new Action(action));
      ::SetTimer(hDlg, 0x5EE, 10, &ShownTimerProc);
    };
  }

private:
  static void CALLBACK ShownTimerProc(HWND hDlg, UINT, UINT_PTR nID, DWORD) {
    // A modal loop shows its dialog once idle: a due timer comes first.
    if (!::IsWindowVisible(hDlg)) return;
    ::KillTimer(hDlg, nID);
    std::unique_ptr<Action> pAction((Action*)::RemovePropA(hDlg, "VrkWhenShown"));
    ::SetForegroundWindow(hDlg);
    if (pAction) (*pAction)(hDlg);
  }

  static LRESULT CALLBACK CbtProc(int nCode, WPARAM wParam, LPARAM lParam) {
    HWND hWnd = (HWND)wParam;
    char szClass[8] = "";
    // Activation comes again when the focus returns: one action a dialog.
    DialogDriver* pDriver = s_pCurrent;
    if (nCode == HCBT_ACTIVATE && pDriver != nullptr && ::GetClassNameA(hWnd, szClass, 8) &&
        lstrcmpA(szClass, "#32770") == 0 && ::GetPropA(hWnd, "VrkDriven") == NULL) {
      ::SetPropA(hWnd, "VrkDriven", (HANDLE)1);
      pDriver->m_captions.push_back(user_input::Text(hWnd));
      Action action = [](HWND hDlg) { Press(hDlg, IDCANCEL); };
      if (!pDriver->m_actions.empty()) {
        action = pDriver->m_actions.front();
        pDriver->m_actions.pop_front();
      }
      action(hWnd);
    }
    return ::CallNextHookEx(NULL, nCode, wParam, lParam);
  }

  static inline thread_local DialogDriver* s_pCurrent = nullptr;
  HHOOK m_hook;
  DialogDriver* m_pOuter;
  std::deque<Action> m_actions;
  std::vector<std::string> m_captions;
};

#endif
