// Text, objects and ready blocks on the real clipboard: what other readers
// find there, the owner window, the clipboard held by someone else, and an
// object put by one process and read back by another.
#include <vrk_global.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "child_process.h"
#include "exception_probe.h"
#include "global_testing.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>

namespace {

UINT ShapeFormat() { return RegisterClipboardFormatA("VRK test shape"); }

bool OpenClipboardRetry() {
  for (int i = 0; i < 50; i++) {
    if (OpenClipboard(NULL)) return true;
    Sleep(20);
  }
  return false;
}

std::string ClipboardBytes(UINT cf) {
  if (!OpenClipboardRetry()) return "<no open>";
  HANDLE h = GetClipboardData(cf);
  std::string s = h != NULL ? AllBytes((HGLOBAL)h) : "<none>";
  CloseClipboard();
  return s;
}

std::string ClipboardText() { return ClipboardBytes(CF_TEXT).c_str(); }

// Empties the clipboard, then puts the text there unless it is NULL.
void PutRawText(const char* psz) {
  ASSERT_TRUE(OpenClipboardRetry());
  EmptyClipboard();
  if (psz != NULL) SetClipboardData(CF_TEXT, BlockOf(std::string(psz, strlen(psz) + 1)));
  CloseClipboard();
}

// Whether an object read back is MakeShape's (named name); deletes it.
bool IsOuterShape(CObject* ob, const char* name = "outer") {
  std::unique_ptr<CObject> owner(ob);
  const CGlShape* shape = (const CGlShape*)ob;
  return ob != NULL && ob->GetRuntimeClass() == RUNTIME_CLASS(CGlShape) && shape->name == name &&
         shape->value == -7 && shape->child != NULL &&
         shape->child->GetRuntimeClass() == RUNTIME_CLASS(CGlCircle) &&
         shape->child->name == "inner";
}

// This executable doubles as the other program: started with VRK_CLIP_CHILD
// set, it puts a shape before any test runs and exits with 0 on success.
struct ChildMode {
  ChildMode() {
    if (GetEnvironmentVariableA("VRK_CLIP_CHILD", NULL, 0) == 0) return;
    std::unique_ptr<CGlShape> shape(MakeShape());
    shape->name = "from the child";
    ExitProcess(VrkClipboardPutObject(ShapeFormat(), shape.get(), 0, 0, TRUE) ? 0 : 20);
  }
} g_childMode;

// An application whose main window opens the clipboard.
class ClipboardTest : public ::testing::Test {
protected:
  ClipboardTest() : m_app("VrkClipboardTest") {}
  void SetUp() override {
    ASSERT_TRUE(
        m_wnd.CreateEx(0, AfxRegisterWndClass(0), "main", WS_OVERLAPPED, 0, 0, 10, 10, NULL, NULL));
    m_app.m_pMainWnd = &m_wnd;
    PutRawText(NULL);
  }
  void TearDown() override {
    m_app.m_pMainWnd = NULL;
    m_wnd.DestroyWindow();
  }

  CWinApp m_app;
  CWnd m_wnd;
};

TEST_F(ClipboardTest, TextGoesThereAndBackAlsoIntoAClipboardTheCallerOpened) {
  CString str("clipboard text"), back;
  ASSERT_TRUE(VrkClipboardPutText(str, TRUE));
  EXPECT_EQ(m_wnd.m_hWnd, GetClipboardOwner());
  EXPECT_EQ("clipboard text", ClipboardText());
  EXPECT_TRUE(VrkClipboardGetText(back));
  EXPECT_STREQ("clipboard text", back);

  ASSERT_TRUE(OpenClipboard(m_wnd.m_hWnd));
  EmptyClipboard();
  SetClipboardData(ShapeFormat(), BlockOf("other"));
  CString beside("beside it");
  EXPECT_TRUE(VrkClipboardPutText(beside, FALSE));
  EXPECT_TRUE(CloseClipboard()); // still ours to close
  EXPECT_EQ("beside it", ClipboardText());
  EXPECT_EQ("other", ClipboardBytes(ShapeFormat()));

  // Empty text empties the clipboard and leaves it open.
  CString empty;
  EXPECT_TRUE(VrkClipboardPutText(empty, TRUE));
  EXPECT_EQ(m_wnd.m_hWnd, GetOpenClipboardWindow());
  EXPECT_TRUE(CloseClipboard());
  back = "kept";
  EXPECT_FALSE(VrkClipboardGetText(back));
  EXPECT_STREQ("kept", back);
}

TEST_F(ClipboardTest, AnObjectIsItsWriteObjectBytesReadAsTheClassAskedFor) {
  PutRawText("left there");
  CGlShape* shape = MakeShape();
  const std::string expected = WriteObjectBytes(shape);
  // Without emptying, the text already there stays; grown in steps of 64.
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, 64, 7, FALSE));
  EXPECT_EQ("left there", ClipboardText());
  std::string block = ClipboardBytes(ShapeFormat());
  EXPECT_EQ((expected.size() + 63) / 64 * 64, block.size());
  EXPECT_EQ(expected + std::string(block.size() - expected.size(), '\0'), block);
  CString text("the shape, as text"), none;
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, text, 0, 0, TRUE));
  EXPECT_EQ("the shape, as text", ClipboardText());
  EXPECT_TRUE(IsOuterShape(VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CGlShape))));
  // A class the block does not hold (a kind of shape) is the archive's error.
  EXPECT_EQ(CArchiveException::badClass,
            ArchiveCause([] { VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CGlCircle)); }));
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, none, 0, 0, TRUE));
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_TEXT));
  delete shape;
  // Nothing to serialize leaves the clipboard alone; a ready block is placed as it is.
  CMemFile plain; // known at run time, not serializable
  EXPECT_FALSE(VrkClipboardPutObject(ShapeFormat(), &plain, 0, 0, TRUE));
  EXPECT_TRUE(IsClipboardFormatAvailable(ShapeFormat()));
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), BlockOf("raw bytes"), TRUE));
  EXPECT_EQ("raw bytes", ClipboardBytes(ShapeFormat()));
}

TEST_F(ClipboardTest, AClipboardHeldElsewhereIsReportedNotWaitedFor) {
  PutRawText("held");
  std::unique_ptr<CGlShape> shape(MakeShape());
  std::atomic<int> state{0}; // 1 held by another thread (-1 it could not), 2 let go
  std::thread holder([&] {
    state = OpenClipboardRetry() ? 1 : -1;
    while (state != 2)
      Sleep(5);
    CloseClipboard();
  });
  while (state == 0)
    Sleep(5);
  EXPECT_EQ(1, state.load());
  CString str("refused"), back;
  EXPECT_FALSE(VrkClipboardPutText(str, TRUE));
  EXPECT_FALSE(VrkClipboardGetText(back));
  EXPECT_FALSE(VrkClipboardPutObject(ShapeFormat(), shape.get(), 0, 0, TRUE));
  EXPECT_EQ(NULL, VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CGlShape)));
  state = 2;
  holder.join();
  EXPECT_EQ("held", ClipboardText());
}

TEST_F(ClipboardTest, AnObjectPutByAnotherProcessIsReadHere) {
  SetEnvironmentVariableA("VRK_CLIP_CHILD", "put");
  const DWORD dwCode = RunProcess("\"" + ExeDir() + "\\vrk_files_clipboard.exe\"");
  SetEnvironmentVariableA("VRK_CLIP_CHILD", NULL);
  ASSERT_EQ(0u, dwCode);
  EXPECT_TRUE(IsOuterShape(VrkClipboardGetObject(ShapeFormat(), RUNTIME_CLASS(CGlShape)),
                           "from the child"));
}

} // namespace
