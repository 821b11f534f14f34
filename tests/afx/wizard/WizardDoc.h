// WizardDoc.h : interface of the CWizardDoc class
#pragma once

class CWizardDoc : public CDocument {
protected: // create from serialization only
  CWizardDoc();
  DECLARE_DYNCREATE(CWizardDoc)

public:
  virtual BOOL OnNewDocument();
  virtual void Serialize(CArchive& ar);
  virtual ~CWizardDoc();

protected:
  DECLARE_MESSAGE_MAP()
};
