// Ordering of version words.
#include <vrk_version.h>
#include <gtest/gtest.h>

TEST(VersionWord, OrdersByHighThenLowSigned) {
  const tagVersionWord v1_5 = {1, 5}, v2_0 = {2, 0}, v1_9 = {1, 9};
  const tagVersionWord minus = {-1, 0}, zero = {0, 0}, low_neg = {0, -3};
  EXPECT_TRUE(v1_5 < v2_0);
  EXPECT_TRUE(v2_0 > v1_9);
  EXPECT_TRUE(v1_5 < v1_9);
  EXPECT_FALSE(v1_9 < v1_5);
  EXPECT_TRUE(v1_5 == v1_5);
  EXPECT_FALSE(v1_5 == v1_9);
  EXPECT_FALSE(v1_5 < v1_5);
  EXPECT_FALSE(v1_5 > v1_5);
  EXPECT_TRUE(minus < zero);
  EXPECT_TRUE(low_neg < zero);
  EXPECT_TRUE(zero > minus);
}
