// VFileFind's ask-before-use loop, and VShellIDListFileFind over a real
// shell ID-list array built for files in a temporary folder.
#include <vrk_filefind.h>
#include <gtest/gtest.h>

#include "temp_dir.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

// FindNextFile is true for the last file too, then false.
TEST(FileFind, AskBeforeUseLoopSeesEveryFileOnce) {
  TempDir dir;
  for (const char* name : {"a.dat", "b.dat", "c.dat"})
    ASSERT_TRUE(TempDir::WriteBytes(dir.File(name), name));
  VFileFind find;
  std::vector<std::string> names;
  ASSERT_TRUE(find.FindFile(dir.File("*.dat").c_str()));
  while (find.FindNextFile())
    names.push_back((const char*)find.GetFileName());
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::vector<std::string>({"a.dat", "b.dat", "c.dat"}), names);
  EXPECT_FALSE(find.FindNextFile());
  EXPECT_FALSE(find.FindFile(dir.File("*.none").c_str()));
  EXPECT_FALSE(find.FindNextFile());
}

// ---- Shell ID-list arrays -----------------------------------------------------

UINT ListSize(LPCITEMIDLIST pidl) {
  UINT n = 0;
  for (const BYTE* p = (const BYTE*)pidl; ((LPCSHITEMID)p)->cb != 0; p += ((LPCSHITEMID)p)->cb)
    n += ((LPCSHITEMID)p)->cb;
  return n + 2;
}

LPCITEMIDLIST LastItem(LPCITEMIDLIST pidl) {
  const BYTE* pLast = (const BYTE*)pidl;
  for (const BYTE* p = pLast; ((LPCSHITEMID)p)->cb != 0; p += ((LPCSHITEMID)p)->cb)
    pLast = p;
  return (LPCITEMIDLIST)pLast;
}

LPITEMIDLIST Parse(const std::string& path) {
  IShellFolder* pDesktop = NULL;
  if (FAILED(SHGetDesktopFolder(&pDesktop))) return NULL;
  wchar_t wsz[MAX_PATH];
  MultiByteToWideChar(CP_ACP, 0, path.c_str(), -1, wsz, MAX_PATH);
  LPITEMIDLIST pidl = NULL;
  ULONG eaten = 0;
  if (FAILED(pDesktop->ParseDisplayName(NULL, NULL, wsz, &eaten, &pidl, NULL))) pidl = NULL;
  pDesktop->Release();
  return pidl;
}

// The CIDA form: count, offsets, parent list, then the items' last ids.
std::vector<BYTE> BuildIDA(LPCITEMIDLIST pidlParent, const std::vector<LPCITEMIDLIST>& items) {
  UINT nHeader = sizeof(UINT) * (UINT)(items.size() + 2);
  std::vector<BYTE> ida(nHeader);
  std::vector<UINT> offsets;
  std::vector<LPCITEMIDLIST> lists(1, pidlParent);
  lists.insert(lists.end(), items.begin(), items.end());
  for (LPCITEMIDLIST pidl : lists) {
    offsets.push_back((UINT)ida.size());
    UINT n = ListSize(pidl);
    ida.insert(ida.end(), (const BYTE*)pidl, (const BYTE*)pidl + n);
  }
  UINT cidl = (UINT)items.size();
  memcpy(ida.data(), &cidl, sizeof(UINT));
  memcpy(ida.data() + sizeof(UINT), offsets.data(), offsets.size() * sizeof(UINT));
  return ida;
}

// Items whose find data cannot be read (an empty item list here) are
// skipped; a virtual parent folder has no path and is refused.
TEST(ShellIDListFileFind, EnumeratesTheReadableItemsOfTheArray) {
  TempDir dir;
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("first.txt"), "12345"));
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("second.bin"), "1234567"));
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("unlisted.txt"), "x"));
  LPITEMIDLIST pidlDir = Parse(dir.Path()), pidlA = Parse(dir.File("first.txt")),
               pidlB = Parse(dir.File("second.bin")), pidlDrives = NULL;
  ASSERT_TRUE(pidlDir && pidlA && pidlB);
  static const BYTE empty[2] = {0, 0};
  std::vector<BYTE> ida =
      BuildIDA(pidlDir, {LastItem(pidlA), (LPCITEMIDLIST)empty, LastItem(pidlB)});
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
  ida = BuildIDA(pidlDrives, {LastItem(pidlA)});
  EXPECT_FALSE(find.FindFile((const char*)ida.data()));
  EXPECT_FALSE(find.FindFile(NULL));
  for (LPITEMIDLIST pidl : {pidlDir, pidlA, pidlB, pidlDrives})
    CoTaskMemFree(pidl);
}

} // namespace
