// The combo boxes in a real dialog, driven by real keys and clicks:
// completion as the user types, the face list from the installed families
// with the point sizes kept in step, the push button drawn as a combo box,
// the colour picker and its pop-up grid, and the helpers for any combo box.
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

// The message of the invalid-data exception the call throws, "" if none.
std::string ThrownMessage(const std::function<void()>& call) {
  try {
    call();
  } catch (CException* e) {
    std::string str = e->IsKindOf(RUNTIME_CLASS(VInvalidDataException))
                          ? ((VInvalidDataException*)e)->GetMessage()
                          : "other";
    return str.substr(0, str.find('\n'));
  }
  return "";
}

CString Text(CWnd* pWnd) {
  CString str;
  pWnd->GetWindowText(str);
  return str;
}

// A dialog with a completing combo, a face list followed by a point-size
// list, a custom combo button, a plain drop-down list and a colour picker;
// it records the notifications it gets.
class CCombosDlg : public CDialog {
public:
  VAutoComboBox m_auto;
  VFaceNameComboBox m_faces;
  VPointSizeComboBox m_sizes;
  VCustomComboBox m_custom;
  CComboBox m_plain;
  VColorComboBox m_color;
  std::vector<std::pair<UINT, UINT>> m_notes; // control id, code
  virtual BOOL OnInitDialog() {
    CDialog::OnInitDialog();
    m_auto.SubclassDlgItem(IDC_COMBO, this);
    m_sizes.SubclassDlgItem(IDC_SIZES, this);
    m_sizes.AddPointSizes("");
    m_faces.SubclassDlgItem(IDC_FACES, this);
    m_custom.SubclassDlgItem(IDC_BUTTON, this);
    m_plain.SubclassDlgItem(IDC_SECOND, this);
    m_color.Create(WS_CHILD | WS_VISIBLE, CRect(230, 100, 330, 124), this, IDC_COLOR);
    return TRUE;
  }
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam) {
    m_notes.push_back({LOWORD(wParam), HIWORD(wParam)});
    return CDialog::OnCommand(wParam, lParam);
  }
  bool Notified(UINT nID, UINT nCode) const {
    for (auto& n : m_notes)
      if (n.first == nID && n.second == nCode) return true;
    return false;
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
    theApp.m_pMainWnd = NULL;
    if (::IsWindow(m_dlg)) m_dlg.DestroyWindow();
    user_input::Pump();
  }
  void Fill(CComboBox& combo, std::vector<std::string> entries) {
    combo.ResetContent();
    for (auto& s : entries)
      combo.AddString(s.c_str());
  }
  CCombosDlg m_dlg;
};

// ---- Helpers and the completion step ---------------------------------------------

TEST_F(ComboTest, HelpersSelectByDataAndFindTheListAndEdit) {
  CComboBox& combo = m_dlg.m_plain;
  EXPECT_TRUE(VrkSetComboBox(&combo, 7)); // empty: TRUE, nothing selected
  EXPECT_EQ(CB_ERR, combo.GetCurSel());
  Fill(combo, {"one", "two", "three"});
  for (int i = 0; i < 3; i++)
    combo.SetItemData(i, 10 + i);
  EXPECT_TRUE(VrkSetComboBox(&combo, 12));
  EXPECT_EQ(2, combo.GetCurSel());
  EXPECT_TRUE(VrkSetComboBox(&combo, 99)); // no match: selection kept
  EXPECT_EQ(2, combo.GetCurSel());

  CListBox list;
  ASSERT_TRUE(list.Create(WS_CHILD, CRect(0, 0, 50, 50), &m_dlg, 0x600));
  for (const char* psz : {"a", "b"})
    list.SetItemData(list.AddString(psz), *psz);
  EXPECT_TRUE(VrkSetListBox(&list, 'b'));
  EXPECT_EQ(1, list.GetCurSel());

  EXPECT_EQ("Invalid data detected in .\\vrk_combobox.cpp, line 74.",
            ThrownMessage([] { VrkSetComboBox(NULL, 0); }));
  EXPECT_EQ("Invalid data detected in .\\vrk_combobox.cpp, line 52.",
            ThrownMessage([] { VrkSetListBox(NULL, 0); }));

  COMBOBOXINFO info = {sizeof(info)};
  ASSERT_TRUE(::GetComboBoxInfo(m_dlg.m_auto, &info));
  EXPECT_TRUE(VrkComboBoxIsDropDown(info.hwndList));
  EXPECT_FALSE(VrkComboBoxIsDropDown(m_dlg.m_auto));
  EXPECT_FALSE(VrkComboBoxIsDropDown(NULL));
  EXPECT_EQ(info.hwndItem, VrkComboBoxGetChildEditCtrl(&m_dlg.m_auto));
  EXPECT_EQ(nullptr, VrkComboBoxGetChildEditCtrl(NULL));
  EXPECT_FALSE(VrkComboBoxChildEnumProc(info.hwndItem, 0));
}

TEST_F(ComboTest, SafeTextIsWhatTheUserSees) {
  VAutoComboBox& combo = m_dlg.m_auto;
  Fill(combo, {"Alpha", "Beta"});
  CString str = "untouched";
  EXPECT_EQ(-1, VrkComboBoxGetSafeText(&combo, str)); // nothing chosen
  EXPECT_STREQ("untouched", str);
  combo.SetCurSel(1);
  EXPECT_EQ(1, VrkComboBoxGetSafeText(&combo, str));
  EXPECT_STREQ("Beta", str);
  // Typed by the user: the edit is modified and its text wins.
  user_input::Focus(m_dlg, VrkComboBoxGetChildEditCtrl(&combo));
  user_input::Press(VK_END);
  user_input::Type("x");
  EXPECT_EQ(-1, VrkComboBoxGetSafeText(&combo, str));
  EXPECT_STREQ("Betax", str);
}

TEST_F(ComboTest, CompletionStepTable) {
  std::string strLong(1000, 'q');
  struct Case {
    std::vector<std::string> entries;
    const char* pszTyped;
    int nFlags;
    std::string strShown;
    int nSel;
    int nSelStart; // -1: selection not checked
  } cases[] = {
      {{"Abcde", "Beta"}, "ab", 3, "abcde", 0, 2},
      {{"Abcde", "Beta"}, "ab", 2, "Abcde", 0, 2},
      {{"Beta", "Abcde"}, "ab", 0, "Abcde", 1, -1}, // selects only
      {{"Abcde", "Beta"}, "zz", 3, "zz", -1, -1},
      {{}, "ab", 3, "ab", -1, -1}, // no entries
      {{strLong + "end"}, "QQ", 3, "QQ" + strLong.substr(2) + "end", 0, 2},
  };
  VAutoComboBox& combo = m_dlg.m_auto;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pszTyped + std::string(" flags ") + std::to_string(c.nFlags));
    Fill(combo, c.entries);
    combo.SetWindowText(c.pszTyped);
    VrkComboBoxDoQuickenAction(&combo, c.nFlags);
    EXPECT_EQ(c.strShown, (LPCSTR)Text(&combo));
    EXPECT_EQ(c.nSel, combo.GetCurSel());
    if (c.nSelStart >= 0) {
      DWORD dwSel = combo.GetEditSel();
      EXPECT_EQ(c.nSelStart, (int)LOWORD(dwSel));
      EXPECT_EQ(std::min<size_t>(c.strShown.size(), 0xFFFF), HIWORD(dwSel));
    }
  }
  VrkComboBoxDoQuickenAction(NULL, 3); // nothing happens
}

TEST_F(ComboTest, FindStringWithCaseSkipsOtherCases) {
  VAutoComboBox& combo = m_dlg.m_auto;
  Fill(combo, {"ABX", "abY", "abz"});
  EXPECT_EQ(1, combo.FindStringWithCase(-1, "ab"));
  EXPECT_EQ(2, combo.FindStringWithCase(1, "ab"));
  EXPECT_EQ(-1, combo.FindStringWithCase(2, "ab")); // wrapped around
  EXPECT_EQ(2, combo.FindStringExactWithCase(-1, "abz"));
  EXPECT_EQ(-1, combo.FindStringExactWithCase(-1, "ABZ"));
  Fill(combo, {"ABX"});
  EXPECT_EQ(-1, combo.FindStringWithCase(-1, "ab"));
}

// ---- Typing into the completing combo boxes ------------------------------------------

TEST_F(ComboTest, TypingCompletesAndKeepsTheTypedCase) {
  VAutoComboBox& combo = m_dlg.m_auto;
  Fill(combo, {"Beta", "Abcde", "Gamma"});
  HWND hEdit = VrkComboBoxGetChildEditCtrl(&combo);
  user_input::Focus(m_dlg, hEdit);
  user_input::Type("ab");
  EXPECT_STREQ("abcde", Text(&combo));
  EXPECT_EQ(1, combo.GetCurSel());
  DWORD dwSel = combo.GetEditSel();
  EXPECT_EQ(2, LOWORD(dwSel));
  EXPECT_EQ(5, HIWORD(dwSel));

  user_input::Press(VK_BACK); // removes the tail, completes nothing
  EXPECT_STREQ("ab", Text(&combo));
  user_input::Type("x");
  EXPECT_STREQ("abx", Text(&combo));

  Fill(combo, {});
  combo.SetWindowText("");
  user_input::Type("ab");
  EXPECT_STREQ("ab", Text(&combo));
}

// The colour request's handler, reached directly for its preconditions.
struct CAutoProbe : VAutoComboBox {
  using VAutoComboBox::OnCtlColor;
};

TEST_F(ComboTest, NullArgumentsRaiseTheInvalidDataException) {
  CAutoProbe probe;
  CDC dc;
  EXPECT_EQ("Invalid data detected in .\\vrk_autocombobox.cpp, line 77.",
            ThrownMessage([&] { probe.OnCtlColor(NULL, &m_dlg, CTLCOLOR_EDIT); }));
  EXPECT_EQ("Invalid data detected in .\\vrk_autocombobox.cpp, line 78.",
            ThrownMessage([&] { probe.OnCtlColor(&dc, NULL, CTLCOLOR_EDIT); }));
  EXPECT_EQ("Invalid data detected in .\\vrk_autocombobox.cpp, line 39.",
            ThrownMessage([] { VAutoComboBoxEdit().SetParentComboBox(NULL); }));
  EXPECT_EQ("Invalid data detected in .\\vrk_colorctrl.cpp, line 228.",
            ThrownMessage([] { VPopupColorCtrl(0, NULL); }));
}

// ---- Faces and sizes ----------------------------------------------------------------

int CALLBACK FindFont(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM lParam) {
  *(bool*)lParam = true;
  return 0;
}

TEST_F(ComboTest, FacesAreTheInstalledFamiliesAndSizesFollowThem) {
  VFaceNameComboBox& faces = m_dlg.m_faces;
  VPointSizeComboBox& sizes = m_dlg.m_sizes;
  ASSERT_GT(faces.GetCount(), 0);
  HDC hDC = ::GetDC(NULL);
  for (int i = 0; i < faces.GetCount(); i++) {
    CString strFace;
    faces.GetLBText(i, strFace);
    LOGFONTA lf = {};
    lf.lfCharSet = DEFAULT_CHARSET;
    lstrcpynA(lf.lfFaceName, strFace, LF_FACESIZE);
    bool bInstalled = false; // the system knows a font of that family
    ::EnumFontFamiliesExA(hDC, &lf, FindFont, (LPARAM)&bInstalled, 0);
    EXPECT_TRUE(bInstalled) << (LPCSTR)strFace;
  }
  ::ReleaseDC(NULL, hDC);

  ASSERT_EQ(23, sizes.GetCount());
  EXPECT_EQ(144u, sizes.GetItemData(22));
  EXPECT_TRUE(sizes.IsKindOf(RUNTIME_CLASS(VPointSizeComboBox)));

  // The user picks 12 points, then another face with the keyboard: the sizes
  // are refilled and 12 stays chosen; the dialog hears of the change too.
  sizes.SetCurSel(sizes.FindStringExact(-1, "12"));
  faces.SetCurSel(0);
  user_input::Focus(m_dlg, faces);
  user_input::Press(VK_DOWN);
  EXPECT_EQ(1, faces.GetCurSel());
  EXPECT_EQ(23, sizes.GetCount());
  EXPECT_STREQ("12", Text(&sizes));
  EXPECT_TRUE(m_dlg.Notified(IDC_FACES, CBN_SELCHANGE));

  sizes.SetCurSel(-1); // nothing chosen: the first size
  user_input::Press(VK_DOWN);
  EXPECT_STREQ("4", Text(&sizes));
}

// ---- The custom combo button -----------------------------------------------------------

TEST_F(ComboTest, CustomComboSizesItselfAndSendsCodeOne) {
  VCustomComboBox& custom = m_dlg.m_custom;
  EXPECT_EQ((DWORD)BS_OWNERDRAW, custom.GetStyle() & BS_TYPEMASK);
  CRect rc;
  custom.GetClientRect(&rc);
  int cxEdge = ::GetSystemMetrics(SM_CXEDGE), cyEdge = ::GetSystemMetrics(SM_CYEDGE);
  int cy = ::GetSystemMetrics(SM_CYVTHUMB) + 2 * cyEdge;
  EXPECT_GE(rc.Height(), cy);
  EXPECT_EQ(CRect(rc.right - ::GetSystemMetrics(SM_CXHTHUMB) - cxEdge, cyEdge, rc.right - cxEdge,
                  rc.bottom - cyEdge),
            custom.GetButtonRect());

  user_input::ClickClient(custom, rc.Width() / 2, rc.Height() / 2);
  EXPECT_TRUE(m_dlg.Notified(IDC_BUTTON, 1));
}

// ---- The colour picker ------------------------------------------------------------------

HWND FindPopup() { return ::FindWindowA("VPopupColorCtrl", NULL); }

COLORREF PixelOf(CWnd* pWnd, int x, int y) {
  pWnd->UpdateWindow();
  HDC hDC = ::GetDC(pWnd->m_hWnd);
  COLORREF cr = ::GetPixel(hDC, x, y);
  ::ReleaseDC(pWnd->m_hWnd, hDC);
  return cr;
}

TEST_F(ComboTest, ColourChosenFromThePopupGrid) {
  VColorComboBox& color = m_dlg.m_color;
  CRect rc;
  color.GetClientRect(&rc);
  user_input::ClickClient(color, rc.right - 20, rc.Height() / 2); // the swatch: nothing
  EXPECT_EQ(nullptr, FindPopup());

  color.SetColor(0x800000);                                      // navy, entry 5
  user_input::ClickClient(color, rc.right - 6, rc.Height() / 2); // the arrow
  HWND hPopup = FindPopup();
  ASSERT_NE(nullptr, hPopup);
  VPopupColorCtrl* pPopup = (VPopupColorCtrl*)CWnd::FromHandlePermanent(hPopup);
  ASSERT_NE(nullptr, pPopup);
  EXPECT_EQ(hPopup, ::GetCapture());
  EXPECT_EQ(5, pPopup->GetHotIndex());
  EXPECT_EQ(m_dlg.m_hWnd, ::GetWindow(hPopup, GW_OWNER));
  CRect rcCombo, rcPopup, rcGrid;
  color.GetWindowRect(&rcCombo);
  ::GetWindowRect(hPopup, &rcPopup);
  ::GetClientRect(hPopup, &rcGrid);
  EXPECT_EQ(CPoint(rcCombo.left, rcCombo.bottom + 1), rcPopup.TopLeft());
  EXPECT_EQ(CSize(79, 98), rcGrid.Size());
  // Squares are drawn in their colours: blue at index 13 (row 3, column 1).
  EXPECT_EQ(0xFF0000u, PixelOf(pPopup, 3 + 19 + 8, 3 + 57 + 8));

  // Hovering moves the highlight; a click on blue chooses it.
  POINT ptBlue = {3 + 19 + 8, 3 + 57 + 8};
  ::ClientToScreen(hPopup, &ptBlue);
  user_input::MoveTo(ptBlue);
  EXPECT_EQ(13, pPopup->GetHotIndex());
  user_input::Click(ptBlue);
  EXPECT_EQ(0xFF0000u, color.GetColor());
  EXPECT_TRUE(m_dlg.Notified(IDC_COLOR, CBN_SELCHANGE));
  EXPECT_FALSE(::IsWindow(hPopup));
  EXPECT_EQ(nullptr, ::GetCapture());
  EXPECT_EQ(0xFF0000u, PixelOf(&color, 20, rc.Height() / 2)); // the swatch
}

TEST_F(ComboTest, PopupStartsOnTheColourOrBlackAndSurvivesItsOwner) {
  struct Case {
    COLORREF cr;
    int nIndex;
  } cases[] = {{0x00FFFF, 12}, {0xF0FBFF, 0}, {0x123456, 0}};
  for (const Case& c : cases) {
    VPopupColorCtrl popup(c.cr, &m_dlg.m_color);
    EXPECT_EQ(c.nIndex, popup.GetHotIndex());
    EXPECT_EQ(c.nIndex, popup.GetSelectedIndex());
  }

  // The combo goes while its grid is open; a square clicked then changes
  // nothing and the grid still closes.
  VColorComboBox* pColor = new VColorComboBox;
  ASSERT_TRUE(pColor->Create(WS_CHILD | WS_VISIBLE, CRect(230, 140, 330, 164), &m_dlg, 0x700));
  CRect rc;
  pColor->GetClientRect(&rc);
  user_input::ClickClient(*pColor, rc.right - 6, rc.Height() / 2);
  HWND hPopup = FindPopup();
  ASSERT_NE(nullptr, hPopup);
  delete pColor;
  user_input::ClickClient(hPopup, 10, 10);
  EXPECT_FALSE(::IsWindow(hPopup));
  EXPECT_EQ(nullptr, ::GetCapture());
}

} // namespace
