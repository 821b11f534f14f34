// VBoolArray and VBitArray: flags and packed bits with range operations,
// byte and word transfers, and their archive form.
#include "vrk_bitarray.h"
#include "vrk_exception.h"

#include <afxwin.h>

#define VRK_SOURCE_FILE ".\\vrk_bitarray.cpp"

namespace {

// Shift counts outside 0..31 give 0 (the x86 shift would wrap them).
inline unsigned int ShiftLeft(unsigned int value, int count) {
  return (count < 0 || count >= 32) ? 0u : value << count;
}
inline unsigned int ShiftRight(unsigned int value, int count) {
  return (count < 0 || count >= 32) ? 0u : value >> count;
}

} // namespace

// ---- VBoolArray ----------------------------------------------------------------

VBoolArray::VBoolArray() {}

VBoolArray::~VBoolArray() {}

void VBoolArray::Serialize(CArchive& ar) {
  if (ar.IsStoring()) {
    ar.WriteCount((DWORD_PTR)m_nSize);
    if (m_nSize > 0) ar.Write(m_pData, (UINT)(m_nSize * sizeof(int)));
    return;
  }
  const DWORD_PTR nCount = ar.ReadCount();
  // A corrupt count must not allocate what the archive cannot hold: the
  // array grows in doubling steps as elements actually arrive, so a
  // truncated archive ends in CArchiveException::endOfFile after at most
  // twice the memory of the bytes read. The final size equals the count,
  // as SetSize(count, -1) would make it.
  if (nCount > (DWORD_PTR)(0x7FFFFFFF / sizeof(int))) AfxThrowMemoryException();
  if (nCount == 0) SetSize(0, -1);
  DWORD_PTR nDone = 0;
  while (nDone < nCount) {
    DWORD_PTR nTarget = nDone * 2 > 1024 ? nDone * 2 : 1024;
    if (nTarget > nCount) nTarget = nCount;
    SetSize((INT_PTR)nTarget, -1);
    const UINT nBytes = (UINT)((nTarget - nDone) * sizeof(int));
    if (ar.Read(m_pData + nDone, nBytes) != nBytes)
      AfxThrowArchiveException(CArchiveException::endOfFile);
    nDone = nTarget;
  }
}

// ---- VBitArray -------------------------------------------------------------------

VBitArray::VBitArray() : m_nBitCount(0), m_nBitsPerElement(32), m_nOne(1), m_nAllOnes(0xFFFFFFFF) {}

VBitArray::~VBitArray() {}

void VBitArray::SetSize(unsigned int nBits, int nGrowBy) {
  const unsigned int nElements = nBits / 32 + (nBits % 32 != 0 ? 1 : 0);
  VBoolArray::SetSize((INT_PTR)nElements, nGrowBy);
  m_nBitCount = (int)nBits;
}

void VBitArray::RemoveAll() {
  VBoolArray::RemoveAll();
  m_nBitCount = 0;
}

// Negative indexes throw CInvalidArgException like indexes past the
// elements (their element number would round to 0).
int VBitArray::GetAt(int nIndex) const {
  if (nIndex < 0 || nIndex / 32 >= m_nSize) AfxThrowInvalidArgException();
  return (m_pData[nIndex / 32] & (m_nOne << (nIndex % 32))) != 0;
}

void VBitArray::SetAt(int nIndex, int bValue) {
  if (nIndex < 0 || nIndex / 32 >= m_nSize) AfxThrowInvalidArgException();
  const unsigned int mask = m_nOne << (nIndex % 32);
  if (bValue)
    m_pData[nIndex / 32] |= mask;
  else
    m_pData[nIndex / 32] &= ~mask;
}

void VBitArray::SetAtGrow(int nIndex, int bValue) {
  if (nIndex < 0) AfxThrowInvalidArgException();
  const int nElement = nIndex / 32;
  if (nElement >= m_nSize) {
    VBoolArray::SetSize(nElement + 1, -1);
    m_pData[nElement] = 0;
    m_nBitCount = (int)((unsigned int)(nElement + 1) * 32u);
  }
  SetAt(nIndex, bValue);
}

// Negative bit numbers throw CInvalidArgException (they have no element).
// A last bit before the first is not refused: elements first / 32 and
// last / 32 are then changed as for a range of their own.
void VBitArray::SetBits(int nFirst, int nLast) {
  if (nLast == -1) nLast = m_nBitCount - 1;
  if (nFirst < 0 || nLast < 0) AfxThrowInvalidArgException();
  const int a = nFirst / 32, b = nLast / 32;
  if (a >= m_nSize || b >= m_nSize) AfxThrowInvalidArgException();
  const unsigned int oldA = m_pData[a], oldB = m_pData[b];
  for (int i = a; i <= b; i++)
    m_pData[i] = (int)m_nAllOnes;
  const unsigned int upTo = ShiftRight(m_nAllOnes, 32 - nLast % 32 - 1);
  unsigned int maskA = ShiftLeft(m_nAllOnes, nFirst % 32);
  if (a == b) maskA &= upTo;
  m_pData[a] = (int)(oldA | maskA);
  if (b != a) m_pData[b] = (int)(oldB | upTo);
}

void VBitArray::ClearBits(int nFirst, int nLast) {
  if (nLast == -1) nLast = m_nBitCount - 1;
  if (nFirst < 0 || nLast < 0) AfxThrowInvalidArgException();
  const int a = nFirst / 32, b = nLast / 32;
  if (a >= m_nSize || b >= m_nSize) AfxThrowInvalidArgException();
  const unsigned int oldA = m_pData[a], oldB = m_pData[b];
  for (int i = a; i <= b; i++)
    m_pData[i] = 0;
  const unsigned int above = ShiftLeft(m_nAllOnes, nLast % 32 + 1);
  unsigned int keepA = ShiftRight(m_nAllOnes, 32 - nFirst % 32);
  if (a == b) keepA |= above;
  m_pData[a] = (int)(oldA & keepA);
  if (b != a) m_pData[b] = (int)(oldB & above);
}

int VBitArray::GetUnusedMask() const {
  const int nUsed = m_nBitCount % 32;
  return nUsed == 0 ? 0 : (int)ShiftLeft(m_nAllOnes, nUsed);
}

void VBitArray::SetAll() {
  for (INT_PTR i = 0; i < m_nSize; i++)
    m_pData[i] = (int)m_nAllOnes;
  if (m_nSize > 0) m_pData[m_nSize - 1] &= ~GetUnusedMask();
}

void VBitArray::ClearAll() {
  for (INT_PTR i = 0; i < m_nSize; i++)
    m_pData[i] = 0;
}

int VBitArray::IsAllClear() const {
  for (INT_PTR i = 0; i < m_nSize; i++)
    if (m_pData[i] != 0) return FALSE;
  return TRUE;
}

int VBitArray::IsAllSet() const {
  if (m_nSize == 0) return TRUE;
  for (INT_PTR i = 0; i + 1 < m_nSize; i++)
    if ((unsigned int)m_pData[i] != m_nAllOnes) return FALSE;
  return ((unsigned int)(m_pData[m_nSize - 1] | GetUnusedMask())) == m_nAllOnes;
}

int VBitArray::ReadBitForFill(int nIndex) const {
  return nIndex < m_nBitCount ? GetAt(nIndex) : FALSE;
}

void VBitArray::FillBitsFromByte(unsigned char byValue, int nFirst, int nCount) {
  if (nCount < 0 || nCount > 8) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 371);
  for (int k = 0; k < nCount; k++) {
    if (nFirst + k >= m_nBitCount) continue;
    SetAt(nFirst + k, (byValue >> k) & 1);
  }
}

void VBitArray::FillByteFromBits(unsigned char& byValue, int nFirst, int nCount) {
  if (nCount < 0 || nCount > 8) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 386);
  byValue = 0;
  for (int k = 0; k < nCount; k++)
    if (ReadBitForFill(nFirst + k)) byValue |= (unsigned char)(1u << k);
}

void VBitArray::FillWordFromBits(unsigned short& wValue, int nFirst, int nCount) {
  if (nCount < 0 || nCount > 16) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 410);
  wValue = 0;
  for (int k = 0; k < nCount; k++)
    if (ReadBitForFill(nFirst + k)) wValue |= (unsigned short)(1u << k);
}

// Any bit count is taken as stored: every access checks the element index,
// so a count that disagrees with the elements cannot reach past them.
void VBitArray::Serialize(CArchive& ar) {
  VBoolArray::Serialize(ar);
  if (ar.IsStoring()) {
    ar << (LONG)m_nBitCount;
  } else {
    LONG nBits;
    ar >> nBits;
    m_nBitCount = (int)nBits;
  }
}
