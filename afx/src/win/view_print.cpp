// CView's print job: ID_FILE_PRINT (with the print dialog) and
// ID_FILE_PRINT_DIRECT (the application's printer, no dialog), both handled
// by OnFilePrint, which calls the view's print hooks in turn.
//
// Print preview is in view_preview.cpp. This library has no "Printing..."
// status dialog with a Cancel button: a job runs from its first page to its
// last (or to the first failure) without a way to cancel it on the screen, so
// no abort procedure is installed and the main window is not disabled.
#include <afxwin.h>
#include <afxdlgs.h>
#include <afxprint_.h>

BOOL CView::DoPreparePrinting(CPrintInfo* pInfo) {
  if (pInfo == NULL || pInfo->m_pPD == NULL) return FALSE;
  CPrintDialog* pPD = pInfo->m_pPD;
  PRINTDLG& pd = pPD->m_pd;
  // A document that ends before it starts is one page long; the whole of it
  // is what is printed, or offered in the dialog.
  if (pd.nMinPage > pd.nMaxPage) pd.nMaxPage = pd.nMinPage;
  pd.nFromPage = pd.nMinPage;
  pd.nToPage = pd.nMaxPage;

  CWinApp* pApp = AfxGetApp();
  if (pInfo->m_bPreview || pInfo->m_bDirect) {
    if (pd.hDC == NULL) {
      // The application's printer (the system's default the first time);
      // with none at all the dialog tells the user and lets one be chosen.
      if (pApp == NULL || !pApp->GetPrinterDeviceDefaults(&pd)) {
        INT_PTR nResult = pApp != NULL ? pApp->DoPrintDialog(pPD) : pPD->DoModal();
        if (nResult != IDOK) return FALSE;
      }
      if (pd.hDC == NULL && pPD->CreatePrinterDC() == NULL) return FALSE;
    }
  } else {
    // Through the application, which offers and then remembers its printer.
    INT_PTR nResult = pApp != NULL ? pApp->DoPrintDialog(pPD) : pPD->DoModal();
    if (nResult != IDOK) return FALSE;
  }
  return pd.hDC != NULL;
}

// The output file of a job printed to a file: the Save As dialog with the
// framework's print-file strings. FALSE when cancelled.
static BOOL AskPrintFileName(CWnd* pParentWnd, CString& strOutput) {
  CString strDefExt, strDefault, strFilter, strTitle;
  strDefExt.LoadString(AFX_IDS_PRINTDEFAULTEXT);
  strDefault.LoadString(AFX_IDS_PRINTDEFAULT);
  strFilter.LoadString(AFX_IDS_PRINTFILTER);
  strTitle.LoadString(AFX_IDS_PRINTCAPTION);
  CFileDialog dlg(FALSE, strDefExt, strDefault, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, strFilter,
                  pParentWnd);
  if (!strTitle.IsEmpty()) dlg.m_ofn.lpstrTitle = strTitle;
  if (dlg.DoModal() != IDOK) return FALSE;
  strOutput = dlg.GetPathName();
  return TRUE;
}

void CView::OnFilePrint() {
  CPrintInfo printInfo;
  const MSG* pMsg = GetCurrentMessage();
  if (pMsg->message == WM_COMMAND && LOWORD(pMsg->wParam) == ID_FILE_PRINT_DIRECT)
    printInfo.m_bDirect = TRUE;

  if (!OnPreparePrinting(&printInfo)) return; // cancelled
  CPrintDialog* pPD = printInfo.m_pPD;
  if (pPD->m_pd.hDC == NULL) {
    // A view whose OnPreparePrinting never asked for a printer.
    AfxMessageBox(AFX_IDP_FAILED_TO_START_PRINT);
    return;
  }

  CString strOutput;
  if ((pPD->m_pd.Flags & PD_PRINTTOFILE) && !printInfo.m_bDocObject &&
      !AskPrintFileName(this, strOutput))
    return;

  // The spooler's name for the job: the document's title, or the frame's.
  CString strTitle;
  CDocument* pDoc = GetDocument();
  if (pDoc != NULL) {
    strTitle = pDoc->GetTitle();
  } else {
    CFrameWnd* pFrame = GetParentFrame();
    if (pFrame != NULL) pFrame->GetWindowText(strTitle);
  }
  DOCINFO docInfo;
  memset(&docInfo, 0, sizeof(docInfo));
  docInfo.cbSize = sizeof(docInfo);
  docInfo.lpszDocName = strTitle;
  docInfo.lpszOutput = strOutput.IsEmpty() ? NULL : (LPCTSTR)strOutput;

  // The DC stays the job's (CPrintInfo deletes it): dcPrint only borrows it.
  CDC dcPrint;
  dcPrint.Attach(pPD->m_pd.hDC);
  dcPrint.m_bPrinting = TRUE;
  BOOL bStarted = FALSE;
  try {
    OnBeginPrinting(&dcPrint, &printInfo);
    printInfo.m_nJobNumber = dcPrint.StartDoc(&docInfo);
    if (printInfo.m_nJobNumber <= 0) {
      printInfo.m_nJobNumber = SP_ERROR;
      OnEndPrinting(&dcPrint, &printInfo);
      dcPrint.Detach();
      AfxMessageBox(AFX_IDP_FAILED_TO_START_PRINT);
      return;
    }
    bStarted = TRUE;

    // The range chosen, kept inside the document; a range given backwards
    // is printed backwards.
    UINT nMin = printInfo.GetMinPage(), nMax = printInfo.GetMaxPage();
    UINT nFrom = printInfo.GetFromPage(), nTo = printInfo.GetToPage();
    nFrom = nFrom < nMin ? nMin : nFrom > nMax ? nMax : nFrom;
    nTo = nTo < nMin ? nMin : nTo > nMax ? nMax : nTo;
    const int nStep = nTo >= nFrom ? 1 : -1;

    BOOL bError = FALSE;
    for (printInfo.m_nCurPage = nFrom;; printInfo.m_nCurPage += nStep) {
      // The view may end the job before the page (m_bContinuePrinting).
      OnPrepareDC(&dcPrint, &printInfo);
      if (!printInfo.m_bContinuePrinting) break;
      printInfo.m_rectDraw.SetRect(0, 0, dcPrint.GetDeviceCaps(HORZRES),
                                   dcPrint.GetDeviceCaps(VERTRES));
      dcPrint.DPtoLP(&printInfo.m_rectDraw);
      if (dcPrint.StartPage() <= 0) {
        bError = TRUE;
        break;
      }
      // StartPage resets the DC's attributes: the view sets them again.
      OnPrepareDC(&dcPrint, &printInfo);
      OnPrint(&dcPrint, &printInfo);
      if (dcPrint.EndPage() <= 0) {
        bError = TRUE;
        break;
      }
      if (printInfo.m_nCurPage == nTo) break;
    }
    bStarted = FALSE;
    if (bError)
      dcPrint.AbortDoc();
    else
      dcPrint.EndDoc();
    OnEndPrinting(&dcPrint, &printInfo);
  } catch (CException*) {
    // A hook failed: the spooler forgets the job, the view cleans up, and
    // the exception goes on to be reported.
    if (bStarted) {
      dcPrint.AbortDoc();
      OnEndPrinting(&dcPrint, &printInfo);
    }
    dcPrint.Detach();
    throw;
  }
  dcPrint.Detach();
}
