// The module state, the per-thread state, extension modules and the
// resource chain that AfxFindResourceHandle and AfxLoadString search.
#include <afxwin.h>
#include "afximpl.h"

// afx.dll's own module: searched last for resources (its own strings).
static HMODULE g_hAfxModule = NULL;

// ---- Module state ------------------------------------------------------------

AFX_MODULE_STATE::AFX_MODULE_STATE()
    : m_pCurrentWinApp(NULL), m_hCurrentInstanceHandle(::GetModuleHandle(NULL)),
      m_hCurrentResourceHandle(m_hCurrentInstanceHandle), m_lpszCurrentAppName(NULL), m_bDLL(FALSE),
      m_bSystem(FALSE), m_pFirstDLL(NULL) {
  ::InitializeCriticalSection(&m_csLibraryList);
}

AFX_MODULE_STATE::~AFX_MODULE_STATE() { ::DeleteCriticalSection(&m_csLibraryList); }

AFX_MODULE_STATE* AFXAPI AfxGetModuleState() {
  // Made on first use and never destroyed: libraries and the application
  // object may still reach it while the process winds down.
  alignas(AFX_MODULE_STATE) static unsigned char storage[sizeof(AFX_MODULE_STATE)];
  static AFX_MODULE_STATE* const pState = new (storage) AFX_MODULE_STATE;
  return pState;
}

namespace {
// Holds the resource chain's lock for a scope.
class ChainLock {
public:
  ChainLock() : m_pState(AfxGetModuleState()) {
    ::EnterCriticalSection(&m_pState->m_csLibraryList);
  }
  ~ChainLock() { ::LeaveCriticalSection(&m_pState->m_csLibraryList); }
  AFX_MODULE_STATE* m_pState;
};
} // namespace

// ---- Thread state ------------------------------------------------------------

// Decided here: the thread state lives in a TLS slot and is freed by
// afx.dll's DllMain on DLL_THREAD_DETACH, so every thread that ends (also
// one afx did not start) gives its state back.
static DWORD g_dwTlsIndex = TLS_OUT_OF_INDEXES;

static DWORD ThreadStateSlot() {
  DWORD dwIndex = g_dwTlsIndex;
  if (dwIndex != TLS_OUT_OF_INDEXES) return dwIndex;
  DWORD dwNew = ::TlsAlloc();
  if (dwNew == TLS_OUT_OF_INDEXES) AfxThrowMemoryException();
  DWORD dwPrev = (DWORD)::InterlockedCompareExchange((LONG*)&g_dwTlsIndex, (LONG)dwNew,
                                                     (LONG)TLS_OUT_OF_INDEXES);
  if (dwPrev != TLS_OUT_OF_INDEXES) { // another thread won the race
    ::TlsFree(dwNew);
    return dwPrev;
  }
  return dwNew;
}

_AFX_THREAD_STATE::_AFX_THREAD_STATE()
    : m_pCurrentWinThread(NULL), m_pWndInit(NULL), m_hHookOldCbtFilter(NULL), m_nTempMapLock(0),
      m_pMsgCache(NULL), m_hLockoutNotifyWindow(NULL) {
  memset(&m_lastSentMsg, 0, sizeof(m_lastSentMsg));
  memset(&m_msgCur, 0, sizeof(m_msgCur));
  memset(m_pHandleMaps, 0, sizeof(m_pHandleMaps));
}
_AFX_THREAD_STATE::~_AFX_THREAD_STATE() { AfxFreeThreadWindowState(this); }

_AFX_THREAD_STATE* AFXAPI AfxGetThreadState() {
  DWORD dwIndex = ThreadStateSlot();
  _AFX_THREAD_STATE* pState = (_AFX_THREAD_STATE*)::TlsGetValue(dwIndex);
  if (pState == NULL) {
    pState = new (std::nothrow) _AFX_THREAD_STATE;
    if (pState == NULL) AfxThrowMemoryException();
    ::TlsSetValue(dwIndex, pState);
  }
  return pState;
}

static void FreeThreadState() {
  if (g_dwTlsIndex == TLS_OUT_OF_INDEXES) return;
  delete (_AFX_THREAD_STATE*)::TlsGetValue(g_dwTlsIndex);
  ::TlsSetValue(g_dwTlsIndex, NULL);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID lpReserved) {
  switch (dwReason) {
  case DLL_PROCESS_ATTACH:
    g_hAfxModule = hInstance;
    break;
  case DLL_THREAD_DETACH:
    FreeThreadState();
    break;
  case DLL_PROCESS_DETACH:
    FreeThreadState();
    // At process exit the other threads are gone without a detach; their
    // states go with the process.
    if (lpReserved == NULL && g_dwTlsIndex != TLS_OUT_OF_INDEXES) ::TlsFree(g_dwTlsIndex);
    break;
  }
  return TRUE;
}

// ---- Instance and resource handles ------------------------------------------

HINSTANCE AFXAPI AfxGetInstanceHandle() { return AfxGetModuleState()->m_hCurrentInstanceHandle; }

HINSTANCE AFXAPI AfxGetResourceHandle() { return AfxGetModuleState()->m_hCurrentResourceHandle; }

void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource) {
  AfxGetModuleState()->m_hCurrentResourceHandle = hInstResource;
}

// ---- Extension modules -------------------------------------------------------

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(bSystem), m_pNextDLL(NULL) {
  AddToChain();
}

CDynLinkLibrary::CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource)
    : m_hModule(hModule), m_hResource(hResource), m_bSystem(FALSE), m_pNextDLL(NULL) {
  AddToChain();
}

// A library joins at the head: the one loaded last is searched first.
void CDynLinkLibrary::AddToChain() {
  ChainLock lock;
  m_pNextDLL = lock.m_pState->m_pFirstDLL;
  lock.m_pState->m_pFirstDLL = this;
}

CDynLinkLibrary::~CDynLinkLibrary() {
  ChainLock lock;
  for (CDynLinkLibrary** pp = &lock.m_pState->m_pFirstDLL; *pp != NULL; pp = &(*pp)->m_pNextDLL) {
    if (*pp == this) {
      *pp = m_pNextDLL;
      break;
    }
  }
}

BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule) {
  if (state.bInitialized) return TRUE; // once per load
  if (hModule == NULL) return FALSE;
  state.hModule = hModule;
  state.hResource = hModule;
  // The module's serializable classes registered themselves with the
  // process-wide registry during its static initialisation, so there is no
  // per-module class list to capture.
  state.pFirstSharedClass = NULL;
  state.pFirstSharedFactory = NULL;
  state.bInitialized = TRUE;
  return TRUE;
}

void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll) {
  if (!bAll && !state.bInitialized) return;
  ChainLock lock;
  // Deleting a library unlinks it, so the walk starts over after each one.
  for (;;) {
    CDynLinkLibrary* pDLL = lock.m_pState->m_pFirstDLL;
    while (pDLL != NULL && !bAll && pDLL->m_hModule != state.hModule)
      pDLL = pDLL->m_pNextDLL;
    if (pDLL == NULL) break;
    HMODULE hModule = pDLL->m_hModule;
    delete pDLL;
    if (bAll && hModule != NULL) AfxRemoveModuleClasses(hModule);
  }
  if (state.hModule != NULL) AfxRemoveModuleClasses(state.hModule);
}

HINSTANCE AFXAPI AfxLoadLibrary(LPCTSTR lpszModuleName) {
  if (lpszModuleName == NULL) {
    ::SetLastError(ERROR_INVALID_PARAMETER);
    return NULL;
  }
  return ::LoadLibrary(lpszModuleName);
}

BOOL AFXAPI AfxFreeLibrary(HINSTANCE hInstLib) {
  return hInstLib != NULL && ::FreeLibrary(hInstLib);
}

// ---- Resource search ---------------------------------------------------------

// Walks the chain in MFC's order and returns the first module for which
// pfnHas is true: the resource handle, the non-system libraries (newest
// first), the system libraries, and last afx.dll itself.
template <class Pred> static HINSTANCE SearchChain(Pred pfnHas) {
  ChainLock lock;
  HINSTANCE hInst = lock.m_pState->m_hCurrentResourceHandle;
  if (pfnHas(hInst)) return hInst;
  for (int pass = 0; pass < 2; pass++) {
    BOOL bSystem = pass == 1;
    for (CDynLinkLibrary* pDLL = lock.m_pState->m_pFirstDLL; pDLL != NULL;
         pDLL = pDLL->m_pNextDLL) {
      if ((pDLL->m_bSystem != FALSE) == (bSystem != FALSE) && pDLL->m_hResource != NULL &&
          pfnHas(pDLL->m_hResource))
        return pDLL->m_hResource;
    }
  }
  if (g_hAfxModule != NULL && pfnHas(g_hAfxModule)) return g_hAfxModule;
  return NULL;
}

HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType) {
  HINSTANCE hInst =
      SearchChain([=](HINSTANCE h) { return ::FindResource(h, lpszName, lpszType) != NULL; });
  // Not found anywhere: the resource handle, as MFC answers.
  return hInst != NULL ? hInst : AfxGetResourceHandle();
}

// The counted UTF-16 text of string nID in hInst, or NULL when the module has
// no such string (a block may exist with the wanted entry empty). Every
// length read is checked against the block's size, so a damaged table
// yields NULL rather than a read past the resource.
static const WCHAR* StringImage(HINSTANCE hInst, UINT nID, int* pnLength) {
  HRSRC hRsrc = ::FindResource(hInst, MAKEINTRESOURCE((nID >> 4) + 1), RT_STRING);
  if (hRsrc == NULL) return NULL;
  HGLOBAL hGlobal = ::LoadResource(hInst, hRsrc);
  DWORD cbBlock = ::SizeofResource(hInst, hRsrc);
  const WCHAR* p = hGlobal != NULL ? (const WCHAR*)::LockResource(hGlobal) : NULL;
  if (p == NULL) return NULL;
  const WCHAR* pEnd = p + cbBlock / sizeof(WCHAR);
  for (UINT i = 0; i < (nID & 15); i++) {
    if (p >= pEnd) return NULL;
    p += 1 + *p;
  }
  if (p >= pEnd || *p == 0 || p + 1 + *p > pEnd) return NULL;
  *pnLength = *p;
  return p + 1;
}

HINSTANCE AFXAPI AfxFindStringResourceHandle(UINT nID) {
  int nLength;
  return SearchChain([=, &nLength](HINSTANCE h) { return StringImage(h, nID, &nLength) != NULL; });
}

int AFXAPI AfxLoadString(UINT nID, LPTSTR lpszBuf, UINT nMaxBuf) {
  if (lpszBuf == NULL || nMaxBuf == 0) return 0;
  lpszBuf[0] = '\0';
  int nLength = 0;
  HINSTANCE hInst = AfxFindStringResourceHandle(nID);
  const WCHAR* pch = hInst != NULL ? StringImage(hInst, nID, &nLength) : NULL;
  if (pch == NULL) return 0;

  int cbNeeded = ::WideCharToMultiByte(CP_ACP, 0, pch, nLength, NULL, 0, NULL, NULL);
  if (cbNeeded <= 0) return 0;
  if ((UINT)cbNeeded < nMaxBuf) {
    int n = ::WideCharToMultiByte(CP_ACP, 0, pch, nLength, lpszBuf, cbNeeded, NULL, NULL);
    lpszBuf[n] = '\0';
    return n;
  }
  // Too long for the buffer: keep what fits without splitting a double-byte
  // character. cbNeeded is bounded by a resource string (65535 characters).
  char* pszAll = new (std::nothrow) char[cbNeeded];
  if (pszAll == NULL) AfxThrowMemoryException();
  ::WideCharToMultiByte(CP_ACP, 0, pch, nLength, pszAll, cbNeeded, NULL, NULL);
  UINT n = 0;
  while (n < nMaxBuf - 1) {
    UINT nChar = ::IsDBCSLeadByte((BYTE)pszAll[n]) ? 2 : 1;
    if (n + nChar > nMaxBuf - 1) break;
    n += nChar;
  }
  memcpy(lpszBuf, pszAll, n);
  lpszBuf[n] = '\0';
  delete[] pszAll;
  return (int)n;
}
