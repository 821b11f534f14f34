// vrk_coolmenu.h - owner-drawn menus that show the images of the host's
// toolbars: VCoolMenuManager hooks the main frame's window procedure through
// VCoolMenuSubclassWnd, a message hook of which several can be chained on one
// window, and turns every popup the frame opens (the system menu apart) into
// owner-drawn items as it opens.
//
// Typical use, in the frame's OnCreate:
//   m_menuManager.Install(this);
//   static const UINT ids[] = {IDR_MAINFRAME, IDR_TOOLS};
//   m_menuManager.LoadToolbars(ids, 2);
#ifndef VRK_COOLMENU_H
#define VRK_COOLMENU_H

#include "vrkdefs.h"

#include <afxwin.h>
#include <afxcoll.h>

// Resource type of a toolbar: the button size and the command of each
// button (0 for a separator), in the order of the images of the bitmap
// resource with the same id.
#ifndef RT_TOOLBAR
#define RT_TOOLBAR MAKEINTRESOURCE(241)
#endif

// A hook on a window's procedure. The first hook of a window replaces its
// procedure by a shared one that finds the newest hook of the window in a
// process-wide registry; each hook passes what it does not take on to the
// hook installed before it, the last one to the window's own procedure. At
// WM_NCDESTROY every hook of the window is removed and the procedure put
// back before the window sees the message. The destructor does not unhook.
class VRK_API VCoolMenuSubclassWnd : public CObject {
  DECLARE_DYNAMIC(VCoolMenuSubclassWnd)
public:
  VCoolMenuSubclassWnd();
  virtual ~VCoolMenuSubclassWnd();

  // Hooks pWnd in front of its chain; NULL unhooks from the window hooked.
  // Always TRUE.
  BOOL HookWindow(CWnd* pWnd);
  BOOL IsHooked() { return m_pWndHooked != NULL; }

  // Passes the message to the next hook, or the window's own procedure.
  virtual LRESULT WindowProc(UINT msg, WPARAM wParam, LPARAM lParam);
  // Passes on the message being handled now (the thread's current message).
  LRESULT Default();

protected:
  CWnd* m_pWndHooked;
  WNDPROC m_pfnOldWndProc; // shared by every hook of the window
  VCoolMenuSubclassWnd* m_pNextHook;

  friend LRESULT CALLBACK VrkPrivCoolMenuHookProc(HWND, UINT, WPARAM, LPARAM);
};

// The registry of hooked windows: window handle to newest hook.
class VCoolMenuSubclassWndMap : public CMapPtrToPtr {
public:
  VCoolMenuSubclassWndMap() : CMapPtrToPtr(10) {}
};

// What the manager knows about one command.
struct tagCoolMenuItemData {
  int nImage;             // in the manager's image list; -1 without a button
  CString strText;        // the item's text in a menu opened from the menu bar
  CString strContextText; // its text in a context (tracked) menu
};

// The manager derives from its hook privately: hosts use Install. Virtual
// slots: those of CObject, WindowProc, Destroy, Refresh, OnInitMenuPopup,
// OnMeasureItem, OnDrawItem, OnMenuChar, OnMenuSelect.
class VRK_API VCoolMenuManager : protected VCoolMenuSubclassWnd {
  DECLARE_DYNAMIC(VCoolMenuManager)
public:
  VCoolMenuManager();
  virtual ~VCoolMenuManager();

  void Install(CFrameWnd* pFrame);
  // The bitmap and toolbar resources with the id; every toolbar must have
  // the first one's button size. FALSE (nothing added) on failure.
  BOOL LoadToolbar(UINT nIDToolbar);
  // TRUE always, also when toolbars failed to load.
  BOOL LoadToolbars(const UINT* pIDs, int nCount);

  // Frees images, font and accelerators; keeps the commands' item data.
  virtual void Destroy();
  // Reloads the toolbars loaded so far (after a colour change).
  virtual void Refresh();

  // The radio dot that CCmdUI::SetRadio puts in menu items, and its redraw
  // as a small centred dot (done by every manager's constructor).
  static void FixMFCDotBitmap();
  static HBITMAP GetMFCDotBitmap();

  static int bTRACE; // a trace switch; nothing reads it

  using VCoolMenuSubclassWnd::IsHooked;

  BOOL m_bShowImages;          // convert popups to owner-drawn items
  BOOL m_bAccelFromFrame;      // copy the frame's accelerators at each popup
  BOOL m_bDisabledByDrawState; // disabled images by DrawState, not embossed
  BOOL m_bColourEmboss;        // emboss through a colour bitmap

protected:
  virtual LRESULT WindowProc(UINT msg, WPARAM wParam, LPARAM lParam);

  tagACCEL* GetAccel(WORD nID);
  tagCoolMenuItemData* GetButtonInfo(WORD nID);
  CFont* GetMenuFont();
  void LoadAccel(HACCEL hAccel);
  void DestroyAccel();
  void ConvertMenu(CMenu* pMenu, UINT nIndex, BOOL bSysMenu, BOOL bShowImages);
  // Replaces the text after a tab by the command's accelerators, newest
  // first: "\tCtrl+N, F5". FALSE when the command has none.
  BOOL AppendAccelName(CString& strText, UINT nID);
  void DrawMenuText(CDC& dc, CRect rc, CString strText, COLORREF colour);
  BOOL Draw3DCheckmark(CDC& dc, const CRect& rc, BOOL bSelected, HBITMAP hbmCheck);

  virtual void OnInitMenuPopup(CMenu* pMenu, UINT nIndex, BOOL bSysMenu);
  virtual BOOL OnMeasureItem(MEASUREITEMSTRUCT* pMIS);
  virtual BOOL OnDrawItem(DRAWITEMSTRUCT* pDIS);
  virtual LRESULT OnMenuChar(UINT nChar, UINT nFlags, CMenu* pMenu);
  virtual void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);

  CFrameWnd* m_pFrameWnd;
  CUIntArray m_arToolbarIDs;
  CImageList m_imageList;
  CMapWordToPtr m_mapItemData; // command -> tagCoolMenuItemData*, owned
  CMapWordToPtr m_mapAccel;    // command -> its last entry in m_pAccelTable
  HACCEL m_hCurrentAccel;      // never updated: the table is copied at each popup
  // The frame's accelerators, each entry's command replaced by the distance
  // back to the previous entry of the same command (0 for its first).
  ACCEL* m_pAccelTable;
  CPtrList m_listPendingMenus; // converted again (without images) on close
  CSize m_sizeImage;
  CSize m_sizeBox; // the image plus 4 each way
  CFont m_fontMenu;

private:
  tagCoolMenuItemData* ItemData(WORD nID);
  void DrawEmbossed(CDC& dc, int nImage, CPoint pt);
  int m_nAccelCount; // entries in m_pAccelTable
  // SM_CYMENU and SM_CXMENUCHECK, read with the menu font and forgotten
  // with it (a setting change rebuilds both): the system computes them from
  // its fonts at every call.
  int m_cyMenu;
  int m_cxMenuCheck;
};

#endif // VRK_COOLMENU_H
