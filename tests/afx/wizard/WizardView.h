// WizardView.h : interface of the CWizardView class
#pragma once

class CWizardView : public CView {
protected: // create from serialization only
  CWizardView();
  DECLARE_DYNCREATE(CWizardView)

public:
  CWizardDoc* GetDocument() const { return reinterpret_cast<CWizardDoc*>(m_pDocument); }
  virtual void OnDraw(CDC* pDC); // overridden to draw this view
  virtual ~CWizardView();

protected:
  COLORREF m_clrBack;
  afx_msg void OnViewColor();
  DECLARE_MESSAGE_MAP()
};
