// VFileHandler: the current file, opening, positioning and closing, and the
// message boxes that report file failures.
#include "vrk_filehandler.h"

#include <afxwin.h>
#include <stdlib.h>
#include <string.h>

#include "resource.h"

namespace {

const char kNoResourceText[] = "Resource File did not load, Unknown file error occurred";

// CFile::Open flags of a new file: modeCreate | modeReadWrite.
const unsigned int kNewFileFlags = CFile::modeCreate | CFile::modeReadWrite;

} // namespace

VFileHandler::VFileHandler() { Init(); }

VFileHandler::VFileHandler(CFile* pFile) {
  Init();
  if (pFile != NULL) m_pCurrentFile = pFile;
}

VFileHandler::~VFileHandler() {
  if (!m_bOwnsCurrentFile) return;
  if (m_pCurrentFile != NULL) {
    delete m_pCurrentFile;
    m_pCurrentFile = NULL;
  } else {
    AfxMessageBox("Someone Has Deleted a CFile pointer we created !", 0, 0);
  }
}

int VFileHandler::Init() {
  m_pCurrentFile = NULL;
  m_bOwnsCurrentFile = FALSE;
  return TRUE;
}

int VFileHandler::SetCurrentFile(CFile* pFile) {
  if (pFile == NULL) return FALSE;
  m_pCurrentFile = pFile;
  return TRUE;
}

int VFileHandler::GetCurrentFile(CFile*& pFile) {
  pFile = m_pCurrentFile;
  return TRUE;
}

int VFileHandler::GetCurrentFileName(CFile* pFile, char*& pszName) const {
  if (pFile == NULL || pszName == NULL) return FALSE;
  try {
    CFileStatus status;
    // CFileStatus holds at most _MAX_PATH characters, so the copy into the
    // caller's _MAX_PATH buffer is bounded by construction.
    if (pFile->GetStatus(status)) {
      lstrcpynA(pszName, status.m_szFullName, _MAX_PATH);
    } else {
      pszName[0] = '\0';
    }
  } catch (CMemoryException* e) {
    e->Delete();
    AfxMessageBox(IDS_VRK_FILE_NO_MEMORY, 0, (UINT)-1);
    return FALSE;
  }
  return TRUE;
}

int VFileHandler::GetCurrentFileName(char*& pszName) const {
  return GetCurrentFileName(m_pCurrentFile, pszName);
}

int VFileHandler::OpenNewFile(const char* const pszName, CFile*& pFile, int bCallerKeepsFile) {
  return OpenExistingFile(pszName, pFile, kNewFileFlags, bCallerKeepsFile);
}

int VFileHandler::OpenExistingFile(const char* const pszName, CFile*& pFile,
                                   unsigned int nOpenFlags, int bCallerKeepsFile) {
  if (pszName == NULL || pszName[0] == '\0' || pFile != NULL) return FALSE;
  try {
    pFile = new CFile;
  } catch (CMemoryException* e) {
    e->Delete();
    return FALSE;
  }
  CFileException error;
  if (pFile->Open(pszName, nOpenFlags, &error)) {
    // The flag describes the current file whichever pointer was filled.
    m_bOwnsCurrentFile = bCallerKeepsFile == 0;
    return TRUE;
  }
  PutErrorMessage(IDS_VRK_FILE_OPEN, pFile);
  delete pFile;
  pFile = NULL;
  return FALSE;
}

int VFileHandler::OpenAndUseNewFile(const char* const pszName) {
  if (m_pCurrentFile != NULL) return FALSE;
  return OpenNewFile(pszName, m_pCurrentFile, 0);
}

int VFileHandler::OpenAndUseExistingFile(const char* const pszName, unsigned int nOpenFlags) {
  if (m_pCurrentFile != NULL) return FALSE;
  return OpenExistingFile(pszName, m_pCurrentFile, nOpenFlags, 0);
}

int VFileHandler::RewindFile(CFile* pFile) const {
  if (pFile == NULL) return FALSE;
  try {
    pFile->SeekToBegin();
  } catch (CFileException* e) {
    e->Delete();
    PutErrorMessage(IDS_VRK_FILE_POSITION, pFile);
    return FALSE;
  }
  return TRUE;
}

int VFileHandler::RewindFile() const { return RewindFile(m_pCurrentFile); }

int VFileHandler::CloseFile(CFile* pFile) const {
  if (pFile == NULL) return FALSE;
  if (pFile->m_hFile == CFile::hFileNull) return TRUE;
  try {
    pFile->Close();
  } catch (CFileException* e) {
    e->Delete();
    PutErrorMessage(IDS_VRK_FILE_CLOSE, pFile);
    return FALSE;
  }
  return TRUE;
}

int VFileHandler::CloseFile() const { return CloseFile(m_pCurrentFile); }

int VFileHandler::DeleteInternalCFile() {
  delete m_pCurrentFile;
  m_pCurrentFile = NULL;
  m_bOwnsCurrentFile = FALSE;
  return TRUE;
}

int VFileHandler::GetFilePosition(CFile* pFile, unsigned long& nPos) const {
  if (pFile == NULL) return FALSE;
  try {
    nPos = (unsigned long)pFile->GetPosition();
  } catch (CFileException* e) {
    e->Delete();
    PutErrorMessage(IDS_VRK_FILE_POSITION, pFile);
    return FALSE;
  }
  return TRUE;
}

int VFileHandler::GetFilePosition(unsigned long& nPos) const {
  return GetFilePosition(m_pCurrentFile, nPos);
}

int VFileHandler::SetFilePosition(CFile* pFile, unsigned long nPos) const {
  // Tested as signed: positions stop at 2 GB.
  if (pFile == NULL || (long)nPos < 0) return FALSE;
  try {
    pFile->Seek((LONGLONG)nPos, CFile::begin);
  } catch (CFileException* e) {
    e->Delete();
    PutErrorMessage(IDS_VRK_FILE_POSITION, pFile);
    return FALSE;
  }
  return TRUE;
}

int VFileHandler::SetFilePosition(unsigned long nPos) const {
  return SetFilePosition(m_pCurrentFile, nPos);
}

int VFileHandler::MoveAheadXBytes(unsigned long nBytes) const {
  return MoveAheadXBytes(m_pCurrentFile, nBytes);
}

int VFileHandler::MoveAheadXBytes(CFile* pFile, unsigned long nBytes) const {
  // Unlike the other operations this pair has never tested the file for
  // NULL; a NULL file is still refused here rather than dereferenced.
  if (pFile == NULL) return FALSE;
  try {
    pFile->Seek((LONGLONG)(long)nBytes, CFile::current);
  } catch (CFileException* e) {
    e->Delete();
    PutErrorMessage(IDS_VRK_FILE_POSITION, pFile);
    return FALSE;
  }
  return TRUE;
}

int VFileHandler::GetFileSize(CFile* pFile, unsigned long& nSize) const {
  if (pFile == NULL) return FALSE;
  try {
    nSize = (unsigned long)pFile->GetLength();
  } catch (CFileException* e) {
    e->Delete();
    PutErrorMessage(IDS_VRK_FILE_POSITION, pFile);
    return FALSE;
  }
  return TRUE;
}

int VFileHandler::GetFileSize(unsigned long& nSize) const {
  return GetFileSize(m_pCurrentFile, nSize);
}

int VFileHandler::PutErrorMessage(unsigned int nID, CFile* pFile) const {
  CString strText;
  if (!strText.LoadString(nID)) strText.LoadString(IDS_VRK_FILE_UNKNOWN);
  if (strText.IsEmpty()) strText = kNoResourceText;
  return PutErrorMessage((const char*)strText, pFile);
}

int VFileHandler::PutErrorMessage(const char* const pszText, CFile* pFile) const {
  CString strMessage(pszText);
  CFile* pNamed = pFile != NULL ? pFile : m_pCurrentFile;
  if (pNamed == NULL) {
    AfxMessageBox(IDS_VRK_FILE_NONE, 0, (UINT)-1);
    return FALSE;
  }
  if (strMessage.IsEmpty()) {
    strMessage.LoadString(IDS_VRK_FILE_UNKNOWN);
    if (strMessage.IsEmpty()) strMessage = kNoResourceText;
  }
  // Only a text, even an empty one, is shown; NULL shows nothing.
  if (pszText == NULL) return FALSE;

  char* pszName = NULL;
  try {
    pszName = (char*)calloc(_MAX_PATH, 1);
    if (pszName == NULL) AfxThrowMemoryException();
    if (GetCurrentFileName(pNamed, pszName) && pszName[0] != '\0') {
      strMessage += ": ";
      strMessage += pszName;
    }
    AfxMessageBox(strMessage, 0, 0);
  } catch (CMemoryException* e) {
    e->Delete();
    free(pszName);
    AfxMessageBox(IDS_VRK_FILE_NO_MEMORY, 0, (UINT)-1);
    return FALSE;
  }
  free(pszName);
  return TRUE;
}
