// CPrintDialog: the system's Print and Print Setup dialogs, the printer's
// DEVMODE and DEVNAMES blocks, and printer DCs made from them.
#include <afxdlgs.h>

IMPLEMENT_DYNAMIC(CPrintDialog, CCommonDialog)

CPrintDialog::CPrintDialog(BOOL bPrintSetupOnly, DWORD dwFlags, CWnd* pParentWnd)
    : CCommonDialog(pParentWnd), m_pd(m_pdActual) {
  memset(&m_pdActual, 0, sizeof(m_pdActual));
  m_pd.lStructSize = sizeof(PRINTDLG);
  m_pd.Flags = dwFlags | PD_ENABLEPRINTHOOK | PD_ENABLESETUPHOOK;
  m_pd.lpfnPrintHook = (LPPRINTHOOKPROC)AfxCommDlgProc;
  m_pd.lpfnSetupHook = (LPSETUPHOOKPROC)AfxCommDlgProc;
  // The print form hands back a DC for the chosen printer; the setup form
  // only chooses the printer.
  if (bPrintSetupOnly)
    m_pd.Flags |= PD_PRINTSETUP;
  else
    m_pd.Flags |= PD_RETURNDC;
  m_pd.Flags &= ~PD_RETURNIC;
  // One copy until the printer's DEVMODE says otherwise.
  m_pd.nCopies = 1;
}

CPrintDialog::~CPrintDialog() {}

static BOOL WINAPI RunPrintDlg(void* pPD) { return ::PrintDlg((PRINTDLG*)pPD); }

INT_PTR CPrintDialog::DoModal() {
  if ((m_pd.Flags & PD_ENABLEPRINTHOOK) && m_pd.lpfnPrintHook == NULL)
    m_pd.lpfnPrintHook = (LPPRINTHOOKPROC)AfxCommDlgProc;
  if ((m_pd.Flags & PD_ENABLESETUPHOOK) && m_pd.lpfnSetupHook == NULL)
    m_pd.lpfnSetupHook = (LPSETUPHOOKPROC)AfxCommDlgProc;
  m_pd.hwndOwner = PreModal();
  BOOL bResult = RunSystemDialog(&RunPrintDlg, &m_pd);
  PostModal();
  return bResult ? IDOK : IDCANCEL;
}

BOOL CPrintDialog::GetDefaults() {
  m_pd.Flags |= PD_RETURNDEFAULT;
  BOOL bResult = ::PrintDlg(&m_pd);
  m_pd.Flags &= ~PD_RETURNDEFAULT;
  return bResult;
}

HDC CPrintDialog::CreatePrinterDC() {
  m_pd.hDC = AfxCreateDC(m_pd.hDevNames, m_pd.hDevMode);
  return m_pd.hDC;
}

// The pointer stays valid while the block lives (global blocks do not move
// unless reallocated), so the block is not left locked.
LPDEVMODE CPrintDialog::GetDevMode() const {
  if (m_pd.hDevMode == NULL) return NULL;
  LPDEVMODE pDevMode = (LPDEVMODE)::GlobalLock(m_pd.hDevMode);
  if (pDevMode != NULL) ::GlobalUnlock(m_pd.hDevMode);
  return pDevMode;
}

// One of the three names of a DEVNAMES block, read only inside the block: an
// offset past its end or a name without terminator gives an empty string.
static CString DevNamesString(HGLOBAL hDevNames, size_t nOffsetField) {
  CString strResult;
  if (hDevNames == NULL) return strResult;
  SIZE_T nSize = ::GlobalSize(hDevNames);
  const BYTE* pBlock = (const BYTE*)::GlobalLock(hDevNames);
  if (pBlock == NULL) return strResult;
  if (nSize >= sizeof(DEVNAMES)) {
    WORD nOffset = *(const WORD*)(pBlock + nOffsetField);
    if (nOffset < nSize) {
      LPCTSTR psz = (LPCTSTR)(pBlock + nOffset);
      const void* pEnd = memchr(psz, 0, nSize - nOffset);
      if (pEnd != NULL) strResult = psz;
    }
  }
  ::GlobalUnlock(hDevNames);
  return strResult;
}

CString CPrintDialog::GetDriverName() const {
  return DevNamesString(m_pd.hDevNames, offsetof(DEVNAMES, wDriverOffset));
}

CString CPrintDialog::GetDeviceName() const {
  return DevNamesString(m_pd.hDevNames, offsetof(DEVNAMES, wDeviceOffset));
}

CString CPrintDialog::GetPortName() const {
  return DevNamesString(m_pd.hDevNames, offsetof(DEVNAMES, wOutputOffset));
}

int CPrintDialog::GetCopies() const {
  if (m_pd.Flags & PD_USEDEVMODECOPIES) {
    LPDEVMODE pDevMode = GetDevMode();
    if (pDevMode != NULL) return pDevMode->dmCopies;
  }
  return m_pd.nCopies;
}

int CPrintDialog::GetFromPage() const { return PrintRange() ? m_pd.nFromPage : -1; }

int CPrintDialog::GetToPage() const { return PrintRange() ? m_pd.nToPage : -1; }

HDC AFXAPI AfxCreateDC(HGLOBAL hDevNames, HGLOBAL hDevMode) {
  if (hDevNames == NULL) return NULL;
  CString strDriver = DevNamesString(hDevNames, offsetof(DEVNAMES, wDriverOffset));
  CString strDevice = DevNamesString(hDevNames, offsetof(DEVNAMES, wDeviceOffset));
  CString strOutput = DevNamesString(hDevNames, offsetof(DEVNAMES, wOutputOffset));
  if (strDevice.IsEmpty()) return NULL;
  // A DEVMODE smaller than it says it is would be read past its end: the
  // printer's defaults are used instead.
  const DEVMODE* pDevMode = NULL;
  if (hDevMode != NULL) {
    pDevMode = (const DEVMODE*)::GlobalLock(hDevMode);
    SIZE_T nSize = ::GlobalSize(hDevMode);
    if (pDevMode != NULL && (nSize < offsetof(DEVMODE, dmFields) ||
                             (SIZE_T)pDevMode->dmSize + pDevMode->dmDriverExtra > nSize)) {
      ::GlobalUnlock(hDevMode);
      pDevMode = NULL;
      hDevMode = NULL;
    }
  }
  HDC hDC = ::CreateDC(strDriver.IsEmpty() ? NULL : (LPCTSTR)strDriver, strDevice,
                       strOutput.IsEmpty() ? NULL : (LPCTSTR)strOutput, pDevMode);
  if (pDevMode != NULL) ::GlobalUnlock(hDevMode);
  return hDC;
}
