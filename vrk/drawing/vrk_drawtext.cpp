// Text helpers: the size of a text in a described font, embossed text and
// text stacked one character per line.
#include "vrk_gdi.h"

#include <mbstring.h>

SIZE VrkGetStringSize(const char* pszText, double dPoints, const char* pszFace, int bBold,
                      BYTE bItalic, BYTE bUnderline) {
  SIZE size = {0, 0};
  CClientDC dc(NULL);
  LOGFONT lf;
  memset(&lf, 0, sizeof(lf));
  lf.lfHeight = (int)(dPoints * 10.0);
  if (pszFace != NULL) lstrcpynA(lf.lfFaceName, pszFace, LF_FACESIZE);
  lf.lfWeight = bBold ? FW_BOLD : FW_NORMAL;
  lf.lfItalic = bItalic;
  lf.lfUnderline = bUnderline;
  CFont font;
  if (!font.CreatePointFontIndirect(&lf, &dc)) return size;
  CFont* pOldFont = dc.SelectObject(&font);
  CRect r(0, 0, 0, 0);
  dc.DrawText(pszText != NULL ? pszText : "", -1, &r, DT_CALCRECT | DT_NOCLIP);
  dc.SelectObject(pOldFont);
  size.cx = r.Width();
  size.cy = r.Height();
  return size;
}

int VrkDrawEmbossed(CDC* pDC, const char* pszText, int nLength, RECT* pRect, UINT nFormat) {
  if (pDC == NULL || pszText == NULL || pRect == NULL) return 0;
  CRect rShifted(*pRect);
  rShifted.OffsetRect(1, 1);
  COLORREF crOld = pDC->SetTextColor(::GetSysColor(COLOR_BTNHIGHLIGHT));
  pDC->DrawText(pszText, nLength, &rShifted, nFormat);
  pDC->SetTextColor(crOld);
  return pDC->DrawText(pszText, nLength, pRect, nFormat);
}

int VrkDrawEmbossed(CDC* pDC, const CString& strText, RECT* pRect, UINT nFormat) {
  return VrkDrawEmbossed(pDC, (const char*)strText, strText.GetLength(), pRect, nFormat);
}

int VrkDrawStacked(CDC* pDC, const char* pszText, int nLength, RECT* pRect, UINT nFormat) {
  if (pDC == NULL || pszText == NULL || pRect == NULL) return 0;
  TEXTMETRIC tm;
  pDC->GetTextMetrics(&tm);
  int nTotal = tm.tmHeight * nLength;
  CRect r(*pRect);
  if (nFormat & DT_VCENTER) {
    r.top += (r.Height() - nTotal) / 2;
    r.bottom = r.top + nTotal;
  } else if (nFormat & DT_BOTTOM) {
    r.top = r.bottom - nTotal;
  }
  CRect cell(r);
  if (nLength < 1) return nTotal;
  UINT nCellFormat = DT_SINGLELINE | (nFormat & DT_CENTER);
  // Whole multibyte characters, of which only the first byte is drawn; the
  // walk also stops at the end of the nLength bytes or at a terminator, so
  // a double-byte text never leads it past the caller's buffer.
  const unsigned char* p = (const unsigned char*)pszText;
  const unsigned char* pEnd = p + nLength;
  for (int i = 0; i < nLength && p < pEnd && *p != 0; i++, p = _mbsinc(p)) {
    if (*p == '\n') {
      cell.right += tm.tmMaxCharWidth; // the right edge only
    } else if (*p == '\r') {
      cell.top = r.top;
    } else {
      pDC->DrawText((const char*)p, 1, &cell, nCellFormat);
      cell.top += tm.tmHeight;
    }
  }
  return nTotal;
}

int VrkDrawStacked(CDC* pDC, const CString& strText, RECT* pRect, UINT nFormat) {
  return VrkDrawStacked(pDC, (const char*)strText, strText.GetLength(), pRect, nFormat);
}
