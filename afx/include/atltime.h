// atltime.h - CTime (a point in time, seconds since 1970 UTC) and CTimeSpan
// (a signed number of seconds), as in ATL/MFC. Included by afxfile_.h.
#ifndef ATLTIME_H
#define ATLTIME_H

#include "afxver_.h"
#include "afxstr.h"
#include <time.h>

class AFX_API CTimeSpan {
public:
  CTimeSpan() : m_timeSpan(0) {}
  CTimeSpan(__time64_t time) : m_timeSpan(time) {}
  CTimeSpan(LONG lDays, int nHours, int nMins, int nSecs)
      : m_timeSpan(nSecs + 60 * (nMins + 60 * (nHours + (__int64)24 * lDays))) {}

  LONGLONG GetDays() const { return m_timeSpan / (24 * 3600); }
  LONGLONG GetTotalHours() const { return m_timeSpan / 3600; }
  LONG GetHours() const { return (LONG)(GetTotalHours() - GetDays() * 24); }
  LONGLONG GetTotalMinutes() const { return m_timeSpan / 60; }
  LONG GetMinutes() const { return (LONG)(GetTotalMinutes() - GetTotalHours() * 60); }
  LONGLONG GetTotalSeconds() const { return m_timeSpan; }
  LONG GetSeconds() const { return (LONG)(GetTotalSeconds() - GetTotalMinutes() * 60); }
  __time64_t GetTimeSpan() const { return m_timeSpan; }

  CTimeSpan operator+(CTimeSpan span) const { return CTimeSpan(m_timeSpan + span.m_timeSpan); }
  CTimeSpan operator-(CTimeSpan span) const { return CTimeSpan(m_timeSpan - span.m_timeSpan); }
  CTimeSpan& operator+=(CTimeSpan span) {
    m_timeSpan += span.m_timeSpan;
    return *this;
  }
  CTimeSpan& operator-=(CTimeSpan span) {
    m_timeSpan -= span.m_timeSpan;
    return *this;
  }
  bool operator==(CTimeSpan span) const { return m_timeSpan == span.m_timeSpan; }
  bool operator!=(CTimeSpan span) const { return m_timeSpan != span.m_timeSpan; }
  bool operator<(CTimeSpan span) const { return m_timeSpan < span.m_timeSpan; }
  bool operator>(CTimeSpan span) const { return m_timeSpan > span.m_timeSpan; }
  bool operator<=(CTimeSpan span) const { return m_timeSpan <= span.m_timeSpan; }
  bool operator>=(CTimeSpan span) const { return m_timeSpan >= span.m_timeSpan; }

  // %D days, %H hours, %M minutes, %S seconds, %% a percent sign.
  CString Format(LPCSTR pszFormat) const;

private:
  __time64_t m_timeSpan;
};

class AFX_API CTime {
public:
  static CTime WINAPI GetCurrentTime();
  static BOOL WINAPI IsValidFILETIME(const FILETIME& ft);

  CTime() : m_time(0) {}
  CTime(__time64_t time) : m_time(time) {}
  // Local time from its parts; nDST < 0 lets the C runtime decide.
  // Throws CInvalidArgException for a time that cannot be represented.
  CTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST = -1);
  CTime(WORD wDosDate, WORD wDosTime, int nDST = -1);
  CTime(const SYSTEMTIME& st, int nDST = -1); // local time
  CTime(const FILETIME& ft, int nDST = -1);   // UTC, as file times are

  CTime& operator=(__time64_t time) {
    m_time = time;
    return *this;
  }
  CTime& operator+=(CTimeSpan span) {
    m_time += span.GetTimeSpan();
    return *this;
  }
  CTime& operator-=(CTimeSpan span) {
    m_time -= span.GetTimeSpan();
    return *this;
  }
  CTimeSpan operator-(CTime time) const { return CTimeSpan(m_time - time.m_time); }
  CTime operator-(CTimeSpan span) const { return CTime(m_time - span.GetTimeSpan()); }
  CTime operator+(CTimeSpan span) const { return CTime(m_time + span.GetTimeSpan()); }

  bool operator==(CTime time) const { return m_time == time.m_time; }
  bool operator!=(CTime time) const { return m_time != time.m_time; }
  bool operator<(CTime time) const { return m_time < time.m_time; }
  bool operator>(CTime time) const { return m_time > time.m_time; }
  bool operator<=(CTime time) const { return m_time <= time.m_time; }
  bool operator>=(CTime time) const { return m_time >= time.m_time; }

  struct tm* GetGmtTm(struct tm* ptm) const;
  struct tm* GetLocalTm(struct tm* ptm) const;
  bool GetAsSystemTime(SYSTEMTIME& st) const; // local time

  __time64_t GetTime() const { return m_time; }
  int GetYear() const;
  int GetMonth() const;
  int GetDay() const;
  int GetHour() const;
  int GetMinute() const;
  int GetSecond() const;
  int GetDayOfWeek() const; // 1 = Sunday

  // strftime codes, local time or UTC. An unknown code gives an empty string.
  CString Format(LPCSTR pszFormat) const;
  CString FormatGmt(LPCSTR pszFormat) const;

private:
  __time64_t m_time;
};

#endif // ATLTIME_H
