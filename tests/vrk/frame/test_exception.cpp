// The exception family thrown in VRK.dll and caught here, the error texts of
// system codes, and strings built from the resource module's texts.
#include <vrk_exception.h>
#include <gtest/gtest.h>

#include <string>

#include "msgbox_catcher.h"

namespace {

const UINT kIdErrorCode = 5013;  // "Error code: %lu"
const UINT kIdPrintStart = 5014; // "The print job could not be started."

// The message of the VException fn threw, "<none>" when none.
template <class Fn> std::string VMessage(Fn fn) {
  try {
    fn();
  } catch (CException* e) {
    VException* pVE = DYNAMIC_DOWNCAST(VException, e);
    std::string s = pVE != NULL ? (const char*)pVE->m_strMessage : "<other>";
    e->Delete();
    return s;
  }
  return "<none>";
}

// The box type is passed on, the message id ignored; no text of its own for
// GetErrorMessage. A string no module holds, or a null text, leaves the
// message empty and the box is shown all the same; VNullException shows none.
TEST(VException, FromTextOrResourceCaughtInTheHostAndTheSilentNullException) {
  EXPECT_EQ("Disk full", VMessage([] { VrkThrowException("Disk full"); }));
  EXPECT_EQ("The print job could not be started.",
            VMessage([] { VrkThrowException(kIdPrintStart); }));
  MsgBoxCatcher catcher(IDNO);
  VException text("Disk full"), missing(static_cast<UINT>(4999)),
      none(static_cast<const char*>(NULL));
  EXPECT_EQ(IDNO, text.ReportError(MB_YESNO, 4711));
  EXPECT_TRUE(catcher.Last().text == "Disk full" && catcher.Last().HasButton(IDYES));
  char szText[32] = "x";
  EXPECT_FALSE(text.GetErrorMessage(szText, sizeof(szText)));
  EXPECT_TRUE(missing.m_strMessage.IsEmpty());
  catcher.SetDefaultAnswer(IDOK);
  EXPECT_EQ(IDOK, none.ReportError());
  EXPECT_EQ("", catcher.Last().text);
  VNullException silent;
  EXPECT_EQ(1, silent.ReportError(MB_YESNO, 5));
  EXPECT_EQ(2u, catcher.Count());
}

// The library's one static object, never deleted by its receivers.
VInvalidDataException* ThrownInvalidData(const char* pszFile, int nLine) {
  try {
    VrkThrowInvalidDataException(pszFile, nLine);
  } catch (CException* e) {
    return e->IsKindOf(RUNTIME_CLASS(VInvalidDataException)) ? (VInvalidDataException*)e : NULL;
  }
  return NULL;
}

// Cut at 511 characters; a shorter text afterwards leaves nothing of the
// longer one behind; the report is a plain OK box.
TEST(VInvalidDataException, FormatsFileLineAndMessageCutAt511AndReportsInAPlainOkBox) {
  MSG* pMsg = AfxGetCurrentMessage();
  ASSERT_TRUE(pMsg != NULL);
  const MSG saved = *pMsg;
  const MSG current = {NULL, 0x111, 0xBEEF, 0x12345678, 987654, {-3, 44}};
  *pMsg = current;
  VInvalidDataException* pFirst = ThrownInvalidData(".\\vrk_bitarray.cpp", 123);
  *pMsg = saved;
  ASSERT_TRUE(pFirst != NULL);
  EXPECT_STREQ("Invalid data detected in .\\vrk_bitarray.cpp, line 123.\n\n"
               "Message 0x0111 (wParam 0x0000BEEF, lParam 0x12345678) at -3, 44, time 987654.",
               pFirst->GetMessage());
  // The same object every time; a null file keeps the previous text.
  EXPECT_EQ(pFirst, ThrownInvalidData(NULL, 5));
  EXPECT_TRUE(strstr(pFirst->GetMessage(), "vrk_bitarray.cpp, line 123.") != NULL);
  MsgBoxCatcher catcher;
  VInvalidDataException e;
  EXPECT_STREQ("", e.GetMessage());
  std::string strFile(700, 'f');
  e.FormatMessage(strFile.c_str(), 1);
  EXPECT_EQ(("Invalid data detected in " + strFile).substr(0, 511), e.GetMessage());
  e.FormatMessage("a", 2);
  EXPECT_EQ("Invalid data detected in a, line 2.", std::string(e.GetMessage()).substr(0, 35));
  EXPECT_LT(strlen(e.GetMessage()), 200u);
  EXPECT_EQ(IDOK, e.ReportError(MB_YESNOCANCEL | MB_ICONSTOP, 77));
  EXPECT_EQ(std::vector<int>(1, IDOK), catcher.Last().buttons);
  EXPECT_EQ(e.GetMessage(), catcher.Last().text);
}

TEST(VrkReportError, BuildsPrefixSystemTextAndCodeLine) {
  MsgBoxCatcher catcher;
  char* pszSystem = NULL; // the system's own text
  const DWORD n = ::FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM,
                                   NULL, ERROR_FILE_NOT_FOUND, 0x400, (LPSTR)&pszSystem, 0, NULL);
  const std::string strSystem(pszSystem != NULL ? pszSystem : "", n);
  ::LocalFree(pszSystem);
  EXPECT_EQ(static_cast<int>(strSystem.size()),
            VrkReportError(ERROR_FILE_NOT_FOUND, "Opening c:\\x.dat", 1));
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ("Opening c:\\x.dat\n" + strSystem + "Error code: 2", catcher.Last().text);
  EXPECT_EQ(std::vector<int>(1, IDOK), catcher.Last().buttons);

  EXPECT_EQ(static_cast<int>(strSystem.size()), VrkReportError(ERROR_FILE_NOT_FOUND, NULL, 0));
  EXPECT_EQ(strSystem, catcher.Last().text);

  EXPECT_EQ(0, VrkReportError(0x2FFFFFF0, "prefix", 1)); // unknown: no box
  EXPECT_EQ(2u, catcher.Count());
  CString strText("kept"); // an unknown code leaves the text alone
  EXPECT_EQ(0, VrkGetErrorMsg(strText, 0x2FFFFFF0));
  EXPECT_STREQ("kept", strText);
}

TEST(VTempStr, FormatsTextsAndResources) {
  EXPECT_STREQ("7-abc-0x1F", VTempStr("%d-%s-0x%X", 7, "abc", 31));
  EXPECT_STREQ("", VTempStr(static_cast<const char*>(NULL)));
  EXPECT_STREQ("Error code: 4294967295", VTempStr(kIdErrorCode, 0xFFFFFFFFu));
  EXPECT_STREQ("", VTempStr(static_cast<UINT>(4999), 1));
  std::string strLong(5000, 'L');
  EXPECT_EQ(strLong, static_cast<const char*>(VTempStr("%s", strLong.c_str())));
}

} // namespace
