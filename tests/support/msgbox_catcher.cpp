#include "msgbox_catcher.h"

#include <algorithm>

// The catcher answering on this thread.
static thread_local MsgBoxCatcher* t_pCatcher = nullptr;

// Every button a message box can have, in the order they are reported.
static const int kButtonIds[] = {IDOK,  IDCANCEL, IDABORT,    IDRETRY,   IDIGNORE,
                                 IDYES, IDNO,     IDTRYAGAIN, IDCONTINUE};
// The message text's static control in a message box.
static const int kTextId = 0xFFFF;

bool CaughtBox::HasButton(int id) const {
  return std::find(buttons.begin(), buttons.end(), id) != buttons.end();
}

MsgBoxCatcher::MsgBoxCatcher(int defaultAnswer)
    : m_hook(NULL), m_defaultAnswer(defaultAnswer), m_pOuter(t_pCatcher) {
  m_hook = SetWindowsHookExA(WH_CBT, &CbtProc, NULL, GetCurrentThreadId());
  t_pCatcher = this;
}

MsgBoxCatcher::~MsgBoxCatcher() {
  if (m_hook != NULL) UnhookWindowsHookEx(m_hook);
  t_pCatcher = m_pOuter;
}

const CaughtBox& MsgBoxCatcher::Last() const {
  static const CaughtBox none;
  return m_boxes.empty() ? none : m_boxes.back();
}

static std::string WindowText(HWND hWnd) {
  int n = GetWindowTextLengthA(hWnd);
  std::string text(n + 1, '\0');
  n = GetWindowTextA(hWnd, &text[0], n + 1);
  text.resize(n > 0 ? n : 0);
  return text;
}

// The icon of the box: the one static control drawn as an icon.
static BOOL CALLBACK FindIcon(HWND hChild, LPARAM lParam) {
  char cls[16];
  if (GetClassNameA(hChild, cls, sizeof(cls)) && lstrcmpiA(cls, "Static") == 0 &&
      (GetWindowLongA(hChild, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) {
    *(HICON*)lParam = (HICON)SendMessageA(hChild, STM_GETICON, 0, 0);
    return FALSE;
  }
  return TRUE;
}

void MsgBoxCatcher::Catch(HWND hDlg) {
  CaughtBox box;
  box.caption = WindowText(hDlg);
  box.owner = GetWindow(hDlg, GW_OWNER);
  if (HWND hText = GetDlgItem(hDlg, kTextId)) box.text = WindowText(hText);
  for (int id : kButtonIds) {
    HWND hButton = GetDlgItem(hDlg, id);
    if (hButton != NULL && (GetWindowLongA(hButton, GWL_STYLE) & WS_VISIBLE))
      box.buttons.push_back(id);
  }
  EnumChildWindows(hDlg, &FindIcon, (LPARAM)&box.icon);
  if (!m_answers.empty()) {
    box.answer = m_answers.front();
    m_answers.pop_front();
  } else {
    box.answer = m_defaultAnswer;
  }
  m_boxes.push_back(box);
  // Posted, not sent: the box is still being activated; its modal loop
  // takes the click once it runs, and MessageBox returns the button's id.
  PostMessageA(hDlg, WM_COMMAND, MAKEWPARAM(box.answer, BN_CLICKED),
               (LPARAM)GetDlgItem(hDlg, box.answer));
}

LRESULT CALLBACK MsgBoxCatcher::CbtProc(int nCode, WPARAM wParam, LPARAM lParam) {
  MsgBoxCatcher* pCatcher = t_pCatcher;
  if (nCode == HCBT_ACTIVATE && pCatcher != nullptr) {
    HWND hWnd = (HWND)wParam;
    char cls[16];
    if (GetClassNameA(hWnd, cls, sizeof(cls)) && lstrcmpA(cls, "#32770") == 0) {
      // A box activates again when focus returns to it; record it once.
      if (GetPropA(hWnd, "VrkCaught") == NULL) {
        SetPropA(hWnd, "VrkCaught", (HANDLE)1);
        pCatcher->Catch(hWnd);
      }
    }
  }
  return CallNextHookEx(NULL, nCode, wParam, lParam);
}
