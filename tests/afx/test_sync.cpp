// Synchronisation objects and locks: time-outs, ownership, counts and
// waits across threads.
#include <afxmt.h>
#include <gtest/gtest.h>
#include "exception_probe.h"

#include <process.h>

#include <functional>
#include <memory>

namespace {

// Runs fn on a new thread and waits for it.
void OnOtherThread(std::function<void()> fn) {
  struct Entry {
    static unsigned __stdcall Run(void* p) {
      std::unique_ptr<std::function<void()>> f((std::function<void()>*)p);
      (*f)();
      return 0;
    }
  };
  HANDLE h = (HANDLE)_beginthreadex(NULL, 0, &Entry::Run, new std::function<void()>(std::move(fn)),
                                    0, NULL);
  ASSERT_NE(h, (HANDLE)NULL);
  WaitForSingleObject(h, INFINITE);
  CloseHandle(h);
}

} // namespace

TEST(SingleLock, LocksUnlocksAndReleasesOnDestruction) {
  CMutex mutex;
  {
    CSingleLock lock(&mutex, TRUE);
    EXPECT_TRUE(lock.IsLocked());
    bool otherGotIt = true;
    OnOtherThread([&] { otherGotIt = mutex.Lock(50) != FALSE; });
    EXPECT_FALSE(otherGotIt);
    EXPECT_TRUE(lock.Lock()); // already held: not taken twice
    EXPECT_TRUE(lock.Unlock());
    EXPECT_FALSE(lock.IsLocked());
    EXPECT_TRUE(lock.Lock(0));
  } // destructor releases
  bool otherGotIt = false;
  OnOtherThread([&] {
    otherGotIt = mutex.Lock(0) != FALSE;
    mutex.Unlock();
  });
  EXPECT_TRUE(otherGotIt);
}

// Waiting for any reports which object; all mutexes held are released,
// also past the objects the lock keeps inline.
TEST(MultiLock, WaitAnyReportsWhichObjectAndHeldMutexesAreReleased) {
  CEvent a, b, c;
  CSyncObject* events[] = {&a, &b, &c};
  CMultiLock any(events, 3);
  EXPECT_EQ(any.Lock(0, FALSE), (DWORD)WAIT_TIMEOUT);
  c.SetEvent();
  EXPECT_EQ(any.Lock(0, FALSE), (DWORD)(WAIT_OBJECT_0 + 2));
  EXPECT_FALSE(any.IsLocked(0));
  EXPECT_TRUE(any.IsLocked(2));
  EXPECT_FALSE(any.IsLocked(3)); // out of range

  CMutex mutexes[10];
  CSyncObject* objects[10];
  for (int i = 0; i < 10; i++)
    objects[i] = &mutexes[i];
  {
    CMultiLock lock(objects, 10, TRUE);
    for (DWORD i = 0; i < 10; i++)
      EXPECT_TRUE(lock.IsLocked(i));
    bool otherGotOne = true;
    OnOtherThread([&] { otherGotOne = mutexes[9].Lock(0) != FALSE; });
    EXPECT_FALSE(otherGotOne);
  }
  bool otherGotAll = true;
  OnOtherThread([&] {
    for (auto& m : mutexes) {
      otherGotAll = otherGotAll && m.Lock(0);
      m.Unlock();
    }
  });
  EXPECT_TRUE(otherGotAll);
}

TEST(MultiLock, BadArgumentsRaiseInvalidArgBadCountsAResourceException) {
  EXPECT_EQ(ThrownClass([] { CSemaphore sem(5, 1); }), RUNTIME_CLASS(CResourceException));
  CEvent a;
  CSyncObject* objects[] = {&a, NULL};
  EXPECT_EQ(ThrownClass([&] { CMultiLock lock(NULL, 1); }), RUNTIME_CLASS(CInvalidArgException));
  EXPECT_EQ(ThrownClass([&] { CMultiLock lock(objects, 0); }), RUNTIME_CLASS(CInvalidArgException));
  EXPECT_EQ(ThrownClass([&] { CMultiLock lock(objects, 2); }), RUNTIME_CLASS(CInvalidArgException));
  EXPECT_EQ(ThrownClass([&] { CMultiLock lock(objects, MAXIMUM_WAIT_OBJECTS + 1); }),
            RUNTIME_CLASS(CInvalidArgException));
}
