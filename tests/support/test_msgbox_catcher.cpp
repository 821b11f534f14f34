// The message-box catcher: real boxes are caught with their caption, text,
// buttons and icon, and return the chosen answer. AfxMessageBox goes through
// the same boxes.
#include <afxwin.h>
#include <afxres.h>
#include <gtest/gtest.h>

#include "msgbox_catcher.h"

#include <vector>

TEST(MsgBoxCatcher, CatchesMessageBoxAndAnswers) {
  MsgBoxCatcher catcher;
  catcher.Answer(IDNO);
  int result = MessageBoxA(NULL, "Save the changes?", "Vrk Caption", MB_YESNOCANCEL);
  EXPECT_EQ(result, IDNO);
  ASSERT_EQ(catcher.Count(), 1u);
  const CaughtBox& box = catcher.Last();
  EXPECT_EQ(box.caption, "Vrk Caption");
  EXPECT_EQ(box.text, "Save the changes?");
  EXPECT_EQ(box.buttons, (std::vector<int>{IDCANCEL, IDYES, IDNO}));
  EXPECT_EQ(box.answer, IDNO);
  EXPECT_EQ(box.icon, (HICON)NULL);
  EXPECT_EQ(box.owner, (HWND)NULL);
}

TEST(MsgBoxCatcher, QueuedAnswersThenDefault) {
  MsgBoxCatcher catcher(IDCANCEL);
  catcher.Answer(IDRETRY);
  EXPECT_EQ(MessageBoxA(NULL, "one", "c", MB_RETRYCANCEL), IDRETRY);
  EXPECT_EQ(MessageBoxA(NULL, "two", "c", MB_RETRYCANCEL), IDCANCEL);
  EXPECT_EQ(MessageBoxA(NULL, "three", "c", MB_OKCANCEL), IDCANCEL);
  ASSERT_EQ(catcher.Count(), 3u);
  EXPECT_EQ(catcher.Boxes()[0].text, "one");
  EXPECT_EQ(catcher.Boxes()[1].text, "two");
  EXPECT_EQ(catcher.Boxes()[1].buttons, (std::vector<int>{IDCANCEL, IDRETRY}));
  EXPECT_EQ(catcher.Boxes()[2].buttons, (std::vector<int>{IDOK, IDCANCEL}));
}

TEST(MsgBoxCatcher, InnermostCatcherAnswersAndOuterResumes) {
  MsgBoxCatcher outer(IDYES);
  {
    MsgBoxCatcher inner(IDNO);
    EXPECT_EQ(MessageBoxA(NULL, "inner", "c", MB_YESNO), IDNO);
    EXPECT_EQ(inner.Count(), 1u);
  }
  EXPECT_EQ(outer.Count(), 0u);
  EXPECT_EQ(MessageBoxA(NULL, "outer", "c", MB_YESNO), IDYES);
  EXPECT_EQ(outer.Count(), 1u);
}

// ---- AfxMessageBox ----------------------------------------------------------

TEST(AfxMessageBox, WithoutAppCaptionIsTheProgramFile) {
  ASSERT_EQ(AfxGetApp(), nullptr);
  MsgBoxCatcher catcher;
  EXPECT_EQ(AfxMessageBox("Plain text"), IDOK);
  char path[MAX_PATH];
  GetModuleFileNameA(NULL, path, MAX_PATH);
  EXPECT_EQ(catcher.Last().caption, path);
  EXPECT_EQ(catcher.Last().text, "Plain text");
  EXPECT_EQ(catcher.Last().buttons, (std::vector<int>{IDOK}));
}

TEST(AfxMessageBox, CaptionIsTheAppNameAndIconFollowsTheButtons) {
  CWinApp app("Vrk Catcher Test");
  MsgBoxCatcher catcher;
  catcher.Answer(IDYES);
  EXPECT_EQ(AfxMessageBox("Question?", MB_YESNO), IDYES);
  EXPECT_EQ(catcher.Last().caption, "Vrk Catcher Test");
  EXPECT_EQ(catcher.Last().buttons, (std::vector<int>{IDYES, IDNO}));
  EXPECT_EQ(catcher.Last().icon, LoadIcon(NULL, IDI_QUESTION));

  AfxMessageBox("Note", MB_OKCANCEL);
  EXPECT_EQ(catcher.Last().icon, LoadIcon(NULL, IDI_EXCLAMATION));
  AfxMessageBox("Stop", MB_OK | MB_ICONSTOP); // a given icon is kept
  EXPECT_EQ(catcher.Last().icon, LoadIcon(NULL, IDI_HAND));
  AfxMessageBox("Retry", MB_RETRYCANCEL); // no default icon for these
  EXPECT_EQ(catcher.Last().icon, (HICON)NULL);
}

TEST(AfxMessageBox, IdFormLoadsThePromptFromTheChain) {
  MsgBoxCatcher catcher;
  EXPECT_EQ(AfxMessageBox(AFX_IDP_COMMAND_FAILURE, MB_OK | MB_ICONINFORMATION), IDOK);
  EXPECT_EQ(catcher.Last().text, "Command failed.");
  EXPECT_EQ(catcher.Last().icon, LoadIcon(NULL, IDI_ASTERISK));
  // A missing prompt still shows the box (empty), so the caller has an answer.
  catcher.Answer(IDNO);
  EXPECT_EQ(AfxMessageBox(0x7F00, MB_YESNO), IDNO);
  EXPECT_EQ(catcher.Count(), 2u);
  EXPECT_EQ(catcher.Last().text, "");
}

// The application's DoMessageBox override sees every AfxMessageBox, with the
// prompt id as help context for the id form.
class CRecordingApp : public CWinApp {
public:
  CRecordingApp() : CWinApp("Recording") {}
  virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt) {
    m_prompt = lpszPrompt;
    m_nType = nType;
    m_nHelp = nIDPrompt;
    return IDIGNORE;
  }
  std::string m_prompt;
  UINT m_nType = 0, m_nHelp = 0;
};

TEST(AfxMessageBox, GoesThroughTheAppsDoMessageBox) {
  CRecordingApp app;
  MsgBoxCatcher catcher;
  EXPECT_EQ(AfxMessageBox("Hi", MB_ABORTRETRYIGNORE, 55), IDIGNORE);
  EXPECT_EQ(app.m_prompt, "Hi");
  EXPECT_EQ(app.m_nType, (UINT)MB_ABORTRETRYIGNORE);
  EXPECT_EQ(app.m_nHelp, 55u);
  EXPECT_EQ(AfxMessageBox(AFX_IDP_COMMAND_FAILURE), IDIGNORE);
  EXPECT_EQ(app.m_prompt, "Command failed.");
  EXPECT_EQ(app.m_nHelp, (UINT)AFX_IDP_COMMAND_FAILURE);
  EXPECT_EQ(catcher.Count(), 0u); // no real box was shown
}

TEST(AfxMessageBox, OwnerIsTheActiveWindowWhichStaysUsable) {
  HWND hWnd = CreateWindowExA(0, "STATIC", "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100,
                              100, NULL, NULL, NULL, NULL);
  ASSERT_NE(hWnd, (HWND)NULL);
  SetActiveWindow(hWnd);
  MsgBoxCatcher catcher;
  AfxMessageBox("Owned");
  ASSERT_EQ(catcher.Count(), 1u);
  EXPECT_EQ(catcher.Last().owner, hWnd);
  EXPECT_TRUE(IsWindowEnabled(hWnd)); // enabled again once the box closed
  DestroyWindow(hWnd);
}
