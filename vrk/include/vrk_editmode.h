// vrk_editmode.h - edit controls for in-place editing over views and grids.
//
// As soon as a VEditCtrl gets the focus or a key it enters a process-wide
// edit mode: a WH_MOUSE and a WH_KEYBOARD hook of the application's thread
// watch all input. A click outside the edit (and outside its owner and the
// owner's parent), a wheel turn, a window-closing key, or a commit or cancel
// key in the edit asks the edit whether editing may end (VWM_QUERYENDEDIT with
// a tagEndEditStruct); the answer decides whether edit mode ends, whether the
// click goes on to its target and whether the focus returns to the edit.
// While editing, the keyboard hook translates the owner's frame accelerators.
#ifndef VRK_EDITMODE_H
#define VRK_EDITMODE_H

#include "vrkdefs.h"
#include <afxwin.h>

// The in-place editing messages. Their values are fixed.
#define VWM_DROPDOWNCHANGED 5000 // combo box to its edit: the drop-down changed (wParam: a width)
#define VWM_QUERYENDEDIT 5001    // to the edit: may editing end? lParam: tagEndEditStruct*
#define VWM_ISMODIFIED 5002      // to the edit: its modified flag
#define VWM_EDITMODE 5604        // to the nearest CView: lParam the VEditCtrl* (start) or 0 (end)

// tagEndEditStruct::nFlags: the low bits say how editing would end, the high
// bits why it is asked.
#define VEEF_CANCEL 0x00000001   // end without keeping the changes
#define VEEF_COMMIT 0x00000002   // end keeping the changes
#define VEEF_KEY 0x20000000      // a key in the edit
#define VEEF_MOUSE 0x10000000    // a mouse message outside
#define VEEF_CLOSEKEY 0xA0000000 // a window-closing key caught by the keyboard hook
// Bits of the answer to a mouse query.
#define VEEA_PASSCLICK 0x00000001 // let the click go on to its target
#define VEEA_EATCLICK 0x00000020  // eat the click

// The question passed with VWM_QUERYENDEDIT; all fields 32 bits.
struct tagEndEditStruct {
  DWORD nFlags;   // VEEF_...
  DWORD nKeyData; // the key message's flags (key path), else 0
  int x;          // cursor position in screen co-ordinates (mouse path), else 0
  int y;
  UINT nKey; // the virtual key (key path), SC_CLOSE (closing key), 0 (mouse)
};

class VEditCtrl;

// The one edit-mode record of the process.
struct tagEditModeSession {
  HWND hWndOwner;
  VEditCtrl* pEdit;   // the edit in edit mode, null when none
  HACCEL hFrameAccel; // the owner's MDI child frame's default accelerators
  int nFrameAccelCount;
  HACCEL hMainAccel; // the main window's, when it is another frame
  int nMainAccelCount;
  HHOOK hKeyboardHook;
  HHOOK hMouseHook;
  BOOL bQuerying; // the edit is answering a query: the mouse hook passes everything on
};

class VRK_API VEditCtrl : public CEdit {
  DECLARE_DYNAMIC(VEditCtrl)
public:
  // Resets the process-wide edit-mode flag (kept as it has always been).
  VEditCtrl();
  virtual ~VEditCtrl();

  BOOL IsModified() const { return m_bModified; }
  void SetModifiedFlag(BOOL bModified) { m_bModified = bModified; }
  BOOL GetVerifyChanged() const { return m_bVerifyChanged; }
  void SetVerifyChanged(BOOL bVerify) { m_bVerifyChanged = bVerify; }

  static void EndEditMode();
  static BOOL IsEditModeWnd(HWND hWnd);
  static tagEditModeSession* GetEditModeSession() { return &m_session; }
  static LRESULT CALLBACK EditModeKeyboardProc(int nCode, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK EditModeMouseProc(int nCode, WPARAM wParam, LPARAM lParam);

  virtual BOOL PreCreateWindow(CREATESTRUCT& cs);

protected:
  void StartEditMode(CWnd* pEdit, CWnd* pOwner);
  static BOOL IsInEditMode() { return m_bInEditMode; }
  static BOOL SetMouseHook(HOOKPROC pfnHook);
  static BOOL SetKeyboardHook(HOOKPROC pfnHook);
  // The parent, or the parent's parent when the parent is a combo box.
  HWND GetFinalParent();
  int GetCurPos();

  // Adds VEEF_CANCEL or VEEF_COMMIT for the keys that end editing.
  virtual void GetVKeyFlags(UINT nChar, tagEndEditStruct& end);
  // TRUE: editing may end. For mouse queries VEEA_... bits refine the answer.
  virtual BOOL OnQueryEndEdit(tagEndEditStruct* pEnd);
  virtual int GetComboActionFlags() const;
  virtual void OnGoodChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  virtual afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  virtual afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
  virtual afx_msg void OnPaint();

  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg void OnDestroy();
  afx_msg UINT OnGetDlgCode();
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnQueryEndEditMsg(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnIsModified(WPARAM wParam, LPARAM lParam);
  DECLARE_MESSAGE_MAP()

  BOOL m_bModified;
  BOOL m_bVerifyChanged;

  static int m_bInEditMode;
  static tagEditModeSession m_session;
};

// The edit of a VEditComboBox: Escape closes an open list first, and keys
// complete from the list.
class VRK_API VEditInComboBox : public VEditCtrl {
  DECLARE_DYNAMIC(VEditInComboBox)
public:
  VEditInComboBox() {}
  virtual ~VEditInComboBox() {}

protected:
  virtual void GetVKeyFlags(UINT nChar, tagEndEditStruct& end);
  virtual void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  virtual int GetComboActionFlags() const { return 2; }
};

// A drop-down combo box for in-place editing; its own child edit is
// subclassed by a VEditInComboBox (or what CreateEditControl gives).
class VRK_API VEditComboBox : public CComboBox {
  DECLARE_DYNAMIC(VEditComboBox)
public:
  VEditComboBox();
  virtual ~VEditComboBox();

  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);
  virtual void AdjustSize();

  VEditCtrl* GetEditCtrl() const { return m_pEdit; }
  void PrepareControl();
  void Clear();
  void DoCheckForResize(BOOL n);
  // Selects the entry equal to the text; a case difference marks the edit modified.
  void DoSetCurSelection();

protected:
  virtual VEditCtrl* CreateEditControl();
  virtual void PostSubclassChildEdit() {}

  afx_msg void OnDestroy();
  afx_msg void OnListBoxSelChange();
  afx_msg LRESULT OnIsModified(WPARAM wParam, LPARAM lParam);
  DECLARE_MESSAGE_MAP()

  VEditCtrl* m_pEdit;
};

#endif // VRK_EDITMODE_H
