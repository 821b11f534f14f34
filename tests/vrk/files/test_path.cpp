// Path strings: appending, resolving with its one-level climb, roots and
// extensions, shortening for display and reserved device names.
#include <vrk_path.h>
#include <gtest/gtest.h>

#include <string>

namespace {

std::string S(const CString& str) { return (const char*)str; }

struct Case {
  const char *a, *b, *expected;
};

TEST(PathAppend, TestsTheLastCharacterOfBothParts) {
  const Case cases[] = {{"C:\\a", "b", "C:\\a\\b"},
                        {"C:\\a", "b\\", "C:\\ab\\"},
                        {"C:\\a", "\\b", "C:\\a\\\\b"},
                        {"C:\\a\\", "b", "C:\\a\\b"},
                        {NULL, "x", "x"}};
  for (const Case& c : cases)
    EXPECT_EQ(c.expected, S(VrkPathAppend(c.a, c.b))) << c.a << " + " << c.b;
}

TEST(PathResolve, ClimbsOnlyOneLevelAndDropsDotSegments) {
  const Case cases[] = {
      {"..\\..\\x.txt", "C:\\a\\b\\c", "C:\\a\\b\\x.txt"},
      {"..\\x.txt", "C:\\a\\b\\c\\", "C:\\a\\b\\x.txt"},
      {"D:\\dir\\.\\f", "C:\\base", "D:\\dir\\f"},
      {"\\\\srv\\share\\f", "C:\\base", "\\\\srv\\share\\f"},
      {"..\\x", "C:", "C:\\x"},                  // too short to climb: the ..\ is dropped
      {".cfg\\f", "C:\\base", "C:\\basecfg\\f"}, // every backslash-dot pair goes
  };
  for (const Case& c : cases)
    EXPECT_EQ(c.expected, S(VrkPathResolve(c.a, c.b))) << c.a << " on " << c.b;
}

TEST(PathPieces, RootsSplitsAndExtensions) {
  const Case roots[] = {{"C:\\dir\\file.txt", "", "C:\\"},
                        {"\\\\server\\share\\dir\\f", "", "\\\\server\\share\\"},
                        {"\\\\server\\share", "", "\\\\server\\share"},
                        {"name", "", "name"}};
  for (const Case& c : roots) {
    CString root;
    VrkGetRoot(c.a, root);
    EXPECT_EQ(c.expected, S(root)) << c.a;
  }
  VSplitPath split("C:\\folder\\sub\\name.tar.gz");
  EXPECT_EQ("\\folder\\sub\\", S(split.GetDirectory()));
  EXPECT_EQ("name.tar", S(split.GetFileName()));
  EXPECT_EQ(".gz", S(split.GetExtension()));
  EXPECT_FALSE(split.Split(std::string(400, 'x').c_str())); // a failed split keeps the pieces
  EXPECT_EQ("name.tar", S(split.GetFileName()));

  // The extension is cut at the last dot of the whole string.
  const Case exts[] = {{"C:\\dir.old\\file", "txt", "C:\\dir.txt"},
                       {"C:\\dir\\file.bak", NULL, "C:\\dir\\file"},
                       {"C:\\dir\\file", NULL, "C:\\dir\\file."},
                       {"file", "h", "file.h"}};
  for (const Case& c : exts) {
    CString str(c.a);
    VrkChangeExt(str, c.b);
    EXPECT_EQ(c.expected, S(str)) << c.a;
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
               {"\\\\srv\\share\\one\\two\\three\\f.txt", 21, FALSE, "\\\\srv\\share\\...\\f.txt"}};
  for (const auto& c : cases) {
    char buffer[MAX_PATH];
    lstrcpynA(buffer, c.path, MAX_PATH);
    VrkPathAbbreviateName(buffer, c.cchMax, c.bAtLeastName);
    EXPECT_STREQ(c.expected, buffer) << c.path << " " << c.cchMax;
  }
}

TEST(PathReservedNames, MatchTheNameWithoutExtensionIgnoringCase) {
  for (const char* name : {"con.txt", "C:\\x\\Lpt1.dat", "clock$", "d:/dir/Com9"})
    EXPECT_TRUE(VrkOSIsReservedDOSName(name)) << name;
  for (const char* name : {"COM10", "CONSOLE", "C:\\dir\\", ".txt"})
    EXPECT_FALSE(VrkOSIsReservedDOSName(name)) << name;
  EXPECT_FALSE(VrkOSIsReservedDOSName(NULL));
  EXPECT_FALSE(VrkOSIsReservedDOSName(std::string(1000, 'n').c_str()));
}

} // namespace
