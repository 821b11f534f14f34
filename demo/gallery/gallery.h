// gallery.h - the VRK gallery: an MDI application that shows the library's
// user-interface classes at work. The resource compiler reads this file
// too: it sees only the #defines.
#ifndef VRK_GALLERY_H
#define VRK_GALLERY_H

#define IDR_MAINFRAME 128
#define IDR_PAGETYPE 129
#define IDR_PAGES 130
#define IDD_ABOUTBOX 140

// One command opens each page of the gallery.
#define ID_PAGE_WELCOME 0x8100
#define ID_PAGE_CONTROLS 0x8101
#define ID_PAGE_GRID 0x8102
#define ID_PAGE_PRINTING 0x8103
#define ID_VIEW_PAGES_BAR 0x8110
#define ID_TOOLS_PROGRESS 0x8120
#define ID_DIALOGS_MESSAGE 0x8130
#define ID_DIALOGS_INPUT 0x8131
#define ID_DIALOGS_ZOOM 0x8132
#define ID_DIALOGS_FOLDER 0x8133
#define ID_DIALOGS_TRACE 0x8134
#define ID_HELP_KEYBOARDMAP 0x8140

#define IDC_GALLERY_DATE 1001
#define IDC_GALLERY_TIME 1002
#define IDC_GALLERY_NAME 1003
#define IDC_GALLERY_FACE 1004
#define IDC_GALLERY_SIZE 1005
#define IDC_GALLERY_COLOUR 1006
#define IDC_GALLERY_CELL 1007

#define IDW_PAGES_BAR 0xE81F // a control bar id: AFX_IDW_CONTROLBAR_FIRST + 0x1F

#ifndef RC_INVOKED
#include <afxext.h>
#include <vrk_colorctrl.h>
#include <vrk_combobox.h>
#include <vrk_accel.h>
#include <vrk_coolmenu.h>
#include <vrk_dialogs.h>
#include <vrk_msgbox.h>
#include <vrk_tracedlg.h>
#include <vrk_editmode.h>
#include <vrk_maskedit.h>
#include <vrk_statusbar.h>

// Appends a line to the event log named by /log:<file> on the command line
// (the demo's driver reads it back); nothing without one.
void GalleryLog(const char* pszFormat, ...);

// The application: one document template per kind of page.
class CGalleryApp : public CWinApp {
public:
  CGalleryApp();
  virtual BOOL InitInstance();
  // Opens (or activates) the page of the given kind.
  CDocument* OpenPage(UINT nPageID);

  afx_msg void OnFileNew();
  afx_msg void OnFileOpen();
  afx_msg void OnPage(UINT nID);
  afx_msg void OnDialogsMessage();
  afx_msg void OnDialogsInput();
  afx_msg void OnDialogsZoom();
  afx_msg void OnDialogsFolder();
  afx_msg void OnDialogsTrace();
  afx_msg void OnAppAbout();
  afx_msg void OnHelpKeyboardMap();
  DECLARE_MESSAGE_MAP()

private:
  CMultiDocTemplate* TemplateOf(UINT nPageID);
  CMultiDocTemplate* m_pTemplates[ID_PAGE_PRINTING - ID_PAGE_WELCOME + 1];
};

class CMainFrame : public CMDIFrameWnd {
  DECLARE_DYNAMIC(CMainFrame)
public:
  CToolBar m_wndToolBar;
  CToolBar m_wndPagesBar;
  VStatusBar m_wndStatusBar;
  VCoolMenuManager m_menuManager; // the toolbars' images in the menus

  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg void OnToolsProgress();
  afx_msg void OnUpdateToolsProgress(CCmdUI* pCmdUI);
  afx_msg void OnTimer(UINT_PTR nIDEvent);
  afx_msg void OnViewPagesBar();
  afx_msg void OnUpdateViewPagesBar(CCmdUI* pCmdUI);
  DECLARE_MESSAGE_MAP()

private:
  // A job of three documents of ten pages each, shown as nested progress:
  // the outer operation counts documents, the inner one pages.
  enum { nDocuments = 3, nPages = 10 };
  void StartDocument();
  POSITION m_posJob = NULL, m_posDocument = NULL;
  int m_nDocument = 0, m_nPage = 0;
};

// Every page is a document of its own; its title names the page.
class CPageDoc : public CDocument {
  DECLARE_DYNCREATE(CPageDoc)
};

// The first page: what the library is, and what the gallery shows.
class CWelcomeView : public CView {
  DECLARE_DYNCREATE(CWelcomeView)
public:
  virtual void OnDraw(CDC* pDC);
};

// The Controls page: masked date and time edits, the completing, face-name,
// point-size and colour combo boxes, and a sample text in the chosen font.
class CControlsView : public CView {
  DECLARE_DYNCREATE(CControlsView)
public:
  virtual void OnDraw(CDC* pDC);
  virtual void OnInitialUpdate();
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  afx_msg int OnCreate(LPCREATESTRUCT lpcs);
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg void OnValueChanged();
  afx_msg void OnNameChanged();
  afx_msg LRESULT OnNameCompleted(WPARAM wParam, LPARAM lParam);
  afx_msg void OnStyleChanged();
  afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
  DECLARE_MESSAGE_MAP()

private:
  void AddLabel(CStatic& label, const char* pszText, int nTop);
  VDateEdit m_editDate;
  VTimeEdit m_editTime;
  VAutoComboBox m_comboName;
  VFaceNameComboBox m_comboFace;
  VPointSizeComboBox m_comboSize;
  VColorComboBox m_comboColour;
  CStatic m_result;
  CStatic m_sample;
  CFont m_fontSample;
  CStatic m_labels[6];
};

// The Grid page: a small table whose cells are edited in place. Enter or F2
// (or a double click) puts an edit over the current cell; Enter keeps the
// text, Escape drops it, a click elsewhere keeps it.
class CGridView : public CView {
  DECLARE_DYNCREATE(CGridView)
public:
  enum { nRows = 8, nCols = 4 };
  CGridView();
  virtual void OnDraw(CDC* pDC);
  CRect CellRect(int nRow, int nCol) const;
  void SetCell(int nRow, int nCol, const CString& strText);
  afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
  afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg LRESULT OnEditMode(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnEditDone(WPARAM wParam, LPARAM lParam);
  DECLARE_MESSAGE_MAP()

private:
  BOOL HitTest(CPoint point, int& nRow, int& nCol) const;
  void MoveTo(int nRow, int nCol); // makes another cell the current one
  void BeginEdit();
  CString m_cells[nRows][nCols];
  int m_nRow = 1, m_nCol = 1;
  VEditCtrl* m_pEdit = NULL;
};

// A printed document: a numbered text of several pages, printed from
// File > Print to the printer the user picks.
class CPrintingView : public CView {
  DECLARE_DYNCREATE(CPrintingView)
public:
  enum { nLines = 150 };
  virtual void OnDraw(CDC* pDC);
  virtual BOOL OnPreparePrinting(CPrintInfo* pInfo);
  virtual void OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo);
  virtual void OnPrint(CDC* pDC, CPrintInfo* pInfo);
  virtual void OnEndPrinting(CDC* pDC, CPrintInfo* pInfo);
  DECLARE_MESSAGE_MAP()

private:
  static CString LineText(int nLine);
  int m_nLinesPerPage = 50;
  CFont m_fontPrint; // 10 points on the printer, made for each job
};

#endif // RC_INVOKED
#endif // VRK_GALLERY_H
