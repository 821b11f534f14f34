// The application's documents: CDocManager (the templates, File New and
// File Open, the file dialog's filters) and CWinApp's members over it.
#include <afxwin.h>
#include <commdlg.h>
#include "frame_impl.h"

IMPLEMENT_DYNAMIC(CDocManager, CObject)

CDocManager::CDocManager() {}

// The templates go with the manager (those whose m_bAutoDelete is set).
CDocManager::~CDocManager() {
  POSITION pos = m_templateList.GetHeadPosition();
  while (pos != NULL) {
    POSITION posTemplate = pos;
    CDocTemplate* pTemplate = (CDocTemplate*)m_templateList.GetNext(pos);
    if (pTemplate->m_bAutoDelete) {
      m_templateList.RemoveAt(posTemplate);
      delete pTemplate;
    }
  }
}

void CDocManager::AddDocTemplate(CDocTemplate* pTemplate) {
  if (pTemplate == NULL || m_templateList.Find(pTemplate) != NULL) return;
  pTemplate->LoadTemplate();
  m_templateList.AddTail(pTemplate);
}

POSITION CDocManager::GetFirstDocTemplatePosition() const {
  return m_templateList.GetHeadPosition();
}

CDocTemplate* CDocManager::GetNextDocTemplate(POSITION& pos) const {
  return (CDocTemplate*)m_templateList.GetNext(pos);
}

BOOL CDocManager::SaveAllModified() {
  POSITION pos = m_templateList.GetHeadPosition();
  while (pos != NULL) {
    CDocTemplate* pTemplate = (CDocTemplate*)m_templateList.GetNext(pos);
    if (!pTemplate->SaveAllModified()) return FALSE;
  }
  return TRUE;
}

void CDocManager::CloseAllDocuments(BOOL bEndSession) {
  POSITION pos = m_templateList.GetHeadPosition();
  while (pos != NULL) {
    CDocTemplate* pTemplate = (CDocTemplate*)m_templateList.GetNext(pos);
    pTemplate->CloseAllDocuments(bEndSession);
  }
}

int CDocManager::GetOpenDocumentCount() {
  int nOpen = 0;
  POSITION pos = m_templateList.GetHeadPosition();
  while (pos != NULL) {
    CDocTemplate* pTemplate = (CDocTemplate*)m_templateList.GetNext(pos);
    POSITION posDoc = pTemplate->GetFirstDocPosition();
    while (posDoc != NULL) {
      pTemplate->GetNextDoc(posDoc);
      nOpen++;
    }
  }
  return nOpen;
}

// The template that fits the file best (one that has it open already, else
// one whose extension it has, else the first), which opens it; a document
// already open is activated instead.
CDocument* CDocManager::OpenDocumentFile(LPCTSTR lpszFileName) {
  if (lpszFileName == NULL) return NULL;
  // A path in quotes (from a command line) loses them.
  CString strPath = lpszFileName;
  strPath.Trim();
  if (strPath.GetLength() >= 2 && strPath[0] == '"' && strPath[strPath.GetLength() - 1] == '"')
    strPath = strPath.Mid(1, strPath.GetLength() - 2);
  TCHAR szFullPath[MAX_PATH];
  LPTSTR lpszFilePart;
  DWORD nLen = ::GetFullPathName(strPath, MAX_PATH, szFullPath, &lpszFilePart);
  if (nLen != 0 && nLen < MAX_PATH) strPath = szFullPath; // an over-long one is kept as given

  CDocTemplate::Confidence bestMatch = CDocTemplate::noAttempt;
  CDocTemplate* pBestTemplate = NULL;
  CDocument* pOpenDocument = NULL;
  POSITION pos = m_templateList.GetHeadPosition();
  while (pos != NULL) {
    CDocTemplate* pTemplate = (CDocTemplate*)m_templateList.GetNext(pos);
    CDocument* pDocMatch = NULL;
    CDocTemplate::Confidence match = pTemplate->MatchDocType(strPath, pDocMatch);
    if (match > bestMatch) {
      bestMatch = match;
      pBestTemplate = pTemplate;
    }
    if (match == CDocTemplate::yesAlreadyOpen) {
      pOpenDocument = pDocMatch;
      break;
    }
  }
  if (pOpenDocument != NULL) {
    POSITION posView = pOpenDocument->GetFirstViewPosition();
    if (posView != NULL) {
      CFrameWnd* pFrame = pOpenDocument->GetNextView(posView)->GetParentFrame();
      if (pFrame != NULL) {
        pFrame->ActivateFrame();
        CWinApp* pApp = AfxGetApp();
        CWnd* pMainWnd = pApp != NULL ? pApp->m_pMainWnd : NULL;
        if (pFrame->GetParent() != NULL && pMainWnd != NULL && pMainWnd != pFrame &&
            pMainWnd->IsKindOf(RUNTIME_CLASS(CFrameWnd)))
          ((CFrameWnd*)pMainWnd)->ActivateFrame();
      }
    }
    return pOpenDocument;
  }
  if (pBestTemplate == NULL) {
    AfxMessageBox(AFX_IDP_FAILED_TO_OPEN_DOC);
    return NULL;
  }
  return pBestTemplate->OpenDocumentFile(strPath);
}

// Adds the template's filter ("Name", "*.a;*.b") to the filter list; the
// first extension of the first template that has one becomes the default.
static void AppendFilterSuffix(CString& strFilter, OPENFILENAME& ofn, CDocTemplate* pTemplate,
                               CString* pstrDefaultExt) {
  CString strFilterExt, strFilterName;
  if (!pTemplate->GetDocString(strFilterExt, CDocTemplate::filterExt) || strFilterExt.IsEmpty() ||
      !pTemplate->GetDocString(strFilterName, CDocTemplate::filterName) || strFilterName.IsEmpty())
    return;
  strFilter += strFilterName;
  strFilter += '|';
  int iStart = 0;
  BOOL bAny = FALSE;
  while (iStart >= 0) {
    CString strExtension = strFilterExt.Tokenize(";", iStart);
    if (iStart < 0) break;
    if (pstrDefaultExt != NULL && pstrDefaultExt->IsEmpty()) {
      *pstrDefaultExt = strExtension.Mid(strExtension[0] == '.' ? 1 : 0);
      ofn.nFilterIndex = ofn.nMaxCustFilter + 1; // 1-based
    }
    if (bAny) strFilter += ';';
    strFilter += '*';
    strFilter += strExtension;
    bAny = TRUE;
  }
  strFilter += '|';
  ofn.nMaxCustFilter++;
}

// The system's Open or Save As dialog, with the templates' filters and
// "All Files (*.*)"; fileName is the proposed and then the chosen name.
BOOL CDocManager::DoPromptFileName(CString& fileName, UINT nIDSTitle, DWORD lFlags,
                                   BOOL bOpenFileDialog, CDocTemplate* pTemplate) {
  OPENFILENAME ofn;
  memset(&ofn, 0, sizeof(ofn));
  ofn.lStructSize = sizeof(ofn);
  CWnd* pMainWnd = AfxGetMainWnd();
  ofn.hwndOwner = pMainWnd != NULL ? pMainWnd->GetSafeHwnd() : NULL;
  ofn.Flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_ENABLESIZING | lFlags;
  CString strTitle;
  strTitle.LoadString(nIDSTitle);
  ofn.lpstrTitle = strTitle;

  // Built with '|' separators, turned into the NUL-separated form below.
  CString strFilter, strDefault;
  if (pTemplate != NULL) {
    AppendFilterSuffix(strFilter, ofn, pTemplate, &strDefault);
  } else {
    BOOL bFirst = TRUE;
    POSITION pos = m_templateList.GetHeadPosition();
    while (pos != NULL) {
      AppendFilterSuffix(strFilter, ofn, (CDocTemplate*)m_templateList.GetNext(pos),
                         bFirst ? &strDefault : NULL);
      bFirst = FALSE;
    }
  }
  CString strAll;
  if (!strAll.LoadString(AFX_IDS_ALLFILTER)) strAll = "All Files (*.*)";
  strFilter += strAll;
  strFilter += "|*.*||";
  ofn.nMaxCustFilter++;
  LPTSTR lpszFilter = strFilter.GetBuffer();
  for (LPTSTR p = lpszFilter; *p != '\0'; p++)
    if (*p == '|') *p = '\0';
  ofn.lpstrFilter = lpszFilter;
  if (!strDefault.IsEmpty()) ofn.lpstrDefExt = strDefault;

  // The name buffer is MAX_PATH long; a longer proposal is not offered.
  TCHAR szFile[MAX_PATH];
  szFile[0] = '\0';
  if (fileName.GetLength() < MAX_PATH) lstrcpyn(szFile, fileName, MAX_PATH);
  ofn.lpstrFile = szFile;
  ofn.nMaxFile = MAX_PATH;
  ofn.nMaxCustFilter = 0; // the count was only for the filter index
  BOOL bOK = bOpenFileDialog ? ::GetOpenFileName(&ofn) : ::GetSaveFileName(&ofn);
  strFilter.ReleaseBuffer(0);
  if (bOK) fileName = szFile;
  return bOK;
}

// ---- File New: the template to use -----------------------------------------------------------

namespace {

// Builds a modal dialog in memory: "New" with a list of the document types
// and OK / Cancel, the choice of MFC's File New with several templates.
class CNewTypeDlg : public CDialog {
public:
  explicit CNewTypeDlg(CPtrList* pList) : m_pList(pList), m_pSelectedTemplate(NULL) {}
  CPtrList* m_pList;
  CDocTemplate* m_pSelectedTemplate;

  INT_PTR Run() {
    // DLGTEMPLATE with three items, every part WORD-aligned, items DWORD-aligned.
    DWORD buffer[256]; // DWORD-aligned, as the template must be
    memset(buffer, 0, sizeof(buffer));
    WORD* p = (WORD*)buffer;
    DLGTEMPLATE* pDlg = (DLGTEMPLATE*)p;
    pDlg->style = DS_MODALFRAME | DS_SETFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU;
    pDlg->cdit = 3;
    pDlg->cx = 180;
    pDlg->cy = 90;
    p = (WORD*)(pDlg + 1);
    *p++ = 0; // no menu
    *p++ = 0; // the default class
    p = Str(p, "New");
    *p++ = 8; // font size
    p = Str(p, "MS Shell Dlg");
    p = Item(p, WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY, 7, 7, 110,
             76, kListId, 0x0083, "");
    p = Item(p, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, 123, 7, 50, 14, IDOK, 0x0080,
             "OK");
    p = Item(p, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 123, 24, 50, 14, IDCANCEL, 0x0080, "Cancel");
    if (!InitModalIndirect((LPCDLGTEMPLATE)buffer, AfxGetMainWnd())) return IDCANCEL;
    return DoModal();
  }

  virtual BOOL OnInitDialog() {
    CDialog::OnInitDialog();
    CListBox* pListBox = (CListBox*)GetDlgItem(kListId);
    POSITION pos = m_pList->GetHeadPosition();
    while (pos != NULL) {
      CDocTemplate* pTemplate = (CDocTemplate*)m_pList->GetNext(pos);
      CString strTypeName;
      if (pTemplate->GetDocString(strTypeName, CDocTemplate::fileNewName) &&
          !strTypeName.IsEmpty()) {
        int nIndex =
            (int)::SendMessage(pListBox->m_hWnd, LB_ADDSTRING, 0, (LPARAM)(LPCTSTR)strTypeName);
        ::SendMessage(pListBox->m_hWnd, LB_SETITEMDATA, nIndex, (LPARAM)pTemplate);
      }
    }
    ::SendMessage(pListBox->m_hWnd, LB_SETCURSEL, 0, 0);
    return TRUE;
  }

  virtual void OnOK() {
    HWND hList = ::GetDlgItem(m_hWnd, kListId);
    int nIndex = (int)::SendMessage(hList, LB_GETCURSEL, 0, 0);
    m_pSelectedTemplate =
        nIndex >= 0 ? (CDocTemplate*)::SendMessage(hList, LB_GETITEMDATA, nIndex, 0) : NULL;
    CDialog::OnOK();
  }

private:
  enum { kListId = 0x3E8 };
  static WORD* Str(WORD* p, LPCSTR lpsz) {
    while ((*p++ = (WORD)(BYTE)*lpsz++) != 0) {
    }
    return p;
  }
  static WORD* Item(WORD* p, DWORD dwStyle, short x, short y, short cx, short cy, WORD id,
                    WORD wClass, LPCSTR lpszText) {
    p = (WORD*)(((UINT_PTR)p + 3) & ~(UINT_PTR)3);
    DLGITEMTEMPLATE* pItem = (DLGITEMTEMPLATE*)p;
    pItem->style = dwStyle;
    pItem->dwExtendedStyle = 0;
    pItem->x = x;
    pItem->y = y;
    pItem->cx = cx;
    pItem->cy = cy;
    pItem->id = id;
    p = (WORD*)(pItem + 1);
    *p++ = 0xFFFF;
    *p++ = wClass;
    p = Str(p, lpszText);
    *p++ = 0; // no creation data
    return p;
  }
};

} // namespace

// One template (or one that offers a File New name) is used as is; with
// several the user chooses among those that have a File New name.
void CDocManager::OnFileNew() {
  if (m_templateList.IsEmpty()) {
    AfxMessageBox(AFX_IDP_FAILED_TO_CREATE_DOC);
    return;
  }
  CDocTemplate* pTemplate = (CDocTemplate*)m_templateList.GetHead();
  if (m_templateList.GetCount() > 1) {
    int nNamed = 0;
    CDocTemplate* pNamed = NULL;
    POSITION pos = m_templateList.GetHeadPosition();
    while (pos != NULL) {
      CDocTemplate* pT = (CDocTemplate*)m_templateList.GetNext(pos);
      CString strTypeName;
      if (pT->GetDocString(strTypeName, CDocTemplate::fileNewName) && !strTypeName.IsEmpty()) {
        nNamed++;
        pNamed = pT;
      }
    }
    if (nNamed == 1) {
      pTemplate = pNamed;
    } else if (nNamed > 1) {
      CNewTypeDlg dlg(&m_templateList);
      if (dlg.Run() != IDOK || dlg.m_pSelectedTemplate == NULL) return;
      pTemplate = dlg.m_pSelectedTemplate;
    }
  }
  pTemplate->OpenDocumentFile(NULL); // a failure was reported to the user
}

void CDocManager::OnFileOpen() {
  CString strName;
  if (!DoPromptFileName(strName, AFX_IDS_OPENFILE, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, TRUE,
                        NULL))
    return; // cancelled
  CWinApp* pApp = AfxGetApp();
  if (pApp != NULL)
    pApp->OpenDocumentFile(strName);
  else
    OpenDocumentFile(strName);
}

// ---- CWinApp ----------------------------------------------------------------------------

CWinApp::CDocManagerDeleter::~CDocManagerDeleter() {
  delete m_pApp->m_pDocManager;
  m_pApp->m_pDocManager = NULL;
}

void CWinApp::AddDocTemplate(CDocTemplate* pTemplate) {
  if (m_pDocManager == NULL) {
    m_pDocManager = new CDocManager; // CObject's new throws CMemoryException
  }
  m_pDocManager->AddDocTemplate(pTemplate);
}

POSITION CWinApp::GetFirstDocTemplatePosition() const {
  return m_pDocManager != NULL ? m_pDocManager->GetFirstDocTemplatePosition() : NULL;
}

CDocTemplate* CWinApp::GetNextDocTemplate(POSITION& pos) const {
  return m_pDocManager != NULL ? m_pDocManager->GetNextDocTemplate(pos) : NULL;
}

CDocument* CWinApp::OpenDocumentFile(LPCTSTR lpszFileName) {
  return m_pDocManager != NULL ? m_pDocManager->OpenDocumentFile(lpszFileName) : NULL;
}

BOOL CWinApp::DoPromptFileName(CString& fileName, UINT nIDSTitle, DWORD lFlags,
                               BOOL bOpenFileDialog, CDocTemplate* pTemplate) {
  if (m_pDocManager == NULL) {
    // No templates: still the plain dialog.
    CDocManager manager;
    return manager.DoPromptFileName(fileName, nIDSTitle, lFlags, bOpenFileDialog, pTemplate);
  }
  return m_pDocManager->DoPromptFileName(fileName, nIDSTitle, lFlags, bOpenFileDialog, pTemplate);
}

BOOL CWinApp::SaveAllModified() {
  return m_pDocManager == NULL || m_pDocManager->SaveAllModified();
}

void CWinApp::CloseAllDocuments(BOOL bEndSession) {
  if (m_pDocManager != NULL) m_pDocManager->CloseAllDocuments(bEndSession);
}

int CWinApp::GetOpenDocumentCount() {
  return m_pDocManager != NULL ? m_pDocManager->GetOpenDocumentCount() : 0;
}

void CWinApp::OnFileNew() {
  if (m_pDocManager != NULL) m_pDocManager->OnFileNew();
}

void CWinApp::OnFileOpen() {
  if (m_pDocManager != NULL) m_pDocManager->OnFileOpen();
}

// The application's own commands; an application's map adds its File New
// and Open (ID_FILE_NEW, ID_FILE_OPEN) to these, as with MFC.
BEGIN_MESSAGE_MAP(CWinApp, CWinThread)
ON_COMMAND(ID_APP_EXIT, &CWinApp::OnAppExit)
ON_UPDATE_COMMAND_UI(ID_FILE_MRU_FILE1, &CWinApp::OnUpdateRecentFileMenu)
ON_COMMAND_EX_RANGE(ID_FILE_MRU_FILE1, ID_FILE_MRU_FILE16, &CWinApp::OnOpenRecentFile)
END_MESSAGE_MAP()

// The same as closing the main window.
void CWinApp::OnAppExit() {
  if (m_pMainWnd != NULL) m_pMainWnd->SendMessage(WM_CLOSE);
}

// ---- The command line ------------------------------------------------------------------------

CCommandLineInfo::CCommandLineInfo()
    : m_bShowSplash(TRUE), m_bRunEmbedded(FALSE), m_bRunAutomated(FALSE), m_nShellCommand(FileNew) {
}

CCommandLineInfo::~CCommandLineInfo() {}

void CCommandLineInfo::ParseParam(const TCHAR* pszParam, BOOL bFlag, BOOL) {
  if (bFlag) {
    if (lstrcmpi(pszParam, "p") == 0) {
      m_nShellCommand = FilePrint;
    } else if (lstrcmpi(pszParam, "pt") == 0) {
      m_nShellCommand = FilePrintTo;
      m_nPrintToParams = 0;
    } else if (lstrcmpi(pszParam, "dde") == 0) {
      m_nShellCommand = FileDDE;
    } else if (lstrcmpi(pszParam, "Embedding") == 0) {
      m_bRunEmbedded = TRUE;
      m_bShowSplash = FALSE;
    } else if (lstrcmpi(pszParam, "Automation") == 0) {
      m_bRunAutomated = TRUE;
      m_bShowSplash = FALSE;
    } else if (lstrcmpi(pszParam, "Register") == 0 || lstrcmpi(pszParam, "RegServer") == 0) {
      m_nShellCommand = AppRegister;
    } else if (lstrcmpi(pszParam, "Unregister") == 0 || lstrcmpi(pszParam, "UnregServer") == 0) {
      m_nShellCommand = AppUnregister;
    }
    return;
  }
  // The file first; after /pt, the printer, driver and port names.
  if (m_strFileName.IsEmpty()) {
    m_strFileName = pszParam;
    if (m_nShellCommand == FileNew) m_nShellCommand = FileOpen;
    m_bShowSplash = FALSE;
  } else if (m_nShellCommand == FilePrintTo && m_nPrintToParams < 3) {
    CString* names[] = {&m_strPrinterName, &m_strDriverName, &m_strPortName};
    *names[m_nPrintToParams++] = pszParam;
  }
}

void CWinApp::ParseCommandLine(CCommandLineInfo& rCmdInfo) {
  for (int i = 1; i < __argc; i++) {
    LPCTSTR pszParam = __argv[i];
    BOOL bFlag = pszParam[0] == '-' || pszParam[0] == '/';
    if (bFlag) pszParam++;
    rCmdInfo.ParseParam(pszParam, bFlag, i == __argc - 1);
  }
}

BOOL CWinApp::ProcessShellCommand(CCommandLineInfo& rCmdInfo) {
  switch (rCmdInfo.m_nShellCommand) {
  case CCommandLineInfo::FileNew:
    if (!OnCmdMsg(ID_FILE_NEW, CN_COMMAND, NULL, NULL)) OnFileNew();
    return m_pMainWnd != NULL;
  case CCommandLineInfo::FileOpen:
    return OpenDocumentFile(rCmdInfo.m_strFileName) != NULL;
  case CCommandLineInfo::FilePrint:
  case CCommandLineInfo::FilePrintTo: {
    // Printed on the default printer, then the program ends.
    CDocument* pDoc = OpenDocumentFile(rCmdInfo.m_strFileName);
    if (pDoc == NULL) return FALSE;
    POSITION pos = pDoc->GetFirstViewPosition();
    CView* pView = pos != NULL ? pDoc->GetNextView(pos) : NULL;
    if (pView != NULL) pView->SendMessage(WM_COMMAND, ID_FILE_PRINT_DIRECT);
    return FALSE;
  }
  case CCommandLineInfo::AppRegister:
    return FALSE; // InitInstance registered what it registers: the program ends
  case CCommandLineInfo::AppUnregister:
    UnregisterShellFileTypes();
    return FALSE;
  default:
    return TRUE;
  }
}
