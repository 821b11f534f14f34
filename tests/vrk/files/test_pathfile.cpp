// Paths on disk: folder chains with their result, last error and roll-back,
// shell copy and delete, attribute changes and temporary names.
#include <vrk_path.h>
#include <gtest/gtest.h>

#include "temp_dir.h"

#include <io.h>
#include <shellapi.h>

#include <string>

namespace {

const unsigned short kQuiet = FOF_SILENT | FOF_NOCONFIRMATION | FOF_NOERRORUI;

bool Exists(const std::string& path) { return _access(path.c_str(), 0) == 0; }

TEST(PathCreateDirectory, CreatesTheChainAndReportsAnExistingOneAsFailure) {
  TempDir dir;
  std::string deep = dir.File("a\\b\\c");
  EXPECT_TRUE(VrkCreateDirectory(deep.c_str(), NULL) && VrkIsDirectory(deep.c_str()));
  SetLastError(0);
  EXPECT_FALSE(VrkCreateDirectory(deep.c_str(), NULL));
  EXPECT_EQ((DWORD)ERROR_ALREADY_EXISTS, GetLastError());
  // A trailing separator and forward slashes work the same way.
  EXPECT_TRUE(VrkCreateDirectory(dir.File("x/y\\").c_str(), NULL) &&
              VrkIsDirectory(dir.File("x\\y").c_str()));
  EXPECT_FALSE(VrkCreateDirectory(NULL, NULL) ||
               VrkCreateDirectory(std::string(300, 'd').c_str(), NULL));
  SetLastError(0);
  EXPECT_FALSE(VrkCreateDirectory("\\\\server", NULL)); // UNC without a folder
  EXPECT_EQ((DWORD)ERROR_DIRECTORY, GetLastError());
  // A later folder that cannot be made: what was made is rolled back.
  EXPECT_FALSE(VrkCreateDirectory(dir.File("new1\\new2\\bad<name>").c_str(), NULL));
  EXPECT_TRUE(GetLastError() != 0 && GetLastError() != ERROR_ALREADY_EXISTS) << GetLastError();
  EXPECT_FALSE(Exists(dir.File("new1")));
}

// Shell copies take one source or many; an over-long name fails instead of
// being cut to some other name. Deletes take wildcards and whole trees.
TEST(PathShell, CopiesAndDeletesFilesAndTrees) {
  TempDir dir;
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("one.log"), "first"));
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("two.log"), "second"));
  ASSERT_TRUE(VrkCreateDirectory(dir.File("tree\\sub").c_str(), NULL));
  CStringArray sources;
  sources.Add(dir.File("one.log").c_str());
  sources.Add(dir.File("two.log").c_str());
  EXPECT_TRUE(VrkCopyPathNameEx(&sources, dir.File("tree\\sub").c_str(), kQuiet));
  EXPECT_EQ("second", TempDir::ReadBytes(dir.File("tree\\sub\\two.log")));
  EXPECT_TRUE(VrkCopyPathName(dir.File("one.log").c_str(), dir.File("copy.txt").c_str(), kQuiet));
  EXPECT_EQ("first", TempDir::ReadBytes(dir.File("copy.txt")));
  EXPECT_FALSE(VrkCopyPathName((dir.Path() + "\\" + std::string(300, 'o')).c_str(),
                               dir.File("z").c_str(), kQuiet));
  CStringArray empty;
  EXPECT_FALSE(VrkCopyPathNameEx(&empty, dir.File("tree").c_str(), kQuiet));

  EXPECT_TRUE(VrkRemoveFile(dir.File("*.log").c_str(), kQuiet));
  EXPECT_FALSE(Exists(dir.File("one.log")) || Exists(dir.File("two.log")));
  EXPECT_FALSE(VrkRemoveDirectory(dir.File("copy.txt").c_str(), kQuiet)); // not a folder
  EXPECT_TRUE(Exists(dir.File("copy.txt")));
  EXPECT_TRUE(VrkRemoveDirectory(dir.File("tree").c_str(), kQuiet));
  EXPECT_FALSE(Exists(dir.File("tree")));
}

TEST(PathAttributes, SetAndClearRecursively) {
  TempDir dir;
  ASSERT_TRUE(VrkCreateDirectory(dir.File("sub").c_str(), NULL));
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("top.txt"), "t"));
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("sub\\low.txt"), "l"));
  const std::string pattern = dir.File("*.*");
  auto ReadOnly = [&](const char* name) {
    return (GetFileAttributesA(dir.File(name).c_str()) & FILE_ATTRIBUTE_READONLY) != 0;
  };
  EXPECT_TRUE(VrkChangeFileAttributes(pattern.c_str(), FILE_ATTRIBUTE_READONLY, TRUE, TRUE));
  EXPECT_TRUE(ReadOnly("top.txt") && ReadOnly("sub\\low.txt"));
  EXPECT_TRUE(VrkChangeFileAttributes(pattern.c_str(), FILE_ATTRIBUTE_READONLY, FALSE, FALSE));
  EXPECT_TRUE(!ReadOnly("top.txt") && ReadOnly("sub\\low.txt"));
  EXPECT_TRUE(VrkChangeFileAttributes(pattern.c_str(), FILE_ATTRIBUTE_READONLY, FALSE, TRUE));
  EXPECT_FALSE(ReadOnly("sub\\low.txt"));
}

TEST(PathTempName, FolderWithExtensionAndAdoptedNames) {
  TempDir dir;
  std::string name;
  {
    VTempPathName temp(dir.Path().c_str(), "vt", "dir", TRUE, 0, TRUE);
    name = (const char*)temp;
    EXPECT_EQ(dir.Path(), temp.GetPath());
    EXPECT_TRUE(name.substr(name.size() - 4) == ".dir" && VrkIsDirectory(name.c_str())) << name;
    ASSERT_TRUE(TempDir::WriteBytes(name + "\\inside.txt", "i"));
  }
  EXPECT_FALSE(Exists(name));

  // A file with a new extension: the system's .TMP file stays.
  {
    VTempPathName temp(dir.Path().c_str(), "vf", "dat", FALSE, 0, FALSE);
    name = (const char*)temp;
    EXPECT_TRUE(name.substr(name.size() - 4) == ".dat" && !Exists(name)) << name;
    EXPECT_TRUE(Exists(name.substr(0, name.size() - 4) + ".tmp"));
  }

  ASSERT_TRUE(TempDir::WriteBytes(dir.File("adopted.txt"), "a"));
  { VTempPathName keep(dir.File("adopted.txt").c_str(), FALSE); }
  EXPECT_TRUE(Exists(dir.File("adopted.txt")));
  {
    VTempPathName drop(dir.File("adopted.txt").c_str(), TRUE);
    EXPECT_STREQ("", drop.GetPath());
  }
  EXPECT_FALSE(Exists(dir.File("adopted.txt")));
}

} // namespace
