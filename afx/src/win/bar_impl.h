// Private helpers shared by the control bar sources.
#ifndef AFX_BAR_IMPL_H
#define AFX_BAR_IMPL_H

// Registers the status bar and toolbar control classes (once a process).
void AfxInitBarClasses();

#endif // AFX_BAR_IMPL_H
