// VRectRgn on grid cells: AddRect and RemoveRect of 1,000 and 10,000 one-unit
// cells, and SimplifyRgn of 10,000 row rectangles with holes. Each AddRect
// cuts the new cell against every element present and each RemoveRect walks
// the whole list, so both grow with the square of the count; the exchange
// sort of SimplifyRgn does too.
#include "bench_clock.h"
#include <stdio.h>

#include <vrk_rectrgn.h>

namespace {

// The cells of a grid 100 wide, row by row.
CRect Cell(int i) { return CRect(i % 100, i / 100, i % 100 + 1, i / 100 + 1); }

void AddAndRemove(int n) {
  VRectRgn rgn;
  double t0 = NowMs();
  for (int i = 0; i < n; i++)
    rgn.AddRect(Cell(i));
  double tAdd = NowMs() - t0;
  int nAfterAdd = rgn.GetRectCount();
  // A cell already present: cut against every element, nothing added.
  t0 = NowMs();
  rgn.AddRect(Cell(n / 2));
  double tAgain = NowMs() - t0;
  t0 = NowMs();
  int nCut = 0;
  for (int i = 0; i < n; i += 2) // every second cell, so the walks stay long
    nCut += rgn.RemoveRect(Cell(i));
  double tRemove = NowMs() - t0;
  printf("%6d cells  AddRect %9.1f ms (%6.3f us each)  RemoveRect of %d %9.1f ms  "
         "(%d elements, %d cut, %d left, re-add %.3f ms)\n",
         n, tAdd, tAdd * 1000.0 / n, n / 2, tRemove, nAfterAdd, nCut, rgn.GetRectCount(), tAgain);
}

void Simplify(int n) {
  VRectRgn rgn;
  // n rows of one column range with every tenth row missing, added in an
  // order the sort must undo (a fixed shuffle by a step prime to n).
  for (int k = 0; k < n; k++) {
    int j = (int)((long long)k * 7919 % n);
    int row = j + j / 9;
    rgn.AddRectDirect(CRect(0, row, 8, row + 1));
  }
  int nBefore = rgn.GetRectCount();
  double t0 = NowMs();
  int r = rgn.SimplifyRgn();
  double t = NowMs() - t0;
  printf("SimplifyRgn of %d rows %9.1f ms  (result %d, %d rectangles left)\n", nBefore, t, r,
         rgn.GetRectCount());
}

} // namespace

int main() {
  AddAndRemove(1000);
  AddAndRemove(10000);
  Simplify(1000);
  Simplify(10000);
  return 0;
}
