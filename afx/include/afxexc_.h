// afxexc_.h - the exception classes, the AfxThrow functions and the
// TRY/CATCH macros. Included by afx.h after afxobj_.h.
//
// Exceptions are thrown as pointers to heap objects (or, for the simple
// exceptions that must be thrown without allocating, to static objects whose
// m_bAutoDelete is FALSE). Whoever catches one calls Delete() on it.
#ifndef AFXEXC__H
#define AFXEXC__H

#include "afxver_.h"
#include "afxstr.h"
#include "afxobj_.h"

// ---- CException ------------------------------------------------------------

// The abstract root of every afx exception.
class AFX_API CException : public CObject {
  DECLARE_DYNAMIC(CException)
public:
  CException();
  explicit CException(BOOL bAutoDelete);
  virtual ~CException() = 0;

  // Deletes the object when it was made on the heap (m_bAutoDelete > 0).
  void Delete();

  // Copies the description (truncated to nMaxError - 1 characters) into
  // lpszError; FALSE when there is none.
  virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;
  // Shows the description in a message box (or the nMessageID text, or a
  // generic text when there is no description); returns the box's answer.
  virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);

  BOOL m_bAutoDelete;
};

// An exception whose description is a string resource of afx.dll, loaded on
// first use into a fixed buffer so that reporting it needs no heap.
class AFX_API CSimpleException : public CException {
  DECLARE_DYNAMIC(CSimpleException)
public:
  CSimpleException();
  explicit CSimpleException(BOOL bAutoDelete);
  virtual ~CSimpleException();

  void InitString();
  virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;

protected:
  BOOL m_bInitialized;
  BOOL m_bLoaded;
  TCHAR m_szMessage[128];
  UINT m_nResourceID;
};

// The default constructors of the simple exceptions give each its own
// standard text (AFX_IDS_*_EXCEPTION).
class AFX_API CMemoryException : public CSimpleException {
  DECLARE_DYNAMIC(CMemoryException)
public:
  CMemoryException();
  explicit CMemoryException(BOOL bAutoDelete);
  CMemoryException(BOOL bAutoDelete, UINT nResourceID);
  virtual ~CMemoryException();
};

class AFX_API CNotSupportedException : public CSimpleException {
  DECLARE_DYNAMIC(CNotSupportedException)
public:
  CNotSupportedException();
  explicit CNotSupportedException(BOOL bAutoDelete);
  CNotSupportedException(BOOL bAutoDelete, UINT nResourceID);
  virtual ~CNotSupportedException();
};

class AFX_API CInvalidArgException : public CSimpleException {
  DECLARE_DYNAMIC(CInvalidArgException)
public:
  CInvalidArgException();
  explicit CInvalidArgException(BOOL bAutoDelete);
  CInvalidArgException(BOOL bAutoDelete, UINT nResourceID);
  virtual ~CInvalidArgException();
};

class AFX_API CResourceException : public CSimpleException {
  DECLARE_DYNAMIC(CResourceException)
public:
  CResourceException();
  explicit CResourceException(BOOL bAutoDelete);
  CResourceException(BOOL bAutoDelete, UINT nResourceID);
  virtual ~CResourceException();
};

class AFX_API CUserException : public CSimpleException {
  DECLARE_DYNAMIC(CUserException)
public:
  CUserException();
  explicit CUserException(BOOL bAutoDelete);
  CUserException(BOOL bAutoDelete, UINT nResourceID);
  virtual ~CUserException();
};

// ---- CFileException --------------------------------------------------------

class AFX_API CFileException : public CException {
  DECLARE_DYNAMIC(CFileException)
public:
  enum {
    none,
    genericException,
    fileNotFound,
    badPath,
    tooManyOpenFiles,
    accessDenied,
    invalidFile,
    removeCurrentDir,
    directoryFull,
    badSeek,
    hardIO,
    sharingViolation,
    lockViolation,
    diskFull,
    endOfFile
  };

  CFileException(int cause = CFileException::none, LONG lOsError = -1,
                 LPCTSTR lpszArchiveName = NULL);
  virtual ~CFileException();

  int m_cause;
  LONG m_lOsError;
  CString m_strFileName;

  // Cause codes for Win32 error codes and for C run-time errno values.
  static int PASCAL OsErrorToException(LONG lOsError);
  static int PASCAL ErrnoToException(int nErrno);
  // Throw a CFileException unless the error code is 0.
  static void PASCAL ThrowOsError(LONG lOsError, LPCTSTR lpszFileName = NULL);
  static void PASCAL ThrowErrno(int nErrno, LPCTSTR lpszFileName = NULL);

  // The cause's text with the file name (or "an unnamed file") for %1.
  virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;
};

// ---- CArchiveException -----------------------------------------------------

class AFX_API CArchiveException : public CException {
  DECLARE_DYNAMIC(CArchiveException)
public:
  enum {
    none,
    genericException,
    readOnly,
    endOfFile,
    writeOnly,
    badIndex,
    badClass,
    badSchema,
    bufferFull
  };

  CArchiveException(int cause = CArchiveException::none, LPCTSTR lpszArchiveName = NULL);
  virtual ~CArchiveException();

  int m_cause;
  CString m_strFileName;

  virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;
};

// ---- Throwing --------------------------------------------------------------

__declspec(noreturn) AFX_API void AFXAPI AfxThrowMemoryException();
__declspec(noreturn) AFX_API void AFXAPI AfxThrowNotSupportedException();
__declspec(noreturn) AFX_API void AFXAPI AfxThrowInvalidArgException();
__declspec(noreturn) AFX_API void AFXAPI AfxThrowResourceException();
__declspec(noreturn) AFX_API void AFXAPI AfxThrowUserException();
__declspec(noreturn) AFX_API void AFXAPI
    AfxThrowFileException(int cause, LONG lOsError = -1, LPCTSTR lpszFileName = NULL);
__declspec(noreturn) AFX_API void AFXAPI
    AfxThrowArchiveException(int cause, LPCTSTR lpszArchiveName = NULL);

// Checks an argument or state: asserts in a debug build and, in every build,
// throws CInvalidArgException when the condition is false.
#define ENSURE_THROW(cond, exception)                                                              \
  do {                                                                                             \
    int _afx_ensured = !!(cond);                                                                   \
    ASSERT(_afx_ensured);                                                                          \
    if (!_afx_ensured) exception;                                                                  \
  } while (0)
#define ENSURE(cond) ENSURE_THROW(cond, ::AfxThrowInvalidArgException())
#define ENSURE_ARG(cond) ENSURE(cond)
// Throws when the pointer is NULL.
#define ENSURE_VALID(pOb) ENSURE((pOb) != NULL)

// ---- TRY / CATCH -----------------------------------------------------------

// One per TRY block, chained per thread: when the block is left, the caught
// exception is deleted unless THROW_LAST passed it on.
class AFX_API AFX_EXCEPTION_LINK {
public:
  AFX_EXCEPTION_LINK();
  ~AFX_EXCEPTION_LINK();

  AFX_EXCEPTION_LINK* m_pLinkPrev;
  CException* m_pException;

private:
  AFX_EXCEPTION_LINK(const AFX_EXCEPTION_LINK&);
  void operator=(const AFX_EXCEPTION_LINK&);
};

// Keeps the innermost TRY block from deleting the exception being re-thrown.
AFX_API void AFXAPI AfxThrowLastCleanup();

#define TRY                                                                                        \
  {                                                                                                \
    AFX_EXCEPTION_LINK _afxExceptionLink;                                                          \
    try {

#define CATCH(class, e)                                                                            \
  }                                                                                                \
  catch (class * e) {                                                                              \
    ASSERT(e->IsKindOf(RUNTIME_CLASS(class)));                                                     \
    _afxExceptionLink.m_pException = e;

#define AND_CATCH(class, e)                                                                        \
  }                                                                                                \
  catch (class * e) {                                                                              \
    ASSERT(e->IsKindOf(RUNTIME_CLASS(class)));                                                     \
    _afxExceptionLink.m_pException = e;

#define END_CATCH                                                                                  \
  }                                                                                                \
  }

#define CATCH_ALL(e)                                                                               \
  }                                                                                                \
  catch (CException * e) {                                                                         \
    {                                                                                              \
      ASSERT(e->IsKindOf(RUNTIME_CLASS(CException)));                                              \
      _afxExceptionLink.m_pException = e;

#define AND_CATCH_ALL(e)                                                                           \
  }                                                                                                \
  catch (CException * e) {                                                                         \
    {                                                                                              \
      ASSERT(e->IsKindOf(RUNTIME_CLASS(CException)));                                              \
      _afxExceptionLink.m_pException = e;

#define END_CATCH_ALL                                                                              \
  }                                                                                                \
  }                                                                                                \
  }

#define END_TRY                                                                                    \
  }                                                                                                \
  catch (CException * e) {                                                                         \
    ASSERT(e->IsKindOf(RUNTIME_CLASS(CException)));                                                \
    _afxExceptionLink.m_pException = e;                                                            \
  }                                                                                                \
  }

#define THROW(e) throw e
#define THROW_LAST() (AfxThrowLastCleanup(), throw)

#define DELETE_EXCEPTION(e)                                                                        \
  do {                                                                                             \
    if ((e) != NULL) (e)->Delete();                                                                \
  } while (0)

#endif // AFXEXC__H
