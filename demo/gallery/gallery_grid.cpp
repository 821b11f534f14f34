// The Grid page: a small table edited in place with the library's edit
// control. The view places the edit over a cell and answers its end-edit
// questions; edit mode itself (the hooks, the clicks outside, the keys that
// end it) is the library's.
#include "gallery.h"

namespace {

const int s_nColWidth = 140, s_nRowHeight = 24, s_nLeft = 16, s_nTop = 16;

// The edit over a cell: Enter and clicks elsewhere keep the text, Escape
// drops it. A click outside goes on to where it was aimed.
class CCellEdit : public VEditCtrl {
public:
  CCellEdit(CGridView* pView, int nRow, int nCol) : m_pView(pView), m_nRow(nRow), m_nCol(nCol) {}

protected:
  virtual BOOL OnQueryEndEdit(tagEndEditStruct* pEnd) {
    if ((pEnd->nFlags & VEEF_CANCEL) == 0) {
      CString strText;
      GetWindowText(strText);
      m_pView->SetCell(m_nRow, m_nCol, strText);
    }
    m_pView->PostMessage(WM_APP, 0, (LPARAM)this);
    return (pEnd->nFlags & VEEF_MOUSE) != 0 ? VEEA_PASSCLICK : TRUE;
  }
  virtual void PostNcDestroy() { delete this; }

private:
  CGridView* m_pView;
  int m_nRow, m_nCol;
};

const char* const s_initial[CGridView::nRows][CGridView::nCols] = {
    {"Item", "Quantity", "Price", "Supplier"}, {"Paper, A4", "12", "4.50", "Tamrix"},
    {"Toner", "2", "79.00", "Tamrix"},         {"Pencils", "40", "0.35", "Office World"},
    {"Stapler", "3", "8.90", "Office World"},  {"Folders", "25", "1.20", "Papeterie"},
    {"Envelopes", "500", "0.04", "Papeterie"}, {"Labels", "8", "6.75", "Tamrix"},
};

} // namespace

IMPLEMENT_DYNCREATE(CGridView, CView)

BEGIN_MESSAGE_MAP(CGridView, CView)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_KEYDOWN()
ON_MESSAGE(VWM_EDITMODE, &CGridView::OnEditMode)
ON_MESSAGE(WM_APP, &CGridView::OnEditDone)
END_MESSAGE_MAP()

CGridView::CGridView() {
  for (int r = 0; r < nRows; r++)
    for (int c = 0; c < nCols; c++)
      m_cells[r][c] = s_initial[r][c];
}

CRect CGridView::CellRect(int nRow, int nCol) const {
  CRect rc(0, 0, s_nColWidth + 1, s_nRowHeight + 1);
  rc.OffsetRect(s_nLeft + nCol * s_nColWidth, s_nTop + nRow * s_nRowHeight);
  return rc;
}

BOOL CGridView::HitTest(CPoint point, int& nRow, int& nCol) const {
  nRow = (point.y - s_nTop) / s_nRowHeight;
  nCol = (point.x - s_nLeft) / s_nColWidth;
  return point.x >= s_nLeft && point.y >= s_nTop && nRow >= 1 && nRow < nRows && nCol < nCols;
}

void CGridView::SetCell(int nRow, int nCol, const CString& strText) {
  m_cells[nRow][nCol] = strText;
  InvalidateRect(CellRect(nRow, nCol));
  GalleryLog("grid: cell %d,%d = \"%s\"", nRow, nCol, (LPCTSTR)strText);
}

void CGridView::OnDraw(CDC* pDC) {
  pDC->SelectStockObject(DEFAULT_GUI_FONT);
  pDC->SetBkMode(TRANSPARENT);
  for (int r = 0; r < nRows; r++) {
    for (int c = 0; c < nCols; c++) {
      CRect rc = CellRect(r, c);
      BOOL bCurrent = r == m_nRow && c == m_nCol;
      int nFace = r == 0 ? COLOR_BTNFACE : bCurrent ? COLOR_HIGHLIGHT : COLOR_WINDOW;
      pDC->FillSolidRect(rc, ::GetSysColor(nFace));
      pDC->SetTextColor(::GetSysColor(bCurrent && r > 0 ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
      pDC->FrameRect(rc, CBrush::FromHandle(::GetSysColorBrush(COLOR_BTNSHADOW)));
      CRect rcText(rc);
      rcText.DeflateRect(4, 0);
      pDC->DrawText(m_cells[r][c], rcText, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    }
  }
}

void CGridView::MoveTo(int nRow, int nCol) {
  InvalidateRect(CellRect(m_nRow, m_nCol));
  m_nRow = nRow;
  m_nCol = nCol;
  InvalidateRect(CellRect(m_nRow, m_nCol));
}

void CGridView::OnLButtonDown(UINT nFlags, CPoint point) {
  int nRow, nCol;
  if (HitTest(point, nRow, nCol)) MoveTo(nRow, nCol);
  CView::OnLButtonDown(nFlags, point);
}

void CGridView::OnLButtonDblClk(UINT, CPoint point) {
  int nRow, nCol;
  if (HitTest(point, nRow, nCol)) BeginEdit();
}

void CGridView::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) {
  int nRow = m_nRow, nCol = m_nCol;
  switch (nChar) {
  case VK_UP:
    nRow = nRow > 1 ? nRow - 1 : 1;
    break;
  case VK_DOWN:
    nRow = nRow < nRows - 1 ? nRow + 1 : nRow;
    break;
  case VK_LEFT:
    nCol = nCol > 0 ? nCol - 1 : 0;
    break;
  case VK_RIGHT:
    nCol = nCol < nCols - 1 ? nCol + 1 : nCol;
    break;
  case VK_RETURN:
  case VK_F2:
    BeginEdit();
    return;
  default:
    CView::OnKeyDown(nChar, nRepCnt, nFlags);
    return;
  }
  MoveTo(nRow, nCol);
}

void CGridView::BeginEdit() {
  if (m_pEdit != NULL) return;
  m_pEdit = new CCellEdit(this, m_nRow, m_nCol);
  CRect rc = CellRect(m_nRow, m_nCol);
  if (!m_pEdit->Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, rc, this,
                       IDC_GALLERY_CELL)) {
    delete m_pEdit;
    m_pEdit = NULL;
    return;
  }
  m_pEdit->SetFont(CFont::FromHandle((HFONT)::GetStockObject(DEFAULT_GUI_FONT)));
  m_pEdit->SetWindowText(m_cells[m_nRow][m_nCol]);
  m_pEdit->SetSel(0, -1);
  m_pEdit->SetFocus(); // edit mode starts here
}

// The library tells the view when edit mode starts and ends.
LRESULT CGridView::OnEditMode(WPARAM, LPARAM lParam) {
  GalleryLog("grid: edit mode %s", lParam != 0 ? "started" : "ended");
  return 0;
}

// After an answered question the edit goes, outside its own call.
LRESULT CGridView::OnEditDone(WPARAM, LPARAM lParam) {
  if (m_pEdit == NULL || (LPARAM)m_pEdit != lParam) return 0;
  VEditCtrl* pEdit = m_pEdit;
  m_pEdit = NULL;
  BOOL bHadFocus = ::GetFocus() == pEdit->m_hWnd;
  pEdit->DestroyWindow();
  if (bHadFocus) SetFocus();
  return 0;
}
