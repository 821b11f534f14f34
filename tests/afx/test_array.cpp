// CArray and the non-template arrays: MFC's growth rule (seen through
// GetData's stability), element construction, insertion and removal, and
// the exceptions bad indexes and sizes raise.
#include <afxtempl.h>
#include <gtest/gtest.h>

#include <string>

#include "coll_testing.h"

// Adds elements until the block moves; returns the size at which it moved.
template <class ARR> static INT_PTR SizeWhenBlockMoves(ARR& a) {
  const void* p = a.GetData();
  for (INT_PTR i = 0; i < 100000; i++) {
    a.Add(0);
    if (a.GetData() != p) return a.GetSize();
  }
  return -1;
}

TEST(ArrayGrowth, FirstBlockNewSizeThenGrowByOrAnEighthClamped) {
  CArray<int, int> a; // grow-by 0: the first block is exactly the new size
  a.SetSize(1, 0);
  EXPECT_EQ(2, SizeWhenBlockMoves(a)); // size 1 / 8 -> step 4: block of 5
  EXPECT_EQ(6, SizeWhenBlockMoves(a)); // 5 / 8 -> 4: block of 9
  EXPECT_EQ(10, SizeWhenBlockMoves(a));

  CArray<int, int> b;
  b.SetSize(0, 10); // the first Add makes a block of max(1, 10)
  b.Add(1);
  EXPECT_EQ(11, SizeWhenBlockMoves(b)); // then steps of 10: block of 20
  EXPECT_EQ(21, SizeWhenBlockMoves(b));

  // The default step is an eighth, clamped to 4 (and to 1024).
  a.RemoveAll();
  a.SetSize(8000); // exact first block
  EXPECT_EQ(8001, SizeWhenBlockMoves(a));
  // 8000 / 8 = 1000 more slots
  const int* p = a.GetData();
  a.SetSize(9000);
  EXPECT_EQ(p, a.GetData());
  a.SetSize(9001);
  EXPECT_NE(p, a.GetData());
}

TEST(ArrayElements, NewElementsAreZeroAndConstructedOnce) {
  CArray<int, int> ints;
  ints.SetSize(3);
  ints[1] = 7;
  ints.SetSize(1);
  ints.SetSize(3); // slots reused after a shrink are zeroed again
  EXPECT_EQ(0, ints[1]);
  ints[2] = 5;
  ints.SetSize(4); // and so are those of a new block
  EXPECT_EQ(5, ints[2]);
  EXPECT_EQ(0, ints[3]);

  CObArray obs;
  obs.SetSize(5);
  for (int i = 0; i < 5; i++)
    EXPECT_EQ(NULL, obs[i]);

  Counted::Reset();
  {
    CArray<Counted> a;
    a.SetSize(5);
    EXPECT_EQ(5, Counted::s_live);
    EXPECT_EQ(-1, a[4].value);
    a.SetSize(2000); // moving the block copies no element
    EXPECT_EQ(2000, Counted::s_constructed);
    a.SetSize(2);
    EXPECT_EQ(2, Counted::s_live);
    a.InsertAt(1, Counted(9), 3);
    a.RemoveAt(0, 2);
    EXPECT_EQ(3, a.GetSize());
    EXPECT_EQ(9, a[0].value);
    EXPECT_EQ(3, Counted::s_live);
  }
  EXPECT_EQ(0, Counted::s_live);
}

static std::string Join(const CArray<int, int>& a) {
  std::string s;
  for (INT_PTR i = 0; i < a.GetSize(); i++)
    s += (i ? "," : "") + std::to_string(a[i]);
  return s;
}

TEST(ArrayEdit, InsertRemoveAppendCopyAlsoFromItsOwnElements) {
  CArray<int, int> a, b;
  for (int i = 1; i <= 3; i++)
    a.Add(i);
  a.InsertAt(1, 9, 2);
  EXPECT_EQ("1,9,9,2,3", Join(a));
  a.InsertAt(7, 5); // past the end: the gap is zero
  EXPECT_EQ("1,9,9,2,3,0,0,5", Join(a));
  a.RemoveAt(1, 4);
  EXPECT_EQ("1,0,0,5", Join(a));
  EXPECT_EQ(3, a.GetUpperBound());
  b.Add(100);
  b.Add(200);
  EXPECT_EQ(4, a.Append(b));
  a.InsertAt(0, &b);
  EXPECT_EQ("100,200,1,0,0,5,100,200", Join(a));
  b.Copy(a);
  b.Copy(b);
  EXPECT_EQ(Join(a), Join(b));
  a.SetAtGrow(10, 42);
  EXPECT_EQ("100,200,1,0,0,5,100,200,0,0,42", Join(a));

  // An element of the array as the argument survives the reallocation.
  CArray<CString, const CString&> s;
  s.Add(CString("first, long enough to have its own buffer"));
  for (int i = 0; i < 100; i++)
    s.Add(s[0]);
  s.InsertAt(0, s[s.GetUpperBound()], 50);
  for (INT_PTR i = 0; i < s.GetSize(); i++)
    ASSERT_STREQ("first, long enough to have its own buffer", s[i]);
}

TEST(ArrayErrors, BadIndexesAndSizesThrow) {
  CArray<int, int> a;
  a.SetSize(3);
  const CArray<int, int>& c = a;
  ExpectEachThrows<CInvalidArgException>(
      {[&] { a.GetAt(3); }, [&] { c[-1]; }, [&] { a.SetAt(3, 1); }, [&] { a.ElementAt(100); },
       [&] { a.SetSize(-1); }, [&] { a.RemoveAt(2, 2); }, [&] { a.RemoveAt(-1); },
       [&] { a.RemoveAt(0, 0x7FFFFFFF); }, [&] { a.InsertAt(-1, 0); }, [&] { a.InsertAt(0, 0, 0); },
       [&] { a.SetAtGrow(-5, 0); }, [&] { a.Append(a); }, [&] { a.InsertAt(0, &a); },
       [&] { a.InsertAt(0, (CArray<int, int>*)NULL); }});
  a.RemoveAt(3, 0); // an empty range at the end is fine
  EXPECT_EQ(3, a.GetSize());

  // Sizes no address space can hold fail as memory, not as a crash (in a
  // 64-bit process, 2^61 ints are 8 EB).
  // Read through a volatile: a constant would let the compiler warn about
  // the copy loops that only run when such an allocation succeeds.
  volatile INT_PTR nHugeSize = sizeof(void*) == 4 ? (INT_PTR)0x7FFFFFFF : (INT_PTR)1 << 61;
  const INT_PTR nHuge = nHugeSize;
  ExpectEachThrows<CMemoryException>({[&] { a.SetSize(nHuge); }, [&] { a.SetAtGrow(nHuge - 1, 1); },
                                      [&] { a.InsertAt(1, 0, nHuge); }});
  EXPECT_EQ(3, a.GetSize());
  CDWordArray d;
  // On 32-bit, a byte count just past 4 GB.
  const INT_PTR nWrap = sizeof(void*) == 4 ? (INT_PTR)0x40000001 : nHuge;
  EXPECT_TRUE(ThrowsMfc<CMemoryException>([&] { d.SetSize(nWrap); }));
  EXPECT_TRUE(d.IsEmpty());
}
