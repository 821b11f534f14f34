// Run-time classes: kinds, dynamic creation, the registry of serial classes,
// and the order of CObject's virtual operations.
#include <afx.h>
#include <gtest/gtest.h>

#include <string>

#include "vtable_slot.h"

class CShape : public CObject {
  DECLARE_DYNAMIC(CShape)
};
IMPLEMENT_DYNAMIC(CShape, CObject)

class CCircle : public CShape {
  DECLARE_DYNCREATE(CCircle)
public:
  int m_radius = 7;
};
IMPLEMENT_DYNCREATE(CCircle, CShape)

class CLabel : public CObject {
  DECLARE_SERIAL(CLabel)
public:
  void Dump(CDumpContext& dc) const override { dc << "label"; }
};
IMPLEMENT_SERIAL(CLabel, CObject, VERSIONABLE_SCHEMA | 3)

TEST(RuntimeClass, KindsFollowTheBaseChainSerialClassesFoundByName) {
  CCircle circle;
  EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CCircle)));
  EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CShape)));
  EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CObject)));
  EXPECT_FALSE(circle.IsKindOf(RUNTIME_CLASS(CLabel)));
  EXPECT_FALSE(RUNTIME_CLASS(CShape)->IsDerivedFrom(RUNTIME_CLASS(CCircle)));
  EXPECT_EQ(RUNTIME_CLASS(CCircle), circle.GetRuntimeClass());
  EXPECT_STREQ("CCircle", circle.GetRuntimeClass()->m_lpszClassName);
  EXPECT_EQ((int)sizeof(CCircle), RUNTIME_CLASS(CCircle)->m_nObjectSize);

  CObject* pAsObject = &circle;
  EXPECT_EQ(&circle, DYNAMIC_DOWNCAST(CShape, pAsObject));
  EXPECT_EQ(NULL, DYNAMIC_DOWNCAST(CLabel, pAsObject));
  // Serializable only with a schema.
  CLabel label;
  EXPECT_FALSE(circle.IsSerializable());
  EXPECT_TRUE(label.IsSerializable());
  EXPECT_EQ(VERSIONABLE_SCHEMA | 3, RUNTIME_CLASS(CLabel)->m_wSchema);
  EXPECT_EQ(0xFFFFu, RUNTIME_CLASS(CShape)->m_wSchema);

  EXPECT_EQ(RUNTIME_CLASS(CLabel), CRuntimeClass::FromName("CLabel"));
  // Only IMPLEMENT_SERIAL registers a class by name.
  EXPECT_EQ(nullptr, CRuntimeClass::FromName("CCircle"));
  EXPECT_EQ(nullptr, CRuntimeClass::FromName("clabel"));
  EXPECT_EQ(nullptr, CRuntimeClass::FromName((LPCSTR)NULL));

  CObject* pObject = CRuntimeClass::CreateObject("CLabel");
  ASSERT_NE(nullptr, pObject);
  EXPECT_TRUE(pObject->IsKindOf(RUNTIME_CLASS(CLabel)));
  delete pObject;
  EXPECT_EQ(nullptr, CRuntimeClass::CreateObject("NoSuchClass"));
}

// Code built against MFC calls CObject's virtual operations by slot. With the
// Itanium ABI the destructor takes two slots, so Serialize follows at 3.
TEST(RuntimeClass, VirtualSlotsInMfcOrder) {
  EXPECT_EQ(0, Slot(&CObject::GetRuntimeClass));
  EXPECT_EQ(3, Slot(&CObject::Serialize));
  EXPECT_EQ(4, Slot(&CObject::AssertValid));
  EXPECT_EQ(5, Slot(&CObject::Dump));
}

TEST(DumpContext, WritesObjectsAndNumbersToAFile) {
  CMemFile file;
  CDumpContext dc(&file);
  CLabel label;
  dc << "n=" << 42 << " " << &label << " " << (const CObject*)NULL;
  dc.Flush();
  ULONGLONG length = file.GetLength();
  BYTE* data = file.Detach();
  EXPECT_EQ(std::string("n=42 label NULL"), std::string((char*)data, (size_t)length));
  free(data);
}
