// Input as a user gives it: keys and buttons go through SendInput into the
// system's input queue, so thread hooks, WM_CHAR translation, WM_GETDLGCODE
// and dialog navigation take part; Pump() serves the queue as the
// application's run loop does (pre-translation included).
#ifndef VRK_TESTS_USER_INPUT_H
#define VRK_TESTS_USER_INPUT_H

#include <afxwin.h>

#include <vector>

namespace user_input {

// Serves what is queued, and what arrives within a few idle rounds of 5 ms.
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
    if (msg.message == WM_QUIT ||
        (pApp ? pApp->PreTranslateMessage(&msg) : CWnd::WalkPreTranslateTree(NULL, &msg)))
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

// Types letters, digits and spaces key by key (capitals with Shift).
inline void Type(const char* psz) {
  for (; *psz; ++psz) {
    SHORT code = ::VkKeyScanA(*psz);
    Press(LOBYTE(code), (code & 0x100) ? std::vector<WORD>{VK_SHIFT} : std::vector<WORD>{});
  }
}

inline INPUT Mouse(DWORD dwFlags, DWORD dwData = 0) {
  INPUT in = {INPUT_MOUSE};
  in.mi.dwFlags = dwFlags;
  in.mi.mouseData = dwData;
  return in;
}

// The cursor to a point of the screen, seen as a move.
inline void MoveTo(POINT pt) {
  ::SetCursorPos(pt.x, pt.y);
  Send({Mouse(MOUSEEVENTF_MOVE)});
}

inline void Click(POINT pt) {
  MoveTo(pt);
  Send({Mouse(MOUSEEVENTF_LEFTDOWN)});
  Send({Mouse(MOUSEEVENTF_LEFTUP)});
}

inline void ClickClient(HWND hWnd, int x, int y) {
  POINT pt = {x, y};
  ::ClientToScreen(hWnd, &pt);
  Click(pt);
}

// One notch of the wheel with the cursor at pt.
inline void Wheel(POINT pt) {
  MoveTo(pt);
  Send({Mouse(MOUSEEVENTF_WHEEL, WHEEL_DELTA)});
}

// Brings the top-level window forward and puts the focus on hWndFocus.
inline void Focus(HWND hWndTop, HWND hWndFocus) {
  ::SetForegroundWindow(hWndTop);
  ::SetFocus(hWndFocus);
  Pump();
}

} // namespace user_input

#endif
