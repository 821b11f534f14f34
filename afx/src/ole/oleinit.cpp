// AfxOleInit and AfxOleTerm: OLE's per-thread initialisation.
#include <afxole.h>

namespace {

// Decided here: OLE is set up per thread and taken down when the thread ends
// (this guard's destructor runs as the thread exits), so a worker thread that
// calls AfxOleInit needs nothing else; AfxOleTerm takes it down earlier.
struct OleThreadGuard {
  bool m_bInitialized = false;
  ~OleThreadGuard() {
    if (m_bInitialized) AfxOleTerm(FALSE);
  }
};

thread_local OleThreadGuard t_oleGuard;

} // namespace

BOOL AFXAPI AfxOleInit() {
  if (t_oleGuard.m_bInitialized) return TRUE;
  // S_FALSE (already initialised by someone else) still counts one
  // initialisation that we must undo.
  if (FAILED(::OleInitialize(NULL))) return FALSE;
  t_oleGuard.m_bInitialized = true;
  return TRUE;
}

void AFXAPI AfxOleTerm(BOOL bJustRevoke) {
  if (bJustRevoke || !t_oleGuard.m_bInitialized) return;
  t_oleGuard.m_bInitialized = false;
  // What we put on the clipboard is rendered there first, so that it
  // outlives us (OLE itself would empty the clipboard).
  COleDataSource::FlushClipboard();
  ::OleUninitialize();
}
