// vrk_printunit.h - lays out text on the pages of a print job.
//
// A VPrintUnit is made inside the job's OnPrint and bound to the job and
// its printer DC. It keeps a current position in the job's printable area
// (logical units), a text font and a heading font, and the number of the
// page it is on. What it does:
//   - PrintTextLine prints a line in the control-character format of
//     VPrintTextLineParser: left parts follow each other, a centred part is
//     centred and a right part right-aligned on the line, 0x1C fills the gap
//     before a part with dots, 0x0A starts a new line. A left part wider
//     than the room left is wrapped at its last space that fits, or between
//     characters where it has none; a centred or right part that does not
//     fit beside what the line already holds goes to the next line.
//   - A line that does not fit above the bottom of the printable area goes
//     to a new page. Pages are started when the first thing is printed on
//     them and ended by NewPage or the job's end of document.
//   - With a page range chosen in the print dialog, the pages outside it are
//     laid out (so page numbers stay right) but not sent to the printer.
//   - PrintTree prints an index tree: one line per entry, indented by level,
//     with a dot leader and the page number right-aligned where the entry's
//     flags ask for them. An indent leaves at least a quarter of the line
//     for the text; levels deeper than 256 are not printed (a tree that
//     holds itself would never end). AddIndexEntry records an entry with
//     the number of the page the position is on (call it right after
//     printing the heading) into the job's installed index tree.
// What it leaves out: columns, tables, pictures, headers and footers, font
// pairs beyond the one text/heading pair (no VSelectActivePair),
// justification, hyphenation, right-to-left text, and mapping modes whose y
// axis points up (the unit lays out downwards, as in MM_TEXT).
#ifndef VRK_PRINTUNIT_H
#define VRK_PRINTUNIT_H

#include "vrkdefs.h"
#include "vrk_printjob.h"
#include "vrk_printtextline.h"

class VRK_API VPrintUnit : public CObject {
  DECLARE_DYNAMIC(VPrintUnit)
public:
  // The unit prints on pJob's DC (none: the unit prints nothing).
  explicit VPrintUnit(VPrintJob* pJob);
  virtual ~VPrintUnit();

  VPrintJob* GetJob() const { return m_pJob; }
  CDC* GetDC() const { return m_pJob != NULL ? m_pJob->m_pDC : NULL; }

  // The fonts, in points on the job's printer; made as Arial 10 and Arial
  // 14 bold when first needed if not set.
  BOOL SetFonts(const char* pszFace, int nTextPoints, int nHeadingPoints);
  CFont* GetTextFont();
  CFont* GetHeadingFont();
  // The font lines are printed with (the text font by default).
  void SetActiveFont(CFont* pFont) { m_pActiveFont = pFont; }
  CFont* GetActiveFont();

  // Position, logical units; the printable area is the job's m_rectDraw.
  CPoint GetPos() const { return m_ptPos; }
  void SetPos(CPoint pt) { m_ptPos = pt; }
  CRect GetArea() const;
  // The number of the page the position is on, from 1.
  int GetPageNumber() const { return m_nPage; }

  // Text lines (see above); nIndent moves the left edge to the right.
  void PrintTextLine(const char* pszLine, int nIndent = 0);
  // One line in the heading font, then the text font is active again.
  void PrintHeading(const char* pszText);
  // Moves down by n lines of the active font.
  void LineFeed(int nLines = 1);

  // Ends the current page (if one is started) and goes to the top of the
  // next, which starts with the next thing printed.
  void NewPage();

  // The index: AddIndexItem forwards to the job; AddIndexEntry records
  // pszText with the current page (the page the next line goes to).
  void AddIndexItem(VIndexItem* pItem);
  void AddIndexEntry(const char* pszText,
                     DWORD dwFlags = VIndexItem::flagLeader | VIndexItem::flagPage);
  // Pre-order: each item, then its sub-tree one level deeper.
  virtual void PrintTree(VPrintIndexTree* pTree, int nLevel);
  // The entry's line: its text and, with flagPage, 0x1C (with flagLeader),
  // 0x1E and the page number.
  virtual void PrintTreeItem(VIndexItem& item, int nLevel);
  // A level's font (NULL keeps the active one), indent and line height (0:
  // the text's own); by default no font, nLevel * 100 and 0.
  virtual CFont* GetLevelInfo(int nLevel, int& nIndent, int& nHeight);

protected:
  // Starts the page if it is not yet started; FALSE when nothing can print.
  BOOL BeginPage();
  void EndPage();
  // Goes to a new page when nHeight does not fit below the position.
  void MakeRoom(int nHeight);
  int LineHeight();
  BOOL IsPageOutput() const;
  void DrawAt(int x, int y, const char* psz, int nLength);
  void DrawLeader(int xFrom, int xTo, int y);
  int TextWidth(const char* psz, int nLength);
  // Prints a left part from the position, wrapping it; returns the x where
  // it ends on its last line.
  int PrintLeft(const CString& strText, int x, int nLeft, int nRight);
  void NextRow(int nLeft);

  VPrintJob* m_pJob;
  CPoint m_ptPos;
  int m_nPage;
  BOOL m_bPageStarted;
  int m_nRowHeight; // the height of the row being printed
  CFont m_fontText;
  CFont m_fontHeading;
  CFont* m_pActiveFont;

private:
  VPrintUnit(const VPrintUnit&);
  VPrintUnit& operator=(const VPrintUnit&);
};

#endif // VRK_PRINTUNIT_H
