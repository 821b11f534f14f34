// The exception classes, the AfxThrow functions and the TRY/CATCH chain.
#include <afx.h>
#include <afxwin.h>
#include <afxres.h>

#include <errno.h>

namespace {

// afx.dll itself: its string table holds the exceptions' texts, so they load
// without any application or resource chain set up.
HINSTANCE AfxOwnModule() {
  static HMODULE hModule = NULL;
  if (hModule == NULL) {
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCSTR>(&AfxOwnModule), &hModule);
  }
  return hModule;
}

// Copies a text into a caller's buffer, truncated, always terminated.
void CopyTruncated(LPTSTR lpszDest, UINT nMax, LPCTSTR lpszSrc) {
  if (lpszDest == NULL || nMax == 0) return;
  lstrcpynA(lpszDest, lpszSrc, (int)nMax);
}

// Replaces each "%1" in the text of nID with lpsz1 (as AfxFormatString1).
CString FormatWithName(UINT nID, const CString& strName) {
  CString strFormat;
  strFormat.LoadString(AfxOwnModule(), nID);
  CString strResult;
  int iStart = 0;
  for (int iFound; (iFound = strFormat.Find("%1", iStart)) >= 0; iStart = iFound + 2) {
    strResult.Append(strFormat.GetString() + iStart, iFound - iStart);
    strResult.Append(strName);
  }
  strResult.Append(strFormat.GetString() + iStart, strFormat.GetLength() - iStart);
  return strResult;
}

// The exception message with the file name, or "an unnamed file".
BOOL NamedMessage(UINT nID, const CString& strFileName, LPTSTR lpszError, UINT nMaxError) {
  CString strName = strFileName;
  if (strName.IsEmpty()) strName.LoadString(AfxOwnModule(), AFX_IDS_UNNAMED_FILE);
  CString strMessage = FormatWithName(nID, strName);
  CopyTruncated(lpszError, nMaxError, strMessage);
  return TRUE;
}

} // namespace

// ---- CException ------------------------------------------------------------

IMPLEMENT_DYNAMIC(CException, CObject)

CException::CException() : m_bAutoDelete(TRUE) {}

CException::CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}

CException::~CException() {}

void CException::Delete() {
  if (m_bAutoDelete > 0) delete this;
}

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const {
  if (pnHelpContext != NULL) *pnHelpContext = 0;
  if (lpszError != NULL && nMaxError != 0) *lpszError = '\0';
  return FALSE;
}

int CException::ReportError(UINT nType, UINT nMessageID) {
  TCHAR szMessage[512];
  UINT nHelpContext = 0;
  if (GetErrorMessage(szMessage, _countof(szMessage), &nHelpContext))
    return AfxMessageBox(szMessage, nType, nHelpContext);
  if (nMessageID != 0) return AfxMessageBox(nMessageID, nType, nHelpContext);
  // afx's own "no message" text, from afx.dll whatever the resource chain.
  CString strText;
  strText.LoadString(AfxOwnModule(), AFX_IDP_NO_ERROR_AVAILABLE);
  return AfxMessageBox(strText, nType, nHelpContext);
}

// ---- CSimpleException and the simple exceptions ----------------------------

IMPLEMENT_DYNAMIC(CSimpleException, CException)

CSimpleException::CSimpleException() : m_bInitialized(FALSE), m_bLoaded(FALSE), m_nResourceID(0) {
  m_szMessage[0] = '\0';
}

CSimpleException::CSimpleException(BOOL bAutoDelete)
    : CException(bAutoDelete), m_bInitialized(FALSE), m_bLoaded(FALSE), m_nResourceID(0) {
  m_szMessage[0] = '\0';
}

CSimpleException::~CSimpleException() {}

// Loads the text once; reporting a memory exception later needs no heap.
void CSimpleException::InitString() {
  m_bInitialized = TRUE;
  m_bLoaded = m_nResourceID != 0 &&
              LoadStringA(AfxOwnModule(), m_nResourceID, m_szMessage, _countof(m_szMessage)) > 0;
  if (!m_bLoaded) m_szMessage[0] = '\0';
}

BOOL CSimpleException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError,
                                       PUINT pnHelpContext) const {
  if (pnHelpContext != NULL) *pnHelpContext = 0;
  if (!m_bInitialized) const_cast<CSimpleException*>(this)->InitString();
  if (m_bLoaded) {
    CopyTruncated(lpszError, nMaxError, m_szMessage);
  } else if (lpszError != NULL && nMaxError != 0) {
    *lpszError = '\0';
  }
  return m_bLoaded;
}

#define AFX_IMPLEMENT_SIMPLE_EXCEPTION(class_name, nDefaultID)                                     \
  IMPLEMENT_DYNAMIC(class_name, CSimpleException)                                                  \
  class_name::class_name() { m_nResourceID = nDefaultID; }                                         \
  class_name::class_name(BOOL bAutoDelete) : CSimpleException(bAutoDelete) {                       \
    m_nResourceID = nDefaultID;                                                                    \
  }                                                                                                \
  class_name::class_name(BOOL bAutoDelete, UINT nResourceID) : CSimpleException(bAutoDelete) {     \
    m_nResourceID = nResourceID;                                                                   \
  }                                                                                                \
  class_name::~class_name() {}

AFX_IMPLEMENT_SIMPLE_EXCEPTION(CMemoryException, AFX_IDS_MEMORY_EXCEPTION)
AFX_IMPLEMENT_SIMPLE_EXCEPTION(CNotSupportedException, AFX_IDS_NOT_SUPPORTED_EXCEPTION)
AFX_IMPLEMENT_SIMPLE_EXCEPTION(CInvalidArgException, AFX_IDS_INVALID_ARG_EXCEPTION)
AFX_IMPLEMENT_SIMPLE_EXCEPTION(CResourceException, AFX_IDS_RESOURCE_EXCEPTION)
AFX_IMPLEMENT_SIMPLE_EXCEPTION(CUserException, AFX_IDS_USER_EXCEPTION)

// The simple exceptions are thrown as static objects that Delete() leaves
// alone, so that throwing one never needs memory.
static CMemoryException s_memoryException(FALSE, AFX_IDS_MEMORY_EXCEPTION);
static CNotSupportedException s_notSupportedException(FALSE, AFX_IDS_NOT_SUPPORTED_EXCEPTION);
static CInvalidArgException s_invalidArgException(FALSE, AFX_IDS_INVALID_ARG_EXCEPTION);
static CResourceException s_resourceException(FALSE, AFX_IDS_RESOURCE_EXCEPTION);
static CUserException s_userException(FALSE, AFX_IDS_USER_EXCEPTION);

void AFXAPI AfxThrowMemoryException() { THROW(&s_memoryException); }
void AFXAPI AfxThrowNotSupportedException() { THROW(&s_notSupportedException); }
void AFXAPI AfxThrowInvalidArgException() { THROW(&s_invalidArgException); }
void AFXAPI AfxThrowResourceException() { THROW(&s_resourceException); }
void AFXAPI AfxThrowUserException() { THROW(&s_userException); }

// ---- CFileException --------------------------------------------------------

IMPLEMENT_DYNAMIC(CFileException, CException)

CFileException::CFileException(int cause, LONG lOsError, LPCTSTR lpszArchiveName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszArchiveName) {}

CFileException::~CFileException() {}

BOOL CFileException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const {
  // A cause outside the enumeration reads as an unknown error.
  int cause = m_cause >= none && m_cause <= endOfFile ? m_cause : (int)genericException;
  if (pnHelpContext != NULL) *pnHelpContext = AFX_IDP_FILE_NONE + cause;
  return NamedMessage(AFX_IDP_FILE_NONE + cause, m_strFileName, lpszError, nMaxError);
}

int PASCAL CFileException::OsErrorToException(LONG lOsError) {
  switch ((DWORD)lOsError) {
  case NO_ERROR:
    return none;
  case ERROR_FILE_NOT_FOUND:
  case ERROR_INVALID_HANDLE:
  case ERROR_NO_MORE_FILES:
  case ERROR_DISK_CHANGE:
    return fileNotFound;
  case ERROR_PATH_NOT_FOUND:
  case ERROR_INVALID_DRIVE:
  case ERROR_NOT_SAME_DEVICE:
  case ERROR_WRONG_DISK:
  case ERROR_DUP_NAME:
  case ERROR_BAD_NETPATH:
  case ERROR_DEV_NOT_EXIST:
  case ERROR_BAD_NET_NAME:
  case ERROR_SHARING_PAUSED:
  case ERROR_ALREADY_ASSIGNED:
  case ERROR_BUFFER_OVERFLOW:
  case ERROR_INVALID_NAME:
  case ERROR_INVALID_LEVEL:
  case ERROR_NO_VOLUME_LABEL:
  case ERROR_DIR_NOT_ROOT:
  case ERROR_LABEL_TOO_LONG:
  case ERROR_BAD_PATHNAME:
  case ERROR_FILENAME_EXCED_RANGE:
  case ERROR_META_EXPANSION_TOO_LONG:
  case ERROR_DIRECTORY:
    return badPath;
  case ERROR_TOO_MANY_OPEN_FILES:
  case ERROR_SHARING_BUFFER_EXCEEDED:
  case ERROR_TOO_MANY_NAMES:
  case ERROR_NO_MORE_SEARCH_HANDLES:
    return tooManyOpenFiles;
  case ERROR_ACCESS_DENIED:
  case ERROR_INVALID_ACCESS:
  case ERROR_WRITE_PROTECT:
  case ERROR_WRITE_FAULT:
  case ERROR_NETWORK_BUSY:
  case ERROR_BAD_NET_RESP:
  case ERROR_NETNAME_DELETED:
  case ERROR_NETWORK_ACCESS_DENIED:
  case ERROR_REQ_NOT_ACCEP:
  case ERROR_FILE_EXISTS:
  case ERROR_CANNOT_MAKE:
  case ERROR_INVALID_PASSWORD:
  case ERROR_BUSY:
  case ERROR_ALREADY_EXISTS:
  case ERROR_SWAPERROR:
    return accessDenied;
  case ERROR_BAD_FORMAT:
  case ERROR_NOT_DOS_DISK:
  case ERROR_BAD_REM_ADAP:
  case ERROR_BAD_DEV_TYPE:
  case ERROR_INVALID_TARGET_HANDLE:
  case ERROR_INVALID_ORDINAL:
  case ERROR_INVALID_EXE_SIGNATURE:
  case ERROR_BAD_EXE_FORMAT:
    return invalidFile;
  case ERROR_CURRENT_DIRECTORY:
  case ERROR_DIR_NOT_EMPTY:
    return removeCurrentDir;
  case ERROR_NO_SPOOL_SPACE:
    return directoryFull;
  case ERROR_BAD_LENGTH:
  case ERROR_SEEK:
  case ERROR_SECTOR_NOT_FOUND:
  case ERROR_READ_FAULT:
  case ERROR_NEGATIVE_SEEK:
  case ERROR_SEEK_ON_DEVICE:
    return badSeek;
  case ERROR_BAD_UNIT:
  case ERROR_NOT_READY:
  case ERROR_BAD_COMMAND:
  case ERROR_CRC:
  case ERROR_ADAP_HDW_ERR:
  case ERROR_UNEXP_NET_ERR:
  case ERROR_NET_WRITE_FAULT:
  case ERROR_INVALID_CATEGORY:
  case ERROR_OPERATION_ABORTED:
  case ERROR_IO_INCOMPLETE:
  case ERROR_IO_PENDING:
    return hardIO;
  case ERROR_SHARING_VIOLATION:
    return sharingViolation;
  case ERROR_LOCK_VIOLATION:
  case ERROR_DRIVE_LOCKED:
  case ERROR_LOCK_FAILED:
    return lockViolation;
  case ERROR_HANDLE_DISK_FULL:
  case ERROR_DISK_FULL:
    return diskFull;
  case ERROR_HANDLE_EOF:
    return endOfFile;
  default:
    return genericException;
  }
}

int PASCAL CFileException::ErrnoToException(int nErrno) {
  switch (nErrno) {
  case EPERM:
  case EACCES:
    return accessDenied;
  case EBADF:
    return invalidFile;
  case EDEADLOCK:
    return sharingViolation;
  case EMFILE:
    return tooManyOpenFiles;
  case ENOENT:
  case ENFILE:
    return fileNotFound;
  case ENOSPC:
    return diskFull;
  case EINVAL:
  case EIO:
    return hardIO;
  default:
    return genericException;
  }
}

void PASCAL CFileException::ThrowOsError(LONG lOsError, LPCTSTR lpszFileName) {
  if (lOsError != 0) AfxThrowFileException(OsErrorToException(lOsError), lOsError, lpszFileName);
}

void PASCAL CFileException::ThrowErrno(int nErrno, LPCTSTR lpszFileName) {
  if (nErrno != 0) AfxThrowFileException(ErrnoToException(nErrno), _doserrno, lpszFileName);
}

// The object is made before the throw, so a failed allocation surfaces as
// CMemoryException rather than std::bad_alloc.
void AFXAPI AfxThrowFileException(int cause, LONG lOsError, LPCTSTR lpszFileName) {
  THROW(new CFileException(cause, lOsError, lpszFileName));
}

// ---- CArchiveException -----------------------------------------------------

IMPLEMENT_DYNAMIC(CArchiveException, CException)

CArchiveException::CArchiveException(int cause, LPCTSTR lpszArchiveName)
    : m_cause(cause), m_strFileName(lpszArchiveName) {}

CArchiveException::~CArchiveException() {}

BOOL CArchiveException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError,
                                        PUINT pnHelpContext) const {
  int cause = m_cause >= none && m_cause <= bufferFull ? m_cause : (int)genericException;
  if (pnHelpContext != NULL) *pnHelpContext = AFX_IDP_ARCH_NONE + cause;
  return NamedMessage(AFX_IDP_ARCH_NONE + cause, m_strFileName, lpszError, nMaxError);
}

void AFXAPI AfxThrowArchiveException(int cause, LPCTSTR lpszArchiveName) {
  THROW(new CArchiveException(cause, lpszArchiveName));
}

// ---- TRY / CATCH -----------------------------------------------------------

// The innermost TRY block of each thread.
static thread_local AFX_EXCEPTION_LINK* t_pLinkTop = NULL;

AFX_EXCEPTION_LINK::AFX_EXCEPTION_LINK() : m_pLinkPrev(t_pLinkTop), m_pException(NULL) {
  t_pLinkTop = this;
}

AFX_EXCEPTION_LINK::~AFX_EXCEPTION_LINK() {
  t_pLinkTop = m_pLinkPrev;
  if (m_pException != NULL) m_pException->Delete();
}

void AFXAPI AfxThrowLastCleanup() {
  if (t_pLinkTop != NULL) t_pLinkTop->m_pException = NULL;
}
