// A multiple-document application for each test: the main frame loaded from
// IDR_MAINFRAME and one document template, closed without questions after
// the test.
#ifndef VRK_TESTS_AFX_MDI_TESTING_H
#define VRK_TESTS_AFX_MDI_TESTING_H

#include <afxext.h>
#include <gtest/gtest.h>

#include "frame_testing.h"

class MdiAppTest : public ::testing::Test {
protected:
  MdiAppTest(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pViewClass)
      : m_pTemplate(new CMultiDocTemplate(nIDResource, pDocClass, RUNTIME_CLASS(CMDIChildWnd),
                                          pViewClass)) {}
  void SetUp() override {
    AfxGetApp()->AddDocTemplate(m_pTemplate);
    m_pMainFrame = new CMDIFrameWnd;
    ASSERT_TRUE(m_pMainFrame->LoadFrame(IDR_MAINFRAME));
    AfxGetApp()->m_pMainWnd = m_pMainFrame;
    m_pMainFrame->ShowWindow(SW_SHOW);
    PumpAsApp();
  }
  void TearDown() override {
    CWinApp* pApp = AfxGetApp();
    for (POSITION pos = m_pTemplate->GetFirstDocPosition(); pos != NULL;)
      m_pTemplate->GetNextDoc(pos)->SetModifiedFlag(FALSE);
    if (pApp->m_pMainWnd != NULL) pApp->m_pMainWnd->DestroyWindow();
    PumpAsApp();
    // The template goes with the document manager; this one only for the test.
    delete pApp->m_pDocManager;
    pApp->m_pDocManager = NULL;
  }
  static CView* FirstView(CDocument* pDoc) {
    POSITION pos = pDoc->GetFirstViewPosition();
    return pDoc->GetNextView(pos);
  }
  CMultiDocTemplate* m_pTemplate;
  CMDIFrameWnd* m_pMainFrame = NULL;
};

#endif
