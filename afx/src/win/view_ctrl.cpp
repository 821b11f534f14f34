// CCtrlView: a view whose window is a control of another class.
#include <afxwin.h>

IMPLEMENT_DYNAMIC(CCtrlView, CView)

BEGIN_MESSAGE_MAP(CCtrlView, CView)
ON_WM_PAINT()
END_MESSAGE_MAP()

CCtrlView::CCtrlView(LPCTSTR lpszClass, DWORD dwStyle)
    : m_strClass(lpszClass), m_dwDefaultStyle(dwStyle) {}

CCtrlView::~CCtrlView() {}

BOOL CCtrlView::PreCreateWindow(CREATESTRUCT& cs) {
  cs.lpszClass = m_strClass;
  cs.style |= m_dwDefaultStyle;
  return CView::PreCreateWindow(cs); // the border becomes a client edge
}

// The control draws itself.
void CCtrlView::OnDraw(CDC*) {}

void CCtrlView::OnPaint() { Default(); }
