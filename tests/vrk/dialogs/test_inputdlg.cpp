// The input box: the request's fields on the shown dialog, text typed into
// its edit as a user would, OK and Cancel.
#include <gtest/gtest.h>

#include "user_input.h"
#include "resource.h"
#include "vrk_dialogs.h"

using namespace user_input;

TEST(InputDialog, RequestFieldsAndTypedText) {
  const DWORD kPrompt = VIDF_PROMPT, kCaption = VIDF_CAPTION, kText = VIDF_TEXT;
  const DWORD kStyle = VIDF_STYLE, kWhole = WS_CHILD | WS_VISIBLE | ES_UPPERCASE;
  const char* kDefault = "&Enter the text:";
  struct Case {
    VINPUTDLG request;
    const char* typed;
    int button;
    const char *caption, *prompt;
    UINT limit;
    DWORD style;       // bits the edit has
    const char* input; // what the caller gets back
  } cases[] = {
      // clang-format off
      {{kPrompt | kCaption | kText, "New &name:", "Rename", "old", 0, 8}, "report", IDOK,
       "Rename", "New &name:", 8, WS_TABSTOP, "report"},
      // A limit without a prompt: the template's prompt, the limit applied.
      {{kPrompt, NULL, NULL, NULL, 0, 3}, "12345", IDOK,
       "Input", kDefault, 3, WS_TABSTOP, "123"},
      // Cancel keeps the initial text (typing replaces it, as in the first).
      {{kText, NULL, NULL, "keep"}, "x", IDCANCEL, "Input", kDefault, 0x7FFFFFFE, WS_TABSTOP, "keep"},
      {{kPrompt, "Big", NULL, NULL, 0, 100000}, "ok", IDOK,
       "Input", "Big", 100000, WS_TABSTOP, "ok"},
      {{kStyle, NULL, NULL, NULL, ES_PASSWORD}, "pin", IDOK,
       "Input", kDefault, 0x7FFFFFFE, ES_PASSWORD | WS_TABSTOP, "pin"},
      // With WS_CHILD the style given is the whole style.
      {{kStyle, NULL, NULL, NULL, kWhole}, "ab", IDOK,
       "Input", kDefault, 0x7FFFFFFE, ES_UPPERCASE, "AB"},
      // clang-format on
  };
  for (Case& c : cases) {
    SCOPED_TRACE(c.typed);
    DialogDriver driver;
    driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      HWND hEdit = ::GetDlgItem(hDlg, IDC_VRK_INPUT_EDIT);
      EXPECT_EQ(c.caption, Text(hDlg));
      EXPECT_EQ(c.prompt, Text(hDlg, IDC_VRK_INPUT_PROMPT));
      EXPECT_EQ(hEdit, ::GetFocus());
      EXPECT_EQ(c.limit, (UINT)::SendMessageA(hEdit, EM_GETLIMITTEXT, 0, 0));
      EXPECT_EQ(c.style,
                ::GetWindowLongA(hEdit, GWL_STYLE) & (WS_TABSTOP | ES_PASSWORD | ES_UPPERCASE));
      Type(c.typed);
      EXPECT_EQ(c.style & ES_PASSWORD ? '*' : 0,
                (char)::SendMessageA(hEdit, EM_GETPASSWORDCHAR, 0, 0));
      ClickItem(hDlg, c.button);
    }));
    VInputDialog dlg;
    EXPECT_EQ(c.button == IDOK, dlg.DoModal(c.request));
    CString strInput;
    dlg.GetInput(strInput);
    EXPECT_STREQ(c.input, strInput);
  }
  // The argument form: a prompt and a limit make a request of both.
  DialogDriver driver;
  driver.Then(DialogDriver::WhenShown([](HWND hDlg) {
    EXPECT_EQ("Log in", Text(hDlg));
    Type("abc");
    Press(VK_RETURN);
  }));
  VInputDialog dlg;
  EXPECT_TRUE(dlg.DoModal("PIN:", "Log in", NULL, 0, 2));
  CString strInput;
  dlg.GetInput(strInput);
  EXPECT_STREQ("ab", strInput);
}
