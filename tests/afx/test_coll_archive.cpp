// Serialization of the collections: the exact bytes each one writes, round
// trips, and corrupt archives whose element count is far larger than the
// data, which must fail with endOfFile after a bounded allocation.
#include <afxtempl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "archive_bytes.h"
#include "coll_testing.h"

// The largest block this test program asks operator new[] for (the
// templates allocate here; the non-template classes inside afx.dll).
static size_t g_largestBlock = 0;
void* operator new[](size_t n, const std::nothrow_t&) noexcept {
  g_largestBlock = std::max(g_largestBlock, n);
  return malloc(n ? n : 1);
}
void operator delete[](void* p) noexcept { free(p); }

class CItem : public CObject {
  DECLARE_SERIAL(CItem)
public:
  explicit CItem(DWORD n = 0) : m_n(n) {}
  void Serialize(CArchive& ar) {
    if (ar.IsStoring())
      ar << m_n;
    else
      ar >> m_n;
  }
  DWORD m_n;
};
IMPLEMENT_SERIAL(CItem, CObject, 1)

template <class T> static std::string Store(T& collection) {
  return ArchiveBytes([&](CArchive& ar) { collection.Serialize(ar); });
}

template <class T> static void Load(const std::string& bytes, T& collection) {
  LoadBytes(bytes, [&](CArchive& ar) { collection.Serialize(ar); });
}

// The CItem class reference as CArchive writes it the first time.
static const char kNewItemClass[] = "FF FF 01 00 05 00 43 49 74 65 6D";

TEST(CollArchive, ArraysOfValuesWriteCountThenRawElements) {
  CByteArray bytes;
  bytes.Add(1), bytes.Add(2), bytes.Add(3);
  EXPECT_EQ("03 00 01 02 03", Hex(Store(bytes)));
  CWordArray words;
  words.Add(0x1234), words.Add(0xABCD);
  EXPECT_EQ("02 00 34 12 CD AB", Hex(Store(words)));
  CDWordArray dwords;
  dwords.Add(0x11223344);
  EXPECT_EQ("01 00 44 33 22 11", Hex(Store(dwords)));
  CArray<int, int> ints;
  ints.Add(1), ints.Add(-1);
  EXPECT_EQ("02 00 01 00 00 00 FF FF FF FF", Hex(Store(ints)));
  CList<WORD, WORD> list;
  list.AddTail(1), list.AddTail(2);
  EXPECT_EQ("02 00 01 00 02 00", Hex(Store(list)));

  // 0xFFFF elements or more: the count escapes to a double word.
  CByteArray large;
  large.SetSize(70000);
  large[69999] = 0x5A;
  std::string stored = Store(large);
  ASSERT_EQ(6u + 70000u, stored.size());
  EXPECT_EQ("FF FF 70 11 01 00", Hex(stored.substr(0, 6)));
  CByteArray back;
  Load(stored, back);
  ASSERT_EQ(70000, back.GetSize());
  EXPECT_EQ(0x5A, back[69999]);
  EXPECT_EQ(0, back[0]);
}

TEST(CollArchive, ObjectCollectionsWriteObjectReferences) {
  CItem a(0x11), b(0x22);
  CObArray array;
  array.Add(&a), array.Add(&b), array.Add(&a), array.Add(NULL);
  std::string stored = Store(array);
  // count 4; a with its class; b by class index 1; a again as object 2; NULL
  EXPECT_EQ(std::string("04 00 ") + kNewItemClass + " 11 00 00 00 01 80 22 00 00 00 02 00 00 00",
            Hex(stored));
  CObArray back;
  Load(stored, back);
  ASSERT_EQ(4, back.GetSize());
  ASSERT_TRUE(back[0] != NULL && back[0]->IsKindOf(RUNTIME_CLASS(CItem)));
  EXPECT_EQ(0x22u, ((CItem*)back[1])->m_n);
  EXPECT_EQ(back[0], back[2]);
  EXPECT_EQ(NULL, back[3]);
  delete back[0];
  delete back[1];

  CObList list;
  list.AddTail(&a), list.AddTail(&a);
  EXPECT_EQ(std::string("02 00 ") + kNewItemClass + " 11 00 00 00 02 00", Hex(Store(list)));

  CMapWordToOb words;
  words[7] = &a;
  EXPECT_EQ(std::string("01 00 07 00 ") + kNewItemClass + " 11 00 00 00", Hex(Store(words)));
  CMapWordToOb wordsBack;
  Load(Store(words), wordsBack);
  CObject* ob = NULL;
  ASSERT_TRUE(wordsBack.Lookup(7, ob));
  EXPECT_EQ(0x11u, ((CItem*)ob)->m_n);
  delete ob;

  CMapStringToOb names;
  names["k"] = NULL;
  EXPECT_EQ("01 00 01 6B 00 00", Hex(Store(names)));

  CArray<CObject*, CObject*> templ; // CObject* elements go through WriteObject too
  templ.Add(&b);
  EXPECT_EQ(std::string("01 00 ") + kNewItemClass + " 22 00 00 00", Hex(Store(templ)));
}

// A 30-byte archive claiming count elements, the rest zero (empty strings,
// NULL objects, zero numbers).
static std::string Corrupt(DWORD count) {
  std::string bytes("\xff\xff", 2);
  bytes.append((const char*)&count, 4);
  bytes.append(24, '\0');
  return bytes;
}

template <class T> static int LoadCause(DWORD count) {
  T collection;
  return ArchiveCause([&] { Load(Corrupt(count), collection); });
}

TEST(CollArchive, AbsurdCountsEndInEndOfFile) {
  const int eof = CArchiveException::endOfFile;
  const DWORD counts[] = {0x7FFFFFFF, 0x04000000, 0xFFFFFFFE};
  int (*const loads[])(DWORD) = {
      LoadCause<CByteArray>,      LoadCause<CWordArray>,
      LoadCause<CDWordArray>,     LoadCause<CStringArray>,
      LoadCause<CObArray>,        LoadCause<CObList>,
      LoadCause<CStringList>,     LoadCause<CMapStringToString>,
      LoadCause<CMapStringToOb>,  LoadCause<CMapWordToOb>,
      LoadCause<CList<int, int>>, LoadCause<CMap<WORD, WORD, DWORD, DWORD>>};
  for (DWORD count : counts) {
    SCOPED_TRACE(count);
    for (size_t i = 0; i < sizeof(loads) / sizeof(loads[0]); i++)
      EXPECT_EQ(eof, loads[i](count)) << "collection " << i;
    g_largestBlock = 0;
    EXPECT_EQ(eof, (LoadCause<CArray<DWORD, DWORD>>(count)));
    EXPECT_EQ(eof, (LoadCause<CArray<CString, const CString&>>(count)));
    // The arrays grew with the data, not with the count.
    EXPECT_GT(g_largestBlock, 0u);
    EXPECT_LE(g_largestBlock, 1024u * sizeof(CString));
  }
}
