// CDC and the GDI objects, checked on the pixels they draw and on the
// handles they select: MFC's rule of output and attribute DCs, selection
// through the handle map, sizes mapped, afx's own drawing and bad input.
#include <gtest/gtest.h>

#include <afxwin.h>
#include <afxgdi_.h>

#include "gdi_canvas.h"

static const COLORREF kWhite = RGB(255, 255, 255);
static const COLORREF kBlack = RGB(0, 0, 0);
static const COLORREF kRed = RGB(255, 0, 0);
static const COLORREF kGreen = RGB(0, 255, 0);
static const COLORREF kBlue = RGB(0, 0, 255);

// ---- GDI objects ------------------------------------------------------------

TEST(GdiObject, OwnsItsHandleUntilDetached) {
  HGDIOBJ hBrush;
  {
    CBrush brush(kRed);
    hBrush = brush.m_hObject;
    EXPECT_EQ(OBJ_BRUSH, (int)brush.GetObjectType());
    EXPECT_EQ(&brush, CBrush::FromHandle((HBRUSH)hBrush)); // Attach made it permanent
  }
  EXPECT_EQ(0u, ::GetObjectType(hBrush)); // the destructor deleted it

  CPen* pPen = new CPen(PS_SOLID, 1, kRed);
  HGDIOBJ hPen = pPen->Detach();
  delete pPen;
  EXPECT_EQ((DWORD)OBJ_PEN, ::GetObjectType(hPen));
  // No longer mapped: FromHandle makes a temporary plain CGdiObject.
  CGdiObject* pTemp = CGdiObject::FromHandle(hPen);
  EXPECT_EQ(RUNTIME_CLASS(CGdiObject), pTemp->GetRuntimeClass());
  EXPECT_EQ(pTemp, CGdiObject::FromHandle(hPen));
  CGdiObject::DeleteTempMap();
  EXPECT_EQ((DWORD)OBJ_PEN, ::GetObjectType(hPen)); // temporaries never delete the handle
  ::DeleteObject(hPen);

  CBrush empty;
  EXPECT_FALSE(empty.DeleteObject());
  CGdiObject* volatile pNoObject = NULL; // MFC allows the call through null
  EXPECT_EQ(NULL, pNoObject->GetSafeHandle());
  EXPECT_EQ(NULL, CGdiObject::FromHandle(NULL));
}

TEST(GdiObject, FailedCreationThrowsResourceException) {
  CBitmap noBitmap;
  try {
    CBrush brush(&noBitmap);
    ADD_FAILURE() << "a pattern brush without a bitmap was made";
  } catch (CException* e) {
    EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CResourceException)));
    e->Delete();
  }
  CPen pen;
  EXPECT_FALSE(pen.CreatePen(PS_SOLID, 1, NULL, 0, NULL));
  EXPECT_EQ(NULL, pen.m_hObject);
}

TEST(GdiObject, PointFontHeightIsInLogicalUnitsOfTheDC) {
  CDC screen;
  screen.Attach(::GetDC(NULL));
  const int nPixels = ::MulDiv(screen.GetDeviceCaps(LOGPIXELSY), 120, 720);
  ::ReleaseDC(NULL, screen.Detach());

  CFont font;
  ASSERT_TRUE(font.CreatePointFont(120, "Tahoma"));
  LOGFONT lf;
  ASSERT_EQ((int)sizeof(lf), font.GetLogFont(&lf));
  EXPECT_EQ(-nPixels, lf.lfHeight); // negative: a character height
  EXPECT_STREQ("Tahoma", lf.lfFaceName);
  EXPECT_EQ(DEFAULT_CHARSET, lf.lfCharSet);

  // Two logical units per pixel double the height.
  Canvas canvas(4, 4);
  canvas.DC().SetMapMode(MM_ANISOTROPIC);
  canvas.DC().SetWindowExt(2, 2);
  canvas.DC().SetViewportExt(1, 1);
  LOGFONT in;
  memset(&in, 0, sizeof(in));
  in.lfHeight = 120;
  in.lfWeight = FW_BOLD;
  lstrcpy(in.lfFaceName, "Tahoma");
  CFont scaled;
  ASSERT_TRUE(scaled.CreatePointFontIndirect(&in, &canvas.DC()));
  scaled.GetLogFont(&lf);
  const int nDevice = ::MulDiv(canvas.DC().GetDeviceCaps(LOGPIXELSY), 120, 720);
  EXPECT_EQ(-2 * nDevice, lf.lfHeight);
  EXPECT_EQ(FW_BOLD, lf.lfWeight);
}

TEST(GdiObject, OverLongFaceNameIsCut) {
  CString longName('F', 300);
  CFont font;
  ASSERT_TRUE(font.CreatePointFont(100, longName));
  LOGFONT lf;
  font.GetLogFont(&lf);
  EXPECT_EQ(LF_FACESIZE - 1, (int)strlen(lf.lfFaceName));
  CFont noFace;
  EXPECT_TRUE(noFace.CreatePointFont(100, NULL));
  EXPECT_FALSE(noFace.CreatePointFontIndirect(NULL));
}

// ---- Selection through the handle map ----------------------------------------

TEST(DCSelect, PreviousObjectComesBackThroughTheMap) {
  Canvas canvas(8, 8);
  CDC& dc = canvas.DC();
  CPen red(PS_SOLID, 1, kRed);
  CPen* pOld = dc.SelectObject(&red);
  ASSERT_TRUE(pOld != NULL);
  // The stock pen has no permanent object: a temporary CGdiObject wraps it.
  EXPECT_EQ(::GetStockObject(BLACK_PEN), pOld->m_hObject);
  EXPECT_EQ(RUNTIME_CLASS(CGdiObject), pOld->GetRuntimeClass());
  EXPECT_EQ(&red, dc.GetCurrentPen());
  // Selecting the old one back returns the permanent object itself.
  EXPECT_EQ(&red, dc.SelectObject(pOld));
  EXPECT_EQ(::GetStockObject(BLACK_PEN), ::GetCurrentObject(dc.m_hDC, OBJ_PEN));

  CGdiObject* pOldBrush = dc.SelectStockObject(GRAY_BRUSH);
  EXPECT_EQ(::GetStockObject(WHITE_BRUSH), pOldBrush->m_hObject);
  EXPECT_EQ(::GetStockObject(GRAY_BRUSH), dc.GetCurrentBrush()->m_hObject);
  CGdiObject::DeleteTempMap();
}

TEST(DCSelect, FromHandleFindsTheAttachedObjectElseATemporary) {
  Canvas canvas(2, 2);
  EXPECT_EQ(&canvas.DC(), CDC::FromHandle(canvas.Handle()));
  HDC hDC = ::CreateCompatibleDC(NULL);
  CDC* pTemp = CDC::FromHandle(hDC);
  ASSERT_TRUE(pTemp != NULL);
  EXPECT_NE(&canvas.DC(), pTemp);
  EXPECT_EQ(hDC, pTemp->m_hDC);
  EXPECT_EQ(hDC, pTemp->m_hAttribDC);
  CDC::DeleteTempMap();
  EXPECT_EQ((DWORD)OBJ_MEMDC, ::GetObjectType(hDC)); // the temporary left the DC alone
  ::DeleteDC(hDC);

  CDC dc;
  EXPECT_FALSE(dc.Attach(NULL));
  EXPECT_FALSE(dc.DeleteDC());
  CDC* volatile pNoDC = NULL;
  EXPECT_EQ(NULL, pNoDC->GetSafeHdc());
}

// ---- Output and attribute DCs -------------------------------------------------

// A CDC whose output goes to one canvas and whose attributes are read from
// another, as print preview arranges them.
class SplitDC : public ::testing::Test {
protected:
  SplitDC() : m_output(16, 16), m_attrib(16, 16) {
    m_dc.SetOutputDC(m_output.Handle());
    m_dc.SetAttribDC(m_attrib.Handle());
  }
  ~SplitDC() {
    m_dc.ReleaseOutputDC(); // the canvases own the handles
    m_dc.ReleaseAttribDC();
  }
  Canvas m_output, m_attrib;
  CDC m_dc;
};

TEST_F(SplitDC, SettersChangeBothAndReturnTheAttributeValue) {
  ::SetTextColor(m_output.Handle(), kGreen);
  ::SetTextColor(m_attrib.Handle(), kBlue);
  EXPECT_EQ(kBlue, m_dc.SetTextColor(kRed));
  EXPECT_EQ(kRed, ::GetTextColor(m_output.Handle()));
  EXPECT_EQ(kRed, ::GetTextColor(m_attrib.Handle()));

  ::SetMapMode(m_output.Handle(), MM_LOMETRIC);
  EXPECT_EQ(MM_TEXT, m_dc.SetMapMode(MM_ANISOTROPIC));
  EXPECT_EQ(MM_ANISOTROPIC, ::GetMapMode(m_output.Handle()));

  ::SetBkMode(m_attrib.Handle(), TRANSPARENT);
  EXPECT_EQ(TRANSPARENT, m_dc.SetBkMode(OPAQUE));
  EXPECT_EQ(OPAQUE, ::GetBkMode(m_output.Handle()));
}

TEST_F(SplitDC, GettersReadTheAttributeDC) {
  ::SetBkColor(m_attrib.Handle(), kGreen);
  ::SetBkColor(m_output.Handle(), kBlue);
  EXPECT_EQ(kGreen, m_dc.GetBkColor());
  ::SetViewportOrgEx(m_attrib.Handle(), 3, 4, NULL);
  EXPECT_EQ(CPoint(3, 4), m_dc.GetViewportOrg());
  // Conversions use the attribute DC's mapping too.
  CPoint pt(1, 1);
  m_dc.LPtoDP(&pt);
  EXPECT_EQ(CPoint(4, 5), pt);

  // Text is measured on the attribute DC unless asked for the output's.
  CFont big;
  ASSERT_TRUE(big.CreatePointFont(480, "Tahoma"));
  HGDIOBJ hOld = ::SelectObject(m_attrib.Handle(), big.m_hObject);
  SIZE expected;
  ::GetTextExtentPoint32(m_attrib.Handle(), "Hg", 2, &expected);
  EXPECT_EQ(CSize(expected), m_dc.GetTextExtent("Hg", 2));
  EXPECT_LT(m_dc.GetOutputTextExtent(CString("Hg")).cy, expected.cy);
  TEXTMETRIC tm;
  m_dc.GetTextMetrics(&tm);
  EXPECT_EQ(expected.cy, tm.tmHeight);
  ::SelectObject(m_attrib.Handle(), hOld);
}

TEST_F(SplitDC, DrawingGoesToTheOutputOnly) {
  CPen red(PS_SOLID, 1, kRed);
  m_dc.SelectObject(&red);
  m_dc.MoveTo(1, 1);
  EXPECT_TRUE(m_dc.LineTo(9, 1));
  m_dc.FillSolidRect(CRect(0, 4, 16, 8), kBlue);
  EXPECT_EQ(8, m_output.Count(kRed, CRect(0, 1, 16, 2)));
  EXPECT_EQ(64, m_output.Count(kBlue));
  EXPECT_EQ(16 * 16, m_attrib.Count(kWhite));
  // The attribute DC's position follows the line.
  EXPECT_EQ(CPoint(9, 1), m_dc.GetCurrentPosition());
  EXPECT_EQ(red.m_hObject, ::GetCurrentObject(m_attrib.Handle(), OBJ_PEN));
  m_dc.SelectStockObject(BLACK_PEN);
}

TEST_F(SplitDC, BitmapsGoIntoTheOutputOnly) {
  CBitmap other;
  ASSERT_TRUE(other.CreateBitmap(2, 2, 1, 32, NULL));
  HGDIOBJ hAttribBitmap = ::GetCurrentObject(m_attrib.Handle(), OBJ_BITMAP);
  CBitmap* pOld = m_dc.SelectObject(&other);
  EXPECT_EQ(&m_output.Bitmap(), pOld);
  EXPECT_EQ(hAttribBitmap, ::GetCurrentObject(m_attrib.Handle(), OBJ_BITMAP));
  m_dc.SelectObject(pOld);
}

TEST_F(SplitDC, SaveDCOfTwoHandlesRestoresByMinusOne) {
  m_dc.SetTextColor(kRed);
  EXPECT_EQ(-1, m_dc.SaveDC());
  m_dc.SetTextColor(kBlue);
  EXPECT_TRUE(m_dc.RestoreDC(-1));
  EXPECT_EQ(kRed, ::GetTextColor(m_output.Handle()));
  EXPECT_EQ(kRed, ::GetTextColor(m_attrib.Handle()));
}

// ---- Mapping --------------------------------------------------------------------

// Sizes are afx's own conversion: no origin and no direction.
TEST(DCMapping, SizesUseOnlyTheExtentRatio) {
  Canvas canvas(2, 2);
  CDC& dc = canvas.DC();
  dc.SetMapMode(MM_ANISOTROPIC);
  dc.SetWindowExt(100, 100);
  dc.SetViewportExt(CSize(50, -50));
  dc.SetViewportOrg(20, 20);
  CSize size(10, 10);
  dc.LPtoDP(&size);
  EXPECT_EQ(CSize(5, 5), size);
  dc.DPtoLP(&size);
  EXPECT_EQ(CSize(10, 10), size);
}

TEST(DCMapping, HimetricSizesFollowTheResolution) {
  Canvas canvas(2, 2);
  CDC& dc = canvas.DC();
  const int dpi = dc.GetDeviceCaps(LOGPIXELSX);
  CSize size(dpi, dpi); // one inch of pixels
  dc.DPtoHIMETRIC(&size);
  EXPECT_EQ(2540, size.cx);
  dc.HIMETRICtoDP(&size);
  EXPECT_EQ(dpi, size.cx);
}

// ---- Drawing ----------------------------------------------------------------------

TEST(DCDraw, FillSolidRectFillsExactlyAndLeavesTheBackgroundColour) {
  Canvas canvas(10, 10);
  canvas.DC().FillSolidRect(2, 3, 4, 5, kRed);
  EXPECT_EQ(20, canvas.Count(kRed));
  EXPECT_EQ(20, canvas.Count(kRed, CRect(2, 3, 6, 8)));
  EXPECT_EQ(kRed, canvas.DC().GetBkColor());
}

TEST(DCDraw, Draw3dRectGivesTheFarCornersToTheBottomRightColour) {
  Canvas canvas(10, 10);
  canvas.DC().Draw3dRect(CRect(2, 2, 8, 8), kRed, kBlue);
  EXPECT_EQ(kRed, canvas.At(2, 2));
  EXPECT_EQ(kRed, canvas.At(6, 2));
  EXPECT_EQ(kBlue, canvas.At(7, 2)); // top-right corner
  EXPECT_EQ(kRed, canvas.At(2, 6));
  EXPECT_EQ(kBlue, canvas.At(2, 7)); // bottom-left corner
  EXPECT_EQ(kBlue, canvas.At(7, 7));
  EXPECT_EQ(9, canvas.Count(kRed));
  EXPECT_EQ(11, canvas.Count(kBlue));
  EXPECT_EQ(16, canvas.Count(kWhite, CRect(3, 3, 7, 7))); // the inside is untouched
  EXPECT_EQ(0, canvas.CountNot(kWhite, CRect(0, 0, 10, 2)));
}

TEST(DCText, DrawTextMeasuresAndDrawsInsideTheRectangle) {
  Canvas canvas(100, 40);
  CDC& dc = canvas.DC();
  CRect calc(0, 0, 0, 0);
  int nHeight = dc.DrawText(CString("Hello"), &calc, DT_SINGLELINE | DT_CALCRECT);
  EXPECT_EQ(calc.Height(), nHeight);
  EXPECT_EQ(dc.GetTextExtent("Hello", 5).cx, calc.Width());
  EXPECT_EQ(0, canvas.CountNot(kWhite, CRect(0, 0, 100, 40))); // measuring draws nothing

  dc.SetTextColor(kBlue);
  dc.SetBkMode(TRANSPARENT);
  CRect box(10, 10, 90, 30);
  EXPECT_GT(dc.DrawText("Hello", -1, &box, DT_SINGLELINE | DT_CENTER | DT_VCENTER), 0);
  EXPECT_GT(canvas.Count(kBlue, box), 0);
  EXPECT_EQ(canvas.Count(kBlue), canvas.Count(kBlue, box));
  EXPECT_EQ(0, dc.DrawText(NULL, 3, &box, 0));
}

TEST(DCBadInput, NullArgumentsFailWithoutDrawing) {
  Canvas canvas(4, 4);
  CDC& dc = canvas.DC();
  dc.Draw3dRect(NULL, kRed, kBlue);
  EXPECT_FALSE(dc.Rectangle((LPCRECT)NULL));
  EXPECT_FALSE(dc.Ellipse((LPCRECT)NULL));
  EXPECT_EQ(ERROR, dc.IntersectClipRect((LPCRECT)NULL));
  dc.DPtoLP((LPSIZE)NULL);
  dc.FillSolidRect(NULL, kRed);
  dc.FillRect(CRect(0, 0, 4, 4), NULL);
  EXPECT_EQ(0, dc.DrawText("abc", 3, NULL, 0));
  EXPECT_EQ(CSize(0, 0), dc.GetTextExtent(NULL, 5));
  EXPECT_EQ(NULL, dc.SelectObject((CPen*)NULL));
  EXPECT_EQ(16, canvas.Count(kWhite));
}
