// afxdll_.h - extension modules: their initialisation and the resource chain
// they join. Included by afxwin.h.
#ifndef AFXDLL__H
#define AFXDLL__H

#include "afxwin.h"

class COleObjectFactory;

// The state of one extension module, filled by AfxInitExtensionModule.
struct AFX_EXTENSION_MODULE {
  BOOL bInitialized;
  HMODULE hModule;
  HMODULE hResource;
  CRuntimeClass* pFirstSharedClass;
  COleObjectFactory* pFirstSharedFactory;
};

// A library in the resource chain. An extension module makes one in its
// DllMain; it leaves the chain when deleted (AfxTermExtensionModule).
class AFX_API CDynLinkLibrary : public CCmdTarget {
  DECLARE_DYNAMIC(CDynLinkLibrary)
public:
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
  CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource);
  virtual ~CDynLinkLibrary();

  HMODULE m_hModule;
  HMODULE m_hResource; // the module searched for resources
  BOOL m_bSystem;      // searched after every non-system library
  CDynLinkLibrary* m_pNextDLL;

protected:
  void AddToChain();
};

AFX_API BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
AFX_API void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

// LoadLibrary and FreeLibrary of an extension module (whose DllMain joins or
// leaves the resource chain).
AFX_API HINSTANCE AFXAPI AfxLoadLibrary(LPCTSTR lpszModuleName);
AFX_API BOOL AFXAPI AfxFreeLibrary(HINSTANCE hInstLib);

#endif // AFXDLL__H
