// afxdisp.h - automation support: the OLE date and date-span classes
// (declared in atlcomtime.h, as in MFC 9).
#ifndef AFXDISP_H
#define AFXDISP_H

#include "afxwin.h"

#include <ole2.h>
#include <oleauto.h>

#include "atlcomtime.h"

#endif // AFXDISP_H
