// Global memory blocks made from bytes and read back, and the formats a data
// object offers, for the data object and clipboard tests.
#ifndef VRK_TESTS_AFX_OLE_TESTING_H
#define VRK_TESTS_AFX_OLE_TESTING_H

#include <afxole.h>

#include <string>
#include <vector>

inline HGLOBAL MakeBlock(const std::string& bytes) {
  HGLOBAL h = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  memcpy(::GlobalLock(h), bytes.data(), bytes.size());
  ::GlobalUnlock(h);
  return h;
}

// All the block's bytes; "<null>" for no block.
inline std::string BlockBytes(HGLOBAL h) {
  if (h == NULL) return "<null>";
  const char* p = (const char*)::GlobalLock(h);
  std::string s(p, ::GlobalSize(h));
  ::GlobalUnlock(h);
  return s;
}

// The formats the data object offers, in their order.
inline std::vector<CLIPFORMAT> Formats(COleDataObject& data) {
  std::vector<CLIPFORMAT> formats;
  data.BeginEnumFormats();
  FORMATETC fmt;
  while (data.GetNextFormat(&fmt)) {
    formats.push_back(fmt.cfFormat);
    ::CoTaskMemFree(fmt.ptd);
  }
  return formats;
}

#endif
