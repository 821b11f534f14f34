// CString: sharing, editing, searching, formatting, buffers, MBCS and bad
// input.
#include <afx.h>
#include <afxres.h>
#include <gtest/gtest.h>

#include <limits.h>
#include <mbctype.h>

#include <string>
#include <vector>

#include "exception_probe.h"

namespace {

CRuntimeClass* const kArg = RUNTIME_CLASS(CInvalidArgException);
CRuntimeClass* const kMemory = RUNTIME_CLASS(CMemoryException);

std::string Str(const CString& s) { return std::string(s.GetString(), s.GetLength()); }

} // namespace

TEST(StringSharing, CopiesShareUntilOneIsWritten) {
  CString a("hello");
  CString b = a;
  CString c;
  c = a;
  EXPECT_EQ(a.GetString(), b.GetString());
  EXPECT_EQ(a.GetString(), c.GetString());
  b.SetAt(0, 'j');
  EXPECT_STREQ("hello", a);
  EXPECT_STREQ("jello", b);
  EXPECT_NE(a.GetString(), b.GetString());
  c += "!";
  EXPECT_STREQ("hello", a);
  EXPECT_STREQ("hello!", c);
  // Writing into the shared empty string forks it too.
  CString e, f;
  strcpy(e.GetBuffer(5), "new");
  e.ReleaseBuffer();
  EXPECT_STREQ("new", e);
  EXPECT_STREQ("", f);
  EXPECT_STREQ("", CString());
}

// The MAKEINTRESOURCE form loads through the resource chain, which ends in
// afx.dll; bad arguments and indexes fail cleanly, the terminator is
// readable.
TEST(StringArguments, ResourceIdLoadsBadArgumentsAndIndexesFailCleanly) {
  EXPECT_STREQ("Out of memory.", CString(MAKEINTRESOURCEA(AFX_IDS_MEMORY_EXCEPTION)));
  CString s("keep");
  EXPECT_EQ(kArg, ThrownClass([&] { s.SetString(NULL, 3); }));
  EXPECT_EQ(kArg, ThrownClass([&] { s.SetString("abc", -1); }));
  EXPECT_EQ(kArg, ThrownClass([&] { CString t("abc", -5); }));
  EXPECT_EQ(kMemory, ThrownClass([&] { s.GetBuffer(0x7FFFFFF0); }));
  EXPECT_EQ(kMemory, ThrownClass([&] { s.Preallocate(0x50000000); }));
  EXPECT_EQ(kArg, ThrownClass([&] { s.GetAt(5); }));
  EXPECT_EQ(kArg, ThrownClass([&] { s.GetAt(-1); }));
  EXPECT_EQ(kArg, ThrownClass([&] { s.SetAt(4, 'x'); }));
  EXPECT_EQ(kArg, ThrownClass([&] { s.SetAt(-1, 'x'); }));
  EXPECT_EQ('\0', s.GetAt(4));
  s.Append(NULL); // a null string appends nothing
  s += (LPCSTR)NULL;
  s.SetAt(3, 'n');
  EXPECT_STREQ("keen", s);
  EXPECT_EQ(-1, s.Find((LPCSTR)NULL));
  EXPECT_EQ(0, CString("").Compare(NULL));
}

TEST(StringConcat, AppendingItsOwnTextWorks) {
  CString s("abc");
  s += s;
  EXPECT_STREQ("abcabc", s);
  s.Append(s.GetString() + 4); // "bc", from the buffer that grows
  EXPECT_STREQ("abcabcbc", s);
  for (int i = 0; i < 10; i++)
    s += s;
  EXPECT_EQ(8 * 1024, s.GetLength());
  EXPECT_EQ(std::string("abcabcbc"), Str(s.Right(8)));
}

// Each case: what the member returned (or the string after it), and what it
// should be.
struct Result {
  CString got;
  const char* expected;
};

void ExpectAll(const std::vector<Result>& results) {
  for (size_t i = 0; i < results.size(); i++)
    EXPECT_STREQ(results[i].expected, results[i].got) << "case " << i;
}

TEST(StringExtract, MidLeftRightSpansClampTheirArgumentsAndTokens) {
  const CString s("abcdef"), c("cabbage2024!");
  // clang-format off
  ExpectAll({{s.Mid(2, 2), "cd"}, {s.Mid(2), "cdef"}, {s.Mid(INT_MIN), "abcdef"},
             {s.Mid(INT_MAX, INT_MAX), ""}, {s.Mid(-3, 2), "ab"}, {s.Mid(4, 100), "ef"},
             {s.Mid(10, 2), ""}, {s.Mid(1, -1), ""}, {s.Left(-1), ""}, {s.Left(99), "abcdef"},
             {s.Right(2), "ef"}, {s.Right(-4), ""}, {c.SpanIncluding("abcdefg"), "cabbage"},
             {c.SpanIncluding("xyz"), ""}, {c.SpanExcluding("0123456789"), "cabbage"},
             {c.SpanExcluding("!?"), "cabbage2024"}});
  // clang-format on
  EXPECT_EQ(s.GetString(), s.Mid(0).GetString()); // the whole string is shared

  CString t("%First Second#Third");
  int pos = 0;
  EXPECT_STREQ("First", t.Tokenize("% #", pos));
  EXPECT_EQ(7, pos);
  EXPECT_STREQ("Second", t.Tokenize("% #", pos));
  EXPECT_STREQ("Third", t.Tokenize("% #", pos));
  EXPECT_STREQ("", t.Tokenize("% #", pos));
  EXPECT_EQ(-1, pos);
  pos = 0;
  EXPECT_STREQ("", CString("  ,,").Tokenize(" ,", pos)); // delimiters only
  EXPECT_EQ(-1, pos);
  pos = 3;
  EXPECT_STREQ("ress", CString("address").Tokenize("", pos)); // no delimiters: the rest
  pos = -1;
  EXPECT_EQ(kArg, ThrownClass([&] { t.Tokenize(" ", pos); }));
}

TEST(StringSearch, FindForms) {
  const CString s("one two one");
  // clang-format off
  const int found[] = {s.Find('e'), s.Find('e', 3), s.Find('e', 11), s.Find('e', -1),
                       s.Find("one", 1), s.Find("", 11), s.Find("one", 12), s.Find("three"),
                       s.ReverseFind('e'), s.ReverseFind('z'), s.FindOneOf("wt"), s.FindOneOf("xyz")};
  // clang-format on
  const int expected[] = {2, 10, -1, -1, 8, 11, -1, -1, 10, -1, 4, -1};
  for (size_t i = 0; i < sizeof(found) / sizeof(found[0]); i++)
    EXPECT_EQ(expected[i], found[i]) << "case " << i;
}

TEST(StringChange, ReplaceRemoveInsertDeleteCountAndClamp) {
  CString s("a-b-c-d"), t("banana"), u("aaa"), shared = u, r("mississippi");
  CString i("SoccerBest"), d("Soccer is best");
  // The counts and lengths returned, in order (a braced list is evaluated
  // left to right).
  const int got[] = {s.Replace('-', '+'),
                     s.Replace('+', '+'),
                     s.Replace("+", "<->"),
                     s.Replace("<->", ""),
                     s.Replace("", "x"),
                     s.Replace("bc", NULL),
                     t.Replace("ana", "[ana]"), // matches do not overlap
                     u.Replace(u.Left(1), u),   // arguments from the string itself
                     r.Remove('s'),
                     i.Insert(6, "is "),
                     i.Insert(55, '!'),
                     i.Insert(-5, '>'),
                     i.Insert(1, i.Left(3)),
                     d.Delete(6, 3),
                     d.Delete(6, 100),
                     d.Delete(10, 2),
                     d.Delete(-3),
                     d.Delete(1, -2)};
  const int expected[] = {3, 0, 3, 3, 0, 1, 1, 3, 4, 13, 14, 15, 18, 11, 6, 6, 5, 5};
  for (size_t n = 0; n < sizeof(got) / sizeof(got[0]); n++)
    EXPECT_EQ(expected[n], got[n]) << "case " << n;
  ExpectAll({{s, "ad"},
             {t, "b[ana]na"},
             {u, "aaaaaaaaa"},
             {shared, "aaa"},
             {r, "miiippi"},
             {i, ">>SoSocceris Best!"},
             {d, "occer"}});
}

TEST(StringFormat, LongResultsAndOwnTextAsArgument) {
  std::string big(10000, 'z');
  CString s;
  s.Format("<%s>", big.c_str());
  EXPECT_EQ(10002, s.GetLength());
  EXPECT_EQ('>', s[10001]);
  s = "abc";
  s.Format("%s-%s", (LPCSTR)s, (LPCSTR)s);
  EXPECT_STREQ("abc-abc", s);
  EXPECT_EQ(kArg, ThrownClass([&] { s.Format((LPCSTR)NULL); }));
}

TEST(StringBuffer, GetAndReleaseBufferBoundedByTheAllocation) {
  CString s("abc");
  strcpy(s.GetBuffer(20), "hello world");
  EXPECT_GE(s.GetAllocLength(), 20);
  s.GetBuffer()[5] = '\0';
  s.ReleaseBuffer();
  EXPECT_STREQ("hello", s);
  s.GetBufferSetLength(3)[0] = 'J';
  EXPECT_EQ(3, s.GetLength());
  s.ReleaseBufferSetLength(2);
  EXPECT_STREQ("Je", s);
  s.Truncate(1);
  EXPECT_STREQ("J", s);

  // Released without a terminator or too long: bounded by the allocation.
  char* p = s.GetBufferSetLength(4);
  memset(p, 'x', s.GetAllocLength() + 1); // overwrites the terminator too
  s.ReleaseBuffer();
  EXPECT_EQ(s.GetAllocLength(), s.GetLength());
  EXPECT_EQ(kArg, ThrownClass([&] { s.ReleaseBuffer(s.GetAllocLength() + 1); }));
  EXPECT_EQ(kArg, ThrownClass([&] { s.ReleaseBuffer(-2); }));
  EXPECT_EQ(kArg, ThrownClass([&] { s.Truncate(100); }));
}

// Double-byte strings in code page 932 (Shift-JIS): 0x83 0x5C is one
// character whose trail byte is the value of '\'.
class StringMbcs : public ::testing::Test {
protected:
  void SetUp() override {
    m_nOld = _getmbcp();
    if (_setmbcp(932) != 0 || _getmbcp() != 932) GTEST_SKIP() << "code page 932 unavailable";
  }
  void TearDown() override { _setmbcp(m_nOld); }
  int m_nOld = 0;
};

TEST_F(StringMbcs, SearchesAndEditsNeverSplitACharacter) {
  CString s("a\x83\x5C"
            "b\\"),
      t("\x83\x5C"), p("\x83\x5C\\"), r("\x83\x5C\\\\"), x("x\x83\x5C\\"), v("\x83\x5C"),
      w("ab\x83\x5C"), u("\x82\x61z");
  const int found[] = {s.Find('\\'), s.ReverseFind('\\'), s.FindOneOf("\\"),    s.Find("\x83\x5C"),
                       t.Find('\\'), t.ReverseFind('\\'), p.Replace('\\', '/'), r.Remove('\\')};
  const int expected[] = {4, 4, 4, 1, -1, -1, 1, 2};
  for (size_t n = 0; n < sizeof(found) / sizeof(found[0]); n++)
    EXPECT_EQ(expected[n], found[n]) << "case " << n;
  ExpectAll({{p, "\x83\x5C/"},
             {r, "\x83\x5C"},
             {x.TrimRight('\\'), "x\x83\x5C"},
             {v.TrimRight("\\"), "\x83\x5C"},
             {w.MakeReverse(), "\x83\x5C"
                               "ba"},
             {u.MakeUpper(), "\x82\x61Z"}}); // the trail byte 'a' stays
}
