// afxprint_.h: CPrintInfo, the framework's record of a print job; included
// by afxext.h.
#ifndef AFXPRINT__H
#define AFXPRINT__H

#include "afxwin.h"

#endif // AFXPRINT__H
