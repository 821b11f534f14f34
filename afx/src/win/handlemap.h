// handlemap.h - afx.dll's private map from Windows handles to the C++ objects
// that wrap them (CWnd, CMenu, CDC, CGdiObject, CImageList).
//
// Each thread has its own maps. A permanent entry is made by Attach (or by
// creating the object's handle) and lasts until Detach; FromHandle on a handle
// with no permanent object makes a temporary object of the map's class, kept
// until the thread is idle (CWinThread::OnIdle) and then deleted. Temporary
// objects lose their handle before they are deleted, so their destructors
// never destroy the Windows object.
#ifndef AFX_HANDLEMAP_H
#define AFX_HANDLEMAP_H

#include <afx.h>
#include <afxcoll.h>

// Puts a handle into an object of the map's class (hHandle NULL clears it).
// CDC sets both m_hDC and m_hAttribDC.
typedef void(PASCAL* AFX_PFNSETHANDLE)(CObject* pObject, HANDLE hHandle);

class CHandleMap {
public:
  // pClass must be creatable (DECLARE_DYNCREATE): temporaries are made with
  // its CreateObject.
  CHandleMap(CRuntimeClass* pClass, AFX_PFNSETHANDLE pfnSetHandle);
  ~CHandleMap();

  // The permanent object, else the temporary one, else a new temporary
  // object; NULL for a NULL handle. Throws CMemoryException when no object
  // can be made.
  CObject* FromHandle(HANDLE h);
  CObject* LookupPermanent(HANDLE h) const;
  CObject* LookupTemporary(HANDLE h) const;

  void SetPermanent(HANDLE h, CObject* pObject);
  // Forgets the handle's permanent entry.
  void RemoveHandle(HANDLE h);
  // Deletes every temporary object (their handles are cleared first).
  void DeleteTemp();

  INT_PTR GetTemporaryCount() const { return m_temporaryMap.GetCount(); }

private:
  CRuntimeClass* m_pClass;
  AFX_PFNSETHANDLE m_pfnSetHandle;
  CMapPtrToPtr m_permanentMap;
  CMapPtrToPtr m_temporaryMap;

  CHandleMap(const CHandleMap&);
  void operator=(const CHandleMap&);
};

// The kinds of handle afx maps, one map of each per thread.
enum AfxHandleMapKind {
  afxMapKindHWND,
  afxMapKindHMENU,
  afxMapKindHDC,
  afxMapKindHGDIOBJ,
  afxMapKindHIMAGELIST,
  afxMapKindCount
};

// The calling thread's map of one kind. With bCreate, a missing map is made
// for pClass and pfnSetHandle (the same for every call of one kind);
// without it, NULL when the thread has none yet.
CHandleMap* AFXAPI AfxGetHandleMap(int nKind, CRuntimeClass* pClass, AFX_PFNSETHANDLE pfnSetHandle,
                                   BOOL bCreate = TRUE);

#endif // AFX_HANDLEMAP_H
