// The library's message box against the system's: each created, shown and
// closed (its OK button pressed as it activates) with the same text and type.
// Prints each time and the library/system ratio.
#include <afxwin.h>

#include "bench_clock.h"
#include "vrk_msgbox.h"

#include <stdio.h>

namespace {

const int kRounds = 100;
const char kText[] = "The document has changed. Save the changes before closing?";
const UINT kType = MB_OKCANCEL | MB_ICONQUESTION;

// Presses OK on every dialog box as it activates.
LRESULT CALLBACK PressOK(int nCode, WPARAM wParam, LPARAM lParam) {
  if (nCode == HCBT_ACTIVATE) {
    char cls[16];
    HWND hWnd = (HWND)wParam;
    if (::GetClassNameA(hWnd, cls, sizeof(cls)) && lstrcmpA(cls, "#32770") == 0)
      ::PostMessageA(hWnd, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                     (LPARAM)::GetDlgItem(hWnd, IDOK));
  }
  return ::CallNextHookEx(NULL, nCode, wParam, lParam);
}

template <typename F> double Time(F show) {
  double t0 = NowMs();
  for (int i = 0; i < kRounds; i++)
    if (show() != IDOK) {
      printf("a box did not answer OK\n");
      return -1;
    }
  return NowMs() - t0;
}

} // namespace

int main() {
  HHOOK hHook = ::SetWindowsHookExA(WH_CBT, &PressOK, NULL, ::GetCurrentThreadId());
  // One of each first: loading the template, icons and fonts is not timed.
  VrkMessageBox(kText, kType);
  ::MessageBoxA(NULL, kText, "Bench", kType);
  double tLib = Time([] { return VrkMessageBox(kText, kType); });
  double tSys = Time([] { return ::MessageBoxA(NULL, kText, "Bench", kType); });
  ::UnhookWindowsHookEx(hHook);
  printf("message box, %d shown and closed: VrkMessageBox %.1f ms, MessageBox %.1f ms, "
         "ratio %.2f (at most 2)\n",
         kRounds, tLib, tSys, tSys > 0 ? tLib / tSys : 0.0);
  return 0;
}
