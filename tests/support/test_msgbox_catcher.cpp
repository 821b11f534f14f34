// AfxMessageBox, watched through the message-box catcher: the caption, the
// icon and the prompt of each real box.
#include <afxwin.h>
#include <afxres.h>
#include <gtest/gtest.h>

#include "msgbox_catcher.h"

// The caption is the program's file without an application, its name with
// one; an icon asked for is kept, else one follows the buttons. The id form
// loads the prompt; a missing one still shows the box (empty), so the
// caller has an answer.
TEST(AfxMessageBox, CaptionIconAndThePromptLoadedById) {
  ASSERT_EQ(AfxGetApp(), nullptr);
  MsgBoxCatcher catcher(IDYES);
  catcher.Answer(IDOK);
  EXPECT_EQ(AfxMessageBox(AFX_IDP_COMMAND_FAILURE, MB_OK | MB_ICONINFORMATION), IDOK);
  char path[MAX_PATH];
  GetModuleFileNameA(NULL, path, MAX_PATH);
  EXPECT_TRUE(catcher.Last().caption == path && catcher.Last().text == "Command failed.");
  EXPECT_EQ(catcher.Last().icon, LoadIcon(NULL, IDI_ASTERISK));
  EXPECT_EQ(AfxMessageBox(0x7F00, MB_YESNO), IDYES);
  EXPECT_TRUE(catcher.Count() == 2 && catcher.Last().text.empty());
  CWinApp app("Vrk Catcher Test");
  const struct {
    UINT nType;
    LPCSTR pszIcon; // NULL: no icon
  } cases[] = {{MB_YESNO, IDI_QUESTION}, {MB_OKCANCEL, IDI_EXCLAMATION}, {MB_RETRYCANCEL, NULL}};
  for (auto& c : cases) {
    AfxMessageBox("Question?", c.nType);
    EXPECT_EQ(catcher.Last().icon, c.pszIcon ? LoadIcon(NULL, c.pszIcon) : NULL) << c.nType;
    EXPECT_EQ(catcher.Last().caption, "Vrk Catcher Test");
  }
}
