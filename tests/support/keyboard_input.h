// Keys pressed as the user presses them: through SendInput into the system's
// input queue, so that accelerators, hooks, menus and WM_CHAR all take part.
// The window that should receive them is brought to the foreground first.
#ifndef VRK_TESTS_KEYBOARD_INPUT_H
#define VRK_TESTS_KEYBOARD_INPUT_H

#include <windows.h>

#include <initializer_list>
#include <vector>

// Makes hWnd the foreground window and gives the focus to hFocus (hWnd when
// NULL).
inline void FocusForInput(HWND hWnd, HWND hFocus = NULL) {
  ::SetForegroundWindow(hWnd);
  ::SetActiveWindow(hWnd);
  ::SetFocus(hFocus != NULL ? hFocus : hWnd);
}

// Presses the keys in order and releases them in reverse: {VK_CONTROL, 'K'}
// is Ctrl+K. Returns the number of events the system took.
inline UINT PressKeys(std::initializer_list<WORD> keys) {
  std::vector<INPUT> events;
  for (WORD vk : keys) {
    INPUT in = {};
    in.type = INPUT_KEYBOARD;
    in.ki.wVk = vk;
    events.push_back(in);
  }
  for (auto it = keys.end(); it != keys.begin();) {
    INPUT in = {};
    in.type = INPUT_KEYBOARD;
    in.ki.wVk = *--it;
    in.ki.dwFlags = KEYEVENTF_KEYUP;
    events.push_back(in);
  }
  return ::SendInput((UINT)events.size(), events.data(), sizeof(INPUT));
}

#endif
