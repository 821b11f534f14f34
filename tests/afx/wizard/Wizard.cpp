// Wizard.cpp : Defines the class behaviors for the application.
#include "stdafx.h"
#include "Wizard.h"
#include "MainFrm.h"
#include "WizardDoc.h"
#include "WizardView.h"

BEGIN_MESSAGE_MAP(CWizardApp, CWinApp)
// Standard file based document commands
ON_COMMAND(ID_FILE_NEW, &CWinApp::OnFileNew)
ON_COMMAND(ID_FILE_OPEN, &CWinApp::OnFileOpen)
END_MESSAGE_MAP()

CWizardApp::CWizardApp() {}

// The one and only CWizardApp object
CWizardApp theApp;

BOOL CWizardApp::InitInstance() {
  CWinApp::InitInstance();

  // Change the registry key under which our settings are stored
  SetRegistryKey(_T("VRK Wizard Test"));
  LoadStdProfileSettings(4); // Load standard INI file options (including MRU)

  // Register the application's document templates.
  CMultiDocTemplate* pDocTemplate;
  pDocTemplate = new CMultiDocTemplate(IDR_WIZTYPE, RUNTIME_CLASS(CWizardDoc),
                                       RUNTIME_CLASS(CMDIChildWnd), // custom MDI child frame
                                       RUNTIME_CLASS(CWizardView));
  if (!pDocTemplate) return FALSE;
  AddDocTemplate(pDocTemplate);

  // create main MDI Frame window
  CMainFrame* pMainFrame = new CMainFrame;
  if (!pMainFrame || !pMainFrame->LoadFrame(IDR_MAINFRAME)) {
    delete pMainFrame;
    return FALSE;
  }
  m_pMainWnd = pMainFrame;

  // Parse command line for standard shell commands, DDE, file open
  CCommandLineInfo cmdInfo;
  ParseCommandLine(cmdInfo);

  // Dispatch commands specified on the command line.  Will return FALSE if
  // app was launched with /RegServer, /Register, /Unregserver or /Unregister.
  if (!ProcessShellCommand(cmdInfo)) return FALSE;
  // The main window has been initialized, so show and update it
  pMainFrame->ShowWindow(m_nCmdShow);
  pMainFrame->UpdateWindow();

  return TRUE;
}
