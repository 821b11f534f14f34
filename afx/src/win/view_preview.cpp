// Print preview from the view's and the frame's side: ID_FILE_PRINT_PREVIEW,
// the preview view put in the top-level frame's place and taken away again,
// and what the frame puts aside meanwhile (OnSetPreviewMode).
#include <afxwin.h>
#include <afxext.h>
#include <afxpriv.h>

// Closing the frame while the preview shows ends the preview; the frame
// stays open.
static BOOL CALLBACK PreviewCloseProc(CFrameWnd* pFrameWnd) {
  CPreviewView* pView = DYNAMIC_DOWNCAST(CPreviewView, pFrameWnd->GetActiveView());
  if (pView != NULL) pView->OnPreviewClose();
  return FALSE;
}

CPrintPreviewState::CPrintPreviewState()
    : nIDMainPane(AFX_IDW_PANE_FIRST), hMenu(NULL), dwStates(0), pViewActiveOld(NULL),
      lpfnCloseProc(&PreviewCloseProc), hAccelTable(NULL) {}

// ---- CView ---------------------------------------------------------------------------

void CView::OnFilePrintPreview() {
  CPrintPreviewState* pState = new CPrintPreviewState;
  if (!DoPrintPreview(AFX_IDD_PREVIEW_TOOLBAR, this, RUNTIME_CLASS(CPreviewView), pState)) {
    AfxMessageBox(AFX_IDP_COMMAND_FAILURE);
    delete pState;
  }
}

// A preview that could not start goes; the frame is as it was.
static void UndoPreview(CFrameWnd* pParent, CPreviewView* pView, CPrintPreviewState* pState) {
  if (pView->m_pToolBar != NULL) pView->m_pToolBar->DestroyWindow(); // it deletes itself
  pView->m_pToolBar = NULL;
  pView->DestroyWindow(); // and with it the preview's print job
  pParent->OnSetPreviewMode(FALSE, pState);
}

// Decided here: the preview takes the place of the view's top-level frame's
// client (for an MDI child's view, the MDI frame's), which is the main
// window in an application.
BOOL CView::DoPrintPreview(UINT nIDResource, CView* pPrintView, CRuntimeClass* pPreviewViewClass,
                           CPrintPreviewState* pState) {
  CFrameWnd* pParent = GetTopLevelFrame();
  if (pPrintView == NULL || pPreviewViewClass == NULL || pState == NULL || pParent == NULL)
    return FALSE;
  // One preview at a time.
  if (pParent->m_lpfnCloseProc != NULL) return FALSE;
  CObject* pObject = pPreviewViewClass->CreateObject();
  if (pObject == NULL) return FALSE;
  if (!pObject->IsKindOf(RUNTIME_CLASS(CPreviewView))) {
    delete pObject;
    return FALSE;
  }
  CPreviewView* pView = (CPreviewView*)pObject;

  pState->pViewActiveOld = pParent->GetActiveView();
  pParent->OnSetPreviewMode(TRUE, pState);
  CDialogBar* pToolBar = new CDialogBar;
  pToolBar->m_bAutoDelete = TRUE;
  if (!pToolBar->Create(pParent, MAKEINTRESOURCE(nIDResource), CBRS_TOP, AFX_IDW_PREVIEW_BAR)) {
    delete pToolBar;
    delete pView;
    pParent->OnSetPreviewMode(FALSE, pState);
    return FALSE;
  }
  CCreateContext context;
  context.m_pCurrentFrame = pParent;
  context.m_pCurrentDoc = GetDocument();
  context.m_pLastView = this;
  // A view whose window fails is deleted (PostNcDestroy).
  if (!pView->Create(NULL, NULL, AFX_WS_DEFAULT_VIEW, CRect(0, 0, 0, 0), pParent,
                     AFX_IDW_PANE_FIRST, &context)) {
    pToolBar->DestroyWindow();
    pParent->OnSetPreviewMode(FALSE, pState);
    return FALSE;
  }
  pView->m_pOrigView = this;
  pView->m_pToolBar = pToolBar;
  BOOL bPrepared = FALSE;
  try {
    bPrepared = pView->SetPrintView(pPrintView);
  } catch (CException*) {
    // A print hook failed: the frame as it was, and the exception goes on.
    UndoPreview(pParent, pView, pState);
    throw;
  }
  if (!bPrepared) {
    UndoPreview(pParent, pView, pState);
    return FALSE;
  }
  pView->m_pPreviewState = pState; // the preview's from here on
  pParent->SetActiveView(pView);
  pParent->RecalcLayout();
  // The toolbar's buttons as they stand for the first page.
  pToolBar->SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  pParent->UpdateWindow();
  return TRUE;
}

void CView::OnEndPrintPreview(CDC* pDC, CPrintInfo* pInfo, POINT, CPreviewView* pView) {
  OnEndPrinting(pDC, pInfo);
  CFrameWnd* pParent = pView->GetParentFrame();
  CPrintPreviewState* pState = pView->m_pPreviewState;
  if (pView->m_pToolBar != NULL) {
    pView->m_pToolBar->DestroyWindow(); // it deletes itself
    pView->m_pToolBar = NULL;
  }
  if (pParent != NULL && pState != NULL) {
    pParent->OnSetPreviewMode(FALSE, pState);
    // The old view is active again before the preview goes, so that the
    // preview's going leaves it so.
    pParent->SetActiveView(pState->pViewActiveOld);
  }
  pView->DestroyWindow(); // with it pDC, pInfo and pState
  if (pParent != NULL) {
    pParent->RecalcLayout();
    pParent->SendMessage(WM_SETMESSAGESTRING, AFX_IDS_IDLEMESSAGE);
    pParent->UpdateWindow();
  }
}

// ---- CFrameWnd -----------------------------------------------------------------------

// The control bars whose visibility the preview's record can hold.
static const UINT kFirstBar = AFX_IDW_CONTROLBAR_FIRST, kLastBar = AFX_IDW_CONTROLBAR_FIRST + 31;

void CFrameWnd::OnSetPreviewMode(BOOL bPreview, CPrintPreviewState* pState) {
  if (pState == NULL) return;
  if (bPreview) {
    pState->hMenu = ::GetMenu(m_hWnd);
    ::SetMenu(m_hWnd, NULL);
    m_nIdleFlags &= ~idleMenu; // an MDI frame's pending menu change would put one back
    pState->hAccelTable = m_hAccelTable;
    m_hAccelTable = AfxLoadAccelerators(MAKEINTRESOURCE(AFX_IDR_PREVIEW_ACCEL));
    m_lpfnCloseProc = pState->lpfnCloseProc;
    // The status bar stays: it shows the page number.
    pState->dwStates = 0;
    for (UINT nID = kFirstBar; nID <= kLastBar; nID++) {
      CControlBar* pBar = nID != AFX_IDW_STATUS_BAR ? GetControlBar(nID) : NULL;
      if (pBar == NULL || !pBar->IsVisible()) continue;
      pState->dwStates |= AFX_CONTROLBAR_MASK(nID);
      pBar->ShowWindow(SW_HIDE);
      pBar->DelayShow(FALSE); // hidden now: no pending show or hide is left
    }
    CWnd* pPane = GetDlgItem(pState->nIDMainPane);
    if (pPane != NULL) {
      pPane->ShowWindow(SW_HIDE);
      pPane->SetDlgCtrlID(AFX_IDW_PANE_SAVE);
    }
    return;
  }
  m_lpfnCloseProc = NULL;
  CWnd* pPane = GetDlgItem(AFX_IDW_PANE_SAVE);
  if (pPane != NULL) {
    pPane->SetDlgCtrlID(pState->nIDMainPane);
    pPane->ShowWindow(SW_SHOWNA);
  }
  for (UINT nID = kFirstBar; nID <= kLastBar; nID++) {
    CControlBar* pBar = (pState->dwStates & AFX_CONTROLBAR_MASK(nID)) ? GetControlBar(nID) : NULL;
    if (pBar != NULL) pBar->ShowWindow(SW_SHOWNA);
  }
  m_hAccelTable = pState->hAccelTable;
  ::SetMenu(m_hWnd, pState->hMenu);
  RecalcLayout();
}
