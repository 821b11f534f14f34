// Saving and restoring what a DC has selected, its mapping mode and its
// extents.
#include "vrk_gdi.h"

void VrkGetDeviceOrientation(CDC* pDC, tagDeviceOrientation* pOrientation) {
  if (pDC == NULL || pOrientation == NULL) return;
  ::GetViewportExtEx(pDC->m_hAttribDC, &pOrientation->viewportExt);
  ::GetWindowExtEx(pDC->m_hAttribDC, &pOrientation->windowExt);
}

void VrkSetDeviceOrientation(CDC* pDC, tagDeviceOrientation* pOrientation) {
  if (pDC == NULL || pOrientation == NULL) return;
  pDC->SetWindowExt(pOrientation->windowExt);
  pDC->SetViewportExt(pOrientation->viewportExt);
}

void VrkSaveDeviceSettings(CDC* pDC, tagDeviceSettings* pSettings) {
  if (pDC == NULL || pSettings == NULL) return;
  HDC hAttrib = pDC->m_hAttribDC;
  pSettings->pFont = CGdiObject::FromHandle(::GetCurrentObject(hAttrib, OBJ_FONT));
  pSettings->pBrush = CGdiObject::FromHandle(::GetCurrentObject(hAttrib, OBJ_BRUSH));
  pSettings->pPen = CGdiObject::FromHandle(::GetCurrentObject(hAttrib, OBJ_PEN));
  pSettings->pBitmap = CGdiObject::FromHandle(::GetCurrentObject(hAttrib, OBJ_BITMAP));
  pSettings->nMapMode = pDC->GetMapMode();
  VrkGetDeviceOrientation(pDC, &pSettings->orientation);
}

void VrkRestoreDeviceSettings(CDC* pDC, tagDeviceSettings* pSettings) {
  if (pDC == NULL || pSettings == NULL) return;
  // The typed selections, as the framework's wrappers are used everywhere:
  // a print preview DC maps the font through its virtual selection.
  if (pSettings->pFont != NULL) pDC->SelectObject(static_cast<CFont*>(pSettings->pFont));
  if (pSettings->pBrush != NULL) pDC->SelectObject(static_cast<CBrush*>(pSettings->pBrush));
  if (pSettings->pPen != NULL) pDC->SelectObject(static_cast<CPen*>(pSettings->pPen));
  if (pSettings->pBitmap != NULL && pDC->m_hDC != NULL)
    ::SelectObject(pDC->m_hDC, pSettings->pBitmap->m_hObject);
  // The mapping mode first: setting it resets the extents.
  pDC->SetMapMode(pSettings->nMapMode);
  VrkSetDeviceOrientation(pDC, &pSettings->orientation);
}
