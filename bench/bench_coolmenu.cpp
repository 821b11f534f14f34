// An owner-drawn menu item, measured and drawn as the system asks for it
// (the selected state: box, image, fill, text and right-aligned accelerator),
// against DrawText of the same text into the same DC: 5,000 of each, the
// medians compared. The item is expected to cost at most 3 times the DrawText.
// The system calls the item is made of are also timed on their own, which
// shows how much of the item's time is the library's.
#include <afxwin.h>

#include "bench_clock.h"
#include <stdio.h>

#include <vrk_coolmenu.h>

#include <algorithm>
#include <vector>

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
    // A button picture as a toolbar bitmap gives one: a square on the
    // silver background that the mask takes out. (Left unpainted, the
    // bitmap's bytes are undefined and the image list may take them for an
    // alpha channel, which costs ten times as much to draw.)
    CDC dcImage;
    if (!dcImage.CreateCompatibleDC(&dc)) return FALSE;
    CBitmap* pOld = dcImage.SelectObject(&image);
    dcImage.FillSolidRect(0, 0, 16, 15, RGB(192, 192, 192));
    dcImage.FillSolidRect(3, 3, 10, 9, RGB(0, 0, 128));
    dcImage.SelectObject(pOld);
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

  // The system calls the item's measuring and drawing consist of, made
  // directly in the same order: what the item costs without the library.
  void SystemCallsAlone(HDC hDC, HWND hWnd) {
    HDC hWindowDC = ::GetWindowDC(hWnd);
    HGDIOBJ hOld = ::SelectObject(hWindowDC, m_fontMenu.m_hObject);
    RECT r = {0, 0, 0, 0};
    ::DrawText(hWindowDC, kText, -1, &r, DT_SINGLELINE | DT_VCENTER | DT_CALCRECT);
    ::SelectObject(hWindowDC, hOld);
    ::ReleaseDC(hWnd, hWindowDC);
    RECT rcBox = {0, 0, 20, 19}, rcFill = {21, 0, 200, 19}, rcText = {23, 0, 180, 19};
    ::FillRect(hDC, &rcBox, ::GetSysColorBrush(COLOR_MENU));
    ::DrawEdge(hDC, &rcBox, BDR_RAISEDINNER, BF_RECT);
    ::ImageList_Draw(m_imageList.m_hImageList, 0, hDC, 2, 2, ILD_TRANSPARENT);
    ::SetBkColor(hDC, ::GetSysColor(COLOR_HIGHLIGHT));
    ::ExtTextOut(hDC, 0, 0, ETO_OPAQUE, &rcFill, NULL, 0, NULL);
    ::SetBkMode(hDC, TRANSPARENT);
    ::SetTextColor(hDC, ::GetSysColor(COLOR_HIGHLIGHTTEXT));
    ::DrawText(hDC, kText, 8, &rcText, DT_SINGLELINE | DT_VCENTER | DT_LEFT);
    ::DrawText(hDC, kText + 9, -1, &rcText, DT_SINGLELINE | DT_VCENTER | DT_RIGHT);
  }
};

double Median(std::vector<double> v) {
  std::nth_element(v.begin(), v.begin() + v.size() / 2, v.end());
  return v[v.size() / 2];
}

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
  // Each call timed on its own and the medians compared, so that another
  // process's work on the machine does not count.
  std::vector<double> item(kRounds), text(kRounds), measure(kRounds), alone(kRounds);
  for (int i = 0; i < kRounds; i++) {
    double t0 = NowMs();
    manager.Draw(dc.m_hDC, manager.Measure());
    double t1 = NowMs();
    CRect r(0, 0, 200, 20);
    dc.DrawText(kText, -1, &r, DT_SINGLELINE | DT_VCENTER | DT_LEFT);
    double t2 = NowMs();
    manager.Measure();
    double t3 = NowMs();
    manager.SystemCallsAlone(dc.m_hDC, pFrame->m_hWnd);
    alone[i] = NowMs() - t3;
    item[i] = t1 - t0;
    text[i] = t2 - t1;
    measure[i] = t3 - t2;
  }
  double dItem = Median(item), dText = Median(text), dMeasure = Median(measure);
  double ratio = dText > 0 ? dItem / dText : 0.0;
  printf("one menu item (median of %d): measure and draw %.1f us (measuring alone %.1f us), "
         "DrawText %.1f us, ratio %.2f (%s 3x)\n",
         kRounds, dItem * 1000, dMeasure * 1000, dText * 1000, ratio,
         ratio <= 3.0 ? "within" : "ABOVE");
  double dAlone = Median(alone);
  printf("the same system calls made directly: %.1f us, %.2f times DrawText; the library adds "
         "%.1f us\n",
         dAlone * 1000, dAlone / dText, (dItem - dAlone) * 1000);
  dc.SelectObject(pOldFont);
  pFrame->DestroyWindow();
  return 0;
}
