// Drives the system's dialogs in tests: while a DialogDriver lives, each
// dialog window (#32770) that activates on this thread is handed to the next
// queued action, which fills in controls and posts the button presses, as a
// user would. Dialogs with no action left are cancelled, so a test never
// blocks.
//
// An action runs as the dialog activates, before it is shown; wrap it in
// WhenShown to run it from the dialog's own message loop once it is shown
// and has the focus, so that typed input (Type, Key) reaches its controls.
#ifndef VRK_TESTS_DLG_DRIVER_H
#define VRK_TESTS_DLG_DRIVER_H

#include <windows.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

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

  // Helpers for actions.
  static void Press(HWND hDlg, int nID) {
    ::PostMessageA(hDlg, WM_COMMAND, MAKEWPARAM(nID, BN_CLICKED), (LPARAM)::GetDlgItem(hDlg, nID));
  }
  static std::string Text(HWND hWnd) {
    std::string text(::GetWindowTextLengthA(hWnd) + 1, '\0');
    text.resize(::GetWindowTextA(hWnd, &text[0], (int)text.size()));
    return text;
  }
  static std::string Text(HWND hDlg, int nID) { return Text(::GetDlgItem(hDlg, nID)); }

  static Action WhenShown(Action action) {
    return [action](HWND hDlg) {
      Pending()[hDlg] = action;
      ::SetTimer(hDlg, kShownTimer, 10, &ShownTimerProc);
    };
  }
  // Real keyboard input to the focused control, then served.
  static void Key(WORD vk, bool bShift = false) {
    INPUT in[4] = {};
    int n = 0;
    auto add = [&](WORD key, DWORD flags) {
      in[n].type = INPUT_KEYBOARD;
      in[n].ki.wVk = key;
      in[n].ki.dwFlags = flags;
      n++;
    };
    if (bShift) add(VK_SHIFT, 0);
    add(vk, 0);
    add(vk, KEYEVENTF_KEYUP);
    if (bShift) add(VK_SHIFT, KEYEVENTF_KEYUP);
    ::SendInput(n, in, sizeof(INPUT));
    Serve();
  }
  static void Type(const std::string& text) {
    for (char c : text) {
      SHORT scan = ::VkKeyScanA(c);
      Key(LOBYTE(scan), (HIBYTE(scan) & 1) != 0);
    }
  }
  // Focuses a control of the dialog as the user's click or tab would.
  static void Focus(HWND hDlg, int nID) {
    ::SetForegroundWindow(hDlg);
    ::SendMessageA(hDlg, WM_NEXTDLGCTL, (WPARAM)::GetDlgItem(hDlg, nID), TRUE);
    Serve();
  }
  // A click on a button (BM_CLICK), served.
  static void Click(HWND hDlg, int nID) {
    ::SendMessageA(::GetDlgItem(hDlg, nID), BM_CLICK, 0, 0);
    Serve();
  }
  // Serves what is queued, through the dialog navigation of the active one.
  static void Serve() {
    MSG msg;
    while (::PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE)) {
      HWND hActive = ::GetActiveWindow();
      if (hActive == NULL || !::IsDialogMessageA(hActive, &msg)) {
        ::TranslateMessage(&msg);
        ::DispatchMessageA(&msg);
      }
    }
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
