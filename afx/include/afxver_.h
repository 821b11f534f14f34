// afxver_.h - build settings shared by every afx header: the Windows headers,
// the export macros and the diagnostic macros.
#ifndef AFXVER__H
#define AFXVER__H

#ifndef _MBCS
#define _MBCS
#endif
// MFC code uses min and max as windows.h's macros. Microsoft's windows.h
// defines them for C++ too, mingw-w64's only for C: afx defines them, unless
// the application defines NOMINMAX (afx's own headers use neither). Asked
// before windows.h, as the C++ library's configuration defines NOMINMAX
// itself. The C++ library's headers that declare functions of those names are
// read first, so that including them later does not meet the macros; as with
// Microsoft's headers, code then calls (std::numeric_limits<T>::max)().
#ifndef NOMINMAX
#define _AFX_MIN_MAX_MACROS
#endif
#include <windows.h>
#ifdef _AFX_MIN_MAX_MACROS
#ifdef __cplusplus
#include <algorithm>
#include <functional>
#include <limits>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <valarray>
#include <vector>
#endif
#ifndef max
#define max(a, b) (((a) > (b)) ? (a) : (b))
#endif
#ifndef min
#define min(a, b) (((a) < (b)) ? (a) : (b))
#endif
#endif
#include <tchar.h>
#include <mbstring.h>
#include <stddef.h>
#include <stdarg.h>
#include <string.h>
#include <stdlib.h>
#include <new>

// afx.dll exports its classes and functions; everyone else imports them.
#ifdef _AFX_BUILD
#define AFX_API __declspec(dllexport)
#else
#define AFX_API __declspec(dllimport)
#endif
// Classes of an MFC extension module (hosts define their own export macro).
#define AFX_EXT_CLASS __declspec(dllimport)
#define AFX_EXT_API __declspec(dllimport)
#define AFX_EXT_DATA __declspec(dllimport)

#define AFXAPI __stdcall
#define AFX_CDECL __cdecl
#define AFX_INLINE inline
#define AFX_STATIC static
#define AFX_STATIC_DATA static
#define AFX_COMDAT
#define AFX_NOVTABLE
#define AFX_DATA
#define AFX_CORE_DATA
#define AFXWIN_INLINE inline

// MFC's diagnostics: assertions and trace compile away in a release build;
// VERIFY still evaluates its argument.
#ifdef _DEBUG
#define ASSERT(f) ((void)((f) || (AfxAssertFailedLine(__FILE__, __LINE__), 0)))
#define VERIFY(f) ASSERT(f)
#else
#define ASSERT(f) ((void)0)
#define VERIFY(f) ((void)(f))
#endif
#define ASSERT_VALID(pOb) ((void)0)
#define ASSERT_KINDOF(class_name, object) ASSERT((object)->IsKindOf(RUNTIME_CLASS(class_name)))
#define ASSERT_POINTER(p, type) ASSERT((p) != NULL)
#define ASSERT_NULL_OR_POINTER(p, type) ((void)0)
#define TRACE(...) ((void)0)
#define TRACE0(sz) ((void)0)
#define TRACE1(sz, p1) ((void)0)
#define TRACE2(sz, p1, p2) ((void)0)
#define TRACE3(sz, p1, p2, p3) ((void)0)
#define DEBUG_ONLY(f) ((void)0)
#define UNUSED(x) (void)(x)
#define UNUSED_ALWAYS(x) (void)(x)
#define DEBUG_NEW new
// A 16-bit code-segment qualifier; Win32 has one flat address space.
#define BASED_CODE
#define THIS_FILE __FILE__

#ifndef _countof
#define _countof(array) (sizeof(array) / sizeof(array[0]))
#endif

// Iteration position of the collection classes.
struct __POSITION {};
typedef __POSITION* POSITION;
#define BEFORE_START_POSITION ((POSITION)-1L)

void AFX_API AFXAPI AfxAssertFailedLine(LPCSTR lpszFileName, int nLine);

#endif // AFXVER__H
