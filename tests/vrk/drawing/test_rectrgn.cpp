// Rectangle regions: the cut of one rectangle by another and its fragment
// order, adding and removing, the cover test and row merge, the walks, and
// the rectangle array's archive form (including truncated and absurd ones).
#include <vrk_rectrgn.h>
#include <exception_probe.h>
#include <gtest/gtest.h>

#include "archive_bytes.h"

#include <random>
#include <string>
#include <vector>

namespace {

// Opens the protected cut for the tests.
class TestRgn : public VRectRgn {
public:
  using VRectRgn::SubtractRects;
  std::vector<CRect> Rects() const {
    std::vector<CRect> v;
    for (int pos = GetFirstRectPosition(); pos != 0;)
      v.push_back(GetNextRect(pos));
    return v;
  }
};

std::vector<CRect> Elements(const VCellRectArray& a) {
  return std::vector<CRect>(a.GetData(), a.GetData() + a.GetSize());
}

std::string Str(const std::vector<CRect>& v) {
  std::string s;
  char buf[64];
  for (const CRect& r : v) {
    wsprintfA(buf, "(%d,%d,%d,%d)", r.left, r.top, r.right, r.bottom);
    s += buf;
  }
  return s;
}

std::string StoreArray(VCellRectArray& a) {
  return ArchiveBytes([&](CArchive& ar) { a.Serialize(ar); });
}

void LoadArray(const std::string& bytes, VCellRectArray& a) {
  LoadBytes(bytes, [&](CArchive& ar) { a.Serialize(ar); });
}

} // namespace

TEST(RectRgnCut, PiecesComeLeftRightTopBottom) {
  TestRgn rgn;
  VCellRectArray out;
  const CRect a(0, 0, 10, 10), hole(3, 4, 6, 7);
  EXPECT_EQ(1, rgn.SubtractRects(&a, &hole, out));
  EXPECT_EQ("(0,4,3,7)(6,4,10,7)(0,0,10,4)(0,7,10,10)", Str(Elements(out)));

  // Pieces are appended to what out already holds.
  const CRect corner(5, -5, 20, 5);
  EXPECT_EQ(1, rgn.SubtractRects(&a, &corner, out));
  EXPECT_EQ(6, out.GetSize());
  EXPECT_EQ("(0,0,5,5)(0,5,10,10)", Str(std::vector<CRect>(&out[4], &out[4] + 2)));

  // Disjoint (the right edge is exclusive), covered, and null rectangles.
  VCellRectArray none;
  const CRect touching(10, 0, 20, 10), cover(-1, -1, 11, 11);
  EXPECT_EQ(0, rgn.SubtractRects(&a, &touching, none));
  EXPECT_EQ(1, rgn.SubtractRects(&a, &cover, none));
  EXPECT_EQ(1, rgn.SubtractRects(&a, &a, none));
  EXPECT_EQ(0, none.GetSize());
  EXPECT_EQ(0, rgn.SubtractRects(NULL, &a, none) + rgn.SubtractRects(&a, NULL, none));
}

TEST(RectRgnAdd, OnlyUncoveredFragmentsAreAppended) {
  TestRgn rgn;
  const CRect base(0, 0, 10, 10);
  EXPECT_EQ(0, rgn.AddRect(NULL));
  EXPECT_EQ(1, rgn.AddRect(&base));
  const CRect inside(2, 2, 5, 5);
  EXPECT_EQ(1, rgn.AddRect(&inside)); // nothing new, still 1
  EXPECT_EQ(1, rgn.GetRectCount());

  const CRect rightHalf(5, 0, 15, 10);
  EXPECT_EQ(1, rgn.AddRect(&rightHalf));
  EXPECT_EQ("(0,0,10,10)(10,0,15,10)", Str(rgn.Rects()));

  TestRgn corner;
  corner.AddRect(&base);
  const CRect c(5, 5, 15, 15);
  corner.AddRect(&c);
  // The side piece keeps to the overlap's rows, then the full-width band.
  EXPECT_EQ("(0,0,10,10)(10,5,15,10)(5,10,15,15)", Str(corner.Rects()));

  // Fragments are cut against every element in order: the first element
  // cuts (-2,2,12,4) into (-2,2,0,4) and (4,2,12,4), the second cuts the
  // latter where it stood.
  TestRgn rgn2;
  const CRect left(0, 0, 4, 10), right(6, 0, 10, 10), across(-2, 2, 12, 4);
  rgn2.AddRect(&left);
  rgn2.AddRect(&right);
  rgn2.AddRect(&across);
  EXPECT_EQ("(0,0,4,10)(6,0,10,10)(-2,2,0,4)(4,2,6,4)(10,2,12,4)", Str(rgn2.Rects()));
}

TEST(RectRgnAdd, RandomAddsNeverOverlapAndCoverTheSamePoints) {
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
    std::vector<CRect> v = rgn.Rects();
    for (size_t i = 0; i < v.size(); i++)
      for (size_t j = i + 1; j < v.size(); j++) {
        CRect x;
        ASSERT_FALSE(x.IntersectRect(&v[i], &v[j])) << Str(v);
      }
    for (int x = -1; x < 32; x++)
      for (int y = -1; y < 32; y++)
        ASSERT_EQ(direct.PtInRgn(CPoint(x, y)), rgn.PtInRgn(CPoint(x, y))) << x << "," << y;
  }
}

TEST(RectRgnRemove, CutsEveryElementInPlace) {
  TestRgn rgn;
  const CRect a(0, 0, 10, 10), b(20, 0, 30, 10), hole(3, 3, 6, 6);
  rgn.AddRect(&a);
  rgn.AddRect(&b);
  EXPECT_EQ(0, rgn.RemoveRect(NULL));
  const CRect distant(100, 100, 110, 110);
  EXPECT_EQ(0, rgn.RemoveRect(&distant));
  EXPECT_EQ(1, rgn.RemoveRect(&hole));
  EXPECT_EQ("(0,3,3,6)(6,3,10,6)(0,0,10,3)(0,6,10,10)(20,0,30,10)", Str(rgn.Rects()));

  const CRect wipe(15, -5, 40, 20); // removes b whole
  EXPECT_EQ(1, rgn.RemoveRect(&wipe));
  EXPECT_EQ(4, rgn.GetRectCount());
  const CRect all(-100, -100, 100, 100);
  EXPECT_EQ(1, rgn.RemoveRect(&all));
  EXPECT_EQ(0, rgn.GetRectCount());
  EXPECT_EQ(0, rgn.GetFirstRectPosition());
}

// Rows are sorted by top, bottom row first, and a run of rows is merged by
// their tops only: the run keeps its first rectangle's left, right and bottom.
TEST(RectRgnSimplify, RowsAreSortedAndMergedByTopOnly) {
  const struct {
    std::vector<CRect> rects;
    int result;
    const char* expected;
  } cases[] = {
      {{CRect(0, 0, 10, 5), CRect(0, 5, 10, 10)}, 1, "(0,0,10,10)"},
      {{CRect(0, 0, 10, 10)}, 0, "(0,0,10,10)"}, // one element: nothing to do
      {{}, 0, ""},
      {{CRect(0, 2, 4, 3), CRect(0, 5, 4, 6), CRect(0, 1, 4, 2), CRect(0, 3, 4, 4)},
       1,
       "(0,5,4,6)(0,1,4,4)"},
      {{CRect(0, 1, 4, 2), CRect(0, 7, 4, 8)}, 0, "(0,7,4,8)(0,1,4,2)"}, // sorted, not merged
      // Two pieces of one row are neither merged nor exchanged.
      {{CRect(0, 5, 4, 6), CRect(0, 1, 4, 2), CRect(6, 5, 8, 6)}, 0, "(0,5,4,6)(6,5,8,6)(0,1,4,2)"},
      {{CRect(0, 9, 10, 10), CRect(3, 8, 4, 9), CRect(0, 0, 1, 1)}, 1, "(0,8,10,10)(0,0,1,1)"},
  };
  for (const auto& c : cases) {
    TestRgn rgn;
    for (const CRect& r : c.rects)
      rgn.AddRectDirect(r);
    EXPECT_EQ(c.result, rgn.SimplifyRgn()) << c.expected;
    EXPECT_EQ(c.expected, Str(rgn.Rects()));
  }
}

TEST(RectRgnWalk, ForwardBackwardAndTheAsymmetricBounds) {
  TestRgn rgn;
  int pos = 0;
  EXPECT_EQ(0, rgn.GetLastRectPosition());
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { rgn.GetPrevRect(pos); }));
  for (int i = 0; i < 3; i++)
    rgn.AddRect(CRect(i * 10, 0, i * 10 + 5, 5));
  EXPECT_TRUE(rgn.ContainsMultipleRects());

  std::vector<LONG> back;
  for (pos = rgn.GetLastRectPosition(); pos != 0;)
    back.push_back(rgn.GetPrevRect(pos).left);
  EXPECT_EQ((std::vector<LONG>{20, 10, 0}), back);

  pos = 0;
  EXPECT_EQ(0, rgn.GetPrevRect(pos).left); // clamped to the first element
  EXPECT_EQ(0, pos);
  pos = -7;
  EXPECT_EQ(0, rgn.GetPrevRect(pos).left);
  pos = 0;
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { rgn.GetNextRect(pos); }));
  pos = 4;
  EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownClass([&] { rgn.GetNextRect(pos); }));
  pos = 3;
  EXPECT_EQ(20, rgn.GetNextRect(pos).left);
  EXPECT_EQ(0, pos);

  rgn.Empty();
  EXPECT_EQ(0, rgn.GetRectCount());
  EXPECT_FALSE(rgn.ContainsMultipleRects());
}

TEST(RectRgnQuery, BoxAndPointsUseExclusiveEdges) {
  TestRgn rgn;
  CRect box(1, 2, 3, 4);
  rgn.GetRectBox(&box);
  EXPECT_EQ(CRect(0, 0, 0, 0), box);
  rgn.GetRectBox(NULL);

  rgn.AddRectDirect(CRect(5, 5, 5, 9)); // zero width: GDI ignores it
  rgn.GetRectBox(&box);
  EXPECT_EQ(CRect(0, 0, 0, 0), box);

  rgn.AddRectDirect(CRect(0, 0, 4, 4));
  rgn.AddRectDirect(CRect(2, 2, 8, 6)); // overlaps: direct adds allow it
  rgn.GetRectBox(&box);
  EXPECT_EQ(CRect(0, 0, 8, 6), box);
  EXPECT_EQ(1, rgn.PtInRgn(CPoint(3, 3)));
  EXPECT_EQ(1, rgn.PtInRgn(CPoint(7, 5)));
  EXPECT_EQ(0, rgn.PtInRgn(CPoint(8, 5)));
  EXPECT_EQ(0, rgn.PtInRgn(CPoint(1, 5)));
}

TEST(CellRectArrayArchive, CountThenRawLittleEndianRecords) {
  VCellRectArray a;
  a.Add(CRect(1, 2, 3, 4));
  a.Add(CRect(-1, 0x01020304, 0, 7));
  const std::string bytes = StoreArray(a);
  const unsigned char want[] = {2, 0,    1,    0,    0,    0, 2, 0, 0, 0, 3, 0, 0, 0, 4, 0, 0,
                                0, 0xFF, 0xFF, 0xFF, 0xFF, 4, 3, 2, 1, 0, 0, 0, 0, 7, 0, 0, 0};
  EXPECT_EQ(std::string((const char*)want, sizeof(want)), bytes);

  VCellRectArray b;
  b.Add(CRect(9, 9, 9, 9)); // replaced by the load
  LoadArray(bytes, b);
  EXPECT_EQ(Str(Elements(a)), Str(Elements(b)));
}

TEST(CellRectArrayArchive, TruncatedAndAbsurdCountsFailCleanly) {
  VCellRectArray a;
  for (int i = 0; i < 3; i++)
    a.Add(CRect(i, i, i + 1, i + 1));
  const std::string bytes = StoreArray(a);
  for (size_t n = 0; n < bytes.size(); n++) {
    VCellRectArray b;
    EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([&] { LoadArray(bytes.substr(0, n), b); }))
        << n;
  }
  // 0xFFFF, then a 32-bit count of two billion, and one record.
  std::string huge("\xFF\xFF\x00\x00\x00\x78", 6);
  huge += bytes.substr(2, 16);
  VCellRectArray c;
  EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([&] { LoadArray(huge, c); }));
}
