// The non-template lists: the members they share, then Serialize.
#include <afxcoll.h>

// The out-of-line members of AFX_LIST_MEMBERS, all through AfxCollImpl.
#define AFX_IMPLEMENT_LIST(class_name, TYPE, ARG_TYPE)                                             \
  class_name::~class_name() { RemoveAll(); }                                                       \
  void class_name::RemoveAll() { AfxCollImpl::RemoveAllNodes(*this); }                             \
  TYPE class_name::RemoveHead() {                                                                  \
    CNode* pOld = AfxCollImpl::Ensure(m_pNodeHead);                                                \
    TYPE returnValue = pOld->data;                                                                 \
    AfxCollImpl::RemoveNode(*this, (POSITION)pOld);                                                \
    return returnValue;                                                                            \
  }                                                                                                \
  TYPE class_name::RemoveTail() {                                                                  \
    CNode* pOld = AfxCollImpl::Ensure(m_pNodeTail);                                                \
    TYPE returnValue = pOld->data;                                                                 \
    AfxCollImpl::RemoveNode(*this, (POSITION)pOld);                                                \
    return returnValue;                                                                            \
  }                                                                                                \
  POSITION class_name::AddHead(ARG_TYPE newElement) {                                              \
    CNode* pNode = AfxCollImpl::AddHead(*this);                                                    \
    pNode->data = newElement;                                                                      \
    return (POSITION)pNode;                                                                        \
  }                                                                                                \
  POSITION class_name::AddTail(ARG_TYPE newElement) {                                              \
    CNode* pNode = AfxCollImpl::AddTail(*this);                                                    \
    pNode->data = newElement;                                                                      \
    return (POSITION)pNode;                                                                        \
  }                                                                                                \
  void class_name::AddHead(class_name* pNewList) { AfxCollImpl::AddHeadList(*this, pNewList); }    \
  void class_name::AddTail(class_name* pNewList) { AfxCollImpl::AddTailList(*this, pNewList); }    \
  void class_name::RemoveAt(POSITION position) { AfxCollImpl::RemoveNode(*this, position); }       \
  POSITION class_name::InsertBefore(POSITION position, ARG_TYPE newElement) {                      \
    CNode* pNode = AfxCollImpl::InsertBefore(*this, position);                                     \
    pNode->data = newElement;                                                                      \
    return (POSITION)pNode;                                                                        \
  }                                                                                                \
  POSITION class_name::InsertAfter(POSITION position, ARG_TYPE newElement) {                       \
    CNode* pNode = AfxCollImpl::InsertAfter(*this, position);                                      \
    pNode->data = newElement;                                                                      \
    return (POSITION)pNode;                                                                        \
  }                                                                                                \
  POSITION class_name::Find(ARG_TYPE searchValue, POSITION startAfter) const {                     \
    return AfxCollImpl::Find(*this, startAfter,                                                    \
                             [searchValue](const auto& data) { return data == searchValue; });     \
  }                                                                                                \
  POSITION class_name::FindIndex(INT_PTR nIndex) const {                                           \
    return AfxCollImpl::FindIndex(*this, nIndex);                                                  \
  }

IMPLEMENT_SERIAL(CObList, CObject, 0)
IMPLEMENT_DYNAMIC(CPtrList, CObject)
IMPLEMENT_SERIAL(CStringList, CObject, 0)

AFX_IMPLEMENT_LIST(CObList, CObject*, CObject*)
AFX_IMPLEMENT_LIST(CPtrList, void*, void*)
AFX_IMPLEMENT_LIST(CStringList, CString, LPCTSTR)

POSITION CStringList::AddHead(const CString& newElement) {
  CNode* pNode = AfxCollImpl::AddHead(*this);
  pNode->data = newElement;
  return (POSITION)pNode;
}

POSITION CStringList::AddTail(const CString& newElement) {
  CNode* pNode = AfxCollImpl::AddTail(*this);
  pNode->data = newElement;
  return (POSITION)pNode;
}

POSITION CStringList::InsertBefore(POSITION position, const CString& newElement) {
  CNode* pNode = AfxCollImpl::InsertBefore(*this, position);
  pNode->data = newElement;
  return (POSITION)pNode;
}

POSITION CStringList::InsertAfter(POSITION position, const CString& newElement) {
  CNode* pNode = AfxCollImpl::InsertAfter(*this, position);
  pNode->data = newElement;
  return (POSITION)pNode;
}

// ---- serialization ----------------------------------------------------------

// Loading appends each element as it is read, so a corrupt count costs
// nothing until the archive runs out.
void CObList::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  if (ar.IsStoring()) {
    ar.WriteCount(m_nCount);
    for (CNode* pNode = m_pNodeHead; pNode != NULL; pNode = pNode->pNext)
      ar.WriteObject(pNode->data);
  } else {
    DWORD_PTR nNewCount = ar.ReadCount();
    while (nNewCount-- > 0)
      AddTail(ar.ReadObject(NULL));
  }
}

void CStringList::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  if (ar.IsStoring()) {
    ar.WriteCount(m_nCount);
    for (CNode* pNode = m_pNodeHead; pNode != NULL; pNode = pNode->pNext)
      ar << pNode->data;
  } else {
    DWORD_PTR nNewCount = ar.ReadCount();
    CString newData;
    while (nNewCount-- > 0) {
      ar >> newData;
      AddTail(newData);
    }
  }
}
