// Catches the dialog boxes (message boxes) that open on the calling thread:
// records what each one showed and closes it with a chosen button, so that a
// test neither blocks nor needs a user.
#ifndef VRK_TESTS_MSGBOX_CATCHER_H
#define VRK_TESTS_MSGBOX_CATCHER_H

#include <windows.h>

#include <deque>
#include <string>
#include <vector>

// What one box showed as it activated.
struct CaughtBox {
  std::string caption;
  std::string text;         // the message text (empty for other dialogs)
  std::vector<int> buttons; // ids of the visible buttons, IDOK..IDCONTINUE order
  HICON icon = NULL;        // the icon shown, NULL for none
  HWND owner = NULL;        // the owner window, NULL for none
  int answer = 0;           // the button id the catcher chose

  bool HasButton(int id) const;
};

// While alive, a thread WH_CBT hook answers every #32770 dialog that
// activates on this thread: the next queued answer, else the default.
// Catchers nest; the innermost one answers.
class MsgBoxCatcher {
public:
  explicit MsgBoxCatcher(int defaultAnswer = IDOK);
  ~MsgBoxCatcher();
  MsgBoxCatcher(const MsgBoxCatcher&) = delete;
  MsgBoxCatcher& operator=(const MsgBoxCatcher&) = delete;

  // The answer for the next box (queued, first in first out).
  void Answer(int id) { m_answers.push_back(id); }
  void SetDefaultAnswer(int id) { m_defaultAnswer = id; }

  const std::vector<CaughtBox>& Boxes() const { return m_boxes; }
  size_t Count() const { return m_boxes.size(); }
  // The most recent box; an empty record when none was caught.
  const CaughtBox& Last() const;
  void Clear() { m_boxes.clear(); }

private:
  static LRESULT CALLBACK CbtProc(int nCode, WPARAM wParam, LPARAM lParam);
  void Catch(HWND hDlg);

  HHOOK m_hook;
  int m_defaultAnswer;
  std::deque<int> m_answers;
  std::vector<CaughtBox> m_boxes;
  MsgBoxCatcher* m_pOuter;
};

#endif
