// CList and the non-template lists: order, positions, insertion and removal,
// searching, and the exceptions empty lists and NULL positions raise.
#include <afxtempl.h>
#include <gtest/gtest.h>

#include <string>

#include "coll_testing.h"

// The list's elements head to tail, and tail to head reversed, joined by ','.
template <class LIST> static std::string Forward(const LIST& l) {
  std::string s;
  for (POSITION pos = l.GetHeadPosition(); pos != NULL;)
    s += std::string(s.empty() ? "" : ",") + (LPCTSTR)l.GetNext(pos);
  std::string back;
  for (POSITION pos = l.GetTailPosition(); pos != NULL;)
    back = std::string((LPCTSTR)l.GetPrev(pos)) + (back.empty() ? "" : ",") + back;
  EXPECT_EQ(s, back) << "the backward links disagree";
  return s;
}

TEST(List, AddInsertRemoveKeepOrderBothWays) {
  CStringList l;
  EXPECT_TRUE(l.IsEmpty());
  l.AddTail("b");
  l.AddHead("a");
  POSITION c = l.AddTail(CString("c"));
  EXPECT_EQ("a,b,c", Forward(l));
  l.InsertBefore(c, "b2");
  l.InsertAfter(c, CString("d"));
  l.InsertBefore(NULL, "first");
  l.InsertAfter(NULL, "last");
  EXPECT_EQ("first,a,b,b2,c,d,last", Forward(l));
  EXPECT_EQ(7, l.GetCount());

  l.RemoveAt(c);
  EXPECT_STREQ("first", l.RemoveHead());
  EXPECT_STREQ("last", l.RemoveTail());
  EXPECT_EQ("a,b,b2,d", Forward(l));
  l.RemoveAt(l.GetTailPosition());
  l.SetAt(l.GetHeadPosition(), "A");
  l.GetTail() = "B2";
  EXPECT_EQ("A,b,B2", Forward(l));
  l.RemoveAll();
  EXPECT_EQ(0, l.GetSize());
  EXPECT_EQ(NULL, l.GetHeadPosition());
  EXPECT_EQ(NULL, l.GetTailPosition());
}

TEST(List, FindFindIndexAndAddingWholeListsIncludingItself) {
  CStringList l;
  l.AddTail("x");
  l.AddTail("y");
  l.AddTail("X");
  POSITION second = l.AddTail("x");
  POSITION first = l.Find("x");
  EXPECT_EQ(l.GetHeadPosition(), first);
  EXPECT_EQ(second, l.Find("x", first)); // searches after startAfter
  EXPECT_EQ(NULL, l.Find("x", second));
  EXPECT_EQ(NULL, l.Find("Y")); // case-sensitive
  EXPECT_EQ(second, l.FindIndex(3));
  EXPECT_EQ(NULL, l.FindIndex(4));
  EXPECT_EQ(NULL, l.FindIndex(-1));

  // Whole lists added at either end, a list also to itself.
  CList<int, int> a, b;
  a.AddTail(1);
  a.AddTail(2);
  b.AddTail(8);
  b.AddTail(9);
  a.AddHead(&b);
  a.AddTail(&b);
  std::string s;
  for (POSITION pos = a.GetHeadPosition(); pos != NULL;)
    s += char('0' + a.GetNext(pos));
  EXPECT_EQ("891289", s);
  b.AddTail(&b);
  b.AddHead(&b);
  s.clear();
  for (POSITION pos = b.GetHeadPosition(); pos != NULL;)
    s += char('0' + b.GetNext(pos));
  EXPECT_EQ("89898989", s);
}

TEST(List, EmptyListsAndNullPositionsThrow) {
  CObList l;
  const CObList& c = l;
  POSITION none = NULL;
  CList<int, int> t;
  ExpectEachThrows<CInvalidArgException>(
      {[&] { l.GetHead(); }, [&] { c.GetTail(); }, [&] { l.RemoveHead(); }, [&] { l.RemoveTail(); },
       [&] { l.GetNext(none); }, [&] { c.GetPrev(none); }, [&] { l.GetAt(NULL); },
       [&] { l.SetAt(NULL, NULL); }, [&] { l.RemoveAt(NULL); }, [&] { l.AddTail((CObList*)NULL); },
       [&] { t.RemoveTail(); }, [&] { t.AddHead((CList<int, int>*)NULL); }});
  EXPECT_TRUE(l.IsEmpty());
}
