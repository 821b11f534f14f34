// The print index tree: deletion, and the archive form.
#include <vrk_printindex.h>
#include <exception_probe.h>
#include <gtest/gtest.h>

#include "archive_bytes.h"
#include "printing_testing.h"

#include <string>

namespace {

int g_nDestroyed = 0;
class CountedTree : public VPrintIndexTree {
public:
  ~CountedTree() { g_nDestroyed++; }
};

void Load(const std::string& bytes, VPrintIndexTree& tree) {
  LoadBytes(bytes, [&](CArchive& ar) { tree.Serialize(ar); });
}

} // namespace

TEST(PrintIndexTree, DeletingAThreeLevelTreeFreesEachSubTreeOnce) {
  g_nDestroyed = 0;
  {
    VPrintIndexTree root;
    for (int i = 0; i < 3; i++) { // 3 chapters of 2 sections and an item without
      CountedTree* level2 = new CountedTree;
      for (int j = 0; j < 2; j++)
        level2->Add(Item("section", 1, 0, new CountedTree));
      level2->Add(Item("no children", 1));
      root.Add(Item("chapter", (WORD)i, 2, level2));
    }
    VPrintIndexTree::DeletePrintIndexTree(&root);
    EXPECT_TRUE(g_nDestroyed == 3 + 6 && root.GetSize() == 0 && root.GetData() == nullptr);
    root.Add(Item("again", 1, 0, new CountedTree)); // usable again; freed with the tree
  }
  EXPECT_EQ(10, g_nDestroyed);
  VPrintIndexTree::DeletePrintIndexTree(NULL);
}

TEST(PrintIndexTree, ArchiveHoldsCountAndItemsOnlyAndShortArchivesFail) {
  VPrintIndexTree tree;
  tree.Add(Item("Intro", 3, 1));
  tree.Add(Item("Ab", 0x1234, 2, new VPrintIndexTree));
  const std::string bytes = ArchiveBytes([&](CArchive& ar) { tree.Serialize(ar); });
  const char want[] = "\2\0\5Intro\1\0\0\0\3\0\2Ab\2\0\0\0\x34\x12"; // count, items
  EXPECT_EQ(std::string(want, sizeof(want) - 1), bytes);

  g_nDestroyed = 0;
  VPrintIndexTree loaded;
  loaded.Add(Item("old", 1, 0, new CountedTree)); // replaced, and freed, by the load
  Load(bytes, loaded);
  EXPECT_EQ(1, g_nDestroyed);
  ASSERT_EQ(2, loaded.GetSize());
  EXPECT_EQ(bytes, ArchiveBytes([&](CArchive& ar) { loaded.Serialize(ar); }));
  EXPECT_TRUE(loaded[1].m_pChildren == nullptr); // sub-trees are not persisted

  // Every truncation, and a count of two billion with two items behind it.
  for (size_t n = 0; n < bytes.size(); n++) {
    VPrintIndexTree t;
    EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([&] { Load(bytes.substr(0, n), t); }))
        << n;
  }
  std::string huge = std::string("\xFF\xFF\xFF\xFF\xFF\x7F", 6) + bytes.substr(2);
  VPrintIndexTree t;
  EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([&] { Load(huge, t); }));
  EXPECT_EQ(2, t.GetSize());
}
