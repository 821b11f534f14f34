// VQuickDraw's caches and selections, and VMemDC's surface, on real DCs.
#include <vrk_memdc.h>
#include <vrk_quickdraw.h>
#include <gtest/gtest.h>

#include "../../afx/gdi_canvas.h"

namespace {

HGDIOBJ Current(Canvas& c, UINT nType) { return ::GetCurrentObject(c.Handle(), nType); }

TEST(QuickDraw, CachesByKeySelectsOnlyWhatIsNotCurrentAndPutsTheDCBack) {
  Canvas canvas(20, 20);
  HGDIOBJ hOldFont = Current(canvas, OBJ_FONT);
  {
    VQuickDraw qd(&canvas.DC());
    EXPECT_TRUE(qd.GetPen(PS_SOLID, 1, RGB(255, 0, 0)) == NULL); // no cache yet
    CPen* pRed = qd.UsePen(PS_SOLID, 1, RGB(255, 0, 0));
    EXPECT_EQ(pRed, qd.GetPen(PS_SOLID, 1, RGB(255, 0, 0)));
    qd.UsePen(PS_SOLID, 3, RGB(255, 0, 0)); // another key: a pen of its own
    // Current already: not selected again, so a pen put in behind its back stays.
    ::SelectObject(canvas.Handle(), ::GetStockObject(WHITE_PEN));
    qd.UsePen(PS_SOLID, 3, RGB(255, 0, 0));
    EXPECT_EQ(::GetStockObject(WHITE_PEN), Current(canvas, OBJ_PEN));
    qd.UsePen(PS_SOLID, 1, RGB(255, 0, 0));
    canvas.DC().MoveTo(0, 5);
    canvas.DC().LineTo(20, 5);
    EXPECT_EQ(20, canvas.Count(RGB(255, 0, 0)));

    CBrush *pGreen = qd.UseBrush(RGB(0, 255, 0)), *pHatch = qd.UseBrush(HS_CROSS, RGB(0, 255, 0));
    EXPECT_TRUE(pGreen == qd.GetBrush(RGB(0, 255, 0)) && pHatch != pGreen);
    EXPECT_TRUE(qd.GetBrush(HS_CROSS, RGB(0, 0, 255)) == NULL);
    qd.UseBrush(RGB(0, 255, 0));
    canvas.DC().PatBlt(0, 10, 20, 10, PATCOPY);
    EXPECT_EQ(200, canvas.Count(RGB(0, 255, 0)));

    CFont* pPoint = qd.UseFont(100, "Arial");
    EXPECT_EQ(pPoint, qd.UseFont(100, "ARIAL"));
    LOGFONT lf = {120, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "Arial"}; // tenths of a point
    CFont* pLog = qd.UseFont(&lf);
    EXPECT_TRUE(pLog == qd.GetFont(&lf) && pLog->m_hObject == Current(canvas, OBJ_FONT) &&
                qd.IsSelected(pLog) && !qd.IsSelected(pPoint));
  }
  EXPECT_TRUE(Current(canvas, OBJ_PEN) == ::GetStockObject(BLACK_PEN) &&
              Current(canvas, OBJ_BRUSH) == ::GetStockObject(WHITE_BRUSH) &&
              Current(canvas, OBJ_FONT) == hOldFont);
}

TEST(MemDC, FillsCopiesAndReleasesItsSurface) {
  Canvas target(60, 40);
  const COLORREF red = RGB(200, 0, 0), blue = RGB(0, 0, 200);
  PAINTSTRUCT ps = {NULL, FALSE, {1, 2, 3, 4}};
  VMemDC mem;
  ASSERT_EQ(1, mem.Create(&target.DC(), CRect(100, 100, 120, 110), blue, &ps));
  mem.FillSolidRect(0, 0, 5, 10, red); // a red left band
  ASSERT_EQ(1, mem.Copy(&target.DC(), CRect(10, 10, 30, 20)));
  EXPECT_TRUE(target.Count(red, CRect(10, 10, 15, 20)) == 50 && target.Count(red) == 50 &&
              target.Count(blue, CRect(15, 10, 30, 20)) == 150 && target.Count(blue) == 150);
  POINT ptSrc = {5, 0}; // the blue part only
  ASSERT_EQ(1, mem.Copy(&target.DC(), CRect(30, 25, 45, 35), &ptSrc));
  EXPECT_EQ(150, target.Count(blue, CRect(30, 25, 45, 35)));
  EXPECT_EQ(0, mem.Copy(NULL, CRect(0, 0, 1, 1)));
  CBitmap* pSurface = mem.Release();
  BITMAP bm;
  ASSERT_TRUE(pSurface != NULL && pSurface->GetBitmap(&bm) != 0);
  EXPECT_TRUE(bm.bmWidth == 20 && bm.bmHeight == 10 && !mem.GetPaintStruct() && !mem.Release());

  VMemDC grey; // no brush: the one selected in the target
  target.DC().SelectStockObject(GRAY_BRUSH);
  ASSERT_EQ(1, grey.Create(&target.DC(), CRect(0, 0, 4, 4)));
  target.DC().SelectStockObject(WHITE_BRUSH);
  grey.Copy(&target.DC(), CRect(50, 0, 54, 4));
  EXPECT_EQ(16, target.Count(RGB(128, 128, 128)));
  grey.Release();
  ::DeleteObject(grey.DetachBitmap());
  EXPECT_EQ(0, VMemDC().Create(NULL, CRect(0, 0, 4, 4)) +
                   VMemDC().Create(&target.DC(), CRect(0, 0, 0, 0))); // no surface of no size
}

} // namespace
