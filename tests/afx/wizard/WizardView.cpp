// WizardView.cpp : implementation of the CWizardView class
#include "stdafx.h"
#include "Wizard.h"

#include "WizardDoc.h"
#include "WizardView.h"

IMPLEMENT_DYNCREATE(CWizardView, CView)

BEGIN_MESSAGE_MAP(CWizardView, CView)
ON_COMMAND(ID_VIEW_COLOR, &CWizardView::OnViewColor)
END_MESSAGE_MAP()

CWizardView::CWizardView() : m_clrBack(RGB(255, 255, 224)) {}

CWizardView::~CWizardView() {}

void CWizardView::OnDraw(CDC* pDC) {
  CRect rect;
  GetClientRect(&rect);
  pDC->FillSolidRect(&rect, m_clrBack);
  // a square in the middle, as large as the smaller side allows
  int nSide = min(rect.Width(), rect.Height()) / 2;
  CRect rectSquare(rect.CenterPoint(), CSize(0, 0));
  rectSquare.InflateRect(max(nSide / 2, 1), max(nSide / 2, 1));
  pDC->Rectangle(&rectSquare);
}

void CWizardView::OnViewColor() {
  CColorDialog dlg(m_clrBack, CC_FULLOPEN);
  if (dlg.DoModal() == IDOK) {
    m_clrBack = dlg.GetColor();
    Invalidate();
  }
}
