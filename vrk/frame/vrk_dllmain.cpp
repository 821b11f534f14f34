// vrk_dllmain.cpp - VRK.dll's entry point: registers the extension module,
// makes the process-wide mutex and loads the language resource module named
// in HKCU\Software\Tamrix\PEL\Settings; InitVrkDll for regular MFC hosts.
#include "vrk_frame.h"
#include "vrk_profile.h"
#include "vrk_priv.h"
#include "vrk_enu.h"

namespace {

// The resource-module holder: a VExplicitResourceDll whose handle the entry
// point sets.
class VResourceModuleHolder : public VExplicitResourceDll {
public:
  void Set(HINSTANCE hInstance) { m_hInstance = hInstance; }
};

AFX_EXTENSION_MODULE g_vrkModule = {FALSE, NULL, NULL, NULL, NULL};
HINSTANCE g_hInstance = NULL;
CMutex* g_pMutex = NULL;
VResourceModuleHolder g_resourceModule;

const DWORD kLoadFlags = VRK_LOADRES_ENGLISH_RETRY | VRK_LOADRES_MESSAGEBOX | VRK_LOADRES_AFXLOAD;

BOOL ProcessAttach(HINSTANCE hInstance) {
  g_hInstance = hInstance;
  AfxInitExtensionModule(g_vrkModule, hInstance); // its result is not tested
  try {
    new CDynLinkLibrary(g_vrkModule, FALSE); // owned by MFC's resource chain
    g_pMutex = new CMutex(FALSE, NULL, NULL);

    // A key that cannot be created or read leaves the defaults: English.
    VRegArchive archive;
    archive.Open("Settings", "Software\\Tamrix\\PEL", 0);
    int nUseSystem = 1;
    archive.Read("UseSystem", nUseSystem, 1);
    HINSTANCE hResource = NULL;
    if (nUseSystem == 0) {
      CString strLanguage;
      archive.Read("Language", strLanguage, "ENU");
      hResource = VrkOSLoadResourceDll("vrk", strLanguage, kLoadFlags);
    }
    if (hResource == NULL) {
      hResource = VrkOSLoadResourceDll("vrk", kLoadFlags);
      if (hResource == NULL) {
        archive.Close();
        return FALSE; // no texts at all: the library must not load
      }
    }
    g_resourceModule.Set(hResource);
    archive.Close();
    return TRUE;
  } catch (CException* e) {
    e->Delete();
  }
  delete g_pMutex;
  g_pMutex = NULL;
  return FALSE;
}

void ProcessDetach() {
  g_resourceModule.Set(NULL); // the resource module is never freed
  if (g_pMutex != NULL) {
    g_pMutex->Unlock();
    delete g_pMutex;
    g_pMutex = NULL;
  }
  AfxTermExtensionModule(g_vrkModule, FALSE);
}

} // namespace

// When the attach fails, the system calls the entry point again with
// DLL_PROCESS_DETACH before unmapping the module: the detach takes the
// module's entry out of the resource chain then.
extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID) {
  if (dwReason == DLL_PROCESS_ATTACH) return ProcessAttach(hInstance);
  if (dwReason == DLL_PROCESS_DETACH) ProcessDetach();
  return TRUE;
}

// The English module is always initialised first, and a second time when the
// chosen module has no "InitVrkResDll" of its own; that repeat is kept.
void InitVrkDll() {
  new CDynLinkLibrary(g_vrkModule, FALSE);
  InitVrkEnuDll();
  typedef void(__cdecl * InitResProc)();
  HINSTANCE hResource = g_resourceModule.GetInstance();
  InitResProc pfnInit =
      hResource != NULL
          ? reinterpret_cast<InitResProc>(::GetProcAddress(hResource, "InitVrkResDll"))
          : NULL;
  if (pfnInit != NULL)
    pfnInit();
  else
    InitVrkEnuDll();
}

HINSTANCE VrkPrivGetInstance() { return g_hInstance; }
CMutex* VrkPrivGetMutex() { return g_pMutex; }
AFX_EXTENSION_MODULE& VrkPrivGetExtensionModule() { return g_vrkModule; }
HINSTANCE VrkPrivGetResourceInstance() { return g_resourceModule.GetInstance(); }
