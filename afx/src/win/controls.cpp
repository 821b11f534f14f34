// The standard controls: creation, the wrappers that need more than one
// message, and owner draw reached through reflection.
#include <afxwin.h>

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)

// Each control's object destroys its window (CWnd's destructor does too; this
// keeps the order of MFC, where the derived destructor runs it first).
CStatic::~CStatic() { DestroyWindow(); }
CButton::~CButton() { DestroyWindow(); }
CEdit::~CEdit() { DestroyWindow(); }
CScrollBar::~CScrollBar() { DestroyWindow(); }
CListBox::~CListBox() { DestroyWindow(); }
CComboBox::~CComboBox() { DestroyWindow(); }

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                     UINT nID) {
  return CWnd::Create("STATIC", lpszText, dwStyle, rect, pParentWnd, nID);
}

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                     UINT nID) {
  return CWnd::Create("BUTTON", lpszCaption, dwStyle, rect, pParentWnd, nID);
}

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create("EDIT", NULL, dwStyle, rect, pParentWnd, nID);
}

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create("SCROLLBAR", NULL, dwStyle, rect, pParentWnd, nID);
}

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create("LISTBOX", NULL, dwStyle, rect, pParentWnd, nID);
}

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create("COMBOBOX", NULL, dwStyle, rect, pParentWnd, nID);
}

// ---- Owner draw ------------------------------------------------------------------

// The base classes draw nothing: an owner-drawn control's class draws.
void CStatic::DrawItem(LPDRAWITEMSTRUCT) {}
void CButton::DrawItem(LPDRAWITEMSTRUCT) {}
void CListBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CListBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CListBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
void CListBox::DeleteItem(LPDELETEITEMSTRUCT) {}
int CListBox::VKeyToItem(UINT, UINT) { return -1; } // the default action
int CListBox::CharToItem(UINT, UINT) { return -1; }
void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
void CComboBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CStatic::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  DrawItem((LPDRAWITEMSTRUCT)lParam);
  if (pResult != NULL) *pResult = TRUE;
  return TRUE;
}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  DrawItem((LPDRAWITEMSTRUCT)lParam);
  if (pResult != NULL) *pResult = TRUE;
  return TRUE;
}

// The owner-draw messages list and combo boxes share, reflected to the
// control's own overridables; FALSE for any other message.
template <class TBox>
static BOOL ReflectOwnerDrawItem(TBox* pBox, UINT message, LPARAM lParam, LRESULT& lResult) {
  switch (message) {
  case WM_DRAWITEM:
    pBox->DrawItem((LPDRAWITEMSTRUCT)lParam);
    lResult = TRUE;
    return TRUE;
  case WM_MEASUREITEM:
    pBox->MeasureItem((LPMEASUREITEMSTRUCT)lParam);
    lResult = TRUE;
    return TRUE;
  case WM_COMPAREITEM:
    lResult = pBox->CompareItem((LPCOMPAREITEMSTRUCT)lParam);
    return TRUE;
  case WM_DELETEITEM:
    pBox->DeleteItem((LPDELETEITEMSTRUCT)lParam);
    lResult = TRUE;
    return TRUE;
  }
  return FALSE;
}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  LRESULT lResult;
  if (message == WM_VKEYTOITEM)
    lResult = VKeyToItem(LOWORD(wParam), HIWORD(wParam));
  else if (message == WM_CHARTOITEM)
    lResult = CharToItem(LOWORD(wParam), HIWORD(wParam));
  else if (!ReflectOwnerDrawItem(this, message, lParam, lResult))
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  if (pResult != NULL) *pResult = lResult;
  return TRUE;
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  LRESULT lResult;
  if (!ReflectOwnerDrawItem(this, message, lParam, lResult))
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  if (pResult != NULL) *pResult = lResult;
  return TRUE;
}

// ---- Texts ------------------------------------------------------------------------

// An item's text: the length first, so that the buffer always fits.
static void GetListText(HWND hWnd, UINT nLenMsg, UINT nTextMsg, int nIndex, CString& rString) {
  int nLen = (int)::SendMessage(hWnd, nLenMsg, nIndex, 0);
  if (nLen < 0) { // LB_ERR / CB_ERR: no such item
    rString.Empty();
    return;
  }
  ::SendMessage(hWnd, nTextMsg, nIndex, (LPARAM)rString.GetBufferSetLength(nLen));
  rString.ReleaseBuffer(nLen);
}

void CListBox::GetText(int nIndex, CString& rString) const {
  GetListText(m_hWnd, LB_GETTEXTLEN, LB_GETTEXT, nIndex, rString);
}

void CComboBox::GetLBText(int nIndex, CString& rString) const {
  GetListText(m_hWnd, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex, rString);
}

int CListBox::ItemFromPoint(CPoint pt, BOOL& bOutside) const {
  DWORD dw = (DWORD)::SendMessage(m_hWnd, LB_ITEMFROMPOINT, 0, MAKELPARAM(pt.x, pt.y));
  bOutside = (BOOL)HIWORD(dw);
  return (int)LOWORD(dw);
}

// EM_GETLINE takes the buffer size in the buffer's first word.
int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const {
  if (lpszBuffer == NULL || nMaxLength < (int)sizeof(WORD)) return 0;
  *(LPWORD)lpszBuffer = (WORD)(nMaxLength > 0xFFFF ? 0xFFFF : nMaxLength);
  return (int)::SendMessage(m_hWnd, EM_GETLINE, nIndex, (LPARAM)lpszBuffer);
}
