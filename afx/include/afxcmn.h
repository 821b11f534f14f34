// afxcmn.h - wrappers of the common controls: the spin button (up-down
// control) and the progress bar.
#ifndef __AFXCMN_H__
#define __AFXCMN_H__

#include "afxwin.h"

class AFX_API CSpinButtonCtrl : public CWnd {
  DECLARE_DYNAMIC(CSpinButtonCtrl)
public:
  CSpinButtonCtrl() {}
  virtual ~CSpinButtonCtrl();
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  BOOL SetAccel(int nAccel, UDACCEL* pAccel) {
    return (BOOL)::SendMessage(m_hWnd, UDM_SETACCEL, nAccel, (LPARAM)pAccel);
  }
  UINT GetAccel(int nAccel, UDACCEL* pAccel) const {
    return (UINT)::SendMessage(m_hWnd, UDM_GETACCEL, nAccel, (LPARAM)pAccel);
  }
  int SetBase(int nBase) { return (int)::SendMessage(m_hWnd, UDM_SETBASE, nBase, 0); }
  UINT GetBase() const { return (UINT)::SendMessage(m_hWnd, UDM_GETBASE, 0, 0); }
  CWnd* SetBuddy(CWnd* pWndBuddy) {
    return CWnd::FromHandle(
        (HWND)::SendMessage(m_hWnd, UDM_SETBUDDY, (WPARAM)pWndBuddy->GetSafeHwnd(), 0));
  }
  CWnd* GetBuddy() const {
    return CWnd::FromHandle((HWND)::SendMessage(m_hWnd, UDM_GETBUDDY, 0, 0));
  }
  // The 16-bit position; the high word is non-zero when the buddy's text is
  // not a valid position.
  int SetPos(int nPos) {
    return (short)LOWORD(::SendMessage(m_hWnd, UDM_SETPOS, 0, MAKELPARAM(nPos, 0)));
  }
  int GetPos() const { return (int)::SendMessage(m_hWnd, UDM_GETPOS, 0, 0); }
  void SetRange(short nLower, short nUpper) {
    ::SendMessage(m_hWnd, UDM_SETRANGE, 0, MAKELPARAM(nUpper, nLower));
  }
  void SetRange32(int nLower, int nUpper) { ::SendMessage(m_hWnd, UDM_SETRANGE32, nLower, nUpper); }
  DWORD GetRange() const { return (DWORD)::SendMessage(m_hWnd, UDM_GETRANGE, 0, 0); }
  void GetRange(int& lower, int& upper) const;
  void GetRange32(int& lower, int& upper) const {
    ::SendMessage(m_hWnd, UDM_GETRANGE32, (WPARAM)&lower, (LPARAM)&upper);
  }
  int SetPos32(int nPos) { return (int)::SendMessage(m_hWnd, UDM_SETPOS32, 0, nPos); }
  int GetPos32(LPBOOL lpbError = NULL) const {
    return (int)::SendMessage(m_hWnd, UDM_GETPOS32, 0, (LPARAM)lpbError);
  }
};

class AFX_API CProgressCtrl : public CWnd {
  DECLARE_DYNAMIC(CProgressCtrl)
public:
  CProgressCtrl() {}
  virtual ~CProgressCtrl();
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  void SetRange(short nLower, short nUpper) {
    ::SendMessage(m_hWnd, PBM_SETRANGE, 0, MAKELPARAM(nLower, nUpper));
  }
  void SetRange32(int nLower, int nUpper) { ::SendMessage(m_hWnd, PBM_SETRANGE32, nLower, nUpper); }
  void GetRange(int& nLower, int& nUpper) const;
  int GetPos() const { return (int)::SendMessage(m_hWnd, PBM_GETPOS, 0, 0); }
  int OffsetPos(int nPos) { return (int)::SendMessage(m_hWnd, PBM_DELTAPOS, nPos, 0); }
  int SetPos(int nPos) { return (int)::SendMessage(m_hWnd, PBM_SETPOS, nPos, 0); }
  int SetStep(int nStep) { return (int)::SendMessage(m_hWnd, PBM_SETSTEP, nStep, 0); }
  int StepIt() { return (int)::SendMessage(m_hWnd, PBM_STEPIT, 0, 0); }
  COLORREF SetBarColor(COLORREF clrBar) {
    return (COLORREF)::SendMessage(m_hWnd, PBM_SETBARCOLOR, 0, (LPARAM)clrBar);
  }
  COLORREF SetBkColor(COLORREF clrNew) {
    return (COLORREF)::SendMessage(m_hWnd, PBM_SETBKCOLOR, 0, (LPARAM)clrNew);
  }
};

// Status bar and toolbar controls; the rich edit control.
#include "afxcmnbar_.h"
#include "afxcmnrich_.h"

#endif // __AFXCMN_H__
