// VFileReaderWriter: the exact bytes of every writer, the number and size of
// the CFile calls each makes, reads in each byte order, and failures.
#include <vrk_filereaderwriter.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "in_order.h"
#include "msgbox_catcher.h"
#include "temp_dir.h"

#include <string.h>
#include <string>
#include <vector>

namespace {

const char kWriteText[] = "The file could not be written";
const char kReadText[] = "The file could not be read";

// A disk file that records the size of every Write and Read call.
class RecordingFile : public CFile {
public:
  void Write(const void* p, UINT n) override {
    m_writes.push_back(n);
    CFile::Write(p, n);
  }
  UINT Read(void* p, UINT n) override {
    m_reads.push_back(n);
    return CFile::Read(p, n);
  }
  std::vector<UINT> m_writes, m_reads;
};

// A writer over a fresh recording file in a temporary folder.
class ReaderWriterTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_name = m_dir.File("rw.bin");
    ASSERT_TRUE(m_file.Open(m_name.c_str(), CFile::modeCreate | CFile::modeReadWrite));
    m_rw.SetCurrentFile(&m_file);
  }
  // The whole file, read past the recording; the position ends at the end.
  std::string Bytes() {
    std::string bytes((size_t)m_file.GetLength(), '\0');
    m_file.SeekToBegin();
    if (!bytes.empty()) m_file.CFile::Read(&bytes[0], (UINT)bytes.size());
    return bytes;
  }
  void Reset(const std::string& bytes) {
    m_file.SetLength(0);
    m_file.SeekToBegin();
    m_file.Write(bytes.data(), (UINT)bytes.size());
    m_file.SeekToBegin();
    m_file.m_writes.clear();
    m_file.m_reads.clear();
  }
  std::vector<UINT> Calls(std::initializer_list<UINT> l) { return std::vector<UINT>(l); }

  TempDir m_dir;
  std::string m_name;
  RecordingFile m_file;
  VFileReaderWriter m_rw;
};

// Every form (explicit file or current, pointer or value) writes alike;
// each byte of a number or a line end is a call of its own.
TEST_F(ReaderWriterTest, BytesAndCallsOfEveryWriter) {
  const unsigned short w = 0xABCD;
  const unsigned long dw = 0x11223344ul;
  const unsigned char b = 0x7F, run[] = {0, 1, 2, 0xFF};
  EXPECT_EQ(10,
            Sum({m_rw.WriteFourByteDwordNormal(&m_file, &dw), m_rw.WriteFourByteDwordNormal(dw),
                 m_rw.WriteFourByteDwordLowByteFirst(&dw),
                 m_rw.WriteFourByteDwordLowByteFirst(&m_file, dw), m_rw.WriteTwoByteWordNormal(&w),
                 m_rw.WriteTwoByteWordNormal(&m_file, w),
                 m_rw.WriteTwoByteWordByteSwapped(&m_file, &w), m_rw.WriteTwoByteWordByteSwapped(w),
                 m_rw.WriteOneByte(&m_file, &b), m_rw.WriteOneByte((unsigned char)0x81)}));
  EXPECT_EQ("\x11\x22\x33\x44\x11\x22\x33\x44\x44\x33\x22\x11\x44\x33\x22\x11"
            "\xAB\xCD\xAB\xCD\xCD\xAB\xCD\xAB\x7F\x81",
            Bytes());
  EXPECT_EQ(Calls({1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 1, 1}),
            m_file.m_writes);
  Reset("");
  EXPECT_EQ(10, Sum({m_rw.WriteOneByteAsFilledBase10Text((unsigned char)7),
                     m_rw.WriteOneByteAsFilledBase10Text(&m_file, (unsigned char)255),
                     m_rw.WriteOneByteAsFilledHexText(&m_file, (unsigned char)0x0A),
                     m_rw.WriteWordAsFilledBase10Text((unsigned short)65535),
                     m_rw.WriteWordAsFilledBase10Text(&m_file, (unsigned short)42),
                     m_rw.WriteIntegerAsFilledBase10Text(-12),
                     m_rw.WriteIntegerAsFilledBase10Text(&m_file, 1234567),
                     m_rw.WriteIntegerAsFilledBase10Text(-2147483647 - 1),
                     m_rw.WriteWordAsFilledHexText(&m_file, (unsigned short)0xBEEF),
                     m_rw.WriteWordAsFilledHexText(&m_file, (unsigned short)0x00A)}));
  EXPECT_EQ(std::string("007255") + std::string("0A\0", 3) +
                "065535000042-00012123456-21474BEEF000A",
            Bytes());
  EXPECT_EQ(Calls({3, 3, 3, 6, 6, 6, 6, 6, 4, 4}), m_file.m_writes);
  Reset("");
  EXPECT_EQ(
      10,
      Sum({m_rw.WriteZString("ab"), m_rw.WriteLnZString(&m_file, "cd"), m_rw.WriteNewLnZString(""),
           m_rw.WriteNewLnZString(&m_file, "ef"), m_rw.WriteCRLF(), m_rw.WriteByteBuffer(run, 4),
           m_rw.WriteLnByteBuffer(run + 1, 2), m_rw.WriteThisManyOfThisByte(3, (unsigned char)'z'),
           m_rw.WriteThisManyZeroBytes(&m_file, 2), m_rw.WriteThisManyZeroBytes(0u)}));
  EXPECT_EQ(std::string("abcd\r\n\r\n\r\n\r\nef\r\n\r\n\0\1\2\xFF\1\2\r\nzzz\0\0", 31), Bytes());
  EXPECT_EQ(Calls({2, 2, 1, 1, 1, 1, 0, 1, 1, 1, 1, 2, 1, 1, 1, 1, 4, 2, 1, 1, 1, 1, 1, 1, 1}),
            m_file.m_writes);
}

TEST_F(ReaderWriterTest, ReadsInEachByteOrder) {
  Reset("\x12\x34\x12\x34\xFE\xFF\x11\x22\x33\x44\x11\x22\x33\x44\x9A"
        "abc");
  unsigned short w1 = 0, w2 = 0;
  short s = 0;
  unsigned long dw1 = 0, dw2 = 0;
  unsigned char b = 0, buf[4] = {9, 9, 9, 9};
  EXPECT_EQ(
      7, Sum({m_rw.ReadTwoByteWordNormal(&w1), m_rw.ReadTwoByteWordByteSwapped(&m_file, &w2),
              m_rw.ReadTwoByteIntegerByteSwapped(&s), m_rw.ReadFourByteDwordNormal(&m_file, &dw1),
              m_rw.ReadFourByteDwordLowByteFirst(&dw2), m_rw.ReadOneByte(&m_file, &b),
              m_rw.ReadNumberOfBytes(buf, 3)}));
  EXPECT_TRUE(w1 == 0x1234 && w2 == 0x3412 && s == -2 && b == 0x9A) << w1 << " " << w2 << " " << s;
  EXPECT_TRUE(dw1 == 0x11223344ul && dw2 == 0x44332211ul) << std::hex << dw1 << " " << dw2;
  EXPECT_EQ(0, memcmp(buf, "abc\x09", 4));
  EXPECT_EQ(Calls({1, 1, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 3}), m_file.m_reads);
}

TEST_F(ReaderWriterTest, ShortReadsAreReportedAndKeepOrClearTheOutput) {
  MsgBoxCatcher catcher;
  const std::string box = std::string(kReadText) + ": " + m_name;

  Reset("\x01\x02");
  unsigned long dw = 0xCAFEBABEul;
  EXPECT_EQ(0, m_rw.ReadFourByteDwordNormal(&dw));
  EXPECT_EQ(0xCAFEBABEul, dw); // two bytes left: the old value kept
  EXPECT_EQ(Calls({1, 1, 1}), m_file.m_reads);
  ASSERT_EQ(1u, catcher.Count()); // the text of every box is checked at the end

  // One byte left: the 2-byte block read overwrites half of the output.
  Reset("\x55");
  unsigned short w = 0xFFFF;
  EXPECT_EQ(0, m_rw.ReadTwoByteWordByteSwapped(&w));
  EXPECT_EQ(0xFF55, w);
  m_file.SeekToBegin();
  w = 0x7777;
  EXPECT_EQ(0, m_rw.ReadTwoByteWordNormal(&w));
  EXPECT_EQ(0x7777, w);
  // At the end: ReadOneByte and ReadNumberOfBytes clear their output first.
  unsigned char b = 0xEE;
  EXPECT_EQ(0, m_rw.ReadOneByte(&b));
  EXPECT_EQ(0, b);
  m_file.SeekToBegin();
  unsigned char buf[3] = {7, 7, 7};
  EXPECT_EQ(0, m_rw.ReadNumberOfBytes(&m_file, buf, 3));
  EXPECT_EQ(0, memcmp(buf, "\x55\0\0", 3));
  // A null file or pointer is FALSE, reads and writes nothing, shows nothing.
  VFileReaderWriter empty;
  m_file.m_reads.clear();
  EXPECT_EQ(0, empty.WriteLnZString("x") + empty.ReadOneByte(&b) + m_rw.WriteByteBuffer(NULL, 3) +
                   m_rw.ReadNumberOfBytes(NULL, 3));
  EXPECT_TRUE(m_file.m_writes.empty() && m_file.m_reads.empty());
  EXPECT_EQ(5u, catcher.Count());
  for (const CaughtBox& caught : catcher.Boxes())
    EXPECT_EQ(box, caught.text);
}

TEST(ReaderWriterErrors, WriteToAReadOnlyFileShowsOneBoxPerFailedCall) {
  TempDir dir;
  const std::string name = dir.File("ro.bin");
  ASSERT_TRUE(TempDir::WriteBytes(name, "data"));
  MsgBoxCatcher catcher;
  VFileReaderWriter rw;
  ASSERT_EQ(1, rw.OpenAndUseExistingFile(name.c_str(), CFile::modeRead));
  // Each failing member stops at its first failed call: three boxes.
  EXPECT_EQ(0, rw.WriteFourByteDwordNormal(1ul) + rw.WriteLnZString("line") +
                   rw.WriteThisManyZeroBytes(100u));
  ASSERT_EQ(3u, catcher.Count());
  EXPECT_EQ(std::string(kWriteText) + ": " + name, catcher.Last().text);
  EXPECT_EQ(1, rw.CloseFile());
  EXPECT_EQ("data", TempDir::ReadBytes(name));
}

} // namespace
