// VFileReaderWriter's 32-bit "Normal" form (one CFile call per byte) against
// one CFile::Write/Read of the same 10 MB; VCharFileReader's line and field
// reading of a 100,000-line CSV file against fgets and a plain split.
// Prints each time and the ratio.
#include <vrk_charfilereader.h>
#include <vrk_filereaderwriter.h>

#include "bench_clock.h"

#include <stdio.h>
#include <string.h>

#include <string>
#include <vector>

namespace {

const unsigned long kValues = 10 * 1024 * 1024 / 4; // 10 MB of DWORDs
const int kLines = 100000;
volatile unsigned long g_sink;

template <class F> double TimeMs(F f) {
  double start = NowMs();
  f();
  return NowMs() - start;
}

void Report(const char* what, double msVrk, double msPlain) {
  printf("%s: VRK %.1f ms, plain %.1f ms, ratio %.1f\n", what, msVrk, msPlain,
         msPlain > 0 ? msVrk / msPlain : 0.0);
}

// Reads lines the way a class built on VCharFileReader does.
class CsvReader : public VCharFileReader {
public:
  explicit CsvReader(const char* pszName) : VCharFileReader(pszName) { SetSeparator(','); }
  unsigned long CountFields() {
    unsigned long n = 0;
    if (!OpenAndUseExistingFile(m_strFileName, CFile::modeRead)) return 0;
    GetFileSize(m_nFileSize);
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

} // namespace

int main() {
  char szDir[MAX_PATH];
  GetTempPathA(MAX_PATH, szDir);
  const std::string bin = std::string(szDir) + "vrk_bench_files.bin";
  const std::string csv = std::string(szDir) + "vrk_bench_files.csv";

  std::vector<unsigned char> bytes(kValues * 4);
  for (unsigned long i = 0; i < kValues; ++i) {
    bytes[i * 4] = (unsigned char)(i >> 24);
    bytes[i * 4 + 1] = (unsigned char)(i >> 16);
    bytes[i * 4 + 2] = (unsigned char)(i >> 8);
    bytes[i * 4 + 3] = (unsigned char)i;
  }

  double wVrk = TimeMs([&] {
    VFileReaderWriter rw;
    rw.OpenAndUseNewFile(bin.c_str());
    for (unsigned long i = 0; i < kValues; ++i)
      rw.WriteFourByteDwordNormal(i);
  });
  double rVrk = TimeMs([&] {
    VFileReaderWriter rw;
    rw.OpenAndUseExistingFile(bin.c_str(), CFile::modeRead);
    unsigned long v = 0, sum = 0;
    for (unsigned long i = 0; i < kValues; ++i) {
      rw.ReadFourByteDwordNormal(&v);
      sum += v;
    }
    g_sink = sum;
  });
  double wPlain = TimeMs([&] {
    CFile f(bin.c_str(), CFile::modeCreate | CFile::modeWrite);
    f.Write(bytes.data(), (UINT)bytes.size());
  });
  double rPlain = TimeMs([&] {
    CFile f(bin.c_str(), CFile::modeRead);
    g_sink = f.Read(bytes.data(), (UINT)bytes.size());
  });
  Report("write 10 MB as 32-bit Normal", wVrk, wPlain);
  Report("read 10 MB as 32-bit Normal", rVrk, rPlain);

  FILE* out = fopen(csv.c_str(), "wb");
  if (out == NULL) return 1;
  for (int i = 0; i < kLines; ++i)
    fprintf(out, "%d, name%d , %d.%02d,\"quoted, text\"\r\n", i, i, i % 1000, i % 100);
  fclose(out);

  unsigned long nVrk = 0, nPlain = 0;
  double cVrk = TimeMs([&] {
    CsvReader reader(csv.c_str());
    nVrk = reader.CountFields();
  });
  double cPlain = TimeMs([&] {
    FILE* in = fopen(csv.c_str(), "rb");
    char line[1200];
    std::vector<std::string> fields;
    while (fgets(line, sizeof line, in) != NULL) {
      for (char *p = line, *sep; (sep = strchr(p, ',')) != NULL; p = sep + 1)
        fields.push_back(std::string(p, sep - p));
      nPlain += (unsigned long)fields.size();
      fields.clear();
    }
    fclose(in);
  });
  printf("(fields: VRK %lu, plain %lu)\n", nVrk, nPlain);
  Report("read and split 100,000 CSV lines", cVrk, cPlain);

  DeleteFileA(bin.c_str());
  DeleteFileA(csv.c_str());
  return 0;
}
