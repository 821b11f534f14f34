// The exception classes: throwing across afx.dll, descriptions, cause
// mapping, TRY/CATCH ownership and ReportError.
#include <afx.h>
#include <afxwin.h>
#include <afxres.h>
#include <gtest/gtest.h>

#include <errno.h>

#include <string>

#include "exception_probe.h"
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

TEST(ExceptionThrow, SimpleExceptionsAreStaticAndSurviveDelete) {
  CException* caught[2] = {NULL, NULL};
  for (CException*& pCaught : caught) {
    try {
      AfxThrowMemoryException();
    } catch (CMemoryException* e) {
      pCaught = e;
      EXPECT_FALSE(e->m_bAutoDelete);
      e->Delete();
    }
  }
  ASSERT_NE(nullptr, caught[0]);
  EXPECT_EQ(caught[0], caught[1]);
  EXPECT_EQ("Out of memory.", Message(*caught[1])); // still alive after Delete
}

TEST(ExceptionMessage, EachCauseNamesTheFile) {
  const int kFile = 0, kArchive = 1;
  struct Case {
    int kind, cause;
    const char* file;
    const char* text;
  } cases[] = {
      {kFile, CFileException::fileNotFound, "C:\\in.txt", "C:\\in.txt was not found."},
      {kFile, CFileException::endOfFile, "C:\\in.txt",
       "An attempt was made to access C:\\in.txt past its end."},
      {kFile, CFileException::none, "a", "No error occurred while accessing a."},
      {kFile, 1000, "a", "An unknown error occurred while accessing a."}, // not a cause
      {kFile, CFileException::diskFull, NULL, "Disk full while accessing an unnamed file."},
      {kArchive, CArchiveException::endOfFile, NULL,
       "An attempt was made to access an unnamed file past its end."},
      {kArchive, CArchiveException::badClass, "s.vrk", "s.vrk contained an unexpected object."},
      {kArchive, CArchiveException::badSchema, "s.vrk", "s.vrk contains an incorrect schema."},
      {kArchive, CArchiveException::readOnly, "s.vrk",
       "An attempt was made to write to s.vrk while it was being read."},
      {kArchive, CArchiveException::bufferFull, "s.vrk",
       "The buffer used to read or write s.vrk is full."},
      {kArchive, -3, "s.vrk", "An unknown error occurred while reading or writing s.vrk."},
  };
  for (const Case& c : cases) {
    CFileException file(c.cause, -1, c.file);
    CArchiveException archive(c.cause, c.file);
    EXPECT_EQ(c.text, Message(c.kind == kFile ? (CException&)file : archive)) << c.text;
  }
  CFileException e(CFileException::fileNotFound, 2, "x");
  UINT nHelp = 0;
  Message(e, 512, &nHelp);
  EXPECT_EQ((UINT)AFX_IDP_FILE_NOT_FOUND, nHelp);
  EXPECT_EQ("x was", Message(e, 6)); // nMax - 1 characters, terminated
}

TEST(ExceptionCause, OsErrorsAndErrnoValues) {
  const struct {
    LONG lOsError;
    int cause;
  } os[] = {{NO_ERROR, CFileException::none},
            {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
            {ERROR_PATH_NOT_FOUND, CFileException::badPath},
            {ERROR_ACCESS_DENIED, CFileException::accessDenied},
            {ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
            {ERROR_LOCK_VIOLATION, CFileException::lockViolation},
            {ERROR_DISK_FULL, CFileException::diskFull},
            {ERROR_HANDLE_EOF, CFileException::endOfFile},
            {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
            {ERROR_NEGATIVE_SEEK, CFileException::badSeek},
            {123456, CFileException::genericException}};
  for (const auto& c : os)
    EXPECT_EQ(c.cause, CFileException::OsErrorToException(c.lOsError)) << c.lOsError;
  const struct {
    int nErrno, cause;
  } crt[] = {{ENOENT, CFileException::fileNotFound}, {9999, CFileException::genericException}};
  for (const auto& c : crt)
    EXPECT_EQ(c.cause, CFileException::ErrnoToException(c.nErrno)) << c.nErrno;

  CFileException::ThrowOsError(0, "x"); // no error: returns
  EXPECT_EQ(CFileException::badPath,
            FileCause([] { CFileException::ThrowOsError(ERROR_PATH_NOT_FOUND, "f"); }));
}

TEST(ExceptionMacros, AndCatchAndCatchAllPickTheRightHandlerEnsureThrowsWhenFalse) {
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

  // ENSURE throws an invalid argument only when false.
  static const int BASED_CODE values[] = {1, 0}; // BASED_CODE is nothing on Win32
  ENSURE(values[0] == 1);
  EXPECT_THROW(ENSURE(values[1] == 1), CInvalidArgException*);
  EXPECT_THROW(ENSURE_VALID((int*)NULL), CInvalidArgException*);
}

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
