// The library's message box, shown modally and answered through its real
// buttons and keys: the type word's buttons, icon and default button, the
// caption and font, the size following the text, the extended form's class.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "dlg_driver.h"
#include "resource.h"
#include "vrk_msgbox.h"

namespace {

CRect Rect(HWND hWnd) {
  CRect rc;
  ::GetWindowRect(hWnd, &rc);
  return rc;
}

// The visible buttons, left to right.
std::vector<int> Buttons(HWND hDlg) {
  std::vector<std::pair<int, int>> byX;
  for (int id = IDOK; id <= IDNO; id++)
    if (::IsWindowVisible(::GetDlgItem(hDlg, id)))
      byX.push_back({Rect(::GetDlgItem(hDlg, id)).left, id});
  std::sort(byX.begin(), byX.end());
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
  struct Case {
    UINT type;
    std::vector<int> buttons;
    int defID;
    LPCSTR icon;
    int answer; // a key, or a button to click
    int result;
  } cases[] = {
      {0x24, {Y, N}, Y, IDI_QUESTION, VK_RETURN, IDYES},
      {0x24, {Y, N}, Y, IDI_QUESTION, IDNO, IDNO},
      {0x24, {Y, N}, Y, IDI_QUESTION, VK_ESCAPE, IDYES},    // no Cancel: Escape does nothing
      {0x201, {O, C}, O, IDI_EXCLAMATION, VK_RETURN, IDOK}, // no third button
      {0x0, {O}, O, IDI_EXCLAMATION, VK_ESCAPE, IDOK},      // OK alone answers Escape
      {0x112, {A, R, I}, R, IDI_HAND, VK_RETURN, IDRETRY},
      {0x243, {Y, N, C}, C, IDI_INFORMATION, VK_ESCAPE, IDCANCEL},
      {0x105, {R, C}, C, IDI_EXCLAMATION, IDRETRY, IDRETRY},
      {0x30, {O}, O, IDI_EXCLAMATION, VK_RETURN, IDOK}, // an unknown icon value
  };
  NONCLIENTMETRICSA ncm = {sizeof(ncm)};
  ASSERT_TRUE(::SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(ncm), &ncm, 0));
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << "type 0x" << std::hex << c.type << " answer " << c.answer);
    m_driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      EXPECT_EQ("Vrk Box Test", DialogDriver::Text(hDlg));
      EXPECT_EQ("Save the changes?", DialogDriver::Text(hDlg, IDC_VRK_MSGBOX_TEXT));
      EXPECT_EQ(c.buttons, Buttons(hDlg));
      EXPECT_EQ(c.defID, ::GetDlgCtrlID(::GetFocus()));
      EXPECT_TRUE(::GetWindowLongA(::GetFocus(), GWL_STYLE) & BS_DEFPUSHBUTTON);
      EXPECT_EQ(::LoadIconA(NULL, c.icon),
                (HICON)::SendDlgItemMessageA(hDlg, IDC_VRK_MSGBOX_ICON, STM_GETICON, 0, 0));
      LOGFONTA lf = {};
      ::GetObjectA((HFONT)::SendDlgItemMessageA(hDlg, IDC_VRK_MSGBOX_TEXT, WM_GETFONT, 0, 0),
                   sizeof(lf), &lf);
      EXPECT_STREQ(ncm.lfMessageFont.lfFaceName, lf.lfFaceName);
      EXPECT_EQ(ncm.lfMessageFont.lfHeight, lf.lfHeight);
      if (c.answer != VK_RETURN && c.answer != VK_ESCAPE)
        return DialogDriver::Click(hDlg, c.answer);
      DialogDriver::Key((WORD)c.answer);
      if (::IsWindowVisible(hDlg)) DialogDriver::Click(hDlg, IDYES); // still open
    }));
    EXPECT_EQ(c.result, VrkMessageBox("Save the changes?", c.type));
  }
}

TEST_F(MessageBoxTest, BoxFollowsItsText) {
  std::string words;
  while (words.size() < 10000)
    words += "a long message that has to wrap ";
  struct Case {
    std::string text;
    bool centred; // beside the icon, as tall as it
    bool wraps;
  } cases[] = {{"Done.", true, false},
               {words.substr(0, 400), false, true},
               {words, false, true},
               {std::string(10000, 'W'), false, true}}; // no space to break at
  CRect screen = Rect(::GetDesktopWindow()), shortBox;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text.substr(0, 20));
    m_driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      HWND hText = ::GetDlgItem(hDlg, IDC_VRK_MSGBOX_TEXT);
      CRect box = Rect(hDlg), text = Rect(hText), button = Rect(::GetDlgItem(hDlg, IDOK));
      EXPECT_EQ(c.text, DialogDriver::Text(hText)); // all of it
      EXPECT_EQ(c.centred, (::GetWindowLongA(hText, GWL_STYLE) & SS_CENTERIMAGE) != 0);
      if (c.centred) {
        EXPECT_EQ(::GetSystemMetrics(SM_CYICON), text.Height());
        shortBox = box;
      }
      if (c.wraps) {
        EXPECT_LE(text.Width(), screen.Width() * 56 / 100);
        EXPECT_GT(box.Width(), shortBox.Width());
        EXPECT_GT(box.Height(), shortBox.Height());
      }
      // Inside the box, the button under the text, the box on the screen.
      EXPECT_TRUE(box.PtInRect(text.TopLeft()) && text.right <= box.right);
      EXPECT_GE(button.top, text.bottom);
      EXPECT_TRUE(screen.PtInRect(box.TopLeft()) && box.bottom <= screen.bottom);
      DialogDriver::Click(hDlg, IDOK);
    }));
    EXPECT_EQ(IDOK, VrkMessageBox(c.text.c_str(), MB_OK));
  }
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

TEST_F(MessageBoxTest, ExtendedFormAndStringIdentifiers) {
  EXPECT_EQ(-1, VrkMessageBoxEx(RUNTIME_CLASS(CDialog), "text", MB_YESNO));
  EXPECT_EQ(-1, VrkMessageBoxEx(NULL, IDS_VRK_FILE_OPEN, MB_YESNO));
  EXPECT_TRUE(m_driver.Captions().empty()); // nothing shown
  std::vector<std::string> texts;
  for (int i = 0; i < 3; i++)
    m_driver.Then(DialogDriver::WhenShown([&texts](HWND hDlg) {
      texts.push_back(DialogDriver::Text(hDlg, IDC_VRK_MSGBOX_TEXT));
      DialogDriver::Click(hDlg, IDNO);
    }));
  EXPECT_EQ(IDNO, VrkMessageBoxEx(RUNTIME_CLASS(CHostBox), IDS_VRK_FILE_OPEN, MB_YESNO));
  EXPECT_EQ(1, CHostBox::s_nShown);
  EXPECT_EQ(IDNO, VrkMessageBox(IDS_VRK_FILE_OPEN, MB_YESNO));
  EXPECT_EQ(IDNO, VrkMessageBox(4999u, MB_YESNO)); // no such string: an empty text
  EXPECT_EQ(std::vector<std::string>(
                {"The file could not be opened", "The file could not be opened", ""}),
            texts);
}

} // namespace
