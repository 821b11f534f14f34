// Drives the system's dialogs in tests: while a DialogDriver lives, each
// dialog window (#32770) that activates on this thread is handed to the next
// queued action, which fills in controls and posts the button presses, as a
// user would. Dialogs with no action left are cancelled, so a test never
// blocks.
#ifndef VRK_TESTS_DLG_DRIVER_H
#define VRK_TESTS_DLG_DRIVER_H

#include <windows.h>

#include <deque>
#include <functional>
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
    char sz[1024] = "";
    ::GetWindowTextA(hWnd, sz, sizeof(sz));
    return sz;
  }

private:
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
