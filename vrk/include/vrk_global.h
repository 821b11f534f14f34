// vrk_global.h - global memory blocks, memory files, and objects, strings
// and raw blocks moved through global memory, the clipboard and OLE data
// transfer objects.
//
// An object travels as one movable global block holding exactly what
// CArchive::WriteObject writes for it: the new-class tag 0xFFFF, the schema
// word, the class-name length word and the name, then the object's own
// Serialize output. Reading it back needs the same run-time class (or one
// derived from it) registered in the reading process.
#ifndef VRK_GLOBAL_H
#define VRK_GLOBAL_H

#include "vrkdefs.h"

class CBitmap;
class COleDataObject;
class COleDataSource;
struct tagFORMATETC;
struct IStream;

// Owner of one HGLOBAL with a cached lock. Copies share the block (both
// free it); the caller keeps copies apart.
class VRK_API VGlobal {
public:
  VGlobal();
  explicit VGlobal(void* hGlobal);
  // Allocates nothing: the arguments are ignored. Call Alloc.
  VGlobal(unsigned long nSize, unsigned int nFlags);
  VGlobal(const VGlobal& other);
  VGlobal& operator=(const VGlobal& other);

  // Virtual slots in this order: Alloc, ReAlloc, Free, then the destructor
  // (code built against the library calls them by slot).
  // GlobalAlloc(nFlags, nSize); an old handle is overwritten, not freed.
  virtual void* Alloc(unsigned long nSize, unsigned int nFlags);
  // GlobalReAlloc(handle, nFlags, nSize): nSize is passed as the flags and
  // nFlags as the byte count, the reverse of Alloc, which callers rely on.
  // The result (NULL on failure) replaces the handle.
  virtual void* ReAlloc(unsigned long nSize, unsigned int nFlags);
  virtual void Free();
  virtual ~VGlobal();

  // Locks once; later calls return the remembered pointer.
  void* Lock();
  void Unlock();
  unsigned long Size();
  unsigned int Flags();
  // Unlocks and hands the block over without freeing it.
  void* Detach();
  // Only the handle changes: the old block is neither freed nor unlocked.
  void Attach(void* hGlobal);
  void* operator=(void* hGlobal);
  int operator==(void* h) const { return m_hGlobal == h; }
  int operator!=(void* h) const { return m_hGlobal != h; }
  operator void*() { return m_hGlobal; }

protected:
  void* m_hGlobal;
  void* m_pLocked;
};

// A memory file that shows its buffer and can carry a document name.
class VRK_API VMemFile : public CMemFile {
public:
  VMemFile(unsigned int nGrowBytes = 1024);
  VMemFile(unsigned char* pBuffer, unsigned int nBufferSize, unsigned int nGrowBytes = 0);
  virtual ~VMemFile();

  // The current buffer, still owned by the file.
  unsigned char* GetBuffer() const { return m_lpBuffer; }
  // A NULL name throws CInvalidArgException.
  virtual void SetFilePath(LPCTSTR lpszNewName);
};

// Growth of the object-to-global functions. A NULL pointer or nGrowBytes 0
// means 4096.
struct tagVMemAllocGrowth {
  // Growth step of the shared file and buffer size of the storing archive.
  unsigned int nGrowBytes;
  // Set by VrkClipboardPutObject from its nSecond argument; this library
  // never reads it and keeps it for callers that do.
  unsigned int nSecond;
};

// A one-shot carrier of raw bytes. Archive form after the class header: the
// length (4 bytes, little-endian), then the bytes. Storing empties the
// object.
class VRK_API VClipboardMemFileObject : public CObject {
  DECLARE_SERIAL(VClipboardMemFileObject)
public:
  VClipboardMemFileObject();
  virtual ~VClipboardMemFileObject();

  virtual void Serialize(CArchive& ar);

  VMemFile m_file;   // grow step 1024
  int m_bOwnsBuffer; // the buffer was allocated by a load
};

// ---- objects and strings in global blocks ----------------------------------
// New blocks are GMEM_MOVEABLE | GMEM_ZEROINIT unless said otherwise.

// NULL for a NULL or non-serializable object; the caller owns the block.
VRK_API void* VrkCreateGlobalFromCObject(CObject* pObject, tagVMemAllocGrowth* pGrowth);
// ReadObject(pClass) over the block, which stays the caller's. Archive and
// memory exceptions reach the caller; NULL for NULL arguments.
VRK_API CObject* VrkCreateCObjectFromGlobal(void* hGlobal, CRuntimeClass* pClass,
                                            tagVMemAllocGrowth* pGrowth);
// Sized by the CHARACTER count plus one, so a string with double-byte
// characters is cut short and may lack its terminator.
VRK_API void* VrkCreateGlobalFromString(const char* psz);
VRK_API void* VrkCreateGlobalFromString(const wchar_t* psz);
VRK_API void* VrkCreateGlobalFromCString(CString& str);
// The block's bytes less all trailing zeros (embedded zeros stay).
VRK_API int VrkCreateStringFromGlobal(void* hGlobal, CString& str);
VRK_API int VrkCreateCStringFromGlobal(void* hGlobal, CString& str);
// *ppsz = SysAllocString of the block; free it with SysFreeString.
VRK_API int VrkCreateStringFromGlobal(void* hGlobal, wchar_t** ppsz);
// A new block with the same bytes; left zeroed (and uncopied) if a lock
// fails; NULL when the allocation fails.
VRK_API void* VrkGlobalCopy(void* hGlobal);
// A deep copy through WriteObject / ReadObject; the caller owns it.
VRK_API CObject* VrkCloneObject(CObject* pObject);

// ---- the clipboard ----------------------------------------------------------
// The clipboard is opened for the main window of the current thread's
// CWinThread, or for no window.

// With bOpenAndEmpty FALSE the caller has opened the clipboard. An empty
// string gives TRUE at once and leaves a clipboard this call opened open.
VRK_API int VrkClipboardPutText(CString& str, int bOpenAndEmpty);
VRK_API int VrkClipboardGetText(CString& str);
// TRUE whenever the object gave a block, even if placing it failed.
VRK_API int VrkClipboardPutObject(unsigned int nFormat, CObject* pObject, unsigned int nGrowBytes,
                                  unsigned int nSecond, int bEmpty);
// Also places strText (when not empty) as CF_TEXT.
VRK_API int VrkClipboardPutObject(unsigned int nFormat, CObject* pObject, CString& strText,
                                  unsigned int nGrowBytes, unsigned int nSecond, int bEmpty);
// Places a ready block; TRUE after any successful open (a block that could
// not be placed is freed).
VRK_API int VrkClipboardPutObject(unsigned int nFormat, void* hGlobal, int bEmpty);
// The object of class pClass (or derived) under nFormat, owned by the
// caller; NULL when absent. Archive exceptions reach the caller.
VRK_API CObject* VrkClipboardGetObject(unsigned int nFormat, CRuntimeClass* pClass);

// ---- OLE data transfer -----------------------------------------------------

// The block cached (now the data source's), or NULL.
VRK_API void* VrkCacheGlobalData(COleDataSource* pSource, unsigned short cfFormat, CObject* pObject,
                                 tagFORMATETC* pFormatEtc, tagVMemAllocGrowth* pGrowth);
VRK_API int VrkCacheGlobalData(COleDataSource* pSource, const char* pszText,
                               tagFORMATETC* pFormatEtc);
// The bitmap's handle goes to the data source under CF_BITMAP.
VRK_API int VrkCacheGlobalData(COleDataSource* pSource, CBitmap* pBitmap, tagFORMATETC* pFormatEtc);
VRK_API CObject* VrkGetGlobalData(COleDataObject* pData, unsigned short cfFormat,
                                  CRuntimeClass* pClass, tagFORMATETC* pFormatEtc);
VRK_API int VrkGetGlobalData(COleDataObject* pData, CString& str, tagFORMATETC* pFormatEtc);
// TRUE when cfFormat is the first and only format offered.
VRK_API int VrkIsOnlyFormatAvailable(unsigned short cfFormat);
VRK_API int VrkIsOnlyFormatAvailable(unsigned short cfFormat, COleDataObject* pData);

// ---- streams and large integers --------------------------------------------

// CreateStreamOnHGlobal, then SetSize(nSize) unless nSize is 0xFFFFFFFF;
// the HRESULT of the creation.
VRK_API long VrkCreateStreamOnHGlobal(void* hGlobal, int bDeleteOnRelease, IStream** ppStream,
                                      unsigned long nSize);
VRK_API LARGE_INTEGER VrkCoLong2LargeInteger(long n);
VRK_API ULARGE_INTEGER VrkCoULong2UnsignedLargeInteger(unsigned long n);

#endif // VRK_GLOBAL_H
