// VStringMruList: ordering of additions and removals, range checks, and the
// exact bytes of its serialisation.
#include <vrk_mru.h>
#include <gtest/gtest.h>

#include "archive_bytes.h"
#include "exception_probe.h"

#include <vector>

namespace {

std::vector<std::string> Entries(const VStringMruList& list) {
  std::vector<std::string> entries;
  for (int i = 0; i < list.GetSize(); i++)
    entries.push_back((const char*)list.GetAt(i));
  return entries;
}

typedef std::vector<std::string> Strings;

template <class Fn> bool ThrowsInvalidArg(Fn fn) {
  return ThrownClass(fn) == RUNTIME_CLASS(CInvalidArgException);
}

TEST(StringMruList, AddMovesDuplicatesToTheFrontAndDropsTheOldest) {
  VStringMruList full(3); // starts with empty places
  full.Add("A");
  EXPECT_EQ(Strings({"A", "", ""}), Entries(full));
  for (const char* s : {"C", "B", "A", "D"})
    full.Add(s); // the duplicate "A" moves to the front, the oldest drops
  EXPECT_EQ(Strings({"D", "A", "B"}), Entries(full));
  full.Add("B"); // a duplicate in the last place falls off like the oldest
  EXPECT_EQ(Strings({"B", "D", "A"}), Entries(full));
  full.Add("b"); // case-sensitive
  EXPECT_EQ(Strings({"b", "B", "D"}), Entries(full));
  full.Add(NULL);
  EXPECT_EQ(Strings({"b", "B", "D"}), Entries(full));
  full.Add(full[2]); // an entry of the list itself
  EXPECT_EQ(Strings({"D", "b", "B"}), Entries(full));
}

TEST(StringMruList, RemoveClosesTheGapAndSetSizeCutsOrExtends) {
  VStringMruList list(4);
  for (const char* s : {"D", "C", "B", "A"})
    list.Add(s);
  list.Remove(1);
  EXPECT_EQ(Strings({"A", "C", "D", ""}), Entries(list));
  list.Remove(2);
  EXPECT_EQ(Strings({"A", "C", "", ""}), Entries(list));
  list.Remove(0);
  EXPECT_EQ(Strings({"C", "", "", ""}), Entries(list));
  list.SetSize(1);
  EXPECT_EQ(Strings({"C"}), Entries(list));
  list.SetSize(2);
  EXPECT_EQ(Strings({"C", ""}), Entries(list));
}

TEST(StringMruList, IndexesOutsideTheCapacityThrow) {
  VStringMruList none(0);
  EXPECT_TRUE(ThrowsInvalidArg([&] { none.Add("A"); }));
  VStringMruList list(2);
  EXPECT_TRUE(ThrowsInvalidArg([&] { list.Remove(2); }));
  EXPECT_TRUE(ThrowsInvalidArg([&] { list.Remove(-1); }));
  EXPECT_TRUE(ThrowsInvalidArg([&] { list[2]; }));
  EXPECT_TRUE(ThrowsInvalidArg([&] { list.GetAt(2); }));
  EXPECT_TRUE(ThrowsInvalidArg([&] { list.SetSize(-1); }));
  EXPECT_EQ(2, list.GetSize());
  list[1] = "set";
  EXPECT_STREQ("set", list.GetAt(1));
}

TEST(StringMruListSerialize, WritesTheEntriesThenTheCapacityAndCorruptArchivesChangeNothing) {
  VStringMruList list(3);
  list.Add("B");
  list.Add("Ab");
  const std::string bytes = ArchiveBytes([&](CArchive& ar) { list.Serialize(ar); });
  EXPECT_EQ(std::string("\003\000\002Ab\001B\000\003\000\000\000", 12), bytes);

  VStringMruList loaded(1);
  LoadBytes(bytes, [&](CArchive& ar) { loaded.Serialize(ar); });
  EXPECT_EQ(Strings({"Ab", "B", ""}), Entries(loaded));
  // A capacity that disagrees with the entries, and an archive cut short
  // before the capacity, leave the list alone.
  for (const std::string& bad :
       {std::string("\x01\x00\x01x\x05\x00\x00\x00", 8), std::string("\001\000\001x\001\000", 6)})
    EXPECT_EQ(bad.size() == 8 ? CArchiveException::badIndex : CArchiveException::endOfFile,
              ArchiveCause([&] { LoadBytes(bad, [&](CArchive& ar) { loaded.Serialize(ar); }); }));
  EXPECT_EQ(Strings({"Ab", "B", ""}), Entries(loaded));
}

} // namespace
