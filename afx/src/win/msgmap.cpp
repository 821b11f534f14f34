// Message maps: the search for an entry through a class's maps and its base
// classes' maps, command routing (CCmdTarget::OnCmdMsg) and the dispatch of
// window messages (CWnd::OnWndMsg) with a per-thread lookup cache.
#include <afxwin.h>
#include <windowsx.h>
#include "../core/afximpl.h"

// ---- Handler pointers ------------------------------------------------------------

// One handler pointer seen through each signature. All members share the
// layout of AFX_PMSG, so the entry's pointer is called as its signature says.
union MessageMapFunctions {
  AFX_PMSG pfn;

  // Commands.
  void (AFX_MSG_CALL CCmdTarget::*pfnCmd_v_v)();
  BOOL (AFX_MSG_CALL CCmdTarget::*pfnCmd_b_v)();
  void (AFX_MSG_CALL CCmdTarget::*pfnCmd_v_u)(UINT);
  BOOL (AFX_MSG_CALL CCmdTarget::*pfnCmd_b_u)(UINT);
  void (AFX_MSG_CALL CCmdTarget::*pfnNotify_v_NMHDR_pl)(NMHDR*, LRESULT*);
  BOOL (AFX_MSG_CALL CCmdTarget::*pfnNotify_b_NMHDR_pl)(NMHDR*, LRESULT*);
  void (AFX_MSG_CALL CCmdTarget::*pfnNotify_v_u_NMHDR_pl)(UINT, NMHDR*, LRESULT*);
  BOOL (AFX_MSG_CALL CCmdTarget::*pfnNotify_b_u_NMHDR_pl)(UINT, NMHDR*, LRESULT*);
  void (AFX_MSG_CALL CCmdTarget::*pfnCmdUI_v_C)(CCmdUI*);

  // Window messages.
  void (AFX_MSG_CALL CWnd::*pfn_vv)();
  BOOL (AFX_MSG_CALL CWnd::*pfn_bv)();
  UINT (AFX_MSG_CALL CWnd::*pfn_wv)();
  LRESULT (AFX_MSG_CALL CWnd::*pfn_lwl)(WPARAM, LPARAM);
  int (AFX_MSG_CALL CWnd::*pfn_is)(void*);
  BOOL (AFX_MSG_CALL CWnd::*pfn_bD)(CDC*);
  HBRUSH (AFX_MSG_CALL CWnd::*pfn_hDWw)(CDC*, CWnd*, UINT);
  HBRUSH (AFX_MSG_CALL CWnd::*pfn_hDw)(CDC*, UINT);
  void (AFX_MSG_CALL CWnd::*pfn_vOWNER)(int, void*);
  int (AFX_MSG_CALL CWnd::*pfn_iis)(int, void*);
  void (AFX_MSG_CALL CWnd::*pfn_vs)(void*);
  void (AFX_MSG_CALL CWnd::*pfn_vwp)(UINT, CPoint);
  BOOL (AFX_MSG_CALL CWnd::*pfn_bwsp)(UINT, short, CPoint);
  void (AFX_MSG_CALL CWnd::*pfn_vwww)(UINT, UINT, UINT);
  void (AFX_MSG_CALL CWnd::*pfn_vW)(CWnd*);
  void (AFX_MSG_CALL CWnd::*pfn_vWp)(CWnd*, CPoint);
  void (AFX_MSG_CALL CWnd::*pfn_vwii)(UINT, int, int);
  void (AFX_MSG_CALL CWnd::*pfn_vii)(int, int);
  void (AFX_MSG_CALL CWnd::*pfn_vw)(UINT_PTR);
  void (AFX_MSG_CALL CWnd::*pfn_vb)(BOOL);
  void (AFX_MSG_CALL CWnd::*pfn_vbw)(BOOL, UINT);
  BOOL (AFX_MSG_CALL CWnd::*pfn_bWww)(CWnd*, UINT, UINT);
  void (AFX_MSG_CALL CWnd::*pfn_vMwb)(CMenu*, UINT, BOOL);
  LRESULT (AFX_MSG_CALL CWnd::*pfn_lwwM)(UINT, UINT, CMenu*);
  void (AFX_MSG_CALL CWnd::*pfn_vwwh)(UINT, UINT, HMENU);
  void (AFX_MSG_CALL CWnd::*pfn_vws)(UINT, LPCTSTR);
  void (AFX_MSG_CALL CWnd::*pfn_vwwW)(UINT, UINT, CScrollBar*);
  void (AFX_MSG_CALL CWnd::*pfn_vwWb)(UINT, CWnd*, BOOL);
  void (AFX_MSG_CALL CWnd::*pfn_vwl)(UINT, LPARAM);
  LRESULT (AFX_MSG_CALL CWnd::*pfn_lp)(CPoint);
  BOOL (AFX_MSG_CALL CWnd::*pfn_bs)(void*);
  void (AFX_MSG_CALL CWnd::*pfn_vh)(HANDLE);
};

const AFX_MSGMAP_ENTRY* AFXAPI AfxFindMessageEntry(const AFX_MSGMAP_ENTRY* lpEntry, UINT nMsg,
                                                   UINT nCode, UINT nID) {
  for (; lpEntry->nSig != AfxSig_end; lpEntry++) {
    if (lpEntry->nMessage == nMsg && lpEntry->nCode == nCode && nID >= lpEntry->nID &&
        nID <= lpEntry->nLastID)
      return lpEntry;
  }
  return NULL;
}

// ---- CCmdTarget -------------------------------------------------------------------

// The root map: no base and no entries; searches stop before it.
const AFX_MSGMAP* PASCAL CCmdTarget::GetThisMessageMap() {
  static const AFX_MSGMAP_ENTRY _messageEntries[] = {{0, 0, 0, 0, AfxSig_end, (AFX_PMSG)0}};
  static const AFX_MSGMAP messageMap = {NULL, &_messageEntries[0]};
  return &messageMap;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

static BOOL DispatchCmdMsg(CCmdTarget* pTarget, UINT nID, int nCode, AFX_PMSG pfn, void* pExtra,
                           UINT_PTR nSig, AFX_CMDHANDLERINFO* pHandlerInfo) {
  if (pHandlerInfo != NULL) { // only asked whether a handler exists
    pHandlerInfo->pTarget = pTarget;
    pHandlerInfo->pmf = pfn;
    return TRUE;
  }
  MessageMapFunctions mmf;
  mmf.pfn = pfn;
  BOOL bResult = TRUE;
  switch (nSig) {
  case AfxSigCmd_v:
    (pTarget->*mmf.pfnCmd_v_v)();
    break;
  case AfxSigCmd_b:
    bResult = (pTarget->*mmf.pfnCmd_b_v)();
    break;
  case AfxSigCmd_RANGE:
    (pTarget->*mmf.pfnCmd_v_u)(nID);
    break;
  case AfxSigCmd_EX:
    bResult = (pTarget->*mmf.pfnCmd_b_u)(nID);
    break;
  case AfxSigNotify_v:
  case AfxSigNotify_b:
  case AfxSigNotify_RANGE:
  case AfxSigNotify_EX: {
    AFX_NOTIFY* pNotify = (AFX_NOTIFY*)pExtra;
    if (pNotify == NULL) return FALSE;
    if (nSig == AfxSigNotify_v)
      (pTarget->*mmf.pfnNotify_v_NMHDR_pl)(pNotify->pNMHDR, pNotify->pResult);
    else if (nSig == AfxSigNotify_b)
      bResult = (pTarget->*mmf.pfnNotify_b_NMHDR_pl)(pNotify->pNMHDR, pNotify->pResult);
    else if (nSig == AfxSigNotify_RANGE)
      (pTarget->*mmf.pfnNotify_v_u_NMHDR_pl)(nID, pNotify->pNMHDR, pNotify->pResult);
    else
      bResult = (pTarget->*mmf.pfnNotify_b_u_NMHDR_pl)(nID, pNotify->pNMHDR, pNotify->pResult);
    break;
  }
  case AfxSigCmdUI: {
    CCmdUI* pCmdUI = (CCmdUI*)pExtra;
    if (pCmdUI == NULL) return FALSE;
    pCmdUI->m_bContinueRouting = FALSE;
    (pTarget->*mmf.pfnCmdUI_v_C)(pCmdUI);
    bResult = !pCmdUI->m_bContinueRouting; // the handler may pass it on
    pCmdUI->m_bContinueRouting = FALSE;
    break;
  }
  default:
    return FALSE; // not a command signature
  }
  (void)nCode;
  return bResult;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  // A code's high word may name the message (WM_NOTIFY, reflected forms);
  // CN_UPDATE_COMMAND_UI is all ones and is kept whole.
  UINT nMsg = 0;
  if ((UINT)nCode != CN_UPDATE_COMMAND_UI) {
    nMsg = HIWORD(nCode);
    nCode = LOWORD(nCode);
  }
  if (nMsg == 0) nMsg = WM_COMMAND;
  for (const AFX_MSGMAP* pMessageMap = GetMessageMap(); pMessageMap->pfnGetBaseMap != NULL;
       pMessageMap = (*pMessageMap->pfnGetBaseMap)()) {
    const AFX_MSGMAP_ENTRY* lpEntry =
        AfxFindMessageEntry(pMessageMap->lpEntries, nMsg, (UINT)nCode, nID);
    if (lpEntry != NULL)
      return DispatchCmdMsg(this, nID, nCode, lpEntry->pfn, pExtra, lpEntry->nSig, pHandlerInfo);
  }
  return FALSE;
}

// ---- CCmdUI ------------------------------------------------------------------------

// Records whether the command is enabled, without touching any item: used
// to refuse a menu or accelerator command whose update handler disables it.
class CTestCmdUI : public CCmdUI {
public:
  CTestCmdUI() : m_bEnabled(TRUE) {}
  virtual void Enable(BOOL bOn) {
    m_bEnabled = bOn;
    m_bEnableChanged = TRUE;
  }
  virtual void SetCheck(int) {}
  virtual void SetRadio(BOOL) {}
  virtual void SetText(LPCTSTR) {}
  BOOL m_bEnabled;
};

// ---- CWnd: the lookup cache ------------------------------------------------------

namespace {
struct MsgCacheEntry {
  UINT nMsg;
  const AFX_MSGMAP* pMessageMap;
  const AFX_MSGMAP_ENTRY* lpEntry; // NULL: no class in the chain handles it
};
const UINT kCacheSize = 512; // a power of two
} // namespace

// The thread's cache, made on first use (freed with the thread state).
static MsgCacheEntry* MsgCache(_AFX_THREAD_STATE* pState) {
  MsgCacheEntry* pCache = (MsgCacheEntry*)pState->m_pMsgCache;
  if (pCache == NULL) {
    pCache = (MsgCacheEntry*)calloc(kCacheSize, sizeof(MsgCacheEntry));
    if (pCache == NULL) AfxThrowMemoryException();
    pState->m_pMsgCache = pCache;
  }
  return pCache;
}

// The entry for a window message in the map chain; registered messages
// (0xC000 and above) are matched through the variable each entry names.
static const AFX_MSGMAP_ENTRY* FindWindowMessage(const AFX_MSGMAP* pMessageMap, UINT message) {
  for (; pMessageMap->pfnGetBaseMap != NULL; pMessageMap = (*pMessageMap->pfnGetBaseMap)()) {
    if (message < 0xC000) {
      const AFX_MSGMAP_ENTRY* lpEntry = AfxFindMessageEntry(pMessageMap->lpEntries, message, 0, 0);
      if (lpEntry != NULL) return lpEntry;
    } else {
      for (const AFX_MSGMAP_ENTRY* lpEntry = pMessageMap->lpEntries;
           (lpEntry = AfxFindMessageEntry(lpEntry, 0xC000, 0, 0)) != NULL; lpEntry++) {
        if (*(const UINT*)lpEntry->nSig == message) return lpEntry;
      }
    }
  }
  return NULL;
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  LRESULT lResult = 0;
  if (message == WM_COMMAND) {
    if (!OnCommand(wParam, lParam)) return FALSE;
    lResult = 1;
    if (pResult != NULL) *pResult = lResult;
    return TRUE;
  }
  if (message == WM_NOTIFY) {
    NMHDR* pNMHDR = (NMHDR*)lParam;
    if (pNMHDR == NULL || pNMHDR->hwndFrom == NULL || !OnNotify(wParam, lParam, &lResult))
      return FALSE;
    if (pResult != NULL) *pResult = lResult;
    return TRUE;
  }

  const AFX_MSGMAP* pMessageMap = GetMessageMap();
  MsgCacheEntry* pEntry =
      &MsgCache(AfxGetThreadState())[(LOWORD((DWORD_PTR)pMessageMap) ^ message) & (kCacheSize - 1)];
  const AFX_MSGMAP_ENTRY* lpEntry;
  if (pEntry->nMsg == message && pEntry->pMessageMap == pMessageMap) {
    lpEntry = pEntry->lpEntry;
  } else {
    lpEntry = FindWindowMessage(pMessageMap, message);
    pEntry->nMsg = message;
    pEntry->pMessageMap = pMessageMap;
    pEntry->lpEntry = lpEntry;
  }
  if (lpEntry == NULL) return FALSE;

  MessageMapFunctions mmf;
  mmf.pfn = lpEntry->pfn;
  UINT_PTR nSig = message >= 0xC000 ? (UINT_PTR)AfxSig_lwl : lpEntry->nSig;
  switch (nSig) {
  case AfxSig_vv:
    (this->*mmf.pfn_vv)();
    break;
  case AfxSig_bv:
    lResult = (this->*mmf.pfn_bv)();
    break;
  case AfxSig_wv:
    lResult = (this->*mmf.pfn_wv)();
    break;
  case AfxSig_lwl:
    lResult = (this->*mmf.pfn_lwl)(wParam, lParam);
    break;
  case AfxSig_is:
    lResult = (this->*mmf.pfn_is)((void*)lParam);
    break;
  case AfxSig_bD:
    lResult = (this->*mmf.pfn_bD)(CDC::FromHandle((HDC)wParam));
    break;
  case AfxSig_hDWw: {
    AFX_CTLCOLOR* pCtl = (AFX_CTLCOLOR*)lParam;
    if (pCtl == NULL) return FALSE;
    lResult = (LRESULT)(this->*mmf.pfn_hDWw)(CDC::FromHandle(pCtl->hDC),
                                             CWnd::FromHandle(pCtl->hWnd), pCtl->nCtlType);
    break;
  }
  case AfxSig_hDw: {
    AFX_CTLCOLOR* pCtl = (AFX_CTLCOLOR*)lParam;
    if (pCtl == NULL) return FALSE;
    lResult = (LRESULT)(this->*mmf.pfn_hDw)(CDC::FromHandle(pCtl->hDC), pCtl->nCtlType);
    break;
  }
  case AfxSig_vOWNER:
    (this->*mmf.pfn_vOWNER)((int)wParam, (void*)lParam);
    lResult = TRUE;
    break;
  case AfxSig_iis:
    lResult = (this->*mmf.pfn_iis)((int)wParam, (void*)lParam);
    break;
  case AfxSig_vs:
    (this->*mmf.pfn_vs)((void*)lParam);
    lResult = TRUE;
    break;
  case AfxSig_vwp:
    (this->*mmf.pfn_vwp)((UINT)wParam, CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)));
    break;
  case AfxSig_bwsp:
    lResult = (this->*mmf.pfn_bwsp)(LOWORD(wParam), (short)HIWORD(wParam),
                                    CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)));
    break;
  case AfxSig_vwww:
    (this->*mmf.pfn_vwww)((UINT)wParam, LOWORD(lParam), HIWORD(lParam));
    break;
  case AfxSig_vW:
    (this->*mmf.pfn_vW)(
        CWnd::FromHandle(message == WM_CAPTURECHANGED ? (HWND)lParam : (HWND)wParam));
    break;
  case AfxSig_vWp:
    (this->*mmf.pfn_vWp)(CWnd::FromHandle((HWND)wParam),
                         CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)));
    break;
  case AfxSig_vwii:
    (this->*mmf.pfn_vwii)((UINT)wParam, (short)LOWORD(lParam), (short)HIWORD(lParam));
    break;
  case AfxSig_vii:
    (this->*mmf.pfn_vii)((short)LOWORD(lParam), (short)HIWORD(lParam));
    break;
  case AfxSig_vw:
    (this->*mmf.pfn_vw)((UINT_PTR)wParam);
    break;
  case AfxSig_vb:
    (this->*mmf.pfn_vb)((BOOL)wParam);
    break;
  case AfxSig_vbw:
    (this->*mmf.pfn_vbw)((BOOL)wParam, (UINT)lParam);
    break;
  case AfxSig_bWww:
    lResult = (this->*mmf.pfn_bWww)(CWnd::FromHandle((HWND)wParam), LOWORD(lParam), HIWORD(lParam));
    break;
  case AfxSig_vMwb:
    (this->*mmf.pfn_vMwb)(CMenu::FromHandle((HMENU)wParam), LOWORD(lParam), (BOOL)HIWORD(lParam));
    break;
  case AfxSig_lwwM:
    lResult =
        (this->*mmf.pfn_lwwM)(LOWORD(wParam), HIWORD(wParam), CMenu::FromHandle((HMENU)lParam));
    break;
  case AfxSig_vwwh:
    (this->*mmf.pfn_vwwh)(LOWORD(wParam), HIWORD(wParam), (HMENU)lParam);
    break;
  case AfxSig_vws:
    (this->*mmf.pfn_vws)((UINT)wParam, (LPCTSTR)lParam);
    break;
  case AfxSig_vwwW:
    (this->*mmf.pfn_vwwW)(LOWORD(wParam), HIWORD(wParam),
                          (CScrollBar*)CWnd::FromHandle((HWND)lParam));
    break;
  case AfxSig_vwWb:
    (this->*mmf.pfn_vwWb)(LOWORD(wParam), CWnd::FromHandle((HWND)lParam), (BOOL)HIWORD(wParam));
    break;
  case AfxSig_vwl:
    (this->*mmf.pfn_vwl)((UINT)wParam, lParam);
    break;
  case AfxSig_lp:
    lResult = (this->*mmf.pfn_lp)(CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)));
    break;
  case AfxSig_bs:
    lResult = (this->*mmf.pfn_bs)((void*)lParam);
    break;
  case AfxSig_vh:
    (this->*mmf.pfn_vh)((HANDLE)wParam);
    break;
  default:
    return FALSE; // a command signature in a window-message entry: not ours
  }
  // The handler may have destroyed and deleted this object: only the
  // caller's result is written from here on.
  if (pResult != NULL) *pResult = lResult;
  return TRUE;
}

// ---- CWnd: commands and notifications ------------------------------------------

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  UINT nID = LOWORD(wParam);
  HWND hWndCtrl = (HWND)lParam;
  int nCode = HIWORD(wParam);
  if (hWndCtrl == NULL) {
    // A menu item or accelerator: refused when its update handler disables it.
    if (nID == 0) return FALSE;
    CTestCmdUI state;
    state.m_nID = nID;
    OnCmdMsg(nID, CN_UPDATE_COMMAND_UI, &state, NULL);
    if (!state.m_bEnabled) return TRUE;
    nCode = CN_COMMAND;
  } else {
    // A control's notification: dropped during UpdateData, else the control
    // itself may take it.
    if (AfxGetThreadState()->m_hLockoutNotifyWindow == m_hWnd) return TRUE;
    if (ReflectLastMsg(hWndCtrl)) return TRUE;
    if (nID == 0) return FALSE;
  }
  return OnCmdMsg(nID, nCode, NULL, NULL);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult) {
  NMHDR* pNMHDR = (NMHDR*)lParam;
  HWND hWndCtrl = pNMHDR->hwndFrom;
  // The id comes from the window itself, as in MFC, not from idFrom.
  UINT nID = (UINT)::GetDlgCtrlID(hWndCtrl);
  int nCode = pNMHDR->code;
  if (AfxGetThreadState()->m_hLockoutNotifyWindow == m_hWnd) return TRUE;
  if (ReflectLastMsg(hWndCtrl, pResult)) return TRUE;
  AFX_NOTIFY notify;
  notify.pResult = pResult;
  notify.pNMHDR = pNMHDR;
  return OnCmdMsg(nID, MAKELONG(nCode, WM_NOTIFY), &notify, NULL);
}

// ---- Reflection -------------------------------------------------------------------

BOOL PASCAL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult) {
  CWnd* pWnd = FromHandlePermanent(hWndChild);
  return pWnd != NULL && pWnd->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult) {
  const MSG& msg = AfxGetThreadState()->m_lastSentMsg;
  return OnChildNotify(msg.message, msg.wParam, msg.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  LRESULT lDummy = 0;
  if (pResult == NULL) pResult = &lDummy; // handlers always have somewhere to write
  switch (uMsg) {
  case WM_HSCROLL:
  case WM_VSCROLL:
  case WM_PARENTNOTIFY:
  case WM_DRAWITEM:
  case WM_MEASUREITEM:
  case WM_DELETEITEM:
  case WM_VKEYTOITEM:
  case WM_CHARTOITEM:
  case WM_COMPAREITEM:
    return CWnd::OnWndMsg(WM_REFLECT_BASE + uMsg, wParam, lParam, pResult);
  case WM_COMMAND:
    if (CWnd::OnCmdMsg(0, MAKELONG(HIWORD(wParam), WM_REFLECT_BASE + WM_COMMAND), NULL, NULL)) {
      *pResult = 1;
      return TRUE;
    }
    return FALSE;
  case WM_NOTIFY: {
    NMHDR* pNMHDR = (NMHDR*)lParam;
    if (pNMHDR == NULL) return FALSE;
    AFX_NOTIFY notify;
    notify.pResult = pResult;
    notify.pNMHDR = pNMHDR;
    return CWnd::OnCmdMsg(0, MAKELONG(pNMHDR->code, WM_REFLECT_BASE + WM_NOTIFY), &notify, NULL);
  }
  case WM_CTLCOLORMSGBOX:
  case WM_CTLCOLOREDIT:
  case WM_CTLCOLORLISTBOX:
  case WM_CTLCOLORBTN:
  case WM_CTLCOLORDLG:
  case WM_CTLCOLORSCROLLBAR:
  case WM_CTLCOLORSTATIC: {
    AFX_CTLCOLOR ctl;
    ctl.hDC = (HDC)wParam;
    ctl.nCtlType = uMsg - WM_CTLCOLORMSGBOX;
    ctl.hWnd = m_hWnd;
    *pResult = 0;
    BOOL bResult = CWnd::OnWndMsg(WM_REFLECT_BASE + WM_CTLCOLOR, 0, (LPARAM)&ctl, pResult);
    return bResult && *pResult != 0; // a NULL brush leaves it to the parent
  }
  }
  return FALSE;
}
