// Shared by the print job and print unit tests: a job that logs its steps on
// the test printer, and the pages it printed, read back from the PostScript of
// Wine's driver (each page's text runs, one a TextOut, and where they start).
#ifndef VRK_TESTS_PRINTING_TESTING_H
#define VRK_TESTS_PRINTING_TESTING_H

#include <vrk_exception.h>
#include <vrk_printunit.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "../../afx/print_testing.h" // SpoolFile
#include "temp_dir.h"

struct TextRun {
  int x, y;
  std::string text;
};
typedef std::vector<TextRun> PrintedPage;

// "x y moveto" starts a run, "/name glyphshow" adds a character to it.
inline std::vector<PrintedPage> ReadPages(const std::string& ps) {
  static const std::map<std::string, char> names = {
      {"uni00A0", ' '},   {"space", ' '},      {"period", '.'}, {"comma", ','},
      {"parenleft", '('}, {"parenright", ')'}, {"zero", '0'},   {"one", '1'},
      {"two", '2'},       {"three", '3'},      {"four", '4'},   {"five", '5'},
      {"six", '6'},       {"seven", '7'},      {"eight", '8'},  {"nine", '9'}};
  std::vector<PrintedPage> pages;
  std::istringstream in(ps);
  std::string line;
  while (std::getline(in, line)) {
    std::istringstream words(line);
    std::string a, b, op;
    words >> a >> b >> op;
    if (a == "%%Page:") {
      pages.emplace_back();
    } else if (!pages.empty() && op == "moveto") {
      pages.back().push_back(TextRun{atoi(a.c_str()), atoi(b.c_str()), ""});
    } else if (!pages.empty() && !pages.back().empty() && b == "glyphshow") {
      std::string name = a.substr(1);
      auto it = names.find(name);
      pages.back().back().text += name.size() == 1 ? name[0] : it != names.end() ? it->second : '?';
    }
  }
  return pages;
}

inline std::vector<PrintedPage> ReadSpoolPages() {
  return ReadPages(TempDir::ReadBytes(SpoolFile()));
}

inline VIndexItem Item(const char* pszText, WORD nPage, DWORD dwFlags = 0,
                       VPrintIndexTree* pChildren = NULL) {
  VIndexItem item;
  item.m_strText = pszText;
  item.m_nPage = nPage;
  item.m_dwFlags = dwFlags;
  item.m_pChildren = pChildren;
  return item;
}

// Each page's runs joined by '|'.
inline std::vector<std::string> PageTexts(const std::vector<PrintedPage>& pages) {
  std::vector<std::string> texts;
  for (const PrintedPage& page : pages) {
    std::string s;
    for (const TextRun& run : page)
      s += (s.empty() ? "" : "|") + run.text;
    texts.push_back(s);
  }
  return texts;
}

// A job that logs its steps and prints its body, by default "Page N" on N pages.
class CLogJob : public VPrintJob {
public:
  std::vector<std::string> m_log;
  int m_nPages = 2, m_bDialog = 1, m_bStaleDC = 0;
  UINT m_nMinPage = 1, m_nMaxPage = 0xFFFF;
  CRect m_margins = CRect(0, 0, 0, 0);
  std::function<void(VPrintUnit&)> m_body = [this](VPrintUnit& unit) {
    for (int i = 1; i <= m_nPages; i++, unit.NewPage())
      unit.PrintTextLine("Page " + CString(std::to_string(i).c_str()));
  };

  void Log(std::string s, int n = -1) { m_log.push_back(n < 0 ? s : s + std::to_string(n)); }
  CDialog* CreatePrintDialog() {
    Log("create dialog");
    m_pInfo->SetMinPage(m_nMinPage);
    m_pInfo->SetMaxPage(m_nMaxPage);
    return m_bDialog ? VPrintJob::CreatePrintDialog() : NULL;
  }
  int InitPrintDialog() { return Log("init dialog"), VPrintJob::InitPrintDialog(); }
  int DoPrintDialog() { return Log("dialog"), VPrintJob::DoPrintDialog(); }
  int DoPrintToFileDialog(CString& s) { return Log("file"), VPrintJob::DoPrintToFileDialog(s); }
  CDC* CreatePrintDC() {
    Log("create dc");
    if (!m_bStaleDC) return VPrintJob::CreatePrintDC();
    CDC* pDC = new CDC; // a DC the system no longer knows: StartDoc fails
    pDC->Attach(::CreateDCA("WINSPOOL", kPrinter, NULL, NULL));
    return ::DeleteDC(pDC->m_hDC), pDC;
  }
  void OnBeginPrinting() { Log("begin"); }
  void EndPrinting(int b) { Log("end printing ", b), VPrintJob::EndPrinting(b); }
  int StartDocPrinting(DOCINFOA& di) { return Log("start doc"), VPrintJob::StartDocPrinting(di); }
  void EndDocPrinting(int b) { Log("end doc ", b), VPrintJob::EndDocPrinting(b); }
  void InitPrintDC() { Log("init dc"), VPrintJob::InitPrintDC(); }
  void InitPrintInfo() { Log("init info"), VPrintJob::InitPrintInfo(); }
  int GetPageMargins(CRect* p) { return *p = m_margins, !m_margins.IsRectNull(); }
  void InitDocInfo(DOCINFOA& di) {
    Log("doc info"), VPrintJob::InitDocInfo(di);
    di.lpszDocName = "Annual Report";
  }
  void OnPrint() {
    Log("print");
    VPrintUnit unit(this);
    m_body(unit);
  }
};

class CLogFrame : public CFrameWnd {
public:
  CLogJob* m_pJob = nullptr;
  afx_msg void OnEnable(BOOL b) {
    if (m_pJob != nullptr) m_pJob->Log("enable ", b ? 1 : 0);
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CLogFrame, CFrameWnd)
ON_WM_ENABLE()
END_MESSAGE_MAP()

class PrintJobTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_FALSE(SpoolFile().empty()) << "the test prefix has no printer";
    ::DeleteFileA(SpoolFile().c_str());
    ASSERT_TRUE(m_pFrame->Create(NULL, "Main"));
    m_app.m_pMainWnd = m_pFrame;
  }
  void TearDown() override { m_pFrame->DestroyWindow(); }
  static bool Spooled() { return ::GetFileAttributesA(SpoolFile().c_str()) != ~0u; }
  // Print's result, -5014 for the exception with string 5014.
  static int PrintCaught(CLogJob& job) {
    try {
      return job.Print();
    } catch (CException* e) {
      VException* pVE = DYNAMIC_DOWNCAST(VException, e);
      CString str = pVE != NULL ? pVE->m_strMessage : CString(), s5014;
      e->Delete();
      return s5014.LoadString(5014) && str == s5014 ? -5014 : -1;
    }
  }
  CWinApp m_app{"PrintTest"};
  CLogFrame* m_pFrame = new CLogFrame;
};

#endif
