// The test prefix's printer through VPrinter: every record level, the
// strings kept in the record block, failures reported or silent, copies
// sharing the handle; VPrintInfo's copies.
#include <vrk_printer.h>
#include <gtest/gtest.h>

#include <string>

#include "../../afx/print_testing.h"
#include "msgbox_catcher.h"

namespace {

std::string SystemText(DWORD dwError) {
  char sz[512] = "";
  ::FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, NULL, dwError, 0, sz, sizeof(sz), NULL);
  return sz;
}

// The string lies inside the printer's record block.
bool InBlock(const VPrinter& printer, const char* psz) {
  const BYTE* pBlock = (const BYTE*)::GlobalLock(printer.m_hInfo);
  SIZE_T nSize = ::GlobalSize(printer.m_hInfo);
  ::GlobalUnlock(printer.m_hInfo);
  return psz != NULL && (const BYTE*)psz >= pBlock && (const BYTE*)psz < pBlock + nSize;
}

class PrinterTest : public VPrinter {
public:
  using VPrinter::Get; // the protected level form too
};

TEST(Printer, RecordsOfEachLevelKeepTheirStringsInTheBlock) {
  PrinterTest printer;
  MsgBoxCatcher catcher;
  ASSERT_TRUE(printer.Open(kPrinter));
  ASSERT_TRUE((void*)printer != NULL);

  PRINTER_INFO_1A pi1;
  ASSERT_TRUE(printer.Get(&pi1));
  EXPECT_NE(std::string::npos, std::string(pi1.pName).find(kPrinter));
  EXPECT_TRUE(InBlock(printer, pi1.pName));
  PRINTER_INFO_2A pi2;
  ASSERT_TRUE(printer.Get(&pi2));
  EXPECT_STREQ(kPrinter, pi2.pPrinterName);
  EXPECT_STREQ("LPT1:", pi2.pPortName);
  EXPECT_STREQ("wineps.drv", pi2.pDriverName);
  EXPECT_TRUE(InBlock(printer, pi2.pPortName));
  EXPECT_TRUE(pi2.pDevMode != NULL && InBlock(printer, (const char*)pi2.pDevMode));
  PRINTER_INFO_4A pi4;
  ASSERT_TRUE(printer.Get(&pi4));
  EXPECT_STREQ(kPrinter, pi4.pPrinterName);
  PRINTER_INFO_5A pi5;
  ASSERT_TRUE(printer.Get(&pi5));
  EXPECT_STREQ("LPT1:", pi5.pPortName);
  // Levels 3 and 7 as the spooler answers them: a record or a refusal, the
  // same through the typed and the level form, never a crash.
  PRINTER_INFO_3 pi3;
  PRINTER_INFO_7A pi7;
  int b3 = printer.Get(&pi3), b7 = printer.Get(&pi7);
  EXPECT_EQ(b3, printer.Get(3, (BYTE*)&pi3, sizeof(pi3)));
  EXPECT_EQ(b7, printer.Get(7, (BYTE*)&pi7, sizeof(pi7)));
  EXPECT_EQ((size_t)(2 * (2 - b3 - b7)), catcher.Count());
  // Closed: handle and block gone.
  printer.Close();
  EXPECT_TRUE((void*)printer == NULL);
  EXPECT_EQ(NULL, printer.m_hInfo);
}

TEST(Printer, FailuresAreReportedUnlessSilent) {
  MsgBoxCatcher catcher;
  VPrinter printer;
  // Get on a closed printer: the spooler refuses the null handle.
  PRINTER_INFO_2A pi2;
  EXPECT_EQ(0, printer.Get(&pi2));
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ(SystemText(ERROR_INVALID_HANDLE), catcher.Last().text);
  EXPECT_TRUE(printer.m_hInfo != NULL); // the block of the size asked for
  EXPECT_EQ(0, printer.Open("No Such Printer"));
  EXPECT_EQ(2u, catcher.Count());
  EXPECT_EQ(SystemText(::GetLastError()), catcher.Last().text);

  printer.SetSilent(1);
  EXPECT_EQ(0, printer.Get(&pi2));
  EXPECT_EQ(0, printer.Open("No Such Printer"));
  EXPECT_EQ(2u, catcher.Count());
}

TEST(Printer, CopiesShareTheHandle) {
  MsgBoxCatcher catcher;
  VPrinter* pOriginal = new VPrinter;
  ASSERT_TRUE(pOriginal->Open(kPrinter));
  PRINTER_INFO_2A pi2;
  ASSERT_TRUE(pOriginal->Get(&pi2));
  VPrinter copy(*pOriginal);
  VPrinter assigned;
  assigned = copy;
  EXPECT_EQ((void*)*pOriginal, (void*)copy);
  EXPECT_EQ((void*)*pOriginal, (void*)assigned);
  // Each fetches its own records through the one handle.
  PRINTER_INFO_5A pi5;
  ASSERT_TRUE(copy.Get(&pi5));
  EXPECT_NE(pOriginal->m_hInfo, copy.m_hInfo);
  EXPECT_STREQ(kPrinter, pi2.pPrinterName); // the original's record still holds
  // The original closes the handle for all: the copies' Gets fail.
  delete pOriginal;
  copy.SetSilent(1);
  EXPECT_EQ(0, copy.Get(&pi5));
  EXPECT_EQ(0u, catcher.Count());
}

TEST(PrintInfo, CopiesAreIndependent) {
  VPrintInfo info;
  EXPECT_EQ(1, info.m_nUserValue);
  ASSERT_TRUE(info.m_pPD->GetDefaults());
  HDC hDC = info.m_pPD->GetPrinterDC();
  ASSERT_TRUE(hDC != NULL);
  info.SetMaxPage(7);
  info.m_nCurPage = 3;
  info.m_strPageDesc = "Page %u";
  info.m_rectDraw = CRect(1, 2, 3, 4);
  info.m_nUserValue = 9;
  {
    VPrintInfo copy(info);
    VPrintInfo assigned;
    assigned = info;
    info.m_strPageDesc = "changed";
    for (VPrintInfo* p : {&copy, &assigned}) {
      EXPECT_NE(info.m_pPD, p->m_pPD);
      EXPECT_EQ(7u, p->GetMaxPage());
      EXPECT_EQ(info.m_pPD->m_pd.hDevNames, p->m_pPD->m_pd.hDevNames);
      EXPECT_EQ(NULL, p->m_pPD->m_pd.hDC); // the DC stays the original's
      EXPECT_EQ(3u, p->m_nCurPage);
      EXPECT_EQ(CString("Page %u"), p->m_strPageDesc);
      EXPECT_EQ(CRect(1, 2, 3, 4), p->m_rectDraw);
      EXPECT_EQ(9, p->m_nUserValue);
    }
  }
  EXPECT_EQ((DWORD)OBJ_DC, ::GetObjectType(hDC));
  ::GlobalFree(info.m_pPD->m_pd.hDevMode);
  ::GlobalFree(info.m_pPD->m_pd.hDevNames);
}

} // namespace
