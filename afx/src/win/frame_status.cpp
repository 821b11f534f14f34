// CFrameWnd and the status bar: messages and menu prompts in the first pane,
// the idle message, key indicators and menu item updates.
#include <afxwin.h>
#include <afxpriv.h>

// System commands (SC_SIZE...) have their prompts from this id on, one per
// command (MFC's string ids; the application supplies the strings).
#define AFX_IDS_SCFIRST 0xEF00
#define AFX_IDS_MDICHILD 0xEF1F
#define ID_COMMAND_FROM_SC(sc) ((((sc)-0xF000) >> 4) + AFX_IDS_SCFIRST)

CWnd* CFrameWnd::GetMessageBar() { return GetDescendantWindow(AFX_IDW_STATUS_BAR, TRUE); }

void CFrameWnd::GetMessageString(UINT nID, CString& rMessage) const {
  // The prompt is the string up to its "\n" (the rest is the tool tip).
  if (rMessage.LoadString(nID)) {
    int nNewLine = rMessage.Find('\n');
    if (nNewLine >= 0) rMessage.Truncate(nNewLine);
  } else {
    rMessage.Empty();
  }
}

void CFrameWnd::SetMessageText(LPCTSTR lpszText) {
  SendMessage(WM_SETMESSAGESTRING, 0, (LPARAM)lpszText);
}

void CFrameWnd::SetMessageText(UINT nID) { SendMessage(WM_SETMESSAGESTRING, (WPARAM)nID); }

// wParam: a string id (its prompt is shown), or 0 with lParam the text.
// Returns the id shown before.
LRESULT CFrameWnd::OnSetMessageString(WPARAM wParam, LPARAM lParam) {
  UINT nIDLast = m_nIDLastMessage;
  m_nFlags &= ~WF_NOPOPMSG;
  CWnd* pMessageBar = GetMessageBar();
  if (pMessageBar != NULL) {
    CString strMessage;
    LPCTSTR lpsz = NULL;
    if (lParam != 0) {
      lpsz = (LPCTSTR)lParam;
    } else if (wParam != 0) {
      GetMessageString((UINT)wParam, strMessage);
      lpsz = strMessage;
    }
    pMessageBar->SetWindowText(lpsz != NULL ? lpsz : "");
    // The bar may belong to another frame (an MDI child's is its frame's).
    CFrameWnd* pFrameWnd = pMessageBar->GetParentFrame();
    if (pFrameWnd != NULL && pFrameWnd != this) {
      pFrameWnd->m_nIDLastMessage = (UINT)wParam;
      pFrameWnd->m_nIDTracking = (UINT)wParam;
    }
  }
  m_nIDLastMessage = (UINT)wParam;
  m_nIDTracking = (UINT)wParam;
  return nIDLast;
}

LRESULT CFrameWnd::OnPopMessageString(WPARAM wParam, LPARAM lParam) {
  if (m_nFlags & WF_NOPOPMSG) return 0; // a menu prompt is showing
  return SendMessage(WM_SETMESSAGESTRING, wParam, lParam);
}

// While a menu is open the prompt of the selected item is noted; it is shown
// when the menu loop goes idle (WM_ENTERIDLE) or, after the menu, on idle.
void CFrameWnd::OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu) {
  CFrameWnd* pFrameWnd = GetTopLevelFrame();
  if (pFrameWnd == NULL) pFrameWnd = this;
  if (nFlags == 0xFFFF && hSysMenu == NULL) {
    // The menu closed: back to the idle message now.
    m_nFlags &= ~WF_NOPOPMSG;
    m_nIDTracking = AFX_IDS_IDLEMESSAGE;
    pFrameWnd->SendMessage(WM_SETMESSAGESTRING, (WPARAM)m_nIDTracking);
  } else if (nItemID == 0 || (nFlags & (MF_SEPARATOR | MF_POPUP))) {
    m_nIDTracking = 0; // nothing to say about a separator or a popup
  } else if (nItemID >= 0xF000 && nItemID < 0xF1F0) {
    m_nIDTracking = ID_COMMAND_FROM_SC(nItemID);
  } else if (nItemID >= AFX_IDM_FIRST_MDICHILD) {
    m_nIDTracking = AFX_IDS_MDICHILD; // every MDI child's item says the same
  } else {
    m_nIDTracking = nItemID;
  }
  pFrameWnd->m_nFlags |= WF_NOPOPMSG;
}

LRESULT CFrameWnd::OnEnterIdle(WPARAM wParam, LPARAM) {
  Default();
  if (wParam == MSGF_MENU && m_nIDTracking != m_nIDLastMessage) SetMessageText(m_nIDTracking);
  return 0;
}

// Idle time (CWinThread::OnIdle): the delayed title, layout and message.
LRESULT CFrameWnd::OnIdleUpdateCmdUI(WPARAM, LPARAM) {
  if (m_nIdleFlags & idleTitle) OnUpdateFrameTitle(TRUE);
  if (m_nIdleFlags & idleLayout) {
    RecalcLayout((m_nIdleFlags & idleNotify) != 0);
    UpdateWindow();
  }
  if (m_nIDTracking != m_nIDLastMessage) SetMessageText(m_nIDTracking);
  m_nIdleFlags &= idleMenu; // the menu flag is the MDI frame's to clear
  return 0;
}

void CFrameWnd::OnUpdateKeyIndicator(CCmdUI* pCmdUI) {
  UINT nVK;
  UINT nFlag = 0x0001; // toggled
  switch (pCmdUI->m_nID) {
  case ID_INDICATOR_CAPS:
    nVK = VK_CAPITAL;
    break;
  case ID_INDICATOR_NUM:
    nVK = VK_NUMLOCK;
    break;
  case ID_INDICATOR_SCRL:
    nVK = VK_SCROLL;
    break;
  case ID_INDICATOR_KANA:
    nVK = VK_KANA;
    nFlag = 0x8000; // down
    break;
  default:
    return;
  }
  pCmdUI->Enable((::GetKeyState(nVK) & nFlag) != 0);
}

// Updates the items of a menu as it opens: each item's command goes through
// the frame's routing; with m_bAutoMenuEnable an item nobody handles is
// disabled (system commands excepted). A popup is enabled through its first
// item's handler, never disabled for want of one.
void CFrameWnd::OnInitMenuPopup(CMenu* pMenu, UINT, BOOL bSysMenu) {
  if (bSysMenu || pMenu == NULL) return;
  CCmdUI state;
  state.m_pMenu = pMenu;
  HMENU hParentMenu = ::GetMenu(m_hWnd);
  if (hParentMenu != NULL) {
    int nIndexMax = ::GetMenuItemCount(hParentMenu);
    for (int nIndex = 0; nIndex < nIndexMax; nIndex++) {
      if (::GetSubMenu(hParentMenu, nIndex) == pMenu->m_hMenu) {
        state.m_pParentMenu = CMenu::FromHandle(hParentMenu);
        break;
      }
    }
  }
  state.m_nIndexMax = pMenu->GetMenuItemCount();
  for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; state.m_nIndex++) {
    state.m_nID = pMenu->GetMenuItemID(state.m_nIndex);
    if (state.m_nID == 0) continue; // a separator
    if (state.m_nID == (UINT)-1) {
      state.m_pSubMenu = pMenu->GetSubMenu(state.m_nIndex);
      if (state.m_pSubMenu == NULL || (state.m_nID = state.m_pSubMenu->GetMenuItemID(0)) == 0 ||
          state.m_nID == (UINT)-1)
        continue;
      state.DoUpdate(this, FALSE);
    } else {
      state.m_pSubMenu = NULL;
      state.DoUpdate(this, m_bAutoMenuEnable && state.m_nID < 0xF000);
    }
    // A handler may have added or removed items.
    UINT nCount = pMenu->GetMenuItemCount();
    if (nCount < state.m_nIndexMax) {
      state.m_nIndex -= (state.m_nIndexMax - nCount);
      while (state.m_nIndex < nCount && pMenu->GetMenuItemID(state.m_nIndex) == state.m_nID)
        state.m_nIndex++;
    }
    state.m_nIndexMax = nCount;
  }
}
