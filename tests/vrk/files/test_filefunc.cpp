// Whole-file functions: access codes, copies, comparisons, positions, the
// end-of-file tests and the line counter.
#include <vrk_filefunc.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "temp_dir.h"

#include <string>

namespace {

TEST(FileAccess, CodesForMissingPresentAndLockedFiles) {
  TempDir dir;
  const std::string name = dir.File("a.txt");
  EXPECT_EQ(2, VrkFileAccess(NULL, 0));
  for (int nCode : {2, 0}) {
    for (int mode : {0, 2, 4, 6, 7})
      EXPECT_EQ(nCode, VrkFileAccess(name.c_str(), mode)) << mode;
    ASSERT_TRUE(TempDir::WriteBytes(name, "x"));
  }

  // A file held exclusively opens in no mode, but it exists.
  HANDLE h = CreateFileA(name.c_str(), GENERIC_READ, 0, NULL, OPEN_EXISTING, 0, NULL);
  ASSERT_NE(INVALID_HANDLE_VALUE, h);
  EXPECT_TRUE(VrkFileAccess(name.c_str(), 4) == 13 && VrkFileAccess(name.c_str(), 0) == 0);
  CloseHandle(h);
  // The probe closed the file again: it can be deleted.
  EXPECT_EQ(0, VrkFileAccess(name.c_str(), 6));
  EXPECT_TRUE(DeleteFileA(name.c_str()));
}

std::string Pattern(size_t n) {
  std::string s(n, '\0');
  for (size_t i = 0; i < n; ++i)
    s[i] = (char)(i * 7 + i / 251);
  return s;
}

TEST(FileCopy, EveryByteByNameTruncatingOrFromTheFilesPosition) {
  TempDir dir;
  const std::string src = dir.File("src.bin"), dst = dir.File("dst.bin");
  const std::string bytes = Pattern(4096 * 3 + 17);
  ASSERT_TRUE(TempDir::WriteBytes(src, bytes));
  ASSERT_TRUE(TempDir::WriteBytes(dst, std::string(50000, 'o')));
  EXPECT_EQ(1, VrkFileCopy(dst.c_str(), src.c_str()));
  EXPECT_EQ(bytes, TempDir::ReadBytes(dst));
  EXPECT_EQ(0, VrkFileCopy(dst.c_str(), dir.File("missing").c_str()) +
                   VrkFileCopy(dir.File("no\\such\\dir.bin").c_str(), src.c_str()) +
                   VrkFileCopy((const char*)NULL, src.c_str()));
  EXPECT_EQ(bytes, TempDir::ReadBytes(dst)); // a missing source leaves the target alone
  // Files: from the current position, counting the bytes.
  CMemFile source, dest;
  source.Write(bytes.data(), (UINT)bytes.size());
  source.Seek(1000, CFile::begin);
  EXPECT_EQ((unsigned long)bytes.size() - 1000, VrkFileCopy(&dest, &source));
  EXPECT_EQ(0ul, VrkFileCopy(&dest, &source)); // at the end already
  EXPECT_EQ(0ul, VrkFileCopy(&dest, (CFile*)NULL));
  std::string copied((size_t)dest.GetLength(), '\0');
  dest.SeekToBegin();
  dest.Read(&copied[0], (UINT)copied.size());
  EXPECT_EQ(bytes.substr(1000), copied);
}

// Sizes first, then the first differing byte; a file held exclusively ends
// the comparison with the size result.
TEST(FileComp, SizesThenBytesSameNamesMissingAndHeldFiles) {
  TempDir dir;
  const std::string a = dir.File("Same.bin"), b = dir.File("b.bin"), e1 = dir.File("e1"),
                    e2 = dir.File("e2");
  std::string bytes = Pattern(9000);
  ASSERT_TRUE(TempDir::WriteBytes(a, bytes) && TempDir::WriteBytes(e1, "") &&
              TempDir::WriteBytes(e2, ""));
  std::string differs = bytes, shorter = bytes.substr(0, 8990);
  differs[8500] = (char)((unsigned char)differs[8500] - 1); // in the third block
  std::string upper = a;
  for (char& c : upper)
    c = (char)toupper((unsigned char)c);
  const struct {
    std::string bContent, x, y;
    long n;
  } cases[] = {{bytes, a, b, 0},     {differs, a, b, 1}, {differs, b, a, -1}, {shorter, a, b, 10},
               {shorter, b, a, -10}, {"", e1, e2, 0},    {"", a, upper, 0}};
  for (const auto& c : cases) {
    ASSERT_TRUE(c.bContent.empty() || TempDir::WriteBytes(b, c.bContent));
    long n = 99;
    EXPECT_EQ(1, VrkFileComp(c.x.c_str(), c.y.c_str(), n)) << c.x << " " << c.y;
    EXPECT_EQ(c.n, n) << c.x << " " << c.y;
  }
  long n = 7;
  EXPECT_EQ(0, VrkFileComp(a.c_str(), dir.File("missing").c_str(), n) +
                   VrkFileComp(dir.File("missing").c_str(), a.c_str(), n) +
                   VrkFileComp(NULL, a.c_str(), n));
  EXPECT_EQ(7, n);
  HANDLE h = CreateFileA(b.c_str(), GENERIC_READ, 0, NULL, OPEN_EXISTING, 0, NULL);
  ASSERT_NE(INVALID_HANDLE_VALUE, h);
  EXPECT_TRUE(VrkFileComp(a.c_str(), b.c_str(), n) == 1 && n == 10); // the sizes' result
  EXPECT_TRUE(VrkFileComp(b.c_str(), a.c_str(), n) == 1 && n == -10);
  CloseHandle(h);
}

TEST(FileEOF, FalseAtStartTrueFromOneToOnePastTheEnd) {
  TempDir dir;
  const std::string name = dir.File("eof.bin");
  ASSERT_TRUE(TempDir::WriteBytes(name, "abcd"));
  CFile file(name.c_str(), CFile::modeRead);
  EXPECT_EQ(0, VrkFileEOF((void*)file.m_hFile) + VrkFileEOF(&file));
  for (LONGLONG pos : {1, 2, 4, 5}) {
    file.Seek(pos, CFile::begin);
    EXPECT_EQ(1, VrkFileEOF(&file)) << pos;
  }
  file.Seek(6, CFile::begin);
  EXPECT_EQ(0, VrkFileEOF(&file));

  // The archive form asks its file's handle: it moves when the buffer fills.
  file.SeekToBegin();
  CArchive ar(&file, CArchive::load);
  EXPECT_EQ(0, VrkFileEOF(ar));
  BYTE b;
  ar >> b;
  EXPECT_EQ(1, VrkFileEOF(ar));
  ar.Close();
}

TEST(CountLines, LineFeedsCountedByCharacter) {
  EXPECT_EQ(0, VrkCountLines(NULL) + VrkCountLines(""));
  EXPECT_EQ(2, VrkCountLines("one\n"));
  EXPECT_EQ(3, VrkCountLines("a\r\nb\nc"));
}

} // namespace
