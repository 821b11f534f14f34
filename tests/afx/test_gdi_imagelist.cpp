// CImageList: images cut from a bitmap with a mask colour, drawn onto a
// memory DC pixel by pixel.
#include <gtest/gtest.h>

#include <afxwin.h>
#include <afxgdi_.h>

#include "gdi_canvas.h"

static const COLORREF kWhite = RGB(255, 255, 255);
static const COLORREF kRed = RGB(255, 0, 0);
static const COLORREF kGreen = RGB(0, 255, 0);
static const COLORREF kMagenta = RGB(255, 0, 255);

// A strip of two 4 x 4 images: red, then green; each has a magenta top-left
// pixel that the mask makes transparent.
class ImageListTest : public ::testing::Test {
protected:
  void SetUp() override {
    Canvas strip(8, 4);
    strip.DC().FillSolidRect(0, 0, 4, 4, kRed);
    strip.DC().FillSolidRect(4, 0, 4, 4, kGreen);
    strip.DC().SetPixelV(0, 0, kMagenta);
    strip.DC().SetPixelV(4, 0, kMagenta);
    // A copy not selected into any DC, as image lists need.
    ASSERT_TRUE(m_strip.CreateBitmap(8, 4, 1, 32, NULL));
    CDC dc;
    dc.CreateCompatibleDC(NULL);
    CBitmap* pOld = dc.SelectObject(&m_strip);
    dc.BitBlt(0, 0, 8, 4, &strip.DC(), 0, 0, SRCCOPY);
    dc.SelectObject(pOld);
    ASSERT_TRUE(m_list.Create(4, 4, ILC_COLOR32 | ILC_MASK, 0, 2));
  }
  CBitmap m_strip;
  CImageList m_list;
};

TEST_F(ImageListTest, AddCutsTheStripAndMasksTheColour) {
  EXPECT_EQ(0, m_list.Add(&m_strip, kMagenta));
  EXPECT_EQ(2, m_list.GetImageCount());
  IMAGEINFO info;
  ASSERT_TRUE(m_list.GetImageInfo(1, &info));
  EXPECT_TRUE(CRect(info.rcImage) == CRect(4, 0, 8, 4)); // the second cell of the list
  EXPECT_FALSE(m_list.GetImageInfo(1, NULL));

  Canvas canvas(10, 10);
  EXPECT_TRUE(m_list.Draw(&canvas.DC(), 1, CPoint(3, 3), ILD_NORMAL));
  EXPECT_EQ(kWhite, canvas.At(3, 3)); // the masked pixel lets the canvas through
  EXPECT_EQ(15, canvas.Count(kGreen, CRect(3, 3, 7, 7)));
  EXPECT_EQ(15, canvas.Count(kGreen));
  EXPECT_EQ(0, canvas.Count(kRed));
  EXPECT_FALSE(m_list.Draw(NULL, 0, CPoint(0, 0), ILD_NORMAL));
  EXPECT_FALSE(m_list.Draw(&canvas.DC(), 5, CPoint(0, 0), ILD_NORMAL)); // no such image
}
