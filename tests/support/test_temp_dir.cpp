// TempDir: a fresh folder per object, removed with its contents.
#include <gtest/gtest.h>

#include "temp_dir.h"

static bool Exists(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

TEST(TempDir, MakesDistinctFoldersAndRemovesThem) {
  std::string first, second;
  {
    TempDir a, b;
    first = a.Path();
    second = b.Path();
    EXPECT_NE(first, second);
    EXPECT_TRUE(GetFileAttributesA(first.c_str()) & FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_TRUE(Exists(second));
    EXPECT_NE(first.back(), '\\');
    EXPECT_EQ(a.File("x.txt"), first + "\\x.txt");
  }
  EXPECT_FALSE(Exists(first));
  EXPECT_FALSE(Exists(second));
}

TEST(TempDir, RemovesNestedReadOnlyContents) {
  std::string path;
  {
    TempDir dir;
    path = dir.Path();
    ASSERT_TRUE(CreateDirectoryA(dir.File("sub").c_str(), NULL));
    ASSERT_TRUE(TempDir::WriteBytes(dir.File("sub\\f.txt"), "x"));
    SetFileAttributesA(dir.File("sub\\f.txt").c_str(), FILE_ATTRIBUTE_READONLY);
  }
  EXPECT_FALSE(Exists(path));
  EXPECT_TRUE(RemoveTree(path)); // already gone counts as removed
  EXPECT_FALSE(RemoveTree(""));
}
