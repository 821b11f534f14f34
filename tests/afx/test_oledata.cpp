// COleDataSource and COleDataObject joined directly (no clipboard): the
// formats offered and their order, copies handed out, delayed rendering and
// streams. (GDI media and the source's life: the OLE clipboard test.)
#include <afxole.h>

#include <gtest/gtest.h>

#include "ole_testing.h"

#include <string>
#include <vector>

namespace {

struct OleEnv : ::testing::Environment {
  void SetUp() override { ASSERT_TRUE(AfxOleInit()); }
};
::testing::Environment* const g_oleEnv = ::testing::AddGlobalTestEnvironment(new OleEnv);

CLIPFORMAT TestFormat() { return (CLIPFORMAT)RegisterClipboardFormatA("VRK afx ole data test"); }

// A source that renders two formats on request.
class CTestSource : public COleDataSource {
public:
  BOOL OnRenderGlobalData(LPFORMATETC lpFormatEtc, HGLOBAL* phGlobal) override {
    m_nRenders++;
    if (lpFormatEtc->cfFormat != CF_TEXT) return FALSE;
    if (*phGlobal != NULL) { // fill in place
      if (GlobalSize(*phGlobal) < 9) return FALSE;
      memcpy(GlobalLock(*phGlobal), "rendered", 9);
      GlobalUnlock(*phGlobal);
      return TRUE;
    }
    *phGlobal = MakeBlock(std::string("rendered", 9));
    return TRUE;
  }
  BOOL OnRenderFileData(LPFORMATETC lpFormatEtc, CFile* pFile) override {
    if (lpFormatEtc->cfFormat != TestFormat()) return FALSE;
    pFile->Write("file bytes", 10);
    return TRUE;
  }

  int m_nRenders = 0;
};

} // namespace

TEST(OleDataCache, FormatsInTheOrderTheyWereCached) {
  COleDataSource source;
  source.CacheGlobalData(TestFormat(), MakeBlock("abc"));
  source.CacheGlobalData(CF_TEXT, MakeBlock(std::string("text", 5)));
  source.DelayRenderData(CF_OEMTEXT);
  COleDataObject data;
  data.Attach((LPDATAOBJECT)source.GetInterface(&IID_IDataObject), FALSE);
  EXPECT_EQ((std::vector<CLIPFORMAT>{TestFormat(), CF_TEXT, CF_OEMTEXT}), Formats(data));

  // Caching a format again replaces it where it stands; readers get copies.
  HGLOBAL hCached = MakeBlock("xyz");
  source.CacheGlobalData(TestFormat(), hCached);
  EXPECT_EQ((std::vector<CLIPFORMAT>{TestFormat(), CF_TEXT, CF_OEMTEXT}), Formats(data));
  for (int i = 0; i < 2; i++) { // the first copy freed leaves the cache whole
    HGLOBAL h = data.GetGlobalData(TestFormat());
    EXPECT_NE(hCached, h);
    EXPECT_EQ("xyz", BlockBytes(h));
    EXPECT_EQ(NULL, GlobalFree(h));
  }

  source.Empty();
  EXPECT_TRUE(Formats(data).empty());
  EXPECT_FALSE(data.IsDataAvailable(CF_TEXT));
}

// A stream that claims to be huge but holds five bytes.
class CLyingStream : public IStream {
public:
  STDMETHOD(QueryInterface)(REFIID, void** ppv) {
    *ppv = NULL;
    return E_NOINTERFACE;
  }
  STDMETHOD_(ULONG, AddRef)() { return ++m_nRef; }
  STDMETHOD_(ULONG, Release)() { return --m_nRef; }
  STDMETHOD(Read)(void* pv, ULONG cb, ULONG* pcbRead) {
    const ULONG n = cb < 5 - m_nPos ? cb : 5 - m_nPos;
    memcpy(pv, "liars" + m_nPos, n);
    m_nPos += n;
    *pcbRead = n;
    return S_OK;
  }
  STDMETHOD(Write)(const void*, ULONG, ULONG*) { return E_NOTIMPL; }
  STDMETHOD(Seek)(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) {
    m_nPos = 0;
    return S_OK;
  }
  STDMETHOD(SetSize)(ULARGE_INTEGER) { return E_NOTIMPL; }
  STDMETHOD(CopyTo)(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) {
    return E_NOTIMPL;
  }
  STDMETHOD(Commit)(DWORD) { return E_NOTIMPL; }
  STDMETHOD(Revert)() { return E_NOTIMPL; }
  STDMETHOD(LockRegion)(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) { return E_NOTIMPL; }
  STDMETHOD(UnlockRegion)(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) { return E_NOTIMPL; }
  STDMETHOD(Stat)(STATSTG* pstatstg, DWORD) {
    memset(pstatstg, 0, sizeof(*pstatstg));
    pstatstg->cbSize.QuadPart = 0xFFFFFFFFFFULL;
    return S_OK;
  }
  STDMETHOD(Clone)(IStream**) { return E_NOTIMPL; }

  ULONG m_nRef = 1;
  ULONG m_nPos = 0;
};

TEST(OleDataCache, AStreamsClaimedSizeIsNotTrusted) {
  CLyingStream stream;
  STGMEDIUM medium = {};
  medium.tymed = TYMED_ISTREAM;
  medium.pstm = &stream;
  {
    COleDataSource source;
    source.CacheData(TestFormat(), &medium);
    COleDataObject data;
    data.Attach((LPDATAOBJECT)source.GetInterface(&IID_IDataObject), FALSE);
    HGLOBAL h = data.GetGlobalData(TestFormat());
    EXPECT_EQ("liars", BlockBytes(h));
    GlobalFree(h);
  }
  EXPECT_EQ(0u, stream.m_nRef); // the source released what it was given
}

TEST(OleDataDelayed, RenderedOnEveryRequestAsABlockOrAStream) {
  CTestSource source;
  source.DelayRenderData(CF_TEXT);
  COleDataObject data;
  data.Attach((LPDATAOBJECT)source.GetInterface(&IID_IDataObject), FALSE);
  EXPECT_TRUE(data.IsDataAvailable(CF_TEXT));
  EXPECT_EQ(0, source.m_nRenders); // asking is not rendering
  HGLOBAL h = data.GetGlobalData(CF_TEXT);
  EXPECT_EQ(std::string("rendered", 9), BlockBytes(h));
  GlobalFree(h);
  h = data.GetGlobalData(CF_TEXT);
  GlobalFree(h);
  EXPECT_EQ(2, source.m_nRenders);

  IDataObject* pData = data.GetIDataObject(FALSE);
  FORMATETC fmt = {CF_TEXT, NULL, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM medium = {};
  medium.tymed = TYMED_HGLOBAL;
  medium.hGlobal = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 12);
  EXPECT_EQ(S_OK, pData->GetDataHere(&fmt, &medium));
  EXPECT_EQ(std::string("rendered\0\0\0\0", 12), BlockBytes(medium.hGlobal));
  GlobalFree(medium.hGlobal);

  // Rendered into a file: given as a block or as a stream of its length.
  source.DelayRenderFileData(TestFormat());
  h = data.GetGlobalData(TestFormat());
  ASSERT_NE((HGLOBAL)NULL, h);
  EXPECT_EQ(std::string("file bytes"), BlockBytes(h).substr(0, 10));
  GlobalFree(h);

  fmt = {TestFormat(), NULL, DVASPECT_CONTENT, -1, TYMED_ISTREAM};
  ASSERT_TRUE(data.GetData(TestFormat(), &medium, &fmt));
  ASSERT_EQ((DWORD)TYMED_ISTREAM, medium.tymed);
  STATSTG stat;
  medium.pstm->Stat(&stat, STATFLAG_NONAME);
  EXPECT_EQ(10u, stat.cbSize.QuadPart); // exactly what was written
  ReleaseStgMedium(&medium);
}
