// VEditCtrl: the in-place editing edit control, its process-wide edit mode
// and the thread hooks that watch the mouse and the keyboard meanwhile.
#include "vrk_editmode.h"
#include "vrk_combobox.h"
#include "vrk_exception.h"
#include "vrk_wnd.h"

#include <ctype.h>
#include <ole2.h>
#include <string.h>

#define VRK_SOURCE_FILE ".\\vrk_editmode_editcontrol.cpp"

namespace {

// The wheel message of the old mouse-wheel add-on, registered only on the
// platforms that had it (Windows 95 and NT 3); 0 elsewhere.
UINT RegisterWheelMessage() {
  DWORD dwVersion = ::GetVersion();
  BYTE nMajor = LOBYTE(LOWORD(dwVersion)), nMinor = HIBYTE(LOWORD(dwVersion));
  bool bNT = (dwVersion & 0x80000000) == 0;
  if ((!bNT && nMajor == 4 && nMinor == 0) || (bNT && nMajor == 3 && nMinor == 0))
    return ::RegisterWindowMessageA("MSWHEEL_ROLLMSG");
  return 0;
}
const UINT g_uWheelMessage = RegisterWheelMessage();

bool IsComboBoxWnd(HWND hWnd) {
  if (hWnd == NULL) return false;
  CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
  if (pWnd != NULL && pWnd->IsKindOf(RUNTIME_CLASS(CComboBox))) return true;
  char szClass[16];
  return ::GetClassNameA(hWnd, szClass, sizeof(szClass)) && lstrcmpiA(szClass, "ComboBox") == 0;
}

// The nearest ancestor of hWnd that is a CView, or NULL.
HWND NearestView(HWND hWnd) {
  for (HWND h = ::GetParent(hWnd); h != NULL; h = ::GetParent(h)) {
    CWnd* pWnd = CWnd::FromHandlePermanent(h);
    if (pWnd != NULL && pWnd->IsKindOf(RUNTIME_CLASS(CView))) return h;
  }
  return NULL;
}

bool IsOrInside(HWND hWnd, HWND hOuter) {
  return hWnd != NULL && (hWnd == hOuter || ::IsChild(hOuter, hWnd));
}

// A frame's default accelerators and their number of entries.
void TakeAccelerators(CFrameWnd* pFrame, HACCEL& hAccel, int& nCount) {
  hAccel = pFrame->GetDefaultAccelerator();
  nCount = hAccel != NULL ? ::CopyAcceleratorTable(hAccel, NULL, 0) : 0;
}

// Posts the command of a key that matches the table to the owner; true when
// the key is used up that way.
bool PostAccelerator(HACCEL hAccel, int nCount, HWND hWndOwner, WPARAM vk, LPARAM lKeyData) {
  if (hAccel == NULL) return false;
  MSG msg = {};
  msg.hwnd = hWndOwner;
  msg.message = WM_KEYDOWN;
  msg.wParam = vk;
  msg.lParam = lKeyData;
  WORD wCmd = 0;
  return IsAccelerator(hAccel, nCount, &msg, &wCmd) && VrkWndPostCommand(wCmd, 1, hWndOwner);
}

} // namespace

int VEditCtrl::m_bInEditMode = 0;
tagEditModeSession VEditCtrl::m_session = {};

IMPLEMENT_DYNAMIC(VEditCtrl, CEdit)

// WM_KEYUP is mapped so that OnKeyUp swallows the release of the keys that
// OnKeyDown turned into an end-edit query.
BEGIN_MESSAGE_MAP(VEditCtrl, CEdit)
ON_WM_CREATE()
ON_WM_PAINT()
ON_WM_DESTROY()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_WM_GETDLGCODE()
ON_WM_SETFOCUS()
ON_MESSAGE(WM_SETTEXT, &VEditCtrl::OnSetText)
ON_MESSAGE(VWM_QUERYENDEDIT, &VEditCtrl::OnQueryEndEditMsg)
ON_MESSAGE(VWM_ISMODIFIED, &VEditCtrl::OnIsModified)
END_MESSAGE_MAP()

VEditCtrl::VEditCtrl() : m_bModified(FALSE), m_bVerifyChanged(FALSE) { m_bInEditMode = 0; }

// Deleting the object destroys its window only as a plain CWnd (OnDestroy is
// no longer reached): edit mode is ended here so no record points at it.
VEditCtrl::~VEditCtrl() {
  if (m_session.pEdit == this) EndEditMode();
}

BOOL VEditCtrl::PreCreateWindow(CREATESTRUCT& cs) {
  cs.dwExStyle |= WS_EX_CLIENTEDGE;
  return CEdit::PreCreateWindow(cs);
}

HWND VEditCtrl::GetFinalParent() {
  HWND hParent = ::GetParent(m_hWnd);
  if (IsComboBoxWnd(hParent)) hParent = ::GetParent(hParent);
  return hParent;
}

int VEditCtrl::GetCurPos() {
  int nStart = 0, nEnd = 0;
  GetSel(nStart, nEnd);
  return nStart;
}

// ---- Edit mode -------------------------------------------------------------

void VEditCtrl::StartEditMode(CWnd* pEdit, CWnd* pOwner) {
  // Hooks can only be left here when a constructor reset the flag in the
  // middle of an edit: they are removed, never leaked.
  if (m_session.hMouseHook != NULL) ::UnhookWindowsHookEx(m_session.hMouseHook);
  if (m_session.hKeyboardHook != NULL) ::UnhookWindowsHookEx(m_session.hKeyboardHook);
  memset(&m_session, 0, sizeof(m_session));
  m_session.pEdit = DYNAMIC_DOWNCAST(VEditCtrl, pEdit);
  m_session.hWndOwner = pOwner->GetSafeHwnd();

  HWND hView = NearestView(pEdit->GetSafeHwnd());
  if (hView != NULL) ::SendMessage(hView, VWM_EDITMODE, 0, (LPARAM)pEdit);
  m_bInEditMode = 1;
  SetMouseHook(EditModeMouseProc);
  SetKeyboardHook(EditModeKeyboardProc);
}

BOOL VEditCtrl::SetMouseHook(HOOKPROC pfnHook) {
  CWinApp* pApp = AfxGetApp();
  if (pApp == NULL) return FALSE;
  m_session.hMouseHook =
      ::SetWindowsHookExA(WH_MOUSE, pfnHook, pApp->m_hInstance, pApp->m_nThreadID);
  return m_session.hMouseHook != NULL;
}

BOOL VEditCtrl::SetKeyboardHook(HOOKPROC pfnHook) {
  CWinApp* pApp = AfxGetApp();
  CWnd* pOwner = CWnd::FromHandle(m_session.hWndOwner);
  if (pApp == NULL || pOwner == NULL) return FALSE;
  m_session.hKeyboardHook =
      ::SetWindowsHookExA(WH_KEYBOARD, pfnHook, pApp->m_hInstance, pApp->m_nThreadID);

  BOOL bStored = FALSE;
  CFrameWnd* pFrame = pOwner->GetParentFrame();
  if (pFrame != NULL && pFrame->IsKindOf(RUNTIME_CLASS(CMDIChildWnd))) {
    TakeAccelerators(pFrame, m_session.hFrameAccel, m_session.nFrameAccelCount);
    bStored = TRUE;
  }
  CWnd* pMain = AfxGetMainWnd();
  if (pMain != NULL && pMain != pFrame && pMain->IsKindOf(RUNTIME_CLASS(CFrameWnd))) {
    TakeAccelerators((CFrameWnd*)pMain, m_session.hMainAccel, m_session.nMainAccelCount);
    bStored = TRUE;
  }
  return bStored;
}

void VEditCtrl::EndEditMode() {
  m_bInEditMode = 0;
  if (m_session.hMouseHook != NULL) ::UnhookWindowsHookEx(m_session.hMouseHook);
  if (m_session.hKeyboardHook != NULL) ::UnhookWindowsHookEx(m_session.hKeyboardHook);
  m_session.hMouseHook = m_session.hKeyboardHook = NULL;
  if (m_session.pEdit != NULL && ::IsWindow(m_session.pEdit->m_hWnd)) {
    HWND hView = NearestView(m_session.pEdit->m_hWnd);
    if (hView != NULL) ::SendMessage(hView, VWM_EDITMODE, 0, 0);
  }
  memset(&m_session, 0, sizeof(m_session));
}

BOOL VEditCtrl::IsEditModeWnd(HWND hWnd) {
  if (m_session.pEdit == NULL || hWnd == NULL) return FALSE;
  HWND hEdit = m_session.pEdit->m_hWnd;
  HWND hOwner = m_session.hWndOwner;
  if (hWnd == hEdit || hWnd == hOwner || hWnd == ::GetParent(hOwner) || ::IsChild(hEdit, hWnd))
    return TRUE;
  HWND hCombo = ::GetParent(hEdit);
  return IsComboBoxWnd(hCombo) && ::SendMessage(hCombo, CB_GETDROPPEDSTATE, 0, 0) &&
         VrkComboBoxIsDropDown(hWnd);
}

// ---- The hooks ---------------------------------------------------------------

namespace {

// 2 (commit) when the edit is modified or gone, else 1 (cancel).
DWORD EndFlags(VEditCtrl* pEdit) {
  return (pEdit == NULL || pEdit->IsModified()) ? VEEF_COMMIT : VEEF_CANCEL;
}

// Gives the focus to the edit (or the owner) when no window has it.
void FocusIfNone(VEditCtrl* pEdit, HWND hWndOwner) {
  if (::GetFocus() != NULL) return;
  ::SetFocus(pEdit != NULL ? pEdit->m_hWnd : hWndOwner);
}

LRESULT AskEdit(VEditCtrl* pEdit, tagEndEditStruct& end) {
  if (pEdit == NULL || !::IsWindow(pEdit->m_hWnd)) return 1; // nothing left to ask: it ends
  return pEdit->SendMessage(VWM_QUERYENDEDIT, 0, (LPARAM)&end);
}

} // namespace

LRESULT CALLBACK VEditCtrl::EditModeKeyboardProc(int nCode, WPARAM wParam, LPARAM lParam) {
  HHOOK hHook = m_session.hKeyboardHook;
  HWND hOwner = m_session.hWndOwner;
  if (nCode < 0 || hOwner == NULL || !::IsWindow(hOwner))
    return ::CallNextHookEx(hHook, nCode, wParam, lParam);

  bool bClosing = (wParam == VK_F4 && (::GetKeyState(VK_CONTROL) < 0 || (lParam & (1 << 29)))) ||
                  wParam == VK_F6 || wParam == VK_F10;
  if (!bClosing) {
    if (m_bInEditMode && m_session.pEdit != NULL && (lParam & 0x80000000) == 0) {
      if (PostAccelerator(m_session.hFrameAccel, m_session.nFrameAccelCount, hOwner, wParam,
                          lParam))
        return 1;
      if (m_session.hMainAccel != m_session.hFrameAccel &&
          PostAccelerator(m_session.hMainAccel, m_session.nMainAccelCount, hOwner, wParam, lParam))
        return 1;
    }
    return ::CallNextHookEx(hHook, nCode, wParam, lParam);
  }

  // A window-closing key never reaches the application: it becomes a query
  // with SC_CLOSE, asked only while the focus is on the owner or inside it.
  VEditCtrl* pEdit = m_session.pEdit;
  FocusIfNone(pEdit, hOwner);
  if (!IsOrInside(::GetFocus(), hOwner)) return 1;
  tagEndEditStruct end = {};
  end.nFlags = VEEF_CLOSEKEY | EndFlags(pEdit);
  end.nKey = SC_CLOSE;
  if (AskEdit(pEdit, end) != 0) EndEditMode();
  return 1;
}

LRESULT CALLBACK VEditCtrl::EditModeMouseProc(int nCode, WPARAM wParam, LPARAM lParam) {
  HHOOK hHook = m_session.hMouseHook;
  if (nCode < 0 || m_session.bQuerying || lParam == 0)
    return ::CallNextHookEx(hHook, nCode, wParam, lParam);
  UINT nMsg = (UINT)wParam;
  bool bWheel = nMsg == WM_MOUSEWHEEL || (g_uWheelMessage != 0 && nMsg == g_uWheelMessage);
  bool bConsidered = bWheel || (nMsg >= WM_NCLBUTTONDOWN && nMsg <= WM_NCRBUTTONDBLCLK) ||
                     nMsg == WM_LBUTTONDOWN || nMsg == WM_LBUTTONDBLCLK || nMsg == WM_RBUTTONDOWN ||
                     nMsg == WM_RBUTTONDBLCLK || nMsg == WM_MBUTTONDOWN || nMsg == WM_MBUTTONUP ||
                     nMsg == WM_MBUTTONDBLCLK;
  if (!bConsidered) return ::CallNextHookEx(hHook, nCode, wParam, lParam);

  const MOUSEHOOKSTRUCT* pHook = (const MOUSEHOOKSTRUCT*)lParam;
  HWND hTarget = bWheel ? ::WindowFromPoint(pHook->pt) : pHook->hwnd;
  if (IsEditModeWnd(hTarget)) return ::CallNextHookEx(hHook, nCode, wParam, lParam);

  HWND hOwner = m_session.hWndOwner;
  if (IsComboBoxWnd(hOwner)) hOwner = ::GetParent(hOwner);
  if (hOwner == NULL || !::IsWindow(hOwner)) return ::CallNextHookEx(hHook, nCode, wParam, lParam);
  VEditCtrl* pEdit = m_session.pEdit;
  FocusIfNone(pEdit, hOwner);
  if (!IsOrInside(::GetFocus(), hOwner)) return ::CallNextHookEx(hHook, nCode, wParam, lParam);

  tagEndEditStruct end = {};
  end.nFlags = VEEF_MOUSE | EndFlags(pEdit);
  end.x = pHook->pt.x;
  end.y = pHook->pt.y;
  LRESULT lAnswer = AskEdit(pEdit, end);
  if (lAnswer != 0)
    EndEditMode();
  else if (pEdit != NULL)
    pEdit->SetFocus();
  if (!(lAnswer & VEEA_PASSCLICK) || (lAnswer & VEEA_EATCLICK) || bWheel) return 1;
  return ::CallNextHookEx(hHook, nCode, wParam, lParam);
}

// ---- Keys ----------------------------------------------------------------------

void VEditCtrl::GetVKeyFlags(UINT nChar, tagEndEditStruct& end) {
  if (GetStyle() & ES_MULTILINE) {
    bool bCtrlOrShift = ::GetKeyState(VK_CONTROL) < 0 || ::GetKeyState(VK_SHIFT) < 0;
    if (nChar == VK_ESCAPE)
      end.nFlags |= VEEF_CANCEL;
    else if ((nChar == VK_RETURN && bCtrlOrShift) || nChar == VK_F2)
      end.nFlags |= VEEF_COMMIT;
  } else if (nChar == VK_TAB || nChar == VK_RETURN || nChar == VK_F6 || nChar == VK_F10) {
    end.nFlags |= VEEF_COMMIT; // Escape adds nothing in a single-line edit
  }
}

BOOL VEditCtrl::OnQueryEndEdit(tagEndEditStruct* /*pEnd*/) { return TRUE; }

int VEditCtrl::GetComboActionFlags() const { return 3; }

void VEditCtrl::OnGoodChar(UINT /*nChar*/, UINT /*nRepCnt*/, UINT /*nFlags*/) { Default(); }

void VEditCtrl::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) {
  HWND hOwner = GetFinalParent();
  if (hOwner == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 180);
  if (!IsInEditMode()) StartEditMode(this, CWnd::FromHandle(hOwner));

  tagEndEditStruct end = {};
  end.nKeyData = nFlags;
  GetVKeyFlags(nChar, end);
  if (end.nFlags != 0) {
    end.nFlags |= VEEF_KEY;
    end.nKey = nChar;
    if (AskEdit(m_session.pEdit, end) != 0) {
      EndEditMode();
      if (nChar == VK_TAB && ::IsWindow(hOwner)) {
        HWND hNext = ::GetNextDlgTabItem(hOwner, m_hWnd, FALSE);
        ::PostMessage(hOwner, WM_NEXTDLGCTL, (WPARAM)hNext, 1);
      }
    }
    return;
  }
  HWND hParent = ::GetParent(m_hWnd);
  if (IsComboBoxWnd(hParent)) {
    OnGoodChar(nChar, nRepCnt, nFlags);
    if (isprint(LOBYTE(nChar)))
      VrkComboBoxDoQuickenAction((CComboBox*)CWnd::FromHandle(hParent), GetComboActionFlags());
  } else {
    Default();
  }
}

void VEditCtrl::OnKeyUp(UINT nChar, UINT /*nRepCnt*/, UINT /*nFlags*/) {
  if (nChar == VK_RETURN) {
    if (!(GetStyle() & ES_MULTILINE)) return;
    if (::GetKeyState(VK_CONTROL) < 0 || ::GetKeyState(VK_SHIFT) < 0) return;
  }
  if (nChar == VK_ESCAPE || nChar == VK_TAB) return;
  Default();
}

void VEditCtrl::OnPaint() { Default(); }

UINT VEditCtrl::OnGetDlgCode() { return DLGC_WANTALLKEYS; }

// ---- Life ------------------------------------------------------------------------

int VEditCtrl::OnCreate(LPCREATESTRUCT /*lpCreateStruct*/) {
  if (Default() == -1) return -1;
  HWND hParent = ::GetParent(m_hWnd);
  if (hParent == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 149);
  SendMessage(WM_SETFONT, (WPARAM)::SendMessage(hParent, WM_GETFONT, 0, 0), TRUE);
  return 0;
}

void VEditCtrl::OnDestroy() {
  if (m_session.pEdit != NULL) EndEditMode();
  Default();
}

void VEditCtrl::OnSetFocus(CWnd* pOldWnd) {
  if (!IsWindowVisible()) {
    if (pOldWnd != NULL) pOldWnd->SetFocus();
    return;
  }
  if (!IsInEditMode()) {
    CWnd* pParent = GetParent();
    if (pParent == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 320);
    StartEditMode(this, pParent);
    SetSel(0, -1);
    EmptyUndoBuffer();
  }
  Default();
}

LRESULT VEditCtrl::OnSetText(WPARAM /*wParam*/, LPARAM lParam) {
  CString strOld;
  if (m_bVerifyChanged) GetWindowText(strOld);
  LRESULT lResult = Default();
  LPCSTR pszNew = lParam != 0 ? (LPCSTR)lParam : "";
  m_bModified = m_bModified && (!m_bVerifyChanged || strcmp(strOld, pszNew) != 0);
  m_bVerifyChanged = FALSE;
  return lResult;
}

// A query without a question is not answered.
LRESULT VEditCtrl::OnQueryEndEditMsg(WPARAM /*wParam*/, LPARAM lParam) {
  if (lParam == 0) return 0;
  m_session.bQuerying = TRUE;
  LRESULT lAnswer = 0;
  try {
    lAnswer = OnQueryEndEdit((tagEndEditStruct*)lParam);
  } catch (CException* e) {
    m_session.bQuerying = FALSE;
    e->Delete();
    return 0;
  }
  m_session.bQuerying = FALSE;
  return lAnswer;
}

LRESULT VEditCtrl::OnIsModified(WPARAM /*wParam*/, LPARAM /*lParam*/) { return m_bModified; }
