// The keyboard map in a multiple-document application, opened by its shortcut.
#include <afxext.h>
#include <afxrich.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "../../afx/frame_testing.h"
#include "user_input.h"
#include "vrk_accel.h"
#include "vrk_keyboardmap.h"

#define IDR_NOTE 0x0321 // as in test_keyboardmap.rc
#define IDR_PLAIN 0x0322
#define ID_KM_SHOWMAP 0x8301

namespace {

class CMapFrame : public CMDIFrameWnd {
public:
  afx_msg void OnShowMap() { VrkAccelShowKeyboardMap(); } // the application's help command
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CMapFrame, CMDIFrameWnd)
ON_COMMAND(ID_KM_SHOWMAP, &CMapFrame::OnShowMap)
END_MESSAGE_MAP()

CWinApp theApp("Map Test");

// A line of the map as the control keeps it (a paragraph ends in "\r").
std::string Line(const std::string& keys, const std::string& description) {
  std::string line = keys + std::string(30 - keys.size(), ' ') + description;
  return line + std::string(90 - line.size(), ' ') + "\r";
}

std::string Text(CRichEditView* pView) {
  CString str;
  pView->GetRichEditCtrl().GetTextRange(0, -1, str);
  return (LPCTSTR)str;
}

class KeyboardMapTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_pNote = new CMultiDocTemplate(IDR_NOTE, RUNTIME_CLASS(CDocument), RUNTIME_CLASS(CMDIChildWnd),
                                    RUNTIME_CLASS(CView));
    m_pPlain = new CMultiDocTemplate(IDR_PLAIN, RUNTIME_CLASS(CDocument),
                                     RUNTIME_CLASS(CMDIChildWnd), RUNTIME_CLASS(CView));
    theApp.AddDocTemplate(m_pNote);
    theApp.AddDocTemplate(m_pPlain);
    m_pFrame = new CMapFrame;
    ASSERT_TRUE(m_pFrame->LoadFrame(IDR_MAINFRAME));
    theApp.m_pMainWnd = m_pFrame;
    m_pFrame->ShowWindow(SW_SHOW);
    PumpAsApp();
  }
  void TearDown() override {
    m_pPlain->m_hAccelTable = NULL; // the frame's, when shared
    m_pFrame->DestroyWindow();
    PumpAsApp();
    delete theApp.m_pDocManager;
    theApp.m_pDocManager = NULL;
  }
  VKeyboardMapView* ActiveMap() {
    CMDIChildWnd* pChild = m_pFrame->MDIGetActive();
    CView* pView = pChild != NULL ? pChild->GetActiveView() : NULL;
    return pView != NULL && pView->IsKindOf(RUNTIME_CLASS(VKeyboardMapView))
               ? (VKeyboardMapView*)pView
               : NULL;
  }
  CMultiDocTemplate *m_pNote = NULL, *m_pPlain = NULL;
  CMapFrame* m_pFrame = NULL;
};

TEST_F(KeyboardMapTest, ListsEveryShortcutOnceReadOnlyInCourier) {
  m_pPlain->m_hAccelTable = m_pFrame->m_hAccelTable; // shared: listed once
  user_input::Focus(m_pFrame->m_hWnd, m_pFrame->m_hWnd);
  user_input::Press('K', {VK_CONTROL});
  VKeyboardMapView* pView = ActiveMap();
  ASSERT_NE(nullptr, pView) << "Ctrl+K opened no keyboard map";
  // Plain keys, then one modifier, then two; by key text within each; the
  // prompt's part before "\n".
  EXPECT_EQ(Line("Delete", "** No description **") + Line("F1", "Shows the help") +
                Line("Ctrl+B", "Sets the selection in bold") +
                Line("Ctrl+K", "Lists every shortcut") + Line("Ctrl+N", "Makes a new note") +
                Line("Ctrl+N", "Makes a new note") + Line("Shift+F3", "Finds the previous match") +
                Line("Ctrl+Shift+S", "Saves every open document"),
            Text(pView));
  // Titled, in underlined Courier, margins of half an inch, caret at 0.
  EXPECT_STREQ("Keyboard Map", WindowText(m_pFrame->MDIGetActive()));
  CHARFORMAT cf = {};
  pView->GetRichEditCtrl().GetDefaultCharFormat(cf);
  EXPECT_STREQ("Courier", cf.szFaceName);
  EXPECT_TRUE(cf.yHeight == 10 && (cf.dwEffects & (CFE_UNDERLINE | CFE_BOLD)) == CFE_UNDERLINE);
  long nStart = -1, nEnd = -1;
  pView->GetRichEditCtrl().GetSel(nStart, nEnd);
  EXPECT_TRUE(pView->GetMargins() == CRect(720, 720, 720, 720) && nStart + nEnd == 0);
  // Typing changes nothing, so closing has nothing to ask.
  std::string before = Text(pView);
  user_input::Focus(m_pFrame->m_hWnd, pView->m_hWnd);
  user_input::Press('X');
  user_input::Press(VK_RETURN);
  EXPECT_TRUE(before == Text(pView) && !pView->GetDocument()->IsModified());
}

TEST_F(KeyboardMapTest, EmptyAndThousandEntryTables) {
  HACCEL hFrameTable = m_pFrame->m_hAccelTable, hNoteTable = m_pNote->m_hAccelTable;
  m_pFrame->m_hAccelTable = m_pNote->m_hAccelTable = NULL;
  VrkAccelShowKeyboardMap();
  ASSERT_TRUE(ActiveMap() != NULL && Text(ActiveMap()).empty());
  // 1,000 entries, every modifier set on ten keys: each listed, in order.
  ACCEL entries[1000];
  const WORD keys[] = {'A', 'Q', 'Z', '0', '7', VK_F2, VK_F11, VK_INSERT, VK_HOME, VK_SPACE};
  for (int i = 0; i < 1000; i++)
    entries[i] = {(BYTE)(FVIRTKEY | ((i / 10) % 8 << 2)), keys[i % 10], (WORD)(0x9000 + i)};
  m_pFrame->m_hAccelTable = ::CreateAcceleratorTable(entries, 1000);
  EXPECT_TRUE(VrkAccelGetCount(m_pFrame->m_hAccelTable) == 1000 && VrkAccelGetCount(NULL) == 0);
  VrkAccelShowKeyboardMap();
  ASSERT_NE(nullptr, ActiveMap());
  std::string text = Text(ActiveMap()), last;
  int nLines = 0;
  for (size_t pos = 0, end; (end = text.find('\r', pos)) != std::string::npos; pos = end + 1) {
    std::string line = text.substr(pos, end - pos), keys = line.substr(0, 30);
    ASSERT_EQ(90u, line.size()) << line;
    EXPECT_EQ("** No description **", line.substr(30, 20)) << line;
    auto plus = [](const std::string& s) { return std::count(s.begin(), s.end(), '+'); };
    EXPECT_TRUE(nLines == 0 || plus(last) < plus(keys) ||
                (plus(last) == plus(keys) && last <= keys))
        << last << " / " << keys;
    last = keys;
    nLines++;
  }
  EXPECT_EQ(1000, nLines);
  ::DestroyAcceleratorTable(m_pFrame->m_hAccelTable);
  m_pFrame->m_hAccelTable = hFrameTable;
  m_pNote->m_hAccelTable = hNoteTable;
}

TEST(KeyText, ModifiersThenTheKeysName) {
  // Appended to the text given, modifiers in the order Alt, Ctrl, Shift (the
  // map's own lines show Ctrl+Shift+S and Delete).
  ACCEL accel = {FVIRTKEY | FALT | FCONTROL | FSHIFT, VK_F12, 1};
  CString str = "x";
  EXPECT_TRUE(VrkAccelToText(&accel, str));
  EXPECT_STREQ("xAlt+Ctrl+Shift+F12", str);
  const struct {
    UINT nKey;
    int nMode;
    const char* text;
  } keys[] = {{0x3F0001, 0, "F5"}, {VK_F5, 1, "F5"}, {0x3F, 2, "F5"}, {VK_F5, 3, ""}};
  for (const auto& c : keys) {
    CString str = "old";
    EXPECT_EQ((int)strlen(c.text), VrkKeyToText(c.nKey, str, c.nMode)) << c.nKey;
    EXPECT_STREQ(c.text, str) << c.nKey;
  }
}

} // namespace
