// Masked edits typed into as the user types (SendInput to the focused
// control): what each mask character takes, the date and time range rules,
// separators typed by the control, Backspace putting back the restore text,
// Insert and Delete doing nothing; dates and times set and read back;
// pasted and set text, and invalid dates.
#include <vrk_maskedit.h>
#include <gtest/gtest.h>

#include <string>

#include "send_keys.h"

namespace {

enum EditKind { kDate, kTime, kMask };

class MaskEditTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(m_host.CreateEx(0, NULL, "masked edits", WS_POPUP | WS_CAPTION | WS_VISIBLE, 0, 0,
                                300, 120, NULL, NULL));
  }
  void TearDown() override {
    m_host.DestroyWindow();
    PumpKeys();
  }
  // Creates the edit and gives it the keyboard.
  void Place(VMaskEdit& edit) {
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL,
                            CRect(10, 10, 280, 34), &m_host, 100));
    FocusForTyping(m_host.m_hWnd, edit.m_hWnd);
    ASSERT_EQ(edit.m_hWnd, ::GetFocus());
  }
  static std::string Text(CWnd& wnd) {
    CString str;
    wnd.GetWindowText(str);
    return (LPCSTR)str;
  }
  CWnd m_host;
};

struct TypingCase {
  EditKind kind;
  const char* pszMask; // kMask: the mask, the template (or NULL) and the always-valid characters
  const char* pszTemplate;
  const char* pszValid;
  BOOL bSetDate; // start from 12/31/2010 (kDate) or 23:58:30 (kTime), caret at the start
  const char* pszKeys;
  const char* pszExpected;
};

const TypingCase kTyping[] = {
    // Months: 13 and 00 refused at the second digit; the "/" comes by itself.
    {kDate, NULL, NULL, NULL, FALSE, "13", "1"},
    {kDate, NULL, NULL, NULL, FALSE, "00", "0"},
    {kDate, NULL, NULL, NULL, FALSE, "132", "12/"},
    {kDate, NULL, NULL, NULL, FALSE, "1", "1"},
    {kDate, NULL, NULL, NULL, FALSE, "09", "09/"},
    {kDate, NULL, NULL, NULL, FALSE, "2", ""},
    // Days: 4x refused, 32 refused at its second digit, 31 taken.
    {kDate, NULL, NULL, NULL, FALSE, "124", "12/"},
    {kDate, NULL, NULL, NULL, FALSE, "1232", "12/3"},
    {kDate, NULL, NULL, NULL, FALSE, "1231", "12/31/"},
    {kDate, NULL, NULL, NULL, FALSE, "12312010", "12/31/2010"},
    {kDate, NULL, NULL, NULL, FALSE, "12312010x5", "12/31/2010"},
    {kDate, NULL, NULL, NULL, FALSE, "1a2/-3", "12/3"},
    // Backspace puts back the restore text's character and stays there.
    {kDate, NULL, NULL, NULL, FALSE, "12{BS}", "12/"},
    {kDate, NULL, NULL, NULL, FALSE, "12{BS}{BS}", "1 /"},
    {kDate, NULL, NULL, NULL, FALSE, "12{BS}{BS}0", "10/"},
    {kDate, NULL, NULL, NULL, FALSE, "{BS}", ""},
    {kDate, NULL, NULL, NULL, TRUE, "0{BS}", "12/31/2010"},
    {kDate, NULL, NULL, NULL, TRUE, "{END}{BS}{BS}9", "12/31/2090"},
    {kDate, NULL, NULL, NULL, TRUE, "{RIGHT}{RIGHT}{RIGHT}0{BS}{BS}", "12/31/2010"},
    // Typing overwrites; Insert and Delete do nothing.
    {kDate, NULL, NULL, NULL, TRUE, "0", "02/31/2010"},
    {kDate, NULL, NULL, NULL, TRUE, "{DEL}{INS}{DEL}", "12/31/2010"},
    {kDate, NULL, NULL, NULL, TRUE, "{END}{LEFT}{DEL}", "12/31/2010"},
    // Times: hours up to the maximum (12 here), seconds up to 59.
    {kTime, NULL, NULL, NULL, FALSE, "13", "1"},
    {kTime, NULL, NULL, NULL, FALSE, "1259", "12:59:"},
    {kTime, NULL, NULL, NULL, FALSE, "12596", "12:59:"},
    {kTime, NULL, NULL, NULL, FALSE, "125959", "12:59:59"},
    {kTime, NULL, NULL, NULL, FALSE, "0959", "09:59:"},
    {kTime, NULL, NULL, NULL, TRUE, "{END}{BS}{BS}{BS}", "23:58:30"},
    // Each mask character.
    {kMask, "#", NULL, NULL, FALSE, "x5", "5"},
    {kMask, "##", NULL, NULL, FALSE, "k", "k"},
    {kMask, "###", NULL, NULL, FALSE, " mK", " m"},
    {kMask, "&&", NULL, NULL, FALSE, "%~", "%~"},
    {kMask, "0", NULL, NULL, FALSE, "a2", ""},
    {kMask, "0", NULL, NULL, FALSE, "1", "1"},
    {kMask, "99", NULL, NULL, FALSE, " x/", "x/"},
    {kMask, "??", NULL, NULL, FALSE, "4 q", " q"},
    {kMask, "AA", NULL, NULL, FALSE, " Q4", "Q4"},
    {kMask, "LL", NULL, NULL, FALSE, "4 Qz", "Qz"},
    {kMask, "aaa", NULL, NULL, FALSE, "-4 z", "4 z"},
    {kMask, "Z", NULL, NULL, FALSE, "4Z", ""},
    // Always-valid characters; a template's literals typed before and after input.
    {kMask, "LL", NULL, "-", FALSE, "-x", "-x"},
    {kMask, "AAAA", "(__)", NULL, FALSE, "xyz", "(xy)"},
    {kMask, "AAAA", "(_)_", NULL, FALSE, "xyz", "(x)y"},
    // Without a template Backspace only moves left (no restore text).
    {kMask, "AAA", NULL, NULL, FALSE, "xyz{BS}{BS}q", "xqz"},
};

TEST_F(MaskEditTest, TypedKeysGiveTheTextTheMaskAllows) {
  for (const TypingCase& c : kTyping) {
    SCOPED_TRACE(std::string(c.pszMask         ? c.pszMask
                             : c.kind == kDate ? "date"
                                               : "time") +
                 " " + c.pszKeys);
    VDateEdit dateEdit;
    VTimeEdit timeEdit;
    VMaskEdit maskEdit;
    VMaskEdit* pEdit = c.kind == kDate   ? (VMaskEdit*)&dateEdit
                       : c.kind == kTime ? (VMaskEdit*)&timeEdit
                                         : &maskEdit;
    if (c.kind == kMask) maskEdit.SetMask(c.pszMask, c.pszTemplate, c.pszValid);
    if (c.kind == kTime) timeEdit.SetHours(12);
    Place(*pEdit);
    if (c.bSetDate && c.kind == kDate) {
      COleDateTime date(2010, 12, 31, 0, 0, 0);
      dateEdit.SetDate(date);
    }
    if (c.bSetDate && c.kind == kTime) timeEdit.SetTime(CString("23:58:30"));
    pEdit->SetSel(0, 0);
    TypeKeys(c.pszKeys);
    EXPECT_EQ(c.pszExpected, Text(*pEdit));
    pEdit->DestroyWindow();
  }
}

TEST_F(MaskEditTest, DatesAndTimesGoInAndOut) {
  VDateEdit dateEdit;
  Place(dateEdit);
  COleDateTime date(2024, 2, 29, 0, 0, 0);
  dateEdit.SetDate(date);
  EXPECT_EQ("02/29/2024", Text(dateEdit));
  // Typed through to the last group, or with a "/" left at the end.
  dateEdit.SetWindowText("");
  TypeKeys("12312010");
  COleDateTime read;
  ASSERT_TRUE(dateEdit.GetDate(read));
  EXPECT_EQ(COleDateTime(2010, 12, 31, 0, 0, 0), read);
  dateEdit.SetWindowText("12/31/2010/");
  ASSERT_TRUE(dateEdit.GetDate(read));
  EXPECT_EQ(COleDateTime(2010, 12, 31, 0, 0, 0), read);
  dateEdit.SetWindowText("12/3x/2010");
  EXPECT_FALSE(dateEdit.GetDate(read));
  EXPECT_EQ(COleDateTime::invalid, read.GetStatus());

  VTimeEdit timeEdit;
  ASSERT_TRUE(timeEdit.Create(WS_CHILD | WS_VISIBLE, CRect(10, 40, 280, 64), &m_host, 101));
  COleDateTime time(2000, 1, 1, 7, 5, 9);
  timeEdit.SetTime(time);
  EXPECT_EQ("07:05:09", std::string(timeEdit.GetTimeStr()));
  timeEdit.SetWindowText("23:59:");
  ASSERT_TRUE(timeEdit.GetTime(read));
  EXPECT_EQ(23, read.GetHour());
  EXPECT_EQ(59, read.GetMinute());
  // Backspace puts back what SetTime showed.
  FocusForTyping(m_host.m_hWnd, timeEdit.m_hWnd);
  timeEdit.SetTime(time);
  timeEdit.SetSel(0, 0);
  TypeKeys("1{BS}");
  EXPECT_EQ("07:05:09", Text(timeEdit));
}

TEST_F(MaskEditTest, SetPastedAndInvalidTextsAreShownAndTypingStaysInTheMask) {
  VDateEdit edit;
  Place(edit);
  // An invalid date shows as such; nothing can be typed past the mask.
  COleDateTime bad;
  bad.SetStatus(COleDateTime::invalid);
  edit.SetDate(bad);
  EXPECT_EQ("Invalid DateTime", Text(edit));
  COleDateTime read;
  EXPECT_FALSE(edit.GetDate(read));
  edit.SetSel(16, 16);
  TypeKeys("1{BS}{BS}");
  EXPECT_EQ("Invalid DateTime", Text(edit));

  // Set and pasted text is the plain edit's business; typing afterwards
  // still overwrites by the mask, and Backspace past the typed text beeps.
  std::string strLong(3000, 'x');
  for (size_t i = 0; i < strLong.size(); i++)
    strLong[i] = (char)(' ' + (i * 37) % 95);
  edit.SendMessage(WM_SETTEXT, 0, (LPARAM)strLong.c_str());
  EXPECT_EQ(strLong, Text(edit));
  edit.SetSel(0, 0);
  TypeKeys("1");
  EXPECT_EQ("1" + strLong.substr(1), Text(edit));
  edit.SetSel(2000, 2000);
  TypeKeys("1{BS}");
  EXPECT_EQ("1" + strLong.substr(1), Text(edit));

  ASSERT_TRUE(::OpenClipboard(m_host.m_hWnd));
  ::EmptyClipboard();
  HGLOBAL hText = ::GlobalAlloc(GMEM_MOVEABLE, 12);
  memcpy(::GlobalLock(hText), "pasted/ok!", 11);
  ::GlobalUnlock(hText);
  ::SetClipboardData(CF_TEXT, hText);
  ::CloseClipboard();
  edit.SetWindowText("");
  edit.SendMessage(WM_PASTE);
  EXPECT_EQ("pasted/ok!", Text(edit));
  edit.SetSel(0, 0);
  TypeKeys("0");
  EXPECT_EQ("0asted/ok!", Text(edit));
}

} // namespace
