// CToolBar: a bar on the toolbar common control. The buttons live in the
// control; the bar loads them from a toolbar resource (RT_TOOLBAR) and its
// bitmap, reads and writes them in MFC's TBBS_ form and updates their
// enabled and checked states through a CCmdUI of its own.
#include <afxwin.h>
#include <afxbar_.h>

#include <new>

#include "bar_impl.h"

IMPLEMENT_DYNAMIC(CToolBar, CControlBar)

BEGIN_MESSAGE_MAP(CToolBar, CControlBar)
ON_WM_MOUSEMOVE()
ON_MESSAGE(WM_MOUSELEAVE, &CToolBar::OnMouseLeave)
END_MESSAGE_MAP()

namespace {
// Decided here: a separator is six pixels wide.
const int kSeparatorWidth = 6;
// A button is at least its image plus these margins.
const int kMinButtonMarginX = 7;
const int kMinButtonMarginY = 6;
// Decided here: toolbar resources with images above 256 pixels a side are
// refused as malformed.
const int kMaxImageSide = 256;

// Updates a button through its toolbar: disabling also releases it;
// checking makes it a check box button.
class CToolCmdUI : public CCmdUI {
public:
  virtual void Enable(BOOL bOn) {
    m_bEnableChanged = TRUE;
    CToolBar* pBar = (CToolBar*)m_pOther;
    UINT nStyle = pBar->GetButtonStyle(m_nIndex) & ~TBBS_DISABLED;
    if (!bOn) nStyle = (nStyle | TBBS_DISABLED) & ~TBBS_PRESSED;
    pBar->SetButtonStyle(m_nIndex, nStyle);
  }
  virtual void SetCheck(int nCheck) {
    CToolBar* pBar = (CToolBar*)m_pOther;
    UINT nStyle = pBar->GetButtonStyle(m_nIndex) & ~(TBBS_CHECKED | TBBS_INDETERMINATE);
    if (nCheck == 1)
      nStyle |= TBBS_CHECKED;
    else if (nCheck == 2)
      nStyle |= TBBS_INDETERMINATE;
    pBar->SetButtonStyle(m_nIndex, nStyle | TBBS_CHECKBOX);
  }
  virtual void SetText(LPCTSTR) {} // buttons show images only
};

} // namespace

// The control's standard sizes: 16 by 15 images on 23 by 22 buttons.
CToolBar::CToolBar()
    : m_sizeButton(23, 22), m_sizeImage(16, 15), m_hbmImageWell(NULL), m_nFlyByID(0) {
  m_cxLeftBorder = m_cxRightBorder = 4;
  m_cyTopBorder = m_cyBottomBorder = 2;
}

CToolBar::~CToolBar() {
  DestroyWindow();
  if (m_hbmImageWell != NULL) ::DeleteObject(m_hbmImageWell);
}

BOOL CToolBar::Create(CWnd* pParentWnd, DWORD dwStyle, UINT nID) {
  return CreateEx(pParentWnd, 0, dwStyle,
                  CRect(m_cxLeftBorder, m_cyTopBorder, m_cxRightBorder, m_cyBottomBorder), nID);
}

BOOL CToolBar::CreateEx(CWnd* pParentWnd, DWORD dwCtrlStyle, DWORD dwStyle, CRect rcBorders,
                        UINT nID) {
  if (pParentWnd == NULL || pParentWnd->m_hWnd == NULL) return FALSE;
  AfxInitBarClasses();
  m_dwStyle = dwStyle & CBRS_ALL;
  SetBorders(rcBorders);
  // The bar places and sizes the control itself.
  dwStyle = (dwStyle & ~CBRS_ALL) | dwCtrlStyle | CCS_NOPARENTALIGN | CCS_NOMOVEY | CCS_NODIVIDER |
            CCS_NORESIZE;
  if (m_dwStyle & CBRS_TOOLTIPS) dwStyle |= TBSTYLE_TOOLTIPS;
  if (!CWnd::Create(TOOLBARCLASSNAME, NULL, dwStyle, CRect(0, 0, 0, 0), pParentWnd, nID))
    return FALSE;
  DefWindowProc(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  SetSizes(m_sizeButton, m_sizeImage);
  return TRUE;
}

// ---- Sizes and images ---------------------------------------------------------------

void CToolBar::SetSizes(SIZE sizeButton, SIZE sizeImage) {
  if (sizeImage.cx <= 0 || sizeImage.cy <= 0) return; // no image size: nothing to lay out
  // Too small a button is widened to hold its image.
  if (sizeButton.cx < sizeImage.cx + kMinButtonMarginX)
    sizeButton.cx = sizeImage.cx + kMinButtonMarginX;
  if (sizeButton.cy < sizeImage.cy + kMinButtonMarginY)
    sizeButton.cy = sizeImage.cy + kMinButtonMarginY;
  m_sizeButton = sizeButton;
  m_sizeImage = sizeImage;
  if (m_hWnd == NULL) return;
  DefWindowProc(TB_SETBITMAPSIZE, 0, MAKELPARAM(sizeImage.cx, sizeImage.cy));
  DefWindowProc(TB_SETBUTTONSIZE, 0, MAKELPARAM(sizeButton.cx, sizeButton.cy));
  Invalidate();
}

void CToolBar::SetHeight(int cyHeight) {
  // The margins share what the buttons leave, the larger one on top.
  int cyButtons = m_sizeButton.cy + GetControlMargin().cy;
  m_cyBottomBorder = (cyHeight - cyButtons) / 2;
  m_cyTopBorder = cyHeight - cyButtons - m_cyBottomBorder;
  if (m_cyTopBorder < 0 || m_cyBottomBorder < 0) m_cyTopBorder = m_cyBottomBorder = 0;
  SetBorders(m_cxLeftBorder, m_cyTopBorder, m_cxRightBorder, m_cyBottomBorder);
}

BOOL CToolBar::LoadBitmap(LPCTSTR lpszResourceName) {
  HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, RT_BITMAP);
  HRSRC hRsrc = ::FindResource(hInst, lpszResourceName, RT_BITMAP);
  if (hRsrc == NULL) return FALSE;
  HBITMAP hbm = AfxLoadSysColorBitmap(hInst, hRsrc);
  // Decided here: a bitmap without a colour table (16 bits per pixel and
  // more) has no standard greys to remap and is loaded as it is.
  if (hbm == NULL)
    hbm = (HBITMAP)::LoadImage(hInst, lpszResourceName, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
  if (hbm == NULL) return FALSE;
  if (!SetBitmap(hbm)) {
    ::DeleteObject(hbm);
    return FALSE;
  }
  return TRUE;
}

// The toolbar keeps the bitmap (the control draws from a copy of it) and
// deletes it with the bar or when another replaces it.
BOOL CToolBar::SetBitmap(HBITMAP hbmImageWell) {
  if (m_hWnd == NULL || hbmImageWell == NULL) return FALSE;
  BITMAP bm;
  if (::GetObject(hbmImageWell, sizeof(bm), &bm) == 0) return FALSE;
  int nImages = bm.bmWidth / m_sizeImage.cx;
  if (m_hbmImageWell != NULL) {
    TBREPLACEBITMAP rb;
    rb.hInstOld = NULL;
    rb.nIDOld = (UINT_PTR)m_hbmImageWell;
    rb.hInstNew = NULL;
    rb.nIDNew = (UINT_PTR)hbmImageWell;
    rb.nButtons = nImages;
    if (!DefWindowProc(TB_REPLACEBITMAP, 0, (LPARAM)&rb)) return FALSE;
    ::DeleteObject(m_hbmImageWell);
  } else {
    TBADDBITMAP ab;
    ab.hInst = NULL;
    ab.nID = (UINT_PTR)hbmImageWell;
    if (DefWindowProc(TB_ADDBITMAP, nImages, (LPARAM)&ab) == -1) return FALSE;
  }
  m_hbmImageWell = hbmImageWell;
  Invalidate();
  return TRUE;
}

// A toolbar resource in either of its two layouts. Microsoft's resource
// compiler writes WORDs: version 1, image width, height, item count, ids.
// GNU windres writes DWORDs: width, height, count, ids, and no version. A
// resource is Microsoft's when it starts with 1 and a non-zero width (a
// windres width below 65,536 has a zero high word there). The header and
// every id must lie inside the resource; the image sides are bounded.
static BOOL ReadToolBarResource(const BYTE* pData, DWORD cbSize, CSize& sizeImage,
                                CDWordArray& ids) {
  DWORD nCount;
  const WORD* pWords = (const WORD*)pData;
  bool bMicrosoft = cbSize >= 4 * sizeof(WORD) && pWords[0] == 1 && pWords[1] != 0;
  if (bMicrosoft) {
    sizeImage = CSize(pWords[1], pWords[2]);
    nCount = pWords[3];
    if (cbSize < (4 + nCount) * sizeof(WORD)) return FALSE;
  } else {
    if (cbSize < 3 * sizeof(DWORD)) return FALSE;
    const DWORD* pDwords = (const DWORD*)pData;
    if (pDwords[0] > (DWORD)kMaxImageSide || pDwords[1] > (DWORD)kMaxImageSide) return FALSE;
    sizeImage = CSize((int)pDwords[0], (int)pDwords[1]);
    nCount = pDwords[2];
    if (nCount > cbSize / sizeof(DWORD) - 3) return FALSE;
  }
  if (sizeImage.cx <= 0 || sizeImage.cy <= 0 || sizeImage.cx > kMaxImageSide ||
      sizeImage.cy > kMaxImageSide)
    return FALSE;
  ids.SetSize(nCount);
  for (DWORD i = 0; i < nCount; i++)
    ids[i] = bMicrosoft ? pWords[4 + i] : ((const DWORD*)pData)[3 + i];
  return TRUE;
}

BOOL CToolBar::LoadToolBar(LPCTSTR lpszResourceName) {
  if (m_hWnd == NULL) return FALSE;
  HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, RT_TOOLBAR);
  HRSRC hRsrc = ::FindResource(hInst, lpszResourceName, RT_TOOLBAR);
  if (hRsrc == NULL) return FALSE;
  HGLOBAL hGlobal = ::LoadResource(hInst, hRsrc);
  DWORD cbSize = ::SizeofResource(hInst, hRsrc);
  const BYTE* pData = hGlobal != NULL ? (const BYTE*)::LockResource(hGlobal) : NULL;
  CSize sizeImage;
  CDWordArray ids;
  if (pData == NULL || !ReadToolBarResource(pData, cbSize, sizeImage, ids)) return FALSE;
  // UINT and DWORD are the same 32 bits.
  if (!SetButtons(ids.GetSize() > 0 ? (const UINT*)ids.GetData() : NULL, (int)ids.GetSize()))
    return FALSE;
  // Buttons are seven pixels wider and higher than their images.
  SetSizes(CSize(sizeImage.cx + 7, sizeImage.cy + 7), sizeImage);
  return LoadBitmap(lpszResourceName);
}

// ---- Buttons ---------------------------------------------------------------------------

BOOL CToolBar::SetButtons(const UINT* lpIDArray, int nIDCount) {
  if (m_hWnd == NULL || nIDCount < 0 || nIDCount > 0xFFFF) return FALSE;
  TBBUTTON* pButtons = NULL;
  if (nIDCount > 0) {
    pButtons = new (std::nothrow) TBBUTTON[nIDCount];
    if (pButtons == NULL) AfxThrowMemoryException();
    memset(pButtons, 0, nIDCount * sizeof(TBBUTTON));
  }
  // Images go to the buttons in order, skipping separators.
  int iImage = 0;
  for (int i = 0; i < nIDCount; i++) {
    TBBUTTON& button = pButtons[i];
    button.idCommand = lpIDArray != NULL ? (int)lpIDArray[i] : 0;
    // Separators too are enabled: their style reads TBBS_SEPARATOR alone.
    button.fsState = TBSTATE_ENABLED;
    if (button.idCommand == ID_SEPARATOR) {
      button.fsStyle = TBSTYLE_SEP;
      button.iBitmap = kSeparatorWidth;
    } else {
      button.fsStyle = TBSTYLE_BUTTON;
      button.iBitmap = iImage++;
    }
  }
  for (int n = (int)DefWindowProc(TB_BUTTONCOUNT, 0, 0); n > 0; n--)
    DefWindowProc(TB_DELETEBUTTON, n - 1, 0);
  BOOL bResult = nIDCount == 0 || DefWindowProc(TB_ADDBUTTONS, nIDCount, (LPARAM)pButtons) != 0;
  delete[] pButtons;
  m_nCount = (int)DefWindowProc(TB_BUTTONCOUNT, 0, 0);
  return bResult;
}

BOOL CToolBar::GetButtonRaw(int nIndex, TBBUTTON* pButton) const {
  if (nIndex < 0 || nIndex >= m_nCount || m_hWnd == NULL) AfxThrowInvalidArgException();
  memset(pButton, 0, sizeof(TBBUTTON));
  CToolBar* pThis = const_cast<CToolBar*>(this);
  if (!pThis->DefWindowProc(TB_GETBUTTON, nIndex, (LPARAM)pButton)) return FALSE;
  pButton->fsState ^= TBSTATE_ENABLED; // TBBS_DISABLED is the enabled bit inverted
  return TRUE;
}

void CToolBar::SetButtonRaw(int nIndex, const TBBUTTON* pButton) {
  TBBUTTON old;
  if (!GetButtonRaw(nIndex, &old)) return;
  TBBUTTON button = *pButton;
  button.fsState ^= TBSTATE_ENABLED;
  old.fsState ^= TBSTATE_ENABLED;
  if (old.idCommand == button.idCommand && old.fsStyle == button.fsStyle &&
      old.fsState == button.fsState && old.iBitmap == button.iBitmap)
    return; // unchanged: no repaint
  BOOL bSeparator = (button.fsStyle & TBSTYLE_SEP) != 0;
  if (old.fsStyle == button.fsStyle && (!bSeparator || old.iBitmap == button.iBitmap)) {
    // Same kind of button: change it in place, found by its index.
    TBBUTTONINFO info;
    memset(&info, 0, sizeof(info));
    info.cbSize = sizeof(info);
    info.dwMask = TBIF_BYINDEX | TBIF_COMMAND | TBIF_STATE | (bSeparator ? 0 : TBIF_IMAGE);
    info.idCommand = button.idCommand;
    info.iImage = button.iBitmap;
    info.fsState = button.fsState;
    if (DefWindowProc(TB_SETBUTTONINFO, nIndex, (LPARAM)&info)) return;
  }
  // Another kind of button (or a separator's width): the button is replaced.
  SetRedraw(FALSE);
  DefWindowProc(TB_DELETEBUTTON, nIndex, 0);
  DefWindowProc(TB_INSERTBUTTON, nIndex, (LPARAM)&button);
  SetRedraw(TRUE);
  Invalidate();
}

int CToolBar::CommandToIndex(UINT nIDFind) const {
  if (m_hWnd == NULL) return -1;
  return (int)const_cast<CToolBar*>(this)->DefWindowProc(TB_COMMANDTOINDEX, nIDFind, 0);
}

UINT CToolBar::GetItemID(int nIndex) const {
  TBBUTTON button;
  if (!GetButtonRaw(nIndex, &button)) return 0;
  return (UINT)button.idCommand;
}

void CToolBar::GetItemRect(int nIndex, LPRECT lpRect) const {
  if (nIndex < 0 || nIndex >= m_nCount || m_hWnd == NULL) AfxThrowInvalidArgException();
  if (lpRect == NULL) return;
  if (!const_cast<CToolBar*>(this)->DefWindowProc(TB_GETITEMRECT, nIndex, (LPARAM)lpRect))
    ::SetRectEmpty(lpRect);
}

UINT CToolBar::GetButtonStyle(int nIndex) const {
  TBBUTTON button;
  if (!GetButtonRaw(nIndex, &button)) return 0;
  return MAKELONG(button.fsStyle, button.fsState);
}

void CToolBar::SetButtonStyle(int nIndex, UINT nStyle) {
  TBBUTTON button;
  if (!GetButtonRaw(nIndex, &button)) return;
  button.fsStyle = (BYTE)LOWORD(nStyle);
  button.fsState = (BYTE)HIWORD(nStyle);
  SetButtonRaw(nIndex, &button);
}

void CToolBar::GetButtonInfo(int nIndex, UINT& nID, UINT& nStyle, int& iImage) const {
  TBBUTTON button;
  if (!GetButtonRaw(nIndex, &button)) {
    nID = nStyle = 0;
    iImage = 0;
    return;
  }
  nID = (UINT)button.idCommand;
  nStyle = MAKELONG(button.fsStyle, button.fsState);
  iImage = button.iBitmap;
}

void CToolBar::SetButtonInfo(int nIndex, UINT nID, UINT nStyle, int iImage) {
  TBBUTTON button;
  if (!GetButtonRaw(nIndex, &button)) return;
  button.idCommand = (int)nID;
  button.fsStyle = (BYTE)LOWORD(nStyle);
  button.fsState = (BYTE)HIWORD(nStyle);
  button.iBitmap = iImage;
  SetButtonRaw(nIndex, &button);
}

// ---- Layout and updates -----------------------------------------------------------------

CSize CToolBar::CalcSize(BOOL bHorz) const {
  // One row (or column) of every visible button; a separator takes its width.
  int nLength = 0;
  for (int i = 0; i < m_nCount; i++) {
    TBBUTTON button;
    if (!GetButtonRaw(i, &button) || (button.fsState & TBSTATE_HIDDEN)) continue;
    if (button.fsStyle & TBSTYLE_SEP)
      nLength += button.iBitmap;
    else
      nLength += bHorz ? m_sizeButton.cx : m_sizeButton.cy;
  }
  CSize size;
  if (bHorz)
    size = CSize(nLength, m_sizeButton.cy);
  else
    size = CSize(m_sizeButton.cx, nLength);
  size.cx += m_cxLeftBorder + m_cxRightBorder;
  size.cy += m_cyTopBorder + m_cyBottomBorder;
  return size + GetControlMargin();
}

// The control keeps a margin of its own before the first button (above the
// buttons of a raised toolbar): measured, so that no button is clipped.
CSize CToolBar::GetControlMargin() const {
  for (int i = 0; i < m_nCount && m_hWnd != NULL; i++) {
    RECT rect;
    if (!const_cast<CToolBar*>(this)->DefWindowProc(TB_GETITEMRECT, i, (LPARAM)&rect)) continue;
    if (rect.right <= rect.left) continue; // hidden
    return CSize(rect.left > 0 ? rect.left : 0, rect.top > 0 ? rect.top : 0);
  }
  return CSize(0, 0);
}

void CToolBar::WrapButtons(BOOL bHorz) {
  // A row has no breaks; a column breaks after every button but the last.
  for (int i = 0; i < m_nCount; i++) {
    TBBUTTON button;
    if (!GetButtonRaw(i, &button)) continue;
    BYTE fsState = button.fsState & ~TBSTATE_WRAP;
    if (!bHorz && i < m_nCount - 1) fsState |= TBSTATE_WRAP;
    if (fsState == button.fsState) continue;
    button.fsState = fsState;
    SetButtonRaw(i, &button);
  }
}

CSize CToolBar::CalcFixedLayout(BOOL bStretch, BOOL bHorz) {
  // The control lays the buttons out as the bar's edge wants them.
  if (m_hWnd != NULL) WrapButtons(bHorz);
  CSize size = CalcSize(bHorz);
  if (bStretch) {
    if (bHorz)
      size.cx = 32767;
    else
      size.cy = 32767;
  }
  return size;
}

void CToolBar::OnUpdateCmdUI(CFrameWnd* pTarget, BOOL bDisableIfNoHndler) {
  CToolCmdUI state;
  state.m_pOther = this;
  state.m_nIndexMax = (UINT)m_nCount;
  for (int i = 0; i < m_nCount; i++) {
    TBBUTTON button;
    if (!GetButtonRaw(i, &button) || (button.fsStyle & TBSTYLE_SEP)) continue;
    state.m_nIndex = (UINT)i;
    state.m_nID = (UINT)button.idCommand;
    // The bar's own handlers first, then the target's.
    if (CWnd::OnCmdMsg(state.m_nID, CN_UPDATE_COMMAND_UI, &state, NULL)) continue;
    state.DoUpdate(reinterpret_cast<CCmdTarget*>(pTarget), bDisableIfNoHndler);
  }
  UpdateDialogControls(reinterpret_cast<CCmdTarget*>(pTarget), bDisableIfNoHndler);
}

// ---- Fly-by prompts -----------------------------------------------------------------------

void CToolBar::OnMouseMove(UINT, CPoint point) {
  Default(); // the control's hot tracking
  if (!(m_dwStyle & CBRS_FLYBY)) return;
  // The command of the button under the mouse; separators have none.
  UINT nID = 0;
  int nIndex = (int)DefWindowProc(TB_HITTEST, 0, (LPARAM)&point);
  TBBUTTON button;
  if (nIndex >= 0 && nIndex < m_nCount && GetButtonRaw(nIndex, &button) &&
      !(button.fsStyle & TBSTYLE_SEP))
    nID = (UINT)button.idCommand;
  if (nID == m_nFlyByID) return;
  CWnd* pOwner = GetOwner();
  if (nID != 0) {
    if (m_nFlyByID == 0) {
      // Told when the mouse leaves the bar, to take the prompt back.
      TRACKMOUSEEVENT tme = {sizeof(tme), TME_LEAVE, m_hWnd, 0};
      ::TrackMouseEvent(&tme);
    }
    if (pOwner != NULL) pOwner->SendMessage(WM_SETMESSAGESTRING, nID);
  } else if (pOwner != NULL) {
    pOwner->SendMessage(WM_POPMESSAGESTRING, AFX_IDS_IDLEMESSAGE);
  }
  m_nFlyByID = nID;
}

LRESULT CToolBar::OnMouseLeave(WPARAM, LPARAM) {
  if (m_nFlyByID != 0) {
    m_nFlyByID = 0;
    CWnd* pOwner = GetOwner();
    if (pOwner != NULL) pOwner->SendMessage(WM_POPMESSAGESTRING, AFX_IDS_IDLEMESSAGE);
  }
  return Default();
}
