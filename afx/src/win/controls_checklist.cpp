// CCheckListBox: an owner-drawn list box with a check box in each item.
#include <afxwin.h>

IMPLEMENT_DYNAMIC(CCheckListBox, CListBox)

BEGIN_MESSAGE_MAP(CCheckListBox, CListBox)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

namespace {
// What each item's data points to.
struct CheckData {
  int nCheck;
  BOOL bEnabled;
  DWORD_PTR dwUserData;
};
const int kCheckBoxSize = 13; // the check box's side, as the button control draws it
} // namespace

CCheckListBox::CCheckListBox() : m_nStyle(BS_AUTOCHECKBOX) {}

CCheckListBox::~CCheckListBox() { DestroyWindow(); }

BOOL CCheckListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  // Owner draw is what makes it a check list; strings are kept by the box.
  if (!(dwStyle & (LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE))) dwStyle |= LBS_OWNERDRAWFIXED;
  return CListBox::Create(dwStyle | LBS_HASSTRINGS, rect, pParentWnd, nID);
}

void CCheckListBox::SetCheckStyle(UINT nStyle) {
  if (nStyle == BS_CHECKBOX || nStyle == BS_AUTOCHECKBOX || nStyle == BS_3STATE ||
      nStyle == BS_AUTO3STATE)
    m_nStyle = nStyle;
}

// The list box's own item data, bypassing the interception in WindowProc.
static LRESULT RawItemData(CCheckListBox* pBox, int nIndex) {
  return pBox->CListBox::DefWindowProc(LB_GETITEMDATA, nIndex, 0);
}

// The item's block, made on first use with bCreate; NULL for no such item.
static CheckData* FindData(CCheckListBox* pBox, int nIndex, BOOL bCreate) {
  LRESULT lData = RawItemData(pBox, nIndex);
  if (lData == LB_ERR) return NULL; // no such item
  CheckData* pData = (CheckData*)lData;
  if (pData == NULL && bCreate) {
    pData = (CheckData*)calloc(1, sizeof(CheckData));
    if (pData == NULL) AfxThrowMemoryException();
    pData->bEnabled = TRUE;
    pBox->CListBox::DefWindowProc(LB_SETITEMDATA, nIndex, (LPARAM)pData);
  }
  return pData;
}

void CCheckListBox::SetCheck(int nIndex, int nCheck) {
  CheckData* pData = FindData(this, nIndex, TRUE);
  if (pData == NULL) return;
  pData->nCheck = nCheck;
  InvalidateCheck(nIndex);
}

int CCheckListBox::GetCheck(int nIndex) {
  CheckData* pData = FindData(this, nIndex, FALSE);
  return pData != NULL ? pData->nCheck : 0;
}

void CCheckListBox::Enable(int nIndex, BOOL bEnabled) {
  CheckData* pData = FindData(this, nIndex, TRUE);
  if (pData == NULL) return;
  pData->bEnabled = bEnabled;
  InvalidateCheck(nIndex);
}

BOOL CCheckListBox::IsEnabled(int nIndex) {
  CheckData* pData = FindData(this, nIndex, FALSE);
  return pData != NULL ? pData->bEnabled : TRUE;
}

// Item data set and read by the program is the user part of the block.
LRESULT CCheckListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
  case LB_SETITEMDATA: {
    CheckData* pData = FindData(this, (int)wParam, TRUE);
    if (pData == NULL) return LB_ERR;
    pData->dwUserData = (DWORD_PTR)lParam;
    return 0;
  }
  case LB_GETITEMDATA: {
    LRESULT lData = RawItemData(this, (int)wParam);
    if (lData == LB_ERR) return LB_ERR;
    return lData != 0 ? (LRESULT)((CheckData*)lData)->dwUserData : 0;
  }
  }
  return CListBox::WindowProc(message, wParam, lParam);
}

void CCheckListBox::DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct) {
  // The list box passes the raw item data: the block is freed with its item.
  free((void*)lpDeleteItemStruct->itemData);
}

CRect CCheckListBox::OnGetCheckPosition(CRect rectItem, CRect rectCheckBox) {
  (void)rectItem;
  return rectCheckBox;
}

void CCheckListBox::MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct) {
  // Room for the check box and the text of the list box's font.
  HDC hdc = ::GetDC(m_hWnd);
  HGDIOBJ hOld = ::SelectObject(hdc, (HGDIOBJ)::SendMessage(m_hWnd, WM_GETFONT, 0, 0));
  TEXTMETRIC tm;
  ::GetTextMetrics(hdc, &tm);
  ::SelectObject(hdc, hOld);
  ::ReleaseDC(m_hWnd, hdc);
  int cy = tm.tmHeight + 2;
  lpMeasureItemStruct->itemHeight = cy > kCheckBoxSize + 2 ? cy : kCheckBoxSize + 2;
}

// The check box's rectangle in an item: at the left, centred vertically.
static CRect CheckBoxRect(const CRect& rectItem) {
  int y = rectItem.top + (rectItem.Height() - kCheckBoxSize) / 2;
  return CRect(rectItem.left + 1, y, rectItem.left + 1 + kCheckBoxSize, y + kCheckBoxSize);
}

void CCheckListBox::DrawItem(LPDRAWITEMSTRUCT lpDIS) {
  if ((int)lpDIS->itemID < 0) return; // an empty list box's focus rectangle
  HDC hdc = lpDIS->hDC;
  CRect rectItem(lpDIS->rcItem);
  CRect rectCheck = OnGetCheckPosition(rectItem, CheckBoxRect(rectItem));
  CheckData* pData = (CheckData*)RawItemData(this, lpDIS->itemID);
  int nCheck = pData != NULL && (LRESULT)pData != LB_ERR ? pData->nCheck : 0;
  BOOL bEnabled = pData != NULL && (LRESULT)pData != LB_ERR ? pData->bEnabled : TRUE;
  if (!IsWindowEnabled()) bEnabled = FALSE;

  // The box: the button control's look for the state.
  UINT nState = (nCheck == 2 ? DFCS_BUTTON3STATE | DFCS_CHECKED : DFCS_BUTTONCHECK) |
                (nCheck == 1 ? DFCS_CHECKED : 0) | (bEnabled ? 0 : DFCS_INACTIVE);
  CRect rectBox = rectItem;
  rectBox.right = rectCheck.right + 2;
  ::FillRect(hdc, &rectBox, ::GetSysColorBrush(COLOR_WINDOW));
  ::DrawFrameControl(hdc, &rectCheck, DFC_BUTTON, nState);

  // The text, highlighted when selected.
  CRect rectText = rectItem;
  rectText.left = rectCheck.right + 2;
  BOOL bSelected = (lpDIS->itemState & ODS_SELECTED) != 0;
  COLORREF crBk = ::GetSysColor(bSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW);
  COLORREF crText = ::GetSysColor(!bEnabled   ? COLOR_GRAYTEXT
                                  : bSelected ? COLOR_HIGHLIGHTTEXT
                                              : COLOR_WINDOWTEXT);
  COLORREF crOldBk = ::SetBkColor(hdc, crBk);
  COLORREF crOldText = ::SetTextColor(hdc, crText);
  CString strText;
  GetText(lpDIS->itemID, strText);
  ::ExtTextOut(hdc, rectText.left + 2, rectText.top, ETO_OPAQUE, &rectText, strText,
               strText.GetLength(), NULL);
  if (lpDIS->itemState & ODS_FOCUS) ::DrawFocusRect(hdc, &rectText);
  ::SetBkColor(hdc, crOldBk);
  ::SetTextColor(hdc, crOldText);
}

void CCheckListBox::InvalidateCheck(int nIndex) {
  CRect rect;
  if (GetItemRect(nIndex, &rect) != LB_ERR) InvalidateRect(&rect, FALSE);
}

int CCheckListBox::CheckFromPoint(CPoint point, BOOL& bInCheck) {
  bInCheck = FALSE;
  BOOL bOutside;
  int nIndex = ItemFromPoint(point, bOutside);
  if (bOutside || nIndex < 0 || nIndex >= GetCount()) return -1;
  CRect rectItem;
  GetItemRect(nIndex, &rectItem);
  CRect rectCheck = OnGetCheckPosition(rectItem, CheckBoxRect(rectItem));
  bInCheck = point.x >= rectItem.left && point.x < rectCheck.right + 2;
  return nIndex;
}

int CCheckListBox::NextCheck(int nCheck) const {
  if (m_nStyle == BS_AUTO3STATE || m_nStyle == BS_3STATE) return (nCheck + 1) % 3;
  return nCheck == 1 ? 0 : 1;
}

// Changes an enabled item's check (for the automatic styles) and tells the parent.
void CCheckListBox::ToggleCheck(int nIndex) {
  if (!IsEnabled(nIndex)) return;
  if (m_nStyle == BS_AUTOCHECKBOX || m_nStyle == BS_AUTO3STATE)
    SetCheck(nIndex, NextCheck(GetCheck(nIndex)));
  CWnd* pParent = GetParent();
  if (pParent != NULL)
    pParent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), CLBN_CHKCHANGE), (LPARAM)m_hWnd);
}

void CCheckListBox::OnLButtonDown(UINT nFlags, CPoint point) {
  SetFocus();
  BOOL bInCheck;
  int nIndex = CheckFromPoint(point, bInCheck);
  if (nIndex >= 0 && bInCheck) {
    ToggleCheck(nIndex);
    return; // a click on the box does not change the selection
  }
  CListBox::OnLButtonDown(nFlags, point);
}

void CCheckListBox::OnLButtonDblClk(UINT nFlags, CPoint point) {
  BOOL bInCheck;
  int nIndex = CheckFromPoint(point, bInCheck);
  if (nIndex >= 0 && bInCheck) {
    ToggleCheck(nIndex); // the second click of a double click on the box
    return;
  }
  CListBox::OnLButtonDblClk(nFlags, point);
}

void CCheckListBox::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) {
  if (nChar == VK_SPACE) {
    int nIndex = GetCaretIndex();
    if (nIndex != LB_ERR) {
      ToggleCheck(nIndex);
      return;
    }
  }
  CListBox::OnKeyDown(nChar, nRepCnt, nFlags);
}
