// CFile, CStdioFile, CFileFind and CFileStatus on real files.
#include <afx.h>
#include <gtest/gtest.h>
#include "exception_probe.h"

#include <set>
#include <string>

#include "temp_dir.h"

TEST(File, NamesAndCreateModes) {
  TempDir dir;
  std::string path = dir.File("data.bin");
  {
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeReadWrite);
    file.Write("0123456789", 10);
    file.SetLength(5);
    EXPECT_EQ(5u, file.SeekToEnd());
    EXPECT_STREQ("data.bin", file.GetFileName());
    EXPECT_STREQ("data", file.GetFileTitle());
    EXPECT_STREQ(path.c_str(), file.GetFilePath());
  }
  EXPECT_EQ("01234", TempDir::ReadBytes(path));

  // modeNoTruncate keeps the contents; plain modeCreate empties the file.
  {
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite);
    file.SeekToEnd();
    file.Write("X", 1);
  }
  EXPECT_EQ("01234X", TempDir::ReadBytes(path));
  { CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite); }
  EXPECT_EQ("", TempDir::ReadBytes(path));
}

// A failed open reports its cause and the name as given; the file keeps the
// full path it tried (MFC sets it before the attempt), so that an error box
// about it can name the file. A name too long for a path is never taken.
TEST(File, FailedOpensReportTheirCauseAndKeepTheFullPath) {
  TempDir dir;
  std::string locked = dir.File("locked.txt");
  CFile owner(locked.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive);
  const std::string tooLong(400, 'a');
  struct Case {
    std::string name;
    int cause;
    std::string kept;
  } cases[] = {
      {dir.File("missing.txt"), CFileException::fileNotFound, dir.File("missing.txt")},
      {locked, CFileException::sharingViolation, locked},
      {dir.File("no\\dir.txt"), CFileException::badPath, dir.File("no\\dir.txt")},
      {tooLong, CFileException::badPath, ""},
  };
  for (const Case& c : cases) {
    CFile file;
    CFileException e;
    EXPECT_FALSE(file.Open(c.name.c_str(), CFile::modeRead, &e));
    EXPECT_EQ(c.cause, e.m_cause) << c.name;
    EXPECT_STREQ(c.name.c_str(), e.m_strFileName);
    EXPECT_EQ(INVALID_HANDLE_VALUE, file.m_hFile);
    EXPECT_STREQ(c.kept.c_str(), file.GetFilePath()) << c.name;
    CFileStatus status;
    EXPECT_TRUE(file.GetStatus(status));
    EXPECT_STREQ(c.kept.c_str(), status.m_szFullName) << c.name;
  }
  EXPECT_EQ(CFileException::fileNotFound,
            FileCause([&] { CFile thrown(cases[0].name.c_str(), CFile::modeRead); }));
}

TEST(FileStatus, FullPathsAndSetStatus) {
  TempDir dir;
  std::string path = dir.File("status.txt");
  TempDir::WriteBytes(path, "12345");
  CFileStatus st;
  ASSERT_TRUE(CFile::GetStatus(path.c_str(), st));
  EXPECT_EQ(5u, st.m_size);
  EXPECT_STREQ(path.c_str(), st.m_szFullName);

  // A relative name comes back as a full path.
  char cwd[MAX_PATH];
  GetCurrentDirectoryA(MAX_PATH, cwd);
  SetCurrentDirectoryA(dir.Path().c_str());
  CFileStatus rel;
  EXPECT_TRUE(CFile::GetStatus("status.txt", rel));
  SetCurrentDirectoryA(cwd);
  EXPECT_STREQ(path.c_str(), rel.m_szFullName);
  EXPECT_FALSE(CFile::GetStatus(dir.File("none").c_str(), rel));

  st.m_mtime = CTime(2001, 2, 3, 4, 5, 6);
  st.m_attribute = CFile::readOnly;
  CFile::SetStatus(path.c_str(), st);
  CFileStatus after;
  ASSERT_TRUE(CFile::GetStatus(path.c_str(), after));
  EXPECT_TRUE(after.m_mtime == CTime(2001, 2, 3, 4, 5, 6));
  EXPECT_TRUE(after.m_attribute & CFile::readOnly);

  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(StdioFile, LongLinesBothReadFormsAndAppend) {
  TempDir dir;
  std::string path = dir.File("bin.txt");
  std::string longLine(1000, 'L');
  TempDir::WriteBytes(path, longLine + "\r\nnext\n");
  {
    CStdioFile file(path.c_str(), CFile::modeRead | CFile::typeBinary);
    CString line;
    ASSERT_TRUE(file.ReadString(line));
    EXPECT_EQ(1001, line.GetLength()); // binary: the '\r' stays
    EXPECT_EQ('\r', line[1000]);
    char buf[8];
    EXPECT_STREQ("next\n", file.ReadString(buf, sizeof(buf))); // this form keeps the newline
    EXPECT_FALSE(file.ReadString(line));
    EXPECT_EQ(1007u, file.GetLength());
    EXPECT_EQ(1007u, file.GetPosition());
  }
  {
    // modeWrite without modeCreate keeps the contents.
    CStdioFile file(path.c_str(), CFile::modeWrite | CFile::typeBinary);
    file.Seek(0, CFile::end);
    file.Write("tail", 4);
  }
  std::string all = TempDir::ReadBytes(path);
  EXPECT_EQ(1011u, all.size());
  EXPECT_EQ("next\ntail", all.substr(1002));
}

TEST(FileFind, WalksAFolderWithFullPaths) {
  TempDir dir;
  TempDir::WriteBytes(dir.File("one.txt"), "1");
  TempDir::WriteBytes(dir.File("two.txt"), "22");
  CreateDirectoryA(dir.File("sub").c_str(), NULL);
  SetFileAttributesA(dir.File("two.txt").c_str(), FILE_ATTRIBUTE_READONLY);
  CFileFind finder;
  std::set<std::string> seen;
  for (BOOL more = finder.FindFile((dir.Path() + "\\*.*").c_str()); more;) {
    more = finder.FindNextFile();
    if (finder.IsDots()) continue;
    std::string name = (LPCTSTR)finder.GetFileName();
    EXPECT_STREQ((dir.Path() + "\\" + name).c_str(), finder.GetFilePath());
    seen.insert(name + (finder.IsDirectory() ? "/" : "") + (finder.IsReadOnly() ? " ro" : ""));
  }
  EXPECT_EQ((std::set<std::string>{"one.txt", "sub/", "two.txt ro"}), seen);
  EXPECT_STREQ(dir.Path().c_str(), finder.GetRoot());
  SetFileAttributesA(dir.File("two.txt").c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_FALSE(finder.FindFile((dir.Path() + "\\*.none").c_str()));
}
