// afxpriv.h: the framework's private messages and layout record, public so
// that control bars and frames of other modules can take part in layout.
#ifndef __AFXPRIV_H__
#define __AFXPRIV_H__

#include "afxwin.h"

// WM_IDLEUPDATECMDUI (0x0363) and WM_KICKIDLE (0x036A) are in afxwin.h.
#define WM_SIZEPARENT 0x0361       // lParam = AFX_SIZEPARENTPARAMS*
#define WM_SETMESSAGESTRING 0x0362 // wParam = string id or 0, lParam = LPCSTR
#define WM_INITIALUPDATE 0x0364    // sent to views after a document opens
#define WM_COMMANDHELP 0x0365
#define WM_HELPHITTEST 0x0366
#define WM_EXITHELPMODE 0x0367
#define WM_RECALCPARENT 0x0368 // a bar asks its frame to lay out again
#define WM_SIZECHILD 0x0369
#define WM_QUERYCENTERWND 0x036B
#define WM_DISABLEMODAL 0x036C
#define WM_FLOATSTATUS 0x036D
#define WM_ACTIVATETOPLEVEL 0x036E
#define WM_POPMESSAGESTRING 0x0375

// What RepositionBars hands each bar with WM_SIZEPARENT: the rectangle still
// free (a bar takes its strip from it), or, when hDWP is NULL, the size so far.
struct AFX_SIZEPARENTPARAMS {
  HDWP hDWP;
  RECT rect;
  SIZE sizeTotal;
  BOOL bStretch;
};

#endif // __AFXPRIV_H__
