// Wizard.h : main header file for the Wizard application
#pragma once

#ifndef __AFXWIN_H__
#error "include 'stdafx.h' before including this file for PCH"
#endif

#include "resource.h" // main symbols

class CWizardApp : public CWinApp {
public:
  CWizardApp();

  virtual BOOL InitInstance();

  DECLARE_MESSAGE_MAP()
};

extern CWizardApp theApp;
