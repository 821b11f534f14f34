// afxadv.h - CSharedFile: a memory file over a movable global memory block,
// as used for the clipboard and OLE data transfer.
#ifndef __AFXADV_H__
#define __AFXADV_H__

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

// The most-recently-used file list of CWinApp: newest first, kept in the
// profile section lpszSection as entries lpszEntryFormat ("File%d", from 1),
// shown in the File menu from command nStart (ID_FILE_MRU_FILE1) on, as
// "&1 name" with names cut to nMaxDispLen characters.
class CCmdUI;
#define AFX_ABBREV_FILENAME_LEN 30

class AFX_API CRecentFileList {
public:
  CRecentFileList(UINT nStart, LPCTSTR lpszSection, LPCTSTR lpszEntryFormat, int nSize,
                  int nMaxDispLen = AFX_ABBREV_FILENAME_LEN);
  virtual ~CRecentFileList();

  int GetSize() const { return m_nSize; }
  CString& operator[](int nIndex) { return m_arrNames[nIndex]; }
  // Puts the file first (moving it up when it is listed already).
  virtual void Add(LPCTSTR lpszPathName);
  virtual void Remove(int nIndex);
  // The name shown for entry nIndex: the file name alone when the file is in
  // the folder lpszCurDir (nCurDir characters), else the path, shortened.
  // FALSE for an empty entry.
  virtual BOOL GetDisplayName(CString& strName, int nIndex, LPCTSTR lpszCurDir, int nCurDir,
                              BOOL bAtLeastName = TRUE) const;
  // Replaces the menu's entries (from the item pCmdUI stands on) with the
  // list; an empty list leaves that item, disabled.
  virtual void UpdateMenu(CCmdUI* pCmdUI);
  virtual void ReadList();
  virtual void WriteList();

  CString* m_arrNames;
  CString m_strSectionName;
  CString m_strEntryFormat;
  UINT m_nStart;
  int m_nSize;
  int m_nMaxDisplayLength;
  CString m_strOriginal; // the menu item's text before the list replaced it
};

#endif // __AFXADV_H__
