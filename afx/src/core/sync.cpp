// Synchronisation objects and the locks that acquire them.
#include <afxmt.h>

IMPLEMENT_DYNAMIC(CSyncObject, CObject)
IMPLEMENT_DYNAMIC(CSemaphore, CSyncObject)
IMPLEMENT_DYNAMIC(CMutex, CSyncObject)
IMPLEMENT_DYNAMIC(CEvent, CSyncObject)
IMPLEMENT_DYNAMIC(CCriticalSection, CSyncObject)

// ---- CSyncObject -------------------------------------------------------------

CSyncObject::CSyncObject(LPCTSTR) : m_hObject(NULL) {}

CSyncObject::~CSyncObject() {
  if (m_hObject != NULL) {
    ::CloseHandle(m_hObject);
    m_hObject = NULL;
  }
}

BOOL CSyncObject::Lock(DWORD dwTimeout) {
  // An abandoned mutex is still acquired by the waiter.
  DWORD dwRet = ::WaitForSingleObject(m_hObject, dwTimeout);
  return dwRet == WAIT_OBJECT_0 || dwRet == WAIT_ABANDONED;
}

BOOL CSyncObject::Unlock(LONG, LPLONG) { return TRUE; }

// ---- CSemaphore --------------------------------------------------------------

CSemaphore::CSemaphore(LONG lInitialCount, LONG lMaxCount, LPCTSTR pstrName,
                       LPSECURITY_ATTRIBUTES lpsaAttributes)
    : CSyncObject(pstrName) {
  m_hObject = ::CreateSemaphore(lpsaAttributes, lInitialCount, lMaxCount, pstrName);
  if (m_hObject == NULL) AfxThrowResourceException();
}

CSemaphore::~CSemaphore() {}

BOOL CSemaphore::Unlock() { return Unlock(1, NULL); }

BOOL CSemaphore::Unlock(LONG lCount, LPLONG lpPrevCount) {
  return ::ReleaseSemaphore(m_hObject, lCount, lpPrevCount);
}

// ---- CMutex ------------------------------------------------------------------

CMutex::CMutex(BOOL bInitiallyOwn, LPCTSTR pstrName, LPSECURITY_ATTRIBUTES lpsaAttribute)
    : CSyncObject(pstrName) {
  m_hObject = ::CreateMutex(lpsaAttribute, bInitiallyOwn, pstrName);
  if (m_hObject == NULL) AfxThrowResourceException();
}

CMutex::~CMutex() {}

BOOL CMutex::Unlock() { return ::ReleaseMutex(m_hObject); }

// ---- CEvent ------------------------------------------------------------------

CEvent::CEvent(BOOL bInitiallyOwn, BOOL bManualReset, LPCTSTR pstrName,
               LPSECURITY_ATTRIBUTES lpsaAttribute)
    : CSyncObject(pstrName) {
  m_hObject = ::CreateEvent(lpsaAttribute, bManualReset, bInitiallyOwn, pstrName);
  if (m_hObject == NULL) AfxThrowResourceException();
}

CEvent::~CEvent() {}

BOOL CEvent::SetEvent() { return ::SetEvent(m_hObject); }
BOOL CEvent::PulseEvent() { return ::PulseEvent(m_hObject); }
BOOL CEvent::ResetEvent() { return ::ResetEvent(m_hObject); }

// Waiting on an auto-reset event already consumed the signal; there is
// nothing to give back.
BOOL CEvent::Unlock() { return TRUE; }

// ---- CCriticalSection --------------------------------------------------------

CCriticalSection::CCriticalSection() : CSyncObject(NULL) {
  if (!::InitializeCriticalSectionAndSpinCount(&m_sect, 0)) AfxThrowMemoryException();
}

CCriticalSection::~CCriticalSection() { ::DeleteCriticalSection(&m_sect); }

BOOL CCriticalSection::Lock() {
  ::EnterCriticalSection(&m_sect);
  return TRUE;
}

BOOL CCriticalSection::Lock(DWORD) { return Lock(); }

BOOL CCriticalSection::Unlock() {
  ::LeaveCriticalSection(&m_sect);
  return TRUE;
}

// ---- CSingleLock -------------------------------------------------------------

CSingleLock::CSingleLock(CSyncObject* pObject, BOOL bInitialLock)
    : m_pObject(pObject), m_hObject(pObject != NULL ? pObject->m_hObject : NULL),
      m_bAcquired(FALSE) {
  if (bInitialLock) Lock();
}

CSingleLock::~CSingleLock() { Unlock(); }

// Decided here: a lock on no object fails, and a lock already held is not
// taken twice (a mutex would otherwise need two releases).
BOOL CSingleLock::Lock(DWORD dwTimeOut) {
  if (m_pObject == NULL) return FALSE;
  if (!m_bAcquired) m_bAcquired = m_pObject->Lock(dwTimeOut);
  return m_bAcquired;
}

BOOL CSingleLock::Unlock() {
  if (m_bAcquired) m_bAcquired = !m_pObject->Unlock();
  // TRUE when the object is no longer held.
  return !m_bAcquired;
}

BOOL CSingleLock::Unlock(LONG lCount, LPLONG lPrevCount) {
  if (m_bAcquired) m_bAcquired = !m_pObject->Unlock(lCount, lPrevCount);
  return !m_bAcquired;
}

// ---- CMultiLock --------------------------------------------------------------

CMultiLock::CMultiLock(CSyncObject* pObjects[], DWORD dwCount, BOOL bInitialLock)
    : m_ppObjectArray(pObjects), m_pHandleArray(m_hPreallocated), m_bLockedArray(m_bPreallocated),
      m_dwCount(dwCount) {
  if (pObjects == NULL || dwCount == 0 || dwCount > MAXIMUM_WAIT_OBJECTS)
    AfxThrowInvalidArgException();
  for (DWORD i = 0; i < dwCount; i++) {
    if (pObjects[i] == NULL) AfxThrowInvalidArgException();
  }
  if (dwCount > _countof(m_hPreallocated)) {
    m_pHandleArray = new (std::nothrow) HANDLE[dwCount];
    m_bLockedArray = new (std::nothrow) BOOL[dwCount];
    if (m_pHandleArray == NULL || m_bLockedArray == NULL) {
      delete[] m_pHandleArray;
      delete[] m_bLockedArray;
      AfxThrowMemoryException();
    }
  }
  for (DWORD i = 0; i < dwCount; i++) {
    m_pHandleArray[i] = pObjects[i]->m_hObject;
    m_bLockedArray[i] = FALSE;
  }
  if (bInitialLock) Lock();
}

CMultiLock::~CMultiLock() {
  Unlock();
  if (m_pHandleArray != m_hPreallocated) {
    delete[] m_pHandleArray;
    delete[] m_bLockedArray;
  }
}

DWORD CMultiLock::Lock(DWORD dwTimeOut, BOOL bWaitForAll, DWORD dwWakeMask) {
  DWORD dwResult;
  if (dwWakeMask == 0)
    dwResult = ::WaitForMultipleObjects(m_dwCount, m_pHandleArray, bWaitForAll, dwTimeOut);
  else
    dwResult =
        ::MsgWaitForMultipleObjects(m_dwCount, m_pHandleArray, bWaitForAll, dwTimeOut, dwWakeMask);

  DWORD dwIndex = m_dwCount; // none acquired
  if (dwResult >= WAIT_OBJECT_0 && dwResult < WAIT_OBJECT_0 + m_dwCount)
    dwIndex = dwResult - WAIT_OBJECT_0;
  else if (dwResult >= WAIT_ABANDONED_0 && dwResult < WAIT_ABANDONED_0 + m_dwCount)
    dwIndex = dwResult - WAIT_ABANDONED_0;
  if (dwIndex < m_dwCount) {
    if (bWaitForAll) {
      for (DWORD i = 0; i < m_dwCount; i++)
        m_bLockedArray[i] = TRUE;
    } else {
      m_bLockedArray[dwIndex] = TRUE;
    }
  }
  return dwResult;
}

BOOL CMultiLock::Unlock() {
  for (DWORD i = 0; i < m_dwCount; i++) {
    if (m_bLockedArray[i]) m_bLockedArray[i] = !m_ppObjectArray[i]->Unlock();
  }
  return TRUE;
}

BOOL CMultiLock::Unlock(LONG lCount, LPLONG lpPrevCount) {
  BOOL bGotOne = FALSE;
  for (DWORD i = 0; i < m_dwCount; i++) {
    if (m_bLockedArray[i]) {
      CSemaphore* pSemaphore = DYNAMIC_DOWNCAST(CSemaphore, m_ppObjectArray[i]);
      if (pSemaphore != NULL) {
        bGotOne = TRUE;
        m_bLockedArray[i] = !m_ppObjectArray[i]->Unlock(lCount, lpPrevCount);
      }
    }
  }
  return bGotOne;
}

BOOL CMultiLock::IsLocked(DWORD dwObject) {
  // Decided here: an index out of range is simply not locked.
  return dwObject < m_dwCount && m_bLockedArray[dwObject];
}
