// vrk_trace.h - the run-time trace facility: lines filtered by category and
// appended to a trace file named in HKCU\Software\Tamrix\PELVrk Profiler,
// scope timings, and the coverage log of the test harness.
#ifndef VRK_TRACE_H
#define VRK_TRACE_H

#include "vrkdefs.h"

#include <afxmt.h>
#include <stdarg.h>
#include <sys/timeb.h>

#include <map>

// Bits of the "Flags" value.
#define VTRACE_ENABLED 0x0001     // tracing on
#define VTRACE_TIMINGS 0x0002     // write at destruction, with the elapsed time
#define VTRACE_TRACEWINDOW 0x0010 // to the debugger's window (never available)
#define VTRACE_VERBATIM 0x0020    // the format is written as it stands
#define VTRACE_CLOCKTIMES 0x0040  // timing lines also show start and end clocks

// One trace line, or the timing of a scope. Construct it with a category and
// a printf-style message; in timing mode the line is written when the object
// is destroyed.
class VRK_API VTrace : public CObject {
  DECLARE_DYNAMIC(VTrace)
public:
  VTrace(DWORD dwCategory, const char* pszFormat, ...);
  virtual ~VTrace();

  // Builds the line (and writes it unless in timing mode); returns whether
  // this object is enabled. The argument list is the caller's va_list.
  virtual int Init(const char* pszFormat, DWORD dwCategory, va_list args);

protected:
  // Appends the text to the trace file under the process-wide lock.
  virtual void Output(const char* pszText, int nLength);

  __timeb64 m_timeStart; // taken at Init in timing mode
  int m_bEnabled;        // this object passed the filter
  int m_bCheckLength;    // restart the file past "MaxLength" at the next Output
  CString m_strText;     // prefix and message

private:
  static long DiffTime(const __timeb64& start, const __timeb64& end);
};

// The trace settings of the process, loaded once from the registry. One
// static object; reached through the VrkTrace... accessors.
class VRK_API VTraceData : public CObject {
public:
  VTraceData();
  virtual ~VTraceData(); // closes the trace file

  // Reads the Profiler key and opens the trace file; the caller holds the lock.
  void Load();

  DWORD m_dwFlags; // kept flags: bit 1 dropped when bit 2 is set too
  DWORD m_dwFilter;
  int m_nMaxLength;
  CString m_strDelimiter;
  CString m_strSuffix;
  CString m_strPrefix;
  int m_nFile;         // C run-time descriptor, -1 when none
  int m_nLoadState;    // 0 not loaded, -1 tried or closed, 1 loaded with an output
  int m_nBytesWritten; // since the file was last restarted
  int m_bEnabled;
  CString m_strFileName; // "FileName" as read at loading; empty when not read
};

// The coverage log: which distinct trace formats were reached during a run,
// written to a file in HKCU\Software\Tamrix\PELVTstHrns "CoverageDirectory".
class VRK_API VTraceLogger {
public:
  static VTraceLogger& GetGlobalLogger();

  // Writes the recorded formats to a new file in the coverage directory (when
  // it is set and anything was recorded), then empties the log.
  void FlushLog();

  ~VTraceLogger(); // flushes

private:
  friend class VTrace;

  // Reads the coverage switch once per process; true when coverage is on.
  BOOL ReadCoverageSwitch();
  // Records a format by its address; a format already present stays.
  void AddFormat(const char* pszFormat);

  VTraceLogger();
  VTraceLogger(const VTraceLogger&);
  void operator=(const VTraceLogger&);

  CCriticalSection m_lock;              // the log is updated outside the trace mutex
  std::map<const void*, CString> m_log; // ordered by the format's address
  CString m_strDirectory;
  int m_nSwitchState; // 0 not read, 1 on, -1 off
};

// Writes one line (a timing of about 0 in timing mode).
VRK_API void AFX_CDECL VrkTrace(DWORD dwCategory, const char* pszFormat, ...);

VRK_API int AFXAPI VrkTraceIsEnabled();
VRK_API DWORD AFXAPI VrkTraceGetFlags();
VRK_API DWORD AFXAPI VrkTraceGetFilter();
VRK_API UINT AFXAPI VrkTraceGetFile();

// Stores a redirection function; nothing in the library calls it.
typedef int(AFX_CDECL* VTRACEREDIRECTPROC)(const char*);
VRK_API void AFXAPI VrkTraceRedirectUsing(VTRACEREDIRECTPROC pfnRedirect);

#endif // VRK_TRACE_H
