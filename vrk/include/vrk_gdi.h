// vrk_gdi.h - GDI helpers: scoped selection of an object and of the text
// colour, the pens of 3D frames, device-setting save and restore, the
// process-wide stock objects, and drawing functions (3D frames, embossed and
// stacked text, bitmaps) plus a bitmap-to-file writer.
//
// A CDC has an output handle (m_hDC) and an attribute handle (m_hAttribDC);
// they differ in print preview. Every function here returns 0, or does
// nothing, when a required DC, pen set or rectangle pointer is NULL.
#ifndef VRK_GDI_H
#define VRK_GDI_H

#include "vrkdefs.h"

#include <afxwin.h>

// Selects a GDI object for the life of this object: into the output DC when
// its handle differs from the attribute DC's, then into the attribute DC.
// The handle the last selection returned is put back, in the same two
// steps, by the destructor. Inert when the DC or the object is NULL. Copies
// restore too: each copy puts the old handle back when it goes.
class VRK_API VSelectGdiObject {
public:
  VSelectGdiObject(CDC* pDC, CGdiObject* pObject);
  VSelectGdiObject(const VSelectGdiObject& other);
  VSelectGdiObject& operator=(const VSelectGdiObject& other);
  virtual ~VSelectGdiObject();

protected:
  CDC* m_pDC;
  HGDIOBJ m_hOldObject;
};

// Sets the text colour of the output DC; the destructor sets the previous
// colour back. A NULL DC (or one without an output handle) does nothing.
class VRK_API VGdiSelectColor {
public:
  VGdiSelectColor(CDC* pDC, COLORREF crText);
  VGdiSelectColor& operator=(const VGdiSelectColor& other) {
    m_hDC = other.m_hDC;
    m_crOld = other.m_crOld;
    return *this;
  }
  ~VGdiSelectColor();

protected:
  HDC m_hDC;
  COLORREF m_crOld;
};

// The four solid one-pixel pens of a 3D frame; the system colours are read
// once, when the set is made.
struct VRK_API tag3DPens {
  tag3DPens();
  ~tag3DPens();

  CPen m_penBlack;  // RGB(0,0,0)
  CPen m_penShadow; // COLOR_BTNSHADOW
  CPen m_penWhite;  // RGB(255,255,255)
  CPen m_penFace;   // COLOR_BTNFACE

private:
  tag3DPens(const tag3DPens&);
  void operator=(const tag3DPens&);
};

struct tagDeviceOrientation {
  CSize viewportExt;
  CSize windowExt;
};

// What VrkSaveDeviceSettings reads from the attribute DC. The object
// pointers are temporary wrappers: restore before the thread goes idle.
struct tagDeviceSettings {
  CGdiObject* pFont;
  CGdiObject* pBrush;
  CGdiObject* pPen;
  CGdiObject* pBitmap;
  int nMapMode;
  tagDeviceOrientation orientation;
};

// ---- Stock objects ----------------------------------------------------------
// Made when the library is loaded and destroyed when it is unloaded.
// Fonts: 1 "MS Sans Serif" 8 points, 2 "Fixedsys" 9 points. Brushes: 1 solid
// COLOR_BTNFACE, 2 an 8x8 monochrome pattern. Pen 1: a dotted pen that sets
// every other pixel. Cursor 1: cursor 5035 of the resource modules, loaded at
// the first request made while an application object exists. Any other
// number gives NULL.
VRK_API CFont* VrkGetStockFont(UINT nIndex);
VRK_API CBrush* VrkGetStockBrush(UINT nIndex);
VRK_API CPen* VrkGetStockPen(UINT nIndex);
VRK_API HCURSOR VrkGetStockCursor(UINT nIndex);

// ---- Bitmaps and icons ------------------------------------------------------

// LoadImage of bitmap nID from the module of the resource chain that holds
// it; NULL when none does.
VRK_API HBITMAP VrkLoadImageBitmap(UINT nID, UINT nFlags, int cx, int cy);
// The icon's image at its own size, without its mask.
VRK_API BOOL VrkDrawSmallIcon(HDC hDC, POINT pt, HICON hIcon);
// Draws a bitmap into pDest (default: its own size at 0,0). pSize is the
// source size (default: the bitmap's). Equal sizes are copied; otherwise
// bCenter copies it unscaled, shifted by half the absolute difference of
// the sizes (right and down also when the bitmap is the larger), and
// without bCenter it is stretched. Returns the blit's result.
VRK_API BOOL VrkDrawBitmap(CDC* pDC, CBitmap* pBitmap, CRect* pDest, CSize* pSize, bool bCenter);
// The same with bitmap resource nID; 0 when it cannot be loaded.
VRK_API BOOL VrkDrawBitmap(CDC* pDC, UINT nID, CRect* pDest, CSize* pSize, bool bCenter);
// Writes the bitmap as a BMP file (BI_RGB, colour depth rounded up to 1, 4,
// 8, 16, 24 or 32 bits); 1 when written, 0 on bad arguments or when memory
// or the file cannot be had.
VRK_API int SaveBitmap(HDC hDC, const char* pszFile, HBITMAP hBitmap);

// ---- Text -------------------------------------------------------------------

// The size DrawText gives the text on the screen in the font described;
// (0,0) when the font cannot be made.
VRK_API SIZE VrkGetStringSize(const char* pszText, double dPoints, const char* pszFace, int bBold,
                              BYTE bItalic, BYTE bUnderline);
// The text once in COLOR_BTNHIGHLIGHT one pixel right and down, then in the
// DC's text colour; returns the second DrawText's result.
VRK_API int VrkDrawEmbossed(CDC* pDC, const char* pszText, int nLength, RECT* pRect, UINT nFormat);
VRK_API int VrkDrawEmbossed(CDC* pDC, const CString& strText, RECT* pRect, UINT nFormat);
// Image nImage of the list, embossed at pt: the shape in COLOR_BTNHIGHLIGHT
// one pixel right and down, then in COLOR_BTNSHADOW. bColor renders the
// image into a colour bitmap first, else a monochrome one.
VRK_API void VrkDrawEmbossed(CDC* pDC, CImageList* pImageList, int nImage, CPoint pt, int bColor);
// One character per line, top to bottom (DT_VCENTER, DT_BOTTOM and
// DT_CENTER are honoured); a line feed widens the cell, a carriage return
// starts a new column at the top. Returns the total height.
VRK_API int VrkDrawStacked(CDC* pDC, const char* pszText, int nLength, RECT* pRect, UINT nFormat);
VRK_API int VrkDrawStacked(CDC* pDC, const CString& strText, RECT* pRect, UINT nFormat);

// ---- Frames and fills -------------------------------------------------------

// A two-pixel 3D frame. Sunken: shadow then black at top and left, white
// then face at right and bottom, inside the rectangle. Raised: face then
// white at top and left, black then shadow at right and bottom, whose outer
// lines lie on x = right and y = bottom, one pixel further out than a
// sunken frame's.
VRK_API void VrkDraw3DRect(CDC* pDC, tag3DPens* pPens, const RECT& rect, int bSunken);
// The same after filling the rectangle with crFill.
VRK_API void VrkDraw3DRect(CDC* pDC, tag3DPens* pPens, const RECT& rect, int bSunken,
                           COLORREF crFill);
// A one-pixel frame inside the rectangle in the pen given.
VRK_API void VrkDrawSimpleRect(CDC* pDC, CPen* pPen, const RECT& rect);
// Fills with the background colour set to crFill (put back when bRestore);
// returns the previous background colour.
VRK_API COLORREF VrkFillSolidRect(CDC* pDC, RECT* pRect, COLORREF crFill, int bRestore);

// ---- Device settings --------------------------------------------------------

VRK_API void VrkGetDeviceOrientation(CDC* pDC, tagDeviceOrientation* pOrientation);
// Window extent first, then viewport extent.
VRK_API void VrkSetDeviceOrientation(CDC* pDC, tagDeviceOrientation* pOrientation);
VRK_API void VrkSaveDeviceSettings(CDC* pDC, tagDeviceSettings* pSettings);
// Font, brush, pen (each if saved), the bitmap into the output DC, then the
// mapping mode, then the extents (which the mapping mode would reset).
VRK_API void VrkRestoreDeviceSettings(CDC* pDC, tagDeviceSettings* pSettings);

#endif // VRK_GDI_H
