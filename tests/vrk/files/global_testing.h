// Objects and blocks shared by the tests of global memory, the clipboard
// and OLE data transfer: serializable shapes, blocks made of bytes and read
// back, and the bytes WriteObject gives. Each test executable includes this
// once, so the classes are registered once per process.
#ifndef VRK_TESTS_GLOBAL_TESTING_H
#define VRK_TESTS_GLOBAL_TESTING_H

#include <afx.h>

#include "archive_bytes.h"

#include <string>

// A serializable shape with a name, a value and an owned child.
class CGlShape : public CObject {
  DECLARE_SERIAL(CGlShape)
public:
  ~CGlShape() { delete child; }
  void Serialize(CArchive& ar) override {
    if (ar.IsStoring())
      ar << name << value << child;
    else
      ar >> name >> value >> child;
  }
  CString name;
  LONG value = 0;
  CGlShape* child = NULL;
};
IMPLEMENT_SERIAL(CGlShape, CObject, 3)

class CGlCircle : public CGlShape {
  DECLARE_SERIAL(CGlCircle)
};
IMPLEMENT_SERIAL(CGlCircle, CGlShape, 3)

inline std::string AllBytes(HGLOBAL h) {
  const char* p = (const char*)GlobalLock(h);
  std::string s(p, GlobalSize(h));
  GlobalUnlock(h);
  return s;
}

inline HGLOBAL BlockOf(const std::string& bytes) {
  HGLOBAL h = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  memcpy(GlobalLock(h), bytes.data(), bytes.size());
  GlobalUnlock(h);
  return h;
}

inline UINT LockCount(HGLOBAL h) { return GlobalFlags(h) & GMEM_LOCKCOUNT; }

inline std::string WriteObjectBytes(const CObject* pOb) {
  return ArchiveBytes([&](CArchive& ar) { ar.WriteObject(pOb); });
}

inline CGlShape* MakeShape() {
  CGlShape* shape = new CGlShape;
  shape->name = "outer";
  shape->value = -7;
  shape->child = new CGlCircle;
  shape->child->name = "inner";
  shape->child->value = 42;
  return shape;
}

#endif
