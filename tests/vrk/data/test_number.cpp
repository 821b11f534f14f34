// VNumber through its run-time class: type names, text formats with their
// kept oddities, integer validation, boolean parsing, the archive bytes, and
// truncated archives.
#include "../../../vrk/data/vrk_number.h"
#include <gtest/gtest.h>
#include <windows.h>

#include "archive_bytes.h"
#include "exception_probe.h"

#include <memory>
#include <string.h>

namespace {

// A VNumber made the way hosts make it: by its class name. Nothing here
// imports from VRK.dll, so the library is loaded as a host's other uses would.
std::unique_ptr<VNumber> NewNumber() {
  static HMODULE hVrk = LoadLibraryA("VRK.dll");
  CRuntimeClass* pClass = hVrk != NULL ? CRuntimeClass::FromName("VNumber") : NULL;
  return std::unique_ptr<VNumber>(pClass ? static_cast<VNumber*>(pClass->CreateObject()) : NULL);
}

// A number loaded from its archive form: type, flags and the value bytes.
std::unique_ptr<VNumber> Loaded(BYTE type, BYTE flags, unsigned long long value) {
  std::unique_ptr<VNumber> n = NewNumber();
  std::string bytes(1, (char)type);
  bytes += (char)flags;
  bytes.append((const char*)&value, VNumber::GetTypeSize(type));
  LoadBytes(bytes, [&](CArchive& ar) { n->Serialize(ar); });
  return n;
}

std::string Text(const VNumber& n) {
  CString s("unchanged");
  return n.FormatText(s) ? std::string(s) : "FALSE:" + std::string(s);
}

// 'T' FormatText, 'S' FormatSigned, 'U' FormatUnsigned, 'B' FormatBinary.
std::string Format(char how, BYTE type, BYTE flags, unsigned long long value, int width) {
  std::unique_ptr<VNumber> n = Loaded(type, flags, value);
  if (how == 'T') return Text(*n);
  char buffer[256];
  memset(buffer, 0, sizeof(buffer));
  const BOOL ok = how == 'S'   ? n->FormatSigned(buffer, width, &flags)
                  : how == 'U' ? n->FormatUnsigned(buffer, width, &flags)
                               : n->FormatBinary(buffer, width);
  return ok ? buffer : "FALSE";
}

TEST(Number, TypeTableNamesAndSizes) {
  const struct {
    BYTE type;
    const char* name;
    int size;
  } table[] = {
      {0x10, "boolean", 0},          {0x20, "byte", 1},  {0x21, "word", 2},   {0x22, "dword", 4},
      {0x23, "unsigned __int64", 8}, {0x30, "char", 1},  {0x31, "short", 2},  {0x32, "int", 4},
      {0x33, "__int64", 8},          {0x40, "float", 4}, {0x41, "double", 8}, {0x24, "", 0}};
  for (const auto& row : table) {
    std::unique_ptr<VNumber> n = Loaded(row.type, 0, 0);
    CString name;
    EXPECT_EQ(row.name[0] != 0, n->GetTypeName(name) != FALSE) << (int)row.type;
    EXPECT_EQ(row.name, std::string(name)) << (int)row.type;
    EXPECT_EQ(row.size, n->GetSize()) << (int)row.type;
  }
  // A new number is empty; code 0 ("unknown") carries nothing and loads nothing.
  std::unique_ptr<VNumber> empty = NewNumber();
  ASSERT_TRUE(empty != nullptr);
  EXPECT_EQ("FALSE:unchanged", Text(*empty));
  EXPECT_EQ(std::string(1, '\0'), ArchiveBytes([&](CArchive& ar) { empty->Serialize(ar); }));
  std::unique_ptr<VNumber> n = Loaded(0x32, 0, 9);
  LoadBytes(std::string(1, '\0'), [&](CArchive& ar) { n->Serialize(ar); });
  EXPECT_EQ(std::string("\x32\0\x09\0\0\0", 6),
            ArchiveBytes([&](CArchive& ar) { n->Serialize(ar); }));
}

// FormatText passes the byte size as the bit width: the 64-bit types come
// out as their lowest byte and the narrower ones fail; floats give empty
// text. Width 64 prints the low half and the literal rest of "%i64".
TEST(Number, FormatsByWidthWithTheirKeptOddities) {
  const unsigned long long neg = 0xFFFFFFFFFFFF8085ULL;
  const struct {
    char how;
    BYTE type, flags;
    unsigned long long value;
    int width;
    std::string expected;
  } cases[] = {{'T', 0x33, 0, 261, 0, "5"},
               {'T', 0x23, 0, 0x1FF, 0, "255"},
               {'T', 0x33, 0, 0xFF, 0, "-1"},
               {'T', 0x33, 0x01, 0xFF, 0, "ffffffff"},
               {'T', 0x23, 0x04, 0x0F, 0, "17"},
               {'T', 0x32, 0, 5, 0, "FALSE:unchanged"},
               {'T', 0x33, 0x02, 0xFF, 0, "0"},
               {'T', 0x40, 0, 0x3F800000, 0, ""},
               {'T', 0x55, 0, 0, 0, "FALSE:unchanged"},
               {'T', 0x10, 0x10, 0, 0, "1"},
               {'S', 0x33, 0, neg, 8, "-123"},
               {'U', 0x33, 0, neg, 8, "133"},
               {'S', 0x33, 0, neg, 16, "-32635"},
               {'U', 0x33, 0x01, neg, 16, "8085"},
               {'U', 0x33, 0x04, neg, 16, "100205"},
               {'S', 0x33, 0x01, neg, 32, "ffff8085"},
               {'U', 0x33, 0, neg, 32, "-32635"},
               {'S', 0x33, 0, neg, 24, "FALSE"},
               {'S', 0x33, 0, 5, 64, "564"},
               {'S', 0x33, 0x01, 5, 64, "564"},
               {'U', 0x33, 0, neg, 64, "4294934661i64"},
               {'B', 0x23, 0, 5, 64, "1010"},
               {'B', 0x23, 0, 1ULL << 63, 64, "1" + std::string(64, '0')},
               {'B', 0x23, 0, 0x80000000, 32, "1"},
               {'B', 0x23, 0, 0xFFFF, 16, "0"},
               {'B', 0x23, 0, 5, 12, "FALSE"}};
  for (const auto& c : cases)
    EXPECT_EQ(c.expected, Format(c.how, c.type, c.flags, c.value, c.width))
        << c.how << " " << (int)c.type << " " << (int)c.flags << " " << c.width;
  // The binary flag sends the integer formats to the binary digits, which
  // write no terminator.
  std::unique_ptr<VNumber> n = Loaded(0x33, 0x02, 5);
  char buffer[8];
  memset(buffer, '#', sizeof(buffer));
  BYTE flags = 0x02;
  EXPECT_TRUE(n->FormatSigned(buffer, 64, &flags));
  EXPECT_EQ("1010####", std::string(buffer, 8));
  char* none = NULL;
  EXPECT_FALSE(n->FormatSigned(none, 8));
}

TEST(Number, ValidateIntegerRadixOverflowAndBadCharacters) {
  std::unique_ptr<VNumber> n = Loaded(0x32, 0, 77);
  const struct {
    const char* text;
    BYTE flags;
    int result, error, pos, length;
  } cases[] = {{"18446744073709551615", 0, 1, 0, 0, 0},
               {"fF", 0x01, 1, 0, 0, 0},
               {"17", 0x04, 1, 0, 0, 0},
               {"101", 0x02, 1, 0, 0, 0},
               // A leading zero or sign is an "overflow" at position 0.
               {"0", 0, 0, VNUM_ERROR_OVERFLOW, 0, 0},
               {"+5", 0, 0, VNUM_ERROR_OVERFLOW, 0, 0},
               {"18446744073709551616", 0, 0, VNUM_ERROR_OVERFLOW, 19, -1},
               // A bad character leaves the code as it was (99 here).
               {"12a", 0, 0, 99, 2, 2},
               {"12", 0x02, 0, 99, 1, -1},
               {"1+", 0, 0, 99, 1, -1}};
  for (const auto& c : cases) {
    tagVNumberError err;
    err.m_nError = 99;
    BYTE flags = c.flags;
    EXPECT_EQ(c.result, n->ValidateInteger(c.text, NULL, &flags, &err)) << c.text;
    if (c.result) continue;
    EXPECT_TRUE(c.error == err.m_nError && c.pos == err.m_nPos && c.text == err.m_strText &&
                (c.length < 0 || c.length == err.m_nLength))
        << c.text << ": " << err.m_nError << " " << err.m_nPos << " " << err.m_nLength;
  }
  tagVNumberError err;
  EXPECT_FALSE(n->ValidateInteger("12a", NULL, NULL, NULL) ||
               n->ValidateFloat("1.5", NULL, NULL, &err));
  char buffer[32] = ""; // nothing is stored
  EXPECT_TRUE(n->FormatSigned(buffer, 32) && strcmp("77", buffer) == 0) << buffer;
}

TEST(Number, ParseBooleanAcceptsOnlyZeroOrOneAndReplacesTheRecord) {
  std::unique_ptr<VNumber> n = Loaded(0x33, 0x01, 5);
  EXPECT_TRUE(n->ParseBoolean("1"));
  EXPECT_EQ(std::string("\x10\x10", 2), ArchiveBytes([&](CArchive& ar) { n->Serialize(ar); }));
  EXPECT_TRUE(n->ParseBoolean("0"));
  for (const char* text : {"2", "10", "", "x"}) {
    tagVNumberError e;
    EXPECT_FALSE(n->ParseBoolean(text, &e)) << text;
    EXPECT_TRUE(e.m_nError == VNUM_ERROR_BOOLEAN && e.m_nPos == (int)strlen(text)) << text;
  }
  EXPECT_FALSE(n->ParseBoolean(NULL, NULL));
  EXPECT_EQ("0", Text(*n)); // failures leave the value
}

TEST(NumberSerialize, CodeFlagsAndValueBytesAndTruncation) {
  EXPECT_EQ(std::string("\x32\x01\x78\x56\x34\x12", 6),
            ArchiveBytes([](CArchive& ar) { Loaded(0x32, 0x01, 0x12345678)->Serialize(ar); }));
  EXPECT_EQ(
      std::string("\x41\x00\x00\x00\x00\x00\x00\x00\xF0\x3F", 10),
      ArchiveBytes([](CArchive& ar) { Loaded(0x41, 0, 0x3FF0000000000000ULL)->Serialize(ar); }));
  EXPECT_EQ(std::string("\x66\x02", 2),
            ArchiveBytes([](CArchive& ar) { Loaded(0x66, 0x02, 0)->Serialize(ar); }));
  CString s;
  EXPECT_TRUE(Loaded(0x41, 0, 0x3FF8000000000000ULL)->FloatToText(s));
  EXPECT_EQ("1.5", std::string(s));

  // Truncated values leave the number as it was.
  std::unique_ptr<VNumber> n = Loaded(0x32, 0, 7);
  for (const std::string& bytes : {std::string("\x33\x00\x01\x02", 4), std::string()})
    EXPECT_EQ(CArchiveException::endOfFile,
              ArchiveCause([&] { LoadBytes(bytes, [&](CArchive& ar) { n->Serialize(ar); }); }));
  char buffer[32] = "";
  EXPECT_TRUE(n->FormatSigned(buffer, 32) && strcmp("7", buffer) == 0) << buffer;
}

} // namespace
