// VFileFind: a CFileFind whose FindNextFile is TRUE for the last file too.
#include "vrk_filefind.h"

VFileFind::VFileFind() : m_bMoreFiles(FALSE) {}

VFileFind::~VFileFind() {}

int VFileFind::FindFile(const char* pstrName, unsigned long dwUnused) {
  m_bMoreFiles = CFileFind::FindFile(pstrName, dwUnused);
  return m_bMoreFiles;
}

int VFileFind::FindNextFile() {
  if (!m_bMoreFiles) return FALSE;
  m_bMoreFiles = CFileFind::FindNextFile();
  return TRUE;
}
