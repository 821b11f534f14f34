// VPrintUnit on the test printer, read back from its output (SpoolFile).
#include "printing_testing.h"

namespace {

class PrintUnit : public PrintJobTest {
protected:
  std::vector<PrintedPage> PrintWith(std::function<void(VPrintUnit&)> body,
                                     CRect margins = CRect(0, 0, 0, 0)) {
    CLogJob job;
    job.m_bDialog = 0, job.m_body = body, job.m_margins = margins;
    job.UseDefaults();
    EXPECT_EQ(0, job.Print());
    return ReadSpoolPages();
  }
};

int Width(VPrintUnit& unit, const char* psz) {
  CFont* pOld = unit.GetDC()->SelectObject(unit.GetTextFont());
  int cx = unit.GetDC()->GetTextExtent(psz, lstrlenA(psz)).cx;
  unit.GetDC()->SelectObject(pOld);
  return cx;
}

const DWORD kLeaderAndPage = VIndexItem::flagLeader | VIndexItem::flagPage;

// One job: parts of lines; 5,000 W's, then 300 words, wrapped; trees 50 deep and of 10,000 items.
TEST_F(PrintUnit, LinesWrapsAndTreesOnPages) {
  const std::string w5000(5000, 'W');
  std::string words;
  for (int i = 0; i < 300; i++)
    words += (i ? " word" : "word") + std::to_string(i);
  VPrintIndexTree deep, large;
  VPrintIndexTree* pLevel = &deep;
  for (int i = 0; i < 50; i++) {
    pLevel->Add(Item("Deep", (WORD)i, kLeaderAndPage));
    if (i < 49) pLevel = pLevel->ElementAt(0).m_pChildren = new VPrintIndexTree;
  }
  for (int i = 0; i < 10000; i++)
    large.Add(
        Item("Entry " + CString(std::to_string(i).c_str()), (WORD)(i % 500 + 1), kLeaderAndPage));
  CRect area;
  int xMid = 0, xRight = 0, x12 = 0, nTreePage = 0, nPages = 0;
  std::vector<PrintedPage> pages = PrintWith([&](VPrintUnit& unit) {
    area = unit.GetArea();
    xMid = area.left + (area.Width() - Width(unit, "Mid")) / 2;
    xRight = area.right - Width(unit, "Right");
    x12 = area.right - Width(unit, "12");
    unit.PrintTextLine("Left\037Mid\036Right");
    unit.PrintTextLine("Intro\034\03612");
    unit.PrintTextLine("x\ny");
    unit.PrintTextLine("A\034\034B\036\036C", 300); // doubled: literal
    unit.NewPage();
    unit.PrintTextLine(w5000.c_str());
    unit.NewPage();
    unit.PrintTextLine(words.c_str());
    unit.NewPage();
    nTreePage = unit.GetPageNumber();
    unit.PrintTree(&deep, 0);
    unit.NewPage();
    unit.PrintTree(&large, 0);
    nPages = unit.GetPageNumber();
  });
  ASSERT_EQ((size_t)nPages, pages.size());
  const PrintedPage& first = pages[0];
  // clang-format off
  struct { const char* text; int x, row; } expected[] = {
      {"Left", area.left, 0}, {"Mid", xMid, 0}, {"Right", xRight, 0}, {"Intro", area.left, 1},
      {". . .", -1, 1}, {"12", x12, 1}, {"x", area.left, 2}, {"y", area.left, 3},
      {"A?B?C", area.left + 300, 4}};
  // clang-format on
  ASSERT_EQ(9u, first.size()) << PageTexts(pages)[0];
  for (size_t i = 0; i < 9; i++) {
    EXPECT_EQ(first[0].y + expected[i].row * (first[3].y - first[0].y), first[i].y) << i;
    EXPECT_TRUE((expected[i].x < 0 || expected[i].x == first[i].x) &&
                first[i].text.find(expected[i].text) == 0)
        << first[i].text;
  }
  EXPECT_TRUE(first[4].x > first[3].x + 50 && first[4].x < first[5].x); // the leader between
  // Wrapped: rows at the left edge from the top to the bottom.
  std::string w, spaced;
  for (int i = 1; i < nTreePage - 1; i++) {
    EXPECT_TRUE(pages[i][0].y == first[0].y && pages[i].back().y <= area.bottom);
    for (const TextRun& run : pages[i]) {
      EXPECT_EQ(area.left, run.x);
      if (run.text[0] == 'W')
        w += run.text;
      else
        spaced += (spaced.empty() ? "" : " ") + run.text;
    }
  }
  EXPECT_TRUE(w5000 == w && words == spaced);
  // The deep tree's indents grow by 100, up to three quarters of the width;
  // the large one's entries come whole (text, leader, number) and in order.
  std::vector<int> xs;
  int n = 0;
  for (size_t p = nTreePage - 1; p < pages.size(); p++)
    for (size_t i = 0; i + 2 < pages[p].size(); i += 3) {
      if (pages[p][i].text == "Deep") {
        xs.push_back(pages[p][i].x - area.left);
        continue;
      }
      EXPECT_EQ("Entry " + std::to_string(n), pages[p][i].text);
      EXPECT_EQ(std::to_string(n++ % 500 + 1), pages[p][i + 2].text);
    }
  EXPECT_EQ(10000, n);
  ASSERT_EQ(50u, xs.size());
  EXPECT_TRUE(xs[17] == 1700 && xs[49] == area.Width() * 3 / 4) << xs[17] << " " << xs[49];
}

VPrintIndexTree** LastChildren(VPrintIndexTree* pTree) {
  return &pTree->ElementAt(pTree->GetSize() - 1).m_pChildren;
}

// A report: chapters of sections of topics, each topic a few paragraphs;
// every heading goes into the index, which follows on a page of its own.
void PrintReport(VPrintUnit& unit, int& nIndexPage) {
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
    VIndexItem note = Item("Notes (unnumbered)", 0, VIndexItem::flagLeader); // no page number
    unit.AddIndexItem(&note);
  }
  unit.NewPage();
  nIndexPage = unit.GetPageNumber();
  unit.PrintHeading("Index");
  unit.PrintTree(pIndex, 0);
  delete pIndex;
}

TEST_F(PrintUnit, ReportWithItsIndexOnTheFollowingPage) {
  int nIndexPage = 0;
  std::vector<PrintedPage> pages = PrintWith(
      [&](VPrintUnit& unit) { PrintReport(unit, nIndexPage); }, CRect(150, 150, 150, 150));
  ASSERT_GE(nIndexPage, 4); // several pages of text
  ASSERT_EQ((size_t)nIndexPage, pages.size());
  EXPECT_NE(std::string::npos, TempDir::ReadBytes(SpoolFile()).find("%%Title: Annual Report"));
  std::map<std::string, int> printedOn; // where each heading was printed
  for (int i = (int)pages.size() - 2; i >= 0; i--)
    for (const TextRun& run : pages[i])
      printedOn[run.text] = i + 1;
  // The index: a row per entry (same y), chapters, sections and topics
  // indented by 100 each; the page where the heading stands right of the
  // leader, right-aligned (all one digit); sections without a leader; the
  // note without a page number.
  const PrintedPage& index = pages.back();
  ASSERT_EQ("Index", index[0].text);
  std::vector<std::string> rows;
  for (size_t i = 1; i < index.size();) {
    const TextRun& entry = index[i];
    size_t n = 1;
    while (i + n < index.size() && index[i + n].y == entry.y)
      n++;
    const TextRun& number = index[i + n - 1];
    rows.push_back(std::to_string((entry.x - index[0].x) / 100) + " " + entry.text + " " +
                   std::to_string(n));
    if (n > 1) {
      EXPECT_EQ(std::to_string(printedOn[entry.text]), number.text) << entry.text;
      EXPECT_TRUE(entry.x < index[i + 1].x && number.x == index[3].x) << entry.text;
    }
    i += n;
  }
  ASSERT_EQ(3u + 9 + 18 + 1, rows.size());
  EXPECT_EQ("0 Chapter 1 3|1 Section 1.1 2|2 Topic 1.1.1 3|0 Chapter 3 3|0 Notes (unnumbered) 1",
            rows[0] + "|" + rows[1] + "|" + rows[2] + "|" + rows[20] + "|" + rows.back());
  std::string road = SpoolFile(); // for render_pages.sh
  road = road.substr(0, road.rfind('\\') + 1) + "road.ps";
  EXPECT_TRUE(::CopyFileA(SpoolFile().c_str(), road.c_str(), FALSE));
}

} // namespace
