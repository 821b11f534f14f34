// CImageList: a wrapper of the common controls' image lists, with its own
// handle map.
#include <afxwin.h>
#include <afxgdi_.h>
#include "handlemap.h"

IMPLEMENT_DYNCREATE(CImageList, CObject)

static void PASCAL SetImageListHandle(CObject* pObject, HANDLE hHandle) {
  static_cast<CImageList*>(pObject)->m_hImageList = (HIMAGELIST)hHandle;
}

static CHandleMap* ImageListMap(BOOL bCreate) {
  return AfxGetHandleMap(afxMapKindHIMAGELIST, RUNTIME_CLASS(CImageList), SetImageListHandle,
                         bCreate);
}

CImageList::CImageList() : m_hImageList(NULL) {}

CImageList::~CImageList() { DeleteImageList(); }

CImageList* PASCAL CImageList::FromHandle(HIMAGELIST hImageList) {
  if (hImageList == NULL) return NULL;
  return static_cast<CImageList*>(ImageListMap(TRUE)->FromHandle(hImageList));
}

CImageList* PASCAL CImageList::FromHandlePermanent(HIMAGELIST hImageList) {
  CHandleMap* pMap = ImageListMap(FALSE);
  if (pMap == NULL || hImageList == NULL) return NULL;
  return static_cast<CImageList*>(pMap->LookupPermanent(hImageList));
}

void PASCAL CImageList::DeleteTempMap() {
  CHandleMap* pMap = ImageListMap(FALSE);
  if (pMap != NULL) pMap->DeleteTemp();
}

BOOL CImageList::Attach(HIMAGELIST hImageList) {
  ASSERT(m_hImageList == NULL);
  if (hImageList == NULL) return FALSE;
  ImageListMap(TRUE)->SetPermanent(hImageList, this);
  m_hImageList = hImageList;
  return TRUE;
}

HIMAGELIST CImageList::Detach() {
  HIMAGELIST hImageList = m_hImageList;
  if (hImageList != NULL) {
    CHandleMap* pMap = ImageListMap(FALSE);
    if (pMap != NULL) pMap->RemoveHandle(hImageList);
  }
  m_hImageList = NULL;
  return hImageList;
}

BOOL CImageList::DeleteImageList() {
  if (m_hImageList == NULL) return FALSE;
  return ImageList_Destroy(Detach());
}

// ---- Creation ---------------------------------------------------------------

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow) {
  return Attach(ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
}

BOOL CImageList::Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask) {
  return Create(MAKEINTRESOURCE(nBitmapID), cx, nGrow, crMask);
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask) {
  HINSTANCE hInst = AfxFindResourceHandle(lpszBitmapID, RT_BITMAP);
  return Attach(ImageList_LoadImage(hInst, lpszBitmapID, cx, nGrow, crMask, IMAGE_BITMAP, 0));
}

BOOL CImageList::Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2,
                        int dx, int dy) {
  return Attach(
      ImageList_Merge(imagelist1.m_hImageList, nImage1, imagelist2.m_hImageList, nImage2, dx, dy));
}

BOOL CImageList::Create(CImageList* pImageList) {
  HIMAGELIST hSource = pImageList->GetSafeHandle();
  if (hSource == NULL) return FALSE;
  return Attach(ImageList_Duplicate(hSource));
}

// ---- Attributes -------------------------------------------------------------

int CImageList::GetImageCount() const {
  return m_hImageList == NULL ? 0 : ImageList_GetImageCount(m_hImageList);
}

BOOL CImageList::SetImageCount(UINT uNewCount) {
  return ImageList_SetImageCount(m_hImageList, uNewCount);
}

COLORREF CImageList::SetBkColor(COLORREF cr) { return ImageList_SetBkColor(m_hImageList, cr); }

COLORREF CImageList::GetBkColor() const { return ImageList_GetBkColor(m_hImageList); }

BOOL CImageList::GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const {
  if (m_hImageList == NULL || pImageInfo == NULL) return FALSE;
  return ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
}

// ---- Images -----------------------------------------------------------------

int CImageList::Add(CBitmap* pbmImage, CBitmap* pbmMask) {
  if (m_hImageList == NULL) return -1;
  return ImageList_Add(m_hImageList, (HBITMAP)pbmImage->GetSafeHandle(),
                       (HBITMAP)pbmMask->GetSafeHandle());
}

int CImageList::Add(CBitmap* pbmImage, COLORREF crMask) {
  if (m_hImageList == NULL) return -1;
  return ImageList_AddMasked(m_hImageList, (HBITMAP)pbmImage->GetSafeHandle(), crMask);
}

int CImageList::Add(HICON hIcon) {
  if (m_hImageList == NULL) return -1;
  return ImageList_ReplaceIcon(m_hImageList, -1, hIcon);
}

BOOL CImageList::Remove(int nImage) { return ImageList_Remove(m_hImageList, nImage); }

BOOL CImageList::Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask) {
  return ImageList_Replace(m_hImageList, nImage, (HBITMAP)pbmImage->GetSafeHandle(),
                           (HBITMAP)pbmMask->GetSafeHandle());
}

int CImageList::Replace(int nImage, HICON hIcon) {
  return ImageList_ReplaceIcon(m_hImageList, nImage, hIcon);
}

HICON CImageList::ExtractIcon(int nImage) { return ImageList_GetIcon(m_hImageList, nImage, 0); }

BOOL CImageList::Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle) {
  HDC hDC = pDC->GetSafeHdc();
  if (hDC == NULL || m_hImageList == NULL) return FALSE;
  return ImageList_Draw(m_hImageList, nImage, hDC, pt.x, pt.y, nStyle);
}

BOOL CImageList::DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg,
                        UINT nStyle) {
  HDC hDC = pDC->GetSafeHdc();
  if (hDC == NULL || m_hImageList == NULL) return FALSE;
  return ImageList_DrawEx(m_hImageList, nImage, hDC, pt.x, pt.y, sz.cx, sz.cy, clrBk, clrFg,
                          nStyle);
}

// The parameters name this list whatever the caller put in himl.
BOOL CImageList::DrawIndirect(IMAGELISTDRAWPARAMS* pimldp) {
  if (pimldp == NULL || m_hImageList == NULL) return FALSE;
  pimldp->himl = m_hImageList;
  return ImageList_DrawIndirect(pimldp);
}

BOOL CImageList::SetOverlayImage(int nImage, int nOverlay) {
  return ImageList_SetOverlayImage(m_hImageList, nImage, nOverlay);
}

BOOL CImageList::Copy(int iDst, int iSrc, UINT uFlags) {
  return ImageList_Copy(m_hImageList, iDst, m_hImageList, iSrc, uFlags);
}

BOOL CImageList::Copy(int iDst, CImageList* pSrc, int iSrc, UINT uFlags) {
  HIMAGELIST hSource = pSrc->GetSafeHandle();
  if (hSource == NULL) return FALSE;
  return ImageList_Copy(m_hImageList, iDst, hSource, iSrc, uFlags);
}

// ---- Dragging ---------------------------------------------------------------

BOOL CImageList::BeginDrag(int nImage, CPoint ptHotSpot) {
  return ImageList_BeginDrag(m_hImageList, nImage, ptHotSpot.x, ptHotSpot.y);
}

void PASCAL CImageList::EndDrag() { ImageList_EndDrag(); }

BOOL PASCAL CImageList::DragMove(CPoint pt) { return ImageList_DragMove(pt.x, pt.y); }

BOOL CImageList::SetDragCursorImage(int nDrag, CPoint ptHotSpot) {
  return ImageList_SetDragCursorImage(m_hImageList, nDrag, ptHotSpot.x, ptHotSpot.y);
}

BOOL PASCAL CImageList::DragShowNolock(BOOL bShow) { return ImageList_DragShowNolock(bShow); }

CImageList* PASCAL CImageList::GetDragImage(LPPOINT lpPoint, LPPOINT lpPointHotSpot) {
  return FromHandle(ImageList_GetDragImage(lpPoint, lpPointHotSpot));
}
