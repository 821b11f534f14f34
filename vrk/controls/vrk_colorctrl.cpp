// VColorComboBox and its pop-up grid VPopupColorCtrl.
#include "vrk_colorctrl.h"
#include "vrk_exception.h"
#include "vrk_frame.h"
#include "vrk_gdi.h"
#include "vrk_memdc.h"

#define VRK_SOURCE_FILE ".\\vrk_colorctrl.cpp"

namespace {

const COLORREF g_colorTable[VRK_COLORTABLE_SIZE] = {
    0x000000, 0xFFFFFF, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080,
    0x808000, 0xC0C0C0, 0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000,
    0xFF00FF, 0xFFFF00, 0xC0DCC0, 0xF0CAA6, 0xA4A0A0, 0xF0FBFF};

const char g_szPopupClass[] = "VPopupColorCtrl";
const int g_nColumns = 4;
const int g_nSquare = 16;
const int g_nPitch = 19;
const int g_nMargin = 3;

CPoint SquareTopLeft(int nIndex) {
  return CPoint(g_nMargin + g_nPitch * (nIndex % g_nColumns),
                g_nMargin + g_nPitch * (nIndex / g_nColumns));
}

// The class is registered once, with afx's window procedure and this
// module's instance; global, so that windows made with the application's
// instance handle find it.
BOOL RegisterPopupClass() {
  WNDCLASS wc = {};
  wc.style = CS_GLOBALCLASS;
  wc.lpfnWndProc = AfxGetAfxWndProc();
  wc.hInstance = VrkPrivGetInstance();
  wc.hCursor = ::LoadCursor(NULL, IDC_ARROW);
  wc.lpszClassName = g_szPopupClass;
  return AfxRegisterClass(&wc);
}

} // namespace

// ---- VColorComboBox -------------------------------------------------------------

IMPLEMENT_DYNAMIC(VColorComboBox, CWnd)

BEGIN_MESSAGE_MAP(VColorComboBox, CWnd)
ON_WM_LBUTTONDOWN()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

VColorComboBox::VColorComboBox() : m_crColor(0) {}

VColorComboBox::~VColorComboBox() {}

BOOL VColorComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(NULL, NULL, dwStyle, rect, pParentWnd, nID);
}

void VColorComboBox::SetColor(COLORREF crColor) {
  m_crColor = crColor;
  if (m_hWnd != NULL) Invalidate(TRUE);
}

void VColorComboBox::UpdateColor(COLORREF crColor) {
  if (crColor == m_crColor) return;
  m_crColor = crColor;
  if (m_hWnd == NULL) return;
  RedrawWindow(NULL, NULL, RDW_INVALIDATE | RDW_UPDATENOW);
  CWnd* pParent = GetParent();
  if (pParent != NULL)
    pParent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), CBN_SELCHANGE), (LPARAM)m_hWnd);
}

BOOL VColorComboBox::OnEraseBkgnd(CDC* /*pDC*/) { return TRUE; }

// Left to this control: the area around the swatch is the window colour.
void VColorComboBox::OnPaint() {
  CPaintDC dc(this);
  CRect rc;
  GetClientRect(&rc);
  VMemDC mem;
  if (!mem.Create(&dc, rc, ::GetSysColor(COLOR_WINDOW))) return;
  tag3DPens pens;
  CRect rcFrame = rc;
  rcFrame.DeflateRect(1, 1);
  VrkDraw3DRect(&mem, &pens, rcFrame, 0);

  int yc = rc.top + rc.Height() / 2;
  int r = rc.right - 1;
  CPen* pOldPen = mem.SelectObject(&pens.m_penBlack);
  mem.MoveTo(r - 9, yc - 1);
  mem.LineTo(r - 4, yc - 1);
  mem.MoveTo(r - 8, yc);
  mem.LineTo(r - 5, yc);
  mem.MoveTo(r - 7, yc + 1);
  mem.LineTo(r - 6, yc + 1);
  mem.SelectObject(&pens.m_penShadow);
  mem.MoveTo(r - 12, rc.top + 5);
  mem.LineTo(r - 12, rc.bottom - 5);
  mem.SelectObject(&pens.m_penWhite);
  mem.MoveTo(r - 11, rc.top + 5);
  mem.LineTo(r - 11, rc.bottom - 5);
  mem.SelectObject(pOldPen);

  CRect rcSwatch(rc.left + 5, rc.top + 5, (r - 11) - 5, rc.bottom - 5);
  CBrush brush(m_crColor);
  mem.FillRect(&rcSwatch, &brush);
  mem.Copy(&dc, rc);
}

void VColorComboBox::OnLButtonDown(UINT /*nFlags*/, CPoint point) {
  CRect rc;
  GetClientRect(&rc);
  CRect rcArrow(rc.right - 10, rc.top + 2, rc.right - 2, rc.bottom - 2);
  if (!rcArrow.PtInRect(point)) return;
  if (!RegisterPopupClass()) return;

  CRect rcWindow;
  GetWindowRect(&rcWindow);
  CWnd* pMain = AfxGetMainWnd();
  // The grid deletes itself in PostNcDestroy, which the framework calls on a
  // failed creation too: nothing is left to free here either way.
  VPopupColorCtrl* pPopup = new VPopupColorCtrl(m_crColor, this);
  pPopup->CreateEx(0, g_szPopupClass, NULL, WS_POPUP | WS_BORDER, rcWindow.left,
                   rcWindow.bottom + 1, 0, 0, pMain->GetSafeHwnd(), NULL);
}

// ---- VPopupColorCtrl ------------------------------------------------------------

IMPLEMENT_DYNAMIC(VPopupColorCtrl, VPopupWindow)

BEGIN_MESSAGE_MAP(VPopupColorCtrl, VPopupWindow)
ON_WM_CREATE()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

// Only the first 16 entries are searched: the last four map to black.
VPopupColorCtrl::VPopupColorCtrl(COLORREF crColor, VColorComboBox* pOwner)
    : m_crColor(0), m_nSelected(0), m_nHot(0), m_pOwner(pOwner), m_hWndCombo(NULL) {
  if (pOwner == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 228);
  m_hWndCombo = pOwner->m_hWnd;
  for (int i = 0; i < 16; i++) {
    if (g_colorTable[i] == crColor) {
      m_nSelected = m_nHot = i;
      break;
    }
  }
  m_crColor = g_colorTable[m_nSelected];
}

VPopupColorCtrl::~VPopupColorCtrl() {}

void VPopupColorCtrl::PostNcDestroy() { delete this; }

int VPopupColorCtrl::OnCreate(LPCREATESTRUCT lpCreateStruct) {
  int nResult = VPopupWindow::OnCreate(lpCreateStruct);
  if (nResult != -1)
    SetWindowPos(NULL, 0, 0, 2 * ::GetSystemMetrics(SM_CXBORDER) + 79,
                 2 * ::GetSystemMetrics(SM_CYBORDER) + 98,
                 SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER | SWP_SHOWWINDOW);
  return nResult;
}

int VPopupColorCtrl::CursorToColorIndex(CPoint point) {
  for (int i = 0; i < VRK_COLORTABLE_SIZE; i++) {
    CRect rcSquare(SquareTopLeft(i), CSize(g_nSquare, g_nSquare));
    if (rcSquare.PtInRect(point)) return i;
  }
  return -1;
}

void VPopupColorCtrl::DrawColorSquare(CDC* pDC, int nIndex, CPoint ptTopLeft) {
  if (pDC == NULL || nIndex < 0 || nIndex >= VRK_COLORTABLE_SIZE) return;
  tag3DPens pens;
  CRect rcSquare(ptTopLeft, CSize(g_nSquare, g_nSquare));
  VrkDraw3DRect(pDC, &pens, rcSquare, 1, g_colorTable[nIndex]);
  if (nIndex == m_nHot) {
    VrkDrawSimpleRect(pDC, &pens.m_penBlack, rcSquare);
    rcSquare.DeflateRect(1, 1);
    VrkDrawSimpleRect(pDC, &pens.m_penWhite, rcSquare);
  }
}

BOOL VPopupColorCtrl::OnEraseBkgnd(CDC* /*pDC*/) { return TRUE; }

void VPopupColorCtrl::OnPaint() {
  CPaintDC dc(this);
  CRect rc;
  GetClientRect(&rc);
  VMemDC mem;
  if (!mem.Create(&dc, rc, ::GetSysColor(COLOR_3DFACE))) return;
  for (int i = 0; i < VRK_COLORTABLE_SIZE; i++)
    DrawColorSquare(&mem, i, SquareTopLeft(i));
  mem.Copy(&dc, rc);
}

void VPopupColorCtrl::OnMouseMove(UINT /*nFlags*/, CPoint point) {
  int nIndex = CursorToColorIndex(point);
  if (nIndex == -1 || nIndex == m_nHot) return;
  m_nHot = nIndex;
  Invalidate(FALSE);
}

// The capture is released after the choice: the pop-up then closes itself.
void VPopupColorCtrl::OnLButtonUp(UINT nFlags, CPoint point) {
  if (VPopupWindow::OnLButtonDownCheck(nFlags, point)) return;
  int nIndex = CursorToColorIndex(point);
  if (nIndex == -1) return;
  // The owner may have gone while the grid was open.
  if (CWnd::FromHandlePermanent(m_hWndCombo) == m_pOwner)
    m_pOwner->UpdateColor(g_colorTable[nIndex]);
  m_nSelected = nIndex;
  ::ReleaseCapture();
}
