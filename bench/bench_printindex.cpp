// Printing an index of 1,000 and of 10,000 entries (three levels: chapters
// of ten sections of nine topics, each with a leader and a page number) to
// the test printer through a print job and its print unit, from Print to
// the end of the document. The time should grow with the entries (at most
// 12 times for ten times as many); pages per second are those the spooler
// received.
#include "bench_clock.h"
#include <stdio.h>

#include <vrk_printunit.h>

namespace {

VIndexItem Entry(const char* pszKind, int n, WORD nPage) {
  VIndexItem item;
  item.m_strText.Format("%s %d", pszKind, n);
  item.m_dwFlags = VIndexItem::flagLeader | VIndexItem::flagPage;
  item.m_nPage = nPage;
  return item;
}

// n entries: one chapter for every 100, ten sections in each, nine topics
// in each section.
void FillIndex(VPrintIndexTree& tree, int n) {
  int nMade = 0;
  for (int c = 0; nMade < n; c++) {
    tree.Add(Entry("Chapter", c + 1, (WORD)(nMade / 50 + 1)));
    nMade++;
    VPrintIndexTree* pSections = tree.ElementAt(tree.GetSize() - 1).m_pChildren =
        new VPrintIndexTree;
    for (int s = 0; s < 10 && nMade < n; s++) {
      pSections->Add(Entry("Section", s + 1, (WORD)(nMade / 50 + 1)));
      nMade++;
      VPrintIndexTree* pTopics = pSections->ElementAt(pSections->GetSize() - 1).m_pChildren =
          new VPrintIndexTree;
      for (int t = 0; t < 9 && nMade < n; t++, nMade++)
        pTopics->Add(Entry("Topic", t + 1, (WORD)(nMade / 50 + 1)));
    }
  }
}

class CIndexJob : public VPrintJob {
public:
  VPrintIndexTree m_tree;
  int m_nPages = 0;
  virtual CDialog* CreatePrintDialog() { return NULL; }
  virtual void OnPrint() {
    VPrintUnit unit(this);
    unit.PrintHeading("Index");
    unit.PrintTree(&m_tree, 0);
    m_nPages = unit.GetPageNumber();
  }
};

// Milliseconds for one job of n entries; its pages in *pnPages.
double PrintIndex(int n, int* pnPages) {
  CIndexJob job;
  FillIndex(job.m_tree, n);
  job.UseDefaults();
  double t0 = NowMs();
  int nResult = -1;
  try {
    nResult = job.Print();
  } catch (CException* e) {
    e->Delete();
  }
  double t = NowMs() - t0;
  if (nResult != 0) {
    printf("printing failed (is the test printer set up?)\n");
    return -1;
  }
  *pnPages = job.m_nPages;
  return t;
}

} // namespace

int main() {
  CWinApp app("bench_printindex");
  int nPages1 = 0, nPages10 = 0;
  PrintIndex(100, &nPages1); // warm-up: fonts, driver, spooler
  double t1 = PrintIndex(1000, &nPages1);
  double t10 = PrintIndex(10000, &nPages10);
  if (t1 <= 0 || t10 <= 0) return 1;
  printf("index of  1,000 entries: %4d pages in %8.1f ms  (%6.1f pages/s)\n", nPages1, t1,
         nPages1 * 1000.0 / t1);
  printf("index of 10,000 entries: %4d pages in %8.1f ms  (%6.1f pages/s)\n", nPages10, t10,
         nPages10 * 1000.0 / t10);
  printf("ten times the entries: %.2f times the time (at most 12)\n", t10 / t1);
  return 0;
}
