// VCoolMenuManager: the images of the host's toolbars, one image list for
// all of them, and the command of each button.
#include "vrk_coolmenu.h"

#include "vrk_coolmenu_priv.h"

namespace {

// A toolbar resource read in either of its two layouts:
// - the Visual C++ resource compiler's: WORD version (1), WORD width,
//   height and item count, then one WORD id per item;
// - GNU windres's, for a TOOLBAR statement: DWORD width, height and item
//   count, then one DWORD id per item; no version.
// They differ in the first word: 1 with a non-zero second word is the
// former (the latter would need a width of 1 with a zero high word after
// it, which is no width of a button image at all).
struct ToolbarInfo {
  CSize sizeButton;
  CUIntArray arIDs;
};

// FALSE for a resource too short for its header or for the ids it counts.
BOOL ReadToolbar(const BYTE* p, DWORD cb, ToolbarInfo& info) {
  const WORD* pw = (const WORD*)p;
  if (cb >= 8 && pw[0] == 1 && pw[1] != 0) {
    DWORD nCount = pw[3];
    if (cb < 8 + 2 * nCount) return FALSE;
    info.sizeButton = CSize(pw[1], pw[2]);
    info.arIDs.SetSize(nCount);
    for (DWORD i = 0; i < nCount; i++)
      info.arIDs[i] = pw[4 + i];
    return TRUE;
  }
  if (cb < 12) return FALSE;
  const DWORD* pd = (const DWORD*)p;
  DWORD nCount = pd[2];
  if (nCount > (cb - 12) / 4) return FALSE;
  info.sizeButton = CSize((int)pd[0], (int)pd[1]);
  info.arIDs.SetSize(nCount);
  for (DWORD i = 0; i < nCount; i++)
    info.arIDs[i] = pd[3 + i];
  return TRUE;
}

// The toolbar resource nID of the resource chain.
BOOL LoadToolbarResource(UINT nID, ToolbarInfo& info) {
  LPCTSTR lpszName = MAKEINTRESOURCE(nID);
  HINSTANCE hInst = AfxFindResourceHandle(lpszName, RT_TOOLBAR);
  HRSRC hRsrc = ::FindResource(hInst, lpszName, RT_TOOLBAR);
  if (hRsrc == NULL) return FALSE;
  HGLOBAL hGlobal = ::LoadResource(hInst, hRsrc);
  const BYTE* p = hGlobal != NULL ? (const BYTE*)::LockResource(hGlobal) : NULL;
  if (p == NULL) return FALSE;
  if (!ReadToolbar(p, ::SizeofResource(hInst, hRsrc), info)) return FALSE;
  return info.sizeButton.cx > 0 && info.sizeButton.cy > 0;
}

} // namespace

BOOL VCoolMenuManager::LoadToolbar(UINT nIDToolbar) {
  LPCTSTR lpszName = MAKEINTRESOURCE(nIDToolbar);
  HINSTANCE hInst = AfxFindResourceHandle(lpszName, RT_BITMAP);
  HRSRC hRsrc = ::FindResource(hInst, lpszName, RT_BITMAP);
  if (hRsrc == NULL) return FALSE;
  CBitmap bitmap;
  if (!bitmap.Attach(AfxLoadSysColorBitmap(hInst, hRsrc))) return FALSE;
  // A bitmap without a single pixel counts as one that did not load.
  BITMAP bm;
  if (bitmap.GetBitmap(&bm) == 0 || bm.bmWidth <= 0 || bm.bmHeight <= 0) return FALSE;
  ToolbarInfo info;
  if (!LoadToolbarResource(nIDToolbar, info)) return FALSE;

  if (m_sizeImage == CSize(0, 0)) {
    if (!m_imageList.Create(info.sizeButton.cx, info.sizeButton.cy, ILC_MASK, 0, 10)) return FALSE;
    m_sizeImage = info.sizeButton;
    m_sizeBox = CSize(m_sizeImage.cx + 4, m_sizeImage.cy + 4);
  } else if (info.sizeButton != m_sizeImage) {
    return FALSE; // all toolbars share one button size
  }

  int nImage = m_imageList.GetImageCount();
  m_imageList.Add(&bitmap, ::GetSysColor(COLOR_3DFACE));
  // A command that has item data already (an earlier toolbar's, or an
  // earlier button's of this one) takes no image: the buttons after it then
  // show the images one place earlier. Kept so.
  for (INT_PTR i = 0; i < info.arIDs.GetSize(); i++) {
    WORD nID = (WORD)info.arIDs[i];
    if (nID == 0 || !g_bVrkCoolMenuRegisterButtons || GetButtonInfo(nID) != NULL) continue;
    tagCoolMenuItemData* pData = new tagCoolMenuItemData;
    pData->nImage = nImage++;
    m_mapItemData.SetAt(nID, pData);
  }
  m_arToolbarIDs.Add(nIDToolbar);
  return TRUE;
}

BOOL VCoolMenuManager::LoadToolbars(const UINT* pIDs, int nCount) {
  if (nCount < 1) return TRUE;
  BOOL bResult = TRUE;
  for (int i = 0; i < nCount; i++)
    bResult |= LoadToolbar(pIDs[i]);
  return bResult; // TRUE, also when toolbars failed: kept so
}
