// Starting another program from a test: this program's folder, and a
// command line run to its end.
#ifndef VRK_TESTS_CHILD_PROCESS_H
#define VRK_TESTS_CHILD_PROCESS_H

#include <windows.h>

#include <string>

// The folder of this test program, without a trailing backslash.
inline std::string ExeDir() {
  char szExe[MAX_PATH];
  std::string exe(szExe, GetModuleFileNameA(NULL, szExe, MAX_PATH));
  return exe.substr(0, exe.rfind('\\'));
}

// Runs the command line (in pszDir when given) and waits for it: its exit
// code, 0xDEAD when it cannot start, 0xBAD when it outlives the time-out.
inline DWORD RunProcess(std::string cmdLine, const char* pszDir = NULL, DWORD dwTimeout = 120000) {
  STARTUPINFOA si = {};
  si.cb = sizeof(si);
  PROCESS_INFORMATION pi = {};
  if (!CreateProcessA(NULL, &cmdLine[0], NULL, NULL, FALSE, 0, NULL, pszDir, &si, &pi))
    return 0xDEAD;
  if (WaitForSingleObject(pi.hProcess, dwTimeout) != WAIT_OBJECT_0)
    TerminateProcess(pi.hProcess, 0xBAD);
  DWORD dwCode = 0xBAD;
  GetExitCodeProcess(pi.hProcess, &dwCode);
  CloseHandle(pi.hThread);
  CloseHandle(pi.hProcess);
  return dwCode;
}

#endif
