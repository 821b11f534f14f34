// afxadv.h - CSharedFile: a memory file over a movable global memory block,
// as used for the clipboard and OLE data transfer.
#ifndef AFXADV_H
#define AFXADV_H

#include "afx.h"

class AFX_API CSharedFile : public CMemFile {
  DECLARE_DYNAMIC(CSharedFile)

public:
  CSharedFile(UINT nAllocFlags = GMEM_DDESHARE | GMEM_MOVEABLE, UINT nGrowBytes = 4096);
  virtual ~CSharedFile();

  // Takes over hGlobalMemory: its whole size becomes the file's contents.
  // With bAllowGrow FALSE a write past its end throws CMemoryException.
  void SetHandle(HGLOBAL hGlobalMemory, BOOL bAllowGrow = TRUE);
  // Gives the block to the caller (unlocked) and leaves the file empty.
  HGLOBAL Detach();

protected:
  virtual BYTE* Alloc(SIZE_T nBytes);
  virtual BYTE* Realloc(BYTE* lpMem, SIZE_T nBytes);
  virtual void Free(BYTE* lpMem);

  UINT m_nAllocFlags;
  HGLOBAL m_hGlobalMemory;
  BOOL m_bAllowGrow;
};

#endif // AFXADV_H
