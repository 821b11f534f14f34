// Private helpers shared by the frame, view and document sources.
#ifndef AFX_FRAME_IMPL_H
#define AFX_FRAME_IMPL_H

#include <afxwin.h>

// The class of frames and views created with no class name
// (AFX_WNDFRAMEORVIEW): double clicks, arrow cursor, window background.
LPCTSTR AfxFrameOrViewClass();

// The window class for a frame loaded from nIDResource: the one the frame's
// PreCreateWindow names, else the frame class with the resource's icon, else
// NULL (the default class). The name lives in a per-thread buffer.
LPCTSTR AfxIconWndClass(CFrameWnd* pFrame, DWORD dwDefaultStyle, UINT nIDResource);

// Sets the window's text only when it differs (no flicker, no needless
// WM_SETTEXT to a status bar or caption).
void AfxSetWindowTextIfChanged(HWND hWnd, LPCTSTR lpszNew);

// The file name part of a path (after the last '\\', '/' or ':').
CString AfxFileNameOfPath(LPCTSTR lpszPathName);

#endif // AFX_FRAME_IMPL_H
