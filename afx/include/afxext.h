// afxext.h: MFC's extension classes: control bars (CControlBar, CStatusBar,
// CToolBar) and the framework's print information (CPrintInfo).
#ifndef __AFXEXT_H__
#define __AFXEXT_H__

#include "afxwin.h"
#include "afxdlgs.h"

#include "afxbar_.h"
#include "afxprint_.h"

#endif // __AFXEXT_H__
