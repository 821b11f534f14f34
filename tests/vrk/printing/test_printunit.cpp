// VPrintUnit on the test printer, read back from the printer's output
// (SpoolFile): parts of a line left, centred and right, leaders, line feeds,
// wrapping and page breaks; index trees of three levels, 50 levels and
// 10,000 items; and the road end to end: a host's job prints chapters over
// several pages, records its index as it goes and prints it on the next page
// (kept as road.ps beside the spool file, for render_pages.sh).
#include <vrk_printunit.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "printed_pages.h"

namespace {

// A job on the application's printer that runs a body in OnPrint.
class CBodyJob : public VPrintJob {
public:
  std::function<void(VPrintUnit&)> m_body;
  virtual CDialog* CreatePrintDialog() { return NULL; }
  virtual void OnPrint() {
    VPrintUnit unit(this);
    m_body(unit);
  }
};

class PrintUnit : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_FALSE(SpoolFile().empty()) << "the test prefix has no printer";
    ::DeleteFileA(SpoolFile().c_str());
  }
  std::vector<PrintedPage> PrintWith(std::function<void(VPrintUnit&)> body) {
    CBodyJob job;
    job.m_body = body;
    job.UseDefaults();
    EXPECT_EQ(VPrintJob::printDone, job.Print());
    return ReadSpoolPages();
  }
  CWinApp m_app{"PrintUnitTest"};
};

// Widths and heights as the unit measures them, in its text font.
struct Measure {
  VPrintUnit& unit;
  int Width(const char* psz) {
    CDC* pDC = unit.GetDC();
    CFont* pOld = pDC->SelectObject(unit.GetTextFont());
    int cx = pDC->GetTextExtent(psz, lstrlenA(psz)).cx;
    pDC->SelectObject(pOld);
    return cx;
  }
  int LineHeight() {
    CDC* pDC = unit.GetDC();
    CFont* pOld = pDC->SelectObject(unit.GetTextFont());
    TEXTMETRIC tm;
    pDC->GetTextMetrics(&tm);
    pDC->SelectObject(pOld);
    return tm.tmHeight + tm.tmExternalLeading;
  }
};

TEST_F(PrintUnit, PartsOfALine) {
  CRect area;
  int xMid = 0, xRight = 0, xTwelve = 0, nLine = 0;
  std::vector<PrintedPage> pages = PrintWith([&](VPrintUnit& unit) {
    Measure m{unit};
    area = unit.GetArea();
    xMid = area.left + (area.Width() - m.Width("Mid")) / 2;
    xRight = area.right - m.Width("Right");
    xTwelve = area.right - m.Width("12");
    nLine = m.LineHeight();
    unit.PrintTextLine("Left\x1F"
                       "Mid\x1E"
                       "Right");
    unit.PrintTextLine("Intro\x1C\x1E"
                       "12");
    unit.PrintTextLine("x\ny");
    unit.PrintTextLine("A\x1C\x1C"
                       "B\x1E\x1E"
                       "C",
                       300);
  });
  ASSERT_EQ(1u, pages.size());
  const PrintedPage& page = pages[0];
  struct {
    const char* text;
    int x, row; // x -1: the leader's, checked below
  } expected[] = {{"Left", area.left, 0},  {"Mid", xMid, 0},    {"Right", xRight, 0},
                  {"Intro", area.left, 1}, {". . .", -1, 1},    {"12", xTwelve, 1},
                  {"x", area.left, 2},     {"y", area.left, 3}, {"A?B?C", area.left + 300, 4}};
  ASSERT_EQ(9u, page.runs.size()) << page.Texts();
  for (size_t i = 0; i < 9; i++) {
    const TextRun& run = page.runs[i];
    if (expected[i].x < 0) {
      EXPECT_EQ(0u, run.text.find(expected[i].text)) << run.text;
    } else {
      EXPECT_EQ(expected[i].text, run.text);
      EXPECT_EQ(expected[i].x, run.x) << run.text;
    }
    EXPECT_EQ(page.runs[0].y + expected[i].row * nLine, run.y) << run.text;
  }
  // The leader fills the gap between the text and the page number.
  const TextRun &intro = page.runs[3], &dots = page.runs[4], &twelve = page.runs[5];
  EXPECT_EQ(intro.y, dots.y);
  EXPECT_GT(dots.x, intro.x + 50);
  EXPECT_LT(dots.x + 10 * (int)dots.text.size(), twelve.x + 20);
}

TEST_F(PrintUnit, PagesBreakWhereALineNoLongerFits) {
  int nPerPage = 0;
  std::vector<PrintedPage> pages = PrintWith([&](VPrintUnit& unit) {
    Measure m{unit};
    nPerPage = unit.GetArea().Height() / m.LineHeight();
    for (int i = 1; i <= 150; i++) {
      CString s;
      s.Format("Line %d", i);
      unit.PrintTextLine(s);
    }
    EXPECT_EQ((150 + nPerPage - 1) / nPerPage, unit.GetPageNumber());
  });
  ASSERT_EQ((size_t)((150 + nPerPage - 1) / nPerPage), pages.size());
  int n = 1;
  for (const PrintedPage& page : pages) {
    EXPECT_EQ(pages[0].runs[0].y, page.runs[0].y);
    for (const TextRun& run : page.runs)
      EXPECT_EQ("Line " + std::to_string(n++), run.text);
  }
  EXPECT_EQ(151, n);
}

TEST_F(PrintUnit, LongLinesWrap) {
  const std::string noSpaces(5000, 'W');
  std::string words;
  for (int i = 0; i < 300; i++)
    words += (i ? " word" : "word") + std::to_string(i);
  int nLeft = 0;
  std::vector<PrintedPage> pages = PrintWith([&](VPrintUnit& unit) {
    nLeft = unit.GetArea().left;
    unit.PrintTextLine(noSpaces.c_str());
    unit.NewPage();
    unit.PrintTextLine(words.c_str());
  });
  ASSERT_GE(pages.size(), 3u); // 5,000 W's take more than a page
  std::string w, spaced;
  for (size_t i = 0; i < pages.size(); i++)
    for (const TextRun& run : pages[i].runs) {
      EXPECT_EQ(nLeft, run.x);
      EXPECT_NE(' ', run.text[0]);
      if (run.text[0] == 'W')
        w += run.text;
      else
        spaced += (spaced.empty() ? "" : " ") + run.text;
    }
  EXPECT_EQ(noSpaces, w);
  EXPECT_EQ(words, spaced); // broken at spaces only
}

VIndexItem Item(const char* pszText, DWORD dwFlags, WORD nPage, VPrintIndexTree* pChildren = NULL) {
  VIndexItem item;
  item.m_strText = pszText;
  item.m_dwFlags = dwFlags;
  item.m_nPage = nPage;
  item.m_pChildren = pChildren;
  return item;
}

TEST_F(PrintUnit, IndexTreeOfThreeLevels) {
  VPrintIndexTree tree;
  VPrintIndexTree* pSections = new VPrintIndexTree;
  VPrintIndexTree* pTopics = new VPrintIndexTree;
  pTopics->Add(Item("Topic", 3, 12));
  pTopics->Add(Item("Aside", 1, 13));              // bit 1 clear: no number, no leader
  pSections->Add(Item("Section", 2, 11, pTopics)); // no leader
  tree.Add(Item("Chapter", 3, 10, pSections));
  tree.Add(Item("Appendix", 3, 140));
  std::vector<PrintedPage> pages = PrintWith([&](VPrintUnit& unit) { unit.PrintTree(&tree, 0); });
  ASSERT_EQ(1u, pages.size());
  const std::vector<TextRun>& runs = pages[0].runs;
  std::vector<std::string> texts;
  for (const TextRun& run : runs)
    texts.push_back(run.text[0] == '.' ? "..." : run.text);
  EXPECT_EQ((std::vector<std::string>{"Chapter", "...", "10", "Section", "11", "Topic", "...", "12",
                                      "Aside", "Appendix", "...", "140"}),
            texts);
  // Indented by level; the numbers right of the leaders, right-aligned.
  EXPECT_EQ(runs[0].x + 100, runs[3].x);
  EXPECT_EQ(runs[0].x + 200, runs[5].x);
  EXPECT_EQ(runs[0].x + 200, runs[8].x);
  EXPECT_EQ(runs[0].x, runs[9].x);
  for (int i : {1, 6, 10}) {
    EXPECT_EQ(runs[i].y, runs[i + 1].y);
    EXPECT_GT(runs[i + 1].x, runs[i].x);
  }
  EXPECT_EQ(runs[2].x, runs[7].x);  // two digits
  EXPECT_GT(runs[2].x, runs[11].x); // three digits reach further left
  EXPECT_NE(runs[8].y, runs[9].y);  // "Aside" stands alone on its row
}

TEST_F(PrintUnit, DeepAndLargeIndexTrees) {
  // 50 levels, one item each: indents grow, then stop at three quarters of
  // the width.
  VPrintIndexTree deep;
  VPrintIndexTree* pLevel = &deep;
  for (int i = 0; i < 50; i++) {
    pLevel->Add(Item("Deep", 3, (WORD)i));
    if (i < 49) pLevel = pLevel->ElementAt(0).m_pChildren = new VPrintIndexTree;
  }
  CRect area;
  std::vector<PrintedPage> pages = PrintWith([&](VPrintUnit& unit) {
    area = unit.GetArea();
    unit.PrintTree(&deep, 0);
  });
  std::vector<int> xs;
  for (const PrintedPage& page : pages)
    for (const TextRun& run : page.runs)
      if (run.text == "Deep") xs.push_back(run.x);
  ASSERT_EQ(50u, xs.size());
  EXPECT_EQ(area.left + 1700, xs[17]);
  EXPECT_EQ(area.left + area.Width() * 3 / 4, xs[49]);

  // 10,000 items: every one printed, in order, with its number.
  VPrintIndexTree large;
  for (int i = 0; i < 10000; i++) {
    CString s;
    s.Format("Entry %d", i);
    large.Add(Item(s, 3, (WORD)(i % 500 + 1)));
  }
  int nPages = 0;
  pages = PrintWith([&](VPrintUnit& unit) {
    unit.PrintTree(&large, 0);
    nPages = unit.GetPageNumber();
  });
  EXPECT_EQ((size_t)nPages, pages.size());
  int n = 0;
  for (const PrintedPage& page : pages)
    for (size_t i = 0; i + 2 < page.runs.size(); i += 3, n++) {
      EXPECT_EQ("Entry " + std::to_string(n), page.runs[i].text);
      EXPECT_EQ(std::to_string(n % 500 + 1), page.runs[i + 2].text);
    }
  EXPECT_EQ(10000, n);
}

// ---- The road end to end --------------------------------------------------------

// The sub-tree slot of a tree's last item.
VPrintIndexTree** LastChildren(VPrintIndexTree* pTree) {
  return &pTree->ElementAt(pTree->GetSize() - 1).m_pChildren;
}

// A report: chapters of sections of topics, each topic a few paragraphs;
// every heading goes into the index, which follows on a page of its own.
class CReportJob : public VPrintJob {
public:
  int m_nIndexPage = 0;
  virtual CDialog* CreatePrintDialog() { return NULL; }
  virtual void InitDocInfo(DOCINFOA& di) {
    VPrintJob::InitDocInfo(di);
    di.lpszDocName = "Annual Report";
  }
  virtual int GetPageMargins(CRect* pMargins) {
    *pMargins = CRect(150, 150, 150, 150);
    return 1;
  }
  virtual void OnPrint() {
    VPrintUnit unit(this);
    VPrintIndexTree* pIndex = NULL;
    {
      VSelectPrintJobIndexTree root(&unit, &pIndex);
      for (int c = 1; c <= 3; c++) {
        CString strChapter;
        strChapter.Format("Chapter %d", c);
        unit.PrintHeading(strChapter);
        unit.AddIndexEntry(strChapter);
        VSelectPrintJobIndexTree chapter(&unit, LastChildren(pIndex));
        for (int s = 1; s <= 3; s++) {
          CString strSection;
          strSection.Format("Section %d.%d", c, s);
          unit.PrintTextLine(strSection);
          unit.AddIndexEntry(strSection, VIndexItem::flagPage);
          VSelectPrintJobIndexTree section(&unit, LastChildren(*LastChildren(pIndex)));
          for (int t = 1; t <= 2; t++) {
            CString strTopic;
            strTopic.Format("Topic %d.%d.%d", c, s, t);
            unit.PrintTextLine(strTopic, 100);
            unit.AddIndexEntry(strTopic);
            for (int p = 0; p < 12; p++)
              unit.PrintTextLine("The quarter closed with sales above the plan in every region, "
                                 "and the new plant started on time.",
                                 200);
          }
        }
      }
      VIndexItem note;
      note.m_strText = "Notes (unnumbered)";
      note.m_dwFlags = VIndexItem::flagLeader; // no page number
      unit.AddIndexItem(&note);
    }
    unit.NewPage();
    m_nIndexPage = unit.GetPageNumber();
    unit.PrintHeading("Index");
    unit.PrintTree(pIndex, 0);
    delete pIndex;
  }
};

TEST_F(PrintUnit, ReportWithItsIndexOnTheFollowingPage) {
  CReportJob job;
  job.UseDefaults();
  ASSERT_EQ(VPrintJob::printDone, job.Print());
  std::string ps = TempDir::ReadBytes(SpoolFile());
  std::vector<PrintedPage> pages = ReadPages(ps);
  ASSERT_GE(job.m_nIndexPage, 4); // several pages of text
  ASSERT_EQ((size_t)job.m_nIndexPage, pages.size());
  EXPECT_NE(std::string::npos, ps.find("%%Title: Annual Report"));

  // Where each heading was printed.
  std::map<std::string, int> printedOn;
  for (int i = 0; i + 1 < (int)pages.size(); i++)
    for (const TextRun& run : pages[i].runs)
      if (!printedOn.count(run.text)) printedOn[run.text] = i + 1;

  const PrintedPage& index = pages.back();
  ASSERT_FALSE(index.runs.empty());
  EXPECT_EQ("Index", index.runs[0].text);
  int nEntries = 0, xNumbers = -1;
  std::vector<int> indents;
  for (size_t i = 1; i < index.runs.size(); i++) {
    const TextRun& entry = index.runs[i];
    std::vector<TextRun> row = index.Row(entry.y);
    ASSERT_EQ(entry.text, row[0].text);
    nEntries++;
    if (entry.text == "Notes (unnumbered)") {
      EXPECT_EQ(1u, row.size()); // no leader, no number
      break;
    }
    bool bLeader = entry.text.compare(0, 8, "Section ") != 0;
    ASSERT_EQ(bLeader ? 3u : 2u, row.size()) << entry.text;
    const TextRun& number = row.back();
    EXPECT_EQ(std::to_string(printedOn[entry.text]), number.text) << entry.text;
    if (bLeader) {
      EXPECT_EQ('.', row[1].text[0]);
      EXPECT_GT(row[1].x, entry.x);
      EXPECT_GT(number.x, row[1].x);
    }
    if (xNumbers < 0) xNumbers = number.x;
    EXPECT_EQ(xNumbers, number.x); // one digit each, right-aligned
    indents.push_back(entry.x - index.runs[0].x);
    i += row.size() - 1;
  }
  EXPECT_EQ(3 + 9 + 18 + 1, nEntries);
  EXPECT_EQ(0, indents[0]);   // Chapter 1
  EXPECT_EQ(100, indents[1]); // Section 1.1
  EXPECT_EQ(200, indents[2]); // Topic 1.1.1
  // Kept for the rendering step (render_pages.sh).
  std::string road = SpoolFile();
  road = road.substr(0, road.rfind('\\') + 1) + "road.ps";
  EXPECT_TRUE(::CopyFileA(SpoolFile().c_str(), road.c_str(), FALSE));
}

} // namespace
