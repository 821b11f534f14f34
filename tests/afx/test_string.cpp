// CString: sharing, editing, searching, formatting, buffers, MBCS and bad
// input.
#include <afx.h>
#include <afxres.h>
#include <gtest/gtest.h>

#include <limits.h>
#include <mbctype.h>

#include <string>

namespace {

// Runs f and reports which afx exception (if any) escaped it.
template <class F> std::string ThrownBy(F f) {
  try {
    f();
  } catch (CInvalidArgException* e) {
    e->Delete();
    return "invalid-arg";
  } catch (CMemoryException* e) {
    e->Delete();
    return "memory";
  } catch (CException* e) {
    e->Delete();
    return "other";
  }
  return "none";
}

std::string Str(const CString& s) { return std::string(s.GetString(), s.GetLength()); }

HMODULE AfxModule() { return GetModuleHandleA("afx.dll"); }

} // namespace

// ---- Layout and sharing ----------------------------------------------------

TEST(StringSharing, OnePointerWideAndEmptyStringsShareOneBlock) {
  EXPECT_EQ(sizeof(CString), sizeof(char*));
  CString a, b("");
  EXPECT_EQ(a.GetString(), b.GetString());
  EXPECT_STREQ("", a);
  EXPECT_TRUE(a.IsEmpty());
}

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
}

TEST(StringSharing, LockedBufferIsNeverShared) {
  CString a("data");
  char* p = a.LockBuffer();
  CString b = a;
  EXPECT_NE(p, b.GetString());
  CString c;
  c = a;
  EXPECT_NE(p, c.GetString());
  p[0] = 'D'; // writes through the lock reach only a
  EXPECT_STREQ("Data", a);
  EXPECT_STREQ("data", b);
  a = "abc"; // an assignment that fits stays in the locked block
  EXPECT_EQ(p, a.GetString());
  a.UnlockBuffer();
  CString d = a;
  EXPECT_EQ(a.GetString(), d.GetString());
}

// ---- Construction and assignment -------------------------------------------

TEST(StringConstruct, FromTheSupportedSources) {
  EXPECT_STREQ("abc", CString("abc"));
  EXPECT_STREQ("", CString((LPCSTR)NULL));
  EXPECT_EQ(std::string("ab\0c", 4), Str(CString("ab\0cd", 4)));
  EXPECT_STREQ("xxx", CString('x', 3));
  EXPECT_STREQ("", CString('x', -2));
  EXPECT_STREQ("wide", CString(L"wide"));
  EXPECT_STREQ("wi", CString(L"wide", 2));
  EXPECT_STREQ("uc", CString((const unsigned char*)"uc"));
  CString s;
  s = L"w";
  EXPECT_STREQ("w", s);
  s = 'c';
  EXPECT_STREQ("c", s);
  s = s; // self-assignment keeps the text
  EXPECT_STREQ("c", s);
}

TEST(StringConstruct, ResourceIdLoadsTheString) {
  CString s;
  ASSERT_TRUE(s.LoadString(AfxModule(), AFX_IDS_UNNAMED_FILE));
  EXPECT_STREQ("an unnamed file", s);
  EXPECT_FALSE(s.LoadString(AfxModule(), 0x7FF3)); // no such string: text kept
  EXPECT_STREQ("an unnamed file", s);
  // The MAKEINTRESOURCE form reads through the resource chain, which ends in
  // afx.dll.
  CString t(MAKEINTRESOURCEA(AFX_IDS_MEMORY_EXCEPTION));
  EXPECT_STREQ("Out of memory.", t);
}

TEST(StringConstruct, BadArgumentsFailCleanly) {
  CString s("keep");
  EXPECT_EQ("invalid-arg", ThrownBy([&] { s.SetString(NULL, 3); }));
  EXPECT_EQ("invalid-arg", ThrownBy([&] { s.SetString("abc", -1); }));
  EXPECT_EQ("invalid-arg", ThrownBy([&] { CString t("abc", -5); }));
  EXPECT_EQ("memory", ThrownBy([&] { s.GetBuffer(0x7FFFFFF0); }));
  EXPECT_EQ("memory", ThrownBy([&] { s.Preallocate(0x50000000); }));
  EXPECT_STREQ("keep", s);
  s.Append(NULL); // a null string appends nothing
  s += (LPCSTR)NULL;
  EXPECT_STREQ("keep", s);
  EXPECT_EQ(-1, s.Find((LPCSTR)NULL));
  EXPECT_EQ(0, CString("").Compare(NULL));
}

// ---- Access ----------------------------------------------------------------

TEST(StringAccess, IndexesAreCheckedAndTheTerminatorIsReadable) {
  CString s("abc");
  EXPECT_EQ('b', s[1]);
  EXPECT_EQ('c', s.GetAt(2));
  EXPECT_EQ('\0', s.GetAt(3));
  EXPECT_EQ("invalid-arg", ThrownBy([&] { s.GetAt(4); }));
  EXPECT_EQ("invalid-arg", ThrownBy([&] { s.GetAt(-1); }));
  EXPECT_EQ("invalid-arg", ThrownBy([&] { s.SetAt(3, 'x'); }));
  EXPECT_EQ("invalid-arg", ThrownBy([&] { s.SetAt(-1, 'x'); }));
  s.SetAt(2, 'Z');
  EXPECT_STREQ("abZ", s);
}

// ---- Concatenation ---------------------------------------------------------

TEST(StringConcat, OperatorsAndAppendForms) {
  CString a("ab"), b("cd");
  EXPECT_STREQ("abcd", a + b);
  EXPECT_STREQ("ab!", a + "!");
  EXPECT_STREQ("!ab", "!" + a);
  EXPECT_STREQ("abx", a + 'x');
  EXPECT_STREQ("xab", 'x' + a);
  CString s;
  s += a;
  s += "-";
  s += 'q';
  s += L"w";
  s.AppendChar('z');
  s.Append("12345", 2);
  EXPECT_STREQ("ab-qwz12", s);
  EXPECT_EQ(8, s.GetLength());
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

// ---- Comparison ------------------------------------------------------------

TEST(StringCompare, OrderAndCase) {
  CString s("Apple");
  EXPECT_EQ(0, s.Compare("Apple"));
  EXPECT_LT(s.Compare("apple"), 0);
  EXPECT_GT(s.Compare("Appl"), 0);
  EXPECT_EQ(0, s.CompareNoCase("aPPLE"));
  EXPECT_EQ(0, s.CollateNoCase("APPLE"));
  EXPECT_NE(0, s.Collate("Banana"));
  EXPECT_TRUE(s == "Apple");
  EXPECT_TRUE("Apple" == s);
  EXPECT_TRUE(s != CString("apple"));
  EXPECT_TRUE(s < "B");
  EXPECT_TRUE("B" > s);
  EXPECT_TRUE(s <= CString("Apple"));
  EXPECT_TRUE(s >= "Apple");
  EXPECT_TRUE(CString("x") == 'x');
  EXPECT_FALSE(CString("xy") == 'x');
}

// ---- Extraction ------------------------------------------------------------

TEST(StringExtract, MidLeftRightClampTheirArguments) {
  CString s("abcdef");
  EXPECT_STREQ("cd", s.Mid(2, 2));
  EXPECT_STREQ("cdef", s.Mid(2));
  EXPECT_STREQ("abcdef", s.Mid(INT_MIN));
  EXPECT_STREQ("", s.Mid(INT_MAX, INT_MAX));
  EXPECT_STREQ("ab", s.Mid(-3, 2));
  EXPECT_STREQ("ef", s.Mid(4, 100));
  EXPECT_STREQ("", s.Mid(10, 2));
  EXPECT_STREQ("", s.Mid(1, -1));
  EXPECT_STREQ("abc", s.Left(3));
  EXPECT_STREQ("", s.Left(-1));
  EXPECT_STREQ("abcdef", s.Left(99));
  EXPECT_STREQ("ef", s.Right(2));
  EXPECT_STREQ("abcdef", s.Right(99));
  EXPECT_STREQ("", s.Right(-4));
  EXPECT_EQ(s.GetString(), s.Mid(0).GetString()); // the whole string is shared
}

TEST(StringExtract, SpansAndTokens) {
  CString s("cabbage2024!");
  EXPECT_STREQ("cabbage", s.SpanIncluding("abcdefg"));
  EXPECT_STREQ("", s.SpanIncluding("xyz"));
  EXPECT_STREQ("cabbage", s.SpanExcluding("0123456789"));
  EXPECT_STREQ("cabbage2024", s.SpanExcluding("!?"));

  CString t("%First Second#Third");
  int pos = 0;
  EXPECT_STREQ("First", t.Tokenize("% #", pos));
  EXPECT_EQ(7, pos);
  EXPECT_STREQ("Second", t.Tokenize("% #", pos));
  EXPECT_STREQ("Third", t.Tokenize("% #", pos));
  EXPECT_STREQ("", t.Tokenize("% #", pos));
  EXPECT_EQ(-1, pos);

  CString u("  ,,");
  pos = 0;
  EXPECT_STREQ("", u.Tokenize(" ,", pos)); // delimiters only
  EXPECT_EQ(-1, pos);
  pos = 3;
  EXPECT_STREQ("ress", CString("address").Tokenize("", pos)); // no delimiters: the rest
  EXPECT_EQ(3, pos);
  pos = -1;
  EXPECT_EQ("invalid-arg", ThrownBy([&] { t.Tokenize(" ", pos); }));
}

// ---- Searching -------------------------------------------------------------

TEST(StringSearch, FindForms) {
  CString s("one two one");
  EXPECT_EQ(2, s.Find('e'));
  EXPECT_EQ(10, s.Find('e', 3));
  EXPECT_EQ(-1, s.Find('e', 11));
  EXPECT_EQ(-1, s.Find('e', -1));
  EXPECT_EQ(8, s.Find("one", 1));
  EXPECT_EQ(11, s.Find("", 11));
  EXPECT_EQ(-1, s.Find("one", 12));
  EXPECT_EQ(-1, s.Find("three"));
  EXPECT_EQ(10, s.ReverseFind('e'));
  EXPECT_EQ(-1, s.ReverseFind('z'));
  EXPECT_EQ(4, s.FindOneOf("wt"));
  EXPECT_EQ(-1, s.FindOneOf("xyz"));
}

// ---- Changes ---------------------------------------------------------------

TEST(StringChange, ReplaceRemoveAndCount) {
  CString s("a-b-c-d");
  EXPECT_EQ(3, s.Replace('-', '+'));
  EXPECT_STREQ("a+b+c+d", s);
  EXPECT_EQ(0, s.Replace('+', '+'));
  EXPECT_EQ(3, s.Replace("+", "<->"));
  EXPECT_STREQ("a<->b<->c<->d", s);
  EXPECT_EQ(3, s.Replace("<->", ""));
  EXPECT_STREQ("abcd", s);
  EXPECT_EQ(0, s.Replace("", "x"));
  EXPECT_EQ(0, s.Replace("zz", "x"));
  EXPECT_EQ(1, s.Replace("bc", NULL));
  EXPECT_STREQ("ad", s);

  CString t("banana");
  EXPECT_EQ(1, t.Replace("ana", "[ana]")); // matches do not overlap
  EXPECT_STREQ("b[ana]na", t);
  CString u("aaa");
  CString shared = u;
  EXPECT_EQ(3, u.Replace(u.Left(1), u)); // arguments from the string itself
  EXPECT_STREQ("aaaaaaaaa", u);
  EXPECT_STREQ("aaa", shared);

  CString r("mississippi");
  EXPECT_EQ(4, r.Remove('s'));
  EXPECT_STREQ("miiippi", r);
  EXPECT_EQ(0, r.Remove('z'));
}

TEST(StringChange, InsertAndDeleteClampIndexes) {
  CString s("SoccerBest");
  EXPECT_EQ(13, s.Insert(6, "is "));
  EXPECT_STREQ("Socceris Best", s);
  EXPECT_EQ(14, s.Insert(6, ' '));
  EXPECT_EQ(15, s.Insert(55, '!'));
  EXPECT_STREQ("Soccer is Best!", s);
  EXPECT_EQ(16, s.Insert(-5, '>'));
  EXPECT_STREQ(">Soccer is Best!", s);
  EXPECT_EQ(19, s.Insert(1, s.Left(3))); // its own text
  EXPECT_STREQ(">>SoSoccer is Best!", s);

  CString d("Soccer is best");
  EXPECT_EQ(11, d.Delete(6, 3));
  EXPECT_STREQ("Soccer best", d);
  EXPECT_EQ(6, d.Delete(6, 100));
  EXPECT_STREQ("Soccer", d);
  EXPECT_EQ(6, d.Delete(10, 2));
  EXPECT_EQ(5, d.Delete(-3));
  EXPECT_STREQ("occer", d);
  EXPECT_EQ(5, d.Delete(1, -2));
}

TEST(StringChange, TrimForms) {
  CString s(" \t text \r\n");
  EXPECT_STREQ("text", s.Trim());
  CString a("  x  ");
  EXPECT_STREQ("x  ", CString(a).TrimLeft());
  EXPECT_STREQ("  x", CString(a).TrimRight());
  EXPECT_STREQ("ab", CString("**ab**").Trim('*'));
  EXPECT_STREQ("ab**", CString("**ab**").TrimLeft('*'));
  EXPECT_STREQ("**ab", CString("**ab**").TrimRight('*'));
  EXPECT_STREQ("mid", CString("<[mid]>").Trim("<>[]"));
  EXPECT_STREQ("x<>", CString("<>x<>").TrimLeft("<>"));
  EXPECT_STREQ("", CString("   ").Trim());
  EXPECT_STREQ("ab", CString("ab").Trim((LPCSTR)NULL));
}

TEST(StringChange, CaseAndReverse) {
  CString s("MiXeD 123");
  CString copy = s;
  EXPECT_STREQ("MIXED 123", s.MakeUpper());
  EXPECT_STREQ("mixed 123", s.MakeLower());
  EXPECT_STREQ("321 dexim", s.MakeReverse());
  EXPECT_STREQ("MiXeD 123", copy);
  CString e;
  EXPECT_STREQ("", e.MakeUpper().MakeReverse());
}

// ---- Formatting ------------------------------------------------------------

TEST(StringFormat, ConversionsAsTheRuntimeWritesThem) {
  CString s;
  s.Format("%d %s %.2f", 42, "str", 3.14159);
  EXPECT_STREQ("42 str 3.14", s);
  s.Format("%05x|%-4s|%c|%I64d", 255, "ab", 'Q', (__int64)1 << 40);
  EXPECT_STREQ("000ff|ab  |Q|1099511627776", s);
  s.AppendFormat("+%d", 7);
  EXPECT_STREQ("000ff|ab  |Q|1099511627776+7", s);
  s.Format("");
  EXPECT_STREQ("", s);
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
  EXPECT_EQ("invalid-arg", ThrownBy([&] { s.Format((LPCSTR)NULL); }));
}

TEST(StringFormat, FormatMessageInserts) {
  CString s;
  s.FormatMessage("%2 before %1, %3!d! times", "one", "two", 5);
  EXPECT_STREQ("two before one, 5 times", s);
}

// ---- Raw buffers -----------------------------------------------------------

TEST(StringBuffer, GetAndReleaseBuffer) {
  CString s("abc");
  char* p = s.GetBuffer(20);
  EXPECT_GE(s.GetAllocLength(), 20);
  strcpy(p, "hello world");
  s.ReleaseBuffer();
  EXPECT_STREQ("hello world", s);
  EXPECT_EQ(11, s.GetLength());

  p = s.GetBuffer();
  p[5] = '\0';
  s.ReleaseBuffer();
  EXPECT_STREQ("hello", s);

  p = s.GetBufferSetLength(3);
  EXPECT_EQ(3, s.GetLength());
  p[0] = 'J';
  s.ReleaseBuffer();
  EXPECT_STREQ("Jel", s);

  s.GetBuffer(2);
  s.ReleaseBufferSetLength(2);
  EXPECT_STREQ("Je", s);
  s.Truncate(1);
  EXPECT_STREQ("J", s);
}

TEST(StringBuffer, ReleaseWithoutTerminatorOrTooLongIsBounded) {
  CString s;
  char* p = s.GetBufferSetLength(4);
  memset(p, 'x', s.GetAllocLength() + 1); // overwrites the terminator too
  s.ReleaseBuffer();
  EXPECT_EQ(s.GetAllocLength(), s.GetLength());
  EXPECT_EQ("invalid-arg", ThrownBy([&] { s.ReleaseBuffer(s.GetAllocLength() + 1); }));
  EXPECT_EQ("invalid-arg", ThrownBy([&] { s.ReleaseBuffer(-2); }));
  EXPECT_EQ("invalid-arg", ThrownBy([&] { s.Truncate(100); }));
}

TEST(StringBuffer, PreallocateAndFreeExtra) {
  CString s("abc");
  s.Preallocate(100);
  EXPECT_GE(s.GetAllocLength(), 100);
  EXPECT_STREQ("abc", s);
  const char* before = s.GetString();
  for (int i = 0; i < 90; i++)
    s += 'x';
  EXPECT_EQ(before, s.GetString()); // no reallocation while it fits
  s.FreeExtra();
  EXPECT_EQ(93, s.GetAllocLength());
  EXPECT_EQ(93, s.GetLength());
  s.Empty();
  EXPECT_TRUE(s.IsEmpty());
  EXPECT_EQ(CString().GetString(), s.GetString());
}

TEST(StringBuffer, WritingTheEmptyStringForksIt) {
  CString a, b;
  char* p = a.GetBuffer(5);
  strcpy(p, "new");
  a.ReleaseBuffer();
  EXPECT_STREQ("new", a);
  EXPECT_STREQ("", b);
  EXPECT_STREQ("", CString());
}

// ---- MBCS ------------------------------------------------------------------

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

TEST_F(StringMbcs, SearchingNeverMatchesATrailByte) {
  CString s("a\x83\x5C"
            "b\\");
  EXPECT_EQ(4, s.Find('\\'));
  EXPECT_EQ(4, s.ReverseFind('\\'));
  EXPECT_EQ(4, s.FindOneOf("\\"));
  EXPECT_EQ(1, s.Find("\x83\x5C"));
  CString t("\x83\x5C");
  EXPECT_EQ(-1, t.Find('\\'));
  EXPECT_EQ(-1, t.ReverseFind('\\'));
}

TEST_F(StringMbcs, EditsKeepCharactersWhole) {
  CString s("\x83\x5C\\");
  EXPECT_EQ(1, s.Replace('\\', '/'));
  EXPECT_STREQ("\x83\x5C/", s);
  CString r("\x83\x5C\\\\");
  EXPECT_EQ(2, r.Remove('\\'));
  EXPECT_STREQ("\x83\x5C", r);
  CString t("x\x83\x5C\\");
  EXPECT_STREQ("x\x83\x5C", t.TrimRight('\\'));
  CString v("\x83\x5C");
  EXPECT_STREQ("\x83\x5C", v.TrimRight("\\"));
  CString w("ab\x83\x5C");
  EXPECT_STREQ("\x83\x5C"
               "ba",
               w.MakeReverse());
  CString u("\x82\x61z");
  EXPECT_STREQ("\x82\x61Z", u.MakeUpper()); // the trail byte 'a' stays
}

TEST_F(StringMbcs, SpansAndTokensStepOverDoubleBytes) {
  CString s("\x83\x5C\\x");
  EXPECT_STREQ("\x83\x5C", s.SpanExcluding("\\"));
  int pos = 0;
  EXPECT_STREQ("\x83\x5C", s.Tokenize("\\", pos));
  EXPECT_STREQ("x", s.Tokenize("\\", pos));
}

TEST(StringMbcsAnsi, NativeDoubleByteCodePage) {
  UINT acp = GetACP();
  if (acp != 932 && acp != 936) GTEST_SKIP() << "ANSI code page " << acp << " is single-byte";
  // In both code pages 0x81 0x5C is one character ending in '\' 's value.
  CString s("\x81\x5C");
  EXPECT_EQ(-1, s.Find('\\'));
  EXPECT_EQ(2, CString(L"\x3000").GetLength());
}
