// afxcoll.h - the non-template collection classes: arrays, lists and maps of
// object pointers, plain pointers, integers and strings, and the block
// allocator and shared algorithms that these and afxtempl.h's templates use.
#ifndef __AFXCOLL_H__
#define __AFXCOLL_H__

#include "afx.h"

#include <type_traits>

// ---- the block allocator ---------------------------------------------------

// Lists and maps carve their nodes from blocks chained through their first
// word and release them all at once.
struct AFX_API CPlex {
  CPlex* pNext;
  void* data() { return this + 1; }

  // Prepends a block of nMax elements of cbElement bytes to the chain at
  // head; CMemoryException when it cannot be allocated.
  static CPlex* PASCAL Create(CPlex*& head, UINT_PTR nMax, UINT_PTR cbElement);
  // Frees this block and every block after it.
  void FreeDataChain();
};

// ---- shared algorithms -----------------------------------------------------

// The algorithms every array, list and map shares, template or not. They
// work on the collection's own members (MFC's names and layout), which is why
// each collection befriends this struct.
struct AfxCollImpl {
  // Holds a replaced element block until the caller has finished with an
  // argument that may refer into it (arr.Add(arr[0]) reads the old block).
  struct CDeferredFree {
    BYTE* m_p;
    CDeferredFree() : m_p(NULL) {}
    ~CDeferredFree() { delete[] m_p; }
  };

  // ---- elements

  // New elements are zeroed, then constructed in place, as MFC does; a type
  // with a trivial constructor keeps the zeros.
  template <class TYPE> static void Construct(TYPE* p, INT_PTR n) {
    memset((void*)p, 0, (size_t)n * sizeof(TYPE));
    if (!std::is_trivially_default_constructible<TYPE>::value)
      for (INT_PTR i = 0; i < n; i++)
        ::new ((void*)(p + i)) TYPE;
  }
  template <class TYPE> static void Destruct(TYPE* p, INT_PTR n) {
    for (INT_PTR i = 0; i < n; i++)
      (p + i)->~TYPE();
  }
  template <class TYPE> static TYPE* Allocate(INT_PTR n) {
    if (n <= 0 || (ULONGLONG)n > (ULONGLONG)(((size_t)-1) / sizeof(TYPE)))
      AfxThrowMemoryException();
    BYTE* p = new (std::nothrow) BYTE[(size_t)n * sizeof(TYPE)];
    if (p == NULL) AfxThrowMemoryException();
    return (TYPE*)p;
  }
  template <class P> static P* Ensure(P* p) {
    if (p == NULL) AfxThrowInvalidArgException();
    return p;
  }

  // ---- arrays

  static void CheckIndex(INT_PTR nIndex, INT_PTR nSize) {
    if (nIndex < 0 || nIndex >= nSize) AfxThrowInvalidArgException();
  }

  // MFC's growth rule: a new block holds max(nNewSize, nGrowBy) elements; a
  // larger one grows by nGrowBy, or when that is 0 by size/8 clamped to
  // 4..1024, or to nNewSize if that is more. Elements move bitwise. Shrinking
  // keeps the block (FreeExtra releases it); size 0 frees it.
  template <class ARR>
  static void SetSize(ARR& a, INT_PTR nNewSize, INT_PTR nGrowBy, CDeferredFree* pKeep = NULL) {
    typedef typename std::remove_reference<decltype(*a.m_pData)>::type TYPE;
    if (nNewSize < 0) AfxThrowInvalidArgException();
    if (nGrowBy >= 0) a.m_nGrowBy = nGrowBy;
    if (nNewSize == 0) {
      if (a.m_pData != NULL) {
        Destruct(a.m_pData, a.m_nSize);
        delete[](BYTE*) a.m_pData;
        a.m_pData = NULL;
      }
      a.m_nSize = a.m_nMaxSize = 0;
    } else if (a.m_pData == NULL) {
      INT_PTR nAlloc = nNewSize > a.m_nGrowBy ? nNewSize : a.m_nGrowBy;
      a.m_pData = Allocate<TYPE>(nAlloc);
      Construct(a.m_pData, nNewSize);
      a.m_nSize = nNewSize;
      a.m_nMaxSize = nAlloc;
    } else if (nNewSize <= a.m_nMaxSize) {
      if (nNewSize > a.m_nSize)
        Construct(a.m_pData + a.m_nSize, nNewSize - a.m_nSize);
      else
        Destruct(a.m_pData + nNewSize, a.m_nSize - nNewSize);
      a.m_nSize = nNewSize;
    } else {
      INT_PTR nGrow = a.m_nGrowBy;
      if (nGrow == 0) {
        nGrow = a.m_nSize / 8;
        nGrow = nGrow < 4 ? 4 : (nGrow > 1024 ? 1024 : nGrow);
      }
      LONGLONG nStep = (LONGLONG)a.m_nMaxSize + nGrow;
      LONGLONG nNewMax = nNewSize < nStep ? nStep : nNewSize;
      if (nNewMax > MAXINT_PTR) nNewMax = nNewSize;
      TYPE* pNew = Allocate<TYPE>((INT_PTR)nNewMax);
      memcpy((void*)pNew, (const void*)a.m_pData, (size_t)a.m_nSize * sizeof(TYPE));
      Construct(pNew + a.m_nSize, nNewSize - a.m_nSize);
      if (pKeep != NULL)
        pKeep->m_p = (BYTE*)a.m_pData;
      else
        delete[](BYTE*) a.m_pData;
      a.m_pData = pNew;
      a.m_nSize = nNewSize;
      a.m_nMaxSize = (INT_PTR)nNewMax;
    }
  }

  template <class ARR> static void FreeExtra(ARR& a) {
    typedef typename std::remove_reference<decltype(*a.m_pData)>::type TYPE;
    if (a.m_nSize == a.m_nMaxSize) return;
    TYPE* pNew = NULL;
    if (a.m_nSize != 0) {
      pNew = Allocate<TYPE>(a.m_nSize);
      memcpy((void*)pNew, (const void*)a.m_pData, (size_t)a.m_nSize * sizeof(TYPE));
    }
    delete[](BYTE*) a.m_pData;
    a.m_pData = pNew;
    a.m_nMaxSize = a.m_nSize;
  }

  // Makes room for nCount default elements at nIndex (past the end, the
  // array grows to reach it); the caller assigns them.
  template <class ARR>
  static void InsertGap(ARR& a, INT_PTR nIndex, INT_PTR nCount, CDeferredFree* pKeep) {
    typedef typename std::remove_reference<decltype(*a.m_pData)>::type TYPE;
    if (nIndex < 0 || nCount <= 0) AfxThrowInvalidArgException();
    INT_PTR nOldSize = a.m_nSize;
    INT_PTR nBase = nIndex >= nOldSize ? nIndex : nOldSize;
    if (nCount > MAXINT_PTR - nBase) AfxThrowMemoryException();
    SetSize(a, nBase + nCount, -1, pKeep);
    if (nIndex < nOldSize) {
      Destruct(a.m_pData + nOldSize, nCount);
      memmove((void*)(a.m_pData + nIndex + nCount), (const void*)(a.m_pData + nIndex),
              (size_t)(nOldSize - nIndex) * sizeof(TYPE));
      Construct(a.m_pData + nIndex, nCount);
    }
  }

  template <class ARR, class ARG> static void SetAtGrow(ARR& a, INT_PTR nIndex, ARG newElement) {
    if (nIndex < 0) AfxThrowInvalidArgException();
    CDeferredFree keep;
    if (nIndex >= a.m_nSize) {
      if (nIndex == MAXINT_PTR) AfxThrowMemoryException();
      SetSize(a, nIndex + 1, -1, &keep);
    }
    a.m_pData[nIndex] = newElement;
  }

  template <class ARR, class ARG>
  static void InsertAt(ARR& a, INT_PTR nIndex, ARG newElement, INT_PTR nCount) {
    CDeferredFree keep;
    InsertGap(a, nIndex, nCount, &keep); // throws for a count that cannot fit
    for (INT_PTR i = 0; i < nCount; i++)
      a.m_pData[nIndex + i] = newElement;
  }

  template <class ARR> static void InsertArray(ARR& a, INT_PTR nStartIndex, const ARR* pNewArray) {
    if (pNewArray == NULL || pNewArray == &a || nStartIndex < 0) AfxThrowInvalidArgException();
    if (pNewArray->m_nSize == 0) return;
    InsertGap(a, nStartIndex, pNewArray->m_nSize, NULL);
    for (INT_PTR i = 0; i < pNewArray->m_nSize; i++)
      a.m_pData[nStartIndex + i] = pNewArray->m_pData[i];
  }

  template <class ARR> static void RemoveAt(ARR& a, INT_PTR nIndex, INT_PTR nCount) {
    typedef typename std::remove_reference<decltype(*a.m_pData)>::type TYPE;
    if (nIndex < 0 || nCount < 0 || nIndex > a.m_nSize || nCount > a.m_nSize - nIndex)
      AfxThrowInvalidArgException();
    INT_PTR nMoveCount = a.m_nSize - (nIndex + nCount);
    Destruct(a.m_pData + nIndex, nCount);
    if (nMoveCount != 0)
      memmove((void*)(a.m_pData + nIndex), (const void*)(a.m_pData + nIndex + nCount),
              (size_t)nMoveCount * sizeof(TYPE));
    a.m_nSize -= nCount;
  }

  // Copy and Append assign element by element.
  template <class ARR> static void Copy(ARR& a, const ARR& src) {
    if (&a == &src) return;
    SetSize(a, src.m_nSize, -1);
    for (INT_PTR i = 0; i < src.m_nSize; i++)
      a.m_pData[i] = src.m_pData[i];
  }
  template <class ARR> static INT_PTR Append(ARR& a, const ARR& src) {
    if (&a == &src) AfxThrowInvalidArgException();
    INT_PTR nOldSize = a.m_nSize;
    if (src.m_nSize > MAXINT_PTR - nOldSize) AfxThrowMemoryException();
    SetSize(a, nOldSize + src.m_nSize, -1);
    for (INT_PTR i = 0; i < src.m_nSize; i++)
      a.m_pData[nOldSize + i] = src.m_pData[i];
    return nOldSize;
  }

  // Loads nCount elements as they arrive instead of sizing the array for the
  // count up front: each step at most doubles what has been read (first step
  // 1024 elements), so a corrupt count in a short archive ends in
  // CArchiveException::endOfFile from the reader after a bounded allocation.
  // read(p, n) fills n elements at p.
  template <class ARR, class READ> static void Load(ARR& a, DWORD_PTR nCount, READ read) {
    const ULONGLONG nFirstStep = 1024;
    ULONGLONG nDone = 0;
    if (nCount == 0) SetSize(a, 0, -1);
    while (nDone < nCount) {
      ULONGLONG nTarget = nDone * 2 > nFirstStep ? nDone * 2 : nFirstStep;
      if (nTarget > nCount) nTarget = nCount;
      if (nTarget > (ULONGLONG)MAXINT_PTR) AfxThrowMemoryException();
      SetSize(a, (INT_PTR)nTarget, -1);
      read(a.m_pData + (INT_PTR)nDone, (INT_PTR)(nTarget - nDone));
      nDone = nTarget;
    }
  }

  // ---- lists

  template <class LIST>
  static typename LIST::CNode* NewNode(LIST& l, typename LIST::CNode* pPrev,
                                       typename LIST::CNode* pNext) {
    typedef typename LIST::CNode CNode;
    if (l.m_pNodeFree == NULL) {
      // A block size below 1 would give empty blocks: take one node at a time.
      INT_PTR nBlock = l.m_nBlockSize > 0 ? l.m_nBlockSize : 1;
      CPlex* pNewBlock = CPlex::Create(l.m_pBlocks, (UINT_PTR)nBlock, sizeof(CNode));
      CNode* pNode = (CNode*)pNewBlock->data() + nBlock;
      for (INT_PTR i = 0; i < nBlock; i++) { // the lowest address is used first
        --pNode;
        pNode->pNext = l.m_pNodeFree;
        l.m_pNodeFree = pNode;
      }
    }
    CNode* pNode = l.m_pNodeFree;
    Construct(&pNode->data, 1); // if this throws the node stays free
    l.m_pNodeFree = pNode->pNext;
    pNode->pPrev = pPrev;
    pNode->pNext = pNext;
    l.m_nCount++;
    return pNode;
  }

  template <class LIST> static void FreeNode(LIST& l, typename LIST::CNode* pNode) {
    Destruct(&pNode->data, 1);
    pNode->pNext = l.m_pNodeFree;
    l.m_pNodeFree = pNode;
    l.m_nCount--;
    if (l.m_nCount == 0) RemoveAllNodes(l); // the last one gone: give the blocks back
  }

  template <class LIST> static void RemoveAllNodes(LIST& l) {
    for (typename LIST::CNode* p = l.m_pNodeHead; p != NULL; p = p->pNext)
      Destruct(&p->data, 1);
    l.m_nCount = 0;
    l.m_pNodeHead = l.m_pNodeTail = l.m_pNodeFree = NULL;
    if (l.m_pBlocks != NULL) l.m_pBlocks->FreeDataChain();
    l.m_pBlocks = NULL;
  }

  template <class LIST> static typename LIST::CNode* AddHead(LIST& l) {
    typename LIST::CNode* pNode = NewNode(l, NULL, l.m_pNodeHead);
    if (l.m_pNodeHead != NULL)
      l.m_pNodeHead->pPrev = pNode;
    else
      l.m_pNodeTail = pNode;
    l.m_pNodeHead = pNode;
    return pNode;
  }

  template <class LIST> static typename LIST::CNode* AddTail(LIST& l) {
    typename LIST::CNode* pNode = NewNode(l, l.m_pNodeTail, NULL);
    if (l.m_pNodeTail != NULL)
      l.m_pNodeTail->pNext = pNode;
    else
      l.m_pNodeHead = pNode;
    l.m_pNodeTail = pNode;
    return pNode;
  }

  // A NULL position inserts at the head (InsertBefore) or tail (InsertAfter).
  template <class LIST> static typename LIST::CNode* InsertBefore(LIST& l, POSITION position) {
    typedef typename LIST::CNode CNode;
    CNode* pOld = (CNode*)position;
    if (pOld == NULL) return AddHead(l);
    CNode* pNode = NewNode(l, pOld->pPrev, pOld);
    if (pOld->pPrev != NULL)
      pOld->pPrev->pNext = pNode;
    else
      l.m_pNodeHead = pNode;
    pOld->pPrev = pNode;
    return pNode;
  }

  template <class LIST> static typename LIST::CNode* InsertAfter(LIST& l, POSITION position) {
    typedef typename LIST::CNode CNode;
    CNode* pOld = (CNode*)position;
    if (pOld == NULL) return AddTail(l);
    CNode* pNode = NewNode(l, pOld, pOld->pNext);
    if (pOld->pNext != NULL)
      pOld->pNext->pPrev = pNode;
    else
      l.m_pNodeTail = pNode;
    pOld->pNext = pNode;
    return pNode;
  }

  template <class LIST> static void RemoveNode(LIST& l, POSITION position) {
    typedef typename LIST::CNode CNode;
    CNode* pOld = Ensure((CNode*)position);
    if (pOld == l.m_pNodeHead)
      l.m_pNodeHead = pOld->pNext;
    else
      pOld->pPrev->pNext = pOld->pNext;
    if (pOld == l.m_pNodeTail)
      l.m_pNodeTail = pOld->pPrev;
    else
      pOld->pNext->pPrev = pOld->pPrev;
    FreeNode(l, pOld);
  }

  template <class LIST> static POSITION FindIndex(const LIST& l, INT_PTR nIndex) {
    if (nIndex < 0 || nIndex >= l.m_nCount) return NULL;
    typename LIST::CNode* pNode = l.m_pNodeHead;
    while (nIndex--)
      pNode = pNode->pNext;
    return (POSITION)pNode;
  }

  template <class LIST, class MATCH>
  static POSITION Find(const LIST& l, POSITION startAfter, MATCH match) {
    typedef typename LIST::CNode CNode;
    CNode* pNode = startAfter == NULL ? l.m_pNodeHead : ((CNode*)startAfter)->pNext;
    for (; pNode != NULL; pNode = pNode->pNext)
      if (match(pNode->data)) return (POSITION)pNode;
    return NULL;
  }

  // Adds a whole list; the count is taken first so that a list can be
  // added to itself.
  template <class LIST> static void AddHeadList(LIST& l, const LIST* pNewList) {
    Ensure(pNewList);
    INT_PTR n = pNewList->m_nCount;
    typename LIST::CNode* p = pNewList->m_pNodeTail;
    for (; n-- > 0; p = p->pPrev)
      AddHead(l)->data = p->data;
  }
  template <class LIST> static void AddTailList(LIST& l, const LIST* pNewList) {
    Ensure(pNewList);
    INT_PTR n = pNewList->m_nCount;
    typename LIST::CNode* p = pNewList->m_pNodeHead;
    for (; n-- > 0; p = p->pNext)
      AddTail(l)->data = p->data;
  }

  // Iteration: returns the node at rPosition and moves it on.
  template <class NODE> static NODE* Next(POSITION& rPosition) {
    NODE* pNode = Ensure((NODE*)rPosition);
    rPosition = (POSITION)pNode->pNext;
    return pNode;
  }
  template <class NODE> static NODE* Prev(POSITION& rPosition) {
    NODE* pNode = Ensure((NODE*)rPosition);
    rPosition = (POSITION)pNode->pPrev;
    return pNode;
  }

  // ---- maps (chained hash tables; every association keeps its key's hash)

  template <class MAP> static void InitHashTable(MAP& m, UINT nHashSize, BOOL bAllocNow) {
    typedef typename MAP::CAssoc CAssoc;
    if (nHashSize == 0) AfxThrowInvalidArgException();
    CAssoc** pNew = NULL;
    if (bAllocNow || m.m_nCount != 0) {
      if ((ULONGLONG)nHashSize > (ULONGLONG)(((size_t)-1) / sizeof(CAssoc*)))
        AfxThrowMemoryException();
      pNew = new (std::nothrow) CAssoc*[nHashSize];
      if (pNew == NULL) AfxThrowMemoryException();
      memset(pNew, 0, sizeof(CAssoc*) * nHashSize);
    }
    // MFC expects an empty map here; entries already present are rehashed
    // into the new table rather than lost.
    if (m.m_pHashTable != NULL) {
      for (UINT nBucket = 0; nBucket < m.m_nHashTableSize; nBucket++) {
        for (CAssoc* p = m.m_pHashTable[nBucket]; p != NULL;) {
          CAssoc* pNext = p->pNext;
          UINT nNewBucket = p->nHashValue % nHashSize;
          p->pNext = pNew[nNewBucket];
          pNew[nNewBucket] = p;
          p = pNext;
        }
      }
      delete[] m.m_pHashTable;
    }
    m.m_pHashTable = pNew;
    m.m_nHashTableSize = nHashSize;
  }

  template <class MAP, class EQUAL>
  static typename MAP::CAssoc* FindAssoc(const MAP& m, UINT nHashValue, EQUAL equal) {
    if (m.m_pHashTable == NULL) return NULL;
    for (typename MAP::CAssoc* p = m.m_pHashTable[nHashValue % m.m_nHashTableSize]; p != NULL;
         p = p->pNext)
      if (p->nHashValue == nHashValue && equal(p)) return p;
    return NULL;
  }

  // Takes a free association, lets construct(p) build it and links it at the
  // head of its bucket.
  template <class MAP, class CONSTRUCT>
  static typename MAP::CAssoc* NewAssoc(MAP& m, UINT nHashValue, CONSTRUCT construct) {
    typedef typename MAP::CAssoc CAssoc;
    if (m.m_pHashTable == NULL) InitHashTable(m, m.m_nHashTableSize, TRUE);
    if (m.m_pFreeList == NULL) {
      INT_PTR nBlock = m.m_nBlockSize > 0 ? m.m_nBlockSize : 1;
      CPlex* pNewBlock = CPlex::Create(m.m_pBlocks, (UINT_PTR)nBlock, sizeof(CAssoc));
      CAssoc* pAssoc = (CAssoc*)pNewBlock->data() + nBlock;
      for (INT_PTR i = 0; i < nBlock; i++) {
        --pAssoc;
        pAssoc->pNext = m.m_pFreeList;
        m.m_pFreeList = pAssoc;
      }
    }
    CAssoc* pAssoc = m.m_pFreeList;
    CAssoc* pNextFree = pAssoc->pNext; // read before construction overwrites it
    construct(pAssoc);
    m.m_pFreeList = pNextFree;
    pAssoc->nHashValue = nHashValue;
    UINT nBucket = nHashValue % m.m_nHashTableSize;
    pAssoc->pNext = m.m_pHashTable[nBucket];
    m.m_pHashTable[nBucket] = pAssoc;
    m.m_nCount++;
    return pAssoc;
  }

  template <class MAP> static void FreeAssoc(MAP& m, typename MAP::CAssoc* pAssoc) {
    typedef typename MAP::CAssoc CAssoc;
    pAssoc->~CAssoc();
    pAssoc->pNext = m.m_pFreeList;
    m.m_pFreeList = pAssoc;
    m.m_nCount--;
    if (m.m_nCount == 0) RemoveAllAssocs(m);
  }

  template <class MAP, class EQUAL> static BOOL RemoveKey(MAP& m, UINT nHashValue, EQUAL equal) {
    typedef typename MAP::CAssoc CAssoc;
    if (m.m_pHashTable == NULL) return FALSE;
    CAssoc** ppPrev = &m.m_pHashTable[nHashValue % m.m_nHashTableSize];
    for (CAssoc* p = *ppPrev; p != NULL; ppPrev = &p->pNext, p = p->pNext) {
      if (p->nHashValue == nHashValue && equal(p)) {
        *ppPrev = p->pNext;
        FreeAssoc(m, p);
        return TRUE;
      }
    }
    return FALSE;
  }

  // Keeps the table size; the table itself is allocated again when needed.
  template <class MAP> static void RemoveAllAssocs(MAP& m) {
    typedef typename MAP::CAssoc CAssoc;
    if (m.m_pHashTable != NULL) {
      for (UINT nBucket = 0; nBucket < m.m_nHashTableSize; nBucket++)
        for (CAssoc* p = m.m_pHashTable[nBucket]; p != NULL; p = p->pNext)
          p->~CAssoc();
      delete[] m.m_pHashTable;
      m.m_pHashTable = NULL;
    }
    m.m_nCount = 0;
    m.m_pFreeList = NULL;
    if (m.m_pBlocks != NULL) m.m_pBlocks->FreeDataChain();
    m.m_pBlocks = NULL;
  }

  // Iteration order: bucket by bucket, each bucket newest first.
  template <class MAP> static typename MAP::CAssoc* FirstAssoc(const MAP& m) {
    if (m.m_pHashTable == NULL) return NULL;
    for (UINT nBucket = 0; nBucket < m.m_nHashTableSize; nBucket++)
      if (m.m_pHashTable[nBucket] != NULL) return m.m_pHashTable[nBucket];
    return NULL;
  }
  template <class MAP>
  static typename MAP::CAssoc* NextAssoc(const MAP& m, const typename MAP::CAssoc* pAssoc) {
    if (pAssoc->pNext != NULL) return pAssoc->pNext;
    for (UINT nBucket = pAssoc->nHashValue % m.m_nHashTableSize + 1; nBucket < m.m_nHashTableSize;
         nBucket++)
      if (m.m_pHashTable[nBucket] != NULL) return m.m_pHashTable[nBucket];
    return NULL;
  }
  template <class MAP> static typename MAP::CAssoc* GetNextAssoc(const MAP& m, POSITION& rPos) {
    typedef typename MAP::CAssoc CAssoc;
    if (rPos == NULL || m.m_pHashTable == NULL) AfxThrowInvalidArgException();
    CAssoc* pAssoc = rPos == BEFORE_START_POSITION ? Ensure(FirstAssoc(m)) : (CAssoc*)rPos;
    rPos = (POSITION)NextAssoc(m, pAssoc);
    return pAssoc;
  }

  // The hash of the non-template maps with string keys.
  static UINT HashString(LPCTSTR key) {
    if (key == NULL) AfxThrowInvalidArgException();
    UINT nHash = 0;
    while (*key)
      nHash = (nHash << 5) + nHash + *key++;
    return nHash;
  }
};

// Reads exactly nBytes or throws CArchiveException::endOfFile: a short read
// means a truncated or corrupt archive.
inline void AfxCollReadBytes(CArchive& ar, void* pBuf, UINT_PTR nBytes) {
  BYTE* p = (BYTE*)pBuf;
  while (nBytes > 0) {
    UINT nChunk = nBytes > 0x40000000 ? 0x40000000 : (UINT)nBytes;
    if (ar.Read(p, nChunk) != nChunk) AfxThrowArchiveException(CArchiveException::endOfFile);
    p += nChunk;
    nBytes -= nChunk;
  }
}

// ---- arrays ----------------------------------------------------------------

// The members all non-template arrays share. GetAt, SetAt, ElementAt and
// operator[] throw CInvalidArgException for an index outside 0..size-1.
#define AFX_ARRAY_MEMBERS(class_name, TYPE, ARG_TYPE, CONST_REF)                                   \
public:                                                                                            \
  typedef TYPE BASE_TYPE;                                                                          \
  typedef ARG_TYPE BASE_ARG_TYPE;                                                                  \
  class_name() : m_pData(NULL), m_nSize(0), m_nMaxSize(0), m_nGrowBy(0) {}                         \
  ~class_name();                                                                                   \
  INT_PTR GetSize() const { return m_nSize; }                                                      \
  INT_PTR GetCount() const { return m_nSize; }                                                     \
  BOOL IsEmpty() const { return m_nSize == 0; }                                                    \
  INT_PTR GetUpperBound() const { return m_nSize - 1; }                                            \
  void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1);                                            \
  void FreeExtra();                                                                                \
  void RemoveAll() { SetSize(0); }                                                                 \
  CONST_REF GetAt(INT_PTR nIndex) const {                                                          \
    AfxCollImpl::CheckIndex(nIndex, m_nSize);                                                      \
    return m_pData[nIndex];                                                                        \
  }                                                                                                \
  void SetAt(INT_PTR nIndex, ARG_TYPE newElement) {                                                \
    AfxCollImpl::CheckIndex(nIndex, m_nSize);                                                      \
    m_pData[nIndex] = newElement;                                                                  \
  }                                                                                                \
  TYPE& ElementAt(INT_PTR nIndex) {                                                                \
    AfxCollImpl::CheckIndex(nIndex, m_nSize);                                                      \
    return m_pData[nIndex];                                                                        \
  }                                                                                                \
  const TYPE* GetData() const { return (const TYPE*)m_pData; }                                     \
  TYPE* GetData() { return m_pData; }                                                              \
  void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement);                                             \
  INT_PTR Add(ARG_TYPE newElement) {                                                               \
    INT_PTR nIndex = m_nSize;                                                                      \
    SetAtGrow(nIndex, newElement);                                                                 \
    return nIndex;                                                                                 \
  }                                                                                                \
  INT_PTR Append(const class_name& src);                                                           \
  void Copy(const class_name& src);                                                                \
  CONST_REF operator[](INT_PTR nIndex) const { return GetAt(nIndex); }                             \
  TYPE& operator[](INT_PTR nIndex) { return ElementAt(nIndex); }                                   \
  void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1);                          \
  void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1);                                               \
  void InsertAt(INT_PTR nStartIndex, class_name* pNewArray);                                       \
                                                                                                   \
protected:                                                                                         \
  TYPE* m_pData;                                                                                   \
  INT_PTR m_nSize;                                                                                 \
  INT_PTR m_nMaxSize;                                                                              \
  INT_PTR m_nGrowBy;                                                                               \
  friend struct AfxCollImpl;                                                                       \
                                                                                                   \
public:

// Serialized as the count, then each object (CArchive::WriteObject).
class AFX_API CObArray : public CObject {
  DECLARE_SERIAL(CObArray)
  AFX_ARRAY_MEMBERS(CObArray, CObject*, CObject*, CObject*)
  void Serialize(CArchive& ar);
};

// Not serializable.
class AFX_API CPtrArray : public CObject {
  DECLARE_DYNAMIC(CPtrArray)
  AFX_ARRAY_MEMBERS(CPtrArray, void*, void*, void*)
};

// Serialized as the count, then the bytes.
class AFX_API CByteArray : public CObject {
  DECLARE_SERIAL(CByteArray)
  AFX_ARRAY_MEMBERS(CByteArray, BYTE, BYTE, BYTE)
  void Serialize(CArchive& ar);
};

// Serialized as the count, then the words (little-endian).
class AFX_API CWordArray : public CObject {
  DECLARE_SERIAL(CWordArray)
  AFX_ARRAY_MEMBERS(CWordArray, WORD, WORD, WORD)
  void Serialize(CArchive& ar);
};

// Serialized as the count, then the double words (little-endian).
class AFX_API CDWordArray : public CObject {
  DECLARE_SERIAL(CDWordArray)
  AFX_ARRAY_MEMBERS(CDWordArray, DWORD, DWORD, DWORD)
  void Serialize(CArchive& ar);
};

// Not serializable (UINT's size depends on the platform).
class AFX_API CUIntArray : public CObject {
  DECLARE_DYNAMIC(CUIntArray)
  AFX_ARRAY_MEMBERS(CUIntArray, UINT, UINT, UINT)
};

// Serialized as the count, then each string in CArchive's string form.
class AFX_API CStringArray : public CObject {
  DECLARE_SERIAL(CStringArray)
  AFX_ARRAY_MEMBERS(CStringArray, CString, LPCTSTR, const CString&)
  void SetAt(INT_PTR nIndex, const CString& newElement) {
    AfxCollImpl::CheckIndex(nIndex, m_nSize);
    m_pData[nIndex] = newElement;
  }
  void SetAtGrow(INT_PTR nIndex, const CString& newElement);
  INT_PTR Add(const CString& newElement) {
    INT_PTR nIndex = m_nSize;
    SetAtGrow(nIndex, newElement);
    return nIndex;
  }
  void InsertAt(INT_PTR nIndex, const CString& newElement, INT_PTR nCount = 1);
  void Serialize(CArchive& ar);
};

// ---- lists -----------------------------------------------------------------

// The members all non-template lists share. The head, tail and positions
// must be valid: an empty list's GetHead or a NULL position throws
// CInvalidArgException.
#define AFX_LIST_MEMBERS(class_name, TYPE, ARG_TYPE, CONST_REF)                                    \
protected:                                                                                         \
  struct CNode {                                                                                   \
    CNode* pNext;                                                                                  \
    CNode* pPrev;                                                                                  \
    TYPE data;                                                                                     \
  };                                                                                               \
                                                                                                   \
public:                                                                                            \
  typedef TYPE BASE_TYPE;                                                                          \
  typedef ARG_TYPE BASE_ARG_TYPE;                                                                  \
  explicit class_name(INT_PTR nBlockSize = 10)                                                     \
      : m_pNodeHead(NULL), m_pNodeTail(NULL), m_nCount(0), m_pNodeFree(NULL), m_pBlocks(NULL),     \
        m_nBlockSize(nBlockSize) {}                                                                \
  ~class_name();                                                                                   \
  INT_PTR GetCount() const { return m_nCount; }                                                    \
  INT_PTR GetSize() const { return m_nCount; }                                                     \
  BOOL IsEmpty() const { return m_nCount == 0; }                                                   \
  TYPE& GetHead() { return AfxCollImpl::Ensure(m_pNodeHead)->data; }                               \
  CONST_REF GetHead() const { return AfxCollImpl::Ensure(m_pNodeHead)->data; }                     \
  TYPE& GetTail() { return AfxCollImpl::Ensure(m_pNodeTail)->data; }                               \
  CONST_REF GetTail() const { return AfxCollImpl::Ensure(m_pNodeTail)->data; }                     \
  TYPE RemoveHead();                                                                               \
  TYPE RemoveTail();                                                                               \
  POSITION AddHead(ARG_TYPE newElement);                                                           \
  POSITION AddTail(ARG_TYPE newElement);                                                           \
  void AddHead(class_name* pNewList);                                                              \
  void AddTail(class_name* pNewList);                                                              \
  void RemoveAll();                                                                                \
  POSITION GetHeadPosition() const { return (POSITION)m_pNodeHead; }                               \
  POSITION GetTailPosition() const { return (POSITION)m_pNodeTail; }                               \
  TYPE& GetNext(POSITION& rPosition) { return AfxCollImpl::Next<CNode>(rPosition)->data; }         \
  CONST_REF GetNext(POSITION& rPosition) const {                                                   \
    return AfxCollImpl::Next<CNode>(rPosition)->data;                                              \
  }                                                                                                \
  TYPE& GetPrev(POSITION& rPosition) { return AfxCollImpl::Prev<CNode>(rPosition)->data; }         \
  CONST_REF GetPrev(POSITION& rPosition) const {                                                   \
    return AfxCollImpl::Prev<CNode>(rPosition)->data;                                              \
  }                                                                                                \
  TYPE& GetAt(POSITION position) { return AfxCollImpl::Ensure((CNode*)position)->data; }           \
  CONST_REF GetAt(POSITION position) const { return AfxCollImpl::Ensure((CNode*)position)->data; } \
  void SetAt(POSITION pos, ARG_TYPE newElement) {                                                  \
    AfxCollImpl::Ensure((CNode*)pos)->data = newElement;                                           \
  }                                                                                                \
  void RemoveAt(POSITION position);                                                                \
  POSITION InsertBefore(POSITION position, ARG_TYPE newElement);                                   \
  POSITION InsertAfter(POSITION position, ARG_TYPE newElement);                                    \
  POSITION Find(ARG_TYPE searchValue, POSITION startAfter = NULL) const;                           \
  POSITION FindIndex(INT_PTR nIndex) const;                                                        \
                                                                                                   \
protected:                                                                                         \
  CNode* m_pNodeHead;                                                                              \
  CNode* m_pNodeTail;                                                                              \
  INT_PTR m_nCount;                                                                                \
  CNode* m_pNodeFree;                                                                              \
  struct CPlex* m_pBlocks;                                                                         \
  INT_PTR m_nBlockSize;                                                                            \
  friend struct AfxCollImpl;                                                                       \
                                                                                                   \
public:

// Serialized as the count, then each object (CArchive::WriteObject).
class AFX_API CObList : public CObject {
  DECLARE_SERIAL(CObList)
  AFX_LIST_MEMBERS(CObList, CObject*, CObject*, CObject*)
  void Serialize(CArchive& ar);
};

// Not serializable.
class AFX_API CPtrList : public CObject {
  DECLARE_DYNAMIC(CPtrList)
  AFX_LIST_MEMBERS(CPtrList, void*, void*, void*)
};

// Serialized as the count, then each string. Find compares case-sensitively.
class AFX_API CStringList : public CObject {
  DECLARE_SERIAL(CStringList)
  AFX_LIST_MEMBERS(CStringList, CString, LPCTSTR, const CString&)
  POSITION AddHead(const CString& newElement);
  POSITION AddTail(const CString& newElement);
  void SetAt(POSITION pos, const CString& newElement) {
    AfxCollImpl::Ensure((CNode*)pos)->data = newElement;
  }
  POSITION InsertBefore(POSITION position, const CString& newElement);
  POSITION InsertAfter(POSITION position, const CString& newElement);
  void Serialize(CArchive& ar);
};

// ---- maps ------------------------------------------------------------------

// The members all non-template maps share: a chained hash table of
// GetHashTableSize() buckets (17 unless InitHashTable says otherwise),
// allocated on the first SetAt. Associations come from blocks of nBlockSize.
// Each class declares its CAssoc (pNext, nHashValue, key, value) first.
#define AFX_MAP_MEMBERS(class_name, KEY, ARG_KEY, VALUE, ARG_VALUE)                                \
public:                                                                                            \
  typedef KEY BASE_KEY;                                                                            \
  typedef ARG_KEY BASE_ARG_KEY;                                                                    \
  typedef VALUE BASE_VALUE;                                                                        \
  typedef ARG_VALUE BASE_ARG_VALUE;                                                                \
  explicit class_name(INT_PTR nBlockSize = 10)                                                     \
      : m_pHashTable(NULL), m_nHashTableSize(17), m_nCount(0), m_pFreeList(NULL), m_pBlocks(NULL), \
        m_nBlockSize(nBlockSize) {}                                                                \
  ~class_name();                                                                                   \
  INT_PTR GetCount() const { return m_nCount; }                                                    \
  INT_PTR GetSize() const { return m_nCount; }                                                     \
  BOOL IsEmpty() const { return m_nCount == 0; }                                                   \
  BOOL Lookup(ARG_KEY key, VALUE& rValue) const;                                                   \
  VALUE& operator[](ARG_KEY key);                                                                  \
  void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }                         \
  BOOL RemoveKey(ARG_KEY key);                                                                     \
  void RemoveAll();                                                                                \
  POSITION GetStartPosition() const { return m_nCount == 0 ? NULL : BEFORE_START_POSITION; }       \
  void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const;                      \
  UINT GetHashTableSize() const { return m_nHashTableSize; }                                       \
  void InitHashTable(UINT hashSize, BOOL bAllocNow = TRUE);                                        \
  UINT HashKey(ARG_KEY key) const;                                                                 \
                                                                                                   \
protected:                                                                                         \
  CAssoc** m_pHashTable;                                                                           \
  UINT m_nHashTableSize;                                                                           \
  INT_PTR m_nCount;                                                                                \
  CAssoc* m_pFreeList;                                                                             \
  struct CPlex* m_pBlocks;                                                                         \
  INT_PTR m_nBlockSize;                                                                            \
  CAssoc* GetAssocAt(ARG_KEY key, UINT& nHashValue) const;                                         \
  friend struct AfxCollImpl;                                                                       \
                                                                                                   \
public:

// Not serializable. The hash is the pointer shifted right by 4.
class AFX_API CMapPtrToPtr : public CObject {
  DECLARE_DYNAMIC(CMapPtrToPtr)
protected:
  struct CAssoc {
    CAssoc* pNext;
    UINT nHashValue;
    void* key;
    void* value;
  };
  AFX_MAP_MEMBERS(CMapPtrToPtr, void*, void*, void*, void*)
};

// Not serializable. The hash is the word shifted right by 4.
class AFX_API CMapWordToPtr : public CObject {
  DECLARE_DYNAMIC(CMapWordToPtr)
protected:
  struct CAssoc {
    CAssoc* pNext;
    UINT nHashValue;
    WORD key;
    void* value;
  };
  AFX_MAP_MEMBERS(CMapWordToPtr, WORD, WORD, void*, void*)
};

// Not serializable. Keys are compared case-sensitively.
class AFX_API CMapStringToPtr : public CObject {
  DECLARE_DYNAMIC(CMapStringToPtr)
protected:
  struct CAssoc {
    CAssoc* pNext;
    UINT nHashValue;
    CString key;
    void* value;
  };
  AFX_MAP_MEMBERS(CMapStringToPtr, CString, LPCTSTR, void*, void*)
  BOOL LookupKey(LPCTSTR key, LPCTSTR& rKey) const;
};

// Serialized as the count, then key and object (WriteObject) pairs.
class AFX_API CMapStringToOb : public CObject {
  DECLARE_SERIAL(CMapStringToOb)
protected:
  struct CAssoc {
    CAssoc* pNext;
    UINT nHashValue;
    CString key;
    CObject* value;
  };
  AFX_MAP_MEMBERS(CMapStringToOb, CString, LPCTSTR, CObject*, CObject*)
  BOOL LookupKey(LPCTSTR key, LPCTSTR& rKey) const;
  void Serialize(CArchive& ar);
};

// Serialized as the count, then WORD key and object pairs.
class AFX_API CMapWordToOb : public CObject {
  DECLARE_SERIAL(CMapWordToOb)
protected:
  struct CAssoc {
    CAssoc* pNext;
    UINT nHashValue;
    WORD key;
    CObject* value;
  };
  AFX_MAP_MEMBERS(CMapWordToOb, WORD, WORD, CObject*, CObject*)
  void Serialize(CArchive& ar);
};

// Serialized as the count, then key and value string pairs. PLookup and
// PGetFirstAssoc/PGetNextAssoc give direct access to the pairs.
class AFX_API CMapStringToString : public CObject {
  DECLARE_SERIAL(CMapStringToString)

public:
  struct CPair {
    const CString key;
    CString value;

  protected:
    explicit CPair(LPCTSTR keyval) : key(keyval) {}
  };

protected:
  struct CAssoc : CPair {
    CAssoc* pNext;
    UINT nHashValue;
    explicit CAssoc(LPCTSTR keyval) : CPair(keyval) {}
  };
  AFX_MAP_MEMBERS(CMapStringToString, CString, LPCTSTR, CString, LPCTSTR)
  BOOL LookupKey(LPCTSTR key, LPCTSTR& rKey) const;
  CPair* PLookup(LPCTSTR key);
  const CPair* PLookup(LPCTSTR key) const;
  CPair* PGetFirstAssoc();
  const CPair* PGetFirstAssoc() const;
  CPair* PGetNextAssoc(const CPair* pAssoc);
  const CPair* PGetNextAssoc(const CPair* pAssoc) const;
  void Serialize(CArchive& ar);
};

#endif // __AFXCOLL_H__
