// COleDateTime: conversions between DATE and calendar parts, the status
// rules, arithmetic on the continuous time line, parsing and formatting.
#include <afxdisp.h>

#include <math.h>

namespace {

// 100-01-01 and 9999-12-31 as day numbers from 1899-12-30.
const LONG kMinDay = -657434;
const LONG kMaxDay = 2958465;
const LONGLONG kSecondsPerDay = 86400;
const char kInvalidDateTime[] = "Invalid DateTime";

// Days from 1970-01-01 to the civil date (proleptic Gregorian calendar).
LONGLONG DaysFromCivil(LONGLONG y, unsigned m, unsigned d) {
  y -= m <= 2;
  const LONGLONG era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = (unsigned)(y - era * 400);
  const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + (LONGLONG)doe - 719468;
}

void CivilFromDays(LONGLONG z, int& y, int& m, int& d) {
  z += 719468;
  const LONGLONG era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = (unsigned)(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  d = (int)(doy - (153 * mp + 2) / 5 + 1);
  m = (int)(mp < 10 ? mp + 3 : mp - 9);
  y = (int)(yoe + era * 400 + (m <= 2));
}

const LONGLONG kEpochDays = DaysFromCivil(1899, 12, 30);

bool IsLeapYear(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int DaysInMonth(int y, int m) {
  static const int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return m == 2 && IsLeapYear(y) ? 29 : kDays[m - 1];
}

// The continuous value of a DATE: before day 0 the fraction of a DATE counts
// forwards from its (negative) day, so -1.25 is the point -0.75.
double DoubleFromDate(DATE dt) {
  if (dt >= 0) return dt;
  const double whole = ceil(dt);
  return whole + (whole - dt);
}

DATE DateFromDouble(double x) {
  if (x >= 0) return x;
  const double whole = floor(x);
  const double frac = x - whole;
  return frac == 0 ? whole : whole - frac;
}

bool InRange(double x) { return x >= kMinDay && x < kMaxDay + 1.0; }

// The DATE of a valid calendar point; false when a part is out of range.
bool DateFromParts(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, DATE& dt) {
  if (nYear < 100 || nYear > 9999 || nMonth < 1 || nMonth > 12) return false;
  if (nDay < 1 || nDay > DaysInMonth(nYear, nMonth)) return false;
  if (nHour < 0 || nHour > 23 || nMin < 0 || nMin > 59 || nSec < 0 || nSec > 59) return false;
  const double day = (double)(DaysFromCivil(nYear, nMonth, nDay) - kEpochDays);
  const double time = (double)(nHour * 3600 + nMin * 60 + nSec) / (double)kSecondsPerDay;
  dt = day >= 0 ? day + time : day - time;
  return true;
}

bool FromSystemTime(const SYSTEMTIME& st, DATE& dt) {
  return DateFromParts(st.wYear, st.wMonth, st.wDay, st.wHour, st.wMinute, st.wSecond, dt);
}

// Local time of a C run-time time value.
bool FromTime64(__time64_t t, DATE& dt) {
  struct tm tmLocal;
  if (t < 0 || _localtime64_s(&tmLocal, &t) != 0) return false;
  return DateFromParts(tmLocal.tm_year + 1900, tmLocal.tm_mon + 1, tmLocal.tm_mday, tmLocal.tm_hour,
                       tmLocal.tm_min, tmLocal.tm_sec, dt);
}

// Codes the C run-time's strftime knows (with an optional '#' flag).
bool IsStrftimeCode(char ch) { return ch != 0 && strchr("aAbBcdHIjmMpSUwWxXyYzZ", ch) != NULL; }

} // namespace

// ---- Construction and assignment ------------------------------------------------

COleDateTime WINAPI COleDateTime::GetCurrentTime() {
  SYSTEMTIME st;
  ::GetLocalTime(&st);
  return COleDateTime(st);
}

COleDateTime::COleDateTime(const VARIANT& varSrc) : m_dt(0), m_status(valid) { *this = varSrc; }
COleDateTime::COleDateTime(__time32_t timeSrc) : m_dt(0), m_status(valid) { *this = timeSrc; }
COleDateTime::COleDateTime(__time64_t timeSrc) : m_dt(0), m_status(valid) { *this = timeSrc; }
COleDateTime::COleDateTime(const SYSTEMTIME& systimeSrc) : m_dt(0), m_status(valid) {
  *this = systimeSrc;
}
COleDateTime::COleDateTime(const FILETIME& filetimeSrc) : m_dt(0), m_status(valid) {
  *this = filetimeSrc;
}
COleDateTime::COleDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec)
    : m_dt(0), m_status(valid) {
  SetDateTime(nYear, nMonth, nDay, nHour, nMin, nSec);
}
COleDateTime::COleDateTime(WORD wDosDate, WORD wDosTime) : m_dt(0), m_status(valid) {
  m_status = ::DosDateTimeToVariantTime(wDosDate, wDosTime, &m_dt) ? valid : invalid;
}

// Decided here: a VT_NULL variant gives a null value; anything that does
// not convert to a date gives an invalid one (with m_dt 0).
COleDateTime& COleDateTime::operator=(const VARIANT& varSrc) {
  if (varSrc.vt == VT_DATE) {
    m_dt = varSrc.date;
    m_status = valid;
    return *this;
  }
  if (varSrc.vt == VT_NULL) {
    m_dt = 0;
    m_status = null;
    return *this;
  }
  VARIANT var;
  ::VariantInit(&var);
  if (SUCCEEDED(::VariantChangeType(&var, const_cast<VARIANT*>(&varSrc), 0, VT_DATE))) {
    m_dt = var.date;
    m_status = valid;
  } else {
    m_dt = 0;
    m_status = invalid;
  }
  ::VariantClear(&var);
  return *this;
}

COleDateTime& COleDateTime::operator=(DATE dtSrc) {
  m_dt = dtSrc;
  m_status = valid;
  return *this;
}

COleDateTime& COleDateTime::operator=(const __time32_t& timeSrc) {
  return *this = (__time64_t)timeSrc;
}

COleDateTime& COleDateTime::operator=(const __time64_t& timeSrc) {
  m_status = FromTime64(timeSrc, m_dt) ? valid : invalid;
  return *this;
}

COleDateTime& COleDateTime::operator=(const SYSTEMTIME& systimeSrc) {
  m_status = FromSystemTime(systimeSrc, m_dt) ? valid : invalid;
  return *this;
}

COleDateTime& COleDateTime::operator=(const FILETIME& filetimeSrc) {
  FILETIME ftLocal;
  SYSTEMTIME st;
  m_status = ::FileTimeToLocalFileTime(&filetimeSrc, &ftLocal) &&
                     ::FileTimeToSystemTime(&ftLocal, &st) && FromSystemTime(st, m_dt)
                 ? valid
                 : invalid;
  return *this;
}

COleDateTime& COleDateTime::operator=(const UDATE& udate) {
  m_status = FromSystemTime(udate.st, m_dt) ? valid : invalid;
  return *this;
}

// ---- Parts --------------------------------------------------------------------------

bool COleDateTime::GetAsUDATE(UDATE& udate) const {
  if (m_status != valid) return false;
  const double x = DoubleFromDate(m_dt);
  if (!InRange(x)) return false; // also refuses NaN
  // Round to the nearest second; 23:59:59.6 becomes the next day.
  const LONGLONG nSeconds = (LONGLONG)floor(x * (double)kSecondsPerDay + 0.5);
  LONGLONG nDay = nSeconds / kSecondsPerDay;
  LONGLONG nTime = nSeconds % kSecondsPerDay;
  if (nTime < 0) {
    nTime += kSecondsPerDay;
    --nDay;
  }
  if (nDay > kMaxDay) return false;
  int y, m, d;
  CivilFromDays(nDay + kEpochDays, y, m, d);
  memset(&udate, 0, sizeof(udate));
  udate.st.wYear = (WORD)y;
  udate.st.wMonth = (WORD)m;
  udate.st.wDay = (WORD)d;
  udate.st.wHour = (WORD)(nTime / 3600);
  udate.st.wMinute = (WORD)(nTime / 60 % 60);
  udate.st.wSecond = (WORD)(nTime % 60);
  // 1899-12-30 was a Saturday (6 with Sunday 0).
  udate.st.wDayOfWeek = (WORD)(((nDay % 7) + 7 + 6) % 7);
  udate.wDayOfYear = (USHORT)(nDay + kEpochDays - DaysFromCivil(y, 1, 1) + 1);
  return true;
}

bool COleDateTime::GetAsSystemTime(SYSTEMTIME& sysTime) const {
  UDATE ud;
  if (!GetAsUDATE(ud)) return false;
  sysTime = ud.st;
  return true;
}

int COleDateTime::GetYear() const {
  UDATE ud;
  return GetAsUDATE(ud) ? ud.st.wYear : AFX_OLE_DATETIME_ERROR;
}
int COleDateTime::GetMonth() const {
  UDATE ud;
  return GetAsUDATE(ud) ? ud.st.wMonth : AFX_OLE_DATETIME_ERROR;
}
int COleDateTime::GetDay() const {
  UDATE ud;
  return GetAsUDATE(ud) ? ud.st.wDay : AFX_OLE_DATETIME_ERROR;
}
int COleDateTime::GetHour() const {
  UDATE ud;
  return GetAsUDATE(ud) ? ud.st.wHour : AFX_OLE_DATETIME_ERROR;
}
int COleDateTime::GetMinute() const {
  UDATE ud;
  return GetAsUDATE(ud) ? ud.st.wMinute : AFX_OLE_DATETIME_ERROR;
}
int COleDateTime::GetSecond() const {
  UDATE ud;
  return GetAsUDATE(ud) ? ud.st.wSecond : AFX_OLE_DATETIME_ERROR;
}
int COleDateTime::GetDayOfWeek() const {
  UDATE ud;
  return GetAsUDATE(ud) ? ud.st.wDayOfWeek + 1 : AFX_OLE_DATETIME_ERROR;
}
int COleDateTime::GetDayOfYear() const {
  UDATE ud;
  return GetAsUDATE(ud) ? ud.wDayOfYear : AFX_OLE_DATETIME_ERROR;
}

// ---- Setting --------------------------------------------------------------------------

// Decided here: a refused value leaves m_dt as it was; only the status says
// that the object holds no valid date.
int COleDateTime::SetDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec) {
  DATE dt;
  if (DateFromParts(nYear, nMonth, nDay, nHour, nMin, nSec, dt)) {
    m_dt = dt;
    m_status = valid;
  } else {
    m_status = invalid;
  }
  return m_status;
}

int COleDateTime::SetDate(int nYear, int nMonth, int nDay) {
  return SetDateTime(nYear, nMonth, nDay, 0, 0, 0);
}

int COleDateTime::SetTime(int nHour, int nMin, int nSec) {
  // Day 0 is 1899-12-30.
  return SetDateTime(1899, 12, 30, nHour, nMin, nSec);
}

// ---- Comparison and arithmetic -----------------------------------------------------

// Decided here: values of equal status are equal when both are null, or both
// valid at the same point in time; an invalid value equals nothing.
bool COleDateTime::operator==(const COleDateTime& date) const {
  if (m_status != date.m_status) return false;
  if (m_status == null) return true;
  return m_status == valid && DoubleFromDate(m_dt) == DoubleFromDate(date.m_dt);
}
bool COleDateTime::operator!=(const COleDateTime& date) const { return !(*this == date); }
bool COleDateTime::operator<(const COleDateTime& date) const {
  return DoubleFromDate(m_dt) < DoubleFromDate(date.m_dt);
}
bool COleDateTime::operator>(const COleDateTime& date) const {
  return DoubleFromDate(m_dt) > DoubleFromDate(date.m_dt);
}
bool COleDateTime::operator<=(const COleDateTime& date) const {
  return DoubleFromDate(m_dt) <= DoubleFromDate(date.m_dt);
}
bool COleDateTime::operator>=(const COleDateTime& date) const {
  return DoubleFromDate(m_dt) >= DoubleFromDate(date.m_dt);
}

COleDateTime COleDateTime::operator+(COleDateTimeSpan dateSpan) const {
  COleDateTime result(*this);
  result += dateSpan;
  return result;
}

COleDateTime COleDateTime::operator-(COleDateTimeSpan dateSpan) const {
  COleDateTime result(*this);
  result -= dateSpan;
  return result;
}

COleDateTime& COleDateTime::operator+=(COleDateTimeSpan dateSpan) {
  if (m_status == null || dateSpan.GetStatus() == COleDateTimeSpan::null) {
    m_dt = 0;
    m_status = null;
    return *this;
  }
  if (m_status != valid || dateSpan.GetStatus() != COleDateTimeSpan::valid) {
    m_dt = 0;
    m_status = invalid;
    return *this;
  }
  const double x = DoubleFromDate(m_dt) + dateSpan.m_span;
  if (InRange(x)) {
    m_dt = DateFromDouble(x);
  } else {
    m_dt = 0;
    m_status = invalid;
  }
  return *this;
}

COleDateTime& COleDateTime::operator-=(COleDateTimeSpan dateSpan) { return *this += -dateSpan; }

COleDateTimeSpan COleDateTime::operator-(const COleDateTime& date) const {
  COleDateTimeSpan span;
  if (m_status == null || date.m_status == null) {
    span.SetStatus(COleDateTimeSpan::null);
  } else if (m_status != valid || date.m_status != valid) {
    span.SetStatus(COleDateTimeSpan::invalid);
  } else {
    span.m_span = DoubleFromDate(m_dt) - DoubleFromDate(date.m_dt);
  }
  return span;
}

// ---- Parsing and formatting ---------------------------------------------------------

bool COleDateTime::ParseDateTime(LPCTSTR lpszDate, DWORD dwFlags, LCID lcid) {
  m_dt = 0;
  m_status = invalid;
  if (lpszDate == NULL) return false;
  const int nWide = ::MultiByteToWideChar(CP_ACP, 0, lpszDate, -1, NULL, 0);
  if (nWide <= 0) return false;
  BSTR bstr = ::SysAllocStringLen(NULL, (UINT)(nWide - 1));
  if (bstr == NULL) return false;
  ::MultiByteToWideChar(CP_ACP, 0, lpszDate, -1, bstr, nWide);
  DATE dt;
  const HRESULT hr = ::VarDateFromStr(bstr, lcid, dwFlags, &dt);
  ::SysFreeString(bstr);
  if (FAILED(hr)) return false;
  m_dt = dt;
  m_status = valid;
  return true;
}

// Decided here: a DATE that oleaut32 cannot show (out of its range) gives
// "Invalid DateTime" like an invalid status.
CString COleDateTime::Format(DWORD dwFlags, LCID lcid) const {
  if (m_status == null) return CString();
  if (m_status != valid) return CString(kInvalidDateTime);
  BSTR bstr = NULL;
  if (FAILED(::VarBstrFromDate(m_dt, lcid, dwFlags, &bstr))) return CString(kInvalidDateTime);
  CString str(bstr);
  ::SysFreeString(bstr);
  return str;
}

// The codes are expanded one at a time, so each result fits a small buffer
// whatever the format's length; a '%' before a character strftime does not
// know is kept as it stands rather than handed to the run-time (whose
// invalid-parameter handling may end the process).
CString COleDateTime::Format(LPCTSTR lpszFormat) const {
  if (m_status == null) return CString();
  UDATE ud;
  if (!GetAsUDATE(ud)) return CString(kInvalidDateTime);
  CString str;
  if (lpszFormat == NULL) return str;
  struct tm tmDate;
  memset(&tmDate, 0, sizeof(tmDate));
  tmDate.tm_sec = ud.st.wSecond;
  tmDate.tm_min = ud.st.wMinute;
  tmDate.tm_hour = ud.st.wHour;
  tmDate.tm_mday = ud.st.wDay;
  tmDate.tm_mon = ud.st.wMonth - 1;
  tmDate.tm_year = ud.st.wYear - 1900;
  tmDate.tm_wday = ud.st.wDayOfWeek;
  tmDate.tm_yday = ud.wDayOfYear - 1;
  tmDate.tm_isdst = -1;
  for (const char* p = lpszFormat; *p != 0; ++p) {
    if (*p != '%') {
      str += *p;
      continue;
    }
    if (p[1] == '%') {
      str += '%';
      ++p;
      continue;
    }
    const bool bAlt = p[1] == '#';
    const char chCode = bAlt ? p[2] : p[1];
    if (!IsStrftimeCode(chCode)) {
      str += '%';
      continue;
    }
    char szCode[4] = {'%', 0, 0, 0};
    szCode[1] = bAlt ? '#' : chCode;
    szCode[2] = bAlt ? chCode : 0;
    char szOut[256];
    const size_t n = strftime(szOut, sizeof(szOut), szCode, &tmDate);
    str.Append(szOut, (int)n);
    p += bAlt ? 2 : 1;
  }
  return str;
}

CString COleDateTime::Format(UINT nFormatID) const {
  CString strFormat;
  strFormat.LoadString(nFormatID); // a missing string formats as ""
  return Format((LPCTSTR)strFormat);
}
