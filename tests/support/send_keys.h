// Typing as the user types: key events through SendInput reach the focused
// window of the foreground window through the thread's queue, so that
// TranslateMessage makes the WM_CHARs and hooks see every key.
#ifndef VRK_TESTS_SEND_KEYS_H
#define VRK_TESTS_SEND_KEYS_H

#include <windows.h>

#include <string.h>

inline void PumpKeys() {
  MSG msg;
  while (::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&msg);
    ::DispatchMessage(&msg);
  }
}

inline void FocusForTyping(HWND hWndTop, HWND hWndFocus) {
  ::SetForegroundWindow(hWndTop);
  ::SetFocus(hWndFocus);
  PumpKeys();
}

// Presses and releases a virtual key, Shift held around it if asked.
inline void PressKey(WORD vk, bool bShift = false) {
  INPUT in[4] = {};
  WORD keys[4] = {VK_SHIFT, vk, vk, VK_SHIFT};
  for (int i = 0; i < 4; i++) {
    in[i].type = INPUT_KEYBOARD;
    in[i].ki.wVk = keys[i];
    in[i].ki.wScan = (WORD)::MapVirtualKey(keys[i], 0);
    in[i].ki.dwFlags = i >= 2 ? KEYEVENTF_KEYUP : 0;
  }
  ::SendInput(bShift ? 4 : 2, bShift ? in : in + 1, sizeof(INPUT));
  PumpKeys();
}

// Types each character on its keys, and the named keys {BS} {DEL} {INS}
// {HOME} {END} {LEFT} {RIGHT}.
inline void TypeKeys(const char* psz) {
  static const char* names[] = {"{BS}", "{DEL}", "{INS}", "{HOME}", "{END}", "{LEFT}", "{RIGHT}"};
  static const WORD vks[] = {VK_BACK, VK_DELETE, VK_INSERT, VK_HOME, VK_END, VK_LEFT, VK_RIGHT};
  while (*psz != '\0') {
    int i = 0;
    while (i < 7 && strncmp(psz, names[i], strlen(names[i])) != 0)
      i++;
    if (i < 7) {
      PressKey(vks[i]);
      psz += strlen(names[i]);
    } else {
      SHORT nScan = ::VkKeyScanA(*psz++);
      PressKey(LOBYTE(nScan), (HIBYTE(nScan) & 1) != 0);
    }
  }
}

#endif // VRK_TESTS_SEND_KEYS_H
