// The common controls' wrappers: the spin button and the progress bar. The
// common-controls library is initialised on first creation.
#include <afxcmn.h>

IMPLEMENT_DYNAMIC(CSpinButtonCtrl, CWnd)
IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)

static void InitCommonControlClasses() {
  static LONG s_bDone = FALSE;
  if (::InterlockedExchange(&s_bDone, TRUE)) return;
  INITCOMMONCONTROLSEX icc = {sizeof(icc), ICC_UPDOWN_CLASS | ICC_PROGRESS_CLASS};
  ::InitCommonControlsEx(&icc);
}

CSpinButtonCtrl::~CSpinButtonCtrl() { DestroyWindow(); }

BOOL CSpinButtonCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  InitCommonControlClasses();
  return CWnd::Create(UPDOWN_CLASS, NULL, dwStyle, rect, pParentWnd, nID);
}

void CSpinButtonCtrl::GetRange(int& lower, int& upper) const {
  DWORD dw = (DWORD)::SendMessage(m_hWnd, UDM_GETRANGE, 0, 0);
  lower = (short)HIWORD(dw); // the low word holds the upper limit
  upper = (short)LOWORD(dw);
}

CProgressCtrl::~CProgressCtrl() { DestroyWindow(); }

BOOL CProgressCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  InitCommonControlClasses();
  return CWnd::Create(PROGRESS_CLASS, NULL, dwStyle, rect, pParentWnd, nID);
}

void CProgressCtrl::GetRange(int& nLower, int& nUpper) const {
  PBRANGE range;
  ::SendMessage(m_hWnd, PBM_GETRANGE, FALSE, (LPARAM)&range);
  nLower = range.iLow;
  nUpper = range.iHigh;
}
