// The combo boxes in a real dialog, driven by real keys and clicks:
// completion as the user types, faces from the installed families with the
// sizes kept in step, the button drawn as a combo box, the colour picker and
// its grid (pixels read back), and the helpers for any combo box.
#include "vrk_colorctrl.h"
#include "vrk_combobox.h"
#include "vrk_exception.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "controls_testing.h"
#include "user_input.h"

namespace {

CWinApp theApp("Combo Box Test");

// The first line of the invalid-data exception's message, "" if none.
std::string Thrown(const std::function<void()>& call) {
  try {
    call();
  } catch (CException* e) {
    std::string str = ((VInvalidDataException*)e)->GetMessage();
    return str.substr(0, str.find('\n'));
  }
  return "";
}

std::string Text(HWND hWnd) {
  char sz[2048] = "";
  ::GetWindowTextA(hWnd, sz, sizeof(sz));
  return sz;
}

struct CAutoProbe : VAutoComboBox {
  using VAutoComboBox::OnCtlColor;
};

class CCombosDlg : public CDialog {
public:
  VAutoComboBox m_auto;
  VFaceNameComboBox m_faces;
  VPointSizeComboBox m_sizes;
  VCustomComboBox m_custom;
  VTypeAheadComboBox m_list;
  VColorComboBox m_color;
  std::vector<std::pair<UINT, UINT>> m_notes; // control id, code
  virtual BOOL OnInitDialog() {
    m_auto.SubclassDlgItem(IDC_COMBO, this);
    m_sizes.SubclassDlgItem(IDC_SIZES, this);
    m_sizes.AddPointSizes("");
    m_faces.SubclassDlgItem(IDC_FACES, this);
    m_custom.SubclassDlgItem(IDC_BUTTON, this);
    m_list.SubclassDlgItem(IDC_SECOND, this);
    m_color.Create(WS_CHILD | WS_VISIBLE, CRect(230, 100, 330, 124), this, IDC_COLOR);
    return TRUE;
  }
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam) {
    m_notes.push_back({LOWORD(wParam), HIWORD(wParam)});
    return CDialog::OnCommand(wParam, lParam);
  }
  bool Notified(UINT nID, UINT nCode) const {
    return std::find(m_notes.begin(), m_notes.end(), std::make_pair(nID, nCode)) != m_notes.end();
  }
};

class ComboTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(m_dlg.Create(IDD_COMBOS, NULL));
    m_dlg.SetWindowPos(NULL, 0, 0, 400, 300, SWP_NOZORDER);
    theApp.m_pMainWnd = &m_dlg;
    user_input::Focus(m_dlg, m_dlg);
  }
  void TearDown() override {
    m_dlg.DestroyWindow();
    user_input::Pump();
  }
  void Fill(CComboBox& combo, std::vector<std::string> entries) {
    combo.ResetContent();
    for (auto& s : entries)
      combo.AddString(s.c_str());
  }
  CCombosDlg m_dlg;
};

TEST_F(ComboTest, HelpersAndPreconditions) {
  VTypeAheadComboBox& combo = m_dlg.m_list;
  EXPECT_TRUE(VrkSetComboBox(&combo, 7)); // an empty list: TRUE, nothing selected
  EXPECT_EQ(CB_ERR, combo.GetCurSel());
  Fill(combo, {"one", "two", "three"});
  for (int i = 0; i < 3; i++)
    combo.SetItemData(i, 10 + i);
  EXPECT_TRUE(VrkSetComboBox(&combo, 12));
  EXPECT_TRUE(VrkSetComboBox(&combo, 99)); // no match: kept
  EXPECT_EQ(2, combo.GetCurSel());

  COMBOBOXINFO info = {sizeof(info)};
  ASSERT_TRUE(::GetComboBoxInfo(m_dlg.m_auto, &info));
  EXPECT_TRUE(VrkComboBoxIsDropDown(info.hwndList));
  EXPECT_FALSE(VrkComboBoxIsDropDown(m_dlg.m_auto));
  EXPECT_FALSE(VrkComboBoxIsDropDown(NULL));

  // The type-ahead combo wants all keys and gives them no default handling.
  EXPECT_EQ(DLGC_WANTALLKEYS, (UINT)combo.SendMessage(WM_GETDLGCODE));
  user_input::Focus(m_dlg, combo);
  user_input::Press(VK_DOWN);
  EXPECT_EQ(2, combo.GetCurSel());

  CAutoProbe probe;
  CDC dc;
  std::pair<std::function<void()>, const char*> nulls[] = {
      {[&] { probe.OnCtlColor(NULL, &m_dlg, 1); }, "autocombobox.cpp, line 77."},
      {[&] { probe.OnCtlColor(&dc, NULL, 1); }, "autocombobox.cpp, line 78."},
      {[] { VAutoComboBoxEdit().SetParentComboBox(0); }, "autocombobox.cpp, line 39."},
      {[] { VrkSetComboBox(NULL, 0); }, "combobox.cpp, line 74."},
      {[] { VrkSetListBox(NULL, 0); }, "combobox.cpp, line 52."},
      {[] { VPopupColorCtrl(0, NULL); }, "colorctrl.cpp, line 228."}};
  for (auto& n : nulls)
    EXPECT_EQ(std::string("Invalid data detected in .\\vrk_") + n.second, Thrown(n.first));
}

TEST_F(ComboTest, CompletionStepAndCaseSensitiveSearch) {
  std::string strLong(1000, 'q');
  struct Case {
    std::vector<std::string> entries;
    const char* pszTyped;
    int nFlags;
    std::string strShown;
    int nSel;
  } cases[] = {
      {{"Abcde", "Beta"}, "ab", 3, "abcde", 0}, // typed case kept, tail selected
      {{"Abcde", "Beta"}, "ab", 2, "Abcde", 0},
      {{"Beta", "Abcde"}, "ab", 0, "Abcde", 1}, // selects only
      {{"Abcde"}, "zz", 3, "zz", -1},
      {{}, "ab", 3, "ab", -1},
      {{strLong + "end"}, "QQ", 3, "QQ" + strLong.substr(2) + "end", 0},
  };
  VAutoComboBox& combo = m_dlg.m_auto;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pszTyped + std::to_string(c.nFlags));
    Fill(combo, c.entries);
    combo.SetWindowText(c.pszTyped);
    VrkComboBoxDoQuickenAction(&combo, c.nFlags);
    EXPECT_EQ(c.strShown, Text(combo));
    EXPECT_EQ(c.nSel, combo.GetCurSel());
    if ((c.nFlags & 2) && c.nSel >= 0) { // the completed tail is selected
      EXPECT_EQ(MAKELONG(2, c.strShown.size()), (LONG)combo.GetEditSel());
    }
  }
  Fill(combo, {"ABX", "abY", "abz"});
  EXPECT_EQ(1, combo.FindStringWithCase(-1, "ab"));
  EXPECT_EQ(2, combo.FindStringWithCase(1, "ab"));
  EXPECT_EQ(-1, combo.FindStringWithCase(2, "ab")); // wrapped around
  EXPECT_EQ(2, combo.FindStringExactWithCase(-1, "abz"));
  EXPECT_EQ(-1, combo.FindStringExactWithCase(-1, "ABZ"));
  Fill(combo, {"ABX"});
  EXPECT_EQ(-1, combo.FindStringWithCase(-1, "ab"));
}

TEST_F(ComboTest, TypingCompletesKeepingTheTypedCase) {
  VAutoComboBox& combo = m_dlg.m_auto;
  Fill(combo, {"Beta", "Abcde", "Gamma"});
  user_input::Focus(m_dlg, VrkComboBoxGetChildEditCtrl(&combo));
  user_input::Type("ab");
  EXPECT_EQ("abcde", Text(combo));
  EXPECT_EQ(1, combo.GetCurSel());
  EXPECT_EQ(MAKELONG(2, 5), (LONG)combo.GetEditSel());
  CString str;
  user_input::Press(VK_BACK); // removes the tail and completes nothing
  user_input::Type("x");
  EXPECT_EQ("abx", Text(combo));
  EXPECT_EQ(-1, VrkComboBoxGetSafeText(&combo, str)); // typed: the edit's text
  EXPECT_STREQ("abx", str);
  combo.SetCurSel(0);
  EXPECT_EQ(0, VrkComboBoxGetSafeText(&combo, str));
  EXPECT_STREQ("Beta", str);
  Fill(combo, {});
  combo.SetWindowText("");
  user_input::Type("ab");
  EXPECT_EQ("ab", Text(combo));
}

TEST_F(ComboTest, FacesAreInstalledFamiliesAndSizesFollowThem) {
  VFaceNameComboBox& faces = m_dlg.m_faces;
  VPointSizeComboBox& sizes = m_dlg.m_sizes;
  ASSERT_GT(faces.GetCount(), 1);
  for (int i = 0; i < faces.GetCount(); i++) { // each a family the system has
    CString strFace, strMade;
    faces.GetLBText(i, strFace);
    CFont font;
    font.CreatePointFont(100, strFace);
    CClientDC dc(&faces);
    CFont* pOld = dc.SelectObject(&font);
    dc.GetTextFace(strMade);
    dc.SelectObject(pOld);
    EXPECT_STREQ(strFace, strMade);
  }
  ASSERT_EQ(23, sizes.GetCount());
  EXPECT_EQ(144u, sizes.GetItemData(22));

  // 12 points, then another face chosen with the keyboard: the sizes are
  // refilled and 12 stays; with no size chosen the first is taken.
  sizes.SetCurSel(sizes.FindStringExact(-1, "12"));
  faces.SetCurSel(0);
  user_input::Focus(m_dlg, faces);
  user_input::Press(VK_DOWN);
  EXPECT_EQ(1, faces.GetCurSel());
  EXPECT_EQ("12", Text(sizes));
  EXPECT_TRUE(m_dlg.Notified(IDC_FACES, CBN_SELCHANGE));
  sizes.SetCurSel(-1);
  user_input::Press(VK_DOWN);
  EXPECT_EQ("4", Text(sizes));
}

TEST_F(ComboTest, CustomComboSizesItselfAndSendsCodeOne) {
  VCustomComboBox& custom = m_dlg.m_custom;
  EXPECT_EQ((DWORD)BS_OWNERDRAW, custom.GetStyle() & BS_TYPEMASK);
  CRect rc;
  custom.GetClientRect(&rc);
  int cxEdge = ::GetSystemMetrics(SM_CXEDGE), cyEdge = ::GetSystemMetrics(SM_CYEDGE);
  EXPECT_GE(rc.Height(), ::GetSystemMetrics(SM_CYVTHUMB) + 2 * cyEdge);
  EXPECT_EQ(CRect(rc.right - ::GetSystemMetrics(SM_CXHTHUMB) - cxEdge, cyEdge, rc.right - cxEdge,
                  rc.bottom - cyEdge),
            custom.GetButtonRect());
  user_input::ClickClient(custom, rc.Width() / 2, rc.Height() / 2);
  EXPECT_TRUE(m_dlg.Notified(IDC_BUTTON, 1));
}

COLORREF PixelOf(HWND hWnd, int x, int y) {
  ::UpdateWindow(hWnd);
  HDC hDC = ::GetDC(hWnd);
  COLORREF cr = ::GetPixel(hDC, x, y);
  ::ReleaseDC(hWnd, hDC);
  return cr;
}

TEST_F(ComboTest, ColourChosenFromThePopupGrid) {
  VColorComboBox& color = m_dlg.m_color;
  CRect rc;
  color.GetClientRect(&rc);
  user_input::ClickClient(color, rc.right - 20, rc.Height() / 2); // the swatch: nothing
  EXPECT_EQ(nullptr, ::FindWindowA("VPopupColorCtrl", NULL));
  color.SetColor(0x800000);                                      // navy, entry 5
  user_input::ClickClient(color, rc.right - 6, rc.Height() / 2); // the arrow
  HWND hPopup = ::FindWindowA("VPopupColorCtrl", NULL);
  ASSERT_NE(nullptr, hPopup);
  VPopupColorCtrl* pPopup = (VPopupColorCtrl*)CWnd::FromHandlePermanent(hPopup);
  EXPECT_EQ(hPopup, ::GetCapture());
  EXPECT_EQ(5, pPopup->GetHotIndex());
  EXPECT_EQ(m_dlg.m_hWnd, ::GetWindow(hPopup, GW_OWNER));
  CRect rcCombo, rcPopup, rcGrid;
  color.GetWindowRect(&rcCombo);
  ::GetWindowRect(hPopup, &rcPopup);
  ::GetClientRect(hPopup, &rcGrid);
  EXPECT_EQ(CPoint(rcCombo.left, rcCombo.bottom + 1), rcPopup.TopLeft());
  EXPECT_EQ(CSize(79, 98), rcGrid.Size());

  POINT ptBlue = {3 + 19 + 8, 3 + 57 + 8}; // entry 13: row 3, column 1
  EXPECT_EQ(0xFF0000u, PixelOf(hPopup, ptBlue.x, ptBlue.y));
  ::ClientToScreen(hPopup, &ptBlue);
  user_input::MoveTo(ptBlue);
  EXPECT_EQ(13, pPopup->GetHotIndex());
  user_input::Click(ptBlue);
  EXPECT_EQ(0xFF0000u, color.GetColor());
  EXPECT_TRUE(m_dlg.Notified(IDC_COLOR, CBN_SELCHANGE));
  EXPECT_FALSE(::IsWindow(hPopup));
  EXPECT_EQ(nullptr, ::GetCapture());
  EXPECT_EQ(0xFF0000u, PixelOf(color, 20, rc.Height() / 2)); // the swatch
}

TEST_F(ComboTest, PopupStartsOnTheColourOrBlackAndOutlivesItsOwner) {
  for (auto c : {std::make_pair(0x00FFFFu, 12), {0xF0FBFFu, 0}, {0x123456u, 0}}) {
    VPopupColorCtrl popup(c.first, &m_dlg.m_color); // only 16 entries are searched
    EXPECT_EQ(c.second, popup.GetHotIndex());
    EXPECT_EQ(c.second, popup.GetSelectedIndex());
  }
  VColorComboBox* pColor = new VColorComboBox;
  ASSERT_TRUE(pColor->Create(WS_CHILD | WS_VISIBLE, CRect(230, 140, 330, 164), &m_dlg, 0x700));
  user_input::ClickClient(*pColor, 94, 12);
  HWND hPopup = ::FindWindowA("VPopupColorCtrl", NULL);
  ASSERT_NE(nullptr, hPopup);
  delete pColor; // gone while its grid is open: a square clicked changes nothing
  user_input::ClickClient(hPopup, 10, 10);
  EXPECT_FALSE(::IsWindow(hPopup));
  EXPECT_EQ(nullptr, ::GetCapture());
}

} // namespace
