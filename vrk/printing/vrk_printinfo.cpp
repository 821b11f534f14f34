// VPrintInfo and VDevNames: the print job's copyable print information and
// the names of its printer.
#include "vrk_printer.h"

VDevNames& VDevNames::operator=(const VDevNames& other) {
  m_strDriver = other.m_strDriver;
  m_strDevice = other.m_strDevice;
  m_strOutput = other.m_strOutput;
  return *this;
}

VPrintInfo::VPrintInfo() : m_nUserValue(1) {}

// CPrintInfo's constructor has made the copy's own print dialog.
VPrintInfo::VPrintInfo(const VPrintInfo& other) : CPrintInfo() { CopyFrom(other); }

VPrintInfo& VPrintInfo::operator=(const VPrintInfo& other) {
  if (this != &other) CopyFrom(other);
  return *this;
}

// CPrintInfo's destructor deletes the dialog and the DC it holds.
VPrintInfo::~VPrintInfo() {}

void VPrintInfo::CopyFrom(const VPrintInfo& other) {
  if (m_pPD != NULL && other.m_pPD != NULL) {
    // A DC of this object's own goes; the original's stays the original's.
    if (m_pPD->m_pd.hDC != NULL && m_pPD->m_pd.hDC != other.m_pPD->m_pd.hDC)
      ::DeleteDC(m_pPD->m_pd.hDC);
    m_pPD->m_pd = other.m_pPD->m_pd;
    m_pPD->m_pd.hDC = NULL;
  }
  m_bDocObject = other.m_bDocObject;
  m_dwFlags = other.m_dwFlags;
  m_nOffsetPage = other.m_nOffsetPage;
  m_nJobNumber = other.m_nJobNumber;
  m_bPreview = other.m_bPreview;
  m_bDirect = other.m_bDirect;
  m_bContinuePrinting = other.m_bContinuePrinting;
  m_nCurPage = other.m_nCurPage;
  m_nNumPreviewPages = other.m_nNumPreviewPages;
  m_strPageDesc = other.m_strPageDesc;
  m_lpUserData = other.m_lpUserData;
  m_rectDraw = other.m_rectDraw;
  m_nUserValue = other.m_nUserValue;
}
