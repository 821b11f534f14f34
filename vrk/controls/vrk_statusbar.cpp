// VStatusBar: per-pane contents, the lock on the message text, and nested
// progress on a bar placed beside the message.
#include "vrk_statusbar.h"

#include <limits.h>
#include <string.h>

namespace {

// Pane styles set by SetPaneContents.
const UINT kHiddenPane = SBPS_DISABLED | SBPS_NOBORDERS; // 0x04000100, width 0
const UINT kTextPane = 0;
const UINT kColorTextPane = SBPS_OWNERDRAW;              // 0x1000
const UINT kBitmapPane = SBPS_DISABLED | SBPS_OWNERDRAW; // 0x04001000

enum { kindPlain = 0, kindColored = 1, kindReset = 2 };

const UINT kProgressID = 1;
const int kFirstStep = 10; // the step of a new record, and the bar's
const int kMaxPanes = 256; // what the status bar control can hold

// trunc(d), toward zero. Values beyond int (a huge position) are clamped:
// converting them would be undefined.
int Trunc(double d) {
  if (d != d) return 0;
  if (d >= (double)INT_MAX) return INT_MAX;
  if (d <= (double)INT_MIN) return INT_MIN;
  return (int)d;
}

// Rounds a step of the arithmetic to double. x87 code (32-bit builds) keeps
// intermediates in extended precision, where 1 / 200 falls just below 0.005
// and 160 of 0..200 would come out as 79 % instead of 80 %.
double Dbl(double d) {
  volatile double v = d;
  return v;
}

// The bar works in percent of a record's range: trunc(1 / (upper - lower) x
// value x 100), the lower bound deliberately not subtracted. Decided here:
// a range of no width (equal bounds) shows a full bar for a positive value
// and an empty one otherwise, the limit of the formula, without dividing by
// zero.
int Percent(int nValue, const VProgressData& data) {
  double dRange = (double)data.nUpper - (double)data.nLower;
  if (dRange == 0.0) return nValue > 0 ? 100 : 0;
  return Trunc(Dbl(Dbl(Dbl(1.0 / dRange) * nValue) * 100.0));
}

// What StopProgress hands the bar: the low 16 bits.
WPARAM Low16(int n) { return (WPARAM)(WORD)n; }

} // namespace

IMPLEMENT_DYNAMIC(VStatusBar, CStatusBar)

BEGIN_MESSAGE_MAP(VStatusBar, CStatusBar)
ON_MESSAGE(WM_SETTEXT, &ThisClass::OnSetText)
END_MESSAGE_MAP()

VStatusBar::VStatusBar()
    : m_pProgress(NULL), m_bTextLocked(FALSE),
      m_pProgressList(new CList<VProgressData, VProgressData&>(10)) {}

VStatusBar::~VStatusBar() {
  if (m_pProgress != NULL) {
    if (m_pProgress->m_hWnd != NULL) m_pProgress->DestroyWindow();
    delete m_pProgress;
  }
  delete m_pProgressList;
}

// ---- Panes --------------------------------------------------------------------------

BOOL VStatusBar::SetIndicators(const UINT* pIDs, int nCount) {
  // A count the control cannot hold is refused by CStatusBar, which keeps
  // the panes it has: their records are kept with them.
  if (nCount < 0 || nCount > kMaxPanes) return CStatusBar::SetIndicators(pIDs, nCount);
  m_arrPaneData.RemoveAll();
  m_arrPaneData.SetSize(nCount);
  for (int i = 0; i < nCount; i++)
    memset(&m_arrPaneData[i], 0, sizeof(VPaneData));
  return CStatusBar::SetIndicators(pIDs, nCount);
}

VPaneData& VStatusBar::PaneData(int nIndex) {
  if (nIndex < 0 || nIndex >= m_arrPaneData.GetSize()) AfxThrowInvalidArgException();
  return m_arrPaneData[nIndex];
}

BOOL VStatusBar::IsBitmapInPane(int nIndex) { return PaneData(nIndex).nBitmapID != 0; }

// The text's width in the bar's font, as DrawText lays out one line.
int VStatusBar::MeasureText(LPCSTR pszText) {
  CClientDC dc(this);
  CFont* pFont = m_hWnd != NULL ? GetFont() : NULL;
  CFont* pOldFont = pFont != NULL ? dc.SelectObject(pFont) : NULL;
  CRect rect(0, 0, 0, 0);
  dc.DrawText(pszText, -1, &rect, DT_CALCRECT | DT_SINGLELINE);
  if (pOldFont != NULL) dc.SelectObject(pOldFont);
  return rect.Width();
}

void VStatusBar::SetTextContents(int nIndex, LPCSTR pszText, int nWidth, BOOL bFitText,
                                 BOOL bColored, COLORREF crText, COLORREF crBack) {
  VPaneData& data = PaneData(nIndex);
  if (pszText == NULL) pszText = "";
  UINT nID = 0, nStyle = 0;
  int cxOld = 0;
  GetPaneInfo(nIndex, nID, nStyle, cxOld);
  int cxNew = bFitText ? MeasureText(pszText) : nWidth;
  if (cxNew == 0 && *pszText == '\0') {
    nStyle = kHiddenPane;
    SetPaneInfo(nIndex, nID, nStyle, 0);
  } else if (cxNew > 0) {
    nStyle = bColored ? kColorTextPane : kTextPane;
    SetPaneInfo(nIndex, nID, nStyle, cxNew);
    SetPaneText(nIndex, pszText, TRUE);
  } // a text with no width leaves the pane as it is
  data.nBitmapID = 0;
  data.nStyle = nStyle;
  data.nWidth = cxNew;
  data.nKind = bColored ? kindColored : kindPlain;
  data.crText = bColored ? crText : 0;
  data.crBack = bColored ? crBack : 0;
}

void VStatusBar::SetPaneContents(int nIndex, LPCSTR pszText, int nWidth, BOOL bFitText) {
  SetTextContents(nIndex, pszText, nWidth, bFitText, FALSE, 0, 0);
}

void VStatusBar::SetPaneContents(int nIndex, COLORREF crText, COLORREF crBack, LPCSTR pszText,
                                 int nWidth, BOOL bFitText) {
  SetTextContents(nIndex, pszText, nWidth, bFitText, TRUE, crText, crBack);
}

void VStatusBar::SetPaneContents(int nIndex, UINT nBitmapID, int nWidth, BOOL bFitBitmap) {
  VPaneData& data = PaneData(nIndex);
  UINT nID = 0, nStyle = 0;
  int cxOld = 0;
  GetPaneInfo(nIndex, nID, nStyle, cxOld);
  int cxNew = nWidth;
  if (bFitBitmap) {
    // A bitmap that cannot be loaded has no width: the pane stays as it is.
    CBitmap bitmap;
    BITMAP bm;
    cxNew = -1;
    if (bitmap.LoadBitmap(nBitmapID) && bitmap.GetBitmap(&bm)) cxNew = bm.bmWidth - 4;
  }
  if (cxNew >= 0) {
    nStyle = kBitmapPane;
    SetPaneInfo(nIndex, nID, nStyle, cxNew);
  }
  data.nBitmapID = nBitmapID;
  data.nStyle = nStyle;
  data.nWidth = cxNew;
  data.nKind = kindPlain;
  data.crText = data.crBack = 0;
}

void VStatusBar::DrawItem(LPDRAWITEMSTRUCT lpDIS) {
  if (lpDIS == NULL || (int)lpDIS->itemID < 0 || (int)lpDIS->itemID >= m_arrPaneData.GetSize())
    return;
  int nIndex = (int)lpDIS->itemID;
  VPaneData& data = m_arrPaneData[nIndex];
  CDC* pDC = CDC::FromHandle(lpDIS->hDC);
  CRect rect(lpDIS->rcItem);
  if (data.nBitmapID != 0) {
    // Copied from its top-left corner, unscaled, clipped to the pane.
    HINSTANCE hInst = AfxFindResourceHandle(MAKEINTRESOURCE(data.nBitmapID), RT_BITMAP);
    HBITMAP hBitmap = (HBITMAP)::LoadImage(hInst, MAKEINTRESOURCE(data.nBitmapID), IMAGE_BITMAP, 0,
                                           0, LR_LOADMAP3DCOLORS | LR_LOADTRANSPARENT);
    if (hBitmap == NULL) return;
    CDC dcMem;
    if (dcMem.CreateCompatibleDC(pDC)) {
      HGDIOBJ hOld = ::SelectObject(dcMem.m_hDC, hBitmap);
      pDC->BitBlt(rect.left, rect.top, rect.Width(), rect.Height(), &dcMem, 0, 0, SRCCOPY);
      ::SelectObject(dcMem.m_hDC, hOld);
    }
    ::DeleteObject(hBitmap);
    return;
  }
  if (data.nKind == kindReset) {
    // Back to plain text, drawn by the control from the next paint on.
    UINT nID = 0, nStyle = 0;
    int cxWidth = 0;
    GetPaneInfo(nIndex, nID, nStyle, cxWidth);
    data.nBitmapID = 0;
    data.nStyle = 0;
    data.nKind = kindPlain;
    SetPaneInfo(nIndex, nID, nStyle, cxWidth);
    return;
  }
  if (data.nKind != kindColored) return;
  // Decided here: the whole pane takes the background colour, not only the
  // cells of the text.
  pDC->FillSolidRect(&rect, data.crBack);
  COLORREF crOldText = pDC->SetTextColor(data.crText);
  COLORREF crOldBack = pDC->SetBkColor(data.crBack);
  pDC->DrawText(GetPaneText(nIndex), &rect, DT_SINGLELINE);
  pDC->SetTextColor(crOldText);
  pDC->SetBkColor(crOldBack);
}

// ---- Message text -------------------------------------------------------------------

LRESULT VStatusBar::OnSetText(WPARAM wParam, LPARAM lParam) {
  if (m_bTextLocked) return 0;
  return CStatusBar::OnSetText(wParam, lParam);
}

void VStatusBar::ShowTextLocked(LPCSTR pszText, BOOL bLock) {
  m_bTextLocked = FALSE;
  if (m_hWnd != NULL) SetWindowText(pszText != NULL ? pszText : "");
  m_bTextLocked = bLock;
}

// Paints what has changed (the message, the bar) now, not at the next idle
// moment: a long operation may not pump messages.
static void RepaintNow(CWnd* pWnd) {
  if (pWnd->m_hWnd != NULL) pWnd->RedrawWindow(NULL, NULL, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void VStatusBar::SetWindowTextAndLock(LPCSTR pszText) {
  ShowTextLocked(pszText, TRUE);
  RepaintNow(this);
}

void VStatusBar::SetWindowTextAndUnlock(LPCSTR pszText) {
  ShowTextLocked(pszText, FALSE);
  RepaintNow(this);
}

// ---- Progress -----------------------------------------------------------------------

CRect VStatusBar::GetProgressRect(int nTextWidth) {
  CRect rectWnd(0, 0, 0, 0);
  if (m_hWnd != NULL) GetWindowRect(&rectWnd);
  double w = rectWnd.Width();
  double h = rectWnd.Height();
  CRect rect;
  rect.left = nTextWidth - Trunc(Dbl(w / -100));
  rect.right = rect.left - Trunc(Dbl(Dbl(w * -3) * 0.0625));
  rect.top = Trunc(Dbl(Dbl(h * 16.25) / 100));
  rect.bottom = rect.top - Trunc(Dbl(Dbl(h * -85) / 100));
  return rect;
}

POSITION VStatusBar::StartProgress(int nLower, int nUpper, CString strText) {
  if (m_pProgress == NULL) m_pProgress = new CProgressCtrl;
  ShowTextLocked(strText, TRUE);
  RepaintNow(this);
  CRect rect = GetProgressRect(MeasureText(strText));
  // Made once, at the first start, and kept hidden between operations (made
  // again only if its window went with an earlier window of the bar).
  if (m_pProgress->m_hWnd == NULL && !m_pProgress->Create(WS_CHILD, rect, this, kProgressID))
    return NULL;
  m_pProgress->SendMessage(PBM_SETRANGE, 0, MAKELPARAM(0, 100));
  m_pProgress->SendMessage(PBM_SETSTEP, kFirstStep);
  m_pProgress->ShowWindow(SW_SHOW);
  VProgressData data;
  data.strText = strText;
  data.nLower = nLower;
  data.nUpper = nUpper;
  data.nStep = kFirstStep;
  data.nPos = 0;
  return m_pProgressList->AddTail(data);
}

// Whether pos is one of the running operations: a stopped one's position
// is refused rather than read.
BOOL VStatusBar::IsProgressPos(POSITION pos) const {
  if (pos == NULL) return FALSE;
  for (POSITION p = m_pProgressList->GetTailPosition(); p != NULL; m_pProgressList->GetPrev(p)) {
    if (p == pos) return TRUE;
  }
  return FALSE;
}

int VStatusBar::SetProgressPos(POSITION pos, int nPos) {
  if (!IsProgressPos(pos)) return 0;
  VProgressData& data = m_pProgressList->GetAt(pos);
  int nOld = data.nPos;
  data.nPos = nPos;
  if (pos == m_pProgressList->GetTailPosition() && m_pProgress != NULL)
    m_pProgress->SendMessage(PBM_SETPOS, (WPARAM)Percent(nPos, data));
  return nOld;
}

// The record moves by its step too, so that the position comes back when a
// nested operation stops.
int VStatusBar::StepIt(POSITION pos) {
  if (!IsProgressPos(pos)) return 0;
  VProgressData& data = m_pProgressList->GetAt(pos);
  int nOld = data.nPos;
  data.nPos = Trunc((double)data.nPos + data.nStep);
  if (pos == m_pProgressList->GetTailPosition() && m_pProgress != NULL)
    m_pProgress->SendMessage(PBM_STEPIT);
  return nOld;
}

// The newest operation's bar steps by the new step rescaled to percent, as
// StopProgress rescales it when the operation comes back.
int VStatusBar::SetStep(POSITION pos, int nStep) {
  if (!IsProgressPos(pos)) return 0;
  VProgressData& data = m_pProgressList->GetAt(pos);
  int nOld = data.nStep;
  data.nStep = nStep;
  if (pos == m_pProgressList->GetTailPosition() && m_pProgress != NULL)
    m_pProgress->SendMessage(PBM_SETSTEP, Low16(Percent(nStep, data)));
  return nOld;
}

// An unknown position stops nothing; the rest is done all the same (the
// newest operation shown again, or the text set when none runs).
void VStatusBar::StopProgress(POSITION pos, CString strText) {
  if (IsProgressPos(pos)) m_pProgressList->RemoveAt(pos);
  if (!m_pProgressList->IsEmpty()) {
    VProgressData& data = m_pProgressList->GetTail();
    if (m_pProgress != NULL) {
      m_pProgress->SendMessage(PBM_SETRANGE, 0, MAKELPARAM(0, 100));
      m_pProgress->SendMessage(PBM_SETSTEP, Low16(Percent(data.nStep, data)));
      m_pProgress->SendMessage(PBM_SETPOS, Low16(Percent(data.nPos, data)));
    }
    ShowTextLocked(data.strText, TRUE);
  } else {
    if (m_pProgress != NULL && m_pProgress->m_hWnd != NULL) m_pProgress->ShowWindow(SW_HIDE);
    ShowTextLocked(strText, FALSE);
  }
  RepaintNow(this);
}
