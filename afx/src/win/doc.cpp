// CDocument: title and path, views, the modified flag, and the document's
// life: new, open and save through CArchive, the save prompt, closing.
#include <afxwin.h>
#include "frame_impl.h"

IMPLEMENT_DYNAMIC(CDocument, CCmdTarget)

BEGIN_MESSAGE_MAP(CDocument, CCmdTarget)
ON_COMMAND(ID_FILE_CLOSE, OnFileClose)
ON_COMMAND(ID_FILE_SAVE, OnFileSave)
ON_COMMAND(ID_FILE_SAVE_AS, OnFileSaveAs)
END_MESSAGE_MAP()

CDocument::CDocument()
    : m_pDocTemplate(NULL), m_bModified(FALSE), m_bAutoDelete(TRUE), m_bEmbedded(FALSE) {}

// Contents are not deleted here (DeleteContents is the derived class's and
// it is gone by now); views still attached forget the document.
CDocument::~CDocument() {
  POSITION pos = GetFirstViewPosition();
  while (pos != NULL) {
    CView* pView = GetNextView(pos);
    pView->m_pDocument = NULL;
  }
  m_viewList.RemoveAll();
  if (m_pDocTemplate != NULL) m_pDocTemplate->RemoveDocument(this);
}

BOOL CDocument::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  if (CCmdTarget::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  return m_pDocTemplate != NULL && m_pDocTemplate->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

// ---- Title and path -------------------------------------------------------------------

void CDocument::SetTitle(LPCTSTR lpszTitle) {
  m_strTitle = lpszTitle;
  UpdateFrameCounts(); // the frames' titles show it
}

void CDocument::SetPathName(LPCTSTR lpszPathName, BOOL bAddToMRU) {
  // Kept fully qualified; a path too long for the system's buffer is kept
  // as given rather than cut.
  TCHAR szFullPath[MAX_PATH];
  LPTSTR lpszFilePart;
  DWORD nLen = ::GetFullPathName(lpszPathName, MAX_PATH, szFullPath, &lpszFilePart);
  if (nLen == 0 || nLen >= MAX_PATH)
    m_strPathName = lpszPathName;
  else
    m_strPathName = szFullPath;
  m_bEmbedded = FALSE;
  // Decided here: the title is the file name with its extension.
  SetTitle(AfxFileNameOfPath(m_strPathName));
  CWinApp* pApp = AfxGetApp();
  if (bAddToMRU && pApp != NULL) pApp->AddToRecentFileList(m_strPathName);
}

// ---- Views --------------------------------------------------------------------------------

CView* CDocument::GetNextView(POSITION& rPosition) const {
  return (CView*)m_viewList.GetNext(rPosition);
}

void CDocument::AddView(CView* pView) {
  if (pView == NULL || pView->m_pDocument == this) return;
  if (pView->m_pDocument != NULL) pView->m_pDocument->RemoveView(pView);
  m_viewList.AddTail(pView);
  pView->m_pDocument = this;
  OnChangedViewList();
}

void CDocument::RemoveView(CView* pView) {
  if (pView == NULL || pView->m_pDocument != this) return;
  POSITION pos = m_viewList.Find(pView);
  if (pos != NULL) m_viewList.RemoveAt(pos);
  pView->m_pDocument = NULL;
  OnChangedViewList();
}

// The last view gone: an auto-delete document closes (and deletes) itself.
void CDocument::OnChangedViewList() {
  if (m_viewList.IsEmpty() && m_bAutoDelete) {
    OnCloseDocument();
    return;
  }
  UpdateFrameCounts();
}

void CDocument::UpdateAllViews(CView* pSender, LPARAM lHint, CObject* pHint) {
  POSITION pos = GetFirstViewPosition();
  while (pos != NULL) {
    CView* pView = GetNextView(pos);
    if (pView != pSender) pView->OnUpdate(pSender, lHint, pHint);
  }
}

// Numbers the visible frames of this document (":1", ":2" in their titles)
// when there are several; a single frame gets 0 (no number).
void CDocument::UpdateFrameCounts() {
  POSITION pos = GetFirstViewPosition();
  while (pos != NULL) {
    CView* pView = GetNextView(pos);
    if (pView->IsWindowVisible()) {
      CFrameWnd* pFrame = pView->GetParentFrame();
      if (pFrame != NULL) pFrame->m_nWindow = -1; // not counted yet
    }
  }
  int nFrames = 0;
  pos = GetFirstViewPosition();
  while (pos != NULL) {
    CView* pView = GetNextView(pos);
    if (pView->IsWindowVisible()) {
      CFrameWnd* pFrame = pView->GetParentFrame();
      if (pFrame != NULL && pFrame->m_nWindow == -1) pFrame->m_nWindow = ++nFrames;
    }
  }
  int iFrame = 1;
  pos = GetFirstViewPosition();
  while (pos != NULL) {
    CView* pView = GetNextView(pos);
    if (pView->IsWindowVisible()) {
      CFrameWnd* pFrame = pView->GetParentFrame();
      if (pFrame != NULL && pFrame->m_nWindow == iFrame) {
        if (nFrames == 1) pFrame->m_nWindow = 0; // the only one
        pFrame->OnUpdateFrameTitle(TRUE);
        iFrame++;
      }
    }
  }
}

// ---- Life cycle ----------------------------------------------------------------------------

void CDocument::DeleteContents() {}

BOOL CDocument::OnNewDocument() {
  DeleteContents();
  m_strPathName.Empty();
  SetModifiedFlag(FALSE);
  return TRUE;
}

CFile* CDocument::GetFile(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError) {
  CFile* pFile = new CFile; // CObject's new throws CMemoryException
  if (!pFile->Open(lpszFileName, nOpenFlags, pError)) {
    delete pFile;
    return NULL;
  }
  return pFile;
}

void CDocument::ReleaseFile(CFile* pFile, BOOL bAbort) {
  if (bAbort) {
    pFile->Abort(); // never throws
  } else {
    try {
      pFile->Close();
    } catch (...) {
      delete pFile;
      throw;
    }
  }
  delete pFile;
}

BOOL CDocument::OnOpenDocument(LPCTSTR lpszPathName) {
  CFileException fe;
  CFile* pFile = GetFile(lpszPathName, CFile::modeRead | CFile::shareDenyWrite, &fe);
  if (pFile == NULL) {
    ReportSaveLoadException(lpszPathName, &fe, FALSE, AFX_IDP_FAILED_TO_OPEN_DOC);
    return FALSE;
  }
  DeleteContents();
  SetModifiedFlag(); // dirty while it loads
  try {
    CArchive loadArchive(pFile, CArchive::load | CArchive::bNoFlushOnDelete);
    loadArchive.m_pDocument = this;
    loadArchive.m_bForceFlat = FALSE;
    if (pFile->GetLength() != 0) Serialize(loadArchive); // an empty file is an empty document
    loadArchive.Close();
  } catch (CException* e) {
    ReleaseFile(pFile, TRUE);
    DeleteContents(); // no half-loaded contents
    ReportSaveLoadException(lpszPathName, e, FALSE, AFX_IDP_FAILED_TO_OPEN_DOC);
    e->Delete();
    return FALSE;
  }
  try {
    ReleaseFile(pFile, FALSE);
  } catch (CException* e) {
    ReportSaveLoadException(lpszPathName, e, FALSE, AFX_IDP_FAILED_TO_OPEN_DOC);
    e->Delete();
    return FALSE;
  }
  SetModifiedFlag(FALSE);
  return TRUE;
}

BOOL CDocument::OnSaveDocument(LPCTSTR lpszPathName) {
  CFileException fe;
  CFile* pFile =
      GetFile(lpszPathName, CFile::modeCreate | CFile::modeReadWrite | CFile::shareExclusive, &fe);
  if (pFile == NULL) {
    ReportSaveLoadException(lpszPathName, &fe, TRUE, AFX_IDP_INVALID_FILENAME);
    return FALSE;
  }
  try {
    CArchive saveArchive(pFile, CArchive::store | CArchive::bNoFlushOnDelete);
    saveArchive.m_pDocument = this;
    saveArchive.m_bForceFlat = FALSE;
    Serialize(saveArchive);
    saveArchive.Close();
    ReleaseFile(pFile, FALSE);
  } catch (CException* e) {
    ReleaseFile(pFile, TRUE);
    ReportSaveLoadException(lpszPathName, e, TRUE, AFX_IDP_FAILED_TO_SAVE_DOC);
    e->Delete();
    return FALSE;
  }
  SetModifiedFlag(FALSE);
  return TRUE;
}

// MFC's prompts for the causes it names. These strings belong to the
// application's or afx's string table; when a module has none the default
// prompt is used.
#define AFX_IDP_FAILED_INVALID_FORMAT 0xF120
#define AFX_IDP_FAILED_INVALID_PATH 0xF121
#define AFX_IDP_FAILED_DISK_FULL 0xF122
#define AFX_IDP_FAILED_ACCESS_READ 0xF123
#define AFX_IDP_FAILED_ACCESS_WRITE 0xF124
#define AFX_IDP_FAILED_IO_ERROR_READ 0xF125
#define AFX_IDP_FAILED_IO_ERROR_WRITE 0xF126

// Tells the user why a file could not be read or written: a file
// exception's own message ("<file> was not found."...), else a prompt for
// the cause with the file's name, else nIDPDefault. A CUserException was
// reported by its thrower already.
void CDocument::ReportSaveLoadException(LPCTSTR lpszPathName, CException* e, BOOL bSaving,
                                        UINT nIDPDefault) {
  UINT nIDP = nIDPDefault;
  CString strPrompt;
  if (e != NULL) {
    if (e->IsKindOf(RUNTIME_CLASS(CUserException))) return;
    if (e->IsKindOf(RUNTIME_CLASS(CArchiveException))) {
      switch (((CArchiveException*)e)->m_cause) {
      case CArchiveException::badSchema:
      case CArchiveException::badClass:
      case CArchiveException::badIndex:
      case CArchiveException::endOfFile:
        nIDP = AFX_IDP_FAILED_INVALID_FORMAT;
        break;
      default:
        break;
      }
    } else if (e->IsKindOf(RUNTIME_CLASS(CFileException))) {
      CFileException* pFE = (CFileException*)e;
      if (pFE->m_strFileName.IsEmpty() && lpszPathName != NULL) pFE->m_strFileName = lpszPathName;
      TCHAR szMessage[512];
      if (e->GetErrorMessage(szMessage, _countof(szMessage))) strPrompt = szMessage;
      if (strPrompt.IsEmpty()) {
        switch (pFE->m_cause) {
        case CFileException::fileNotFound:
        case CFileException::badPath:
          nIDP = AFX_IDP_FAILED_INVALID_PATH;
          break;
        case CFileException::diskFull:
          nIDP = AFX_IDP_FAILED_DISK_FULL;
          break;
        case CFileException::accessDenied:
          nIDP = bSaving ? AFX_IDP_FAILED_ACCESS_WRITE : AFX_IDP_FAILED_ACCESS_READ;
          break;
        default:
          nIDP = bSaving ? AFX_IDP_FAILED_IO_ERROR_WRITE : AFX_IDP_FAILED_IO_ERROR_READ;
          break;
        }
      }
    }
  }
  if (strPrompt.IsEmpty()) {
    CString strTitle = lpszPathName != NULL ? AfxFileNameOfPath(lpszPathName) : CString();
    AfxFormatString1(strPrompt, nIDP, strTitle);
    if (strPrompt.IsEmpty() && nIDP != nIDPDefault) {
      nIDP = nIDPDefault;
      AfxFormatString1(strPrompt, nIDP, strTitle);
    }
  }
  AfxMessageBox(strPrompt, MB_ICONEXCLAMATION, nIDP);
}

// "Save changes to <name>?": Yes saves (FALSE when that fails), No leaves
// the document as it is, Cancel answers FALSE.
BOOL CDocument::SaveModified() {
  if (!IsModified()) return TRUE;
  CString strName;
  if (m_strPathName.IsEmpty()) {
    strName = m_strTitle;
    if (strName.IsEmpty()) strName.LoadString(AFX_IDS_UNTITLED);
  } else {
    strName = AfxFileNameOfPath(m_strPathName);
  }
  CString strPrompt;
  AfxFormatString1(strPrompt, AFX_IDP_ASK_TO_SAVE, strName);
  switch (AfxMessageBox(strPrompt, MB_YESNOCANCEL, AFX_IDP_ASK_TO_SAVE)) {
  case IDCANCEL:
    return FALSE;
  case IDYES:
    return DoFileSave();
  default:
    return TRUE;
  }
}

BOOL CDocument::DoFileSave() {
  // No file yet, or a read-only one: ask for a name.
  DWORD dwAttrib = ::GetFileAttributes(m_strPathName);
  if (m_strPathName.IsEmpty() || dwAttrib == INVALID_FILE_ATTRIBUTES ||
      (dwAttrib & FILE_ATTRIBUTE_READONLY))
    return DoSave(NULL);
  return DoSave(m_strPathName);
}

BOOL CDocument::DoSave(LPCTSTR lpszPathName, BOOL bReplace) {
  CString strNewName = lpszPathName;
  if (strNewName.IsEmpty()) {
    CDocTemplate* pTemplate = GetDocTemplate();
    strNewName = m_strPathName;
    if (bReplace && strNewName.IsEmpty()) {
      // A name from the title, cut at a character no file name may hold,
      // with the template's first extension.
      strNewName = m_strTitle;
      int iBad = strNewName.FindOneOf(":/\\");
      if (iBad != -1) strNewName.Truncate(iBad);
      CString strExt;
      if (pTemplate != NULL && pTemplate->GetDocString(strExt, CDocTemplate::filterExt) &&
          !strExt.IsEmpty()) {
        int iSemicolon = strExt.Find(';');
        strNewName += iSemicolon >= 0 ? strExt.Left(iSemicolon) : strExt;
      }
    }
    CWinApp* pApp = AfxGetApp();
    if (pApp == NULL ||
        !pApp->DoPromptFileName(strNewName, bReplace ? AFX_IDS_SAVEFILE : AFX_IDS_SAVEFILECOPY,
                                OFN_HIDEREADONLY | OFN_PATHMUSTEXIST, FALSE, pTemplate))
      return FALSE; // cancelled
  }
  if (!OnSaveDocument(strNewName)) {
    // A file made for a new name is not left behind half written.
    if (lpszPathName == NULL) ::DeleteFile(strNewName);
    return FALSE;
  }
  if (bReplace) SetPathName(strNewName);
  return TRUE;
}

BOOL CDocument::CanCloseFrame(CFrameWnd*) {
  // Another frame still shows the document: nothing to ask.
  POSITION pos = GetFirstViewPosition();
  while (pos != NULL) {
    CView* pView = GetNextView(pos);
    CFrameWnd* pFrame = pView->GetParentFrame();
    if (pFrame != NULL && pFrame->m_nWindow > 0) return TRUE;
  }
  return SaveModified();
}

void CDocument::PreCloseFrame(CFrameWnd*) {}

void CDocument::OnCloseDocument() {
  // The document stays while its frames go.
  BOOL bAutoDelete = m_bAutoDelete;
  m_bAutoDelete = FALSE;
  while (!m_viewList.IsEmpty()) {
    CView* pView = (CView*)m_viewList.GetHead();
    CFrameWnd* pFrame = pView->GetParentFrame();
    if (pFrame != NULL) {
      PreCloseFrame(pFrame);
      pFrame->DestroyWindow(); // the view goes with it
    } else {
      pView->DestroyWindow();
    }
    // A view without a window never leaves the list by itself.
    if (!m_viewList.IsEmpty() && m_viewList.GetHead() == pView) RemoveView(pView);
  }
  m_bAutoDelete = bAutoDelete;
  DeleteContents();
  if (m_bAutoDelete) delete this;
}

// ---- Commands ------------------------------------------------------------------------------

void CDocument::OnFileClose() {
  if (!SaveModified()) return;
  OnCloseDocument(); // this object may be gone now
}

void CDocument::OnFileSave() { DoFileSave(); }

void CDocument::OnFileSaveAs() { DoSave(NULL); }
