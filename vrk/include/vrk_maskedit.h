// vrk_maskedit.h - edit controls that take input position by position
// through a mask: VMaskEdit, and its presets VDateEdit (month/day/year) and
// VTimeEdit (hours:minutes:seconds).
#ifndef VRK_MASKEDIT_H
#define VRK_MASKEDIT_H

#include "vrkdefs.h"
#include <afxwin.h>
#include <atlcomtime.h>

// An edit whose every position accepts only what its mask character allows:
//   #  a digit, a space, k or m      9  anything but a space
//   &  any printable character       ?  a letter or a space
//   0  a digit within the range      A  a letter or a digit
//      rules (date or time layout)   L  a letter
//   a  a letter, a digit or a space  other: nothing
// Typing overwrites; the literals of the template (every character that is
// not "_") are typed by the control itself; Backspace moves left and puts
// back the restore text's character; Insert and Delete do nothing. Refused
// characters beep, except digits outside the range rules. Pasted or set
// text is taken as the plain edit takes it.
class VRK_API VMaskEdit : public CEdit {
  DECLARE_DYNAMIC(VMaskEdit)
public:
  VMaskEdit();
  virtual ~VMaskEdit();

  // Masking goes off, and stays off with a null or empty mask. A template
  // not exactly as long as the mask is dropped; the restore text is kept.
  void SetMask(LPCSTR pszMask, LPCSTR pszTemplate, LPCSTR pszValid);
  // Types the character into the control as if from the keyboard, bypassing
  // the mask.
  void SendChar(char c);
  // Whether the character may be typed at the caret; moves the caret past
  // a literal first (typing it).
  BOOL CheckChar(UINT nChar);

protected:
  BOOL m_bUseMask;       // masking is on
  BOOL m_bIsDate;        // range rules of "0": date layout (TRUE) or time layout
  int m_nReserved;       // kept for the layout of the object; unused
  CString m_strEntered;  // the characters typed, position by position
  CString m_strMask;     // one mask character per position
  CString m_strTemplate; // "_" for an input position, else a literal
  CString m_strValid;    // characters accepted at any input position
  BOOL m_bSending;       // the control is typing a character itself
  CString m_strMaxHours; // two digits limiting the hours (time rules)
  CString m_strMaxMins;  // two digits limiting the minutes (time rules)
  CString m_strRestore;  // what Backspace puts back, position by position

  // Whether the mask character at nPos takes the character; a range rule
  // that refuses it clears *pbBeep.
  BOOL MaskAccepts(int nPos, UINT nChar, BOOL* pbBeep) const;
  BOOL InRange(int nPos, UINT nDigit) const;
  void RecordEntered(int nPos, char c);
  void BackspaceAt(int nPos);
  int CaretPos() const;

  afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  DECLARE_MESSAGE_MAP()
};

// A masked edit for a date as mm/dd/yyyy.
class VRK_API VDateEdit : public VMaskEdit {
  DECLARE_DYNAMIC(VDateEdit)
public:
  VDateEdit();
  virtual ~VDateEdit();
  // Shows the date (an invalid one as "Invalid DateTime"); Backspace puts
  // back its characters.
  void SetDate(COleDateTime& date);
  // Parses the shown text (a trailing "/" dropped) into the date.
  BOOL GetDate(COleDateTime& date);
};

// A masked edit for a time as hh:mm:ss.
class VRK_API VTimeEdit : public VMaskEdit {
  DECLARE_DYNAMIC(VTimeEdit)
public:
  VTimeEdit();
  virtual ~VTimeEdit();
  void SetTime(COleDateTime& time);
  void SetTime(CString strTime);
  // Parses the shown text (a trailing ":" dropped) into the time.
  BOOL GetTime(COleDateTime& time);
  CString GetTimeStr();
  // The largest hours and minutes that may be typed (0 to 99).
  void SetHours(int nHours);
  void SetMins(int nMins);
};

#endif // VRK_MASKEDIT_H
