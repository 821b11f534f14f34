// Objects, text and bitmaps in OLE data transfer objects, and the test for
// a clipboard or data object that offers exactly one format.
#include "vrk_global.h"

#include <afxole.h>

void* VrkCacheGlobalData(COleDataSource* pSource, unsigned short cfFormat, CObject* pObject,
                         tagFORMATETC* pFormatEtc, tagVMemAllocGrowth* pGrowth) {
  if (pSource == NULL || pObject == NULL) return NULL;
  HGLOBAL hGlobal = VrkCreateGlobalFromCObject(pObject, pGrowth);
  if (hGlobal == NULL) return NULL;
  pSource->CacheGlobalData(cfFormat, hGlobal, pFormatEtc);
  return hGlobal;
}

int VrkCacheGlobalData(COleDataSource* pSource, const char* pszText, tagFORMATETC* pFormatEtc) {
  if (pSource == NULL || pszText == NULL) return FALSE;
  HGLOBAL hGlobal = VrkCreateGlobalFromString(pszText);
  if (hGlobal == NULL) return FALSE;
  pSource->CacheGlobalData(CF_TEXT, hGlobal, pFormatEtc);
  return TRUE;
}

int VrkCacheGlobalData(COleDataSource* pSource, CBitmap* pBitmap, tagFORMATETC* pFormatEtc) {
  if (pSource == NULL || pBitmap == NULL || pBitmap->GetSafeHandle() == NULL) return FALSE;
  // The data source frees the bitmap from now on.
  pSource->CacheGlobalData(CF_BITMAP, (HGLOBAL)pBitmap->Detach(), pFormatEtc);
  return TRUE;
}

CObject* VrkGetGlobalData(COleDataObject* pData, unsigned short cfFormat, CRuntimeClass* pClass,
                          tagFORMATETC* pFormatEtc) {
  if (pData == NULL || pClass == NULL) return NULL;
  HGLOBAL hGlobal = pData->GetGlobalData(cfFormat, pFormatEtc);
  if (hGlobal == NULL) return NULL;
  // The copy is ours whatever the load does. A hostile block fails with an
  // archive or memory exception, bounded by the block's size.
  CObject* pObject;
  try {
    pObject = VrkCreateCObjectFromGlobal(hGlobal, pClass, NULL);
  } catch (CException*) {
    GlobalFree(hGlobal);
    throw;
  }
  GlobalFree(hGlobal);
  return pObject;
}

int VrkGetGlobalData(COleDataObject* pData, CString& str, tagFORMATETC* pFormatEtc) {
  if (pData == NULL) return FALSE;
  HGLOBAL hGlobal = pData->GetGlobalData(CF_TEXT, pFormatEtc);
  if (hGlobal == NULL) return FALSE;
  int bResult;
  try {
    bResult = VrkCreateStringFromGlobal(hGlobal, str);
  } catch (CException*) {
    GlobalFree(hGlobal);
    throw;
  }
  GlobalFree(hGlobal);
  return bResult;
}

int VrkIsOnlyFormatAvailable(unsigned short cfFormat) {
  COleDataObject data;
  if (!data.AttachClipboard()) return FALSE;
  const int bOnly = VrkIsOnlyFormatAvailable(cfFormat, &data);
  data.Release();
  return bOnly;
}

namespace {

// The next format offered, with the target device the enumerator may have
// allocated released at once.
BOOL NextFormat(COleDataObject* pData, CLIPFORMAT* pcfFormat) {
  FORMATETC formatEtc;
  if (!pData->GetNextFormat(&formatEtc)) return FALSE;
  if (formatEtc.ptd != NULL) CoTaskMemFree(formatEtc.ptd);
  *pcfFormat = formatEtc.cfFormat;
  return TRUE;
}

} // namespace

int VrkIsOnlyFormatAvailable(unsigned short cfFormat, COleDataObject* pData) {
  if (pData == NULL) return FALSE;
  pData->BeginEnumFormats();
  CLIPFORMAT cfFirst, cfSecond;
  if (!NextFormat(pData, &cfFirst) || cfFirst != cfFormat) return FALSE;
  return !NextFormat(pData, &cfSecond);
}
