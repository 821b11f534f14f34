// vrk_memdc.h - VMemDC: an off-screen device context with a surface the
// size of a rectangle, copied to a target DC when drawing is done.
#ifndef VRK_MEMDC_H
#define VRK_MEMDC_H

#include "vrkdefs.h"

#include <afxwin.h>

class VRK_API VMemDC : public CDC {
  DECLARE_DYNAMIC(VMemDC)
public:
  VMemDC();
  // Puts the old bitmap back, deletes the surface, then the DC.
  virtual ~VMemDC();

  // A DC compatible with pDC and a surface of the rectangle's size (origin
  // 0,0) with the attribute DC's planes and colour depth, filled with pBrush
  // or, when it is NULL, with the brush selected in pDC. A paint structure
  // given is kept. 0 at the first step that fails.
  int Create(CDC* pDC, const RECT& rect, CBrush* pBrush = NULL, const PAINTSTRUCT* pPS = NULL);
  int Create(CDC* pDC, const RECT& rect, COLORREF crFill, const PAINTSTRUCT* pPS = NULL);
  // Copies the rectangle's size from pSrc (default 0,0) of the surface to
  // the rectangle's top-left in pDst; 0 for a NULL destination.
  int Copy(CDC* pDst, const RECT& rect, const POINT* pSrc = NULL);
  // Selects the old bitmap back and returns the surface's object; NULL when
  // nothing was kept. Forgets the paint structure.
  CBitmap* Release();
  // The caller owns the surface from then on.
  HBITMAP DetachBitmap() { return (HBITMAP)m_bitmap.Detach(); }
  // NULL when no paint structure was given (or after Release).
  const PAINTSTRUCT* GetPaintStruct() const { return m_bPaintStruct ? &m_ps : NULL; }

protected:
  CBitmap m_bitmap;
  CBitmap* m_pOldBitmap;
  PAINTSTRUCT m_ps;
  BOOL m_bPaintStruct;
  // The old bitmap is a temporary wrapper that may be gone when the thread
  // has been idle: it is put back by handle.
  HGDIOBJ m_hOldBitmap;
};

#endif // VRK_MEMDC_H
