// atlcomtime.h - COleDateTime (an OLE automation DATE with a status) and
// COleDateTimeSpan (a signed number of days), as in MFC 9. afxdisp.h
// includes this header.
//
// A DATE counts days from 1899-12-30 00:00; its fraction is the time of day.
// Before that day the whole part counts backwards but the fraction still
// counts forwards (-1.25 is 1899-12-29 06:00), so arithmetic and ordering work
// on the continuous value rather than on the raw DATE.
#ifndef ATLCOMTIME_H
#define ATLCOMTIME_H

#include "afxver_.h"
#include "afxstr.h"
#include <oleauto.h>
#include <time.h>

// What the part accessors (GetYear, GetMonth...) return for a value that is
// not valid.
#define AFX_OLE_DATETIME_ERROR (-1)
#define AFX_OLE_DATETIME_HALFSECOND (1.0 / (2.0 * (60.0 * 60.0 * 24.0)))

class COleDateTimeSpan;

class AFX_API COleDateTime {
public:
  enum DateTimeStatus { error = -1, valid = 0, invalid = 1, null = 2 };

  // The current local time, to the second.
  static COleDateTime WINAPI GetCurrentTime();

  COleDateTime() : m_dt(0), m_status(valid) {}
  COleDateTime(DATE dtSrc) : m_dt(dtSrc), m_status(valid) {}
  COleDateTime(const VARIANT& varSrc);
  // Local time of a C run-time time value; invalid when it cannot be
  // converted (negative, or beyond the run-time's range).
  COleDateTime(__time32_t timeSrc);
  COleDateTime(__time64_t timeSrc);
  COleDateTime(const SYSTEMTIME& systimeSrc);
  // A file time is UTC; it is converted to local time first.
  COleDateTime(const FILETIME& filetimeSrc);
  COleDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec);
  COleDateTime(WORD wDosDate, WORD wDosTime);

  COleDateTime& operator=(const VARIANT& varSrc);
  COleDateTime& operator=(DATE dtSrc);
  COleDateTime& operator=(const __time32_t& timeSrc);
  COleDateTime& operator=(const __time64_t& timeSrc);
  COleDateTime& operator=(const SYSTEMTIME& systimeSrc);
  COleDateTime& operator=(const FILETIME& filetimeSrc);
  COleDateTime& operator=(const UDATE& udate);

  DateTimeStatus GetStatus() const { return m_status; }
  void SetStatus(DateTimeStatus status) { m_status = status; }

  // FALSE when the value is not valid or lies outside 100-01-01 ..
  // 9999-12-31 23:59:59. Times are rounded to the nearest second.
  bool GetAsSystemTime(SYSTEMTIME& sysTime) const;
  bool GetAsUDATE(UDATE& udate) const;

  // AFX_OLE_DATETIME_ERROR when the value is not valid.
  int GetYear() const;
  int GetMonth() const;     // 1..12
  int GetDay() const;       // 1..31
  int GetHour() const;      // 0..23
  int GetMinute() const;    // 0..59
  int GetSecond() const;    // 0..59
  int GetDayOfWeek() const; // 1 = Sunday
  int GetDayOfYear() const; // 1 = January 1st

  // Comparison of the points in time (both values should be valid);
  // equality also compares the status.
  bool operator==(const COleDateTime& date) const;
  bool operator!=(const COleDateTime& date) const;
  bool operator<(const COleDateTime& date) const;
  bool operator>(const COleDateTime& date) const;
  bool operator<=(const COleDateTime& date) const;
  bool operator>=(const COleDateTime& date) const;

  // A null operand gives a null result; otherwise an invalid operand, or a
  // result outside the range of dates, gives an invalid one.
  COleDateTime operator+(COleDateTimeSpan dateSpan) const;
  COleDateTime operator-(COleDateTimeSpan dateSpan) const;
  COleDateTime& operator+=(COleDateTimeSpan dateSpan);
  COleDateTime& operator-=(COleDateTimeSpan dateSpan);
  COleDateTimeSpan operator-(const COleDateTime& date) const;

  operator DATE() const { return m_dt; }

  // 0 on success; 1 (and the status invalid) when a part is out of range:
  // years 100..9999, months 1..12, days of the month, 0..23, 0..59, 0..59.
  int SetDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec);
  int SetDate(int nYear, int nMonth, int nDay); // time 00:00:00
  int SetTime(int nHour, int nMin, int nSec);   // day 0 (1899-12-30)

  // Through VarDateFromStr: any form the locale accepts. FALSE, and the
  // status invalid, when the text is not a date or time.
  bool ParseDateTime(LPCTSTR lpszDate, DWORD dwFlags = 0, LCID lcid = LANG_USER_DEFAULT);

  // The locale's form (VarBstrFromDate with dwFlags such as
  // VAR_DATEVALUEONLY/VAR_TIMEVALUEONLY).
  CString Format(DWORD dwFlags = 0, LCID lcid = LANG_USER_DEFAULT) const;
  // strftime codes (%m/%d/%Y, %H:%M:%S, %A, %B, %j, %#d ...).
  CString Format(LPCTSTR lpszFormat) const;
  // The codes from a string resource.
  CString Format(UINT nFormatID) const;
  // Every form gives "" for a null value and "Invalid DateTime" for an
  // invalid one.

  DATE m_dt;
  DateTimeStatus m_status;
};

class AFX_API COleDateTimeSpan {
public:
  enum DateTimeSpanStatus { valid = 0, invalid = 1, null = 2 };

  COleDateTimeSpan() : m_span(0), m_status(valid) {}
  COleDateTimeSpan(double dblSpanSrc) : m_span(dblSpanSrc), m_status(valid) {}
  COleDateTimeSpan(LONG lDays, int nHours, int nMins, int nSecs);

  DateTimeSpanStatus GetStatus() const { return m_status; }
  void SetStatus(DateTimeSpanStatus status) { m_status = status; }
  void SetDateTimeSpan(LONG lDays, int nHours, int nMins, int nSecs);

  // Whole units, the span rounded to the nearest second and truncated
  // towards zero (a negative span has negative parts).
  double GetTotalDays() const;
  double GetTotalHours() const;
  double GetTotalMinutes() const;
  double GetTotalSeconds() const;
  LONG GetDays() const;
  LONG GetHours() const;   // -23..23
  LONG GetMinutes() const; // -59..59
  LONG GetSeconds() const; // -59..59

  operator double() const { return m_span; }
  COleDateTimeSpan& operator=(double dblSpanSrc);

  bool operator==(const COleDateTimeSpan& dateSpan) const;
  bool operator!=(const COleDateTimeSpan& dateSpan) const;
  bool operator<(const COleDateTimeSpan& dateSpan) const;
  bool operator>(const COleDateTimeSpan& dateSpan) const;
  bool operator<=(const COleDateTimeSpan& dateSpan) const;
  bool operator>=(const COleDateTimeSpan& dateSpan) const;

  // A null operand gives null; otherwise an invalid operand gives invalid.
  COleDateTimeSpan operator+(const COleDateTimeSpan& dateSpan) const;
  COleDateTimeSpan operator-(const COleDateTimeSpan& dateSpan) const;
  COleDateTimeSpan& operator+=(const COleDateTimeSpan dateSpan);
  COleDateTimeSpan& operator-=(const COleDateTimeSpan dateSpan);
  COleDateTimeSpan operator-() const;

  // %D total days, %H hours, %M minutes, %S seconds (two digits), %% a
  // percent sign; other characters as they stand. "" for a null span,
  // "Invalid DateTimeSpan" for an invalid one.
  CString Format(LPCTSTR pFormat) const;
  CString Format(UINT nID) const;

  double m_span;
  DateTimeSpanStatus m_status;
};

#endif // ATLCOMTIME_H
