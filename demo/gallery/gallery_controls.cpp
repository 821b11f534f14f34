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
ON_CBN_EDITCHANGE(IDC_GALLERY_NAME, &CControlsView::OnNameChanged)
ON_CBN_SELCHANGE(IDC_GALLERY_FACE, &CControlsView::OnStyleChanged)
ON_CBN_SELCHANGE(IDC_GALLERY_SIZE, &CControlsView::OnStyleChanged)
ON_CBN_SELCHANGE(IDC_GALLERY_COLOUR, &CControlsView::OnStyleChanged)
ON_MESSAGE(WM_APP, &CControlsView::OnNameCompleted)
END_MESSAGE_MAP()

namespace {

const int s_nLeft = 16, s_nLabelWidth = 90, s_nEditWidth = 160, s_nRowHeight = 22;
const int s_nRowStep = 30;
int RowTop(int nRow) { return 16 + nRow * s_nRowStep; }
CRect FieldRect(int nRow, int nHeight = s_nRowHeight) {
  int x = s_nLeft + s_nLabelWidth;
  return CRect(x, RowTop(nRow), x + s_nEditWidth, RowTop(nRow) + nHeight);
}

const char* const s_names[] = {"Abcde", "Alphabet", "Apple", "Banana", "Blueberry", "Cherry"};

} // namespace

void CControlsView::AddLabel(CStatic& label, const char* pszText, int nTop) {
  label.Create(pszText, WS_CHILD | WS_VISIBLE,
               CRect(s_nLeft, nTop + 3, s_nLeft + s_nLabelWidth, nTop + 20), this);
  label.SetFont(CFont::FromHandle((HFONT)::GetStockObject(DEFAULT_GUI_FONT)));
}

// The controls are made in tab order: the point sizes right after the
// faces, which the face box relies on to keep them in step.
int CControlsView::OnCreate(LPCREATESTRUCT lpcs) {
  if (CView::OnCreate(lpcs) == -1) return -1;
  CFont* pFont = CFont::FromHandle((HFONT)::GetStockObject(DEFAULT_GUI_FONT));
  const DWORD dwEdit = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP;
  const DWORD dwCombo = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL;
  AddLabel(m_labels[0], "&Date:", RowTop(0));
  m_editDate.Create(dwEdit, FieldRect(0), this, IDC_GALLERY_DATE);
  AddLabel(m_labels[1], "&Time:", RowTop(1));
  m_editTime.Create(dwEdit, FieldRect(1), this, IDC_GALLERY_TIME);
  AddLabel(m_labels[2], "&Name:", RowTop(2));
  m_comboName.Create(dwCombo | CBS_DROPDOWN | CBS_SORT | CBS_AUTOHSCROLL, FieldRect(2, 200), this,
                     IDC_GALLERY_NAME);
  AddLabel(m_labels[3], "&Face:", RowTop(3));
  m_comboFace.Create(dwCombo | CBS_DROPDOWNLIST | CBS_SORT, FieldRect(3, 240), this,
                     IDC_GALLERY_FACE);
  AddLabel(m_labels[4], "&Size:", RowTop(4));
  m_comboSize.Create(dwCombo | CBS_DROPDOWNLIST, FieldRect(4, 240), this, IDC_GALLERY_SIZE);
  AddLabel(m_labels[5], "&Colour:", RowTop(5));
  m_comboColour.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, FieldRect(5), this, IDC_GALLERY_COLOUR);
  m_result.Create("", WS_CHILD | WS_VISIBLE, CRect(s_nLeft, RowTop(6) + 8, 640, RowTop(6) + 26),
                  this);
  m_sample.Create("The quick brown fox jumps over the lazy dog.", WS_CHILD | WS_VISIBLE,
                  CRect(s_nLeft, RowTop(7), 640, RowTop(7) + 60), this);
  CWnd* controls[] = {&m_editDate,  &m_editTime,    &m_comboName, &m_comboFace,
                      &m_comboSize, &m_comboColour, &m_result,    &m_sample};
  for (CWnd* pWnd : controls)
    pWnd->SetFont(pFont);
  for (const char* pszName : s_names)
    m_comboName.AddString(pszName);
  m_comboSize.AddPointSizes(NULL);
  return 0;
}

void CControlsView::OnInitialUpdate() {
  CView::OnInitialUpdate();
  COleDateTime date(2026, 11, 24, 0, 0, 0);
  m_editDate.SetDate(date);
  COleDateTime time(1899, 12, 30, 9, 30, 0);
  m_editTime.SetTime(time);
  // Wine's own Tahoma is there wherever the gallery runs; Arial where it is.
  if (m_comboFace.SelectString(-1, "Arial") < 0 && m_comboFace.SelectString(-1, "Tahoma") < 0)
    m_comboFace.SetCurSel(0);
  m_comboSize.SelectString(-1, "12");
  m_comboColour.SetColor(RGB(0, 0, 128));
  OnStyleChanged();
  // Where the colour box's arrow is, for the demo's driver to click.
  CRect rcColour;
  m_comboColour.GetWindowRect(&rcColour);
  GalleryLog("controls: colour box at %d %d %d %d", rcColour.left, rcColour.top, rcColour.right,
             rcColour.bottom);
}

void CControlsView::OnSetFocus(CWnd*) { m_editDate.SetFocus(); }

// Tab and Shift+Tab move between the controls, as on a form.
BOOL CControlsView::PreTranslateMessage(MSG* pMsg) {
  if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_TAB) {
    BOOL bBack = ::GetKeyState(VK_SHIFT) < 0;
    CWnd* pFocus = GetFocus();
    // The focus may be in a combo box's own edit.
    if (pFocus != NULL && pFocus->GetParent() != this) pFocus = pFocus->GetParent();
    CWnd* pNext = GetNextDlgTabItem(pFocus, bBack);
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

// The box completes the text after it tells of the change: the result is
// read once the key has been handled.
void CControlsView::OnNameChanged() { PostMessage(WM_APP); }

LRESULT CControlsView::OnNameCompleted(WPARAM, LPARAM) {
  CString strText;
  m_comboName.GetWindowText(strText);
  DWORD dwSel = m_comboName.GetEditSel();
  GalleryLog("controls: name \"%s\" selected %d-%d", (LPCTSTR)strText, LOWORD(dwSel),
             HIWORD(dwSel));
  return 0;
}

// The sample shows the chosen face, size and colour.
void CControlsView::OnStyleChanged() {
  CString strFace, strSize;
  if (m_comboFace.GetCurSel() >= 0) m_comboFace.GetLBText(m_comboFace.GetCurSel(), strFace);
  if (m_comboSize.GetCurSel() >= 0) m_comboSize.GetLBText(m_comboSize.GetCurSel(), strSize);
  int nSize = atoi(strSize);
  m_fontSample.DeleteObject();
  m_fontSample.CreatePointFont(nSize > 0 ? nSize * 10 : 120, strFace);
  m_sample.SetFont(&m_fontSample);
  m_sample.Invalidate();
  COLORREF cr = m_comboColour.GetColor();
  GalleryLog("controls: style %s %d colour %02X%02X%02X", (LPCTSTR)strFace, nSize, GetRValue(cr),
             GetGValue(cr), GetBValue(cr));
}

// Labels on the view's own white, not the dialog grey; the sample in the
// chosen colour.
HBRUSH CControlsView::OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor) {
  if (nCtlColor != CTLCOLOR_STATIC) return CView::OnCtlColor(pDC, pWnd, nCtlColor);
  pDC->SetBkColor(::GetSysColor(COLOR_WINDOW));
  if (pWnd->m_hWnd == m_sample.m_hWnd) pDC->SetTextColor(m_comboColour.GetColor());
  return ::GetSysColorBrush(COLOR_WINDOW);
}

void CControlsView::OnDraw(CDC*) {}
