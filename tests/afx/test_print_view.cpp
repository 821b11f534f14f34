// CView's print job end to end on the test prefix's printer ("VRK
// PostScript": Wine's PostScript driver on LPT1:, which the spooler writes to
// a file): a two-page view printed with ID_FILE_PRINT_DIRECT and with
// ID_FILE_PRINT through the print dialog (a page range printed to a file
// chosen in the Save As dialog), checked in the PostScript that comes out,
// and the hooks' order.
#include <afxdlgs.h>
#include <afxprint_.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "user_input.h"
#include "print_testing.h"
#include "temp_dir.h"

namespace {

// The glyphs Wine's driver shows for a page's number digit.
const char* const kDigitGlyph[] = {"", "/one glyphshow", "/two glyphshow"};

// Prints "Page N" on each of its pages and logs the print hooks.
class CPageView : public CView {
public:
  std::vector<std::string> m_log;
  UINT m_nPages = 2;
  CRect m_rectDraw;

  virtual void OnDraw(CDC*) {}
  virtual BOOL OnPreparePrinting(CPrintInfo* pInfo) {
    Log("prepare", pInfo->m_bDirect);
    pInfo->SetMaxPage(m_nPages);
    return DoPreparePrinting(pInfo);
  }
  virtual void OnBeginPrinting(CDC* pDC, CPrintInfo*) { Log("begin", pDC->IsPrinting()); }
  virtual void OnPrepareDC(CDC* pDC, CPrintInfo* pInfo) {
    CView::OnPrepareDC(pDC, pInfo);
    if (pInfo != NULL) Log("dc", pInfo->m_nCurPage);
  }
  virtual void OnPrint(CDC* pDC, CPrintInfo* pInfo) {
    Log("print", pInfo->m_nCurPage);
    m_rectDraw = pInfo->m_rectDraw;
    CFont font;
    font.CreatePointFont(240, "Arial", pDC);
    CFont* pOld = pDC->SelectObject(&font);
    CString strText;
    strText.Format("Page %u", pInfo->m_nCurPage);
    pDC->TextOut(300, 300, strText);
    pDC->SelectObject(pOld);
  }
  virtual void OnEndPrinting(CDC*, CPrintInfo*) { Log("end", 0); }

private:
  void Log(const char* what, UINT n) {
    m_log.push_back(std::string(what) + " " + std::to_string(n));
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPageView, CView)
ON_COMMAND(ID_FILE_PRINT, &CView::OnFilePrint)
ON_COMMAND(ID_FILE_PRINT_DIRECT, &CView::OnFilePrint)
END_MESSAGE_MAP()

class CReportDoc : public CDocument {};

class ViewPrinting : public ::testing::Test {
protected:
  void SetUp() override {
    m_strSpool = SpoolFile();
    ASSERT_FALSE(m_strSpool.empty()) << "the test prefix has no printer output file";
    ::DeleteFileA(m_strSpool.c_str());
    // The document is the fixture's: the last view leaving must not delete it.
    m_doc.m_bAutoDelete = FALSE;
    m_doc.SetTitle("Quarterly Report");
    m_pFrame = new CFrameWnd;
    ASSERT_TRUE(m_pFrame->Create(NULL, "Report Frame"));
    CCreateContext context;
    context.m_pCurrentDoc = &m_doc;
    m_pView = new CPageView;
    ASSERT_TRUE(m_pView->Create(NULL, NULL, WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 100), m_pFrame,
                                AFX_IDW_PANE_FIRST, &context));
  }
  void TearDown() override {
    if (m_pFrame != NULL && m_pFrame->m_hWnd != NULL) m_pFrame->DestroyWindow();
  }
  std::string SpoolBytes() const { return TempDir::ReadBytes(m_strSpool); }
  void Print(UINT nID) { m_pView->SendMessage(WM_COMMAND, nID); }

  CWinApp m_app{"PrintViewTest"};
  CReportDoc m_doc;
  CFrameWnd* m_pFrame = NULL;
  CPageView* m_pView = NULL;
  std::string m_strSpool;
};

TEST_F(ViewPrinting, DirectPrintsTwoPagesOnThePrinter) {
  Print(ID_FILE_PRINT_DIRECT);
  std::vector<std::string> expected = {"prepare 1", "begin 1", "dc 1",    "dc 1", "print 1",
                                       "dc 2",      "dc 2",    "print 2", "end 0"};
  EXPECT_EQ(expected, m_pView->m_log);
  // The whole letter page at 300 dpi less the printer's margins, in the
  // view's (text) units.
  EXPECT_EQ(CRect(0, 0, 2400, 3150), m_pView->m_rectDraw);

  PostScript ps(SpoolBytes());
  ASSERT_EQ(2u, ps.pages.size()) << ps.text;
  EXPECT_TRUE(ps.Has("%%Title: Quarterly Report"));
  // Each page shows its own number, and only that.
  for (int i = 0; i < 2; i++) {
    EXPECT_NE(std::string::npos, ps.pages[i].find("/P glyphshow")) << i;
    EXPECT_NE(std::string::npos, ps.pages[i].find(kDigitGlyph[i + 1])) << i;
    EXPECT_EQ(std::string::npos, ps.pages[i].find(kDigitGlyph[2 - i])) << i;
  }
  // The application remembers the printer the job used.
  EXPECT_TRUE(m_app.m_hDevNames != NULL);
}

// A page range and "Print to file" chosen in the dialog: the file asked for
// holds only that page, and nothing goes to the printer's port.
TEST_F(ViewPrinting, PageRangeToAFileAskedFor) {
  m_pView->m_nPages = 3;
  TempDir dir;
  const std::string out = dir.File("report.prn");
  CString strCaption, strDefault;
  strCaption.LoadString(AFX_IDS_PRINTCAPTION);
  strDefault.LoadString(AFX_IDS_PRINTDEFAULT);
  std::string nameOffered;
  DialogDriver driver;
  driver.Then([](HWND hDlg) {
    ::CheckRadioButton(hDlg, rad1, rad3, rad3);
    ::SetDlgItemTextA(hDlg, edt1, "2");
    ::SetDlgItemTextA(hDlg, edt2, "2");
    ::CheckDlgButton(hDlg, chx1, BST_CHECKED);
    DialogDriver::Press(hDlg, IDOK);
  });
  driver.Then([&](HWND hDlg) {
    HWND hName = ::GetDlgItem(hDlg, cmb13);
    if (hName == NULL) hName = ::GetDlgItem(hDlg, edt1);
    nameOffered = user_input::Text(hName);
    ::SetWindowTextA(hName, out.c_str());
    DialogDriver::Press(hDlg, IDOK);
  });
  Print(ID_FILE_PRINT);
  std::vector<std::string> expected = {"prepare 0", "begin 1", "dc 2", "dc 2", "print 2", "end 0"};
  EXPECT_EQ(expected, m_pView->m_log);
  ASSERT_EQ(2u, driver.Captions().size());
  EXPECT_EQ(std::string(strCaption), driver.Captions()[1]);
  EXPECT_EQ(std::string(strDefault), nameOffered);
  PostScript ps(TempDir::ReadBytes(out));
  ASSERT_EQ(1u, ps.pages.size()) << ps.text;
  EXPECT_TRUE(ps.Has("%%Title: Quarterly Report"));
  EXPECT_NE(std::string::npos, ps.pages[0].find(kDigitGlyph[2]));
  EXPECT_EQ(std::string::npos, ps.pages[0].find(kDigitGlyph[1]));
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, ::GetFileAttributesA(m_strSpool.c_str()));
}

} // namespace
