// CSize, CPoint and CRect where they are more than the Win32 calls they
// wrap: packed values unpacked as signed halves, and an empty rectangle
// against a null one.
#include <gtest/gtest.h>

#include <atltypes.h>

TEST(PointSizeRect, PackedValuesSignedEmptyIsNotNullNormalizeSwapsTheEdges) {
  CPoint pt((LPARAM)MAKELPARAM(0xFFFE, 0x0003));
  EXPECT_EQ(-2, pt.x);
  EXPECT_EQ(3, pt.y);
  CSize size((DWORD)MAKELONG(5, 0x8000));
  EXPECT_EQ(5, size.cx);
  EXPECT_EQ(-32768, size.cy);

  CRect inverted(10, 20, 5, 10);
  EXPECT_FALSE(inverted.IsRectNull());
  inverted.NormalizeRect();
  EXPECT_EQ(CRect(5, 10, 10, 20), inverted);
  EXPECT_TRUE(CRect().IsRectNull());
  inverted.SetRectEmpty();
  EXPECT_TRUE(inverted.IsRectNull());
}
