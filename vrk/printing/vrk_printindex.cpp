// VPrintIndexTree: one level of index entries; the tree owns the sub-trees
// of its items and deletes them depth first.
#include "vrk_printindex.h"

IMPLEMENT_SERIAL(VPrintIndexTree, CObject, 1)

VPrintIndexTree::~VPrintIndexTree() { DeletePrintIndexTree(this); }

void VPrintIndexTree::DeletePrintIndexTree(VPrintIndexTree* pTree) {
  if (pTree == NULL) return;
  for (INT_PTR i = 0; i < pTree->GetSize(); i++) {
    VIndexItem& item = pTree->ElementAt(i);
    VPrintIndexTree* pChildren = item.m_pChildren;
    // Cleared first, so that a tree listed as its own child is not entered
    // twice; such a tree is not deleted here, as its owner deletes it.
    item.m_pChildren = NULL;
    if (pChildren != NULL && pChildren != pTree) {
      DeletePrintIndexTree(pChildren);
      delete pChildren;
    }
  }
  pTree->RemoveAll();
}

void VPrintIndexTree::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  if (ar.IsStoring()) {
    ar.WriteCount(GetSize());
    for (INT_PTR i = 0; i < GetSize(); i++) {
      const VIndexItem& item = GetAt(i);
      ar << item.m_strText << item.m_dwFlags << item.m_nPage;
    }
    return;
  }
  DeletePrintIndexTree(this);
  // Items are added one by one as they are read, so an absurd count fails
  // at the end of the data instead of allocating for it up front.
  DWORD_PTR nCount = ar.ReadCount();
  VIndexItem item;
  for (DWORD_PTR i = 0; i < nCount; i++) {
    ar >> item.m_strText >> item.m_dwFlags >> item.m_nPage;
    Add(item);
  }
}
