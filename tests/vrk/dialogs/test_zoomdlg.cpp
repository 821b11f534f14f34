// The zoom dialog: percentages typed into its edit and radio buttons clicked
// as a user would, with the checked button, the edit's text, the OK button's
// state and what the caller gets back.
#include <afxwin.h>
#include <gtest/gtest.h>

#include "dlg_driver.h"
#include "resource.h"
#include "vrk_dialogs.h"

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

struct Shown {
  int initialRadio = 0, radio = 0;
  std::string text;
  bool okEnabled = false;
  HWND buddy = NULL, edit = NULL;
  int lower = 0, upper = 0;
};

TEST(ZoomDialog, TypedAndClickedPercentages) {
  enum { TYPE, CLICK };
  struct Case {
    UINT percent;      // set before the dialog runs
    int how;           // type the text, or click the radio button
    const char* typed; // TYPE
    int button;        // CLICK
    int initialRadio;  // checked when shown
    int radio;         // checked after the input
    const char* shown; // the edit's text after the input
    bool okEnabled;
    UINT result; // GetZoomPercent after OK
    BOOL pageWidth;
  } cases[] = {
      {100, TYPE, "150", 0, IDC_VRK_ZOOM_100, IDC_VRK_ZOOM_CUSTOM, "150", true, 150, FALSE},
      {100, TYPE, "600", 0, IDC_VRK_ZOOM_100, IDC_VRK_ZOOM_CUSTOM, "500", true, 500, FALSE},
      {150, TYPE, "75", 0, IDC_VRK_ZOOM_CUSTOM, IDC_VRK_ZOOM_75, "75", true, 75, FALSE},
      {50, TYPE, "7", 0, IDC_VRK_ZOOM_50, IDC_VRK_ZOOM_CUSTOM, "7", false, 7, FALSE},
      {100, CLICK, NULL, IDC_VRK_ZOOM_25, IDC_VRK_ZOOM_100, IDC_VRK_ZOOM_25, "25", true, 25, FALSE},
      {200, CLICK, NULL, IDC_VRK_ZOOM_PAGEWIDTH, IDC_VRK_ZOOM_200, IDC_VRK_ZOOM_PAGEWIDTH, "83",
       true, 83, TRUE},
      {0, CLICK, NULL, IDC_VRK_ZOOM_CUSTOM, IDC_VRK_ZOOM_CUSTOM, IDC_VRK_ZOOM_CUSTOM, "10", true,
       10, FALSE}, // raised to the minimum
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.percent << " " << (c.typed ? c.typed : "click"));
    CPageZoom dlg(10, 500);
    dlg.SetZoomPercent(c.percent);
    Shown s;
    DialogDriver driver;
    driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      s.initialRadio = CheckedRadio(hDlg);
      if (c.how == TYPE) {
        DialogDriver::Focus(hDlg, IDC_VRK_ZOOM_PERCENT); // selects the text
        DialogDriver::Type(c.typed);
      } else {
        DialogDriver::Click(hDlg, c.button);
      }
      s.radio = CheckedRadio(hDlg);
      s.text = DialogDriver::Text(hDlg, IDC_VRK_ZOOM_PERCENT);
      s.okEnabled = ::IsWindowEnabled(::GetDlgItem(hDlg, IDOK)) != FALSE;
      DialogDriver::Click(hDlg, s.okEnabled ? IDOK : IDCANCEL);
    }));
    EXPECT_EQ(c.okEnabled ? IDOK : IDCANCEL, dlg.DoModal());
    EXPECT_EQ(c.initialRadio, s.initialRadio);
    EXPECT_EQ(c.radio, s.radio);
    EXPECT_EQ(c.shown, s.text);
    EXPECT_EQ(c.okEnabled, s.okEnabled);
    if (c.okEnabled) {
      EXPECT_EQ(c.result, dlg.GetZoomPercent());
      EXPECT_EQ(c.pageWidth, dlg.IsZoomPageWidth());
      EXPECT_FALSE(dlg.IsZoomWholePage());
    }
  }
}

TEST(ZoomDialog, FitsSpinAndReversedRange) {
  struct Case {
    UINT min, max;
    BOOL pageWidth, wholePage;
    int radio;
    int lower, upper;
  } cases[] = {
      {5, 500, TRUE, TRUE, IDC_VRK_ZOOM_PAGEWIDTH, 5, 500}, // page width wins
      {5, 500, FALSE, TRUE, IDC_VRK_ZOOM_WHOLEPAGE, 5, 500},
      {600, 50, FALSE, FALSE, IDC_VRK_ZOOM_100, 50, 600}, // minimum above maximum
  };
  for (const Case& c : cases) {
    VZoomDialog dlg(c.min, c.max);
    dlg.SetZoomPercent(100);
    dlg.SetZoomPageWidth(c.pageWidth);
    dlg.SetZoomWholePage(c.wholePage);
    Shown s;
    DialogDriver driver;
    driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      s.radio = CheckedRadio(hDlg);
      HWND hSpin = ::GetDlgItem(hDlg, IDC_VRK_ZOOM_SPIN);
      s.buddy = (HWND)::SendMessageA(hSpin, UDM_GETBUDDY, 0, 0);
      s.edit = ::GetDlgItem(hDlg, IDC_VRK_ZOOM_PERCENT);
      ::SendMessageA(hSpin, UDM_GETRANGE32, (WPARAM)&s.lower, (LPARAM)&s.upper);
      DialogDriver::Click(hDlg, IDOK);
    }));
    EXPECT_EQ(IDOK, dlg.DoModal());
    EXPECT_EQ(c.radio, s.radio);
    EXPECT_EQ(s.edit, s.buddy);
    EXPECT_EQ(c.lower, s.lower);
    EXPECT_EQ(c.upper, s.upper);
    EXPECT_EQ(100u, dlg.GetZoomPercent());
  }
}

} // namespace
