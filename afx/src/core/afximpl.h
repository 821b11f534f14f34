// afximpl.h - afx.dll's private declarations, shared between its sources.
#ifndef AFXIMPL_H
#define AFXIMPL_H

#include <afx.h>

// Drops the run-time classes whose records live in hModule from the registry
// (called when an extension module is terminated).
void AfxRemoveModuleClasses(HMODULE hModule);

class _AFX_THREAD_STATE;
// Frees the thread's handle maps (with their temporary objects) and its
// message-map cache; called as the thread state is destroyed.
void AfxFreeThreadWindowState(_AFX_THREAD_STATE* pState);

// CWnd creation: the CBT hook that attaches the next window created on this
// thread to pWnd; the unhook returns FALSE when it never saw the window.
class CWnd;
void AfxHookWindowCreate(CWnd* pWnd);
BOOL AfxUnhookWindowCreate();

// A dialog template by name through the resource chain (NULL: none);
// *phInst receives the module searched, where the template's resources are.
LPCDLGTEMPLATE AfxLoadDialogTemplate(LPCTSTR lpszTemplateName, HINSTANCE* phInst);

#endif // AFXIMPL_H
