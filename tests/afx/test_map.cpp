// CMap and the non-template maps: lookup and insertion, MFC's hashes and the
// iteration order they give, removal, the hash table's size and pairs.
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

TEST(Map, LookupSetAtAndIndexing) {
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
}

TEST(Map, NewValuesAreZeroEvenInReusedAssociations) {
  CMap<int, int, int, int> m(2);
  for (int i = 0; i < 6; i++)
    m[i] = 1000 + i;
  m.RemoveKey(2);
  m.RemoveKey(4);
  EXPECT_EQ(0, m[50]);
  EXPECT_EQ(0, m[51]);
  EXPECT_EQ(6, m.GetCount());
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

  CMapStringToString s;
  s["b"] = "2";  // bucket 98 % 17 = 13
  s["a"] = "1";  // 12
  s["ab"] = "3"; // 1
  std::string keys;
  CString key, value;
  for (POSITION pos = s.GetStartPosition(); pos != NULL;) {
    s.GetNextAssoc(pos, key, value);
    keys += std::string(key) + "=" + std::string(value) + ";";
  }
  EXPECT_EQ("ab=3;a=1;b=2;", keys);
}

TEST(Map, RemoveKeyAndRemoveAll) {
  CMapStringToPtr m;
  int x;
  m["x"] = &x;
  m["y"] = NULL;
  EXPECT_FALSE(m.RemoveKey("z"));
  EXPECT_TRUE(m.RemoveKey("x"));
  void* p = &x;
  EXPECT_FALSE(m.Lookup("x", p));
  EXPECT_TRUE(m.RemoveKey("y"));
  EXPECT_TRUE(m.IsEmpty());
  EXPECT_EQ(NULL, m.GetStartPosition());
  m["again"] = &x; // a map emptied by RemoveKey works on
  EXPECT_TRUE(m.Lookup("again", p));
  EXPECT_EQ(&x, p);
  m.RemoveAll();
  EXPECT_EQ(0, m.GetCount());
  EXPECT_FALSE(m.Lookup("again", p));
  EXPECT_FALSE(m.RemoveKey("again"));
}

TEST(Map, HashTableSize) {
  CMap<int, int, int, int> m;
  m.InitHashTable(101);
  EXPECT_EQ(101u, m.GetHashTableSize());
  for (int i = 0; i < 300; i++)
    m[i] = i * 2;
  // Re-sizing a filled table keeps every entry.
  m.InitHashTable(7, FALSE);
  EXPECT_EQ(7u, m.GetHashTableSize());
  EXPECT_EQ(300, m.GetCount());
  int v = 0, found = 0;
  for (int i = 0; i < 300; i++)
    found += m.Lookup(i, v) && v == i * 2;
  EXPECT_EQ(300, found);
  m.RemoveAll();
  EXPECT_EQ(7u, m.GetHashTableSize()); // the size outlives RemoveAll
  m.InitHashTable(13, FALSE);
  m[1] = 1; // allocated on demand
  EXPECT_EQ(13u, m.GetHashTableSize());
  EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { m.InitHashTable(0); }));
  EXPECT_TRUE(ThrowsMfc<CMemoryException>([&] { m.InitHashTable(0xFFFFFFF0u); }));
  EXPECT_EQ(1, m[1]);
}

TEST(Map, PairsAndLookupKey) {
  CMap<int, int, CString, const CString&> m;
  m[4] = "four";
  m[5] = "five";
  CMap<int, int, CString, const CString&>::CPair* pair = m.PLookup(5);
  ASSERT_TRUE(pair != NULL);
  EXPECT_EQ(5, pair->key);
  pair->value = "FIVE";
  EXPECT_STREQ("FIVE", m[5]);
  EXPECT_EQ(NULL, m.PLookup(6));
  int n = 0;
  for (const auto* p = m.PGetFirstAssoc(); p != NULL; p = m.PGetNextAssoc(p))
    n += p->key;
  EXPECT_EQ(9, n);

  CMapStringToString s;
  s["k"] = "v";
  s.PLookup("k")->value = "w";
  EXPECT_STREQ("w", s.PGetFirstAssoc()->value);
  EXPECT_EQ(NULL, s.PGetNextAssoc(s.PGetFirstAssoc()));
  char key[] = "k";
  LPCTSTR stored = NULL;
  ASSERT_TRUE(s.LookupKey(key, stored));
  EXPECT_NE(key, stored); // the map's own copy
  EXPECT_STREQ("k", stored);
  EXPECT_FALSE(s.LookupKey("q", stored));
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
