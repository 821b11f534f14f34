// The rich edit document and view in an MDI application (the keyboard map's
// own suite drives the read-only document): the text archived as plain text
// and as RTF, bad RTF and failing files.
#include <afxext.h>
#include <afxrich.h>
#include <gtest/gtest.h>

#include <string>

#include "archive_bytes.h"
#include "exception_probe.h"
#include "mdi_testing.h"

namespace {

const char kMapText[] = "Ctrl+N\tNew document\r\nCtrl+O\tOpen\r\nF1\tHelp";
// The same, paragraphs ending in CR as the control keeps them.
const char kMapShown[] = "Ctrl+N\tNew document\rCtrl+O\tOpen\rF1\tHelp";

class CKeysDoc;

class CKeysItem : public CRichEditCntrItem {
public:
  CKeysItem(REOBJECT* preo, CKeysDoc* pDoc);
};

class CKeysDoc : public CRichEditDoc {
  DECLARE_DYNCREATE(CKeysDoc)
public:
  virtual CRichEditCntrItem* CreateClientItem(REOBJECT* preo) const {
    return new CKeysItem(preo, const_cast<CKeysDoc*>(this));
  }
};
IMPLEMENT_DYNCREATE(CKeysDoc, CRichEditDoc)

CKeysItem::CKeysItem(REOBJECT* preo, CKeysDoc* pDoc) : CRichEditCntrItem(preo, pDoc) {}

// A plain writable view.
class CKeysView : public CRichEditView {
  DECLARE_DYNCREATE(CKeysView)
};
IMPLEMENT_DYNCREATE(CKeysView, CRichEditView)

class CRichApp : public CWinApp {
public:
  CRichApp() : CWinApp("Rich Test") {}
};
CRichApp theApp;

// A file whose reads and writes fail as a full or broken disk's do. A plain
// CFile: an archive on a memory file would use its buffer directly and never
// call Read or Write.
class CFailingFile : public CFile {
public:
  virtual UINT Read(void*, UINT) { AfxThrowFileException(CFileException::hardIO); }
  virtual void Write(const void*, UINT) { AfxThrowFileException(CFileException::diskFull); }
};

class RichEditTest : public MdiAppTest {
protected:
  RichEditTest() : MdiAppTest(IDR_RICHDOC, RUNTIME_CLASS(CKeysDoc), RUNTIME_CLASS(CKeysView)) {}
  CKeysDoc* Open() {
    CKeysDoc* pDoc = (CKeysDoc*)m_pTemplate->OpenDocumentFile(NULL, TRUE);
    PumpAsApp();
    return pDoc;
  }
  static CKeysView* ViewOf(CDocument* pDoc) { return (CKeysView*)FirstView(pDoc); }
  static CString Text(CRichEditView* pView) {
    CString str;
    pView->GetRichEditCtrl().GetTextRange(0, -1, str);
    return str;
  }
};

TEST_F(RichEditTest, SerializeWritesAndReadsPlainTextAndRtf) {
  CKeysDoc* pMap = Open();
  CKeysDoc* pCopy = Open();
  ASSERT_NE(nullptr, pMap);
  ASSERT_NE(nullptr, pCopy);
  CKeysView* pCopyView = ViewOf(pCopy);
  CHARFORMAT cf;
  memset(&cf, 0, sizeof(cf));
  cf.cbSize = sizeof(cf);
  cf.dwMask = CFM_FACE | CFM_UNDERLINE;
  cf.dwEffects = CFE_UNDERLINE;
  strcpy(cf.szFaceName, "Courier");
  ViewOf(pMap)->GetRichEditCtrl().SetDefaultCharFormat(cf);
  ViewOf(pMap)->GetRichEditCtrl().SetWindowText(kMapText);

  // Plain text: the archive holds the text and nothing else.
  pMap->m_bRTF = pCopy->m_bRTF = FALSE;
  EXPECT_EQ(SF_TEXT, pMap->GetStreamFormat());
  std::string plain = ArchiveBytes([&](CArchive& ar) { pMap->Serialize(ar); });
  EXPECT_EQ(std::string(kMapText), plain);
  LoadBytes(plain, [&](CArchive& ar) { pCopy->Serialize(ar); });
  EXPECT_STREQ(kMapShown, Text(pCopyView));

  // RTF: the text and its format.
  pMap->m_bRTF = pCopy->m_bRTF = TRUE;
  EXPECT_EQ(SF_RTF, pMap->GetStreamFormat());
  std::string rtf = ArchiveBytes([&](CArchive& ar) { pMap->Serialize(ar); });
  EXPECT_EQ(0u, rtf.find("{\\rtf1")) << rtf;
  EXPECT_NE(std::string::npos, rtf.find("Courier")) << rtf;
  EXPECT_NE(std::string::npos, rtf.find("New document")) << rtf;
  pCopy->DeleteContents();
  LoadBytes(rtf, [&](CArchive& ar) { pCopy->Serialize(ar); });
  EXPECT_STREQ(kMapShown, Text(pCopyView));
  memset(&cf, 0, sizeof(cf));
  pCopyView->GetRichEditCtrl().SetSel(8, 8);
  pCopyView->GetRichEditCtrl().GetSelectionCharFormat(cf);
  EXPECT_STREQ("Courier", cf.szFaceName);
  EXPECT_TRUE(cf.dwEffects & CFE_UNDERLINE);
}

TEST_F(RichEditTest, BadRtfLoadsAndAFailingFilesExceptionComesOutOfSerialize) {
  CKeysDoc* pDoc = Open();
  ASSERT_NE(nullptr, pDoc);
  CKeysView* pView = ViewOf(pDoc);

  // RTF cut short or not RTF at all: no crash, the text that was there.
  // (Groups are left open only a few deep: Wine's control itself crashes
  // on a few dozen unclosed groups, whoever streams them in.)
  const char* const inputs[] = {"{\\rtf1\\ansi{\\fonttbl{\\f0 Courier;}}\\f0 half {\\b bold",
                                "{\\rtf1{{{{{{", "{\\rtf", "plain words"};
  for (const char* psz : inputs) {
    pDoc->DeleteContents();
    LoadBytes(psz, [&](CArchive& ar) { pDoc->Serialize(ar); });
    EXPECT_LE(0, pView->GetTextLength()) << psz;
  }

  // A file that fails: its exception comes out of Serialize, loading and
  // storing (text longer than the archive's buffer reaches the file).
  CFailingFile broken;
  {
    CArchive ar(&broken, CArchive::load);
    EXPECT_EQ(CFileException::hardIO, FileCause([&] { pDoc->Serialize(ar); }));
    ar.Abort();
  }
  std::string big(20000, 'k');
  pView->GetRichEditCtrl().SetWindowText(big.c_str());
  pDoc->m_bRTF = FALSE;
  {
    CArchive ar(&broken, CArchive::store);
    EXPECT_EQ(CFileException::diskFull, FileCause([&] { pDoc->Serialize(ar); }));
    ar.Abort();
  }
  // Nothing of the text was lost on the way.
  EXPECT_EQ(20000, pView->GetTextLength());
}

} // namespace
