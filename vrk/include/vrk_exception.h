// vrk_exception.h - the library's exceptions, the functions that throw them,
// error texts of system codes, and strings built from string resources.
#ifndef VRK_EXCEPTION_H
#define VRK_EXCEPTION_H

#include "vrkdefs.h"

#include <afxwin.h>

// A failure with a message shown by ReportError.
class VRK_API VException : public CException {
  DECLARE_DYNAMIC(VException)
public:
  VException();
  explicit VException(const char* pszMessage); // NULL: empty message
  explicit VException(UINT nIDMessage);        // a string resource
  virtual ~VException();

  // AfxMessageBox(message, nType); nMessageID is ignored.
  virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);

  CString m_strMessage;
};

// The library's silent abort: reports nothing.
class VRK_API VNullException : public CException {
  DECLARE_DYNAMIC(VNullException)
public:
  VNullException();
  virtual ~VNullException();

  // Shows nothing; returns IDOK.
  virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);
};

// A broken precondition, with the source file and line of the check. One
// static object of it is thrown by VrkThrowInvalidDataException.
class VRK_API VInvalidDataException : public CException {
  DECLARE_DYNAMIC(VInvalidDataException)
public:
  VInvalidDataException();
  virtual ~VInvalidDataException();

  // Formats the message from string 5002 (loaded on first use only).
  void FormatMessage(const char* pszSourceFile, int nLine);
  const char* GetMessage() const { return m_szMessage; }

  // A plain OK box with the message; both arguments are ignored.
  virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);

protected:
  char m_szMessage[512];
  char m_szTemplate[512];
  DWORD m_bTemplateLoaded;
};

// A text formatted from a format string or a string resource.
class VRK_API VTempStr {
public:
  VTempStr(const char* pszFormat, ...); // NULL format: empty text
  VTempStr(UINT nIDFormat, ...);
  VTempStr(const VTempStr& other) : m_str(other.m_str) {}
  VTempStr& operator=(const VTempStr& other) {
    m_str = other.m_str;
    return *this;
  }
  ~VTempStr() {}

  operator const char*() const { return m_str; }

  CString m_str;
};

// A message box text: a string resource formatted with arguments, and its
// identifier, which doubles as the box's help context.
class VRK_API VMsgBoxStr {
public:
  VMsgBoxStr(UINT nIDFormat, ...);

  UINT m_nID;
  CString m_str;
};

// AfxMessageBox(text, nType, identifier).
VRK_API int VrkMessageBox(const VMsgBoxStr& msg, UINT nType);

// The system's text for an error code (trailing line break kept); returns the
// number of characters, 0 (text unchanged) when the system has none.
VRK_API int VrkGetErrorMsg(CString& strText, DWORD dwError);
VRK_API int VrkGetLastErrorMsg(CString& strText);
// A box with the prefix, the system text and, when bShowCode, the code.
VRK_API int VrkReportError(DWORD dwError, const char* pszPrefix, int bShowCode);
VRK_API int VrkReportLastError();

VRK_API void VrkThrowException(const char* pszMessage);
VRK_API void VrkThrowException(UINT nIDMessage);
VRK_API void VrkThrowInvalidDataException(const char* pszSourceFile, int nLine);

#endif // VRK_EXCEPTION_H
