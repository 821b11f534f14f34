// The colour dialog: the initial colour comes back on OK, and every dialog
// shares the process's custom colours. (The wizard application's test
// cancels one from its View menu.)
#include <afxdlgs.h>
#include <gtest/gtest.h>

#include "user_input.h"

TEST(ColorDialog, OkGivesTheColourAndCustomColoursAreShared) {
  DialogDriver driver;
  driver.Then([](HWND hDlg) { DialogDriver::Press(hDlg, IDOK); });
  CColorDialog dlg(RGB(10, 20, 30), CC_FULLOPEN);
  EXPECT_EQ((DWORD)(CC_FULLOPEN | CC_RGBINIT | CC_ENABLEHOOK), dlg.m_cc.Flags);
  EXPECT_EQ(CColorDialog::GetSavedCustomColors(), dlg.m_cc.lpCustColors);
  EXPECT_EQ(RGB(255, 255, 255), dlg.m_cc.lpCustColors[15]);
  ASSERT_EQ(IDOK, dlg.DoModal());
  EXPECT_EQ(RGB(10, 20, 30), dlg.GetColor());
  CColorDialog other;
  EXPECT_EQ(dlg.m_cc.lpCustColors, other.m_cc.lpCustColors);
}
