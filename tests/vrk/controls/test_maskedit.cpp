// Masked edits typed into as the user types (SendInput to the focused control).
#include <vrk_maskedit.h>
#include <gtest/gtest.h>

#include <string>

#include "user_input.h"

namespace {

using namespace user_input;

// Types each character on its keys, and {B}ackspace {D}elete {I}nsert {E}nd {L}eft {R}ight.
void TypeKeys(const char* psz) {
  for (; *psz != '\0'; psz++) {
    const char *pName = "BDIELR", sz[2] = {*psz, '\0'};
    const WORD vks[] = {VK_BACK, VK_DELETE, VK_INSERT, VK_END, VK_LEFT, VK_RIGHT};
    if (*psz != '{')
      Type(sz);
    else
      Press(vks[strchr(pName, *++psz) - pName]), psz++;
  }
}

class MaskEditTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(
        m_host.CreateEx(0, NULL, "edits", WS_POPUP | WS_VISIBLE, 0, 0, 300, 80, NULL, NULL));
  }
  void TearDown() override { m_host.DestroyWindow(); }
  void Place(VMaskEdit& edit) {
    ASSERT_TRUE(
        edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(0, 0, 300, 24), &m_host, 1));
    Focus(m_host.m_hWnd, edit.m_hWnd);
    ASSERT_EQ(edit.m_hWnd, ::GetFocus());
  }
  CWnd m_host;
};

// The edit: "date" (empty), "date=" (12/31/2010 set), "date!" (an invalid
// date set), "time" (hours up to 12), "time=" (23:58:30 set), or a mask with
// its template and always-valid characters as "mask|template|valid".
// clang-format off
const struct { const char* pszEdit; const char* pszKeys; const char* pszText; } kTyping[] = {
    {"date", "00", "0"}, {"date", "132", "12/"}, {"date", "09", "09/"}, {"date", "2", ""},
    {"date", "124", "12/"}, {"date", "1232", "12/3"}, {"date", "12312010x5", "12/31/2010"},
    {"date", "1a2/-3", "12/3"}, {"date", "12{B}", "12/"}, {"date", "12{B}{B}0", "10/"},
    {"date", "{B}", ""}, {"date=", "0", "02/31/2010"}, {"date=", "0{B}", "12/31/2010"},
    {"date=", "{E}{B}{B}9", "12/31/2090"}, {"date=", "{R}{R}{R}0{B}{B}", "12/31/2010"},
    {"date=", "{D}{I}{E}{L}{D}", "12/31/2010"}, {"date!", "{E}1{B}{B}", "Invalid DateTime"},
    {"time", "13", "1"},
    {"time", "12596", "12:59:"}, {"time", "125959", "12:59:59"}, {"time", "0959", "09:59:"},
    {"time=", "1{B}{E}{B}{B}", "23:58:30"}, {"#", "x5", "5"}, {"##", "k", "k"},
    {"###", " mK", " m"}, {"&&", "%~", "%~"}, {"0", "a2", ""}, {"99", " x/", "x/"},
    {"??", "4 q", " q"}, {"AA", " Q4", "Q4"}, {"LL", "4 Qz", "Qz"}, {"aaa", "-4 z", "4 z"},
    {"Z", "4Z", ""}, {"LL||-", "-x", "-x"}, {"AAAA|(__)", "xyz", "(xy)"},
    {"AAAA|(_)_", "xyz", "(x)y"}, {"AAA", "xyz{B}{B}q", "xqz"}, // no restore text: {B} only moves
};
// clang-format on

TEST_F(MaskEditTest, TypedKeysGiveTheTextsTheMaskAllows) {
  for (const auto& c : kTyping) {
    SCOPED_TRACE(std::string(c.pszEdit) + ": " + c.pszKeys);
    std::string strEdit = c.pszEdit;
    VDateEdit dateEdit;
    VTimeEdit timeEdit;
    VMaskEdit maskEdit;
    VMaskEdit* pEdit = strEdit[0] == 'd' ? &dateEdit : strEdit[0] == 't' ? &timeEdit : &maskEdit;
    if (pEdit == &maskEdit) {
      CString strMask, strTemplate, strValid;
      AfxExtractSubString(strTemplate, c.pszEdit, 1, '|');
      AfxExtractSubString(strValid, c.pszEdit, 2, '|');
      AfxExtractSubString(strMask, c.pszEdit, 0, '|');
      maskEdit.SetMask(strMask, strTemplate.IsEmpty() ? NULL : (LPCSTR)strTemplate, strValid);
    }
    timeEdit.SetHours(12);
    Place(*pEdit);
    COleDateTime date(2010, 12, 31, 0, 0, 0), bad;
    bad.SetStatus(COleDateTime::invalid);
    if (strEdit == "date=" || strEdit == "date!") dateEdit.SetDate(strEdit == "date=" ? date : bad);
    if (strEdit == "time=") timeEdit.SetTime(CString("23:58:30"));
    pEdit->SetSel(0, 0);
    TypeKeys(c.pszKeys);
    EXPECT_EQ(c.pszText, Text(*pEdit));
    pEdit->DestroyWindow();
  }
}

TEST_F(MaskEditTest, DatesAndTimesGoInAndOutSetAndPastedTextsAreKept) {
  VDateEdit dateEdit;
  VTimeEdit timeEdit;
  Place(dateEdit);
  COleDateTime value(2024, 2, 29, 7, 5, 9), read;
  dateEdit.SetDate(value);
  EXPECT_EQ("02/29/2024", Text(dateEdit));
  dateEdit.SetWindowText("12/31/2010/"); // a "/" typed by the control at the end
  ASSERT_TRUE(dateEdit.GetDate(read));
  EXPECT_EQ(COleDateTime(2010, 12, 31, 0, 0, 0), read);
  dateEdit.SetWindowText("12/3x/2010");
  EXPECT_TRUE(!dateEdit.GetDate(read) && read.GetStatus() == COleDateTime::invalid);
  timeEdit.SetTime(value); // before the window exists: kept for Backspace
  Place(timeEdit);
  timeEdit.SetWindowText("07:05:09");
  TypeKeys("1{B}");
  EXPECT_EQ("07:05:09", std::string(timeEdit.GetTimeStr()));
  timeEdit.SetWindowText("23:59:");
  ASSERT_TRUE(timeEdit.GetTime(read));
  EXPECT_TRUE(read.GetHour() == 23 && read.GetMinute() == 59);
  // Set and pasted texts are the plain edit's; typing stays in the mask.
  VDateEdit edit;
  Place(edit);
  std::string strLong(3000, ' ');
  for (size_t i = 0; i < strLong.size(); i++)
    strLong[i] = (char)(' ' + (i * 37) % 95);
  edit.SendMessage(WM_SETTEXT, 0, (LPARAM)strLong.c_str());
  edit.SetSel(2000, 2000);
  TypeKeys("1{B}"); // past the mask: refused; past the typed text: a beep
  edit.SetSel(0, 0);
  TypeKeys("1");
  EXPECT_EQ("1" + strLong.substr(1), Text(edit));
  ASSERT_TRUE(::OpenClipboard(m_host.m_hWnd));
  ::EmptyClipboard();
  HGLOBAL hText = ::GlobalAlloc(GMEM_MOVEABLE, 11);
  memcpy(::GlobalLock(hText), "pasted/ok!", 11);
  ::GlobalUnlock(hText);
  ::SetClipboardData(CF_TEXT, hText);
  ::CloseClipboard();
  edit.SetWindowText("");
  edit.SendMessage(WM_PASTE);
  edit.SetSel(0, 0);
  TypeKeys("0");
  Press(VK_INSERT, {VK_SHIFT}); // Shift+Insert pastes in a plain edit
  EXPECT_EQ("0asted/ok!", Text(edit));
}

} // namespace
