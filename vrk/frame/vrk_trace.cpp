// The trace facility: the settings read once from the Profiler key, trace
// lines and scope timings appended to the trace file, and the accessors.
#include "vrk_trace.h"

#include "vrk_priv.h"
#include "vrk_profile.h"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <sys/stat.h>
#include <time.h>

IMPLEMENT_DYNAMIC(VTrace, CObject)

namespace {

const char kProfilerKey[] = "Software\\Tamrix\\PELVrk Profiler";
const char kCaption[] = "VTrace";
const DWORD kLockTimeout = 1000;
// A formatted message holds at most this many characters; longer ones are cut.
const int kMaxMessage = 1023;

VTraceData g_traceData;
VTRACEREDIRECTPROC g_pfnRedirect = NULL;

// Closes a registry key on every way out, exceptions included.
class KeyCloser {
public:
  explicit KeyCloser(HKEY hKey) : m_hKey(hKey) {}
  ~KeyCloser() { RegCloseKey(m_hKey); }

private:
  HKEY m_hKey;
};

// The local time of the seconds as "%H:%M.%S"; empty when it cannot convert.
void FormatClock(__time64_t seconds, char (&buffer)[128]) {
  buffer[0] = '\0';
  const struct tm* pTime = _localtime64(&seconds);
  if (pTime == NULL || strftime(buffer, sizeof(buffer), "%H:%M.%S", pTime) == 0) buffer[0] = '\0';
}

} // namespace

// ---- VTraceData -------------------------------------------------------------

VTraceData::VTraceData()
    : m_dwFlags(0), m_dwFilter(0), m_nMaxLength(0), m_nFile(-1), m_nLoadState(0),
      m_nBytesWritten(0), m_bEnabled(0) {}

VTraceData::~VTraceData() {
  if (m_bEnabled && m_nFile != -1) _close(m_nFile);
  m_nFile = -1;
  m_nLoadState = -1;
  m_bEnabled = 0;
}

void VTraceData::Load() {
  m_nLoadState = -1;
  // Opened, never created: without the key tracing stays off.
  HKEY hKey = NULL;
  if (RegOpenKeyA(HKEY_CURRENT_USER, kProfilerKey, &hKey) != ERROR_SUCCESS) return;
  KeyCloser closer(hKey);

  const DWORD dwFlags = VrkRegQueryDword(hKey, "Flags", 0);
  // With timings on, bit 1 is dropped from the kept flags; the enabled field
  // alone says that tracing is on.
  m_dwFlags = (dwFlags & VTRACE_TIMINGS) ? (dwFlags & ~(DWORD)VTRACE_ENABLED) : dwFlags;
  if (!(dwFlags & VTRACE_ENABLED)) return;

  if (dwFlags & VTRACE_TRACEWINDOW) {
    // The failure shows at the first output.
    m_bEnabled = 1;
    m_nLoadState = 1;
  } else {
    // Kept for the failure message of a later output: a run uses the
    // settings it read here, whatever the key says by then.
    m_strFileName = VrkRegQueryString(hKey, "FileName", NULL);
    const CString& strFile = m_strFileName;
    if (!strFile.IsEmpty()) {
      // Truncated: every run starts a new file.
      const int nFile =
          _open(strFile, _O_WRONLY | _O_CREAT | _O_TRUNC | _O_TEXT, _S_IREAD | _S_IWRITE);
      if (nFile != -1) {
        m_nFile = nFile;
        m_bEnabled = 1;
        m_nLoadState = 1;
        m_nMaxLength = (int)VrkRegQueryDword(hKey, "MaxLength", 0);
      } else {
        MessageBoxA(NULL, "Trace cannot open file specified in registry", kCaption, MB_OK);
      }
    }
  }
  if (m_bEnabled) {
    m_strDelimiter = VrkRegQueryString(hKey, "Delimiter", "\t");
    m_strPrefix = VrkRegQueryString(hKey, "Prefix", NULL);
    m_strSuffix = VrkRegQueryString(hKey, "Suffix", NULL);
    m_dwFilter = VrkRegQueryDword(hKey, "Filter", 0);
  }
}

// ---- VTrace -----------------------------------------------------------------

VTrace::VTrace(DWORD dwCategory, const char* pszFormat, ...) : m_bEnabled(0), m_bCheckLength(0) {
  m_timeStart.time = 0;
  m_timeStart.millitm = 0;
  m_timeStart.timezone = 0;
  m_timeStart.dstflag = 0;
  va_list args;
  va_start(args, pszFormat);
  Init(pszFormat, dwCategory, args);
  va_end(args);
}

int VTrace::Init(const char* pszFormat, DWORD dwCategory, va_list args) {
  m_bEnabled = 0;
  m_bCheckLength = 0;
  if (pszFormat == NULL) return 0;

  // The coverage log is kept before (and whatever) the trace settings say.
  VTraceLogger& logger = VTraceLogger::GetGlobalLogger();
  if (logger.ReadCoverageSwitch()) logger.AddFormat(pszFormat);

  // Outside process attach and detach there is no mutex: that counts as a
  // lock not obtained, and the line is dropped as on a time-out.
  CMutex* pMutex = VrkPrivGetMutex();
  if (pMutex == NULL) return 0;
  CSingleLock lock(pMutex);
  if (!lock.Lock(kLockTimeout)) return 0;
  VTraceData& data = g_traceData;
  if (data.m_nLoadState == 0) data.Load();
  if (!data.m_bEnabled) return 0;
  // Category 0 always passes; any other needs a bit of the filter.
  if (dwCategory != 0 && (dwCategory & data.m_dwFilter) == 0) return 0;

  m_bEnabled = 1;
  m_strText = data.m_strPrefix;
  if (data.m_dwFlags & VTRACE_VERBATIM) {
    m_strText += pszFormat;
  } else {
    // One byte more than the cut, zeroed: a message that does not fit is
    // left unterminated by _vsnprintf, and the last zero ends it.
    char szMessage[kMaxMessage + 1] = {0};
    _vsnprintf(szMessage, kMaxMessage, pszFormat, args);
    m_strText += szMessage;
  }
  if (data.m_dwFlags & VTRACE_TIMINGS) {
    _ftime64(&m_timeStart); // the line waits for the destructor
  } else {
    m_strText += data.m_strSuffix;
    m_strText += '\n';
    Output(m_strText, m_strText.GetLength());
  }
  return m_bEnabled;
}

VTrace::~VTrace() {
  const VTraceData& data = g_traceData;
  if (!m_bEnabled || !data.m_bEnabled || !(data.m_dwFlags & VTRACE_TIMINGS)) return;
  // A destructor must not throw: a line that cannot be built is dropped.
  try {
    __timeb64 end;
    _ftime64(&end);
    const int nElapsed = (int)DiffTime(m_timeStart, end);
    if (data.m_dwFlags & VTRACE_CLOCKTIMES) {
      char szStart[128], szEnd[128];
      FormatClock(m_timeStart.time, szStart);
      FormatClock(end.time, szEnd);
      m_strText.AppendFormat("%s%d, (%s.%d : %s.%d)", (LPCTSTR)data.m_strDelimiter, nElapsed,
                             szStart, (int)m_timeStart.millitm, szEnd, (int)end.millitm);
    } else {
      m_strText.AppendFormat("%s%d", (LPCTSTR)data.m_strDelimiter, nElapsed);
    }
    m_strText += data.m_strSuffix;
    m_strText += '\n';
    Output(m_strText, m_strText.GetLength());
  } catch (CException* e) {
    e->Delete();
  }
}

void VTrace::Output(const char* pszText, int nLength) {
  // A negative length (only a subclass can pass one) writes nothing.
  if (pszText == NULL || nLength < 0) return;
  VTraceData& data = g_traceData;
  if (data.m_dwFlags & VTRACE_TRACEWINDOW) {
    MessageBoxA(NULL, "Trace can't output to TRACE window - not in DEBUG", kCaption, MB_OK);
    data.m_bEnabled = 0;
  } else if (data.m_nFile == -1) {
    CString strMessage;
    strMessage.Format("Trace can't open output file specified by '%s'",
                      (LPCTSTR)data.m_strFileName);
    MessageBoxA(NULL, strMessage, kCaption, MB_OK);
    data.m_bEnabled = 0;
  } else {
    CMutex* pMutex = VrkPrivGetMutex();
    if (pMutex == NULL) return;
    CSingleLock lock(pMutex);
    if (!lock.Lock(kLockTimeout)) return;
    if (m_bCheckLength && data.m_nMaxLength >= 1 && data.m_nBytesWritten > data.m_nMaxLength) {
      _lseek(data.m_nFile, 0, SEEK_SET);
      SetEndOfFile((HANDLE)_get_osfhandle(data.m_nFile));
      data.m_nBytesWritten = 0;
    }
    const int nWritten = _write(data.m_nFile, pszText, (unsigned)nLength);
    if (nWritten > 0) data.m_nBytesWritten += nWritten;
    // Every line goes to the disk before the lock is released, so a trace
    // ends at the last line written even when the system stops.
    _commit(data.m_nFile);
  }
  m_bCheckLength = 0;
}

long VTrace::DiffTime(const __timeb64& start, const __timeb64& end) {
  // On the low 32 bits of the seconds, as the elapsed time is a long.
  const long lSeconds = (long)(DWORD)end.time - (long)(DWORD)start.time;
  return lSeconds * 1000 - start.millitm + end.millitm;
}

// ---- Free functions ---------------------------------------------------------

void AFX_CDECL VrkTrace(DWORD dwCategory, const char* pszFormat, ...) {
  VTrace trace(dwCategory, NULL); // a null format leaves it disabled
  va_list args;
  va_start(args, pszFormat);
  trace.Init(pszFormat, dwCategory, args);
  va_end(args);
}

int AFXAPI VrkTraceIsEnabled() { return g_traceData.m_bEnabled; }

DWORD AFXAPI VrkTraceGetFlags() { return g_traceData.m_dwFlags; }

DWORD AFXAPI VrkTraceGetFilter() { return g_traceData.m_dwFilter; }

UINT AFXAPI VrkTraceGetFile() { return (UINT)g_traceData.m_nFile; }

void AFXAPI VrkTraceRedirectUsing(VTRACEREDIRECTPROC pfnRedirect) { g_pfnRedirect = pfnRedirect; }
