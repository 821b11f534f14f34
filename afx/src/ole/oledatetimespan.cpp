// COleDateTimeSpan: a signed number of days with a status; its parts,
// arithmetic, comparison and text form.
#include <afxdisp.h>

#include <math.h>
#include <stdio.h>

namespace {

// The longest span between two dates (100-01-01 .. 9999-12-31), in days.
const double kMaxDaysInSpan = 3615897.0;
const char kInvalidSpan[] = "Invalid DateTimeSpan";

// The span in whole seconds, rounded half away from zero.
LONGLONG TotalSeconds(double span) {
  const double s = span * 86400.0;
  return (LONGLONG)(s < 0 ? ceil(s - 0.5) : floor(s + 0.5));
}

} // namespace

COleDateTimeSpan::COleDateTimeSpan(LONG lDays, int nHours, int nMins, int nSecs) {
  SetDateTimeSpan(lDays, nHours, nMins, nSecs);
}

void COleDateTimeSpan::SetDateTimeSpan(LONG lDays, int nHours, int nMins, int nSecs) {
  m_span = lDays + nHours / 24.0 + nMins / (24.0 * 60) + nSecs / (24.0 * 60 * 60);
  m_status = fabs(m_span) <= kMaxDaysInSpan ? valid : invalid;
}

COleDateTimeSpan& COleDateTimeSpan::operator=(double dblSpanSrc) {
  m_span = dblSpanSrc;
  m_status = valid;
  return *this;
}

double COleDateTimeSpan::GetTotalDays() const { return (double)(TotalSeconds(m_span) / 86400); }
double COleDateTimeSpan::GetTotalHours() const { return (double)(TotalSeconds(m_span) / 3600); }
double COleDateTimeSpan::GetTotalMinutes() const { return (double)(TotalSeconds(m_span) / 60); }
double COleDateTimeSpan::GetTotalSeconds() const { return (double)TotalSeconds(m_span); }

LONG COleDateTimeSpan::GetDays() const { return (LONG)(TotalSeconds(m_span) / 86400); }
LONG COleDateTimeSpan::GetHours() const { return (LONG)(TotalSeconds(m_span) / 3600 % 24); }
LONG COleDateTimeSpan::GetMinutes() const { return (LONG)(TotalSeconds(m_span) / 60 % 60); }
LONG COleDateTimeSpan::GetSeconds() const { return (LONG)(TotalSeconds(m_span) % 60); }

bool COleDateTimeSpan::operator==(const COleDateTimeSpan& dateSpan) const {
  return m_status == dateSpan.m_status && m_span == dateSpan.m_span;
}
bool COleDateTimeSpan::operator!=(const COleDateTimeSpan& dateSpan) const {
  return !(*this == dateSpan);
}
bool COleDateTimeSpan::operator<(const COleDateTimeSpan& dateSpan) const {
  return m_span < dateSpan.m_span;
}
bool COleDateTimeSpan::operator>(const COleDateTimeSpan& dateSpan) const {
  return m_span > dateSpan.m_span;
}
bool COleDateTimeSpan::operator<=(const COleDateTimeSpan& dateSpan) const {
  return m_span <= dateSpan.m_span;
}
bool COleDateTimeSpan::operator>=(const COleDateTimeSpan& dateSpan) const {
  return m_span >= dateSpan.m_span;
}

COleDateTimeSpan COleDateTimeSpan::operator+(const COleDateTimeSpan& dateSpan) const {
  COleDateTimeSpan result(*this);
  result += dateSpan;
  return result;
}

COleDateTimeSpan COleDateTimeSpan::operator-(const COleDateTimeSpan& dateSpan) const {
  COleDateTimeSpan result(*this);
  result -= dateSpan;
  return result;
}

COleDateTimeSpan& COleDateTimeSpan::operator+=(const COleDateTimeSpan dateSpan) {
  if (m_status == null || dateSpan.m_status == null) {
    m_span = 0;
    m_status = null;
  } else if (m_status != valid || dateSpan.m_status != valid) {
    m_span = 0;
    m_status = invalid;
  } else {
    m_span += dateSpan.m_span;
  }
  return *this;
}

COleDateTimeSpan& COleDateTimeSpan::operator-=(const COleDateTimeSpan dateSpan) {
  return *this += -dateSpan;
}

COleDateTimeSpan COleDateTimeSpan::operator-() const {
  COleDateTimeSpan result(*this);
  result.m_span = -m_span;
  return result;
}

CString COleDateTimeSpan::Format(LPCTSTR pFormat) const {
  if (m_status == null) return CString();
  if (m_status != valid) return CString(kInvalidSpan);
  CString str;
  if (pFormat == NULL) return str;
  for (const char* p = pFormat; *p != 0; ++p) {
    if (*p != '%' || p[1] == 0) {
      str += *p;
      continue;
    }
    char sz[32];
    switch (*++p) {
    case 'D':
      sprintf(sz, "%ld", (long)GetDays());
      break;
    case 'H':
      sprintf(sz, "%02ld", (long)GetHours());
      break;
    case 'M':
      sprintf(sz, "%02ld", (long)GetMinutes());
      break;
    case 'S':
      sprintf(sz, "%02ld", (long)GetSeconds());
      break;
    case '%':
      strcpy(sz, "%");
      break;
    default: // not a span code: kept as it stands
      sz[0] = '%';
      sz[1] = *p;
      sz[2] = 0;
      break;
    }
    str += sz;
  }
  return str;
}

CString COleDateTimeSpan::Format(UINT nID) const {
  CString strFormat;
  strFormat.LoadString(nID); // a missing string formats as ""
  return Format((LPCTSTR)strFormat);
}
