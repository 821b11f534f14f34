// CSize, CPoint and CRect: packing, arithmetic and the rectangle operations
// that differ subtly (inflate by a rectangle, empty against null, rounding).
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

TEST(Rect, ConstructionAndCorners) {
  CRect r(CPoint(5, 6), CSize(10, 20));
  ExpectRect(r, 5, 6, 15, 26);
  EXPECT_EQ(10, r.Width());
  EXPECT_EQ(20, r.Height());
  EXPECT_EQ(CSize(10, 20), r.Size());
  // TopLeft and BottomRight are references into the rectangle.
  r.TopLeft() = CPoint(0, 0);
  r.BottomRight().Offset(1, 1);
  ExpectRect(r, 0, 0, 16, 27);
  EXPECT_EQ(CPoint(8, 13), r.CenterPoint());
  EXPECT_EQ(CPoint(-1, -1), CRect(-3, -3, 0, 0).CenterPoint()); // rounds toward zero
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

TEST(Rect, InflateAndDeflateForms) {
  CRect r(10, 10, 20, 20);
  r.InflateRect(1, 2);
  ExpectRect(r, 9, 8, 21, 22);
  r.DeflateRect(CSize(1, 2));
  ExpectRect(r, 10, 10, 20, 20);
  r.InflateRect(1, 2, 3, 4);
  ExpectRect(r, 9, 8, 23, 24);
  // A RECT of margins: each side moves by its own member.
  RECT margins = {1, 2, 3, 4};
  r.DeflateRect(&margins);
  ExpectRect(r, 10, 10, 20, 20);
  ExpectRect(r + &margins, 9, 8, 23, 24);
  const CRect& cr = r; // a non-const CRect would also convert to a pointer
  ExpectRect(cr - &margins, 11, 12, 17, 16);
  r += &margins;
  ExpectRect(r, 9, 8, 23, 24);
  r -= &margins;
  ExpectRect(r, 10, 10, 20, 20);
}

TEST(Rect, OffsetAndMoveKeepTheSize) {
  CRect r(10, 10, 20, 30);
  r.OffsetRect(CPoint(-10, 5));
  ExpectRect(r, 0, 15, 10, 35);
  r.MoveToXY(100, 200);
  ExpectRect(r, 100, 200, 110, 220);
  r.MoveToX(0);
  ExpectRect(r, 0, 200, 10, 220);
  ExpectRect(r + CPoint(1, 1), 1, 201, 11, 221);
  ExpectRect(r - CSize(0, 200), 0, 0, 10, 20);
  r += CSize(5, 5);
  r -= CPoint(5, 5);
  ExpectRect(r, 0, 200, 10, 220);
}

TEST(Rect, IntersectionUnionAndSubtraction) {
  CRect a(0, 0, 10, 10), b(5, 5, 15, 15);
  ExpectRect(a & b, 5, 5, 10, 10);
  ExpectRect(a | b, 0, 0, 15, 15);
  // Disjoint rectangles intersect in the null rectangle.
  EXPECT_TRUE((a & CRect(20, 20, 30, 30)).IsRectNull());
  CRect c = a;
  c &= b;
  EXPECT_TRUE(c == CRect(5, 5, 10, 10));
  c |= CRect(0, 0, 1, 1);
  EXPECT_TRUE(c == CRect(0, 0, 10, 10));

  CRect d;
  EXPECT_TRUE(d.SubtractRect(CRect(0, 0, 10, 10), CRect(5, 0, 10, 10)));
  ExpectRect(d, 0, 0, 5, 10);
  // A hole in the middle leaves no rectangle: the source comes back whole.
  d.SubtractRect(CRect(0, 0, 10, 10), CRect(2, 2, 8, 8));
  ExpectRect(d, 0, 0, 10, 10);
  EXPECT_FALSE(d.IntersectRect(CRect(0, 0, 1, 1), CRect(2, 2, 3, 3)));
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
