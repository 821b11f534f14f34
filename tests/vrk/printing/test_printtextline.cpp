// The text line parser's tokens and profile.
#include <vrk_printtextline.h>
#include <gtest/gtest.h>

#include <mbctype.h>
#include <string>
#include <vector>

namespace {

struct Tok {
  std::string text;
  int result, format, leader, newLine;
};

std::vector<Tok> Parse(const char* line) {
  VPrintTextLineParser parser;
  std::vector<Tok> toks;
  for (int guard = 0; guard < 100; guard++) {
    VPTLTOKEN t;
    int r = parser.GetNextToken(line, t);
    if (r == VNT_NOMORE) break;
    toks.push_back({std::string((LPCSTR)t.strText), r, t.nFormat, t.bLeader, t.bNewLine});
  }
  return toks;
}

std::string Describe(const std::vector<Tok>& toks) {
  std::string s;
  for (const Tok& t : toks) {
    s += "[";
    for (unsigned char c : t.text)
      s += c < 0x20 ? "<" + std::to_string(c) + ">" : std::string(1, (char)c);
    s += " r" + std::to_string(t.result) + " f" + std::to_string(t.format) + " l" +
         std::to_string(t.leader) + " n" + std::to_string(t.newLine) + "]";
  }
  return s;
}

} // namespace

// Each token as [text rResult fFormat lLeader nNewLine], control characters as <n>.
TEST(PrintTextLine, TokensAndTheAttributesMarkersCarry) {
  // clang-format off
  const struct { const char *line, *tokens; } cases[] = {
      // A marker's attributes belong to the next token (\034 leader, \036 right, \037 centre).
      {"Intro\034\03612", "[Intro r2 f0 l0 n0][12 r2 f2 l1 n0]"},
      // A leader marker does not end the token: its flag waits for the next one.
      {"a\034b\036c", "[ab r2 f0 l0 n0][c r2 f2 l1 n0]"},
      {"x\036", "[x r2 f0 l0 n0][ r2 f2 l0 n0]"}, // a marker at the end: an empty token
      // Doubled markers are literal; three in a row: one literal, then a marker.
      {"\036\036\036z", "[<30> r2 f0 l0 n0][z r2 f2 l0 n0]"},
      // An alignment set just before a line feed goes to the empty token it ends.
      {"a\036\nb", "[a r2 f0 l0 n0][ r3 f2 l0 n0][b r2 f0 l0 n1]"},
      {"\034\n\n", "[ r3 f0 l0 n0][ r3 f0 l1 n1][ r2 f0 l0 n1]"},
      {"", "[ r2 f0 l0 n0]"},
  };
  // clang-format on
  for (const auto& c : cases)
    EXPECT_EQ(c.tokens, Describe(Parse(c.line))) << Describe(Parse(c.line));
}

TEST(PrintTextLine, EndOfTextAndProfile) {
  VPrintTextLineParser parser;
  VPTLTOKEN t;
  EXPECT_EQ(VNT_TOKEN, parser.GetNextToken("end", t));
  t.strText = "kept";
  EXPECT_TRUE(parser.GetNextToken(NULL, t) == VNT_NOMORE && t.strText == "kept");
  VPTLPROFILE p = {7};
  EXPECT_EQ(0, VPrintTextLineParser::GetProfile(NULL, p));
  EXPECT_TRUE(VPrintTextLineParser::GetProfile("a\036b", p) && !p.bHasMarkers);
  EXPECT_TRUE(VPrintTextLineParser::GetProfile("a\034b", p) && p.bHasMarkers);
}

TEST(PrintTextLine, MultibyteCharactersStayWhole) {
  int old = _getmbcp();
  if (_setmbcp(932) != 0) GTEST_SKIP() << "code page 932 unavailable";
  // A lead byte right before the end must not step past the terminating zero.
  std::vector<Tok> toks = Parse("\x83\x5E\036b\x83");
  _setmbcp(old);
  EXPECT_EQ("[\x83\x5E r2 f0 l0 n0][b\x83 r2 f2 l0 n0]", Describe(toks));
}
