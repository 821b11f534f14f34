// CMemFile and CSharedFile: reads, writes and seeks past the end, caller
// buffers and global memory handles.
#include <afx.h>
#include <afxadv.h>
#include <gtest/gtest.h>

#include "exception_probe.h"

#include <string>

namespace {

// Records each allocation request so that the growth rule can be checked.
class CCountingMemFile : public CMemFile {
public:
  explicit CCountingMemFile(UINT nGrowBytes) : CMemFile(nGrowBytes) {}
  ~CCountingMemFile() { Close(); }
  SIZE_T BufferSize() const { return m_nBufferSize; }
  SIZE_T lastRequest = 0;

protected:
  BYTE* Alloc(SIZE_T nBytes) override {
    lastRequest = nBytes;
    return CMemFile::Alloc(nBytes);
  }
  BYTE* Realloc(BYTE* p, SIZE_T nBytes) override {
    lastRequest = nBytes;
    return CMemFile::Realloc(p, nBytes);
  }
};

} // namespace

TEST(MemFile, ReadWriteSeekAndLength) {
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
}

TEST(MemFile, CallerBufferFixedOrGrowing) {
  BYTE data[8] = {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'};
  CMemFile fixed(data, sizeof(data));
  EXPECT_EQ(8u, fixed.GetLength()); // the whole buffer is the file
  fixed.Seek(6, CFile::begin);
  fixed.Write("XY", 2);
  EXPECT_EQ('Y', data[7]);
  EXPECT_EQ(CFileException::diskFull, FileCause([&] { fixed.Write("Z", 1); }));
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

TEST(SharedFile, WritesIntoAGlobalBlockAndHandsItOver) {
  CSharedFile file;
  file.Write("clipboard", 9);
  EXPECT_EQ(9u, file.GetLength());
  HGLOBAL h = file.Detach();
  ASSERT_TRUE(h != NULL);
  EXPECT_GE(GlobalSize(h), 9u);
  EXPECT_EQ(0u, file.GetLength());
  const char* p = (const char*)GlobalLock(h);
  EXPECT_EQ(0, memcmp(p, "clipboard", 9));
  GlobalUnlock(h);

  // Taken back: its whole size is the file.
  CSharedFile again;
  again.SetHandle(h);
  EXPECT_EQ(GlobalSize(h), again.GetLength());
  char buf[9];
  EXPECT_EQ(9u, again.Read(buf, 9));
  EXPECT_EQ(0, memcmp(buf, "clipboard", 9));
  again.SeekToEnd();
  again.Write("+more", 5); // may grow: the block moves
  HGLOBAL h2 = again.Detach();
  EXPECT_GE(GlobalSize(h2), 14u);
  GlobalFree(h2);
}
