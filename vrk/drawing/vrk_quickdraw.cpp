// VQuickDraw: pens, brushes and fonts made on first use, kept in five caches
// and selected only when they are not current already.
#include "vrk_quickdraw.h"

IMPLEMENT_DYNAMIC(VQuickDraw, CObject)

VGdiObjectArray::~VGdiObjectArray() {
  for (INT_PTR i = 0; i < GetSize(); i++)
    delete GetAt(i);
  RemoveAll();
}

VUsePen::~VUsePen() { delete m_pPen; }
VUseBrush::~VUseBrush() { delete m_pBrush; }
VUseHatchBrush::~VUseHatchBrush() { delete m_pBrush; }
VUsePointFont::~VUsePointFont() { delete m_pFont; }
VUseLogFont::~VUseLogFont() { delete m_pFont; }

VUseLogFont::VUseLogFont(const LOGFONT* pLogFont, CFont* pFont) : m_pFont(pFont) {
  m_logFont = *pLogFont;
}

BOOL VUseLogFont::Matches(const LOGFONT* pLogFont) const {
  return memcmp(&m_logFont, pLogFont, offsetof(LOGFONT, lfFaceName)) == 0 &&
         strncmp(m_logFont.lfFaceName, pLogFont->lfFaceName, LF_FACESIZE) == 0;
}

VQuickDraw::VQuickDraw(CDC* pDC) {
  Clear();
  m_pPointFonts = m_pLogFonts = m_pPens = m_pBrushes = m_pHatchBrushes = NULL;
  m_pDC = pDC;
}

// The temporary is made on the DC and dropped at once; this object stays
// unbound. Kept so for the callers that rely on it.
VQuickDraw::VQuickDraw(CDC* pDC, CSize, int) {
  Clear();
  m_pPointFonts = m_pLogFonts = m_pPens = m_pBrushes = m_pHatchBrushes = NULL;
  m_pDC = NULL;
  VQuickDraw temporary(pDC);
}

// Destroy when a DC is bound. The caches of an unbound object (whose
// objects were never selected anywhere) are freed as well.
VQuickDraw::~VQuickDraw() {
  if (m_pDC != NULL) Destroy();
  delete m_pPointFonts;
  delete m_pLogFonts;
  delete m_pPens;
  delete m_pBrushes;
  delete m_pHatchBrushes;
}

void VQuickDraw::Clear() {
  m_pCurFont = m_pInitFont = NULL;
  m_pCurBrush = m_pInitBrush = NULL;
  m_pCurPen = m_pInitPen = NULL;
  m_hInitFont = m_hInitBrush = m_hInitPen = NULL;
}

// ---- Look-ups -----------------------------------------------------------------

namespace {

template <class Entry, class Pred> Entry* Find(const VGdiObjectArray* pCache, Pred pred) {
  if (pCache == NULL) return NULL;
  for (INT_PTR i = 0; i < pCache->GetSize(); i++) {
    Entry* p = static_cast<Entry*>(pCache->GetAt(i));
    if (pred(p)) return p;
  }
  return NULL;
}

void Append(VGdiObjectArray*& pCache, CObject* pEntry) {
  if (pCache == NULL) pCache = new VGdiObjectArray;
  try {
    pCache->Add(pEntry);
  } catch (...) {
    delete pEntry;
    throw;
  }
}

} // namespace

CPen* VQuickDraw::GetPen(int nStyle, int nWidth, COLORREF crColor) const {
  VUsePen* p = Find<VUsePen>(m_pPens, [=](VUsePen* e) {
    return e->m_nStyle == nStyle && e->m_nWidth == nWidth && e->m_crColor == crColor;
  });
  return p != NULL ? p->m_pPen : NULL;
}

CBrush* VQuickDraw::GetBrush(COLORREF crColor) const {
  VUseBrush* p = Find<VUseBrush>(m_pBrushes, [=](VUseBrush* e) { return e->m_crColor == crColor; });
  return p != NULL ? p->m_pBrush : NULL;
}

CBrush* VQuickDraw::GetBrush(int nHatch, COLORREF crColor) const {
  VUseHatchBrush* p = Find<VUseHatchBrush>(m_pHatchBrushes, [=](VUseHatchBrush* e) {
    return e->m_nHatch == nHatch && e->m_crColor == crColor;
  });
  return p != NULL ? p->m_pBrush : NULL;
}

CFont* VQuickDraw::GetFont(const LOGFONT* pLogFont) const {
  if (pLogFont == NULL) return NULL;
  VUseLogFont* p =
      Find<VUseLogFont>(m_pLogFonts, [=](VUseLogFont* e) { return e->Matches(pLogFont); });
  return p != NULL ? p->m_pFont : NULL;
}

// Face names compare as Windows compares them: without regard to case.
CFont* VQuickDraw::GetFont(int nPointSize, const char* pszFace) const {
  const char* pszKey = pszFace != NULL ? pszFace : "";
  VUsePointFont* p = Find<VUsePointFont>(m_pPointFonts, [=](VUsePointFont* e) {
    return e->m_nPointSize == nPointSize && e->m_strFace.CompareNoCase(pszKey) == 0;
  });
  return p != NULL ? p->m_pFont : NULL;
}

// ---- Creation -----------------------------------------------------------------

CPen* VQuickDraw::CreatePen(int nStyle, int nWidth, COLORREF crColor) {
  return new CPen(nStyle, nWidth, crColor);
}

CBrush* VQuickDraw::CreateBrush(COLORREF crColor) { return new CBrush(crColor); }

CBrush* VQuickDraw::CreateBrush(int nHatch, COLORREF crColor) {
  return new CBrush(nHatch, crColor);
}

CFont* VQuickDraw::CreateFont(const LOGFONT* pLogFont) {
  CFont* pFont = new CFont;
  if (pLogFont == NULL || !pFont->CreatePointFontIndirect(pLogFont, m_pDC)) {
    delete pFont;
    AfxThrowMemoryException();
  }
  return pFont;
}

CFont* VQuickDraw::CreateFont(int nPointSize, const char* pszFace) {
  CFont* pFont = new CFont;
  if (!pFont->CreatePointFont(nPointSize, pszFace != NULL ? pszFace : "", m_pDC)) {
    delete pFont;
    AfxThrowMemoryException();
  }
  return pFont;
}

void VQuickDraw::AddPen(int nStyle, int nWidth, COLORREF crColor, CPen* pPen) {
  Append(m_pPens, new VUsePen(nStyle, nWidth, crColor, pPen));
}

void VQuickDraw::AddBrush(COLORREF crColor, CBrush* pBrush) {
  Append(m_pBrushes, new VUseBrush(crColor, pBrush));
}

void VQuickDraw::AddBrush(int nHatch, COLORREF crColor, CBrush* pBrush) {
  Append(m_pHatchBrushes, new VUseHatchBrush(nHatch, crColor, pBrush));
}

void VQuickDraw::AddFont(const LOGFONT* pLogFont, CFont* pFont) {
  Append(m_pLogFonts, new VUseLogFont(pLogFont, pFont));
}

void VQuickDraw::AddFont(int nPointSize, const char* pszFace, CFont* pFont) {
  Append(m_pPointFonts, new VUsePointFont(nPointSize, pszFace != NULL ? pszFace : "", pFont));
}

// ---- Selection ----------------------------------------------------------------

namespace {

// Selects pObject into the bound DC (if any) and makes it current; the first
// selection of a kind records what the DC held before.
template <class T> void MakeCurrent(CDC* pDC, T* pObject, T*& pCur, T*& pInit, HGDIOBJ& hInit) {
  if (pDC != NULL) {
    T* pOld = pDC->SelectObject(pObject);
    if (pInit == NULL && pOld != NULL) {
      pInit = pOld;
      hInit = pOld->m_hObject;
    }
  }
  pCur = pObject;
}

} // namespace

CPen* VQuickDraw::UsePen(int nStyle, int nWidth, COLORREF crColor) {
  CPen* pPen = GetPen(nStyle, nWidth, crColor);
  if (pPen == NULL) {
    pPen = CreatePen(nStyle, nWidth, crColor);
    AddPen(nStyle, nWidth, crColor, pPen);
  }
  if (!IsSelected(pPen)) MakeCurrent(m_pDC, pPen, m_pCurPen, m_pInitPen, m_hInitPen);
  return pPen;
}

CBrush* VQuickDraw::UseBrush(COLORREF crColor) {
  CBrush* pBrush = GetBrush(crColor);
  if (pBrush == NULL) {
    pBrush = CreateBrush(crColor);
    AddBrush(crColor, pBrush);
  }
  if (!IsSelected(pBrush)) MakeCurrent(m_pDC, pBrush, m_pCurBrush, m_pInitBrush, m_hInitBrush);
  return pBrush;
}

CBrush* VQuickDraw::UseBrush(int nHatch, COLORREF crColor) {
  CBrush* pBrush = GetBrush(nHatch, crColor);
  if (pBrush == NULL) {
    pBrush = CreateBrush(nHatch, crColor);
    AddBrush(nHatch, crColor, pBrush);
  }
  if (!IsSelected(pBrush)) MakeCurrent(m_pDC, pBrush, m_pCurBrush, m_pInitBrush, m_hInitBrush);
  return pBrush;
}

CFont* VQuickDraw::UseFont(const LOGFONT* pLogFont) {
  CFont* pFont = GetFont(pLogFont);
  if (pFont == NULL) {
    pFont = CreateFont(pLogFont); // throws for a NULL description
    AddFont(pLogFont, pFont);
  }
  if (!IsSelected(pFont)) MakeCurrent(m_pDC, pFont, m_pCurFont, m_pInitFont, m_hInitFont);
  return pFont;
}

CFont* VQuickDraw::UseFont(int nPointSize, const char* pszFace) {
  CFont* pFont = GetFont(nPointSize, pszFace);
  if (pFont == NULL) {
    pFont = CreateFont(nPointSize, pszFace);
    AddFont(nPointSize, pszFace, pFont);
  }
  if (!IsSelected(pFont)) MakeCurrent(m_pDC, pFont, m_pCurFont, m_pInitFont, m_hInitFont);
  return pFont;
}

CPen* VQuickDraw::SelectObject(CPen* pPen) {
  if (m_pDC != NULL && pPen != NULL) MakeCurrent(m_pDC, pPen, m_pCurPen, m_pInitPen, m_hInitPen);
  return m_pInitPen;
}

CBrush* VQuickDraw::SelectObject(CBrush* pBrush) {
  if (m_pDC != NULL && pBrush != NULL)
    MakeCurrent(m_pDC, pBrush, m_pCurBrush, m_pInitBrush, m_hInitBrush);
  return m_pInitBrush;
}

CFont* VQuickDraw::SelectObject(CFont* pFont) {
  if (m_pDC != NULL && pFont != NULL)
    MakeCurrent(m_pDC, pFont, m_pCurFont, m_pInitFont, m_hInitFont);
  return m_pInitFont;
}

void VQuickDraw::SelectOld() {
  if (m_pDC == NULL) return;
  if (m_hInitFont != NULL) m_pDC->SelectObject(m_hInitFont);
  if (m_hInitBrush != NULL) m_pDC->SelectObject(m_hInitBrush);
  if (m_hInitPen != NULL) m_pDC->SelectObject(m_hInitPen);
  m_pInitFont = NULL;
  m_pInitBrush = NULL;
  m_pInitPen = NULL;
  m_hInitFont = m_hInitBrush = m_hInitPen = NULL;
}

void VQuickDraw::Destroy() {
  SelectOld();
  Clear();
  delete m_pPointFonts;
  delete m_pLogFonts;
  delete m_pPens;
  delete m_pBrushes;
  delete m_pHatchBrushes;
  m_pPointFonts = m_pLogFonts = m_pPens = m_pBrushes = m_pHatchBrushes = NULL;
  m_pDC = NULL;
}
