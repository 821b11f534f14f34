// CWinApp's printer: the application's current printer as DEVMODE and
// DEVNAMES blocks, the print dialogs that choose it and DCs made from it.
#include <afxdlgs.h>

// The system's default printer into *pPD (PD_RETURNDEFAULT); FALSE when
// there is none.
static BOOL GetSystemDefaults(PRINTDLG* pPD) {
  memset(pPD, 0, sizeof(*pPD));
  pPD->lStructSize = sizeof(*pPD);
  pPD->Flags = PD_RETURNDEFAULT;
  return ::PrintDlg(pPD);
}

// The device name of a DEVNAMES block and whether it was the default
// printer; FALSE for an unreadable block.
static BOOL ReadDevNames(HGLOBAL hDevNames, CString& strDevice, BOOL* pbDefault) {
  SIZE_T nSize = ::GlobalSize(hDevNames);
  const DEVNAMES* pDevNames = (const DEVNAMES*)::GlobalLock(hDevNames);
  if (pDevNames == NULL) return FALSE;
  BOOL bOK = FALSE;
  if (nSize >= sizeof(DEVNAMES) && pDevNames->wDeviceOffset < nSize) {
    LPCTSTR psz = (LPCTSTR)((const BYTE*)pDevNames + pDevNames->wDeviceOffset);
    if (memchr(psz, 0, nSize - pDevNames->wDeviceOffset) != NULL) {
      strDevice = psz;
      if (pbDefault != NULL) *pbDefault = (pDevNames->wDefault & DN_DEFAULTPRN) != 0;
      bOK = TRUE;
    }
  }
  ::GlobalUnlock(hDevNames);
  return bOK;
}

void CWinApp::UpdatePrinterSelection(BOOL bForceDefaults) {
  if (!bForceDefaults && m_hDevNames != NULL) {
    // A printer chosen as "the default printer" follows the system's
    // default when that changes; any other choice stays as it is.
    CString strDevice;
    BOOL bDefault = FALSE;
    if (!ReadDevNames(m_hDevNames, strDevice, &bDefault) || !bDefault) return;
    PRINTDLG pd;
    if (!GetSystemDefaults(&pd)) return; // no printer now: keep the choice
    CString strNewDevice;
    if (ReadDevNames(pd.hDevNames, strNewDevice, NULL) && strNewDevice != strDevice) {
      SelectPrinter(pd.hDevNames, pd.hDevMode);
    } else {
      // The same printer: its settings as the user left them are kept.
      if (pd.hDevNames != NULL) ::GlobalFree(pd.hDevNames);
      if (pd.hDevMode != NULL) ::GlobalFree(pd.hDevMode);
    }
    return;
  }
  PRINTDLG pd;
  if (GetSystemDefaults(&pd)) SelectPrinter(pd.hDevNames, pd.hDevMode);
}

BOOL CWinApp::GetPrinterDeviceDefaults(PRINTDLG* pPrintDlg) {
  if (pPrintDlg == NULL) return FALSE;
  UpdatePrinterSelection(FALSE);
  if (m_hDevNames == NULL) return FALSE;
  // The blocks stay the application's: the caller borrows them.
  pPrintDlg->hDevNames = m_hDevNames;
  pPrintDlg->hDevMode = m_hDevMode;
  return TRUE;
}

void CWinApp::SelectPrinter(HANDLE hDevNames, HANDLE hDevMode, BOOL bFreeOld) {
  if (bFreeOld) {
    if (m_hDevNames != NULL && m_hDevNames != hDevNames) ::GlobalFree(m_hDevNames);
    if (m_hDevMode != NULL && m_hDevMode != hDevMode) ::GlobalFree(m_hDevMode);
  }
  m_hDevNames = (HGLOBAL)hDevNames;
  m_hDevMode = (HGLOBAL)hDevMode;
}

BOOL CWinApp::CreatePrinterDC(CDC& dc) {
  UpdatePrinterSelection(FALSE);
  HDC hDC = AfxCreateDC(m_hDevNames, m_hDevMode);
  if (hDC == NULL) return FALSE;
  // A DC the object held before is its own and is let go.
  if (dc.GetSafeHdc() != NULL) dc.DeleteDC();
  dc.Attach(hDC);
  return TRUE;
}

INT_PTR CWinApp::DoPrintDialog(CPrintDialog* pPD) {
  if (pPD == NULL) return IDCANCEL;
  UpdatePrinterSelection(FALSE);
  pPD->m_pd.hDevMode = m_hDevMode;
  pPD->m_pd.hDevNames = m_hDevNames;
  INT_PTR nResponse = pPD->DoModal();
  if (nResponse != IDOK) {
    DWORD dwError = ::CommDlgExtendedError();
    if (dwError == PDERR_PRINTERNOTFOUND || dwError == PDERR_DNDMMISMATCH) {
      // The remembered printer is gone: the system's default is offered.
      if (pPD->m_pd.hDevNames != NULL && pPD->m_pd.hDevNames == m_hDevNames) {
        ::GlobalFree(m_hDevNames);
        m_hDevNames = NULL;
      }
      if (pPD->m_pd.hDevMode != NULL && pPD->m_pd.hDevMode == m_hDevMode) {
        ::GlobalFree(m_hDevMode);
        m_hDevMode = NULL;
      }
      UpdatePrinterSelection(TRUE);
      pPD->m_pd.hDevMode = m_hDevMode;
      pPD->m_pd.hDevNames = m_hDevNames;
      nResponse = pPD->DoModal();
    }
  }
  // The dialog may have replaced the blocks it was given (freeing the old
  // ones): on OK and Cancel alike the application keeps what it handed back.
  m_hDevMode = pPD->m_pd.hDevMode;
  m_hDevNames = pPD->m_pd.hDevNames;
  return nResponse;
}

void CWinApp::OnFilePrintSetup() {
  CPrintDialog pd(TRUE);
  DoPrintDialog(&pd);
}
