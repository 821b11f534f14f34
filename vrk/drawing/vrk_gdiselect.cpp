// Scoped selection of a GDI object and of the text colour.
#include "vrk_gdi.h"

namespace {

// Selects h into the output DC when it is a DC of its own, then into the
// attribute DC; the handle the last selection gave back.
HGDIOBJ SelectBoth(CDC* pDC, HGDIOBJ h) {
  HGDIOBJ hOld = NULL;
  if (pDC->m_hDC != pDC->m_hAttribDC) hOld = ::SelectObject(pDC->m_hDC, h);
  if (pDC->m_hAttribDC != NULL) hOld = ::SelectObject(pDC->m_hAttribDC, h);
  return hOld;
}

} // namespace

VSelectGdiObject::VSelectGdiObject(CDC* pDC, CGdiObject* pObject) : m_pDC(pDC), m_hOldObject(NULL) {
  if (pDC != NULL && pObject != NULL) m_hOldObject = SelectBoth(pDC, pObject->m_hObject);
}

VSelectGdiObject::VSelectGdiObject(const VSelectGdiObject& other)
    : m_pDC(other.m_pDC), m_hOldObject(other.m_hOldObject) {}

VSelectGdiObject& VSelectGdiObject::operator=(const VSelectGdiObject& other) {
  m_pDC = other.m_pDC;
  m_hOldObject = other.m_hOldObject;
  return *this;
}

VSelectGdiObject::~VSelectGdiObject() {
  if (m_pDC != NULL && m_hOldObject != NULL) SelectBoth(m_pDC, m_hOldObject);
}

VGdiSelectColor::VGdiSelectColor(CDC* pDC, COLORREF crText)
    : m_hDC(pDC != NULL ? pDC->m_hDC : NULL), m_crOld(0) {
  if (m_hDC != NULL) m_crOld = ::SetTextColor(m_hDC, crText);
}

VGdiSelectColor::~VGdiSelectColor() {
  if (m_hDC != NULL) ::SetTextColor(m_hDC, m_crOld);
}
