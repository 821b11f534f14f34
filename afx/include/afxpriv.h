// afxpriv.h: the framework's private messages and layout record, public so
// that control bars and frames of other modules can take part in layout.
#ifndef __AFXPRIV_H__
#define __AFXPRIV_H__

#include "afxwin.h"

// WM_IDLEUPDATECMDUI (0x0363) and WM_KICKIDLE (0x036A) are in afxwin.h.
#define WM_SIZEPARENT 0x0361       // lParam = AFX_SIZEPARENTPARAMS*
#define WM_SETMESSAGESTRING 0x0362 // wParam = string id or 0, lParam = LPCSTR
#define WM_INITIALUPDATE 0x0364    // sent to views after a document opens
#define WM_COMMANDHELP 0x0365
#define WM_HELPHITTEST 0x0366
#define WM_EXITHELPMODE 0x0367
#define WM_RECALCPARENT 0x0368 // a bar asks its frame to lay out again
#define WM_SIZECHILD 0x0369
#define WM_QUERYCENTERWND 0x036B
#define WM_DISABLEMODAL 0x036C
#define WM_FLOATSTATUS 0x036D
#define WM_ACTIVATETOPLEVEL 0x036E
#define WM_POPMESSAGESTRING 0x0375

// What RepositionBars hands each bar with WM_SIZEPARENT: the rectangle still
// free (a bar takes its strip from it), or, when hDWP is NULL, the size so far.
struct AFX_SIZEPARENTPARAMS {
  HDWP hDWP;
  RECT rect;
  SIZE sizeTotal;
  BOOL bStretch;
};

// ---- Print preview -----------------------------------------------------------------

class CDialogBar;

// What the frame put aside for print preview (CFrameWnd::OnSetPreviewMode),
// to be put back when it ends.
struct CPrintPreviewState {
  UINT nIDMainPane;      // the id of the frame's main pane, hidden meanwhile
  HMENU hMenu;           // the frame's menu
  DWORD dwStates;        // the bars hidden: AFX_CONTROLBAR_MASK of their ids
  CView* pViewActiveOld; // the frame's active view
  BOOL(CALLBACK* lpfnCloseProc)(CFrameWnd* pFrameWnd); // the frame's close, meanwhile
  HACCEL hAccelTable;                                  // the frame's accelerators
  CPrintPreviewState();
};

// The view print preview shows in a frame in place of its own (made by
// CView::DoPrintPreview): the page or two pages side by side, each drawn by
// the printing view's OnPrepareDC and OnPrint with CPrintInfo::m_bPreview
// set, scaled to fit as white paper with a shadow on the workspace colour,
// and the toolbar's commands (AFX_ID_PREVIEW_*): next and previous page, one
// or two pages, zoom in and out, print and close. The frame's status bar
// shows the page number.
//
// How this library does it (its own choices, said here):
// - It is a CScrollView in MM_TEXT (screen pixels): zoomed in, the page
//   scrolls; smaller than the view, the pages are centred in it.
// - There is no CPreviewDC. m_pPreviewDC is a CDC whose attribute DC is the
//   printer's (so text measures, device caps and DPtoLP are the printer's)
//   while each page's output goes to an enhanced metafile made against the
//   printer; the metafile is played into the page's rectangle on the screen,
//   which scales it. Pages are kept as metafiles until the page changes.
// - Zoom has three steps: the whole page (or two) fitting the view, one page
//   at twice the size of one fitting it, and at three times; one page shows
//   when zoomed. A click on a page (the pointer is a magnifier there) zooms
//   in one step, keeping the point clicked under the pointer, and from the
//   last step back out; the toolbar's buttons zoom from the page's top left.
// - Page N exists when it is within the print info's maximum page and the
//   view's OnPrepareDC leaves m_bContinuePrinting set, as when printing.
class AFX_API CPreviewView : public CScrollView {
  DECLARE_DYNCREATE(CPreviewView)
public:
  CPreviewView();
  virtual ~CPreviewView();

  enum { ZOOM_OUT = 0, ZOOM_MIDDLE = 1, ZOOM_IN = 2 };

  // Prepares the preview of pPrintView: its OnPreparePrinting (with the
  // application's printer when it asks for none) and OnBeginPrinting, the
  // first page. FALSE when it cannot (no printer, cancelled).
  virtual BOOL SetPrintView(CView* pPrintView);
  // Shows nPage (clamped to the pages that exist) first.
  void SetCurrentPage(UINT nPage, BOOL bClearRatios);
  // Zooms to nNewState showing nPage, scrolled so that point (in the client
  // area, on the page shown before) stays where it is; from the page's top
  // left when point is not on it.
  void SetZoomState(UINT nNewState, UINT nPage, CPoint point);
  // Writes "Page N" or "Pages N-M" (m_pPreviewInfo->m_strPageDesc) to the
  // frame's status bar.
  virtual void OnDisplayPageNumber(UINT nPage, UINT nPagesDisplayed);

  CView* m_pOrigView;                  // the view that asked for the preview
  CView* m_pPrintView;                 // the view whose pages are shown
  CDC* m_pPreviewDC;                   // the DC the pages are drawn on (see above)
  CPrintInfo* m_pPreviewInfo;          // the preview's print job, owned
  CPrintPreviewState* m_pPreviewState; // owned: deleted with the view
  CDialogBar* m_pToolBar;              // the toolbar (it deletes itself)
  UINT m_nZoomState;
  UINT m_nMaxPages;    // pages side by side at most (2)
  UINT m_nPages;       // pages side by side now
  UINT m_nCurrentPage; // the first page shown

  virtual void OnDraw(CDC* pDC);

  afx_msg void OnPreviewClose();
  afx_msg void OnPreviewPrint();
  afx_msg void OnNextPage();
  afx_msg void OnPrevPage();
  afx_msg void OnNumPageChange();
  afx_msg void OnZoomIn();
  afx_msg void OnZoomOut();
  afx_msg void OnUpdateNextPage(CCmdUI* pCmdUI);
  afx_msg void OnUpdatePrevPage(CCmdUI* pCmdUI);
  afx_msg void OnUpdateNumPageChange(CCmdUI* pCmdUI);
  afx_msg void OnUpdateZoomIn(CCmdUI* pCmdUI);
  afx_msg void OnUpdateZoomOut(CCmdUI* pCmdUI);
  afx_msg BOOL OnEraseBkgnd(CDC* pDC);
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
  afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);

protected:
  // The paper and its printable area, in the printer's pixels.
  CSize m_sizePaper;
  CRect m_rectPrintable;
  CSize m_sizePrinterPPI;
  HENHMETAFILE m_hPageMeta[2]; // the pages shown, as drawn
  UINT m_nPageMeta[2];         // their numbers
  BOOL m_bNextPage;            // the page after those shown exists
  BOOL m_bMultiPage;           // the document has a second page

  // nPage exists (see above).
  BOOL PageExists(UINT nPage);
  // nPage drawn by the printing view, or NULL when it does not exist.
  HENHMETAFILE DrawPage(UINT nPage);
  void ClearPages();
  // The pages shown side by side (1 when zoomed).
  UINT GetPagesShown() const { return m_nZoomState == ZOOM_OUT ? m_nPages : 1; }
  // The size of one page on the screen, and of everything shown.
  CSize GetPageSize() const;
  CSize CalcTotalSize() const;
  // The scroll sizes for the zoom and the view's size.
  void UpdateScrollSizes();
  // The paper of the nSlot-th page shown, in the view's logical coordinates.
  CRect GetPageRect(UINT nSlot) const;
  // The page shown at ptLog (logical coordinates): its slot, or -1.
  int PageAt(CPoint ptLog) const;
  CPoint ClientToLogical(CPoint point);
  DECLARE_MESSAGE_MAP()
};

#endif // __AFXPRIV_H__
