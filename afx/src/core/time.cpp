// CTime and CTimeSpan: times as seconds since 1970 (UTC), shown in local time.
#include <afx.h>

#include <stdio.h>

namespace {

// Largest text CTime::Format produces, as in ATL.
const int kMaxTimeBufferSize = 128;

// strftime's own codes (msvcrt), each optionally preceded by '#'. Checked
// first because the C runtime rejects unknown codes through its invalid-
// parameter handler instead of returning an error.
bool IsValidTimeFormat(const char* pszFormat) {
  for (const char* p = pszFormat; *p != '\0'; ++p) {
    if (*p != '%') continue;
    ++p;
    if (*p == '#') ++p;
    if (*p == '\0' || strchr("aAbBcdHIjmMpSUwWxXyYzZ%", *p) == NULL) return false;
  }
  return true;
}

CString FormatTm(const struct tm* ptm, LPCSTR pszFormat) {
  if (pszFormat == NULL || ptm == NULL || !IsValidTimeFormat(pszFormat)) return CString();
  char buffer[kMaxTimeBufferSize];
  if (strftime(buffer, sizeof(buffer), pszFormat, ptm) == 0) buffer[0] = '\0';
  return CString(buffer);
}

} // namespace

// ---- CTimeSpan -------------------------------------------------------------

CString CTimeSpan::Format(LPCSTR pszFormat) const {
  CString result;
  if (pszFormat == NULL) return result;
  char part[32];
  for (const char* p = pszFormat; *p != '\0'; ++p) {
    if (*p != '%' || p[1] == '\0') {
      result += *p;
      continue;
    }
    switch (*++p) {
    case 'D':
      snprintf(part, sizeof(part), "%lld", (long long)GetDays());
      break;
    case 'H':
      snprintf(part, sizeof(part), "%02ld", (long)GetHours());
      break;
    case 'M':
      snprintf(part, sizeof(part), "%02ld", (long)GetMinutes());
      break;
    case 'S':
      snprintf(part, sizeof(part), "%02ld", (long)GetSeconds());
      break;
    default: // "%%" and unknown codes: the character itself
      part[0] = *p;
      part[1] = '\0';
      break;
    }
    result += part;
  }
  return result;
}

// ---- CTime -----------------------------------------------------------------

CTime WINAPI CTime::GetCurrentTime() { return CTime(_time64(NULL)); }

BOOL WINAPI CTime::IsValidFILETIME(const FILETIME& ft) {
  FILETIME local;
  SYSTEMTIME st;
  if (ft.dwLowDateTime == 0 && ft.dwHighDateTime == 0) return FALSE;
  if (!FileTimeToLocalFileTime(&ft, &local) || !FileTimeToSystemTime(&local, &st)) return FALSE;
  // CTime covers 1970 to 3000 (the C runtime's 64-bit time range).
  return st.wYear >= 1970 && st.wYear <= 3000;
}

CTime::CTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST) {
  // Parts out of range would be silently normalised by mktime; refuse them.
  if (nYear < 1900 || nMonth < 1 || nMonth > 12 || nDay < 1 || nDay > 31 || nHour < 0 ||
      nHour > 23 || nMin < 0 || nMin > 59 || nSec < 0 || nSec > 59)
    AfxThrowInvalidArgException();
  struct tm t;
  memset(&t, 0, sizeof(t));
  t.tm_year = nYear - 1900;
  t.tm_mon = nMonth - 1;
  t.tm_mday = nDay;
  t.tm_hour = nHour;
  t.tm_min = nMin;
  t.tm_sec = nSec;
  t.tm_isdst = nDST;
  m_time = _mktime64(&t);
  if (m_time == -1) AfxThrowInvalidArgException();
}

CTime::CTime(WORD wDosDate, WORD wDosTime, int nDST) {
  struct tm t;
  memset(&t, 0, sizeof(t));
  t.tm_sec = (wDosTime & 0x1F) * 2;
  t.tm_min = (wDosTime >> 5) & 0x3F;
  t.tm_hour = wDosTime >> 11;
  t.tm_mday = wDosDate & 0x1F;
  t.tm_mon = ((wDosDate >> 5) & 0x0F) - 1;
  t.tm_year = (wDosDate >> 9) + 80;
  t.tm_isdst = nDST;
  m_time = _mktime64(&t);
  if (m_time == -1) AfxThrowInvalidArgException();
}

CTime::CTime(const SYSTEMTIME& st, int nDST) : m_time(0) {
  // Years before 1900 (an unset SYSTEMTIME) give the zero time, as in ATL.
  if (st.wYear < 1900) return;
  *this = CTime((int)st.wYear, (int)st.wMonth, (int)st.wDay, (int)st.wHour, (int)st.wMinute,
                (int)st.wSecond, nDST);
}

CTime::CTime(const FILETIME& ft, int nDST) : m_time(0) {
  FILETIME local;
  SYSTEMTIME st;
  if (!FileTimeToLocalFileTime(&ft, &local) || !FileTimeToSystemTime(&local, &st))
    AfxThrowInvalidArgException();
  *this = CTime(st, nDST);
}

struct tm* CTime::GetGmtTm(struct tm* ptm) const {
  if (ptm == NULL || _gmtime64_s(ptm, &m_time) != 0) return NULL;
  return ptm;
}

struct tm* CTime::GetLocalTm(struct tm* ptm) const {
  if (ptm == NULL || _localtime64_s(ptm, &m_time) != 0) return NULL;
  return ptm;
}

bool CTime::GetAsSystemTime(SYSTEMTIME& st) const {
  struct tm t;
  if (GetLocalTm(&t) == NULL) return false;
  st.wYear = (WORD)(t.tm_year + 1900);
  st.wMonth = (WORD)(t.tm_mon + 1);
  st.wDayOfWeek = (WORD)t.tm_wday;
  st.wDay = (WORD)t.tm_mday;
  st.wHour = (WORD)t.tm_hour;
  st.wMinute = (WORD)t.tm_min;
  st.wSecond = (WORD)t.tm_sec;
  st.wMilliseconds = 0;
  return true;
}

// The parts of an unrepresentable time read as 0 rather than crashing.
static int LocalPart(const CTime& time, int tm::*part, int add) {
  struct tm t;
  return time.GetLocalTm(&t) != NULL ? t.*part + add : 0;
}

int CTime::GetYear() const { return LocalPart(*this, &tm::tm_year, 1900); }
int CTime::GetMonth() const { return LocalPart(*this, &tm::tm_mon, 1); }
int CTime::GetDay() const { return LocalPart(*this, &tm::tm_mday, 0); }
int CTime::GetHour() const { return LocalPart(*this, &tm::tm_hour, 0); }
int CTime::GetMinute() const { return LocalPart(*this, &tm::tm_min, 0); }
int CTime::GetSecond() const { return LocalPart(*this, &tm::tm_sec, 0); }
int CTime::GetDayOfWeek() const { return LocalPart(*this, &tm::tm_wday, 1); }

CString CTime::Format(LPCSTR pszFormat) const {
  struct tm t;
  return FormatTm(GetLocalTm(&t), pszFormat);
}

CString CTime::FormatGmt(LPCSTR pszFormat) const {
  struct tm t;
  return FormatTm(GetGmtTm(&t), pszFormat);
}
