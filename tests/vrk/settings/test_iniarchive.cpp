// VIniArchive on real INI files in a temporary folder.
#include <vrk_profile.h>
#include <gtest/gtest.h>

#include "temp_dir.h"

#include <string>

namespace {

class IniArchiveTest : public ::testing::Test {
protected:
  // Opens kSection of settings.ini, creating the file.
  void OpenNew() { ASSERT_EQ(1, m_ar.Open("Sec", m_file.c_str(), VRK_PROFILE_CREATE)); }
  // The file's text after the system's cache is flushed.
  std::string Text() {
    WritePrivateProfileStringA(NULL, NULL, NULL, m_file.c_str());
    return TempDir::ReadBytes(m_file);
  }

  TempDir m_dir;
  std::string m_file = m_dir.File("settings.ini");
  VIniArchive m_ar;
};

TEST_F(IniArchiveTest, OpenNeedsTheFileUnlessAskedToCreateIt) {
  EXPECT_EQ(0, m_ar.Open("Sec", m_file.c_str(), 0));
  EXPECT_EQ(0, m_ar.Open(NULL, m_file.c_str(), VRK_PROFILE_CREATE));
  EXPECT_EQ(0, m_ar.Open("Sec", NULL, VRK_PROFILE_CREATE));
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(m_file.c_str()));

  EXPECT_EQ(1, m_ar.Open("Sec", m_file.c_str(), VRK_PROFILE_CREATE));
  EXPECT_EQ("", TempDir::ReadBytes(m_file)); // created empty
  ASSERT_TRUE(TempDir::WriteBytes(m_file, "[Sec]\r\nKeep=1\r\n"));
  EXPECT_EQ(1, m_ar.Open("Sec", m_file.c_str(), VRK_PROFILE_CREATE)); // not truncated
  EXPECT_EQ("[Sec]\r\nKeep=1\r\n", TempDir::ReadBytes(m_file));
  // A file that cannot be created.
  EXPECT_EQ(0, m_ar.Open("Sec", m_dir.File("no\\such\\dir.ini").c_str(), VRK_PROFILE_CREATE));
}

TEST_F(IniArchiveTest, ReadsCutToTheTargetWidthAndAlwaysSucceed) {
  ASSERT_TRUE(TempDir::WriteBytes(m_file, "[Sec]\r\nBig=70000\r\nByte=300\r\nNeg=-2\r\n"));
  ASSERT_EQ(1, m_ar.Open("Sec", m_file.c_str(), 0));
  DWORD dw = 0;
  int i = 0;
  unsigned short w = 0;
  unsigned char b = 0;
  EXPECT_EQ(1, m_ar.Read("Big", dw, 0));
  EXPECT_EQ(70000u, dw);
  EXPECT_EQ(1, m_ar.Read("Big", w, 0));
  EXPECT_EQ(70000 & 0xFFFF, w);
  EXPECT_EQ(1, m_ar.Read("Byte", b, 0));
  EXPECT_EQ(300 & 0xFF, b);
  EXPECT_EQ(1, m_ar.Read("Neg", i, 0));
  EXPECT_EQ(-2, i);
  // Missing entries: the default, and still success.
  CString s;
  EXPECT_EQ(1, m_ar.Read("Missing", w, 13));
  EXPECT_EQ(13, w);
  EXPECT_EQ(1, m_ar.Read("Missing", s, NULL));
  EXPECT_STREQ("", s);
}

TEST_F(IniArchiveTest, ReadBoolAcceptsTOrANonZeroNumber) {
  ASSERT_TRUE(TempDir::WriteBytes(
      m_file, "[Sec]\r\nLow=t\r\nHigh=T\r\nYes=yes\r\nTwo=2\r\nZero=0\r\nTrue=True\r\n"));
  ASSERT_EQ(1, m_ar.Open("Sec", m_file.c_str(), 0));
  const struct {
    const char* name;
    int expected;
  } cases[] = {{"Low", 1}, {"High", 1}, {"Yes", 0}, {"Two", 1}, {"Zero", 0}, {"True", 0}};
  for (const auto& c : cases) {
    int value = -1;
    EXPECT_EQ(1, m_ar.ReadBool(c.name, value, 1)) << c.name;
    EXPECT_EQ(c.expected, value) << c.name;
  }
  int value = -1;
  EXPECT_EQ(1, m_ar.ReadBool("Missing", value, 1)); // the default is not used
  EXPECT_EQ(0, value);
}

// Numbers as unsigned text, booleans as 1 or 0, strings cut to 4095 when read.
TEST_F(IniArchiveTest, WritesTextTheSystemReadsBack) {
  OpenNew();
  int five = 5, zero = 0;
  const std::string text(5000, 'q');
  EXPECT_EQ(1, m_ar.Write("Dword", (DWORD)4000000000u));
  EXPECT_EQ(1, m_ar.Write("Word", (unsigned short)65535));
  EXPECT_EQ(1, m_ar.Write("Byte", (unsigned char)200));
  EXPECT_EQ(1, m_ar.WriteBool("On", five));
  EXPECT_EQ(1, m_ar.WriteBool("Off", zero));
  EXPECT_EQ("[Sec]\r\nDword=4000000000\r\nWord=65535\r\nByte=200\r\nOn=1\r\nOff=0\r\n", Text());
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
  EXPECT_EQ(0, m_ar.Read("Blob", back, 2));
  EXPECT_EQ(0, m_ar.Read("Blob", (void*)NULL, 3));
  ASSERT_TRUE(WritePrivateProfileStringA("Sec", "Blob", NULL, m_file.c_str()));
  EXPECT_EQ(1, m_ar.Write("A", "1"));
  EXPECT_EQ(1, m_ar.Close());
  EXPECT_EQ("[Sec]\r\nA=1\r\n", TempDir::ReadBytes(m_file));
  EXPECT_EQ(0, m_ar.Close());
  // Closed: every operation fails and reads hand back their defaults.
  DWORD dw = 0;
  int flag = 1;
  CString s;
  EXPECT_EQ(0, m_ar.Read("A", dw, 3));
  EXPECT_EQ(3u, dw);
  EXPECT_EQ(0, m_ar.Read("A", s, "d"));
  EXPECT_STREQ("d", s);
  EXPECT_EQ(0, m_ar.ReadBool("A", flag, 1));
  EXPECT_EQ(0, m_ar.Write("A", "2") + m_ar.WriteBool("A", flag));
  EXPECT_EQ("[Sec]\r\nA=1\r\n", TempDir::ReadBytes(m_file));
}

} // namespace
