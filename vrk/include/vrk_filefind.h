// vrk_filefind.h - CFileFind variants: one whose FindNextFile suits a loop
// that asks before it uses, and one over a shell ID-list array.
#ifndef VRK_FILEFIND_H
#define VRK_FILEFIND_H

#include "vrkdefs.h"
#include <shlobj.h>

// FindNextFile returns TRUE for every file, the last one included, so that
// `while (find.FindNextFile()) use(find);` visits each file exactly once.
class VRK_API VFileFind : public CFileFind {
public:
  VFileFind();
  virtual ~VFileFind();

  virtual int FindFile(const char* pstrName = NULL, unsigned long dwUnused = 0);
  virtual int FindNextFile();

protected:
  int m_bMoreFiles; // result of the last system call
};

// Enumerates the items of a shell ID-list array (CIDA: the clipboard and
// drag-and-drop form of selected files) through the CFileFind interface.
// The parent folder must be a file-system folder.
class VRK_API VShellIDListFileFind : public CFileFind {
  DECLARE_DYNAMIC(VShellIDListFileFind)
public:
  VShellIDListFileFind();
  virtual ~VShellIDListFileFind();

  // pIDList is the address of the CIDA; it is not copied and must outlive
  // the search.
  virtual int FindFile(const char* pIDList, unsigned long dwUnused = 0);
  virtual int FindNextFile();
  virtual CString GetRoot() const;

protected:
  virtual void CloseContext();

  const CIDA* m_pIDList;
  unsigned int m_nItem; // 1-based index of the item in the next record
  IShellFolder* m_pDesktop;
  IShellFolder* m_pParent;
};

#endif // VRK_FILEFIND_H
