// VPrintJob on the test printer, its pages read back from SpoolFile.
#include <algorithm>

#include "user_input.h"
#include "msgbox_catcher.h"
#include "printing_testing.h"
#include "vtable_slot.h"

namespace {

class PrintJob : public PrintJobTest {};

typedef DialogDriver D;
using user_input::Press;
using user_input::Text;
// Space on a box or a radio button, or the text typed over what an edit held.
void Use(HWND hDlg, int nID, const char* pszTyped = nullptr) {
  user_input::FocusItem(hDlg, nID); // as Tab does: an edit's text selected
  pszTyped == nullptr ? Press(VK_SPACE) : user_input::Type(pszTyped);
}

const std::vector<std::string> kSteps = {
    "create dialog", "init dialog", "dialog",    "enable 0",  "enable 1",      "file",
    "create dc",     "init dc",     "init info", "doc info",  "begin",         "start doc",
    "enable 0",      "enable 1",    "print",     "end doc 0", "end printing 0"};

TEST_F(PrintJob, DialogPaths) {
  TempDir dir;
  const std::vector<std::string> kNone;
  const std::string file = dir.File("report.prn");
  std::string range, offered;
  auto ok = D::WhenShown([](HWND) { Press(VK_RETURN); });
  auto cancel = D::WhenShown([](HWND) { Press(VK_ESCAPE); });
  auto readRange =
      D::WhenShown([&](HWND h) { range = Text(h, edt1) + "-" + Text(h, edt2), Press(VK_ESCAPE); });
  auto page2 = D::WhenShown(
      [](HWND h) { Use(h, rad3), Use(h, edt1, "2"), Use(h, edt2, "2"), Press(VK_RETURN); });
  auto toFile = D::WhenShown([](HWND h) { Use(h, chx1), Press(VK_RETURN); });
  auto chooseFile = D::WhenShown([&](HWND h) {
    int nID = ::GetDlgItem(h, cmb13) != NULL ? cmb13 : edt1;
    offered = Text(h, nID) + " " + Text(h, cmb1);
    Use(h, nID, dir.File("report").c_str()); // the default extension is added
    Press(VK_RETURN);
  });
  const std::vector<std::string> k12 = {"Page 1", "Page 2"};
  // clang-format off
  struct { UINT nMin, nMax; std::vector<DialogDriver::Action> keys; int nResult;
           std::string last, file; std::vector<std::string> pages; } cases[] = {
      {1, 0xFFFF, {ok},                 0, "end printing 0", "",   k12},
      {5, 2,      {readRange},          1, "enable 1",       "",   {}}, // minimum above maximum
      {1, 2,      {page2},              0, "end printing 0", "",   {"Page 2"}},
      {1, 2,      {toFile, chooseFile}, 0, "end printing 0", file, k12},
      {1, 2,      {toFile, cancel},     3, "enable 1",       "",   {}}};
  // clang-format on
  for (auto& c : cases) {
    CLogJob job;
    m_pFrame->m_pJob = &job;
    job.m_nMinPage = c.nMin, job.m_nMaxPage = c.nMax;
    DialogDriver driver;
    for (auto& action : c.keys)
      driver.Then(action);
    EXPECT_EQ(c.nResult, job.Print());
    EXPECT_TRUE(c.keys.size() == driver.Captions().size() && c.last == job.m_log.back());
    EXPECT_EQ(c.nResult == 0, std::count(job.m_log.begin(), job.m_log.end(), "create dc"));
    EXPECT_EQ(c.file.empty() ? c.pages : kNone, PageTexts(ReadSpoolPages()));
    EXPECT_TRUE(c.file.empty() || c.pages == PageTexts(ReadPages(TempDir::ReadBytes(c.file))));
    EXPECT_EQ(c.nResult == 0 && c.file.empty(), Spooled());
    EXPECT_TRUE(&c != cases || kSteps == job.m_log);
    EXPECT_TRUE(c.keys.size() < 2 || driver.Captions()[1] == "Print to File");
    ::DeleteFileA(SpoolFile().c_str());
  }
  EXPECT_EQ("5-5 Output.prn Printer Files (*.prn)", range + " " + offered);
}

TEST_F(PrintJob, DefaultsMarginsOneCopyAfterAndARefusedDocument) {
  // clang-format off
  struct { CRect margins, printable; } cases[] = {
      {CRect(150, 200, 100, 250), CRect(150, 200, 2300, 2900)},
      // Wider and taller than the page: the edges are put back in order.
      {CRect(3000, 4000, 100, 10), CRect(2300, 3140, 3000, 4000)},
  };
  // clang-format on
  for (const auto& c : cases) {
    CLogJob job;
    job.m_bDialog = 0, job.m_nPages = 1, job.m_margins = c.margins;
    job.UseDefaults();
    ASSERT_TRUE(job.m_pPD->hDC != NULL);
    DEVMODEA* pMode = (DEVMODEA*)::GlobalLock(job.m_pPD->hDevMode);
    pMode->dmCopies = 3; // as the user left it last time
    ASSERT_EQ(0, job.Print());
    EXPECT_EQ(1, pMode->dmCopies);
    ::GlobalUnlock(job.m_pPD->hDevMode);
    EXPECT_EQ(CRect(0, 0, 2400, 3150), job.m_rectPage);
    EXPECT_EQ(c.printable, job.m_rectPrintable);
    EXPECT_EQ(c.printable, job.m_pInfo->m_rectDraw); // MM_TEXT: the same
    std::vector<PrintedPage> pages = ReadSpoolPages();
    ASSERT_EQ(1u, pages.size());
    EXPECT_EQ(c.printable.left, pages[0][0].x);
  }
  VDevNames names;
  CLogJob* pJob = new CLogJob;
  pJob->UseDefaults();
  pJob->GetDeviceNames(&names);
  EXPECT_EQ(CString("wineps.drv") + kPrinter + "LPT1:",
            names.m_strDriver + names.m_strDevice + names.m_strOutput);
  HDC hDC = pJob->m_pPD->hDC;
  delete pJob; // with its own PRINTDLG and the DC in it
  EXPECT_EQ(0u, ::GetObjectType(hDC));
  CLogJob job; // StartDoc refused: 5014, the main window enabled again
  m_pFrame->m_pJob = &job;
  job.m_bDialog = 0, job.m_bStaleDC = 1;
  job.UseDefaults();
  EXPECT_EQ(-5014, PrintCaught(job));
  std::vector<std::string> tail(job.m_log.end() - 5, job.m_log.end());
  EXPECT_EQ((std::vector<std::string>{"start doc", "enable 0", "end printing 1", "end doc 1",
                                      "enable 1"}),
            tail);
  EXPECT_TRUE(m_pFrame->IsWindowEnabled());
}

// The bytes in use on every heap of the process.
size_t BusyHeapBytes() {
  HANDLE heaps[64];
  DWORD n = ::GetProcessHeaps(64, heaps);
  size_t nBusy = 0;
  PROCESS_HEAP_ENTRY entry;
  for (DWORD i = 0; i < n && i < 64; i++)
    for (entry.lpData = NULL; ::HeapWalk(heaps[i], &entry);)
      nBusy += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) ? entry.cbData : 0;
  return nBusy;
}

TEST_F(PrintJob, NoPrinterInstalled) {
  HANDLE h = NULL;
  PRINTER_DEFAULTSA all = {NULL, NULL, PRINTER_ALL_ACCESS};
  ASSERT_TRUE(::OpenPrinterA((LPSTR)kPrinter, &h, &all) && ::DeletePrinter(h));
  ::ClosePrinter(h);
  size_t nBusy = 0;
  for (int i = 0; i < 220; i++) {
    if (i == 20) nBusy = BusyHeapBytes(); // after the first jobs' caches
    CLogJob job;
    job.m_bDialog = 0;
    job.UseDefaults();
    EXPECT_EQ(-5014, PrintCaught(job));
    EXPECT_EQ("create dc", job.m_log.back());
  }
  EXPECT_LT(BusyHeapBytes(), nBusy + 1024); // nothing of 200 jobs stays
  // With the dialog: the system has none to offer, which is a cancel.
  MsgBoxCatcher catcher;
  CLogJob job;
  EXPECT_EQ(1, PrintCaught(job));
  EXPECT_TRUE(m_pFrame->IsWindowEnabled());
  EXPECT_FALSE(Spooled());
  // The printer back as cmake/wine-printer.c made it.
  PRINTER_INFO_2A pi = {NULL, (LPSTR)kPrinter, NULL, (LPSTR) "LPT1:", (LPSTR) "wineps.drv"};
  pi.pPrintProcessor = (LPSTR) "winprint";
  pi.pDatatype = (LPSTR) "RAW";
  ::ClosePrinter(::AddPrinterA(NULL, 2, (LPBYTE)&pi));
  ::SetDefaultPrinterA(kPrinter);
  CLogJob back;
  back.m_bDialog = 0;
  back.UseDefaults();
  EXPECT_EQ(0, back.Print());
}

TEST(PrintJobClass, VirtualsInSlotOrderAfterCObjects) {
  const int slots[] = {Slot(&VPrintJob::CreatePrintDialog), Slot(&VPrintJob::InitPrintDialog),
                       Slot(&VPrintJob::DoPrintDialog),     Slot(&VPrintJob::DoPrintToFileDialog),
                       Slot(&VPrintJob::CreatePrintDC),     Slot(&VPrintJob::OnBeginPrinting),
                       Slot(&VPrintJob::EndPrinting),       Slot(&VPrintJob::StartDocPrinting),
                       Slot(&VPrintJob::EndDocPrinting),    Slot(&VPrintJob::InitPrintDC),
                       Slot(&VPrintJob::InitPrintInfo),     Slot(&VPrintJob::GetPageMargins),
                       Slot(&VPrintJob::InitDocInfo),       Slot(&VPrintJob::OnPrint),
                       Slot(&VPrintJob::UseDefaults)};
  for (int i = 0; i < 15; i++)
    EXPECT_EQ(Slot(&CObject::Dump) + 1 + i, slots[i]) << i;
}

} // namespace
