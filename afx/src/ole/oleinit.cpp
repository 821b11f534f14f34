// AfxOleInit and AfxOleTerm: OLE's per-thread initialisation.
#include <afxole.h>

namespace {

// Decided here: OLE is set up per thread and taken down when the thread ends,
// so a worker thread that calls AfxOleInit needs nothing else; AfxOleTerm
// takes it down earlier. A fiber-local slot marks the threads that AfxOleInit
// initialised; its callback runs as such a thread exits (on the exiting
// thread, before the modules' thread detach).
DWORD g_dwFlsIndex = FLS_OUT_OF_INDEXES;
INIT_ONCE g_flsOnce = INIT_ONCE_STATIC_INIT;
void* const kInitialized = (void*)1;

// What we put on the clipboard is rendered there first, so that it outlives
// us (OLE itself would empty the clipboard).
void TermThread() {
  COleDataSource::FlushClipboard();
  ::OleUninitialize();
}

// The slot may already read NULL here: the value comes as the argument.
void WINAPI OnThreadExit(void* pValue) {
  if (pValue == kInitialized) TermThread();
}

BOOL CALLBACK AllocSlot(PINIT_ONCE, PVOID, PVOID*) {
  g_dwFlsIndex = ::FlsAlloc(&OnThreadExit);
  return g_dwFlsIndex != FLS_OUT_OF_INDEXES;
}

bool IsInitialized() {
  return g_dwFlsIndex != FLS_OUT_OF_INDEXES && ::FlsGetValue(g_dwFlsIndex) == kInitialized;
}

} // namespace

BOOL AFXAPI AfxOleInit() {
  if (!::InitOnceExecuteOnce(&g_flsOnce, &AllocSlot, NULL, NULL)) return FALSE;
  if (IsInitialized()) return TRUE;
  // S_FALSE (already initialised by someone else) still counts one
  // initialisation that we must undo.
  if (FAILED(::OleInitialize(NULL))) return FALSE;
  ::FlsSetValue(g_dwFlsIndex, kInitialized);
  return TRUE;
}

void AFXAPI AfxOleTerm(BOOL bJustRevoke) {
  if (bJustRevoke || !IsInitialized()) return;
  ::FlsSetValue(g_dwFlsIndex, NULL);
  TermThread();
}
