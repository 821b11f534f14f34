// The window DCs (CClientDC, CWindowDC, CPaintDC) and the CDC and CImageList
// members that name a window.
#include <afxwin.h>

IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd()) {
  if (!Attach(::GetDC(m_hWnd))) AfxThrowResourceException();
}

CClientDC::~CClientDC() {
  if (m_hDC != NULL) ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd()) {
  if (!Attach(::GetWindowDC(m_hWnd))) AfxThrowResourceException();
}

CWindowDC::~CWindowDC() {
  if (m_hDC != NULL) ::ReleaseDC(m_hWnd, Detach());
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd()) {
  memset(&m_ps, 0, sizeof(m_ps));
  if (!Attach(::BeginPaint(m_hWnd, &m_ps))) AfxThrowResourceException();
}

CPaintDC::~CPaintDC() {
  if (m_hDC != NULL) {
    ::EndPaint(m_hWnd, &m_ps);
    Detach();
  }
}

CWnd* CDC::GetWindow() const { return CWnd::FromHandle(::WindowFromDC(m_hDC)); }

int CDC::ExcludeUpdateRgn(CWnd* pWnd) { return ::ExcludeUpdateRgn(m_hDC, pWnd->GetSafeHwnd()); }

BOOL PASCAL CImageList::DragEnter(CWnd* pWndLock, CPoint point) {
  return ImageList_DragEnter(pWndLock->GetSafeHwnd(), point.x, point.y);
}

BOOL PASCAL CImageList::DragLeave(CWnd* pWndLock) {
  return ImageList_DragLeave(pWndLock->GetSafeHwnd());
}
