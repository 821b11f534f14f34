// An owner-drawn menu item, measured and drawn as the system asks for it
// (the selected state: box, image, fill, text and right-aligned accelerator),
// against DrawText of the same text into the same DC: 5,000 of each, best of
// three. The item is expected to cost at most 3 times the DrawText.
#include <afxwin.h>

#include "bench_clock.h"
#include <stdio.h>

#include <vrk_coolmenu.h>

namespace {

const int kRounds = 5000;
const UINT kID = 0x8100;
const char kText[] = "&Open...\tCtrl+O";

// A manager with one 16 x 15 image for the command, made without resources
// (an image list as the manager makes it).
class BenchManager : public VCoolMenuManager {
public:
  BOOL Setup(CDC& dc) {
    CBitmap image;
    if (!m_imageList.Create(16, 15, ILC_MASK, 0, 10) || !image.CreateCompatibleBitmap(&dc, 16, 15))
      return FALSE;
    m_imageList.Add(&image, RGB(192, 192, 192));
    m_sizeImage = CSize(16, 15);
    m_sizeBox = CSize(20, 19);
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, kID, kText);
    ConvertMenu(&menu, 0, FALSE, TRUE);
    GetButtonInfo(kID)->nImage = 0;
    return TRUE;
  }
  MEASUREITEMSTRUCT Measure() {
    MEASUREITEMSTRUCT mis = {ODT_MENU, 0, kID, 0, 0, 0};
    OnMeasureItem(&mis);
    return mis;
  }
  void Draw(HDC hDC, const MEASUREITEMSTRUCT& mis) {
    DRAWITEMSTRUCT dis = {ODT_MENU,     0, kID, ODA_DRAWENTIRE, ODS_SELECTED, NULL, hDC,
                          {0, 0, 0, 0}, 0};
    dis.rcItem.right = (LONG)mis.itemWidth + 40;
    dis.rcItem.bottom = (LONG)mis.itemHeight;
    OnDrawItem(&dis);
  }
  CFont* Font() { return GetMenuFont(); }
};

} // namespace

int main() {
  // As in an application, a frame window exists.
  CFrameWnd* pFrame = new CFrameWnd; // deleted with its window
  pFrame->Create(NULL, "frame");
  CClientDC screen(NULL);
  CDC dc;
  CBitmap bitmap;
  BenchManager manager;
  if (!dc.CreateCompatibleDC(&screen) || !bitmap.CreateCompatibleBitmap(&screen, 300, 40) ||
      pFrame->m_hWnd == NULL || (dc.SelectObject(&bitmap), !manager.Setup(dc))) {
    printf("could not set the item up\n");
    return 1;
  }
  manager.Install(pFrame);
  CFont* pOldFont = dc.SelectObject(manager.Font());
  double bestItem = 1e30, bestText = 1e30, bestMeasure = 1e30;
  for (int nRun = 0; nRun < 3; nRun++) {
    double t0 = NowMs();
    for (int i = 0; i < kRounds; i++)
      manager.Draw(dc.m_hDC, manager.Measure());
    double t1 = NowMs();
    for (int i = 0; i < kRounds; i++) {
      CRect r(0, 0, 200, 20);
      dc.DrawText(kText, -1, &r, DT_SINGLELINE | DT_VCENTER | DT_LEFT);
    }
    double t2 = NowMs();
    if (t1 - t0 < bestItem) bestItem = t1 - t0;
    if (t2 - t1 < bestText) bestText = t2 - t1;
    for (int i = 0; i < kRounds; i++)
      manager.Measure();
    double t3 = NowMs();
    if (t3 - t2 < bestMeasure) bestMeasure = t3 - t2;
  }
  double ratio = bestText > 0 ? bestItem / bestText : 0.0;
  printf("%dx one menu item: measure and draw %.1f ms (measuring alone %.1f ms), DrawText %.1f "
         "ms, ratio %.2f (%s 3x)\n",
         kRounds, bestItem, bestMeasure, bestText, ratio, ratio <= 3.0 ? "within" : "ABOVE");
  dc.SelectObject(pOldFont);
  pFrame->DestroyWindow();
  return 0;
}
