// vrk_wnd.h - small helpers for windows.
#ifndef VRK_WND_H
#define VRK_WND_H

#include "vrkdefs.h"
#include <afxwin.h>

// Posts WM_COMMAND (nID in the low word, nCode in the high word, no control)
// to the window; FALSE for a window that does not exist or a full queue.
VRK_API BOOL VrkWndPostCommand(UINT nID, UINT nCode, HWND hWnd);

#endif // VRK_WND_H
