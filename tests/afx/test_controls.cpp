// The control wrappers against real controls: edit selection and limits,
// list and combo item data and texts, the check list box's states, clicks
// and drawing, the spin button and the progress bar.
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

TEST_F(ControlTest, EditSelectionLimitAndLines) {
  CEdit edit;
  ASSERT_TRUE(edit.Create(WS_CHILD | ES_MULTILINE, CRect(0, 0, 200, 100), &m_parent, IDC_CTRL));
  edit.SetWindowText("first\r\nsecond line");
  EXPECT_EQ(2, edit.GetLineCount());
  edit.SetSel(2, 4);
  int nStart, nEnd;
  edit.GetSel(nStart, nEnd);
  EXPECT_EQ(2, nStart);
  EXPECT_EQ(4, nEnd);
  edit.ReplaceSel("XY");
  CString str;
  edit.GetWindowText(str);
  EXPECT_STREQ("fiXYt\r\nsecond line", str);
  TCHAR szLine[32];
  EXPECT_EQ(11, edit.GetLine(1, szLine, 32));
  szLine[11] = '\0';
  EXPECT_STREQ("second line", szLine);
  EXPECT_EQ(0, edit.GetLine(1, NULL, 32)); // no buffer: nothing
  TCHAR szShort[4];
  EXPECT_EQ(4, edit.GetLine(1, szShort, 4)); // bounded by the buffer
  edit.SetLimitText(8);
  EXPECT_EQ(8u, edit.GetLimitText());
  EXPECT_EQ(7, edit.LineIndex(1));
}

TEST_F(ControlTest, ListBoxItemsDataAndTexts) {
  CListBox list;
  ASSERT_TRUE(list.Create(WS_CHILD | LBS_HASSTRINGS | LBS_NOTIFY, CRect(0, 0, 100, 100), &m_parent,
                          IDC_CTRL));
  EXPECT_EQ(0, list.AddString("zero"));
  EXPECT_EQ(1, list.AddString("one"));
  EXPECT_EQ(1, list.InsertString(1, "between"));
  list.SetItemData(2, 0xDEADBEEF);
  EXPECT_EQ(0xDEADBEEFu, list.GetItemData(2));
  CString str;
  list.GetText(2, str);
  EXPECT_STREQ("one", str);
  EXPECT_EQ(1, list.FindStringExact(-1, "between"));
  EXPECT_EQ(LB_ERR, list.FindStringExact(-1, "absent"));
  list.SetCurSel(1);
  EXPECT_EQ(1, list.GetCurSel());
  EXPECT_EQ(2, list.DeleteString(0));
  EXPECT_EQ(2, list.GetCount());
}

TEST_F(ControlTest, ComboBoxItemsDataAndDropDown) {
  CComboBox combo;
  ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, CRect(0, 0, 100, 150), &m_parent,
                           IDC_CTRL));
  combo.AddString("apple");
  combo.AddString("pear");
  combo.SetItemDataPtr(1, &m_parent);
  EXPECT_EQ(&m_parent, combo.GetItemDataPtr(1));
  CString str;
  combo.GetLBText(1, str);
  EXPECT_STREQ("pear", str);
  combo.GetLBText(5, str);
  EXPECT_TRUE(str.IsEmpty());
  EXPECT_EQ(1, combo.SelectString(-1, "pe"));
  EXPECT_EQ(1, combo.GetCurSel());
  EXPECT_FALSE(combo.GetDroppedState());
  combo.ShowDropDown(TRUE);
  EXPECT_TRUE(combo.GetDroppedState());
  combo.ShowDropDown(FALSE);
  EXPECT_FALSE(combo.GetDroppedState());
  combo.SetWindowText("pear");
  EXPECT_TRUE(combo.SetEditSel(1, 3));
  DWORD dwSel = combo.GetEditSel();
  EXPECT_EQ(1, LOWORD(dwSel));
  EXPECT_EQ(3, HIWORD(dwSel));
}

TEST_F(ControlTest, CheckListKeepsStatesBesideTheProgramsItemData) {
  CCheckListBox list;
  ASSERT_TRUE(
      list.Create(WS_CHILD | WS_VISIBLE | LBS_NOTIFY, CRect(0, 0, 150, 150), &m_parent, IDC_CTRL));
  EXPECT_TRUE(list.GetStyle() & LBS_OWNERDRAWFIXED);
  list.AddString("a");
  list.AddString("b");
  list.AddString("c");
  list.SetItemData(0, 1234);
  list.SetCheck(0, 1);
  list.SetCheck(1, 2);
  list.Enable(2, FALSE);
  EXPECT_EQ(1234u, list.GetItemData(0)); // the program's data survives the check state
  EXPECT_EQ(1, list.GetCheck(0));
  EXPECT_EQ(2, list.GetCheck(1));
  EXPECT_EQ(0, list.GetCheck(2));
  EXPECT_FALSE(list.IsEnabled(2));
  EXPECT_TRUE(list.IsEnabled(1));
  EXPECT_EQ(0u, list.GetItemData(1));
  EXPECT_EQ(0, list.GetCheck(99)); // no such item
  list.SetCheck(99, 1);            // ignored
  list.DeleteString(0);
  EXPECT_EQ(2, list.GetCheck(0));
  list.ResetContent(); // frees every item's block
  EXPECT_EQ(0, list.GetCount());
}

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
  m_parent.SendMessage(WM_DRAWITEM, IDC_CTRL, (LPARAM)&dis);
  // A checked box has the dark pixels of its mark; an unchecked one has not.
  int nDark = 0;
  for (int y = 0; y < rc.Height(); y++)
    for (int x = 0; x < 16; x++) {
      COLORREF cr = ::GetPixel(hdc, x, y);
      if (GetRValue(cr) + GetGValue(cr) + GetBValue(cr) < 200) nDark++;
    }
  list.SetCheck(0, 0);
  m_parent.SendMessage(WM_DRAWITEM, IDC_CTRL, (LPARAM)&dis);
  int nDarkUnchecked = 0;
  for (int y = 0; y < rc.Height(); y++)
    for (int x = 0; x < 16; x++) {
      COLORREF cr = ::GetPixel(hdc, x, y);
      if (GetRValue(cr) + GetGValue(cr) + GetBValue(cr) < 200) nDarkUnchecked++;
    }
  ::SelectObject(hdc, hOld);
  ::DeleteObject(hbm);
  ::DeleteDC(hdc);
  EXPECT_GT(nDark, nDarkUnchecked + 5); // the check mark
}

TEST_F(ControlTest, SpinButtonAndProgressRangesAndPositions) {
  CSpinButtonCtrl spin;
  ASSERT_TRUE(spin.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 20, 30), &m_parent, IDC_CTRL));
  spin.SetRange(-5, 50);
  int nLower, nUpper;
  spin.GetRange(nLower, nUpper);
  EXPECT_EQ(-5, nLower);
  EXPECT_EQ(50, nUpper);
  spin.SetPos(12);
  EXPECT_EQ(12, LOWORD(spin.GetPos()));
  spin.SetRange32(-100000, 100000);
  spin.SetPos32(-70000);
  EXPECT_EQ(-70000, spin.GetPos32());
  CEdit buddy;
  ASSERT_TRUE(buddy.Create(WS_CHILD, CRect(30, 0, 80, 20), &m_parent, IDC_CTRL + 1));
  spin.SetBuddy(&buddy);
  EXPECT_EQ(&buddy, spin.GetBuddy());

  CProgressCtrl progress;
  ASSERT_TRUE(
      progress.Create(WS_CHILD | WS_VISIBLE, CRect(0, 40, 100, 60), &m_parent, IDC_CTRL + 2));
  progress.SetRange32(10, 1000);
  progress.GetRange(nLower, nUpper);
  EXPECT_EQ(10, nLower);
  EXPECT_EQ(1000, nUpper);
  progress.SetPos(100);
  progress.SetStep(50);
  EXPECT_EQ(100, progress.StepIt()); // returns the previous position
  EXPECT_EQ(150, progress.GetPos());
  EXPECT_EQ(150, progress.OffsetPos(-20));
  EXPECT_EQ(130, progress.GetPos());
}

} // namespace
