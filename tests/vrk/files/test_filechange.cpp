// VFileChangeNotify: polled, posting to a real window and calling back on
// its worker thread; Stop joins the worker, and a second Run ends the first.
#include <vrk_filechange.h>
#include <gtest/gtest.h>

#include "temp_dir.h"

#include <string>

namespace {

const DWORD kFilter =
    FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_SIZE;

// Polls cond for up to two seconds.
template <class Cond> bool WaitFor(Cond cond) {
  for (int i = 0; i < 200; i++) {
    if (cond()) return true;
    Sleep(10);
  }
  return false;
}

TEST(FileChangeNotify, PolledSeesACreatedFileAndRefusesAMissingFolder) {
  TempDir dir;
  VFileChangeNotify notify;
  EXPECT_TRUE(notify.Stop()); // never started
  EXPECT_FALSE(notify.Run(dir.File("missing").c_str(), FALSE, kFilter));
  EXPECT_FALSE(notify.Run(NULL, FALSE, kFilter));
  ASSERT_TRUE(notify.Run(dir.Path().c_str(), FALSE, kFilter));
  EXPECT_FALSE(notify.IsSignaled());
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("new.txt"), "n"));
  EXPECT_TRUE(WaitFor([&] { return notify.IsSignaled() != 0; }));
  EXPECT_TRUE(notify.Stop());
  EXPECT_FALSE(notify.IsSignaled());
}

// The window side: the path of a notification, taken from the queue of a
// message-only window as it arrives.
TEST(FileChangeNotify, WorkerPostsToAWindowForEachChangeUntilStopped) {
  const UINT kChangeMessage = WM_APP + 7;
  HWND hWnd = CreateWindowA("STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, NULL, NULL, NULL);
  ASSERT_TRUE(hWnd != NULL);
  TempDir dir;
  {
    VFileChangeNotify notify;
    ASSERT_TRUE(notify.Run(hWnd, kChangeMessage, dir.Path().c_str(), FALSE, kFilter));
    Sleep(200); // the worker sets up its watch on its own thread
    ASSERT_TRUE(TempDir::WriteBytes(dir.File("created.txt"), "c"));
    MSG msg;
    ASSERT_TRUE(WaitFor(
        [&] { return PeekMessageA(&msg, hWnd, kChangeMessage, kChangeMessage, PM_REMOVE) != 0; }));
    EXPECT_EQ(dir.Path(), (const char*)msg.lParam); // valid while the notifier lives
    EXPECT_TRUE(notify.Stop() && notify.Stop());
  }
  DestroyWindow(hWnd);
}

// The callback side: calls per watched folder, and the calling thread.
volatile LONG g_calls[2] = {0, 0};
std::string g_folders[2];
DWORD g_callbackThread = 0;

int __cdecl OnChange(const char* pszPath) {
  g_callbackThread = GetCurrentThreadId();
  for (int i = 0; i < 2; i++)
    if (g_folders[i] == pszPath) InterlockedIncrement(&g_calls[i]);
  return 0;
}

// A second Run ends the first worker: nobody watches the first folder then;
// after Stop nobody watches the second.
TEST(FileChangeNotify, WorkerCallsBackOnItsOwnThreadWatchesTheSubtreeAndASecondRunEndsIt) {
  TempDir first, second;
  g_folders[0] = first.Path();
  g_folders[1] = second.Path();
  g_calls[0] = g_calls[1] = 0;
  VFileChangeNotify notify;
  ASSERT_TRUE(notify.Run(NULL, (UINT_PTR)&OnChange, first.Path().c_str(), TRUE, kFilter));
  Sleep(200);
  ASSERT_TRUE(TempDir::WriteBytes(first.File("added.txt"), "a"));
  ASSERT_TRUE(WaitFor([] { return g_calls[0] >= 1; }));
  EXPECT_NE(GetCurrentThreadId(), g_callbackThread);
  ASSERT_TRUE(CreateDirectoryA(first.File("sub").c_str(), NULL));
  Sleep(100);
  LONG before = g_calls[0];
  ASSERT_TRUE(TempDir::WriteBytes(first.File("sub\\deep.txt"), "d"));
  EXPECT_TRUE(WaitFor([&] { return g_calls[0] > before; }));
  ASSERT_TRUE(notify.Run(NULL, (UINT_PTR)&OnChange, second.Path().c_str(), FALSE, kFilter));
  Sleep(200);
  before = g_calls[0];
  ASSERT_TRUE(TempDir::WriteBytes(first.File("b.txt"), "b"));
  ASSERT_TRUE(TempDir::WriteBytes(second.File("c.txt"), "c"));
  EXPECT_TRUE(WaitFor([] { return g_calls[1] >= 1; }));
  EXPECT_TRUE(notify.Stop());
  const LONG after = g_calls[1];
  ASSERT_TRUE(TempDir::WriteBytes(second.File("late.txt"), "l"));
  Sleep(300);
  EXPECT_EQ(before, g_calls[0]);
  EXPECT_EQ(after, g_calls[1]);
  EXPECT_FALSE(notify.Run(NULL, 0, NULL, FALSE, kFilter));
}

} // namespace
