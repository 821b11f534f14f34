// VMaskEdit, VDateEdit and VTimeEdit: edits that take input position by
// position through a mask, with literals typed by the control itself.
#include "vrk_maskedit.h"

#include <mbstring.h>
#include <string.h>

namespace {

// MessageBeep's "simple beep".
const UINT kSimpleBeep = (UINT)-1;

// The character at nPos, or a space past the end: the texts a position rule
// reads may be shorter than the mask after text was set or pasted.
char CharAt(const CString& str, int nPos) {
  return nPos >= 0 && nPos < str.GetLength() ? str[nPos] : ' ';
}

BOOL IsPrintable(UINT nChar) { return _ismbcprint(nChar) != 0; }

} // namespace

IMPLEMENT_DYNAMIC(VMaskEdit, CEdit)

BEGIN_MESSAGE_MAP(VMaskEdit, CEdit)
ON_WM_CHAR()
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

VMaskEdit::VMaskEdit()
    : m_bUseMask(FALSE), m_bIsDate(TRUE), m_nReserved(0), m_bSending(FALSE), m_strMaxHours("23"),
      m_strMaxMins("59") {}

VMaskEdit::~VMaskEdit() {}

void VMaskEdit::SetMask(LPCSTR pszMask, LPCSTR pszTemplate, LPCSTR pszValid) {
  m_bUseMask = FALSE;
  if (pszMask == NULL || *pszMask == '\0') return;
  m_strMask = pszMask;
  if (pszTemplate != NULL && (int)strlen(pszTemplate) == m_strMask.GetLength())
    m_strTemplate = pszTemplate;
  else
    m_strTemplate.Empty();
  m_strValid = pszValid != NULL ? pszValid : "";
  m_bUseMask = TRUE;
}

void VMaskEdit::SendChar(char c) {
  if (m_hWnd == NULL) return;
  // The flag is put back rather than cleared: a character the control types
  // may make it type another (Backspace putting back a restore character).
  BOOL bWasSending = m_bSending;
  m_bSending = TRUE;
  AfxCallWndProc(this, m_hWnd, WM_CHAR, (WPARAM)(BYTE)c, 1);
  m_bSending = bWasSending;
}

int VMaskEdit::CaretPos() const {
  int nStart = 0, nEnd = 0;
  GetSel(nStart, nEnd);
  return nStart;
}

BOOL VMaskEdit::CheckChar(UINT nChar) {
  if (!m_bUseMask || !IsPrintable(nChar)) return TRUE;
  // Typing overwrites one position: the selection collapses to its start.
  int nStart = CaretPos();
  SetSel(-1, 0);
  EmptyUndoBuffer();
  SetSel(nStart, nStart);
  EmptyUndoBuffer();
  int nPos = CaretPos();
  int nLength = m_strMask.GetLength();
  if (nPos >= nLength) {
    ::MessageBeep(kSimpleBeep);
    return FALSE;
  }
  if (nPos < m_strTemplate.GetLength() && m_strTemplate[nPos] != '_') {
    SendChar(m_strTemplate[nPos]);
    nPos = CaretPos();
    // A template that ends in a literal leaves the caret past the mask.
    if (nPos >= nLength) {
      ::MessageBeep(kSimpleBeep);
      return FALSE;
    }
  }
  if (nChar < 256 && m_strValid.Find((char)nChar) >= 0) return TRUE;
  BOOL bBeep = TRUE;
  if (MaskAccepts(nPos, nChar, &bBeep)) return TRUE;
  if (bBeep) ::MessageBeep(kSimpleBeep);
  return FALSE;
}

BOOL VMaskEdit::MaskAccepts(int nPos, UINT nChar, BOOL* pbBeep) const {
  BOOL bDigit = _ismbcdigit(nChar) != 0;
  BOOL bAlpha = _ismbcalpha(nChar) != 0;
  switch (m_strMask[nPos]) {
  case '#':
    return bDigit || nChar == ' ' || nChar == 'k' || nChar == 'm';
  case '&':
    return TRUE; // printable, as CheckChar has seen
  case '0':
    if (!bDigit) return FALSE;
    if (InRange(nPos, nChar)) return TRUE;
    *pbBeep = FALSE; // a digit out of range is refused silently
    return FALSE;
  case '9':
    return nChar != ' ';
  case '?':
    return bAlpha || nChar == ' ';
  case 'A':
    return bAlpha || bDigit;
  case 'L':
    return bAlpha;
  case 'a':
    return bAlpha || bDigit || nChar == ' ';
  }
  return FALSE;
}

// The digit rules of mask character "0": months 01-12 and days up to 31
// (mm/dd/yyyy), or hours and minutes up to their maxima and seconds up to
// 59 (hh:mm:ss). Each digit is judged with the one typed before it.
BOOL VMaskEdit::InRange(int nPos, UINT nDigit) const {
  char cPrev = nPos > 0 ? CharAt(m_strEntered, nPos - 1) : ' ';
  if (m_bIsDate) {
    switch (nPos) {
    case 0:
      return nDigit <= '1';
    case 1:
      if (cPrev == '1') return nDigit < '3';
      if (cPrev == '0') return nDigit != '0';
      return TRUE;
    case 3:
      return nDigit <= '3';
    case 4:
      return cPrev != '3' || nDigit <= '1';
    }
    return TRUE;
  }
  switch (nPos) {
  case 0:
    return nDigit <= (UINT)CharAt(m_strMaxHours, 0);
  case 1:
    return cPrev != CharAt(m_strMaxHours, 0) || nDigit <= (UINT)CharAt(m_strMaxHours, 1);
  case 3:
    return nDigit <= (UINT)CharAt(m_strMaxMins, 0);
  case 4:
    return cPrev != CharAt(m_strMaxMins, 0) || nDigit <= (UINT)CharAt(m_strMaxMins, 1);
  case 6:
    return nDigit <= '5';
  }
  return TRUE;
}

void VMaskEdit::RecordEntered(int nPos, char c) {
  if (nPos < 0) return;
  while (m_strEntered.GetLength() <= nPos)
    m_strEntered += ' ';
  m_strEntered.SetAt(nPos, c);
}

// Backspace moves the caret left and, where there is a restore text, types
// its character over the position; at the start, or with a selection, it
// beeps. It never deletes.
void VMaskEdit::BackspaceAt(int nPos) {
  int nStart = 0, nEnd = 0;
  GetSel(nStart, nEnd);
  if (nStart != nEnd || nPos < 1 || nPos > m_strEntered.GetLength()) {
    ::MessageBeep(kSimpleBeep);
    return;
  }
  // Decided here: a restore text shorter than the position restores
  // nothing there (the caret only moves), as with no restore text at all.
  BOOL bRestore = nPos - 1 < m_strRestore.GetLength();
  char cRestore = bRestore ? m_strRestore[nPos - 1] : ' ';
  SendMessage(WM_KEYDOWN, VK_LEFT, 1);
  if (!bRestore) return;
  SendChar(cRestore);
  SendMessage(WM_KEYDOWN, VK_LEFT, 1);
}

void VMaskEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags) {
  if (!m_bSending && !CheckChar(nChar)) return;
  if (m_bUseMask && nChar == VK_BACK) {
    BackspaceAt(CaretPos());
    return;
  }
  if (m_bUseMask && IsPrintable(nChar)) {
    // Overwrite: the character at the caret goes, the typed one takes its
    // place.
    int nPos = CaretPos();
    SetSel(nPos, nPos + 1);
    EmptyUndoBuffer();
    Clear();
    RecordEntered(nPos, (char)nChar);
  }
  CEdit::OnChar(nChar, nRepCnt, nFlags);
  if (m_bSending || !m_bUseMask) return;
  // Step over a separator at once, so that the caret waits at an input
  // position.
  int nPos = CaretPos();
  if (nPos < m_strTemplate.GetLength() && m_strTemplate[nPos] != '_') SendChar(m_strTemplate[nPos]);
}

void VMaskEdit::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) {
  if (m_bUseMask && (nChar == VK_INSERT || nChar == VK_DELETE)) return;
  CEdit::OnKeyDown(nChar, nRepCnt, nFlags);
}

// ---- Date and time ------------------------------------------------------------------

namespace {

// The shown text as the masked edit's own texts: what Backspace puts back
// and what counts as typed.
void ShowText(VMaskEdit* pEdit, CString& strRestore, CString& strEntered, const CString& str) {
  strRestore = str;
  strEntered = str;
  if (pEdit->m_hWnd != NULL) pEdit->SetWindowText(str);
}

// Parses the edit's text without a trailing separator (what the control
// leaves after the last group is typed through).
BOOL ParseShown(CWnd* pEdit, char cSeparator, COleDateTime& value) {
  CString str;
  if (pEdit->m_hWnd != NULL) pEdit->GetWindowText(str);
  int nLength = str.GetLength();
  if (nLength > 0 && str[nLength - 1] == cSeparator) str.Truncate(nLength - 1);
  return value.ParseDateTime(str) ? TRUE : FALSE;
}

// Two digits, as the time rules read them.
CString TwoDigits(int n) {
  if (n < 0) n = 0;
  if (n > 99) n = 99;
  CString str;
  str.Format("%02d", n);
  return str;
}

} // namespace

IMPLEMENT_DYNAMIC(VDateEdit, VMaskEdit)

VDateEdit::VDateEdit() {
  m_bUseMask = TRUE;
  m_bIsDate = TRUE;
  m_strMask = "00/00/0000";
  m_strTemplate = "__/__/____";
  m_strRestore = "  /  /    ";
  m_strEntered = CString(' ', 10);
}

VDateEdit::~VDateEdit() {}

void VDateEdit::SetDate(COleDateTime& date) {
  ShowText(this, m_strRestore, m_strEntered, date.Format("%m/%d/%Y"));
}

BOOL VDateEdit::GetDate(COleDateTime& date) { return ParseShown(this, '/', date); }

IMPLEMENT_DYNAMIC(VTimeEdit, VMaskEdit)

VTimeEdit::VTimeEdit() {
  m_bUseMask = TRUE;
  m_bIsDate = FALSE;
  m_strMask = "00:00:00";
  m_strTemplate = "__:__:__";
  m_strRestore = "  :  :  ";
  m_strEntered = CString(' ', 8);
}

VTimeEdit::~VTimeEdit() {}

void VTimeEdit::SetTime(COleDateTime& time) {
  ShowText(this, m_strRestore, m_strEntered, time.Format("%H:%M:%S"));
}

void VTimeEdit::SetTime(CString strTime) { ShowText(this, m_strRestore, m_strEntered, strTime); }

BOOL VTimeEdit::GetTime(COleDateTime& time) { return ParseShown(this, ':', time); }

CString VTimeEdit::GetTimeStr() {
  CString str;
  if (m_hWnd != NULL) GetWindowText(str);
  return str;
}

// Decided here: the maxima are kept as two digits (5 as "05"), clamped to
// 0..99, since the rules compare the hours and minutes digit by digit.
void VTimeEdit::SetHours(int nHours) { m_strMaxHours = TwoDigits(nHours); }

void VTimeEdit::SetMins(int nMins) { m_strMaxMins = TwoDigits(nMins); }
