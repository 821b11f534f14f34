// CArchive: the exact bytes of MFC's persistent format, round trips, and
// each failure's CArchiveException cause.
#include <afx.h>
#include <gtest/gtest.h>
#include "archive_bytes.h"
#include "exception_probe.h"

#include <string>
#include <vector>

class CArcPoint : public CObject {
  DECLARE_SERIAL(CArcPoint)
public:
  CArcPoint(LONG x0 = 0, LONG y0 = 0) : x(x0), y(y0) {}
  void Serialize(CArchive& ar) override {
    if (ar.IsStoring())
      ar << x << y;
    else
      ar >> x >> y;
  }
  LONG x, y;
};
IMPLEMENT_SERIAL(CArcPoint, CObject, 1)

class CArcShape : public CObject {
  DECLARE_SERIAL(CArcShape)
public:
  void Serialize(CArchive& ar) override {
    if (ar.IsStoring()) {
      ar << name << a << b;
    } else {
      ar >> name >> a >> b;
    }
  }
  CString name;
  CArcPoint* a = NULL;
  CArcPoint* b = NULL;
};
IMPLEMENT_SERIAL(CArcShape, CObject, 2)

// Reads older schemas itself.
class CArcVersioned : public CObject {
  DECLARE_SERIAL(CArcVersioned)
public:
  void Serialize(CArchive& ar) override {
    if (ar.IsStoring()) {
      ar << value;
    } else {
      seenSchema = ar.GetObjectSchema();
      if (seenSchema >= 2) ar >> value;
    }
  }
  WORD value = 7;
  UINT seenSchema = 0;
};
IMPLEMENT_SERIAL(CArcVersioned, CObject, VERSIONABLE_SCHEMA | 3)

namespace {

// A loading archive over bytes (a fixed CMemFile: read in place).
struct Loading {
  explicit Loading(const std::string& b, int nBufSize = 4096, void* lpBuf = NULL)
      : bytes(b), file((BYTE*)&bytes[0], (UINT)bytes.size()),
        ar(&file, CArchive::load, nBufSize, lpBuf) {}
  std::string bytes;
  CMemFile file;
  CArchive ar;
};

std::string ClassRecord(WORD schema, const std::string& name) {
  std::string s("\xFF\xFF", 2);
  s += (char)(schema & 0xFF);
  s += (char)(schema >> 8);
  s += (char)(name.size() & 0xFF);
  s += (char)(name.size() >> 8);
  return s + name;
}

std::string Tag(WORD w) { return std::string{(char)(w & 0xFF), (char)(w >> 8)}; }

const std::string kPoint12 = std::string("\x01\x00\x00\x00\x02\x00\x00\x00", 8);

} // namespace

TEST(ArchivePrimitives, LittleEndianWidthsOfEveryOperator) {
  std::string bytes = ArchiveBytes([](CArchive& ar) {
    ar << (BYTE)0x01 << (WORD)0x0302 << (LONG)-2 << (DWORD)0x07060504;
    ar << 1.5f << 2.25 << (LONGLONG)-3 << (ULONGLONG)0x1122334455667788ULL;
    ar << (int)9 << (short)-1 << 'A' << L'\x263A' << (unsigned)10 << true << false;
  });
  EXPECT_EQ("01 02 03 FE FF FF FF 04 05 06 07 00 00 C0 3F 00 00 00 00 00 00 02 40 "
            "FD FF FF FF FF FF FF FF 88 77 66 55 44 33 22 11 09 00 00 00 FF FF 41 "
            "3A 26 0A 00 00 00 01 00",
            Hex(bytes));

  Loading in(bytes);
  BYTE by;
  WORD w;
  LONG l;
  DWORD dw;
  float f;
  double d;
  LONGLONG ll;
  ULONGLONG ull;
  int i;
  short sh;
  char ch;
  wchar_t wch;
  unsigned u;
  bool b1, b2;
  in.ar >> by >> w >> l >> dw >> f >> d >> ll >> ull >> i >> sh >> ch >> wch >> u >> b1 >> b2;
  // Stored again, the values give the same bytes: each went back to its own type.
  EXPECT_EQ(bytes, ArchiveBytes([&](CArchive& ar) {
              ar << by << w << l << dw << f << d << ll << ull << i << sh << ch << wch << u << b1
                 << b2;
            }));
  EXPECT_TRUE(b1 && !b2);
  EXPECT_TRUE(in.ar.IsBufferEmpty());
}

TEST(ArchiveCount, WordOrEscapedDword) {
  const struct {
    DWORD_PTR count;
    const char* hex;
  } cases[] = {{0, "00 00"},
               {0xFFFE, "FE FF"},
               {0xFFFF, "FF FF FF FF 00 00"},
               {0x12345, "FF FF 45 23 01 00"}};
  for (const auto& c : cases) {
    std::string bytes = ArchiveBytes([&](CArchive& ar) { ar.WriteCount(c.count); });
    EXPECT_EQ(c.hex, Hex(bytes)) << c.count;
    Loading in(bytes);
    EXPECT_EQ(c.count, in.ar.ReadCount()) << c.count;
  }
}

TEST(ArchiveString, LengthPrefixForEachSize) {
  struct Case {
    int length;
    std::string prefix;
  } cases[] = {{0, std::string("\x00", 1)},
               {3, "\x03"},
               {254, "\xFE"},
               {255, std::string("\xFF\xFF\x00", 3)},
               {0xFFFD, "\xFF\xFD\xFF"},
               {0xFFFE, std::string("\xFF\xFF\xFF\xFE\xFF\x00\x00", 7)},
               {70000, std::string("\xFF\xFF\xFF\x70\x11\x01\x00", 7)}};
  for (const Case& c : cases) {
    CString str('x', c.length);
    if (c.length > 0) str.SetAt(c.length - 1, 'y');
    std::string bytes = ArchiveBytes([&](CArchive& ar) { ar << str; });
    ASSERT_EQ(c.prefix.size() + c.length, bytes.size()) << c.length;
    EXPECT_EQ(Hex(c.prefix), Hex(bytes.substr(0, c.prefix.size()))) << c.length;
    Loading in(bytes);
    CString back;
    in.ar >> back;
    EXPECT_TRUE(back == str) << c.length;
  }
}

TEST(ArchiveString, WideFormsLoadAndAbsurdLengthsFailWithoutAllocating) {
  // 0xFF 0xFFFE marks UTF-16 characters; then the usual length prefix.
  std::string longWide("\xFF\xFE\xFF\xFF\x2C\x01", 6); // 300 characters
  for (int i = 0; i < 300; ++i)
    longWide += std::string(i == 299 ? "z\0" : "w\0", 2);
  const int eof = CArchiveException::endOfFile;
  const struct {
    std::string bytes;
    int cause; // -1: loads
    std::string text;
  } cases[] = {
      {std::string("\xFF\xFE\xFF\x03"
                   "a\0b\0c\0",
                   10),
       -1, "abc"},
      {longWide, -1, std::string(299, 'w') + "z"},
      // 0xFFFFFFFE characters claimed by a 20-byte file, 2 G wide ones, and
      // a string cut short.
      {std::string("\xFF\xFF\xFF\xFE\xFF\xFF\xFF"
                   "0123456789abc",
                   20),
       eof, ""},
      {std::string("\xFF\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7Fxyz", 13), eof, ""},
      {"\x05"
       "abc",
       eof, ""},
  };
  for (const auto& c : cases) {
    Loading in(c.bytes);
    CString s;
    EXPECT_EQ(c.cause, ArchiveCause([&] { in.ar >> s; })) << Hex(c.bytes);
    EXPECT_EQ(c.text, std::string((LPCTSTR)s)) << Hex(c.bytes);
  }
}

TEST(ArchiveText, WriteStringAndReadLines) {
  std::string bytes = ArchiveBytes([](CArchive& ar) {
    ar.WriteString("one\r\ntwo\n\nthree\rfour");
    ar.WriteString("");
  });
  EXPECT_EQ("one\r\ntwo\n\nthree\rfour", bytes);
  Loading in(bytes);
  CString line;
  std::vector<std::string> lines;
  while (in.ar.ReadString(line))
    lines.push_back((LPCTSTR)line);
  EXPECT_EQ((std::vector<std::string>{"one", "two", "", "three", "four"}), lines);

  Loading raw(bytes);
  char buf[16];
  EXPECT_STREQ("one\n", raw.ar.ReadString(buf, (UINT)-15)); // negative: keep the newline
  EXPECT_STREQ("tw", raw.ar.ReadString(buf, 2));            // stops at nMax
  EXPECT_STREQ("o", raw.ar.ReadString(buf, 15));
  EXPECT_STREQ("", raw.ar.ReadString(buf, 15));
  EXPECT_STREQ("three", raw.ar.ReadString(buf, 15));
  EXPECT_STREQ("four", raw.ar.ReadString(buf, 15));
  EXPECT_EQ(NULL, raw.ar.ReadString(buf, 15));
}

TEST(ArchiveObject, NewClassThenKnownClassThenSameObject) {
  CArcPoint p1(1, 2), p2(3, 4);
  std::string bytes = ArchiveBytes([&](CArchive& ar) {
    ar << &p1;                  // new class (id 1) and new object (id 2)
    ar << &p2;                  // known class 1: 0x8001, new object (id 3)
    ar << &p1;                  // object 2 again
    ar << (const CObject*)NULL; // the null object
  });
  std::string expected = ClassRecord(1, "CArcPoint") + kPoint12 + std::string("\x01\x80", 2) +
                         std::string("\x03\0\0\0\x04\0\0\0", 8) + std::string("\x02\x00", 2) +
                         std::string("\x00\x00", 2);
  EXPECT_EQ(Hex(expected), Hex(bytes));

  Loading in(bytes);
  CArcPoint *a, *b, *c, *d;
  in.ar >> a >> b >> c >> d;
  ASSERT_TRUE(a != NULL && b != NULL);
  EXPECT_EQ(1, a->x);
  EXPECT_EQ(4, b->y);
  EXPECT_EQ(a, c); // one object, not a copy
  EXPECT_EQ(NULL, d);
  delete a;
  delete b;
}

TEST(ArchiveObject, BigObjectAndClassTagsPastId7FFE) {
  // Class CArcPoint takes id 1; points take ids 2..0x7FFF.
  std::vector<CArcPoint> points(0x7FFE);
  for (size_t i = 0; i < points.size(); ++i)
    points[i].x = (LONG)i;
  CArcShape shape1, shape2;
  std::string bytes = ArchiveBytes([&](CArchive& ar) {
    for (CArcPoint& p : points)
      ar << &p;
    ar << &points.back();    // id 0x7FFF: the 32-bit form
    ar << &points[0];        // id 2: still a WORD
    ar.WriteObject(&shape1); // class CArcShape gets id 0x8000, shape1 0x8001
    ar.WriteObject(&shape2); // known class 0x8000: the 32-bit class form
  });
  size_t pos = ClassRecord(1, "CArcPoint").size() + 8 + (0x7FFE - 1) * 10;
  EXPECT_EQ("FF 7F FF 7F 00 00 02 00", Hex(bytes.substr(pos, 8)));
  pos += 8 + ClassRecord(2, "CArcShape").size() + 5; // shape1: name, two nulls
  EXPECT_EQ("FF 7F 00 80 00 80", Hex(bytes.substr(pos, 6)));

  Loading in(bytes);
  std::vector<CObject*> loaded;
  for (size_t i = 0; i < points.size() + 4; ++i)
    loaded.push_back(in.ar.ReadObject(NULL));
  EXPECT_EQ(loaded[0x7FFD], loaded[0x7FFE]);
  EXPECT_EQ(loaded[0], loaded[0x7FFF]);
  EXPECT_EQ(0x7FFD, ((CArcPoint*)loaded[0x7FFD])->x);
  EXPECT_TRUE(loaded[0x8000]->IsKindOf(RUNTIME_CLASS(CArcShape)));
  EXPECT_TRUE(loaded[0x8001]->IsKindOf(RUNTIME_CLASS(CArcShape)));
  EXPECT_NE(loaded[0x8000], loaded[0x8001]);
  for (size_t i = 0; i < 0x7FFE; ++i)
    delete loaded[i];
  delete loaded[0x8000];
  delete loaded[0x8001];
}

TEST(ArchiveSchema, VersionableClassSeesTheStoredSchema) {
  // Written with schema 1 (no value); the class is now at 3.
  std::string bytes = ClassRecord(1, "CArcVersioned") + std::string("\x01\x80", 2);
  Loading in(bytes);
  CArcVersioned* a = (CArcVersioned*)in.ar.ReadObject(RUNTIME_CLASS(CArcVersioned));
  CArcVersioned* b = (CArcVersioned*)in.ar.ReadObject(RUNTIME_CLASS(CArcVersioned));
  EXPECT_EQ(1u, a->seenSchema);
  EXPECT_EQ(1u, b->seenSchema); // the schema stays with the class id
  EXPECT_EQ(7, a->value);
  delete a;
  delete b;

  CArcVersioned current;
  current.value = 0x1234;
  std::string stored = ArchiveBytes([&](CArchive& ar) { ar << &current; });
  EXPECT_EQ(Hex(ClassRecord(3, "CArcVersioned") + "\x34\x12"), Hex(stored));
  Loading again(stored);
  CArcVersioned* c = (CArcVersioned*)again.ar.ReadObject(NULL);
  EXPECT_EQ(3u, c->seenSchema);
  EXPECT_EQ(0x1234, c->value);
  delete c;
}

TEST(ArchiveErrors, EachCause) {
  const std::string point = ClassRecord(1, "CArcPoint") + kPoint12;
  const int badClass = CArchiveException::badClass, badIndex = CArchiveException::badIndex;
  struct Case {
    std::string bytes;
    int nBefore;            // objects read first
    CRuntimeClass* pWanted; // what the failing read asks for
    int cause;
  } cases[] = {
      {ClassRecord(1, "CNoSuchClass") + kPoint12, 0, NULL, badClass},
      {point, 0, RUNTIME_CLASS(CArcShape), badClass},               // a class of the wrong kind
      {ClassRecord(1, std::string(64, 'C')), 0, NULL, badClass},    // a name too long
      {point + Tag(0x0002), 1, RUNTIME_CLASS(CArcShape), badClass}, // an earlier object, wrong kind
      {Tag(0x0005), 0, NULL, badIndex},                             // ids not given out yet
      {Tag(0x8005), 0, NULL, badIndex},
      {point + Tag(0x0001), 1, NULL, badIndex}, // a class's id where an object is wanted
      {point + Tag(0x8002), 1, NULL, badIndex}, // an object's id used as a class's
      {Tag(0x8000), 0, NULL, badIndex},         // class id 0 is the null object
      {ClassRecord(1, "CArcPoint") + "\x01\x00", 0, NULL, CArchiveException::endOfFile},
      {ClassRecord(2, "CArcPoint") + kPoint12, 0, NULL, CArchiveException::badSchema},
  };
  for (const Case& c : cases) {
    Loading in(c.bytes);
    std::vector<CObject*> read;
    for (int n = 0; n < c.nBefore; n++)
      read.push_back(in.ar.ReadObject(NULL));
    EXPECT_EQ(c.cause, ArchiveCause([&] { in.ar.ReadObject(c.pWanted); })) << Hex(c.bytes);
    for (CObject* pOb : read)
      delete pOb;
  }
  Loading objectId(Tag(0)); // ReadClass given an object's id
  EXPECT_EQ(badIndex, ArchiveCause([&] { objectId.ar.ReadClass(); }));
}

TEST(ArchiveFile, FlushRulesAndWhereALoadLeavesTheFile) {
  CMemFile file;
  {
    CArchive ar(&file, CArchive::store);
    ar << (DWORD)0xAABBCCDD;
    EXPECT_EQ(0u, file.GetLength()); // still in the archive's buffer
  }
  EXPECT_EQ(4u, file.GetLength());

  CMemFile kept;
  {
    CArchive ar(&kept, CArchive::store | CArchive::bNoFlushOnDelete);
    ar << (DWORD)1;
  }
  EXPECT_EQ(0u, kept.GetLength());

  // Loading leaves the file just after what was read.
  std::string bytes("ABCDEFGHIJ");
  CMemFile source((BYTE*)&bytes[0], (UINT)bytes.size());
  {
    CArchive ar(&source, CArchive::load);
    EXPECT_TRUE(ar.m_bDirectBuffer);
    WORD w;
    ar >> w;
    ar.Close();
  }
  EXPECT_EQ(2u, source.GetPosition());

  BYTE buf[16];
  CArchive ar(&source, CArchive::load, sizeof(buf), buf);
  BYTE by;
  ar >> by;
  EXPECT_EQ('C', by);
  ar.Close();
  EXPECT_EQ(3u, source.GetPosition());
}

TEST(ArchiveFile, BufferEdgesLargeBlocksAndFixedFiles) {
  std::string big(20000, '\0');
  for (size_t i = 0; i < big.size(); ++i)
    big[i] = (char)(i * 7);
  CMemFile file;
  {
    CArchive ar(&file, CArchive::store, 128);
    EXPECT_EQ(128u, ar.GetBufferSize());
    ar << (BYTE)1;
    ar.Write(big.data(), (UINT)big.size());
    ar << (BYTE)2;
  }
  ASSERT_EQ(big.size() + 2, file.GetLength());
  file.SeekToBegin();
  CArchive ar(&file, CArchive::load, 128, NULL);
  std::string back(big.size(), '\0');
  BYTE by;
  ar >> by;
  EXPECT_EQ(big.size(), ar.Read(&back[0], (UINT)back.size()));
  EXPECT_TRUE(back == big);
  ar >> by;
  EXPECT_EQ(2, by);
  ar.Close();

  // A small user buffer of odd size: values straddle its refills.
  CMemFile values;
  {
    CArchive out(&values, CArchive::store);
    for (LONG i = 0; i < 1000; ++i)
      out << i << (BYTE)i;
  }
  values.SeekToBegin();
  BYTE buf[11];
  CArchive in(&values, CArchive::load, sizeof(buf), buf);
  EXPECT_FALSE(in.m_bDirectBuffer);
  for (LONG i = 0; i < 1000; ++i) {
    LONG l;
    in >> l >> by;
    ASSERT_EQ(i, l);
    ASSERT_EQ((BYTE)i, by);
  }

  // A fixed buffer that is full: the flush fails as the file's write does.
  BYTE small[4];
  CMemFile fixed(small, sizeof(small));
  fixed.SetLength(0);
  CArchive full(&fixed, CArchive::store);
  full << (DWORD)1 << (BYTE)2;
  int cause = -1;
  try {
    full.Close();
  } catch (CFileException* e) {
    cause = e->m_cause;
    e->Delete();
  }
  EXPECT_EQ(CFileException::diskFull, cause);
}
