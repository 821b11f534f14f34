// Document templates: the document strings, new documents and their frames,
// and the single- and multiple-document kinds.
#include <afxwin.h>
#include "frame_impl.h"

IMPLEMENT_DYNAMIC(CDocTemplate, CCmdTarget)
IMPLEMENT_DYNAMIC(CSingleDocTemplate, CDocTemplate)
IMPLEMENT_DYNAMIC(CMultiDocTemplate, CDocTemplate)

// ---- CDocTemplate -------------------------------------------------------------------------

// Decided here: the strings (and, for the MDI kind, the menu and table) are
// loaded when the template is made, so that a template the application does
// not register (a module's own) works too; AddDocTemplate loads nothing twice.
CDocTemplate::CDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass, CRuntimeClass* pFrameClass,
                           CRuntimeClass* pViewClass)
    : m_nIDResource(nIDResource), m_pDocClass(pDocClass), m_pFrameClass(pFrameClass),
      m_pViewClass(pViewClass), m_bAutoDelete(TRUE) {
  CDocTemplate::LoadTemplate();
}

CDocTemplate::~CDocTemplate() {}

void CDocTemplate::LoadTemplate() {
  if (m_strDocStrings.IsEmpty() && m_nIDResource != 0) m_strDocStrings.LoadString(m_nIDResource);
}

BOOL CDocTemplate::GetDocString(CString& rString, enum DocStringIndex index) const {
  return AfxExtractSubString(rString, m_strDocStrings, (int)index);
}

void CDocTemplate::AddDocument(CDocument* pDoc) { pDoc->m_pDocTemplate = this; }

void CDocTemplate::RemoveDocument(CDocument* pDoc) { pDoc->m_pDocTemplate = NULL; }

BOOL CDocTemplate::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  return CCmdTarget::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

CDocTemplate::Confidence CDocTemplate::MatchDocType(LPCTSTR lpszPathName, CDocument*& rpDocMatch) {
  rpDocMatch = NULL;
  POSITION pos = GetFirstDocPosition();
  while (pos != NULL) {
    CDocument* pDoc = GetNextDoc(pos);
    if (!pDoc->GetPathName().IsEmpty() && pDoc->GetPathName().CompareNoCase(lpszPathName) == 0) {
      rpDocMatch = pDoc;
      return yesAlreadyOpen;
    }
  }
  // One of the template's extensions (".a;.b"): surely ours.
  CString strFilterExt;
  LPCTSTR lpszDot = strrchr(lpszPathName, '.');
  if (lpszDot != NULL && GetDocString(strFilterExt, filterExt) && !strFilterExt.IsEmpty()) {
    int iStart = 0;
    while (iStart >= 0) {
      CString strExt = strFilterExt.Tokenize(";", iStart);
      if (iStart >= 0 && strExt.CompareNoCase(lpszDot) == 0) return yesAttemptNative;
    }
  }
  return yesAttemptForeign;
}

CDocument* CDocTemplate::CreateNewDocument() {
  if (m_pDocClass == NULL) return NULL;
  CObject* pObject = m_pDocClass->CreateObject();
  if (pObject == NULL) return NULL;
  if (!pObject->IsKindOf(RUNTIME_CLASS(CDocument))) {
    delete pObject;
    return NULL;
  }
  CDocument* pDocument = (CDocument*)pObject;
  AddDocument(pDocument);
  return pDocument;
}

CFrameWnd* CDocTemplate::CreateNewFrame(CDocument* pDoc, CFrameWnd* pOther) {
  CCreateContext context;
  context.m_pCurrentFrame = pOther;
  context.m_pCurrentDoc = pDoc;
  context.m_pNewViewClass = m_pViewClass;
  context.m_pNewDocTemplate = this;
  if (m_pFrameClass == NULL) return NULL;
  CObject* pObject = m_pFrameClass->CreateObject();
  if (pObject == NULL) return NULL;
  if (!pObject->IsKindOf(RUNTIME_CLASS(CFrameWnd))) {
    delete pObject;
    return NULL;
  }
  CFrameWnd* pFrame = (CFrameWnd*)pObject;
  // A frame that fails deletes itself (PostNcDestroy).
  if (!pFrame->LoadFrame(m_nIDResource, WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE, NULL, &context))
    return NULL;
  return pFrame;
}

void CDocTemplate::InitialUpdateFrame(CFrameWnd* pFrame, CDocument* pDoc, BOOL bMakeVisible) {
  pFrame->InitialUpdateFrame(pDoc, bMakeVisible);
}

BOOL CDocTemplate::SaveAllModified() {
  POSITION pos = GetFirstDocPosition();
  while (pos != NULL) {
    CDocument* pDoc = GetNextDoc(pos);
    if (!pDoc->SaveModified()) return FALSE;
  }
  return TRUE;
}

void CDocTemplate::CloseAllDocuments(BOOL bEndSession) {
  POSITION pos = GetFirstDocPosition();
  while (pos != NULL) {
    CDocument* pDoc = GetNextDoc(pos); // the position moves on before the document goes
    if (bEndSession) {
      // The session ends: windows are not destroyed one by one.
      POSITION posView = pDoc->GetFirstViewPosition();
      while (posView != NULL)
        pDoc->GetNextView(posView)->m_pDocument = NULL;
      pDoc->m_viewList.RemoveAll();
    }
    pDoc->OnCloseDocument();
  }
}

// Opens into pDocument (a new one, or the single template's old one), and
// shows it in pFrame; on failure pFrame is destroyed when bCreated.
static CDocument* OpenInto(CDocTemplate* pTemplate, CDocument* pDocument, CFrameWnd* pFrame,
                           LPCTSTR lpszPathName, BOOL bMakeVisible, BOOL bCreated) {
  if (lpszPathName == NULL) {
    pTemplate->SetDefaultTitle(pDocument);
    if (!bMakeVisible) pDocument->m_bEmbedded = TRUE;
    if (!pDocument->OnNewDocument()) {       // the document told the user
      if (bCreated) pFrame->DestroyWindow(); // the document goes with its view
      return NULL;
    }
  } else {
    BOOL bWasModified = pDocument->IsModified();
    pDocument->SetModifiedFlag(FALSE);
    if (!pDocument->OnOpenDocument(lpszPathName)) { // the document told the user
      if (bCreated) {
        pFrame->DestroyWindow();
      } else if (!pDocument->IsModified()) {
        pDocument->SetModifiedFlag(bWasModified); // the old contents are intact
      } else {
        // The old contents are gone: start an empty document instead.
        pTemplate->SetDefaultTitle(pDocument);
        pDocument->OnNewDocument();
      }
      return NULL;
    }
    pDocument->SetPathName(lpszPathName);
  }
  return pDocument;
}

// ---- CSingleDocTemplate --------------------------------------------------------------------

CSingleDocTemplate::CSingleDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass,
                                       CRuntimeClass* pFrameClass, CRuntimeClass* pViewClass)
    : CDocTemplate(nIDResource, pDocClass, pFrameClass, pViewClass), m_pOnlyDoc(NULL) {}

CSingleDocTemplate::~CSingleDocTemplate() {
  if (m_pOnlyDoc != NULL) {
    CDocument* pDoc = m_pOnlyDoc;
    pDoc->OnCloseDocument();
    if (m_pOnlyDoc == pDoc) RemoveDocument(pDoc); // a document that is not auto-deleted
  }
}

void CSingleDocTemplate::AddDocument(CDocument* pDoc) {
  CDocTemplate::AddDocument(pDoc);
  m_pOnlyDoc = pDoc;
}

void CSingleDocTemplate::RemoveDocument(CDocument* pDoc) {
  CDocTemplate::RemoveDocument(pDoc);
  if (m_pOnlyDoc == pDoc) m_pOnlyDoc = NULL;
}

POSITION CSingleDocTemplate::GetFirstDocPosition() const {
  return m_pOnlyDoc == NULL ? NULL : BEFORE_START_POSITION;
}

CDocument* CSingleDocTemplate::GetNextDoc(POSITION& rPos) const {
  CDocument* pDoc = NULL;
  if (rPos == BEFORE_START_POSITION) pDoc = m_pOnlyDoc;
  rPos = NULL;
  return pDoc;
}

void CSingleDocTemplate::SetDefaultTitle(CDocument* pDocument) {
  CString strDocName;
  if (!GetDocString(strDocName, docName) || strDocName.IsEmpty())
    strDocName.LoadString(AFX_IDS_UNTITLED);
  pDocument->SetTitle(strDocName);
}

// One document: a second open or new reuses the document and the main frame
// (after asking to save the old contents).
CDocument* CSingleDocTemplate::OpenDocumentFile(LPCTSTR lpszPathName, BOOL bMakeVisible) {
  CDocument* pDocument;
  CFrameWnd* pFrame = NULL;
  BOOL bCreated = FALSE;
  if (m_pOnlyDoc != NULL) {
    pDocument = m_pOnlyDoc;
    if (!pDocument->SaveModified()) return NULL; // the user kept the old one
    CWnd* pMainWnd = AfxGetMainWnd();
    if (pMainWnd != NULL && pMainWnd->IsKindOf(RUNTIME_CLASS(CFrameWnd)))
      pFrame = (CFrameWnd*)pMainWnd;
    if (pFrame == NULL) {
      // The document has a frame of its own even when it is not the main one.
      POSITION pos = pDocument->GetFirstViewPosition();
      if (pos != NULL) pFrame = pDocument->GetNextView(pos)->GetParentFrame();
    }
    if (pFrame == NULL) {
      AfxMessageBox(AFX_IDP_FAILED_TO_CREATE_DOC);
      return NULL;
    }
  } else {
    pDocument = CreateNewDocument();
    if (pDocument == NULL) {
      AfxMessageBox(AFX_IDP_FAILED_TO_CREATE_DOC);
      return NULL;
    }
    bCreated = TRUE;
    BOOL bAutoDelete = pDocument->m_bAutoDelete;
    pDocument->m_bAutoDelete = FALSE; // not deleted by a failing frame
    pFrame = CreateNewFrame(pDocument, NULL);
    pDocument->m_bAutoDelete = bAutoDelete;
    if (pFrame == NULL) {
      AfxMessageBox(AFX_IDP_FAILED_TO_CREATE_DOC);
      delete pDocument;
      return NULL;
    }
  }
  if (OpenInto(this, pDocument, pFrame, lpszPathName, bMakeVisible, bCreated) == NULL) return NULL;
  CWinThread* pThread = AfxGetThread();
  if (bCreated && pThread != NULL && pThread->m_pMainWnd == NULL)
    pThread->m_pMainWnd = pFrame; // InitialUpdateFrame shows it
  InitialUpdateFrame(pFrame, pDocument, bMakeVisible);
  return pDocument;
}

// ---- CMultiDocTemplate ---------------------------------------------------------------------

CMultiDocTemplate::CMultiDocTemplate(UINT nIDResource, CRuntimeClass* pDocClass,
                                     CRuntimeClass* pFrameClass, CRuntimeClass* pViewClass)
    : CDocTemplate(nIDResource, pDocClass, pFrameClass, pViewClass), m_hMenuShared(NULL),
      m_hAccelTable(NULL), m_nUntitledCount(0) {
  CMultiDocTemplate::LoadTemplate();
}

CMultiDocTemplate::~CMultiDocTemplate() {
  // Documents still open are closed before the menu they show goes.
  while (!m_docList.IsEmpty()) {
    CDocument* pDoc = (CDocument*)m_docList.GetHead();
    pDoc->OnCloseDocument();
    if (!m_docList.IsEmpty() && m_docList.GetHead() == pDoc) RemoveDocument(pDoc);
  }
  if (m_hMenuShared != NULL) ::DestroyMenu(m_hMenuShared);
  if (m_hAccelTable != NULL) ::DestroyAcceleratorTable(m_hAccelTable);
}

// The shared menu and accelerator table, loaded once for every child.
void CMultiDocTemplate::LoadTemplate() {
  CDocTemplate::LoadTemplate();
  if (m_nIDResource == 0) return;
  LPCTSTR lpszName = MAKEINTRESOURCE(m_nIDResource);
  if (m_hMenuShared == NULL) {
    HINSTANCE hInst = AfxFindResourceHandle(lpszName, RT_MENU);
    m_hMenuShared = ::LoadMenu(hInst, lpszName);
  }
  if (m_hAccelTable == NULL) m_hAccelTable = AfxLoadAccelerators(lpszName);
}

void CMultiDocTemplate::AddDocument(CDocument* pDoc) {
  CDocTemplate::AddDocument(pDoc);
  m_docList.AddTail(pDoc);
}

void CMultiDocTemplate::RemoveDocument(CDocument* pDoc) {
  CDocTemplate::RemoveDocument(pDoc);
  POSITION pos = m_docList.Find(pDoc);
  if (pos != NULL) m_docList.RemoveAt(pos);
}

POSITION CMultiDocTemplate::GetFirstDocPosition() const { return m_docList.GetHeadPosition(); }

CDocument* CMultiDocTemplate::GetNextDoc(POSITION& rPos) const {
  return (CDocument*)m_docList.GetNext(rPos);
}

// "<docName><n>" (Sheet1, Sheet2...), or "Untitled" without a document name.
void CMultiDocTemplate::SetDefaultTitle(CDocument* pDocument) {
  CString strDocName;
  if (GetDocString(strDocName, docName) && !strDocName.IsEmpty()) {
    CString strNumber;
    strNumber.Format("%u", m_nUntitledCount + 1);
    strDocName += strNumber;
  } else {
    strDocName.LoadString(AFX_IDS_UNTITLED);
  }
  pDocument->SetTitle(strDocName);
}

CDocument* CMultiDocTemplate::OpenDocumentFile(LPCTSTR lpszPathName, BOOL bMakeVisible) {
  CDocument* pDocument = CreateNewDocument();
  if (pDocument == NULL) {
    AfxMessageBox(AFX_IDP_FAILED_TO_CREATE_DOC);
    return NULL;
  }
  BOOL bAutoDelete = pDocument->m_bAutoDelete;
  pDocument->m_bAutoDelete = FALSE; // not deleted by a failing frame
  CFrameWnd* pFrame = CreateNewFrame(pDocument, NULL);
  pDocument->m_bAutoDelete = bAutoDelete;
  if (pFrame == NULL) {
    AfxMessageBox(AFX_IDP_FAILED_TO_CREATE_DOC);
    delete pDocument;
    return NULL;
  }
  if (OpenInto(this, pDocument, pFrame, lpszPathName, bMakeVisible, TRUE) == NULL) return NULL;
  if (lpszPathName == NULL) m_nUntitledCount++;
  InitialUpdateFrame(pFrame, pDocument, bMakeVisible);
  return pDocument;
}
