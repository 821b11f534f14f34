// The process-wide stock fonts, brushes, pen and cursor: made when the
// library is loaded (by a static object's constructor) and destroyed when it
// is unloaded, except the cursor, loaded on first request and kept.
#include "vrk_gdi.h"

namespace {

const UINT kStockCursorId = 5035;

class VStockObjects {
public:
  VStockObjects() {
    m_fontSansSerif.CreatePointFont(80, "MS Sans Serif");
    m_fontFixed.CreatePointFont(90, "Fixedsys");
    m_brushFace.CreateSolidBrush(::GetSysColor(COLOR_BTNFACE));
    // Rows 5 to 8 repeat rows 1 to 4.
    static const WORD kRows[8] = {0xFEFF, 0xFFFF, 0xFFFF, 0xFFFE, 0xFEFF, 0xFFFF, 0xFFFF, 0xFFFE};
    CBitmap pattern;
    if (pattern.CreateBitmap(8, 8, 1, 1, kRows)) m_brushPattern.CreatePatternBrush(&pattern);
    LOGBRUSH lb = {BS_SOLID, RGB(0, 0, 0), 0};
    m_penDotted.Attach(::ExtCreatePen(PS_COSMETIC | PS_ALTERNATE, 1, &lb, 0, NULL));
  }

  CFont m_fontSansSerif;
  CFont m_fontFixed;
  CBrush m_brushFace;
  CBrush m_brushPattern;
  CPen m_penDotted;
};

VStockObjects g_stock;
HCURSOR g_hStockCursor = NULL;

template <class T> T* NonNull(T& object) { return object.m_hObject != NULL ? &object : NULL; }

} // namespace

CFont* VrkGetStockFont(UINT nIndex) {
  switch (nIndex) {
  case 1:
    return NonNull(g_stock.m_fontSansSerif);
  case 2:
    return NonNull(g_stock.m_fontFixed);
  }
  return NULL;
}

CBrush* VrkGetStockBrush(UINT nIndex) {
  switch (nIndex) {
  case 1:
    return NonNull(g_stock.m_brushFace);
  case 2:
    return NonNull(g_stock.m_brushPattern);
  }
  return NULL;
}

CPen* VrkGetStockPen(UINT nIndex) { return nIndex == 1 ? NonNull(g_stock.m_penDotted) : NULL; }

// Loaded from the resource chain once an application object exists (before
// that the chain may not hold the resource module yet); never freed.
HCURSOR VrkGetStockCursor(UINT nIndex) {
  if (nIndex != 1) return NULL;
  if (g_hStockCursor == NULL && AfxGetApp() != NULL) {
    LPCTSTR lpszName = MAKEINTRESOURCE(kStockCursorId);
    HINSTANCE hInst = AfxFindResourceHandle(lpszName, RT_GROUP_CURSOR);
    g_hStockCursor = ::LoadCursor(hInst, lpszName);
  }
  return g_hStockCursor;
}
