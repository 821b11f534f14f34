// COleDateTime with spans added: construction and parts, the range and
// status rules, formatting and parsing, arithmetic and ordering across the
// days before 1899-12-30 (whose DATE fraction counts the other way).
#include <afxdisp.h>

#include <gtest/gtest.h>

namespace {

const LCID kEnglishUS = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

// 2024-02-29 is day 45351; 13:45:10 is 49510 seconds into it.
const double kLeapDay = 45351.0;
const double kLeapTime = 49510.0 / 86400.0;

void ExpectParts(const COleDateTime& dt, int y, int mo, int d, int h, int mi, int s) {
  EXPECT_EQ(y, dt.GetYear());
  EXPECT_EQ(mo, dt.GetMonth());
  EXPECT_EQ(d, dt.GetDay());
  EXPECT_EQ(h, dt.GetHour());
  EXPECT_EQ(mi, dt.GetMinute());
  EXPECT_EQ(s, dt.GetSecond());
}

} // namespace

TEST(OleDateTimeParts, FromPartsGivesTheOleDayNumberAndBackRounded) {
  COleDateTime dt(2024, 2, 29, 13, 45, 10);
  ASSERT_EQ(COleDateTime::valid, dt.GetStatus());
  EXPECT_DOUBLE_EQ(kLeapDay + kLeapTime, dt.m_dt);
  ExpectParts(dt, 2024, 2, 29, 13, 45, 10);
  EXPECT_EQ(5, dt.GetDayOfWeek()); // a Thursday; Sunday is 1
  EXPECT_EQ(60, dt.GetDayOfYear());
  // Times round to the nearest second, across midnight too.
  COleDateTime almost(kLeapDay + 86399.6 / 86400.0);
  ExpectParts(almost, 2024, 3, 1, 0, 0, 0);
  COleDateTime half(kLeapDay + 10.4 / 86400.0);
  ExpectParts(half, 2024, 2, 29, 0, 0, 10);
}

TEST(OleDateTimeSet, RangeIsYear100To9999AndDaysAndClockAreChecked) {
  const struct {
    int y, mo, d, h, mi, s, result;
  } cases[] = {{100, 1, 1, 0, 0, 0, 0},   {9999, 12, 31, 23, 59, 59, 0}, {99, 12, 31, 0, 0, 0, 1},
               {10000, 1, 1, 0, 0, 0, 1}, {2024, 2, 29, 0, 0, 0, 0},     {2023, 2, 29, 0, 0, 0, 1},
               {1900, 2, 29, 0, 0, 0, 1}, {2000, 2, 29, 0, 0, 0, 0},     {2024, 4, 31, 0, 0, 0, 1},
               {2024, 0, 1, 0, 0, 0, 1},  {2024, 1, 1, 24, 0, 0, 1},     {2024, 1, 1, 0, 60, 0, 1},
               {2024, 1, 1, 0, 0, -1, 1}};
  for (const auto& c : cases) {
    COleDateTime dt;
    EXPECT_EQ(c.result, dt.SetDateTime(c.y, c.mo, c.d, c.h, c.mi, c.s))
        << c.y << "-" << c.mo << "-" << c.d << " " << c.h << ":" << c.mi << ":" << c.s;
    EXPECT_EQ(c.result == 0 ? COleDateTime::valid : COleDateTime::invalid, dt.GetStatus()) << c.y;
  }
  EXPECT_DOUBLE_EQ(-657434.0, COleDateTime(100, 1, 1, 0, 0, 0).m_dt);
  COleDateTime last(9999, 12, 31, 23, 59, 59);
  EXPECT_DOUBLE_EQ(2958465.0 + 86399.0 / 86400.0, last.m_dt);
  ExpectParts(last, 9999, 12, 31, 23, 59, 59);

  // A refused value leaves the date; the accessors then report an error.
  COleDateTime dt(2024, 2, 29, 0, 0, 0);
  EXPECT_EQ(1, dt.SetTime(25, 0, 0));
  EXPECT_DOUBLE_EQ(kLeapDay, dt.m_dt);
  EXPECT_EQ(AFX_OLE_DATETIME_ERROR, dt.GetYear());
  EXPECT_EQ(AFX_OLE_DATETIME_ERROR, dt.GetDayOfWeek());
  SYSTEMTIME st;
  EXPECT_FALSE(dt.GetAsSystemTime(st));
  // Valid again once a good value is set.
  EXPECT_EQ(0, dt.SetTime(1, 2, 3));
  EXPECT_EQ(2, dt.GetMinute());

  COleDateTime tooLate(2958466.5);
  EXPECT_EQ(COleDateTime::valid, tooLate.GetStatus());
  EXPECT_EQ(AFX_OLE_DATETIME_ERROR, tooLate.GetYear());
}

TEST(OleDateTimeFormat, CodesNamesFlagsLiteralsAndStatus) {
  COleDateTime dt(2024, 2, 29, 13, 45, 10), early(1850, 7, 4, 9, 5, 0), invalid = dt, null = dt;
  invalid.SetStatus(COleDateTime::invalid);
  null.SetStatus(COleDateTime::null);
  const struct {
    COleDateTime dt;
    const char* pszFormat;
    const char* pszExpected;
  } cases[] = {
      {early, "%m/%d/%Y %H:%M:%S", "07/04/1850 09:05:00"}, // the masked edits' codes
      {dt, "%A, %B %d, %Y", "Thursday, February 29, 2024"},
      {dt, "%a %b %j %I %p", "Thu Feb 060 01 PM"},
      {dt + COleDateTimeSpan(1.0), "%#m/%#d", "3/1"},
      {dt, "100%% at %Q", "100% at %Q"},
      {dt, "trailing %", "trailing %"},
      {dt, "", ""},
      {null, "%m/%d/%Y", ""},
      {COleDateTime(-700000.0), "%Y", "Invalid DateTime"}, // out of range
  };
  for (const auto& c : cases)
    EXPECT_STREQ(c.pszExpected, c.dt.Format(c.pszFormat)) << c.pszFormat;
  EXPECT_STREQ("Invalid DateTime", invalid.Format());
  EXPECT_STREQ("", null.Format());
}

TEST(OleDateTimeParse, DatesTimesDefaultsAndGarbage) {
  const struct {
    const char* psz;
    double dt; // -1: refused, the value invalid
  } cases[] = {{"02/29/2024", kLeapDay},
               {"13:45:10", kLeapTime}, // on day 0, 1899-12-30
               {"12/31/2010 23:59:58", 40543.0 + 86398.0 / 86400.0},
               {"not a date", -1},
               {"", -1},
               {NULL, -1},
               {"1/25/1996 8:30:00", 35089.0 + 8.5 / 24.0}}; // valid again
  COleDateTime dt(2024, 2, 29, 0, 0, 0);
  for (const auto& c : cases) {
    const char* psz = c.psz ? c.psz : "(null)";
    EXPECT_EQ(c.dt >= 0, dt.ParseDateTime(c.psz)) << psz;
    EXPECT_EQ(c.dt >= 0 ? COleDateTime::valid : COleDateTime::invalid, dt.GetStatus()) << psz;
    if (c.dt >= 0) {
      EXPECT_NEAR(c.dt, dt.m_dt, 1e-9) << psz;
    }
  }
}

TEST(OleDateTimeArithmetic, AddingSpansAcrossDayZeroAndOutOfRange) {
  COleDateTime dt(1899, 12, 29, 6, 0, 0); // -1.25
  COleDateTime later = dt + COleDateTimeSpan(0, 12, 0, 0);
  EXPECT_DOUBLE_EQ(-1.75, later.m_dt);
  ExpectParts(later, 1899, 12, 29, 18, 0, 0);
  COleDateTime next = later + COleDateTimeSpan(0, 12, 0, 0);
  EXPECT_DOUBLE_EQ(0.25, next.m_dt);
  ExpectParts(next, 1899, 12, 30, 6, 0, 0);
  COleDateTime back = next - COleDateTimeSpan(2, 0, 0, 0);
  EXPECT_DOUBLE_EQ(-2.25, back.m_dt);
  ExpectParts(back, 1899, 12, 28, 6, 0, 0);
  back += COleDateTimeSpan(1.5);
  ExpectParts(back, 1899, 12, 29, 18, 0, 0);

  // Leaving the range of dates makes the result invalid.
  COleDateTime last(9999, 12, 31, 12, 0, 0);
  EXPECT_EQ(COleDateTime::invalid, (last + COleDateTimeSpan(1.0)).GetStatus());
  COleDateTime first(100, 1, 1, 0, 0, 0);
  EXPECT_EQ(COleDateTime::invalid, (first - COleDateTimeSpan(0, 0, 0, 1)).GetStatus());
  EXPECT_EQ(COleDateTime::valid, (first + COleDateTimeSpan(0, 0, 0, 1)).GetStatus());
}

TEST(OleDateTimeCompare, OrderFollowsTimeAlsoBeforeDayZero) {
  COleDateTime morning(1899, 12, 29, 6, 0, 0);  // DATE -1.25
  COleDateTime evening(1899, 12, 29, 18, 0, 0); // DATE -1.75, later
  EXPECT_TRUE(morning < evening && evening > morning && morning <= evening);
  EXPECT_FALSE(morning >= evening);
  EXPECT_TRUE(evening < COleDateTime(1899, 12, 30, 0, 0, 0));
  EXPECT_TRUE(COleDateTime(1850, 1, 1, 0, 0, 0) < morning);
  COleDateTime a(2024, 2, 29, 13, 45, 10), b(kLeapDay + kLeapTime);
  EXPECT_TRUE(a == b && !(a != b));
  EXPECT_TRUE(COleDateTime(-0.5) == COleDateTime(0.5)); // both noon of day 0
}
