// Input as a user gives it: keys and mouse buttons go through SendInput into
// the system's input queue, so thread hooks, WM_CHAR translation,
// WM_GETDLGCODE and dialog navigation take part; Pump() serves the queue as
// the application's run loop does.
//
// While a DialogDriver lives, each dialog (#32770) that activates on this
// thread goes to the next queued action, or is cancelled if none is left, so
// a test never blocks. An action runs as the dialog activates, before it is
// shown; WhenShown runs it from the dialog's own loop once it is shown and
// has the focus, so that typed input reaches its controls.
#ifndef VRK_TESTS_USER_INPUT_H
#define VRK_TESTS_USER_INPUT_H

#include <afxwin.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace user_input {

// Serves what is queued, and what arrives within a few idle rounds of 5 ms:
// pre-translated as the run loop does, and through the dialog manager of an
// active dialog that is not one of ours (the system's common dialogs).
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

// Presses vk while the modifiers (VK_SHIFT, VK_CONTROL, VK_MENU) are held.
inline void Press(WORD vk, std::vector<WORD> mods = {}) {
  mods.push_back(vk);
  std::vector<INPUT> in(2 * mods.size(), INPUT{INPUT_KEYBOARD});
  for (size_t i = 0; i < mods.size(); i++) {
    in[i].ki.wVk = in[in.size() - 1 - i].ki.wVk = mods[i];
    in[i].ki.wScan = in[in.size() - 1 - i].ki.wScan = (WORD)::MapVirtualKeyA(mods[i], 0);
    in[in.size() - 1 - i].ki.dwFlags = KEYEVENTF_KEYUP;
  }
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

// The cursor to a point of the screen, seen as a move.
inline void MoveTo(POINT pt) {
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

// Focuses a control of a dialog as the user's Tab does (an edit's text
// selected).
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

  DialogDriver() : m_pOuter(Current()) {
    m_hook = ::SetWindowsHookExA(WH_CBT, &CbtProc, NULL, ::GetCurrentThreadId());
    Current() = this;
  }
  ~DialogDriver() {
    if (m_hook != NULL) ::UnhookWindowsHookEx(m_hook);
    Current() = m_pOuter;
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
  static std::string Text(HWND hWnd) { return user_input::Text(hWnd); }
  static std::string Text(HWND hDlg, int nID) { return user_input::Text(hDlg, nID); }

  static Action WhenShown(Action action) {
    return [action](HWND hDlg) {
      Pending()[hDlg] = action;
      ::SetTimer(hDlg, kShownTimer, 10, &ShownTimerProc);
    };
  }

private:
  enum { kShownTimer = 0x5EE };
  static std::map<HWND, Action>& Pending() {
    static thread_local std::map<HWND, Action> s_pending;
    return s_pending;
  }
  static void CALLBACK ShownTimerProc(HWND hDlg, UINT, UINT_PTR nID, DWORD) {
    // A modal loop shows its dialog once idle: a due timer comes first.
    if (!::IsWindowVisible(hDlg)) return;
    ::KillTimer(hDlg, nID);
    auto it = Pending().find(hDlg);
    if (it == Pending().end()) return;
    Action action = it->second;
    Pending().erase(it);
    ::SetForegroundWindow(hDlg);
    action(hDlg);
  }

  static DialogDriver*& Current() {
    static thread_local DialogDriver* s_pCurrent = nullptr;
    return s_pCurrent;
  }

  static LRESULT CALLBACK CbtProc(int nCode, WPARAM wParam, LPARAM lParam) {
    DialogDriver* pDriver = Current();
    if (nCode == HCBT_ACTIVATE && pDriver != nullptr) {
      HWND hWnd = (HWND)wParam;
      char cls[16];
      // Activation comes again when the focus returns: one action a dialog.
      if (::GetClassNameA(hWnd, cls, sizeof(cls)) && lstrcmpA(cls, "#32770") == 0 &&
          ::GetPropA(hWnd, "VrkDriven") == NULL) {
        ::SetPropA(hWnd, "VrkDriven", (HANDLE)1);
        pDriver->m_captions.push_back(Text(hWnd));
        if (pDriver->m_actions.empty()) {
          Press(hWnd, IDCANCEL);
        } else {
          Action action = pDriver->m_actions.front();
          pDriver->m_actions.pop_front();
          action(hWnd);
        }
      }
    }
    return ::CallNextHookEx(NULL, nCode, wParam, lParam);
  }

  HHOOK m_hook;
  DialogDriver* m_pOuter;
  std::deque<Action> m_actions;
  std::vector<std::string> m_captions;
};

#endif
