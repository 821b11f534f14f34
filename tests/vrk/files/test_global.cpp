// Global blocks with a cached lock, memory files, the byte carrier's archive
// form, and objects and strings moved through global memory. Damaged blocks
// are the subject of test_hostileblocks.
#include <vrk_global.h>
#include <gtest/gtest.h>

#include "archive_bytes.h"
#include "exception_probe.h"
#include "global_testing.h"
#include "vtable_slot.h"

#include <mbctype.h>
#include <string>

namespace {

// The virtual slots are Alloc, ReAlloc, Free, then the destructor.
TEST(VGlobal, SlotsCachedLockSwappedReAllocAttachDetachAndRelease) {
  EXPECT_EQ(0, Slot(&VGlobal::Alloc));
  EXPECT_EQ(1, Slot(&VGlobal::ReAlloc));
  EXPECT_EQ(2, Slot(&VGlobal::Free));
  VGlobal none(100, GMEM_MOVEABLE); // allocates nothing
  EXPECT_TRUE(none == NULL);
  VGlobal g;
  HGLOBAL h = g.Alloc(16, GMEM_MOVEABLE);
  char* p = (char*)g.Lock();
  ASSERT_NE((char*)NULL, p);
  EXPECT_TRUE(p == g.Lock() && LockCount(h) == 1); // a second Lock does not lock again
  memcpy(p, "0123456789abcdef", 16);
  g.Unlock();
  void* h2 = g.ReAlloc(GMEM_MOVEABLE, 5000); // the flags first, the size second
  ASSERT_TRUE(h2 != NULL && g.Size() >= 5000ul);
  EXPECT_EQ("0123456789abcdef", AllBytes(h2).substr(0, 16));
  HGLOBAL other = GlobalAlloc(GMEM_MOVEABLE, 30);
  EXPECT_EQ((void*)other, g = other); // the old block is neither freed nor unlocked
  EXPECT_GE(GlobalSize(h2), 5000u);
  g.Lock();
  EXPECT_EQ(other, g.Detach()); // unlocked and handed over
  EXPECT_TRUE(g == NULL && LockCount(other) == 0);
  HGLOBAL freed, destroyed;
  {
    VGlobal f, d;
    freed = f.Alloc(32, GMEM_MOVEABLE);
    f.Lock();
    f.Free();
    EXPECT_TRUE(f == NULL && GlobalSize(freed) == 0);
    destroyed = d.Alloc(32, GMEM_MOVEABLE);
    d.Lock();
  }
  EXPECT_EQ(0u, GlobalSize(destroyed)); // freed although locked
  GlobalFree(other);
  GlobalFree(h2);
}

TEST(VMemFile, CarriesANameAndRefusesANullName) {
  VMemFile file(16);
  file.SetFilePath("Report.doc");
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { file.SetFilePath(NULL); }));
  EXPECT_STREQ("Report.doc", file.GetFilePath());
}

TEST(ClipboardMemFileObject, ArchiveFormIsClassHeaderLengthAndBytesAndStoringEmpties) {
  VClipboardMemFileObject carrier;
  carrier.m_file.Write("\x01\x00\xFF", 3);
  EXPECT_EQ(std::string("\xFF\xFF\x00\x00\x17\x00", 6) + "VClipboardMemFileObject" +
                std::string("\x03\0\0\0\x01\x00\xFF", 7),
            WriteObjectBytes(&carrier));
  EXPECT_EQ(std::string(4, '\0'), ArchiveBytes([&](CArchive& ar) { carrier.Serialize(ar); }));
  // Loaded: a fixed file over its own buffer, not growable, handed on whole.
  LoadBytes(std::string("\x04\0\0\0wxyz", 8), [&](CArchive& ar) { carrier.Serialize(ar); });
  EXPECT_TRUE(carrier.m_bOwnsBuffer);
  carrier.m_file.SeekToEnd();
  EXPECT_EQ(CFileException::diskFull, FileCause([&] { carrier.m_file.Write("!", 1); }));
  EXPECT_EQ(std::string("\x04\0\0\0wxyz", 8),
            ArchiveBytes([&](CArchive& ar) { carrier.Serialize(ar); }));
  EXPECT_FALSE(carrier.m_bOwnsBuffer);
}

TEST(GlobalFromObject, TheBlockIsWriteObjectsBytesGrownInSteps) {
  CGlShape* shape = MakeShape();
  const std::string expected = WriteObjectBytes(shape); // CArchive's form, pinned by afx.archive
  tagVMemAllocGrowth growth = {16, 99};
  for (tagVMemAllocGrowth* pGrowth : {(tagVMemAllocGrowth*)NULL, &growth}) {
    HGLOBAL h = VrkCreateGlobalFromCObject(shape, pGrowth);
    const std::string all = AllBytes(h);
    EXPECT_EQ(pGrowth ? (expected.size() + 15) / 16 * 16 : 4096u, all.size());
    EXPECT_TRUE(expected + std::string(all.size() - expected.size(), '\0') == all && !LockCount(h));
    GlobalFree(h);
  }
  CMemFile plain; // known at run time, not serializable
  EXPECT_TRUE(!VrkCreateGlobalFromCObject(NULL, NULL) && !VrkCreateGlobalFromCObject(&plain, NULL));
  delete shape;
}

TEST(ObjectFromGlobal, RoundTripKeepsClassDataAndTheCallersBlock) {
  CGlShape* shape = MakeShape();
  HGLOBAL h = VrkCreateGlobalFromCObject(shape, NULL);
  const std::string before = AllBytes(h);
  CGlShape* copy = (CGlShape*)VrkCreateCObjectFromGlobal(h, RUNTIME_CLASS(CGlShape), NULL);
  ASSERT_TRUE(copy != NULL && copy->child != NULL);
  EXPECT_TRUE(copy->name == "outer" && copy->value == -7);
  EXPECT_EQ(RUNTIME_CLASS(CGlCircle), copy->child->GetRuntimeClass());
  delete copy;
  EXPECT_TRUE(before == AllBytes(h) && LockCount(h) == 0); // the block stays the caller's
  EXPECT_EQ(NULL, VrkCreateCObjectFromGlobal(h, NULL, NULL));
  GlobalFree(h);
  CGlShape* clone = (CGlShape*)VrkCloneObject(shape); // a deep copy
  ASSERT_TRUE(clone != NULL && clone->child != NULL && clone->child != shape->child);
  EXPECT_EQ(42, clone->child->value);
  delete clone;
  delete shape;
}

// Narrow blocks hold the character count plus one (fewer bytes than the
// string for double-byte characters), wide ones the whole string; reading
// back drops trailing zeros, keeps embedded ones; copies are whole. A plain
// narrow block and a missing one are the data-object and clipboard texts.
TEST(GlobalStrings, BothWaysAndCopies) {
  HGLOBAL h = VrkCreateGlobalFromString(L"ab\x20AC");
  EXPECT_EQ(std::string("a\0b\0\xAC\x20\0\0", 8), AllBytes(h));
  GlobalFree(h);
  EXPECT_EQ(NULL, VrkCreateGlobalFromString((const char*)NULL));
  const int old = _getmbcp(); // two Shift-JIS characters in four bytes
  ASSERT_EQ(0, _setmbcp(932));
  h = VrkCreateGlobalFromString("\x82\xA0\x82\xA2");
  _setmbcp(old);
  ASSERT_NE((HGLOBAL)NULL, h);
  EXPECT_TRUE(GlobalSize(h) == 3 && AllBytes(h).substr(0, 2) == "\x82\xA0");
  GlobalFree(h);
  CString str;
  struct {
    std::string block, text;
  } cases[] = {{std::string("abc\0\0\0\0\0\0\0", 10), "abc"},
               {std::string(10, '\0'), ""},
               {std::string("a\0b\0\0", 5), std::string("a\0b", 3)},
               {"no terminator", "no terminator"}};
  for (auto& c : cases) {
    HGLOBAL h = BlockOf(c.block);
    EXPECT_TRUE(VrkCreateCStringFromGlobal(h, str));
    EXPECT_EQ(c.text, std::string(str.GetString(), str.GetLength()));
    EXPECT_EQ(0u, LockCount(h));
    HGLOBAL copy = VrkGlobalCopy(h);
    EXPECT_EQ(c.block, AllBytes(copy));
    GlobalFree(copy);
    GlobalFree(h);
  }
}

} // namespace
