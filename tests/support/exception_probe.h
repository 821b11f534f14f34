// Runs a piece of test code and reports what afx exception escaped it,
// deleting the exception as a receiver must.
#ifndef VRK_TESTS_EXCEPTION_PROBE_H
#define VRK_TESTS_EXCEPTION_PROBE_H

#include <afx.h>

#include <string>

// The run-time class of the exception fn threw; NULL when none.
template <class Fn> CRuntimeClass* ThrownClass(Fn fn) {
  try {
    fn();
  } catch (CException* e) {
    CRuntimeClass* pClass = e->GetRuntimeClass();
    e->Delete();
    return pClass;
  }
  return NULL;
}

// The m_cause of the exception of class E (CFileException or
// CArchiveException) that fn threw; -1 for none, -2 for another kind.
template <class E, class Fn> int ThrownCause(Fn fn) {
  try {
    fn();
  } catch (E* e) {
    int cause = e->m_cause;
    e->Delete();
    return cause;
  } catch (CException* e) {
    e->Delete();
    return -2;
  }
  return -1;
}

template <class Fn> int ArchiveCause(Fn fn) { return ThrownCause<CArchiveException>(fn); }

// The GetMessage text of the exception of class E fn threw; "" when none.
// Not deleted: the library's invalid-data exception is its one static
// instance, with auto-delete set as MFC's default constructor does.
template <class E, class Fn> std::string ThrownMessage(Fn fn) {
  try {
    fn();
  } catch (E* e) {
    return e->GetMessage();
  }
  return "";
}
template <class Fn> int FileCause(Fn fn) { return ThrownCause<CFileException>(fn); }

#endif
