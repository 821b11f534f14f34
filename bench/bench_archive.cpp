// CArchive against the limit: a plain loop doing the same encoding over a
// byte buffer. Ten million ints and one million short strings, stored into
// and loaded from memory.
#include <afx.h>

#include "bench_clock.h"
#include <stdio.h>

#include <vector>

namespace {

const int kInts = 10 * 1000 * 1000;
const int kStrings = 1000 * 1000;

void Report(const char* what, double archiveMs, double plainMs, unsigned check) {
  printf("%-28s archive %8.1f ms  plain %8.1f ms  ratio %.2f  (check %08x)\n", what, archiveMs,
         plainMs, archiveMs / plainMs, check);
}

// Both sides write into memory allocated once up front (CMemFile with one
// large growth step), so that what is timed is the encoding, not realloc.
const UINT kOneStep = 64 << 20;

struct PlainOut {
  std::vector<BYTE> buf = std::vector<BYTE>(kOneStep);
  size_t used = 0;
  BYTE* Room(size_t n) {
    if (used + n > buf.size()) buf.resize((used + n) * 2);
    BYTE* p = &buf[used];
    used += n;
    return p;
  }
};

} // namespace

int main() {
  std::vector<CString> strings(kStrings);
  for (int i = 0; i < kStrings; ++i)
    strings[i].Format("item%d", i);

  // ---- ints ----
  CMemFile intFile(kOneStep);
  intFile.SetLength(kOneStep); // touch the pages once, as the plain buffer's are
  intFile.SetLength(0);
  double t0 = NowMs();
  {
    CArchive ar(&intFile, CArchive::store);
    for (int i = 0; i < kInts; ++i)
      ar << i;
    ar.Close();
  }
  double archiveStore = NowMs() - t0;
  PlainOut plainInts;
  t0 = NowMs();
  for (int i = 0; i < kInts; ++i) {
    LONG v = i;
    memcpy(plainInts.Room(sizeof(v)), &v, sizeof(v));
  }
  double plainStore = NowMs() - t0;
  Report("store 10M ints", archiveStore, plainStore, (unsigned)intFile.GetLength());

  intFile.SeekToBegin();
  unsigned sum = 0;
  t0 = NowMs();
  {
    CArchive ar(&intFile, CArchive::load);
    for (int i = 0; i < kInts; ++i) {
      int v;
      ar >> v;
      sum += (unsigned)v;
    }
  }
  double archiveLoad = NowMs() - t0;
  unsigned plainSum = 0;
  t0 = NowMs();
  {
    const BYTE* p = &plainInts.buf[0];
    const BYTE* end = p + plainInts.used;
    for (int i = 0; i < kInts; ++i) {
      LONG v;
      if (p + sizeof(v) > end) return 1;
      memcpy(&v, p, sizeof(v));
      p += sizeof(v);
      plainSum += (unsigned)v;
    }
  }
  double plainLoad = NowMs() - t0;
  Report("load 10M ints", archiveLoad, plainLoad, sum ^ plainSum);

  // ---- short strings ----
  CMemFile strFile(kOneStep);
  strFile.SetLength(kOneStep);
  strFile.SetLength(0);
  t0 = NowMs();
  {
    CArchive ar(&strFile, CArchive::store);
    for (int i = 0; i < kStrings; ++i)
      ar << strings[i];
    ar.Close();
  }
  archiveStore = NowMs() - t0;
  PlainOut plainStr;
  t0 = NowMs();
  for (int i = 0; i < kStrings; ++i) {
    int n = strings[i].GetLength(); // all below 255: the one-byte prefix
    BYTE* p = plainStr.Room(1 + n);
    p[0] = (BYTE)n;
    memcpy(p + 1, strings[i].GetString(), n);
  }
  plainStore = NowMs() - t0;
  Report("store 1M short CStrings", archiveStore, plainStore, (unsigned)strFile.GetLength());

  strFile.SeekToBegin();
  CString s;
  unsigned total = 0;
  t0 = NowMs();
  {
    CArchive ar(&strFile, CArchive::load);
    for (int i = 0; i < kStrings; ++i) {
      ar >> s;
      total += (unsigned)s.GetLength();
    }
  }
  archiveLoad = NowMs() - t0;
  unsigned plainTotal = 0;
  t0 = NowMs();
  {
    const BYTE* p = &plainStr.buf[0];
    const BYTE* end = p + plainStr.used;
    for (int i = 0; i < kStrings; ++i) {
      if (p >= end || p + 1 + *p > end) return 1;
      s.SetString((const char*)p + 1, *p);
      p += 1 + *p;
      plainTotal += (unsigned)s.GetLength();
    }
  }
  plainLoad = NowMs() - t0;
  Report("load 1M short CStrings", archiveLoad, plainLoad, total ^ plainTotal);
  return 0;
}
