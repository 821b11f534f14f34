// CRichEditCtrl: the system's rich edit control (riched20.dll).
#include <afxcmn.h>

IMPLEMENT_DYNAMIC(CRichEditCtrl, CWnd)

BOOL AFXAPI AfxInitRichEdit2() {
  // Loaded once and kept for the process: windows of its classes may live
  // until the end.
  static HINSTANCE s_hInstRichEdit2 = ::LoadLibraryA("riched20.dll");
  return s_hInstRichEdit2 != NULL;
}

CRichEditCtrl::~CRichEditCtrl() {}

BOOL CRichEditCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  if (!AfxInitRichEdit2()) return FALSE;
  return CWnd::Create(RICHEDIT_CLASS, NULL, dwStyle, rect, pParentWnd, nID);
}

long CRichEditCtrl::GetTextLengthEx(DWORD dwFlags, UINT uCodePage) const {
  GETTEXTLENGTHEX gtl;
  gtl.flags = dwFlags;
#ifdef _UNICODE
  gtl.codepage = uCodePage == (UINT)-1 ? 1200 : uCodePage;
#else
  gtl.codepage = uCodePage == (UINT)-1 ? CP_ACP : uCodePage;
#endif
  return (long)::SendMessage(m_hWnd, EM_GETTEXTLENGTHEX, (WPARAM)&gtl, 0);
}

void CRichEditCtrl::GetSel(long& nStartChar, long& nEndChar) const {
  CHARRANGE cr = {0, 0};
  ::SendMessage(m_hWnd, EM_EXGETSEL, 0, (LPARAM)&cr);
  nStartChar = cr.cpMin;
  nEndChar = cr.cpMax;
}

void CRichEditCtrl::SetSel(long nStartChar, long nEndChar) {
  CHARRANGE cr = {nStartChar, nEndChar};
  ::SendMessage(m_hWnd, EM_EXSETSEL, 0, (LPARAM)&cr);
}

CString CRichEditCtrl::GetSelText() const {
  CHARRANGE cr = {0, 0};
  ::SendMessage(m_hWnd, EM_EXGETSEL, 0, (LPARAM)&cr);
  CString strText;
  if (cr.cpMax <= cr.cpMin) return strText;
  // Room for a double-byte character per position and the terminator.
  LPTSTR lpsz = strText.GetBuffer((cr.cpMax - cr.cpMin) * 2 + 1);
  long nLen = (long)::SendMessage(m_hWnd, EM_GETSELTEXT, 0, (LPARAM)lpsz);
  strText.ReleaseBuffer(nLen);
  return strText;
}

int CRichEditCtrl::GetTextRange(int nFirst, int nLast, CString& refString) const {
  refString.Empty();
  long nLength = GetTextLength();
  if (nLast < 0 || nLast > nLength) nLast = nLength;
  if (nFirst < 0 || nFirst >= nLast) return 0;
  TEXTRANGE tr;
  tr.chrg.cpMin = nFirst;
  tr.chrg.cpMax = nLast;
  tr.lpstrText = refString.GetBuffer((nLast - nFirst) * 2 + 1);
  int nLen = (int)::SendMessage(m_hWnd, EM_GETTEXTRANGE, 0, (LPARAM)&tr);
  refString.ReleaseBuffer(nLen);
  return nLen;
}

DWORD CRichEditCtrl::GetDefaultCharFormat(CHARFORMAT& cf) const {
  cf.cbSize = sizeof(CHARFORMAT);
  return (DWORD)::SendMessage(m_hWnd, EM_GETCHARFORMAT, SCF_DEFAULT, (LPARAM)&cf);
}

DWORD CRichEditCtrl::GetSelectionCharFormat(CHARFORMAT& cf) const {
  cf.cbSize = sizeof(CHARFORMAT);
  return (DWORD)::SendMessage(m_hWnd, EM_GETCHARFORMAT, SCF_SELECTION, (LPARAM)&cf);
}

BOOL CRichEditCtrl::SetDefaultCharFormat(CHARFORMAT& cf) {
  cf.cbSize = sizeof(CHARFORMAT);
  return (BOOL)::SendMessage(m_hWnd, EM_SETCHARFORMAT, SCF_DEFAULT, (LPARAM)&cf);
}

BOOL CRichEditCtrl::SetSelectionCharFormat(CHARFORMAT& cf) {
  cf.cbSize = sizeof(CHARFORMAT);
  return (BOOL)::SendMessage(m_hWnd, EM_SETCHARFORMAT, SCF_SELECTION, (LPARAM)&cf);
}

BOOL CRichEditCtrl::SetWordCharFormat(CHARFORMAT& cf) {
  cf.cbSize = sizeof(CHARFORMAT);
  return (BOOL)::SendMessage(m_hWnd, EM_SETCHARFORMAT, SCF_SELECTION | SCF_WORD, (LPARAM)&cf);
}

DWORD CRichEditCtrl::GetParaFormat(PARAFORMAT& pf) const {
  pf.cbSize = sizeof(PARAFORMAT);
  return (DWORD)::SendMessage(m_hWnd, EM_GETPARAFORMAT, 0, (LPARAM)&pf);
}

BOOL CRichEditCtrl::SetParaFormat(PARAFORMAT& pf) {
  pf.cbSize = sizeof(PARAFORMAT);
  return (BOOL)::SendMessage(m_hWnd, EM_SETPARAFORMAT, 0, (LPARAM)&pf);
}
