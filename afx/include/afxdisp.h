// afxdisp.h - automation support: the OLE date and date-span classes
// (declared in atlcomtime.h, as in MFC 9).
#ifndef __AFXDISP_H__
#define __AFXDISP_H__

#include "afxwin.h"

#include <ole2.h>
#include <oleauto.h>

#include "atlcomtime.h"

#endif // __AFXDISP_H__
