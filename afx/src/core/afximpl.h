// afximpl.h - afx.dll's private declarations, shared between its sources.
#ifndef AFXIMPL_H
#define AFXIMPL_H

#include <afx.h>

// Drops the run-time classes whose records live in hModule from the registry
// (called when an extension module is terminated).
void AfxRemoveModuleClasses(HMODULE hModule);

#endif // AFXIMPL_H
