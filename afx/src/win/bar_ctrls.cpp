// CStatusBarCtrl and CToolBarCtrl: creation of the common controls and the
// few members that are more than one message.
#include <afxcmn.h>
#include "bar_impl.h"

IMPLEMENT_DYNAMIC(CStatusBarCtrl, CWnd)
IMPLEMENT_DYNAMIC(CToolBarCtrl, CWnd)

void AfxInitBarClasses() {
  static LONG s_bDone = FALSE;
  if (::InterlockedExchange(&s_bDone, TRUE)) return;
  INITCOMMONCONTROLSEX icc = {sizeof(icc), ICC_BAR_CLASSES};
  ::InitCommonControlsEx(&icc);
}

// ---- CStatusBarCtrl ------------------------------------------------------------------

CStatusBarCtrl::~CStatusBarCtrl() { DestroyWindow(); }

BOOL CStatusBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  AfxInitBarClasses();
  return CWnd::Create(STATUSCLASSNAME, NULL, dwStyle, rect, pParentWnd, nID);
}

int CStatusBarCtrl::GetText(LPTSTR lpszText, int nPane, int* pType) const {
  if (lpszText == NULL) return GetTextLength(nPane, pType);
  // The control copies the whole text: the caller's buffer must hold
  // GetTextLength + 1 characters.
  DWORD dw = (DWORD)::SendMessage(m_hWnd, SB_GETTEXT, nPane, (LPARAM)lpszText);
  if (pType != NULL) *pType = HIWORD(dw);
  return LOWORD(dw);
}

CString CStatusBarCtrl::GetText(int nPane, int* pType) const {
  CString str;
  int nLen = GetTextLength(nPane, pType);
  LPTSTR p = str.GetBufferSetLength(nLen);
  // The text length the control reports bounds the buffer it writes.
  ::SendMessage(m_hWnd, SB_GETTEXT, nPane, (LPARAM)p);
  str.ReleaseBuffer(nLen);
  return str;
}

int CStatusBarCtrl::GetTextLength(int nPane, int* pType) const {
  DWORD dw = (DWORD)::SendMessage(m_hWnd, SB_GETTEXTLENGTH, nPane, 0);
  if (pType != NULL) *pType = HIWORD(dw);
  return LOWORD(dw);
}

BOOL CStatusBarCtrl::GetBorders(int& nHorz, int& nVert, int& nSpacing) const {
  int rg[3] = {0, 0, 0};
  BOOL bResult = GetBorders(rg);
  nHorz = rg[0];
  nVert = rg[1];
  nSpacing = rg[2];
  return bResult;
}

// ---- CToolBarCtrl ----------------------------------------------------------------------

CToolBarCtrl::~CToolBarCtrl() { DestroyWindow(); }

BOOL CToolBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  AfxInitBarClasses();
  if (!CWnd::Create(TOOLBARCLASSNAME, NULL, dwStyle, rect, pParentWnd, nID)) return FALSE;
  ::SendMessage(m_hWnd, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  return TRUE;
}

int CToolBarCtrl::AddBitmap(int nNumButtons, CBitmap* pBitmap) {
  TBADDBITMAP ab;
  ab.hInst = NULL;
  ab.nID = (UINT_PTR)pBitmap->GetSafeHandle();
  return (int)::SendMessage(m_hWnd, TB_ADDBITMAP, nNumButtons, (LPARAM)&ab);
}

int CToolBarCtrl::AddBitmap(int nNumButtons, UINT nBitmapID) {
  TBADDBITMAP ab;
  ab.hInst = AfxFindResourceHandle(MAKEINTRESOURCE(nBitmapID), RT_BITMAP);
  ab.nID = nBitmapID;
  return (int)::SendMessage(m_hWnd, TB_ADDBITMAP, nNumButtons, (LPARAM)&ab);
}

CSize CToolBarCtrl::GetButtonSize() const {
  DWORD dw = (DWORD)::SendMessage(m_hWnd, TB_GETBUTTONSIZE, 0, 0);
  return CSize(LOWORD(dw), HIWORD(dw));
}
