// The application's printer: CWinApp's DEVMODE and DEVNAMES blocks handed
// to print dialogs and remembered from them, replaced and freed, followed
// when they name the system's default printer.
#include <afxdlgs.h>
#include <afxprint_.h>
#include <gtest/gtest.h>

#include "print_testing.h"

namespace {

bool IsFreed(HGLOBAL h) { return ::GlobalFlags(h) == GMEM_INVALID_HANDLE; }

class AppPrinter : public ::testing::Test {
protected:
  CWinApp m_app{"PrintTest"};
};

TEST_F(AppPrinter, SelectPrinterFreesWhatItReplacesChosenPrinterStaysDefaultFollows) {
  m_app.UpdatePrinterSelection(TRUE);
  HGLOBAL hOldNames = m_app.m_hDevNames, hOldMode = m_app.m_hDevMode;
  ASSERT_TRUE(hOldNames != NULL);
  ASSERT_TRUE(hOldMode != NULL);
  HGLOBAL hNames = MakeDevNames("Elsewhere");
  // The same DEVMODE again is kept; the old DEVNAMES goes.
  m_app.SelectPrinter(hNames, hOldMode);
  EXPECT_TRUE(IsFreed(hOldNames));
  EXPECT_FALSE(IsFreed(hOldMode));
  EXPECT_EQ(hNames, m_app.m_hDevNames);
  // Without bFreeOld the caller keeps the old ones.
  HGLOBAL hOther = MakeDevNames("Other");
  m_app.SelectPrinter(hOther, NULL, FALSE);
  EXPECT_FALSE(IsFreed(hNames));
  EXPECT_FALSE(IsFreed(hOldMode));
  EXPECT_EQ(NULL, m_app.m_hDevMode);
  ::GlobalFree(hNames);
  ::GlobalFree(hOldMode);

  // A printer chosen by name stays chosen, even one that is not there.
  m_app.SelectPrinter(MakeDevNames("Elsewhere"), NULL);
  m_app.UpdatePrinterSelection(FALSE);
  EXPECT_EQ("Elsewhere", DeviceName(m_app.m_hDevNames));
  // One chosen as "the default printer" follows the system's default.
  m_app.SelectPrinter(MakeDevNames("Former Default", DN_DEFAULTPRN), NULL);
  m_app.UpdatePrinterSelection(FALSE);
  EXPECT_EQ(kPrinter, DeviceName(m_app.m_hDevNames));
  EXPECT_TRUE(m_app.m_hDevMode != NULL);
  // While it is the default, its settings are left as they are.
  HGLOBAL hMode = m_app.m_hDevMode;
  m_app.UpdatePrinterSelection(FALSE);
  EXPECT_EQ(hMode, m_app.m_hDevMode);
  // Forced: the system's default whatever was chosen.
  m_app.SelectPrinter(MakeDevNames("Elsewhere"), NULL);
  m_app.UpdatePrinterSelection(TRUE);
  EXPECT_EQ(kPrinter, DeviceName(m_app.m_hDevNames));
}

// A print dialog that shows nothing: it records the blocks it was handed,
// changes the copies as a user would, makes the DC and says OK.
class CSilentPrintDialog : public CPrintDialog {
public:
  CSilentPrintDialog() : CPrintDialog(FALSE) {}
  HGLOBAL m_hNamesIn = NULL, m_hModeIn = NULL;
  int m_nCopiesIn = 0;
  short m_nCopiesChosen = 4;
  BOOL m_bReplaceNames = FALSE;
  virtual INT_PTR DoModal() {
    m_hNamesIn = m_pd.hDevNames;
    m_hModeIn = m_pd.hDevMode;
    if (m_hModeIn != NULL) {
      DEVMODE* p = (DEVMODE*)::GlobalLock(m_pd.hDevMode);
      m_nCopiesIn = p->dmCopies;
      p->dmCopies = m_nCopiesChosen;
      ::GlobalUnlock(m_pd.hDevMode);
    }
    if (m_bReplaceNames) {
      // As PrintDlg may: a new block for the names, the old one freed.
      ::GlobalFree(m_pd.hDevNames);
      m_pd.hDevNames = MakeDevNames("Chosen Printer");
    }
    if (!m_bReplaceNames) CreatePrinterDC();
    return IDOK;
  }
};

TEST_F(AppPrinter, DoPrintDialogHandsOverAndRemembersTheBlocks) {
  CSilentPrintDialog first;
  ASSERT_EQ(IDOK, m_app.DoPrintDialog(&first));
  // The first dialog already gets the default printer's blocks.
  ASSERT_TRUE(first.m_hNamesIn != NULL);
  EXPECT_EQ(kPrinter, DeviceName(first.m_hNamesIn));
  EXPECT_EQ(1, first.m_nCopiesIn);
  EXPECT_EQ(first.m_hNamesIn, m_app.m_hDevNames);
  ASSERT_TRUE(first.GetPrinterDC() != NULL);
  ::DeleteDC(first.m_pd.hDC);

  // The next dialog starts from what the user chose in the last one.
  CSilentPrintDialog second;
  second.m_bReplaceNames = TRUE;
  ASSERT_EQ(IDOK, m_app.DoPrintDialog(&second));
  EXPECT_EQ(first.m_hNamesIn, second.m_hNamesIn);
  EXPECT_EQ(4, second.m_nCopiesIn);
  // The block the dialog made is the application's now, and being a
  // printer chosen by name it stays so.
  EXPECT_EQ(second.m_pd.hDevNames, m_app.m_hDevNames);
  EXPECT_EQ("Chosen Printer", DeviceName(m_app.m_hDevNames));
  PRINTDLG pd;
  memset(&pd, 0, sizeof(pd));
  ASSERT_TRUE(m_app.GetPrinterDeviceDefaults(&pd));
  EXPECT_EQ("Chosen Printer", DeviceName(pd.hDevNames));
}

} // namespace
