// Objects and strings in global memory blocks, block copies, object clones
// through serialization, streams over blocks and large-integer helpers.
#include "vrk_global.h"

#include <afxadv.h>
#include <mbstring.h>
#include <ole2.h>
#include <string.h>
#include <wchar.h>

namespace {

const UINT kDefaultGrowBytes = 4096;
const UINT kNewBlockFlags = GMEM_MOVEABLE | GMEM_ZEROINIT;

UINT GrowBytes(const tagVMemAllocGrowth* pGrowth) {
  return pGrowth == NULL || pGrowth->nGrowBytes == 0 ? kDefaultGrowBytes : pGrowth->nGrowBytes;
}

// A new zeroed movable block; NULL when it cannot be made.
HGLOBAL NewBlock(SIZE_T nBytes) { return GlobalAlloc(kNewBlockFlags, nBytes); }

// WriteObject through a storing archive with a buffer of nBufSize bytes. An
// archive that fails is aborted: nothing more is flushed into the file.
void StoreObject(CFile* pFile, CObject* pObject, UINT nBufSize) {
  CArchive ar(pFile, CArchive::store, (int)nBufSize);
  try {
    ar.WriteObject(pObject);
    ar.Close();
  } catch (CException*) {
    ar.Abort();
    throw;
  }
}

} // namespace

void* VrkCreateGlobalFromCObject(CObject* pObject, tagVMemAllocGrowth* pGrowth) {
  const UINT nGrow = GrowBytes(pGrowth);
  if (pObject == NULL || !pObject->IsSerializable()) return NULL;
  CSharedFile file(GMEM_MOVEABLE, nGrow);
  StoreObject(&file, pObject, nGrow);
  const SIZE_T nLength = (SIZE_T)file.GetLength();
  HGLOBAL hGlobal = file.Detach();
  // The block grows in whole steps: clear the unused tail so that no stale
  // heap bytes travel to the clipboard behind the archive.
  if (hGlobal != NULL) {
    BYTE* p = (BYTE*)GlobalLock(hGlobal);
    if (p != NULL) {
      const SIZE_T nSize = GlobalSize(hGlobal);
      if (nSize > nLength) memset(p + nLength, 0, nSize - nLength);
      GlobalUnlock(hGlobal);
    }
  }
  return hGlobal;
}

CObject* VrkCreateCObjectFromGlobal(void* hGlobal, CRuntimeClass* pClass,
                                    tagVMemAllocGrowth* pGrowth) {
  if (hGlobal == NULL || pClass == NULL) return NULL;
  // Not growable: the archive reads at most the block's own bytes.
  CSharedFile file(GMEM_MOVEABLE, GrowBytes(pGrowth));
  file.SetHandle(hGlobal, FALSE);
  CObject* pObject;
  try {
    CArchive ar(&file, CArchive::load, (int)kDefaultGrowBytes);
    pObject = ar.ReadObject(pClass);
    ar.Close();
  } catch (CException*) {
    // The block is the caller's (often the clipboard's): the shared file
    // must not free it on the way out.
    file.Detach();
    throw;
  }
  file.Detach();
  return pObject;
}

void* VrkCreateGlobalFromString(const char* psz) {
  if (psz == NULL) return NULL;
  // Characters, not bytes: kept so, as the callers' blocks have always been.
  const size_t nCount = _mbslen((const unsigned char*)psz) + 1;
  HGLOBAL hGlobal = NewBlock(nCount);
  if (hGlobal == NULL) return NULL;
  unsigned char* p = (unsigned char*)GlobalLock(hGlobal);
  if (p == NULL) {
    GlobalFree(hGlobal);
    return NULL;
  }
  _mbsnbcpy(p, (const unsigned char*)psz, nCount);
  GlobalUnlock(hGlobal);
  return hGlobal;
}

void* VrkCreateGlobalFromString(const wchar_t* psz) {
  if (psz == NULL) return NULL;
  const size_t nCount = wcslen(psz) + 1;
  HGLOBAL hGlobal = NewBlock(nCount * sizeof(wchar_t));
  if (hGlobal == NULL) return NULL;
  wchar_t* p = (wchar_t*)GlobalLock(hGlobal);
  if (p == NULL) {
    GlobalFree(hGlobal);
    return NULL;
  }
  wcsncpy(p, psz, nCount);
  GlobalUnlock(hGlobal);
  return hGlobal;
}

void* VrkCreateGlobalFromCString(CString& str) {
  return VrkCreateGlobalFromString(str.GetString());
}

int VrkCreateStringFromGlobal(void* hGlobal, CString& str) {
  if (hGlobal == NULL) return FALSE;
  const char* p = (const char*)GlobalLock(hGlobal);
  if (p == NULL) return FALSE;
  SIZE_T n = GlobalSize(hGlobal);
  while (n > 0 && p[n - 1] == '\0')
    --n;
  try {
    str.SetString(p, (int)n);
  } catch (CException*) {
    GlobalUnlock(hGlobal);
    throw;
  }
  GlobalUnlock(hGlobal);
  return TRUE;
}

int VrkCreateCStringFromGlobal(void* hGlobal, CString& str) {
  return VrkCreateStringFromGlobal(hGlobal, str);
}

int VrkCreateStringFromGlobal(void* hGlobal, wchar_t** ppsz) {
  if (hGlobal == NULL || ppsz == NULL) return FALSE;
  const wchar_t* p = (const wchar_t*)GlobalLock(hGlobal);
  if (p == NULL) return FALSE;
  // The text ends at its terminator or, in a block without one, at the end
  // of the block: never read past it.
  const size_t nMax = GlobalSize(hGlobal) / sizeof(wchar_t);
  *ppsz = SysAllocStringLen(p, (UINT)wcsnlen(p, nMax));
  GlobalUnlock(hGlobal);
  return TRUE;
}

void* VrkGlobalCopy(void* hGlobal) {
  const SIZE_T nSize = GlobalSize(hGlobal);
  HGLOBAL hCopy = NewBlock(nSize);
  if (hCopy == NULL) return NULL;
  void* pSource = GlobalLock(hGlobal);
  void* pCopy = GlobalLock(hCopy);
  // Kept as callers know it: a failed lock returns the zeroed block and
  // leaves the other lock in place.
  if (pSource == NULL || pCopy == NULL) return hCopy;
  memcpy(pCopy, pSource, nSize);
  GlobalUnlock(hGlobal);
  GlobalUnlock(hCopy);
  return hCopy;
}

CObject* VrkCloneObject(CObject* pObject) {
  if (pObject == NULL) return NULL;
  CMemFile file(1024);
  StoreObject(&file, pObject, 4096);
  file.SeekToBegin();
  CArchive ar(&file, CArchive::load, 4096);
  CObject* pClone = ar.ReadObject(NULL);
  ar.Close();
  return pClone;
}

long VrkCreateStreamOnHGlobal(void* hGlobal, int bDeleteOnRelease, IStream** ppStream,
                              unsigned long nSize) {
  HRESULT hr = CreateStreamOnHGlobal(hGlobal, bDeleteOnRelease, ppStream);
  if (SUCCEEDED(hr) && nSize != 0xFFFFFFFF)
    (*ppStream)->SetSize(VrkCoULong2UnsignedLargeInteger(nSize));
  return hr;
}

LARGE_INTEGER VrkCoLong2LargeInteger(long n) {
  LARGE_INTEGER li;
  li.QuadPart = n;
  return li;
}

ULARGE_INTEGER VrkCoULong2UnsignedLargeInteger(unsigned long n) {
  ULARGE_INTEGER li;
  li.QuadPart = n;
  return li;
}
