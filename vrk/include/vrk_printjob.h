// vrk_printjob.h - a print job outside the framework's document/view
// printing: derive, print the pages in OnPrint (usually through a
// VPrintUnit) and call Print. Every step of the job is a virtual operation.
#ifndef VRK_PRINTJOB_H
#define VRK_PRINTJOB_H

#include "vrkdefs.h"
#include "vrk_printer.h"
#include "vrk_printindex.h"

#include <afxdlgs.h>

class VPrintUnit;

class VRK_API VPrintJob : public CObject {
  DECLARE_DYNAMIC(VPrintJob)
public:
  enum {
    flagOwnPD = 0x0001,         // m_pPD is the job's own block (UseDefaults)
    flagEndPagePending = 0x0002 // a page is started and not yet ended
  };
  // Print's results.
  enum { printDone = 0, printCancelled = 1, printNoDialog = 2, printNoFile = 3 };

  VPrintJob();
  // Frees the job's own PRINTDLG block and its DC, the dialog (unless the
  // print info owns it), the DC object and the print info.
  virtual ~VPrintJob();

  // The whole job: dialog (or defaults), output file, DC, document, pages.
  // Returns printDone, printCancelled, printNoDialog or printNoFile; throws
  // VException (string 5014) when there is no printer DC or the spooler
  // refuses the document.
  int Print();

  // The steps, in this order in the table of virtual functions.
  // The framework print dialog of m_pInfo; NULL prints without a dialog
  // (UseDefaults must have been called). A dialog of an override's own is
  // run with DoModal and deleted by the job.
  virtual CDialog* CreatePrintDialog();
  // Puts the page range of the framework dialog in order (from = minimum,
  // to = maximum, the maximum at least the minimum) and uses its PRINTDLG.
  virtual int InitPrintDialog();
  // The application's CWinApp::DoPrintDialog for the framework dialog (so
  // that its printer is offered and remembered), else the dialog's DoModal.
  virtual int DoPrintDialog();
  // With print to file chosen: the Save As dialog; 0 when it is cancelled.
  virtual int DoPrintToFileDialog(CString& strPath);
  // A new CDC attached to m_pPD's DC (NULL without m_pPD).
  virtual CDC* CreatePrintDC();
  virtual void OnBeginPrinting();
  // Not aborted: the DEVMODE's copies go back to 1 for the next job.
  virtual void EndPrinting(int bAbort);
  // StartDoc with the main window disabled; 1 on success. On failure it
  // calls EndPrinting(1) and EndDocPrinting(1).
  virtual int StartDocPrinting(DOCINFOA& docInfo);
  // AbortDoc or EndDoc (a pending page is ended first), then the DC handle
  // is detached from m_pDC.
  virtual void EndDocPrinting(int bAbort);
  // m_bPrinting set, MM_TEXT.
  virtual void InitPrintDC();
  // The page and the printable area (see GetPageMargins).
  virtual void InitPrintInfo();
  // Left, top, right and bottom margins in device units; 0 = none.
  virtual int GetPageMargins(CRect* pMargins);
  // The DOCINFO: the output file when printing to a file. Override to name
  // the document.
  virtual void InitDocInfo(DOCINFOA& docInfo);
  // Print the pages here.
  virtual void OnPrint();
  // The application's printer without a dialog, into a PRINTDLG of the
  // job's own; use with a CreatePrintDialog that returns NULL.
  virtual void UseDefaults();

  // The names of m_pPD's DEVNAMES block.
  void GetDeviceNames(VDevNames* pNames);
  // Appends a copy of the item to the tree in the installed slot (made when
  // the slot holds NULL); nothing without a slot.
  void AddIndexItem(VIndexItem* pItem);
  int IsEndPagePending() const { return (m_dwFlags & flagEndPagePending) != 0; }
  void SetEndPagePending(int bPending);

  CDC* m_pDC;                      // the printer DC (owned)
  CDialog* m_pDlg;                 // from CreatePrintDialog
  VPrintInfo* m_pInfo;             // made anew by each Print (owned)
  PRINTDLGA* m_pPD;                // the PRINTDLG in use
  CRect m_rectPrintable;           // the page less the margins, device units
  CRect m_rectPage;                // the whole page, device units
  DWORD m_dwUser1;                 // for print units and derived classes
  DWORD m_dwUser2;                 // likewise
  DWORD m_dwFlags;                 // flagOwnPD, flagEndPagePending
  VPrintIndexTree** m_ppIndexTree; // where index items go, or NULL
  CString m_strUser;               // for derived classes
  CString m_strOutputFile;         // chosen for print to file

private:
  void FreeOwnPD();
  void ReleaseJobObjects();
  int IsInfoDialog(CDialog* pDlg) const;

  VPrintJob(const VPrintJob&);
  VPrintJob& operator=(const VPrintJob&);
};

// UseDefaults's dialog: shows nothing, makes a DC for the printer it was
// handed and says IDOK.
class VRK_API VBogusPrintDialog : public CPrintDialog {
public:
  explicit VBogusPrintDialog(DWORD dwFlags);
  virtual INT_PTR DoModal();
};

// Installs an index-tree slot in a job for its lifetime, then puts the
// previous slot back. Nested scopes build nested levels.
class VRK_API VSelectPrintJobIndexTree {
public:
  VSelectPrintJobIndexTree(VPrintJob* pJob, VPrintIndexTree** ppTree);
  // The unit's job (nothing without one).
  VSelectPrintJobIndexTree(VPrintUnit* pUnit, VPrintIndexTree** ppTree);
  ~VSelectPrintJobIndexTree();

private:
  void Install(VPrintJob* pJob, VPrintIndexTree** ppTree);

  VPrintJob* m_pJob;
  VPrintIndexTree** m_ppPrevious;

  VSelectPrintJobIndexTree(const VSelectPrintJobIndexTree&);
  VSelectPrintJobIndexTree& operator=(const VSelectPrintJobIndexTree&);
};

#endif // VRK_PRINTJOB_H
