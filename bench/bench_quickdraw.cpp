// VQuickDraw on a warm cache against making and selecting a new GDI object
// each time, 20,000 requests on a memory DC, best of three: a drawing loop
// that asks for its pen or font before each call (one key, so the cached
// object is current already), and the worst case of two keys in turn (a
// selection every time). Prints each time and the ratios (the cache is
// expected to be at least 5 times faster).
#include <afxwin.h>

#include "bench_clock.h"
#include <stdio.h>

#include <vrk_quickdraw.h>

namespace {

const int kRounds = 20000;

struct Times {
  double cached = 1e30, created = 1e30;
};

template <class Cached, class Created> Times BestOfThree(Cached cached, Created created) {
  Times t;
  for (int nRun = 0; nRun < 3; nRun++) {
    double t0 = NowMs();
    cached();
    double t1 = NowMs();
    created();
    double t2 = NowMs();
    if (t1 - t0 < t.cached) t.cached = t1 - t0;
    if (t2 - t1 < t.created) t.created = t2 - t1;
  }
  return t;
}

void Report(const char* pszWhat, const Times& t) {
  double ratio = t.cached > 0 ? t.created / t.cached : 0.0;
  printf("%dx %s: warm VQuickDraw %.1f ms, create and select %.1f ms, %.1fx faster (%s 5x)\n",
         kRounds, pszWhat, t.cached, t.created, ratio, ratio >= 5.0 ? "meets" : "BELOW");
}

} // namespace

int main() {
  CDC dc;
  CBitmap bitmap;
  CClientDC screen(NULL);
  if (!dc.CreateCompatibleDC(&screen) || !bitmap.CreateCompatibleBitmap(&screen, 64, 64)) {
    printf("could not create the memory DC\n");
    return 1;
  }
  CBitmap* pOldBitmap = dc.SelectObject(&bitmap);
  VQuickDraw qd(&dc);

  for (int nKeys = 1; nKeys <= 2; nKeys++) {
    const int nMask = nKeys - 1; // 0: the same key every time; 1: two in turn
    Times pens = BestOfThree(
        [&] {
          for (int i = 0; i < kRounds; i++)
            qd.UsePen(PS_SOLID, 1 + (i & nMask), RGB(200, 0, 0));
        },
        [&] {
          for (int i = 0; i < kRounds; i++) {
            CPen pen(PS_SOLID, 1 + (i & nMask), RGB(200, 0, 0));
            CPen* pOld = dc.SelectObject(&pen);
            dc.SelectObject(pOld);
          }
        });
    Report(nKeys == 1 ? "pens, one key" : "pens, two keys in turn", pens);
    Times fonts = BestOfThree(
        [&] {
          for (int i = 0; i < kRounds; i++)
            qd.UseFont(90 + 10 * (i & nMask), "Arial");
        },
        [&] {
          for (int i = 0; i < kRounds; i++) {
            CFont font;
            font.CreatePointFont(90 + 10 * (i & nMask), "Arial", &dc);
            CFont* pOld = dc.SelectObject(&font);
            dc.SelectObject(pOld);
          }
        });
    Report(nKeys == 1 ? "fonts, one key" : "fonts, two keys in turn", fonts);
  }
  qd.Destroy();
  dc.SelectObject(pOldBitmap);
  return 0;
}
