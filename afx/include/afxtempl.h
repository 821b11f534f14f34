// afxtempl.h - the collection templates CArray, CList and CMap, their element
// helpers, and the type-safe pointer wrappers CTypedPtrArray, CTypedPtrList
// and CTypedPtrMap over the non-template collections.
#ifndef __AFXTEMPL_H__
#define __AFXTEMPL_H__

#include "afxcoll.h"

// ---- element helpers -------------------------------------------------------

// Elements are zeroed, then constructed in place; destroyed by an explicit
// destructor call. Arrays move their elements bitwise (memcpy/memmove).
template <class TYPE> AFX_INLINE void AFXAPI ConstructElements(TYPE* pElements, INT_PTR nCount) {
  AfxCollImpl::Construct(pElements, nCount);
}

template <class TYPE> AFX_INLINE void AFXAPI DestructElements(TYPE* pElements, INT_PTR nCount) {
  AfxCollImpl::Destruct(pElements, nCount);
}

template <class TYPE>
AFX_INLINE void AFXAPI CopyElements(TYPE* pDest, const TYPE* pSrc, INT_PTR nCount) {
  while (nCount-- > 0)
    *pDest++ = *pSrc++;
}

// The default is a bitwise write or read of the elements, suitable for types
// without pointers; CString and CObject* have their own below.
template <class TYPE> void AFXAPI SerializeElements(CArchive& ar, TYPE* pElements, INT_PTR nCount) {
  if (nCount <= 0) return;
  AfxCollImpl::Ensure(pElements);
  if (ar.IsStoring()) {
    const BYTE* p = (const BYTE*)pElements;
    ULONGLONG nBytes = (ULONGLONG)nCount * sizeof(TYPE);
    while (nBytes > 0) {
      UINT nChunk = nBytes > 0x40000000 ? 0x40000000 : (UINT)nBytes;
      ar.Write(p, nChunk);
      p += nChunk;
      nBytes -= nChunk;
    }
  } else {
    AfxCollReadBytes(ar, pElements, (UINT_PTR)nCount * sizeof(TYPE));
  }
}

// Element by element through the type's CArchive << and >> operators.
template <class TYPE>
void AFXAPI SerializeElementsInsertExtract(CArchive& ar, TYPE* pElements, INT_PTR nCount) {
  if (nCount <= 0) return;
  AfxCollImpl::Ensure(pElements);
  if (ar.IsStoring()) {
    for (; nCount-- > 0; pElements++)
      ar << *pElements;
  } else {
    for (; nCount-- > 0; pElements++)
      ar >> *pElements;
  }
}

template <>
inline void AFXAPI SerializeElements<CString>(CArchive& ar, CString* pElements, INT_PTR nCount) {
  SerializeElementsInsertExtract(ar, pElements, nCount);
}

// Objects go through CArchive's object references (WriteObject/ReadObject).
template <>
inline void AFXAPI SerializeElements<CObject*>(CArchive& ar, CObject** pElements, INT_PTR nCount) {
  if (nCount <= 0) return;
  AfxCollImpl::Ensure(pElements);
  if (ar.IsStoring()) {
    for (; nCount-- > 0; pElements++)
      ar.WriteObject(*pElements);
  } else {
    for (; nCount-- > 0; pElements++)
      *pElements = ar.ReadObject(NULL);
  }
}

template <class TYPE, class ARG_TYPE>
AFX_INLINE BOOL AFXAPI CompareElements(const TYPE* pElement1, const ARG_TYPE* pElement2) {
  return *pElement1 == *pElement2;
}

// The default hash of CMap (that of MFC 9): the key as a long through one
// step of the Park-Miller generator.
template <class ARG_KEY> AFX_INLINE UINT AFXAPI HashKey(ARG_KEY key) {
  ldiv_t HashVal = ldiv((long)(ARG_KEY)key, 127773);
  HashVal.rem = 16807 * HashVal.rem - 2836 * HashVal.quot;
  if (HashVal.rem < 0) HashVal.rem += 2147483647;
  return (UINT)HashVal.rem;
}

// Strings hash by their characters: hash = hash * 33 + ch.
template <> AFX_INLINE UINT AFXAPI HashKey<LPCSTR>(LPCSTR key) {
  UINT nHash = 0;
  if (key == NULL) AfxThrowInvalidArgException();
  while (*key)
    nHash = (nHash << 5) + nHash + *key++;
  return nHash;
}
template <> AFX_INLINE UINT AFXAPI HashKey<LPCWSTR>(LPCWSTR key) {
  UINT nHash = 0;
  if (key == NULL) AfxThrowInvalidArgException();
  while (*key)
    nHash = (nHash << 5) + nHash + *key++;
  return nHash;
}
template <> AFX_INLINE UINT AFXAPI HashKey<const CString&>(const CString& key) {
  return HashKey<LPCSTR>((LPCSTR)key);
}
template <> AFX_INLINE UINT AFXAPI HashKey<CString>(CString key) {
  return HashKey<LPCSTR>((LPCSTR)key);
}

// ---- CArray ----------------------------------------------------------------

// A growable array with MFC's growth rule (see AfxCollImpl::SetSize). Index
// errors throw CInvalidArgException; allocation failure CMemoryException.
template <class TYPE, class ARG_TYPE = const TYPE&> class CArray : public CObject {
public:
  CArray() : m_pData(NULL), m_nSize(0), m_nMaxSize(0), m_nGrowBy(0) {}
  ~CArray() { AfxCollImpl::SetSize(*this, 0, -1); }

  INT_PTR GetSize() const { return m_nSize; }
  INT_PTR GetCount() const { return m_nSize; }
  BOOL IsEmpty() const { return m_nSize == 0; }
  INT_PTR GetUpperBound() const { return m_nSize - 1; }
  void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1) {
    AfxCollImpl::SetSize(*this, nNewSize, nGrowBy);
  }
  void FreeExtra() { AfxCollImpl::FreeExtra(*this); }
  void RemoveAll() { SetSize(0, -1); }

  const TYPE& GetAt(INT_PTR nIndex) const {
    AfxCollImpl::CheckIndex(nIndex, m_nSize);
    return m_pData[nIndex];
  }
  TYPE& GetAt(INT_PTR nIndex) {
    AfxCollImpl::CheckIndex(nIndex, m_nSize);
    return m_pData[nIndex];
  }
  void SetAt(INT_PTR nIndex, ARG_TYPE newElement) {
    AfxCollImpl::CheckIndex(nIndex, m_nSize);
    m_pData[nIndex] = newElement;
  }
  const TYPE& ElementAt(INT_PTR nIndex) const { return GetAt(nIndex); }
  TYPE& ElementAt(INT_PTR nIndex) { return GetAt(nIndex); }
  const TYPE* GetData() const { return m_pData; }
  TYPE* GetData() { return m_pData; }

  void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement) {
    AfxCollImpl::SetAtGrow<CArray, ARG_TYPE>(*this, nIndex, newElement);
  }
  INT_PTR Add(ARG_TYPE newElement) {
    INT_PTR nIndex = m_nSize;
    SetAtGrow(nIndex, newElement);
    return nIndex;
  }
  // Appending an array to itself throws CInvalidArgException.
  INT_PTR Append(const CArray& src) {
    if (this == &src) AfxThrowInvalidArgException();
    INT_PTR nOldSize = m_nSize;
    if (src.m_nSize > MAXINT_PTR - nOldSize) AfxThrowMemoryException();
    SetSize(nOldSize + src.m_nSize);
    CopyElements<TYPE>(m_pData + nOldSize, src.m_pData, src.m_nSize);
    return nOldSize;
  }
  void Copy(const CArray& src) {
    if (this == &src) return;
    SetSize(src.m_nSize);
    CopyElements<TYPE>(m_pData, src.m_pData, src.m_nSize);
  }

  const TYPE& operator[](INT_PTR nIndex) const { return GetAt(nIndex); }
  TYPE& operator[](INT_PTR nIndex) { return GetAt(nIndex); }

  void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1) {
    AfxCollImpl::InsertAt<CArray, ARG_TYPE>(*this, nIndex, newElement, nCount);
  }
  void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1) {
    AfxCollImpl::RemoveAt(*this, nIndex, nCount);
  }
  void InsertAt(INT_PTR nStartIndex, CArray* pNewArray) {
    AfxCollImpl::InsertArray(*this, nStartIndex, pNewArray);
  }

  // The count (CArchive::WriteCount), then SerializeElements.
  void Serialize(CArchive& ar) {
    CObject::Serialize(ar);
    if (ar.IsStoring()) {
      ar.WriteCount(m_nSize);
      SerializeElements<TYPE>(ar, m_pData, m_nSize);
    } else {
      AfxCollImpl::Load(*this, ar.ReadCount(),
                        [&ar](TYPE* p, INT_PTR n) { SerializeElements<TYPE>(ar, p, n); });
    }
  }

protected:
  TYPE* m_pData;
  INT_PTR m_nSize;
  INT_PTR m_nMaxSize;
  INT_PTR m_nGrowBy;
  friend struct AfxCollImpl;
};

// ---- CList -----------------------------------------------------------------

// A doubly linked list whose nodes come from blocks of nBlockSize. An empty
// list's head or tail and NULL positions throw CInvalidArgException.
template <class TYPE, class ARG_TYPE = const TYPE&> class CList : public CObject {
protected:
  struct CNode {
    CNode* pNext;
    CNode* pPrev;
    TYPE data;
  };

public:
  explicit CList(INT_PTR nBlockSize = 10)
      : m_pNodeHead(NULL), m_pNodeTail(NULL), m_nCount(0), m_pNodeFree(NULL), m_pBlocks(NULL),
        m_nBlockSize(nBlockSize) {}
  ~CList() { RemoveAll(); }

  INT_PTR GetCount() const { return m_nCount; }
  INT_PTR GetSize() const { return m_nCount; }
  BOOL IsEmpty() const { return m_nCount == 0; }

  TYPE& GetHead() { return AfxCollImpl::Ensure(m_pNodeHead)->data; }
  const TYPE& GetHead() const { return AfxCollImpl::Ensure(m_pNodeHead)->data; }
  TYPE& GetTail() { return AfxCollImpl::Ensure(m_pNodeTail)->data; }
  const TYPE& GetTail() const { return AfxCollImpl::Ensure(m_pNodeTail)->data; }

  TYPE RemoveHead() {
    CNode* pOld = AfxCollImpl::Ensure(m_pNodeHead);
    TYPE returnValue = pOld->data;
    AfxCollImpl::RemoveNode(*this, (POSITION)pOld);
    return returnValue;
  }
  TYPE RemoveTail() {
    CNode* pOld = AfxCollImpl::Ensure(m_pNodeTail);
    TYPE returnValue = pOld->data;
    AfxCollImpl::RemoveNode(*this, (POSITION)pOld);
    return returnValue;
  }

  POSITION AddHead(ARG_TYPE newElement) {
    CNode* pNode = AfxCollImpl::AddHead(*this);
    pNode->data = newElement;
    return (POSITION)pNode;
  }
  POSITION AddTail(ARG_TYPE newElement) {
    CNode* pNode = AfxCollImpl::AddTail(*this);
    pNode->data = newElement;
    return (POSITION)pNode;
  }
  void AddHead(CList* pNewList) { AfxCollImpl::AddHeadList(*this, pNewList); }
  void AddTail(CList* pNewList) { AfxCollImpl::AddTailList(*this, pNewList); }
  void RemoveAll() { AfxCollImpl::RemoveAllNodes(*this); }

  POSITION GetHeadPosition() const { return (POSITION)m_pNodeHead; }
  POSITION GetTailPosition() const { return (POSITION)m_pNodeTail; }
  TYPE& GetNext(POSITION& rPosition) { return AfxCollImpl::Next<CNode>(rPosition)->data; }
  const TYPE& GetNext(POSITION& rPosition) const {
    return AfxCollImpl::Next<CNode>(rPosition)->data;
  }
  TYPE& GetPrev(POSITION& rPosition) { return AfxCollImpl::Prev<CNode>(rPosition)->data; }
  const TYPE& GetPrev(POSITION& rPosition) const {
    return AfxCollImpl::Prev<CNode>(rPosition)->data;
  }
  TYPE& GetAt(POSITION position) { return AfxCollImpl::Ensure((CNode*)position)->data; }
  const TYPE& GetAt(POSITION position) const { return AfxCollImpl::Ensure((CNode*)position)->data; }
  void SetAt(POSITION pos, ARG_TYPE newElement) {
    AfxCollImpl::Ensure((CNode*)pos)->data = newElement;
  }
  void RemoveAt(POSITION position) { AfxCollImpl::RemoveNode(*this, position); }

  // A NULL position inserts at the head (InsertBefore) or the tail.
  POSITION InsertBefore(POSITION position, ARG_TYPE newElement) {
    CNode* pNode = AfxCollImpl::InsertBefore(*this, position);
    pNode->data = newElement;
    return (POSITION)pNode;
  }
  POSITION InsertAfter(POSITION position, ARG_TYPE newElement) {
    CNode* pNode = AfxCollImpl::InsertAfter(*this, position);
    pNode->data = newElement;
    return (POSITION)pNode;
  }

  // Compares with CompareElements; NULL when not found.
  POSITION Find(ARG_TYPE searchValue, POSITION startAfter = NULL) const {
    return AfxCollImpl::Find(*this, startAfter, [&searchValue](const TYPE& data) {
      return CompareElements<TYPE>(&data, &searchValue) != FALSE;
    });
  }
  POSITION FindIndex(INT_PTR nIndex) const { return AfxCollImpl::FindIndex(*this, nIndex); }

  // The count, then each element through SerializeElements.
  void Serialize(CArchive& ar) {
    CObject::Serialize(ar);
    if (ar.IsStoring()) {
      ar.WriteCount(m_nCount);
      for (CNode* pNode = m_pNodeHead; pNode != NULL; pNode = pNode->pNext)
        SerializeElements<TYPE>(ar, &pNode->data, 1);
    } else {
      DWORD_PTR nNewCount = ar.ReadCount();
      while (nNewCount-- > 0) {
        TYPE newData[1];
        SerializeElements<TYPE>(ar, newData, 1);
        AddTail(newData[0]);
      }
    }
  }

protected:
  CNode* m_pNodeHead;
  CNode* m_pNodeTail;
  INT_PTR m_nCount;
  CNode* m_pNodeFree;
  struct CPlex* m_pBlocks;
  INT_PTR m_nBlockSize;
  friend struct AfxCollImpl;
};

// ---- CMap ------------------------------------------------------------------

// A chained hash table (17 buckets unless InitHashTable says otherwise)
// hashed by HashKey<ARG_KEY> and compared by CompareElements.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE> class CMap : public CObject {
public:
  struct CPair {
    const KEY key;
    VALUE value;

  protected:
    // The value is value-initialized: a new entry of a simple type is 0.
    explicit CPair(ARG_KEY keyval) : key(keyval), value() {}
  };

protected:
  struct CAssoc : CPair {
    CAssoc* pNext;
    UINT nHashValue;
    explicit CAssoc(ARG_KEY keyval) : CPair(keyval) {}
  };

public:
  explicit CMap(INT_PTR nBlockSize = 10)
      : m_pHashTable(NULL), m_nHashTableSize(17), m_nCount(0), m_pFreeList(NULL), m_pBlocks(NULL),
        m_nBlockSize(nBlockSize) {}
  ~CMap() { RemoveAll(); }

  INT_PTR GetCount() const { return m_nCount; }
  INT_PTR GetSize() const { return m_nCount; }
  BOOL IsEmpty() const { return m_nCount == 0; }

  BOOL Lookup(ARG_KEY key, VALUE& rValue) const {
    UINT nHashValue;
    CAssoc* pAssoc = GetAssocAt(key, nHashValue);
    if (pAssoc == NULL) return FALSE;
    rValue = pAssoc->value;
    return TRUE;
  }
  const CPair* PLookup(ARG_KEY key) const {
    UINT nHashValue;
    return GetAssocAt(key, nHashValue);
  }
  CPair* PLookup(ARG_KEY key) {
    UINT nHashValue;
    return GetAssocAt(key, nHashValue);
  }

  // Adds the key with a value-initialized value when it is not there.
  VALUE& operator[](ARG_KEY key) {
    UINT nHashValue;
    CAssoc* pAssoc = GetAssocAt(key, nHashValue);
    if (pAssoc == NULL)
      pAssoc = AfxCollImpl::NewAssoc(*this, nHashValue,
                                     [&key](CAssoc* pNew) { ::new ((void*)pNew) CAssoc(key); });
    return pAssoc->value;
  }
  void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }

  BOOL RemoveKey(ARG_KEY key) {
    return AfxCollImpl::RemoveKey(*this, HashKey<ARG_KEY>(key), [&key](const CAssoc* p) {
      return CompareElements<KEY>(&p->key, &key) != FALSE;
    });
  }
  void RemoveAll() { AfxCollImpl::RemoveAllAssocs(*this); }

  POSITION GetStartPosition() const { return m_nCount == 0 ? NULL : BEFORE_START_POSITION; }
  void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const {
    CAssoc* pAssoc = AfxCollImpl::GetNextAssoc(*this, rNextPosition);
    rKey = pAssoc->key;
    rValue = pAssoc->value;
  }
  const CPair* PGetFirstAssoc() const { return AfxCollImpl::FirstAssoc(*this); }
  CPair* PGetFirstAssoc() { return AfxCollImpl::FirstAssoc(*this); }
  const CPair* PGetNextAssoc(const CPair* pAssoc) const {
    return AfxCollImpl::NextAssoc(*this, static_cast<const CAssoc*>(AfxCollImpl::Ensure(pAssoc)));
  }
  CPair* PGetNextAssoc(const CPair* pAssoc) {
    return AfxCollImpl::NextAssoc(*this, static_cast<const CAssoc*>(AfxCollImpl::Ensure(pAssoc)));
  }

  UINT GetHashTableSize() const { return m_nHashTableSize; }
  // hashSize 0 throws CInvalidArgException.
  void InitHashTable(UINT hashSize, BOOL bAllocNow = TRUE) {
    AfxCollImpl::InitHashTable(*this, hashSize, bAllocNow);
  }

  // The count, then key and value of each entry in iteration order through
  // SerializeElements.
  void Serialize(CArchive& ar) {
    CObject::Serialize(ar);
    if (ar.IsStoring()) {
      ar.WriteCount(m_nCount);
      for (CAssoc* p = AfxCollImpl::FirstAssoc(*this); p != NULL;
           p = AfxCollImpl::NextAssoc(*this, p)) {
        SerializeElements<KEY>(ar, const_cast<KEY*>(&p->key), 1);
        SerializeElements<VALUE>(ar, &p->value, 1);
      }
    } else {
      DWORD_PTR nNewCount = ar.ReadCount();
      while (nNewCount-- > 0) {
        KEY newKey[1];
        VALUE newValue[1];
        SerializeElements<KEY>(ar, newKey, 1);
        SerializeElements<VALUE>(ar, newValue, 1);
        SetAt(newKey[0], newValue[0]);
      }
    }
  }

protected:
  CAssoc** m_pHashTable;
  UINT m_nHashTableSize;
  INT_PTR m_nCount;
  CAssoc* m_pFreeList;
  struct CPlex* m_pBlocks;
  INT_PTR m_nBlockSize;
  friend struct AfxCollImpl;

  CAssoc* GetAssocAt(ARG_KEY key, UINT& nHashValue) const {
    nHashValue = HashKey<ARG_KEY>(key);
    return AfxCollImpl::FindAssoc(*this, nHashValue, [&key](const CAssoc* p) {
      return CompareElements<KEY>(&p->key, &key) != FALSE;
    });
  }
};

// ---- type-safe pointer collections ------------------------------------------

// An array of TYPE pointers over CObArray or CPtrArray.
template <class BASE_CLASS, class TYPE> class CTypedPtrArray : public BASE_CLASS {
public:
  TYPE GetAt(INT_PTR nIndex) const { return (TYPE)BASE_CLASS::GetAt(nIndex); }
  TYPE& ElementAt(INT_PTR nIndex) { return (TYPE&)BASE_CLASS::ElementAt(nIndex); }
  void SetAt(INT_PTR nIndex, TYPE ptr) { BASE_CLASS::SetAt(nIndex, ptr); }
  void SetAtGrow(INT_PTR nIndex, TYPE newElement) { BASE_CLASS::SetAtGrow(nIndex, newElement); }
  INT_PTR Add(TYPE newElement) { return BASE_CLASS::Add(newElement); }
  INT_PTR Append(const CTypedPtrArray& src) { return BASE_CLASS::Append(src); }
  void Copy(const CTypedPtrArray& src) { BASE_CLASS::Copy(src); }
  void InsertAt(INT_PTR nIndex, TYPE newElement, INT_PTR nCount = 1) {
    BASE_CLASS::InsertAt(nIndex, newElement, nCount);
  }
  void InsertAt(INT_PTR nStartIndex, CTypedPtrArray* pNewArray) {
    BASE_CLASS::InsertAt(nStartIndex, pNewArray);
  }
  TYPE* GetData() { return (TYPE*)BASE_CLASS::GetData(); }
  const TYPE* GetData() const { return (const TYPE*)BASE_CLASS::GetData(); }
  TYPE operator[](INT_PTR nIndex) const { return (TYPE)BASE_CLASS::operator[](nIndex); }
  TYPE& operator[](INT_PTR nIndex) { return (TYPE&)BASE_CLASS::operator[](nIndex); }
};

// The element access of CTypedPtrList.
template <class BASE_CLASS, class TYPE> class _CTypedPtrList : public BASE_CLASS {
public:
  explicit _CTypedPtrList(INT_PTR nBlockSize = 10) : BASE_CLASS(nBlockSize) {}

  TYPE& GetHead() { return (TYPE&)BASE_CLASS::GetHead(); }
  TYPE GetHead() const { return (TYPE)BASE_CLASS::GetHead(); }
  TYPE& GetTail() { return (TYPE&)BASE_CLASS::GetTail(); }
  TYPE GetTail() const { return (TYPE)BASE_CLASS::GetTail(); }
  TYPE RemoveHead() { return (TYPE)BASE_CLASS::RemoveHead(); }
  TYPE RemoveTail() { return (TYPE)BASE_CLASS::RemoveTail(); }
  TYPE& GetNext(POSITION& rPosition) { return (TYPE&)BASE_CLASS::GetNext(rPosition); }
  TYPE GetNext(POSITION& rPosition) const { return (TYPE)BASE_CLASS::GetNext(rPosition); }
  TYPE& GetPrev(POSITION& rPosition) { return (TYPE&)BASE_CLASS::GetPrev(rPosition); }
  TYPE GetPrev(POSITION& rPosition) const { return (TYPE)BASE_CLASS::GetPrev(rPosition); }
  TYPE& GetAt(POSITION position) { return (TYPE&)BASE_CLASS::GetAt(position); }
  TYPE GetAt(POSITION position) const { return (TYPE)BASE_CLASS::GetAt(position); }
  void SetAt(POSITION pos, TYPE newElement) { BASE_CLASS::SetAt(pos, newElement); }
};

// A list of TYPE pointers over CObList or CPtrList.
template <class BASE_CLASS, class TYPE>
class CTypedPtrList : public _CTypedPtrList<BASE_CLASS, TYPE> {
public:
  explicit CTypedPtrList(INT_PTR nBlockSize = 10) : _CTypedPtrList<BASE_CLASS, TYPE>(nBlockSize) {}

  POSITION AddHead(TYPE newElement) { return BASE_CLASS::AddHead(newElement); }
  POSITION AddTail(TYPE newElement) { return BASE_CLASS::AddTail(newElement); }
  void AddHead(CTypedPtrList* pNewList) { BASE_CLASS::AddHead(pNewList); }
  void AddTail(CTypedPtrList* pNewList) { BASE_CLASS::AddTail(pNewList); }
};

// A map with typed keys and values over one of the non-template maps.
template <class BASE_CLASS, class KEY, class VALUE> class CTypedPtrMap : public BASE_CLASS {
public:
  explicit CTypedPtrMap(INT_PTR nBlockSize = 10) : BASE_CLASS(nBlockSize) {}

  BOOL Lookup(typename BASE_CLASS::BASE_ARG_KEY key, VALUE& rValue) const {
    return BASE_CLASS::Lookup(key, (typename BASE_CLASS::BASE_VALUE&)rValue);
  }
  VALUE& operator[](typename BASE_CLASS::BASE_ARG_KEY key) {
    return (VALUE&)BASE_CLASS::operator[](key);
  }
  void SetAt(KEY key, VALUE newValue) { BASE_CLASS::SetAt(key, newValue); }
  BOOL RemoveKey(KEY key) { return BASE_CLASS::RemoveKey(key); }
  void GetNextAssoc(POSITION& rPosition, KEY& rKey, VALUE& rValue) const {
    BASE_CLASS::GetNextAssoc(rPosition, (typename BASE_CLASS::BASE_KEY&)rKey,
                             (typename BASE_CLASS::BASE_VALUE&)rValue);
  }
};

#endif // __AFXTEMPL_H__
