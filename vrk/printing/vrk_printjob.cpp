// VPrintJob: runs the print dialog or takes the application's printer,
// asks for the output file, makes the printer DC, computes the printable
// area, starts and ends the spooler document around the OnPrint hook.
#include "vrk_printjob.h"

#include <afxres.h>

#include "resource.h"
#include "vrk_exception.h"
#include "vrk_printunit.h"

IMPLEMENT_DYNAMIC(VPrintJob, CObject)

// The sizes the job's records have in a 32-bit build (a 64-bit build uses
// its own).
static_assert(sizeof(void*) != 4 || sizeof(PRINTDLGA) == 66, "PRINTDLGA is 66 bytes");
static_assert(sizeof(void*) != 4 || sizeof(DOCINFOA) == 20, "DOCINFOA is 20 bytes");

VPrintJob::VPrintJob()
    : m_pDC(NULL), m_pDlg(NULL), m_pInfo(NULL), m_pPD(NULL), m_rectPrintable(0, 0, 0, 0),
      m_rectPage(0, 0, 0, 0), m_dwUser1(0), m_dwUser2(0), m_dwFlags(0), m_ppIndexTree(NULL) {}

VPrintJob::~VPrintJob() {
  FreeOwnPD();
  ReleaseJobObjects();
}

// The block UseDefaults made, with the DC its dialog created.
void VPrintJob::FreeOwnPD() {
  if (!(m_dwFlags & flagOwnPD)) return;
  if (m_pPD != NULL) {
    if (m_pPD->hDC != NULL) ::DeleteObject(m_pPD->hDC);
    delete[](BYTE*) m_pPD;
  }
  m_pPD = NULL;
  m_dwFlags &= ~flagOwnPD;
}

// What one Print made. The DC handle is detached rather than deleted: it is
// the PRINTDLG's, whose owner deletes it.
void VPrintJob::ReleaseJobObjects() {
  if (!IsInfoDialog(m_pDlg)) delete m_pDlg;
  m_pDlg = NULL;
  if (m_pDC != NULL) {
    if (m_pDC->GetSafeHdc() != NULL) m_pDC->Detach();
    delete m_pDC;
    m_pDC = NULL;
  }
  delete m_pInfo;
  m_pInfo = NULL;
  if (!(m_dwFlags & flagOwnPD)) m_pPD = NULL; // it was the print info's
  m_dwFlags &= ~flagEndPagePending;
}

int VPrintJob::IsInfoDialog(CDialog* pDlg) const {
  return pDlg != NULL && m_pInfo != NULL && pDlg == m_pInfo->m_pPD;
}

int VPrintJob::Print() {
  // A job printed again starts afresh (its own PRINTDLG block stays).
  ReleaseJobObjects();
  m_strOutputFile.Empty();
  m_pInfo = new VPrintInfo;

  m_pDlg = CreatePrintDialog();
  if (m_pDlg != NULL) {
    if (!InitPrintDialog()) return printNoDialog;
    if (DoPrintDialog() != IDOK) return printCancelled;
  }
  if (!DoPrintToFileDialog(m_strOutputFile)) return printNoFile;

  m_pDC = CreatePrintDC();
  if (m_pDC == NULL || m_pDC->GetSafeHdc() == NULL) VrkThrowException(IDS_VRK_PRINT_START);
  if (m_pPD == NULL || m_pPD->hDevMode == NULL || m_pPD->hDevNames == NULL)
    VrkThrowException(IDS_VRK_PRINT_START);

  InitPrintDC();
  InitPrintInfo();
  DOCINFOA docInfo;
  memset(&docInfo, 0, sizeof(docInfo));
  InitDocInfo(docInfo);
  OnBeginPrinting();
  if (!StartDocPrinting(docInfo)) VrkThrowException(IDS_VRK_PRINT_START);

  // A failure while the pages print aborts the document rather than leave
  // it open in the spooler.
  try {
    OnPrint();
  } catch (...) {
    EndDocPrinting(1);
    EndPrinting(1);
    throw;
  }
  EndDocPrinting(0);
  EndPrinting(0);
  return printDone;
}

CDialog* VPrintJob::CreatePrintDialog() { return m_pInfo != NULL ? m_pInfo->m_pPD : NULL; }

int VPrintJob::InitPrintDialog() {
  if (IsInfoDialog(m_pDlg)) {
    PRINTDLGA& pd = m_pInfo->m_pPD->m_pd;
    if (pd.nMinPage > pd.nMaxPage) pd.nMaxPage = pd.nMinPage;
    pd.nFromPage = pd.nMinPage;
    pd.nToPage = pd.nMaxPage;
    // A block of UseDefaults is not used from now on.
    FreeOwnPD();
    m_pPD = &pd;
  }
  return 1;
}

int VPrintJob::DoPrintDialog() {
  if (m_pDlg == NULL) return IDCANCEL;
  CWinApp* pApp = AfxGetApp();
  if (IsInfoDialog(m_pDlg) && pApp != NULL) return (int)pApp->DoPrintDialog(m_pInfo->m_pPD);
  return (int)m_pDlg->DoModal();
}

int VPrintJob::DoPrintToFileDialog(CString& strPath) {
  if (m_pPD == NULL || !(m_pPD->Flags & PD_PRINTTOFILE)) return 1;
  CString strDefExt, strFileName, strFilter, strTitle;
  strDefExt.LoadString(AFX_IDS_PRINTDEFAULTEXT);
  strFileName.LoadString(AFX_IDS_PRINTDEFAULT);
  strFilter.LoadString(AFX_IDS_PRINTFILTER);
  strTitle.LoadString(AFX_IDS_PRINTCAPTION);
  CFileDialog dlg(FALSE, strDefExt, strFileName,
                  OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST, strFilter, NULL, 0,
                  TRUE);
  dlg.m_ofn.lpstrTitle = strTitle;
  if (dlg.DoModal() != IDOK) return 0;
  strPath = dlg.GetPathName();
  return 1;
}

CDC* VPrintJob::CreatePrintDC() {
  if (m_pPD == NULL) return NULL;
  CDC* pDC = new CDC;
  if (m_pPD->hDC != NULL) pDC->Attach(m_pPD->hDC);
  return pDC;
}

void VPrintJob::OnBeginPrinting() {}

void VPrintJob::EndPrinting(int bAbort) {
  if (bAbort || m_pPD == NULL || m_pPD->hDevMode == NULL) return;
  // The next job starts with one copy, whatever this one printed.
  DEVMODEA* pDevMode = (DEVMODEA*)::GlobalLock(m_pPD->hDevMode);
  if (pDevMode != NULL) {
    pDevMode->dmCopies = 1;
    ::GlobalUnlock(m_pPD->hDevMode);
  }
}

int VPrintJob::StartDocPrinting(DOCINFOA& docInfo) {
  int bStarted = 0;
  if (m_pDC != NULL && m_pDC->GetSafeHdc() != NULL) {
    HWND hFocus = ::GetFocus();
    // The user must not work in the application while the spooler starts;
    // a window that was disabled before stays so.
    CWnd* pMainWnd = AfxGetMainWnd();
    HWND hMain = pMainWnd != NULL ? pMainWnd->GetSafeHwnd() : NULL;
    BOOL bWasDisabled = hMain != NULL ? ::EnableWindow(hMain, FALSE) : TRUE;
    int nJob = ::StartDocA(m_pDC->m_hDC, &docInfo);
    bStarted = nJob != SP_ERROR;
    if (m_pInfo != NULL) m_pInfo->m_nJobNumber = nJob;
    if (!bStarted) {
      EndPrinting(1);
      EndDocPrinting(1);
    }
    if (!bWasDisabled && ::IsWindow(hMain)) ::EnableWindow(hMain, TRUE);
    if (hFocus != NULL && ::IsWindow(hFocus)) ::SetFocus(hFocus);
  } else {
    EndPrinting(1);
    EndDocPrinting(1);
  }
  return bStarted;
}

void VPrintJob::EndDocPrinting(int bAbort) {
  if (m_pDC == NULL || m_pDC->GetSafeHdc() == NULL) return;
  if (bAbort) {
    m_pDC->AbortDoc();
  } else {
    // A page the pages' code left open is part of the document.
    if (IsEndPagePending()) m_pDC->EndPage();
    m_pDC->EndDoc();
  }
  SetEndPagePending(0);
  m_pDC->Detach();
}

void VPrintJob::InitPrintDC() {
  if (m_pDC == NULL) return;
  m_pDC->m_bPrinting = TRUE;
  m_pDC->SetMapMode(MM_TEXT);
}

void VPrintJob::InitPrintInfo() {
  if (m_pInfo == NULL || m_pDC == NULL || m_pDC->m_hAttribDC == NULL) return;
  HDC hAttribDC = m_pDC->m_hAttribDC;
  CRect rect(0, 0, ::GetDeviceCaps(hAttribDC, HORZRES), ::GetDeviceCaps(hAttribDC, VERTRES));
  m_rectPage = rect;
  CRect margins(0, 0, 0, 0);
  if (GetPageMargins(&margins)) {
    rect.left += margins.left;
    rect.top += margins.top;
    rect.right -= margins.right;
    rect.bottom -= margins.bottom;
    // Margins wider than the page cross: the edges are put back in order.
    if (rect.left > rect.right) {
      int n = rect.left;
      rect.left = rect.right;
      rect.right = n;
    }
    if (rect.top > rect.bottom) {
      int n = rect.top;
      rect.top = rect.bottom;
      rect.bottom = n;
    }
  }
  m_rectPrintable = rect;
  m_pInfo->m_rectDraw = rect;
  ::DPtoLP(hAttribDC, (LPPOINT)&m_pInfo->m_rectDraw, 2);
}

int VPrintJob::GetPageMargins(CRect*) { return 0; }

void VPrintJob::InitDocInfo(DOCINFOA& docInfo) {
  docInfo.cbSize = sizeof(DOCINFOA); // 20 in a 32-bit build
  docInfo.lpszDocName = NULL;
  docInfo.lpszOutput = m_strOutputFile.IsEmpty() ? NULL : (LPCSTR)m_strOutputFile;
  docInfo.lpszDatatype = NULL;
  docInfo.fwType = 0;
}

void VPrintJob::OnPrint() {}

void VPrintJob::UseDefaults() {
  FreeOwnPD();
  m_dwFlags |= flagOwnPD;
  // 66 bytes, PRINTDLGA's size, in a 32-bit build.
  m_pPD = (PRINTDLGA*)new BYTE[sizeof(PRINTDLGA)];
  memset(m_pPD, 0, sizeof(PRINTDLGA));
  CWinApp* pApp = AfxGetApp();
  if (pApp == NULL) return;
  VBogusPrintDialog dlg(PD_NOSELECTION | PD_NOPAGENUMS | PD_USEDEVMODECOPIES | PD_HIDEPRINTTOFILE);
  pApp->DoPrintDialog(&dlg);
  memcpy(m_pPD, &dlg.m_pd, sizeof(PRINTDLGA));
}

// One name of a DEVNAMES block, read only inside the block.
static CString DevNamesString(const BYTE* pBlock, SIZE_T nSize, WORD nOffset) {
  if (nOffset >= nSize) return CString();
  const char* psz = (const char*)pBlock + nOffset;
  return memchr(psz, 0, nSize - nOffset) != NULL ? CString(psz) : CString();
}

void VPrintJob::GetDeviceNames(VDevNames* pNames) {
  if (pNames == NULL || m_pPD == NULL || m_pPD->hDevNames == NULL) return;
  SIZE_T nSize = ::GlobalSize(m_pPD->hDevNames);
  const BYTE* pBlock = (const BYTE*)::GlobalLock(m_pPD->hDevNames);
  if (pBlock == NULL) return;
  if (nSize >= sizeof(DEVNAMES)) {
    const DEVNAMES* pDevNames = (const DEVNAMES*)pBlock;
    pNames->m_strDriver = DevNamesString(pBlock, nSize, pDevNames->wDriverOffset);
    pNames->m_strDevice = DevNamesString(pBlock, nSize, pDevNames->wDeviceOffset);
    pNames->m_strOutput = DevNamesString(pBlock, nSize, pDevNames->wOutputOffset);
  }
  ::GlobalUnlock(m_pPD->hDevNames);
}

void VPrintJob::AddIndexItem(VIndexItem* pItem) {
  if (m_ppIndexTree == NULL || pItem == NULL) return;
  if (*m_ppIndexTree == NULL) *m_ppIndexTree = new VPrintIndexTree;
  (*m_ppIndexTree)->Add(*pItem);
}

void VPrintJob::SetEndPagePending(int bPending) {
  if (bPending)
    m_dwFlags |= flagEndPagePending;
  else
    m_dwFlags &= ~flagEndPagePending;
}

// ---- VBogusPrintDialog ----------------------------------------------------------

VBogusPrintDialog::VBogusPrintDialog(DWORD dwFlags) : CPrintDialog(FALSE, dwFlags) {}

INT_PTR VBogusPrintDialog::DoModal() {
  CreatePrinterDC();
  return IDOK;
}

// ---- VSelectPrintJobIndexTree ---------------------------------------------------

VSelectPrintJobIndexTree::VSelectPrintJobIndexTree(VPrintJob* pJob, VPrintIndexTree** ppTree) {
  Install(pJob, ppTree);
}

VSelectPrintJobIndexTree::VSelectPrintJobIndexTree(VPrintUnit* pUnit, VPrintIndexTree** ppTree) {
  Install(pUnit != NULL ? pUnit->GetJob() : NULL, ppTree);
}

void VSelectPrintJobIndexTree::Install(VPrintJob* pJob, VPrintIndexTree** ppTree) {
  m_pJob = pJob;
  m_ppPrevious = NULL;
  if (m_pJob == NULL) return;
  m_ppPrevious = m_pJob->m_ppIndexTree;
  m_pJob->m_ppIndexTree = ppTree;
}

VSelectPrintJobIndexTree::~VSelectPrintJobIndexTree() {
  if (m_pJob != NULL) m_pJob->m_ppIndexTree = m_ppPrevious;
}
