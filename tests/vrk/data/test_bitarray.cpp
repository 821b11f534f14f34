// VBoolArray and VBitArray: bit placement, ranges, whole-array tests, the
// Fill transfers and the exact archive bytes, and corrupt archives.
#include <vrk_bitarray.h>
#include <vrk_exception.h>
#include <gtest/gtest.h>

#include "archive_bytes.h"
#include "exception_probe.h"

namespace {

// Element i of the packed storage.
unsigned int Element(VBitArray& bits, int i) { return ((unsigned int*)bits.GetBuffer())[i]; }

TEST(BitArray, BitsLiveInTheirElementAndIndexesAreCheckedAgainstElements) {
  VBitArray bits;
  EXPECT_TRUE(bits.IsAllClear() && bits.IsAllSet()); // empty
  bits.SetSize(33);
  EXPECT_EQ(33, bits.GetSize());
  EXPECT_EQ(2, bits.GetCount()); // elements rounded up
  EXPECT_TRUE(bits.IsAllClear());
  bits.SetAt(0, TRUE);
  bits.SetAt(31, TRUE);
  bits.SetAt(32, 5); // any non-zero value sets
  EXPECT_TRUE(Element(bits, 0) == 0x80000001u && Element(bits, 1) == 1u);
  EXPECT_TRUE(bits[31] == TRUE && bits.GetAt(30) == FALSE);
  bits.SetAt(31, FALSE);
  EXPECT_EQ(1u, Element(bits, 0));
  // Bit 40 is past the bit count but inside element 1.
  EXPECT_EQ(FALSE, bits.GetAt(40));
  bits.SetAt(40, TRUE);
  EXPECT_EQ(TRUE, bits.GetAt(40));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bits.GetAt(64); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bits.SetAt(64, 1); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bits.GetAt(-1); }));
}

TEST(BitArray, SetBitsAndClearBitsTouchExactlyTheRange) {
  VBitArray bits;
  bits.SetSize(96);
  bits.SetBits(3, 5);
  EXPECT_EQ(0x38u, Element(bits, 0));
  bits.ClearAll();
  bits.SetBits(30, 65); // across three elements
  EXPECT_TRUE(Element(bits, 0) == 0xC0000000u && Element(bits, 1) == ~0u && Element(bits, 2) == 3);
  bits.SetBits(70); // to the last bit
  EXPECT_EQ(0xFFFFFFC3u, Element(bits, 2));
  EXPECT_TRUE(bits.IsAllSet() == FALSE);

  bits.SetAll();
  bits.ClearBits(31, 32);
  EXPECT_TRUE(Element(bits, 0) == 0x7FFFFFFFu && Element(bits, 1) == 0xFFFFFFFEu);
  bits.ClearBits(64);
  EXPECT_EQ(0u, Element(bits, 2));

  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bits.SetBits(0, 96); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { bits.ClearBits(96, 97); }));
  VBitArray empty;
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { empty.SetBits(0); }));
}

TEST(BitArray, SetAllKeepsUnusedBitsClearAndIsAllSetIgnoresThem) {
  for (unsigned int n : {1u, 31u, 32u, 33u, 64u, 100u}) {
    VBitArray bits;
    bits.SetSize(n);
    bits.SetAll();
    EXPECT_TRUE(bits.IsAllSet()) << n;
    EXPECT_FALSE(bits.IsAllClear()) << n;
    unsigned int last = Element(bits, bits.GetCount() - 1);
    EXPECT_EQ(n % 32 == 0 ? 0xFFFFFFFFu : (1u << (n % 32)) - 1, last) << n;
    bits.ClearBits(0, 0);
    EXPECT_FALSE(bits.IsAllSet()) << n;
    bits.ClearAll();
    EXPECT_TRUE(bits.IsAllClear()) << n;
  }
}

TEST(BitArray, FillTransfersBetweenBitsAndBytes) {
  VBitArray bits;
  bits.SetSize(20);
  bits.FillBitsFromByte(0xA5, 2, 8);
  EXPECT_EQ(0xA5u << 2, Element(bits, 0));
  bits.FillBitsFromByte(0x00, 2, 3); // clears only three bits
  EXPECT_EQ(0xA0u << 2, Element(bits, 0));
  // Positions at or beyond the bit count are skipped on write, read as 0.
  bits.FillBitsFromByte(0xFF, 16, 8);
  EXPECT_EQ(0xF0280u, Element(bits, 0));
  unsigned char by = 0x77;
  bits.FillByteFromBits(by, 16, 8);
  EXPECT_EQ(0x0F, by);
  bits.FillByteFromBits(by, 7, 8);
  EXPECT_EQ(0x05, by);
  unsigned short w = 0;
  bits.FillWordFromBits(w, 4, 16);
  EXPECT_EQ(0xF028, w);

  std::string m = ThrownMessage<VInvalidDataException>([&] { bits.FillByteFromBits(by, 0, 9); });
  EXPECT_NE(std::string::npos, m.find(".\\vrk_bitarray.cpp, line 386")) << m;
  m = ThrownMessage<VInvalidDataException>([&] { bits.FillBitsFromByte(1, 0, -1); });
  EXPECT_NE(std::string::npos, m.find(".\\vrk_bitarray.cpp, line 371")) << m;
  m = ThrownMessage<VInvalidDataException>([&] { bits.FillWordFromBits(w, 0, 17); });
  EXPECT_NE(std::string::npos, m.find(".\\vrk_bitarray.cpp, line 410")) << m;
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException),
            ThrownClass([&] { bits.FillBitsFromByte(1, -1, 2); }));
}

TEST(BitArraySerialize, WritesCountElementsAndBitCountAndCorruptArchivesStaySafe) {
  VBitArray bits;
  bits.SetSize(40);
  bits.SetBits(0, 3);
  bits.SetAt(39, TRUE);
  std::string bytes = ArchiveBytes([&](CArchive& ar) { bits.Serialize(ar); });
  EXPECT_EQ(std::string("\x02\x00"
                        "\x0F\x00\x00\x00"
                        "\x80\x00\x00\x00"
                        "\x28\x00\x00\x00",
                        14),
            bytes);
  VBitArray back;
  back.SetSize(7);
  back.SetAll();
  LoadBytes(bytes, [&](CArchive& ar) { back.Serialize(ar); });
  EXPECT_TRUE(back.GetSize() == 40 && back.GetCount() == 2);
  EXPECT_TRUE(Element(back, 0) == 0xFu && Element(back, 1) == 0x80u);

  VBoolArray flags;
  flags.Add(1);
  flags.Add(-2);
  EXPECT_EQ(std::string("\x02\x00\x01\x00\x00\x00\xFE\xFF\xFF\xFF", 10),
            ArchiveBytes([&](CArchive& ar) { flags.Serialize(ar); }));
  // An absurd count with nothing behind it: end of file, not a huge block.
  for (const std::string& bytes : {std::string("\xFF\xFF\xF0\xFF\xFF\x0F\x01\x00", 8),
                                   std::string("\x01\x00\x01\x00\x00\x00", 6)}) {
    VBitArray bits;
    EXPECT_EQ(CArchiveException::endOfFile,
              ArchiveCause([&] { LoadBytes(bytes, [&](CArchive& ar) { bits.Serialize(ar); }); }));
  }
  // A bit count far beyond the one element: every access is checked
  // against the elements, so it stays safe to use.
  LoadBytes(std::string("\x01\x00\x00\x00\x00\x00\xE8\x03\x00\x00", 10),
            [&](CArchive& ar) { back.Serialize(ar); });
  EXPECT_EQ(1000, back.GetSize());
  back.SetAll(); // the last element is masked to 1000 % 32 bits
  EXPECT_EQ(0xFFu, Element(back, 0));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { back.GetAt(100); }));
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { back.SetBits(0, 999); }));
}

} // namespace
