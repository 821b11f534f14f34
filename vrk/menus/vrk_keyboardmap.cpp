// The keyboard map: every accelerator of the main frame and of the MDI
// document templates, one line each with its command's description, in a
// read-only rich edit document of the library's own template.
#include "vrk_accel.h"
#include "vrk_keyboardmap.h"

#include <afxtempl.h>

#include "resource.h"

IMPLEMENT_DYNAMIC(VKeyboardMapCntrItem, CRichEditCntrItem)
IMPLEMENT_DYNCREATE(VKeyboardMapDoc, CRichEditDoc)
IMPLEMENT_DYNCREATE(VKeyboardMapView, CRichEditView)

namespace {

const int kKeyColumn = 30; // characters of the key column (and of the sort key)

// One line of the map with what it is sorted by.
struct MapLine {
  CString strText;
  CString strKeys; // its first kKeyColumn characters
  int nModifiers;  // the "+" among them
};

// The accelerator tables to list: the main frame's, then each MDI
// template's, each table once.
void CollectTables(CArray<HACCEL, HACCEL>& tables) {
  CWinApp* pApp = AfxGetApp();
  if (pApp == NULL || pApp->m_pMainWnd == NULL ||
      !pApp->m_pMainWnd->IsKindOf(RUNTIME_CLASS(CFrameWnd)))
    return;
  HACCEL hFrameTable = ((CFrameWnd*)pApp->m_pMainWnd)->m_hAccelTable;
  if (hFrameTable != NULL) tables.Add(hFrameTable);
  POSITION pos = pApp->GetFirstDocTemplatePosition();
  while (pos != NULL) {
    CDocTemplate* pTemplate = pApp->GetNextDocTemplate(pos);
    if (!pTemplate->IsKindOf(RUNTIME_CLASS(CMultiDocTemplate))) continue;
    HACCEL hTable = ((CMultiDocTemplate*)pTemplate)->m_hAccelTable;
    if (hTable == NULL) continue;
    bool bListed = false;
    for (INT_PTR i = 0; i < tables.GetSize() && !bListed; i++)
      bListed = tables[i] == hTable;
    if (!bListed) tables.Add(hTable);
  }
}

// The command's prompt: its string up to the first "\n".
CString Describe(WORD wCommand) {
  CString strDescription;
  if (!strDescription.LoadString(wCommand)) return "** No description **";
  int nBreak = strDescription.Find('\n');
  if (nBreak >= 0) strDescription = strDescription.Left(nBreak);
  return strDescription;
}

void AddLines(HACCEL hTable, CArray<MapLine, const MapLine&>& lines) {
  int nEntries = VrkAccelGetCount(hTable);
  if (nEntries <= 0) return;
  CArray<ACCEL, const ACCEL&> entries;
  entries.SetSize(nEntries);
  nEntries = ::CopyAcceleratorTable(hTable, entries.GetData(), nEntries);
  for (int i = 0; i < nEntries; i++) {
    CString strKeys;
    VrkAccelToText(&entries[i], strKeys);
    MapLine line;
    line.strText.Format("%-30s%-60s", (LPCTSTR)strKeys, (LPCTSTR)Describe(entries[i].cmd));
    line.strKeys = line.strText.Left(kKeyColumn);
    line.nModifiers = 0;
    for (int j = 0; j < line.strKeys.GetLength(); j++)
      if (line.strKeys[j] == '+') line.nModifiers++;
    lines.Add(line);
  }
}

// Whether line a belongs after line b: more modifiers, or as many and a
// greater key column.
bool GoesAfter(const MapLine& a, const MapLine& b) {
  if (a.nModifiers != b.nModifiers) return a.nModifiers > b.nModifiers;
  return a.strKeys.Compare(b.strKeys) > 0;
}

// An exchange sort: each position takes the first line of the rest that
// belongs before it. Sorts the lines' indices, so that no text is copied.
void SortLines(const CArray<MapLine, const MapLine&>& lines, CArray<INT_PTR, INT_PTR>& order) {
  order.SetSize(lines.GetSize());
  for (INT_PTR i = 0; i < order.GetSize(); i++)
    order[i] = i;
  for (INT_PTR i = 0; i < order.GetSize(); i++)
    for (INT_PTR j = i + 1; j < order.GetSize(); j++)
      if (GoesAfter(lines[order[i]], lines[order[j]])) {
        INT_PTR nSwap = order[i];
        order[i] = order[j];
        order[j] = nSwap;
      }
}

CString BuildMapText() {
  CArray<HACCEL, HACCEL> tables;
  CollectTables(tables);
  CArray<MapLine, const MapLine&> lines;
  for (INT_PTR i = 0; i < tables.GetSize(); i++)
    AddLines(tables[i], lines);
  CArray<INT_PTR, INT_PTR> order;
  SortLines(lines, order);
  CString strText;
  for (INT_PTR i = 0; i < order.GetSize(); i++)
    strText += lines[order[i]].strText + "\r\n";
  return strText;
}

// The module's template, made when the map is first shown. It is not the
// application's: File New and the application's list of templates never
// offer it. It goes when the library unloads, unless maps are still open
// then (their windows belong to a process that is ending, and closing them
// from there is not safe): the system takes it back with the process.
class KeyboardMapTemplate {
public:
  ~KeyboardMapTemplate() {
    if (m_pTemplate != NULL && m_pTemplate->GetFirstDocPosition() == NULL) delete m_pTemplate;
  }
  CMultiDocTemplate* Get() {
    if (m_pTemplate == NULL)
      m_pTemplate =
          new CMultiDocTemplate(IDR_VRK_KEYBOARDMAP, RUNTIME_CLASS(VKeyboardMapDoc),
                                RUNTIME_CLASS(CMDIChildWnd), RUNTIME_CLASS(VKeyboardMapView));
    return m_pTemplate;
  }

private:
  CMultiDocTemplate* m_pTemplate = NULL;
};
KeyboardMapTemplate g_template;

} // namespace

void VrkAccelShowKeyboardMap() { g_template.Get()->OpenDocumentFile(NULL, TRUE); }

// ---- Document, view and item ----------------------------------------------------------------

VKeyboardMapCntrItem::VKeyboardMapCntrItem(REOBJECT* preo, CRichEditDoc* pContainer)
    : CRichEditCntrItem(preo, pContainer) {}

VKeyboardMapCntrItem::~VKeyboardMapCntrItem() {}

VKeyboardMapDoc::VKeyboardMapDoc() {}

VKeyboardMapDoc::~VKeyboardMapDoc() {}

BOOL VKeyboardMapDoc::OnNewDocument() { return CRichEditDoc::OnNewDocument(); }

CRichEditCntrItem* VKeyboardMapDoc::CreateClientItem(REOBJECT* preo) const {
  return new VKeyboardMapCntrItem(preo, const_cast<VKeyboardMapDoc*>(this));
}

VKeyboardMapView::VKeyboardMapView() : m_nReserved(0) {}

VKeyboardMapView::~VKeyboardMapView() {}

void VKeyboardMapView::OnInitialUpdate() {
  CRichEditView::OnInitialUpdate();
  CString strText = BuildMapText();

  // Underlined Courier at 10 twips, as the map has always been set.
  CHARFORMAT cf;
  memset(&cf, 0, sizeof(cf));
  cf.cbSize = 60;
  cf.dwMask = CFM_SIZE | CFM_FACE | CFM_UNDERLINE | CFM_BOLD;
  cf.dwEffects = CFE_UNDERLINE;
  cf.yHeight = 10;
  lstrcpynA(cf.szFaceName, "Courier", LF_FACESIZE);
  SendMessage(EM_SETCHARFORMAT, SCF_DEFAULT, (LPARAM)&cf);

  SendMessage(EM_REPLACESEL, FALSE, (LPARAM)(LPCTSTR)strText);
  SendMessage(EM_SETREADONLY, TRUE, 0);
  SendMessage(EM_SETMODIFY, FALSE, 0);
  SendMessage(EM_SETSEL, 0, 0);

  GetDocument()->SetTitle("Keyboard Map");
  SetMargins(CRect(720, 720, 720, 720));
}
