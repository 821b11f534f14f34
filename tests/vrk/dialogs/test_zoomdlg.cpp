// The zoom dialog: percentages typed and radio buttons clicked as a user would.
#include <gtest/gtest.h>

#include <algorithm>

#include "user_input.h"
#include "resource.h"
#include "vrk_dialogs.h"

using namespace user_input;

namespace {

// The view's fits: page width 83 %, whole page 41 %.
class CPageZoom : public VZoomDialog {
public:
  CPageZoom(UINT nMin, UINT nMax) : VZoomDialog(nMin, nMax) {}
  virtual UINT CalculateZoom(int nWhich) { return nWhich == 4 ? 83 : nWhich == 5 ? 41 : 0; }
};

int CheckedRadio(HWND hDlg) {
  for (int id = IDC_VRK_ZOOM_200; id <= IDC_VRK_ZOOM_CUSTOM; id++)
    if (::IsDlgButtonChecked(hDlg, id) == BST_CHECKED) return id;
  return 0;
}

TEST(ZoomDialog, TypedAndClickedPercentages) {
  const int k200 = IDC_VRK_ZOOM_200, k100 = IDC_VRK_ZOOM_100, k75 = IDC_VRK_ZOOM_75,
            k50 = IDC_VRK_ZOOM_50, k25 = IDC_VRK_ZOOM_25, kWidth = IDC_VRK_ZOOM_PAGEWIDTH,
            kWhole = IDC_VRK_ZOOM_WHOLEPAGE, kCustom = IDC_VRK_ZOOM_CUSTOM;
  // clang-format off
  // Set before the run; the radio checked when shown; typed (NULL: the radio clicked); the
  // radio checked after; GetZoomPercent after OK and the edit's text (0: OK disabled).
  struct Case { UINT min, max, percent; BOOL fitWidth, fitWhole; int initial; const char* typed;
                int radio; UINT result; } cases[] = {
      {10, 500, 100, 0, 0, k100, "150", kCustom, 150},
      {10, 500, 100, 0, 0, k100, "600", kCustom, 500}, // the maximum
      {10, 500, 150, 0, 0, kCustom, "75", k75, 75},
      {10, 500, 50, 0, 0, k50, "7", kCustom, 0}, // below the minimum
      {10, 500, 100, 0, 0, k100, NULL, k25, 25},
      {10, 500, 200, 0, 0, k200, NULL, kWidth, 83},
      {10, 500, 100, 1, 1, kWidth, NULL, kWhole, 41}, // width wins
      {10, 500, 0, 0, 0, kCustom, NULL, kCustom, 10}, // raised
      {600, 50, 100, 0, 0, k100, NULL, k50, 50},      // limits swapped
  };
  // clang-format on
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.percent << " " << (c.typed ? c.typed : "click"));
    CPageZoom dlg(c.min, c.max);
    dlg.SetZoomPercent(c.percent);
    dlg.SetZoomPageWidth(c.fitWidth);
    dlg.SetZoomWholePage(c.fitWhole);
    DialogDriver driver;
    driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      EXPECT_EQ(c.initial, CheckedRadio(hDlg));
      HWND hSpin = ::GetDlgItem(hDlg, IDC_VRK_ZOOM_SPIN);
      int lower = 0, upper = 0;
      ::SendMessageA(hSpin, UDM_GETRANGE32, (WPARAM)&lower, (LPARAM)&upper);
      EXPECT_TRUE(lower == (int)std::min(c.min, c.max) && upper == (int)std::max(c.min, c.max) &&
                  ::SendMessageA(hSpin, UDM_GETBUDDY, 0, 0) ==
                      (LRESULT)::GetDlgItem(hDlg, IDC_VRK_ZOOM_PERCENT));
      if (c.typed != NULL) FocusItem(hDlg, IDC_VRK_ZOOM_PERCENT); // selects the text
      c.typed != NULL ? Type(c.typed) : ClickItem(hDlg, c.radio);
      EXPECT_EQ(c.radio, CheckedRadio(hDlg));
      EXPECT_EQ(c.result ? std::to_string(c.result) : c.typed, Text(hDlg, IDC_VRK_ZOOM_PERCENT));
      EXPECT_EQ(c.result != 0, ::IsWindowEnabled(::GetDlgItem(hDlg, IDOK)) != FALSE);
      ClickItem(hDlg, c.result != 0 ? IDOK : IDCANCEL);
    }));
    EXPECT_EQ(c.result != 0 ? IDOK : IDCANCEL, dlg.DoModal());
    if (c.result == 0) continue;
    EXPECT_EQ(c.result, dlg.GetZoomPercent());
    EXPECT_EQ(c.radio == kWidth, dlg.IsZoomPageWidth() != FALSE);
    EXPECT_EQ(c.radio == kWhole, dlg.IsZoomWholePage() != FALSE);
  }
}

} // namespace
