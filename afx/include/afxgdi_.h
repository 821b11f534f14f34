// afxgdi_.h - GDI: the device context (CDC and the window DCs), the drawing
// objects (CGdiObject, CPen, CBrush, CFont, CBitmap, CRgn, CPalette), image
// lists and AfxLoadSysColorBitmap. Included by afxwin.h after CWnd is named.
//
// A CDC holds two handles: output goes to m_hDC, while queries of the DC's
// state use m_hAttribDC. Calls that change state change both (m_hDC first
// when it differs) and return what the attribute DC reported. Normally the
// two are the same handle; print preview sets them apart.
#ifndef AFXGDI__H
#define AFXGDI__H

#include "afx.h"
#include "atltypes.h"
#include <commctrl.h>

class CWnd;
class CDC;
class CBitmap;

// MFC lets GetSafeHdc and GetSafeHandle be called through a null pointer.
// The pointer passes through an empty asm so that the compiler, which may
// assume "this" is never null, keeps the test.
inline bool AfxIsNullObject(const void* p) {
  __asm__("" : "+r"(p));
  return p == NULL;
}

// ---- CGdiObject -------------------------------------------------------------

class AFX_API CGdiObject : public CObject {
  DECLARE_DYNCREATE(CGdiObject)
public:
  HGDIOBJ m_hObject;

  CGdiObject() : m_hObject(NULL) {}
  // Deletes the GDI object it owns.
  virtual ~CGdiObject();

  operator HGDIOBJ() const { return AfxIsNullObject(this) ? NULL : m_hObject; }
  HGDIOBJ GetSafeHandle() const { return AfxIsNullObject(this) ? NULL : m_hObject; }

  // The object wrapping hObject: the permanent one, else a temporary
  // CGdiObject deleted when the thread is idle.
  static CGdiObject* PASCAL FromHandle(HGDIOBJ hObject);
  static void PASCAL DeleteTempMap();
  BOOL Attach(HGDIOBJ hObject);
  HGDIOBJ Detach();

  BOOL DeleteObject();
  int GetObject(int nCount, LPVOID lpObject) const;
  UINT GetObjectType() const;
  BOOL CreateStockObject(int nIndex);
  BOOL UnrealizeObject();
  BOOL operator==(const CGdiObject& obj) const { return obj.m_hObject == m_hObject; }
  BOOL operator!=(const CGdiObject& obj) const { return obj.m_hObject != m_hObject; }

private:
  CGdiObject(const CGdiObject&);
  void operator=(const CGdiObject&);
};

// ---- CPen -------------------------------------------------------------------

class AFX_API CPen : public CGdiObject {
  DECLARE_DYNAMIC(CPen)
public:
  static CPen* PASCAL FromHandle(HPEN hPen) { return (CPen*)CGdiObject::FromHandle(hPen); }

  CPen() {}
  // These throw CResourceException when the pen cannot be made.
  CPen(int nPenStyle, int nWidth, COLORREF crColor);
  CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0,
       const DWORD* lpStyle = NULL);

  BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor);
  BOOL CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0,
                 const DWORD* lpStyle = NULL);
  BOOL CreatePenIndirect(LPLOGPEN lpLogPen);

  operator HPEN() const { return (HPEN)GetSafeHandle(); }
  int GetLogPen(LOGPEN* pLogPen) { return GetObject(sizeof(LOGPEN), pLogPen); }
  int GetExtLogPen(EXTLOGPEN* pLogPen) { return GetObject(sizeof(EXTLOGPEN), pLogPen); }
};

// ---- CBrush -----------------------------------------------------------------

class AFX_API CBrush : public CGdiObject {
  DECLARE_DYNAMIC(CBrush)
public:
  static CBrush* PASCAL FromHandle(HBRUSH hBrush) {
    return (CBrush*)CGdiObject::FromHandle(hBrush);
  }

  CBrush() {}
  // These throw CResourceException when the brush cannot be made.
  explicit CBrush(COLORREF crColor);
  CBrush(int nIndex, COLORREF crColor);
  explicit CBrush(CBitmap* pBitmap);

  BOOL CreateSolidBrush(COLORREF crColor);
  BOOL CreateHatchBrush(int nIndex, COLORREF crColor);
  BOOL CreateBrushIndirect(const LOGBRUSH* lpLogBrush);
  BOOL CreatePatternBrush(CBitmap* pBitmap);
  BOOL CreateDIBPatternBrush(HGLOBAL hPackedDIB, UINT nUsage);
  BOOL CreateDIBPatternBrush(const void* lpPackedDIB, UINT nUsage);
  BOOL CreateSysColorBrush(int nIndex);

  operator HBRUSH() const { return (HBRUSH)GetSafeHandle(); }
  int GetLogBrush(LOGBRUSH* pLogBrush) { return GetObject(sizeof(LOGBRUSH), pLogBrush); }
};

// ---- CFont ------------------------------------------------------------------

class AFX_API CFont : public CGdiObject {
  DECLARE_DYNAMIC(CFont)
public:
  static CFont* PASCAL FromHandle(HFONT hFont) { return (CFont*)CGdiObject::FromHandle(hFont); }

  CFont() {}

  BOOL CreateFontIndirect(const LOGFONT* lpLogFont);
  BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight,
                  BYTE bItalic, BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision,
                  BYTE nClipPrecision, BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename);
  // nPointSize is in tenths of a point; the height is converted to logical
  // units of pDC (the screen when NULL).
  BOOL CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = NULL);
  // As CreateFontIndirect, but lfHeight is in tenths of a point.
  BOOL CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC = NULL);

  operator HFONT() const { return (HFONT)GetSafeHandle(); }
  int GetLogFont(LOGFONT* pLogFont) { return GetObject(sizeof(LOGFONT), pLogFont); }
};

// ---- CBitmap ----------------------------------------------------------------

class AFX_API CBitmap : public CGdiObject {
  DECLARE_DYNAMIC(CBitmap)
public:
  static CBitmap* PASCAL FromHandle(HBITMAP hBitmap) {
    return (CBitmap*)CGdiObject::FromHandle(hBitmap);
  }

  CBitmap() {}

  // Resources are found through the resource chain (AfxFindResourceHandle).
  BOOL LoadBitmap(LPCTSTR lpszResourceName);
  BOOL LoadBitmap(UINT nIDResource) { return LoadBitmap(MAKEINTRESOURCE(nIDResource)); }
  BOOL LoadOEMBitmap(UINT nIDBitmap);
  BOOL LoadMappedBitmap(UINT nIDBitmap, UINT nFlags = 0, LPCOLORMAP lpColorMap = NULL,
                        int nMapSize = 0);
  BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits);
  BOOL CreateBitmapIndirect(LPBITMAP lpBitmap);
  BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);
  BOOL CreateDiscardableBitmap(CDC* pDC, int nWidth, int nHeight);

  operator HBITMAP() const { return (HBITMAP)GetSafeHandle(); }
  int GetBitmap(BITMAP* pBitMap) { return GetObject(sizeof(BITMAP), pBitMap); }
  DWORD SetBitmapBits(DWORD dwCount, const void* lpBits);
  DWORD GetBitmapBits(DWORD dwCount, LPVOID lpBits) const;
  CSize SetBitmapDimension(int nWidth, int nHeight);
  CSize GetBitmapDimension() const;
};

// ---- CRgn -------------------------------------------------------------------

class AFX_API CRgn : public CGdiObject {
  DECLARE_DYNAMIC(CRgn)
public:
  static CRgn* PASCAL FromHandle(HRGN hRgn) { return (CRgn*)CGdiObject::FromHandle(hRgn); }

  CRgn() {}
  operator HRGN() const { return (HRGN)GetSafeHandle(); }

  BOOL CreateRectRgn(int x1, int y1, int x2, int y2);
  BOOL CreateRectRgnIndirect(LPCRECT lpRect);
  BOOL CreateEllipticRgn(int x1, int y1, int x2, int y2);
  BOOL CreateEllipticRgnIndirect(LPCRECT lpRect);
  BOOL CreatePolygonRgn(LPPOINT lpPoints, int nCount, int nMode);
  BOOL CreatePolyPolygonRgn(LPPOINT lpPoints, LPINT lpPolyCounts, int nCount, int nPolyFillMode);
  BOOL CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3);
  BOOL CreateFromPath(CDC* pDC);
  BOOL CreateFromData(const XFORM* lpXForm, int nCount, const RGNDATA* pRgnData);

  void SetRectRgn(int x1, int y1, int x2, int y2);
  void SetRectRgn(LPCRECT lpRect);
  // Both return the region's kind (NULLREGION, SIMPLEREGION, COMPLEXREGION)
  // or ERROR.
  int CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode);
  int CopyRgn(const CRgn* pRgnSrc);
  BOOL EqualRgn(const CRgn* pRgn) const;
  int OffsetRgn(int x, int y);
  int OffsetRgn(POINT point);
  int GetRgnBox(LPRECT lpRect) const;
  BOOL PtInRegion(int x, int y) const;
  BOOL PtInRegion(POINT point) const;
  BOOL RectInRegion(LPCRECT lpRect) const;
  int GetRegionData(LPRGNDATA lpRgnData, int nCount) const;
};

// ---- CPalette ---------------------------------------------------------------

class AFX_API CPalette : public CGdiObject {
  DECLARE_DYNAMIC(CPalette)
public:
  static CPalette* PASCAL FromHandle(HPALETTE hPalette) {
    return (CPalette*)CGdiObject::FromHandle(hPalette);
  }

  CPalette() {}
  BOOL CreatePalette(LPLOGPALETTE lpLogPalette);
  BOOL CreateHalftonePalette(CDC* pDC);

  operator HPALETTE() const { return (HPALETTE)GetSafeHandle(); }
  int GetEntryCount();
  UINT GetPaletteEntries(UINT nStartIndex, UINT nNumEntries, LPPALETTEENTRY lpPaletteColors) const;
  UINT SetPaletteEntries(UINT nStartIndex, UINT nNumEntries, LPPALETTEENTRY lpPaletteColors);
  void AnimatePalette(UINT nStartIndex, UINT nNumEntries, LPPALETTEENTRY lpPaletteColors);
  UINT GetNearestPaletteIndex(COLORREF crColor) const;
  BOOL ResizePalette(UINT nNumEntries);
};

// ---- CDC --------------------------------------------------------------------

class AFX_API CDC : public CObject {
  DECLARE_DYNCREATE(CDC)
public:
  HDC m_hDC;       // the output DC
  HDC m_hAttribDC; // the attribute DC (queries)
  BOOL m_bPrinting;

  CDC();
  // Deletes the DC it owns (DeleteDC).
  virtual ~CDC();

  operator HDC() const { return AfxIsNullObject(this) ? NULL : m_hDC; }
  HDC GetSafeHdc() const { return AfxIsNullObject(this) ? NULL : m_hDC; }
  // The window of the output DC (CWnd::FromHandle of WindowFromDC).
  CWnd* GetWindow() const;

  // The object wrapping hDC: the permanent one, else a temporary CDC
  // deleted when the thread is idle.
  static CDC* PASCAL FromHandle(HDC hDC);
  static void PASCAL DeleteTempMap();
  // Attach sets both handles and makes the object permanent; Detach returns
  // the output DC and clears both.
  BOOL Attach(HDC hDC);
  HDC Detach();

  virtual void SetAttribDC(HDC hDC);
  virtual void SetOutputDC(HDC hDC);
  virtual void ReleaseAttribDC();
  virtual void ReleaseOutputDC();

  BOOL IsPrinting() const { return m_bPrinting; }

  BOOL CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput,
                const void* lpInitData);
  BOOL CreateIC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput,
                const void* lpInitData);
  // A memory DC compatible with pDC (the screen when NULL).
  BOOL CreateCompatibleDC(CDC* pDC);
  BOOL DeleteDC();

  // Device state.
  virtual int SaveDC();
  virtual BOOL RestoreDC(int nSavedDC);
  int GetDeviceCaps(int nIndex) const;
  UINT SetBoundsRect(LPCRECT lpRectBounds, UINT flags);
  UINT GetBoundsRect(LPRECT lpRectBounds, UINT flags);
  BOOL ResetDC(const DEVMODE* lpDevMode);

  // Drawing-tool functions.
  CPoint GetBrushOrg() const;
  CPoint SetBrushOrg(int x, int y);
  CPoint SetBrushOrg(POINT point);
  int EnumObjects(int nObjectType, int(CALLBACK* lpfn)(LPVOID, LPARAM), LPARAM lpData);

  // Selection: into both handles; the previous object comes back through
  // the handle map (a temporary object when it has no permanent one).
  CGdiObject* SelectStockObject(int nIndex);
  CPen* SelectObject(CPen* pPen);
  CBrush* SelectObject(CBrush* pBrush);
  virtual CFont* SelectObject(CFont* pFont);
  // A bitmap goes into the output DC only.
  CBitmap* SelectObject(CBitmap* pBitmap);
  // Returns the region's kind, or GDI_ERROR.
  int SelectObject(CRgn* pRgn);
  CGdiObject* SelectObject(CGdiObject* pObject);
  HGDIOBJ SelectObject(HGDIOBJ hObject);

  COLORREF GetNearestColor(COLORREF crColor) const;
  CPalette* SelectPalette(CPalette* pPalette, BOOL bForceBackground);
  UINT RealizePalette();
  void UpdateColors();

  // The objects currently selected (into the output DC).
  CPen* GetCurrentPen() const;
  CBrush* GetCurrentBrush() const;
  CPalette* GetCurrentPalette() const;
  CFont* GetCurrentFont() const;
  CBitmap* GetCurrentBitmap() const;

  // Colour and drawing attributes.
  COLORREF GetBkColor() const;
  int GetBkMode() const;
  int GetPolyFillMode() const;
  int GetROP2() const;
  int GetStretchBltMode() const;
  COLORREF GetTextColor() const;
  virtual COLORREF SetBkColor(COLORREF crColor);
  int SetBkMode(int nBkMode);
  int SetPolyFillMode(int nPolyFillMode);
  int SetROP2(int nDrawMode);
  int SetStretchBltMode(int nStretchMode);
  virtual COLORREF SetTextColor(COLORREF crColor);

  // Mapping modes, origins and extents.
  int GetMapMode() const;
  CPoint GetViewportOrg() const;
  virtual int SetMapMode(int nMapMode);
  virtual CPoint SetViewportOrg(int x, int y);
  CPoint SetViewportOrg(POINT point);
  virtual CPoint OffsetViewportOrg(int nWidth, int nHeight);
  CSize GetViewportExt() const;
  virtual CSize SetViewportExt(int cx, int cy);
  CSize SetViewportExt(SIZE size);
  virtual CSize ScaleViewportExt(int xNum, int xDenom, int yNum, int yDenom);
  CPoint GetWindowOrg() const;
  CPoint SetWindowOrg(int x, int y);
  CPoint SetWindowOrg(POINT point);
  CPoint OffsetWindowOrg(int nWidth, int nHeight);
  CSize GetWindowExt() const;
  virtual CSize SetWindowExt(int cx, int cy);
  CSize SetWindowExt(SIZE size);
  virtual CSize ScaleWindowExt(int xNum, int xDenom, int yNum, int yDenom);

  // Co-ordinate conversion through the attribute DC. Sizes are scaled by
  // the ratio of the extents, without the origins.
  void DPtoLP(LPPOINT lpPoints, int nCount = 1) const;
  void DPtoLP(LPRECT lpRect) const;
  void DPtoLP(LPSIZE lpSize) const;
  void LPtoDP(LPPOINT lpPoints, int nCount = 1) const;
  void LPtoDP(LPRECT lpRect) const;
  void LPtoDP(LPSIZE lpSize) const;
  // HIMETRIC (0.01 mm) sizes to and from device and logical units.
  void DPtoHIMETRIC(LPSIZE lpSize) const;
  void HIMETRICtoDP(LPSIZE lpSize) const;
  void LPtoHIMETRIC(LPSIZE lpSize) const;
  void HIMETRICtoLP(LPSIZE lpSize) const;

  // Regions and clipping.
  BOOL FillRgn(CRgn* pRgn, CBrush* pBrush);
  BOOL FrameRgn(CRgn* pRgn, CBrush* pBrush, int nWidth, int nHeight);
  BOOL InvertRgn(CRgn* pRgn);
  BOOL PaintRgn(CRgn* pRgn);
  virtual int GetClipBox(LPRECT lpRect) const;
  virtual BOOL PtVisible(int x, int y) const;
  BOOL PtVisible(POINT point) const;
  virtual BOOL RectVisible(LPCRECT lpRect) const;
  int SelectClipRgn(CRgn* pRgn);
  int SelectClipRgn(CRgn* pRgn, int nMode);
  int ExcludeClipRect(int x1, int y1, int x2, int y2);
  int ExcludeClipRect(LPCRECT lpRect);
  int ExcludeUpdateRgn(CWnd* pWnd);
  int IntersectClipRect(int x1, int y1, int x2, int y2);
  int IntersectClipRect(LPCRECT lpRect);
  int OffsetClipRgn(int x, int y);
  int OffsetClipRgn(SIZE size);

  // Lines and curves.
  CPoint GetCurrentPosition() const;
  CPoint MoveTo(int x, int y);
  CPoint MoveTo(POINT point);
  BOOL LineTo(int x, int y);
  BOOL LineTo(POINT point);
  BOOL Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
  BOOL Arc(LPCRECT lpRect, POINT ptStart, POINT ptEnd);
  BOOL Polyline(const POINT* lpPoints, int nCount);
  BOOL PolyBezier(const POINT* lpPoints, int nCount);

  // Simple shapes.
  void FillRect(LPCRECT lpRect, CBrush* pBrush);
  void FrameRect(LPCRECT lpRect, CBrush* pBrush);
  void InvertRect(LPCRECT lpRect);
  BOOL DrawIcon(int x, int y, HICON hIcon);
  BOOL DrawIcon(POINT point, HICON hIcon);
  void DrawFocusRect(LPCRECT lpRect);
  // Fills with a colour: sets the background colour (and leaves it set).
  void FillSolidRect(LPCRECT lpRect, COLORREF clr);
  void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
  // A one-pixel frame: top and left in one colour, bottom and right in the
  // other.
  void Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight);
  void Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight);

  // Ellipses and polygons.
  BOOL Chord(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
  BOOL Chord(LPCRECT lpRect, POINT ptStart, POINT ptEnd);
  BOOL Ellipse(int x1, int y1, int x2, int y2);
  BOOL Ellipse(LPCRECT lpRect);
  BOOL Pie(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
  BOOL Pie(LPCRECT lpRect, POINT ptStart, POINT ptEnd);
  BOOL Polygon(const POINT* lpPoints, int nCount);
  BOOL PolyPolygon(const POINT* lpPoints, const INT* lpPolyCounts, int nCount);
  BOOL Rectangle(int x1, int y1, int x2, int y2);
  BOOL Rectangle(LPCRECT lpRect);
  BOOL RoundRect(int x1, int y1, int x2, int y2, int x3, int y3);
  BOOL RoundRect(LPCRECT lpRect, POINT point);

  // Bitmaps.
  BOOL PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop);
  BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop);
  BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc,
                  int nSrcWidth, int nSrcHeight, DWORD dwRop);
  COLORREF GetPixel(int x, int y) const;
  COLORREF GetPixel(POINT point) const;
  COLORREF SetPixel(int x, int y, COLORREF crColor);
  COLORREF SetPixel(POINT point, COLORREF crColor);
  BOOL SetPixelV(int x, int y, COLORREF crColor);
  BOOL SetPixelV(POINT point, COLORREF crColor);
  BOOL FloodFill(int x, int y, COLORREF crColor);
  BOOL ExtFloodFill(int x, int y, COLORREF crColor, UINT nFillType);

  // Text.
  virtual BOOL TextOut(int x, int y, LPCTSTR lpszString, int nCount);
  BOOL TextOut(int x, int y, const CString& str);
  virtual BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString,
                          UINT nCount, LPINT lpDxWidths);
  BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str,
                  LPINT lpDxWidths);
  virtual CSize TabbedTextOut(int x, int y, LPCTSTR lpszString, int nCount, int nTabPositions,
                              LPINT lpnTabStopPositions, int nTabOrigin);
  CSize TabbedTextOut(int x, int y, const CString& str, int nTabPositions,
                      LPINT lpnTabStopPositions, int nTabOrigin);
  virtual int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat);
  int DrawText(const CString& str, LPRECT lpRect, UINT nFormat);
  virtual int DrawTextEx(LPTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat,
                         LPDRAWTEXTPARAMS lpDTParams);
  int DrawTextEx(const CString& str, LPRECT lpRect, UINT nFormat, LPDRAWTEXTPARAMS lpDTParams);
  // Text sizes on the attribute DC; the Output forms measure on m_hDC.
  CSize GetTextExtent(LPCTSTR lpszString, int nCount) const;
  CSize GetTextExtent(const CString& str) const;
  CSize GetOutputTextExtent(LPCTSTR lpszString, int nCount) const;
  CSize GetOutputTextExtent(const CString& str) const;
  CSize GetTabbedTextExtent(LPCTSTR lpszString, int nCount, int nTabPositions,
                            LPINT lpnTabStopPositions) const;
  CSize GetTabbedTextExtent(const CString& str, int nTabPositions, LPINT lpnTabStopPositions) const;
  BOOL GetTextMetrics(LPTEXTMETRIC lpMetrics) const;
  BOOL GetOutputTextMetrics(LPTEXTMETRIC lpMetrics) const;
  UINT GetTextAlign() const;
  UINT SetTextAlign(UINT nFlags);
  int GetTextFace(int nCount, LPTSTR lpszFacename) const;
  int GetTextFace(CString& rString) const;
  int GetTextCharacterExtra() const;
  int SetTextCharacterExtra(int nCharExtra);
  int SetTextJustification(int nBreakExtra, int nBreakCount);
  BOOL GetCharWidth(UINT nFirstChar, UINT nLastChar, LPINT lpBuffer) const;
  BOOL GrayString(CBrush* pBrush, BOOL(CALLBACK* lpfnOutput)(HDC, LPARAM, int), LPARAM lpData,
                  int nCount, int x, int y, int nWidth, int nHeight);

  // Edges, frame controls and state drawing.
  BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags);
  BOOL DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState);
  BOOL DrawState(CPoint pt, CSize size, HBITMAP hBitmap, UINT nFlags, HBRUSH hBrush = NULL);
  BOOL DrawState(CPoint pt, CSize size, CBitmap* pBitmap, UINT nFlags, CBrush* pBrush = NULL);
  BOOL DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, HBRUSH hBrush = NULL);
  BOOL DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, CBrush* pBrush = NULL);
  BOOL DrawState(CPoint pt, CSize size, LPCTSTR lpszText, UINT nFlags, BOOL bPrefixText = TRUE,
                 int nTextLen = 0, HBRUSH hBrush = NULL);
  BOOL DrawState(CPoint pt, CSize size, LPCTSTR lpszText, UINT nFlags, BOOL bPrefixText = TRUE,
                 int nTextLen = 0, CBrush* pBrush = NULL);
  BOOL DrawState(CPoint pt, CSize size, DRAWSTATEPROC lpDrawProc, LPARAM lData, UINT nFlags,
                 HBRUSH hBrush = NULL);
  BOOL DrawState(CPoint pt, CSize size, DRAWSTATEPROC lpDrawProc, LPARAM lData, UINT nFlags,
                 CBrush* pBrush = NULL);

  // Printing: the document calls go to the output DC.
  int Escape(int nEscape, int nCount, LPCSTR lpszInData, LPVOID lpOutData);
  int StartDoc(LPDOCINFO lpDocInfo);
  int StartDoc(LPCTSTR lpszDocName);
  int StartPage();
  int EndPage();
  int SetAbortProc(BOOL(CALLBACK* lpfn)(HDC, int));
  int AbortDoc();
  int EndDoc();

  // Paths.
  BOOL AbortPath();
  BOOL BeginPath();
  BOOL CloseFigure();
  BOOL EndPath();
  BOOL FillPath();
  BOOL StrokePath();
  BOOL StrokeAndFillPath();
  BOOL SelectClipPath(int nMode);

private:
  CDC(const CDC&);
  void operator=(const CDC&);
};

// ---- Window DCs -------------------------------------------------------------

// The client area of a window (GetDC; ReleaseDC on destruction). Throws
// CResourceException when no DC can be had. pWnd NULL means the screen.
class AFX_API CClientDC : public CDC {
  DECLARE_DYNAMIC(CClientDC)
public:
  explicit CClientDC(CWnd* pWnd);
  virtual ~CClientDC();

protected:
  HWND m_hWnd;
};

// The whole window, non-client area included (GetWindowDC).
class AFX_API CWindowDC : public CDC {
  DECLARE_DYNAMIC(CWindowDC)
public:
  explicit CWindowDC(CWnd* pWnd);
  virtual ~CWindowDC();

protected:
  HWND m_hWnd;
};

// BeginPaint on construction, EndPaint on destruction (for WM_PAINT).
class AFX_API CPaintDC : public CDC {
  DECLARE_DYNAMIC(CPaintDC)
public:
  explicit CPaintDC(CWnd* pWnd);
  virtual ~CPaintDC();

  PAINTSTRUCT m_ps;

protected:
  HWND m_hWnd;
};

// ---- CImageList -------------------------------------------------------------

class AFX_API CImageList : public CObject {
  DECLARE_DYNCREATE(CImageList)
public:
  HIMAGELIST m_hImageList;

  CImageList();
  // Destroys the image list it owns.
  virtual ~CImageList();

  operator HIMAGELIST() const { return AfxIsNullObject(this) ? NULL : m_hImageList; }
  HIMAGELIST GetSafeHandle() const { return AfxIsNullObject(this) ? NULL : m_hImageList; }
  static CImageList* PASCAL FromHandle(HIMAGELIST hImageList);
  static CImageList* PASCAL FromHandlePermanent(HIMAGELIST hImageList);
  static void PASCAL DeleteTempMap();
  BOOL Attach(HIMAGELIST hImageList);
  HIMAGELIST Detach();
  BOOL DeleteImageList();

  BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
  // A masked list from a bitmap resource (found through the resource chain),
  // cut into images cx wide; crMask is the transparent colour.
  BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask);
  BOOL Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);
  // One image made of two merged images.
  BOOL Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2, int dx,
              int dy);
  // A copy of another list.
  BOOL Create(CImageList* pImageList);

  int GetImageCount() const;
  BOOL SetImageCount(UINT uNewCount);
  COLORREF SetBkColor(COLORREF cr);
  COLORREF GetBkColor() const;
  BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const;

  int Add(CBitmap* pbmImage, CBitmap* pbmMask);
  int Add(CBitmap* pbmImage, COLORREF crMask);
  int Add(HICON hIcon);
  BOOL Remove(int nImage);
  BOOL Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask);
  int Replace(int nImage, HICON hIcon);
  HICON ExtractIcon(int nImage);
  BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle);
  BOOL DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg, UINT nStyle);
  BOOL DrawIndirect(IMAGELISTDRAWPARAMS* pimldp);
  BOOL SetOverlayImage(int nImage, int nOverlay);
  BOOL Copy(int iDst, int iSrc, UINT uFlags = ILCF_MOVE);
  BOOL Copy(int iDst, CImageList* pSrc, int iSrc, UINT uFlags = ILCF_MOVE);

  BOOL BeginDrag(int nImage, CPoint ptHotSpot);
  static void PASCAL EndDrag();
  static BOOL PASCAL DragMove(CPoint pt);
  BOOL SetDragCursorImage(int nDrag, CPoint ptHotSpot);
  static BOOL PASCAL DragShowNolock(BOOL bShow);
  static CImageList* PASCAL GetDragImage(LPPOINT lpPoint, LPPOINT lpPointHotSpot);
  static BOOL PASCAL DragEnter(CWnd* pWndLock, CPoint point);
  static BOOL PASCAL DragLeave(CWnd* pWndLock);

private:
  CImageList(const CImageList&);
  void operator=(const CImageList&);
};

// ---- System-colour bitmaps --------------------------------------------------

// Loads a bitmap resource with a colour table and maps MFC's four standard
// colours to the current system colours: black to COLOR_BTNTEXT, dark grey
// to COLOR_BTNSHADOW, light grey to COLOR_BTNFACE and white to
// COLOR_BTNHIGHLIGHT. bMono makes a monochrome bitmap. NULL on failure
// (no resource, a bitmap without a colour table, corrupt data).
AFX_API HBITMAP AFXAPI AfxLoadSysColorBitmap(HINSTANCE hInst, HRSRC hRsrc, BOOL bMono = FALSE);

#endif // AFXGDI__H
