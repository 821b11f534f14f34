// The input box: the request's fields on the shown dialog, text typed into
// its edit as a user would, OK and Cancel.
#include <afxwin.h>
#include <gtest/gtest.h>

#include "dlg_driver.h"
#include "resource.h"
#include "vrk_dialogs.h"

namespace {

struct Shown {
  std::string caption, prompt, text;
  UINT limit = 0;
  DWORD style = 0;
  char password = 0;
  bool editFocused = false;
};

// Runs the box: reads it, types the text, then presses the button.
BOOL RunBox(VInputDialog& dlg, VINPUTDLG& request, const std::string& typed, int nButton,
            Shown* pShown) {
  DialogDriver driver;
  driver.Then(DialogDriver::WhenShown([=](HWND hDlg) {
    HWND hEdit = ::GetDlgItem(hDlg, IDC_VRK_INPUT_EDIT);
    pShown->caption = DialogDriver::Text(hDlg);
    pShown->prompt = DialogDriver::Text(hDlg, IDC_VRK_INPUT_PROMPT);
    pShown->editFocused = ::GetFocus() == hEdit;
    pShown->limit = (UINT)::SendMessageA(hEdit, EM_GETLIMITTEXT, 0, 0);
    pShown->style = (DWORD)::GetWindowLongA(hEdit, GWL_STYLE);
    pShown->password = (char)::SendMessageA(hEdit, EM_GETPASSWORDCHAR, 0, 0);
    DialogDriver::Type(typed); // replaces the selected initial text
    pShown->text = DialogDriver::Text(hEdit);
    DialogDriver::Click(hDlg, nButton);
  }));
  return dlg.DoModal(request);
}

TEST(InputDialog, RequestFieldsAndTypedText) {
  struct Case {
    VINPUTDLG request;
    const char* typed;
    int button;
    // expected
    const char* caption;
    const char* prompt;
    const char* shownText; // after typing
    UINT limit;
    BOOL result;
    const char* input;
  } cases[] = {
      {{VIDF_PROMPT | VIDF_CAPTION | VIDF_TEXT, "New &name:", "Rename", "old", 0, 8, 0},
       "report",
       IDOK,
       "Rename",
       "New &name:",
       "report",
       8,
       TRUE,
       "report"},
      // A limit without a prompt: the template's prompt, the limit applied.
      {{VIDF_PROMPT, NULL, NULL, NULL, 0, 3, 0},
       "12345",
       IDOK,
       "Input",
       "&Enter the text:",
       "123",
       3,
       TRUE,
       "123"},
      // Cancel leaves the input as it was.
      {{VIDF_TEXT, NULL, NULL, "keep", 0, 0, 0},
       "x",
       IDCANCEL,
       "Input",
       "&Enter the text:",
       "x",
       0x7FFFFFFE,
       FALSE,
       "keep"},
      {{VIDF_PROMPT, "Big", NULL, NULL, 0, 100000, 0},
       "ok",
       IDOK,
       "Input",
       "Big",
       "ok",
       100000,
       TRUE,
       "ok"},
  };
  for (Case& c : cases) {
    SCOPED_TRACE(c.typed);
    VInputDialog dlg;
    Shown s;
    EXPECT_EQ(c.result, RunBox(dlg, c.request, c.typed, c.button, &s));
    EXPECT_EQ(c.caption, s.caption);
    EXPECT_EQ(c.prompt, s.prompt);
    EXPECT_TRUE(s.editFocused);
    EXPECT_EQ(c.shownText, s.text);
    EXPECT_EQ(c.limit, s.limit);
    CString strInput;
    dlg.GetInput(strInput);
    EXPECT_STREQ(c.input, strInput);
  }
}

TEST(InputDialog, ArgumentFormAndEditStyles) {
  DialogDriver driver;
  Shown s;
  driver.Then(DialogDriver::WhenShown([&s](HWND hDlg) {
    HWND hEdit = ::GetDlgItem(hDlg, IDC_VRK_INPUT_EDIT);
    s.style = (DWORD)::GetWindowLongA(hEdit, GWL_STYLE);
    s.password = (char)::SendMessageA(hEdit, EM_GETPASSWORDCHAR, 0, 0);
    DialogDriver::Type("s3cret");
    DialogDriver::Key(VK_RETURN);
  }));
  VInputDialog dlg;
  EXPECT_TRUE(dlg.DoModal("PIN:", "Log in", NULL, ES_PASSWORD));
  EXPECT_TRUE(s.style & ES_PASSWORD);
  EXPECT_TRUE(s.style & WS_TABSTOP); // added to the template's style
  EXPECT_EQ('*', s.password);
  CString strInput;
  dlg.GetInput(strInput);
  EXPECT_STREQ("s3cret", strInput);

  // With WS_CHILD the given style is the whole style.
  driver.Then(DialogDriver::WhenShown([&s](HWND hDlg) {
    s.style = (DWORD)::GetWindowLongA(::GetDlgItem(hDlg, IDC_VRK_INPUT_EDIT), GWL_STYLE);
    DialogDriver::Click(hDlg, IDCANCEL);
  }));
  VInputDialog whole;
  EXPECT_FALSE(whole.DoModal("Text:", NULL, NULL, WS_CHILD | WS_VISIBLE | ES_UPPERCASE));
  EXPECT_TRUE(s.style & ES_UPPERCASE);
  EXPECT_FALSE(s.style & WS_TABSTOP);
}

} // namespace
