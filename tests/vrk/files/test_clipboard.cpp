// Text, objects and ready blocks on the real clipboard: what other readers
// find there, the owner window, the clipboard held by someone else, and an
// object put by one process and read back by another.
#include <vrk_global.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "exception_probe.h"
#include "global_testing.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>

namespace {

UINT ShapeFormat() { return RegisterClipboardFormatA("VRK test shape"); }

// Another program may hold the clipboard for a moment.
bool OpenClipboardRetry() {
  for (int i = 0; i < 50; i++) {
    if (OpenClipboard(NULL)) return true;
    Sleep(20);
  }
  return false;
}

// The clipboard's whole block in a format, as any Win32 reader sees it.
std::string ClipboardBytes(UINT cf) {
  if (!OpenClipboardRetry()) return "<no open>";
  HANDLE h = GetClipboardData(cf);
  std::string s = h != NULL ? AllBytes((HGLOBAL)h) : "<none>";
  CloseClipboard();
  return s;
}

// The clipboard's text up to its terminator (the system may pad text blocks).
std::string ClipboardText() { return ClipboardBytes(CF_TEXT).c_str(); }

void EmptyTheClipboard() {
  ASSERT_TRUE(OpenClipboardRetry());
  EmptyClipboard();
  CloseClipboard();
}

void PutRawText(const char* psz) {
  ASSERT_TRUE(OpenClipboardRetry());
  EmptyClipboard();
  SetClipboardData(CF_TEXT, BlockOf(std::string(psz, strlen(psz) + 1)));
  CloseClipboard();
}

// Checks an object read back as MakeShape's, and deletes it.
void ExpectOuterShape(CObject* ob) {
  std::unique_ptr<CObject> owner(ob);
  ASSERT_NE((CObject*)NULL, ob);
  ASSERT_EQ(RUNTIME_CLASS(CGlShape), ob->GetRuntimeClass());
  CGlShape* shape = (CGlShape*)ob;
  EXPECT_STREQ("outer", shape->name);
  EXPECT_EQ(-7, shape->value);
  ASSERT_NE((CGlShape*)NULL, shape->child);
  EXPECT_EQ(RUNTIME_CLASS(CGlCircle), shape->child->GetRuntimeClass());
  EXPECT_STREQ("inner", shape->child->name);
}

// ---- The child process ---------------------------------------------------------------

// This executable doubles as the other program: started with VRK_CLIP_CHILD
// set, it does one job before any test runs and exits with a code the
// parent checks.
int RunChild(const char* pszJob) {
  if (strcmp(pszJob, "get") == 0) {
    CObject* ob = VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CGlShape));
    if (ob == NULL) return 10;
    const CGlShape* shape = (CGlShape*)ob;
    const bool bSame = shape->name == "outer" && shape->value == -7 && shape->child != NULL &&
                       shape->child->IsKindOf(RUNTIME_CLASS(CGlCircle)) &&
                       shape->child->name == "inner";
    delete ob;
    return bSame ? 0 : 11;
  }
  if (strcmp(pszJob, "put") == 0) {
    CGlShape* shape = MakeShape();
    shape->name = "from the child";
    const int bPut = VrkClipboardPutObject(ShapeFormat(), shape, 0, 0, TRUE);
    delete shape;
    return bPut ? 0 : 20;
  }
  return 2;
}

struct ChildMode {
  ChildMode() {
    char szJob[16];
    if (GetEnvironmentVariableA("VRK_CLIP_CHILD", szJob, sizeof(szJob)) != 0)
      ExitProcess((UINT)RunChild(szJob));
  }
} g_childMode;

DWORD RunChild(const char* pszJob, DWORD dwTimeout) {
  char szExe[MAX_PATH];
  GetModuleFileNameA(NULL, szExe, MAX_PATH);
  std::string cmd = std::string("\"") + szExe + "\"";
  SetEnvironmentVariableA("VRK_CLIP_CHILD", pszJob);
  STARTUPINFOA si = {};
  si.cb = sizeof(si);
  PROCESS_INFORMATION pi = {};
  const BOOL bStarted = CreateProcessA(szExe, &cmd[0], NULL, NULL, FALSE, 0, NULL, NULL, &si, &pi);
  SetEnvironmentVariableA("VRK_CLIP_CHILD", NULL);
  if (!bStarted) return 0xDEAD;
  if (WaitForSingleObject(pi.hProcess, dwTimeout) != WAIT_OBJECT_0)
    TerminateProcess(pi.hProcess, 0xBAD);
  DWORD dwCode = 0xBAD;
  GetExitCodeProcess(pi.hProcess, &dwCode);
  CloseHandle(pi.hThread);
  CloseHandle(pi.hProcess);
  return dwCode;
}

// ---- Fixture: an application whose main window opens the clipboard --------------------

class ClipboardTest : public ::testing::Test {
protected:
  ClipboardTest() : m_app("VrkClipboardTest") {}
  void SetUp() override {
    ASSERT_TRUE(
        m_wnd.CreateEx(0, AfxRegisterWndClass(0), "main", WS_OVERLAPPED, 0, 0, 10, 10, NULL, NULL));
    m_app.m_pMainWnd = &m_wnd;
    EmptyTheClipboard();
  }
  void TearDown() override {
    m_app.m_pMainWnd = NULL;
    m_wnd.DestroyWindow();
  }

  CWinApp m_app;
  CWnd m_wnd;
};

// Keeps the clipboard open on another thread while it lives.
class ClipboardHeldElsewhere {
public:
  ClipboardHeldElsewhere() : m_opened(false), m_ready(false), m_release(false) {
    m_thread = std::thread([this] {
      m_opened = OpenClipboardRetry();
      m_ready = true;
      while (!m_release)
        Sleep(5);
      if (m_opened) CloseClipboard();
    });
    while (!m_ready)
      Sleep(5);
  }
  ~ClipboardHeldElsewhere() {
    m_release = true;
    m_thread.join();
  }
  bool Held() const { return m_opened; }

private:
  std::atomic<bool> m_opened, m_ready, m_release;
  std::thread m_thread;
};

// ---- Text ---------------------------------------------------------------------------

TEST_F(ClipboardTest, TextGoesThereAndBack) {
  CString str("clipboard text");
  ASSERT_TRUE(VrkClipboardPutText(str, TRUE));
  EXPECT_EQ(m_wnd.m_hWnd, GetClipboardOwner());
  EXPECT_EQ("clipboard text", ClipboardText());
  CString back;
  EXPECT_TRUE(VrkClipboardGetText(back));
  EXPECT_STREQ("clipboard text", back);

  // Without text there, the string is left alone.
  EmptyTheClipboard();
  back = "kept";
  EXPECT_FALSE(VrkClipboardGetText(back));
  EXPECT_STREQ("kept", back);
}

TEST_F(ClipboardTest, TextJoinsAClipboardTheCallerOpened) {
  ASSERT_TRUE(OpenClipboard(m_wnd.m_hWnd));
  EmptyClipboard();
  SetClipboardData(ShapeFormat(), BlockOf("other"));
  CString str("beside it");
  EXPECT_TRUE(VrkClipboardPutText(str, FALSE));
  // Still ours to close.
  EXPECT_TRUE(CloseClipboard());
  EXPECT_EQ("beside it", ClipboardText());
  EXPECT_EQ("other", ClipboardBytes(ShapeFormat()));
}

TEST_F(ClipboardTest, EmptyTextEmptiesAndLeavesTheClipboardOpen) {
  PutRawText("old");
  CString empty;
  EXPECT_TRUE(VrkClipboardPutText(empty, TRUE));
  // The clipboard is still open on this thread: closing it succeeds.
  EXPECT_EQ(m_wnd.m_hWnd, GetOpenClipboardWindow());
  EXPECT_TRUE(CloseClipboard());
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_TEXT));
}

// ---- Objects ------------------------------------------------------------------------

TEST_F(ClipboardTest, AnObjectIsItsWriteObjectBytesInOneBlock) {
  CGlShape* shape = MakeShape();
  const std::string expected = WriteObjectBytes(shape);
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, 64, 7, TRUE));
  EXPECT_EQ(m_wnd.m_hWnd, GetClipboardOwner());
  // Grown in steps of 64, the tail zeroed.
  std::string block = ClipboardBytes(ShapeFormat());
  EXPECT_EQ((expected.size() + 63) / 64 * 64, block.size());
  EXPECT_EQ(expected, block.substr(0, expected.size()));
  EXPECT_EQ(std::string(block.size() - expected.size(), '\0'), block.substr(expected.size()));

  ExpectOuterShape(VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CGlShape)));
  delete shape;
}

TEST_F(ClipboardTest, ObjectsAreReadBackAsTheClassAskedForOrNotAtAll) {
  CGlShape* shape = MakeShape();
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, 0, 0, TRUE));
  delete shape;
  EXPECT_EQ(NULL, VrkClipboardGetObject(ShapeFormat(), NULL));
  EXPECT_EQ(NULL, VrkClipboardGetObject(RegisterClipboardFormatA("VRK test absent"),
                                        RUNTIME_CLASS(CGlShape)));
  // CObject is no serializable class: not even a read is tried, and the
  // clipboard is closed again.
  EXPECT_EQ(RUNTIME_CLASS(CNotSupportedException), ThrownClass([] {
              delete VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CObject));
            }));
  EXPECT_EQ(NULL, GetOpenClipboardWindow());
  // Another class under the format: the archive's error, and the clipboard
  // is closed again.
  EXPECT_EQ(CArchiveException::badClass,
            ArchiveCause([] { VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CGlOther)); }));
  EXPECT_EQ(NULL, GetOpenClipboardWindow());
  EXPECT_TRUE(OpenClipboard(NULL));
  CloseClipboard();
}

TEST_F(ClipboardTest, ObjectsWithTextAndWithoutEmptying) {
  PutRawText("left there");
  CGlShape* shape = MakeShape();
  // Without emptying, the text already there stays.
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, 0, 0, FALSE));
  EXPECT_EQ("left there", ClipboardText());
  EXPECT_TRUE(IsClipboardFormatAvailable(ShapeFormat()));

  CString text("the shape, as text");
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, text, 0, 0, TRUE));
  EXPECT_EQ("the shape, as text", ClipboardText());
  ExpectOuterShape(VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CGlShape)));

  // Empty text adds none.
  CString none;
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, none, 0, 0, TRUE));
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_TEXT));
  delete shape;
}

TEST_F(ClipboardTest, NothingToSerializeLeavesTheClipboardAlone) {
  PutRawText("unchanged");
  CGlPlain plain;
  CString text("text");
  EXPECT_FALSE(VrkClipboardPutObject(ShapeFormat(), &plain, 0, 0, TRUE));
  EXPECT_FALSE(VrkClipboardPutObject(ShapeFormat(), &plain, text, 0, 0, TRUE));
  EXPECT_FALSE(VrkClipboardPutObject(ShapeFormat(), (CObject*)NULL, 0, 0, TRUE));
  EXPECT_FALSE(VrkClipboardPutObject(ShapeFormat(), (void*)NULL, TRUE));
  EXPECT_EQ("unchanged", ClipboardText());
  EXPECT_FALSE(IsClipboardFormatAvailable(ShapeFormat()));
}

TEST_F(ClipboardTest, AReadyBlockIsPlacedAsItIs) {
  PutRawText("before");
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), BlockOf("raw bytes"), FALSE));
  EXPECT_EQ("raw bytes", ClipboardBytes(ShapeFormat()));
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), BlockOf("again"), TRUE));
  EXPECT_EQ("again", ClipboardBytes(ShapeFormat()));
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_TEXT));
}

TEST_F(ClipboardTest, AClipboardHeldElsewhereIsReportedNotWaitedFor) {
  PutRawText("held");
  CGlShape* shape = MakeShape();
  {
    ClipboardHeldElsewhere holder;
    ASSERT_TRUE(holder.Held());
    CString str("refused"), back;
    EXPECT_FALSE(VrkClipboardPutText(str, TRUE));
    EXPECT_FALSE(VrkClipboardGetText(back));
    EXPECT_FALSE(VrkClipboardPutObject(ShapeFormat(), shape, 0, 0, TRUE));
    HGLOBAL h = BlockOf("not placed");
    EXPECT_FALSE(VrkClipboardPutObject(ShapeFormat(), h, TRUE));
    GlobalFree(h); // refused before the clipboard took it: still the caller's
    EXPECT_EQ(NULL, VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CGlShape)));
  }
  delete shape;
  EXPECT_EQ("held", ClipboardText());
}

// ---- Between processes ------------------------------------------------------------------

TEST_F(ClipboardTest, AnotherProcessReadsTheObject) {
  CGlShape* shape = MakeShape();
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, 0, 0, TRUE));
  delete shape;
  EXPECT_EQ(0u, RunChild("get", 60000));
}

TEST_F(ClipboardTest, AnObjectPutByAnotherProcessIsReadHere) {
  ASSERT_EQ(0u, RunChild("put", 60000));
  CObject* ob = VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CGlShape));
  ASSERT_NE((CObject*)NULL, ob);
  EXPECT_STREQ("from the child", ((CGlShape*)ob)->name);
  ASSERT_NE((CGlShape*)NULL, ((CGlShape*)ob)->child);
  EXPECT_STREQ("inner", ((CGlShape*)ob)->child->name);
  delete ob;
}

} // namespace
