// Helpers for any combo box or list box, and the completion step shared by
// the completing combo boxes and the in-place editing combo box.
#include "vrk_combobox.h"
#include "vrk_exception.h"

#define VRK_SOURCE_FILE ".\\vrk_combobox.cpp"

BOOL VrkSetListBox(CListBox* pList, DWORD dwItemData) {
  if (pList == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 52);
  int nCount = pList->GetCount();
  for (int i = 0; i < nCount; i++) {
    if ((DWORD)pList->GetItemData(i) == dwItemData) {
      pList->SetCurSel(i);
      break;
    }
  }
  return TRUE;
}

BOOL VrkSetComboBox(CComboBox* pCombo, DWORD dwItemData) {
  if (pCombo == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, 74);
  int nCount = pCombo->GetCount();
  for (int i = 0; i < nCount; i++) {
    if ((DWORD)pCombo->GetItemData(i) == dwItemData) {
      pCombo->SetCurSel(i);
      break;
    }
  }
  return TRUE;
}

BOOL VrkComboBoxIsDropDown(HWND hWnd) {
  if (hWnd == NULL || !::IsWindow(hWnd)) return FALSE;
  char szClass[11]; // "ComboLBox" and its terminator; longer names are cut and differ
  if (::GetClassNameA(hWnd, szClass, sizeof(szClass)) == 0) return FALSE;
  return lstrcmpiA(szClass, "ComboLBox") == 0;
}

BOOL CALLBACK VrkComboBoxChildEnumProc(HWND hWnd, LPARAM lParam) {
  if (lParam == 0) return FALSE;
  *(HWND*)lParam = hWnd;
  return TRUE;
}

HWND VrkComboBoxGetChildEditCtrl(CComboBox* pCombo) {
  if (pCombo == NULL || pCombo->m_hWnd == NULL) return NULL;
  HWND hChild = NULL;
  ::EnumChildWindows(pCombo->m_hWnd, VrkComboBoxChildEnumProc, (LPARAM)&hChild);
  return hChild;
}

// A null combo box has no text: -1, strText untouched.
int VrkComboBoxGetSafeText(CComboBox* pCombo, CString& strText) {
  if (pCombo == NULL || !::IsWindow(pCombo->m_hWnd)) return -1;
  if (!pCombo->GetDroppedState() && (pCombo->GetStyle() & CBS_DROPDOWN)) {
    HWND hEdit = VrkComboBoxGetChildEditCtrl(pCombo);
    if (hEdit != NULL && ::SendMessage(hEdit, EM_GETMODIFY, 0, 0)) {
      pCombo->GetWindowText(strText);
      return -1;
    }
  }
  int nSel = pCombo->GetCurSel();
  if (nSel == CB_ERR) return -1;
  pCombo->GetLBText(nSel, strText);
  return nSel;
}

void VrkComboBoxDoQuickenAction(CComboBox* pCombo, int nFlags) {
  if (pCombo == NULL || !::IsWindow(pCombo->m_hWnd)) return;
  CString strTyped;
  pCombo->GetWindowText(strTyped);
  int nIndex = (int)pCombo->SendMessage(CB_FINDSTRING, (WPARAM)-1, (LPARAM)(LPCSTR)strTyped);
  if (nIndex == CB_ERR) return;
  pCombo->SetCurSel(nIndex);
  if (!(nFlags & VRK_COMBO_COMPLETE)) return;

  CString strEntry;
  pCombo->GetLBText(nIndex, strEntry);
  int nTyped = strTyped.GetLength();
  int nEntry = strEntry.GetLength();
  if ((nFlags & VRK_COMBO_KEEPTYPED) && nTyped <= nEntry)
    strEntry = strTyped + strEntry.Right(nEntry - nTyped);
  // Selecting the entry has already put its text into a drop-down's edit;
  // setting the same text again would only lay the edit out a second time,
  // the dearest part of the step.
  CString strShown;
  pCombo->GetWindowText(strShown);
  if (strShown != strEntry) pCombo->SetWindowText(strEntry);
  if (nTyped <= nEntry) pCombo->SetEditSel(nTyped, -1);
}

// ---- VCustomComboBox ----------------------------------------------------------

IMPLEMENT_DYNCREATE(VCustomComboBox, CButton)

BEGIN_MESSAGE_MAP(VCustomComboBox, CButton)
ON_CONTROL_REFLECT(BN_CLICKED, &VCustomComboBox::OnClicked)
ON_WM_CREATE()
ON_MESSAGE(WM_SETFONT, &VCustomComboBox::OnSetFont)
END_MESSAGE_MAP()

VCustomComboBox::VCustomComboBox() : m_nReserved(0), m_rcButton(0, 0, 0, 0) {}

VCustomComboBox::~VCustomComboBox() {}

void VCustomComboBox::PreSubclassWindow() {
  ModifyStyle(0, BS_OWNERDRAW);
  CButton::PreSubclassWindow();
  SetWindowSize();
}

int VCustomComboBox::OnCreate(LPCREATESTRUCT /*lpCreateStruct*/) {
  int nResult = (int)Default();
  if (nResult != -1) SetWindowSize();
  return nResult;
}

// The font is not passed on to the button: only the size follows it.
LRESULT VCustomComboBox::OnSetFont(WPARAM /*wParam*/, LPARAM lParam) {
  if (LOWORD(lParam)) SetWindowSize();
  return 0;
}

void VCustomComboBox::SetWindowSize() {
  if (m_hWnd == NULL) return;
  int cxButton = ::GetSystemMetrics(SM_CXHTHUMB);
  int cxEdge = ::GetSystemMetrics(SM_CXEDGE), cyEdge = ::GetSystemMetrics(SM_CYEDGE);
  int cy = ::GetSystemMetrics(SM_CYVTHUMB) + 2 * cyEdge;
  CDC* pDC = GetDC();
  if (pDC != NULL) {
    TEXTMETRIC tm;
    if (pDC->GetTextMetrics(&tm) && tm.tmHeight + 2 > cy) cy = tm.tmHeight + 2;
    ReleaseDC(pDC);
  }
  CRect rcWindow;
  GetWindowRect(&rcWindow);
  int cx = rcWindow.Width();
  if (cx < cxButton + 2 * cxEdge) cx = cxButton + 2 * cxEdge;
  SetWindowPos(NULL, 0, 0, cx, cy, SWP_NOMOVE | SWP_NOZORDER);
  m_rcButton.SetRect(cx - cxButton - cxEdge, cyEdge, cx - cxEdge, cy - cyEdge);
}

void VCustomComboBox::DrawItem(LPDRAWITEMSTRUCT lpDIS) {
  if (lpDIS == NULL) return;
  UINT nState = DFCS_SCROLLDOWN;
  if (GetState() & BST_PUSHED) nState |= DFCS_PUSHED;
  if (lpDIS->itemState & ODS_DISABLED) nState |= DFCS_INACTIVE;
  CRect rcButton = m_rcButton;
  ::DrawFrameControl(lpDIS->hDC, &rcButton, DFC_SCROLL, nState);
  CRect rc = lpDIS->rcItem;
  ::DrawEdge(lpDIS->hDC, &rc, EDGE_SUNKEN, BF_RECT);
  rc.DeflateRect(::GetSystemMetrics(SM_CXEDGE), ::GetSystemMetrics(SM_CYEDGE));
  rc.right -= m_rcButton.Width();
  lpDIS->rcItem = rc;
  DrawUserArea(lpDIS);
}

void VCustomComboBox::DrawUserArea(DRAWITEMSTRUCT* lpDIS) {
  if (lpDIS == NULL) return;
  HDC hDC = lpDIS->hDC;
  BOOL bDisabled = (lpDIS->itemState & ODS_DISABLED) != 0;
  CRect rc = lpDIS->rcItem;
  ::FillRect(hDC, &rc, ::GetSysColorBrush(bDisabled ? COLOR_3DFACE : COLOR_WINDOW));
  COLORREF crOld =
      ::SetTextColor(hDC, ::GetSysColor(bDisabled ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
  int nOldMode = ::SetBkMode(hDC, TRANSPARENT);
  CString strText;
  GetWindowText(strText);
  CRect rcText = rc;
  rcText.DeflateRect(2, 2);
  ::DrawTextA(hDC, strText, strText.GetLength(), &rcText, DT_SINGLELINE | DT_VCENTER);
  ::SetBkMode(hDC, nOldMode);
  ::SetTextColor(hDC, crOld);
  if (lpDIS->itemState & ODS_FOCUS) {
    CRect rcFocus = rc;
    rcFocus.DeflateRect(1, 1);
    ::DrawFocusRect(hDC, &rcFocus);
  }
}

void VCustomComboBox::OnClicked() { ShowDropDown(); }

BOOL VCustomComboBox::ShowDropDown() {
  CWnd* pParent = GetParent();
  if (pParent != NULL)
    pParent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), 1), (LPARAM)m_hWnd);
  return TRUE;
}

// ---- VFaceNameComboBox ----------------------------------------------------------

namespace {

// GDI+'s flat interface, loaded by name when a face list is filled: a
// machine without GDI+ gets an empty list rather than a library that does
// not load.
struct GdiplusStartupInputA {
  UINT32 GdiplusVersion;
  void* DebugEventCallback;
  BOOL SuppressBackgroundThread;
  BOOL SuppressExternalCodecs;
};
typedef int(WINAPI* StartupFn)(ULONG_PTR*, const GdiplusStartupInputA*, void*);
typedef void(WINAPI* ShutdownFn)(ULONG_PTR);
typedef int(WINAPI* NewInstalledFn)(void**);
typedef int(WINAPI* FamilyCountFn)(void*, INT*);
typedef int(WINAPI* FamilyListFn)(void*, INT, void**, INT*);
typedef int(WINAPI* FamilyNameFn)(const void*, WCHAR*, LANGID);

// Calls pfnAdd with each installed family's name (language 0).
template <class Add> void ForEachInstalledFamily(Add pfnAdd) {
  HMODULE hGdiplus = ::LoadLibraryA("gdiplus.dll");
  if (hGdiplus == NULL) return;
  StartupFn pfnStartup = (StartupFn)(void*)::GetProcAddress(hGdiplus, "GdiplusStartup");
  ShutdownFn pfnShutdown = (ShutdownFn)(void*)::GetProcAddress(hGdiplus, "GdiplusShutdown");
  NewInstalledFn pfnNew =
      (NewInstalledFn)(void*)::GetProcAddress(hGdiplus, "GdipNewInstalledFontCollection");
  FamilyCountFn pfnCount =
      (FamilyCountFn)(void*)::GetProcAddress(hGdiplus, "GdipGetFontCollectionFamilyCount");
  FamilyListFn pfnList =
      (FamilyListFn)(void*)::GetProcAddress(hGdiplus, "GdipGetFontCollectionFamilyList");
  FamilyNameFn pfnName = (FamilyNameFn)(void*)::GetProcAddress(hGdiplus, "GdipGetFamilyName");
  ULONG_PTR token = 0;
  GdiplusStartupInputA input = {1, NULL, FALSE, FALSE};
  if (pfnStartup && pfnShutdown && pfnNew && pfnCount && pfnList && pfnName &&
      pfnStartup(&token, &input, NULL) == 0) {
    void* pCollection = NULL;
    INT nCount = 0;
    if (pfnNew(&pCollection) == 0 && pfnCount(pCollection, &nCount) == 0 && nCount > 0) {
      // The families belong to the installed collection: they are not deleted.
      void** ppFamilies = new void*[nCount];
      INT nFound = 0;
      if (pfnList(pCollection, nCount, ppFamilies, &nFound) == 0) {
        for (INT i = 0; i < nFound && i < nCount; i++) {
          WCHAR szWide[LF_FACESIZE] = L"";
          char szName[LF_FACESIZE * 2] = "";
          if (pfnName(ppFamilies[i], szWide, 0) == 0 &&
              ::WideCharToMultiByte(CP_ACP, 0, szWide, -1, szName, sizeof(szName), NULL, NULL))
            pfnAdd(szName);
        }
      }
      delete[] ppFamilies;
    }
    pfnShutdown(token);
  }
  ::FreeLibrary(hGdiplus);
}

} // namespace

BEGIN_MESSAGE_MAP(VFaceNameComboBox, CComboBox)
ON_WM_CREATE()
ON_CONTROL_REFLECT_EX(CBN_SELCHANGE, &VFaceNameComboBox::OnSelChange)
END_MESSAGE_MAP()

void VFaceNameComboBox::AddFaceNames(int(CALLBACK* /*pfnFilter*/)(ENUMLOGFONTA*)) {
  if (m_hWnd == NULL) return;
  ResetContent();
  ForEachInstalledFamily([this](const char* pszName) { AddString(pszName); });
}

void VFaceNameComboBox::PreSubclassWindow() {
  CComboBox::PreSubclassWindow();
  AddFaceNames(NULL);
}

int VFaceNameComboBox::OnCreate(LPCREATESTRUCT /*lpCreateStruct*/) {
  int nResult = (int)Default();
  if (nResult != -1) AddFaceNames(NULL);
  return nResult;
}

// FALSE: the parent sees the notification too.
BOOL VFaceNameComboBox::OnSelChange() {
  CWnd* pNext = CWnd::FromHandlePermanent(::GetWindow(m_hWnd, GW_HWNDNEXT));
  if (pNext == NULL || !pNext->IsKindOf(RUNTIME_CLASS(VPointSizeComboBox))) return FALSE;
  VPointSizeComboBox* pSizes = (VPointSizeComboBox*)pNext;
  CString strFace, strSize;
  int nFace = GetCurSel();
  if (nFace != CB_ERR) GetLBText(nFace, strFace);
  int nSize = pSizes->GetCurSel();
  if (nSize != CB_ERR) pSizes->GetLBText(nSize, strSize);
  pSizes->AddPointSizes(strFace);
  if (pSizes->GetCount() > 0) {
    int nIndex = pSizes->FindStringExact(-1, strSize);
    pSizes->SetCurSel(nIndex != CB_ERR ? nIndex : 0);
  }
  return FALSE;
}

// ---- VPointSizeComboBox ---------------------------------------------------------

IMPLEMENT_DYNAMIC(VPointSizeComboBox, CComboBox)

void VPointSizeComboBox::AddPointSizes(LPCSTR /*pszFaceName*/) {
  static const int s_sizes[] = {4,  5,  6,  7,  8,  9,  10, 11, 12, 14,  16, 18,
                                20, 22, 24, 26, 28, 36, 48, 72, 96, 120, 144};
  if (m_hWnd == NULL) return;
  ModifyStyle(CBS_SORT, 0);
  ResetContent();
  for (int nSize : s_sizes) {
    char szSize[16];
    wsprintfA(szSize, "%d", nSize);
    int nIndex = AddString(szSize);
    if (nIndex >= 0) SetItemData(nIndex, (DWORD_PTR)nSize);
  }
}
