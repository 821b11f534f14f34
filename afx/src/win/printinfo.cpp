// CPrintInfo: the record of one print job, owning its print dialog.
#include <afxprint_.h>

CPrintInfo::CPrintInfo()
    : m_pPD(NULL), m_bDocObject(FALSE), m_dwFlags(0), m_nOffsetPage(0), m_nJobNumber(0),
      m_bPreview(FALSE), m_bDirect(FALSE), m_bContinuePrinting(TRUE), m_nCurPage(1),
      m_nNumPreviewPages(0), m_lpUserData(NULL), m_rectDraw(0, 0, 0, 0) {
  // Page numbers are asked for only by a view that knows its pages; the
  // selection is never offered.
  // (CObject's operator new raises CMemoryException when memory runs out.)
  m_pPD = new CPrintDialog(FALSE, PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOSELECTION);
  // The document's length is unknown until the view says so.
  SetMinPage(1);
  SetMaxPage(0xFFFF);
  m_pPD->m_pd.nFromPage = 1;
  m_pPD->m_pd.nToPage = 0xFFFF;
}

CPrintInfo::~CPrintInfo() {
  // The printer DC the job's dialog made belongs to the job.
  if (m_pPD != NULL && m_pPD->m_pd.hDC != NULL) {
    ::DeleteDC(m_pPD->m_pd.hDC);
    m_pPD->m_pd.hDC = NULL;
  }
  delete m_pPD;
}
