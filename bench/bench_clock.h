// The benchmarks' clock: milliseconds from the performance counter.
#ifndef VRK_BENCH_CLOCK_H
#define VRK_BENCH_CLOCK_H

#include <windows.h>

inline double NowMs() {
  static const double msPerTick = [] {
    LARGE_INTEGER f;
    QueryPerformanceFrequency(&f);
    return 1000.0 / (double)f.QuadPart;
  }();
  LARGE_INTEGER t;
  QueryPerformanceCounter(&t);
  return (double)t.QuadPart * msPerTick;
}

#endif
