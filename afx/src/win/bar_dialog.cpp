// CDialogBar: a control bar made from a dialog template.
#include <afxwin.h>
#include <afxext.h>
#include "../core/afximpl.h"

IMPLEMENT_DYNAMIC(CDialogBar, CControlBar)

// The bar's dialog procedure: the messages go through the bar's map
// (AfxWndProc); the focus is left where it is when the bar appears.
static INT_PTR CALLBACK DialogBarProc(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

CDialogBar::CDialogBar() : m_sizeDefault(0, 0) {}

CDialogBar::~CDialogBar() { DestroyWindow(); }

BOOL CDialogBar::Create(CWnd* pParentWnd, LPCTSTR lpszTemplateName, UINT nStyle, UINT nID) {
  if (pParentWnd == NULL || pParentWnd->m_hWnd == NULL || lpszTemplateName == NULL ||
      m_hWnd != NULL)
    return FALSE;
  HINSTANCE hInst;
  LPCDLGTEMPLATE lpTemplate = AfxLoadDialogTemplate(lpszTemplateName, &hInst);
  if (lpTemplate == NULL) return FALSE;

  m_dwStyle = nStyle & CBRS_ALL;
  // The CBT hook attaches the window to this object before its first
  // message, so the bar's margins apply from the start.
  AfxHookWindowCreate(this);
  HWND hWnd = ::CreateDialogIndirectParam(hInst, lpTemplate, pParentWnd->m_hWnd, &DialogBarProc, 0);
  AfxUnhookWindowCreate();
  if (hWnd == NULL) return FALSE;

  if (pParentWnd->IsKindOf(RUNTIME_CLASS(CFrameWnd))) m_pDockSite = (CFrameWnd*)pParentWnd;
  SetDlgCtrlID(nID);
  ModifyStyle(0, WS_CLIPSIBLINGS);
  // The template's size is the client area the controls were laid out in.
  CRect rect;
  GetWindowRect(&rect);
  m_sizeDefault.cx = rect.Width() + m_cxLeftBorder + m_cxRightBorder;
  m_sizeDefault.cy = rect.Height() + m_cyTopBorder + m_cyBottomBorder;
  SetWindowPos(NULL, 0, 0, m_sizeDefault.cx, m_sizeDefault.cy,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE | SWP_SHOWWINDOW);
  return TRUE;
}

CSize CDialogBar::CalcFixedLayout(BOOL bStretch, BOOL bHorz) {
  if (!bStretch) return m_sizeDefault;
  return bHorz ? CSize(32767, m_sizeDefault.cy) : CSize(m_sizeDefault.cx, 32767);
}

void CDialogBar::OnUpdateCmdUI(CFrameWnd* pTarget, BOOL bDisableIfNoHndler) {
  UpdateDialogControls(pTarget, bDisableIfNoHndler);
}

BOOL CDialogBar::PreTranslateMessage(MSG* pMsg) {
  if (pMsg->message < WM_KEYFIRST || pMsg->message > WM_KEYLAST) return FALSE;
  if (pMsg->hwnd != m_hWnd && !::IsChild(m_hWnd, pMsg->hwnd)) return FALSE;
  // The dialog manager would take Escape and Enter for itself: the frame's
  // accelerators come first.
  CFrameWnd* pFrame = GetParentFrame();
  if (pFrame != NULL && pFrame->PreTranslateMessage(pMsg)) return TRUE;
  return ::IsDialogMessage(m_hWnd, pMsg);
}
