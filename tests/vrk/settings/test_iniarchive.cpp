// VIniArchive on real INI files in a temporary folder.
#include <vrk_profile.h>
#include <gtest/gtest.h>

#include "in_order.h"
#include "temp_dir.h"

#include <string>

namespace {

class IniArchiveTest : public ::testing::Test {
protected:
  // Opens section Sec of settings.ini, creating the file.
  void OpenNew() { ASSERT_EQ(1, m_ar.Open("Sec", m_file.c_str(), VRK_PROFILE_CREATE)); }

  TempDir m_dir;
  std::string m_file = m_dir.File("settings.ini");
  VIniArchive m_ar;
};

TEST_F(IniArchiveTest, OpenNeedsTheFileUnlessAskedToCreateIt) {
  EXPECT_EQ(0, m_ar.Open("Sec", m_file.c_str(), 0) +
                   m_ar.Open(NULL, m_file.c_str(), VRK_PROFILE_CREATE) +
                   m_ar.Open("Sec", NULL, VRK_PROFILE_CREATE) +
                   m_ar.Open("Sec", m_dir.File("no\\such\\dir.ini").c_str(), VRK_PROFILE_CREATE));
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(m_file.c_str()));
  EXPECT_EQ(1, m_ar.Open("Sec", m_file.c_str(), VRK_PROFILE_CREATE));
  EXPECT_TRUE(GetFileAttributesA(m_file.c_str()) != INVALID_FILE_ATTRIBUTES &&
              TempDir::ReadBytes(m_file).empty()); // created empty
  ASSERT_TRUE(TempDir::WriteBytes(m_file, "[Sec]\r\nKeep=1\r\n"));
  EXPECT_EQ(1, m_ar.Open("Sec", m_file.c_str(), VRK_PROFILE_CREATE)); // not truncated
  EXPECT_EQ("[Sec]\r\nKeep=1\r\n", TempDir::ReadBytes(m_file));
}

// Numbers are cut to the target's width; reads always succeed, missing
// entries giving the default; ReadBool takes "t", "T" or a non-zero number,
// and a missing entry is false.
TEST_F(IniArchiveTest, ReadsCutToTheTargetWidthAndAlwaysSucceed) {
  ASSERT_TRUE(TempDir::WriteBytes(m_file, "[Sec]\r\nBig=70000\r\nByte=300\r\nNeg=-2\r\nLow=t\r\n"
                                          "High=T\r\nYes=yes\r\nTwo=2\r\nZero=0\r\nTrue=True\r\n"));
  ASSERT_EQ(1, m_ar.Open("Sec", m_file.c_str(), 0));
  DWORD dw = 0;
  int i = 0;
  unsigned short w = 0, missing = 0;
  unsigned char b = 0;
  CString s("old");
  EXPECT_EQ(6, m_ar.Read("Big", dw, 0) + m_ar.Read("Big", w, 0) + m_ar.Read("Byte", b, 0) +
                   m_ar.Read("Neg", i, 0) + m_ar.Read("Missing", missing, 13) +
                   m_ar.Read("Missing", s, NULL));
  EXPECT_TRUE(dw == 70000 && w == (70000 & 0xFFFF) && b == (300 & 0xFF) && i == -2);
  EXPECT_TRUE(missing == 13 && s.IsEmpty());
  std::string bools;
  for (const char* name : {"Low", "High", "Yes", "Two", "Zero", "True", "Missing"}) {
    int value = -1;
    EXPECT_EQ(1, m_ar.ReadBool(name, value, 1)) << name;
    bools += (char)('0' + value);
  }
  EXPECT_EQ("1101000", bools);
}

// Numbers as unsigned text, booleans as 1 or 0, strings cut to 4095 when read.
TEST_F(IniArchiveTest, WritesTextTheSystemReadsBack) {
  OpenNew();
  int five = 5, zero = 0;
  const std::string text(5000, 'q');
  EXPECT_EQ(5,
            Sum({m_ar.Write("Dword", (DWORD)4000000000u), m_ar.Write("Word", (unsigned short)65535),
                 m_ar.Write("Byte", (unsigned char)200), m_ar.WriteBool("On", five),
                 m_ar.WriteBool("Off", zero)}));
  WritePrivateProfileStringA(NULL, NULL, NULL, m_file.c_str()); // the system's cache flushed
  EXPECT_EQ("[Sec]\r\nDword=4000000000\r\nWord=65535\r\nByte=200\r\nOn=1\r\nOff=0\r\n",
            TempDir::ReadBytes(m_file));
  EXPECT_EQ(1, m_ar.Write("Long", text.c_str()));
  CString back;
  EXPECT_EQ(1, m_ar.Read("Long", back, ""));
  EXPECT_EQ(text.substr(0, 4095), std::string(back, back.GetLength()));
}

TEST_F(IniArchiveTest, StructsMustMatchInSizeCloseFlushesAndForgetsTheFile) {
  OpenNew();
  BYTE data[3] = {0x01, 0xAB, 0x10}, back[3] = {0};
  EXPECT_EQ(1, m_ar.Write("Blob", data, sizeof(data)));
  EXPECT_EQ(1, m_ar.Read("Blob", back, sizeof(back)));
  EXPECT_EQ(0, memcmp(data, back, 3));
  EXPECT_EQ(0, m_ar.Read("Blob", back, 2) + m_ar.Read("Blob", (void*)NULL, 3));
  ASSERT_TRUE(WritePrivateProfileStringA("Sec", "Blob", NULL, m_file.c_str()));
  EXPECT_EQ(1, m_ar.Write("A", "1"));
  EXPECT_EQ(1, m_ar.Close());
  EXPECT_EQ("[Sec]\r\nA=1\r\n", TempDir::ReadBytes(m_file));
  EXPECT_EQ(0, m_ar.Close());
  DWORD dw = 0; // closed: everything fails, reads hand back their defaults
  int flag = 1;
  EXPECT_EQ(0, m_ar.Read("A", dw, 3) + m_ar.ReadBool("A", flag, 1) + m_ar.Write("A", "2") +
                   m_ar.WriteBool("A", flag));
  EXPECT_EQ(3u, dw);
  EXPECT_EQ("[Sec]\r\nA=1\r\n", TempDir::ReadBytes(m_file));
}

} // namespace
