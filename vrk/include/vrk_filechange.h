// vrk_filechange.h - a watcher of changes in a folder, polled by the caller
// or served by a worker thread that posts a message or calls a callback.
#ifndef VRK_FILECHANGE_H
#define VRK_FILECHANGE_H

#include "vrkdefs.h"

class CWinThread;

// The callback of the served form when no window is given (C calling
// convention); it runs on the worker thread.
typedef int(__cdecl* VFILECHANGEPROC)(const char* pszPath);

class VRK_API VFileChangeNotify {
public:
  VFileChangeNotify();
  virtual ~VFileChangeNotify();

  // Polled form: watch pszPath (FILE_NOTIFY_CHANGE_ flags in dwFilter);
  // FALSE when the folder cannot be watched.
  int Run(const char* pszPath, int bWatchSubtree, unsigned long dwFilter);
  // TRUE when a change has happened since the watch began (polled form).
  int IsSignaled() const;

  // Served form: an idle-priority worker posts nMessageOrCallback to hWnd
  // with lParam = the folder path (copy it at once: it dies with the
  // worker), or, with hWnd NULL, calls (VFILECHANGEPROC)nMessageOrCallback.
  // UINT_PTR is unsigned int in the 32-bit library; a 64-bit build needs the
  // full width for a callback's address.
  int Run(HWND hWnd, UINT_PTR nMessageOrCallback, const char* pszPath, int bWatchSubtree,
          unsigned long dwFilter);

  // Closes the polled handle, or ends the worker and waits for it.
  int Stop();

protected:
  HANDLE m_hChange;
  CWinThread* m_pThread;
  HANDLE m_hStopEvent;
};

#endif // VRK_FILECHANGE_H
