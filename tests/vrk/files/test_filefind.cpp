// VShellIDListFileFind over a real shell ID-list array built for files in a
// temporary folder. VFileFind's own loop is walked by the attribute changes
// of test_pathfile.
#include <vrk_filefind.h>
#include <shlobj.h>
#include <gtest/gtest.h>

#include "temp_dir.h"

#include <string>
#include <vector>

namespace {

// The CIDA form: count, offsets, parent list, then the items' lists.
std::vector<BYTE> BuildIDA(LPCITEMIDLIST pidlParent, const std::vector<LPCITEMIDLIST>& items) {
  std::vector<UINT> header(1, (UINT)items.size());
  std::vector<LPCITEMIDLIST> all(1, pidlParent);
  all.insert(all.end(), items.begin(), items.end());
  std::vector<BYTE> lists;
  for (LPCITEMIDLIST pidl : all) {
    header.push_back((UINT)(sizeof(UINT) * (items.size() + 2) + lists.size()));
    lists.insert(lists.end(), (const BYTE*)pidl, (const BYTE*)pidl + ILGetSize(pidl));
  }
  std::vector<BYTE> ida((const BYTE*)header.data(), (const BYTE*)(header.data() + header.size()));
  ida.insert(ida.end(), lists.begin(), lists.end());
  return ida;
}

// Items whose find data cannot be read (an empty item list here) are
// skipped; a virtual parent folder has no path and is refused.
TEST(ShellIDListFileFind, EnumeratesTheReadableItemsOfTheArray) {
  TempDir dir;
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("first.txt"), "12345"));
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("second.bin"), "1234567"));
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("unlisted.txt"), "x"));
  LPITEMIDLIST pidlDir = ILCreateFromPathA(dir.Path().c_str()),
               pidlA = ILCreateFromPathA(dir.File("first.txt").c_str()),
               pidlB = ILCreateFromPathA(dir.File("second.bin").c_str()), pidlDrives = NULL;
  ASSERT_TRUE(pidlDir && pidlA && pidlB);
  static const BYTE empty[2] = {0, 0};
  std::vector<BYTE> ida =
      BuildIDA(pidlDir, {ILFindLastID(pidlA), (LPCITEMIDLIST)empty, ILFindLastID(pidlB)});
  VShellIDListFileFind find;
  ASSERT_TRUE(find.FindFile((const char*)ida.data()));
  EXPECT_EQ(0, lstrcmpiA(dir.Path().c_str(), find.GetRoot())) << (const char*)find.GetRoot();
  std::vector<std::string> names;
  std::vector<ULONGLONG> lengths;
  for (BOOL bMore = TRUE; bMore;) {
    bMore = find.FindNextFile();
    names.push_back((const char*)find.GetFileName());
    lengths.push_back(find.GetLength());
  }
  EXPECT_EQ(std::vector<std::string>({"first.txt", "second.bin"}), names);
  EXPECT_EQ(std::vector<ULONGLONG>({5, 7}), lengths);
  EXPECT_EQ(0, lstrcmpiA(dir.File("second.bin").c_str(), find.GetFilePath()));
  EXPECT_FALSE(find.FindNextFile());
  // A new search over the same array starts again at the first item.
  ASSERT_TRUE(find.FindFile((const char*)ida.data()));
  EXPECT_TRUE(find.FindNextFile());
  EXPECT_EQ("first.txt", std::string(find.GetFileName()));
  find.Close();
  EXPECT_FALSE(find.FindNextFile());

  ASSERT_TRUE(SUCCEEDED(SHGetSpecialFolderLocation(NULL, CSIDL_DRIVES, &pidlDrives)));
  ida = BuildIDA(pidlDrives, {ILFindLastID(pidlA)});
  EXPECT_FALSE(find.FindFile((const char*)ida.data()));
  EXPECT_FALSE(find.FindFile(NULL));
  for (LPITEMIDLIST pidl : {pidlDir, pidlA, pidlB, pidlDrives})
    CoTaskMemFree(pidl);
}

} // namespace
