// vrk_quickdraw.h - VQuickDraw: draws on one DC with pens, brushes and fonts
// it creates on first use and keeps in caches, and puts the DC's own
// objects back at the end.
#ifndef VRK_QUICKDRAW_H
#define VRK_QUICKDRAW_H

#include "vrkdefs.h"

#include <afxwin.h>

// An array of objects that deletes its elements when it is destroyed.
class VRK_API VGdiObjectArray : public CObArray {
public:
  virtual ~VGdiObjectArray();
};

// Cache entries: a key and the GDI object made for it, which the entry
// deletes.
class VRK_API VUsePen : public CObject {
public:
  VUsePen(int nStyle, int nWidth, COLORREF crColor, CPen* pPen)
      : m_nStyle(nStyle), m_nWidth(nWidth), m_crColor(crColor), m_pPen(pPen) {}
  virtual ~VUsePen();

  int m_nStyle;
  int m_nWidth;
  COLORREF m_crColor;
  CPen* m_pPen;
};

class VRK_API VUseBrush : public CObject {
public:
  VUseBrush(COLORREF crColor, CBrush* pBrush) : m_crColor(crColor), m_pBrush(pBrush) {}
  virtual ~VUseBrush();

  COLORREF m_crColor;
  CBrush* m_pBrush;
};

class VRK_API VUseHatchBrush : public CObject {
public:
  VUseHatchBrush(int nHatch, COLORREF crColor, CBrush* pBrush)
      : m_nHatch(nHatch), m_crColor(crColor), m_pBrush(pBrush) {}
  virtual ~VUseHatchBrush();

  int m_nHatch;
  COLORREF m_crColor;
  CBrush* m_pBrush;
};

class VRK_API VUseLogFont : public CObject {
public:
  VUseLogFont(const LOGFONT* pLogFont, CFont* pFont);
  virtual ~VUseLogFont();
  // The same font: every field equal, face names up to their terminator.
  BOOL Matches(const LOGFONT* pLogFont) const;

  LOGFONT m_logFont;
  CFont* m_pFont;
};

class VRK_API VUsePointFont : public CObject {
public:
  VUsePointFont(int nPointSize, const char* pszFace, CFont* pFont)
      : m_nPointSize(nPointSize), m_strFace(pszFace), m_pFont(pFont) {}
  virtual ~VUsePointFont();

  int m_nPointSize; // tenths of a point
  CString m_strFace;
  CFont* m_pFont;
};

class VRK_API VQuickDraw : public CObject {
  DECLARE_DYNAMIC(VQuickDraw)
public:
  explicit VQuickDraw(CDC* pDC);
  // Binds nothing: the object stays unbound whatever the arguments.
  VQuickDraw(CDC* pDC, CSize size, int bFlag);
  // Destroy when a DC is bound.
  virtual ~VQuickDraw();

  // Look the object up, create it on first use, select it unless it is the
  // current one of its kind. The first selection of a kind records the
  // object the DC held before, which SelectOld puts back.
  CPen* UsePen(int nStyle, int nWidth, COLORREF crColor);
  CBrush* UseBrush(COLORREF crColor);
  CBrush* UseBrush(int nHatch, COLORREF crColor);
  // lfHeight is in tenths of a point.
  CFont* UseFont(const LOGFONT* pLogFont);
  CFont* UseFont(int nPointSize, const char* pszFace);

  // Select an object of the caller's; return the DC's object of that kind
  // from before the first selection made through this VQuickDraw (not the
  // one selected just before).
  CPen* SelectObject(CPen* pPen);
  CBrush* SelectObject(CBrush* pBrush);
  CFont* SelectObject(CFont* pFont);

  BOOL IsSelected(CPen* pPen) const { return pPen == m_pCurPen; }
  BOOL IsSelected(CBrush* pBrush) const { return pBrush == m_pCurBrush; }
  BOOL IsSelected(CFont* pFont) const { return pFont == m_pCurFont; }

  CPen* GetPen(int nStyle, int nWidth, COLORREF crColor) const;
  CBrush* GetBrush(COLORREF crColor) const;
  CBrush* GetBrush(int nHatch, COLORREF crColor) const;
  CFont* GetFont(const LOGFONT* pLogFont) const;
  CFont* GetFont(int nPointSize, const char* pszFace) const;

  // Pens and brushes that cannot be made throw CResourceException; fonts
  // CMemoryException.
  CPen* CreatePen(int nStyle, int nWidth, COLORREF crColor);
  CBrush* CreateBrush(COLORREF crColor);
  CBrush* CreateBrush(int nHatch, COLORREF crColor);
  CFont* CreateFont(const LOGFONT* pLogFont);
  CFont* CreateFont(int nPointSize, const char* pszFace);

  CDC* GetDC() const { return m_pDC; }

  // Virtual slots after CObject's: Destroy, then SelectOld.
  // SelectOld, then deletes every object created and unbinds the DC.
  virtual void Destroy();
  // Puts back the DC's own font, brush and pen, in this order.
  virtual void SelectOld();

protected:
  void AddPen(int nStyle, int nWidth, COLORREF crColor, CPen* pPen);
  void AddBrush(COLORREF crColor, CBrush* pBrush);
  void AddBrush(int nHatch, COLORREF crColor, CBrush* pBrush);
  void AddFont(const LOGFONT* pLogFont, CFont* pFont);
  void AddFont(int nPointSize, const char* pszFace, CFont* pFont);

  CFont* m_pCurFont;
  CFont* m_pInitFont;
  CBrush* m_pCurBrush;
  CBrush* m_pInitBrush;
  CPen* m_pCurPen;
  CPen* m_pInitPen;
  VGdiObjectArray* m_pPointFonts;
  VGdiObjectArray* m_pLogFonts;
  VGdiObjectArray* m_pPens;
  VGdiObjectArray* m_pBrushes;
  VGdiObjectArray* m_pHatchBrushes;
  CDC* m_pDC;
  // The handles of the initial objects: the pointers above are usually
  // temporary wrappers, which the framework deletes when the thread goes
  // idle, so SelectOld selects by handle.
  HGDIOBJ m_hInitFont;
  HGDIOBJ m_hInitBrush;
  HGDIOBJ m_hInitPen;

private:
  void Clear();
  VQuickDraw(const VQuickDraw&);
  void operator=(const VQuickDraw&);
};

#endif // VRK_QUICKDRAW_H
