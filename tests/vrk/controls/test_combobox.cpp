// The combo boxes in a real dialog, driven by real keys and clicks.
#include "vrk_colorctrl.h"
#include "vrk_combobox.h"
#include "vrk_exception.h"

#include <gtest/gtest.h>

#include <set>

#include "controls_testing.h"
#include "user_input.h"

using namespace user_input;

namespace {

CWinApp theApp("Combo Box Test");

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
  std::set<std::pair<UINT, UINT>> m_notes; // control id, notification code
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
    m_notes.insert({LOWORD(wParam), HIWORD(wParam)});
    return CDialog::OnCommand(wParam, lParam);
  }
};

void Fill(CComboBox& combo, std::vector<std::string> entries) {
  combo.ResetContent();
  for (auto& s : entries)
    combo.AddString(s.c_str());
}

COLORREF PixelOf(HWND hWnd, int x, int y) {
  ::UpdateWindow(hWnd);
  CClientDC dc(CWnd::FromHandle(hWnd));
  return dc.GetPixel(x, y);
}

class ComboTest : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(m_dlg.Create(IDD_COMBOS, NULL));
    m_dlg.SetWindowPos(NULL, 0, 0, 400, 300, SWP_NOZORDER);
    theApp.m_pMainWnd = &m_dlg;
    Focus(m_dlg, m_dlg);
  }
  void TearDown() override {
    m_dlg.DestroyWindow();
    Pump();
  }
  CCombosDlg m_dlg;
};

TEST_F(ComboTest, HelpersAndPreconditions) {
  VTypeAheadComboBox& combo = m_dlg.m_list;
  // The type-ahead combo wants all keys and gives them no default handling.
  Fill(combo, {"one", "two", "three"});
  combo.SetCurSel(0);
  EXPECT_EQ(DLGC_WANTALLKEYS, (UINT)combo.SendMessage(WM_GETDLGCODE));
  Focus(m_dlg, combo);
  Press(VK_DOWN);
  EXPECT_EQ(0, combo.GetCurSel());
  // The button drawn as a combo box: a click anywhere sends code 1.
  EXPECT_EQ((DWORD)BS_OWNERDRAW, m_dlg.m_custom.GetStyle() & BS_TYPEMASK);
  Click({5, 5}, m_dlg.m_custom);
  EXPECT_TRUE(m_dlg.m_notes.count({IDC_BUTTON, 1}));
  CAutoProbe probe;
  std::pair<std::function<void()>, const char*> nulls[] = {
      // the first line of the message
      {[&] { probe.OnCtlColor(NULL, &m_dlg, 1); }, "autocombobox.cpp, line 77."},
      {[] { VAutoComboBoxEdit().SetParentComboBox(0); }, "autocombobox.cpp, line 39."},
      {[] { VrkSetComboBox(NULL, 0); }, "combobox.cpp, line 74."},
      {[] { VPopupColorCtrl(0, NULL); }, "colorctrl.cpp, line 228."}};
  for (auto& n : nulls) {
    std::string str;
    try {
      n.first();
    } catch (CException* e) {
      str = ((VInvalidDataException*)e)->GetMessage();
    }
    EXPECT_EQ(std::string("Invalid data detected in .\\vrk_") + n.second,
              str.substr(0, str.find('\n')));
  }
}

TEST_F(ComboTest, CompletionAsCalledAndAsTyped) {
  std::string strLong(1000, 'q');
  // clang-format off
  struct Case { std::vector<std::string> entries; const char* pszTyped; int nFlags;
                std::string strShown; int nSel; } cases[] = {
      {{"Abcde", "Beta"}, "ab", 2, "Abcde", 0}, // the entry's case, tail selected
      {{"Beta", "Abcde"}, "ab", 0, "Abcde", 1}, // selects only
      {{"Abcde"}, "zz", 3, "zz", -1},
      {{}, "ab", 3, "ab", -1},
      {{strLong + "end"}, "QQ", 3, "QQ" + strLong.substr(2) + "end", 0},
  };
  // clang-format on
  VAutoComboBox& combo = m_dlg.m_auto;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pszTyped + std::to_string(c.nFlags));
    Fill(combo, c.entries);
    combo.SetWindowText(c.pszTyped);
    VrkComboBoxDoQuickenAction(&combo, c.nFlags);
    EXPECT_TRUE(c.strShown == Text(combo) && c.nSel == combo.GetCurSel());
    EXPECT_TRUE(!(c.nFlags & 2) || c.nSel < 0 ||
                combo.GetEditSel() == (DWORD)MAKELONG(2, c.strShown.size()));
  }
  // Typed: the same step with the typed case kept.
  Fill(combo, {"Beta", "Abcde", "Gamma"});
  Focus(m_dlg, VrkComboBoxGetChildEditCtrl(&combo));
  Type("ab");
  EXPECT_TRUE(Text(combo) == "abcde" && combo.GetCurSel() == 1 &&
              combo.GetEditSel() == MAKELONG(2, 5));
  Press(VK_BACK); // removes the tail and completes nothing
  Type("x");
  EXPECT_EQ("abx", Text(combo));
  CString str;
  EXPECT_TRUE(VrkComboBoxGetSafeText(&combo, str) == -1 && str == "abx"); // typed: the edit's
  combo.SetCurSel(0);
  EXPECT_TRUE(VrkComboBoxGetSafeText(&combo, str) == 0 && str == "Beta");
}

TEST_F(ComboTest, FacesAreInstalledFamiliesAndSizesFollowThem) {
  VFaceNameComboBox& faces = m_dlg.m_faces;
  VPointSizeComboBox& sizes = m_dlg.m_sizes;
  ASSERT_GT(faces.GetCount(), 1);
  CClientDC dc(&faces);
  for (int i = 0; i < faces.GetCount(); i++) { // each a family the system has
    CString strFace, strMade;
    faces.GetLBText(i, strFace);
    CFont font;
    font.CreatePointFont(100, strFace);
    CFont* pOld = dc.SelectObject(&font);
    dc.GetTextFace(strMade);
    dc.SelectObject(pOld);
    EXPECT_STREQ(strFace, strMade);
  }
  ASSERT_TRUE(sizes.GetCount() == 23 && sizes.GetItemData(22) == 144);
  // 12 points, then another face chosen with the keyboard: the sizes are
  // refilled and 12 stays; with no size chosen the first is taken.
  sizes.SetCurSel(sizes.FindStringExact(-1, "12"));
  faces.SetCurSel(0);
  Focus(m_dlg, faces);
  Press(VK_DOWN);
  EXPECT_TRUE(faces.GetCurSel() == 1 && Text(sizes) == "12");
  EXPECT_TRUE(m_dlg.m_notes.count({IDC_FACES, CBN_SELCHANGE}));
  sizes.SetCurSel(-1);
  Press(VK_DOWN);
  EXPECT_EQ("4", Text(sizes));
}

TEST_F(ComboTest, ColourChosenFromThePopupGridWhichOutlivesItsOwner) {
  VColorComboBox& color = m_dlg.m_color;
  CRect rc;
  color.GetClientRect(&rc);
  Click({rc.right - 20, rc.Height() / 2}, color); // the swatch: nothing
  EXPECT_EQ(nullptr, ::FindWindowA("VPopupColorCtrl", NULL));
  color.SetColor(0x800000);                      // navy, entry 5
  Click({rc.right - 6, rc.Height() / 2}, color); // the arrow
  HWND hPopup = ::FindWindowA("VPopupColorCtrl", NULL);
  ASSERT_NE(nullptr, hPopup);
  VPopupColorCtrl* pPopup = (VPopupColorCtrl*)CWnd::FromHandlePermanent(hPopup);
  EXPECT_EQ(hPopup, ::GetCapture());
  EXPECT_EQ(5, pPopup->GetHotIndex());
  CRect rcCombo, rcPopup;
  color.GetWindowRect(&rcCombo);
  ::GetWindowRect(hPopup, &rcPopup);
  EXPECT_EQ(CPoint(rcCombo.left, rcCombo.bottom + 1), rcPopup.TopLeft());
  POINT ptBlue = {3 + 19 + 8, 3 + 57 + 8}; // entry 13: row 3, column 1
  EXPECT_EQ(0xFF0000u, PixelOf(hPopup, ptBlue.x, ptBlue.y));
  ::ClientToScreen(hPopup, &ptBlue);
  MoveTo(ptBlue);
  EXPECT_EQ(13, pPopup->GetHotIndex());
  Click(ptBlue);
  EXPECT_TRUE(color.GetColor() == 0xFF0000 && m_dlg.m_notes.count({IDC_COLOR, CBN_SELCHANGE}));
  EXPECT_TRUE(!::IsWindow(hPopup) && ::GetCapture() == NULL);
  EXPECT_EQ(0xFF0000u, PixelOf(color, 20, rc.Height() / 2)); // the swatch
  VPopupColorCtrl popup(0xF0FBFF, &m_dlg.m_color);           // entry 17: only 16 are searched
  EXPECT_EQ(0, popup.GetSelectedIndex());                    // black
  VColorComboBox* pColor = new VColorComboBox;
  ASSERT_TRUE(pColor->Create(WS_CHILD | WS_VISIBLE, CRect(230, 140, 330, 164), &m_dlg, 0x700));
  Click({94, 12}, *pColor);
  hPopup = ::FindWindowA("VPopupColorCtrl", NULL);
  ASSERT_NE(nullptr, hPopup);
  delete pColor; // gone while its grid is open: a square clicked changes nothing
  Click({10, 10}, hPopup);
  EXPECT_TRUE(!::IsWindow(hPopup) && ::GetCapture() == NULL);
}

} // namespace
