#include <afx.h>
#include <gtest/gtest.h>
class CShape : public CObject { DECLARE_DYNAMIC(CShape) };
IMPLEMENT_DYNAMIC(CShape, CObject)
TEST(Object, Kind) { CShape s; EXPECT_TRUE(s.IsKindOf(RUNTIME_CLASS(CObject))); }
