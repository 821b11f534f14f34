// VDDX_CheckBit: one bit of a flag word against a three-state check box,
// loaded into the box and saved back after the user's clicks.
#include <afxwin.h>
#include <gtest/gtest.h>

#include "vrk_dialogs.h"

TEST(CheckBitExchange, LoadsAndSavesOneBit) {
  CWnd parent;
  ASSERT_TRUE(parent.CreateEx(0, "STATIC", "", WS_POPUP, CRect(0, 0, 100, 40), NULL, 0));
  HWND hBox = ::CreateWindowA("BUTTON", "Bit", WS_CHILD | WS_VISIBLE | BS_AUTO3STATE, 0, 0, 80, 20,
                              parent.m_hWnd, (HMENU)100, NULL, NULL);
  // clang-format off
  // The box after loading; clicks go checked -> grey -> unchecked -> checked.
  struct Case { DWORD flags, bit; int loaded, clicks; DWORD saved; } cases[] = {
      {0x05, 0x04, BST_CHECKED, 0, 0x05}, {0x05, 0x04, BST_CHECKED, 1, 0x01},
      {0x01, 0x04, BST_UNCHECKED, 1, 0x05}, {0xFF, 0x80, BST_CHECKED, 3, 0xFF}};
  // clang-format on
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.flags << "/" << c.bit << " clicks " << c.clicks);
    DWORD flags = c.flags;
    CDataExchange load(&parent, FALSE), save(&parent, TRUE);
    VDDX_CheckBit(&load, 100, flags, c.bit);
    EXPECT_EQ(c.loaded, (int)::SendMessageA(hBox, BM_GETCHECK, 0, 0));
    for (int i = 0; i < c.clicks; i++)
      ::SendMessageA(hBox, BM_CLICK, 0, 0);
    VDDX_CheckBit(&save, 100, flags, c.bit);
    EXPECT_EQ(c.saved, flags);
  }
  parent.DestroyWindow();
}
