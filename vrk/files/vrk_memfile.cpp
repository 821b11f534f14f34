// VMemFile, a memory file that shows its buffer, and VClipboardMemFileObject,
// a serializable one-shot carrier of raw bytes.
#include "vrk_global.h"

#include <stdlib.h>

VMemFile::VMemFile(unsigned int nGrowBytes) : CMemFile(nGrowBytes) {}

VMemFile::VMemFile(unsigned char* pBuffer, unsigned int nBufferSize, unsigned int nGrowBytes)
    : CMemFile(pBuffer, nBufferSize, nGrowBytes) {}

VMemFile::~VMemFile() {}

void VMemFile::SetFilePath(LPCTSTR lpszNewName) {
  if (lpszNewName == NULL) AfxThrowInvalidArgException();
  m_strFileName = lpszNewName;
}

IMPLEMENT_SERIAL(VClipboardMemFileObject, CObject, 0)

VClipboardMemFileObject::VClipboardMemFileObject() : m_file(1024), m_bOwnsBuffer(FALSE) {}

// Buffers come from malloc whether the memory file grew them or a load made
// them, so that every detached buffer is released the one way, with free.
VClipboardMemFileObject::~VClipboardMemFileObject() {
  if (m_bOwnsBuffer) free(m_file.Detach());
}

void VClipboardMemFileObject::Serialize(CArchive& ar) {
  if (ar.IsStoring()) {
    const DWORD nLength = (DWORD)m_file.GetLength();
    ar << nLength;
    if (nLength != 0) {
      BYTE* pBuffer = m_file.Detach();
      m_bOwnsBuffer = FALSE;
      // The buffer is released even when the write throws.
      try {
        ar.Write(pBuffer, nLength);
      } catch (CException*) {
        free(pBuffer);
        throw;
      }
      free(pBuffer);
    }
    return;
  }

  DWORD nLength;
  ar >> nLength;
  if (nLength == 0) return;
  // Another program may have written any length: refuse one longer than the
  // whole file under the archive before allocating, so a hostile length
  // never costs more memory than the data really holds.
  CFile* pFile = ar.GetFile();
  if (pFile == NULL || nLength > pFile->GetLength())
    AfxThrowArchiveException(CArchiveException::endOfFile, ar.m_strFileName);
  BYTE* pBuffer = (BYTE*)malloc(nLength);
  if (pBuffer == NULL) AfxThrowMemoryException();
  if (ar.Read(pBuffer, nLength) != nLength) {
    free(pBuffer);
    AfxThrowArchiveException(CArchiveException::endOfFile, ar.m_strFileName);
  }
  // A buffer loaded earlier is ours to release before it is replaced.
  if (m_bOwnsBuffer) free(m_file.Detach());
  m_file.Attach(pBuffer, nLength, 0);
  m_bOwnsBuffer = TRUE;
}
