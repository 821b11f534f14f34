// COleDataSource on the real OLE clipboard and COleDataObject reading it:
// formats in order and bytes through AttachClipboard, the same data read by
// another process, the source's life as the clipboard takes and flushes it.
#include <afxole.h>

#include <gtest/gtest.h>

#include "ole_testing.h"

#include <string>
#include <vector>

namespace {

const char kText[] = "ole clip text";
const char kBlob[] = "\x01\x02\x00\x03 blob";
const size_t kBlobSize = sizeof(kBlob) - 1;

CLIPFORMAT BlobFormat() { return (CLIPFORMAT)RegisterClipboardFormatA("VRK afx ole clip test"); }

// Another process may hold the clipboard for a moment.
bool OpenClipboardRetry() {
  for (int i = 0; i < 50; i++) {
    if (OpenClipboard(NULL)) return true;
    Sleep(20);
  }
  return false;
}

// The Win32 clipboard's bytes in a format, up to the first zero for text.
std::string Win32ClipboardBytes(UINT cf, bool bText) {
  if (!OpenClipboardRetry()) return "<no open>";
  HANDLE h = GetClipboardData(cf);
  std::string s = BlockBytes((HGLOBAL)h);
  CloseClipboard();
  if (bText && h != NULL) s = s.c_str();
  return s;
}

// Where a source says it died: never in a test's own frame, since the
// clipboard may let a source go after the test that made it has returned
// (TearDown empties it), when a flag there would be a dead stack slot. Such a
// write once overwrote a return address on the 64-bit build.
bool g_bDeleted = true;

// A source that says when it dies.
class CFlagSource : public COleDataSource {
public:
  explicit CFlagSource(bool* pDeleted) : m_pDeleted(pDeleted) { *pDeleted = false; }
  ~CFlagSource() override { *m_pDeleted = true; }

private:
  bool* m_pDeleted;
};

CFlagSource* MakeSource(bool* pDeleted, const char* pszText = kText) {
  CFlagSource* pSource = new CFlagSource(pDeleted);
  pSource->CacheGlobalData(CF_TEXT, MakeBlock(std::string(pszText, strlen(pszText) + 1)));
  pSource->CacheGlobalData(BlobFormat(), MakeBlock(std::string(kBlob, kBlobSize)));
  return pSource;
}

// This executable doubles as the "other program": started with VRK_OLE_CHILD
// set, it does one job before the tests would run and exits with a code the
// parent checks.
int RunChild(const char* pszJob) {
  if (strcmp(pszJob, "read") == 0) {
    // Plain Win32, as any program would: the parent renders on request.
    if (Win32ClipboardBytes(CF_TEXT, true) != kText) return 10;
    if (Win32ClipboardBytes(BlobFormat(), false) != std::string(kBlob, kBlobSize)) return 11;
    return 0;
  }
  const bool bTerm = strcmp(pszJob, "put-term") == 0;
  if (!bTerm && strcmp(pszJob, "put-exit") != 0) return 2;
  if (!AfxOleInit()) return 3;
  COleDataSource* pSource = new COleDataSource;
  const char* pszText = bTerm ? "left by AfxOleTerm" : "left at thread end";
  pSource->CacheGlobalData(CF_TEXT, MakeBlock(std::string(pszText, strlen(pszText) + 1)));
  pSource->SetClipboard();
  if (bTerm) AfxOleTerm();
  return 0;
}

struct ChildMode {
  ChildMode() {
    char szJob[32];
    if (GetEnvironmentVariableA("VRK_OLE_CHILD", szJob, sizeof(szJob)) != 0)
      ExitProcess((UINT)RunChild(szJob));
  }
} g_childMode;

// Waits for h while this thread keeps serving messages, as the clipboard
// asks the data's owner to render and tells an earlier owner it lost the
// clipboard; false after a minute.
bool WaitServing(HANDLE h) {
  const DWORD dwStart = GetTickCount();
  while (MsgWaitForMultipleObjects(1, &h, FALSE, 1000, QS_ALLINPUT) != WAIT_OBJECT_0) {
    MSG msg;
    while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
      DispatchMessageA(&msg);
    if (GetTickCount() - dwStart > 60000) return false;
  }
  return true;
}

// Runs this executable as a child doing pszJob while this thread keeps
// serving messages; its exit code.
DWORD RunChildAndPump(const char* pszJob) {
  char szExe[MAX_PATH];
  GetModuleFileNameA(NULL, szExe, MAX_PATH);
  std::string cmd = std::string("\"") + szExe + "\"";
  SetEnvironmentVariableA("VRK_OLE_CHILD", pszJob);
  STARTUPINFOA si = {};
  si.cb = sizeof(si);
  PROCESS_INFORMATION pi = {};
  const BOOL bStarted = CreateProcessA(szExe, &cmd[0], NULL, NULL, FALSE, 0, NULL, NULL, &si, &pi);
  SetEnvironmentVariableA("VRK_OLE_CHILD", NULL);
  if (!bStarted) return 0xDEAD;
  if (!WaitServing(pi.hProcess)) TerminateProcess(pi.hProcess, 0xBAD);
  DWORD dwCode = 0xBAD;
  GetExitCodeProcess(pi.hProcess, &dwCode);
  CloseHandle(pi.hThread);
  CloseHandle(pi.hProcess);
  return dwCode;
}

class OleClipboardTest : public ::testing::Test {
protected:
  static void SetUpTestSuite() { ASSERT_TRUE(AfxOleInit()); }
  void SetUp() override { g_bDeleted = true; }
  void TearDown() override {
    // Leave nothing of ours behind for the next test: emptying the clipboard
    // lets the source go (another process may hold it open for a moment).
    HRESULT hr = OleSetClipboard(NULL);
    for (int i = 0; i < 50 && hr == CLIPBRD_E_CANT_OPEN; i++) {
      Sleep(20);
      hr = OleSetClipboard(NULL);
    }
    EXPECT_EQ(S_OK, hr);
    EXPECT_TRUE(g_bDeleted) << "a source outlived the clipboard";
  }
};

} // namespace

TEST_F(OleClipboardTest, ReadBackHereAndInAnotherProcessThenFlushed) {
  CFlagSource* pSource = MakeSource(&g_bDeleted);
  pSource->SetClipboard();
  EXPECT_EQ(pSource, COleDataSource::GetClipboardOwner());
  COleDataObject data;
  ASSERT_TRUE(data.AttachClipboard());
  EXPECT_EQ((std::vector<CLIPFORMAT>{CF_TEXT, BlobFormat()}), Formats(data));
  HGLOBAL h = data.GetGlobalData(BlobFormat());
  EXPECT_EQ(std::string(kBlob, kBlobSize), BlockBytes(h));
  GlobalFree(h);
  const CLIPFORMAT cfMissing = (CLIPFORMAT)RegisterClipboardFormatA("VRK afx ole not there");
  EXPECT_FALSE(data.IsDataAvailable(cfMissing));
  EXPECT_EQ((HGLOBAL)NULL, data.GetGlobalData(cfMissing));
  data.Release();
  EXPECT_FALSE(g_bDeleted);               // still on the clipboard
  EXPECT_EQ(0u, RunChildAndPump("read")); // another process reads the same

  // Flushing renders everything and lets the source go; the data stays for
  // every reader.
  COleDataSource::FlushClipboard();
  EXPECT_TRUE(g_bDeleted);
  EXPECT_EQ((COleDataSource*)NULL, COleDataSource::GetClipboardOwner());
  EXPECT_EQ(kText, Win32ClipboardBytes(CF_TEXT, true));
  EXPECT_EQ(std::string(kBlob, kBlobSize), Win32ClipboardBytes(BlobFormat(), false));
}

TEST_F(OleClipboardTest, ABitmapCachedAsGlobalDataReachesTheClipboard) {
  HDC hdc = GetDC(NULL);
  HBITMAP hbm = CreateCompatibleBitmap(hdc, 9, 4);
  ReleaseDC(NULL, hdc);
  COleDataSource* pSource = new COleDataSource;
  pSource->CacheGlobalData(CF_BITMAP, (HGLOBAL)hbm);
  pSource->SetClipboard();

  ASSERT_TRUE(OpenClipboardRetry());
  HBITMAP hClip = (HBITMAP)GetClipboardData(CF_BITMAP);
  BITMAP bm = {};
  const int nGot = hClip != NULL ? GetObject(hClip, sizeof(bm), &bm) : 0;
  CloseClipboard();
  EXPECT_EQ((int)sizeof(bm), nGot);
  EXPECT_EQ(9, bm.bmWidth);
  EXPECT_EQ(4, bm.bmHeight);
}

TEST_F(OleClipboardTest, DataOutlivesTheProcessThatPutIt) {
  EXPECT_EQ(0u, RunChildAndPump("put-term"));
  EXPECT_EQ("left by AfxOleTerm", Win32ClipboardBytes(CF_TEXT, true));
  EXPECT_EQ(0u, RunChildAndPump("put-exit"));
  EXPECT_EQ("left at thread end", Win32ClipboardBytes(CF_TEXT, true));
}

DWORD WINAPI PutFromWorker(LPVOID) {
  if (AfxOleInit()) MakeSource(&g_bDeleted, "from a worker")->SetClipboard();
  return 0;
}

TEST_F(OleClipboardTest, AWorkerThreadsDataStaysWhenItEnds) {
  // No AfxOleTerm: the thread's end takes OLE down, flushing the data. The
  // flush is rendered by the OLE clipboard window, and Wine's OLE keeps one
  // such window per process, made by the thread that first placed or emptied
  // the OLE clipboard: this one. So the wait serves messages; one that does
  // not never sees the worker end, as this plain Win32 program shows (under
  // Wine 8 it prints "stuck"; without main's OleSetClipboard(NULL) the worker
  // makes the window itself and it prints "ended"):
  //
  //   struct Data : IDataObject { // offers no formats
  //     STDMETHODIMP QueryInterface(REFIID iid, void** pp) {
  //       *pp = iid == IID_IUnknown || iid == IID_IDataObject ? this : NULL;
  //       return *pp ? S_OK : E_NOINTERFACE;
  //     }
  //     STDMETHODIMP_(ULONG) AddRef() { return 2; }
  //     STDMETHODIMP_(ULONG) Release() { return 1; }
  //     STDMETHODIMP EnumFormatEtc(DWORD, IEnumFORMATETC** pp) {
  //       return SHCreateStdEnumFmtEtc(0, NULL, pp);
  //     }
  //     // GetData, GetDataHere, QueryGetData, GetCanonicalFormatEtc, SetData,
  //     // DAdvise, DUnadvise and EnumDAdvise return E_NOTIMPL.
  //   } g_data;
  //   DWORD WINAPI Worker(void*) {
  //     OleInitialize(NULL);
  //     OleSetClipboard(&g_data);
  //     OleFlushClipboard(); // sends WM_RENDERALLFORMATS to main's window
  //     OleUninitialize();
  //     return 0;
  //   }
  //   int main() {
  //     OleInitialize(NULL);
  //     OleSetClipboard(NULL); // the process's clipboard window is made here
  //     HANDLE h = CreateThread(NULL, 0, Worker, NULL, 0, NULL);
  //     puts(WaitForSingleObject(h, 10000) == WAIT_OBJECT_0 ? "ended" : "stuck");
  //   }
  HANDLE hWorker = ::CreateThread(NULL, 0, &PutFromWorker, NULL, 0, NULL);
  ASSERT_TRUE(hWorker != NULL);
  EXPECT_TRUE(WaitServing(hWorker));
  CloseHandle(hWorker);
  EXPECT_TRUE(g_bDeleted);
  EXPECT_EQ("from a worker", Win32ClipboardBytes(CF_TEXT, true));
}
