// afxext.h: MFC's extension classes: control bars (CControlBar, CStatusBar,
// CToolBar) and the framework's print information (CPrintInfo).
#ifndef AFXEXT_H
#define AFXEXT_H

#include "afxwin.h"
#include "afxdlgs.h"

#include "afxbar_.h"
#include "afxprint_.h"

#endif // AFXEXT_H
