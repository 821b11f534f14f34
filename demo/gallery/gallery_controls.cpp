// The Controls page: the library's input controls on a plain view, with
// Tab moving between them; what the user enters is read back through the
// controls' own conversions and shown below them.
#include "gallery.h"

IMPLEMENT_DYNCREATE(CControlsView, CView)

BEGIN_MESSAGE_MAP(CControlsView, CView)
ON_WM_CREATE()
ON_WM_SETFOCUS()
ON_WM_CTLCOLOR()
ON_EN_CHANGE(IDC_GALLERY_DATE, &CControlsView::OnValueChanged)
ON_EN_CHANGE(IDC_GALLERY_TIME, &CControlsView::OnValueChanged)
END_MESSAGE_MAP()

namespace {

// Label, control rectangle in dialog-like units of the default GUI font.
struct Row {
  const char* pszLabel;
  int nTop;
};
const Row s_rows[] = {{"&Date:", 16}, {"&Time:", 44}};
const int s_nLabelWidth = 90, s_nEditWidth = 110, s_nRowHeight = 22;

} // namespace

void CControlsView::AddLabel(CStatic& label, const char* pszText, int nTop) {
  label.Create(pszText, WS_CHILD | WS_VISIBLE, CRect(16, nTop + 3, 16 + s_nLabelWidth, nTop + 20),
               this);
  label.SetFont(CFont::FromHandle((HFONT)::GetStockObject(DEFAULT_GUI_FONT)));
}

int CControlsView::OnCreate(LPCREATESTRUCT lpcs) {
  if (CView::OnCreate(lpcs) == -1) return -1;
  CFont* pFont = CFont::FromHandle((HFONT)::GetStockObject(DEFAULT_GUI_FONT));
  const int x = 16 + s_nLabelWidth;
  AddLabel(m_labels[0], s_rows[0].pszLabel, s_rows[0].nTop);
  m_editDate.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP,
                    CRect(x, s_rows[0].nTop, x + s_nEditWidth, s_rows[0].nTop + s_nRowHeight), this,
                    IDC_GALLERY_DATE);
  AddLabel(m_labels[1], s_rows[1].pszLabel, s_rows[1].nTop);
  m_editTime.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP,
                    CRect(x, s_rows[1].nTop, x + s_nEditWidth, s_rows[1].nTop + s_nRowHeight), this,
                    IDC_GALLERY_TIME);
  m_editDate.SetFont(pFont);
  m_editTime.SetFont(pFont);
  m_result.Create("", WS_CHILD | WS_VISIBLE, CRect(16, 80, 600, 100), this);
  m_result.SetFont(pFont);
  return 0;
}

void CControlsView::OnInitialUpdate() {
  CView::OnInitialUpdate();
  COleDateTime date(2026, 11, 24, 0, 0, 0);
  m_editDate.SetDate(date);
  COleDateTime time(1899, 12, 30, 9, 30, 0);
  m_editTime.SetTime(time);
}

void CControlsView::OnSetFocus(CWnd*) { m_editDate.SetFocus(); }

// Tab and Shift+Tab move between the controls, as on a form.
BOOL CControlsView::PreTranslateMessage(MSG* pMsg) {
  if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_TAB) {
    BOOL bBack = ::GetKeyState(VK_SHIFT) < 0;
    CWnd* pNext = GetNextDlgTabItem(GetFocus(), bBack);
    if (pNext != NULL) pNext->SetFocus();
    return TRUE;
  }
  return CView::PreTranslateMessage(pMsg);
}

void CControlsView::OnValueChanged() {
  if (m_result.GetSafeHwnd() == NULL) return;
  COleDateTime date, time;
  CString strText;
  strText.Format("Date: %s    Time: %s",
                 m_editDate.GetDate(date) ? (LPCTSTR)date.Format("%A, %B %d, %Y") : "(incomplete)",
                 m_editTime.GetTime(time) ? (LPCTSTR)time.Format("%H:%M:%S") : "(incomplete)");
  m_result.SetWindowText(strText);
  GalleryLog("controls: %s", (LPCTSTR)strText);
}

// Labels on the view's own white, not the dialog grey.
HBRUSH CControlsView::OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor) {
  if (nCtlColor != CTLCOLOR_STATIC) return CView::OnCtlColor(pDC, pWnd, nCtlColor);
  pDC->SetBkColor(::GetSysColor(COLOR_WINDOW));
  return ::GetSysColorBrush(COLOR_WINDOW);
}

void CControlsView::OnDraw(CDC*) {}
