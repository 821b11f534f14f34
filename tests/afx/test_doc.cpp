// A single-document application: saving writes the document's archive
// bytes, opening reads them back; the save prompt's Yes, No and Cancel;
// failures reported with the framework's prompts; the document's views.
#include <afxext.h>
#include <gtest/gtest.h>

#include <string>

#include "frame_testing.h"
#include "msgbox_catcher.h"
#include "temp_dir.h"

namespace {

// The document: one string, archived in CArchive's CString form.
class CNoteDoc : public CDocument {
  DECLARE_DYNCREATE(CNoteDoc)
public:
  CString m_text;
  virtual void DeleteContents() { m_text.Empty(); }
  virtual void Serialize(CArchive& ar) {
    if (ar.IsStoring())
      ar << m_text;
    else
      ar >> m_text;
  }
};
IMPLEMENT_DYNCREATE(CNoteDoc, CDocument)

// A view with nothing to show.
class CNoteView : public CView {
  DECLARE_DYNCREATE(CNoteView)
public:
  virtual void OnDraw(CDC*) {}
};
IMPLEMENT_DYNCREATE(CNoteView, CView)

class CNotesApp : public CWinApp {
public:
  CNotesApp() : CWinApp("Notes") {}
};
CNotesApp theApp;

class DocTest : public ::testing::Test {
protected:
  static void SetUpTestSuite() {
    theApp.AddDocTemplate(new CSingleDocTemplate(
        IDR_NOTES, RUNTIME_CLASS(CNoteDoc), RUNTIME_CLASS(CFrameWnd), RUNTIME_CLASS(CNoteView)));
  }
  void SetUp() override {
    POSITION pos = theApp.GetFirstDocTemplatePosition();
    m_pTemplate = (CSingleDocTemplate*)theApp.GetNextDocTemplate(pos);
    ASSERT_NE(nullptr, m_pTemplate);
    theApp.OnFileNew();
    PumpAsApp();
    m_pDoc = (CNoteDoc*)m_pTemplate->m_pOnlyDoc;
    ASSERT_NE(nullptr, m_pDoc);
    m_pFrame = (CFrameWnd*)theApp.m_pMainWnd;
    ASSERT_NE(nullptr, m_pFrame);
  }
  void TearDown() override {
    // Whatever the test left: closed without questions.
    if (m_pTemplate->m_pOnlyDoc != NULL) m_pTemplate->m_pOnlyDoc->SetModifiedFlag(FALSE);
    if (theApp.m_pMainWnd != NULL) theApp.m_pMainWnd->DestroyWindow();
    PumpAsApp();
  }
  CNoteView* View() { return (CNoteView*)m_pFrame->GetActiveView(); }
  CSingleDocTemplate* m_pTemplate = NULL;
  CNoteDoc* m_pDoc = NULL;
  CFrameWnd* m_pFrame = NULL;
  TempDir m_dir;
};

TEST_F(DocTest, SaveWritesTheArchiveAndOpenReadsItBack) {
  std::string path = m_dir.File("first.nte");
  m_pDoc->m_text = "hello";
  m_pDoc->SetModifiedFlag();
  ASSERT_TRUE(m_pDoc->DoSave(path.c_str()));
  EXPECT_EQ(std::string("\x05hello", 6), TempDir::ReadBytes(path));
  EXPECT_FALSE(m_pDoc->IsModified());
  EXPECT_STREQ("first.nte", m_pDoc->GetTitle());
  EXPECT_STREQ("first.nte - Notes", WindowText(m_pFrame));

  // The same document object is reused for a new one, then for the file.
  theApp.OnFileNew();
  EXPECT_EQ(m_pDoc, m_pTemplate->m_pOnlyDoc);
  EXPECT_STREQ("", m_pDoc->m_text);
  EXPECT_STREQ("", m_pDoc->GetPathName());
  CDocument* pOpened = theApp.OpenDocumentFile(path.c_str());
  EXPECT_EQ(m_pDoc, pOpened);
  EXPECT_STREQ("hello", m_pDoc->m_text);
  EXPECT_STREQ(path.c_str(), m_pDoc->GetPathName());
  EXPECT_STREQ("first.nte - Notes", WindowText(m_pFrame));
  EXPECT_FALSE(m_pDoc->IsModified());
}

TEST_F(DocTest, SavePromptYesNoAndCancel) {
  m_pDoc->m_text = "draft";
  m_pDoc->SetModifiedFlag();
  MsgBoxCatcher catcher;
  catcher.Answer(IDCANCEL);
  EXPECT_FALSE(m_pDoc->SaveModified());
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ("Save changes to Untitled?", catcher.Last().text);
  EXPECT_EQ("Notes", catcher.Last().caption);
  EXPECT_TRUE(catcher.Last().HasButton(IDYES) && catcher.Last().HasButton(IDNO) &&
              catcher.Last().HasButton(IDCANCEL));

  // File New asks too; Cancel keeps the document as it was.
  catcher.Answer(IDCANCEL);
  theApp.OnFileNew();
  EXPECT_EQ(2u, catcher.Count());
  EXPECT_STREQ("draft", m_pDoc->m_text);
  EXPECT_TRUE(m_pDoc->IsModified());

  catcher.Answer(IDNO);
  EXPECT_TRUE(m_pDoc->SaveModified());
  EXPECT_TRUE(m_pDoc->IsModified()); // No saves nothing

  // Yes saves to the document's file, named by its file name.
  std::string path = m_dir.File("kept.nte");
  ASSERT_TRUE(m_pDoc->DoSave(path.c_str()));
  m_pDoc->m_text = "final";
  m_pDoc->SetModifiedFlag();
  catcher.Answer(IDYES);
  EXPECT_TRUE(m_pDoc->SaveModified());
  EXPECT_EQ("Save changes to kept.nte?", catcher.Last().text);
  EXPECT_EQ(std::string("\x05"
                        "final",
                        6),
            TempDir::ReadBytes(path));
  EXPECT_FALSE(m_pDoc->IsModified());
  // Not modified: no question.
  size_t nBoxes = catcher.Count();
  EXPECT_TRUE(m_pDoc->SaveModified());
  EXPECT_EQ(nBoxes, catcher.Count());
}

TEST_F(DocTest, FailuresAreReportedAndTheDocumentKept) {
  m_pDoc->m_text = "mine";
  MsgBoxCatcher catcher;
  std::string missing = m_dir.File("missing.nte");
  EXPECT_EQ(nullptr, theApp.OpenDocumentFile(missing.c_str()));
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_NE(std::string::npos, catcher.Last().text.find("missing.nte"));
  EXPECT_NE(std::string::npos, catcher.Last().text.find("was not found"));
  EXPECT_STREQ("mine", m_pDoc->m_text); // untouched

  // A truncated archive: the load fails and leaves an empty new document.
  std::string corrupt = m_dir.File("corrupt.nte");
  ASSERT_TRUE(TempDir::WriteBytes(corrupt, std::string("\x0Ahi", 3)));
  EXPECT_EQ(nullptr, theApp.OpenDocumentFile(corrupt.c_str()));
  ASSERT_EQ(2u, catcher.Count());
  EXPECT_EQ("Failed to open document.", catcher.Last().text);
  EXPECT_STREQ("", m_pDoc->m_text);
  EXPECT_STREQ("Untitled", m_pDoc->GetTitle());

  // A file that cannot be created.
  std::string badDir = m_dir.File("no such folder\\x.nte");
  EXPECT_FALSE(m_pDoc->OnSaveDocument(badDir.c_str()));
  ASSERT_EQ(3u, catcher.Count());
  EXPECT_NE(std::string::npos, catcher.Last().text.find("x.nte"));
}

TEST_F(DocTest, ViewsListedInTheOrderTheyJoinedOneDestroyedLeaves) {
  CCreateContext context;
  context.m_pCurrentDoc = m_pDoc;
  CNoteView* pViews[3] = {View(), new CNoteView, new CNoteView};
  ASSERT_TRUE(pViews[1]->Create(NULL, NULL, AFX_WS_DEFAULT_VIEW, CRect(0, 0, 10, 10), m_pFrame,
                                AFX_IDW_PANE_FIRST + 1, &context));
  ASSERT_TRUE(pViews[2]->Create(NULL, NULL, AFX_WS_DEFAULT_VIEW, CRect(0, 0, 10, 10), m_pFrame,
                                AFX_IDW_PANE_FIRST + 2, &context));
  // The views in the order they joined; one that goes leaves the list.
  pViews[2]->DestroyWindow();
  POSITION pos = m_pDoc->GetFirstViewPosition();
  EXPECT_EQ(pViews[0], m_pDoc->GetNextView(pos));
  EXPECT_EQ(pViews[1], m_pDoc->GetNextView(pos));
  EXPECT_EQ(NULL, pos);
}

} // namespace
