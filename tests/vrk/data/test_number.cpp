// VNumber through its run-time class: type names, text formats with their
// kept oddities, integer validation, boolean parsing, Dump and the archive
// bytes, plus 10,000 corrupt archives.
#include "../../../vrk/data/vrk_number.h"
#include <gtest/gtest.h>
#include <windows.h>

#include "data_testing.h"

#include <memory>
#include <string.h>

namespace {

// Nothing here imports from VRK.dll, so the linker may drop it: load it as
// a host's other uses of the library would.
CRuntimeClass* NumberClass() {
  static HMODULE hVrk = LoadLibraryA("VRK.dll");
  return hVrk != NULL ? CRuntimeClass::FromName("VNumber") : NULL;
}

// A VNumber made the way hosts make it: by its class name.
std::unique_ptr<VNumber> NewNumber() {
  CRuntimeClass* pClass = NumberClass();
  if (pClass == NULL) return nullptr;
  return std::unique_ptr<VNumber>(static_cast<VNumber*>(pClass->CreateObject()));
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

std::string Text(const VNumber& n, const BYTE* flags = NULL) {
  CString s("unchanged");
  return n.FormatText(s, flags) ? std::string(s) : "FALSE:" + std::string(s);
}

std::string Signed(const VNumber& n, int width, BYTE flags) {
  char buffer[256];
  memset(buffer, 0, sizeof(buffer));
  return n.FormatSigned(buffer, width, &flags) ? buffer : "FALSE";
}

std::string Unsigned(const VNumber& n, int width, BYTE flags) {
  char buffer[256];
  memset(buffer, 0, sizeof(buffer));
  return n.FormatUnsigned(buffer, width, &flags) ? buffer : "FALSE";
}

TEST(Number, IsCreatedByNameAndStartsEmpty) {
  CRuntimeClass* pClass = NumberClass();
  ASSERT_TRUE(pClass != NULL);
  EXPECT_STREQ("VNumber", pClass->m_lpszClassName);
  EXPECT_EQ(0xFFFFu, pClass->m_wSchema);
  std::unique_ptr<VNumber> n = NewNumber();
  EXPECT_TRUE(n->IsKindOf(RUNTIME_CLASS(CObject)));
  EXPECT_STREQ("VNumber", n->GetRuntimeClass()->m_lpszClassName);
  CString s("x");
  EXPECT_FALSE(n->GetTypeName(s));
  EXPECT_EQ("", std::string(s));
  EXPECT_EQ("FALSE:unchanged", Text(*n));
  char c = 'x';
  EXPECT_FALSE(n->BoolToChar(&c));
  EXPECT_EQ(0, n->GetSize());
  EXPECT_EQ(std::string(1, '\0'), ArchiveBytes([&](CArchive& ar) { n->Serialize(ar); }));
}

TEST(Number, TypeTableNamesAndSizes) {
  struct {
    BYTE type;
    const char* name;
    int size;
  } table[] = {{0x10, "boolean", 0},
               {0x20, "byte", 1},
               {0x21, "word", 2},
               {0x22, "dword", 4},
               {0x23, "unsigned __int64", 8},
               {0x30, "char", 1},
               {0x31, "short", 2},
               {0x32, "int", 4},
               {0x33, "__int64", 8},
               {0x40, "float", 4},
               {0x41, "double", 8},
               {0x24, "", 0},
               {0x77, "", 0}};
  for (const auto& row : table) {
    std::unique_ptr<VNumber> n = Loaded(row.type, 0, 0);
    CString name;
    EXPECT_EQ(row.name[0] != 0, n->GetTypeName(name) != FALSE) << (int)row.type;
    EXPECT_EQ(row.name, std::string(name)) << (int)row.type;
    EXPECT_EQ(row.size, n->GetSize()) << (int)row.type;
    EXPECT_EQ(row.size, VNumber::GetTypeSize(row.type));
  }
  // Code 0 ("unknown") carries nothing in an archive and loads nothing.
  EXPECT_EQ(0, VNumber::GetTypeSize(0));
  std::unique_ptr<VNumber> n = Loaded(0x32, 0, 9);
  LoadBytes(std::string(1, '\0'), [&](CArchive& ar) { n->Serialize(ar); });
  EXPECT_EQ("9", Signed(*n, 32, 0));
}

TEST(Number, FormatTextPassesTheByteSizeAsTheBitWidth) {
  // The 64-bit types come out as their lowest byte; the narrower ones fail.
  EXPECT_EQ("5", Text(*Loaded(0x33, 0, 261)));
  EXPECT_EQ("255", Text(*Loaded(0x23, 0, 0x1FF)));
  EXPECT_EQ("-1", Text(*Loaded(0x33, 0, 0xFF)));
  // Sign-extended before "%x" prints it.
  EXPECT_EQ("ffffffff", Text(*Loaded(0x33, 0x01, 0xFF)));
  EXPECT_EQ("ff", Text(*Loaded(0x23, 0x01, 0xFF)));
  EXPECT_EQ("17", Text(*Loaded(0x23, 0x04, 0x0F)));
  EXPECT_EQ("FALSE:unchanged", Text(*Loaded(0x32, 0, 5)));
  EXPECT_EQ("FALSE:unchanged", Text(*Loaded(0x20, 0, 5)));
  EXPECT_EQ("FALSE:unchanged", Text(*Loaded(0x21, 0, 5)));
  // Binary flags take the binary digits at width 8: always "0".
  EXPECT_EQ("0", Text(*Loaded(0x33, 0x02, 0xFF)));
  // The flags argument overrides the record's.
  const BYTE hex = 0x01;
  EXPECT_EQ("1f", Text(*Loaded(0x33, 0, 0x1F), &hex));
  // Floats format as empty text; unknown codes fail.
  EXPECT_EQ("", Text(*Loaded(0x40, 0, 0x3F800000)));
  EXPECT_EQ("", Text(*Loaded(0x41, 0, 0)));
  EXPECT_EQ("FALSE:unchanged", Text(*Loaded(0x55, 0, 0)));
  EXPECT_EQ("1", Text(*Loaded(0x10, 0x10, 0)));
  EXPECT_EQ("0", Text(*Loaded(0x10, 0x01, 0)));
}

TEST(Number, SignedAndUnsignedFormatsByWidth) {
  std::unique_ptr<VNumber> n = Loaded(0x33, 0, 0xFFFFFFFFFFFF8085ULL);
  EXPECT_EQ("-123", Signed(*n, 8, 0));
  EXPECT_EQ("133", Unsigned(*n, 8, 0));
  EXPECT_EQ("-32635", Signed(*n, 16, 0));
  EXPECT_EQ("32901", Unsigned(*n, 16, 0));
  EXPECT_EQ("8085", Unsigned(*n, 16, 0x01));
  EXPECT_EQ("100205", Unsigned(*n, 16, 0x04));
  EXPECT_EQ("ffff8085", Signed(*n, 32, 0x01));
  // "%d" on the unsigned 32-bit value too.
  EXPECT_EQ("-32635", Unsigned(*n, 32, 0));
  EXPECT_EQ("FALSE", Signed(*n, 24, 0));
  EXPECT_EQ("FALSE", Unsigned(*n, 4, 0));
  // Width 64: the low half in decimal and the literal rest of "%i64" /
  // "%ui64", whatever the flags.
  std::unique_ptr<VNumber> five = Loaded(0x33, 0, 5);
  EXPECT_EQ("564", Signed(*five, 64, 0));
  EXPECT_EQ("564", Signed(*five, 64, 0x01));
  EXPECT_EQ("5i64", Unsigned(*five, 64, 0));
  EXPECT_EQ("-32635"
            "64",
            Signed(*n, 64, 0));
  EXPECT_EQ("4294934661i64", Unsigned(*n, 64, 0));
  char* none = NULL;
  EXPECT_FALSE(five->FormatSigned(none, 8));
}

TEST(Number, BinaryDigitsKeepTheirNarrowWidthResults) {
  auto Binary = [](unsigned long long value, int width) {
    std::unique_ptr<VNumber> n = Loaded(0x23, 0, value);
    char buffer[80];
    memset(buffer, 0, sizeof(buffer));
    return n->FormatBinary(buffer, width) ? std::string(buffer) : "FALSE";
  };
  EXPECT_EQ("1010", Binary(5, 64));
  EXPECT_EQ("0", Binary(0, 64));
  EXPECT_EQ(std::string(64, '1') + "0", Binary(~0ULL, 64));
  EXPECT_EQ("1" + std::string(63, '0') + "0", Binary(1ULL << 63, 64));
  EXPECT_EQ("1", Binary(0x80000000, 32));
  EXPECT_EQ("0", Binary(0x7FFFFFFF, 32));
  EXPECT_EQ("0", Binary(5, 8));
  EXPECT_EQ("0", Binary(0xFFFF, 16));
  EXPECT_EQ("FALSE", Binary(5, 12));
  // The binary flag sends the integer formats here, and no terminator is
  // written.
  std::unique_ptr<VNumber> n = Loaded(0x33, 0x02, 5);
  char buffer[8];
  memset(buffer, '#', sizeof(buffer));
  BYTE flags = 0x02;
  EXPECT_TRUE(n->FormatSigned(buffer, 64, &flags));
  EXPECT_EQ("1010####", std::string(buffer, 8));
}

TEST(Number, ValidateIntegerRadixOverflowAndBadCharacters) {
  std::unique_ptr<VNumber> n = Loaded(0x32, 0, 77);
  auto Check = [&](const char* text, BYTE flags, tagVNumberError* err) {
    return n->ValidateInteger(text, NULL, &flags, err);
  };
  tagVNumberError err;
  EXPECT_TRUE(Check("10", 0, &err));
  EXPECT_TRUE(Check("18446744073709551615", 0, &err));
  EXPECT_TRUE(Check("fF", 0x01, &err));
  EXPECT_TRUE(Check("17", 0x04, &err));
  EXPECT_TRUE(Check("101", 0x02, &err));
  EXPECT_TRUE(Check(NULL, 0, &err));
  EXPECT_EQ(0, err.m_nError);
  EXPECT_EQ("", std::string(err.m_strText));

  // A leading zero or sign is an "overflow" at position 0.
  for (const char* text : {"0", "05", "+5", "-5"}) {
    tagVNumberError e;
    EXPECT_FALSE(Check(text, 0, &e)) << text;
    EXPECT_EQ(VNUM_ERROR_OVERFLOW, e.m_nError) << text;
    EXPECT_EQ(0, e.m_nPos) << text;
    EXPECT_EQ(0, e.m_nLength) << text;
    EXPECT_EQ(text, std::string(e.m_strText));
  }
  tagVNumberError big;
  EXPECT_FALSE(Check("18446744073709551616", 0, &big));
  EXPECT_EQ(VNUM_ERROR_OVERFLOW, big.m_nError);
  EXPECT_EQ(19, big.m_nPos);

  // A bad character leaves the code as it was.
  tagVNumberError bad;
  bad.m_nError = 99;
  EXPECT_FALSE(Check("12a", 0, &bad));
  EXPECT_EQ(99, bad.m_nError);
  EXPECT_EQ(2, bad.m_nPos);
  EXPECT_EQ(2, bad.m_nLength);
  EXPECT_EQ("12a", std::string(bad.m_strText));
  EXPECT_FALSE(Check("12", 0x02, &bad));
  EXPECT_EQ(1, bad.m_nPos);
  EXPECT_FALSE(Check("78", 0x04, &bad));
  EXPECT_EQ(1, bad.m_nPos);
  EXPECT_FALSE(Check("1g", 0x01, &bad));
  EXPECT_FALSE(Check("1+", 0, &bad)); // a sign past the first place
  EXPECT_EQ(1, bad.m_nPos);
  EXPECT_FALSE(Check("12a", 0, NULL));

  // Nothing is stored; floats never validate.
  EXPECT_EQ("FALSE:unchanged", Text(*n));
  EXPECT_EQ("77", Signed(*n, 32, 0));
  EXPECT_FALSE(n->ValidateFloat("1.5", NULL, NULL, &err));
}

TEST(Number, ParseBooleanAcceptsOnlyZeroOrOne) {
  std::unique_ptr<VNumber> n = NewNumber();
  tagVNumberError err;
  EXPECT_TRUE(n->ParseBoolean("1", &err));
  EXPECT_EQ("1", Text(*n));
  CString name;
  n->GetTypeName(name);
  EXPECT_EQ("boolean", std::string(name));
  EXPECT_TRUE(n->ParseBoolean("0"));
  EXPECT_EQ("0", Text(*n));
  for (const char* text : {"2", "10", "", "x"}) {
    tagVNumberError e;
    EXPECT_FALSE(n->ParseBoolean(text, &e)) << text;
    EXPECT_EQ(VNUM_ERROR_BOOLEAN, e.m_nError) << text;
    EXPECT_EQ((int)strlen(text), e.m_nPos) << text;
    EXPECT_EQ(text, std::string(e.m_strText));
  }
  EXPECT_FALSE(n->ParseBoolean(NULL, NULL));
  EXPECT_EQ("0", Text(*n)); // failures leave the value
  // Parsing replaces an integer record.
  std::unique_ptr<VNumber> i = Loaded(0x33, 0x01, 5);
  EXPECT_TRUE(i->ParseBoolean("1"));
  EXPECT_EQ(std::string("\x10\x10", 2), ArchiveBytes([&](CArchive& ar) { i->Serialize(ar); }));
}

TEST(Number, DumpWritesOneLine) {
  std::unique_ptr<VNumber> n = Loaded(0x33, 0, 261);
  CMemFile file;
  CDumpContext dc(&file);
  n->Dump(dc);
  dc.Flush();
  std::string text((size_t)file.GetLength(), '\0');
  file.SeekToBegin();
  file.Read(&text[0], (UINT)text.size());
  EXPECT_EQ("VNumber: Data Type [__int64]\tSize [8]\tFormatted [5]\n", text);
}

TEST(NumberSerialize, StoresCodeFlagsAndValueBytes) {
  EXPECT_EQ(std::string("\x32\x01\x78\x56\x34\x12", 6),
            ArchiveBytes([](CArchive& ar) { Loaded(0x32, 0x01, 0x12345678)->Serialize(ar); }));
  EXPECT_EQ(std::string("\x21\x04\x34\x12", 4),
            ArchiveBytes([](CArchive& ar) { Loaded(0x21, 0x04, 0x1234)->Serialize(ar); }));
  EXPECT_EQ(
      std::string("\x41\x00\x00\x00\x00\x00\x00\x00\xF0\x3F", 10),
      ArchiveBytes([](CArchive& ar) { Loaded(0x41, 0, 0x3FF0000000000000ULL)->Serialize(ar); }));
  EXPECT_EQ(std::string("\x10\x10", 2),
            ArchiveBytes([](CArchive& ar) { Loaded(0x10, 0x10, 0)->Serialize(ar); }));
  EXPECT_EQ(std::string("\x66\x02", 2),
            ArchiveBytes([](CArchive& ar) { Loaded(0x66, 0x02, 0)->Serialize(ar); }));
  std::unique_ptr<VNumber> d = Loaded(0x41, 0, 0x3FF8000000000000ULL);
  CString s;
  EXPECT_TRUE(d->FloatToText(s));
  EXPECT_EQ("1.5", std::string(s));
  EXPECT_FALSE(Loaded(0x32, 0, 1)->FloatToText(s));
  EXPECT_TRUE(Loaded(0x32, 0, 0xFFFFFFFF)->IntegerToText(s));
  EXPECT_EQ("-1", std::string(s));
}

TEST(NumberSerialize, CorruptArchivesFailWithArchiveExceptions) {
  // Truncated values leave the number as it was.
  std::unique_ptr<VNumber> n = Loaded(0x32, 0, 7);
  EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([&] {
              LoadBytes(std::string("\x33\x00\x01\x02", 4),
                        [&](CArchive& ar) { n->Serialize(ar); });
            }));
  EXPECT_EQ("7", Signed(*n, 32, 0));
  EXPECT_EQ(CArchiveException::endOfFile,
            ArchiveCause([&] { LoadBytes("", [&](CArchive& ar) { n->Serialize(ar); }); }));

  const std::string good("\x41\x05\x01\x02\x03\x04\x05\x06\x07\x08", 10);
  Mutator mutator(4100);
  int failures = 0, loads = 0;
  for (int i = 0; i < 10000; i++) {
    const std::string bad = mutator.Mutate(good);
    try {
      std::unique_ptr<VNumber> m = NewNumber();
      LoadBytes(bad, [&](CArchive& ar) { m->Serialize(ar); });
      CString s;
      m->FormatText(s);
      char buffer[256];
      m->FormatSigned(buffer, 64);
      loads++;
    } catch (CArchiveException* e) {
      failures++;
      e->Delete();
    }
  }
  EXPECT_GT(failures, 1000);
  EXPECT_GT(loads, 1000);
}

} // namespace
