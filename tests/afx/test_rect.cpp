// CSize, CPoint and CRect: packing, arithmetic and the rectangle operations
// that differ subtly (empty against null, the excluded edges, rounding).
#include <gtest/gtest.h>

#include <atltypes.h>

static void ExpectRect(const RECT& r, int l, int t, int rr, int b) {
  EXPECT_EQ(l, r.left);
  EXPECT_EQ(t, r.top);
  EXPECT_EQ(rr, r.right);
  EXPECT_EQ(b, r.bottom);
}

TEST(PointAndSize, PackedValuesAreSigned16BitHalves) {
  CPoint pt((LPARAM)MAKELPARAM(0xFFFE, 0x0003));
  EXPECT_EQ(-2, pt.x);
  EXPECT_EQ(3, pt.y);
  CSize size((DWORD)MAKELONG(5, 0x8000));
  EXPECT_EQ(5, size.cx);
  EXPECT_EQ(-32768, size.cy);
}

TEST(Rect, EmptyIsNotNull) {
  CRect inverted(10, 10, 5, 20);
  EXPECT_TRUE(inverted.IsRectEmpty());
  EXPECT_FALSE(inverted.IsRectNull());
  inverted.NormalizeRect();
  ExpectRect(inverted, 5, 10, 10, 20);
  EXPECT_FALSE(inverted.IsRectEmpty());
  EXPECT_TRUE(CRect().IsRectNull());
  inverted.SetRectEmpty();
  EXPECT_TRUE(inverted.IsRectNull());
}

TEST(Rect, PtInRectExcludesRightAndBottomEdges) {
  CRect r(0, 0, 10, 10);
  EXPECT_TRUE(r.PtInRect(CPoint(0, 0)));
  EXPECT_TRUE(r.PtInRect(CPoint(9, 9)));
  EXPECT_FALSE(r.PtInRect(CPoint(10, 5)));
  EXPECT_FALSE(r.PtInRect(CPoint(5, 10)));
}

TEST(Rect, MulDivRoundsHalfAwayFromZero) {
  ExpectRect(CRect(1, 3, 5, -7).MulDiv(1, 2), 1, 2, 3, -4);
  ExpectRect(CRect(10, 20, 30, 40).MulDiv(3, 10), 3, 6, 9, 12);
}
