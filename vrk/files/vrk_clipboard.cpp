// Text, objects and ready blocks on the clipboard. The clipboard is opened
// and closed within each call (but for VrkClipboardPutText's empty string),
// and closed again when an exception passes through.
#include "vrk_global.h"

#include <afxwin.h>

namespace {

// The main window of the current thread's CWinThread, or no window.
HWND ClipboardOwner() {
  CWinThread* pThread = AfxGetThread();
  if (pThread == NULL) return NULL;
  CWnd* pWnd = pThread->GetMainWnd();
  return pWnd == NULL ? NULL : pWnd->GetSafeHwnd();
}

BOOL OpenForUs() { return OpenClipboard(ClipboardOwner()); }

// Places a block the clipboard will own; frees it when it is refused.
BOOL PlaceBlock(UINT nFormat, HGLOBAL hGlobal) {
  if (SetClipboardData(nFormat, hGlobal) != NULL) return TRUE;
  GlobalFree(hGlobal);
  return FALSE;
}

// The object's block placed on an open clipboard; the block is NULL when
// serialization gave nothing. Returns whether the block was placed.
BOOL PlaceObject(UINT nFormat, CObject* pObject, UINT nGrowBytes, UINT nSecond, BOOL bEmpty,
                 BOOL* pbMade) {
  tagVMemAllocGrowth growth = {nGrowBytes, nSecond};
  HGLOBAL hGlobal;
  try {
    hGlobal = VrkCreateGlobalFromCObject(pObject, &growth);
  } catch (CException*) {
    CloseClipboard();
    throw;
  }
  *pbMade = hGlobal != NULL;
  if (hGlobal == NULL) return FALSE;
  if (bEmpty && !EmptyClipboard()) {
    GlobalFree(hGlobal);
    return FALSE;
  }
  return PlaceBlock(nFormat, hGlobal);
}

} // namespace

int VrkClipboardPutText(CString& str, int bOpenAndEmpty) {
  if (bOpenAndEmpty) {
    if (!OpenForUs()) return FALSE;
    EmptyClipboard();
  }
  // Kept as callers know it: an empty string returns here, and a clipboard
  // this call opened stays open.
  if (str.IsEmpty()) return TRUE;
  HGLOBAL hGlobal = VrkCreateGlobalFromCString(str);
  const BOOL bPlaced = hGlobal != NULL && PlaceBlock(CF_TEXT, hGlobal);
  if (bOpenAndEmpty) CloseClipboard();
  return bPlaced;
}

int VrkClipboardGetText(CString& str) {
  if (!IsClipboardFormatAvailable(CF_TEXT)) return FALSE;
  if (!OpenForUs()) return FALSE;
  int bResult;
  try {
    bResult = VrkCreateStringFromGlobal(GetClipboardData(CF_TEXT), str);
  } catch (CException*) {
    CloseClipboard();
    throw;
  }
  CloseClipboard();
  return bResult;
}

// TRUE whenever a block was made, placed or not: callers have always been
// told so.
int VrkClipboardPutObject(unsigned int nFormat, CObject* pObject, unsigned int nGrowBytes,
                          unsigned int nSecond, int bEmpty) {
  if (pObject == NULL) return FALSE;
  if (!OpenForUs()) return FALSE;
  BOOL bMade;
  PlaceObject(nFormat, pObject, nGrowBytes, nSecond, bEmpty, &bMade);
  CloseClipboard();
  return bMade;
}

int VrkClipboardPutObject(unsigned int nFormat, CObject* pObject, CString& strText,
                          unsigned int nGrowBytes, unsigned int nSecond, int bEmpty) {
  if (pObject == NULL) return FALSE;
  if (!OpenForUs()) return FALSE;
  BOOL bMade;
  if (PlaceObject(nFormat, pObject, nGrowBytes, nSecond, bEmpty, &bMade) && !strText.IsEmpty()) {
    // The text is an extra: failing to make or place it changes nothing.
    HGLOBAL hText = VrkCreateGlobalFromCString(strText);
    if (hText != NULL) PlaceBlock(CF_TEXT, hText);
  }
  CloseClipboard();
  return bMade;
}

int VrkClipboardPutObject(unsigned int nFormat, void* hGlobal, int bEmpty) {
  if (hGlobal == NULL) return FALSE;
  if (!OpenForUs()) return FALSE;
  if (bEmpty && !EmptyClipboard())
    GlobalFree(hGlobal);
  else
    PlaceBlock(nFormat, hGlobal);
  CloseClipboard();
  return TRUE;
}

CObject* VrkClipboardGetObject(unsigned int nFormat, CRuntimeClass* pClass) {
  if (pClass == NULL) return NULL;
  if (!OpenForUs()) return NULL;
  CObject* pObject = NULL;
  try {
    HANDLE hData = GetClipboardData(nFormat);
    // Another program may have put anything under the format: a corrupt
    // block ends in an archive or memory exception, never in a read past
    // the block (the load is bounded by its size).
    if (hData != NULL) pObject = VrkCreateCObjectFromGlobal(hData, pClass, NULL);
  } catch (CException*) {
    CloseClipboard();
    throw;
  }
  CloseClipboard();
  return pObject;
}
