// CSharedFile: a CMemFile whose block is a movable global memory handle, kept
// locked while the file uses it.
#include <afx.h>
#include <afxadv.h>

IMPLEMENT_DYNAMIC(CSharedFile, CMemFile)

CSharedFile::CSharedFile(UINT nAllocFlags, UINT nGrowBytes)
    : CMemFile(nGrowBytes), m_nAllocFlags(nAllocFlags), m_hGlobalMemory(NULL), m_bAllowGrow(TRUE) {}

CSharedFile::~CSharedFile() {
  // CMemFile's destructor can no longer reach this class's Free.
  if (m_lpBuffer != NULL) Close();
}

void CSharedFile::SetHandle(HGLOBAL hGlobalMemory, BOOL bAllowGrow) {
  if (hGlobalMemory == NULL) AfxThrowInvalidArgException();
  BYTE* lpBuffer = (BYTE*)GlobalLock(hGlobalMemory);
  if (lpBuffer == NULL) AfxThrowInvalidArgException();
  if (m_lpBuffer != NULL) Close(); // the previous block is ours to free
  m_hGlobalMemory = hGlobalMemory;
  m_lpBuffer = lpBuffer;
  m_nBufferSize = m_nFileSize = GlobalSize(hGlobalMemory);
  m_nPosition = 0;
  m_bAllowGrow = bAllowGrow;
  m_bAutoDelete = TRUE;
}

HGLOBAL CSharedFile::Detach() {
  HGLOBAL hMem = m_hGlobalMemory;
  if (hMem != NULL) GlobalUnlock(hMem);
  m_hGlobalMemory = NULL;
  m_lpBuffer = NULL;
  m_nBufferSize = 0;
  m_nFileSize = 0;
  m_nPosition = 0;
  return hMem;
}

BYTE* CSharedFile::Alloc(SIZE_T nBytes) {
  m_hGlobalMemory = GlobalAlloc(m_nAllocFlags, nBytes);
  if (m_hGlobalMemory == NULL) return NULL;
  return (BYTE*)GlobalLock(m_hGlobalMemory);
}

BYTE* CSharedFile::Realloc(BYTE*, SIZE_T nBytes) {
  // A block handed over with bAllowGrow FALSE keeps its size.
  if (!m_bAllowGrow || m_hGlobalMemory == NULL) return NULL;
  GlobalUnlock(m_hGlobalMemory);
  HGLOBAL hNew = GlobalReAlloc(m_hGlobalMemory, nBytes, GMEM_MOVEABLE);
  if (hNew == NULL) {
    // The old block is still valid: lock it again so the file stays usable.
    m_lpBuffer = (BYTE*)GlobalLock(m_hGlobalMemory);
    return NULL;
  }
  m_hGlobalMemory = hNew;
  return (BYTE*)GlobalLock(hNew);
}

void CSharedFile::Free(BYTE*) {
  if (m_hGlobalMemory != NULL) {
    GlobalUnlock(m_hGlobalMemory);
    GlobalFree(m_hGlobalMemory);
    m_hGlobalMemory = NULL;
  }
}
