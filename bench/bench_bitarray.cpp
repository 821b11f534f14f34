// VBitArray::SetBits and ClearBits over a million bits against a plain loop
// that sets or clears the same bits one at a time with SetAt. Whole-range
// and many short ranges; prints each time and the loop/range ratio.
#include <afx.h>

#include "bench_clock.h"

#include <stdio.h>

#include <vrk_bitarray.h>

namespace {

const int kBits = 1000000;
const int kRounds = 20;
volatile int g_sink; // keeps the work from being optimised away

template <class F> double TimeMs(F f) {
  double start = NowMs();
  for (int r = 0; r < kRounds; r++)
    f();
  return (NowMs() - start) / kRounds;
}

void Report(const char* what, double msRange, double msLoop) {
  printf("%s: range %.3f ms, bit loop %.3f ms, loop/range %.1f\n", what, msRange, msLoop,
         msRange > 0 ? msLoop / msRange : 0.0);
}

} // namespace

int main() {
  VBitArray bits;
  bits.SetSize(kBits);

  double set = TimeMs([&] {
    bits.ClearAll();
    bits.SetBits(0, -1);
    g_sink = bits.IsAllSet();
  });
  double setLoop = TimeMs([&] {
    bits.ClearAll();
    for (int i = 0; i < kBits; i++)
      bits.SetAt(i, TRUE);
    g_sink = bits.IsAllSet();
  });
  Report("SetBits 1,000,000 bits", set, setLoop);

  double clear = TimeMs([&] {
    bits.SetAll();
    bits.ClearBits(0, -1);
    g_sink = bits.IsAllClear();
  });
  double clearLoop = TimeMs([&] {
    bits.SetAll();
    for (int i = 0; i < kBits; i++)
      bits.SetAt(i, FALSE);
    g_sink = bits.IsAllClear();
  });
  Report("ClearBits 1,000,000 bits", clear, clearLoop);

  // Ranges of 100 bits at odd offsets: the partial-element path.
  double shortSet = TimeMs([&] {
    bits.ClearAll();
    for (int i = 7; i + 100 < kBits; i += 250)
      bits.SetBits(i, i + 99);
    g_sink = bits.GetAt(7);
  });
  double shortLoop = TimeMs([&] {
    bits.ClearAll();
    for (int i = 7; i + 100 < kBits; i += 250)
      for (int k = i; k <= i + 99; k++)
        bits.SetAt(k, TRUE);
    g_sink = bits.GetAt(7);
  });
  Report("SetBits 4,000 ranges of 100 bits", shortSet, shortLoop);
  return 0;
}
