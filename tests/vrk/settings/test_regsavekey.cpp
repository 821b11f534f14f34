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
    TearDown();
    ASSERT_TRUE(ScratchRegistry::WriteDword(kPath, "Value", 42));
  }
  void TearDown() override {
    VrkModifyPrivilege(SE_BACKUP_NAME, FALSE, NULL);
    VrkModifyPrivilege(SE_RESTORE_NAME, FALSE, NULL);
  }
  ScratchRegistry m_scratch;
  TempDir m_dir;
};

// Privileges are changed one by one, unknown ones never. Save and restore
// enable their privilege for the call and disable it again only when they
// enabled it and succeeded.
TEST_F(SaveKeyTest, PrivilegesAndTheSaveAndRestoreRoundTrip) {
  const std::string file = m_dir.File("key.hiv");
  EXPECT_EQ(1, VrkRegSaveKey(HKEY_CURRENT_USER, kPath, file.c_str(), NULL));
  EXPECT_FALSE(TempDir::ReadBytes(file).empty());
  EXPECT_EQ(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, NULL));
  EXPECT_EQ(1, VrkModifyPrivilege(SE_BACKUP_NAME, TRUE, NULL)); // already enabled: stays so
  EXPECT_EQ(0, VrkIsPrivledgeEnabled(SE_RESTORE_NAME, NULL));   // only the one named
  EXPECT_EQ(0, VrkIsPrivledgeEnabled("SeNoSuchPrivilege", NULL) +
                   VrkModifyPrivilege("SeNoSuchPrivilege", TRUE, NULL) +
                   VrkModifyPrivilege(NULL, TRUE, NULL) +
                   VrkIsPrivledgeEnabled(SE_BACKUP_NAME, INVALID_HANDLE_VALUE));
  EXPECT_EQ(1, VrkRegSaveKey(HKEY_CURRENT_USER, kPath, m_dir.File("again.hiv").c_str(), NULL));
  EXPECT_NE(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, NULL));
  TearDown();
  const std::string missing = m_dir.File("missing.hiv");
  EXPECT_EQ(0,
            VrkRegSaveKey(HKEY_CURRENT_USER, "Software\\Tamrix\\NoSuchKey", missing.c_str(), NULL));
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(missing.c_str()));
  EXPECT_NE(0, VrkIsPrivledgeEnabled(SE_BACKUP_NAME, NULL));
  EXPECT_EQ(0,
            VrkRegRestoreKey(HKEY_CURRENT_USER, "Software\\Tamrix\\NoSuchKey", missing.c_str(), 0));
  EXPECT_NE(0, VrkIsPrivledgeEnabled(SE_RESTORE_NAME, NULL));
  EXPECT_EQ(0, VrkRegSaveKey(HKEY_CURRENT_USER, kPath, NULL, NULL) +
                   VrkRegRestoreKey(HKEY_CURRENT_USER, kPath, NULL, 0));
  TearDown();

  ASSERT_TRUE(ScratchRegistry::WriteDword(kPath, "Value", 7));
  // Under Wine the restore succeeds without bringing the saved value back:
  // only the privilege's return to disabled can be seen here.
  EXPECT_EQ(1, VrkRegRestoreKey(HKEY_CURRENT_USER, kPath, file.c_str(), 0));
  EXPECT_EQ(0, VrkIsPrivledgeEnabled(SE_RESTORE_NAME, NULL));
}

} // namespace
