// VPrinter on the test printer.
#include <vrk_printer.h>
#include <gtest/gtest.h>

#include "../../afx/print_testing.h"
#include "msgbox_catcher.h"

namespace {

std::string SystemText(DWORD dwError) {
  char sz[512] = "";
  ::FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, NULL, dwError, 0, sz, sizeof(sz), NULL);
  return sz;
}

TEST(Printer, RecordsFailuresAndCopies) {
  MsgBoxCatcher catcher;
  VPrinter printer, closed;
  PRINTER_INFO_2A pi2;
  EXPECT_EQ(0, closed.Get(&pi2)); // the spooler refuses the null handle
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ(SystemText(ERROR_INVALID_HANDLE), catcher.Last().text);

  ASSERT_TRUE(printer.Open(kPrinter));
  PRINTER_INFO_5A pi5;
  ASSERT_TRUE(printer.Get(&pi5) && std::string(pi5.pPortName) == "LPT1:" && printer.Get(&pi2));
  // The last record's strings lie in the block, valid until the next Get.
  const char* pBlock = (const char*)::GlobalLock(printer.m_hInfo);
  ::GlobalUnlock(printer.m_hInfo);
  EXPECT_EQ(kPrinter + std::string("|wineps.drv"),
            pi2.pPrinterName + std::string("|") + pi2.pDriverName);
  EXPECT_TRUE(pi2.pPortName > pBlock && pi2.pPortName < pBlock + ::GlobalSize(printer.m_hInfo));

  // A copy shares the handle; once the original closes it, the copy's Get fails.
  VPrinter copy(printer);
  EXPECT_EQ((void*)printer, (void*)copy);
  EXPECT_TRUE(copy.Get(&pi5));
  printer.Close();
  EXPECT_TRUE((void*)printer == NULL && printer.m_hInfo == NULL);
  EXPECT_EQ(0, copy.Get(&pi5));
  EXPECT_EQ(0, copy.Open("No Such Printer"));
  EXPECT_EQ(3u, catcher.Count());
  copy.SetSilent(1);
  EXPECT_TRUE(copy.Open("No Such Printer") == 0 && copy.Get(&pi5) == 0);
  EXPECT_EQ(3u, catcher.Count());
}

} // namespace
