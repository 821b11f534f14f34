// The program's entry point, linked into each executable rather than into
// afx.dll (as MFC's static part is): an application defines only its CWinApp
// object. An application that has its own WinMain keeps it; this one is then
// never taken from the library.
#include <afxwin.h>

extern "C" int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPSTR lpCmdLine,
                              int nCmdShow) {
  return AfxWinMain(hInstance, hPrevInstance, lpCmdLine, nCmdShow);
}
