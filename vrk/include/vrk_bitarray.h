// vrk_bitarray.h - a serializable array of integer flags, and an array of
// bits packed 32 to an element with range operations and byte transfers.
#ifndef VRK_BITARRAY_H
#define VRK_BITARRAY_H

#include "vrkdefs.h"

#include <afxtempl.h>

// A growable array of 32-bit flags. Archive form: the element count
// (CArchive::WriteCount), then each element as 4 little-endian bytes.
class VRK_API VBoolArray : public CArray<int, int> {
public:
  VBoolArray();
  virtual ~VBoolArray();

  virtual void Serialize(CArchive& ar);
};

// Bit i is bit i % 32 of element i / 32. Index errors throw
// CInvalidArgException; a bad count in the Fill operations throws
// VInvalidDataException. The archive form adds the bit count (an int) after
// the elements.
class VRK_API VBitArray : public VBoolArray {
public:
  VBitArray();
  virtual ~VBitArray();

  // Elements: nBits / 32 rounded up; new elements are zero.
  void SetSize(unsigned int nBits, int nGrowBy = -1);
  int GetSize() const { return m_nBitCount; }
  int GetUpperBound() const { return m_nBitCount - 1; }
  void RemoveAll();

  // The index is checked against the elements, not the bit count.
  int GetAt(int nIndex) const;
  int operator[](int nIndex) const { return GetAt(nIndex); }
  void SetAt(int nIndex, int bValue);
  // Grows to index / 32 + 1 elements and 32 bits each when needed.
  void SetAtGrow(int nIndex, int bValue);

  // Bits nFirst..nLast inclusive; nLast -1 means the last bit.
  void SetBits(int nFirst, int nLast = -1);
  void ClearBits(int nFirst, int nLast = -1);
  // SetAll keeps the unused bits of the last element clear.
  void SetAll();
  void ClearAll();
  int IsAllClear() const;
  int IsAllSet() const;

  unsigned char* GetBuffer() { return (unsigned char*)GetData(); }

  // Bit k of byValue to bit nFirst + k, k < nCount (0..8); bits at or beyond
  // the bit count are skipped.
  void FillBitsFromByte(unsigned char byValue, int nFirst, int nCount);
  // Bit k of the result from bit nFirst + k (0 at or beyond the bit count).
  void FillByteFromBits(unsigned char& byValue, int nFirst, int nCount);
  void FillWordFromBits(unsigned short& wValue, int nFirst, int nCount);

  virtual void Serialize(CArchive& ar);

protected:
  // The bits of the last element at and above the bit count.
  int GetUnusedMask() const;
  // Reads bit nIndex; FALSE beyond the bit count (Fill operations).
  int ReadBitForFill(int nIndex) const;

  int m_nBitCount;
  int m_nBitsPerElement;
  unsigned int m_nOne;
  unsigned int m_nAllOnes;
};

#endif // VRK_BITARRAY_H
