// vrk_tempstr.cpp - texts formatted from a format string or a string
// resource: VTempStr and the message-box text VMsgBoxStr.
#include "vrk_exception.h"

#include <stdarg.h>

namespace {

// Ends a va_list however the formatting leaves (FormatV throws
// CMemoryException when the text cannot be allocated).
struct VaListEnd {
  va_list& args;
  ~VaListEnd() { va_end(args); }
};

} // namespace

VTempStr::VTempStr(const char* pszFormat, ...) {
  if (pszFormat == NULL) return;
  va_list args;
  va_start(args, pszFormat);
  VaListEnd end = {args};
  m_str.FormatV(pszFormat, args);
}

// A string that no module of the resource chain holds formats as empty.
VTempStr::VTempStr(UINT nIDFormat, ...) {
  CString strFormat;
  if (!strFormat.LoadString(nIDFormat)) return;
  va_list args;
  va_start(args, nIDFormat);
  VaListEnd end = {args};
  m_str.FormatV(strFormat, args);
}

VMsgBoxStr::VMsgBoxStr(UINT nIDFormat, ...) : m_nID(nIDFormat) {
  CString strFormat;
  if (!strFormat.LoadString(nIDFormat)) return;
  va_list args;
  va_start(args, nIDFormat);
  VaListEnd end = {args};
  m_str.FormatV(strFormat, args);
}

// The identifier doubles as the box's help context.
int VrkMessageBox(const VMsgBoxStr& msg, UINT nType) {
  return AfxMessageBox(msg.m_str, nType, msg.m_nID);
}
