// VCoolMenuSubclassWnd: hooks on a window's procedure, chained per window
// through a process-wide registry (user-interface thread only, unlocked).
#include "vrk_coolmenu.h"

#include <afxstat_.h>

IMPLEMENT_DYNAMIC(VCoolMenuSubclassWnd, CObject)

namespace {

// Made on first use, destroyed at module exit.
class VRegistryHolder {
public:
  VRegistryHolder() : m_pMap(NULL) {}
  ~VRegistryHolder() { delete m_pMap; }
  VCoolMenuSubclassWndMap& Get() {
    if (m_pMap == NULL) m_pMap = new VCoolMenuSubclassWndMap;
    return *m_pMap;
  }

private:
  VCoolMenuSubclassWndMap* m_pMap;
};

VRegistryHolder g_registry;

VCoolMenuSubclassWnd* HeadHook(HWND hWnd) {
  void* p = NULL;
  return g_registry.Get().Lookup(hWnd, p) ? static_cast<VCoolMenuSubclassWnd*>(p) : NULL;
}

} // namespace

// The procedure of every hooked window.
LRESULT CALLBACK VrkPrivCoolMenuHookProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  _AFX_THREAD_STATE* pState = AfxGetThreadState();
  MSG msgSaved = pState->m_lastSentMsg;
  pState->m_lastSentMsg.hwnd = hWnd;
  pState->m_lastSentMsg.message = msg;
  pState->m_lastSentMsg.wParam = wParam;
  pState->m_lastSentMsg.lParam = lParam;

  LRESULT lResult;
  VCoolMenuSubclassWnd* pHook = HeadHook(hWnd);
  if (pHook == NULL) {
    lResult = ::DefWindowProc(hWnd, msg, wParam, lParam); // not ours (cannot happen)
  } else if (msg != WM_NCDESTROY) {
    lResult = pHook->WindowProc(msg, wParam, lParam);
  } else {
    // Every hook goes, newest first, before the window sees its last message.
    WNDPROC pfnOld = pHook->m_pfnOldWndProc;
    while ((pHook = HeadHook(hWnd)) != NULL)
      pHook->HookWindow(NULL);
    lResult = ::CallWindowProc(pfnOld, hWnd, msg, wParam, lParam);
  }
  pState->m_lastSentMsg = msgSaved;
  return lResult;
}

VCoolMenuSubclassWnd::VCoolMenuSubclassWnd()
    : m_pWndHooked(NULL), m_pfnOldWndProc(NULL), m_pNextHook(NULL) {}

VCoolMenuSubclassWnd::~VCoolMenuSubclassWnd() {}

BOOL VCoolMenuSubclassWnd::HookWindow(CWnd* pWnd) {
  if (pWnd != NULL) {
    HWND hWnd = pWnd->GetSafeHwnd();
    m_pNextHook = HeadHook(hWnd);
    g_registry.Get().SetAt(hWnd, this);
    if (m_pNextHook != NULL) {
      m_pfnOldWndProc = m_pNextHook->m_pfnOldWndProc;
    } else {
      m_pfnOldWndProc =
          (WNDPROC)::SetWindowLongPtr(hWnd, GWLP_WNDPROC, (LONG_PTR)VrkPrivCoolMenuHookProc);
    }
    m_pWndHooked = pWnd;
    return TRUE;
  }
  if (m_pWndHooked == NULL) return TRUE;
  HWND hWnd = m_pWndHooked->GetSafeHwnd();
  VCoolMenuSubclassWnd* pHead = HeadHook(hWnd);
  if (pHead == this) {
    if (m_pNextHook == NULL) {
      g_registry.Get().RemoveKey(hWnd);
      ::SetWindowLongPtr(hWnd, GWLP_WNDPROC, (LONG_PTR)m_pfnOldWndProc);
    } else {
      g_registry.Get().SetAt(hWnd, m_pNextHook);
    }
  } else {
    for (VCoolMenuSubclassWnd* p = pHead; p != NULL; p = p->m_pNextHook)
      if (p->m_pNextHook == this) {
        p->m_pNextHook = m_pNextHook;
        break;
      }
  }
  m_pWndHooked = NULL;
  m_pfnOldWndProc = NULL;
  m_pNextHook = NULL;
  return TRUE;
}

LRESULT VCoolMenuSubclassWnd::WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) {
  if (m_pNextHook != NULL) return m_pNextHook->WindowProc(msg, wParam, lParam);
  if (m_pWndHooked == NULL || m_pfnOldWndProc == NULL) return 0;
  return ::CallWindowProc(m_pfnOldWndProc, m_pWndHooked->m_hWnd, msg, wParam, lParam);
}

// Not through the virtual: an override that calls Default would recurse.
LRESULT VCoolMenuSubclassWnd::Default() {
  const MSG& msg = AfxGetThreadState()->m_lastSentMsg;
  return VCoolMenuSubclassWnd::WindowProc(msg.message, msg.wParam, msg.lParam);
}
