// Message dispatch: a million SendMessage calls to a window whose handler is
// in the third base class's message map, against a plain window procedure
// with a switch. Prints each time and the map/plain ratio.
#include <afxwin.h>

#include "bench_clock.h"

#include <stdio.h>

namespace {

const int kRounds = 1000000;
const UINT WM_BENCH = WM_APP + 1;
volatile LRESULT g_sink;
LONG g_nPlainHits = 0;

// The handler lives in the first class; the window is of the third.
class CBase1 : public CWnd {
public:
  LONG m_nHits = 0;
  afx_msg LRESULT OnBench(WPARAM wParam, LPARAM) {
    m_nHits++;
    return (LRESULT)wParam + 1;
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CBase1, CWnd)
ON_MESSAGE(WM_BENCH, &CBase1::OnBench)
END_MESSAGE_MAP()

class CBase2 : public CBase1 {
public:
  afx_msg void OnPaint() { Default(); }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CBase2, CBase1)
ON_WM_PAINT()
END_MESSAGE_MAP()

class CBase3 : public CBase2 {
public:
  afx_msg void OnSize(UINT, int, int) {}
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CBase3, CBase2)
ON_WM_SIZE()
END_MESSAGE_MAP()

LRESULT CALLBACK PlainProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
  case WM_BENCH:
    g_nPlainHits++;
    return (LRESULT)wParam + 1;
  case WM_SIZE:
    return 0;
  }
  return ::DefWindowProc(hWnd, message, wParam, lParam);
}

} // namespace

int main() {
  WNDCLASS wc = {};
  wc.lpfnWndProc = &PlainProc;
  wc.hInstance = ::GetModuleHandle(NULL);
  wc.lpszClassName = "BenchPlain";
  ::RegisterClass(&wc);
  HWND hPlain =
      ::CreateWindow("BenchPlain", "plain", WS_POPUP, 0, 0, 10, 10, NULL, NULL, wc.hInstance, NULL);
  CBase3 wnd;
  if (hPlain == NULL || !wnd.CreateEx(0, NULL, "map", WS_POPUP, 0, 0, 10, 10, NULL, NULL)) {
    printf("could not create the windows\n");
    return 1;
  }
  // Warm both paths, then time them alternately, best of three.
  double bestPlain = 1e30, bestMap = 1e30;
  for (int nRun = 0; nRun < 3; nRun++) {
    double t0 = NowMs();
    for (int i = 0; i < kRounds; i++)
      g_sink = ::SendMessage(hPlain, WM_BENCH, i, 0);
    double t1 = NowMs();
    for (int i = 0; i < kRounds; i++)
      g_sink = ::SendMessage(wnd.m_hWnd, WM_BENCH, i, 0);
    double t2 = NowMs();
    if (t1 - t0 < bestPlain) bestPlain = t1 - t0;
    if (t2 - t1 < bestMap) bestMap = t2 - t1;
  }
  if (wnd.m_nHits != 3 * kRounds || g_nPlainHits != 3 * kRounds) {
    printf("dispatch count wrong: map %ld, plain %ld\n", wnd.m_nHits, g_nPlainHits);
    return 1;
  }
  printf("1M SendMessage, handler in the third base class: message map %.1f ms, plain WNDPROC "
         "%.1f ms, ratio %.2f\n",
         bestMap, bestPlain, bestPlain > 0 ? bestMap / bestPlain : 0.0);
  wnd.DestroyWindow();
  ::DestroyWindow(hPlain);
  return 0;
}
