// CDC: the device context with its output handle (m_hDC) and attribute
// handle (m_hAttribDC).
//
// Which handle each call uses follows MFC: drawing and output go to m_hDC;
// queries of the DC's state read m_hAttribDC; calls that change state go to
// m_hDC first (when it differs) and then to m_hAttribDC, returning what the
// attribute DC reported.
//
// Members that read a rectangle or size through a pointer do nothing with
// NULL (MFC would fault): a clear failure rather than a crash.
#include <afxwin.h>
#include <afxgdi_.h>
#include "handlemap.h"

IMPLEMENT_DYNCREATE(CDC, CObject)

// ---- Handles and the handle map ---------------------------------------------

static void PASCAL SetDCHandle(CObject* pObject, HANDLE hHandle) {
  CDC* pDC = static_cast<CDC*>(pObject);
  pDC->m_hDC = (HDC)hHandle;
  pDC->m_hAttribDC = (HDC)hHandle;
}

static CHandleMap* DCMap(BOOL bCreate) {
  return AfxGetHandleMap(afxMapKindHDC, RUNTIME_CLASS(CDC), SetDCHandle, bCreate);
}

CDC::CDC() : m_hDC(NULL), m_hAttribDC(NULL), m_bPrinting(FALSE) {}

CDC::~CDC() {
  if (m_hDC != NULL) ::DeleteDC(Detach());
}

CDC* PASCAL CDC::FromHandle(HDC hDC) {
  if (hDC == NULL) return NULL;
  return static_cast<CDC*>(DCMap(TRUE)->FromHandle(hDC));
}

void PASCAL CDC::DeleteTempMap() {
  CHandleMap* pMap = DCMap(FALSE);
  if (pMap != NULL) pMap->DeleteTemp();
}

BOOL CDC::Attach(HDC hDC) {
  ASSERT(m_hDC == NULL);
  if (hDC == NULL) return FALSE;
  DCMap(TRUE)->SetPermanent(hDC, this);
  m_hDC = hDC;
  SetAttribDC(m_hDC); // the same handle serves both by default
  return TRUE;
}

HDC CDC::Detach() {
  HDC hDC = m_hDC;
  if (hDC != NULL) {
    CHandleMap* pMap = DCMap(FALSE);
    if (pMap != NULL) pMap->RemoveHandle(hDC);
  }
  ReleaseAttribDC();
  m_hDC = NULL;
  return hDC;
}

void CDC::SetAttribDC(HDC hDC) { m_hAttribDC = hDC; }
void CDC::SetOutputDC(HDC hDC) { m_hDC = hDC; }
void CDC::ReleaseAttribDC() { m_hAttribDC = NULL; }
void CDC::ReleaseOutputDC() { m_hDC = NULL; }

BOOL CDC::CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput,
                   const void* lpInitData) {
  return Attach(::CreateDC(lpszDriverName, lpszDeviceName, lpszOutput, (const DEVMODE*)lpInitData));
}

BOOL CDC::CreateIC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput,
                   const void* lpInitData) {
  return Attach(::CreateIC(lpszDriverName, lpszDeviceName, lpszOutput, (const DEVMODE*)lpInitData));
}

BOOL CDC::CreateCompatibleDC(CDC* pDC) { return Attach(::CreateCompatibleDC(pDC->GetSafeHdc())); }

BOOL CDC::DeleteDC() {
  if (m_hDC == NULL) return FALSE;
  return ::DeleteDC(Detach());
}

// ---- Device state -----------------------------------------------------------

// With two different DCs no single level number restores both, so the
// result is -1 (restore the most recent state), the only value that fits.
int CDC::SaveDC() {
  int nRetVal = 0;
  if (m_hAttribDC != NULL) nRetVal = ::SaveDC(m_hAttribDC);
  if (m_hDC != m_hAttribDC && ::SaveDC(m_hDC) != 0) nRetVal = -1;
  return nRetVal;
}

BOOL CDC::RestoreDC(int nSavedDC) {
  BOOL bRetVal = TRUE;
  if (m_hDC != m_hAttribDC) bRetVal = ::RestoreDC(m_hDC, nSavedDC);
  if (m_hAttribDC != NULL) bRetVal = (bRetVal && ::RestoreDC(m_hAttribDC, nSavedDC));
  return bRetVal;
}

int CDC::GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hAttribDC, nIndex); }

UINT CDC::SetBoundsRect(LPCRECT lpRectBounds, UINT flags) {
  return ::SetBoundsRect(m_hDC, lpRectBounds, flags);
}

UINT CDC::GetBoundsRect(LPRECT lpRectBounds, UINT flags) {
  return ::GetBoundsRect(m_hAttribDC, lpRectBounds, flags);
}

BOOL CDC::ResetDC(const DEVMODE* lpDevMode) { return ::ResetDC(m_hAttribDC, lpDevMode) != NULL; }

CPoint CDC::GetBrushOrg() const {
  POINT point = {0, 0};
  ::GetBrushOrgEx(m_hDC, &point);
  return point;
}

CPoint CDC::SetBrushOrg(int x, int y) {
  POINT point = {0, 0};
  ::SetBrushOrgEx(m_hDC, x, y, &point);
  return point;
}

CPoint CDC::SetBrushOrg(POINT point) { return SetBrushOrg(point.x, point.y); }

int CDC::EnumObjects(int nObjectType, int(CALLBACK* lpfn)(LPVOID, LPARAM), LPARAM lpData) {
  return ::EnumObjects(m_hAttribDC, nObjectType, (GOBJENUMPROC)lpfn, lpData);
}

// ---- Selection --------------------------------------------------------------

HGDIOBJ CDC::SelectObject(HGDIOBJ hObject) {
  HGDIOBJ hOldObj = NULL;
  if (m_hDC != m_hAttribDC) hOldObj = ::SelectObject(m_hDC, hObject);
  if (m_hAttribDC != NULL) hOldObj = ::SelectObject(m_hAttribDC, hObject);
  return hOldObj;
}

CGdiObject* CDC::SelectStockObject(int nIndex) {
  HGDIOBJ hObject = ::GetStockObject(nIndex);
  if (hObject == NULL) return NULL;
  return CGdiObject::FromHandle(SelectObject(hObject));
}

CPen* CDC::SelectObject(CPen* pPen) {
  return (CPen*)CGdiObject::FromHandle(SelectObject(pPen->GetSafeHandle()));
}

CBrush* CDC::SelectObject(CBrush* pBrush) {
  return (CBrush*)CGdiObject::FromHandle(SelectObject(pBrush->GetSafeHandle()));
}

CFont* CDC::SelectObject(CFont* pFont) {
  return (CFont*)CGdiObject::FromHandle(SelectObject(pFont->GetSafeHandle()));
}

// A bitmap can be selected into one DC at a time: the output DC.
CBitmap* CDC::SelectObject(CBitmap* pBitmap) {
  if (m_hDC == NULL) return NULL;
  return (CBitmap*)CGdiObject::FromHandle(::SelectObject(m_hDC, pBitmap->GetSafeHandle()));
}

int CDC::SelectObject(CRgn* pRgn) {
  int nRetVal = GDI_ERROR;
  HGDIOBJ hRgn = pRgn->GetSafeHandle();
  if (m_hDC != m_hAttribDC) nRetVal = (int)(INT_PTR)::SelectObject(m_hDC, hRgn);
  if (m_hAttribDC != NULL) nRetVal = (int)(INT_PTR)::SelectObject(m_hAttribDC, hRgn);
  return nRetVal;
}

CGdiObject* CDC::SelectObject(CGdiObject* pObject) {
  return CGdiObject::FromHandle(SelectObject(pObject->GetSafeHandle()));
}

COLORREF CDC::GetNearestColor(COLORREF crColor) const {
  return ::GetNearestColor(m_hAttribDC, crColor);
}

CPalette* CDC::SelectPalette(CPalette* pPalette, BOOL bForceBackground) {
  return CPalette::FromHandle(
      ::SelectPalette(m_hDC, (HPALETTE)pPalette->GetSafeHandle(), bForceBackground));
}

UINT CDC::RealizePalette() { return ::RealizePalette(m_hDC); }

void CDC::UpdateColors() { ::UpdateColors(m_hDC); }

CPen* CDC::GetCurrentPen() const {
  return CPen::FromHandle((HPEN)::GetCurrentObject(m_hDC, OBJ_PEN));
}

CBrush* CDC::GetCurrentBrush() const {
  return CBrush::FromHandle((HBRUSH)::GetCurrentObject(m_hDC, OBJ_BRUSH));
}

CPalette* CDC::GetCurrentPalette() const {
  return CPalette::FromHandle((HPALETTE)::GetCurrentObject(m_hDC, OBJ_PAL));
}

CFont* CDC::GetCurrentFont() const {
  return CFont::FromHandle((HFONT)::GetCurrentObject(m_hDC, OBJ_FONT));
}

CBitmap* CDC::GetCurrentBitmap() const {
  return CBitmap::FromHandle((HBITMAP)::GetCurrentObject(m_hDC, OBJ_BITMAP));
}

// ---- Attributes -------------------------------------------------------------

COLORREF CDC::GetBkColor() const { return ::GetBkColor(m_hAttribDC); }
int CDC::GetBkMode() const { return ::GetBkMode(m_hAttribDC); }
int CDC::GetPolyFillMode() const { return ::GetPolyFillMode(m_hAttribDC); }
int CDC::GetROP2() const { return ::GetROP2(m_hAttribDC); }
int CDC::GetStretchBltMode() const { return ::GetStretchBltMode(m_hAttribDC); }
COLORREF CDC::GetTextColor() const { return ::GetTextColor(m_hAttribDC); }

COLORREF CDC::SetBkColor(COLORREF crColor) {
  COLORREF crOld = CLR_INVALID;
  if (m_hDC != m_hAttribDC) crOld = ::SetBkColor(m_hDC, crColor);
  if (m_hAttribDC != NULL) crOld = ::SetBkColor(m_hAttribDC, crColor);
  return crOld;
}

int CDC::SetBkMode(int nBkMode) {
  int nRetVal = 0;
  if (m_hDC != m_hAttribDC) nRetVal = ::SetBkMode(m_hDC, nBkMode);
  if (m_hAttribDC != NULL) nRetVal = ::SetBkMode(m_hAttribDC, nBkMode);
  return nRetVal;
}

int CDC::SetPolyFillMode(int nPolyFillMode) {
  int nRetVal = 0;
  if (m_hDC != m_hAttribDC) nRetVal = ::SetPolyFillMode(m_hDC, nPolyFillMode);
  if (m_hAttribDC != NULL) nRetVal = ::SetPolyFillMode(m_hAttribDC, nPolyFillMode);
  return nRetVal;
}

int CDC::SetROP2(int nDrawMode) {
  int nRetVal = 0;
  if (m_hDC != m_hAttribDC) nRetVal = ::SetROP2(m_hDC, nDrawMode);
  if (m_hAttribDC != NULL) nRetVal = ::SetROP2(m_hAttribDC, nDrawMode);
  return nRetVal;
}

int CDC::SetStretchBltMode(int nStretchMode) {
  int nRetVal = 0;
  if (m_hDC != m_hAttribDC) nRetVal = ::SetStretchBltMode(m_hDC, nStretchMode);
  if (m_hAttribDC != NULL) nRetVal = ::SetStretchBltMode(m_hAttribDC, nStretchMode);
  return nRetVal;
}

COLORREF CDC::SetTextColor(COLORREF crColor) {
  COLORREF crOld = CLR_INVALID;
  if (m_hDC != m_hAttribDC) crOld = ::SetTextColor(m_hDC, crColor);
  if (m_hAttribDC != NULL) crOld = ::SetTextColor(m_hAttribDC, crColor);
  return crOld;
}

// ---- Mapping modes ----------------------------------------------------------

int CDC::GetMapMode() const { return ::GetMapMode(m_hAttribDC); }

int CDC::SetMapMode(int nMapMode) {
  int nRetVal = 0;
  if (m_hDC != m_hAttribDC) nRetVal = ::SetMapMode(m_hDC, nMapMode);
  if (m_hAttribDC != NULL) nRetVal = ::SetMapMode(m_hAttribDC, nMapMode);
  return nRetVal;
}

CPoint CDC::GetViewportOrg() const {
  POINT point = {0, 0};
  ::GetViewportOrgEx(m_hAttribDC, &point);
  return point;
}

CPoint CDC::SetViewportOrg(int x, int y) {
  POINT point = {0, 0};
  if (m_hDC != m_hAttribDC) ::SetViewportOrgEx(m_hDC, x, y, &point);
  if (m_hAttribDC != NULL) ::SetViewportOrgEx(m_hAttribDC, x, y, &point);
  return point;
}

CPoint CDC::SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }

CPoint CDC::OffsetViewportOrg(int nWidth, int nHeight) {
  POINT point = {0, 0};
  if (m_hDC != m_hAttribDC) ::OffsetViewportOrgEx(m_hDC, nWidth, nHeight, &point);
  if (m_hAttribDC != NULL) ::OffsetViewportOrgEx(m_hAttribDC, nWidth, nHeight, &point);
  return point;
}

CSize CDC::GetViewportExt() const {
  SIZE size = {0, 0};
  ::GetViewportExtEx(m_hAttribDC, &size);
  return size;
}

CSize CDC::SetViewportExt(int cx, int cy) {
  SIZE size = {0, 0};
  if (m_hDC != m_hAttribDC) ::SetViewportExtEx(m_hDC, cx, cy, &size);
  if (m_hAttribDC != NULL) ::SetViewportExtEx(m_hAttribDC, cx, cy, &size);
  return size;
}

CSize CDC::SetViewportExt(SIZE size) { return SetViewportExt(size.cx, size.cy); }

CSize CDC::ScaleViewportExt(int xNum, int xDenom, int yNum, int yDenom) {
  SIZE size = {0, 0};
  if (m_hDC != m_hAttribDC) ::ScaleViewportExtEx(m_hDC, xNum, xDenom, yNum, yDenom, &size);
  if (m_hAttribDC != NULL) ::ScaleViewportExtEx(m_hAttribDC, xNum, xDenom, yNum, yDenom, &size);
  return size;
}

CPoint CDC::GetWindowOrg() const {
  POINT point = {0, 0};
  ::GetWindowOrgEx(m_hAttribDC, &point);
  return point;
}

CPoint CDC::SetWindowOrg(int x, int y) {
  POINT point = {0, 0};
  if (m_hDC != m_hAttribDC) ::SetWindowOrgEx(m_hDC, x, y, &point);
  if (m_hAttribDC != NULL) ::SetWindowOrgEx(m_hAttribDC, x, y, &point);
  return point;
}

CPoint CDC::SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }

CPoint CDC::OffsetWindowOrg(int nWidth, int nHeight) {
  POINT point = {0, 0};
  if (m_hDC != m_hAttribDC) ::OffsetWindowOrgEx(m_hDC, nWidth, nHeight, &point);
  if (m_hAttribDC != NULL) ::OffsetWindowOrgEx(m_hAttribDC, nWidth, nHeight, &point);
  return point;
}

CSize CDC::GetWindowExt() const {
  SIZE size = {0, 0};
  ::GetWindowExtEx(m_hAttribDC, &size);
  return size;
}

CSize CDC::SetWindowExt(int cx, int cy) {
  SIZE size = {0, 0};
  if (m_hDC != m_hAttribDC) ::SetWindowExtEx(m_hDC, cx, cy, &size);
  if (m_hAttribDC != NULL) ::SetWindowExtEx(m_hAttribDC, cx, cy, &size);
  return size;
}

CSize CDC::SetWindowExt(SIZE size) { return SetWindowExt(size.cx, size.cy); }

CSize CDC::ScaleWindowExt(int xNum, int xDenom, int yNum, int yDenom) {
  SIZE size = {0, 0};
  if (m_hDC != m_hAttribDC) ::ScaleWindowExtEx(m_hDC, xNum, xDenom, yNum, yDenom, &size);
  if (m_hAttribDC != NULL) ::ScaleWindowExtEx(m_hAttribDC, xNum, xDenom, yNum, yDenom, &size);
  return size;
}

// ---- Co-ordinate conversion -------------------------------------------------

void CDC::DPtoLP(LPPOINT lpPoints, int nCount) const { ::DPtoLP(m_hAttribDC, lpPoints, nCount); }

void CDC::DPtoLP(LPRECT lpRect) const { ::DPtoLP(m_hAttribDC, (LPPOINT)lpRect, 2); }

// A size has no origin: only the ratio of the extents applies.
void CDC::DPtoLP(LPSIZE lpSize) const {
  if (lpSize == NULL) return;
  CSize sizeWinExt = GetWindowExt();
  CSize sizeVpExt = GetViewportExt();
  if (sizeVpExt.cx == 0 || sizeVpExt.cy == 0) return;
  lpSize->cx = ::MulDiv(lpSize->cx, abs(sizeWinExt.cx), abs(sizeVpExt.cx));
  lpSize->cy = ::MulDiv(lpSize->cy, abs(sizeWinExt.cy), abs(sizeVpExt.cy));
}

void CDC::LPtoDP(LPPOINT lpPoints, int nCount) const { ::LPtoDP(m_hAttribDC, lpPoints, nCount); }

void CDC::LPtoDP(LPRECT lpRect) const { ::LPtoDP(m_hAttribDC, (LPPOINT)lpRect, 2); }

void CDC::LPtoDP(LPSIZE lpSize) const {
  if (lpSize == NULL) return;
  CSize sizeWinExt = GetWindowExt();
  CSize sizeVpExt = GetViewportExt();
  if (sizeWinExt.cx == 0 || sizeWinExt.cy == 0) return;
  lpSize->cx = ::MulDiv(lpSize->cx, abs(sizeVpExt.cx), abs(sizeWinExt.cx));
  lpSize->cy = ::MulDiv(lpSize->cy, abs(sizeVpExt.cy), abs(sizeWinExt.cy));
}

// HIMETRIC units are 0.01 mm: 2540 to the inch.
static const int HIMETRIC_INCH = 2540;

void CDC::DPtoHIMETRIC(LPSIZE lpSize) const {
  if (lpSize == NULL) return;
  int cxPerInch = GetDeviceCaps(LOGPIXELSX);
  int cyPerInch = GetDeviceCaps(LOGPIXELSY);
  if (cxPerInch == 0 || cyPerInch == 0) return;
  lpSize->cx = ::MulDiv(lpSize->cx, HIMETRIC_INCH, cxPerInch);
  lpSize->cy = ::MulDiv(lpSize->cy, HIMETRIC_INCH, cyPerInch);
}

void CDC::HIMETRICtoDP(LPSIZE lpSize) const {
  if (lpSize == NULL) return;
  int cxPerInch = GetDeviceCaps(LOGPIXELSX);
  int cyPerInch = GetDeviceCaps(LOGPIXELSY);
  lpSize->cx = ::MulDiv(lpSize->cx, cxPerInch, HIMETRIC_INCH);
  lpSize->cy = ::MulDiv(lpSize->cy, cyPerInch, HIMETRIC_INCH);
}

void CDC::LPtoHIMETRIC(LPSIZE lpSize) const {
  LPtoDP(lpSize);
  DPtoHIMETRIC(lpSize);
}

void CDC::HIMETRICtoLP(LPSIZE lpSize) const {
  HIMETRICtoDP(lpSize);
  DPtoLP(lpSize);
}

// ---- Regions and clipping ---------------------------------------------------

BOOL CDC::FillRgn(CRgn* pRgn, CBrush* pBrush) {
  return ::FillRgn(m_hDC, (HRGN)pRgn->GetSafeHandle(), (HBRUSH)pBrush->GetSafeHandle());
}

BOOL CDC::FrameRgn(CRgn* pRgn, CBrush* pBrush, int nWidth, int nHeight) {
  return ::FrameRgn(m_hDC, (HRGN)pRgn->GetSafeHandle(), (HBRUSH)pBrush->GetSafeHandle(), nWidth,
                    nHeight);
}

BOOL CDC::InvertRgn(CRgn* pRgn) { return ::InvertRgn(m_hDC, (HRGN)pRgn->GetSafeHandle()); }

BOOL CDC::PaintRgn(CRgn* pRgn) { return ::PaintRgn(m_hDC, (HRGN)pRgn->GetSafeHandle()); }

int CDC::GetClipBox(LPRECT lpRect) const { return ::GetClipBox(m_hDC, lpRect); }

BOOL CDC::PtVisible(int x, int y) const { return ::PtVisible(m_hDC, x, y); }

BOOL CDC::PtVisible(POINT point) const { return PtVisible(point.x, point.y); }

BOOL CDC::RectVisible(LPCRECT lpRect) const { return ::RectVisible(m_hDC, lpRect); }

int CDC::SelectClipRgn(CRgn* pRgn) {
  int nRetVal = ERROR;
  HRGN hRgn = (HRGN)pRgn->GetSafeHandle();
  if (m_hDC != m_hAttribDC) nRetVal = ::SelectClipRgn(m_hDC, hRgn);
  if (m_hAttribDC != NULL) nRetVal = ::SelectClipRgn(m_hAttribDC, hRgn);
  return nRetVal;
}

int CDC::SelectClipRgn(CRgn* pRgn, int nMode) {
  int nRetVal = ERROR;
  HRGN hRgn = (HRGN)pRgn->GetSafeHandle();
  if (m_hDC != m_hAttribDC) nRetVal = ::ExtSelectClipRgn(m_hDC, hRgn, nMode);
  if (m_hAttribDC != NULL) nRetVal = ::ExtSelectClipRgn(m_hAttribDC, hRgn, nMode);
  return nRetVal;
}

int CDC::ExcludeClipRect(int x1, int y1, int x2, int y2) {
  int nRetVal = ERROR;
  if (m_hDC != m_hAttribDC) nRetVal = ::ExcludeClipRect(m_hDC, x1, y1, x2, y2);
  if (m_hAttribDC != NULL) nRetVal = ::ExcludeClipRect(m_hAttribDC, x1, y1, x2, y2);
  return nRetVal;
}

int CDC::ExcludeClipRect(LPCRECT lpRect) {
  if (lpRect == NULL) return ERROR;
  return ExcludeClipRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CDC::IntersectClipRect(int x1, int y1, int x2, int y2) {
  int nRetVal = ERROR;
  if (m_hDC != m_hAttribDC) nRetVal = ::IntersectClipRect(m_hDC, x1, y1, x2, y2);
  if (m_hAttribDC != NULL) nRetVal = ::IntersectClipRect(m_hAttribDC, x1, y1, x2, y2);
  return nRetVal;
}

int CDC::IntersectClipRect(LPCRECT lpRect) {
  if (lpRect == NULL) return ERROR;
  return IntersectClipRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CDC::OffsetClipRgn(int x, int y) {
  int nRetVal = ERROR;
  if (m_hDC != m_hAttribDC) nRetVal = ::OffsetClipRgn(m_hDC, x, y);
  if (m_hAttribDC != NULL) nRetVal = ::OffsetClipRgn(m_hAttribDC, x, y);
  return nRetVal;
}

int CDC::OffsetClipRgn(SIZE size) { return OffsetClipRgn(size.cx, size.cy); }

// ---- Lines and shapes -------------------------------------------------------

CPoint CDC::GetCurrentPosition() const {
  POINT point = {0, 0};
  ::GetCurrentPositionEx(m_hAttribDC, &point);
  return point;
}

CPoint CDC::MoveTo(int x, int y) {
  POINT point = {0, 0};
  if (m_hDC != m_hAttribDC) ::MoveToEx(m_hDC, x, y, &point);
  if (m_hAttribDC != NULL) ::MoveToEx(m_hAttribDC, x, y, &point);
  return point;
}

CPoint CDC::MoveTo(POINT point) { return MoveTo(point.x, point.y); }

// The line is drawn on the output DC; the attribute DC's current position
// follows it so that GetCurrentPosition stays right.
BOOL CDC::LineTo(int x, int y) {
  if (m_hAttribDC != NULL && m_hDC != m_hAttribDC) ::MoveToEx(m_hAttribDC, x, y, NULL);
  return ::LineTo(m_hDC, x, y);
}

BOOL CDC::LineTo(POINT point) { return LineTo(point.x, point.y); }

BOOL CDC::Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4) {
  return ::Arc(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
}

BOOL CDC::Arc(LPCRECT lpRect, POINT ptStart, POINT ptEnd) {
  if (lpRect == NULL) return FALSE;
  return ::Arc(m_hDC, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, ptStart.x,
               ptStart.y, ptEnd.x, ptEnd.y);
}

BOOL CDC::Polyline(const POINT* lpPoints, int nCount) {
  return ::Polyline(m_hDC, lpPoints, nCount);
}

BOOL CDC::PolyBezier(const POINT* lpPoints, int nCount) {
  return ::PolyBezier(m_hDC, lpPoints, (DWORD)nCount);
}

void CDC::FillRect(LPCRECT lpRect, CBrush* pBrush) {
  ::FillRect(m_hDC, lpRect, (HBRUSH)pBrush->GetSafeHandle());
}

void CDC::FrameRect(LPCRECT lpRect, CBrush* pBrush) {
  ::FrameRect(m_hDC, lpRect, (HBRUSH)pBrush->GetSafeHandle());
}

void CDC::InvertRect(LPCRECT lpRect) { ::InvertRect(m_hDC, lpRect); }

BOOL CDC::DrawIcon(int x, int y, HICON hIcon) { return ::DrawIcon(m_hDC, x, y, hIcon); }

BOOL CDC::DrawIcon(POINT point, HICON hIcon) { return ::DrawIcon(m_hDC, point.x, point.y, hIcon); }

void CDC::DrawFocusRect(LPCRECT lpRect) { ::DrawFocusRect(m_hDC, lpRect); }

// An opaque empty ExtTextOut fills with the background colour, which is the
// cheapest solid fill GDI offers; the colour stays set afterwards, as in MFC.
void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr) {
  ::SetBkColor(m_hDC, clr);
  ::ExtTextOut(m_hDC, 0, 0, ETO_OPAQUE, lpRect, NULL, 0, NULL);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr) {
  RECT rect = {x, y, x + cx, y + cy};
  FillSolidRect(&rect, clr);
}

void CDC::Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight) {
  if (lpRect == NULL) return;
  Draw3dRect(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top,
             clrTopLeft, clrBottomRight);
}

// Top and left edges stop one pixel short of the far corners, which belong
// to the bottom and right edges.
void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight) {
  FillSolidRect(x, y, cx - 1, 1, clrTopLeft);
  FillSolidRect(x, y, 1, cy - 1, clrTopLeft);
  FillSolidRect(x + cx, y, -1, cy, clrBottomRight);
  FillSolidRect(x, y + cy, cx, -1, clrBottomRight);
}

BOOL CDC::Chord(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4) {
  return ::Chord(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
}

BOOL CDC::Chord(LPCRECT lpRect, POINT ptStart, POINT ptEnd) {
  if (lpRect == NULL) return FALSE;
  return ::Chord(m_hDC, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, ptStart.x,
                 ptStart.y, ptEnd.x, ptEnd.y);
}

BOOL CDC::Ellipse(int x1, int y1, int x2, int y2) { return ::Ellipse(m_hDC, x1, y1, x2, y2); }

BOOL CDC::Ellipse(LPCRECT lpRect) {
  if (lpRect == NULL) return FALSE;
  return ::Ellipse(m_hDC, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

BOOL CDC::Pie(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4) {
  return ::Pie(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
}

BOOL CDC::Pie(LPCRECT lpRect, POINT ptStart, POINT ptEnd) {
  if (lpRect == NULL) return FALSE;
  return ::Pie(m_hDC, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, ptStart.x,
               ptStart.y, ptEnd.x, ptEnd.y);
}

BOOL CDC::Polygon(const POINT* lpPoints, int nCount) { return ::Polygon(m_hDC, lpPoints, nCount); }

BOOL CDC::PolyPolygon(const POINT* lpPoints, const INT* lpPolyCounts, int nCount) {
  return ::PolyPolygon(m_hDC, lpPoints, lpPolyCounts, nCount);
}

BOOL CDC::Rectangle(int x1, int y1, int x2, int y2) { return ::Rectangle(m_hDC, x1, y1, x2, y2); }

BOOL CDC::Rectangle(LPCRECT lpRect) {
  if (lpRect == NULL) return FALSE;
  return ::Rectangle(m_hDC, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

BOOL CDC::RoundRect(int x1, int y1, int x2, int y2, int x3, int y3) {
  return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
}

BOOL CDC::RoundRect(LPCRECT lpRect, POINT point) {
  if (lpRect == NULL) return FALSE;
  return ::RoundRect(m_hDC, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, point.x,
                     point.y);
}

// ---- Bitmaps ----------------------------------------------------------------

BOOL CDC::PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop) {
  return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop);
}

BOOL CDC::BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc,
                 DWORD dwRop) {
  return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, dwRop);
}

BOOL CDC::StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc,
                     int nSrcWidth, int nSrcHeight, DWORD dwRop) {
  return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, nSrcWidth,
                      nSrcHeight, dwRop);
}

COLORREF CDC::GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
COLORREF CDC::GetPixel(POINT point) const { return ::GetPixel(m_hDC, point.x, point.y); }
COLORREF CDC::SetPixel(int x, int y, COLORREF crColor) { return ::SetPixel(m_hDC, x, y, crColor); }
COLORREF CDC::SetPixel(POINT point, COLORREF crColor) {
  return ::SetPixel(m_hDC, point.x, point.y, crColor);
}
BOOL CDC::SetPixelV(int x, int y, COLORREF crColor) { return ::SetPixelV(m_hDC, x, y, crColor); }
BOOL CDC::SetPixelV(POINT point, COLORREF crColor) {
  return ::SetPixelV(m_hDC, point.x, point.y, crColor);
}
BOOL CDC::FloodFill(int x, int y, COLORREF crColor) { return ::FloodFill(m_hDC, x, y, crColor); }
BOOL CDC::ExtFloodFill(int x, int y, COLORREF crColor, UINT nFillType) {
  return ::ExtFloodFill(m_hDC, x, y, crColor, nFillType);
}

// ---- Text -------------------------------------------------------------------

BOOL CDC::TextOut(int x, int y, LPCTSTR lpszString, int nCount) {
  return ::TextOut(m_hDC, x, y, lpszString, nCount);
}

BOOL CDC::TextOut(int x, int y, const CString& str) {
  return TextOut(x, y, (LPCTSTR)str, str.GetLength());
}

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount,
                     LPINT lpDxWidths) {
  return ::ExtTextOut(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
}

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str,
                     LPINT lpDxWidths) {
  return ExtTextOut(x, y, nOptions, lpRect, (LPCTSTR)str, (UINT)str.GetLength(), lpDxWidths);
}

CSize CDC::TabbedTextOut(int x, int y, LPCTSTR lpszString, int nCount, int nTabPositions,
                         LPINT lpnTabStopPositions, int nTabOrigin) {
  LONG lResult = ::TabbedTextOut(m_hDC, x, y, lpszString, nCount, nTabPositions,
                                 lpnTabStopPositions, nTabOrigin);
  return CSize((DWORD)lResult);
}

CSize CDC::TabbedTextOut(int x, int y, const CString& str, int nTabPositions,
                         LPINT lpnTabStopPositions, int nTabOrigin) {
  return TabbedTextOut(x, y, (LPCTSTR)str, str.GetLength(), nTabPositions, lpnTabStopPositions,
                       nTabOrigin);
}

int CDC::DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat) {
  if (lpszString == NULL || lpRect == NULL) return 0;
  return ::DrawText(m_hDC, lpszString, nCount, lpRect, nFormat);
}

int CDC::DrawText(const CString& str, LPRECT lpRect, UINT nFormat) {
  return DrawText((LPCTSTR)str, str.GetLength(), lpRect, nFormat);
}

int CDC::DrawTextEx(LPTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat,
                    LPDRAWTEXTPARAMS lpDTParams) {
  if (lpszString == NULL || lpRect == NULL) return 0;
  return ::DrawTextEx(m_hDC, lpszString, nCount, lpRect, nFormat, lpDTParams);
}

// DT_MODIFYSTRING would write into the caller's string: the flag is dropped
// here, since a CString's buffer must not be changed behind its back.
int CDC::DrawTextEx(const CString& str, LPRECT lpRect, UINT nFormat, LPDRAWTEXTPARAMS lpDTParams) {
  return DrawTextEx(const_cast<LPTSTR>((LPCTSTR)str), str.GetLength(), lpRect,
                    nFormat & ~DT_MODIFYSTRING, lpDTParams);
}

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const {
  SIZE size = {0, 0};
  if (lpszString != NULL) ::GetTextExtentPoint32(m_hAttribDC, lpszString, nCount, &size);
  return size;
}

CSize CDC::GetTextExtent(const CString& str) const {
  return GetTextExtent((LPCTSTR)str, str.GetLength());
}

CSize CDC::GetOutputTextExtent(LPCTSTR lpszString, int nCount) const {
  SIZE size = {0, 0};
  if (lpszString != NULL) ::GetTextExtentPoint32(m_hDC, lpszString, nCount, &size);
  return size;
}

CSize CDC::GetOutputTextExtent(const CString& str) const {
  return GetOutputTextExtent((LPCTSTR)str, str.GetLength());
}

CSize CDC::GetTabbedTextExtent(LPCTSTR lpszString, int nCount, int nTabPositions,
                               LPINT lpnTabStopPositions) const {
  if (lpszString == NULL) return CSize(0, 0);
  return CSize(
      ::GetTabbedTextExtent(m_hAttribDC, lpszString, nCount, nTabPositions, lpnTabStopPositions));
}

CSize CDC::GetTabbedTextExtent(const CString& str, int nTabPositions,
                               LPINT lpnTabStopPositions) const {
  return GetTabbedTextExtent((LPCTSTR)str, str.GetLength(), nTabPositions, lpnTabStopPositions);
}

BOOL CDC::GetTextMetrics(LPTEXTMETRIC lpMetrics) const {
  return ::GetTextMetrics(m_hAttribDC, lpMetrics);
}

BOOL CDC::GetOutputTextMetrics(LPTEXTMETRIC lpMetrics) const {
  return ::GetTextMetrics(m_hDC, lpMetrics);
}

UINT CDC::GetTextAlign() const { return ::GetTextAlign(m_hAttribDC); }

UINT CDC::SetTextAlign(UINT nFlags) {
  UINT nRetVal = GDI_ERROR;
  if (m_hDC != m_hAttribDC) nRetVal = ::SetTextAlign(m_hDC, nFlags);
  if (m_hAttribDC != NULL) nRetVal = ::SetTextAlign(m_hAttribDC, nFlags);
  return nRetVal;
}

int CDC::GetTextFace(int nCount, LPTSTR lpszFacename) const {
  return ::GetTextFace(m_hAttribDC, nCount, lpszFacename);
}

int CDC::GetTextFace(CString& rString) const {
  int nResult = ::GetTextFace(m_hAttribDC, LF_FACESIZE, rString.GetBuffer(LF_FACESIZE));
  rString.ReleaseBuffer();
  return nResult;
}

int CDC::GetTextCharacterExtra() const { return ::GetTextCharacterExtra(m_hAttribDC); }

int CDC::SetTextCharacterExtra(int nCharExtra) {
  int nRetVal = 0x8000000;
  if (m_hDC != m_hAttribDC) nRetVal = ::SetTextCharacterExtra(m_hDC, nCharExtra);
  if (m_hAttribDC != NULL) nRetVal = ::SetTextCharacterExtra(m_hAttribDC, nCharExtra);
  return nRetVal;
}

int CDC::SetTextJustification(int nBreakExtra, int nBreakCount) {
  int nRetVal = 0;
  if (m_hDC != m_hAttribDC) nRetVal = ::SetTextJustification(m_hDC, nBreakExtra, nBreakCount);
  if (m_hAttribDC != NULL) nRetVal = ::SetTextJustification(m_hAttribDC, nBreakExtra, nBreakCount);
  return nRetVal;
}

BOOL CDC::GetCharWidth(UINT nFirstChar, UINT nLastChar, LPINT lpBuffer) const {
  return ::GetCharWidth(m_hAttribDC, nFirstChar, nLastChar, lpBuffer);
}

BOOL CDC::GrayString(CBrush* pBrush, BOOL(CALLBACK* lpfnOutput)(HDC, LPARAM, int), LPARAM lpData,
                     int nCount, int x, int y, int nWidth, int nHeight) {
  return ::GrayString(m_hDC, (HBRUSH)pBrush->GetSafeHandle(), (GRAYSTRINGPROC)lpfnOutput, lpData,
                      nCount, x, y, nWidth, nHeight);
}

// ---- Edges, frame controls, state drawing -----------------------------------

BOOL CDC::DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags) {
  return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags);
}

BOOL CDC::DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState) {
  return ::DrawFrameControl(m_hDC, lpRect, nType, nState);
}

BOOL CDC::DrawState(CPoint pt, CSize size, HBITMAP hBitmap, UINT nFlags, HBRUSH hBrush) {
  return ::DrawState(m_hDC, hBrush, NULL, (LPARAM)hBitmap, 0, pt.x, pt.y, size.cx, size.cy,
                     nFlags | DST_BITMAP);
}

BOOL CDC::DrawState(CPoint pt, CSize size, CBitmap* pBitmap, UINT nFlags, CBrush* pBrush) {
  return DrawState(pt, size, (HBITMAP)pBitmap->GetSafeHandle(), nFlags,
                   (HBRUSH)pBrush->GetSafeHandle());
}

BOOL CDC::DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, HBRUSH hBrush) {
  return ::DrawState(m_hDC, hBrush, NULL, (LPARAM)hIcon, 0, pt.x, pt.y, size.cx, size.cy,
                     nFlags | DST_ICON);
}

BOOL CDC::DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, CBrush* pBrush) {
  return DrawState(pt, size, hIcon, nFlags, (HBRUSH)pBrush->GetSafeHandle());
}

BOOL CDC::DrawState(CPoint pt, CSize size, LPCTSTR lpszText, UINT nFlags, BOOL bPrefixText,
                    int nTextLen, HBRUSH hBrush) {
  return ::DrawState(m_hDC, hBrush, NULL, (LPARAM)lpszText, (WPARAM)nTextLen, pt.x, pt.y, size.cx,
                     size.cy, nFlags | (bPrefixText ? DST_PREFIXTEXT : DST_TEXT));
}

BOOL CDC::DrawState(CPoint pt, CSize size, LPCTSTR lpszText, UINT nFlags, BOOL bPrefixText,
                    int nTextLen, CBrush* pBrush) {
  return DrawState(pt, size, lpszText, nFlags, bPrefixText, nTextLen,
                   (HBRUSH)pBrush->GetSafeHandle());
}

BOOL CDC::DrawState(CPoint pt, CSize size, DRAWSTATEPROC lpDrawProc, LPARAM lData, UINT nFlags,
                    HBRUSH hBrush) {
  return ::DrawState(m_hDC, hBrush, lpDrawProc, lData, 0, pt.x, pt.y, size.cx, size.cy,
                     nFlags | DST_COMPLEX);
}

BOOL CDC::DrawState(CPoint pt, CSize size, DRAWSTATEPROC lpDrawProc, LPARAM lData, UINT nFlags,
                    CBrush* pBrush) {
  return DrawState(pt, size, lpDrawProc, lData, nFlags, (HBRUSH)pBrush->GetSafeHandle());
}

// ---- Printing and paths -----------------------------------------------------

int CDC::Escape(int nEscape, int nCount, LPCSTR lpszInData, LPVOID lpOutData) {
  return ::Escape(m_hDC, nEscape, nCount, lpszInData, lpOutData);
}

int CDC::StartDoc(LPDOCINFO lpDocInfo) { return ::StartDoc(m_hDC, lpDocInfo); }

int CDC::StartDoc(LPCTSTR lpszDocName) {
  DOCINFO di;
  memset(&di, 0, sizeof(di));
  di.cbSize = sizeof(di);
  di.lpszDocName = lpszDocName;
  return StartDoc(&di);
}

int CDC::StartPage() { return ::StartPage(m_hDC); }
int CDC::EndPage() { return ::EndPage(m_hDC); }
int CDC::SetAbortProc(BOOL(CALLBACK* lpfn)(HDC, int)) { return ::SetAbortProc(m_hDC, lpfn); }
int CDC::AbortDoc() { return ::AbortDoc(m_hDC); }
int CDC::EndDoc() { return ::EndDoc(m_hDC); }

BOOL CDC::AbortPath() { return ::AbortPath(m_hDC); }
BOOL CDC::BeginPath() { return ::BeginPath(m_hDC); }
BOOL CDC::CloseFigure() { return ::CloseFigure(m_hDC); }
BOOL CDC::EndPath() { return ::EndPath(m_hDC); }
BOOL CDC::FillPath() { return ::FillPath(m_hDC); }
BOOL CDC::StrokePath() { return ::StrokePath(m_hDC); }
BOOL CDC::StrokeAndFillPath() { return ::StrokeAndFillPath(m_hDC); }
BOOL CDC::SelectClipPath(int nMode) { return ::SelectClipPath(m_hDC, nMode); }
