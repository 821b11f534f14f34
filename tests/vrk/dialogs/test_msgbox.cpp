// The library's message box, answered through its real buttons and keys.
#include <gtest/gtest.h>

#include <map>

#include "user_input.h"
#include "resource.h"
#include "vrk_msgbox.h"

using namespace user_input;

namespace {

CRect Rect(HWND hWnd) {
  CRect rc;
  ::GetWindowRect(hWnd, &rc);
  return rc;
}

// The visible buttons, left to right.
std::vector<int> Buttons(HWND hDlg) {
  std::map<int, int> byX;
  for (int id = IDOK; id <= IDNO; id++)
    if (::IsWindowVisible(::GetDlgItem(hDlg, id))) byX[Rect(::GetDlgItem(hDlg, id)).left] = id;
  std::vector<int> ids;
  for (auto& p : byX)
    ids.push_back(p.second);
  return ids;
}

class MessageBoxTest : public ::testing::Test {
protected:
  CWinApp m_app{"Vrk Box Test"};
  DialogDriver m_driver;
};

TEST_F(MessageBoxTest, TypeWordGivesButtonsIconDefaultAndResult) {
  const int Y = IDYES, N = IDNO, O = IDOK, C = IDCANCEL, A = IDABORT, R = IDRETRY, I = IDIGNORE;
  // clang-format off
  // answer: a key, or a button to click
  struct Case { UINT type; std::vector<int> buttons; int defID; LPCSTR icon; int answer, result; }
  cases[] = {
      {0x24, {Y, N}, Y, IDI_QUESTION, VK_RETURN, IDYES},
      {0x24, {Y, N}, Y, IDI_QUESTION, IDNO, IDNO},
      {0x24, {Y, N}, Y, IDI_QUESTION, VK_ESCAPE, IDYES},    // no Cancel: Escape does nothing
      {0x201, {O, C}, O, IDI_EXCLAMATION, VK_RETURN, IDOK}, // no third button
      {0x0, {O}, O, IDI_EXCLAMATION, VK_ESCAPE, IDOK},      // OK alone answers Escape
      {0x112, {A, R, I}, R, IDI_HAND, VK_RETURN, IDRETRY},
      {0x243, {Y, N, C}, C, IDI_INFORMATION, VK_ESCAPE, IDCANCEL},
      {0x105, {R, C}, C, IDI_EXCLAMATION, IDRETRY, IDRETRY},
  };
  // clang-format on
  NONCLIENTMETRICSA ncm = {sizeof(ncm)};
  ASSERT_TRUE(::SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(ncm), &ncm, 0));
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << "type 0x" << std::hex << c.type << " answer " << c.answer);
    m_driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      EXPECT_EQ("Vrk Box Test|Save the changes?",
                Text(hDlg) + "|" + Text(hDlg, IDC_VRK_MSGBOX_TEXT));
      EXPECT_EQ(c.buttons, Buttons(hDlg));
      EXPECT_TRUE(::GetDlgCtrlID(::GetFocus()) == c.defID &&
                  (::GetWindowLongA(::GetFocus(), GWL_STYLE) & BS_DEFPUSHBUTTON));
      EXPECT_EQ(::LoadIconA(NULL, c.icon),
                (HICON)::SendDlgItemMessageA(hDlg, IDC_VRK_MSGBOX_ICON, STM_GETICON, 0, 0));
      LOGFONTA lf = {};
      ::GetObjectA((HFONT)::SendDlgItemMessageA(hDlg, IDC_VRK_MSGBOX_TEXT, WM_GETFONT, 0, 0),
                   sizeof(lf), &lf);
      EXPECT_TRUE(!lstrcmpA(ncm.lfMessageFont.lfFaceName, lf.lfFaceName) &&
                  ncm.lfMessageFont.lfHeight == lf.lfHeight);
      if (c.answer >= VK_RETURN) Press((WORD)c.answer); // a key, else a button
      if (::IsWindowVisible(hDlg)) ClickItem(hDlg, c.answer >= VK_RETURN ? IDYES : c.answer);
    }));
    EXPECT_EQ(c.result, VrkMessageBox("Save the changes?", c.type));
  }
}

TEST_F(MessageBoxTest, BoxFollowsItsText) {
  std::string words;
  while (words.size() < 10000)
    words += "a long message that has to wrap ";
  // A short text beside the icon, as tall as it; long ones wrapped, with spaces or without.
  std::string texts[] = {"Done.", words, std::string(10000, 'W')};
  CRect screen = Rect(::GetDesktopWindow()), shortBox;
  for (const std::string& t : texts) {
    SCOPED_TRACE(t.substr(0, 20));
    bool centred = t.size() < 10;
    m_driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      HWND hText = ::GetDlgItem(hDlg, IDC_VRK_MSGBOX_TEXT);
      CRect box = Rect(hDlg), text = Rect(hText), button = Rect(::GetDlgItem(hDlg, IDOK));
      EXPECT_EQ(t, Text(hText)); // all of it
      EXPECT_EQ(centred, (::GetWindowLongA(hText, GWL_STYLE) & SS_CENTERIMAGE) != 0);
      if (centred) {
        EXPECT_EQ(::GetSystemMetrics(SM_CYICON), text.Height());
        shortBox = box;
      } else {
        EXPECT_LE(text.Width(), screen.Width() * 56 / 100);
        EXPECT_TRUE(box.Width() > shortBox.Width() && box.Height() > shortBox.Height());
      }
      // Inside the box, the button under the text, the box on the screen.
      EXPECT_TRUE(box.PtInRect(text.TopLeft()) && text.right <= box.right &&
                  button.top >= text.bottom);
      EXPECT_TRUE(screen.PtInRect(box.TopLeft()) && box.bottom <= screen.bottom);
      ClickItem(hDlg, IDOK);
    }));
    EXPECT_EQ(IDOK, VrkMessageBox(t.c_str(), MB_OK));
  }
}

// A box class of the host's, shown through the extended form.
class CHostBox : public VrkMessageBoxDlg {
  DECLARE_DYNCREATE(CHostBox)
public:
  static inline int s_nShown = 0;
  virtual BOOL OnInitDialog() {
    s_nShown++;
    return VrkMessageBoxDlg::OnInitDialog();
  }
};
IMPLEMENT_DYNCREATE(CHostBox, VrkMessageBoxDlg)

TEST_F(MessageBoxTest, ExtendedFormAndStringIdentifiers) {
  EXPECT_TRUE(VrkMessageBoxEx(RUNTIME_CLASS(CDialog), "text", MB_YESNO) == -1 &&
              VrkMessageBoxEx(NULL, IDS_VRK_FILE_OPEN, MB_YESNO) == -1);
  EXPECT_TRUE(m_driver.Captions().empty()); // nothing shown
  std::vector<std::string> texts;
  for (int i = 0; i < 3; i++)
    m_driver.Then(DialogDriver::WhenShown([&texts](HWND hDlg) {
      texts.push_back(Text(hDlg, IDC_VRK_MSGBOX_TEXT));
      ClickItem(hDlg, IDNO);
    }));
  EXPECT_EQ(IDNO, VrkMessageBoxEx(RUNTIME_CLASS(CHostBox), IDS_VRK_FILE_OPEN, MB_YESNO));
  EXPECT_EQ(1, CHostBox::s_nShown); // the host's class
  EXPECT_EQ(IDNO, VrkMessageBox(IDS_VRK_FILE_OPEN, MB_YESNO));
  EXPECT_EQ(IDNO, VrkMessageBox(4999u, MB_YESNO)); // no such string: an empty text
  const char* kOpen = "The file could not be opened";
  EXPECT_EQ(std::vector<std::string>({kOpen, kOpen, ""}), texts);
}

} // namespace
