// Pixel rows of a canvas as letters, so that a test states a whole line of
// a frame in one string: each pixel is the letter of its colour in the
// legend, '.' for kBack and '?' for any other colour.
#ifndef VRK_TESTS_DRAWING_TESTING_H
#define VRK_TESTS_DRAWING_TESTING_H

#include "../../afx/gdi_canvas.h"

#include <string>
#include <utility>
#include <vector>

const COLORREF kBack = RGB(10, 120, 30); // a colour no helper draws
typedef std::vector<std::pair<char, COLORREF>> Legend;

// Pixels (x0,y0), (x0+dx,y0+dy), ... n of them.
inline std::string Pixels(const Canvas& c, int x0, int y0, int dx, int dy, int n, const Legend& l) {
  std::string s;
  for (int i = 0; i < n; i++) {
    COLORREF v = c.At(x0 + i * dx, y0 + i * dy);
    char ch = v == kBack ? '.' : '?';
    for (const auto& e : l)
      if (e.second == v && ch == '?') ch = e.first;
    s += ch;
  }
  return s;
}

#endif
