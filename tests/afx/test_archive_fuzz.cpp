// Mutation test of CArchive's loader: corrupt versions of a valid archive
// (bytes flipped, inserted, deleted, cut off, or overwritten with absurd
// counts and lengths) must each load or fail with CArchiveException or
// CMemoryException, and no load may allocate more than a fixed bound.
//
// Allocation is measured at afx.dll's import table: every malloc, realloc
// and operator new that afx.dll makes (CString's buffers, the
// archive's buffer and maps) passes through a counting hook.
#include <afx.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "mutator.h"

namespace {

size_t g_largest = 0;

void Note(size_t n) {
  if (n > g_largest) g_largest = n;
}

void*(__cdecl* g_malloc)(size_t);
void*(__cdecl* g_realloc)(void*, size_t);
void*(__cdecl* g_new)(size_t);

void* __cdecl HookMalloc(size_t n) {
  Note(n);
  return g_malloc(n);
}
void* __cdecl HookRealloc(void* p, size_t n) {
  Note(n);
  return g_realloc(p, n);
}
void* __cdecl HookNew(size_t n) {
  Note(n);
  return g_new(n);
}

// Points afx.dll's import of dll!name at hook; the original goes to *orig.
bool PatchImport(const char* dll, const char* name, void* hook, void** orig) {
  BYTE* base = (BYTE*)GetModuleHandleA("afx.dll");
  if (base == NULL) return false;
  IMAGE_NT_HEADERS* nt = (IMAGE_NT_HEADERS*)(base + ((IMAGE_DOS_HEADER*)base)->e_lfanew);
  IMAGE_DATA_DIRECTORY dir = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  for (IMAGE_IMPORT_DESCRIPTOR* imp = (IMAGE_IMPORT_DESCRIPTOR*)(base + dir.VirtualAddress);
       imp->Name != 0; ++imp) {
    if (lstrcmpiA((const char*)(base + imp->Name), dll) != 0) continue;
    IMAGE_THUNK_DATA* names = (IMAGE_THUNK_DATA*)(base + imp->OriginalFirstThunk);
    IMAGE_THUNK_DATA* addrs = (IMAGE_THUNK_DATA*)(base + imp->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++addrs) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      IMAGE_IMPORT_BY_NAME* byName = (IMAGE_IMPORT_BY_NAME*)(base + names->u1.AddressOfData);
      if (strcmp((const char*)byName->Name, name) != 0) continue;
      DWORD old;
      VirtualProtect(&addrs->u1.Function, sizeof(void*), PAGE_READWRITE, &old);
      *orig = (void*)addrs->u1.Function;
      addrs->u1.Function = (ULONG_PTR)hook;
      VirtualProtect(&addrs->u1.Function, sizeof(void*), old, &old);
      return true;
    }
  }
  return false;
}

// The archive's loader allocates through these (it uses no calloc and no
// nothrow new); malloc at least must be there.
bool InstallHooks() {
  bool ok = PatchImport("msvcrt.dll", "malloc", (void*)&HookMalloc, (void**)&g_malloc);
  PatchImport("msvcrt.dll", "realloc", (void*)&HookRealloc, (void**)&g_realloc);
  PatchImport("libstdc++-6.dll", "_Znwj", (void*)&HookNew, (void**)&g_new);
  return ok;
}

// Every live test object, so that whatever a failed load left behind can be
// deleted (a loader that throws half-way owns nothing it made).
std::set<CObject*>& Pool() {
  static std::set<CObject*> pool;
  return pool;
}

void DeletePool() {
  while (!Pool().empty())
    delete *Pool().begin();
}

class CFzLeaf : public CObject {
  DECLARE_SERIAL(CFzLeaf)
public:
  CFzLeaf() { Pool().insert(this); }
  ~CFzLeaf() { Pool().erase(this); }
  void Serialize(CArchive& ar) override {
    if (ar.IsStoring()) {
      ar << d << w << text;
    } else {
      ar >> d >> w >> text;
    }
  }
  double d = 0;
  WORD w = 0;
  CString text;
};
IMPLEMENT_SERIAL(CFzLeaf, CObject, VERSIONABLE_SCHEMA | 2)

class CFzNode : public CObject {
  DECLARE_SERIAL(CFzNode)
public:
  CFzNode() { Pool().insert(this); }
  ~CFzNode() { Pool().erase(this); }
  void Serialize(CArchive& ar) override {
    if (ar.IsStoring()) {
      ar << name << value;
      ar.WriteCount(kids.size());
      for (CFzNode* kid : kids)
        ar << kid;
      ar << parent << leaf;
    } else {
      ar >> name >> value;
      // Children are taken as they arrive: an absurd count runs out of
      // input long before it could cost memory.
      DWORD_PTR n = ar.ReadCount();
      for (DWORD_PTR i = 0; i < n; ++i) {
        CFzNode* kid;
        ar >> kid;
        kids.push_back(kid);
      }
      ar >> parent >> leaf;
    }
  }
  CString name;
  LONG value = 0;
  std::vector<CFzNode*> kids; // not owned: the pool owns every object
  CFzNode* parent = NULL;
  CFzLeaf* leaf = NULL;
};
IMPLEMENT_SERIAL(CFzNode, CObject, 1)

std::string BuildArchive() {
  CFzLeaf* shared = new CFzLeaf;
  shared->d = 3.5;
  shared->w = 0xBEEF;
  shared->text = "shared leaf";
  CFzNode* root = new CFzNode;
  root->name = CString('r', 300); // a 0xFF-prefixed length
  root->value = 1;
  for (int i = 0; i < 3; ++i) {
    CFzNode* kid = new CFzNode;
    kid->name.Format("kid%d", i);
    kid->value = 10 + i;
    kid->parent = root; // a reference back to an object still being read
    kid->leaf = i < 2 ? shared : NULL;
    root->kids.push_back(kid);
  }
  root->kids.push_back(root->kids[0]); // the same child twice
  CFzLeaf* own = new CFzLeaf;
  own->text = "own";
  root->leaf = own;

  CMemFile file;
  {
    CArchive ar(&file, CArchive::store);
    ar << root;
    ar.Close();
  }
  std::string bytes((size_t)file.GetLength(), '\0');
  file.SeekToBegin();
  file.Read(&bytes[0], (UINT)bytes.size());
  DeletePool();
  return bytes;
}

// A stream that cannot tell its length and has no direct buffer: string
// lengths cannot be checked up front, only read in bounded steps.
class CStreamLikeFile : public CMemFile {
public:
  CStreamLikeFile(BYTE* p, UINT n) : CMemFile(p, n) {}
  ULONGLONG GetLength() const override {
    AfxThrowNotSupportedException();
    return 0;
  }
  UINT GetBufferPtr(UINT nCommand, UINT nCount, void** ppStart, void** ppMax) override {
    return nCommand == bufferCheck ? 0 : CMemFile::GetBufferPtr(nCommand, nCount, ppStart, ppMax);
  }
};

enum Outcome { kLoaded, kArchiveError, kMemoryError, kOtherError };

// Loads bytes one of three ways: in place, through a small buffer, or as a
// stream.
Outcome Load(std::string& bytes, int way, std::string* problem) {
  BYTE* p = bytes.empty() ? NULL : (BYTE*)&bytes[0];
  CMemFile direct(p, (UINT)bytes.size());
  CStreamLikeFile stream(p, (UINT)bytes.size());
  CFile* file = way == 2 ? (CFile*)&stream : (CFile*)&direct;
  BYTE small[24];
  Outcome outcome = kLoaded;
  try {
    CArchive ar(file, CArchive::load, way == 1 ? sizeof(small) : 4096, way == 1 ? small : NULL);
    CFzNode* root = NULL;
    ar >> root;
    // What loaded is whole: strings no longer than the input.
    for (CObject* ob : Pool()) {
      const CFzNode* node = dynamic_cast<const CFzNode*>(ob);
      const CFzLeaf* leaf = dynamic_cast<const CFzLeaf*>(ob);
      int len = node ? node->name.GetLength() : leaf->text.GetLength();
      if ((size_t)len > bytes.size()) *problem = "string longer than its archive";
    }
  } catch (CArchiveException* e) {
    e->Delete();
    outcome = kArchiveError;
  } catch (CMemoryException* e) {
    e->Delete();
    outcome = kMemoryError;
  } catch (CException* e) {
    *problem = e->GetRuntimeClass()->m_lpszClassName;
    e->Delete();
    outcome = kOtherError;
  }
  DeletePool();
  return outcome;
}

// The largest single allocation a load of a few hundred bytes may make: the
// archive's maps and buffer, and a string grown in 64 KB steps when the file
// cannot tell how much it holds.
const size_t kAllocationBound = 128 * 1024;

} // namespace

TEST(ArchiveFuzz, MutationsLoadOrFailCleanlyWithBoundedAllocation) {
  ASSERT_TRUE(InstallHooks());
  const std::string valid = BuildArchive();
  ASSERT_GT(valid.size(), 350u);
  for (int way = 0; way < 3; ++way) { // unharmed, it loads every way
    std::string problem, copy = valid;
    EXPECT_EQ(kLoaded, Load(copy, way, &problem)) << way;
    EXPECT_EQ("", problem);
  }
  const DWORD kMagic[] = {0xFFFFFFFF, 0x7FFFFFFF, 0x0000FFFF, 0xFFFE00FF,
                          0x80008000, 0x7FFF7FFF, 0x3FFFFFFE, 0x00FFFFFF};

  Mutator mutator(20090714); // fixed: every run tries the same cases
  int counts[4] = {0, 0, 0, 0};
  size_t largest = 0;
  const int kCases = 12000;
  for (int i = 0; i < kCases; ++i) {
    std::string bytes = mutator.Mutate(valid);
    if (i % 4 == 0 && bytes.size() >= 4) { // and often an absurd count, length, tag or id
      DWORD magic = kMagic[mutator.Next() % (sizeof(kMagic) / sizeof(kMagic[0]))];
      memcpy(&bytes[mutator.Next() % (bytes.size() - 3)], &magic, mutator.Next() % 2 ? 4 : 2);
    }
    std::string problem;
    g_largest = 0;
    Outcome outcome = Load(bytes, i % 3, &problem);
    ++counts[outcome];
    if (g_largest > largest) largest = g_largest;
    ASSERT_NE(kOtherError, outcome) << "case " << i << ": " << problem;
    ASSERT_EQ("", problem) << "case " << i;
    ASSERT_LE(g_largest, kAllocationBound) << "case " << i;
  }
  // Both kinds of outcome occur, or the mutations are not reaching the loader.
  EXPECT_GT(counts[kLoaded], 100);
  EXPECT_GT(counts[kArchiveError], 1000);
  EXPECT_GT(largest, 0u); // the hook saw the loads allocate
  printf("cases %d: loaded %d, CArchiveException %d, CMemoryException %d; largest allocation %u\n",
         kCases, counts[kLoaded], counts[kArchiveError], counts[kMemoryError], (unsigned)largest);
}
