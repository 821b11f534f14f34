// The virtual-table slot of a virtual member function, for tests that pin
// the slot order code built against a class relies on.
#ifndef VRK_TESTS_VTABLE_SLOT_H
#define VRK_TESTS_VTABLE_SLOT_H

#include <stddef.h>
#include <string.h>

// The Itanium ABI encodes a pointer to a virtual member as 1 + the slot's
// byte offset; -1 for a non-virtual member.
template <class F> int Slot(F f) {
  struct Raw {
    ptrdiff_t ptr;
    ptrdiff_t adj;
  } raw;
  static_assert(sizeof(F) == sizeof(Raw), "pointer to member layout");
  memcpy(&raw, &f, sizeof(raw));
  return (raw.ptr & 1) ? (int)((raw.ptr - 1) / sizeof(void*)) : -1;
}

#endif
