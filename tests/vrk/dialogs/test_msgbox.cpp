// The library's message box, shown modally and answered through its real
// buttons and keys: the type word's buttons, icon and default button, the
// caption, the message font, the size following the text, and the extended
// form's class check.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "dlg_driver.h"
#include "msgbox_catcher.h"
#include "resource.h"
#include "vrk_msgbox.h"

namespace {

// What one box showed, read while it was up.
struct Seen {
  std::string caption, text;
  std::vector<int> buttons; // visible, left to right
  int defID = 0, focusID = 0;
  HICON icon = NULL;
  CRect box, textRect, screen; // screen coordinates
  int buttonsTop = 0;
  bool centred = false; // the text stands centred on the icon
  LOGFONTA font = {};
};

Seen Read(HWND hDlg) {
  Seen s;
  s.caption = DialogDriver::Text(hDlg);
  s.text = DialogDriver::Text(hDlg, IDC_VRK_MSGBOX_TEXT);
  std::vector<std::pair<int, int>> byX;
  for (int id : {IDOK, IDCANCEL, IDABORT, IDRETRY, IDIGNORE, IDYES, IDNO}) {
    HWND hButton = ::GetDlgItem(hDlg, id);
    if (!::IsWindowVisible(hButton)) continue;
    CRect rc;
    ::GetWindowRect(hButton, &rc);
    byX.push_back({rc.left, id});
    s.buttonsTop = rc.top;
    if (::GetWindowLongA(hButton, GWL_STYLE) & BS_DEFPUSHBUTTON) s.defID = id;
  }
  std::sort(byX.begin(), byX.end());
  for (auto& p : byX)
    s.buttons.push_back(p.second);
  s.focusID = ::GetDlgCtrlID(::GetFocus());
  s.icon = (HICON)::SendDlgItemMessageA(hDlg, IDC_VRK_MSGBOX_ICON, STM_GETICON, 0, 0);
  HWND hText = ::GetDlgItem(hDlg, IDC_VRK_MSGBOX_TEXT);
  ::GetWindowRect(hDlg, &s.box);
  ::GetWindowRect(hText, &s.textRect);
  ::GetWindowRect(::GetDesktopWindow(), &s.screen);
  s.centred = (::GetWindowLongA(hText, GWL_STYLE) & SS_CENTERIMAGE) != 0;
  ::GetObjectA((HFONT)::SendMessageA(hText, WM_GETFONT, 0, 0), sizeof(s.font), &s.font);
  return s;
}

// Shows a box, reads it, then answers with a key or a button click.
int ShowAndAnswer(const char* pszText, UINT nType, int nAnswer, Seen* pSeen) {
  DialogDriver driver;
  driver.Then(DialogDriver::WhenShown([=](HWND hDlg) {
    *pSeen = Read(hDlg);
    if (nAnswer == VK_RETURN || nAnswer == VK_ESCAPE) {
      DialogDriver::Key((WORD)nAnswer);
      if (nAnswer == VK_ESCAPE && ::IsWindowVisible(hDlg)) DialogDriver::Click(hDlg, IDYES);
    } else {
      DialogDriver::Click(hDlg, nAnswer);
    }
  }));
  return VrkMessageBox(pszText, nType);
}

class MessageBoxTest : public ::testing::Test {
protected:
  CWinApp m_app{"Vrk Box Test"};
};

TEST_F(MessageBoxTest, TypeWordGivesButtonsIconDefaultAndResult) {
  const int Y = IDYES, N = IDNO, O = IDOK, C = IDCANCEL, A = IDABORT, R = IDRETRY, I = IDIGNORE;
  struct Case {
    UINT type;
    std::vector<int> buttons;
    int defID;
    LPCSTR icon;
    int answer; // a key or a button to click
    int result;
  } cases[] = {
      {0x24, {Y, N}, Y, IDI_QUESTION, VK_RETURN, IDYES},
      {0x24, {Y, N}, Y, IDI_QUESTION, IDNO, IDNO},
      {0x24, {Y, N}, Y, IDI_QUESTION, VK_ESCAPE, IDYES},    // no Cancel: Escape does nothing
      {0x201, {O, C}, O, IDI_EXCLAMATION, VK_RETURN, IDOK}, // no third button
      {0x0, {O}, O, IDI_EXCLAMATION, VK_ESCAPE, IDOK},
      {0x112, {A, R, I}, R, IDI_HAND, VK_RETURN, IDRETRY},
      {0x243, {Y, N, C}, C, IDI_INFORMATION, VK_ESCAPE, IDCANCEL},
      {0x105, {R, C}, C, IDI_EXCLAMATION, IDRETRY, IDRETRY},
      {0x30, {O}, O, IDI_EXCLAMATION, VK_RETURN, IDOK}, // an unknown icon value
  };
  NONCLIENTMETRICSA ncm = {sizeof(ncm)};
  ASSERT_TRUE(::SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(ncm), &ncm, 0));
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << "type 0x" << std::hex << c.type << " answer " << c.answer);
    Seen s;
    EXPECT_EQ(c.result, ShowAndAnswer("Save the changes?", c.type, c.answer, &s));
    EXPECT_EQ("Vrk Box Test", s.caption);
    EXPECT_EQ("Save the changes?", s.text);
    EXPECT_EQ(c.buttons, s.buttons);
    EXPECT_EQ(c.defID, s.defID);
    EXPECT_EQ(c.defID, s.focusID);
    EXPECT_EQ(::LoadIconA(NULL, c.icon), s.icon);
    EXPECT_STREQ(ncm.lfMessageFont.lfFaceName, s.font.lfFaceName);
    EXPECT_EQ(ncm.lfMessageFont.lfHeight, s.font.lfHeight);
  }
}

TEST_F(MessageBoxTest, BoxFollowsItsText) {
  std::string words;
  while (words.size() < 10000)
    words += "a long message that has to wrap ";
  const std::string noSpaces(10000, 'W');
  Seen shortBox, longBox, hugeBox, wordBox;
  ShowAndAnswer("Done.", MB_OK, IDOK, &shortBox);
  ShowAndAnswer(words.substr(0, 400).c_str(), MB_OK, IDOK, &longBox);
  ShowAndAnswer(words.c_str(), MB_OK, IDOK, &hugeBox);
  ShowAndAnswer(noSpaces.c_str(), MB_OK, IDOK, &wordBox);

  // A short text stands centred on the icon, as tall as it.
  EXPECT_TRUE(shortBox.centred);
  EXPECT_EQ(::GetSystemMetrics(SM_CYICON), shortBox.textRect.Height());
  // A long one wraps at 56 % of the screen: the box grows downwards.
  EXPECT_FALSE(longBox.centred);
  EXPECT_GT(longBox.box.Width(), shortBox.box.Width());
  EXPECT_LE(longBox.textRect.Width(), longBox.screen.Width() * 56 / 100);
  EXPECT_GT(longBox.textRect.Height(), 2 * shortBox.font.lfHeight * -1);
  EXPECT_GT(longBox.box.Height(), shortBox.box.Height());
  for (const Seen* s : {&shortBox, &longBox, &hugeBox, &wordBox}) {
    // Everything inside the box, the buttons under the text, the box on the
    // screen.
    EXPECT_TRUE(s->box.PtInRect(s->textRect.TopLeft()));
    EXPECT_LE(s->textRect.right, s->box.right);
    EXPECT_GE(s->buttonsTop, s->textRect.bottom);
    EXPECT_LE(s->box.Height(), s->screen.Height());
    EXPECT_LE(s->box.Width(), s->screen.Width());
  }
  EXPECT_EQ(words, hugeBox.text); // nothing cut from the text itself
}

// A box class of the host's, shown through the extended form.
class CHostBox : public VrkMessageBoxDlg {
  DECLARE_DYNCREATE(CHostBox)
public:
  static int s_nShown;
  virtual BOOL OnInitDialog() {
    s_nShown++;
    return VrkMessageBoxDlg::OnInitDialog();
  }
};
int CHostBox::s_nShown = 0;
IMPLEMENT_DYNCREATE(CHostBox, VrkMessageBoxDlg)

TEST_F(MessageBoxTest, ExtendedFormTakesOnlyMessageBoxClasses) {
  MsgBoxCatcher catcher(IDNO);
  EXPECT_EQ(-1, VrkMessageBoxEx(RUNTIME_CLASS(CDialog), "text", MB_YESNO));
  EXPECT_EQ(-1, VrkMessageBoxEx(NULL, IDS_VRK_FILE_OPEN, MB_YESNO));
  EXPECT_EQ(0u, catcher.Count()); // nothing shown
  EXPECT_EQ(IDNO, VrkMessageBoxEx(RUNTIME_CLASS(CHostBox), IDS_VRK_FILE_OPEN, MB_YESNO));
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ(1, CHostBox::s_nShown);
  catcher.Answer(IDOK);
  EXPECT_EQ(IDOK, VrkMessageBoxEx(RUNTIME_CLASS(VrkMessageBoxDlg), "plain", MB_OK));
  EXPECT_EQ("Vrk Box Test", catcher.Last().caption);
}

TEST_F(MessageBoxTest, StringIdentifierGivesTheText) {
  Seen s;
  DialogDriver driver;
  for (int i = 0; i < 2; i++)
    driver.Then(DialogDriver::WhenShown([&s](HWND hDlg) {
      s = Read(hDlg);
      DialogDriver::Click(hDlg, IDOK);
    }));
  EXPECT_EQ(IDOK, VrkMessageBox(IDS_VRK_FILE_OPEN, MB_OK));
  EXPECT_EQ("The file could not be opened", s.text);
  EXPECT_EQ(IDOK, VrkMessageBox(4999u, MB_OK)); // no such string: an empty box
  EXPECT_EQ("", s.text);
}

} // namespace
