// VRegArchive and the registry functions on the real registry, under
// HKCU\Software\Tamrix (put back as it was by ScratchRegistry).
#include <vrk_profile.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "scratch_registry.h"
#include "vtable_slot.h"

#include <string>

namespace {

const char kRoot[] = "Software\\Tamrix\\VrkSettingsTest";
const char kSection[] = "Archive";
const std::string kPath = std::string(kRoot) + "\\" + kSection;

class RegArchiveTest : public ::testing::Test {
protected:
  ScratchRegistry m_scratch;
};

// Typed values, the string's terminator stored; absent values give the
// default; types are not checked (a short string fills an integer); a
// read-only key refuses writes, but only the integer write says so.
TEST_F(RegArchiveTest, TypedValuesDefaultsAndReadOnlyKeys) {
  VRegArchive ar;
  ASSERT_EQ(1, ar.Open(kSection, kRoot, 0)); // the key is created when missing
  BYTE blob[] = {1, 0, 2, 0xFF}, back[4] = {0};
  EXPECT_EQ(3, ar.Write("Count", (DWORD)0x12345678) + ar.Write("Name", "settings") +
                   ar.Write("Blob", blob, sizeof(blob)));
  std::string text;
  std::vector<BYTE> bytes;
  DWORD dw = 0, cb = 0;
  EXPECT_TRUE(ScratchRegistry::ReadDword(kPath, "Count", &dw) && dw == 0x12345678);
  EXPECT_TRUE(ScratchRegistry::ReadBinary(kPath, "Blob", &bytes) && bytes.size() == 4);
  EXPECT_TRUE(ScratchRegistry::ReadString(kPath, "Name", &text) && text == "settings");
  EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExA(ar, "Name", NULL, NULL, NULL, &cb));
  EXPECT_EQ(9u, cb);
  int number = 0;
  CString name;
  EXPECT_EQ(3, ar.Read("Count", number, -1) + ar.Read("Name", name, "none") +
                   ar.Read("Blob", back, sizeof(back)));
  EXPECT_TRUE(number == 0x12345678 && name == "settings" && memcmp(blob, back, 4) == 0);
  EXPECT_EQ(2, ar.Read("Missing", dw, 77) + ar.Read("Missing", name, "fallback"));
  EXPECT_TRUE(dw == 77 && name == "fallback");
  EXPECT_EQ(0, ar.Read("Missing", back, sizeof(back)) + ar.Read("Missing", (void*)NULL, 4));
  ASSERT_TRUE(ScratchRegistry::WriteString(kPath, "Text", "a long string"));
  ASSERT_TRUE(ScratchRegistry::WriteString(kPath, "Short", "ab"));
  EXPECT_EQ(2, ar.Read("Text", dw, 99) + ar.Read("Short", number, 0));
  EXPECT_TRUE(dw == 99 && number == ('a' | 'b' << 8));
  EXPECT_EQ(1, ar.Close());
  EXPECT_TRUE((HKEY)ar == NULL); // closed: everything fails, reads give the default
  EXPECT_EQ(0, ar.Read("Short", dw, 3) + ar.Write("x", (DWORD)1) + ar.Write("x", blob, 4) +
                   ar.Close());
  EXPECT_EQ(3u, dw);

  ASSERT_EQ(1, ar.Open(kSection, kRoot, VRK_PROFILE_READONLY));
  EXPECT_EQ(0, ar.Write("Count", (DWORD)6));
  EXPECT_EQ(2, ar.Write("Name2", "refused") + ar.Write("Blob2", blob, sizeof(blob)));
  EXPECT_FALSE(ScratchRegistry::ValueExists(kPath, "Name2") ||
               ScratchRegistry::ValueExists(kPath, "Blob2"));
  EXPECT_TRUE(ScratchRegistry::ReadDword(kPath, "Count", &dw) && dw == 0x12345678);
  EXPECT_EQ(0, ar.Write("Name", (const char*)NULL) + ar.Write("Blob", (void*)NULL, 2));
}

TEST_F(RegArchiveTest, OpenFormsAndTheirFailures) {
  // The application's key, none without a registry key, and the path
  // "Environment\" of an empty section: RegMakeKey's paths, opened.
  VRegArchive ar;
  CWinApp app("VrkSettingsApp");
  EXPECT_EQ(0, ar.Open((const char*)NULL, kRoot, 0));
  ASSERT_EQ(1, ar.Open(kSection, kRoot, 0));
  EXPECT_EQ(0, ar.Open(kSection, NULL, 0)); // no registry key; what was open is closed
  EXPECT_TRUE((HKEY)ar == NULL);
  app.SetRegistryKey("Tamrix");
  ASSERT_EQ(1, ar.Open(kSection, NULL, 0));
  EXPECT_EQ(1, ar.Write("App", (DWORD)1));
  EXPECT_TRUE(ScratchRegistry::ValueExists("Software\\Tamrix\\VrkSettingsApp\\Archive", "App"));
  ar.Close();
  // Under a parent: created only when asked.
  HKEY root = NULL;
  ASSERT_EQ(1, VrkRegCreateKeyEx(HKEY_CURRENT_USER, kRoot, &root, KEY_ALL_ACCESS));
  EXPECT_EQ(0, ar.Open(root, "Child", 0));
  EXPECT_FALSE(ScratchRegistry::KeyExists(std::string(kRoot) + "\\Child"));
  EXPECT_EQ(1, ar.Open(root, "Child", VRK_PROFILE_CREATE));
  RegCloseKey(root);
  // HKCU\Environment (the path "Environment\" of an empty section); the
  // path "\" is one the system refuses.
  ASSERT_EQ(1, ar.Open(VREG_OPEN_ENVIRONMENT));
  ASSERT_EQ(1, ar.Write("VrkArchiveTest", "env"));
  EXPECT_TRUE(ScratchRegistry::ValueExists("Environment", "VrkArchiveTest"));
  RegDeleteValueA(ar, "VrkArchiveTest");
  EXPECT_EQ(0, ar.Open(VREG_OPEN_ROOT));
}

// Closing, reopening or reassigning one copy leaves the shared key open for
// the others: a handle closed under a copy could be handed to the next key
// opened, and the copy's writes would land there.
TEST_F(RegArchiveTest, CopiesShareTheKeyUntilTheLastOneLetsGo) {
  VRegArchive* pFirst = new VRegArchive;
  ASSERT_EQ(1, pFirst->Open(kSection, kRoot, 0));
  VRegArchive copy(*pFirst), assigned, reopened(*pFirst);
  assigned = *pFirst;
  assigned = assigned;
  EXPECT_TRUE((HKEY)*pFirst == (HKEY)copy && (HKEY)*pFirst == (HKEY)assigned);
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
  HKEY hKey = copy; // the last share closes the key: the system refuses it then
  EXPECT_EQ(1, copy.Close());
  DWORD value = 1;
  EXPECT_NE(ERROR_SUCCESS, RegSetValueExA(hKey, "Late", 0, REG_DWORD, (const BYTE*)&value, 4));
}

// The class string "REG_SZ" is the library's; a string value stored without
// its terminator is read whole and no further.
TEST_F(RegArchiveTest, CreatedKeysClassAndAStringWithoutTerminator) {
  HKEY hKey = NULL;
  ASSERT_EQ(1, VrkRegCreateKeyEx(HKEY_CURRENT_USER, kPath.c_str(), &hKey, KEY_ALL_ACCESS));
  char cls[32] = {0};
  DWORD clsLength = sizeof(cls);
  EXPECT_EQ(ERROR_SUCCESS, RegQueryInfoKeyA(hKey, cls, &clsLength, NULL, NULL, NULL, NULL, NULL,
                                            NULL, NULL, NULL, NULL));
  EXPECT_STREQ("REG_SZ", cls);
  ASSERT_TRUE(ScratchRegistry::WriteBinary(kPath, "Raw", {'a', 'b', 'c'}));
  EXPECT_STREQ("abc", VrkRegQueryString(hKey, "Raw", "def"));
  RegCloseKey(hKey);
}

TEST(ProfileArchive, VirtualSlotOrder) {
  typedef VProfileArchive A;
  const int slots[] = {Slot(&A::Open), Slot((int(A::*)(const char*, void*, DWORD)) & A::Read),
                       Slot((int(A::*)(const char*, CString&, const char*)) & A::Read),
                       Slot((int(A::*)(const char*, DWORD&, DWORD)) & A::Read),
                       Slot((int(A::*)(const char*, int&, int)) & A::Read),
                       Slot((int(A::*)(const char*, void*, DWORD)) & A::Write),
                       Slot((int(A::*)(const char*, const char*)) & A::Write),
                       Slot((int(A::*)(const char*, DWORD)) & A::Write), Slot(&A::Close),
                       // the destructor's two slots, then the INI archive's own
                       Slot(&VIniArchive::ReadBool) - 2, Slot(&VIniArchive::WriteBool) - 2};
  for (int i = 0; i < 11; i++)
    EXPECT_EQ(i, slots[i]) << i;
}

} // namespace
