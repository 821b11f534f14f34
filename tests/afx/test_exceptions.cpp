// The exception classes: throwing across afx.dll, descriptions, cause
// mapping, TRY/CATCH ownership and ReportError.
#include <afx.h>
#include <afxwin.h>
#include <afxres.h>
#include <gtest/gtest.h>

#include <errno.h>

#include <string>

#include "msgbox_catcher.h"

namespace {

std::string Message(const CException& e, UINT nMax = 512, UINT* pnHelp = NULL) {
  char buf[512];
  memset(buf, '#', sizeof(buf));
  BOOL ok = e.GetErrorMessage(buf, nMax, pnHelp);
  return (ok ? "" : "(none)") + std::string(buf);
}

} // namespace

// Counts its destructions, to observe who deletes an exception.
class CCountedException : public CException {
  DECLARE_DYNAMIC(CCountedException)
public:
  explicit CCountedException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
  ~CCountedException() { s_nDestroyed++; }
  static int s_nDestroyed;
};
IMPLEMENT_DYNAMIC(CCountedException, CException)
int CCountedException::s_nDestroyed = 0;

// ---- Throwing across the DLL boundary --------------------------------------

TEST(ExceptionThrow, StringIndexErrorIsCaughtHere) {
  CString s("abc");
  CException* pCaught = NULL;
  try {
    s.GetAt(10);
  } catch (CException* e) {
    pCaught = e;
  }
  ASSERT_NE(nullptr, pCaught);
  EXPECT_TRUE(pCaught->IsKindOf(RUNTIME_CLASS(CInvalidArgException)));
  EXPECT_TRUE(pCaught->IsKindOf(RUNTIME_CLASS(CSimpleException)));
  EXPECT_EQ("Encountered an improper argument.", Message(*pCaught));
  pCaught->Delete();
}

TEST(ExceptionThrow, SimpleExceptionsAreStaticAndSurviveDelete) {
  CException* first = NULL;
  CException* second = NULL;
  try {
    AfxThrowMemoryException();
  } catch (CMemoryException* e) {
    first = e;
    EXPECT_FALSE(e->m_bAutoDelete);
    e->Delete();
  }
  try {
    AfxThrowMemoryException();
  } catch (CMemoryException* e) {
    second = e;
    e->Delete();
  }
  ASSERT_NE(nullptr, first);
  EXPECT_EQ(first, second);
  EXPECT_EQ("Out of memory.", Message(*second)); // still alive after Delete
}

TEST(ExceptionThrow, EachThrowFunctionThrowsItsClass) {
  struct Case {
    void(AFXAPI* pfn)();
    CRuntimeClass* pClass;
    const char* text;
  } cases[] = {
      {&AfxThrowMemoryException, RUNTIME_CLASS(CMemoryException), "Out of memory."},
      {&AfxThrowNotSupportedException, RUNTIME_CLASS(CNotSupportedException),
       "An unsupported operation was attempted."},
      {&AfxThrowInvalidArgException, RUNTIME_CLASS(CInvalidArgException),
       "Encountered an improper argument."},
      {&AfxThrowResourceException, RUNTIME_CLASS(CResourceException),
       "A required resource was unavailable."},
      {&AfxThrowUserException, RUNTIME_CLASS(CUserException), "An unknown error has occurred."},
  };
  for (const Case& c : cases) {
    try {
      c.pfn();
      ADD_FAILURE() << "nothing thrown for " << c.pClass->m_lpszClassName;
    } catch (CException* e) {
      EXPECT_TRUE(e->GetRuntimeClass() == c.pClass) << c.pClass->m_lpszClassName;
      UINT nHelp = 99;
      EXPECT_EQ(c.text, Message(*e, 512, &nHelp));
      EXPECT_EQ(0u, nHelp);
      e->Delete();
    }
  }
}

TEST(ExceptionThrow, FileAndArchiveExceptionsCarryTheirDetails) {
  try {
    AfxThrowFileException(CFileException::sharingViolation, ERROR_SHARING_VIOLATION, "C:\\a.dat");
  } catch (CFileException* e) {
    EXPECT_TRUE(e->m_bAutoDelete);
    EXPECT_EQ(CFileException::sharingViolation, e->m_cause);
    EXPECT_EQ(ERROR_SHARING_VIOLATION, e->m_lOsError);
    EXPECT_STREQ("C:\\a.dat", e->m_strFileName);
    e->Delete();
  }
  try {
    AfxThrowFileException(CFileException::diskFull);
  } catch (CFileException* e) {
    EXPECT_EQ(-1, e->m_lOsError);
    EXPECT_TRUE(e->m_strFileName.IsEmpty());
    e->Delete();
  }
  try {
    AfxThrowArchiveException(CArchiveException::badSchema, "doc.vrk");
  } catch (CArchiveException* e) {
    EXPECT_EQ(CArchiveException::badSchema, e->m_cause);
    EXPECT_STREQ("doc.vrk", e->m_strFileName);
    e->Delete();
  }
}

// ---- Descriptions ----------------------------------------------------------

TEST(ExceptionMessage, FileCausesNameTheFile) {
  CFileException e(CFileException::fileNotFound, 2, "C:\\data\\in.txt");
  UINT nHelp = 0;
  EXPECT_EQ("C:\\data\\in.txt was not found.", Message(e, 512, &nHelp));
  EXPECT_EQ((UINT)AFX_IDP_FILE_NOT_FOUND, nHelp);
  e.m_cause = CFileException::accessDenied;
  EXPECT_EQ("Access to C:\\data\\in.txt was denied.", Message(e));
  e.m_cause = CFileException::endOfFile;
  EXPECT_EQ("An attempt was made to access C:\\data\\in.txt past its end.", Message(e));
  e.m_cause = CFileException::none;
  EXPECT_EQ("No error occurred while accessing C:\\data\\in.txt.", Message(e));
  e.m_cause = 1000; // not a cause: reads as an unknown error
  EXPECT_EQ("An unknown error occurred while accessing C:\\data\\in.txt.", Message(e));
}

TEST(ExceptionMessage, UnnamedFileAndTruncation) {
  CFileException e(CFileException::diskFull);
  EXPECT_EQ("Disk full while accessing an unnamed file.", Message(e));
  EXPECT_EQ("Disk full", Message(e, 10)); // nMax - 1 characters, terminated
  CArchiveException a(CArchiveException::endOfFile);
  EXPECT_EQ("An attempt was made to access an unnamed file past its end.", Message(a));
}

TEST(ExceptionMessage, ArchiveCauses) {
  CArchiveException e(CArchiveException::badClass, "shapes.vrk");
  UINT nHelp = 0;
  EXPECT_EQ("shapes.vrk contained an unexpected object.", Message(e, 512, &nHelp));
  EXPECT_EQ((UINT)AFX_IDP_ARCH_BADCLASS, nHelp);
  e.m_cause = CArchiveException::badSchema;
  EXPECT_EQ("shapes.vrk contains an incorrect schema.", Message(e));
  e.m_cause = CArchiveException::readOnly;
  EXPECT_EQ("An attempt was made to write to shapes.vrk while it was being read.", Message(e));
  e.m_cause = CArchiveException::bufferFull;
  EXPECT_EQ("The buffer used to read or write shapes.vrk is full.", Message(e));
  e.m_cause = -3;
  EXPECT_EQ("An unknown error occurred while reading or writing shapes.vrk.", Message(e));
}

TEST(ExceptionMessage, BaseClassHasNone) {
  CCountedException e(FALSE);
  UINT nHelp = 5;
  EXPECT_EQ("(none)", Message(e, 512, &nHelp));
  EXPECT_EQ(0u, nHelp);
}

// ---- Cause mapping ---------------------------------------------------------

TEST(ExceptionCause, OsErrorsAndErrnoValues) {
  EXPECT_EQ(CFileException::none, CFileException::OsErrorToException(NO_ERROR));
  EXPECT_EQ(CFileException::fileNotFound, CFileException::OsErrorToException(ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(CFileException::badPath, CFileException::OsErrorToException(ERROR_PATH_NOT_FOUND));
  EXPECT_EQ(CFileException::accessDenied, CFileException::OsErrorToException(ERROR_ACCESS_DENIED));
  EXPECT_EQ(CFileException::sharingViolation,
            CFileException::OsErrorToException(ERROR_SHARING_VIOLATION));
  EXPECT_EQ(CFileException::lockViolation,
            CFileException::OsErrorToException(ERROR_LOCK_VIOLATION));
  EXPECT_EQ(CFileException::diskFull, CFileException::OsErrorToException(ERROR_DISK_FULL));
  EXPECT_EQ(CFileException::endOfFile, CFileException::OsErrorToException(ERROR_HANDLE_EOF));
  EXPECT_EQ(CFileException::tooManyOpenFiles,
            CFileException::OsErrorToException(ERROR_TOO_MANY_OPEN_FILES));
  EXPECT_EQ(CFileException::badSeek, CFileException::OsErrorToException(ERROR_NEGATIVE_SEEK));
  EXPECT_EQ(CFileException::genericException, CFileException::OsErrorToException(123456));

  EXPECT_EQ(CFileException::fileNotFound, CFileException::ErrnoToException(ENOENT));
  EXPECT_EQ(CFileException::accessDenied, CFileException::ErrnoToException(EACCES));
  EXPECT_EQ(CFileException::diskFull, CFileException::ErrnoToException(ENOSPC));
  EXPECT_EQ(CFileException::tooManyOpenFiles, CFileException::ErrnoToException(EMFILE));
  EXPECT_EQ(CFileException::genericException, CFileException::ErrnoToException(9999));
}

TEST(ExceptionCause, ThrowOsErrorOnlyForErrors) {
  CFileException::ThrowOsError(0, "x"); // no error: returns
  CFileException::ThrowErrno(0, "x");
  try {
    CFileException::ThrowOsError(ERROR_PATH_NOT_FOUND, "Q:\\missing\\f.txt");
    ADD_FAILURE() << "nothing thrown";
  } catch (CFileException* e) {
    EXPECT_EQ(CFileException::badPath, e->m_cause);
    EXPECT_EQ(ERROR_PATH_NOT_FOUND, e->m_lOsError);
    EXPECT_EQ("Q:\\missing\\f.txt contains an invalid path.", Message(*e));
    e->Delete();
  }
  try {
    CFileException::ThrowErrno(ENOENT, "gone.txt");
    ADD_FAILURE() << "nothing thrown";
  } catch (CFileException* e) {
    EXPECT_EQ(CFileException::fileNotFound, e->m_cause);
    e->Delete();
  }
}

// ---- TRY / CATCH -----------------------------------------------------------

TEST(ExceptionMacros, EndCatchDeletesTheException) {
  CCountedException::s_nDestroyed = 0;
  bool caught = false;
  TRY { THROW(new CCountedException); }
  CATCH(CCountedException, e) {
    caught = true;
    EXPECT_EQ(0, CCountedException::s_nDestroyed); // alive inside the handler
  }
  END_CATCH
  EXPECT_TRUE(caught);
  EXPECT_EQ(1, CCountedException::s_nDestroyed);
}

TEST(ExceptionMacros, AndCatchAndCatchAllPickTheRightHandler) {
  int which = 0;
  TRY { AfxThrowFileException(CFileException::badSeek); }
  CATCH(CMemoryException, e) { which = 1; }
  AND_CATCH(CFileException, e) {
    which = 2;
    EXPECT_EQ(CFileException::badSeek, e->m_cause);
  }
  END_CATCH
  EXPECT_EQ(2, which);

  CCountedException::s_nDestroyed = 0;
  TRY { THROW(new CCountedException); }
  CATCH(CFileException, e) { which = 3; }
  AND_CATCH_ALL(e) { which = 4; }
  END_CATCH_ALL
  EXPECT_EQ(4, which);
  EXPECT_EQ(1, CCountedException::s_nDestroyed);

  TRY { THROW(new CCountedException); }
  CATCH_ALL(e) { which = 5; }
  END_CATCH_ALL
  EXPECT_EQ(5, which);
  EXPECT_EQ(2, CCountedException::s_nDestroyed);
}

TEST(ExceptionMacros, ThrowLastPassesTheSameObjectOutward) {
  CCountedException::s_nDestroyed = 0;
  CException* pInner = NULL;
  CException* pOuter = NULL;
  TRY{TRY{THROW(new CCountedException);
}
CATCH(CCountedException, e) {
  pInner = e;
  THROW_LAST();
}
END_CATCH
}
CATCH(CCountedException, e) {
  pOuter = e;
  EXPECT_EQ(0, CCountedException::s_nDestroyed); // the inner block kept it
}
END_CATCH
EXPECT_EQ(pInner, pOuter);
EXPECT_EQ(1, CCountedException::s_nDestroyed);
}

TEST(ExceptionMacros, NoAutoDeleteAndDeleteException) {
  CCountedException::s_nDestroyed = 0;
  {
    CCountedException onStack(FALSE);
    TRY { THROW(&onStack); }
    CATCH(CCountedException, e) { EXPECT_EQ(&onStack, e); }
    END_CATCH
    EXPECT_EQ(0, CCountedException::s_nDestroyed); // Delete() left it alone
  }
  EXPECT_EQ(1, CCountedException::s_nDestroyed);

  CCountedException* p = new CCountedException;
  DELETE_EXCEPTION(p);
  EXPECT_EQ(2, CCountedException::s_nDestroyed);
  CException* pNull = NULL;
  DELETE_EXCEPTION(pNull); // harmless
}

TEST(ExceptionMacros, UncaughtClassPassesThroughTheBlock) {
  CCountedException::s_nDestroyed = 0;
  bool outer = false;
  try {
    TRY { THROW(new CCountedException); }
    CATCH(CFileException, e) { ADD_FAILURE() << "wrong handler"; }
    END_CATCH
  } catch (CCountedException* e) {
    outer = true;
    EXPECT_EQ(0, CCountedException::s_nDestroyed);
    e->Delete();
  }
  EXPECT_TRUE(outer);
  EXPECT_EQ(1, CCountedException::s_nDestroyed);
}

// ---- ReportError -----------------------------------------------------------

TEST(ExceptionReport, ShowsTheDescriptionOrAFallback) {
  MsgBoxCatcher catcher(IDOK);
  CFileException e(CFileException::accessDenied, 5, "C:\\locked.txt");
  catcher.Answer(IDCANCEL);
  EXPECT_EQ(IDCANCEL, e.ReportError(MB_OKCANCEL));
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ("Access to C:\\locked.txt was denied.", catcher.Last().text);
  EXPECT_TRUE(catcher.Last().HasButton(IDCANCEL));

  CCountedException none(FALSE);
  EXPECT_EQ(IDOK, none.ReportError());
  ASSERT_EQ(2u, catcher.Count());
  EXPECT_EQ("No error message is available.", catcher.Last().text);
}
