// VStringMruList: ordering of additions and removals, range checks, and the
// exact bytes of its serialisation.
#include <vrk_mru.h>
#include <gtest/gtest.h>

#include "archive_bytes.h"
#include "exception_probe.h"

#include <stdlib.h>
#include <string.h>

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

// Add moves a duplicate (case-sensitive) to the front and drops the oldest;
// Remove closes the gap; SetSize cuts or extends; indexes past the capacity throw.
TEST(StringMruList, AddRemoveSetSizeAndIndexesOutsideTheCapacity) {
  VStringMruList list(3); // starts with empty places
  const struct {
    char op; // 'A' Add, 'R' Remove, 'S' SetSize, 'I' Add of entry 2 itself
    const char* pszArg;
    Strings entries;
  } steps[] = {
      {'A', "A", {"A", "", ""}},   {'A', "C", {"C", "A", ""}},   {'A', "B", {"B", "C", "A"}},
      {'A', "A", {"A", "B", "C"}}, {'A', "D", {"D", "A", "B"}},  {'A', "B", {"B", "D", "A"}},
      {'A', "b", {"b", "B", "D"}}, {'A', NULL, {"b", "B", "D"}}, {'I', NULL, {"D", "b", "B"}},
      {'R', "1", {"D", "B", ""}},  {'R', "0", {"B", "", ""}},    {'S', "1", {"B"}},
      {'S', "2", {"B", ""}}};
  for (const auto& s : steps) {
    if (s.op == 'A') list.Add(s.pszArg);
    if (s.op == 'I') list.Add(list[2]);
    if (s.op == 'R') list.Remove(atoi(s.pszArg));
    if (s.op == 'S') list.SetSize(atoi(s.pszArg));
    EXPECT_EQ(s.entries, Entries(list)) << s.op << (s.pszArg ? s.pszArg : "NULL");
  }
  VStringMruList none(0);
  EXPECT_TRUE(ThrowsInvalidArg([&] { none.Add("A"); }));
  for (int n : {2, -1})
    EXPECT_TRUE(ThrowsInvalidArg([&] { list.Remove(n); }) && ThrowsInvalidArg([&] { list[n]; }) &&
                ThrowsInvalidArg([&] { list.GetAt(n); }))
        << n;
  EXPECT_TRUE(ThrowsInvalidArg([&] { list.SetSize(-1); }));
  list[1] = "set";
  EXPECT_TRUE(list.GetSize() == 2 && strcmp("set", list.GetAt(1)) == 0);
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
