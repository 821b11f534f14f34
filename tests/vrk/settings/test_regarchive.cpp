// VRegArchive and the registry functions on the real registry, under
// HKCU\Software\Tamrix (put back as it was by ScratchRegistry).
#include <vrk_profile.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "scratch_registry.h"
#include "vtable_slot.h"

#include <string>
#include <vector>

namespace {

const char kRoot[] = "Software\\Tamrix\\VrkSettingsTest";
const char kSection[] = "Archive";
const std::string kPath = std::string(kRoot) + "\\" + kSection;

class RegArchiveTest : public ::testing::Test {
protected:
  ScratchRegistry m_scratch;
};

TEST(RegMakeKey, JoinsRootAndSectionOrUsesTheApplicationKey) {
  EXPECT_STREQ("", VrkRegMakeKey(NULL, "Software\\Tamrix\\PEL", 0));
  EXPECT_STREQ("Software\\Tamrix\\PEL\\Settings",
               VrkRegMakeKey("Settings", "Software\\Tamrix\\PEL", 0));
  EXPECT_STREQ("\\Settings", VrkRegMakeKey("Settings", "", 0));
  EXPECT_STREQ("Environment\\", VrkRegMakeKey("", "Environment", 0));
  EXPECT_STREQ("", VrkRegMakeKey("Settings", NULL, 0)); // no application object
  CWinApp app("VrkSettingsApp");
  EXPECT_STREQ("", VrkRegMakeKey("Settings", NULL, 0)); // no registry key yet
  app.SetRegistryKey("Tamrix");
  EXPECT_STREQ("Software\\Tamrix\\VrkSettingsApp\\Settings", VrkRegMakeKey("Settings", NULL, 7));
}

TEST_F(RegArchiveTest, WritesTypedValuesAndReadsThemBack) {
  VRegArchive ar;
  ASSERT_EQ(1, ar.Open(kSection, kRoot, 0)); // the key is created when missing
  BYTE blob[] = {1, 0, 2, 0xFF};
  EXPECT_EQ(1, ar.Write("Count", (DWORD)0x12345678));
  EXPECT_EQ(1, ar.Write("Name", "settings"));
  EXPECT_EQ(1, ar.Write("Blob", blob, sizeof(blob)));
  // Typed values; the string's terminator is stored.
  std::string text;
  std::vector<BYTE> bytes;
  DWORD dw = 0;
  EXPECT_TRUE(ScratchRegistry::ReadDword(kPath, "Count", &dw) && dw == 0x12345678);
  EXPECT_TRUE(ScratchRegistry::ReadBinary(kPath, "Blob", &bytes) && bytes.size() == 4);
  EXPECT_TRUE(ScratchRegistry::ReadString(kPath, "Name", &text) && text == "settings");
  DWORD cb = 0;
  EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExA(ar, "Name", NULL, NULL, NULL, &cb));
  EXPECT_EQ(9u, cb);
  int signedCount = 0;
  CString name;
  BYTE back[4] = {0};
  EXPECT_EQ(1, ar.Read("Count", signedCount, -1) + ar.Read("Name", name, "none") +
                   ar.Read("Blob", back, sizeof(back)) - 2);
  EXPECT_EQ(0x12345678, signedCount);
  EXPECT_STREQ("settings", name);
  EXPECT_EQ(0, memcmp(blob, back, 4));
  EXPECT_EQ(1, ar.Close());
  EXPECT_TRUE((HKEY)ar == NULL);
}

TEST_F(RegArchiveTest, AbsentValuesKeepTheDefaultAndTypesAreNotChecked) {
  VRegArchive ar;
  ASSERT_EQ(1, ar.Open(kSection, kRoot, 0));
  DWORD count = 1;
  int number = 1;
  CString text("old");
  BYTE buffer[4];
  EXPECT_EQ(1, ar.Read("Missing", count, 77));
  EXPECT_EQ(77u, count);
  EXPECT_EQ(1, ar.Read("Missing", number, -5));
  EXPECT_EQ(-5, number);
  EXPECT_EQ(1, ar.Read("Missing", text, "fallback"));
  EXPECT_STREQ("fallback", text);
  EXPECT_EQ(0, ar.Read("Missing", buffer, sizeof(buffer))); // the buffer read reports the system
  EXPECT_EQ(0, ar.Read("Missing", (void*)NULL, 4));
  // A string too long for 4 bytes leaves the integer default, a short one fills it.
  ASSERT_TRUE(ScratchRegistry::WriteString(kPath, "Text", "a long string"));
  ASSERT_TRUE(ScratchRegistry::WriteString(kPath, "Short", "ab"));
  EXPECT_EQ(1, ar.Read("Text", count, 99));
  EXPECT_EQ(99u, count);
  EXPECT_EQ(1, ar.Read("Short", count, 0));
  EXPECT_EQ((DWORD)('a' | 'b' << 8), count);

  // Closed: everything fails and reads hand back their defaults.
  ar.Close();
  EXPECT_EQ(0, ar.Read("Short", count, 3));
  EXPECT_EQ(3u, count);
  EXPECT_EQ(0, ar.Read("Short", text, "def"));
  EXPECT_STREQ("def", text);
  EXPECT_EQ(0, ar.Write("x", (DWORD)1) + ar.Write("x", buffer, 4) + ar.Close());
}

TEST_F(RegArchiveTest, ReadOnlyKeyRefusesWritesButOnlyTheIntegerWriteSaysSo) {
  ASSERT_TRUE(ScratchRegistry::WriteDword(kPath, "Count", 5));
  VRegArchive ar;
  ASSERT_EQ(1, ar.Open(kSection, kRoot, VRK_PROFILE_READONLY));
  BYTE blob[2] = {1, 2};
  EXPECT_EQ(0, ar.Write("Count", (DWORD)6));
  EXPECT_EQ(1, ar.Write("Name", "refused"));
  EXPECT_EQ(1, ar.Write("Blob", blob, sizeof(blob)));
  EXPECT_FALSE(ScratchRegistry::ValueExists(kPath, "Name"));
  EXPECT_FALSE(ScratchRegistry::ValueExists(kPath, "Blob"));
  DWORD stored = 0;
  ASSERT_TRUE(ScratchRegistry::ReadDword(kPath, "Count", &stored));
  EXPECT_EQ(5u, stored);
  EXPECT_EQ(0, ar.Write("Name", (const char*)NULL) + ar.Write("Blob", (void*)NULL, 2));
}

TEST_F(RegArchiveTest, OpenFormsAndTheirFailures) {
  VRegArchive ar;
  EXPECT_EQ(0, ar.Open(kSection, NULL, 0)); // no application
  CWinApp app("VrkSettingsApp");
  EXPECT_EQ(0, ar.Open(kSection, NULL, 0)); // no registry key
  EXPECT_EQ(0, ar.Open((const char*)NULL, kRoot, 0));
  // A failed Open also closes what was open.
  ASSERT_EQ(1, ar.Open(kSection, kRoot, 0));
  EXPECT_EQ(0, ar.Open(kSection, NULL, 0));
  EXPECT_TRUE((HKEY)ar == NULL);
  app.SetRegistryKey("Tamrix");
  ASSERT_EQ(1, ar.Open(kSection, NULL, 0));
  EXPECT_EQ(1, ar.Write("App", (DWORD)1));
  EXPECT_TRUE(ScratchRegistry::ValueExists("Software\\Tamrix\\VrkSettingsApp\\Archive", "App"));
  ar.Close();
  ScratchRegistry::DeleteTree("Software\\Tamrix\\VrkSettingsApp");

  // Under a parent: created only when asked.
  HKEY root = NULL;
  ASSERT_EQ(1, VrkRegCreateKeyEx(HKEY_CURRENT_USER, kRoot, &root, KEY_ALL_ACCESS));
  EXPECT_EQ(0, ar.Open(root, "Child", 0));
  EXPECT_FALSE(ScratchRegistry::KeyExists(std::string(kRoot) + "\\Child"));
  EXPECT_EQ(1, ar.Open(root, "Child", VRK_PROFILE_CREATE));
  EXPECT_EQ(1, ar.Write("v", (DWORD)9));
  EXPECT_EQ(1, ar.Open(root, "Child", 0));
  EXPECT_EQ(9u, VrkRegQueryDword(ar, "v", 0));
  RegCloseKey(root);

  // HKCU\Environment (the path "Environment\" of an empty section); the
  // path "\" is one the system refuses (ERROR_BAD_PATHNAME).
  ASSERT_EQ(1, ar.Open(VREG_OPEN_ENVIRONMENT));
  ASSERT_EQ(1, ar.Write("VrkArchiveTest", "env"));
  EXPECT_TRUE(ScratchRegistry::ValueExists("Environment", "VrkArchiveTest"));
  RegDeleteValueA(ar, "VrkArchiveTest");
  EXPECT_EQ(0, ar.Open(VREG_OPEN_ROOT));
  EXPECT_TRUE((HKEY)ar == NULL);
}

// Copies share the key, and closing, reopening or reassigning one copy
// leaves it open for the others: a handle closed under a copy could be
// handed to the next key opened, and the copy's writes would land there.
TEST_F(RegArchiveTest, CopiesShareTheKeyUntilTheLastOneLetsGo) {
  VRegArchive* pFirst = new VRegArchive;
  ASSERT_EQ(1, pFirst->Open(kSection, kRoot, 0));
  VRegArchive copy(*pFirst), assigned, reopened(*pFirst);
  assigned = *pFirst;
  assigned = assigned;
  EXPECT_EQ((HKEY)*pFirst, (HKEY)copy);
  EXPECT_EQ((HKEY)*pFirst, (HKEY)assigned);
  EXPECT_EQ(1, pFirst->Close());
  delete pFirst;
  ASSERT_EQ(1, reopened.Open("Other", kRoot, 0));
  VRegArchive next;
  ASSERT_EQ(1, next.Open("Next", kRoot, 0));
  EXPECT_EQ(1, copy.Write("ByCopy", (DWORD)3));
  EXPECT_EQ(1, assigned.Write("ByAssigned", (DWORD)4));
  assigned = next;
  EXPECT_EQ(1, copy.Write("AfterAssign", (DWORD)5));
  for (const char* name : {"ByCopy", "ByAssigned", "AfterAssign"}) {
    EXPECT_TRUE(ScratchRegistry::ValueExists(kPath, name)) << name;
    EXPECT_FALSE(ScratchRegistry::ValueExists(std::string(kRoot) + "\\Next", name)) << name;
    EXPECT_FALSE(ScratchRegistry::ValueExists(std::string(kRoot) + "\\Other", name)) << name;
  }
  // The last share closes the key: the system refuses the handle then.
  HKEY hKey = copy;
  EXPECT_EQ(1, copy.Close());
  DWORD value = 1;
  EXPECT_NE(ERROR_SUCCESS, RegSetValueExA(hKey, "Late", 0, REG_DWORD, (const BYTE*)&value, 4));
}

// The class string "REG_SZ" is the library's; a string query falls back to
// the default on every failure.
TEST_F(RegArchiveTest, KeyExistsCreateAndQueryString) {
  EXPECT_EQ(0, VrkRegKeyExists(kSection, kRoot, 0) + VrkRegKeyExists(NULL, kRoot, 0));
  HKEY hKey = NULL;
  ASSERT_EQ(1, VrkRegCreateKeyEx(HKEY_CURRENT_USER, kPath.c_str(), &hKey, KEY_ALL_ACCESS));
  char cls[32] = {0};
  DWORD clsLength = sizeof(cls);
  EXPECT_EQ(ERROR_SUCCESS, RegQueryInfoKeyA(hKey, cls, &clsLength, NULL, NULL, NULL, NULL, NULL,
                                            NULL, NULL, NULL, NULL));
  EXPECT_STREQ("REG_SZ", cls);
  EXPECT_EQ(1, VrkRegKeyExists(kSection, kRoot, 0));
  ASSERT_TRUE(ScratchRegistry::WriteBinary(kPath, "Raw", {'a', 'b', 'c'})); // no terminator
  EXPECT_STREQ("abc", VrkRegQueryString(hKey, "Raw", "def"));
  EXPECT_STREQ("def", VrkRegQueryString(hKey, "Missing", "def"));
  EXPECT_STREQ("def", VrkRegQueryString(NULL, "Raw", "def"));
  RegCloseKey(hKey);
}

TEST(ProfileArchive, VirtualSlotOrder) {
  typedef VProfileArchive A;
  EXPECT_EQ(0, Slot(&A::Open));
  EXPECT_EQ(1, Slot((int(A::*)(const char*, void*, DWORD)) & A::Read));
  EXPECT_EQ(2, Slot((int(A::*)(const char*, CString&, const char*)) & A::Read));
  EXPECT_EQ(3, Slot((int(A::*)(const char*, DWORD&, DWORD)) & A::Read));
  EXPECT_EQ(4, Slot((int(A::*)(const char*, int&, int)) & A::Read));
  EXPECT_EQ(5, Slot((int(A::*)(const char*, void*, DWORD)) & A::Write));
  EXPECT_EQ(6, Slot((int(A::*)(const char*, const char*)) & A::Write));
  EXPECT_EQ(7, Slot((int(A::*)(const char*, DWORD)) & A::Write));
  EXPECT_EQ(8, Slot(&A::Close));
  // The destructor takes the slots after Close (two in this ABI); the INI
  // archive's own virtuals follow it.
  EXPECT_EQ(11, Slot(&VIniArchive::ReadBool));
  EXPECT_EQ(12, Slot(&VIniArchive::WriteBool));
}

} // namespace
