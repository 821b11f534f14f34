// VTempPathName: temporary file and folder names, removed on destruction.
#include "vrk_path.h"

#include <io.h>
#include <shellapi.h>

VTempPathName::VTempPathName() : m_bDeleteOnDestroy(FALSE) {
  Init(NULL, NULL, NULL, FALSE, 0, TRUE);
}

VTempPathName::VTempPathName(const char* pszPathName, int bDeleteOnDestroy)
    : m_strPathName(pszPathName != NULL ? pszPathName : ""), m_bDeleteOnDestroy(bDeleteOnDestroy) {}

VTempPathName::VTempPathName(const char* pszDirectory, const char* pszPrefix,
                             const char* pszExtension, int bDirectory, unsigned int uUnique,
                             int bDeleteOnDestroy)
    : m_bDeleteOnDestroy(FALSE) {
  Init(pszDirectory, pszPrefix, pszExtension, bDirectory, uUnique, bDeleteOnDestroy);
}

VTempPathName::~VTempPathName() {
  if (m_bDeleteOnDestroy && !m_strPathName.IsEmpty() && _access(m_strPathName, 0) == 0)
    VrkRemoveFile(m_strPathName, FOF_SILENT | FOF_NOCONFIRMATION);
  m_strPathName.Empty();
}

void VTempPathName::Init(const char* pszDirectory, const char* pszPrefix, const char* pszExtension,
                         int bDirectory, unsigned int uUnique, int bDeleteOnDestroy) {
  m_bDeleteOnDestroy = bDeleteOnDestroy;
  char szTemp[MAX_PATH];
  if (pszDirectory == NULL) {
    DWORD n = GetTempPathA(MAX_PATH, szTemp);
    if (n == 0 || n >= MAX_PATH) return;
    pszDirectory = szTemp;
  }
  m_strDirectory = pszDirectory;
  if (pszPrefix == NULL) pszPrefix = "";
  // A unique number makes GetTempFileNameA only form the name; a folder is
  // created below under that name instead of an empty file.
  if (bDirectory && uUnique == 0) uUnique = 1;

  char szName[MAX_PATH];
  if (!GetTempFileNameA(m_strDirectory, pszPrefix, uUnique, szName)) return;
  m_strPathName = szName;
  if (pszExtension != NULL) VrkChangeExt(m_strPathName, pszExtension);
  // A file stops here. With uUnique 0 the system made an empty .TMP file,
  // which stays on disk when the extension was changed (long-standing).
  if (!bDirectory) return;

  // The system uses the low 16 bits of the number: after 65536 tries every
  // name is taken and the last one formed is used (decided bound).
  for (unsigned int nTry = 0; _access(m_strPathName, 0) == 0 && nTry < 0x10000; nTry++) {
    uUnique++;
    if (!GetTempFileNameA(m_strDirectory, pszPrefix, uUnique, szName)) break;
    m_strPathName = szName;
    if (pszExtension != NULL) VrkChangeExt(m_strPathName, pszExtension);
  }
  VrkCreateDirectory(m_strPathName, NULL);
}
