// CDC and the GDI objects, checked on the pixels they draw and on the
// handles they select: MFC's rule of output and attribute DCs (objects
// selected into both: VRK's drawing suite), sizes mapped, afx's own drawing
// and bad input.
#include <gtest/gtest.h>

#include <afxwin.h>
#include <afxgdi_.h>

#include "exception_probe.h"
#include "gdi_canvas.h"

static const COLORREF kWhite = RGB(255, 255, 255);
static const COLORREF kBlack = RGB(0, 0, 0);
static const COLORREF kRed = RGB(255, 0, 0);
static const COLORREF kGreen = RGB(0, 255, 0);
static const COLORREF kBlue = RGB(0, 0, 255);

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

// A failed creation throws or fails; a face name too long is cut.
TEST(GdiObject, FailedCreationAndOverLongFaceName) {
  CBitmap noBitmap;
  EXPECT_EQ(RUNTIME_CLASS(CResourceException), ThrownClass([&] { CBrush brush(&noBitmap); }));
  CPen pen;
  EXPECT_FALSE(pen.CreatePen(PS_SOLID, 1, NULL, 0, NULL));
  EXPECT_EQ(NULL, pen.m_hObject);
  CFont font, noFace;
  ASSERT_TRUE(font.CreatePointFont(100, CString('F', 300)));
  LOGFONT lf;
  font.GetLogFont(&lf);
  EXPECT_EQ(LF_FACESIZE - 1, (int)strlen(lf.lfFaceName));
  EXPECT_TRUE(noFace.CreatePointFont(100, NULL));
  EXPECT_FALSE(noFace.CreatePointFontIndirect(NULL));
}

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

TEST_F(SplitDC, SettersChangeBothDrawingGoesToTheOutput) {
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

  // Drawing goes to the output only; the attribute DC's position follows.
  m_dc.SetMapMode(MM_TEXT);
  m_dc.MoveTo(1, 1);
  EXPECT_TRUE(m_dc.LineTo(9, 1));
  m_dc.FillSolidRect(CRect(0, 4, 16, 8), kBlue);
  EXPECT_EQ(8, m_output.Count(kBlack, CRect(0, 1, 16, 2)));
  EXPECT_EQ(kBlue, ::GetBkColor(m_output.Handle())); // FillSolidRect leaves its colour
  EXPECT_EQ(64, m_output.Count(kBlue));
  EXPECT_EQ(16 * 16, m_attrib.Count(kWhite));
  EXPECT_EQ(CPoint(9, 1), m_dc.GetCurrentPosition());
}

// Sizes are afx's own conversion: no origin and no direction.
TEST(DCDraw, SizesMapByTheExtentRatioDraw3dRectsFarCorners) {
  Canvas mapped(2, 2);
  CDC& dc = mapped.DC();
  dc.SetMapMode(MM_ANISOTROPIC);
  dc.SetWindowExt(100, 100);
  dc.SetViewportExt(CSize(50, -50));
  dc.SetViewportOrg(20, 20);
  CSize size(10, 10);
  dc.LPtoDP(&size);
  EXPECT_EQ(CSize(5, 5), size);
  dc.DPtoLP(&size);
  EXPECT_EQ(CSize(10, 10), size);

  // Draw3dRect gives the far corners to the bottom-right colour.
  Canvas canvas(10, 10);
  canvas.DC().Draw3dRect(CRect(2, 2, 8, 8), kRed, kBlue);
  EXPECT_EQ(kBlue, canvas.At(7, 2)); // top-right corner
  EXPECT_EQ(kBlue, canvas.At(2, 7)); // bottom-left corner
  EXPECT_EQ(9, canvas.Count(kRed));
  EXPECT_EQ(11, canvas.Count(kBlue));
  EXPECT_EQ(16, canvas.Count(kWhite, CRect(3, 3, 7, 7))); // the inside is untouched
  EXPECT_EQ(0, canvas.CountNot(kWhite, CRect(0, 0, 10, 2)));
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
