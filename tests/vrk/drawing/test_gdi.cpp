// GDI helpers on real memory DCs, checked in pixels.
#include <vrk_gdi.h>
#include <gtest/gtest.h>
#include <temp_dir.h>

#include "drawing_testing.h"

namespace {

const COLORREF kBlack = RGB(0, 0, 0), kWhite = RGB(255, 255, 255);

void MakeFont(CFont& font, int nHeight) { // Arial, no anti-aliasing
  LOGFONT lf = {nHeight};
  lf.lfQuality = NONANTIALIASED_QUALITY;
  lstrcpyA(lf.lfFaceName, "Arial");
  font.CreateFontIndirect(&lf);
}

TEST(Draw3DRect, SunkenInsideRaisedOnePixelFurtherRightAndDown) {
  tag3DPens pens;
  const Legend l = {{'k', kBlack},
                    {'w', kWhite},
                    {'s', ::GetSysColor(COLOR_BTNSHADOW)},
                    {'f', ::GetSysColor(COLOR_BTNFACE)}};
  // Row 15 and column 15 from 4 to 26 of a frame of (5,5)-(25,25).
  const std::string sunken = ".sk" + std::string(16, '.') + "fw..";
  const std::string raised = ".fw" + std::string(17, '.') + "sk.";
  for (int bSunken = 0; bSunken < 2; bSunken++) {
    Canvas c(40, 40);
    c.Clear(kBack);
    VrkDraw3DRect(&c.DC(), &pens, CRect(5, 5, 25, 25), bSunken);
    EXPECT_EQ(bSunken ? sunken : raised, Pixels(c, 4, 15, 1, 0, 23, l));
    EXPECT_EQ(bSunken ? sunken : raised, Pixels(c, 15, 4, 0, 1, 23, l));
    EXPECT_EQ(bSunken ? "w" : "k", Pixels(c, bSunken ? 24 : 25, 5, 0, 0, 1, l)); // top right
    EXPECT_EQ(bSunken ? "fw." : ".sk", Pixels(c, 23, 23, 1, 1, 3, l));           // bottom right
    EXPECT_EQ(::GetStockObject(BLACK_PEN), ::GetCurrentObject(c.Handle(), OBJ_PEN));
  }
  Canvas c(20, 20);
  c.Clear(kBack);
  CPen pen(PS_SOLID, 1, kBlack);
  VrkDrawSimpleRect(&c.DC(), &pen, CRect(2, 2, 12, 12));
  EXPECT_EQ(".kkkkkkkkkk.|.k........k.",
            Pixels(c, 1, 2, 1, 0, 12, l) + "|" + Pixels(c, 5, 1, 0, 1, 12, l));
  c.DC().SetBkColor(kWhite);
  CRect r(15, 15, 20, 18);
  EXPECT_EQ(kWhite, VrkFillSolidRect(&c.DC(), &r, RGB(200, 0, 0), TRUE));
  EXPECT_TRUE(c.Count(RGB(200, 0, 0)) == 15 && c.DC().GetBkColor() == kWhite);
}

// Embossed = the plain shape in the dark colour, over the shape shifted by
// (1,1) in the highlight, and nothing else.
void ExpectEmbossed(const Canvas& plain, const Canvas& embossed, COLORREF dark, int cx, int cy) {
  int nInk = 0, nWrong = 0;
  for (int y = 1; y < cy; y++)
    for (int x = 1; x < cx; x++) {
      bool bShape = plain.At(x, y) == kBlack, bShifted = plain.At(x - 1, y - 1) == kBlack;
      COLORREF expected = bShape ? dark : bShifted ? ::GetSysColor(COLOR_BTNHIGHLIGHT) : kBack;
      nInk += bShape;
      if (embossed.At(x, y) != expected && nWrong++ < 5)
        ADD_FAILURE() << "pixel " << x << "," << y << ": " << std::hex << embossed.At(x, y);
    }
  EXPECT_GT(nInk, 10);
}

TEST(DrawEmbossed, TextAndImagesInBothModes) {
  CFont font;
  MakeFont(font, 20);
  Canvas plain(60, 30), embossed(60, 30);
  for (Canvas* c : {&plain, &embossed}) {
    c->Clear(kBack);
    c->DC().SelectObject(&font);
    c->DC().SetBkMode(TRANSPARENT);
  }
  CRect r(5, 5, 55, 28);
  plain.DC().DrawText("HI", 2, &r, DT_SINGLELINE);
  EXPECT_GT(VrkDrawEmbossed(&embossed.DC(), CString("HI"), &r, DT_SINGLELINE), 0);
  ExpectEmbossed(plain, embossed, kBlack, 60, 30);

  // A 16x16 image, white with a black bar, drawn at (5,5).
  CRect bar(4, 3, 9, 13);
  std::vector<DWORD> bits(16 * 16, 0xFFFFFF);
  for (int i = 0; i < 256; i++)
    if (bar.PtInRect(CPoint(i % 16, i / 16))) bits[i] = 0;
  CBitmap bitmap;
  CImageList images;
  ASSERT_TRUE(bitmap.CreateBitmap(16, 16, 1, 32, bits.data()));
  ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 0, 1) && images.Add(&bitmap, (CBitmap*)NULL) == 0);
  plain.Clear(kBack);
  bar.OffsetRect(5, 5);
  plain.DC().FillSolidRect(&bar, kBlack);
  for (int bColor = 0; bColor < 3; bColor++) {
    embossed.Clear(kBack);
    // Image 5 does not exist: nothing is drawn.
    VrkDrawEmbossed(&embossed.DC(), &images, bColor < 2 ? 0 : 5, CPoint(5, 5), bColor & 1);
    SCOPED_TRACE(bColor);
    if (bColor < 2) ExpectEmbossed(plain, embossed, ::GetSysColor(COLOR_BTNSHADOW), 30, 30);
  }
  EXPECT_EQ(60 * 30, embossed.Count(kBack));
}

TEST(DrawStacked, OneCharacterPerLineFromTheAlignedTop) {
  CFont font;
  MakeFont(font, 12);
  // Where "A" starts ("B" follows 12 lower); the last is centred with a
  // carriage return, which starts the next character at the top again.
  struct Case {
    const char* pszText;
    UINT nFormat;
    int nTop;
  } cases[] = {{"AB", DT_VCENTER, 38}, {"AB", DT_BOTTOM, 76}, {"AB", 0, 0}, {"W\rI", DT_CENTER, 0}};
  for (const Case& c : cases) {
    Canvas stacked(40, 100), expected(40, 100);
    for (Canvas* p : {&stacked, &expected})
      p->DC().SelectObject(&font);
    CRect r(0, 0, 40, 100);
    int n = lstrlenA(c.pszText);
    EXPECT_EQ(12 * n, VrkDrawStacked(&stacked.DC(), CString(c.pszText), &r, c.nFormat));
    bool bCR = c.pszText[1] == '\r';
    CRect a(0, c.nTop, 40, 100), b(0, bCR ? 0 : c.nTop + 12, 40, 100);
    UINT nCell = DT_SINGLELINE | (c.nFormat & DT_CENTER);
    expected.DC().DrawText(c.pszText, 1, &a, nCell);
    expected.DC().DrawText(c.pszText + n - 1, 1, &b, nCell);
    EXPECT_TRUE(stacked.SameAs(expected)) << c.pszText << " " << c.nFormat;
  }
}

TEST(DrawBitmap, CopiesCentresShiftedByHalfTheDifferenceOrStretches) {
  std::vector<DWORD> bits(60 * 10, 0x0000FF); // 60x10 blue, the first column red
  for (int y = 0; y < 10; y++)
    bits[y * 60] = 0xFF0000;
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateBitmap(60, 10, 1, 32, bits.data()));
  const COLORREF red = RGB(255, 0, 0), blue = RGB(0, 0, 255);
  struct Case {
    CRect dest;
    bool bCenter;
    int xRed, nBlue; // the red column's x, blue pixels in row 7
  } cases[] = {
      {CRect(5, 5, 65, 15), true, 5, 59},    // same size: copied
      {CRect(5, 5, 45, 15), true, 15, 59},   // 20 narrower: 10 right, unscaled
      {CRect(5, 5, 85, 15), true, 15, 59},   // 20 wider: the same shift
      {CRect(5, 5, 125, 15), false, 5, 118}, // stretched to twice the width
  };
  for (const Case& c : cases) {
    Canvas canvas(130, 20);
    CRect dest(c.dest);
    CSize size(60, 10);
    EXPECT_TRUE(VrkDrawBitmap(&canvas.DC(), &bitmap, &dest, &size, c.bCenter));
    EXPECT_TRUE(canvas.At(c.xRed - 1, 7) == kWhite && canvas.At(c.xRed, 7) == red &&
                canvas.Count(blue, CRect(0, 7, 130, 8)) == c.nBlue)
        << c.dest.Width();
  }
  Canvas own(70, 20); // no rectangle and no size: its own at 0,0
  EXPECT_TRUE(VrkDrawBitmap(&own.DC(), &bitmap, NULL, NULL, false));
  EXPECT_EQ(590, own.Count(blue, CRect(1, 0, 60, 10)));
  EXPECT_TRUE(!VrkDrawBitmap(&own.DC(), 0x7FFF, NULL, NULL, false) &&
              VrkLoadImageBitmap(0x7FFF, 0, 0, 0) == NULL); // no such resource
}

TEST(SelectGdiObject, SelectsIntoBothHandlesOfAPreviewDCAndSettingsAreRestored) {
  Canvas output(10, 10), attrib(10, 10);
  CDC dc; // as in print preview: output and attribute DCs apart
  dc.SetOutputDC(output.Handle());
  dc.SetAttribDC(attrib.Handle());
  CPen pen(PS_SOLID, 1, RGB(1, 2, 3));
  auto penOf = [](Canvas& c) { return ::GetCurrentObject(c.Handle(), OBJ_PEN); };
  {
    VSelectGdiObject select(&dc, &pen);
    VSelectGdiObject copy(select), inert(NULL, &pen);
    EXPECT_TRUE(penOf(output) == pen.m_hObject && penOf(attrib) == pen.m_hObject);
    VGdiSelectColor colour(&dc, RGB(9, 8, 7)), none(NULL, RGB(9, 8, 7));
    EXPECT_TRUE(::GetTextColor(output.Handle()) == RGB(9, 8, 7) &&
                ::GetTextColor(attrib.Handle()) == kBlack); // the output DC only
  }
  HGDIOBJ hBlack = ::GetStockObject(BLACK_PEN);
  EXPECT_TRUE(penOf(output) == hBlack && penOf(attrib) == hBlack &&
              ::GetTextColor(output.Handle()) == kBlack);
  dc.ReleaseOutputDC();
  dc.ReleaseAttribDC();
  Canvas canvas(10, 10); // device settings: objects, map mode and extents
  CDC& dev = canvas.DC();
  dev.SetMapMode(MM_ANISOTROPIC);
  dev.SetWindowExt(100, 200);
  dev.SetViewportExt(10, 20);
  const UINT kinds[] = {OBJ_FONT, OBJ_BRUSH, OBJ_PEN, OBJ_BITMAP};
  HGDIOBJ before[4];
  for (int i = 0; i < 4; i++)
    before[i] = ::GetCurrentObject(canvas.Handle(), kinds[i]);
  tagDeviceSettings saved;
  VrkSaveDeviceSettings(&dev, &saved);
  dev.SelectObject(&pen);
  dev.SelectStockObject(ANSI_FIXED_FONT);
  dev.SelectStockObject(GRAY_BRUSH);
  dev.SetMapMode(MM_TEXT); // which resets the extents too
  VrkRestoreDeviceSettings(&dev, &saved);
  EXPECT_TRUE(dev.GetMapMode() == MM_ANISOTROPIC && dev.GetWindowExt() == CSize(100, 200) &&
              dev.GetViewportExt() == CSize(10, 20));
  for (int i = 0; i < 4; i++)
    EXPECT_EQ(before[i], ::GetCurrentObject(canvas.Handle(), kinds[i])) << kinds[i];
  dev.SetMapMode(MM_TEXT);
}

TEST(StockObjects, NumberedObjectsAndTheirPatterns) {
  // The fonts and the face brush are plain GDI objects: made, not checked further.
  EXPECT_TRUE(VrkGetStockFont(1) && VrkGetStockFont(2) && VrkGetStockBrush(1) &&
              !VrkGetStockFont(3) && !VrkGetStockBrush(0) && !VrkGetStockPen(2) &&
              !VrkGetStockCursor(2));
  Canvas c(16, 16);
  const Legend l = {{'k', kBlack}, {'w', kWhite}};
  CRect r(0, 0, 8, 8);
  c.DC().FillRect(&r, VrkGetStockBrush(2)); // rows 4 and 8 end in a set pixel
  EXPECT_EQ("wwwkwwwk", Pixels(c, 7, 0, 0, 1, 8, l));
  EXPECT_EQ(2, c.Count(kBlack));
  c.DC().SelectObject(VrkGetStockPen(1));
  c.DC().MoveTo(0, 12);
  c.DC().LineTo(8, 12);
  EXPECT_EQ("kwkwkwkw", Pixels(c, 0, 12, 1, 0, 8, l)); // every other pixel
  EXPECT_TRUE(VrkGetStockCursor(1) == NULL);           // no application object yet
  CWinApp app;
  ICONINFO info;
  ASSERT_TRUE(::GetIconInfo(VrkGetStockCursor(1), &info));
  EXPECT_TRUE(!info.fIcon && info.xHotspot == 15);
  ::DeleteObject(info.hbmMask);
  ::DeleteObject(info.hbmColor);
}

TEST(SaveBitmap, WritesABmpThatLoadImageReads) {
  TempDir dir;
  const std::string file = dir.File("saved.bmp");
  CClientDC screen(NULL);
  CBitmap mono, colour;
  ASSERT_TRUE(mono.CreateBitmap(10, 5, 1, 1, NULL));
  ASSERT_TRUE(colour.CreateCompatibleBitmap(&screen, 7, 3));
  CDC dc;
  dc.CreateCompatibleDC(&screen);
  CBitmap* pOld = dc.SelectObject(&colour);
  dc.FillSolidRect(0, 0, 7, 3, RGB(0, 0, 255));
  dc.SetPixel(0, 0, RGB(255, 0, 0));
  dc.SelectObject(pOld);
  const int nBits = screen.GetDeviceCaps(BITSPIXEL) * screen.GetDeviceCaps(PLANES);
  struct Case {
    CBitmap* pBitmap;
    int cx, cy, nBits, nColors;
  } cases[] = {{&mono, 10, 5, 1, 2}, {&colour, 7, 3, nBits, nBits < 24 ? 1 << nBits : 0}};
  for (const Case& c : cases) {
    ASSERT_EQ(1, SaveBitmap(screen.m_hDC, file.c_str(), *c.pBitmap));
    std::string bytes = TempDir::ReadBytes(file);
    ASSERT_GE(bytes.size(), 54u);
    const BITMAPFILEHEADER& fh = *(const BITMAPFILEHEADER*)bytes.data();
    const BITMAPINFOHEADER& ih = *(const BITMAPINFOHEADER*)(bytes.data() + 14);
    EXPECT_TRUE(fh.bfType == 0x4D42 && bytes.size() == fh.bfSize && ih.biBitCount == c.nBits);
    EXPECT_TRUE(fh.bfOffBits == 54 + 4 * (DWORD)c.nColors && ih.biClrUsed == (DWORD)c.nColors);
    HBITMAP hLoaded = (HBITMAP)::LoadImageA(NULL, file.c_str(), IMAGE_BITMAP, 0, 0,
                                            LR_LOADFROMFILE | LR_CREATEDIBSECTION);
    BITMAP bm;
    ASSERT_TRUE(hLoaded != NULL && ::GetObject(hLoaded, sizeof(bm), &bm) != 0);
    EXPECT_TRUE(bm.bmWidth == c.cx && bm.bmHeight == c.cy);
    HGDIOBJ hOld = ::SelectObject(dc.m_hDC, hLoaded); // the pixels survive the trip
    EXPECT_EQ(c.nColors == 2 ? kBlack : RGB(255, 0, 0), dc.GetPixel(0, 0));
    ::SelectObject(dc.m_hDC, hOld);
    ::DeleteObject(hLoaded);
  }
}

TEST(GdiHelpers, NullArgumentsGiveZeroAndDrawNothing) {
  Canvas c(10, 10);
  CRect r(0, 0, 10, 10);
  tag3DPens pens;
  EXPECT_EQ(0u,
            VrkFillSolidRect(NULL, &r, kBlack, TRUE) | VrkFillSolidRect(&c.DC(), NULL, 0, 1) |
                VrkDrawEmbossed(NULL, "x", 1, &r, 0) | VrkDrawEmbossed(&c.DC(), "x", 1, NULL, 0) |
                VrkDrawStacked(NULL, "x", 1, &r, 0) | VrkDrawStacked(&c.DC(), NULL, 1, &r, 0) |
                VrkDrawBitmap(NULL, (CBitmap*)NULL, &r, NULL, false) | SaveBitmap(NULL, "x", NULL) |
                VrkDrawSmallIcon(NULL, CPoint(0, 0), ::LoadIcon(NULL, IDI_APPLICATION)));
  VrkDraw3DRect(NULL, &pens, r, 1);
  VrkDraw3DRect(&c.DC(), NULL, r, 1, kBlack);
  VrkDrawSimpleRect(&c.DC(), NULL, r);
  VrkDrawEmbossed(&c.DC(), (CImageList*)NULL, 0, CPoint(0, 0), 0);
  VrkRestoreDeviceSettings(&c.DC(), NULL);
  EXPECT_EQ(100, c.Count(kWhite));
  SIZE normal = VrkGetStringSize("Hello", 10.0, "Arial", 0, 0, 0);
  SIZE big = VrkGetStringSize("Hello\nWorld", 20.0, "Arial", 1, 0, 0);
  EXPECT_TRUE(normal.cx > 0 && big.cx > normal.cx && big.cy > 2 * normal.cy);
}

} // namespace
