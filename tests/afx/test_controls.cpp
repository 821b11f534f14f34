// CCheckListBox against the real list box: clicks and the space bar, and the
// box it draws.
#include <afxcmn.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

const UINT IDC_CTRL = 300;

class CParentWnd : public CWnd {
public:
  std::vector<UINT> checkChanges;
  afx_msg void OnCheckChange() { checkChanges.push_back(LOWORD(GetCurrentMessage()->wParam)); }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CParentWnd, CWnd)
ON_CONTROL(CLBN_CHKCHANGE, IDC_CTRL, &CParentWnd::OnCheckChange)
END_MESSAGE_MAP()

class ControlTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(
        m_parent.CreateEx(0, NULL, "parent", WS_POPUP | WS_VISIBLE, 0, 0, 300, 300, NULL, NULL));
  }
  void TearDown() override { m_parent.DestroyWindow(); }
  CParentWnd m_parent;
};

TEST_F(ControlTest, CheckListClicksAndSpaceToggleAndNotify) {
  CCheckListBox list;
  ASSERT_TRUE(
      list.Create(WS_CHILD | WS_VISIBLE | LBS_NOTIFY, CRect(0, 0, 150, 150), &m_parent, IDC_CTRL));
  list.AddString("a");
  list.AddString("b");
  CRect rc;
  list.GetItemRect(1, &rc);
  CPoint ptBox(rc.left + 5, rc.CenterPoint().y);
  list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(ptBox.x, ptBox.y));
  list.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(ptBox.x, ptBox.y));
  EXPECT_EQ(1, list.GetCheck(1));
  EXPECT_EQ(0, list.GetCheck(0));
  list.SetCheckStyle(BS_AUTO3STATE);
  list.SetCaretIndex(1);
  list.SendMessage(WM_KEYDOWN, VK_SPACE, 0);
  EXPECT_EQ(2, list.GetCheck(1));
  list.SendMessage(WM_KEYDOWN, VK_SPACE, 0);
  EXPECT_EQ(0, list.GetCheck(1));
  list.Enable(1, FALSE);
  list.SendMessage(WM_KEYDOWN, VK_SPACE, 0);
  EXPECT_EQ(0, list.GetCheck(1)); // a disabled item keeps its state
  EXPECT_EQ(std::vector<UINT>({IDC_CTRL, IDC_CTRL, IDC_CTRL}), m_parent.checkChanges);
}

TEST_F(ControlTest, CheckListDrawsACheckedBox) {
  CCheckListBox list;
  ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 150, 150), &m_parent, IDC_CTRL));
  list.AddString("x");
  list.SetCheck(0, 1);
  CRect rc;
  list.GetItemRect(0, &rc);
  // Draw the item onto a memory bitmap through the owner-draw path.
  HDC hdcScreen = ::GetDC(NULL);
  HDC hdc = ::CreateCompatibleDC(hdcScreen);
  HBITMAP hbm = ::CreateCompatibleBitmap(hdcScreen, rc.Width(), rc.Height());
  ::ReleaseDC(NULL, hdcScreen);
  HGDIOBJ hOld = ::SelectObject(hdc, hbm);
  DRAWITEMSTRUCT dis = {};
  dis.CtlType = ODT_LISTBOX;
  dis.CtlID = IDC_CTRL;
  dis.itemID = 0;
  dis.itemAction = ODA_DRAWENTIRE;
  dis.hwndItem = list.m_hWnd;
  dis.hDC = hdc;
  dis.rcItem = CRect(0, 0, rc.Width(), rc.Height());
  // A checked box has the dark pixels of its mark; an unchecked one has not.
  auto DarkPixels = [&] {
    m_parent.SendMessage(WM_DRAWITEM, IDC_CTRL, (LPARAM)&dis);
    int n = 0;
    for (int y = 0; y < rc.Height(); y++)
      for (int x = 0; x < 16; x++) {
        COLORREF cr = ::GetPixel(hdc, x, y);
        n += GetRValue(cr) + GetGValue(cr) + GetBValue(cr) < 200;
      }
    return n;
  };
  const int nDark = DarkPixels();
  list.SetCheck(0, 0);
  const int nDarkUnchecked = DarkPixels();
  ::SelectObject(hdc, hOld);
  ::DeleteObject(hbm);
  ::DeleteDC(hdc);
  EXPECT_GT(nDark, nDarkUnchecked + 5); // the check mark
}

} // namespace
