// vrk_accel.h - accelerator entries and keys as readable text ("Ctrl+Shift+S"),
// and the keyboard map: a window listing every shortcut of the application.
#ifndef VRK_ACCEL_H
#define VRK_ACCEL_H

#include "vrkdefs.h"
#include <afxwin.h>

// The number of entries of the table (0 for NULL or a bad handle).
VRK_API int VrkAccelGetCount(HACCEL hAccel);

// Appends the entry's key combination to strText: "Alt+", "Ctrl+", "Shift+"
// as flagged, in that order, then the key's name as the keyboard names it.
// The key is always read as a virtual key. Always TRUE (nothing is appended
// for a NULL entry).
VRK_API BOOL VrkAccelToText(ACCEL* pAccel, CString& strText);

// Sets strText to the key's name and returns its length. nMode tells what
// nKey is: 0 a complete key-name request (as WM_KEYDOWN's lParam), 1 a
// virtual key, 2 a scan code; any other mode names nothing.
VRK_API int VrkKeyToText(UINT nKey, CString& strText, int nMode);

// Opens a new keyboard-map window: one line per shortcut of the main frame's
// and the document templates' tables, with its command's description
// (vrk_keyboardmap.h). Needs an MDI main frame.
VRK_API void VrkAccelShowKeyboardMap();

#endif // VRK_ACCEL_H
