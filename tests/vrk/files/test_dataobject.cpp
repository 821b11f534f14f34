// Objects, text and bitmaps in OLE data transfer objects, read back through
// COleDataObject, and the test for data that offers exactly one format, on a
// data source's own IDataObject and on the OLE clipboard.
#include <vrk_global.h>
#include <afxole.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "exception_probe.h"
#include "global_testing.h"

#include <string>

namespace {

CLIPFORMAT ShapeFormat() { return (CLIPFORMAT)RegisterClipboardFormatA("VRK test shape"); }

class DataObjectTest : public ::testing::Test {
protected:
  static void SetUpTestSuite() { ASSERT_TRUE(AfxOleInit()); }
  void TearDown() override { OleSetClipboard(NULL); }

  // A data object reading the source directly.
  void AttachTo(COleDataObject& data) {
    data.Attach((LPDATAOBJECT)m_source.GetInterface(&IID_IDataObject), FALSE);
  }

  COleDataSource m_source;
};

TEST_F(DataObjectTest, AnObjectIsCachedAsItsArchiveAndReadBack) {
  CGlShape* shape = MakeShape();
  const std::string expected = WriteObjectBytes(shape);
  tagVMemAllocGrowth growth = {32, 0};
  HGLOBAL hCached = VrkCacheGlobalData(&m_source, ShapeFormat(), shape, NULL, &growth);
  ASSERT_NE((HGLOBAL)NULL, hCached);
  delete shape;

  COleDataObject data;
  AttachTo(data);
  HGLOBAL h = data.GetGlobalData(ShapeFormat());
  ASSERT_NE((HGLOBAL)NULL, h);
  const std::string block = AllBytes(h);
  GlobalFree(h);
  EXPECT_EQ((expected.size() + 31) / 32 * 32, block.size());
  EXPECT_EQ(expected, block.substr(0, expected.size()));

  CObject* ob = VrkGetGlobalData(&data, ShapeFormat(), RUNTIME_CLASS(CGlShape), NULL);
  ASSERT_NE((CObject*)NULL, ob);
  ASSERT_EQ(RUNTIME_CLASS(CGlShape), ob->GetRuntimeClass());
  EXPECT_STREQ("outer", ((CGlShape*)ob)->name);
  ASSERT_NE((CGlShape*)NULL, ((CGlShape*)ob)->child);
  EXPECT_EQ(42, ((CGlShape*)ob)->child->value);
  delete ob;
  // The source still offers it: each read gets its own copy.
  ob = VrkGetGlobalData(&data, ShapeFormat(), RUNTIME_CLASS(CGlShape), NULL);
  EXPECT_NE((CObject*)NULL, ob);
  delete ob;
}

TEST_F(DataObjectTest, MissingDataAndNullArgumentsGiveNothing) {
  CGlShape* shape = MakeShape();
  CGlPlain plain;
  EXPECT_EQ(NULL, VrkCacheGlobalData(NULL, ShapeFormat(), shape, NULL, NULL));
  EXPECT_EQ(NULL, VrkCacheGlobalData(&m_source, ShapeFormat(), NULL, NULL, NULL));
  EXPECT_EQ(NULL, VrkCacheGlobalData(&m_source, ShapeFormat(), &plain, NULL, NULL));
  EXPECT_FALSE(VrkCacheGlobalData(NULL, "text", NULL));
  EXPECT_FALSE(VrkCacheGlobalData(&m_source, (const char*)NULL, NULL));
  delete shape;

  COleDataObject data;
  AttachTo(data);
  CString str("kept");
  EXPECT_EQ(NULL, VrkGetGlobalData(&data, ShapeFormat(), RUNTIME_CLASS(CGlShape), NULL));
  EXPECT_EQ(NULL, VrkGetGlobalData(&data, ShapeFormat(), NULL, NULL));
  EXPECT_EQ(NULL, VrkGetGlobalData(NULL, ShapeFormat(), RUNTIME_CLASS(CGlShape), NULL));
  EXPECT_FALSE(VrkGetGlobalData(&data, str, NULL));
  EXPECT_FALSE(VrkGetGlobalData(NULL, str, NULL));
  EXPECT_STREQ("kept", str);
}

TEST_F(DataObjectTest, AnotherClassUnderTheFormatIsTheArchivesError) {
  CGlShape* shape = MakeShape();
  VrkCacheGlobalData(&m_source, ShapeFormat(), shape, NULL, NULL);
  delete shape;
  COleDataObject data;
  AttachTo(data);
  EXPECT_EQ(CArchiveException::badClass, ArchiveCause([&] {
              VrkGetGlobalData(&data, ShapeFormat(), RUNTIME_CLASS(CGlOther), NULL);
            }));
}

TEST_F(DataObjectTest, TextIsCachedAsTextAndReadWithoutItsTerminator) {
  ASSERT_TRUE(VrkCacheGlobalData(&m_source, "data object text", NULL));
  COleDataObject data;
  AttachTo(data);
  HGLOBAL h = data.GetGlobalData(CF_TEXT);
  EXPECT_EQ(std::string("data object text\0", 17), AllBytes(h));
  GlobalFree(h);
  CString str;
  EXPECT_TRUE(VrkGetGlobalData(&data, str, NULL));
  EXPECT_STREQ("data object text", str);
}

TEST_F(DataObjectTest, ABitmapIsHandedToTheSourceAndReachesTheClipboard) {
  CBitmap bitmap;
  {
    CWindowDC dc(NULL);
    ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&dc, 9, 4));
  }
  EXPECT_FALSE(VrkCacheGlobalData(&m_source, (CBitmap*)NULL, NULL));
  CBitmap empty;
  EXPECT_FALSE(VrkCacheGlobalData(&m_source, &empty, NULL));

  COleDataSource* pSource = new COleDataSource;
  ASSERT_TRUE(VrkCacheGlobalData(pSource, &bitmap, NULL));
  EXPECT_EQ(NULL, bitmap.GetSafeHandle());
  pSource->SetClipboard();

  ASSERT_TRUE(OpenClipboard(NULL));
  HBITMAP hbm = (HBITMAP)GetClipboardData(CF_BITMAP);
  BITMAP bm = {};
  const int nBytes = hbm != NULL ? GetObject(hbm, sizeof(bm), &bm) : 0;
  CloseClipboard();
  ASSERT_EQ((int)sizeof(bm), nBytes);
  EXPECT_EQ(9, bm.bmWidth);
  EXPECT_EQ(4, bm.bmHeight);
}

TEST_F(DataObjectTest, OnlyFormatMeansTheFirstAndNoOther) {
  CGlShape* shape = MakeShape();
  VrkCacheGlobalData(&m_source, ShapeFormat(), shape, NULL, NULL);
  {
    COleDataObject data;
    AttachTo(data);
    EXPECT_TRUE(VrkIsOnlyFormatAvailable(ShapeFormat(), &data));
    EXPECT_FALSE(VrkIsOnlyFormatAvailable(CF_TEXT, &data));
  }
  VrkCacheGlobalData(&m_source, "and text", NULL);
  {
    COleDataObject data;
    AttachTo(data);
    EXPECT_FALSE(VrkIsOnlyFormatAvailable(ShapeFormat(), &data));
    EXPECT_FALSE(VrkIsOnlyFormatAvailable(CF_TEXT, &data));
  }
  EXPECT_FALSE(VrkIsOnlyFormatAvailable(ShapeFormat(), NULL));
  delete shape;
}

TEST_F(DataObjectTest, OnlyFormatOnTheClipboard) {
  CGlShape* shape = MakeShape();
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, 0, 0, TRUE));
  EXPECT_TRUE(VrkIsOnlyFormatAvailable(ShapeFormat()));
  EXPECT_FALSE(VrkIsOnlyFormatAvailable(CF_TEXT));

  // The same object with text beside it is no longer alone.
  CString text("and text");
  ASSERT_TRUE(VrkClipboardPutObject(ShapeFormat(), shape, text, 0, 0, TRUE));
  EXPECT_FALSE(VrkIsOnlyFormatAvailable(ShapeFormat()));

  // An OLE data source on the clipboard is enumerated as well.
  COleDataSource* pSource = new COleDataSource;
  VrkCacheGlobalData(pSource, ShapeFormat(), shape, NULL, NULL);
  pSource->SetClipboard();
  EXPECT_TRUE(VrkIsOnlyFormatAvailable(ShapeFormat()));
  delete shape;
}

} // namespace
