// Input as a user gives it: keys and mouse buttons go through SendInput into
// the system's input queue, so thread hooks, WM_CHAR translation,
// WM_GETDLGCODE and dialog navigation all take part; Pump() then serves the
// thread's queue as the application's run loop does (pre-translation
// included). The target must be in the foreground with the focus set.
#ifndef VRK_TESTS_USER_INPUT_H
#define VRK_TESTS_USER_INPUT_H

#include <afxwin.h>

#include <vector>

namespace user_input {

// Serves what is queued now, and what input arrives within a few idle rounds.
inline void Pump(int nIdleRounds = 3) {
  for (int nIdle = 0; nIdle < nIdleRounds;) {
    MSG msg;
    if (::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE)) {
      nIdle = 0;
      if (msg.message == WM_QUIT) continue;
      BOOL bDone = AfxGetApp() != NULL ? AfxGetApp()->PreTranslateMessage(&msg)
                                       : CWnd::WalkPreTranslateTree(NULL, &msg);
      if (!bDone) {
        ::TranslateMessage(&msg);
        ::DispatchMessage(&msg);
      }
    } else {
      ++nIdle;
      ::MsgWaitForMultipleObjects(0, NULL, FALSE, 5, QS_ALLINPUT);
    }
  }
}

inline INPUT Key(WORD vk, bool bUp) {
  INPUT in = {};
  in.type = INPUT_KEYBOARD;
  in.ki.wVk = vk;
  in.ki.wScan = (WORD)::MapVirtualKeyA(vk, MAPVK_VK_TO_VSC);
  in.ki.dwFlags = bUp ? KEYEVENTF_KEYUP : 0;
  return in;
}

// Presses vk while holding the modifiers (VK_SHIFT, VK_CONTROL, VK_MENU), then
// lets all go, and serves the queue.
inline void Press(WORD vk, std::vector<WORD> modifiers = {}) {
  std::vector<INPUT> in;
  for (WORD m : modifiers)
    in.push_back(Key(m, false));
  in.push_back(Key(vk, false));
  in.push_back(Key(vk, true));
  for (auto it = modifiers.rbegin(); it != modifiers.rend(); ++it)
    in.push_back(Key(*it, true));
  ::SendInput((UINT)in.size(), in.data(), sizeof(INPUT));
  Pump();
}

// Types the text key by key (letters, digits, space; capitals with Shift).
inline void Type(const char* psz) {
  for (; *psz; ++psz) {
    SHORT code = ::VkKeyScanA(*psz);
    if (code == -1) continue;
    std::vector<WORD> mods;
    if (code & 0x100) mods.push_back(VK_SHIFT);
    Press(LOBYTE(code), mods);
  }
}

inline void MoveTo(POINT ptScreen) {
  ::SetCursorPos(ptScreen.x, ptScreen.y);
  INPUT in = {};
  in.type = INPUT_MOUSE;
  in.mi.dwFlags = MOUSEEVENTF_MOVE; // no distance: the cursor stays, the move is seen
  ::SendInput(1, &in, sizeof(INPUT));
  Pump();
}

inline void Button(DWORD dwFlags) {
  INPUT in = {};
  in.type = INPUT_MOUSE;
  in.mi.dwFlags = dwFlags;
  ::SendInput(1, &in, sizeof(INPUT));
  Pump();
}

// A left click at a point of the screen.
inline void Click(POINT ptScreen) {
  MoveTo(ptScreen);
  Button(MOUSEEVENTF_LEFTDOWN);
  Button(MOUSEEVENTF_LEFTUP);
}

// A left click at a point of a window's client area.
inline void ClickClient(HWND hWnd, int x, int y) {
  POINT pt = {x, y};
  ::ClientToScreen(hWnd, &pt);
  Click(pt);
}

// One notch of the wheel, away from the user, with the cursor at ptScreen.
inline void Wheel(POINT ptScreen) {
  MoveTo(ptScreen);
  INPUT in = {};
  in.type = INPUT_MOUSE;
  in.mi.dwFlags = MOUSEEVENTF_WHEEL;
  in.mi.mouseData = WHEEL_DELTA;
  ::SendInput(1, &in, sizeof(INPUT));
  Pump();
}

// Brings the top-level window forward and puts the focus on hWndFocus.
inline void Focus(HWND hWndTop, HWND hWndFocus) {
  ::SetForegroundWindow(hWndTop);
  ::SetFocus(hWndFocus);
  Pump();
}

} // namespace user_input

#endif
