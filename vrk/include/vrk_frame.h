// vrk_frame.h - start-up of VRK.dll: the language resource module, the
// resource-module loader hosts may use for modules of their own, and the
// module data gathered when the library is loaded.
#ifndef VRK_FRAME_H
#define VRK_FRAME_H

#include "vrkdefs.h"
#include "vrk_version.h"

#include <afxwin.h>

// Flag bits of VrkOSLoadResourceDll.
#define VRK_LOADRES_ENGLISH_RETRY 0x0001 // retry with the English acronym
#define VRK_LOADRES_MESSAGEBOX 0x0002    // show a box when nothing loads
#define VRK_LOADRES_AFXLOAD 0x0004       // AfxLoadLibrary instead of LoadLibraryA

// For a host that is a regular MFC module: call once from InitInstance after
// the library is loaded, so that the host sees the library's classes and the
// resource module's texts.
extern "C" VRK_API void InitVrkDll();

// Loads base + "_" + the English acronym (the system search order, then the
// folder of the module supplying the application's resources).
VRK_API HINSTANCE VrkOSLoadResourceDll(const char* pszBaseName, DWORD dwFlags);
// Loads base + "_" + language, falling back to the English acronym.
VRK_API HINSTANCE VrkOSLoadResourceDll(const char* pszBaseName, const char* pszLanguage,
                                       DWORD dwFlags);

// A loaded resource module. The handle is shared by copies and never freed:
// the MFC resource chain may still point at the module.
class VRK_API VExplicitResourceDll {
public:
  VExplicitResourceDll() : m_hInstance(NULL) {}
  VExplicitResourceDll(const VExplicitResourceDll& other) : m_hInstance(other.m_hInstance) {}
  VExplicitResourceDll& operator=(const VExplicitResourceDll& other) {
    m_hInstance = other.m_hInstance;
    return *this;
  }
  virtual ~VExplicitResourceDll();

  BOOL Load(const char* pszBaseName);
  BOOL Load(const char* pszBaseName, const char* pszLanguage);
  void Unload() { m_hInstance = NULL; }
  HINSTANCE GetInstance() const { return m_hInstance; }

protected:
  HINSTANCE m_hInstance;
};

// Module data, gathered before the entry point runs.
VRK_API HINSTANCE VrkPrivGetInstance();
VRK_API const char* VrkPrivGetFullExePathName();
VRK_API const char* VrkPrivGetExePath(); // drive and folder, no trailing backslash
VRK_API const char* VrkPrivGetExeName(); // file name and extension
VRK_API DWORD VrkPrivGetLocalLangID();   // the user's default LCID
// The local acronym; the English one when that is empty and bUseEnglish is set.
VRK_API const char* VrkPrivGetLocaleAcronym(int bUseEnglish);
VRK_API const char* VrkPrivGetEnglishAcronym();
// Appends an acronym to strText; 0 (text unchanged) when it is empty.
VRK_API int VrkPrivAppendLocaleAcronym(CString& strText, int bEnglish);
// The host executable's file version words (0, 0 without a version resource).
VRK_API tagVersionWord VrkPrivGetProductMajorVersion();
VRK_API tagVersionWord VrkPrivGetProductMinorVersion();
// Whether the platform is Windows 9x, and whether its major version is 4.
VRK_API int VrkPrivIsWin9x();
VRK_API int VrkPrivIsMajorVersion4();

// RT_RCDATA resources.
VRK_API HGLOBAL VrkPrivLoadData(UINT nID);
VRK_API HGLOBAL VrkPrivLoadData(UINT nID, HINSTANCE hModule);
VRK_API HGLOBAL VrkPrivLockAndLoadText(UINT nID, HINSTANCE hModule, CString& strText);

#endif // VRK_FRAME_H
