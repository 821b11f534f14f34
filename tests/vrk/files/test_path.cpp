// Path strings: appending, resolving with its one-level climb, roots, file
// names, extensions, shortening for display and reserved device names.
#include <vrk_path.h>
#include <gtest/gtest.h>

#include <string>

namespace {

std::string S(const CString& str) { return (const char*)str; }

struct Pair {
  const char *a, *b, *expected;
};

TEST(PathAppend, TestsTheLastCharacterOfBothParts) {
  const Pair cases[] = {{"C:\\a", "b", "C:\\a\\b"},
                        {"C:\\a", "b\\", "C:\\ab\\"},
                        {"C:\\a", "\\b", "C:\\a\\\\b"},
                        {"C:\\a\\", "b", "C:\\a\\b"},
                        {"", "b\\", "b\\"},
                        {"C:\\a", NULL, "C:\\a\\"},
                        {NULL, "x", "x"}};
  for (const Pair& c : cases)
    EXPECT_EQ(c.expected, S(VrkPathAppend(c.a, c.b))) << c.a << " + " << c.b;
}

TEST(PathResolve, ClimbsOnlyOneLevelAndDropsDotSegments) {
  const Pair cases[] = {
      {"..\\..\\x.txt", "C:\\a\\b\\c", "C:\\a\\b\\x.txt"},
      {"..\\x.txt", "C:\\a\\b\\c\\", "C:\\a\\b\\x.txt"},
      {"D:\\dir\\.\\f", "C:\\base", "D:\\dir\\f"},
      {"\\\\srv\\share\\f", "C:\\base", "\\\\srv\\share\\f"},
      {"sub\\f.txt", "C:\\base", "C:\\base\\sub\\f.txt"},
      {"..\\x", "C:", "C:\\x"},                  // too short to climb: the ..\ is dropped
      {".cfg\\f", "C:\\base", "C:\\basecfg\\f"}, // every backslash-dot pair goes
  };
  for (const Pair& c : cases)
    EXPECT_EQ(c.expected, S(VrkPathResolve(c.a, c.b))) << c.a << " on " << c.b;
  char cur[MAX_PATH];
  ASSERT_NE(0u, GetCurrentDirectoryA(MAX_PATH, cur));
  EXPECT_EQ(S(VrkPathAppend(cur, "name.txt")), S(VrkPathResolve("name.txt", NULL)));
}

TEST(PathPieces, TrailingSlashRootsAndFileNames) {
  char buf[16] = "C:\\", fwd[16] = "a/";
  VrkRemoveTrailingSlash(buf);
  VrkRemoveTrailingSlash(fwd);
  EXPECT_STREQ("C:", buf);
  EXPECT_STREQ("a/", fwd);
  CString str("a\\\\");
  VrkRemoveTrailingSlash(str);
  EXPECT_EQ("a\\", S(str));
  VrkRemoveTrailingSlash((char*)NULL);

  const Pair roots[] = {{"C:\\dir\\file.txt", "", "C:\\"},
                        {"\\\\server\\share\\dir\\f", "", "\\\\server\\share\\"},
                        {"//server/share/dir", "", "//server/share/"},
                        {"\\\\server\\share", "", "\\\\server\\share"},
                        {"name", "", "name"}};
  for (const Pair& c : roots) {
    CString root;
    VrkGetRoot(c.a, root);
    EXPECT_EQ(c.expected, S(root)) << c.a;
  }
  const char* a = "a/b\\c";
  EXPECT_EQ(a + 4, VrkGetFileName(a));
  EXPECT_STREQ("b/c", VrkGetFileName("a\\b/c"));
  EXPECT_STREQ("c", VrkGetFileName("a/b/c"));
}

TEST(PathSplit, QualifiesAndSplitsAndAFailedSplitKeepsThePieces) {
  VSplitPath split("C:\\folder\\sub\\name.tar.gz");
  EXPECT_EQ("C:", S(split.GetDrive()));
  EXPECT_EQ("\\folder\\sub\\", S(split.GetDirectory()));
  EXPECT_EQ("name.tar", S(split.GetFileName()));
  EXPECT_EQ(".gz", S(split.GetExtension()));
  EXPECT_EQ("name.tar.gz", S(VrkPathGetFileName("C:\\folder\\.\\sub\\..\\name.tar.gz")));
  CString strRootPath;
  VrkGetRootPath("C:\\folder\\sub\\name.txt", strRootPath);
  EXPECT_EQ("C:\\folder\\sub", S(strRootPath));
  EXPECT_FALSE(split.Split(NULL));
  EXPECT_FALSE(split.Split(std::string(400, 'x').c_str()));
  EXPECT_EQ("name.tar", S(split.GetFileName()));

  char cur[MAX_PATH], out[MAX_PATH];
  ASSERT_NE(0u, GetCurrentDirectoryA(MAX_PATH, cur));
  CString strFull;
  ASSERT_TRUE(VrkFullPath("rel.txt", strFull, TRUE));
  EXPECT_EQ(0, lstrcmpiA(VrkPathAppend(cur, "rel.txt"), strFull));
  char* pFile = NULL;
  ASSERT_TRUE(VrkFullPath(out, "C:\\x\\y\\", &pFile, TRUE));
  EXPECT_STREQ("C:\\x\\y", out);
  EXPECT_FALSE(VrkFullPath(NULL, "a", NULL, FALSE));
  EXPECT_FALSE(VrkFullPath(out, NULL, NULL, FALSE));
}

TEST(PathChangeExt, CutsAtTheLastDotOfTheWholeString) {
  const struct {
    const char *path, *ext, *expected;
    int result;
  } cases[] = {{"C:\\dir.old\\file", "txt", "C:\\dir.txt", 1},
               {"C:\\dir\\file.bak", "txt", "C:\\dir\\file.txt", 1},
               {"C:\\dir\\file.bak", NULL, "C:\\dir\\file", 1},
               {"C:\\dir\\file", NULL, "C:\\dir\\file.", 0},
               {"file", "h", "file.h", 1}};
  for (const auto& c : cases) {
    CString str(c.path);
    EXPECT_EQ(c.result, VrkChangeExt(str, c.ext)) << c.path;
    EXPECT_EQ(c.expected, S(str)) << c.path;
  }
}

TEST(PathAbbreviate, KeepsVolumeFirstFolderAndTheTail) {
  const char* path = "C:\\Programs\\Vendor\\Tools\\bin\\file.txt";
  const struct {
    const char* path;
    int cchMax, bAtLeastName;
    const char* expected;
  } cases[] = {{path, 25, FALSE, "C:\\Programs\\...\\file.txt"},
               {path, 28, FALSE, "C:\\Programs\\...\\bin\\file.txt"},
               {path, 37, FALSE, path},
               {path, 20, FALSE, "file.txt"}, // too short for volume + name + 5
               {path, 5, TRUE, "file.txt"},   // shorter than the name itself
               {path, 5, FALSE, ""},
               {"\\\\srv\\share\\one\\two\\three\\f.txt", 21, FALSE, "\\\\srv\\share\\...\\f.txt"},
               {"C:\\f.txt", 7, FALSE, "f.txt"}};
  for (const auto& c : cases) {
    char buffer[MAX_PATH];
    lstrcpynA(buffer, c.path, MAX_PATH);
    VrkPathAbbreviateName(buffer, c.cchMax, c.bAtLeastName);
    EXPECT_STREQ(c.expected, buffer) << c.path << " " << c.cchMax;
  }
}

TEST(PathReservedNames, MatchTheNameWithoutExtensionIgnoringCase) {
  for (const char* name : {"con.txt", "C:\\x\\Lpt1.dat", "aux.h", "clock$", "d:/dir/Com9"})
    EXPECT_TRUE(VrkOSIsReservedDOSName(name)) << name;
  for (const char* name : {"COM10", "CONSOLE", "C:\\dir\\", ".txt"})
    EXPECT_FALSE(VrkOSIsReservedDOSName(name)) << name;
  EXPECT_FALSE(VrkOSIsReservedDOSName(NULL));
  EXPECT_FALSE(VrkOSIsReservedDOSName(std::string(1000, 'n').c_str()));
}

} // namespace
