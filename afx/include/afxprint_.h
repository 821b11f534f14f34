// afxprint_.h: CPrintInfo, the framework's record of a print job; included
// by afxext.h.
#ifndef AFXPRINT__H
#define AFXPRINT__H

#include "afxwin.h"
#include "afxdlgs.h"

// One print job of a view (CView::OnFilePrint makes one per job and hands it
// to every print hook). It owns its print dialog (m_pPD) and the printer DC
// that dialog holds: both are deleted with it. As with MFC it can be copied
// member by member; a class that copies it must give the copy its own dialog.
struct AFX_API CPrintInfo {
  CPrintInfo();
  ~CPrintInfo();

  CPrintDialog* m_pPD; // the job's print dialog: its m_pd is the printer and range

  BOOL m_bDocObject;        // printing a DocObject (not used by this library)
  DWORD m_dwFlags;          // DocObject printing flags
  UINT m_nOffsetPage;       // pages before this DocObject's first in a combined job
  int m_nJobNumber;         // StartDoc's job number (SP_ERROR when it failed)
  BOOL m_bPreview;          // print preview (CPreviewView) rather than the printer
  BOOL m_bDirect;           // print without the dialog (ID_FILE_PRINT_DIRECT)
  BOOL m_bContinuePrinting; // FALSE (from OnPrepareDC) ends the page loop
  UINT m_nCurPage;          // the page being printed
  UINT m_nNumPreviewPages;  // pages shown in preview (1 or 2)
  CString m_strPageDesc;    // the page-number format of preview
  LPVOID m_lpUserData;      // for the application
  CRect m_rectDraw;         // the page's usable area, in logical units

  void SetMinPage(UINT nMinPage) { m_pPD->m_pd.nMinPage = (WORD)nMinPage; }
  void SetMaxPage(UINT nMaxPage) { m_pPD->m_pd.nMaxPage = (WORD)nMaxPage; }
  UINT GetMinPage() const { return m_pPD->m_pd.nMinPage; }
  UINT GetMaxPage() const { return m_pPD->m_pd.nMaxPage; }
  UINT GetFromPage() const { return m_pPD->m_pd.nFromPage; }
  UINT GetToPage() const { return m_pPD->m_pd.nToPage; }
  UINT GetOffsetPage() const { return m_nOffsetPage; }
};

#endif // AFXPRINT__H
