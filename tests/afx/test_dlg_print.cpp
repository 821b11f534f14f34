// CPrintDialog on the test prefix's printer ("VRK PostScript", Wine's
// PostScript driver on LPT1:, letter paper): DEVNAMES and DEVMODE blocks that
// lie about their contents. The print jobs' suite drives the shown dialog;
// the application's printer suite the defaults handed to it.
#include <afxdlgs.h>
#include <gtest/gtest.h>

#include "print_testing.h"

namespace {

TEST(PrintDialog, LyingBlocksGiveNoNamesAndNoDC) {
  // As the SDK packs it: byte-packed on 32-bit Windows, naturally on 64-bit.
  EXPECT_EQ(sizeof(void*) == 4 ? 66u : 120u, sizeof(PRINTDLGA));
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

} // namespace
