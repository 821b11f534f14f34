// Progress in the status bar: 100,000 VStatusBar::SetProgressPos calls
// against as many CProgressCtrl::SetPos calls on a plain progress control of
// the same size showing the same percentages, the queue served after each
// call as an application's loop would. Prints each time, the ratio, and the
// paints each window had: the status bar itself must not repaint, its bar
// only when the percentage changes. Then the calls alone, without the queue.
#include <vrk_statusbar.h>

#include "bench_clock.h"

#include <stdio.h>

namespace {

const int kCalls = 100000;

// Counts the paints of a window, whoever's class it is.
struct PaintCounter {
  HWND hWnd = NULL;
  WNDPROC pfnOld = NULL;
  LONG nPaints = 0;
};
PaintCounter g_counters[3];

LRESULT CALLBACK CountingProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) {
  for (PaintCounter& c : g_counters) {
    if (c.hWnd != hWnd) continue;
    if (message == WM_PAINT) c.nPaints++;
    return ::CallWindowProc(c.pfnOld, hWnd, message, wParam, lParam);
  }
  return ::DefWindowProc(hWnd, message, wParam, lParam);
}

void Count(PaintCounter& c, HWND hWnd) {
  c.hWnd = hWnd;
  c.pfnOld = (WNDPROC)::SetWindowLongPtr(hWnd, GWLP_WNDPROC, (LONG_PTR)&CountingProc);
}

void Pump() {
  MSG msg;
  while (::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&msg);
    ::DispatchMessage(&msg);
  }
}

} // namespace

int main() {
  CWnd host;
  VStatusBar bar;
  const UINT ids[] = {ID_SEPARATOR};
  if (!host.CreateEx(0, NULL, "bench", WS_POPUP | WS_VISIBLE, 0, 0, 1000, 200, NULL, NULL) ||
      !bar.Create(&host) || !bar.SetIndicators(ids, 1)) {
    printf("could not create the status bar\n");
    return 1;
  }
  host.RepositionBars(0, 0xFFFF, 0);
  POSITION pos = bar.StartProgress(0, kCalls, "Working");
  CWnd* pBarCtrl = bar.GetDlgItem(1);
  CRect rect;
  pBarCtrl->GetWindowRect(&rect);
  bar.ScreenToClient(&rect);
  rect.OffsetRect(0, 60); // the same size, elsewhere
  CProgressCtrl plain;
  if (pos == NULL || !plain.Create(WS_CHILD | WS_VISIBLE, rect, &host, 2)) {
    printf("could not start the progress\n");
    return 1;
  }
  plain.SetRange(0, 100);
  Count(g_counters[0], bar.m_hWnd);
  Count(g_counters[1], pBarCtrl->m_hWnd);
  Count(g_counters[2], plain.m_hWnd);
  Pump();

  // Alternately, best of three; the paints of the last run.
  double bestBar = 1e30, bestPlain = 1e30;
  for (int nRun = 0; nRun < 3; nRun++) {
    bar.SetProgressPos(pos, 0);
    plain.SetPos(0);
    Pump();
    for (PaintCounter& c : g_counters)
      c.nPaints = 0;
    double t0 = NowMs();
    for (int i = 1; i <= kCalls; i++) {
      bar.SetProgressPos(pos, i);
      Pump();
    }
    double t1 = NowMs();
    for (int i = 1; i <= kCalls; i++) {
      plain.SetPos((int)((double)i / kCalls * 100));
      Pump();
    }
    double t2 = NowMs();
    if (t1 - t0 < bestBar) bestBar = t1 - t0;
    if (t2 - t1 < bestPlain) bestPlain = t2 - t1;
  }
  double ratio = bestPlain > 0 ? bestBar / bestPlain : 0.0;
  printf("100k progress positions, queue served after each: VStatusBar::SetProgressPos %.1f ms, "
         "CProgressCtrl::SetPos %.1f ms, ratio %.2f (at most 2)\n",
         bestBar, bestPlain, ratio);
  printf("paints in a run: status bar %ld, its bar %ld, plain bar %ld (100 percentages)\n",
         g_counters[0].nPaints, g_counters[1].nPaints, g_counters[2].nPaints);
  bool bOver = g_counters[0].nPaints != 0 || g_counters[1].nPaints > 100 || ratio > 2;

  // The calls alone, the queue served once at the end.
  double t0 = NowMs();
  for (int i = 1; i <= kCalls; i++)
    bar.SetProgressPos(pos, kCalls - i);
  double t1 = NowMs();
  for (int i = 1; i <= kCalls; i++)
    plain.SetPos((int)((double)(kCalls - i) / kCalls * 100));
  double t2 = NowMs();
  Pump();
  printf("the calls alone: VStatusBar::SetProgressPos %.1f ms, CProgressCtrl::SetPos %.1f ms, "
         "ratio %.2f\n",
         t1 - t0, t2 - t1, t2 > t1 ? (t1 - t0) / (t2 - t1) : 0.0);
  int nResult = 0;
  if (bOver) {
    printf("over budget\n");
    nResult = 1;
  }
  bar.StopProgress(pos, "");
  host.DestroyWindow();
  return nResult;
}
