// CPrintDialog on the test prefix's printer ("VRK PostScript", Wine's
// PostScript driver on LPT1:, letter paper at 300 dpi): the defaults without
// a dialog, the Print dialog driven as a user would, and DEVNAMES and DEVMODE
// blocks that lie about their contents.
#include <afxdlgs.h>
#include <gtest/gtest.h>

#include <string>

#include "dlg_driver.h"
#include "print_testing.h"

namespace {

TEST(PrintDialog, DefaultsAreTheConfiguredPrinter) {
  // As the SDK packs it: byte-packed on 32-bit Windows, naturally on 64-bit.
  EXPECT_EQ(sizeof(void*) == 4 ? 66u : 120u, sizeof(PRINTDLGA));
  CPrintDialog dlg(FALSE);
  ASSERT_TRUE(dlg.GetDefaults()) << "no default printer: " << CommDlgExtendedError();
  EXPECT_FALSE(dlg.m_pd.Flags & PD_RETURNDEFAULT); // taken off again
  EXPECT_EQ(CString(kPrinter), dlg.GetDeviceName());
  EXPECT_EQ(CString("wineps.drv"), dlg.GetDriverName());
  EXPECT_EQ(CString("LPT1:"), dlg.GetPortName());
  LPDEVMODE pDevMode = dlg.GetDevMode();
  ASSERT_TRUE(pDevMode != NULL);
  EXPECT_STREQ(kPrinter, (const char*)pDevMode->dmDeviceName);
  EXPECT_EQ(DMPAPER_LETTER, pDevMode->dmPaperSize);
  EXPECT_EQ(1, dlg.GetCopies());

  // The print form brought a DC for the printer.
  HDC hDC = dlg.GetPrinterDC();
  ASSERT_TRUE(hDC != NULL);
  EXPECT_EQ(2550, ::GetDeviceCaps(hDC, PHYSICALWIDTH)); // letter at 300 dpi
  FreeBlocks(dlg.m_pd);
}

TEST(PrintDialog, LyingBlocksGiveNoNamesAndNoDC) {
  CPrintDialog dlg(TRUE);
  // Offsets past the block's end, and a name running to its end.
  HGLOBAL hBad = MakeDevNames(kPrinter);
  DEVNAMES* pDN = (DEVNAMES*)::GlobalLock(hBad);
  SIZE_T nSize = ::GlobalSize(hBad);
  pDN->wDeviceOffset = 0xFFF0;
  pDN->wOutputOffset = (WORD)(nSize - 1);
  ((BYTE*)pDN)[nSize - 1] = 'X';
  ::GlobalUnlock(hBad);
  dlg.m_pd.hDevNames = hBad;
  EXPECT_EQ(CString("wineps.drv"), dlg.GetDriverName());
  EXPECT_EQ(CString(), dlg.GetDeviceName());
  EXPECT_EQ(CString(), dlg.GetPortName());
  EXPECT_EQ(NULL, dlg.CreatePrinterDC());
  ::GlobalFree(hBad);

  // A block smaller than DEVNAMES itself.
  HGLOBAL hTiny = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 3);
  dlg.m_pd.hDevNames = hTiny;
  EXPECT_EQ(CString(), dlg.GetDriverName());
  EXPECT_EQ(NULL, AfxCreateDC(hTiny, NULL));
  ::GlobalFree(hTiny);
  dlg.m_pd.hDevNames = NULL;

  // A DEVMODE claiming more than its block holds is not read: the printer's
  // own defaults are used.
  HGLOBAL hNames = MakeDevNames(kPrinter);
  HGLOBAL hShort = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DEVMODEA));
  DEVMODEA* pDM = (DEVMODEA*)::GlobalLock(hShort);
  pDM->dmSize = sizeof(DEVMODEA);
  pDM->dmDriverExtra = 0x4000;
  ::GlobalUnlock(hShort);
  HDC hDC = AfxCreateDC(hNames, hShort);
  ASSERT_TRUE(hDC != NULL);
  EXPECT_EQ(DT_RASPRINTER, ::GetDeviceCaps(hDC, TECHNOLOGY));
  ::DeleteDC(hDC);
  // An unknown printer gives no DC.
  HGLOBAL hUnknown = MakeDevNames("No Such Printer");
  EXPECT_EQ(NULL, AfxCreateDC(hUnknown, NULL));
  EXPECT_EQ(NULL, AfxCreateDC(NULL, NULL));
  ::GlobalFree(hUnknown);
  ::GlobalFree(hShort);
  ::GlobalFree(hNames);
}

// Counts its initialisation and looks at itself while shown.
class CWatchedPrintDialog : public CPrintDialog {
public:
  explicit CWatchedPrintDialog(BOOL bSetup) : CPrintDialog(bSetup) {}
  int m_nInit = 0;
  CString m_strCaption;
  virtual BOOL OnInitDialog() {
    m_nInit++;
    GetWindowText(m_strCaption);
    return CPrintDialog::OnInitDialog();
  }
};

TEST(PrintDialogShown, OkGivesTheChosenPrinterAndADC) {
  DialogDriver driver;
  driver.Then([](HWND hDlg) { DialogDriver::Press(hDlg, IDOK); });
  CWatchedPrintDialog dlg(FALSE);
  ASSERT_EQ(IDOK, dlg.DoModal());
  ASSERT_EQ(1u, driver.Captions().size());
  EXPECT_EQ(1, dlg.m_nInit);
  EXPECT_EQ(CString(driver.Captions()[0].c_str()), dlg.m_strCaption);
  EXPECT_EQ(NULL, dlg.m_hWnd); // let go with the window
  EXPECT_EQ(CString(kPrinter), dlg.GetDeviceName());
  ASSERT_TRUE(dlg.GetPrinterDC() != NULL);
  EXPECT_EQ(DT_RASPRINTER, ::GetDeviceCaps(dlg.GetPrinterDC(), TECHNOLOGY));
  EXPECT_TRUE(dlg.PrintAll());
  FreeBlocks(dlg.m_pd);
}

} // namespace
