// Blocks another program put on the clipboard (or in a data object) under
// our format: truncated archives, absurd lengths and thousands of damaged
// copies of good blocks. Reading them ends in an object or an archive
// exception: no crash, no memory exception, and no memory taken beyond what
// the block itself holds.
#include <vrk_global.h>
#include <afxole.h>
#include <gtest/gtest.h>

#include "exception_probe.h"
#include "global_testing.h"
#include "mutator.h"

#include <memory>
#include <string>
#include <vector>

namespace {

CLIPFORMAT HostileFormat() { return (CLIPFORMAT)RegisterClipboardFormatA("VRK test hostile"); }

// 0 an object (used and deleted), 1 an archive error, 2 another MFC
// exception (a block that cannot be locked), 3 a memory exception (a claimed
// length was believed), 4 no object (a null tag, an empty block).
template <class Fn> int Read(Fn read) {
  try {
    CObject* ob = read();
    if (ob == NULL) return 4;
    ob->IsSerializable();
    delete ob;
    return 0;
  } catch (CArchiveException* e) {
    e->Delete();
    return 1;
  } catch (CMemoryException* e) {
    e->Delete();
    return 3;
  } catch (CException* e) {
    e->Delete();
    return 2;
  }
}

// Reserves the free address space, leaving about nLeave bytes, while it
// lives: a reader that believed a claimed length would fail at once.
class AddressSpaceSqueeze {
public:
  explicit AddressSpaceSqueeze(SIZE_T nLeave) {
    SIZE_T nFree = FreeBytes();
    for (SIZE_T nChunk = 256u << 20; nChunk >= (64u << 10); nChunk /= 2)
      for (void* p; nFree > nLeave + nChunk &&
                    (p = VirtualAlloc(NULL, nChunk, MEM_RESERVE, PAGE_NOACCESS)) != NULL;
           nFree -= nChunk)
        m_blocks.push_back(p);
  }
  ~AddressSpaceSqueeze() {
    for (void* p : m_blocks)
      VirtualFree(p, 0, MEM_RELEASE);
  }
  static SIZE_T FreeBytes() {
    SYSTEM_INFO si;
    GetSystemInfo(&si);
    SIZE_T nFree = 0;
    MEMORY_BASIC_INFORMATION mbi;
    for (const BYTE* p = (const BYTE*)si.lpMinimumApplicationAddress;
         p < (const BYTE*)si.lpMaximumApplicationAddress &&
         VirtualQuery(p, &mbi, sizeof(mbi)) == sizeof(mbi) && mbi.RegionSize != 0;
         p = (const BYTE*)mbi.BaseAddress + mbi.RegionSize)
      if (mbi.State == MEM_FREE) nFree += mbi.RegionSize;
    return nFree;
  }

private:
  std::vector<void*> m_blocks;
};

std::string CarrierBytes(const std::string& payload) {
  VClipboardMemFileObject carrier;
  carrier.m_file.Write(payload.data(), (UINT)payload.size());
  return WriteObjectBytes(&carrier);
}

class HostileBlocks : public ::testing::Test {
protected:
  static void SetUpTestSuite() { ASSERT_TRUE(AfxOleInit()); }
  static void TearDownTestSuite() {
    OpenClipboard(NULL);
    EmptyClipboard();
    CloseClipboard();
  }
};

// The carrier checks its own length against the block: a block cut short
// and a claim of 2 GB end in endOfFile, the clipboard closed on the way out.
// Unknown or overlong class names, bad indexes and absurd string lengths are
// the archive's own cases, pinned by afx.archive.
TEST_F(HostileBlocks, KnownBadFormsEndInArchiveErrors) {
  const std::string carrier = CarrierBytes("payload");
  // The carrier's length field follows its 29-byte class header.
  ASSERT_EQ(std::string("\x07\0\0\0", 4), carrier.substr(29, 4));
  std::string hugeLength = carrier;
  hugeLength.replace(29, 4, "\xF0\xFF\xFF\x7F", 4);
  for (const std::string& bytes : {carrier.substr(0, carrier.size() - 1), hugeLength}) {
    for (int i = 0; i < 50 && !OpenClipboard(NULL); i++)
      Sleep(20);
    EmptyClipboard();
    SetClipboardData(HostileFormat(), BlockOf(bytes));
    CloseClipboard();
    EXPECT_EQ(CArchiveException::endOfFile, ArchiveCause([] {
                delete VrkClipboardGetObject(HostileFormat(),
                                             RUNTIME_CLASS(VClipboardMemFileObject));
              }))
        << bytes.size();
    EXPECT_FALSE(CloseClipboard()) << bytes.size(); // closed on the way out
  }
}

TEST_F(HostileBlocks, TenThousandDamagedBlocksNeverCrashOrOverallocate) {
  std::string payload;
  for (int i = 0; i < 300; i++)
    payload += (char)(i * 7);
  std::unique_ptr<CGlShape> shape(MakeShape());
  const std::string goods[] = {CarrierBytes(payload), WriteObjectBytes(shape.get())};
  CRuntimeClass* const classes[] = {RUNTIME_CLASS(VClipboardMemFileObject),
                                    RUNTIME_CLASS(CGlShape)};
  // Claims of up to 4 GB must not be believed. Only a 32-bit process can be
  // squeezed so (Wine keeps a byte per page of reserved address space); a
  // 64-bit build still runs every case for crashes and memory exceptions.
  std::unique_ptr<AddressSpaceSqueeze> squeeze;
  if (sizeof(void*) == 4) {
    squeeze.reset(new AddressSpaceSqueeze(64u << 20));
    ASSERT_LT(AddressSpaceSqueeze::FreeBytes(), (SIZE_T)(128u << 20));
  }
  Mutator mutator(20261123);
  int counts[5] = {0, 0, 0, 0, 0};
  for (int i = 0; i < 10000; i++) {
    const std::string bad = mutator.Mutate(goods[i % 2]);
    CRuntimeClass* const pClass = classes[i % 2];
    // Through a data object: the clipboard's reader is the same, and the
    // known bad forms above take that way.
    COleDataSource source;
    source.CacheGlobalData(HostileFormat(), BlockOf(bad));
    COleDataObject data;
    data.Attach((LPDATAOBJECT)source.GetInterface(&IID_IDataObject), FALSE);
    const int outcome =
        Read([&] { return VrkGetGlobalData(&data, HostileFormat(), pClass, NULL); });
    counts[outcome]++;
    EXPECT_NE(3, outcome) << "case " << i;
  }
  // Both kinds of result came up often: the damage reached the readers.
  EXPECT_GT(counts[0], 1000);
  EXPECT_GT(counts[1], 1000);
}

} // namespace
