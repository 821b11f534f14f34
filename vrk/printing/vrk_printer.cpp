// VPrinter: an open spooler handle and the information records of its
// printer, fetched into a global block that keeps the records' strings.
#include "vrk_printer.h"

#include "vrk_exception.h"

VPrinter::VPrinter() : m_hPrinter(NULL), m_hInfo(NULL), m_bSilent(0) {}

// The copy shares the spooler handle, but not the record block: two owners
// of one heap block would free it twice, which the heap does not forgive.
// The copy fetches its own records with Get.
VPrinter::VPrinter(const VPrinter& other)
    : m_hPrinter(other.m_hPrinter), m_hInfo(NULL), m_bSilent(other.m_bSilent) {}

VPrinter& VPrinter::operator=(const VPrinter& other) {
  if (this != &other) {
    if (m_hInfo != NULL) ::GlobalFree(m_hInfo);
    m_hInfo = NULL;
    m_hPrinter = other.m_hPrinter;
    m_bSilent = other.m_bSilent;
  }
  return *this;
}

VPrinter::~VPrinter() { Close(); }

int VPrinter::Open(const char* pszName, PRINTER_DEFAULTSA* pDefaults) {
  int nResult = ::OpenPrinterA((LPSTR)pszName, &m_hPrinter, pDefaults);
  if (!nResult) ReportFailure();
  return nResult;
}

void VPrinter::Close() {
  if (m_hPrinter != NULL) {
    ::ClosePrinter(m_hPrinter);
    m_hPrinter = NULL;
  }
  if (m_hInfo != NULL) {
    ::GlobalFree(m_hInfo);
    m_hInfo = NULL;
  }
}

int VPrinter::Get(int nLevel, BYTE* pOut, int nSize) {
  if (m_hInfo != NULL) {
    ::GlobalFree(m_hInfo);
    m_hInfo = NULL;
  }
  DWORD cbNeeded = 0;
  ::GetPrinterA(m_hPrinter, nLevel, NULL, 0, &cbNeeded); // fails: it asks for the size
  DWORD dwError = ::GetLastError();
  m_hInfo = ::GlobalAlloc(GMEM_FIXED | GMEM_ZEROINIT, cbNeeded);
  BYTE* pBlock = m_hInfo != NULL ? (BYTE*)::GlobalLock(m_hInfo) : NULL;
  int nResult = 0;
  if (pBlock != NULL) {
    nResult = ::GetPrinterA(m_hPrinter, nLevel, pBlock, cbNeeded, &cbNeeded);
    dwError = ::GetLastError();
    // A record never comes shorter than its structure; should one, only
    // what the block holds is copied and the rest of *pOut is zeroed.
    if (nResult && pOut != NULL && nSize > 0) {
      SIZE_T nBlock = ::GlobalSize(m_hInfo);
      SIZE_T nCopy = (SIZE_T)nSize < nBlock ? (SIZE_T)nSize : nBlock;
      memset(pOut, 0, nSize);
      memcpy(pOut, pBlock, nCopy);
    }
    ::GlobalUnlock(m_hInfo);
  }
  if (!nResult) {
    ::SetLastError(dwError);
    ReportFailure();
  }
  return nResult;
}

void VPrinter::ReportFailure() const {
  DWORD dwError = ::GetLastError();
  if (!m_bSilent) VrkReportError(dwError, NULL, 0);
  ::SetLastError(dwError);
}
