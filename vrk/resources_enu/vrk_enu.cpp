// vrk_enu.cpp - the English resource module: its texts and templates are in
// vrk_enu.rc; the code only makes the module known to MFC's resource chain.
#include <afxwin.h>

#include "vrk_enu.h"
#include "vrk_frame.h"

namespace {
AFX_EXTENSION_MODULE g_enuModule = {FALSE, NULL, NULL, NULL, NULL};
}

// Joins the resource chain when loaded, like any extension module, so that a
// host that never calls InitVrkDll still finds the texts.
extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID) {
  if (dwReason == DLL_PROCESS_ATTACH) {
    if (!AfxInitExtensionModule(g_enuModule, hInstance)) return FALSE;
    try {
      new CDynLinkLibrary(g_enuModule, FALSE);
    } catch (CException* e) {
      e->Delete();
      return FALSE;
    }
  } else if (dwReason == DLL_PROCESS_DETACH) {
    AfxTermExtensionModule(g_enuModule, FALSE);
  }
  return TRUE;
}

// Called by InitVrkDll for a host that is a regular MFC module. Each call
// adds one entry for VRK.dll whose resources are this module's, so that the
// entry leaves the chain with VRK.dll (AfxTermExtensionModule at its detach).
// A repeated call adds a second entry for the same module, which is harmless.
extern "C" void InitVrkEnuDll() { new CDynLinkLibrary(VrkPrivGetInstance(), g_enuModule.hModule); }
