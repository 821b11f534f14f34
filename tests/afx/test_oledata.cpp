// COleDataSource and COleDataObject joined directly (no clipboard): the
// formats offered and their order (a delayed format among them), copies
// handed out and streams. (GDI media and the source's life: the OLE clipboard test.)
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
