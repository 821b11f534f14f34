// Archive helpers: the slim number bytes, carriage-return lines and a
// document serialised through its own archive.
#include <vrk_mru.h>
#include <vrk_exception.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "archive_bytes.h"
#include "exception_probe.h"

#include <string.h>

namespace {

unsigned long ReadSlim(const std::string& bytes) {
  unsigned long value = 0xDEADBEEF;
  LoadBytes(bytes, [&](CArchive& ar) { VrkArReadSlim(ar, value); });
  return value;
}

// 65534 already takes the long form although the WORD form could hold it;
// the reader accepts its WORD form too.
TEST(ArSlim, EachFormAtItsBoundsBothWays) {
  const struct {
    unsigned long value;
    std::string bytes;
  } cases[] = {{0, std::string("\x00", 1)},
               {254, "\xFE"},
               {255, std::string("\xFF\xFF\x00", 3)},
               {65533, "\xFF\xFD\xFF"},
               {65534, std::string("\xFF\xFF\xFF\xFE\xFF\x00\x00", 7)},
               {0xFFFFFFFFUL, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.bytes, ArchiveBytes([&](CArchive& ar) { VrkArWriteSlim(ar, c.value); })) << c.value;
    EXPECT_EQ(c.value, ReadSlim(c.bytes)) << c.value;
  }
  EXPECT_EQ(65534UL, ReadSlim("\xFF\xFE\xFF"));
  EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([] { ReadSlim("\xFF\x01"); }));
  EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([] { ReadSlim("\xFF\xFF\xFF\x01\x02"); }));
  EXPECT_EQ(CArchiveException::readOnly,
            ArchiveCause([] { LoadBytes("x", [](CArchive& ar) { VrkArWriteSlim(ar, 1); }); }));
}

std::string ReadLine(const std::string& bytes, int limit) {
  char buffer[64];
  memset(buffer, '#', sizeof(buffer));
  LoadBytes(bytes, [&](CArchive& ar) {
    EXPECT_EQ(buffer, VrkArReadString(ar, buffer, (unsigned int)limit));
  });
  return buffer;
}

std::string ReadText(const std::string& bytes, CString* second = NULL) {
  CString text("old");
  LoadBytes(bytes, [&](CArchive& ar) {
    EXPECT_EQ(1, VrkArReadString(ar, text));
    if (second != NULL) VrkArReadString(ar, *second);
  });
  return std::string(text, text.GetLength());
}

// Only a carriage return ends a line: the byte after it is taken as the
// line feed whatever it is, and kept only with a negative limit. The end of
// the archive, even after that carriage return, and a NULL buffer throw.
TEST(ArReadString, OnlyCarriageReturnEndsALineTheLimitCutsAndCStringsTakeAnyLength) {
  EXPECT_EQ("abc", ReadLine("abc\r\nnext", 10));
  EXPECT_EQ("a\nbX", ReadLine("a\nb\rX", -10));
  LoadBytes("abcdef\r\n", [](CArchive& ar) {
    char buffer[8];
    memset(buffer, '#', sizeof(buffer));
    EXPECT_STREQ("abcd", VrkArReadString(ar, buffer, 4));
    EXPECT_EQ('#', buffer[5]); // nothing written past the terminator
    EXPECT_STREQ("ef", VrkArReadString(ar, buffer, 4));
  });
  for (const char* bytes : {"abc", "abc\r"})
    EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([&] { ReadLine(bytes, 10); })) << bytes;
  std::string message = ThrownMessage<VInvalidDataException>(
      [] { LoadBytes("abc\r\n", [](CArchive& ar) { VrkArReadString(ar, (char*)NULL, 10); }); });
  EXPECT_NE(std::string::npos, message.find(".\\vrk_archelpers.cpp")) << message;
  // The CString form: any length (the line end inside, at the end of, or
  // just after a 128-character chunk), without the line end.
  EXPECT_EQ("a\nb", ReadText("a\nb\r\n"));
  EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([] { ReadText("no line end"); }));
  for (size_t n : {0, 127, 128, 129, 300}) {
    const std::string line(n, 'a' + n % 26);
    CString second;
    EXPECT_EQ(line, ReadText(line + "\r\nnext\r\n", &second)) << n;
    EXPECT_STREQ("next", second) << n;
  }
}

class TestDocument : public CDocument {
public:
  CString text;
  LONG number = 0;
  bool failAfterText = false;
  CDocument* seenDocument = NULL;

  void Serialize(CArchive& ar) override {
    seenDocument = ar.m_pDocument;
    if (ar.IsStoring()) {
      ar << text;
      if (failAfterText) AfxThrowUserException();
      ar << number;
    } else {
      ar >> text >> number;
    }
  }
};

TEST(ArSerializeDocument, StoresAndLoadsThroughAnyFileAndPassesExceptionsOn) {
  CMemFile file;
  TestDocument out, in;
  out.text = "hello";
  out.number = 0x01020304;
  ASSERT_EQ(1, VrkArSerializeDocument(&out, &file, TRUE));
  EXPECT_EQ(&out, out.seenDocument);
  ASSERT_EQ(10u, (unsigned)file.GetLength());
  file.SeekToBegin();
  ASSERT_EQ(1, VrkArSerializeDocument(&in, &file, FALSE));
  EXPECT_EQ(&in, in.seenDocument);
  EXPECT_STREQ("hello", in.text);
  EXPECT_EQ(0x01020304, in.number);
  EXPECT_EQ(0, VrkArSerializeDocument(NULL, &file, TRUE));
  EXPECT_EQ(0, VrkArSerializeDocument(&out, NULL, TRUE));

  // The document's exception reaches the caller, and the archive was
  // closed first: what was stored before the throw is in the file.
  CMemFile partial;
  out.text = "abc";
  out.failAfterText = true;
  EXPECT_EQ(RUNTIME_CLASS(CUserException),
            ThrownClass([&] { VrkArSerializeDocument(&out, &partial, TRUE); }));
  EXPECT_EQ(4u, (unsigned)partial.GetLength());
  // Loading past the end: CArchive's own exception comes through.
  partial.SeekToBegin();
  EXPECT_EQ(CArchiveException::endOfFile,
            ArchiveCause([&] { VrkArSerializeDocument(&in, &partial, FALSE); }));
}

} // namespace
