// The file reader/writer and the character file reader against the same
// call pattern in plain Win32, and over the files a host passes for speed.
//
// VFileReaderWriter's 32-bit "Normal" forms make one CFile call per byte,
// and VCharFileReader reads one byte per call: over a plain CFile each byte
// is a system call. So the first figure of each row compares VRK with a
// plain Win32 loop making the same calls (WriteFile/ReadFile of one byte):
// the ratio is VRK's own overhead (the CFile layer, the exception guard and
// the byte assembly). The other figures run the same VRK loops over a
// CStdioFile (the C run-time's buffered stream) and over a CMemFile, which a
// host passes with SetCurrentFile to make the per-byte forms fast; no
// system call is made per byte then.
#include <vrk_charfilereader.h>
#include <vrk_filereaderwriter.h>

#include "bench_clock.h"

#include <stdio.h>
#include <string.h>

#include <string>
#include <vector>

namespace {

const unsigned long kValues = 256 * 1024; // 1 MB of 32-bit values
const int kLines = 20000;
volatile unsigned long g_sink;

template <class F> double TimeMs(F f) {
  double start = NowMs();
  f();
  return NowMs() - start;
}

void Report(const char* what, double msVrk, double msPlain, double msStdio, double msMem) {
  printf("%s: VRK over CFile %.1f ms, plain Win32 %.1f ms (ratio %.2f); "
         "VRK over CStdioFile %.1f ms, over CMemFile %.1f ms\n",
         what, msVrk, msPlain, msPlain > 0 ? msVrk / msPlain : 0.0, msStdio, msMem);
}

// The writer's loop over the file it is given.
void WriteValues(CFile* pFile) {
  VFileReaderWriter rw(pFile);
  for (unsigned long i = 0; i < kValues; ++i)
    rw.WriteFourByteDwordNormal(i);
}

void ReadValues(CFile* pFile) {
  VFileReaderWriter rw(pFile);
  unsigned long v = 0, sum = 0;
  for (unsigned long i = 0; i < kValues; ++i) {
    rw.ReadFourByteDwordNormal(&v);
    sum += v;
  }
  g_sink = sum;
}

// Reads every line of the file it is given, as a reader class built on
// VCharFileReader does, and splits each into its fields.
class CsvReader : public VCharFileReader {
public:
  CsvReader() { SetSeparator(','); }
  unsigned long CountFields(CFile* pFile) {
    SetCurrentFile(pFile);
    GetFileSize(m_nFileSize);
    unsigned long n = 0;
    CString strLine;
    CStringArray fields;
    while (!FinishedWithFile() && ReadLine(strLine)) {
      ParseLine(strLine, &fields);
      n += (unsigned long)fields.GetSize();
      fields.RemoveAll();
    }
    return n;
  }
};

// The same line and field work with one ReadFile per byte.
unsigned long PlainCountFields(const char* pszName) {
  HANDLE h = CreateFileA(pszName, GENERIC_READ, 0, NULL, OPEN_EXISTING, 0, NULL);
  unsigned long n = 0;
  CString strLine;
  CStringArray fields;
  char c;
  DWORD nRead;
  while (ReadFile(h, &c, 1, &nRead, NULL) && nRead == 1) {
    if (c != '\n') {
      if (c != '\r') strLine += c;
      continue;
    }
    for (int start = 0, sep; (sep = strLine.Find(',', start)) >= 0; start = sep + 1) {
      CString field = strLine.Mid(start, sep - start);
      field.Trim();
      fields.Add(field);
    }
    n += (unsigned long)fields.GetSize();
    fields.RemoveAll();
    strLine.Empty();
  }
  CloseHandle(h);
  return n;
}

// A memory file holding the whole of a disk file.
void LoadInto(CMemFile& mem, const char* pszName) {
  CFile f(pszName, CFile::modeRead);
  std::vector<char> bytes((size_t)f.GetLength());
  f.Read(bytes.data(), (UINT)bytes.size());
  mem.Write(bytes.data(), (UINT)bytes.size());
  mem.SeekToBegin();
}

} // namespace

int main() {
  char szDir[MAX_PATH];
  GetTempPathA(MAX_PATH, szDir);
  const std::string bin = std::string(szDir) + "vrk_bench_files.bin";
  const std::string csv = std::string(szDir) + "vrk_bench_files.csv";
  const UINT kCreate = CFile::modeCreate | CFile::modeReadWrite;

  double wVrk = TimeMs([&] {
    CFile f(bin.c_str(), kCreate);
    WriteValues(&f);
  });
  double wPlain = TimeMs([&] {
    HANDLE h = CreateFileA(bin.c_str(), GENERIC_WRITE, 0, NULL, CREATE_ALWAYS, 0, NULL);
    DWORD n;
    for (unsigned long i = 0; i < kValues; ++i)
      for (int shift = 24; shift >= 0; shift -= 8) {
        const unsigned char b = (unsigned char)(i >> shift);
        WriteFile(h, &b, 1, &n, NULL);
      }
    CloseHandle(h);
  });
  double wStdio = TimeMs([&] {
    CStdioFile f(bin.c_str(), kCreate | CFile::typeBinary);
    WriteValues(&f);
  });
  CMemFile mem;
  double wMem = TimeMs([&] { WriteValues(&mem); });

  double rVrk = TimeMs([&] {
    CFile f(bin.c_str(), CFile::modeRead);
    ReadValues(&f);
  });
  double rPlain = TimeMs([&] {
    HANDLE h = CreateFileA(bin.c_str(), GENERIC_READ, 0, NULL, OPEN_EXISTING, 0, NULL);
    unsigned long sum = 0;
    DWORD n;
    for (unsigned long i = 0; i < kValues; ++i) {
      unsigned long v = 0;
      for (int k = 0; k < 4; ++k) {
        unsigned char b = 0;
        ReadFile(h, &b, 1, &n, NULL);
        v = v << 8 | b;
      }
      sum += v;
    }
    g_sink = sum;
    CloseHandle(h);
  });
  double rStdio = TimeMs([&] {
    CStdioFile f(bin.c_str(), CFile::modeRead | CFile::typeBinary);
    ReadValues(&f);
  });
  mem.SeekToBegin();
  double rMem = TimeMs([&] { ReadValues(&mem); });
  Report("write 1 MB as 32-bit Normal", wVrk, wPlain, wStdio, wMem);
  Report("read 1 MB as 32-bit Normal", rVrk, rPlain, rStdio, rMem);

  FILE* out = fopen(csv.c_str(), "wb");
  if (out == NULL) return 1;
  for (int i = 0; i < kLines; ++i)
    fprintf(out, "%d, name%d , %d.%02d,\"quoted, text\"\r\n", i, i, i % 1000, i % 100);
  fclose(out);

  unsigned long nVrk = 0, nPlain = 0, nStdio = 0, nMem = 0;
  double cVrk = TimeMs([&] {
    CFile f(csv.c_str(), CFile::modeRead);
    nVrk = CsvReader().CountFields(&f);
  });
  double cPlain = TimeMs([&] { nPlain = PlainCountFields(csv.c_str()); });
  double cStdio = TimeMs([&] {
    CStdioFile f(csv.c_str(), CFile::modeRead | CFile::typeBinary);
    nStdio = CsvReader().CountFields(&f);
  });
  CMemFile csvMem;
  LoadInto(csvMem, csv.c_str());
  double cMem = TimeMs([&] { nMem = CsvReader().CountFields(&csvMem); });
  printf("(fields: VRK %lu, plain %lu, stdio %lu, memory %lu)\n", nVrk, nPlain, nStdio, nMem);
  Report("read and split 20,000 CSV lines", cVrk, cPlain, cStdio, cMem);

  DeleteFileA(bin.c_str());
  DeleteFileA(csv.c_str());
  return 0;
}
