// VPrintJob on the test printer: the steps in order, the print dialog and
// the Save As dialog of print to file driven from the keyboard (OK, Cancel,
// a page range, a file, the file dialog cancelled), the defaults without a
// dialog, the printable area and its margins, the main window while the
// spooler starts, failures (no printer, a refused document) and the index
// tree slot. The pages are read back from the printer's output (SpoolFile).
#include <vrk_exception.h>
#include <vrk_printunit.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "../../afx/dlg_driver.h"
#include "../../afx/print_testing.h"
#include "msgbox_catcher.h"
#include "printed_pages.h"
#include "temp_dir.h"

namespace {

// ---- Keyboard input, as a user gives it --------------------------------------------

void Key(WORD vk, DWORD dwFlags = 0) {
  INPUT in;
  memset(&in, 0, sizeof(in));
  in.type = INPUT_KEYBOARD;
  in.ki.wVk = vk;
  in.ki.dwFlags = dwFlags;
  ::SendInput(1, &in, sizeof(in));
}

void Press(WORD vk) {
  Key(vk);
  Key(vk, KEYEVENTF_KEYUP);
}

// Lets the thread handle the input sent so far.
void Pump() {
  for (int i = 0; i < 5; i++) {
    MSG msg;
    while (::PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE)) {
      ::TranslateMessage(&msg);
      ::DispatchMessageA(&msg);
    }
    ::Sleep(5);
  }
}

// Typed characters (KEYEVENTF_UNICODE: any character, no key mapping).
void Type(const std::string& text) {
  for (char ch : text) {
    INPUT in[2];
    memset(in, 0, sizeof(in));
    for (INPUT& i : in) {
      i.type = INPUT_KEYBOARD;
      i.ki.wScan = (BYTE)ch;
      i.ki.dwFlags = KEYEVENTF_UNICODE;
    }
    in[1].ki.dwFlags |= KEYEVENTF_KEYUP;
    ::SendInput(2, in, sizeof(INPUT));
  }
  Pump();
}

// The control gets the focus, as a click would give it.
void FocusOn(HWND hDlg, int nID) {
  ::SetForegroundWindow(hDlg);
  HWND hCtrl = ::GetDlgItem(hDlg, nID);
  ::SetFocus(hCtrl);
  Pump();
}

// Replaces an edit box's text: Home, Shift+End, the new text.
void TypeInto(HWND hDlg, int nID, const std::string& text) {
  FocusOn(hDlg, nID);
  Press(VK_HOME);
  Key(VK_SHIFT);
  Press(VK_END);
  Key(VK_SHIFT, KEYEVENTF_KEYUP);
  Type(text);
}

// A radio button or check box pressed with the space bar.
void Tick(HWND hDlg, int nID) {
  FocusOn(hDlg, nID);
  Press(VK_SPACE);
  Pump();
}

// Runs f once the dialog is shown and active (a dialog driver's action
// comes while it activates).
std::function<void()> g_later;
void CALLBACK LaterProc(HWND, UINT, UINT_PTR id, DWORD) {
  ::KillTimer(NULL, id);
  std::function<void()> f = g_later;
  g_later = nullptr;
  if (f) f();
}
DialogDriver::Action Later(std::function<void(HWND)> f) {
  return [f](HWND hDlg) {
    g_later = [f, hDlg] { f(hDlg); };
    ::SetTimer(NULL, 0, 50, &LaterProc);
  };
}

// ---- A job that logs its steps and prints numbered pages ----------------------------

class CLogJob : public VPrintJob {
public:
  std::vector<std::string> m_log;
  int m_nPages = 2;
  BOOL m_bDialog = TRUE;
  CRect m_margins = CRect(0, 0, 0, 0);
  BOOL m_bStaleDC = FALSE;
  UINT m_nMinPage = 1, m_nMaxPage = 0xFFFF;
  std::string m_from, m_to; // the page range the dialog showed

  void Log(const std::string& s) { m_log.push_back(s); }
  virtual CDialog* CreatePrintDialog() {
    Log("create dialog");
    if (!m_bDialog) return NULL;
    m_pInfo->SetMinPage(m_nMinPage);
    m_pInfo->SetMaxPage(m_nMaxPage);
    return VPrintJob::CreatePrintDialog();
  }
  virtual int InitPrintDialog() {
    Log("init dialog");
    return VPrintJob::InitPrintDialog();
  }
  virtual int DoPrintDialog() {
    Log("dialog");
    return VPrintJob::DoPrintDialog();
  }
  virtual int DoPrintToFileDialog(CString& strPath) {
    Log("file dialog");
    return VPrintJob::DoPrintToFileDialog(strPath);
  }
  virtual CDC* CreatePrintDC() {
    Log("create dc");
    if (!m_bStaleDC) return VPrintJob::CreatePrintDC();
    // A DC the system no longer knows: the spooler refuses its document.
    CDC* pDC = new CDC;
    HDC hDC = ::CreateDCA("WINSPOOL", kPrinter, NULL, NULL);
    ::DeleteDC(hDC);
    pDC->Attach(hDC);
    return pDC;
  }
  virtual void OnBeginPrinting() { Log("begin"); }
  virtual void EndPrinting(int bAbort) {
    Log("end printing " + std::to_string(bAbort));
    VPrintJob::EndPrinting(bAbort);
  }
  virtual int StartDocPrinting(DOCINFOA& di) {
    Log("start doc");
    return VPrintJob::StartDocPrinting(di);
  }
  virtual void EndDocPrinting(int bAbort) {
    Log("end doc " + std::to_string(bAbort));
    VPrintJob::EndDocPrinting(bAbort);
  }
  virtual void InitPrintDC() {
    Log("init dc");
    VPrintJob::InitPrintDC();
  }
  virtual void InitPrintInfo() {
    Log("init info");
    VPrintJob::InitPrintInfo();
  }
  virtual int GetPageMargins(CRect* pMargins) {
    *pMargins = m_margins;
    return !m_margins.IsRectNull();
  }
  virtual void InitDocInfo(DOCINFOA& di) {
    Log("doc info");
    VPrintJob::InitDocInfo(di);
    di.lpszDocName = "Job Test";
  }
  virtual void OnPrint() {
    Log("print");
    VPrintUnit unit(this);
    for (int i = 1; i <= m_nPages; i++) {
      CString strLine;
      strLine.Format("Page %d", i);
      unit.PrintTextLine(strLine);
      unit.NewPage();
    }
  }
};

// Logs the main window's enabling.
class CLogFrame : public CFrameWnd {
public:
  std::vector<std::string>* m_pLog = nullptr;
  afx_msg void OnEnable(BOOL bEnable) {
    if (m_pLog != nullptr) m_pLog->push_back("enable " + std::to_string(bEnable ? 1 : 0));
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CLogFrame, CFrameWnd)
ON_WM_ENABLE()
END_MESSAGE_MAP()

class PrintJob : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_FALSE(SpoolFile().empty()) << "the test prefix has no printer";
    ::DeleteFileA(SpoolFile().c_str());
    m_pFrame = new CLogFrame;
    ASSERT_TRUE(m_pFrame->Create(NULL, "Main"));
    m_pFrame->ShowWindow(SW_SHOW);
    m_app.m_pMainWnd = m_pFrame;
  }
  void TearDown() override {
    m_app.m_pMainWnd = NULL;
    m_pFrame->DestroyWindow();
  }
  static bool Spooled() {
    return ::GetFileAttributesA(SpoolFile().c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  static std::vector<std::string> PageTexts(const std::vector<PrintedPage>& pages) {
    std::vector<std::string> texts;
    for (const PrintedPage& page : pages)
      texts.push_back(page.Texts());
    return texts;
  }

  CWinApp m_app{"PrintJobTest"};
  CLogFrame* m_pFrame = NULL;
};

const std::vector<std::string> kAllSteps = {
    "create dialog", "init dialog", "dialog",   "file dialog", "create dc",
    "init dc",       "init info",   "doc info", "begin",       "start doc",
    "enable 0",      "enable 1",    "print",    "end doc 0",   "end printing 0"};

TEST_F(PrintJob, OkInTheDialogPrintsEveryStepInOrder) {
  CLogJob job;
  m_pFrame->m_pLog = &job.m_log;
  DialogDriver driver;
  driver.Then(Later([](HWND) { Press(VK_RETURN); }));
  EXPECT_EQ(VPrintJob::printDone, job.Print());
  // The modal dialog disables its owner too.
  std::vector<std::string> expected(kAllSteps);
  expected.insert(expected.begin() + 3, {"enable 0", "enable 1"});
  EXPECT_EQ(expected, job.m_log);
  EXPECT_EQ(1u, driver.Captions().size());
  EXPECT_EQ((std::vector<std::string>{"Page 1", "Page 2"}), PageTexts(ReadSpoolPages()));
  EXPECT_TRUE(m_pFrame->IsWindowEnabled());
  // The job's printer is the application's.
  VDevNames names;
  job.GetDeviceNames(&names);
  EXPECT_EQ(CString(kPrinter), names.m_strDevice);
  EXPECT_EQ(CString("wineps.drv"), names.m_strDriver);
  EXPECT_EQ(CString("LPT1:"), names.m_strOutput);
  EXPECT_EQ(m_app.m_hDevNames, job.m_pPD->hDevNames);
}

TEST_F(PrintJob, PageRangeTypedInTheDialog) {
  CLogJob job;
  job.m_nPages = 3;
  job.m_nMaxPage = 3;
  DialogDriver driver;
  driver.Then(Later([&](HWND hDlg) {
    Tick(hDlg, rad3);
    TypeInto(hDlg, edt1, "2");
    TypeInto(hDlg, edt2, "3");
    Press(VK_RETURN);
  }));
  EXPECT_EQ(VPrintJob::printDone, job.Print());
  EXPECT_TRUE(job.m_pPD->Flags & PD_PAGENUMS);
  // Pages 2 and 3 of the three, with their own numbers.
  EXPECT_EQ((std::vector<std::string>{"Page 2", "Page 3"}), PageTexts(ReadSpoolPages()));
}

TEST_F(PrintJob, CancelledDialogsPrintNothing) {
  CLogJob job;
  job.m_nMinPage = 5; // above the maximum: the range shows as 5 to 5
  job.m_nMaxPage = 2;
  DialogDriver driver;
  driver.Then(Later([&](HWND hDlg) {
    job.m_from = DialogDriver::Text(::GetDlgItem(hDlg, edt1));
    job.m_to = DialogDriver::Text(::GetDlgItem(hDlg, edt2));
    Press(VK_ESCAPE);
  }));
  EXPECT_EQ(VPrintJob::printCancelled, job.Print());
  EXPECT_EQ("5", job.m_from);
  EXPECT_EQ("5", job.m_to);
  EXPECT_EQ((std::vector<std::string>{"create dialog", "init dialog", "dialog"}), job.m_log);
  // Print to file, then the file dialog cancelled.
  job.m_log.clear();
  driver.Then(Later([](HWND hDlg) {
    Tick(hDlg, chx1);
    Press(VK_RETURN);
  }));
  driver.Then(Later([](HWND) { Press(VK_ESCAPE); }));
  EXPECT_EQ(VPrintJob::printNoFile, job.Print());
  EXPECT_EQ((std::vector<std::string>{"create dialog", "init dialog", "dialog", "file dialog"}),
            job.m_log);
  EXPECT_EQ(3u, driver.Captions().size());
  EXPECT_FALSE(Spooled());
}

TEST_F(PrintJob, PrintToAFileChosenInTheSaveDialog) {
  TempDir dir;
  CLogJob job;
  std::string offered, filter;
  DialogDriver driver;
  driver.Then(Later([](HWND hDlg) {
    Tick(hDlg, chx1);
    Press(VK_RETURN);
  }));
  driver.Then(Later([&](HWND hDlg) {
    int nID = ::GetDlgItem(hDlg, cmb13) != NULL ? cmb13 : edt1;
    offered = DialogDriver::Text(::GetDlgItem(hDlg, nID));
    filter = DialogDriver::Text(::GetDlgItem(hDlg, cmb1));
    TypeInto(hDlg, nID, dir.File("report")); // the default extension is added
    Press(VK_RETURN);
  }));
  EXPECT_EQ(VPrintJob::printDone, job.Print());
  ASSERT_EQ(2u, driver.Captions().size());
  EXPECT_EQ("Print to File", driver.Captions()[1]);
  EXPECT_EQ("Output.prn", offered);
  EXPECT_EQ("Printer Files (*.prn)", filter);
  EXPECT_EQ(CString(dir.File("report.prn").c_str()), job.m_strOutputFile);
  EXPECT_EQ((std::vector<std::string>{"Page 1", "Page 2"}),
            PageTexts(ReadPages(TempDir::ReadBytes(dir.File("report.prn")))));
  EXPECT_FALSE(Spooled());
}

TEST_F(PrintJob, DefaultsWithoutADialogAndOneCopyAfter) {
  CLogJob job;
  job.m_bDialog = FALSE;
  job.UseDefaults();
  ASSERT_TRUE(job.m_dwFlags & VPrintJob::flagOwnPD);
  ASSERT_TRUE(job.m_pPD->hDC != NULL);
  HDC hDC = job.m_pPD->hDC;
  // The user asked for three copies last time.
  DEVMODEA* pMode = (DEVMODEA*)::GlobalLock(job.m_pPD->hDevMode);
  pMode->dmCopies = 3;
  ::GlobalUnlock(job.m_pPD->hDevMode);
  EXPECT_EQ(VPrintJob::printDone, job.Print());
  std::vector<std::string> expected(kAllSteps);
  expected.erase(expected.begin() + 1, expected.begin() + 3);  // no dialog
  expected.erase(expected.begin() + 8, expected.begin() + 10); // no main window log
  EXPECT_EQ(expected, job.m_log);
  EXPECT_EQ(2u, ReadSpoolPages().size());
  pMode = (DEVMODEA*)::GlobalLock(m_app.m_hDevMode);
  EXPECT_EQ(1, pMode->dmCopies);
  ::GlobalUnlock(m_app.m_hDevMode);
  // The job's own block and its DC go with the job.
  {
    CLogJob* pJob = new CLogJob;
    pJob->UseDefaults();
    hDC = pJob->m_pPD->hDC;
    delete pJob;
  }
  EXPECT_EQ(0u, ::GetObjectType(hDC));
}

TEST_F(PrintJob, PrintableAreaLessTheMargins) {
  struct {
    CRect margins, printable;
  } cases[] = {
      {CRect(0, 0, 0, 0), CRect(0, 0, 2400, 3150)},
      {CRect(150, 200, 100, 250), CRect(150, 200, 2300, 2900)},
      // Wider and taller than the page: the edges are put back in order.
      {CRect(3000, 100, 100, 100), CRect(2300, 100, 3000, 3050)},
      {CRect(0, 4000, 0, 10), CRect(0, 3140, 2400, 4000)},
  };
  for (const auto& c : cases) {
    CLogJob job;
    job.m_bDialog = FALSE;
    job.m_nPages = 1;
    job.m_margins = c.margins;
    job.UseDefaults();
    ASSERT_EQ(VPrintJob::printDone, job.Print());
    EXPECT_EQ(CRect(0, 0, 2400, 3150), job.m_rectPage);
    EXPECT_EQ(c.printable, job.m_rectPrintable);
    EXPECT_EQ(c.printable, job.m_pInfo->m_rectDraw); // MM_TEXT: the same
    // The page's text stands at the printable area's corner.
    std::vector<PrintedPage> pages = ReadSpoolPages();
    ASSERT_EQ(1u, pages.size());
    ASSERT_EQ(1u, pages[0].runs.size());
    EXPECT_EQ(c.printable.left, pages[0].runs[0].x);
  }
}

TEST_F(PrintJob, RefusedDocumentThrows5014AndCleansUp) {
  CLogJob job;
  m_pFrame->m_pLog = &job.m_log;
  job.m_bDialog = FALSE;
  job.UseDefaults();
  job.m_bStaleDC = TRUE;
  CString strExpected;
  strExpected.LoadString(5014);
  CString strCaught;
  try {
    job.Print();
  } catch (CException* e) {
    VException* pVE = DYNAMIC_DOWNCAST(VException, e);
    if (pVE != NULL) strCaught = pVE->m_strMessage;
    e->Delete();
  }
  EXPECT_EQ(strExpected, strCaught);
  EXPECT_FALSE(strExpected.IsEmpty());
  std::vector<std::string> tail(job.m_log.end() - 5, job.m_log.end());
  EXPECT_EQ((std::vector<std::string>{"start doc", "enable 0", "end printing 1", "end doc 1",
                                      "enable 1"}),
            tail);
  EXPECT_TRUE(m_pFrame->IsWindowEnabled());
}

// Takes the test printer away for a scope: the prefix has no printer at
// all; it comes back as it was.
class NoPrinter {
public:
  NoPrinter() {
    HANDLE h = NULL;
    PRINTER_DEFAULTSA defaults = {NULL, NULL, PRINTER_ALL_ACCESS};
    if (!::OpenPrinterA((LPSTR)kPrinter, &h, &defaults)) return;
    m_bRemoved = ::DeletePrinter(h);
    ::ClosePrinter(h);
  }
  ~NoPrinter() {
    if (!m_bRemoved) return;
    PRINTER_INFO_2A pi;
    memset(&pi, 0, sizeof(pi));
    pi.pPrinterName = (LPSTR)kPrinter;
    pi.pPortName = (LPSTR) "LPT1:";
    pi.pDriverName = (LPSTR) "wineps.drv";
    pi.pPrintProcessor = (LPSTR) "winprint";
    pi.pDatatype = (LPSTR) "RAW";
    HANDLE h = ::AddPrinterA(NULL, 2, (LPBYTE)&pi);
    if (h != NULL) ::ClosePrinter(h);
    ::SetDefaultPrinterA(kPrinter);
  }
  BOOL m_bRemoved = FALSE;
};

// The bytes in use on every heap of the process.
size_t BusyHeapBytes() {
  HANDLE heaps[64];
  DWORD n = ::GetProcessHeaps(64, heaps);
  size_t nBusy = 0;
  for (DWORD i = 0; i < n && i < 64; i++) {
    ::HeapLock(heaps[i]);
    PROCESS_HEAP_ENTRY entry;
    entry.lpData = NULL;
    while (::HeapWalk(heaps[i], &entry))
      if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) nBusy += entry.cbData;
    ::HeapUnlock(heaps[i]);
  }
  return nBusy;
}

TEST_F(PrintJob, NoPrinterInstalled) {
  {
    NoPrinter none;
    ASSERT_TRUE(none.m_bRemoved);
    MsgBoxCatcher catcher;
    size_t nBusy = 0;
    for (int i = 0; i < 220; i++) {
      if (i == 20) nBusy = BusyHeapBytes(); // after the first jobs' caches
      CLogJob job;
      m_pFrame->m_pLog = &job.m_log;
      job.m_bDialog = FALSE;
      job.UseDefaults();
      EXPECT_EQ(NULL, job.m_pPD->hDC);
      bool bThrown = false;
      try {
        job.Print();
      } catch (CException* e) {
        bThrown = DYNAMIC_DOWNCAST(VException, e) != NULL;
        e->Delete();
      }
      EXPECT_TRUE(bThrown);
      EXPECT_EQ("create dc", job.m_log.back());
      m_pFrame->m_pLog = nullptr;
    }
    // Nothing of the 200 failed jobs stays behind.
    EXPECT_LT(BusyHeapBytes(), nBusy + 1024);
    EXPECT_TRUE(m_pFrame->IsWindowEnabled());
    EXPECT_FALSE(Spooled());
  }
  // Back: a job prints again.
  CLogJob job;
  job.m_bDialog = FALSE;
  job.UseDefaults();
  EXPECT_EQ(VPrintJob::printDone, job.Print());
}

TEST(PrintJobIndex, SlotsNestAndRestoreInReverse) {
  VPrintJob job;
  VIndexItem item;
  item.m_strText = "dropped";
  job.AddIndexItem(&item); // no slot: nothing
  EXPECT_EQ(NULL, job.m_ppIndexTree);
  VPrintIndexTree* pRoot = NULL;
  {
    VSelectPrintJobIndexTree outer(&job, &pRoot);
    item.m_strText = "Chapter";
    job.AddIndexItem(&item);
    ASSERT_TRUE(pRoot != NULL);
    {
      VPrintUnit unit(&job);
      VSelectPrintJobIndexTree inner(&unit, &pRoot->ElementAt(0).m_pChildren);
      item.m_strText = "Section";
      unit.AddIndexItem(&item);
      EXPECT_EQ(&pRoot->ElementAt(0).m_pChildren, job.m_ppIndexTree);
    }
    EXPECT_EQ(&pRoot, job.m_ppIndexTree);
  }
  EXPECT_EQ(NULL, job.m_ppIndexTree);
  ASSERT_EQ(1, pRoot->GetSize());
  ASSERT_TRUE(pRoot->GetAt(0).m_pChildren != NULL);
  EXPECT_EQ(CString("Section"), pRoot->GetAt(0).m_pChildren->GetAt(0).m_strText);
  delete pRoot;
}

// The virtual functions' slots: consecutive, in this order, right after
// CObject's (Itanium C++ ABI: a member pointer to a virtual function holds
// 1 + its byte offset in the table).
template <typename F> ptrdiff_t Slot(F f) {
  static_assert(sizeof(F) == 2 * sizeof(ptrdiff_t), "Itanium member pointer");
  ptrdiff_t n;
  memcpy(&n, &f, sizeof(n));
  return (n - 1) / (ptrdiff_t)sizeof(void*);
}

TEST(PrintJobClass, VirtualsInSlotOrder) {
  std::vector<ptrdiff_t> slots = {
      Slot(&VPrintJob::CreatePrintDialog), Slot(&VPrintJob::InitPrintDialog),
      Slot(&VPrintJob::DoPrintDialog),     Slot(&VPrintJob::DoPrintToFileDialog),
      Slot(&VPrintJob::CreatePrintDC),     Slot(&VPrintJob::OnBeginPrinting),
      Slot(&VPrintJob::EndPrinting),       Slot(&VPrintJob::StartDocPrinting),
      Slot(&VPrintJob::EndDocPrinting),    Slot(&VPrintJob::InitPrintDC),
      Slot(&VPrintJob::InitPrintInfo),     Slot(&VPrintJob::GetPageMargins),
      Slot(&VPrintJob::InitDocInfo),       Slot(&VPrintJob::OnPrint),
      Slot(&VPrintJob::UseDefaults)};
  for (size_t i = 0; i < slots.size(); i++)
    EXPECT_EQ(Slot(&CObject::Dump) + 1 + (ptrdiff_t)i, slots[i]) << i;
  EXPECT_TRUE(VPrintJob().IsKindOf(RUNTIME_CLASS(CObject)));
}

} // namespace
