// vrk_statusbar.h - a status bar with per-pane contents (text sized to fit,
// coloured text, bitmaps), a lock on its message text, and nested progress
// shown as a bar beside the first pane's text.
#ifndef VRK_STATUSBAR_H
#define VRK_STATUSBAR_H

#include "vrkdefs.h"
#include <afxext.h>
#include <afxcmn.h>
#include <afxtempl.h>

// What a pane shows, as last set by SetPaneContents.
struct VPaneData {
  UINT nBitmapID;  // bitmap resource drawn in the pane, 0 for none
  UINT nStyle;     // the pane style last set
  int nWidth;      // the pane width last set
  int nKind;       // 0 plain text, 1 coloured text, 2 reset at the next draw
  COLORREF crText; // coloured text
  COLORREF crBack;
};

// One running progress operation. The bounds, step and position are in the
// caller's units; the bar shows percent.
struct VProgressData {
  CString strText; // the message shown while it runs
  int nLower;
  int nUpper;
  int nStep;
  int nPos;
};

class VRK_API VStatusBar : public CStatusBar {
  DECLARE_DYNAMIC(VStatusBar)
public:
  VStatusBar();
  virtual ~VStatusBar();

  // Every pane starts plain; then as CStatusBar.
  virtual BOOL SetIndicators(const UINT* pIDs, int nCount);

  // Plain text: the pane as wide as the text (bFitText) or nWidth. An empty
  // text with width 0 hides the pane; a text with width 0 changes nothing.
  virtual void SetPaneContents(int nIndex, LPCSTR pszText, int nWidth, BOOL bFitText);
  // A bitmap resource drawn at the pane's top-left corner, unscaled; fitted,
  // the pane is the bitmap's width less 4.
  virtual void SetPaneContents(int nIndex, UINT nBitmapID, int nWidth, BOOL bFitBitmap);
  // Text in crText on crBack, sized as plain text.
  virtual void SetPaneContents(int nIndex, COLORREF crText, COLORREF crBack, LPCSTR pszText,
                               int nWidth, BOOL bFitText);
  virtual BOOL IsBitmapInPane(int nIndex);
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDIS);

  // Progress operations nest: each start shows its text (locked against the
  // framework's messages) and its own position on the bar, and returns the
  // handle that the other calls take; stopping goes back to the operation
  // started before it, or, after the last, hides the bar and shows strText.
  // The bar shows trunc(nPos / (nUpper - nLower) * 100) percent: the lower
  // bound is not subtracted. Only the newest operation moves the bar.
  virtual POSITION StartProgress(int nLower, int nUpper, CString strText);
  // The position and step setters return the previous value.
  virtual int SetProgressPos(POSITION pos, int nPos);
  virtual int StepIt(POSITION pos);
  virtual int SetStep(POSITION pos, int nStep);
  virtual void StopProgress(POSITION pos, CString strText);

  // The message text: while locked, WM_SETTEXT (the frame's idle message and
  // prompts) leaves it alone.
  virtual void SetWindowTextAndLock(LPCSTR pszText);
  virtual void SetWindowTextAndUnlock(LPCSTR pszText);

protected:
  // Where the bar goes beside a message nTextWidth pixels wide: from 1/100
  // of the bar's width past the text, 3/16 of the width long, from 16.25 %
  // of the height down, 85 % of the height tall.
  virtual CRect GetProgressRect(int nTextWidth);

  CArray<VPaneData, VPaneData&> m_arrPaneData;
  CProgressCtrl* m_pProgress;
  BOOL m_bTextLocked;
  CList<VProgressData, VProgressData&>* m_pProgressList;

  VPaneData& PaneData(int nIndex);
  void SetTextContents(int nIndex, LPCSTR pszText, int nWidth, BOOL bFitText, BOOL bColored,
                       COLORREF crText, COLORREF crBack);
  int MeasureText(LPCSTR pszText);
  BOOL IsProgressPos(POSITION pos) const;
  void ShowTextLocked(LPCSTR pszText, BOOL bLock);

  afx_msg LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
  DECLARE_MESSAGE_MAP()
};

#endif // VRK_STATUSBAR_H
