// vrk_tempstr.cpp - texts formatted from a format string or a string
// resource: VTempStr and the message-box text VMsgBoxStr.
#include "vrk_exception.h"

#include <stdarg.h>

VTempStr::VTempStr(const char* pszFormat, ...) {
  if (pszFormat == NULL) return;
  va_list args;
  va_start(args, pszFormat);
  try {
    m_str.FormatV(pszFormat, args);
  } catch (...) {
    va_end(args);
    throw;
  }
  va_end(args);
}

// A string that no module of the resource chain holds formats as empty.
VTempStr::VTempStr(UINT nIDFormat, ...) {
  CString strFormat;
  if (!strFormat.LoadString(nIDFormat)) return;
  va_list args;
  va_start(args, nIDFormat);
  try {
    m_str.FormatV(strFormat, args);
  } catch (...) {
    va_end(args);
    throw;
  }
  va_end(args);
}

VMsgBoxStr::VMsgBoxStr(UINT nIDFormat, ...) : m_nID(nIDFormat) {
  CString strFormat;
  if (!strFormat.LoadString(nIDFormat)) return;
  va_list args;
  va_start(args, nIDFormat);
  try {
    m_str.FormatV(strFormat, args);
  } catch (...) {
    va_end(args);
    throw;
  }
  va_end(args);
}

// The identifier doubles as the box's help context.
int VrkMessageBox(const VMsgBoxStr& msg, UINT nType) {
  return AfxMessageBox(msg.m_str, nType, msg.m_nID);
}
