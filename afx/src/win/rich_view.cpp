// CRichEditView: a view that is the system's rich edit control; word wrap,
// archiving its contents through a stream, and printing page by page with
// the control's own formatting.
#include <afxrich.h>
#include <limits.h>

#include <exception>

IMPLEMENT_DYNCREATE(CRichEditView, CCtrlView)

BEGIN_MESSAGE_MAP(CRichEditView, CCtrlView)
ON_WM_CREATE()
END_MESSAGE_MAP()

// Decided here: the paper is Letter (8.5 by 11 inches) until set, with
// margins of 1.25 inches at the sides and 1 inch at top and bottom.
CRichEditView::CRichEditView()
    : CCtrlView(RICHEDIT_CLASS, AFX_WS_DEFAULT_VIEW | WS_HSCROLL | WS_VSCROLL | ES_AUTOHSCROLL |
                                    ES_AUTOVSCROLL | ES_MULTILINE | ES_NOHIDESEL),
      m_nWordWrap(WrapToWindow), m_rectMargin(1800, 1440, 1800, 1440), m_sizePaper(12240, 15840) {
  AfxInitRichEdit2(); // the class must exist before the window is made
}

CRichEditView::~CRichEditView() {}

int CRichEditView::OnCreate(LPCREATESTRUCT lpcs) {
  if (CCtrlView::OnCreate(lpcs) != 0) return -1;
  CRichEditCtrl& ctrl = GetRichEditCtrl();
  ctrl.LimitText(LONG_MAX); // not the control's 32K default
  ctrl.SetEventMask(ENM_SELCHANGE | ENM_CHANGE | ENM_SCROLL);
  WrapChanged();
  return 0;
}

void CRichEditView::SetPaperSize(CSize sizePaper) {
  m_sizePaper = sizePaper;
  if (m_nWordWrap == WrapToTargetDevice && m_hWnd != NULL) WrapChanged();
}

CRect CRichEditView::GetPrintRect() const {
  return CRect(m_rectMargin.left, m_rectMargin.top, m_sizePaper.cx - m_rectMargin.right,
               m_sizePaper.cy - m_rectMargin.bottom);
}

void CRichEditView::WrapChanged() {
  CRichEditCtrl& ctrl = GetRichEditCtrl();
  switch (m_nWordWrap) {
  case WrapNone:
    ctrl.SetTargetDevice(NULL, 1);
    break;
  case WrapToTargetDevice: {
    // Lines as wide as the printed ones, measured on the current printer.
    if (m_dcTarget.GetSafeHdc() == NULL) {
      CWinApp* pApp = AfxGetApp();
      if (pApp != NULL) pApp->CreatePrinterDC(m_dcTarget);
    }
    if (m_dcTarget.GetSafeHdc() != NULL) {
      ctrl.SetTargetDevice(m_dcTarget, GetPrintRect().Width());
      break;
    }
    ctrl.SetTargetDevice(NULL, 0); // no printer: the window's width
    break;
  }
  default:
    ctrl.SetTargetDevice(NULL, 0);
    break;
  }
}

void CRichEditView::DeleteContents() {
  CRichEditCtrl& ctrl = GetRichEditCtrl();
  ctrl.SetWindowText("");
  ctrl.EmptyUndoBuffer();
  ctrl.SetModify(FALSE);
}

// ---- Streams ---------------------------------------------------------------------------------

namespace {
// The archive a stream reads or writes, and the exception it raised: it must
// not pass through the control's code, so the callback stops the stream and
// the exception is thrown again after, as the same type (a CFileException
// stays one for its catchers; a rethrown CException* would not).
struct StreamCookie {
  CArchive* pArchive;
  std::exception_ptr error;
};

DWORD CALLBACK StreamInCallback(DWORD_PTR dwCookie, LPBYTE pbBuff, LONG cb, LONG* pcb) {
  StreamCookie* pCookie = (StreamCookie*)dwCookie;
  try {
    *pcb = (LONG)pCookie->pArchive->Read(pbBuff, (UINT)cb);
  } catch (...) {
    pCookie->error = std::current_exception();
    *pcb = 0;
    return 1; // stops the stream
  }
  return 0;
}

DWORD CALLBACK StreamOutCallback(DWORD_PTR dwCookie, LPBYTE pbBuff, LONG cb, LONG* pcb) {
  StreamCookie* pCookie = (StreamCookie*)dwCookie;
  try {
    pCookie->pArchive->Write(pbBuff, (UINT)cb);
    *pcb = cb;
  } catch (...) {
    pCookie->error = std::current_exception();
    *pcb = 0;
    return 1;
  }
  return 0;
}
} // namespace

void CRichEditView::Stream(CArchive& ar, BOOL bSelection) {
  CRichEditDoc* pDoc = GetDocument();
  int nFormat = pDoc != NULL ? pDoc->GetStreamFormat() : SF_RTF;
  if (bSelection) nFormat |= SFF_SELECTION;
  StreamCookie cookie = {&ar, nullptr};
  EDITSTREAM es;
  es.dwCookie = (DWORD_PTR)&cookie;
  es.dwError = 0;
  if (ar.IsStoring()) {
    es.pfnCallback = StreamOutCallback;
    GetRichEditCtrl().StreamOut(nFormat, es);
  } else {
    es.pfnCallback = StreamInCallback;
    GetRichEditCtrl().StreamIn(nFormat, es);
  }
  if (cookie.error) std::rethrow_exception(cookie.error);
}

void CRichEditView::Serialize(CArchive& ar) { Stream(ar, FALSE); }

// ---- Printing --------------------------------------------------------------------------------

// Twips of the device's printable-area offset (0 for a device without one).
static CSize PrintableOffset(CDC* pDC) {
  int nLogX = pDC->GetDeviceCaps(LOGPIXELSX), nLogY = pDC->GetDeviceCaps(LOGPIXELSY);
  if (nLogX <= 0 || nLogY <= 0) return CSize(0, 0);
  return CSize(::MulDiv(pDC->GetDeviceCaps(PHYSICALOFFSETX), 1440, nLogX),
               ::MulDiv(pDC->GetDeviceCaps(PHYSICALOFFSETY), 1440, nLogY));
}

long CRichEditView::FormatPage(CDC* pDC, long nIndexStart, long nIndexStop, BOOL bDisplay) {
  FORMATRANGE fr;
  fr.hdc = pDC->GetSafeHdc();
  fr.hdcTarget = fr.hdc;
  // The device's origin is the corner of its printable area.
  CSize sizeOffset = PrintableOffset(pDC);
  CRect rectPage = GetPageRect();
  CRect rectPrint = GetPrintRect();
  rectPage.OffsetRect(-sizeOffset.cx, -sizeOffset.cy);
  rectPrint.OffsetRect(-sizeOffset.cx, -sizeOffset.cy);
  fr.rcPage = rectPage;
  fr.rc = rectPrint;
  fr.chrg.cpMin = nIndexStart;
  fr.chrg.cpMax = nIndexStop;
  return GetRichEditCtrl().FormatRange(&fr, bDisplay);
}

long CRichEditView::PrintPage(CDC* pDC, long nIndexStart, long nIndexStop) {
  return FormatPage(pDC, nIndexStart, nIndexStop, TRUE);
}

void CRichEditView::OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo) {
  CCtrlView::OnBeginPrinting(pDC, pInfo);
  m_aPageStart.RemoveAll();
  m_aPageStart.Add(0);
  // The paper of the printer when it says (a printer does, a screen not).
  int nLogX = pDC->GetDeviceCaps(LOGPIXELSX), nLogY = pDC->GetDeviceCaps(LOGPIXELSY);
  int nWidth = pDC->GetDeviceCaps(PHYSICALWIDTH), nHeight = pDC->GetDeviceCaps(PHYSICALHEIGHT);
  if (nLogX > 0 && nLogY > 0 && nWidth > 0 && nHeight > 0)
    m_sizePaper = CSize(::MulDiv(nWidth, 1440, nLogX), ::MulDiv(nHeight, 1440, nLogY));
}

// Pages are found in order: the starts of the pages up to the one asked for
// are measured first (a range may begin past page 1); there is a page to
// print while its start is known.
void CRichEditView::OnPrepareDC(CDC* pDC, CPrintInfo* pInfo) {
  CCtrlView::OnPrepareDC(pDC, pInfo);
  if (pInfo == NULL || pDC == NULL || pDC->GetSafeHdc() == NULL) return;
  if (m_aPageStart.GetSize() == 0) m_aPageStart.Add(0);
  long nTextLength = GetTextLength();
  while ((UINT)m_aPageStart.GetSize() < pInfo->m_nCurPage) {
    long nStart = (long)m_aPageStart[m_aPageStart.GetSize() - 1];
    long nNext = FormatPage(pDC, nStart, -1, FALSE);
    if (nNext <= nStart || nNext >= nTextLength) break; // no page after it
    m_aPageStart.Add((DWORD)nNext);
  }
  pInfo->m_bContinuePrinting = pInfo->m_nCurPage <= (UINT)m_aPageStart.GetSize();
}

void CRichEditView::OnPrint(CDC* pDC, CPrintInfo* pInfo) {
  if (pInfo->m_nCurPage < 1 || pInfo->m_nCurPage > (UINT)m_aPageStart.GetSize()) return;
  long nStart = (long)m_aPageStart[pInfo->m_nCurPage - 1];
  long nNext = PrintPage(pDC, nStart, -1);
  if ((UINT)m_aPageStart.GetSize() == pInfo->m_nCurPage && nNext > nStart &&
      nNext < GetTextLength())
    m_aPageStart.Add((DWORD)nNext);
}

void CRichEditView::OnEndPrinting(CDC* pDC, CPrintInfo* pInfo) {
  GetRichEditCtrl().FormatRange(NULL, FALSE); // frees the control's cache
  m_aPageStart.RemoveAll();
  CCtrlView::OnEndPrinting(pDC, pInfo);
}
