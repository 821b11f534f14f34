// afxrich.h: the rich edit document/view: CRichEditView (a view that is the
// system's rich edit control), CRichEditDoc and CRichEditCntrItem.
//
// No OLE embedding: CRichEditDoc is a plain CDocument (not an OLE server
// document) and CRichEditCntrItem a plain CObject; the document holds its
// text in the view's control and archives it as RTF or plain text. Objects
// embedded in the text are neither created nor kept.
#ifndef __AFXRICH_H__
#define __AFXRICH_H__

#include "afxwin.h"
#include "afxcmn.h"
#include "afxext.h"
#include <richole.h>

class CRichEditDoc;
class CRichEditView;

// An item of a rich edit document's container (no OLE object behind it).
class AFX_API CRichEditCntrItem : public CObject {
  DECLARE_DYNAMIC(CRichEditCntrItem)
public:
  explicit CRichEditCntrItem(REOBJECT* preo = NULL, CRichEditDoc* pContainer = NULL);
  virtual ~CRichEditCntrItem();

  CRichEditDoc* GetDocument() const { return m_pDocument; }

  CRichEditDoc* m_pDocument;
  DWORD m_dwFlags;  // the REOBJECT's flags it was made from (0 without one)
  DWORD m_dvaspect; // its aspect (DVASPECT_CONTENT without one)
};

// A view that is a rich edit control, with page margins and a paper size (in
// twips) for printing, and the control's word wrap.
class AFX_API CRichEditView : public CCtrlView {
  DECLARE_DYNCREATE(CRichEditView)
public:
  CRichEditView();
  virtual ~CRichEditView();

  enum WordWrapType { WrapNone = 0, WrapToWindow = 1, WrapToTargetDevice = 2 };

  CRichEditCtrl& GetRichEditCtrl() const { return *(CRichEditCtrl*)this; }
  CRichEditDoc* GetDocument() const { return (CRichEditDoc*)m_pDocument; }

  // Margins of the printed page, in twips (1,440 an inch).
  CRect GetMargins() const { return m_rectMargin; }
  void SetMargins(const CRect& rectMargin) { m_rectMargin = rectMargin; }
  // The paper, in twips (Letter, 12,240 by 15,840, until set).
  CSize GetPaperSize() const { return m_sizePaper; }
  void SetPaperSize(CSize sizePaper);
  // The printable rectangle: the paper less the margins, in twips.
  CRect GetPrintRect() const;
  int GetPrintWidth() const { return m_sizePaper.cx - m_rectMargin.left - m_rectMargin.right; }
  CRect GetPageRect() const { return CRect(CPoint(0, 0), m_sizePaper); }
  // The number of characters (a paragraph break counts one).
  long GetTextLength() const { return GetRichEditCtrl().GetTextLengthEx(GTL_DEFAULT); }

  // Applies m_nWordWrap to the control.
  virtual void WrapChanged();
  // Empties the control (text, undo and the modified flag).
  virtual void DeleteContents();
  // The control's contents to or from the archive (RTF when bRTF).
  virtual void Serialize(CArchive& ar);
  void Stream(CArchive& ar, BOOL bSelection);

  // Prints [nIndexStart, nIndexStop) (nIndexStop -1: to the end) on one
  // page of pDC within the print rectangle; the index of the first
  // character left for the next page.
  long PrintPage(CDC* pDC, long nIndexStart, long nIndexStop);
  // As PrintPage, only measuring when bDisplay is FALSE.
  long FormatPage(CDC* pDC, long nIndexStart, long nIndexStop, BOOL bDisplay);

  virtual void OnPrepareDC(CDC* pDC, CPrintInfo* pInfo = NULL);
  virtual void OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo);
  virtual void OnPrint(CDC* pDC, CPrintInfo* pInfo);
  virtual void OnEndPrinting(CDC* pDC, CPrintInfo* pInfo);

  int m_nWordWrap;
  CRect m_rectMargin;
  CSize m_sizePaper;
  CDWordArray m_aPageStart; // the first character of each page found so far
  CDC m_dcTarget;           // the printer lines are broken for (WrapToTargetDevice)

  afx_msg int OnCreate(LPCREATESTRUCT lpcs);

protected:
  DECLARE_MESSAGE_MAP()
};

// A document whose contents live in its CRichEditView's control; while the
// view is there, the control's modify flag is the document's.
class AFX_API CRichEditDoc : public CDocument {
  DECLARE_DYNAMIC(CRichEditDoc)
protected:
  CRichEditDoc();

public:
  virtual ~CRichEditDoc();

  // The first view that is a CRichEditView, or NULL.
  CRichEditView* GetView() const;
  // SF_RTF or SF_TEXT, as m_bRTF says.
  int GetStreamFormat() const { return m_bRTF ? SF_RTF : SF_TEXT; }
  // The item that stands for an object in the text; each document kind
  // makes its own.
  virtual CRichEditCntrItem* CreateClientItem(REOBJECT* preo = NULL) const = 0;

  virtual BOOL IsModified();
  virtual void SetModifiedFlag(BOOL bModified = TRUE);
  virtual void DeleteContents();
  virtual void Serialize(CArchive& ar);

  BOOL m_bRTF; // archived as RTF (TRUE) or plain text
};

#endif // __AFXRICH_H__
