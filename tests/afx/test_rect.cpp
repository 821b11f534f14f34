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

TEST(PointAndSize, ArithmeticKeepsTheRightTypes) {
  CPoint a(10, 20), b(3, 5);
  CSize diff = a - b; // two points differ by a size
  EXPECT_EQ(CSize(7, 15), diff);
  EXPECT_EQ(CPoint(13, 25), a + b);
  EXPECT_EQ(CPoint(8, 19), a - CSize(2, 1));
  EXPECT_EQ(CPoint(-10, -20), -a);
  CPoint c = a;
  c += CSize(1, 1);
  c -= CPoint(2, 2);
  EXPECT_EQ(CPoint(9, 19), c);
  EXPECT_TRUE(CSize(1, 2) != CSize(2, 1));
  EXPECT_EQ(CPoint(4, 6), CSize(1, 1) + CPoint(3, 5));
  EXPECT_EQ(CSize(-1, -2), -CSize(1, 2));
}

TEST(PointAndSize, AddingARectangleOffsetsIt) {
  RECT r = {1, 2, 3, 4};
  ExpectRect(CPoint(10, 20) + &r, 11, 22, 13, 24);
  ExpectRect(CSize(1, 1) - &r, 0, 1, 2, 3);
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

TEST(Rect, SwapLeftRightAndEquality) {
  CRect r(1, 2, 3, 4);
  r.SwapLeftRight();
  ExpectRect(r, 3, 2, 1, 4);
  RECT plain = {3, 2, 1, 4};
  EXPECT_TRUE(r == plain);
  CRect copy;
  copy = plain;
  ExpectRect(copy, 3, 2, 1, 4);
  EXPECT_TRUE(CRect(1, 1, 2, 2) != CRect(1, 1, 2, 3));
  LPCRECT p = copy; // converts to the RECT it is
  EXPECT_EQ(&copy.left, &p->left);
}
