// afx.h - the core of the MFC-compatible runtime: objects and run-time
// classes, strings, exceptions, files and archives.
#ifndef __AFX_H__
#define __AFX_H__

#include "afxver_.h"

class CObject;
class CRuntimeClass;
class CArchive;
class CDumpContext;
class CFile;
class CString;

#include "afxstr.h"
#include "afxobj_.h"
#include "afxexc_.h"
#include "afxfile_.h"
#include "afxarc_.h"

#endif // __AFX_H__
