// The gallery's pages that need no more than the frame: the welcome page
// and a document of several pages to print.
#include "gallery.h"

IMPLEMENT_DYNCREATE(CWelcomeView, CView)

void CWelcomeView::OnDraw(CDC* pDC) {
  static const char* const s_lines[] = {
      "VRK is a library of user-interface and utility classes for MFC applications.",
      "",
      "This gallery is an MFC application built on afx and VRK.DLL.",
      "Open its pages from the Pages menu or the second toolbar:",
      "",
      "    Welcome        this page",
      "    Controls       masked date and time edits: type digits, the separators come by "
      "themselves",
      "    Printing       a document of several pages; print it with File > Print",
      "",
      "Tools > Nested Progress runs a job whose progress nests in the status bar.",
  };
  CRect rcClient;
  GetClientRect(&rcClient);
  CFont fontHeading;
  fontHeading.CreatePointFont(160, "Arial", pDC);
  CFont* pOldFont = pDC->SelectObject(&fontHeading);
  pDC->SetBkMode(TRANSPARENT);
  pDC->TextOut(16, 12, CString("VRK Gallery"));
  TEXTMETRIC tm;
  pDC->GetTextMetrics(&tm);
  int y = 12 + tm.tmHeight + 8;
  pDC->SelectObject(pOldFont);
  pDC->SelectStockObject(DEFAULT_GUI_FONT);
  pDC->GetTextMetrics(&tm);
  for (const char* pszLine : s_lines) {
    pDC->TextOut(16, y, CString(pszLine));
    y += tm.tmHeight + 2;
  }
}

IMPLEMENT_DYNCREATE(CPrintingView, CView)

BEGIN_MESSAGE_MAP(CPrintingView, CView)
ON_COMMAND(ID_FILE_PRINT, &CView::OnFilePrint)
ON_COMMAND(ID_FILE_PRINT_PREVIEW, &CView::OnFilePrintPreview)
END_MESSAGE_MAP()

CString CPrintingView::LineText(int nLine) {
  CString str;
  str.Format("Line %d of %d: the quick brown fox jumps over the lazy dog.", nLine + 1, (int)nLines);
  return str;
}

void CPrintingView::OnDraw(CDC* pDC) {
  TEXTMETRIC tm;
  pDC->SelectStockObject(DEFAULT_GUI_FONT);
  pDC->GetTextMetrics(&tm);
  pDC->TextOut(16, 8,
               CString("Print this document with File > Print (Ctrl+P), or see it first with File "
                       "> Print Preview."));
  for (int i = 0; i < 20; i++)
    pDC->TextOut(16, 16 + (i + 1) * (tm.tmHeight + 2), LineText(i));
}

BOOL CPrintingView::OnPreparePrinting(CPrintInfo* pInfo) {
  pInfo->SetMaxPage((nLines + m_nLinesPerPage - 1) / m_nLinesPerPage);
  return DoPreparePrinting(pInfo);
}

void CPrintingView::OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo) {
  m_fontPrint.CreatePointFont(100, "Arial", pDC);
  CFont* pOldFont = pDC->SelectObject(&m_fontPrint);
  TEXTMETRIC tm;
  pDC->GetTextMetrics(&tm);
  pDC->SelectObject(pOldFont);
  int cyPage = pDC->GetDeviceCaps(VERTRES);
  m_nLinesPerPage = cyPage / (tm.tmHeight + tm.tmExternalLeading) - 4;
  if (m_nLinesPerPage < 1) m_nLinesPerPage = 1;
  pInfo->SetMaxPage((nLines + m_nLinesPerPage - 1) / m_nLinesPerPage);
  GalleryLog("printing: %u pages %s", pInfo->GetMaxPage(),
             pInfo->m_bPreview ? "previewed" : "printed");
}

void CPrintingView::OnPrint(CDC* pDC, CPrintInfo* pInfo) {
  CFont* pOldFont = pDC->SelectObject(&m_fontPrint);
  TEXTMETRIC tm;
  pDC->GetTextMetrics(&tm);
  int cyLine = tm.tmHeight + tm.tmExternalLeading;
  CString strHeading;
  strHeading.Format("VRK Gallery - page %u", pInfo->m_nCurPage);
  pDC->TextOut(0, 0, strHeading);
  int nFirst = (pInfo->m_nCurPage - 1) * m_nLinesPerPage;
  for (int i = 0; i < m_nLinesPerPage && nFirst + i < nLines; i++)
    pDC->TextOut(0, (i + 2) * cyLine, LineText(nFirst + i));
  pDC->SelectObject(pOldFont);
}

void CPrintingView::OnEndPrinting(CDC*, CPrintInfo* pInfo) {
  m_fontPrint.DeleteObject();
  if (pInfo->m_bPreview) GalleryLog("printing: preview closed");
}
