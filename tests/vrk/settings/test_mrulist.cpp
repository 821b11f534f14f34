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

// True when fn throws CInvalidArgException.
template <class Fn> bool ThrowsInvalidArg(Fn fn) {
  return ThrownClass(fn) == RUNTIME_CLASS(CInvalidArgException);
}

TEST(StringMruList, AddMovesDuplicatesToTheFrontAndDropsTheOldest) {
  VStringMruList list(3);
  EXPECT_EQ(Strings({"", "", ""}), Entries(list)); // starts with empty places
  list.Add("A");
  list.Add("B");
  list.Add("A");
  EXPECT_EQ(Strings({"A", "B", ""}), Entries(list));

  VStringMruList full(3);
  full.Add("C");
  full.Add("B");
  full.Add("A");
  full.Add("D");
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

TEST(StringMruList, RemoveClosesTheGap) {
  VStringMruList list(4);
  for (const char* s : {"D", "C", "B", "A"})
    list.Add(s);
  list.Remove(1);
  EXPECT_EQ(Strings({"A", "C", "D", ""}), Entries(list));
  list.Remove(2);
  EXPECT_EQ(Strings({"A", "C", "", ""}), Entries(list));
  list.Remove(3);
  EXPECT_EQ(Strings({"A", "C", "", ""}), Entries(list));
  list.Remove(0);
  EXPECT_EQ(Strings({"C", "", "", ""}), Entries(list));
}

TEST(StringMruList, IndexesOutsideTheCapacityThrow) {
  VStringMruList none(0);
  EXPECT_TRUE(ThrowsInvalidArg([&] { none.Add("A"); }));
  VStringMruList list(2);
  EXPECT_TRUE(ThrowsInvalidArg([&] { list.Remove(2); }));
  EXPECT_TRUE(ThrowsInvalidArg([&] { list.Remove(-1); }));
  EXPECT_TRUE(ThrowsInvalidArg([&] { list[2]; }));
  EXPECT_TRUE(ThrowsInvalidArg([&] { list[-1]; }));
  EXPECT_TRUE(ThrowsInvalidArg([&] { list.GetAt(2); }));
  EXPECT_TRUE(ThrowsInvalidArg([&] { list.SetSize(-1); }));
  EXPECT_EQ(2, list.GetSize());
  list[1] = "set";
  EXPECT_STREQ("set", list.GetAt(1));
}

TEST(StringMruList, SetSizeCutsOrExtends) {
  VStringMruList list(3);
  for (const char* s : {"C", "B", "A"})
    list.Add(s);
  list.SetSize(2);
  EXPECT_EQ(Strings({"A", "B"}), Entries(list));
  list.SetSize(4);
  EXPECT_EQ(Strings({"A", "B", "", ""}), Entries(list));
}

TEST(StringMruListSerialize, WritesTheEntriesThenTheCapacity) {
  VStringMruList list(3);
  list.Add("B");
  list.Add("Ab");
  const std::string bytes = ArchiveBytes([&](CArchive& ar) { list.Serialize(ar); });
  EXPECT_EQ(std::string("\003\000\002Ab\001B\000\003\000\000\000", 12), bytes);

  VStringMruList loaded(1);
  LoadBytes(bytes, [&](CArchive& ar) { loaded.Serialize(ar); });
  EXPECT_EQ(3, loaded.GetSize());
  EXPECT_EQ(Strings({"Ab", "B", ""}), Entries(loaded));
}

TEST(StringMruListSerialize, CorruptArchivesLeaveTheListAlone) {
  VStringMruList list(2);
  list.Add("keep");
  // The capacity disagrees with the number of entries.
  const std::string mismatch("\x01\x00\x01x\x05\x00\x00\x00", 8);
  EXPECT_EQ(CArchiveException::badIndex,
            ArchiveCause([&] { LoadBytes(mismatch, [&](CArchive& ar) { list.Serialize(ar); }); }));
  // Cut short before the capacity.
  EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([&] {
              LoadBytes(std::string("\001\000\001x\001\000", 6),
                        [&](CArchive& ar) { list.Serialize(ar); });
            }));
  EXPECT_EQ(Strings({"keep", ""}), Entries(list));
}

} // namespace
