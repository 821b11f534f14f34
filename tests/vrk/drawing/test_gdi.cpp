// GDI helpers on real memory DCs, checked in pixels: 3D frames, embossed
// text and images, stacked text, bitmap placement, scoped selection on a DC
// whose output and attribute handles differ, device settings, the stock
// objects and the BMP writer read back by LoadImage.
#include <vrk_gdi.h>
#include <gtest/gtest.h>
#include <temp_dir.h>

#include "../../afx/gdi_canvas.h"

#include <vector>

namespace {

const COLORREF kBack = RGB(10, 120, 30); // a colour none of the helpers draws

// A font without anti-aliasing, cell height nHeight.
void MakeFont(CFont& font, int nHeight) {
  LOGFONT lf;
  memset(&lf, 0, sizeof(lf));
  lf.lfHeight = nHeight;
  lf.lfQuality = NONANTIALIASED_QUALITY;
  lstrcpyA(lf.lfFaceName, "Arial");
  font.CreateFontIndirect(&lf);
}

TEST(Draw3DRect, SunkenAndRaisedFramesPutEachPenWhereItBelongs) {
  tag3DPens pens;
  const COLORREF black = RGB(0, 0, 0), white = RGB(255, 255, 255);
  const COLORREF shadow = ::GetSysColor(COLOR_BTNSHADOW), face = ::GetSysColor(COLOR_BTNFACE);
  struct Case {
    int bSunken, x, y;
    COLORREF expected;
  } cases[] = {
      // Sunken, in (5,5)-(25,25): everything inside the rectangle.
      {1, 10, 5, shadow},
      {1, 5, 10, shadow},
      {1, 10, 6, black},
      {1, 6, 10, black},
      {1, 24, 10, white},
      {1, 10, 24, white},
      {1, 23, 10, face},
      {1, 10, 23, face},
      {1, 24, 5, white},
      {1, 25, 10, kBack},
      {1, 10, 25, kBack},
      {1, 15, 15, kBack},
      // Raised: the outer right and bottom lines lie on x = 25 and y = 25.
      {0, 10, 5, face},
      {0, 5, 10, face},
      {0, 10, 6, white},
      {0, 6, 10, white},
      {0, 25, 10, black},
      {0, 10, 25, black},
      {0, 25, 25, black},
      {0, 24, 10, shadow},
      {0, 10, 24, shadow},
      {0, 26, 10, kBack},
      {0, 10, 26, kBack},
      {0, 15, 15, kBack},
  };
  for (const Case& c : cases) {
    Canvas canvas(40, 40);
    canvas.Clear(kBack);
    VrkDraw3DRect(&canvas.DC(), &pens, CRect(5, 5, 25, 25), c.bSunken);
    EXPECT_EQ(c.expected, canvas.At(c.x, c.y))
        << "sunken " << c.bSunken << " at " << c.x << "," << c.y;
    // The pen the DC had is back.
    EXPECT_EQ(::GetStockObject(BLACK_PEN), ::GetCurrentObject(canvas.Handle(), OBJ_PEN));
  }
  Canvas filled(40, 40);
  VrkDraw3DRect(&filled.DC(), &pens, CRect(5, 5, 25, 25), 1, RGB(200, 0, 0));
  EXPECT_EQ(RGB(200, 0, 0), filled.At(15, 15));
  EXPECT_EQ(black, filled.At(10, 6));
}

TEST(DrawSimpleRect, FramesInsideTheRectangleAndFillsSolid) {
  Canvas canvas(30, 30);
  CPen pen(PS_SOLID, 1, RGB(0, 0, 255));
  VrkDrawSimpleRect(&canvas.DC(), &pen, CRect(2, 2, 12, 12));
  EXPECT_EQ(36, canvas.Count(RGB(0, 0, 255))); // 4 sides of 10, corners once
  EXPECT_EQ(RGB(0, 0, 255), canvas.At(11, 11));
  EXPECT_EQ(RGB(255, 255, 255), canvas.At(12, 11));

  canvas.DC().SetBkColor(RGB(1, 2, 3));
  CRect r(15, 15, 20, 18);
  EXPECT_EQ(RGB(1, 2, 3), VrkFillSolidRect(&canvas.DC(), &r, RGB(0, 200, 0), TRUE));
  EXPECT_EQ(15, canvas.Count(RGB(0, 200, 0)));
  EXPECT_EQ(RGB(1, 2, 3), canvas.DC().GetBkColor());
  VrkFillSolidRect(&canvas.DC(), &r, RGB(0, 100, 0), FALSE);
  EXPECT_EQ(RGB(0, 100, 0), canvas.DC().GetBkColor());
}

// The embossed result must be the plain shape in the dark colour, plus the
// shape shifted by (1,1) in the highlight where the dark one does not cover
// it, and nothing else.
void ExpectEmbossed(const Canvas& plain, COLORREF ink, const Canvas& embossed, COLORREF dark,
                    int cx, int cy) {
  const COLORREF light = ::GetSysColor(COLOR_BTNHIGHLIGHT);
  int nInk = 0, nWrong = 0;
  for (int y = 1; y < cy; y++)
    for (int x = 1; x < cx; x++) {
      bool bShape = plain.At(x, y) == ink;
      bool bShifted = plain.At(x - 1, y - 1) == ink;
      COLORREF expected = bShape ? dark : bShifted ? light : kBack;
      nInk += bShape;
      if (embossed.At(x, y) != expected && nWrong++ < 5)
        ADD_FAILURE() << "pixel " << x << "," << y << " is 0x" << std::hex << embossed.At(x, y)
                      << " not 0x" << expected;
    }
  EXPECT_GT(nInk, 10);
}

TEST(DrawEmbossed, TextIsTheHighlightShiftedThenTheTextColour) {
  CFont font;
  MakeFont(font, 20);
  Canvas plain(60, 30), embossed(60, 30);
  plain.Clear(kBack);
  embossed.Clear(kBack);
  for (Canvas* c : {&plain, &embossed}) {
    c->DC().SelectObject(&font);
    c->DC().SetBkMode(TRANSPARENT);
    c->DC().SetTextColor(RGB(0, 0, 0));
  }
  CRect r(5, 5, 55, 28);
  plain.DC().DrawText("HI", 2, &r, DT_SINGLELINE);
  int nHeight = VrkDrawEmbossed(&embossed.DC(), CString("HI"), &r, DT_SINGLELINE);
  EXPECT_GT(nHeight, 0);
  EXPECT_EQ(RGB(0, 0, 0), embossed.DC().GetTextColor());
  ExpectEmbossed(plain, RGB(0, 0, 0), embossed, RGB(0, 0, 0), 60, 30);
  plain.DC().SelectStockObject(SYSTEM_FONT);
  embossed.DC().SelectStockObject(SYSTEM_FONT);
}

TEST(DrawEmbossed, ImageIsTheShadowOverTheShiftedHighlightInBothModes) {
  // A 16x16 image: white with a black bar.
  CRect bar(4, 3, 9, 13);
  std::vector<DWORD> bits(16 * 16, 0xFFFFFF);
  for (int y = bar.top; y < bar.bottom; y++)
    for (int x = bar.left; x < bar.right; x++)
      bits[y * 16 + x] = 0;
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateBitmap(16, 16, 1, 32, bits.data()));
  CImageList images;
  ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 0, 1));
  ASSERT_EQ(0, images.Add(&bitmap, (CBitmap*)NULL));

  Canvas plain(30, 30);
  plain.Clear(kBack);
  bar.OffsetRect(5, 5);
  plain.DC().FillSolidRect(&bar, RGB(0, 0, 0));
  for (int bColor = 0; bColor < 2; bColor++) {
    Canvas embossed(30, 30);
    embossed.Clear(kBack);
    VrkDrawEmbossed(&embossed.DC(), &images, 0, CPoint(5, 5), bColor);
    SCOPED_TRACE(bColor ? "colour" : "monochrome");
    ExpectEmbossed(plain, RGB(0, 0, 0), embossed, ::GetSysColor(COLOR_BTNSHADOW), 30, 30);
  }
  Canvas untouched(30, 30);
  untouched.Clear(kBack);
  VrkDrawEmbossed(&untouched.DC(), &images, 5, CPoint(5, 5), 0); // no such image
  EXPECT_EQ(900, untouched.Count(kBack));
}

TEST(DrawStacked, OneCharacterPerLineFromTheAlignedTop) {
  CFont font;
  MakeFont(font, 12);
  struct Case {
    UINT nFormat;
    int nTop; // where "A" starts; "B" follows one line lower
  } cases[] = {{DT_VCENTER, 38}, {DT_BOTTOM, 76}, {DT_TOP, 0}};
  for (const Case& c : cases) {
    Canvas stacked(40, 100), expected(40, 100);
    for (Canvas* p : {&stacked, &expected})
      p->DC().SelectObject(&font);
    TEXTMETRIC tm;
    stacked.DC().GetTextMetrics(&tm);
    ASSERT_EQ(12, tm.tmHeight);
    CRect r(0, 0, 40, 100);
    EXPECT_EQ(24, VrkDrawStacked(&stacked.DC(), "AB", 2, &r, c.nFormat));
    CRect a(0, c.nTop, 40, c.nTop + 24), b(0, c.nTop + 12, 40, c.nTop + 24);
    expected.DC().DrawText("A", 1, &a, DT_SINGLELINE);
    expected.DC().DrawText("B", 1, &b, DT_SINGLELINE);
    EXPECT_TRUE(stacked.SameAs(expected)) << "format " << c.nFormat;
    for (Canvas* p : {&stacked, &expected})
      p->DC().SelectStockObject(SYSTEM_FONT);
  }
  // Centred in the cell; a carriage return starts again at the top.
  Canvas centred(40, 40), expected(40, 40);
  for (Canvas* p : {&centred, &expected})
    p->DC().SelectObject(&font);
  CRect r(0, 0, 40, 40);
  VrkDrawStacked(&centred.DC(), CString("W\rI"), &r, DT_CENTER);
  expected.DC().DrawText("W", 1, &r, DT_SINGLELINE | DT_CENTER);
  expected.DC().DrawText("I", 1, &r, DT_SINGLELINE | DT_CENTER);
  EXPECT_TRUE(centred.SameAs(expected));
  for (Canvas* p : {&centred, &expected})
    p->DC().SelectStockObject(SYSTEM_FONT);
  EXPECT_EQ(0, VrkDrawStacked(&centred.DC(), "", 0, &r, 0));
}

TEST(DrawBitmap, CopiesCentresShiftedByHalfTheDifferenceOrStretches) {
  // 60x10: a red first column, the rest blue.
  std::vector<DWORD> bits(60 * 10, 0x0000FF);
  for (int y = 0; y < 10; y++)
    bits[y * 60] = 0xFF0000;
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateBitmap(60, 10, 1, 32, bits.data()));
  const COLORREF red = RGB(255, 0, 0), blue = RGB(0, 0, 255);
  struct Case {
    CRect dest;
    bool bCenter;
    int xRed;  // the red column's left
    int nBlue; // blue pixels in row 7
  } cases[] = {
      {CRect(5, 5, 65, 15), true, 5, 59},    // same size: copied
      {CRect(5, 5, 45, 15), true, 15, 59},   // 20 narrower: 10 to the right, unscaled
      {CRect(5, 5, 85, 15), true, 15, 59},   // 20 wider: the same shift
      {CRect(5, 5, 125, 15), false, 5, 118}, // stretched to twice the width
  };
  for (const Case& c : cases) {
    Canvas canvas(130, 20);
    CRect dest(c.dest);
    CSize size(60, 10);
    EXPECT_TRUE(VrkDrawBitmap(&canvas.DC(), &bitmap, &dest, &size, c.bCenter));
    EXPECT_EQ(red, canvas.At(c.xRed, 7)) << c.dest.Width();
    EXPECT_NE(red, canvas.At(c.xRed - 1, 7));
    EXPECT_EQ(c.nBlue, canvas.Count(blue, CRect(0, 7, 130, 8))) << c.dest.Width();
  }
  Canvas own(70, 20); // no rectangle, no size: the bitmap's own at 0,0
  EXPECT_TRUE(VrkDrawBitmap(&own.DC(), &bitmap, NULL, NULL, false));
  EXPECT_EQ(red, own.At(0, 9));
  EXPECT_EQ(600 - 10, own.Count(blue));
  EXPECT_FALSE(VrkDrawBitmap(&own.DC(), 0x7FFF, NULL, NULL, false)); // no such resource
  EXPECT_EQ(NULL, VrkLoadImageBitmap(0x7FFF, 0, 0, 0));
}

TEST(SelectGdiObject, SelectsIntoBothHandlesOfAPreviewDCAndRestores) {
  Canvas output(10, 10), attrib(10, 10);
  CDC dc;
  dc.SetOutputDC(output.Handle());
  dc.SetAttribDC(attrib.Handle());
  CPen pen(PS_SOLID, 1, RGB(1, 2, 3));
  HGDIOBJ hBlack = ::GetStockObject(BLACK_PEN);
  {
    VSelectGdiObject select(&dc, &pen);
    VSelectGdiObject copy(select);
    EXPECT_EQ(pen.m_hObject, ::GetCurrentObject(output.Handle(), OBJ_PEN));
    EXPECT_EQ(pen.m_hObject, ::GetCurrentObject(attrib.Handle(), OBJ_PEN));
  }
  EXPECT_EQ(hBlack, ::GetCurrentObject(output.Handle(), OBJ_PEN));
  EXPECT_EQ(hBlack, ::GetCurrentObject(attrib.Handle(), OBJ_PEN));
  {
    VGdiSelectColor colour(&dc, RGB(9, 8, 7));
    EXPECT_EQ(RGB(9, 8, 7), ::GetTextColor(output.Handle()));
    EXPECT_EQ(RGB(0, 0, 0), ::GetTextColor(attrib.Handle())); // the output DC only
    VGdiSelectColor inert(NULL, RGB(9, 8, 7));
    VSelectGdiObject alsoInert(NULL, &pen);
  }
  EXPECT_EQ(RGB(0, 0, 0), ::GetTextColor(output.Handle()));
  dc.ReleaseOutputDC();
  dc.ReleaseAttribDC();
}

TEST(DeviceSettings, RestoreBringsBackObjectsMapModeAndExtents) {
  Canvas canvas(10, 10);
  CDC& dc = canvas.DC();
  dc.SetMapMode(MM_ANISOTROPIC);
  dc.SetWindowExt(100, 200);
  dc.SetViewportExt(10, 20);
  tagDeviceSettings saved;
  VrkSaveDeviceSettings(&dc, &saved);
  EXPECT_EQ(CSize(100, 200), saved.orientation.windowExt);
  EXPECT_EQ(CSize(10, 20), saved.orientation.viewportExt);
  HGDIOBJ hFont = ::GetCurrentObject(canvas.Handle(), OBJ_FONT);
  HGDIOBJ hBitmap = ::GetCurrentObject(canvas.Handle(), OBJ_BITMAP);

  CPen pen(PS_SOLID, 3, RGB(1, 1, 1));
  dc.SelectObject(&pen);
  dc.SelectStockObject(ANSI_FIXED_FONT);
  dc.SelectStockObject(GRAY_BRUSH);
  dc.SetMapMode(MM_TEXT); // which also resets the extents
  VrkRestoreDeviceSettings(&dc, &saved);

  EXPECT_EQ(MM_ANISOTROPIC, dc.GetMapMode());
  EXPECT_EQ(CSize(100, 200), dc.GetWindowExt());
  EXPECT_EQ(CSize(10, 20), dc.GetViewportExt());
  EXPECT_EQ(hFont, ::GetCurrentObject(canvas.Handle(), OBJ_FONT));
  EXPECT_EQ(::GetStockObject(WHITE_BRUSH), ::GetCurrentObject(canvas.Handle(), OBJ_BRUSH));
  EXPECT_EQ(::GetStockObject(BLACK_PEN), ::GetCurrentObject(canvas.Handle(), OBJ_PEN));
  EXPECT_EQ(hBitmap, ::GetCurrentObject(canvas.Handle(), OBJ_BITMAP));
  dc.SetMapMode(MM_TEXT);
}

TEST(StockObjects, NumberedObjectsAndTheirPatterns) {
  EXPECT_TRUE(VrkGetStockFont(1) != NULL && VrkGetStockFont(2) != NULL);
  EXPECT_TRUE(VrkGetStockBrush(1) != NULL && VrkGetStockBrush(2) != NULL);
  EXPECT_TRUE(VrkGetStockPen(1) != NULL);
  EXPECT_TRUE(VrkGetStockFont(3) == NULL && VrkGetStockFont(0) == NULL);
  EXPECT_TRUE(VrkGetStockBrush(3) == NULL && VrkGetStockPen(2) == NULL);
  EXPECT_TRUE(VrkGetStockCursor(2) == NULL);
  LOGFONT lf;
  VrkGetStockFont(1)->GetLogFont(&lf);
  EXPECT_STREQ("MS Sans Serif", lf.lfFaceName);
  VrkGetStockFont(2)->GetLogFont(&lf);
  EXPECT_STREQ("Fixedsys", lf.lfFaceName);

  Canvas canvas(16, 16);
  CRect r(0, 0, 8, 8);
  canvas.DC().FillRect(&r, VrkGetStockBrush(2)); // rows 4 and 8 end in a set pixel
  EXPECT_EQ(2, canvas.Count(RGB(0, 0, 0)));
  EXPECT_EQ(RGB(0, 0, 0), canvas.At(7, 3));
  EXPECT_EQ(RGB(0, 0, 0), canvas.At(7, 7));
  canvas.DC().SelectObject(VrkGetStockPen(1));
  canvas.DC().MoveTo(0, 12);
  canvas.DC().LineTo(16, 12); // every other pixel
  EXPECT_EQ(8, canvas.Count(RGB(0, 0, 0), CRect(0, 12, 16, 13)));
  canvas.DC().SelectStockObject(BLACK_PEN);
  canvas.DC().FillRect(&r, VrkGetStockBrush(1));
  EXPECT_EQ(::GetSysColor(COLOR_BTNFACE), canvas.At(3, 3));

  EXPECT_TRUE(VrkGetStockCursor(1) == NULL); // before an application object exists
  CWinApp app;
  HCURSOR hCursor = VrkGetStockCursor(1);
  ASSERT_TRUE(hCursor != NULL);
  EXPECT_EQ(hCursor, VrkGetStockCursor(1));
  ICONINFO info;
  ASSERT_TRUE(::GetIconInfo(hCursor, &info));
  EXPECT_FALSE(info.fIcon);
  EXPECT_EQ(15u, info.xHotspot);
  ::DeleteObject(info.hbmMask);
  if (info.hbmColor) ::DeleteObject(info.hbmColor);
}

TEST(SaveBitmap, WritesABmpThatLoadImageReads) {
  TempDir dir;
  const std::string file = dir.File("saved.bmp");
  const char* strFile = file.c_str();
  CClientDC screen(NULL);
  CBitmap mono, colour;
  ASSERT_TRUE(mono.CreateBitmap(10, 5, 1, 1, NULL));
  ASSERT_TRUE(colour.CreateCompatibleBitmap(&screen, 7, 3));
  {
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    CBitmap* pOld = dc.SelectObject(&colour);
    dc.FillSolidRect(0, 0, 7, 3, RGB(0, 0, 255));
    dc.SetPixel(0, 0, RGB(255, 0, 0));
    dc.SelectObject(pOld);
  }
  const int nScreenBits = screen.GetDeviceCaps(BITSPIXEL) * screen.GetDeviceCaps(PLANES);
  struct Case {
    CBitmap* pBitmap;
    int cx, cy, nBits, nColors;
  } cases[] = {{&mono, 10, 5, 1, 2}, {&colour, 7, 3, nScreenBits, nScreenBits < 24 ? 256 : 0}};
  for (const Case& c : cases) {
    ASSERT_EQ(1, SaveBitmap(screen.m_hDC, strFile, *c.pBitmap));
    std::string bytes = TempDir::ReadBytes(file);
    ASSERT_GE(bytes.size(), 54u);
    const BITMAPFILEHEADER* pFile = (const BITMAPFILEHEADER*)bytes.data();
    const BITMAPINFOHEADER* pInfo = (const BITMAPINFOHEADER*)(bytes.data() + 14);
    DWORD cbImage = (DWORD)((c.cx * c.nBits + 31) & ~31) / 8 * c.cy;
    DWORD cbHeaders = 14 + 40 + 4 * c.nColors;
    EXPECT_EQ(0x4D42, pFile->bfType);
    EXPECT_EQ(cbHeaders + cbImage, pFile->bfSize);
    EXPECT_EQ(bytes.size(), pFile->bfSize);
    EXPECT_EQ(cbHeaders, pFile->bfOffBits);
    EXPECT_EQ(0, pFile->bfReserved1 | pFile->bfReserved2);
    EXPECT_EQ(40u, pInfo->biSize);
    EXPECT_EQ(c.nBits, pInfo->biBitCount);
    EXPECT_EQ((DWORD)BI_RGB, pInfo->biCompression);
    EXPECT_EQ((DWORD)c.nColors, pInfo->biClrUsed);
    EXPECT_EQ(cbImage, pInfo->biSizeImage);

    HBITMAP hLoaded = (HBITMAP)::LoadImageA(NULL, strFile, IMAGE_BITMAP, 0, 0,
                                            LR_LOADFROMFILE | LR_CREATEDIBSECTION);
    ASSERT_TRUE(hLoaded != NULL);
    BITMAP bm;
    ::GetObject(hLoaded, sizeof(bm), &bm);
    EXPECT_EQ(c.cx, bm.bmWidth);
    EXPECT_EQ(c.cy, bm.bmHeight);
    if (c.pBitmap == &colour) { // the pixels survive the trip
      CDC dc;
      dc.CreateCompatibleDC(&screen);
      HGDIOBJ hOld = ::SelectObject(dc.m_hDC, hLoaded);
      EXPECT_EQ(RGB(255, 0, 0), dc.GetPixel(0, 0));
      EXPECT_EQ(RGB(0, 0, 255), dc.GetPixel(6, 2));
      ::SelectObject(dc.m_hDC, hOld);
    }
    ::DeleteObject(hLoaded);
  }
}

TEST(GdiHelpers, NullArgumentsGiveZeroAndDrawNothing) {
  Canvas canvas(10, 10);
  CRect r(0, 0, 10, 10);
  tag3DPens pens;
  CPen pen(PS_SOLID, 1, RGB(0, 0, 0));
  EXPECT_EQ(0u, VrkFillSolidRect(NULL, &r, RGB(0, 0, 0), TRUE));
  EXPECT_EQ(0u, VrkFillSolidRect(&canvas.DC(), NULL, RGB(0, 0, 0), TRUE));
  EXPECT_EQ(0, VrkDrawEmbossed(NULL, "x", 1, &r, 0));
  EXPECT_EQ(0, VrkDrawEmbossed(&canvas.DC(), "x", 1, NULL, 0));
  EXPECT_EQ(0, VrkDrawStacked(NULL, "x", 1, &r, 0));
  EXPECT_EQ(0, VrkDrawStacked(&canvas.DC(), NULL, 1, &r, 0));
  EXPECT_FALSE(VrkDrawBitmap(NULL, (CBitmap*)NULL, &r, NULL, false));
  EXPECT_FALSE(VrkDrawSmallIcon(NULL, CPoint(0, 0), ::LoadIcon(NULL, IDI_APPLICATION)));
  EXPECT_EQ(0, SaveBitmap(NULL, "x.bmp", NULL));
  VrkDraw3DRect(NULL, &pens, r, 1);
  VrkDraw3DRect(&canvas.DC(), NULL, r, 1, RGB(0, 0, 0));
  VrkDrawSimpleRect(&canvas.DC(), NULL, r);
  VrkDrawEmbossed(&canvas.DC(), (CImageList*)NULL, 0, CPoint(0, 0), 0);
  VrkSaveDeviceSettings(&canvas.DC(), NULL);
  VrkRestoreDeviceSettings(NULL, NULL);
  EXPECT_EQ(100, canvas.Count(RGB(255, 255, 255)));
}

TEST(GetStringSize, MeasuresInTheDescribedFont) {
  SIZE normal = VrkGetStringSize("Hello", 10.0, "Arial", 0, 0, 0);
  SIZE bigger = VrkGetStringSize("Hello", 20.0, "Arial", 0, 0, 0);
  SIZE twoLines = VrkGetStringSize("Hello\nWorld", 10.0, "Arial", 0, 0, 0);
  EXPECT_GT(normal.cx, 0);
  EXPECT_GT(bigger.cx, normal.cx);
  EXPECT_GT(bigger.cy, normal.cy);
  EXPECT_EQ(2 * normal.cy, twoLines.cy);
}

} // namespace
