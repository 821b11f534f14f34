// ScratchRegistry: what a test adds under HKCU\Software\Tamrix goes, what it
// changes or removes comes back, and what was there stays.
#include <gtest/gtest.h>

#include "scratch_registry.h"

namespace {
const std::string kBase = "Software\\Tamrix\\VrkScratchTest";
}

TEST(ScratchRegistry, RemovesAddedKeysAndValues) {
  {
    ScratchRegistry scratch;
    ScratchRegistry::WriteString(kBase + "\\A\\B\\C", "deep", "x");
    EXPECT_TRUE(ScratchRegistry::KeyExists(kBase + "\\A\\B\\C"));
  }
  EXPECT_FALSE(ScratchRegistry::KeyExists(kBase));
}

TEST(ScratchRegistry, KeepsWhatWasThereAndRestoresChanges) {
  ScratchRegistry outer; // cleans up this test's own setup
  ScratchRegistry::WriteString(kBase, "Kept", "original");
  ScratchRegistry::WriteDword(kBase + "\\Child", "Count", 5);
  ScratchRegistry::WriteString(kBase, "Removed", "was here");
  {
    ScratchRegistry scratch;
    ScratchRegistry::WriteString(kBase, "Kept", "changed");
    ScratchRegistry::WriteDword(kBase, "Added", 1);
    ScratchRegistry::WriteString(kBase + "\\Child\\New", "v", "x");
    ScratchRegistry::DeleteTree(kBase + "\\Child");
    HKEY hKey;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, kBase.c_str(), 0, KEY_WRITE, &hKey), ERROR_SUCCESS);
    RegDeleteValueA(hKey, "Removed");
    RegCloseKey(hKey);
  }
  std::string text;
  DWORD number = 0;
  EXPECT_TRUE(ScratchRegistry::ReadString(kBase, "Kept", &text));
  EXPECT_EQ(text, "original");
  EXPECT_TRUE(ScratchRegistry::ReadString(kBase, "Removed", &text));
  EXPECT_EQ(text, "was here");
  EXPECT_FALSE(ScratchRegistry::ValueExists(kBase, "Added"));
  EXPECT_TRUE(ScratchRegistry::ReadDword(kBase + "\\Child", "Count", &number));
  EXPECT_EQ(number, 5u);
  EXPECT_FALSE(ScratchRegistry::KeyExists(kBase + "\\Child\\New"));
}

TEST(ScratchRegistry, OtherKeysAreUntouched) {
  const std::string kOutside = "Software\\VrkScratchOutside";
  {
    ScratchRegistry scratch;
    ScratchRegistry::WriteString(kOutside, "v", "stays");
  }
  EXPECT_TRUE(ScratchRegistry::ValueExists(kOutside, "v"));
  EXPECT_TRUE(ScratchRegistry::DeleteTree(kOutside));
  EXPECT_FALSE(ScratchRegistry::KeyExists(kOutside));
}
