// Commands posted to windows.
#include "vrk_wnd.h"

BOOL VrkWndPostCommand(UINT nID, UINT nCode, HWND hWnd) {
  if (hWnd == NULL || !::IsWindow(hWnd)) return FALSE;
  return ::PostMessage(hWnd, WM_COMMAND, MAKEWPARAM(nID, nCode), 0);
}
