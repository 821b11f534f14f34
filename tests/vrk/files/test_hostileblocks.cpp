// Blocks another program put on the clipboard (or in a data object) under
// our format: truncated archives, absurd lengths, unknown class names and
// thousands of damaged copies of good blocks. Reading them ends in an
// object or an archive exception: no crash, no other exception, and no
// memory taken beyond what the block itself holds.
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

// What reading a block ended in. No object at all is fair: a null-object tag
// stands for NULL, and an empty block gives no data. So is any other MFC
// exception (a block that cannot even be locked is an invalid argument);
// a memory exception is not: it means a claimed length was believed.
enum Outcome { kObject, kNothing, kArchiveError, kOtherError, kMemoryError };

void PutOnClipboard(const std::string& bytes) {
  for (int i = 0; i < 50 && !OpenClipboard(NULL); i++)
    Sleep(20);
  EmptyClipboard();
  SetClipboardData(HostileFormat(), BlockOf(bytes));
  CloseClipboard();
}

template <class Fn> Outcome Read(Fn read) {
  try {
    CObject* ob = read();
    // Whatever loaded is a whole object that can be used and deleted.
    if (ob == NULL) return kNothing;
    ob->IsSerializable();
    delete ob;
    return kObject;
  } catch (CArchiveException* e) {
    e->Delete();
    return kArchiveError;
  } catch (CMemoryException* e) {
    e->Delete();
    return kMemoryError;
  } catch (CException* e) {
    e->Delete();
    return kOtherError;
  }
}

Outcome ReadFromClipboard(const std::string& bytes, CRuntimeClass* pClass) {
  PutOnClipboard(bytes);
  return Read([&] { return VrkClipboardGetObject(HostileFormat(), pClass); });
}

Outcome ReadFromDataObject(const std::string& bytes, CRuntimeClass* pClass) {
  COleDataSource source;
  source.CacheGlobalData(HostileFormat(), BlockOf(bytes));
  COleDataObject data;
  data.Attach((LPDATAOBJECT)source.GetInterface(&IID_IDataObject), FALSE);
  return Read([&] { return VrkGetGlobalData(&data, HostileFormat(), pClass, NULL); });
}

// Reserves the free address space in chunks, leaving about nLeave bytes,
// while it lives: a reader that believed a claimed length would meet a
// memory exception at once.
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

// A carrier of n bytes, in its WriteObject form.
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

TEST_F(HostileBlocks, KnownBadFormsEndInArchiveErrors) {
  const std::string carrier = CarrierBytes("payload");
  // The carrier's length field follows its 29-byte class header.
  ASSERT_EQ(std::string("\x07\0\0\0", 4), carrier.substr(29, 4));
  std::string hugeLength = carrier;
  hugeLength.replace(29, 4, "\xF0\xFF\xFF\x7F", 4);
  std::string unknownClass = carrier;
  unknownClass.replace(6, 23, "VClipboardMemFileObjecX");
  std::string longName = std::string("\xFF\xFF\x00\x00\xFF\x00", 6) + std::string(255, 'A');
  CGlShape* shape = MakeShape();
  const std::string shapeBytes = WriteObjectBytes(shape);
  delete shape;
  // "outer"'s length byte (after the 14-byte class header) replaced by the
  // escapes to a 32-bit length, and a length of 2 GB.
  ASSERT_EQ('\x05', shapeBytes[14]);
  std::string hugeName = shapeBytes;
  hugeName.replace(14, 1, "\xFF\xFF\xFF\xFE\xFF\xFF\x7F", 7);

  CRuntimeClass* const pCarrier = RUNTIME_CLASS(VClipboardMemFileObject);
  CRuntimeClass* const pShape = RUNTIME_CLASS(CGlShape);
  struct {
    const char* what;
    std::string bytes;
    CRuntimeClass* pClass;
    int cause;
  } cases[] = {
      {"truncated header", carrier.substr(0, 5), pCarrier, CArchiveException::endOfFile},
      {"truncated data", carrier.substr(0, carrier.size() - 1), pCarrier,
       CArchiveException::endOfFile},
      {"huge length", hugeLength, pCarrier, CArchiveException::endOfFile},
      {"unknown class", unknownClass, pCarrier, CArchiveException::badClass},
      {"overlong class name", longName, pShape, CArchiveException::badClass},
      {"huge string", hugeName, pShape, CArchiveException::endOfFile},
      {"class reference to nothing", std::string("\x01\x80", 2), pShape,
       CArchiveException::badIndex},
      {"one zero byte", std::string(1, '\0'), pShape, CArchiveException::endOfFile},
  };
  for (auto& c : cases) {
    PutOnClipboard(c.bytes);
    EXPECT_EQ(c.cause,
              ArchiveCause([&] { delete VrkClipboardGetObject(HostileFormat(), c.pClass); }))
        << c.what;
    // The clipboard was closed on the way out: this thread no longer has it
    // open, so closing it again fails.
    EXPECT_FALSE(CloseClipboard()) << c.what;
  }
}

TEST_F(HostileBlocks, TenThousandDamagedBlocksNeverCrashOrOverallocate) {
  std::string carrierPayload;
  for (int i = 0; i < 300; i++)
    carrierPayload += (char)(i * 7);
  CGlShape* shape = MakeShape();
  const std::string goods[] = {CarrierBytes(carrierPayload), WriteObjectBytes(shape)};
  CRuntimeClass* const classes[] = {RUNTIME_CLASS(VClipboardMemFileObject),
                                    RUNTIME_CLASS(CGlShape)};
  delete shape;

  // Lengths of up to 4 GB will be claimed: memory must follow the blocks'
  // sizes (a few hundred bytes), never the claims.
  // Only a 32-bit process can be squeezed so: Wine keeps a byte per page
  // of reserved address space, and a 64-bit process has 128 TB of it. A
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
    // Every block through a data object, every fifth also through the
    // clipboard: the same reader behind both.
    CRuntimeClass* const pClass = classes[i % 2];
    const Outcome outcome = ReadFromDataObject(bad, pClass);
    counts[outcome]++;
    if (outcome == kMemoryError) ADD_FAILURE() << "case " << i << " (data object)";
    if (i % 5 == 0 && ReadFromClipboard(bad, pClass) == kMemoryError)
      ADD_FAILURE() << "case " << i << " (clipboard)";
  }
  // Both kinds of result came up often: the damage reached the readers.
  EXPECT_GT(counts[kObject], 1000);
  EXPECT_GT(counts[kArchiveError], 1000);
}

} // namespace
