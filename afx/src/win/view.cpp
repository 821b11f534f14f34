// CView: a frame's child that shows its document; painting through
// OnPrepareDC and OnDraw, updates, activation, and the print hooks' defaults.
#include <afxwin.h>
#include <afxext.h>
#include <afxpriv.h>
#include "frame_impl.h"

IMPLEMENT_DYNAMIC(CView, CWnd)

BEGIN_MESSAGE_MAP(CView, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_PAINT()
ON_MESSAGE(WM_MOUSEACTIVATE, OnMouseActivate)
ON_MESSAGE(WM_INITIALUPDATE, OnInitialUpdateMsg)
END_MESSAGE_MAP()

CView::CView() : m_pDocument(NULL) {}

CView::~CView() {
  if (m_pDocument != NULL) m_pDocument->RemoveView(this);
}

// A view object lives as long as its window.
void CView::PostNcDestroy() { delete this; }

BOOL CView::PreCreateWindow(CREATESTRUCT& cs) {
  if (cs.lpszClass == NULL) {
    cs.lpszClass = AfxFrameOrViewClass();
    if (cs.lpszClass == NULL) return FALSE;
  }
  // A border is drawn as the sunken client edge.
  if (cs.style & WS_BORDER) {
    cs.dwExStyle |= WS_EX_CLIENTEDGE;
    cs.style &= ~WS_BORDER;
  }
  return TRUE;
}

int CView::OnCreate(LPCREATESTRUCT lpcs) {
  if (CWnd::OnCreate(lpcs) == -1) return -1;
  // The creation context names the document this view shows.
  CCreateContext* pContext = (CCreateContext*)lpcs->lpCreateParams;
  if (pContext != NULL && pContext->m_pCurrentDoc != NULL) pContext->m_pCurrentDoc->AddView(this);
  return 0;
}

void CView::OnDestroy() {
  CFrameWnd* pFrame = GetParentFrame();
  if (pFrame != NULL && pFrame->GetActiveView() == this) pFrame->SetActiveView(NULL);
  CWnd::OnDestroy();
}

// The view and then its document (and through it the template) may handle
// a command.
BOOL CView::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  return m_pDocument != NULL && m_pDocument->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

BOOL CView::IsSelected(const CObject*) const { return FALSE; }

// ---- Drawing and updates ---------------------------------------------------------

void CView::OnPaint() {
  CPaintDC dc(this);
  OnPrepareDC(&dc);
  OnDraw(&dc);
}

void CView::OnPrepareDC(CDC*, CPrintInfo* pInfo) {
  // A document of unknown length (no maximum page) prints one page.
  if (pInfo != NULL)
    pInfo->m_bContinuePrinting = (pInfo->GetMaxPage() != 0xFFFF || pInfo->m_nCurPage == 1);
}

void CView::OnInitialUpdate() { OnUpdate(NULL, 0, NULL); }

void CView::OnUpdate(CView* pSender, LPARAM, CObject*) {
  if (pSender != this) Invalidate(TRUE);
}

LRESULT CView::OnInitialUpdateMsg(WPARAM, LPARAM) {
  OnInitialUpdate();
  return 0;
}

// ---- Activation ------------------------------------------------------------------------

void CView::OnActivateView(BOOL bActivate, CView*, CView*) {
  if (!bActivate) return;
  // The focus comes here when this view's top-level window is the active one.
  CWnd* pTopLevel = GetTopLevelParent();
  if (pTopLevel != NULL && pTopLevel->m_hWnd == ::GetActiveWindow()) SetFocus();
}

void CView::OnActivateFrame(UINT, CFrameWnd*) {}

// A click makes this the active view of its frame.
LRESULT CView::OnMouseActivate(WPARAM, LPARAM) {
  LRESULT nResult = Default();
  if (nResult == MA_NOACTIVATE || nResult == MA_NOACTIVATEANDEAT) return nResult;
  CFrameWnd* pParentFrame = GetParentFrame();
  if (pParentFrame != NULL) {
    CView* pView = pParentFrame->GetActiveView();
    HWND hWndFocus = ::GetFocus();
    if (pView == this && m_hWnd != hWndFocus && !::IsChild(m_hWnd, hWndFocus))
      OnActivateView(TRUE, this, this); // the active view takes the focus back
    else
      pParentFrame->SetActiveView(this);
  }
  return nResult;
}

// ---- Printing ------------------------------------------------------------------------

// Decided here: the default does no preparation and lets the job go on, as
// a view that prints must override it (to call DoPreparePrinting) anyway.
BOOL CView::OnPreparePrinting(CPrintInfo*) { return TRUE; }

void CView::OnBeginPrinting(CDC*, CPrintInfo*) {}

void CView::OnPrint(CDC* pDC, CPrintInfo*) { OnDraw(pDC); }

void CView::OnEndPrinting(CDC*, CPrintInfo*) {}
