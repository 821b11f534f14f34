// VCoolMenuManager: hooking the frame, converting popups to owner-drawn
// items as they open, keyboard mnemonics of owner-drawn items, and the
// radio dot.
#include "vrk_coolmenu.h"

#include <mbstring.h>

#include "vrk_coolmenu_priv.h"

namespace {

// Item i's information with its text in szText (kCoolMenuTextMax bytes);
// longer texts are cut to the buffer by the system.
BOOL GetItemWithText(CMenu* pMenu, int i, UINT fMask, MENUITEMINFO& mii, char* szText) {
  szText[0] = 0;
  memset(&mii, 0, sizeof(mii));
  mii.cbSize = sizeof(mii);
  mii.fMask = fMask | MIIM_TYPE;
  mii.dwTypeData = szText;
  mii.cch = kCoolMenuTextMax;
  if (!pMenu->GetMenuItemInfo(i, &mii, TRUE)) return FALSE;
  szText[kCoolMenuTextMax - 1] = 0;
  return TRUE;
}

} // namespace

IMPLEMENT_DYNAMIC(VCoolMenuManager, VCoolMenuSubclassWnd)

int VCoolMenuManager::bTRACE = 0;

// Shared by every manager. While the registration flag is 0 (a refresh
// after a colour change), loading toolbars adds images but no commands. The
// context-menu flag tells a tracked popup's menu loop from the menu bar's.
int g_bVrkCoolMenuRegisterButtons = 1;
int g_bVrkCoolMenuContext = 0;

VCoolMenuManager::VCoolMenuManager()
    : m_bShowImages(TRUE), m_bAccelFromFrame(TRUE), m_bDisabledByDrawState(FALSE),
      m_bColourEmboss(FALSE), m_pFrameWnd(NULL), m_mapItemData(10), m_mapAccel(10),
      m_hCurrentAccel(NULL), m_pAccelTable(NULL), m_listPendingMenus(10), m_sizeImage(0, 0),
      m_sizeBox(0, 0), m_nAccelCount(0), m_cyMenu(0), m_cxMenuCheck(0) {
  FixMFCDotBitmap();
}

VCoolMenuManager::~VCoolMenuManager() {
  Destroy();
  POSITION pos = m_mapItemData.GetStartPosition();
  while (pos != NULL) {
    WORD nID;
    void* p;
    m_mapItemData.GetNextAssoc(pos, nID, p);
    delete static_cast<tagCoolMenuItemData*>(p);
  }
  m_mapItemData.RemoveAll();
}

void VCoolMenuManager::Install(CFrameWnd* pFrame) {
  m_pFrameWnd = pFrame;
  HookWindow(pFrame);
}

void VCoolMenuManager::Destroy() {
  m_imageList.DeleteImageList();
  m_sizeImage = CSize(0, 0);
  m_sizeBox = CSize(0, 0);
  m_arToolbarIDs.RemoveAll();
  m_fontMenu.DeleteObject();
  DestroyAccel();
}

// The image indices come back the same: the commands' item data survive
// Destroy, and the registration flag is 0 during a colour change's refresh.
void VCoolMenuManager::Refresh() {
  CUIntArray arIDs;
  arIDs.Copy(m_arToolbarIDs);
  Destroy();
  for (INT_PTR i = 0; i < arIDs.GetSize(); i++)
    LoadToolbar(arIDs[i]);
}

tagCoolMenuItemData* VCoolMenuManager::GetButtonInfo(WORD nID) {
  void* p = NULL;
  return m_mapItemData.Lookup(nID, p) ? static_cast<tagCoolMenuItemData*>(p) : NULL;
}

tagCoolMenuItemData* VCoolMenuManager::ItemData(WORD nID) {
  tagCoolMenuItemData* pData = GetButtonInfo(nID);
  if (pData == NULL) {
    pData = new tagCoolMenuItemData;
    pData->nImage = -1;
    m_mapItemData.SetAt(nID, pData);
  }
  return pData;
}

CFont* VCoolMenuManager::GetMenuFont() {
  if (m_fontMenu.m_hObject != NULL) return &m_fontMenu;
  m_cyMenu = ::GetSystemMetrics(SM_CYMENU);
  m_cxMenuCheck = ::GetSystemMetrics(SM_CXMENUCHECK);
  // The size of the structure as it was before Vista added a field, which
  // every version of the system accepts.
  NONCLIENTMETRICSA ncm;
  memset(&ncm, 0, sizeof(ncm));
  ncm.cbSize = 340;
  if (::SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, 340, &ncm, 0))
    m_fontMenu.CreateFontIndirect(&ncm.lfMenuFont);
  return &m_fontMenu;
}

LRESULT VCoolMenuManager::WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) {
  switch (msg) {
  case WM_INITMENUPOPUP:
    VCoolMenuSubclassWnd::WindowProc(msg, wParam, lParam);
    if (HIWORD(lParam) == 0)
      OnInitMenuPopup(CMenu::FromHandle((HMENU)wParam), LOWORD(lParam), HIWORD(lParam));
    return 0;
  case WM_SYSCOLORCHANGE:
  case WM_SETTINGCHANGE:
    g_bVrkCoolMenuRegisterButtons = 0;
    Refresh();
    g_bVrkCoolMenuRegisterButtons = 1;
    break;
  case WM_DRAWITEM:
    if (OnDrawItem((DRAWITEMSTRUCT*)lParam)) return TRUE;
    break;
  case WM_MEASUREITEM:
    if (OnMeasureItem((MEASUREITEMSTRUCT*)lParam)) return TRUE;
    break;
  case WM_MENUCHAR: {
    // The character's low byte, sign-extended as a char.
    UINT nChar = (UINT)(int)(signed char)LOBYTE(LOWORD(wParam));
    LRESULT lResult = OnMenuChar(nChar, HIWORD(wParam), CMenu::FromHandle((HMENU)lParam));
    if (lResult != 0) return lResult;
    break;
  }
  case WM_ENTERMENULOOP:
    g_bVrkCoolMenuContext = (int)wParam;
    break;
  case WM_EXITMENULOOP:
    g_bVrkCoolMenuContext = 0;
    break;
  }
  return VCoolMenuSubclassWnd::WindowProc(msg, wParam, lParam);
}

void VCoolMenuManager::OnInitMenuPopup(CMenu* pMenu, UINT nIndex, BOOL bSysMenu) {
  if (m_bAccelFromFrame && m_pFrameWnd != NULL) {
    HACCEL hAccel = m_pFrameWnd->GetDefaultAccelerator();
    if (hAccel != m_hCurrentAccel) LoadAccel(hAccel);
  }
  ConvertMenu(pMenu, nIndex, bSysMenu, m_bShowImages);
}

void VCoolMenuManager::ConvertMenu(CMenu* pMenu, UINT, BOOL bSysMenu, BOOL bShowImages) {
  if (pMenu == NULL || pMenu->m_hMenu == NULL) return;
  int nCount = (int)pMenu->GetMenuItemCount();
  for (int i = 0; i < nCount; i++) {
    char szText[kCoolMenuTextMax];
    MENUITEMINFO mii;
    if (!GetItemWithText(pMenu, i, MIIM_ID | MIIM_SUBMENU | MIIM_DATA, mii, szText)) continue;
    if (bSysMenu || (mii.fType & MFT_SEPARATOR) || (mii.wID >= 0xF000 && mii.wID <= 0xF180))
      continue;
    tagCoolMenuItemData* pData = ItemData((WORD)mii.wID);
    if (!bShowImages) continue;
    BOOL bChanged = FALSE;
    if (!(mii.fType & MFT_OWNERDRAW)) {
      mii.fType |= MFT_OWNERDRAW;
      (g_bVrkCoolMenuContext ? pData->strContextText : pData->strText) = szText;
      bChanged = TRUE;
    }
    mii.fMask = bChanged ? MIIM_TYPE : 0;
    pMenu->SetMenuItemInfo(i, &mii, TRUE);
  }
}

void VCoolMenuManager::OnMenuSelect(UINT, UINT nFlags, HMENU hSysMenu) {
  if (nFlags != 0xFFFF || hSysMenu != NULL) return; // the menu is not closing
  while (!m_listPendingMenus.IsEmpty()) {
    HMENU hMenu = (HMENU)m_listPendingMenus.RemoveHead();
    ConvertMenu(CMenu::FromHandle(hMenu), 0, FALSE, FALSE);
  }
}

LRESULT VCoolMenuManager::OnMenuChar(UINT nChar, UINT, CMenu* pMenu) {
  if (pMenu == NULL || pMenu->m_hMenu == NULL) return 0;
  UINT nUpper = _mbctoupper(nChar);
  CUIntArray arMatches;
  int nHilite = -1;
  int nCount = (int)pMenu->GetMenuItemCount();
  for (int i = 0; i < nCount; i++) {
    char szText[kCoolMenuTextMax];
    MENUITEMINFO mii;
    if (!GetItemWithText(pMenu, i, MIIM_STATE | MIIM_ID | MIIM_DATA, mii, szText)) continue;
    tagCoolMenuItemData* pData =
        (mii.fType & MFT_OWNERDRAW) && mii.wID != 0 ? GetButtonInfo((WORD)mii.wID) : NULL;
    if (pData != NULL) {
      const CString& strText = g_bVrkCoolMenuContext ? pData->strContextText : pData->strText;
      int nAmp = strText.Find('&');
      if (nAmp >= 0 && nAmp + 1 < strText.GetLength()) {
        UINT c = _mbsnextc((const unsigned char*)(const char*)strText + nAmp + 1);
        if (_mbctoupper(c) == nUpper) arMatches.Add((UINT)i);
      }
    }
    if (mii.fState & MFS_HILITE) nHilite = i;
  }
  if (arMatches.GetSize() == 0) return 0;
  if (arMatches.GetSize() == 1) return MAKELRESULT(arMatches[0], MNC_EXECUTE);
  for (INT_PTR k = 0; k < arMatches.GetSize(); k++)
    if ((int)arMatches[k] > nHilite) return MAKELRESULT(arMatches[k], MNC_SELECT);
  return MAKELRESULT(arMatches[0], MNC_SELECT);
}

// ---- The radio dot ----------------------------------------------------------------

HBITMAP VCoolMenuManager::GetMFCDotBitmap() {
  CMenu menu;
  if (!menu.CreatePopupMenu()) return NULL;
  menu.AppendMenu(MF_STRING, 1, "");
  CCmdUI state;
  state.m_pMenu = &menu;
  state.m_nID = 1;
  state.m_nIndex = 0;
  state.m_nIndexMax = 1;
  state.SetRadio(TRUE);
  MENUITEMINFO mii;
  memset(&mii, 0, sizeof(mii));
  mii.cbSize = sizeof(mii);
  mii.fMask = MIIM_CHECKMARKS;
  menu.GetMenuItemInfo(0, &mii, TRUE);
  menu.DestroyMenu();
  return mii.hbmpChecked;
}

void VCoolMenuManager::FixMFCDotBitmap() {
  HBITMAP hbmDot = GetMFCDotBitmap();
  BITMAP bm;
  if (hbmDot == NULL || ::GetObject(hbmDot, sizeof(bm), &bm) == 0) return;
  HDC hDC = ::CreateCompatibleDC(NULL);
  if (hDC == NULL) return;
  HGDIOBJ hOldBitmap = ::SelectObject(hDC, hbmDot);
  ::PatBlt(hDC, 0, 0, bm.bmWidth, bm.bmHeight, WHITENESS);
  HGDIOBJ hOldPen = ::SelectObject(hDC, ::GetStockObject(BLACK_PEN));
  HGDIOBJ hOldBrush = ::SelectObject(hDC, ::GetStockObject(BLACK_BRUSH));
  CRect r(0, 0, bm.bmWidth, bm.bmHeight);
  r.InflateRect(2 - bm.bmWidth / 2, 2 - bm.bmHeight / 2);
  ::Ellipse(hDC, r.left, r.top, r.right, r.bottom);
  ::SelectObject(hDC, hOldBrush);
  ::SelectObject(hDC, hOldPen);
  ::SelectObject(hDC, hOldBitmap);
  ::DeleteDC(hDC);
}
