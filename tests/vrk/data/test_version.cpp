// Version resources read from fixture binaries.
#include <vrk_version.h>
#include <child_process.h>
#include <gtest/gtest.h>

#include <string>

static std::string BinFile(const char* name) { return ExeDir() + "\\" + name; }

// A failed load drops what the previous one found.
TEST(FileVersionInfo, ReadsFixedRecordAndFirstTranslationOnlyAndFailuresHoldNothing) {
  VrkFileVersionInfo info;
  EXPECT_EQ(nullptr, info.GetFixedInfo()); // nothing loaded
  EXPECT_EQ(CString(), info.GetValue("CompanyName"));
  EXPECT_FALSE(info.GetFileVersionInfoA(NULL));
  ASSERT_TRUE(info.GetFileVersionInfoA(BinFile("vrk_data_verdll.dll").c_str()));
  const VS_FIXEDFILEINFO* fixed = info.GetFixedInfo();
  ASSERT_NE(nullptr, fixed);
  EXPECT_EQ(0xFEEF04BDu, fixed->dwSignature);
  EXPECT_EQ(MAKELONG(5, 2), (LONG)fixed->dwFileVersionMS);
  EXPECT_EQ(MAKELONG(77, 0), (LONG)fixed->dwFileVersionLS);
  // German (0407, 04e4) is the first translation: its values win, and a key
  // only the English block has is not found.
  EXPECT_STREQ("Tamrix Testhaus", info.GetValue("CompanyName"));
  EXPECT_EQ(CString(), info.GetValue("OnlyEnglish"));
  EXPECT_EQ(CString(), info.GetValue(NULL));
  // This program has no version resource.
  EXPECT_FALSE(info.GetFileVersionInfoA(BinFile("vrk_data_version.exe").c_str()));
  EXPECT_EQ(nullptr, info.GetFixedInfo());
  EXPECT_EQ(CString(), info.GetValue("CompanyName"));
  // A name longer than a path can be is cut, not overrun.
  EXPECT_FALSE(info.GetFileVersionInfoA(std::string(5000, 'a').c_str()));
}
