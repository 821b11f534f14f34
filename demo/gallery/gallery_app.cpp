// The gallery's application and main frame: an MDI frame with the main
// toolbar, the pages toolbar and a status bar; each page of the gallery is a
// document of its own kind, opened from the Pages menu or toolbar.
#include "gallery.h"

#include <stdarg.h>
#include <stdio.h>

CGalleryApp theApp;

void GalleryLog(const char* pszFormat, ...) {
  const char* pszLog = strstr(theApp.m_lpCmdLine, "/log:");
  if (pszLog == NULL) return;
  FILE* pFile = fopen(pszLog + 5, "a");
  if (pFile == NULL) return;
  va_list args;
  va_start(args, pszFormat);
  vfprintf(pFile, pszFormat, args);
  va_end(args);
  fputc('\n', pFile);
  fclose(pFile);
}

BEGIN_MESSAGE_MAP(CGalleryApp, CWinApp)
ON_COMMAND(ID_FILE_NEW, &CGalleryApp::OnFileNew)
ON_COMMAND(ID_FILE_OPEN, &CGalleryApp::OnFileOpen)
ON_COMMAND(ID_DIALOGS_MESSAGE, &CGalleryApp::OnDialogsMessage)
ON_COMMAND(ID_DIALOGS_INPUT, &CGalleryApp::OnDialogsInput)
ON_COMMAND(ID_DIALOGS_ZOOM, &CGalleryApp::OnDialogsZoom)
ON_COMMAND(ID_DIALOGS_FOLDER, &CGalleryApp::OnDialogsFolder)
ON_COMMAND(ID_DIALOGS_TRACE, &CGalleryApp::OnDialogsTrace)
ON_COMMAND(ID_FILE_PRINT_SETUP, &CWinApp::OnFilePrintSetup)
ON_COMMAND_RANGE(ID_PAGE_WELCOME, ID_PAGE_PRINTING, &CGalleryApp::OnPage)
ON_COMMAND(ID_APP_ABOUT, &CGalleryApp::OnAppAbout)
ON_COMMAND(ID_HELP_KEYBOARDMAP, &CGalleryApp::OnHelpKeyboardMap)
END_MESSAGE_MAP()

CGalleryApp::CGalleryApp() : CWinApp("VRK Gallery") {
  for (CMultiDocTemplate*& pTemplate : m_pTemplates)
    pTemplate = NULL;
}

namespace {

struct PageKind {
  UINT nID;
  CRuntimeClass* pViewClass;
};

const PageKind s_pages[] = {
    {ID_PAGE_WELCOME, RUNTIME_CLASS(CWelcomeView)},
    {ID_PAGE_CONTROLS, RUNTIME_CLASS(CControlsView)},
    {ID_PAGE_GRID, RUNTIME_CLASS(CGridView)},
    {ID_PAGE_PRINTING, RUNTIME_CLASS(CPrintingView)},
};

} // namespace

BOOL CGalleryApp::InitInstance() {
  // Settings (the file dialog's last folder among them) in the registry.
  SetRegistryKey("Tamrix");
  // Pages share one menu and title resource; each kind has its own template
  // so that File > New and the Pages commands know which view to make.
  for (const PageKind& page : s_pages) {
    CMultiDocTemplate* pTemplate = new CMultiDocTemplate(
        IDR_PAGETYPE, RUNTIME_CLASS(CPageDoc), RUNTIME_CLASS(CMDIChildWnd), page.pViewClass);
    AddDocTemplate(pTemplate);
    m_pTemplates[page.nID - ID_PAGE_WELCOME] = pTemplate;
  }
  CMainFrame* pMainFrame = new CMainFrame;
  if (!pMainFrame->LoadFrame(IDR_MAINFRAME)) {
    delete pMainFrame;
    return FALSE;
  }
  m_pMainWnd = pMainFrame;
  pMainFrame->ShowWindow(SW_SHOWMAXIMIZED);
  pMainFrame->UpdateWindow();
  OpenPage(ID_PAGE_WELCOME);
  return TRUE;
}

CMultiDocTemplate* CGalleryApp::TemplateOf(UINT nPageID) {
  if (nPageID < ID_PAGE_WELCOME || nPageID > ID_PAGE_PRINTING) return NULL;
  return m_pTemplates[nPageID - ID_PAGE_WELCOME];
}

CDocument* CGalleryApp::OpenPage(UINT nPageID) {
  CMultiDocTemplate* pTemplate = TemplateOf(nPageID);
  if (pTemplate == NULL) return NULL;
  // A page already open comes to the front rather than opening twice.
  POSITION pos = pTemplate->GetFirstDocPosition();
  if (pos != NULL) {
    CDocument* pDoc = pTemplate->GetNextDoc(pos);
    POSITION posView = pDoc->GetFirstViewPosition();
    CView* pView = pDoc->GetNextView(posView);
    ((CMDIFrameWnd*)m_pMainWnd)->MDIActivate(pView->GetParentFrame());
    return pDoc;
  }
  CDocument* pDoc = pTemplate->OpenDocumentFile(NULL);
  if (pDoc != NULL) {
    CString strTitle;
    strTitle.LoadString(nPageID);
    pDoc->SetTitle(strTitle.SpanExcluding("\n"));
    GalleryLog("page: %s", (LPCTSTR)pDoc->GetTitle());
  }
  return pDoc;
}

void CGalleryApp::OnPage(UINT nID) { OpenPage(nID); }

// A new page is a welcome page: the other kinds are opened by name.
void CGalleryApp::OnFileNew() {
  CMultiDocTemplate* pTemplate = TemplateOf(ID_PAGE_WELCOME);
  if (pTemplate != NULL) pTemplate->OpenDocumentFile(NULL);
}

// The library's file dialog opens in the folder of the last file chosen.
void CGalleryApp::OnFileOpen() {
  tagVFileOpenStruct request = {TRUE,
                                "txt",
                                NULL,
                                OFN_FILEMUSTEXIST | OFN_HIDEREADONLY,
                                "Text files (*.txt)|*.txt|All files (*.*)|*.*||",
                                m_pMainWnd,
                                "Files",
                                "LastOpened"};
  VFileDialog dlg(&request);
  if (dlg.DoModal() == IDOK) {
    GalleryLog("dialogs: opened %s", (LPCTSTR)dlg.GetPathName());
    OpenDocumentFile(dlg.GetPathName());
  }
}

void CGalleryApp::OnDialogsMessage() {
  int nAnswer = VrkMessageBox("The grid has changed.\n\nSave the changes before closing it?",
                              MB_YESNOCANCEL | MB_ICONQUESTION);
  GalleryLog("dialogs: message box answered %d", nAnswer);
}

void CGalleryApp::OnDialogsInput() {
  VInputDialog dlg;
  if (dlg.DoModal("&Name of the new sheet:", "New Sheet", "Sheet 1", 0, 40)) {
    CString strInput;
    dlg.GetInput(strInput);
    GalleryLog("dialogs: input \"%s\"", (LPCTSTR)strInput);
  }
}

void CGalleryApp::OnDialogsZoom() {
  VZoomDialog dlg(10, 400, m_pMainWnd);
  dlg.SetZoomPercent(100);
  if (dlg.DoModal() == IDOK) GalleryLog("dialogs: zoom %u%%", dlg.GetZoomPercent());
}

void CGalleryApp::OnDialogsFolder() {
  VFolderDialog dlg(m_pMainWnd->GetSafeHwnd());
  dlg.SetTitle("Choose the folder for the gallery's exports:");
  if (dlg.DoModal()) GalleryLog("dialogs: folder %s", dlg.GetSelectedFolder());
}

void CGalleryApp::OnDialogsTrace() {
  static tagTraceFilter s_categories[] = {
      {"Documents and pages", 0x0001}, {"Printing", 0x0002}, {"Settings", 0x0004}};
  VVrkTraceDlg dlg(m_pMainWnd);
  dlg.SetTraceFilters(s_categories, sizeof(s_categories) / sizeof(s_categories[0]));
  GalleryLog("dialogs: trace settings %s", dlg.DoModal() == IDOK ? "saved" : "left");
}

// Every shortcut of the frame and the pages, with its command's prompt.
void CGalleryApp::OnHelpKeyboardMap() {
  VrkAccelShowKeyboardMap();
  GalleryLog("keyboard map: shown");
}

void CGalleryApp::OnAppAbout() {
  CDialog dlgAbout(IDD_ABOUTBOX);
  dlgAbout.DoModal();
}

IMPLEMENT_DYNAMIC(CMainFrame, CMDIFrameWnd)

BEGIN_MESSAGE_MAP(CMainFrame, CMDIFrameWnd)
ON_WM_CREATE()
ON_COMMAND(ID_VIEW_PAGES_BAR, &CMainFrame::OnViewPagesBar)
ON_COMMAND(ID_TOOLS_PROGRESS, &CMainFrame::OnToolsProgress)
ON_UPDATE_COMMAND_UI(ID_TOOLS_PROGRESS, &CMainFrame::OnUpdateToolsProgress)
ON_WM_TIMER()
ON_UPDATE_COMMAND_UI(ID_VIEW_PAGES_BAR, &CMainFrame::OnUpdateViewPagesBar)
END_MESSAGE_MAP()

static const UINT s_indicators[] = {ID_SEPARATOR, ID_INDICATOR_CAPS, ID_INDICATOR_NUM,
                                    ID_INDICATOR_SCRL};

int CMainFrame::OnCreate(LPCREATESTRUCT lpCreateStruct) {
  if (CMDIFrameWnd::OnCreate(lpCreateStruct) == -1) return -1;
  if (!m_wndToolBar.CreateEx(this, TBSTYLE_FLAT,
                             WS_CHILD | WS_VISIBLE | CBRS_TOP | CBRS_TOOLTIPS | CBRS_FLYBY) ||
      !m_wndToolBar.LoadToolBar(IDR_MAINFRAME))
    return -1;
  if (!m_wndPagesBar.CreateEx(this, TBSTYLE_FLAT,
                              WS_CHILD | WS_VISIBLE | CBRS_TOP | CBRS_TOOLTIPS | CBRS_FLYBY,
                              CRect(0, 0, 0, 0), IDW_PAGES_BAR) ||
      !m_wndPagesBar.LoadToolBar(IDR_PAGES))
    return -1;
  if (!m_wndStatusBar.Create(this) ||
      !m_wndStatusBar.SetIndicators(s_indicators, sizeof(s_indicators) / sizeof(UINT)))
    return -1;
  m_menuManager.Install(this);
  static const UINT s_toolbars[] = {IDR_MAINFRAME, IDR_PAGES};
  m_menuManager.LoadToolbars(s_toolbars, sizeof(s_toolbars) / sizeof(UINT));
  return 0;
}

void CMainFrame::OnViewPagesBar() {
  ShowControlBar(&m_wndPagesBar, !m_wndPagesBar.IsWindowVisible(), FALSE);
}

void CMainFrame::OnUpdateViewPagesBar(CCmdUI* pCmdUI) {
  pCmdUI->SetCheck(m_wndPagesBar.IsWindowVisible());
}

IMPLEMENT_DYNCREATE(CPageDoc, CDocument)

void CMainFrame::OnToolsProgress() {
  m_posJob = m_wndStatusBar.StartProgress(0, nDocuments, "Printing 3 documents");
  m_nDocument = 0;
  StartDocument();
  SetTimer(1, 150, NULL);
  GalleryLog("progress: started");
}

void CMainFrame::StartDocument() {
  CString strText;
  strText.Format("Document %d of %d", m_nDocument + 1, (int)nDocuments);
  m_posDocument = m_wndStatusBar.StartProgress(0, nPages, strText);
  m_nPage = 0;
}

void CMainFrame::OnTimer(UINT_PTR nIDEvent) {
  if (nIDEvent != 1) {
    CMDIFrameWnd::OnTimer(nIDEvent);
    return;
  }
  m_wndStatusBar.SetProgressPos(m_posDocument, ++m_nPage);
  if (m_nPage < nPages) return;
  // The document is done: its operation ends and the job's shows again.
  m_wndStatusBar.StopProgress(m_posDocument, "");
  m_posDocument = NULL;
  m_wndStatusBar.SetProgressPos(m_posJob, ++m_nDocument);
  if (m_nDocument < nDocuments) {
    StartDocument();
    return;
  }
  KillTimer(1);
  m_wndStatusBar.StopProgress(m_posJob, "Printed 3 documents");
  m_posJob = NULL;
  GalleryLog("progress: finished");
}

void CMainFrame::OnUpdateToolsProgress(CCmdUI* pCmdUI) { pCmdUI->Enable(m_posJob == NULL); }
