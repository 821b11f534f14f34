// CPlex: the block allocator behind the lists and maps.
#include <afxcoll.h>

CPlex* PASCAL CPlex::Create(CPlex*& pHead, UINT_PTR nMax, UINT_PTR cbElement) {
  // A block size or element size that overflows the allocation is a memory
  // failure, not a short block.
  if (nMax == 0 || cbElement == 0 || nMax > (((size_t)-1) - sizeof(CPlex)) / cbElement)
    AfxThrowMemoryException();
  CPlex* p = (CPlex*)new (std::nothrow) BYTE[sizeof(CPlex) + nMax * cbElement];
  if (p == NULL) AfxThrowMemoryException();
  p->pNext = pHead;
  pHead = p;
  return p;
}

void CPlex::FreeDataChain() {
  CPlex* p = this;
  while (p != NULL) {
    CPlex* pNext = p->pNext;
    delete[](BYTE*) p;
    p = pNext;
  }
}
