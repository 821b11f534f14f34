// A multiple-document application: children of one CMultiDocTemplate share
// its menu and accelerator table, the menu bar follows the active child,
// titles number the documents, and closing children gives the frame its own
// menu back. Print preview takes the MDI frame's client and gives it back.
#include <afxext.h>
#include <afxpriv.h>
#include <gtest/gtest.h>

#include "mdi_testing.h"
#include "print_testing.h"

namespace {

int g_nSheetsDeleted = 0;

class CSheetDoc : public CDocument {
  DECLARE_DYNCREATE(CSheetDoc)
public:
  virtual ~CSheetDoc() { g_nSheetsDeleted++; }
};
IMPLEMENT_DYNCREATE(CSheetDoc, CDocument)

class CSheetView : public CView {
  DECLARE_DYNCREATE(CSheetView)
public:
  virtual void OnDraw(CDC*) {}
};
IMPLEMENT_DYNCREATE(CSheetView, CView)

class CMdiApp : public CWinApp {
public:
  CMdiApp() : CWinApp("MDI Test") {}
};
CMdiApp theApp;

class MdiTest : public MdiAppTest {
protected:
  MdiTest() : MdiAppTest(IDR_SHEET, RUNTIME_CLASS(CSheetDoc), RUNTIME_CLASS(CSheetView)) {}
  CSheetDoc* NewSheet() { return (CSheetDoc*)m_pTemplate->OpenDocumentFile(NULL); }
  static CMDIChildWnd* FrameOf(CDocument* pDoc) {
    return (CMDIChildWnd*)FirstView(pDoc)->GetParentFrame();
  }
};

TEST_F(MdiTest, ChildrenShareTheTemplatesMenuAndAccelerators) {
  ASSERT_NE(nullptr, m_pTemplate->m_hMenuShared);
  ASSERT_NE(nullptr, m_pTemplate->m_hAccelTable);
  HMENU hMenuDefault = m_pMainFrame->m_hMenuDefault;
  EXPECT_EQ(hMenuDefault, ::GetMenu(*m_pMainFrame));
  EXPECT_STREQ("MDI Test", WindowText(m_pMainFrame));
  // No icon of the application's: the standard MDI frame icon.
  EXPECT_NE(0u, ::GetClassLongPtr(m_pMainFrame->m_hWnd, GCLP_HICON));

  CSheetDoc* pDoc1 = NewSheet();
  CSheetDoc* pDoc2 = NewSheet();
  ASSERT_NE(nullptr, pDoc1);
  ASSERT_NE(nullptr, pDoc2);
  CMDIChildWnd* pChild1 = FrameOf(pDoc1);
  CMDIChildWnd* pChild2 = FrameOf(pDoc2);
  ASSERT_NE(pChild1, pChild2);
  EXPECT_EQ(m_pMainFrame, pChild1->GetMDIFrame());
  for (CMDIChildWnd* pChild : {pChild1, pChild2})
    EXPECT_TRUE(pChild->m_hMenuShared == m_pTemplate->m_hMenuShared &&
                pChild->m_hAccelTable == m_pTemplate->m_hAccelTable);

  // Numbered titles; the last one opened is active and named by the frame.
  EXPECT_STREQ("Sheet1", pDoc1->GetTitle());
  EXPECT_STREQ("Sheet2", pDoc2->GetTitle());
  EXPECT_STREQ("Sheet2", WindowText(pChild2));
  EXPECT_EQ(pChild2, m_pMainFrame->GetActiveFrame());
  EXPECT_STREQ("Sheet2 - MDI Test", WindowText(m_pMainFrame));
  EXPECT_EQ(m_pTemplate->m_hMenuShared, ::GetMenu(*m_pMainFrame));

  m_pMainFrame->MDIActivate(pChild1);
  EXPECT_EQ(pChild1, m_pMainFrame->MDIGetActive());
  EXPECT_STREQ("Sheet1 - MDI Test", WindowText(m_pMainFrame));
  EXPECT_EQ(m_pTemplate->m_hMenuShared, ::GetMenu(*m_pMainFrame));
}

TEST_F(MdiTest, ClosingChildrenLeavesTheFramesOwnMenu) {
  CSheetDoc* pDoc1 = NewSheet();
  CSheetDoc* pDoc2 = NewSheet();
  ASSERT_NE(nullptr, pDoc2);
  CMDIChildWnd* pChild1 = FrameOf(pDoc1);
  int nDeleted = g_nSheetsDeleted;

  FrameOf(pDoc2)->SendMessage(WM_CLOSE);
  EXPECT_EQ(nDeleted + 1, g_nSheetsDeleted);
  EXPECT_EQ(pChild1, m_pMainFrame->MDIGetActive());
  EXPECT_STREQ("Sheet1 - MDI Test", WindowText(m_pMainFrame));
  EXPECT_EQ(1, theApp.GetOpenDocumentCount());
  EXPECT_EQ(m_pTemplate->m_hMenuShared, ::GetMenu(*m_pMainFrame));

  pChild1->SendMessage(WM_CLOSE);
  EXPECT_EQ(nDeleted + 2, g_nSheetsDeleted);
  EXPECT_EQ(nullptr, m_pMainFrame->MDIGetActive());
  EXPECT_EQ(0, theApp.GetOpenDocumentCount());
  EXPECT_EQ(m_pMainFrame->m_hMenuDefault, ::GetMenu(*m_pMainFrame));
  EXPECT_STREQ("MDI Test", WindowText(m_pMainFrame));
  // The shared menu lives on with the template.
  EXPECT_TRUE(::IsMenu(m_pTemplate->m_hMenuShared));
}

// A view that asks for no printer previews on the application's; a document
// of unknown length, one page.
TEST_F(MdiTest, PrintPreviewTakesTheClientAndGivesItBack) {
  CSheetDoc* pDoc = NewSheet();
  ASSERT_NE(nullptr, pDoc);
  CMDIChildWnd* pChild = FrameOf(pDoc);
  HMENU hMenu = ::GetMenu(*m_pMainFrame);
  pChild->GetActiveView()->OnFilePrintPreview();
  CPreviewView* pPreview = DYNAMIC_DOWNCAST(CPreviewView, m_pMainFrame->GetActiveView());
  ASSERT_NE(nullptr, pPreview);
  EXPECT_FALSE(::IsWindowVisible(m_pMainFrame->m_hWndMDIClient));
  EXPECT_EQ(nullptr, ::GetMenu(*m_pMainFrame));
  HWND hBar = m_pMainFrame->GetDlgItem(AFX_IDW_PREVIEW_BAR)->GetSafeHwnd();
  EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(hBar, AFX_ID_PREVIEW_NEXT)));
  EXPECT_TRUE(::IsWindowEnabled(::GetDlgItem(hBar, AFX_ID_PREVIEW_CLOSE)));

  // Closing the frame ends the preview only.
  m_pMainFrame->SendMessage(WM_CLOSE);
  EXPECT_TRUE(::IsWindowVisible(m_pMainFrame->m_hWndMDIClient));
  EXPECT_EQ(AFX_IDW_PANE_FIRST, ::GetDlgCtrlID(m_pMainFrame->m_hWndMDIClient));
  EXPECT_EQ(hMenu, ::GetMenu(*m_pMainFrame));
  EXPECT_EQ(nullptr, m_pMainFrame->GetActiveView());
  EXPECT_EQ(pChild, m_pMainFrame->MDIGetActive());
  EXPECT_EQ(1, theApp.GetOpenDocumentCount());
}

} // namespace
