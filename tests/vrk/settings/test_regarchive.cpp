// VRegArchive and the registry functions on the real registry, under
// HKCU\Software\Tamrix (put back as it was by ScratchRegistry).
#include <vrk_profile.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "scratch_registry.h"

#include <algorithm>
#include <string>
#include <vector>

#include <string.h>

namespace {

const char kRoot[] = "Software\\Tamrix\\VrkSettingsTest";
const char kSection[] = "Archive";
const std::string kPath = std::string(kRoot) + "\\" + kSection;

// The stored bytes of a value whatever its type.
std::vector<BYTE> RawValue(const std::string& path, const char* name) {
  std::vector<BYTE> data(256);
  HKEY hKey = NULL;
  DWORD cb = (DWORD)data.size();
  if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &hKey) != ERROR_SUCCESS)
    return std::vector<BYTE>();
  if (RegQueryValueExA(hKey, name, NULL, NULL, data.data(), &cb) != ERROR_SUCCESS) cb = 0;
  RegCloseKey(hKey);
  data.resize(cb);
  return data;
}

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
  {
    CWinApp app("VrkSettingsApp");
    EXPECT_STREQ("", VrkRegMakeKey("Settings", NULL, 0)); // no registry key yet
    app.SetRegistryKey("Tamrix");
    EXPECT_STREQ("Software\\Tamrix\\VrkSettingsApp\\Settings", VrkRegMakeKey("Settings", NULL, 7));
  }
}

TEST_F(RegArchiveTest, WritesTypedValuesAndReadsThemBack) {
  VRegArchive ar;
  ASSERT_EQ(1, ar.Open(kSection, kRoot, 0)); // the key is created when missing
  ASSERT_TRUE(ScratchRegistry::KeyExists(kPath));
  EXPECT_TRUE((HKEY)ar != NULL);

  BYTE blob[] = {1, 0, 2, 0xFF};
  EXPECT_EQ(1, ar.Write("Count", (DWORD)0x12345678));
  EXPECT_EQ(1, ar.Write("Name", "settings"));
  EXPECT_EQ(1, ar.Write("Blob", blob, sizeof(blob)));

  EXPECT_EQ((DWORD)REG_DWORD, ScratchRegistry::ValueType(kPath, "Count"));
  EXPECT_EQ((DWORD)REG_SZ, ScratchRegistry::ValueType(kPath, "Name"));
  EXPECT_EQ((DWORD)REG_BINARY, ScratchRegistry::ValueType(kPath, "Blob"));
  EXPECT_EQ(std::vector<BYTE>({'s', 'e', 't', 't', 'i', 'n', 'g', 's', 0}),
            RawValue(kPath, "Name")); // the terminator is stored
  EXPECT_EQ(std::vector<BYTE>(blob, blob + 4), RawValue(kPath, "Blob"));

  DWORD count = 0;
  int signedCount = 0;
  CString name;
  BYTE back[4] = {0};
  EXPECT_EQ(1, ar.Read("Count", count, 0));
  EXPECT_EQ(0x12345678u, count);
  EXPECT_EQ(1, ar.Read("Count", signedCount, -1));
  EXPECT_EQ(0x12345678, signedCount);
  EXPECT_EQ(1, ar.Read("Name", name, "none"));
  EXPECT_STREQ("settings", name);
  EXPECT_EQ(1, ar.Read("Blob", back, sizeof(back)));
  EXPECT_EQ(0, memcmp(blob, back, 4));
  EXPECT_EQ(1, ar.Close());
  EXPECT_TRUE((HKEY)ar == NULL);
}

TEST_F(RegArchiveTest, AbsentValuesKeepTheDefaultAndStillReportSuccess) {
  VRegArchive ar;
  ASSERT_EQ(1, ar.Open(kSection, kRoot, 0));
  DWORD count = 1;
  int number = 1;
  CString text("old");
  EXPECT_EQ(1, ar.Read("Missing", count, 77));
  EXPECT_EQ(77u, count);
  EXPECT_EQ(1, ar.Read("Missing", number, -5));
  EXPECT_EQ(-5, number);
  EXPECT_EQ(1, ar.Read("Missing", text, "fallback"));
  EXPECT_STREQ("fallback", text);
  EXPECT_EQ(1, ar.Read("Missing", text, NULL));
  EXPECT_STREQ("", text);
  BYTE buffer[4];
  EXPECT_EQ(0, ar.Read("Missing", buffer, sizeof(buffer))); // the buffer read reports the system
  EXPECT_EQ(0, ar.Read("Missing", (void*)NULL, 4));

  // The stored type is not checked: a string too long for 4 bytes leaves
  // the integer default, a short one fills it.
  ASSERT_TRUE(ScratchRegistry::WriteString(kPath, "Text", "a long string"));
  EXPECT_EQ(1, ar.Read("Text", count, 99));
  EXPECT_EQ(99u, count);
  ASSERT_TRUE(ScratchRegistry::WriteString(kPath, "Short", "ab"));
  EXPECT_EQ(1, ar.Read("Short", count, 0));
  EXPECT_EQ((DWORD)('a' | 'b' << 8), count);
}

TEST_F(RegArchiveTest, ReadOnlyKeyRefusesWritesButOnlyTheIntegerWriteSaysSo) {
  ASSERT_TRUE(ScratchRegistry::WriteDword(kPath, "Count", 5));
  VRegArchive ar;
  ASSERT_EQ(1, ar.Open(kSection, kRoot, VRK_PROFILE_READONLY));
  DWORD count = 0;
  EXPECT_EQ(1, ar.Read("Count", count, 0));
  EXPECT_EQ(5u, count);
  EXPECT_EQ(0, ar.Write("Count", (DWORD)6));
  BYTE blob[2] = {1, 2};
  EXPECT_EQ(1, ar.Write("Name", "refused"));
  EXPECT_EQ(1, ar.Write("Blob", blob, sizeof(blob)));
  EXPECT_FALSE(ScratchRegistry::ValueExists(kPath, "Name"));
  EXPECT_FALSE(ScratchRegistry::ValueExists(kPath, "Blob"));
  DWORD stored = 0;
  ASSERT_TRUE(ScratchRegistry::ReadDword(kPath, "Count", &stored));
  EXPECT_EQ(5u, stored);
  EXPECT_EQ(0, ar.Write("Name", (const char*)NULL));
  EXPECT_EQ(0, ar.Write("Blob", (void*)NULL, 2));
}

TEST_F(RegArchiveTest, ClosedArchiveFailsEverythingAndHandsBackDefaults) {
  VRegArchive ar;
  DWORD count = 1;
  int number = 1;
  CString text("old");
  BYTE buffer[4];
  EXPECT_EQ(0, ar.Read("x", count, 3));
  EXPECT_EQ(3u, count);
  EXPECT_EQ(0, ar.Read("x", number, -3));
  EXPECT_EQ(-3, number);
  EXPECT_EQ(0, ar.Read("x", text, "def"));
  EXPECT_STREQ("def", text);
  EXPECT_EQ(0, ar.Write("x", (DWORD)1));
  EXPECT_EQ(0, ar.Write("x", buffer, 4));
  EXPECT_EQ(0, ar.Close());
}

TEST_F(RegArchiveTest, OpenWithoutAnApplicationKeyFailsAndStaysClosed) {
  VRegArchive ar;
  EXPECT_EQ(0, ar.Open(kSection, NULL, 0));
  EXPECT_TRUE((HKEY)ar == NULL);
  CWinApp app("VrkSettingsApp");
  EXPECT_EQ(0, ar.Open(kSection, NULL, 0));
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
}

TEST_F(RegArchiveTest, OpenUnderAParentCreatesOnlyWhenAsked) {
  VRegArchive ar;
  HKEY root = NULL;
  ASSERT_EQ(1, VrkRegCreateKeyEx(HKEY_CURRENT_USER, kRoot, &root, KEY_ALL_ACCESS));
  EXPECT_EQ(0, ar.Open(root, "Child", 0));
  EXPECT_FALSE(ScratchRegistry::KeyExists(std::string(kRoot) + "\\Child"));
  EXPECT_EQ(1, ar.Open(root, "Child", VRK_PROFILE_CREATE));
  EXPECT_TRUE(ScratchRegistry::KeyExists(std::string(kRoot) + "\\Child"));
  EXPECT_EQ(1, ar.Write("v", (DWORD)9));
  EXPECT_EQ(1, ar.Open(root, "Child", 0));
  EXPECT_EQ(9u, VrkRegQueryDword(ar, "v", 0));
  RegCloseKey(root);
}

TEST_F(RegArchiveTest, StandardKeys) {
  VRegArchive ar;
  // HKCU\Environment (the path "Environment\" of an empty section).
  ASSERT_EQ(1, ar.Open(VREG_OPEN_ENVIRONMENT));
  HKEY direct = NULL;
  ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExA(HKEY_CURRENT_USER, "Environment", 0, KEY_READ, &direct));
  DWORD subkeys = 0, values = 0, directValues = 0;
  EXPECT_EQ(ERROR_SUCCESS, RegQueryInfoKeyA(ar, NULL, NULL, NULL, &subkeys, NULL, NULL, &values,
                                            NULL, NULL, NULL, NULL));
  EXPECT_EQ(ERROR_SUCCESS, RegQueryInfoKeyA(direct, NULL, NULL, NULL, NULL, NULL, NULL,
                                            &directValues, NULL, NULL, NULL, NULL));
  EXPECT_EQ(directValues, values);
  RegCloseKey(direct);
  // The path "\" is one the system refuses (ERROR_BAD_PATHNAME).
  EXPECT_EQ(0, ar.Open(VREG_OPEN_ROOT));
  EXPECT_TRUE((HKEY)ar == NULL);
}

TEST_F(RegArchiveTest, CopiesShareTheKey) {
  VRegArchive ar;
  ASSERT_EQ(1, ar.Open(kSection, kRoot, 0));
  VRegArchive copy(ar);
  EXPECT_EQ((HKEY)ar, (HKEY)copy);
  EXPECT_EQ(1, copy.Write("Shared", (DWORD)3));
  DWORD value = 0;
  EXPECT_EQ(1, ar.Read("Shared", value, 0));
  EXPECT_EQ(3u, value);
  VRegArchive assigned;
  assigned = ar;
  EXPECT_EQ((HKEY)ar, (HKEY)assigned);
  // Closing one copy closes the key for all; the others keep the dead
  // handle (their destructors' second close is refused by the system).
  EXPECT_EQ(1, copy.Close());
  EXPECT_TRUE((HKEY)copy == NULL);
  EXPECT_EQ((HKEY)ar, (HKEY)assigned);
  EXPECT_NE(ERROR_SUCCESS, RegSetValueExA(ar, "After", 0, REG_DWORD, (const BYTE*)&value, 4));
}

// ---- free functions ------------------------------------------------------------

TEST_F(RegArchiveTest, QueryFunctions) {
  ASSERT_TRUE(ScratchRegistry::WriteString(kPath, "Text", "value"));
  ASSERT_TRUE(ScratchRegistry::WriteDword(kPath, "Number", 0xCAFE));
  ASSERT_TRUE(ScratchRegistry::WriteBinary(kPath, "Raw", {'a', 'b', 'c'})); // no terminator
  ASSERT_TRUE(ScratchRegistry::WriteBinary(kPath, "Empty", {}));
  HKEY hKey = NULL;
  ASSERT_EQ(1, VrkRegOpenKeyEx(HKEY_CURRENT_USER, kPath.c_str(), &hKey, KEY_READ));

  EXPECT_STREQ("value", VrkRegQueryString(hKey, "Text", "def"));
  EXPECT_STREQ("abc", VrkRegQueryString(hKey, "Raw", "def"));
  EXPECT_STREQ("", VrkRegQueryString(hKey, "Empty", "def"));
  EXPECT_STREQ("def", VrkRegQueryString(hKey, "Missing", "def"));
  EXPECT_STREQ("", VrkRegQueryString(hKey, "Missing", NULL));
  EXPECT_STREQ("def", VrkRegQueryString(NULL, "Text", "def"));

  EXPECT_EQ(0xCAFEu, VrkRegQueryDword(hKey, "Number", 1));
  EXPECT_EQ(1u, VrkRegQueryDword(hKey, "Missing", 1));
  EXPECT_EQ(1u, VrkRegQueryDword(hKey, "Text", 1)); // 6 bytes do not fit

  BYTE raw[8] = {0};
  EXPECT_EQ(1, VrkRegQueryBinary(hKey, "Raw", raw, sizeof(raw)));
  EXPECT_EQ(0, memcmp("abc", raw, 3));
  EXPECT_EQ(0, VrkRegQueryBinary(hKey, "Raw", raw, 2)); // too small
  EXPECT_EQ(0, VrkRegQueryBinary(hKey, "Raw", NULL, 8));
  EXPECT_EQ(0, VrkRegQueryBinary(hKey, "Missing", raw, sizeof(raw)));
  RegCloseKey(hKey);

  EXPECT_EQ(0, VrkRegOpenKeyEx(HKEY_CURRENT_USER, "Software\\Tamrix\\NoSuchKey", &hKey, KEY_READ));
  EXPECT_EQ(0, VrkRegOpenKeyEx(HKEY_CURRENT_USER, kPath.c_str(), NULL, KEY_READ));
}

TEST_F(RegArchiveTest, KeyExistsAndCreateWithItsClassString) {
  EXPECT_EQ(0, VrkRegKeyExists(kSection, kRoot, 0));
  EXPECT_EQ(0, VrkRegKeyExists(NULL, kRoot, 0));
  EXPECT_EQ(0, VrkRegKeyExists(kSection, NULL, 0)); // no application key
  HKEY hKey = NULL;
  ASSERT_EQ(1, VrkRegCreateKeyEx(HKEY_CURRENT_USER, kPath.c_str(), &hKey, KEY_ALL_ACCESS));
  char cls[32] = {0};
  DWORD clsLength = sizeof(cls);
  EXPECT_EQ(ERROR_SUCCESS, RegQueryInfoKeyA(hKey, cls, &clsLength, NULL, NULL, NULL, NULL, NULL,
                                            NULL, NULL, NULL, NULL));
  EXPECT_STREQ("REG_SZ", cls);
  RegCloseKey(hKey);
  EXPECT_EQ(1, VrkRegKeyExists(kSection, kRoot, 0));
  EXPECT_EQ(0, VrkRegCreateKeyEx(HKEY_CURRENT_USER, kPath.c_str(), NULL, KEY_ALL_ACCESS));
}

TEST_F(RegArchiveTest, EnumeratesSubkeys) {
  for (const char* name : {"One", "Two"}) {
    HKEY hKey = NULL;
    ASSERT_EQ(1, VrkRegCreateKeyEx(HKEY_CURRENT_USER, (kPath + "\\" + name).c_str(), &hKey,
                                   KEY_ALL_ACCESS));
    RegCloseKey(hKey);
  }
  VRegArchive ar;
  ASSERT_EQ(1, ar.Open(kSection, kRoot, VRK_PROFILE_READONLY));
  std::vector<std::string> names;
  char name[64];
  DWORD length = sizeof(name);
  FILETIME written;
  for (DWORD i = 0; VrkRegEnumKeyEx(ar, i, name, &length, &written) == ERROR_SUCCESS;
       i++, length = sizeof(name))
    names.push_back(name);
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::vector<std::string>({"One", "Two"}), names);
}

// ---- the base class ------------------------------------------------------------

// The vtable index of a virtual member function (the Itanium ABI encodes a
// virtual pointer to member as 1 + the slot's byte offset).
template <class F> int Slot(F f) {
  struct Raw {
    ptrdiff_t ptr;
    ptrdiff_t adj;
  } raw;
  static_assert(sizeof(F) == sizeof(Raw), "pointer to member layout");
  memcpy(&raw, &f, sizeof(raw));
  return (raw.ptr & 1) ? (int)((raw.ptr - 1) / sizeof(void*)) : -1;
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
  EXPECT_EQ(8, Slot(&VRegArchive::Close));
}

} // namespace
