// Token privileges: whether one is enabled, and enabling or disabling it.
#include "vrk_profile.h"

#include <stdlib.h>

namespace {

// The token to work on: the given one, or the process's own opened with
// 'access' (closed again by the destructor).
class TokenHandle {
public:
  TokenHandle(HANDLE hToken, DWORD access) : m_hToken(hToken), m_bOwn(FALSE) {
    if (m_hToken == NULL && OpenProcessToken(GetCurrentProcess(), access, &m_hToken)) m_bOwn = TRUE;
  }
  ~TokenHandle() {
    if (m_bOwn) CloseHandle(m_hToken);
  }
  HANDLE Get() const { return m_hToken; }

private:
  HANDLE m_hToken;
  BOOL m_bOwn;
  TokenHandle(const TokenHandle&);
  void operator=(const TokenHandle&);
};

} // namespace

// Looks the privilege up in the token's privilege list (PrivilegeCheck
// would need an impersonation token).
int VrkIsPrivledgeEnabled(const char* privilege, HANDLE hToken) {
  LUID luid;
  if (privilege == NULL || !LookupPrivilegeValueA(NULL, privilege, &luid)) return 0;
  TokenHandle token(hToken, TOKEN_QUERY);
  if (token.Get() == NULL) return 0;
  DWORD cb = 0;
  GetTokenInformation(token.Get(), TokenPrivileges, NULL, 0, &cb);
  if (cb < sizeof(TOKEN_PRIVILEGES)) return 0;
  TOKEN_PRIVILEGES* privileges = (TOKEN_PRIVILEGES*)malloc(cb);
  if (privileges == NULL) return 0; // the test failed: "not enabled"
  int enabled = 0;
  if (GetTokenInformation(token.Get(), TokenPrivileges, privileges, cb, &cb)) {
    for (DWORD i = 0; i < privileges->PrivilegeCount; i++) {
      const LUID_AND_ATTRIBUTES& p = privileges->Privileges[i];
      if (p.Luid.LowPart == luid.LowPart && p.Luid.HighPart == luid.HighPart) {
        enabled = (p.Attributes & SE_PRIVILEGE_ENABLED) != 0;
        break;
      }
    }
  }
  free(privileges);
  return enabled;
}

// Success means the change was made: AdjustTokenPrivileges also returns
// TRUE when the token does not hold the privilege (ERROR_NOT_ALL_ASSIGNED).
int VrkModifyPrivilege(const char* privilege, int bEnable, HANDLE hToken) {
  TOKEN_PRIVILEGES tp;
  if (privilege == NULL || !LookupPrivilegeValueA(NULL, privilege, &tp.Privileges[0].Luid))
    return 0;
  tp.PrivilegeCount = 1;
  tp.Privileges[0].Attributes = bEnable ? SE_PRIVILEGE_ENABLED : 0;
  TokenHandle token(hToken, TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY);
  if (token.Get() == NULL) return 0;
  SetLastError(ERROR_SUCCESS);
  return AdjustTokenPrivileges(token.Get(), FALSE, &tp, sizeof(tp), NULL, NULL) &&
         GetLastError() == ERROR_SUCCESS;
}
