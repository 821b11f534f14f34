// vrk_printindex.h - the index tree a print job fills while it prints: one
// level of entries per tree, each entry with its text, page and sub-entries.
#ifndef VRK_PRINTINDEX_H
#define VRK_PRINTINDEX_H

#include "vrkdefs.h"
#include <afxtempl.h>

class VPrintIndexTree;

// One index entry. Copies share the sub-tree pointer; the tree that holds
// the item owns it.
class VRK_API VIndexItem {
public:
  enum {
    flagLeader = 0x0001, // dots between the text and the page number
    flagPage = 0x0002    // print the page number
  };

  VIndexItem() : m_dwFlags(0), m_pChildren(NULL), m_nPage(0) {}

  CString m_strText;
  DWORD m_dwFlags;
  VPrintIndexTree* m_pChildren;
  WORD m_nPage;
};

// The items of one level, in insertion order.
class VRK_API VPrintIndexTree : public CArray<VIndexItem, VIndexItem> {
  DECLARE_SERIAL(VPrintIndexTree)
public:
  VPrintIndexTree() {}
  // Deletes every sub-tree, then the items.
  virtual ~VPrintIndexTree();

  // Depth first: each item's sub-tree is emptied and deleted, then the
  // tree's own items are freed. NULL does nothing.
  static void DeletePrintIndexTree(VPrintIndexTree* pTree);

  // The count (archive count form), then each item's text (CString form),
  // flags (DWORD) and page (WORD): field by field, since the array's
  // default bitwise form would write the string and sub-tree pointers.
  // Sub-trees are not persisted and loaded items have none. A load first
  // deletes the tree's present items and sub-trees.
  virtual void Serialize(CArchive& ar);

private:
  VPrintIndexTree(const VPrintIndexTree&);
  VPrintIndexTree& operator=(const VPrintIndexTree&);
};

#endif // VRK_PRINTINDEX_H
