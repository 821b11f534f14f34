// VFileChangeNotify: polled, posting to a real window and calling back on
// its worker; files are created, changed and deleted and the notifications
// observed; Stop joins the worker.
#include <vrk_filechange.h>
#include <gtest/gtest.h>

#include "temp_dir.h"

#include <string>

namespace {

const DWORD kFilter =
    FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_SIZE;

// Polls cond for up to two seconds, pumping this thread's messages.
template <class Cond> bool WaitFor(Cond cond) {
  for (int i = 0; i < 200; i++) {
    MSG msg;
    while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
      DispatchMessageA(&msg);
    if (cond()) return true;
    Sleep(10);
  }
  return cond();
}

TEST(FileChangeNotify, PolledSeesACreatedFile) {
  TempDir dir;
  VFileChangeNotify notify;
  EXPECT_FALSE(notify.IsSignaled());
  ASSERT_TRUE(notify.Run(dir.Path().c_str(), FALSE, kFilter));
  EXPECT_FALSE(notify.IsSignaled());
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("new.txt"), "n"));
  EXPECT_TRUE(WaitFor([&] { return notify.IsSignaled() != 0; }));
  EXPECT_TRUE(notify.Stop());
  EXPECT_FALSE(notify.IsSignaled());
}

TEST(FileChangeNotify, MissingFolderAndNeverStarted) {
  TempDir dir;
  VFileChangeNotify notify;
  EXPECT_TRUE(notify.Stop());
  EXPECT_FALSE(notify.Run(dir.File("missing").c_str(), FALSE, kFilter));
  EXPECT_FALSE(notify.Run(NULL, FALSE, kFilter));
  EXPECT_TRUE(notify.Stop());
}

// The window side: every notification's path, copied as it arrives.
const UINT kChangeMessage = WM_APP + 7;
std::string g_posted;
int g_postedCount = 0;

LRESULT CALLBACK ReceiverProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  if (msg == kChangeMessage) {
    g_posted = (const char*)lParam;
    g_postedCount++;
    return 0;
  }
  return DefWindowProcA(hWnd, msg, wParam, lParam);
}

TEST(FileChangeNotify, WorkerPostsToAWindowForEachChange) {
  WNDCLASSA wc = {};
  wc.lpfnWndProc = ReceiverProc;
  wc.hInstance = GetModuleHandleA(NULL);
  wc.lpszClassName = "VrkChangeReceiver";
  RegisterClassA(&wc);
  HWND hWnd =
      CreateWindowA("VrkChangeReceiver", "", 0, 0, 0, 0, 0, HWND_MESSAGE, NULL, wc.hInstance, NULL);
  ASSERT_TRUE(hWnd != NULL);

  TempDir dir;
  g_postedCount = 0;
  {
    VFileChangeNotify notify;
    ASSERT_TRUE(notify.Run(hWnd, kChangeMessage, dir.Path().c_str(), FALSE, kFilter));
    Sleep(200); // the worker sets up its watch on its own thread
    ASSERT_TRUE(TempDir::WriteBytes(dir.File("created.txt"), "c"));
    ASSERT_TRUE(WaitFor([] { return g_postedCount >= 1; }));
    EXPECT_EQ(dir.Path(), g_posted);

    Sleep(100);
    WaitFor([] { return false; });
    int before = g_postedCount;
    ASSERT_TRUE(DeleteFileA(dir.File("created.txt").c_str()));
    EXPECT_TRUE(WaitFor([&] { return g_postedCount > before; }));
    EXPECT_TRUE(notify.Stop());
    EXPECT_TRUE(notify.Stop());
  }
  // After Stop the worker is gone: nothing more arrives.
  WaitFor([] { return false; });
  int after = g_postedCount;
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("late.txt"), "l"));
  Sleep(300);
  WaitFor([] { return false; });
  EXPECT_EQ(after, g_postedCount);
  DestroyWindow(hWnd);
}

volatile LONG g_calls = 0;
DWORD g_callbackThread = 0;
char g_calledPath[MAX_PATH];

int __cdecl OnChange(const char* pszPath) {
  lstrcpynA(g_calledPath, pszPath, MAX_PATH);
  g_callbackThread = GetCurrentThreadId();
  InterlockedIncrement(&g_calls);
  return 0;
}

TEST(FileChangeNotify, WorkerCallsTheCallbackOnItsOwnThread) {
  TempDir dir;
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("existing.txt"), "e"));
  g_calls = 0;
  VFileChangeNotify notify;
  ASSERT_TRUE(notify.Run(NULL, (UINT_PTR)&OnChange, dir.Path().c_str(), TRUE, kFilter));
  Sleep(200); // the worker sets up its watch on its own thread
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("added.txt"), "added"));
  ASSERT_TRUE(WaitFor([] { return g_calls >= 1; }));
  EXPECT_EQ(dir.Path(), std::string(g_calledPath));
  EXPECT_NE(GetCurrentThreadId(), g_callbackThread);

  // A change in a subfolder counts when the subtree is watched.
  ASSERT_TRUE(CreateDirectoryA(dir.File("sub").c_str(), NULL));
  Sleep(100);
  LONG before = g_calls;
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("sub\\deep.txt"), "d"));
  EXPECT_TRUE(WaitFor([&] { return g_calls > before; }));

  EXPECT_TRUE(notify.Stop());
  LONG after = g_calls;
  ASSERT_TRUE(DeleteFileA(dir.File("existing.txt").c_str()));
  Sleep(300);
  EXPECT_EQ(after, g_calls);
}

TEST(FileChangeNotify, ServedOnAMissingFolderEndsAndStopsCleanly) {
  TempDir dir;
  VFileChangeNotify notify;
  // The worker finds no folder and ends; Stop still joins it.
  EXPECT_TRUE(notify.Run(NULL, 0, dir.File("missing").c_str(), FALSE, kFilter));
  Sleep(50);
  EXPECT_TRUE(notify.Stop());
  EXPECT_FALSE(notify.Run(NULL, 0, NULL, FALSE, kFilter));
}

} // namespace
