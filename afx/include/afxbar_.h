// afxbar_.h: control bars (CControlBar, CStatusBar, CToolBar); included by
// afxext.h.
#ifndef AFXBAR__H
#define AFXBAR__H

#include "afxwin.h"

#endif // AFXBAR__H
