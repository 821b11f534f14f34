// ScratchRegistry: what a test adds under HKCU\Software\Tamrix goes, what it
// changes or removes comes back, and keys outside the root stay.
#include <gtest/gtest.h>

#include "scratch_registry.h"

TEST(ScratchRegistry, RemovesAddedRestoresChangedAndLeavesOtherKeys) {
  const std::string kBase = "Software\\Tamrix\\VrkScratchTest",
                    kOutside = "Software\\VrkScratchOut";
  ScratchRegistry outer; // cleans up this test's own setup
  ScratchRegistry::WriteString(kBase, "Kept", "original");
  ScratchRegistry::WriteDword(kBase + "\\Child", "Count", 5);
  ScratchRegistry::WriteString(kBase, "Removed", "was here");
  {
    ScratchRegistry scratch;
    ScratchRegistry::WriteString(kBase, "Kept", "changed");
    ScratchRegistry::WriteDword(kBase, "Added", 1);
    ScratchRegistry::WriteString(kBase + "\\New\\B\\C", "deep", "x");
    ScratchRegistry::WriteString(kBase + "\\Child\\New", "v", "x");
    ScratchRegistry::DeleteTree(kBase + "\\Child");
    ScratchRegistry::WriteString(kOutside, "v", "stays");
    HKEY hKey;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, kBase.c_str(), 0, KEY_WRITE, &hKey), ERROR_SUCCESS);
    RegDeleteValueA(hKey, "Removed");
    RegCloseKey(hKey);
  }
  std::string kept, removed;
  DWORD number = 0;
  EXPECT_TRUE(ScratchRegistry::ReadString(kBase, "Kept", &kept) && kept == "original");
  EXPECT_TRUE(ScratchRegistry::ReadString(kBase, "Removed", &removed) && removed == "was here");
  EXPECT_TRUE(ScratchRegistry::ReadDword(kBase + "\\Child", "Count", &number) && number == 5);
  EXPECT_FALSE(ScratchRegistry::ValueExists(kBase, "Added") ||
               ScratchRegistry::KeyExists(kBase + "\\New") ||
               ScratchRegistry::KeyExists(kBase + "\\Child\\New"));
  EXPECT_TRUE(ScratchRegistry::ValueExists(kOutside, "v"));
  ScratchRegistry::DeleteTree(kOutside);
}
