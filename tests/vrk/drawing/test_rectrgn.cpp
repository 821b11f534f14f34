// Rectangle regions and the rectangle array's archive form.
#include <vrk_rectrgn.h>
#include <exception_probe.h>
#include <gtest/gtest.h>

#include "archive_bytes.h"

#include <random>
#include <string>
#include <vector>

namespace {

class TestRgn : public VRectRgn {
public:
  using VRectRgn::SubtractRects;
  std::vector<CRect> Vector() const {
    std::vector<CRect> v;
    for (int pos = GetFirstRectPosition(); pos != 0;)
      v.push_back(GetNextRect(pos));
    return v;
  }
  std::string Rects() const { return Str(Vector()); }
  static std::string Str(const std::vector<CRect>& v) {
    std::string s;
    for (const CRect& r : v)
      s += "(" + std::to_string(r.left) + "," + std::to_string(r.top) + "," +
           std::to_string(r.right) + "," + std::to_string(r.bottom) + ")";
    return s;
  }
};

std::string Str(const VCellRectArray& a) {
  return TestRgn::Str(std::vector<CRect>(a.GetData(), a.GetData() + a.GetSize()));
}

} // namespace

// Cut pieces come left, right, top, bottom; touching rectangles cut nothing.
TEST(RectRgnAddRemove, FragmentsInOrder) {
  TestRgn rgn;
  const CRect left(0, 0, 4, 10), right(6, 0, 10, 10), across(-2, 2, 12, 4), inside(1, 1, 2, 2);
  EXPECT_EQ(0, rgn.AddRect(NULL));
  rgn.AddRect(&left);
  rgn.AddRect(&right);
  EXPECT_EQ(1, rgn.AddRect(&inside)); // nothing new
  rgn.AddRect(&across);
  EXPECT_EQ("(0,0,4,10)(6,0,10,10)(-2,2,0,4)(4,2,6,4)(10,2,12,4)", rgn.Rects());
  VCellRectArray none;
  EXPECT_EQ(0, rgn.SubtractRects(NULL, &left, none) + rgn.SubtractRects(&left, NULL, none));

  TestRgn cut;
  const CRect a(0, 0, 10, 10), b(20, 0, 30, 10), hole(3, 3, 6, 6), corner(25, -5, 40, 5),
      touching(10, 0, 20, 10), distant(100, 100, 110, 110);
  cut.AddRect(&a);
  cut.AddRect(&b);
  EXPECT_EQ(0, cut.RemoveRect(&distant) + cut.RemoveRect(&touching) + cut.RemoveRect(NULL));
  EXPECT_EQ(2, cut.RemoveRect(&hole) + cut.RemoveRect(&corner));
  EXPECT_EQ("(0,3,3,6)(6,3,10,6)(0,0,10,3)(0,6,10,10)(20,0,25,5)(20,5,30,10)", cut.Rects());
  const CRect all(-100, -100, 100, 100);
  EXPECT_TRUE(cut.RemoveRect(&all) == 1 && cut.GetFirstRectPosition() == 0);
}

TEST(RectRgnAddRemove, RandomAddsNeverOverlapAndCoverTheSamePoints) {
  std::mt19937 rng(1234);
  std::uniform_int_distribution<int> coord(0, 20);
  for (int round = 0; round < 40; round++) {
    TestRgn rgn;
    VRectRgn direct; // the same rectangles, overlaps kept
    for (int k = 0; k < 8; k++) {
      int l = coord(rng), t = coord(rng);
      CRect r(l, t, l + 1 + coord(rng) / 2, t + 1 + coord(rng) / 2);
      rgn.AddRect(&r);
      direct.AddRectDirect(&r);
    }
    std::vector<CRect> v = rgn.Vector();
    for (size_t i = 0; i < v.size(); i++)
      for (size_t j = i + 1; j < v.size(); j++) {
        CRect x;
        ASSERT_FALSE(x.IntersectRect(&v[i], &v[j])) << rgn.Rects();
      }
    for (int x = -1; x < 32; x++)
      for (int y = -1; y < 32; y++)
        ASSERT_EQ(direct.PtInRgn(CPoint(x, y)), rgn.PtInRgn(CPoint(x, y))) << x << "," << y;
  }
}

// A run of rows is merged by their tops only, keeping its first rectangle's sides.
TEST(RectRgnSimplify, RowsAreSortedAndMergedByTopOnly) {
  // clang-format off
  const struct { std::vector<CRect> rects; int result; const char* expected; } cases[] = {
      {{CRect(0, 0, 10, 5), CRect(0, 5, 10, 10)}, 1, "(0,0,10,10)"},
      {{CRect(0, 0, 10, 10)}, 0, "(0,0,10,10)"},
      {{CRect(0, 2, 4, 3), CRect(0, 5, 4, 6), CRect(0, 1, 4, 2), CRect(0, 3, 4, 4)}, 1,
       "(0,5,4,6)(0,1,4,4)"},
      {{CRect(0, 5, 4, 6), CRect(0, 1, 4, 2), CRect(6, 5, 8, 6)}, 0, "(0,5,4,6)(6,5,8,6)(0,1,4,2)"},
      {{CRect(0, 9, 10, 10), CRect(3, 8, 4, 9), CRect(0, 0, 1, 1)}, 1, "(0,8,10,10)(0,0,1,1)"}};
  // clang-format on
  for (const auto& c : cases) {
    TestRgn rgn;
    for (const CRect& r : c.rects)
      rgn.AddRectDirect(r);
    EXPECT_EQ(c.result, rgn.SimplifyRgn()) << c.expected;
    EXPECT_EQ(c.expected, rgn.Rects());
  }
}

// Backward walks clamp at the first element; the box ignores empty rectangles.
TEST(RectRgnWalk, TheAsymmetricBoundsTheBoxAndPoints) {
  TestRgn rgn;
  int pos = 0;
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { rgn.GetPrevRect(pos); }));
  rgn.AddRectDirect(CRect(5, 5, 5, 9)); // zero width
  rgn.AddRectDirect(CRect(0, 0, 4, 4));
  rgn.AddRectDirect(CRect(2, 2, 8, 6)); // overlaps: direct adds allow it
  std::vector<LONG> back;
  for (pos = rgn.GetLastRectPosition(); pos != 0;)
    back.push_back(rgn.GetPrevRect(pos).left);
  EXPECT_EQ((std::vector<LONG>{2, 0, 5}), back);
  pos = -7;
  EXPECT_TRUE(rgn.GetPrevRect(pos).left == 5 && pos == 0);
  for (int bad : {0, 4}) {
    pos = bad;
    EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { rgn.GetNextRect(pos); }));
  }
  CRect box;
  rgn.GetRectBox(&box);
  EXPECT_EQ(CRect(0, 0, 8, 6), box);
  EXPECT_EQ(1, rgn.PtInRgn(CPoint(7, 5)));
  EXPECT_EQ(0, rgn.PtInRgn(CPoint(8, 5)) + rgn.PtInRgn(CPoint(1, 5)));
}

TEST(CellRectArrayArchive, CountThenRawLittleEndianRecords) {
  VCellRectArray a, b;
  a.Add(CRect(1, 2, 3, 4));
  a.Add(CRect(-1, 0x01020304, 0, 7));
  const std::string bytes = ArchiveBytes([&](CArchive& ar) { a.Serialize(ar); });
  EXPECT_EQ(std::string(
                "\2\0\1\0\0\0\2\0\0\0\3\0\0\0\4\0\0\0\377\377\377\377\4\3\2\1\0\0\0\0\7\0\0\0", 34),
            bytes);
  b.Add(CRect(9, 9, 9, 9)); // replaced by the load
  LoadBytes(bytes, [&](CArchive& ar) { b.Serialize(ar); });
  EXPECT_EQ(Str(a), Str(b));

  // Every truncation, and a 32-bit count of two billion with one record.
  for (size_t n = 0; n < bytes.size(); n++)
    EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([&] {
                LoadBytes(bytes.substr(0, n), [&](CArchive& ar) { b.Serialize(ar); });
              }))
        << n;
  const std::string huge = std::string("\xFF\xFF\x00\x00\x00\x78", 6) + bytes.substr(2, 16);
  EXPECT_EQ(CArchiveException::endOfFile,
            ArchiveCause([&] { LoadBytes(huge, [&](CArchive& ar) { b.Serialize(ar); }); }));
}
