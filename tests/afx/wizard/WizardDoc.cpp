// WizardDoc.cpp : implementation of the CWizardDoc class
#include "stdafx.h"
#include "Wizard.h"

#include "WizardDoc.h"

IMPLEMENT_DYNCREATE(CWizardDoc, CDocument)

BEGIN_MESSAGE_MAP(CWizardDoc, CDocument)
END_MESSAGE_MAP()

CWizardDoc::CWizardDoc() {}

CWizardDoc::~CWizardDoc() {}

BOOL CWizardDoc::OnNewDocument() {
  if (!CDocument::OnNewDocument()) return FALSE;
  return TRUE;
}

void CWizardDoc::Serialize(CArchive& ar) {
  if (ar.IsStoring()) {
    // TODO: add storing code here
  } else {
    // TODO: add loading code here
  }
}
