// CString against std::string: a million small appends, and a million
// formats of "%d %s %.2f". Prints each time and the CString/std ratio.
#include <afx.h>

#include "bench_clock.h"

#include <stdio.h>

#include <string>

namespace {

const int kRounds = 1000000;
volatile size_t g_sink; // keeps the work from being optimised away

template <class F> double TimeMs(F f) {
  double start = NowMs();
  f();
  return NowMs() - start;
}

void Report(const char* what, double msCString, double msStd) {
  printf("%s: CString %.1f ms, std::string %.1f ms, ratio %.2f\n", what, msCString, msStd,
         msStd > 0 ? msCString / msStd : 0.0);
}

} // namespace

int main() {
  double a1 = TimeMs([] {
    CString s;
    for (int i = 0; i < kRounds; i++)
      s += "ab";
    g_sink = s.GetLength();
  });
  double a2 = TimeMs([] {
    std::string s;
    for (int i = 0; i < kRounds; i++)
      s += "ab";
    g_sink = s.size();
  });
  Report("string append", a1, a2);

  double f1 = TimeMs([] {
    CString s;
    size_t total = 0;
    for (int i = 0; i < kRounds; i++) {
      s.Format("%d %s %.2f", i, "item", i * 0.5);
      total += s.GetLength();
    }
    g_sink = total;
  });
  double f2 = TimeMs([] {
    std::string s;
    size_t total = 0;
    for (int i = 0; i < kRounds; i++) {
      int n = snprintf(NULL, 0, "%d %s %.2f", i, "item", i * 0.5);
      s.resize(n);
      snprintf(&s[0], n + 1, "%d %s %.2f", i, "item", i * 0.5);
      total += s.size();
    }
    g_sink = total;
  });
  Report("string format", f1, f2);
  return 0;
}
