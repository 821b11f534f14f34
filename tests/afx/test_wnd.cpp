// CWnd: creation, the handle maps (permanent and temporary), subclassing,
// message-map dispatch through base classes, the current-message record and
// Default. (The wizard application's test runs the thread's message loop to
// its end; VRK's status bar test, its idle updates.)
#include <afxwin.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "msgbox_catcher.h"

namespace {

const UINT WM_BASE_ONLY = WM_APP + 1;
const UINT WM_OVERRIDDEN = WM_APP + 2;
const UINT WM_NESTED = WM_APP + 3;

// Three levels: the message handled only by the first class must be found
// from the third; the one both map is taken from the most derived.
class CLevel1 : public CWnd {
public:
  std::vector<std::string> log;
  afx_msg LRESULT OnBaseOnly(WPARAM w, LPARAM l) {
    log.push_back("L1.BaseOnly");
    return (LRESULT)(w + l);
  }
  afx_msg LRESULT OnOverridden(WPARAM, LPARAM) {
    log.push_back("L1.Overridden");
    return 1;
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CLevel1, CWnd)
ON_MESSAGE(WM_BASE_ONLY, &CLevel1::OnBaseOnly)
ON_MESSAGE(WM_OVERRIDDEN, &CLevel1::OnOverridden)
END_MESSAGE_MAP()

class CLevel2 : public CLevel1 {
public:
  afx_msg LRESULT OnOverridden2(WPARAM, LPARAM) {
    log.push_back("L2.Overridden");
    return 2;
  }
  afx_msg void OnSize(UINT nType, int cx, int cy) {
    log.push_back("L2.Size " + std::to_string(nType) + " " + std::to_string(cx) + " " +
                  std::to_string(cy));
  }
  afx_msg void OnLButtonDown(UINT nFlags, CPoint point) {
    log.push_back("L2.LButtonDown " + std::to_string(nFlags) + " " + std::to_string(point.x) + " " +
                  std::to_string(point.y));
  }
  afx_msg BOOL OnQueryNewPalette() {
    log.push_back("L2.QueryNewPalette");
    return TRUE;
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CLevel2, CLevel1)
ON_MESSAGE(WM_OVERRIDDEN, &CLevel2::OnOverridden2)
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
ON_WM_QUERYNEWPALETTE()
END_MESSAGE_MAP()

class CLevel3 : public CLevel2 {
public:
  int nCreates = 0;
  int nDestroys = 0;
  MSG seen = {};
  MSG afterNested = {};
  afx_msg int OnCreate(LPCREATESTRUCT lpcs) {
    nCreates++;
    createName = lpcs->lpszName;
    return CLevel2::OnCreate(lpcs);
  }
  afx_msg void OnDestroy() {
    nDestroys++;
    CLevel2::OnDestroy();
  }
  // Records the current message, sends another one to itself and records
  // the current message again: each send must restore its caller's record.
  afx_msg LRESULT OnNested(WPARAM w, LPARAM l) {
    seen = *AfxGetCurrentMessage();
    if (w == 1) SendMessage(WM_NESTED, 2, l + 1);
    afterNested = *AfxGetCurrentMessage();
    return 0;
  }
  std::string createName;
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CLevel3, CLevel2)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_MESSAGE(WM_NESTED, &CLevel3::OnNested)
END_MESSAGE_MAP()

// Refuses its creation by returning -1, or by throwing.
class CRefuseCreate : public CWnd {
public:
  bool bThrow = false;
  afx_msg int OnCreate(LPCREATESTRUCT) {
    if (bThrow) AfxThrowResourceException();
    return -1;
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CRefuseCreate, CWnd)
ON_WM_CREATE()
END_MESSAGE_MAP()

TEST(WndCreate, CreateExAttachesBeforeWmCreateDestroyDetachesOnCreateCanRefuse) {
  CLevel3 wnd;
  ASSERT_TRUE(wnd.CreateEx(0, NULL, "Level three", WS_POPUP, 10, 20, 100, 80, NULL, NULL));
  EXPECT_EQ(1, wnd.nCreates);
  EXPECT_EQ("Level three", wnd.createName);
  EXPECT_EQ(&wnd, CWnd::FromHandle(wnd.m_hWnd));
  // The window runs afx's procedure; the default class keeps DefWindowProc behind it.
  EXPECT_EQ((LONG_PTR)AfxGetAfxWndProc(), ::GetWindowLongPtr(wnd.m_hWnd, GWLP_WNDPROC));
  EXPECT_EQ(1, ::SendMessage(wnd.m_hWnd, WM_QUERYAFXWNDPROC, 0, 0));
  TCHAR szClass[64];
  ::GetClassName(wnd.m_hWnd, szClass, 64);
  EXPECT_STREQ(AFX_WND, szClass);

  HWND hWnd = wnd.m_hWnd;
  EXPECT_TRUE(wnd.DestroyWindow());
  EXPECT_EQ(1, wnd.nDestroys);
  EXPECT_EQ(NULL, wnd.m_hWnd);
  EXPECT_FALSE(::IsWindow(hWnd));
  EXPECT_EQ(NULL, CWnd::FromHandlePermanent(hWnd));

  // OnCreate refusing by returning -1, or by throwing: no window, no report.
  MsgBoxCatcher catcher;
  for (bool bThrow : {false, true}) {
    CRefuseCreate refusing;
    refusing.bThrow = bThrow;
    EXPECT_FALSE(refusing.CreateEx(0, NULL, "x", WS_POPUP, 0, 0, 10, 10, NULL, NULL));
    EXPECT_EQ(NULL, refusing.m_hWnd);
  }
  EXPECT_EQ(0u, catcher.Count()); // a failed creation is not reported
}

TEST(WndHandleMap, TemporariesLiveUntilIdleAttachMakesOnePermanent) {
  HWND hWnd = ::CreateWindow("STATIC", "plain", WS_POPUP, 0, 0, 50, 50, NULL, NULL, NULL, NULL);
  ASSERT_TRUE(hWnd != NULL);
  EXPECT_EQ(NULL, CWnd::FromHandle(NULL));
  CWnd* pTemp = CWnd::FromHandle(hWnd);
  ASSERT_TRUE(pTemp != NULL);
  EXPECT_EQ(hWnd, pTemp->m_hWnd);
  EXPECT_EQ(pTemp, CWnd::FromHandle(hWnd)); // the same temporary object
  EXPECT_EQ(NULL, CWnd::FromHandlePermanent(hWnd));

  // Locked, idle time keeps the temporaries.
  CWinThread thread;
  AfxLockTempMaps();
  thread.OnIdle(1);
  EXPECT_EQ(pTemp, CWnd::FromHandle(hWnd));
  EXPECT_EQ(hWnd, pTemp->m_hWnd);
  EXPECT_TRUE(AfxUnlockTempMaps(TRUE)); // the last unlock deletes them
  EXPECT_TRUE(::IsWindow(hWnd));        // the temporary's handle was cleared first

  CWnd* pAgain = CWnd::FromHandle(hWnd);
  EXPECT_EQ(hWnd, pAgain->m_hWnd);
  thread.OnIdle(0);
  EXPECT_TRUE(::IsWindow(hWnd));
  EXPECT_FALSE(AfxUnlockTempMaps()); // unbalanced: nothing to unlock

  // Attach makes one permanent object, without subclassing; Detach undoes it.
  CWnd wnd1, wnd2;
  EXPECT_FALSE(wnd1.Attach(NULL));
  ASSERT_TRUE(wnd1.Attach(hWnd));
  EXPECT_FALSE(wnd2.Attach(hWnd));
  EXPECT_EQ(&wnd1, CWnd::FromHandlePermanent(hWnd));
  EXPECT_NE((LONG_PTR)AfxGetAfxWndProc(), ::GetWindowLongPtr(hWnd, GWLP_WNDPROC));
  EXPECT_EQ(hWnd, wnd1.Detach());
  EXPECT_EQ(NULL, CWnd::FromHandlePermanent(hWnd));
  ::DestroyWindow(hWnd);
}

struct LookupParam {
  HWND hWnd;
  CWnd* pPermanent;
  CWnd* pTemp;
};

DWORD WINAPI OtherThreadLookup(LPVOID p) {
  LookupParam* pp = (LookupParam*)p;
  pp->pPermanent = CWnd::FromHandlePermanent(pp->hWnd);
  pp->pTemp = CWnd::FromHandle(pp->hWnd);
  AfxLockTempMaps();
  AfxUnlockTempMaps(TRUE);
  return 0;
}

TEST(WndHandleMap, MapsArePerThread) {
  CWnd wnd;
  ASSERT_TRUE(wnd.CreateEx(0, NULL, "t", WS_POPUP, 0, 0, 10, 10, NULL, NULL));
  LookupParam param = {wnd.m_hWnd, &wnd, NULL};
  HANDLE hThread = ::CreateThread(NULL, 0, &OtherThreadLookup, &param, 0, NULL);
  ::WaitForSingleObject(hThread, INFINITE);
  ::CloseHandle(hThread);
  EXPECT_EQ(NULL, param.pPermanent);
  EXPECT_NE(&wnd, param.pTemp);
  EXPECT_TRUE(::IsWindow(wnd.m_hWnd));
  wnd.DestroyWindow();
}

TEST(WndDispatch, HandlersAreFoundThroughBaseClassMaps) {
  CLevel3 wnd;
  ASSERT_TRUE(wnd.CreateEx(0, NULL, "d", WS_POPUP, 0, 0, 100, 80, NULL, NULL));
  wnd.log.clear();
  EXPECT_EQ(7, wnd.SendMessage(WM_BASE_ONLY, 3, 4));
  EXPECT_EQ(2, wnd.SendMessage(WM_OVERRIDDEN));
  EXPECT_EQ(7, wnd.SendMessage(WM_BASE_ONLY, 3, 4)); // again, from the cache
  EXPECT_EQ(2, wnd.SendMessage(WM_OVERRIDDEN));
  // Parameters unpack as signed.
  wnd.SendMessage(WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(640, 480));
  wnd.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(-5, -7));
  std::vector<std::string> expected = {"L1.BaseOnly",       "L2.Overridden",
                                       "L1.BaseOnly",       "L2.Overridden",
                                       "L2.Size 2 640 480", "L2.LButtonDown 5 -5 -7"};
  EXPECT_EQ(expected, wnd.log);
  EXPECT_EQ(TRUE, wnd.SendMessage(WM_QUERYNEWPALETTE));
  EXPECT_EQ("L2.QueryNewPalette", wnd.log.back());

  // A base-class object has its own map: the same message reaches L1's handler.
  CLevel1 base;
  ASSERT_TRUE(base.CreateEx(0, NULL, "b", WS_POPUP, 0, 0, 10, 10, NULL, NULL));
  EXPECT_EQ(1, base.SendMessage(WM_OVERRIDDEN));
  EXPECT_EQ(std::vector<std::string>{"L1.Overridden"}, base.log);
  base.DestroyWindow();
  wnd.DestroyWindow();
}

TEST(WndDispatch, CurrentMessageIsRestoredAfterANestedSend) {
  CLevel3 wnd;
  ASSERT_TRUE(wnd.CreateEx(0, NULL, "n", WS_POPUP, 0, 0, 10, 10, NULL, NULL));
  wnd.SendMessage(WM_NESTED, 1, 100);
  // The inner send (wParam 2) recorded itself last in 'seen'; the outer handler's
  // record after the inner send is its own again.
  EXPECT_EQ((UINT)WM_NESTED, wnd.seen.message);
  EXPECT_EQ(2u, wnd.seen.wParam);
  EXPECT_EQ(101, wnd.seen.lParam);
  EXPECT_EQ(wnd.m_hWnd, wnd.afterNested.hwnd);
  EXPECT_EQ(1u, wnd.afterNested.wParam);
  EXPECT_EQ(100, wnd.afterNested.lParam);
  wnd.DestroyWindow();
}

class CTextSpy : public CWnd {
public:
  std::vector<std::string> texts;
  afx_msg LRESULT OnSetText(WPARAM, LPARAM lParam) {
    texts.push_back((LPCTSTR)lParam);
    return Default(); // the original procedure still stores the text
  }
  int nPreSubclass = 0;
  virtual void PreSubclassWindow() { nPreSubclass++; }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CTextSpy, CWnd)
ON_MESSAGE(WM_SETTEXT, &CTextSpy::OnSetText)
END_MESSAGE_MAP()

// Bad handles fail; a subclassed child routes through the map until
// unsubclassed, and destroying its parent detaches the object.
TEST(WndSubclass, SubclassRoutesThroughTheMapUnsubclassRestoresParentDestructionDetaches) {
  CWnd parent;
  ASSERT_TRUE(parent.CreateEx(0, NULL, "p", WS_POPUP, 0, 0, 100, 100, NULL, NULL));
  HWND hEdit =
      ::CreateWindow("EDIT", "", WS_CHILD, 0, 0, 50, 20, parent.m_hWnd, (HMENU)101, NULL, NULL);
  LONG_PTR pfnOriginal = ::GetWindowLongPtr(hEdit, GWLP_WNDPROC);
  CTextSpy spy;
  EXPECT_FALSE(spy.SubclassDlgItem(999, &parent));
  EXPECT_FALSE(spy.SubclassWindow(NULL));
  EXPECT_FALSE(spy.SubclassWindow((HWND)0x12345678)); // not a window
  ASSERT_TRUE(spy.SubclassDlgItem(101, &parent));
  EXPECT_EQ(1, spy.nPreSubclass);
  EXPECT_EQ((LONG_PTR)AfxGetAfxWndProc(), ::GetWindowLongPtr(hEdit, GWLP_WNDPROC));
  EXPECT_EQ((WNDPROC)pfnOriginal, spy.m_pfnSuper);
  EXPECT_EQ(&spy, parent.GetDlgItem(101));

  parent.SetDlgItemText(101, "hello");
  EXPECT_EQ(std::vector<std::string>{"hello"}, spy.texts);
  TCHAR sz[32];
  ::GetWindowText(hEdit, sz, 32);
  EXPECT_STREQ("hello", sz);

  EXPECT_EQ(hEdit, spy.UnsubclassWindow());
  EXPECT_EQ(pfnOriginal, ::GetWindowLongPtr(hEdit, GWLP_WNDPROC));
  EXPECT_EQ(NULL, spy.m_hWnd);
  EXPECT_EQ(NULL, CWnd::FromHandlePermanent(hEdit));
  ::SetWindowText(hEdit, "unseen");
  EXPECT_EQ(1u, spy.texts.size());

  ASSERT_TRUE(spy.SubclassWindow(hEdit));
  parent.DestroyWindow();
  EXPECT_EQ(NULL, spy.m_hWnd);
}

} // namespace
