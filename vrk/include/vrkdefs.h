// vrkdefs.h - the export macro of VRK.dll, included by every public header.
#ifndef VRKDEFS_H
#define VRKDEFS_H

#include <afx.h>

// VRK.dll exports its classes and functions; hosts import them.
#ifdef _VRK_BUILD
#define VRK_API __declspec(dllexport)
#else
#define VRK_API __declspec(dllimport)
#endif

#endif // VRKDEFS_H
