// VPrintUnit: lays out control-character text lines and index trees on the
// pages of a print job (see vrk_printunit.h for what it does and leaves out).
#include "vrk_printunit.h"

#include <mbctype.h>

IMPLEMENT_DYNAMIC(VPrintUnit, CObject)

namespace {

// Selects a font into the DC for a scope.
class FontScope {
public:
  FontScope(CDC* pDC, CFont* pFont) : m_pDC(pDC), m_pOld(NULL) {
    if (pFont != NULL) m_pOld = m_pDC->SelectObject(pFont);
  }
  ~FontScope() {
    if (m_pOld != NULL) m_pDC->SelectObject(m_pOld);
  }

private:
  CDC* m_pDC;
  CFont* m_pOld;
};

// Index levels deeper than this are not printed: a tree that holds itself
// would otherwise recurse until the stack overflows.
const int kMaxLevel = 256;

// The widest indent leaves a quarter of the line for the text.
int ClampIndent(int nIndent, const CRect& area) {
  int nMax = area.Width() * 3 / 4;
  return nIndent < 0 ? 0 : (nIndent > nMax ? nMax : nIndent);
}

// The bytes of the first n characters' worth that end on a character
// boundary, at most nBytes.
int CharBoundary(const char* p, int nBytes) {
  int i = 0;
  while (i < nBytes) {
    int nChar = _ismbblead((unsigned char)p[i]) && p[i + 1] != 0 ? 2 : 1;
    if (i + nChar > nBytes) break;
    i += nChar;
  }
  return i;
}

} // namespace

VPrintUnit::VPrintUnit(VPrintJob* pJob)
    : m_pJob(pJob), m_nPage(1), m_bPageStarted(FALSE), m_nRowHeight(0), m_pActiveFont(NULL) {
  m_ptPos = GetArea().TopLeft();
}

VPrintUnit::~VPrintUnit() {}

CRect VPrintUnit::GetArea() const {
  if (m_pJob == NULL || m_pJob->m_pInfo == NULL) return CRect(0, 0, 0, 0);
  CRect area = m_pJob->m_pInfo->m_rectDraw;
  area.NormalizeRect();
  return area;
}

// ---- Fonts ----------------------------------------------------------------------

BOOL VPrintUnit::SetFonts(const char* pszFace, int nTextPoints, int nHeadingPoints) {
  CDC* pDC = GetDC();
  if (pDC == NULL || pDC->GetSafeHdc() == NULL || pszFace == NULL) return FALSE;
  m_fontText.DeleteObject();
  m_fontHeading.DeleteObject();
  LOGFONT lf;
  memset(&lf, 0, sizeof(lf));
  lstrcpynA(lf.lfFaceName, pszFace, LF_FACESIZE);
  lf.lfHeight = nTextPoints * 10;
  lf.lfWeight = FW_NORMAL;
  BOOL bOK = m_fontText.CreatePointFontIndirect(&lf, pDC);
  lf.lfHeight = nHeadingPoints * 10;
  lf.lfWeight = FW_BOLD;
  return m_fontHeading.CreatePointFontIndirect(&lf, pDC) && bOK;
}

CFont* VPrintUnit::GetTextFont() {
  if (m_fontText.GetSafeHandle() == NULL) SetFonts("Arial", 10, 14);
  return m_fontText.GetSafeHandle() != NULL ? &m_fontText : NULL;
}

CFont* VPrintUnit::GetHeadingFont() {
  if (m_fontHeading.GetSafeHandle() == NULL) SetFonts("Arial", 10, 14);
  return m_fontHeading.GetSafeHandle() != NULL ? &m_fontHeading : NULL;
}

CFont* VPrintUnit::GetActiveFont() { return m_pActiveFont != NULL ? m_pActiveFont : GetTextFont(); }

// ---- Pages ----------------------------------------------------------------------

BOOL VPrintUnit::IsPageOutput() const {
  const PRINTDLGA* pPD = m_pJob != NULL ? m_pJob->m_pPD : NULL;
  if (pPD == NULL || !(pPD->Flags & PD_PAGENUMS)) return TRUE;
  return m_nPage >= pPD->nFromPage && m_nPage <= pPD->nToPage;
}

BOOL VPrintUnit::BeginPage() {
  CDC* pDC = GetDC();
  if (pDC == NULL || pDC->GetSafeHdc() == NULL) return FALSE;
  if (m_bPageStarted) return TRUE;
  m_bPageStarted = TRUE;
  if (m_pJob->m_pInfo != NULL) m_pJob->m_pInfo->m_nCurPage = m_nPage;
  if (IsPageOutput()) {
    pDC->StartPage();
    m_pJob->SetEndPagePending(1);
  }
  return TRUE;
}

void VPrintUnit::EndPage() {
  if (!m_bPageStarted) return;
  CDC* pDC = GetDC();
  if (m_pJob->IsEndPagePending() && pDC != NULL && pDC->GetSafeHdc() != NULL) pDC->EndPage();
  m_pJob->SetEndPagePending(0);
  m_bPageStarted = FALSE;
}

void VPrintUnit::NewPage() {
  // A page nothing was printed on is not counted: the position only goes
  // back to its top.
  if (m_bPageStarted) {
    EndPage();
    m_nPage++;
  }
  m_ptPos = GetArea().TopLeft();
}

void VPrintUnit::MakeRoom(int nHeight) {
  CRect area = GetArea();
  if (m_ptPos.y + nHeight > area.bottom && m_ptPos.y > area.top) NewPage();
}

// ---- Text -----------------------------------------------------------------------

int VPrintUnit::LineHeight() {
  TEXTMETRIC tm;
  CDC* pDC = GetDC();
  if (pDC == NULL || !pDC->GetTextMetrics(&tm)) return 0;
  return tm.tmHeight + tm.tmExternalLeading;
}

int VPrintUnit::TextWidth(const char* psz, int nLength) {
  SIZE size = {0, 0};
  if (nLength > 0) ::GetTextExtentPoint32A(GetDC()->m_hAttribDC, psz, nLength, &size);
  return size.cx;
}

void VPrintUnit::DrawAt(int x, int y, const char* psz, int nLength) {
  if (nLength <= 0 || !BeginPage() || !IsPageOutput()) return;
  GetDC()->TextOut(x, y, psz, nLength);
}

// Spaced dots between two parts, on a grid from the area's left edge so
// that the dots of successive lines stand in columns.
void VPrintUnit::DrawLeader(int xFrom, int xTo, int y) {
  int nStep = TextWidth(". ", 2);
  int nDot = TextWidth(".", 1);
  if (nStep <= 0) return;
  int nLeft = GetArea().left;
  int x = nLeft + (xFrom - nLeft + nStep - 1) / nStep * nStep + nDot;
  int nCount = (xTo - nDot - x + (nStep - nDot)) / nStep;
  if (nCount <= 0) return;
  CString strDots;
  char* p = strDots.GetBuffer(nCount * 2);
  for (int i = 0; i < nCount; i++) {
    p[i * 2] = '.';
    p[i * 2 + 1] = ' ';
  }
  strDots.ReleaseBuffer(nCount * 2 - 1);
  DrawAt(x, y, strDots, strDots.GetLength());
}

void VPrintUnit::NextRow(int nLeft) {
  m_ptPos.y += m_nRowHeight;
  m_ptPos.x = nLeft;
  MakeRoom(m_nRowHeight);
}

int VPrintUnit::PrintLeft(const CString& strText, int x, int nLeft, int nRight) {
  const char* p = strText;
  int n = strText.GetLength();
  while (n > 0) {
    int nFit = 0;
    SIZE size;
    int nRoom = nRight > x ? nRight - x : 0;
    ::GetTextExtentExPointA(GetDC()->m_hAttribDC, p, n, nRoom, &nFit, NULL, &size);
    nFit = CharBoundary(p, nFit < 0 ? 0 : (nFit > n ? n : nFit));
    int nBreak = nFit;
    if (nFit < n && p[nFit] != ' ') {
      // Back to the last space that fits; a word that fits nowhere on this
      // row starts the next, and one wider than a whole row is cut.
      int nSpace = nFit - 1;
      while (nSpace > 0 && p[nSpace] != ' ')
        nSpace--;
      if (nSpace > 0) {
        nBreak = nSpace;
      } else if (x > nLeft) {
        NextRow(nLeft);
        x = nLeft;
        continue;
      }
    }
    if (nBreak == 0) nBreak = CharBoundary(p, 2) > 0 ? CharBoundary(p, 2) : 1;
    DrawAt(x, m_ptPos.y, p, nBreak);
    x += TextWidth(p, nBreak);
    p += nBreak;
    n -= nBreak;
    if (n > 0) {
      while (n > 0 && *p == ' ') {
        p++;
        n--;
      }
      NextRow(nLeft);
      x = nLeft;
    }
  }
  return x;
}

void VPrintUnit::PrintTextLine(const char* pszLine, int nIndent) {
  CDC* pDC = GetDC();
  if (pszLine == NULL || pDC == NULL || pDC->GetSafeHdc() == NULL) return;
  FontScope font(pDC, GetActiveFont());
  pDC->SetBkMode(TRANSPARENT);
  pDC->SetTextAlign(TA_LEFT | TA_TOP | TA_NOUPDATECP);
  CRect area = GetArea();
  const int nLeft = area.left + ClampIndent(nIndent, area);
  const int nRight = area.right;
  m_nRowHeight = LineHeight();
  MakeRoom(m_nRowHeight);

  VPrintTextLineParser parser;
  VPTLTOKEN token;
  int x = nLeft;
  while (parser.GetNextToken(pszLine, token) != VNT_NOMORE) {
    if (token.bNewLine) {
      NextRow(nLeft);
      x = nLeft;
    }
    if (token.nFormat == DT_LEFT) {
      x = PrintLeft(token.strText, x, nLeft, nRight);
      continue;
    }
    int nWidth = TextWidth(token.strText, token.strText.GetLength());
    int xAt = token.nFormat == DT_RIGHT ? nRight - nWidth : nLeft + (nRight - nLeft - nWidth) / 2;
    // Beside what the row holds, else on the next row; wider than a row,
    // it is wrapped as a left part.
    if (xAt < x && x > nLeft) {
      NextRow(nLeft);
      x = nLeft;
    }
    if (xAt < nLeft) {
      x = PrintLeft(token.strText, x, nLeft, nRight);
      continue;
    }
    if (token.bLeader) DrawLeader(x, xAt, m_ptPos.y);
    DrawAt(xAt, m_ptPos.y, token.strText, token.strText.GetLength());
    x = xAt + nWidth;
  }
  m_ptPos.y += m_nRowHeight;
  m_ptPos.x = area.left;
  MakeRoom(m_nRowHeight);
}

void VPrintUnit::PrintHeading(const char* pszText) {
  CFont* pOld = m_pActiveFont;
  m_pActiveFont = GetHeadingFont();
  PrintTextLine(pszText);
  m_pActiveFont = pOld;
}

void VPrintUnit::LineFeed(int nLines) {
  CDC* pDC = GetDC();
  if (pDC == NULL || pDC->GetSafeHdc() == NULL || nLines <= 0) return;
  FontScope font(pDC, GetActiveFont());
  int nHeight = LineHeight();
  for (int i = 0; i < nLines; i++) {
    m_ptPos.y += nHeight;
    MakeRoom(nHeight);
  }
}

// ---- Index ----------------------------------------------------------------------

void VPrintUnit::AddIndexItem(VIndexItem* pItem) {
  if (m_pJob != NULL) m_pJob->AddIndexItem(pItem);
}

void VPrintUnit::AddIndexEntry(const char* pszText, DWORD dwFlags) {
  VIndexItem item;
  item.m_strText = pszText;
  item.m_dwFlags = dwFlags;
  item.m_nPage = (WORD)m_nPage;
  AddIndexItem(&item);
}

void VPrintUnit::PrintTree(VPrintIndexTree* pTree, int nLevel) {
  if (pTree == NULL || nLevel > kMaxLevel) return;
  for (INT_PTR i = 0; i < pTree->GetSize(); i++) {
    VIndexItem& item = pTree->ElementAt(i);
    PrintTreeItem(item, nLevel);
    if (item.m_pChildren != NULL) PrintTree(item.m_pChildren, nLevel + 1);
  }
}

void VPrintUnit::PrintTreeItem(VIndexItem& item, int nLevel) {
  CDC* pDC = GetDC();
  if (pDC == NULL || pDC->GetSafeHdc() == NULL) return;
  CString strLine = item.m_strText;
  if (item.m_dwFlags & VIndexItem::flagPage) {
    if (item.m_dwFlags & VIndexItem::flagLeader) strLine += '\x1C';
    strLine += '\x1E';
    CString strPage;
    strPage.Format("%d", item.m_nPage);
    strLine += strPage;
  }
  int nIndent = 0, nHeight = 0;
  CFont* pFont = GetLevelInfo(nLevel, nIndent, nHeight);
  CFont* pOld = m_pActiveFont;
  if (pFont != NULL) m_pActiveFont = pFont;
  if (nHeight == 0) {
    FontScope font(pDC, GetActiveFont());
    nHeight = LineHeight();
  }
  MakeRoom(nHeight);
  PrintTextLine(strLine, nIndent);
  m_pActiveFont = pOld;
}

CFont* VPrintUnit::GetLevelInfo(int nLevel, int& nIndent, int& nHeight) {
  nIndent = nLevel * 100;
  nHeight = 0;
  return NULL;
}
