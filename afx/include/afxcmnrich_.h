// afxcmnrich_.h: the rich edit control (CRichEditCtrl); included by afxcmn.h.
#ifndef AFXCMNRICH__H
#define AFXCMNRICH__H

#include "afxwin.h"
#include <richedit.h>

// Loads the system's rich edit control (riched20.dll, class RICHEDIT_CLASS)
// once for the process; FALSE when it is not there.
AFX_API BOOL AFXAPI AfxInitRichEdit2();

// The system's rich edit control, version 2 or later.
class AFX_API CRichEditCtrl : public CWnd {
  DECLARE_DYNAMIC(CRichEditCtrl)
public:
  CRichEditCtrl() {}
  virtual ~CRichEditCtrl();
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // ---- Text and selection
  // WM_GETTEXTLENGTH: a paragraph break may count as two (CR LF).
  long GetTextLength() const { return (long)::SendMessage(m_hWnd, WM_GETTEXTLENGTH, 0, 0); }
  // The length as dwFlags (GTL_*) counts it in code page uCodePage (-1: the
  // control's); by default characters with one per paragraph break, as
  // character positions count them.
  long GetTextLengthEx(DWORD dwFlags = GTL_DEFAULT, UINT uCodePage = -1) const;
  int GetLineCount() const { return (int)::SendMessage(m_hWnd, EM_GETLINECOUNT, 0, 0); }
  void GetSel(long& nStartChar, long& nEndChar) const;
  void GetSel(CHARRANGE& cr) const { ::SendMessage(m_hWnd, EM_EXGETSEL, 0, (LPARAM)&cr); }
  void SetSel(long nStartChar, long nEndChar);
  void SetSel(CHARRANGE& cr) { ::SendMessage(m_hWnd, EM_EXSETSEL, 0, (LPARAM)&cr); }
  CString GetSelText() const;
  void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE) {
    ::SendMessage(m_hWnd, EM_REPLACESEL, (WPARAM)bCanUndo, (LPARAM)lpszNewText);
  }
  // The characters [nFirst, nLast) (nLast -1: to the end).
  int GetTextRange(int nFirst, int nLast, CString& refString) const;
  void LimitText(long nChars = 0) { ::SendMessage(m_hWnd, EM_EXLIMITTEXT, 0, nChars); }
  long GetLimitText() const { return (long)::SendMessage(m_hWnd, EM_GETLIMITTEXT, 0, 0); }
  long LineIndex(int nLine = -1) const {
    return (long)::SendMessage(m_hWnd, EM_LINEINDEX, nLine, 0);
  }
  long LineFromChar(long nIndex) const {
    return (long)::SendMessage(m_hWnd, EM_EXLINEFROMCHAR, 0, nIndex);
  }
  void HideSelection(BOOL bHide, BOOL bPerm) {
    ::SendMessage(m_hWnd, EM_HIDESELECTION, bHide, bPerm);
  }

  // ---- State
  BOOL SetReadOnly(BOOL bReadOnly = TRUE) {
    return (BOOL)::SendMessage(m_hWnd, EM_SETREADONLY, bReadOnly, 0);
  }
  BOOL GetModify() const { return (BOOL)::SendMessage(m_hWnd, EM_GETMODIFY, 0, 0); }
  void SetModify(BOOL bModified = TRUE) { ::SendMessage(m_hWnd, EM_SETMODIFY, bModified, 0); }
  UINT GetOptions() const { return (UINT)::SendMessage(m_hWnd, EM_GETOPTIONS, 0, 0); }
  void SetOptions(WORD wOp, DWORD dwFlags) { ::SendMessage(m_hWnd, EM_SETOPTIONS, wOp, dwFlags); }
  DWORD GetEventMask() const { return (DWORD)::SendMessage(m_hWnd, EM_GETEVENTMASK, 0, 0); }
  DWORD SetEventMask(DWORD dwEventMask) {
    return (DWORD)::SendMessage(m_hWnd, EM_SETEVENTMASK, 0, dwEventMask);
  }
  COLORREF SetBackgroundColor(BOOL bSysColor, COLORREF cr) {
    return (COLORREF)::SendMessage(m_hWnd, EM_SETBKGNDCOLOR, bSysColor, cr);
  }
  BOOL CanUndo() const { return (BOOL)::SendMessage(m_hWnd, EM_CANUNDO, 0, 0); }
  void EmptyUndoBuffer() { ::SendMessage(m_hWnd, EM_EMPTYUNDOBUFFER, 0, 0); }
  void GetRect(LPRECT lpRect) const { ::SendMessage(m_hWnd, EM_GETRECT, 0, (LPARAM)lpRect); }
  void SetRect(LPCRECT lpRect) { ::SendMessage(m_hWnd, EM_SETRECT, 0, (LPARAM)lpRect); }

  // ---- Formatting (the structure's size is filled in)
  DWORD GetDefaultCharFormat(CHARFORMAT& cf) const;
  DWORD GetSelectionCharFormat(CHARFORMAT& cf) const;
  BOOL SetDefaultCharFormat(CHARFORMAT& cf);
  BOOL SetSelectionCharFormat(CHARFORMAT& cf);
  BOOL SetWordCharFormat(CHARFORMAT& cf);
  DWORD GetParaFormat(PARAFORMAT& pf) const;
  BOOL SetParaFormat(PARAFORMAT& pf);

  // ---- Streams and printing
  long StreamIn(int nFormat, EDITSTREAM& es) {
    return (long)::SendMessage(m_hWnd, EM_STREAMIN, nFormat, (LPARAM)&es);
  }
  long StreamOut(int nFormat, EDITSTREAM& es) {
    return (long)::SendMessage(m_hWnd, EM_STREAMOUT, nFormat, (LPARAM)&es);
  }
  // Lines are broken for the device (hDC NULL, lLineWidth 0: the window;
  // lLineWidth 1: no wrapping).
  BOOL SetTargetDevice(HDC hDC, long lLineWidth) {
    return (BOOL)::SendMessage(m_hWnd, EM_SETTARGETDEVICE, (WPARAM)hDC, lLineWidth);
  }
  BOOL SetTargetDevice(CDC& dc, long lLineWidth) {
    return SetTargetDevice(dc.GetSafeHdc(), lLineWidth);
  }
  // Formats (and with bDisplay draws) a range into pfr->hdc; the index of
  // the first character that did not fit. NULL frees the control's cache.
  long FormatRange(FORMATRANGE* pfr, BOOL bDisplay = TRUE) {
    return (long)::SendMessage(m_hWnd, EM_FORMATRANGE, bDisplay, (LPARAM)pfr);
  }

  // ---- Clipboard and undo
  void Clear() { ::SendMessage(m_hWnd, WM_CLEAR, 0, 0); }
  void Copy() { ::SendMessage(m_hWnd, WM_COPY, 0, 0); }
  void Cut() { ::SendMessage(m_hWnd, WM_CUT, 0, 0); }
  void Paste() { ::SendMessage(m_hWnd, WM_PASTE, 0, 0); }
  BOOL Undo() { return (BOOL)::SendMessage(m_hWnd, EM_UNDO, 0, 0); }
};

#endif // AFXCMNRICH__H
