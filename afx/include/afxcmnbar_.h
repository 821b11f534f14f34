// afxcmnbar_.h: the status bar and toolbar common controls (CStatusBarCtrl,
// CToolBarCtrl); included by afxcmn.h.
#ifndef AFXCMNBAR__H
#define AFXCMNBAR__H

#endif // AFXCMNBAR__H
