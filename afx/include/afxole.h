// afxole.h - OLE data transfer: AfxOleInit, COleDataSource (a real
// IDataObject that offers cached or delay-rendered data, on the clipboard or
// to anyone given its interface) and COleDataObject (the receiving side over
// any IDataObject, the clipboard's included). No OLE embedding, linking or
// drag-and-drop is provided.
#ifndef __AFXOLE_H__
#define __AFXOLE_H__

#include "afxwin.h"
#include "afxdisp.h"

#include <ole2.h>

// Initialises OLE on the calling thread (OleInitialize) once; later calls on
// the same thread return TRUE at once. OLE is uninitialised when the thread
// ends, or earlier by AfxOleTerm. FALSE when OleInitialize fails.
AFX_API BOOL AFXAPI AfxOleInit();
// Uninitialises OLE on the calling thread if AfxOleInit initialised it
// (flushing the clipboard first if one of our sources is on it). With
// bJustRevoke nothing is uninitialised (there is no class factory to revoke).
AFX_API void AFXAPI AfxOleTerm(BOOL bJustRevoke = FALSE);

class CFile;

// ---- COleDataSource -------------------------------------------------------------

// A cache of formats offered through its own IDataObject. The object counts
// references like a COM object: it starts with one (the creator's), and
// SetClipboard hands that one to the clipboard, so a source on the clipboard
// is deleted when the clipboard lets it go (emptied or replaced). A source
// that is never placed is deleted with `delete` or InternalRelease().
class AFX_API COleDataSource : public CCmdTarget {
  DECLARE_DYNAMIC(COleDataSource)
public:
  COleDataSource();
  virtual ~COleDataSource();

  // Offers hGlobal (which the source now owns) in cfFormat. A bitmap or a
  // palette (CF_BITMAP, CF_PALETTE) is a GDI handle, not a global block: it is
  // offered as TYMED_GDI, so that the clipboard can render it and it is freed
  // with DeleteObject. An earlier entry for the same format and medium is
  // replaced (and freed).
  void CacheGlobalData(CLIPFORMAT cfFormat, HGLOBAL hGlobal, LPFORMATETC lpFormatEtc = NULL);
  // Offers a ready medium (the source owns it and releases it with
  // ReleaseStgMedium).
  void CacheData(CLIPFORMAT cfFormat, LPSTGMEDIUM lpStgMedium, LPFORMATETC lpFormatEtc = NULL);
  // Offers a format that OnRenderData (or OnRenderGlobalData /
  // OnRenderFileData) makes when it is asked for.
  void DelayRenderData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc = NULL);
  void DelayRenderFileData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc = NULL);
  // Accepts SetData for the format (handled by OnSetData).
  void DelaySetData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc = NULL);

  // Frees every cached medium and forgets every format.
  void Empty();

  // Puts the source on the clipboard (OleSetClipboard) and hands it to the
  // clipboard: the caller must not delete it afterwards. If OLE refuses, the
  // source is deleted.
  void SetClipboard();
  // Renders every format onto the clipboard if our source is on it
  // (OleFlushClipboard); the source is then released.
  static void PASCAL FlushClipboard();
  // The source this thread put on the clipboard, if it is still there; NULL
  // otherwise.
  static COleDataSource* PASCAL GetClipboardOwner();

  // Delayed rendering. The defaults: OnRenderData asks OnRenderGlobalData
  // for TYMED_HGLOBAL and OnRenderFileData (over a shared memory file) for
  // TYMED_HGLOBAL and TYMED_ISTREAM; both default to FALSE. With *phGlobal
  // not NULL, the block must be filled in place.
  virtual BOOL OnRenderData(LPFORMATETC lpFormatEtc, LPSTGMEDIUM lpStgMedium);
  virtual BOOL OnRenderGlobalData(LPFORMATETC lpFormatEtc, HGLOBAL* phGlobal);
  virtual BOOL OnRenderFileData(LPFORMATETC lpFormatEtc, CFile* pFile);
  // SetData for a format announced with DelaySetData; bRelease says whether
  // the source takes the medium. The default refuses.
  virtual BOOL OnSetData(LPFORMATETC lpFormatEtc, LPSTGMEDIUM lpStgMedium, BOOL bRelease);

  // The COM side (CCmdTarget's in MFC). GetInterface gives the object's
  // IUnknown or IDataObject (without adding a reference) for &IID_IUnknown
  // or &IID_IDataObject, else NULL.
  LPUNKNOWN GetInterface(const void* iid);
  DWORD InternalAddRef();
  DWORD InternalRelease();
  DWORD ExternalAddRef() { return InternalAddRef(); }
  DWORD ExternalRelease() { return InternalRelease(); }
  DWORD ExternalQueryInterface(const void* iid, LPVOID* ppvObj);
  // Called when the last reference goes; deletes the object.
  virtual void OnFinalRelease();

  // One offered format: its FORMATETC, its medium (tymed TYMED_NULL while
  // delay-rendered) and whether it is offered for get or for set.
  struct AFX_DATACACHE_ENTRY {
    FORMATETC m_formatEtc;
    STGMEDIUM m_stgMedium;
    DATADIR m_nDataDir;
  };

  // The IDataObject the source hands out; its reference count is the
  // source's.
  class AFX_API XDataObject : public IDataObject {
  public:
    STDMETHOD(QueryInterface)(REFIID riid, void** ppvObject);
    STDMETHOD_(ULONG, AddRef)();
    STDMETHOD_(ULONG, Release)();
    STDMETHOD(GetData)(FORMATETC* pformatetcIn, STGMEDIUM* pmedium);
    STDMETHOD(GetDataHere)(FORMATETC* pformatetc, STGMEDIUM* pmedium);
    STDMETHOD(QueryGetData)(FORMATETC* pformatetc);
    STDMETHOD(GetCanonicalFormatEtc)(FORMATETC* pformatectIn, FORMATETC* pformatetcOut);
    STDMETHOD(SetData)(FORMATETC* pformatetc, STGMEDIUM* pmedium, BOOL fRelease);
    STDMETHOD(EnumFormatEtc)(DWORD dwDirection, IEnumFORMATETC** ppenumFormatEtc);
    STDMETHOD(DAdvise)
    (FORMATETC* pformatetc, DWORD advf, IAdviseSink* pAdvSink, DWORD* pdwConnection);
    STDMETHOD(DUnadvise)(DWORD dwConnection);
    STDMETHOD(EnumDAdvise)(IEnumSTATDATA** ppenumAdvise);

  private:
    COleDataSource* This();
  } m_xDataObject;
  friend class XDataObject;

protected:
  // The entry for lpFormatEtc's format, aspect and a medium it accepts;
  // NULL when none.
  AFX_DATACACHE_ENTRY* Lookup(LPFORMATETC lpFormatEtc, DATADIR nDataDir) const;
  // A new entry (or the existing one for the same format, aspect, index and
  // medium, emptied first).
  AFX_DATACACHE_ENTRY* GetCacheEntry(LPFORMATETC lpFormatEtc, DATADIR nDataDir);

  AFX_DATACACHE_ENTRY* m_pDataCache;
  UINT m_nMaxSize; // entries allocated
  UINT m_nSize;    // entries in use
  UINT m_nGrowBy;
  LONG m_dwRef;

private:
  COleDataSource(const COleDataSource&);
  void operator=(const COleDataSource&);
};

// ---- COleDataObject -------------------------------------------------------------

// The receiving side of a data transfer, over any IDataObject.
class AFX_API COleDataObject {
public:
  COleDataObject();
  ~COleDataObject(); // Release()

  // Takes lpDataObject (releasing the one held); with bAutoRelease the
  // object's reference is released by Release or the destructor.
  void Attach(LPDATAOBJECT lpDataObject, BOOL bAutoRelease = TRUE);
  // Gives up the data object without releasing it.
  LPDATAOBJECT Detach();
  // Releases the data object (if auto-release) and the format enumerator.
  void Release();
  // Attaches the clipboard's data object (OleGetClipboard); FALSE when
  // there is none.
  BOOL AttachClipboard();

  // Enumeration of the formats offered for reading, in the source's order.
  void BeginEnumFormats();
  BOOL GetNextFormat(LPFORMATETC lpFormatEtc);

  // Format queries and reads; lpFormatEtc NULL asks for cfFormat, content
  // aspect, index -1, any medium (TYMED_HGLOBAL for GetGlobalData).
  BOOL IsDataAvailable(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc = NULL);
  // The medium becomes the caller's: free it with ReleaseStgMedium.
  BOOL GetData(CLIPFORMAT cfFormat, LPSTGMEDIUM lpStgMedium, LPFORMATETC lpFormatEtc = NULL);
  // A global block the caller owns (GlobalFree), or NULL. Data that came
  // in another medium (a stream) or that the source still owns is copied.
  HGLOBAL GetGlobalData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc = NULL);
  // The data as a file the caller deletes: a CSharedFile over a global
  // block, or NULL.
  CFile* GetFileData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc = NULL);

  // The attached data object, or NULL; with bAddRef the caller gets a
  // reference of its own.
  LPDATAOBJECT GetIDataObject(BOOL bAddRef);

protected:
  LPDATAOBJECT m_lpDataObject;
  LPENUMFORMATETC m_lpEnumerator;
  BOOL m_bAutoRelease;
  BOOL m_bClipboard;

private:
  COleDataObject(const COleDataObject&);
  void operator=(const COleDataObject&);
};

#endif // __AFXOLE_H__
