// CMenu: the menu handle map, loading from the resource chain, popup
// tracking; accelerator tables.
#include <afxwin.h>
#include "handlemap.h"

IMPLEMENT_DYNCREATE(CMenu, CObject)

static void PASCAL SetMenuHandle(CObject* pObject, HANDLE h) {
  ((CMenu*)pObject)->m_hMenu = (HMENU)h;
}

static CHandleMap* MapHMENU(BOOL bCreate) {
  return AfxGetHandleMap(afxMapKindHMENU, RUNTIME_CLASS(CMenu), &SetMenuHandle, bCreate);
}

CMenu::~CMenu() { DestroyMenu(); }

CMenu* PASCAL CMenu::FromHandle(HMENU hMenu) {
  if (hMenu == NULL) return NULL;
  return (CMenu*)MapHMENU(TRUE)->FromHandle(hMenu);
}

CMenu* PASCAL CMenu::FromHandlePermanent(HMENU hMenu) {
  if (hMenu == NULL) return NULL;
  CHandleMap* pMap = MapHMENU(FALSE);
  return pMap != NULL ? (CMenu*)pMap->LookupPermanent(hMenu) : NULL;
}

void PASCAL CMenu::DeleteTempMap() {
  CHandleMap* pMap = MapHMENU(FALSE);
  if (pMap != NULL) pMap->DeleteTemp();
}

BOOL CMenu::Attach(HMENU hMenu) {
  if (hMenu == NULL || m_hMenu != NULL) return FALSE;
  CHandleMap* pMap = MapHMENU(TRUE);
  if (pMap->LookupPermanent(hMenu) != NULL) return FALSE; // owned by another object
  pMap->SetPermanent(hMenu, this);
  m_hMenu = hMenu;
  return TRUE;
}

HMENU CMenu::Detach() {
  HMENU hMenu = m_hMenu;
  if (hMenu != NULL) {
    CHandleMap* pMap = MapHMENU(FALSE);
    if (pMap != NULL && pMap->LookupPermanent(hMenu) == this) pMap->RemoveHandle(hMenu);
    m_hMenu = NULL;
  }
  return hMenu;
}

BOOL CMenu::CreateMenu() { return Attach(::CreateMenu()); }

BOOL CMenu::CreatePopupMenu() { return Attach(::CreatePopupMenu()); }

BOOL CMenu::LoadMenu(LPCTSTR lpszResourceName) {
  HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, RT_MENU);
  return Attach(::LoadMenu(hInst, lpszResourceName));
}

BOOL CMenu::LoadMenuIndirect(const void* lpMenuTemplate) {
  return Attach(::LoadMenuIndirect(lpMenuTemplate));
}

BOOL CMenu::DestroyMenu() {
  if (m_hMenu == NULL) return FALSE;
  return ::DestroyMenu(Detach());
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const {
  // The length first, so that no text is cut short.
  int nLen = ::GetMenuString(m_hMenu, nIDItem, NULL, 0, nFlags);
  if (nLen <= 0) {
    rString.Empty();
    return 0;
  }
  ::GetMenuString(m_hMenu, nIDItem, rString.GetBufferSetLength(nLen), nLen + 1, nFlags);
  rString.ReleaseBuffer();
  return rString.GetLength();
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect) {
  return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, pWnd->GetSafeHwnd(), lpRect);
}

BOOL CMenu::TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm) {
  return ::TrackPopupMenuEx(m_hMenu, fuFlags, x, y, pWnd->GetSafeHwnd(), lptpm);
}

// Owner-drawn items are the derived class's to draw and measure.
void CMenu::DrawItem(LPDRAWITEMSTRUCT) {}
void CMenu::MeasureItem(LPMEASUREITEMSTRUCT) {}

CMenu* CWnd::GetMenu() const { return CMenu::FromHandle(::GetMenu(m_hWnd)); }

BOOL CWnd::SetMenu(CMenu* pMenu) { return ::SetMenu(m_hWnd, pMenu->GetSafeHmenu()); }

CMenu* CWnd::GetSystemMenu(BOOL bRevert) const {
  return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert));
}

HACCEL AFXAPI AfxLoadAccelerators(LPCTSTR lpszResourceName) {
  HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, RT_ACCELERATOR);
  return hInst != NULL ? ::LoadAccelerators(hInst, lpszResourceName) : NULL;
}
