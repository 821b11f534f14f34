// Path strings: appending, resolving with its one-level climb, roots, file
// names, extensions, shortening for display and reserved device names.
#include <vrk_path.h>
#include <gtest/gtest.h>

#include <string>

namespace {

std::string S(const CString& str) { return (const char*)str; }

std::string Abbreviate(const char* path, int cchMax, int bAtLeastName) {
  char buffer[MAX_PATH];
  lstrcpynA(buffer, path, MAX_PATH);
  VrkPathAbbreviateName(buffer, cchMax, bAtLeastName);
  return buffer;
}

TEST(PathAppend, TestsTheLastCharacterOfBothParts) {
  EXPECT_EQ("C:\\a\\b", S(VrkPathAppend("C:\\a", "b")));
  EXPECT_EQ("C:\\ab\\", S(VrkPathAppend("C:\\a", "b\\")));
  EXPECT_EQ("C:\\a\\\\b", S(VrkPathAppend("C:\\a", "\\b")));
  EXPECT_EQ("C:\\a\\b", S(VrkPathAppend("C:\\a\\", "b")));
  EXPECT_EQ("b\\", S(VrkPathAppend("", "b\\")));
  EXPECT_EQ("C:\\a\\", S(VrkPathAppend("C:\\a", NULL)));
  EXPECT_EQ("x", S(VrkPathAppend(NULL, "x")));
}

TEST(PathResolve, ClimbsOnlyOneLevelAndDropsDotSegments) {
  EXPECT_EQ("C:\\a\\b\\x.txt", S(VrkPathResolve("..\\..\\x.txt", "C:\\a\\b\\c")));
  EXPECT_EQ("C:\\a\\b\\x.txt", S(VrkPathResolve("..\\x.txt", "C:\\a\\b\\c\\")));
  EXPECT_EQ("D:\\dir\\f", S(VrkPathResolve("D:\\dir\\.\\f", "C:\\base")));
  EXPECT_EQ("\\\\srv\\share\\f", S(VrkPathResolve("\\\\srv\\share\\f", "C:\\base")));
  EXPECT_EQ("C:\\base\\sub\\f.txt", S(VrkPathResolve("sub\\f.txt", "C:\\base")));
  // A base too short to climb: the ..\ is dropped.
  EXPECT_EQ("C:\\x", S(VrkPathResolve("..\\x", "C:")));
  // Every backslash-dot pair goes, a dotted folder name's too.
  EXPECT_EQ("C:\\basecfg\\f", S(VrkPathResolve(".cfg\\f", "C:\\base")));
}

TEST(PathResolve, UsesTheCurrentDirectoryWithoutBase) {
  char cur[MAX_PATH];
  ASSERT_NE(0u, GetCurrentDirectoryA(MAX_PATH, cur));
  EXPECT_EQ(S(VrkPathAppend(cur, "name.txt")), S(VrkPathResolve("name.txt", NULL)));
}

TEST(PathRemoveTrailingSlash, RemovesOneBackslashOnly) {
  char buf[16] = "C:\\";
  VrkRemoveTrailingSlash(buf);
  EXPECT_STREQ("C:", buf);
  char fwd[16] = "a/";
  VrkRemoveTrailingSlash(fwd);
  EXPECT_STREQ("a/", fwd);
  CString str("a\\\\");
  VrkRemoveTrailingSlash(str);
  EXPECT_EQ("a\\", S(str));
  VrkRemoveTrailingSlash((char*)NULL);
  CString empty;
  VrkRemoveTrailingSlash(empty);
  EXPECT_TRUE(empty.IsEmpty());
}

TEST(PathRoot, DriveAndUncRoots) {
  CString root;
  VrkGetRoot("C:\\dir\\file.txt", root);
  EXPECT_EQ("C:\\", S(root));
  VrkGetRoot("\\\\server\\share\\dir\\f", root);
  EXPECT_EQ("\\\\server\\share\\", S(root));
  VrkGetRoot("//server/share/dir", root);
  EXPECT_EQ("//server/share/", S(root));
  VrkGetRoot("\\\\server\\share", root);
  EXPECT_EQ("\\\\server\\share", S(root));
  VrkGetRoot("name", root);
  EXPECT_EQ("name", S(root));
}

TEST(PathFileName, PointsAfterTheLastBackslashFirst) {
  const char* a = "a/b\\c";
  EXPECT_EQ(a + 4, VrkGetFileName(a));
  EXPECT_STREQ("b/c", VrkGetFileName("a\\b/c"));
  EXPECT_STREQ("c", VrkGetFileName("a/b/c"));
  const char* bare = "bare";
  EXPECT_EQ(bare, VrkGetFileName(bare));
}

TEST(PathSplit, QualifiesAndSplits) {
  VSplitPath split("C:\\folder\\sub\\name.tar.gz");
  EXPECT_EQ("C:\\folder\\sub\\name.tar.gz", S(split.GetPath()));
  EXPECT_EQ("C:", S(split.GetDrive()));
  EXPECT_EQ("\\folder\\sub\\", S(split.GetDirectory()));
  EXPECT_EQ("name.tar", S(split.GetFileName()));
  EXPECT_EQ(".gz", S(split.GetExtension()));
  EXPECT_EQ("name.tar.gz", S(VrkPathGetFileName("C:\\folder\\.\\sub\\..\\name.tar.gz")));
  CString strRootPath;
  VrkGetRootPath("C:\\folder\\sub\\name.txt", strRootPath);
  EXPECT_EQ("C:\\folder\\sub", S(strRootPath));

  // A failed split keeps the old pieces.
  EXPECT_FALSE(split.Split(NULL));
  EXPECT_FALSE(split.Split(std::string(400, 'x').c_str()));
  EXPECT_EQ("name.tar", S(split.GetFileName()));
}

TEST(PathSplit, RelativeNamesAreQualifiedAgainstTheCurrentDirectory) {
  char cur[MAX_PATH];
  ASSERT_NE(0u, GetCurrentDirectoryA(MAX_PATH, cur));
  CString strFull;
  ASSERT_TRUE(VrkFullPath("rel.txt", strFull, TRUE));
  EXPECT_EQ(0, lstrcmpiA(VrkPathAppend(cur, "rel.txt"), strFull));
  char out[MAX_PATH];
  char* pFile = NULL;
  ASSERT_TRUE(VrkFullPath(out, "C:\\x\\y\\", &pFile, TRUE));
  EXPECT_STREQ("C:\\x\\y", out);
  EXPECT_FALSE(VrkFullPath(NULL, "a", NULL, FALSE));
  EXPECT_FALSE(VrkFullPath(out, NULL, NULL, FALSE));
}

TEST(PathChangeExt, CutsAtTheLastDotOfTheWholeString) {
  CString str("C:\\dir.old\\file");
  EXPECT_TRUE(VrkChangeExt(str, "txt"));
  EXPECT_EQ("C:\\dir.txt", S(str));
  str = "C:\\dir\\file.bak";
  EXPECT_TRUE(VrkChangeExt(str, "txt"));
  EXPECT_EQ("C:\\dir\\file.txt", S(str));
  str = "C:\\dir\\file.bak";
  EXPECT_TRUE(VrkChangeExt(str, NULL));
  EXPECT_EQ("C:\\dir\\file", S(str));
  str = "C:\\dir\\file";
  EXPECT_FALSE(VrkChangeExt(str, NULL));
  EXPECT_EQ("C:\\dir\\file.", S(str));
  str = "file";
  EXPECT_TRUE(VrkChangeExt(str, "h"));
  EXPECT_EQ("file.h", S(str));
}

TEST(PathAbbreviate, KeepsVolumeFirstFolderAndTheTail) {
  const char* path = "C:\\Programs\\Vendor\\Tools\\bin\\file.txt";
  EXPECT_EQ("C:\\Programs\\...\\file.txt", Abbreviate(path, 25, FALSE));
  EXPECT_EQ("C:\\Programs\\...\\bin\\file.txt", Abbreviate(path, 28, FALSE));
  EXPECT_EQ(path, Abbreviate(path, 37, FALSE));
  // Too short for volume + name + 5: the name alone.
  EXPECT_EQ("file.txt", Abbreviate(path, 20, FALSE));
  // Shorter than the name itself.
  EXPECT_EQ("file.txt", Abbreviate(path, 5, TRUE));
  EXPECT_EQ("", Abbreviate(path, 5, FALSE));
  EXPECT_EQ("\\\\srv\\share\\...\\f.txt",
            Abbreviate("\\\\srv\\share\\one\\two\\three\\f.txt", 21, FALSE));
  EXPECT_EQ("f.txt", Abbreviate("C:\\f.txt", 7, FALSE));
}

TEST(PathReservedNames, MatchTheNameWithoutExtensionIgnoringCase) {
  EXPECT_TRUE(VrkOSIsReservedDOSName("con.txt"));
  EXPECT_TRUE(VrkOSIsReservedDOSName("C:\\x\\Lpt1.dat"));
  EXPECT_TRUE(VrkOSIsReservedDOSName("aux.h"));
  EXPECT_TRUE(VrkOSIsReservedDOSName("clock$"));
  EXPECT_TRUE(VrkOSIsReservedDOSName("d:/dir/Com9"));
  EXPECT_FALSE(VrkOSIsReservedDOSName("COM10"));
  EXPECT_FALSE(VrkOSIsReservedDOSName("CONSOLE"));
  EXPECT_FALSE(VrkOSIsReservedDOSName("C:\\dir\\"));
  EXPECT_FALSE(VrkOSIsReservedDOSName(".txt"));
  EXPECT_FALSE(VrkOSIsReservedDOSName(NULL));
  EXPECT_FALSE(VrkOSIsReservedDOSName(std::string(1000, 'n').c_str()));
}

} // namespace
