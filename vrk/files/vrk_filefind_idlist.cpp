// VShellIDListFileFind: the items of a shell ID-list array (CIDA) through
// the CFileFind interface.
#include "vrk_filefind.h"

#include <new>
#include <string.h>

IMPLEMENT_DYNAMIC(VShellIDListFileFind, CFileFind)

namespace {

// Item i of the array: 0 is the parent folder's absolute list, 1..cidl the
// items' lists relative to it.
LPCITEMIDLIST ItemOf(const CIDA* pIDA, UINT i) {
  return (LPCITEMIDLIST)((const BYTE*)pIDA + pIDA->aoffset[i]);
}

} // namespace

VShellIDListFileFind::VShellIDListFileFind()
    : m_pIDList(NULL), m_nItem(0), m_pDesktop(NULL), m_pParent(NULL) {}

// CFileFind's destructor would reach only its own CloseContext.
VShellIDListFileFind::~VShellIDListFileFind() {
  Close();
  CloseContext();
}

void VShellIDListFileFind::CloseContext() {
  if (m_hContext != NULL && m_hContext != INVALID_HANDLE_VALUE) CFileFind::CloseContext();
  if (m_pParent != NULL) m_pParent->Release();
  m_pParent = NULL;
  if (m_pDesktop != NULL) m_pDesktop->Release();
  m_pDesktop = NULL;
  m_pIDList = NULL;
  m_nItem = 0;
}

// The array must be as the shell makes it: its count and offsets are
// trusted, as the shell's own readers of clipboard ID lists trust them.
int VShellIDListFileFind::FindFile(const char* pIDList, unsigned long) {
  Close();
  CloseContext(); // folders of an earlier search whose system search was gone
  if (pIDList == NULL) return FALSE;
  m_pIDList = (const CIDA*)pIDList;
  if (m_pIDList->cidl < 1 || FAILED(SHGetDesktopFolder(&m_pDesktop)) || m_pDesktop == NULL) {
    m_pDesktop = NULL;
    return FALSE;
  }

  // Decided: an empty parent list (the desktop itself) is a virtual folder.
  LPCITEMIDLIST pidlParent = ItemOf(m_pIDList, 0);
  if (pidlParent->mkid.cb == 0) return FALSE;
  if (FAILED(m_pDesktop->BindToObject(pidlParent, NULL, IID_IShellFolder, (void**)&m_pParent))) {
    m_pParent = NULL;
    return FALSE;
  }
  // Attributes are asked of the folder that holds the parent, about its own
  // single-level item.
  SFGAOF attrs = SFGAO_FILESYSTEM | SFGAO_FOLDER;
  IShellFolder* pGrand = NULL;
  LPCITEMIDLIST pidlLast = NULL;
  if (FAILED(SHBindToParent(pidlParent, IID_IShellFolder, (void**)&pGrand, &pidlLast)) ||
      pGrand == NULL)
    return FALSE;
  HRESULT hr = pGrand->GetAttributesOf(1, &pidlLast, &attrs);
  pGrand->Release();
  if (FAILED(hr) ||
      (attrs & (SFGAO_FILESYSTEM | SFGAO_FOLDER)) != (SFGAO_FILESYSTEM | SFGAO_FOLDER))
    return FALSE;

  char szPath[MAX_PATH];
  memset(szPath, 0, sizeof(szPath));
  if (!SHGetPathFromIDListA(pidlParent, szPath)) return FALSE;
  // An ordinary search of the parent sets up the root and both records.
  CString strPattern(szPath);
  if (strPattern.IsEmpty() || strPattern[strPattern.GetLength() - 1] != '\\') strPattern += '\\';
  strPattern += "*.*";
  // No system search is open here, so its Close does not reach the folders.
  BOOL bFound = CFileFind::FindFile(strPattern);
  if (!bFound) return FALSE;

  m_nItem = 1;
  return SUCCEEDED(SHGetDataFromIDListA(m_pParent, ItemOf(m_pIDList, 1), SHGDFIL_FINDDATA,
                                        m_pNextInfo, sizeof(WIN32_FIND_DATAA)));
}

int VShellIDListFileFind::FindNextFile() {
  if (m_pNextInfo == NULL || m_pIDList == NULL) return FALSE;
  if (m_pFoundInfo == NULL) {
    m_pFoundInfo = new (std::nothrow) WIN32_FIND_DATAA;
    if (m_pFoundInfo == NULL) AfxThrowMemoryException();
  }
  void* pTemp = m_pFoundInfo;
  m_pFoundInfo = m_pNextInfo;
  m_pNextInfo = pTemp;
  // Items whose data cannot be read are skipped.
  while (++m_nItem <= m_pIDList->cidl) {
    if (SUCCEEDED(SHGetDataFromIDListA(m_pParent, ItemOf(m_pIDList, m_nItem), SHGDFIL_FINDDATA,
                                       m_pNextInfo, sizeof(WIN32_FIND_DATAA))))
      return TRUE;
  }
  // Past the last item: no next record, so later calls are FALSE at once.
  delete (WIN32_FIND_DATAA*)m_pNextInfo;
  m_pNextInfo = NULL;
  return FALSE;
}

CString VShellIDListFileFind::GetRoot() const { return m_strRoot; }
