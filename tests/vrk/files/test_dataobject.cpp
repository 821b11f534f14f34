// OLE data transfer objects: what the caching functions put in a data
// source and the test for data that offers exactly one format. Objects read
// back through data objects meet damaged blocks in test_hostileblocks.
#include <vrk_global.h>
#include <afxole.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "global_testing.h"

#include <string>

namespace {

CLIPFORMAT ShapeFormat() { return (CLIPFORMAT)RegisterClipboardFormatA("VRK test shape"); }

class DataObjectTest : public ::testing::Test {
protected:
  static void SetUpTestSuite() { ASSERT_TRUE(AfxOleInit()); }
  void AttachTo(COleDataObject& data) {
    data.Attach((LPDATAOBJECT)m_source.GetInterface(&IID_IDataObject), FALSE);
  }
  COleDataSource m_source;
};

TEST_F(DataObjectTest, ObjectsAndTextAreCachedAsTheirBlocks) {
  CGlShape* shape = MakeShape();
  const std::string expected = WriteObjectBytes(shape);
  tagVMemAllocGrowth growth = {32, 0};
  EXPECT_FALSE(VrkCacheGlobalData(&m_source, (const char*)NULL, NULL) ||
               VrkCacheGlobalData(NULL, "text", NULL) ||
               VrkCacheGlobalData(NULL, ShapeFormat(), shape, NULL, NULL));
  ASSERT_NE((HGLOBAL)NULL, VrkCacheGlobalData(&m_source, ShapeFormat(), shape, NULL, &growth));
  ASSERT_TRUE(VrkCacheGlobalData(&m_source, "data object text", NULL));
  delete shape;
  COleDataObject data;
  AttachTo(data);
  HGLOBAL h = data.GetGlobalData(ShapeFormat());
  const std::string block = AllBytes(h);
  GlobalFree(h);
  EXPECT_EQ((expected.size() + 31) / 32 * 32, block.size());
  EXPECT_EQ(expected, block.substr(0, expected.size()));
  h = data.GetGlobalData(CF_TEXT);
  EXPECT_EQ(std::string("data object text\0", 17), AllBytes(h));
  GlobalFree(h);
  CString str;
  EXPECT_TRUE(VrkGetGlobalData(&data, str, NULL));
  EXPECT_STREQ("data object text", str);
  EXPECT_EQ(NULL, VrkGetGlobalData(&data, CF_BITMAP, RUNTIME_CLASS(CGlShape), NULL));
  EXPECT_EQ(NULL, VrkGetGlobalData(NULL, ShapeFormat(), RUNTIME_CLASS(CGlShape), NULL));
  EXPECT_FALSE(VrkGetGlobalData(NULL, str, NULL));
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
  }
  delete shape;
}

} // namespace
