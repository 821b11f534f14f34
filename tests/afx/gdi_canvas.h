// A memory DC drawing on a 32-bit top-down DIB section, cleared to white,
// whose pixels the GDI tests read straight from memory.
#ifndef VRK_TESTS_GDI_CANVAS_H
#define VRK_TESTS_GDI_CANVAS_H

#include <afxwin.h>
#include <afxgdi_.h>

class Canvas {
public:
  Canvas(int cx, int cy) : m_cx(cx), m_cy(cy), m_pBits(NULL), m_hOldBitmap(NULL) {
    BITMAPINFO bmi;
    memset(&bmi, 0, sizeof(bmi));
    bmi.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    bmi.bmiHeader.biWidth = cx;
    bmi.bmiHeader.biHeight = -cy; // top-down: row 0 first
    bmi.bmiHeader.biPlanes = 1;
    bmi.bmiHeader.biBitCount = 32;
    bmi.bmiHeader.biCompression = BI_RGB;
    m_bitmap.Attach(::CreateDIBSection(NULL, &bmi, DIB_RGB_COLORS, (void**)&m_pBits, NULL, 0));
    m_dc.CreateCompatibleDC(NULL);
    m_hOldBitmap = m_dc.SelectObject(&m_bitmap)->GetSafeHandle();
    Clear(RGB(255, 255, 255));
  }
  ~Canvas() { ::SelectObject(m_dc.m_hDC, m_hOldBitmap); }

  CDC& DC() { return m_dc; }
  HDC Handle() const { return m_dc.m_hDC; }
  CBitmap& Bitmap() { return m_bitmap; }

  void Clear(COLORREF clr) {
    for (int i = 0; i < m_cx * m_cy; i++)
      m_pBits[i] = (GetRValue(clr) << 16) | (GetGValue(clr) << 8) | GetBValue(clr);
  }
  COLORREF At(int x, int y) const {
    ::GdiFlush();
    DWORD v = m_pBits[y * m_cx + x];
    return RGB((v >> 16) & 0xFF, (v >> 8) & 0xFF, v & 0xFF);
  }
  // How many pixels of the rectangle (clipped to the canvas) have colour clr.
  int Count(COLORREF clr, const RECT& r) const {
    int n = 0;
    for (int y = r.top < 0 ? 0 : r.top; y < r.bottom && y < m_cy; y++)
      for (int x = r.left < 0 ? 0 : r.left; x < r.right && x < m_cx; x++)
        if (At(x, y) == clr) n++;
    return n;
  }
  int Count(COLORREF clr) const { return Count(clr, CRect(0, 0, m_cx, m_cy)); }
  int CountNot(COLORREF clr, const RECT& r) const {
    CRect c(r);
    c &= CRect(0, 0, m_cx, m_cy);
    return c.Width() * c.Height() - Count(clr, r);
  }
  bool SameAs(const Canvas& other) const {
    ::GdiFlush();
    return m_cx == other.m_cx && m_cy == other.m_cy &&
           memcmp(m_pBits, other.m_pBits, m_cx * m_cy * 4) == 0;
  }

private:
  int m_cx, m_cy;
  DWORD* m_pBits;
  CBitmap m_bitmap; // declared before the DC: the DC goes first
  CDC m_dc;
  HGDIOBJ m_hOldBitmap; // a handle: temporary objects may be gone by then
};

#endif // VRK_TESTS_GDI_CANVAS_H
