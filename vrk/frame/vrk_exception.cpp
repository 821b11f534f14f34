// vrk_exception.cpp - the library's three exception classes and the
// functions that throw them.
#include "vrk_exception.h"

#include <stdio.h>
#include <string.h>

#include "resource.h"

// ---- VException ---------------------------------------------------------------

IMPLEMENT_DYNAMIC(VException, CException)

VException::VException() {}

VException::VException(const char* pszMessage) {
  if (pszMessage != NULL) m_strMessage = pszMessage;
}

// Loaded through MFC's resource chain; a missing string leaves it empty.
VException::VException(UINT nIDMessage) { m_strMessage.LoadString(nIDMessage); }

VException::~VException() {}

int VException::ReportError(UINT nType, UINT /*nMessageID*/) {
  return AfxMessageBox(m_strMessage, nType, 0);
}

// ---- VNullException -----------------------------------------------------------

IMPLEMENT_DYNAMIC(VNullException, CException)

VNullException::VNullException() : CException(TRUE) {}

VNullException::~VNullException() {}

int VNullException::ReportError(UINT, UINT) { return IDOK; }

// ---- VInvalidDataException ----------------------------------------------------

IMPLEMENT_DYNAMIC(VInvalidDataException, CException)

VInvalidDataException::VInvalidDataException() : m_bTemplateLoaded(0) {
  memset(m_szMessage, 0, sizeof(m_szMessage));
  memset(m_szTemplate, 0, sizeof(m_szTemplate));
}

VInvalidDataException::~VInvalidDataException() {}

void VInvalidDataException::FormatMessage(const char* pszSourceFile, int nLine) {
  if (pszSourceFile == NULL) return; // the previous text stays
  // Loaded once: a later change of resource module does not change it.
  if (!m_bTemplateLoaded) {
    AfxLoadString(IDS_VRK_INVALID_DATA, m_szTemplate, sizeof(m_szTemplate));
    m_bTemplateLoaded = 1;
  }
  MSG msg;
  const MSG* pCurrent = AfxGetCurrentMessage();
  if (pCurrent != NULL)
    msg = *pCurrent;
  else
    memset(&msg, 0, sizeof(msg));
  // At most 511 characters: the last byte of the zeroed buffer is never
  // written, so the text is always terminated.
  memset(m_szMessage, 0, sizeof(m_szMessage));
  _snprintf(m_szMessage, sizeof(m_szMessage) - 1, m_szTemplate, pszSourceFile, nLine, msg.message,
            msg.wParam, msg.lParam, msg.pt.x, msg.pt.y, msg.time);
}

// Always a plain OK box: both arguments are ignored on purpose.
int VInvalidDataException::ReportError(UINT, UINT) { return AfxMessageBox(m_szMessage, MB_OK, 0); }

// ---- Throwing -----------------------------------------------------------------

void VrkThrowException(const char* pszMessage) {
  // CObject's operator new throws CMemoryException when memory runs out.
  throw new VException(pszMessage);
}

void VrkThrowException(UINT nIDMessage) {
  // CObject's operator new throws CMemoryException when memory runs out.
  throw new VException(nIDMessage);
}

namespace {
// The one invalid-data exception: throwing it allocates nothing, so it works
// when memory is exhausted. Its auto-delete flag is set (CException's
// default), so receivers must not Delete it.
VInvalidDataException g_invalidData;
} // namespace

void VrkThrowInvalidDataException(const char* pszSourceFile, int nLine) {
  g_invalidData.FormatMessage(pszSourceFile, nLine);
  throw &g_invalidData;
}
