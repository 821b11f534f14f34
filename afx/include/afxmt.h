// afxmt.h - synchronisation objects: semaphores, mutexes, events, critical
// sections and the lock helpers that acquire them.
#ifndef __AFXMT_H__
#define __AFXMT_H__

#include "afx.h"

// A kernel object (or a critical section) that threads wait on.
class AFX_API CSyncObject : public CObject {
  DECLARE_DYNAMIC(CSyncObject)
public:
  explicit CSyncObject(LPCTSTR pstrName);
  virtual ~CSyncObject();

  operator HANDLE() const { return m_hObject; }
  HANDLE m_hObject;

  // TRUE when the object was acquired (or abandoned by its owner) within
  // dwTimeout milliseconds.
  virtual BOOL Lock(DWORD dwTimeout = INFINITE);
  virtual BOOL Unlock() = 0;
  virtual BOOL Unlock(LONG lCount, LPLONG lpPrevCount = NULL);

private:
  CSyncObject(const CSyncObject&);
  void operator=(const CSyncObject&);
};

class AFX_API CSemaphore : public CSyncObject {
  DECLARE_DYNAMIC(CSemaphore)
public:
  // Throws CResourceException when the semaphore cannot be made.
  CSemaphore(LONG lInitialCount = 1, LONG lMaxCount = 1, LPCTSTR pstrName = NULL,
             LPSECURITY_ATTRIBUTES lpsaAttributes = NULL);
  virtual ~CSemaphore();

  virtual BOOL Unlock();
  virtual BOOL Unlock(LONG lCount, LPLONG lprevCount = NULL);
};

class AFX_API CMutex : public CSyncObject {
  DECLARE_DYNAMIC(CMutex)
public:
  // Throws CResourceException when the mutex cannot be made.
  CMutex(BOOL bInitiallyOwn = FALSE, LPCTSTR lpszName = NULL,
         LPSECURITY_ATTRIBUTES lpsaAttribute = NULL);
  virtual ~CMutex();

  virtual BOOL Unlock();
};

class AFX_API CEvent : public CSyncObject {
  DECLARE_DYNAMIC(CEvent)
public:
  // bInitiallyOwn: created signalled. Throws CResourceException on failure.
  CEvent(BOOL bInitiallyOwn = FALSE, BOOL bManualReset = FALSE, LPCTSTR lpszName = NULL,
         LPSECURITY_ATTRIBUTES lpsaAttribute = NULL);
  virtual ~CEvent();

  BOOL SetEvent();
  BOOL PulseEvent();
  BOOL ResetEvent();
  virtual BOOL Unlock();
};

class AFX_API CCriticalSection : public CSyncObject {
  DECLARE_DYNAMIC(CCriticalSection)
public:
  // Throws CMemoryException when the section cannot be initialised.
  CCriticalSection();
  virtual ~CCriticalSection();

  operator CRITICAL_SECTION*() { return &m_sect; }
  CRITICAL_SECTION m_sect;

  BOOL Lock();
  // A critical section cannot time out: dwTimeout is ignored, as in MFC.
  virtual BOOL Lock(DWORD dwTimeout);
  virtual BOOL Unlock();
};

// Acquires one object for the lifetime of the lock.
class AFX_API CSingleLock {
public:
  explicit CSingleLock(CSyncObject* pObject, BOOL bInitialLock = FALSE);
  ~CSingleLock();

  BOOL Lock(DWORD dwTimeOut = INFINITE);
  BOOL Unlock();
  BOOL Unlock(LONG lCount, LPLONG lPrevCount = NULL);
  BOOL IsLocked() { return m_bAcquired; }

protected:
  CSyncObject* m_pObject;
  HANDLE m_hObject;
  BOOL m_bAcquired;

private:
  CSingleLock(const CSingleLock&);
  void operator=(const CSingleLock&);
};

// Waits on several kernel objects at once (critical sections have no
// handle and cannot take part).
class AFX_API CMultiLock {
public:
  // Throws CInvalidArgException when ppObjects is NULL or holds a NULL, or
  // when dwCount is 0 or above MAXIMUM_WAIT_OBJECTS.
  CMultiLock(CSyncObject* ppObjects[], DWORD dwCount, BOOL bInitialLock = FALSE);
  ~CMultiLock();

  // Returns WAIT_OBJECT_0 + n (or WAIT_ABANDONED_0 + n) for the object that
  // satisfied the wait, WAIT_OBJECT_0 + dwCount for a message with a
  // dwWakeMask, WAIT_TIMEOUT or WAIT_FAILED.
  DWORD Lock(DWORD dwTimeOut = INFINITE, BOOL bWaitForAll = TRUE, DWORD dwWakeMask = 0);
  BOOL Unlock();
  BOOL Unlock(LONG lCount, LPLONG lPrevCount = NULL);
  BOOL IsLocked(DWORD dwItem);

protected:
  HANDLE m_hPreallocated[8];
  BOOL m_bPreallocated[8];

  CSyncObject* const* m_ppObjectArray;
  HANDLE* m_pHandleArray;
  BOOL* m_bLockedArray;
  DWORD m_dwCount;

private:
  CMultiLock(const CMultiLock&);
  void operator=(const CMultiLock&);
};

#endif // __AFXMT_H__
