// CGdiObject and the GDI object classes: pens, brushes, fonts, bitmaps,
// regions and palettes.
#include <afxwin.h>
#include <afxgdi_.h>
#include "handlemap.h"

IMPLEMENT_DYNCREATE(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)
IMPLEMENT_DYNAMIC(CPalette, CGdiObject)

// ---- CGdiObject and its handle map ------------------------------------------

static void PASCAL SetGdiHandle(CObject* pObject, HANDLE hHandle) {
  static_cast<CGdiObject*>(pObject)->m_hObject = (HGDIOBJ)hHandle;
}

static CHandleMap* GdiMap(BOOL bCreate) {
  return AfxGetHandleMap(afxMapKindHGDIOBJ, RUNTIME_CLASS(CGdiObject), SetGdiHandle, bCreate);
}

CGdiObject::~CGdiObject() { DeleteObject(); }

CGdiObject* PASCAL CGdiObject::FromHandle(HGDIOBJ hObject) {
  if (hObject == NULL) return NULL;
  return static_cast<CGdiObject*>(GdiMap(TRUE)->FromHandle(hObject));
}

void PASCAL CGdiObject::DeleteTempMap() {
  CHandleMap* pMap = GdiMap(FALSE);
  if (pMap != NULL) pMap->DeleteTemp();
}

BOOL CGdiObject::Attach(HGDIOBJ hObject) {
  ASSERT(m_hObject == NULL);
  if (hObject == NULL) return FALSE;
  // The map may throw CMemoryException; the object must not then claim a
  // handle the map does not know.
  GdiMap(TRUE)->SetPermanent(hObject, this);
  m_hObject = hObject;
  return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
  HGDIOBJ hObject = m_hObject;
  if (hObject != NULL) {
    CHandleMap* pMap = GdiMap(FALSE);
    if (pMap != NULL) pMap->RemoveHandle(hObject);
  }
  m_hObject = NULL;
  return hObject;
}

BOOL CGdiObject::DeleteObject() {
  if (m_hObject == NULL) return FALSE;
  return ::DeleteObject(Detach());
}

int CGdiObject::GetObject(int nCount, LPVOID lpObject) const {
  if (m_hObject == NULL) return 0;
  return ::GetObject(m_hObject, nCount, lpObject);
}

UINT CGdiObject::GetObjectType() const { return (UINT)::GetObjectType(m_hObject); }

BOOL CGdiObject::CreateStockObject(int nIndex) { return Attach(::GetStockObject(nIndex)); }

BOOL CGdiObject::UnrealizeObject() { return ::UnrealizeObject(m_hObject); }

// ---- CPen -------------------------------------------------------------------

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor) {
  if (!CreatePen(nPenStyle, nWidth, crColor)) AfxThrowResourceException();
}

CPen::CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount,
           const DWORD* lpStyle) {
  if (!CreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle)) AfxThrowResourceException();
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, COLORREF crColor) {
  return Attach(::CreatePen(nPenStyle, nWidth, crColor));
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount,
                     const DWORD* lpStyle) {
  if (pLogBrush == NULL) return FALSE;
  return Attach(::ExtCreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle));
}

BOOL CPen::CreatePenIndirect(LPLOGPEN lpLogPen) {
  if (lpLogPen == NULL) return FALSE;
  return Attach(::CreatePenIndirect(lpLogPen));
}

// ---- CBrush -----------------------------------------------------------------

CBrush::CBrush(COLORREF crColor) {
  if (!CreateSolidBrush(crColor)) AfxThrowResourceException();
}

CBrush::CBrush(int nIndex, COLORREF crColor) {
  if (!CreateHatchBrush(nIndex, crColor)) AfxThrowResourceException();
}

CBrush::CBrush(CBitmap* pBitmap) {
  if (!CreatePatternBrush(pBitmap)) AfxThrowResourceException();
}

BOOL CBrush::CreateSolidBrush(COLORREF crColor) { return Attach(::CreateSolidBrush(crColor)); }

BOOL CBrush::CreateHatchBrush(int nIndex, COLORREF crColor) {
  return Attach(::CreateHatchBrush(nIndex, crColor));
}

BOOL CBrush::CreateBrushIndirect(const LOGBRUSH* lpLogBrush) {
  if (lpLogBrush == NULL) return FALSE;
  return Attach(::CreateBrushIndirect(lpLogBrush));
}

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap) {
  HBITMAP hBitmap = (HBITMAP)pBitmap->GetSafeHandle();
  if (hBitmap == NULL) return FALSE;
  return Attach(::CreatePatternBrush(hBitmap));
}

BOOL CBrush::CreateDIBPatternBrush(HGLOBAL hPackedDIB, UINT nUsage) {
  if (hPackedDIB == NULL) return FALSE;
  const void* lpPackedDIB = ::GlobalLock(hPackedDIB);
  if (lpPackedDIB == NULL) return FALSE;
  BOOL bResult = Attach(::CreateDIBPatternBrushPt(lpPackedDIB, nUsage));
  ::GlobalUnlock(hPackedDIB);
  return bResult;
}

BOOL CBrush::CreateDIBPatternBrush(const void* lpPackedDIB, UINT nUsage) {
  if (lpPackedDIB == NULL) return FALSE;
  return Attach(::CreateDIBPatternBrushPt(lpPackedDIB, nUsage));
}

// The system's own brush: deleting it later is harmless (Windows ignores it).
BOOL CBrush::CreateSysColorBrush(int nIndex) { return Attach(::GetSysColorBrush(nIndex)); }

// ---- CFont ------------------------------------------------------------------

BOOL CFont::CreateFontIndirect(const LOGFONT* lpLogFont) {
  if (lpLogFont == NULL) return FALSE;
  return Attach(::CreateFontIndirect(lpLogFont));
}

BOOL CFont::CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight,
                       BYTE bItalic, BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet,
                       BYTE nOutPrecision, BYTE nClipPrecision, BYTE nQuality, BYTE nPitchAndFamily,
                       LPCTSTR lpszFacename) {
  return Attach(::CreateFont(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic,
                             bUnderline, cStrikeOut, nCharSet, nOutPrecision, nClipPrecision,
                             nQuality, nPitchAndFamily, lpszFacename));
}

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC) {
  LOGFONT logFont;
  memset(&logFont, 0, sizeof(logFont));
  logFont.lfCharSet = DEFAULT_CHARSET;
  logFont.lfHeight = nPointSize;
  // An over-long face name is cut to the LOGFONT's 32 characters.
  if (lpszFaceName != NULL) lstrcpyn(logFont.lfFaceName, lpszFaceName, LF_FACESIZE);
  return CreatePointFontIndirect(&logFont, pDC);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC) {
  if (lpLogFont == NULL) return FALSE;
  HDC hDC = pDC != NULL ? pDC->m_hAttribDC : NULL;
  const bool bScreen = hDC == NULL;
  if (bScreen) hDC = ::GetDC(NULL);

  // Tenths of a point to device pixels (720 per inch), then the height of
  // that many pixels in the DC's logical units, as a character height.
  LOGFONT logFont = *lpLogFont;
  POINT pt;
  pt.x = 0;
  pt.y = ::MulDiv(::GetDeviceCaps(hDC, LOGPIXELSY), logFont.lfHeight, 720);
  ::DPtoLP(hDC, &pt, 1);
  POINT ptOrg = {0, 0};
  ::DPtoLP(hDC, &ptOrg, 1);
  logFont.lfHeight = -abs(pt.y - ptOrg.y);

  if (bScreen) ::ReleaseDC(NULL, hDC);
  return CreateFontIndirect(&logFont);
}

// ---- CBitmap ----------------------------------------------------------------

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName) {
  HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, RT_BITMAP);
  return Attach(::LoadBitmap(hInst, lpszResourceName));
}

BOOL CBitmap::LoadOEMBitmap(UINT nIDBitmap) {
  return Attach(::LoadBitmap(NULL, MAKEINTRESOURCE(nIDBitmap)));
}

BOOL CBitmap::LoadMappedBitmap(UINT nIDBitmap, UINT nFlags, LPCOLORMAP lpColorMap, int nMapSize) {
  HINSTANCE hInst = AfxFindResourceHandle(MAKEINTRESOURCE(nIDBitmap), RT_BITMAP);
  return Attach(::CreateMappedBitmap(hInst, nIDBitmap, (WORD)nFlags, lpColorMap, nMapSize));
}

BOOL CBitmap::CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount,
                           const void* lpBits) {
  return Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
}

BOOL CBitmap::CreateBitmapIndirect(LPBITMAP lpBitmap) {
  if (lpBitmap == NULL) return FALSE;
  return Attach(::CreateBitmapIndirect(lpBitmap));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight) {
  HDC hDC = pDC->GetSafeHdc();
  if (hDC == NULL) return FALSE;
  return Attach(::CreateCompatibleBitmap(hDC, nWidth, nHeight));
}

BOOL CBitmap::CreateDiscardableBitmap(CDC* pDC, int nWidth, int nHeight) {
  HDC hDC = pDC->GetSafeHdc();
  if (hDC == NULL) return FALSE;
  return Attach(::CreateDiscardableBitmap(hDC, nWidth, nHeight));
}

DWORD CBitmap::SetBitmapBits(DWORD dwCount, const void* lpBits) {
  return ::SetBitmapBits((HBITMAP)m_hObject, dwCount, lpBits);
}

DWORD CBitmap::GetBitmapBits(DWORD dwCount, LPVOID lpBits) const {
  return ::GetBitmapBits((HBITMAP)m_hObject, dwCount, lpBits);
}

CSize CBitmap::SetBitmapDimension(int nWidth, int nHeight) {
  SIZE size = {0, 0};
  ::SetBitmapDimensionEx((HBITMAP)m_hObject, nWidth, nHeight, &size);
  return size;
}

CSize CBitmap::GetBitmapDimension() const {
  SIZE size = {0, 0};
  ::GetBitmapDimensionEx((HBITMAP)m_hObject, &size);
  return size;
}

// ---- CRgn -------------------------------------------------------------------

BOOL CRgn::CreateRectRgn(int x1, int y1, int x2, int y2) {
  return Attach(::CreateRectRgn(x1, y1, x2, y2));
}

BOOL CRgn::CreateRectRgnIndirect(LPCRECT lpRect) {
  if (lpRect == NULL) return FALSE;
  return Attach(::CreateRectRgnIndirect(lpRect));
}

BOOL CRgn::CreateEllipticRgn(int x1, int y1, int x2, int y2) {
  return Attach(::CreateEllipticRgn(x1, y1, x2, y2));
}

BOOL CRgn::CreateEllipticRgnIndirect(LPCRECT lpRect) {
  if (lpRect == NULL) return FALSE;
  return Attach(::CreateEllipticRgnIndirect(lpRect));
}

BOOL CRgn::CreatePolygonRgn(LPPOINT lpPoints, int nCount, int nMode) {
  if (lpPoints == NULL || nCount <= 0) return FALSE;
  return Attach(::CreatePolygonRgn(lpPoints, nCount, nMode));
}

BOOL CRgn::CreatePolyPolygonRgn(LPPOINT lpPoints, LPINT lpPolyCounts, int nCount,
                                int nPolyFillMode) {
  if (lpPoints == NULL || lpPolyCounts == NULL || nCount <= 0) return FALSE;
  return Attach(::CreatePolyPolygonRgn(lpPoints, lpPolyCounts, nCount, nPolyFillMode));
}

BOOL CRgn::CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3) {
  return Attach(::CreateRoundRectRgn(x1, y1, x2, y2, x3, y3));
}

BOOL CRgn::CreateFromPath(CDC* pDC) {
  HDC hDC = pDC->GetSafeHdc();
  if (hDC == NULL) return FALSE;
  return Attach(::PathToRegion(hDC));
}

BOOL CRgn::CreateFromData(const XFORM* lpXForm, int nCount, const RGNDATA* pRgnData) {
  if (pRgnData == NULL) return FALSE;
  return Attach(::ExtCreateRegion(lpXForm, nCount, pRgnData));
}

void CRgn::SetRectRgn(int x1, int y1, int x2, int y2) {
  ::SetRectRgn((HRGN)m_hObject, x1, y1, x2, y2);
}

void CRgn::SetRectRgn(LPCRECT lpRect) {
  if (lpRect != NULL)
    ::SetRectRgn((HRGN)m_hObject, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CRgn::CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode) {
  return ::CombineRgn((HRGN)m_hObject, (HRGN)pRgn1->GetSafeHandle(), (HRGN)pRgn2->GetSafeHandle(),
                      nCombineMode);
}

int CRgn::CopyRgn(const CRgn* pRgnSrc) {
  return ::CombineRgn((HRGN)m_hObject, (HRGN)pRgnSrc->GetSafeHandle(), NULL, RGN_COPY);
}

BOOL CRgn::EqualRgn(const CRgn* pRgn) const {
  return ::EqualRgn((HRGN)m_hObject, (HRGN)pRgn->GetSafeHandle());
}

int CRgn::OffsetRgn(int x, int y) { return ::OffsetRgn((HRGN)m_hObject, x, y); }

int CRgn::OffsetRgn(POINT point) { return ::OffsetRgn((HRGN)m_hObject, point.x, point.y); }

int CRgn::GetRgnBox(LPRECT lpRect) const { return ::GetRgnBox((HRGN)m_hObject, lpRect); }

BOOL CRgn::PtInRegion(int x, int y) const { return ::PtInRegion((HRGN)m_hObject, x, y); }

BOOL CRgn::PtInRegion(POINT point) const { return ::PtInRegion((HRGN)m_hObject, point.x, point.y); }

BOOL CRgn::RectInRegion(LPCRECT lpRect) const { return ::RectInRegion((HRGN)m_hObject, lpRect); }

int CRgn::GetRegionData(LPRGNDATA lpRgnData, int nCount) const {
  return (int)::GetRegionData((HRGN)m_hObject, nCount, lpRgnData);
}

// ---- CPalette ---------------------------------------------------------------

BOOL CPalette::CreatePalette(LPLOGPALETTE lpLogPalette) {
  if (lpLogPalette == NULL) return FALSE;
  return Attach(::CreatePalette(lpLogPalette));
}

BOOL CPalette::CreateHalftonePalette(CDC* pDC) {
  HDC hDC = pDC->GetSafeHdc();
  if (hDC == NULL) return FALSE;
  return Attach(::CreateHalftonePalette(hDC));
}

int CPalette::GetEntryCount() {
  WORD nEntries = 0;
  if (m_hObject == NULL || ::GetObject(m_hObject, sizeof(WORD), &nEntries) == 0) return 0;
  return (int)nEntries;
}

UINT CPalette::GetPaletteEntries(UINT nStartIndex, UINT nNumEntries,
                                 LPPALETTEENTRY lpPaletteColors) const {
  return ::GetPaletteEntries((HPALETTE)m_hObject, nStartIndex, nNumEntries, lpPaletteColors);
}

UINT CPalette::SetPaletteEntries(UINT nStartIndex, UINT nNumEntries,
                                 LPPALETTEENTRY lpPaletteColors) {
  return ::SetPaletteEntries((HPALETTE)m_hObject, nStartIndex, nNumEntries, lpPaletteColors);
}

void CPalette::AnimatePalette(UINT nStartIndex, UINT nNumEntries, LPPALETTEENTRY lpPaletteColors) {
  ::AnimatePalette((HPALETTE)m_hObject, nStartIndex, nNumEntries, lpPaletteColors);
}

UINT CPalette::GetNearestPaletteIndex(COLORREF crColor) const {
  return ::GetNearestPaletteIndex((HPALETTE)m_hObject, crColor);
}

BOOL CPalette::ResizePalette(UINT nNumEntries) {
  return ::ResizePalette((HPALETTE)m_hObject, nNumEntries);
}
