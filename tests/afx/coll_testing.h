// Helpers shared by the collection tests: MFC-style exception checks and an
// element type that counts its constructions and destructions.
#ifndef VRK_TESTS_AFX_COLL_TESTING_H
#define VRK_TESTS_AFX_COLL_TESTING_H

#include <afx.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "exception_probe.h"

// Runs f; true when it throws an E* (which is deleted). Any other CException
// is deleted and counts as a failure.
template <class E, class F> bool ThrowsMfc(F f) {
  try {
    f();
  } catch (E* e) {
    e->Delete();
    return true;
  } catch (CException* e) {
    e->Delete();
    return false;
  }
  return false;
}

// Each call throws an E*; a failure names the call by its index.
template <class E> void ExpectEachThrows(const std::vector<std::function<void()>>& calls) {
  for (size_t i = 0; i < calls.size(); i++)
    EXPECT_TRUE(ThrowsMfc<E>(calls[i])) << "call " << i;
}

// Counts live instances; copies and assignments keep the value.
struct Counted {
  inline static int s_live = 0;
  inline static int s_constructed = 0;
  int value;
  Counted() : value(-1) { ++s_live, ++s_constructed; }
  Counted(int v) : value(v) { ++s_live, ++s_constructed; }
  Counted(const Counted& o) : value(o.value) { ++s_live, ++s_constructed; }
  Counted& operator=(const Counted& o) {
    value = o.value;
    return *this;
  }
  ~Counted() { --s_live; }
  bool operator==(const Counted& o) const { return value == o.value; }
  static void Reset() { s_live = s_constructed = 0; }
};

#endif
