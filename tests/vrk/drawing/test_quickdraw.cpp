// VQuickDraw's caches and selections on a real DC, and VMemDC's surface
// copied to a canvas.
#include <vrk_memdc.h>
#include <vrk_quickdraw.h>
#include <gtest/gtest.h>

#include "../../afx/gdi_canvas.h"

namespace {

HGDIOBJ Current(Canvas& c, UINT nType) { return ::GetCurrentObject(c.Handle(), nType); }

TEST(QuickDraw, CachesByKeyAndSelectsOnlyWhatIsNotCurrent) {
  Canvas canvas(20, 20);
  HGDIOBJ hOldFont = Current(canvas, OBJ_FONT);
  {
    VQuickDraw qd(&canvas.DC());
    EXPECT_TRUE(qd.GetPen(PS_SOLID, 1, RGB(255, 0, 0)) == NULL); // no cache yet
    CPen* pRed = qd.UsePen(PS_SOLID, 1, RGB(255, 0, 0));
    EXPECT_EQ(pRed, qd.UsePen(PS_SOLID, 1, RGB(255, 0, 0)));
    EXPECT_EQ(pRed, qd.GetPen(PS_SOLID, 1, RGB(255, 0, 0)));
    CPen* pWide = qd.UsePen(PS_SOLID, 3, RGB(255, 0, 0));
    EXPECT_NE(pRed, pWide);
    EXPECT_EQ(pWide->m_hObject, Current(canvas, OBJ_PEN));
    // Already current: not selected again, so a pen put in behind its back stays.
    ::SelectObject(canvas.Handle(), ::GetStockObject(WHITE_PEN));
    qd.UsePen(PS_SOLID, 3, RGB(255, 0, 0));
    EXPECT_EQ(::GetStockObject(WHITE_PEN), Current(canvas, OBJ_PEN));
    qd.UsePen(PS_SOLID, 1, RGB(255, 0, 0));
    canvas.DC().MoveTo(0, 5);
    canvas.DC().LineTo(20, 5);
    EXPECT_EQ(20, canvas.Count(RGB(255, 0, 0)));

    CBrush* pGreen = qd.UseBrush(RGB(0, 255, 0));
    EXPECT_EQ(pGreen, qd.UseBrush(RGB(0, 255, 0)));
    CBrush* pHatch = qd.UseBrush(HS_CROSS, RGB(0, 255, 0));
    EXPECT_NE(pGreen, pHatch);
    EXPECT_EQ(pHatch, qd.GetBrush(HS_CROSS, RGB(0, 255, 0)));
    EXPECT_TRUE(qd.GetBrush(HS_CROSS, RGB(0, 0, 255)) == NULL);
    qd.UseBrush(RGB(0, 255, 0));
    canvas.DC().PatBlt(0, 10, 20, 10, PATCOPY);
    EXPECT_EQ(200, canvas.Count(RGB(0, 255, 0)));

    CFont* pPoint = qd.UseFont(100, "Arial");
    EXPECT_EQ(pPoint, qd.UseFont(100, "ARIAL"));
    LOGFONT lf;
    memset(&lf, 0, sizeof(lf));
    lf.lfHeight = 120; // tenths of a point
    lstrcpyA(lf.lfFaceName, "Arial");
    CFont* pLog = qd.UseFont(&lf);
    EXPECT_EQ(pLog, qd.GetFont(&lf));
    EXPECT_EQ(pLog->m_hObject, Current(canvas, OBJ_FONT));
    EXPECT_TRUE(qd.IsSelected(pLog) && !qd.IsSelected(pPoint));
  }
  // The DC's own objects are back once the caches are gone.
  EXPECT_EQ(::GetStockObject(BLACK_PEN), Current(canvas, OBJ_PEN));
  EXPECT_EQ(::GetStockObject(WHITE_BRUSH), Current(canvas, OBJ_BRUSH));
  EXPECT_EQ(hOldFont, Current(canvas, OBJ_FONT));
}

TEST(QuickDraw, SelectObjectReturnsTheDCsPenFromBeforeTheFirstSelection) {
  Canvas canvas(10, 10);
  VQuickDraw qd(&canvas.DC());
  CPen a(PS_SOLID, 1, RGB(1, 0, 0)), b(PS_SOLID, 1, RGB(2, 0, 0));
  for (CPen* p : {&a, &b, &a}) {
    CPen* pInit = qd.SelectObject(p);
    ASSERT_TRUE(pInit != NULL);
    EXPECT_EQ(::GetStockObject(BLACK_PEN), pInit->m_hObject);
    EXPECT_EQ(p->m_hObject, Current(canvas, OBJ_PEN));
  }
  EXPECT_TRUE(qd.SelectObject((CPen*)NULL) != NULL);
  qd.SelectOld();
  EXPECT_EQ(::GetStockObject(BLACK_PEN), Current(canvas, OBJ_PEN));
  EXPECT_TRUE(qd.SelectObject((CBrush*)NULL) == NULL); // nothing recorded
  qd.Destroy();
  EXPECT_TRUE(qd.GetDC() == NULL);
}

TEST(QuickDraw, UnboundObjectsCreateButSelectNothing) {
  Canvas canvas(10, 10);
  VQuickDraw unbound(&canvas.DC(), CSize(10, 10), 1);
  EXPECT_TRUE(unbound.GetDC() == NULL);
  CPen* pPen = unbound.UsePen(PS_SOLID, 1, RGB(0, 0, 255));
  EXPECT_TRUE(pPen != NULL && unbound.IsSelected(pPen));
  EXPECT_EQ(::GetStockObject(BLACK_PEN), Current(canvas, OBJ_PEN));
  EXPECT_TRUE(unbound.SelectObject(pPen) == NULL);
}

TEST(MemDC, FillsCopiesAndReleasesItsSurface) {
  Canvas target(60, 40);
  PAINTSTRUCT ps;
  memset(&ps, 0, sizeof(ps));
  ps.rcPaint = CRect(1, 2, 3, 4);
  VMemDC mem;
  ASSERT_EQ(1, mem.Create(&target.DC(), CRect(100, 100, 120, 110), RGB(0, 0, 200), &ps));
  ASSERT_TRUE(mem.GetPaintStruct() != NULL);
  EXPECT_EQ(CRect(1, 2, 3, 4), CRect(mem.GetPaintStruct()->rcPaint));
  mem.FillSolidRect(0, 0, 5, 10, RGB(200, 0, 0)); // a red left band
  ASSERT_EQ(1, mem.Copy(&target.DC(), CRect(10, 10, 30, 20)));
  EXPECT_EQ(50, target.Count(RGB(200, 0, 0)));
  EXPECT_EQ(150, target.Count(RGB(0, 0, 200)));
  EXPECT_EQ(RGB(200, 0, 0), target.At(14, 19));
  EXPECT_EQ(RGB(0, 0, 200), target.At(15, 10));
  POINT ptSrc = {5, 0}; // the blue part only
  ASSERT_EQ(1, mem.Copy(&target.DC(), CRect(30, 25, 45, 35), &ptSrc));
  EXPECT_EQ(150, target.Count(RGB(0, 0, 200), CRect(30, 25, 45, 35)));
  EXPECT_EQ(0, mem.Copy(NULL, CRect(0, 0, 1, 1)));

  CBitmap* pSurface = mem.Release();
  ASSERT_TRUE(pSurface != NULL);
  BITMAP bm;
  pSurface->GetBitmap(&bm);
  EXPECT_EQ(20, bm.bmWidth);
  EXPECT_EQ(10, bm.bmHeight);
  EXPECT_TRUE(mem.GetPaintStruct() == NULL);
  EXPECT_TRUE(mem.Release() == NULL);

  // No brush: the one selected in the target.
  VMemDC grey;
  target.DC().SelectStockObject(GRAY_BRUSH);
  ASSERT_EQ(1, grey.Create(&target.DC(), CRect(0, 0, 4, 4)));
  EXPECT_TRUE(grey.GetPaintStruct() == NULL);
  grey.Copy(&target.DC(), CRect(50, 0, 54, 4));
  EXPECT_EQ(16, target.Count(RGB(128, 128, 128)));
  target.DC().SelectStockObject(WHITE_BRUSH);
  HBITMAP hSurface = grey.DetachBitmap();
  EXPECT_TRUE(hSurface != NULL);
  grey.Release();
  ::DeleteObject(hSurface);

  VMemDC none;
  EXPECT_EQ(0, none.Create(NULL, CRect(0, 0, 4, 4)));
  EXPECT_EQ(0, VMemDC().Create(&target.DC(), CRect(0, 0, 0, 0))); // no surface of no size
}

} // namespace
