// Global blocks with a cached lock, memory files, the byte carrier's archive
// form, and objects and strings moved through global memory.
#include <vrk_global.h>
#include <gtest/gtest.h>

#include "archive_bytes.h"
#include "exception_probe.h"
#include "global_testing.h"

#include <mbctype.h>
#include <ole2.h>
#include <string>

namespace {

// ---- VGlobal -------------------------------------------------------------------

TEST(VGlobal, SizeConstructorAllocatesNothing) {
  VGlobal g(100, GMEM_MOVEABLE);
  EXPECT_TRUE(g == NULL);
  EXPECT_EQ((unsigned long)GlobalSize(NULL), g.Size());
  EXPECT_EQ(NULL, g.Lock());
}

TEST(VGlobal, LockTwiceThenUnlockOnceLeavesTheBlockUnlocked) {
  VGlobal g;
  HGLOBAL h = g.Alloc(64, GMEM_MOVEABLE | GMEM_ZEROINIT);
  ASSERT_NE((HGLOBAL)NULL, h);
  EXPECT_TRUE(g == h);
  char* p = (char*)g.Lock();
  ASSERT_NE((char*)NULL, p);
  EXPECT_EQ(p, g.Lock());
  EXPECT_EQ(1u, LockCount(h));
  strcpy(p, "kept");
  g.Unlock();
  EXPECT_EQ(0u, LockCount(h));
  EXPECT_EQ(std::string("kept\0", 5), Bytes(h, 5));
  EXPECT_GE(g.Size(), 64ul);
}

TEST(VGlobal, ReAllocTakesTheFlagsFirstAndTheSizeSecond) {
  VGlobal g;
  g.Alloc(16, GMEM_MOVEABLE);
  memcpy(g.Lock(), "0123456789abcdef", 16);
  g.Unlock();
  void* h = g.ReAlloc(GMEM_MOVEABLE, 5000);
  ASSERT_NE((void*)NULL, h);
  EXPECT_TRUE(g == h);
  EXPECT_GE(g.Size(), 5000ul);
  EXPECT_EQ("0123456789abcdef", Bytes(h, 16));
}

TEST(VGlobal, AllocAndAttachLeaveTheOldBlockAlone) {
  VGlobal g;
  HGLOBAL first = g.Alloc(10, GMEM_MOVEABLE);
  HGLOBAL second = g.Alloc(20, GMEM_MOVEABLE);
  EXPECT_NE(first, second);
  EXPECT_GE(GlobalSize(first), 10u); // still a live block
  HGLOBAL third = GlobalAlloc(GMEM_MOVEABLE, 30);
  EXPECT_EQ((void*)third, g = third);
  EXPECT_TRUE(g != second);
  EXPECT_GE(GlobalSize(second), 20u);
  g.Attach(first);
  EXPECT_EQ((void*)first, (void*)g);
  GlobalFree(second);
  GlobalFree(third);
}

TEST(VGlobal, DetachUnlocksAndHandsTheBlockOver) {
  HGLOBAL h;
  {
    VGlobal g;
    h = g.Alloc(32, GMEM_MOVEABLE);
    g.Lock();
    EXPECT_EQ(h, g.Detach());
    EXPECT_TRUE(g == NULL);
  }
  EXPECT_EQ(0u, LockCount(h));
  EXPECT_GE(GlobalSize(h), 32u);
  EXPECT_EQ(NULL, GlobalFree(h));
}

TEST(VGlobal, DestructorAndFreeReleaseTheBlockEvenWhenLocked) {
  HGLOBAL h;
  {
    VGlobal g;
    h = g.Alloc(32, GMEM_MOVEABLE);
    g.Lock();
  }
  EXPECT_EQ(0u, GlobalSize(h));
  VGlobal g;
  h = g.Alloc(32, GMEM_MOVEABLE);
  g.Lock();
  g.Free();
  EXPECT_TRUE(g == NULL);
  EXPECT_EQ(0u, GlobalSize(h));
}

// ---- VMemFile ------------------------------------------------------------------

TEST(VMemFile, CarriesANameButRefusesNull) {
  VMemFile file;
  file.SetFilePath("Report.doc");
  EXPECT_STREQ("Report.doc", file.GetFilePath());
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { file.SetFilePath(NULL); }));
  EXPECT_STREQ("Report.doc", file.GetFilePath());
}

TEST(VMemFile, ShowsItsCurrentBuffer) {
  VMemFile file(16);
  EXPECT_EQ(NULL, file.GetBuffer());
  file.Write("abc", 3);
  EXPECT_EQ(0, memcmp(file.GetBuffer(), "abc", 3));
  std::string big(1000, 'x');
  file.Write(big.data(), (UINT)big.size());
  EXPECT_EQ(0, memcmp(file.GetBuffer() + 3, big.data(), big.size()));

  unsigned char mine[8] = "fixed!!";
  VMemFile over(mine, sizeof mine, 0);
  EXPECT_EQ(mine, over.GetBuffer());
  EXPECT_EQ(8u, over.GetLength());
}

// ---- VClipboardMemFileObject ----------------------------------------------------

TEST(ClipboardMemFileObject, StoringWritesTheLengthAndBytesAndEmptiesTheObject) {
  VClipboardMemFileObject carrier;
  carrier.m_file.Write("hello", 5);
  EXPECT_EQ(std::string("\x05\0\0\0hello", 9),
            ArchiveBytes([&](CArchive& ar) { carrier.Serialize(ar); }));
  EXPECT_EQ(0u, carrier.m_file.GetLength());
  EXPECT_EQ(std::string(4, '\0'), ArchiveBytes([&](CArchive& ar) { carrier.Serialize(ar); }));
}

TEST(ClipboardMemFileObject, WriteObjectFormIsClassHeaderThenLengthAndBytes) {
  VClipboardMemFileObject carrier;
  carrier.m_file.Write("\x01\x00\xFF", 3);
  const std::string expected = std::string("\xFF\xFF\x00\x00\x17\x00", 6) +
                               "VClipboardMemFileObject" + std::string("\x03\0\0\0\x01\x00\xFF", 7);
  EXPECT_EQ(expected, WriteObjectBytes(&carrier));
}

TEST(ClipboardMemFileObject, LoadingGivesAFixedFileOverItsOwnBuffer) {
  VClipboardMemFileObject carrier;
  LoadBytes(std::string("\x04\0\0\0wxyz", 8), [&](CArchive& ar) { carrier.Serialize(ar); });
  EXPECT_TRUE(carrier.m_bOwnsBuffer);
  ASSERT_EQ(4u, carrier.m_file.GetLength());
  EXPECT_EQ(0, memcmp(carrier.m_file.GetBuffer(), "wxyz", 4));
  // Not growable: writing past the end finds the "disk" full.
  carrier.m_file.SeekToEnd();
  EXPECT_EQ(CFileException::diskFull, FileCause([&] { carrier.m_file.Write("!", 1); }));
  // Stored again, it hands the same bytes on.
  EXPECT_EQ(std::string("\x04\0\0\0wxyz", 8),
            ArchiveBytes([&](CArchive& ar) { carrier.Serialize(ar); }));
  EXPECT_FALSE(carrier.m_bOwnsBuffer);
}

TEST(ClipboardMemFileObject, ALengthBeyondTheArchiveFailsBeforeAllocating) {
  for (DWORD length : {5u, 0x100000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    VClipboardMemFileObject carrier;
    std::string bytes((const char*)&length, 4);
    bytes += "abcd";
    EXPECT_EQ(CArchiveException::endOfFile,
              ArchiveCause([&] { LoadBytes(bytes, [&](CArchive& ar) { carrier.Serialize(ar); }); }))
        << length;
    EXPECT_EQ(0u, carrier.m_file.GetLength());
    EXPECT_FALSE(carrier.m_bOwnsBuffer);
  }
}

// ---- objects in global blocks -----------------------------------------------------

TEST(GlobalFromObject, TheBlockHoldsWhatWriteObjectWritesThenZeros) {
  CGlShape* shape = MakeShape();
  const std::string expected = WriteObjectBytes(shape);
  // Class tag, schema 3, the name, then the shape's own data.
  ASSERT_EQ(std::string("\xFF\xFF\x03\x00\x08\x00"
                        "CGlShape\x05outer",
                        20),
            expected.substr(0, 20));
  HGLOBAL h = VrkCreateGlobalFromCObject(shape, NULL);
  ASSERT_NE((HGLOBAL)NULL, h);
  // Grown in steps of 4096 by default.
  EXPECT_EQ(4096u, GlobalSize(h));
  const std::string all = AllBytes(h);
  EXPECT_EQ(expected, all.substr(0, expected.size()));
  EXPECT_EQ(std::string(all.size() - expected.size(), '\0'), all.substr(expected.size()));
  EXPECT_EQ(0u, LockCount(h));
  EXPECT_EQ(0u, GlobalFlags(h) & GMEM_DISCARDABLE);
  GlobalFree(h);
  delete shape;
}

TEST(GlobalFromObject, TheGrowthStepSizesTheBlock) {
  CGlShape* shape = MakeShape();
  const size_t n = WriteObjectBytes(shape).size();
  tagVMemAllocGrowth growth = {16, 99};
  HGLOBAL h = VrkCreateGlobalFromCObject(shape, &growth);
  EXPECT_EQ((n + 15) / 16 * 16, GlobalSize(h));
  GlobalFree(h);
  growth.nGrowBytes = 0; // means 4096
  h = VrkCreateGlobalFromCObject(shape, &growth);
  EXPECT_EQ(4096u, GlobalSize(h));
  GlobalFree(h);
  delete shape;
}

TEST(GlobalFromObject, NullAndUnserializableObjectsGiveNoBlock) {
  CGlPlain plain;
  EXPECT_EQ(NULL, VrkCreateGlobalFromCObject(NULL, NULL));
  EXPECT_EQ(NULL, VrkCreateGlobalFromCObject(&plain, NULL));
}

TEST(ObjectFromGlobal, RoundTripKeepsTheClassAndTheDataAndTheBlock) {
  CGlShape* shape = MakeShape();
  HGLOBAL h = VrkCreateGlobalFromCObject(shape, NULL);
  const std::string before = AllBytes(h);
  CObject* ob = VrkCreateCObjectFromGlobal(h, RUNTIME_CLASS(CGlShape), NULL);
  ASSERT_NE((CObject*)NULL, ob);
  ASSERT_TRUE(ob->IsKindOf(RUNTIME_CLASS(CGlShape)));
  CGlShape* copy = (CGlShape*)ob;
  EXPECT_STREQ("outer", copy->name);
  EXPECT_EQ(-7, copy->value);
  ASSERT_NE((CGlShape*)NULL, copy->child);
  EXPECT_EQ(RUNTIME_CLASS(CGlCircle), copy->child->GetRuntimeClass());
  EXPECT_STREQ("inner", copy->child->name);
  // The block is still the caller's, whole and unlocked.
  EXPECT_EQ(before, AllBytes(h));
  EXPECT_EQ(0u, LockCount(h));
  delete copy;
  GlobalFree(h);
  // A base class may be asked for; CObject itself is no serializable class,
  // and the archive refuses to read one (as MFC's does).
  h = VrkCreateGlobalFromCObject(shape->child, NULL);
  CObject* circle = VrkCreateCObjectFromGlobal(h, RUNTIME_CLASS(CGlShape), NULL);
  ASSERT_NE((CObject*)NULL, circle);
  EXPECT_EQ(RUNTIME_CLASS(CGlCircle), circle->GetRuntimeClass());
  delete circle;
  EXPECT_EQ(RUNTIME_CLASS(CNotSupportedException), ThrownClass([&] {
              delete VrkCreateCObjectFromGlobal(h, RUNTIME_CLASS(CObject), NULL);
            }));
  EXPECT_EQ(0u, LockCount(h));
  GlobalFree(h);
  delete shape;
}

TEST(ObjectFromGlobal, BadBlocksThrowAndLeaveTheBlockAlive) {
  CGlShape* shape = MakeShape();
  const std::string good = WriteObjectBytes(shape);
  delete shape;
  std::string unknown = good;
  unknown.replace(6, 8, "CGlNoone");
  std::string other = good;
  other.replace(6, 8, "CGlOther");
  other[2] = 1; // its schema
  struct {
    std::string bytes;
    CRuntimeClass* pClass;
    int cause;
  } cases[] = {
      {good, RUNTIME_CLASS(CGlCircle), CArchiveException::badClass},
      {good, RUNTIME_CLASS(CGlOther), CArchiveException::badClass},
      {unknown, RUNTIME_CLASS(CGlShape), CArchiveException::badClass},
      {other, RUNTIME_CLASS(CGlShape), CArchiveException::badClass},
      // A class name cut short names no class.
      {good.substr(0, 10), RUNTIME_CLASS(CGlShape), CArchiveException::badClass},
      {good.substr(0, good.size() - 1), RUNTIME_CLASS(CGlShape), CArchiveException::endOfFile},
  };
  for (auto& c : cases) {
    HGLOBAL h = BlockOf(c.bytes);
    EXPECT_EQ(c.cause, ArchiveCause([&] { delete VrkCreateCObjectFromGlobal(h, c.pClass, NULL); }))
        << c.bytes.size() << " " << c.pClass->m_lpszClassName;
    EXPECT_EQ(c.bytes, AllBytes(h));
    EXPECT_EQ(0u, LockCount(h));
    GlobalFree(h);
  }
  HGLOBAL h = BlockOf(good);
  EXPECT_EQ(NULL, VrkCreateCObjectFromGlobal(NULL, RUNTIME_CLASS(CGlShape), NULL));
  EXPECT_EQ(NULL, VrkCreateCObjectFromGlobal(h, NULL, NULL));
  GlobalFree(h);
}

TEST(CloneObject, MakesADeepCopyThroughTheArchive) {
  CGlShape* shape = MakeShape();
  CObject* ob = VrkCloneObject(shape);
  ASSERT_NE((CObject*)NULL, ob);
  ASSERT_EQ(RUNTIME_CLASS(CGlShape), ob->GetRuntimeClass());
  CGlShape* clone = (CGlShape*)ob;
  EXPECT_NE(shape, clone);
  EXPECT_STREQ("outer", clone->name);
  ASSERT_NE((CGlShape*)NULL, clone->child);
  EXPECT_NE(shape->child, clone->child);
  EXPECT_EQ(42, clone->child->value);
  // The copy stands alone.
  clone->child->name = "changed";
  EXPECT_STREQ("inner", shape->child->name);
  delete clone;
  delete shape;
  EXPECT_EQ(NULL, VrkCloneObject(NULL));
}

// ---- strings in global blocks -------------------------------------------------------

TEST(GlobalFromString, NarrowBlocksAreTheCharacterCountPlusOne) {
  HGLOBAL h = VrkCreateGlobalFromString("hello");
  ASSERT_NE((HGLOBAL)NULL, h);
  EXPECT_EQ(6u, GlobalSize(h));
  EXPECT_EQ(std::string("hello\0", 6), AllBytes(h));
  EXPECT_EQ(0u, LockCount(h));
  GlobalFree(h);
  CString str("from a CString");
  h = VrkCreateGlobalFromCString(str);
  EXPECT_EQ(std::string("from a CString\0", 15), AllBytes(h));
  GlobalFree(h);
  EXPECT_EQ(NULL, VrkCreateGlobalFromString((const char*)NULL));
}

TEST(GlobalFromString, DoubleByteTextIsCutToItsCharacterCount) {
  const int old = _getmbcp();
  ASSERT_EQ(0, _setmbcp(932));
  // Two Shift-JIS characters in four bytes: the block gets three bytes.
  HGLOBAL h = VrkCreateGlobalFromString("\x82\xA0\x82\xA2");
  _setmbcp(old);
  ASSERT_NE((HGLOBAL)NULL, h);
  EXPECT_EQ(3u, GlobalSize(h));
  EXPECT_EQ("\x82\xA0", Bytes(h, 2));
  GlobalFree(h);
}

TEST(GlobalFromString, WideBlocksHoldEveryCharacterAndTheTerminator) {
  HGLOBAL h = VrkCreateGlobalFromString(L"ab\x20AC");
  ASSERT_NE((HGLOBAL)NULL, h);
  EXPECT_EQ(8u, GlobalSize(h));
  EXPECT_EQ(std::string("a\0b\0\xAC\x20\0\0", 8), AllBytes(h));
  GlobalFree(h);
  EXPECT_EQ(NULL, VrkCreateGlobalFromString((const wchar_t*)NULL));
}

TEST(StringFromGlobal, TrailingZerosGoEmbeddedZerosStay) {
  CString str = "untouched";
  EXPECT_FALSE(VrkCreateStringFromGlobal(NULL, str));
  EXPECT_STREQ("untouched", str);
  struct {
    std::string block;
    std::string text;
  } cases[] = {
      {std::string("abc\0\0\0\0\0\0\0", 10), "abc"},
      {std::string(10, '\0'), ""},
      {std::string("a\0b\0\0", 5), std::string("a\0b", 3)},
      {"no terminator", "no terminator"},
  };
  for (auto& c : cases) {
    HGLOBAL h = BlockOf(c.block);
    EXPECT_TRUE(VrkCreateStringFromGlobal(h, str));
    EXPECT_EQ(c.text, std::string(str.GetString(), str.GetLength()));
    EXPECT_TRUE(VrkCreateCStringFromGlobal(h, str));
    EXPECT_EQ(c.text, std::string(str.GetString(), str.GetLength()));
    EXPECT_EQ(0u, LockCount(h));
    GlobalFree(h);
  }
}

TEST(StringFromGlobal, WideTextBecomesASystemString) {
  wchar_t* psz = NULL;
  EXPECT_FALSE(VrkCreateStringFromGlobal(NULL, &psz));
  HGLOBAL h = VrkCreateGlobalFromString(L"wide text");
  ASSERT_TRUE(VrkCreateStringFromGlobal(h, &psz));
  EXPECT_EQ(9u, SysStringLen(psz));
  EXPECT_STREQ(L"wide text", psz);
  SysFreeString(psz);
  GlobalFree(h);
  // A block without a terminator ends the text at the block's end.
  h = BlockOf(std::string("x\0y\0", 4));
  ASSERT_TRUE(VrkCreateStringFromGlobal(h, &psz));
  EXPECT_STREQ(L"xy", psz);
  SysFreeString(psz);
  GlobalFree(h);
}

TEST(GlobalCopy, CopiesEveryByteIntoANewUnlockedBlock) {
  const std::string bytes("\x00\x01\x02\xFF tail", 9);
  HGLOBAL h = BlockOf(bytes);
  HGLOBAL copy = VrkGlobalCopy(h);
  ASSERT_NE((HGLOBAL)NULL, copy);
  EXPECT_NE(h, copy);
  EXPECT_EQ(bytes, AllBytes(copy));
  EXPECT_EQ(0u, LockCount(h));
  EXPECT_EQ(0u, LockCount(copy));
  GlobalFree(copy);
  GlobalFree(h);
}

// ---- streams over blocks -----------------------------------------------------

TEST(StreamOnGlobal, SetsTheSizeUnlessAskedNotTo) {
  IStream* stream = NULL;
  ASSERT_EQ(S_OK, VrkCreateStreamOnHGlobal(NULL, TRUE, &stream, 300));
  STATSTG stat;
  ASSERT_EQ(S_OK, stream->Stat(&stat, STATFLAG_NONAME));
  EXPECT_EQ(300u, stat.cbSize.QuadPart);
  stream->Release();

  // Over our block, which keeps its size and shows what the stream wrote.
  HGLOBAL h = BlockOf("0123456789");
  ASSERT_EQ(S_OK, VrkCreateStreamOnHGlobal(h, FALSE, &stream, 0xFFFFFFFF));
  ASSERT_EQ(S_OK, stream->Stat(&stat, STATFLAG_NONAME));
  EXPECT_EQ(10u, stat.cbSize.QuadPart);
  ULONG n;
  ASSERT_EQ(S_OK, stream->Write("AB", 2, &n));
  stream->Release();
  EXPECT_EQ("AB23456789", Bytes(h, 10));
  GlobalFree(h);

  EXPECT_EQ(E_INVALIDARG, VrkCreateStreamOnHGlobal(NULL, TRUE, NULL, 10));
}

} // namespace
