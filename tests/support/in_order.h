// The results of calls made in order, added up: a braced list is evaluated
// from left to right, the operands of + are not.
#ifndef VRK_TESTS_IN_ORDER_H
#define VRK_TESTS_IN_ORDER_H

#include <initializer_list>

inline int Sum(std::initializer_list<int> results) {
  int n = 0;
  for (int r : results)
    n += r;
  return n;
}

#endif
