// Helpers of the data-value tests: archive bytes, loading archives and the
// invalid-data report.
#ifndef VRK_TESTS_DATA_TESTING_H
#define VRK_TESTS_DATA_TESTING_H

#include <afx.h>
#include <vrk_exception.h>

#include "archive_bytes.h"
#include "exception_probe.h"

#include <string>

// The text of the VInvalidDataException fn threw; "" when none. The thrown
// object is the library's one static instance, constructed with auto-delete
// set as MFC's default constructor does: a receiver must not Delete it.
template <class Fn> std::string InvalidDataMessage(Fn fn) {
  try {
    fn();
  } catch (VInvalidDataException* e) {
    return e->GetMessage();
  }
  return "";
}

#endif
