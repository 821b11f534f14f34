// vrk_enu.h - the export of the English resource module vrk_enu.dll.
#ifndef VRK_ENU_H
#define VRK_ENU_H

#ifdef _VRK_ENU_BUILD
#define VRK_ENU_API __declspec(dllexport)
#else
#define VRK_ENU_API __declspec(dllimport)
#endif

// Makes vrk_enu.dll known to the caller's MFC resource chain.
extern "C" VRK_ENU_API void InitVrkEnuDll();

#endif // VRK_ENU_H
