// CHandleMap: the per-thread maps from Windows handles to afx objects, and
// the lock that keeps temporary objects until the thread is idle.
#include <afxwin.h>
#include "handlemap.h"
#include "../core/afximpl.h"

CHandleMap::CHandleMap(CRuntimeClass* pClass, AFX_PFNSETHANDLE pfnSetHandle)
    : m_pClass(pClass), m_pfnSetHandle(pfnSetHandle), m_permanentMap(64), m_temporaryMap(64) {
  // Handles are many and looked up on every message: a larger table than
  // the default 17 keeps the chains short.
  m_permanentMap.InitHashTable(1021, FALSE);
  m_temporaryMap.InitHashTable(251, FALSE);
}

CHandleMap::~CHandleMap() { DeleteTemp(); }

CObject* CHandleMap::LookupPermanent(HANDLE h) const {
  void* pObject;
  return m_permanentMap.Lookup((void*)h, pObject) ? (CObject*)pObject : NULL;
}

CObject* CHandleMap::LookupTemporary(HANDLE h) const {
  void* pObject;
  return m_temporaryMap.Lookup((void*)h, pObject) ? (CObject*)pObject : NULL;
}

CObject* CHandleMap::FromHandle(HANDLE h) {
  if (h == NULL) return NULL;
  CObject* pObject = LookupPermanent(h);
  if (pObject != NULL) return pObject;
  pObject = LookupTemporary(h);
  if (pObject != NULL) return pObject;

  // A temporary object must not run code that needs the handle as it is
  // constructed; the handle is put in afterwards.
  pObject = m_pClass->CreateObject();
  if (pObject == NULL) AfxThrowMemoryException();
  try {
    m_temporaryMap.SetAt((void*)h, pObject);
  } catch (CException*) {
    delete pObject;
    throw;
  }
  (*m_pfnSetHandle)(pObject, h);
  return pObject;
}

void CHandleMap::SetPermanent(HANDLE h, CObject* pObject) {
  m_permanentMap.SetAt((void*)h, pObject);
}

void CHandleMap::RemoveHandle(HANDLE h) { m_permanentMap.RemoveKey((void*)h); }

void CHandleMap::DeleteTemp() {
  POSITION pos = m_temporaryMap.GetStartPosition();
  while (pos != NULL) {
    void* h;
    void* pObject;
    m_temporaryMap.GetNextAssoc(pos, h, pObject);
    (*m_pfnSetHandle)((CObject*)pObject, NULL); // so the destructor leaves the handle alone
    delete (CObject*)pObject;
  }
  m_temporaryMap.RemoveAll();
}

CHandleMap* AFXAPI AfxGetHandleMap(int nKind, CRuntimeClass* pClass, AFX_PFNSETHANDLE pfnSetHandle,
                                   BOOL bCreate) {
  if (nKind < 0 || nKind >= afxMapKindCount) return NULL;
  _AFX_THREAD_STATE* pState = AfxGetThreadState();
  CHandleMap* pMap = pState->m_pHandleMaps[nKind];
  if (pMap == NULL && bCreate) {
    pMap = new (std::nothrow) CHandleMap(pClass, pfnSetHandle);
    if (pMap == NULL) AfxThrowMemoryException();
    pState->m_pHandleMaps[nKind] = pMap;
  }
  return pMap;
}

// ---- Temporary-map lock ------------------------------------------------------

void AFXAPI AfxLockTempMaps() { ++AfxGetThreadState()->m_nTempMapLock; }

BOOL AFXAPI AfxUnlockTempMaps(BOOL bDeleteTemps) {
  _AFX_THREAD_STATE* pState = AfxGetThreadState();
  if (pState->m_nTempMapLock == 0) return FALSE; // not locked: an unbalanced call
  if (--pState->m_nTempMapLock != 0) return FALSE;
  if (bDeleteTemps) {
    for (int i = 0; i < afxMapKindCount; i++) {
      if (pState->m_pHandleMaps[i] != NULL) pState->m_pHandleMaps[i]->DeleteTemp();
    }
  }
  return TRUE;
}

void AfxFreeThreadWindowState(_AFX_THREAD_STATE* pState) {
  for (int i = 0; i < afxMapKindCount; i++) {
    delete pState->m_pHandleMaps[i];
    pState->m_pHandleMaps[i] = NULL;
  }
  if (pState->m_pMsgCache != NULL) {
    free(pState->m_pMsgCache);
    pState->m_pMsgCache = NULL;
  }
}

MSG* AFXAPI AfxGetCurrentMessage() { return &AfxGetThreadState()->m_lastSentMsg; }
