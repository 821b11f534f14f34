// CMap and the non-template maps: lookup and insertion, MFC's hashes and the
// iteration order they give, removal and bad positions.
#include <afxtempl.h>
#include <gtest/gtest.h>

#include <string>

#include "coll_testing.h"

// The keys in iteration order.
template <class MAP, class KEY, class VALUE> static std::string Order(const MAP& m) {
  std::string s;
  KEY key;
  VALUE value;
  for (POSITION pos = m.GetStartPosition(); pos != NULL;) {
    m.GetNextAssoc(pos, key, value);
    s += std::string(s.empty() ? "" : ",") + std::to_string((long long)key);
  }
  return s;
}

TEST(MapHash, KeysHashAsMfc9) {
  EXPECT_EQ(0u, HashKey<int>(0));
  EXPECT_EQ(16807u, HashKey<int>(1));
  EXPECT_EQ(1680700u, HashKey<DWORD>(100));
  EXPECT_EQ(3299u, HashKey<LPCSTR>("ab")); // hash * 33 + character
  EXPECT_EQ(3299u, HashKey<const CString&>(CString("ab")));
  EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([] { HashKey<LPCSTR>(NULL); }));
}

TEST(Map, LookupSetAtIndexingRemovalAndNewValuesZero) {
  CMap<int, int, CString, LPCTSTR> m;
  EXPECT_EQ(17u, m.GetHashTableSize());
  CString value;
  EXPECT_FALSE(m.Lookup(1, value)); // no table yet
  m.SetAt(1, "one");
  m[2] = "two";
  m.SetAt(1, "uno"); // replaces
  EXPECT_EQ(2, m.GetCount());
  ASSERT_TRUE(m.Lookup(1, value));
  EXPECT_STREQ("uno", value);
  EXPECT_TRUE(m[3].IsEmpty()); // indexing adds the key
  EXPECT_EQ(3, m.GetSize());

  CMap<CString, LPCTSTR, int, int> byName;
  byName["alpha"] = 1;
  byName[CString("beta")] = 2;
  int n = 0;
  EXPECT_TRUE(byName.Lookup("beta", n));
  EXPECT_EQ(2, n);
  EXPECT_FALSE(byName.Lookup("Beta", n)); // case-sensitive
  EXPECT_FALSE(byName.RemoveKey("gamma"));
  EXPECT_TRUE(byName.RemoveKey("alpha") && byName.RemoveKey("beta"));
  EXPECT_EQ(NULL, byName.GetStartPosition());
  byName["again"] = 3; // a map emptied by RemoveKey works on
  EXPECT_TRUE(byName.Lookup("again", n));
  byName.RemoveAll();
  EXPECT_FALSE(byName.Lookup("again", n));

  // New values are zero, also in associations reused after removals.
  CMap<int, int, int, int> numbers(2);
  for (int i = 0; i < 6; i++)
    numbers[i] = 1000 + i;
  numbers.RemoveKey(2);
  numbers.RemoveKey(4);
  EXPECT_EQ(0, numbers[50]);
  EXPECT_EQ(0, numbers[51]);
  EXPECT_EQ(6, numbers.GetCount());
}

TEST(Map, IterationFollowsBucketsThenNewestFirst) {
  CMap<int, int, int, int> m;
  m[1] = 0; // bucket 16807 % 17 = 11
  m[2] = 0; // bucket 5
  m[3] = 0; // bucket 16
  EXPECT_EQ("2,1,3", (Order<CMap<int, int, int, int>, int, int>(m)));

  CMapWordToPtr w; // keys 0..15 all hash to bucket 0
  w[1] = NULL;
  w[2] = NULL;
  w[3] = NULL;
  w[16] = NULL; // bucket 1
  EXPECT_EQ("3,2,1,16", (Order<CMapWordToPtr, WORD, void*>(w)));
}

TEST(Map, BadPositionsAndKeysThrow) {
  CMapPtrToPtr m;
  void* k;
  void* v;
  POSITION pos = BEFORE_START_POSITION;
  EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { m.GetNextAssoc(pos, k, v); }));
  m[&m] = &k;
  pos = NULL;
  EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { m.GetNextAssoc(pos, k, v); }));
  pos = m.GetStartPosition();
  m.GetNextAssoc(pos, k, v);
  EXPECT_EQ((void*)&m, k);
  EXPECT_EQ(NULL, pos);

  CMapStringToOb s;
  CObject* o;
  EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { s.Lookup(NULL, o); }));
  EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { s.SetAt(NULL, NULL); }));
  EXPECT_TRUE(s.IsEmpty());
}
