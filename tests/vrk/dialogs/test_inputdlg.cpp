// The input box, typed into as a user would.
#include <gtest/gtest.h>

#include "user_input.h"
#include "resource.h"
#include "vrk_dialogs.h"

using namespace user_input;

TEST(InputDialog, RequestFieldsAndTypedText) {
  const DWORD kPrompt = VIDF_PROMPT, kCaption = VIDF_CAPTION, kText = VIDF_TEXT;
  const DWORD kStyle = VIDF_STYLE, kTab = WS_TABSTOP, kMax = 0x7FFFFFFE;
  const DWORD kWhole = WS_CHILD | WS_VISIBLE | ES_UPPERCASE; // with WS_CHILD, the whole style
  // No caption or prompt given: the template's "Input" and "&Enter the text:".
  // clang-format off
  // Typed, what the caller gets back, the button, the edit's limit and style bits; whether the
  // request's fields go through the argument form instead (which makes the mask itself).
  struct Case { VINPUTDLG request; const char *typed, *input; int button; UINT limit; DWORD style;
                bool byArguments = false; } cases[] = {
      // Typing replaces the initial text.
      {{kPrompt | kCaption | kText, "&Name:", "Edit", "old", 0, 8}, "new", "new", IDOK, 8, kTab},
      {{kPrompt, NULL, NULL, NULL, 0, 3}, "12345", "123", IDOK, 3, kTab}, // limit without prompt
      {{kText, NULL, NULL, "keep"}, "x", "keep", IDCANCEL, kMax, kTab},
      {{kPrompt, "Big", NULL, NULL, 0, 100000}, "ok", "ok", IDOK, 100000, kTab},
      {{kStyle, NULL, NULL, NULL, ES_PASSWORD}, "pin", "pin", IDOK, kMax, ES_PASSWORD | kTab},
      {{kStyle, NULL, NULL, NULL, kWhole}, "ab", "AB", IDOK, kMax, ES_UPPERCASE}, // whole style
      {{0, "PIN:", "Log in", NULL, 0, 2}, "abc", "ab", IDOK, 2, kTab, true},
  };
  // clang-format on
  for (Case& c : cases) {
    SCOPED_TRACE(c.typed);
    DialogDriver driver;
    driver.Then(DialogDriver::WhenShown([&](HWND hDlg) {
      HWND hEdit = ::GetDlgItem(hDlg, IDC_VRK_INPUT_EDIT);
      EXPECT_EQ(c.request.pszCaption ? c.request.pszCaption : "Input", Text(hDlg));
      EXPECT_EQ(c.request.pszPrompt ? c.request.pszPrompt : "&Enter the text:",
                Text(hDlg, IDC_VRK_INPUT_PROMPT));
      EXPECT_TRUE(::GetFocus() == hEdit &&
                  (UINT)::SendMessageA(hEdit, EM_GETLIMITTEXT, 0, 0) == c.limit);
      EXPECT_EQ(c.style,
                ::GetWindowLongA(hEdit, GWL_STYLE) & (WS_TABSTOP | ES_PASSWORD | ES_UPPERCASE));
      Type(c.typed);
      EXPECT_EQ(c.style & ES_PASSWORD ? '*' : 0,
                (char)::SendMessageA(hEdit, EM_GETPASSWORDCHAR, 0, 0));
      c.button == IDOK ? Press(VK_RETURN) : ClickItem(hDlg, c.button); // OK is the default
    }));
    VInputDialog dlg;
    const VINPUTDLG& r = c.request;
    EXPECT_EQ(c.button == IDOK,
              c.byArguments ? dlg.DoModal(r.pszPrompt, r.pszCaption, r.pszText, r.dwStyle, r.nLimit)
                            : dlg.DoModal(c.request));
    CString strInput;
    dlg.GetInput(strInput);
    EXPECT_STREQ(c.input, strInput);
  }
}
