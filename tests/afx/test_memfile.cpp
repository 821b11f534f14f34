// CMemFile: reads, writes and seeks past the end, and caller buffers.
// (CSharedFile is driven by the global-object tests: blocks written,
// detached and read back through SetHandle.)
#include <afx.h>
#include <gtest/gtest.h>

#include "exception_probe.h"

#include <string>

TEST(MemFile, ReadWriteSeekLengthAndCallerBuffers) {
  CMemFile file;
  file.Write("hello world", 11);
  EXPECT_EQ(11u, file.GetPosition());
  EXPECT_EQ(6u, file.Seek(-5, CFile::end));
  char buf[16] = {0};
  EXPECT_EQ(5u, file.Read(buf, 10)); // short at the end
  EXPECT_STREQ("world", buf);
  EXPECT_EQ(0u, file.Read(buf, 10));

  // Past the end, then writing: the gap reads as zeros.
  EXPECT_EQ(14u, file.Seek(3, CFile::current));
  file.Write("!", 1);
  EXPECT_EQ(15u, file.GetLength());
  file.Seek(11, CFile::begin);
  EXPECT_EQ(4u, file.Read(buf, 4));
  EXPECT_EQ(std::string("\0\0\0!", 4), std::string(buf, 4));

  file.SetLength(5);
  EXPECT_EQ(5u, file.GetPosition()); // pulled back to the new end
  file.SetLength(8);
  file.SeekToBegin();
  EXPECT_EQ(8u, file.Read(buf, 16));
  EXPECT_EQ(std::string("hello\0\0\0", 8), std::string(buf, 8));

  EXPECT_EQ(CFileException::badSeek, FileCause([&] { file.Seek(-1, CFile::begin); }));
  CFileStatus status;
  EXPECT_TRUE(file.GetStatus(status));
  EXPECT_EQ(8u, status.m_size);

  // A caller's buffer, fixed or growing.
  BYTE data[8] = {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'};
  CMemFile fixed(data, sizeof(data));
  EXPECT_EQ(8u, fixed.GetLength()); // the whole buffer is the file
  fixed.Seek(6, CFile::begin);
  fixed.Write("XY", 2);
  EXPECT_EQ('Y', data[7]); // full: the archive suite's flush into a fixed buffer
  EXPECT_EQ(data, fixed.Detach());
  EXPECT_EQ(0u, fixed.GetLength());

  BYTE* owned = (BYTE*)malloc(4);
  CMemFile growing;
  growing.Attach(owned, 4, 16);
  EXPECT_EQ(0u, growing.GetLength()); // a growable buffer starts empty
  growing.Write("0123456789", 10);
  EXPECT_EQ(10u, growing.GetLength());
  BYTE* p = growing.Detach();
  EXPECT_EQ(0, memcmp(p, "0123456789", 10));
  free(p);
}
