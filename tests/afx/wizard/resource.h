//{{NO_DEPENDENCIES}}
// Microsoft Visual C++ generated include file.
// Used by Wizard.rc
//
#define IDR_MAINFRAME 128
#define IDR_WIZTYPE 129
#define ID_VIEW_COLOR 32771
