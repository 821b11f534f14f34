// CRichEditDoc and CRichEditCntrItem: a document kept in its rich edit view's
// control (no OLE embedding).
#include <afxrich.h>

IMPLEMENT_DYNAMIC(CRichEditCntrItem, CObject)
IMPLEMENT_DYNAMIC(CRichEditDoc, CDocument)

CRichEditCntrItem::CRichEditCntrItem(REOBJECT* preo, CRichEditDoc* pContainer)
    : m_pDocument(pContainer), m_dwFlags(preo != NULL ? preo->dwFlags : 0),
      m_dvaspect(preo != NULL ? preo->dvaspect : DVASPECT_CONTENT) {}

CRichEditCntrItem::~CRichEditCntrItem() {}

CRichEditDoc::CRichEditDoc() : m_bRTF(TRUE) {}

CRichEditDoc::~CRichEditDoc() {}

CRichEditView* CRichEditDoc::GetView() const {
  POSITION pos = GetFirstViewPosition();
  while (pos != NULL) {
    CView* pView = GetNextView(pos);
    if (pView->IsKindOf(RUNTIME_CLASS(CRichEditView))) return (CRichEditView*)pView;
  }
  return NULL;
}

// While the view's control is there, its modify flag is the document's:
// typing modifies the document, and the document's flag is set on it.
BOOL CRichEditDoc::IsModified() {
  CRichEditView* pView = GetView();
  if (pView != NULL && pView->m_hWnd != NULL) return pView->GetRichEditCtrl().GetModify();
  return CDocument::IsModified();
}

void CRichEditDoc::SetModifiedFlag(BOOL bModified) {
  CDocument::SetModifiedFlag(bModified);
  CRichEditView* pView = GetView();
  if (pView != NULL && pView->m_hWnd != NULL) pView->GetRichEditCtrl().SetModify(bModified);
}

void CRichEditDoc::DeleteContents() {
  CRichEditView* pView = GetView();
  if (pView != NULL && pView->m_hWnd != NULL) pView->DeleteContents();
  CDocument::DeleteContents();
}

// The control's contents, as RTF or plain text (m_bRTF).
void CRichEditDoc::Serialize(CArchive& ar) {
  CRichEditView* pView = GetView();
  if (pView != NULL && pView->m_hWnd != NULL) pView->Serialize(ar);
}
