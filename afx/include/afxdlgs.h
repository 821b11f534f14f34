// afxdlgs.h: the common dialogs (CCommonDialog, CFileDialog, CPrintDialog).
#ifndef AFXDLGS_H
#define AFXDLGS_H

#include "afxwin.h"
#include <commdlg.h>

#endif // AFXDLGS_H
