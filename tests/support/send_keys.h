// Typing as the user types: key events through SendInput reach the focused
// window of the foreground window through the thread's queue, so that
// TranslateMessage makes the WM_CHARs and hooks see every key.
#ifndef VRK_TESTS_SEND_KEYS_H
#define VRK_TESTS_SEND_KEYS_H

#include <windows.h>

#include <string>
#include <vector>

// Serves the queued messages, so that the keys sent so far have arrived.
inline void PumpKeys() {
  MSG msg;
  while (::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&msg);
    ::DispatchMessage(&msg);
  }
}

// Makes hWndTop the foreground window and hWndFocus its focused control.
inline void FocusForTyping(HWND hWndTop, HWND hWndFocus) {
  ::SetForegroundWindow(hWndTop);
  ::SetActiveWindow(hWndTop);
  ::SetFocus(hWndFocus);
  PumpKeys();
}

// Presses and releases a virtual key, with Shift held around it if asked.
inline void PressKey(WORD vk, bool bShift = false) {
  std::vector<INPUT> inputs;
  auto add = [&](WORD wVk, DWORD dwFlags) {
    INPUT in = {};
    in.type = INPUT_KEYBOARD;
    in.ki.wVk = wVk;
    in.ki.wScan = (WORD)::MapVirtualKey(wVk, 0 /* MAPVK_VK_TO_VSC */);
    in.ki.dwFlags = dwFlags;
    inputs.push_back(in);
  };
  if (bShift) add(VK_SHIFT, 0);
  add(vk, 0);
  add(vk, KEYEVENTF_KEYUP);
  if (bShift) add(VK_SHIFT, KEYEVENTF_KEYUP);
  ::SendInput((UINT)inputs.size(), &inputs[0], sizeof(INPUT));
  PumpKeys();
}

// Types a character on the keys that make it in the keyboard layout.
inline void TypeChar(char c) {
  SHORT nScan = ::VkKeyScanA(c);
  if (nScan == -1) return;
  PressKey(LOBYTE(nScan), (HIBYTE(nScan) & 1) != 0);
}

// Types keys written as text: each character as itself, and the named keys
// {BS} {DEL} {INS} {HOME} {END} {LEFT} {RIGHT}.
inline void TypeKeys(const char* pszKeys) {
  static const struct {
    const char* pszName;
    WORD vk;
  } named[] = {{"{BS}", VK_BACK}, {"{DEL}", VK_DELETE}, {"{INS}", VK_INSERT}, {"{HOME}", VK_HOME},
               {"{END}", VK_END}, {"{LEFT}", VK_LEFT},  {"{RIGHT}", VK_RIGHT}};
  std::string keys(pszKeys);
  for (size_t i = 0; i < keys.size();) {
    bool bNamed = false;
    for (const auto& key : named) {
      size_t nLen = strlen(key.pszName);
      if (keys.compare(i, nLen, key.pszName) == 0) {
        PressKey(key.vk);
        i += nLen;
        bNamed = true;
        break;
      }
    }
    if (!bNamed) TypeChar(keys[i++]);
  }
}

#endif // VRK_TESTS_SEND_KEYS_H
