// A host process for the trace tests (the settings are read once per
// process): vrk_trace_host.exe <report file> <command>... runs the commands
// in order, answers every box, and reports a line per "state" command, then
// "caption|text" per box. Commands (fields split at ':', the last takes
// the rest): fmt:<cat>:<format> (VrkTrace with 42, 43), long:<cat>:<n> (n
// pattern characters), timed:<cat>:<ms>:<fmt> (a VTrace alive for ms),
// output:<text> (Output of a disabled object), restart:<text> (Output with
// the length check set), threads:<n>:<lines>, cover (two fixed formats, the
// first twice), flush (FlushLog), setname:<path> (FileName in the key),
// state ("enabled=.. flags=.. filter=.. file=..").
#include "vrk_trace.h"

#include "msgbox_catcher.h"

#include <stdio.h>
#include <stdlib.h>

#include <string>
#include <thread>
#include <vector>

namespace {

// Reaches the protected output step the way a subclass would.
class ProbeTrace : public VTrace {
public:
  ProbeTrace() : VTrace(0, NULL) {}
  void Send(const std::string& text, BOOL bCheckLength) {
    m_bCheckLength = bCheckLength;
    Output(text.c_str(), (int)text.size());
  }
};

// Two formats in one array, so that their addresses (the log's keys) are in
// a known order.
const char kCoverFormats[2][16] = {"alpha %d", "beta"};

// Splits "verb:a:b:rest" into n fields, the last one keeping any ':'.
std::vector<std::string> Split(const std::string& text, size_t n) {
  std::vector<std::string> fields;
  size_t start = 0, colon;
  while (fields.size() + 1 < n && (colon = text.find(':', start)) != std::string::npos) {
    fields.push_back(text.substr(start, colon - start));
    start = colon + 1;
  }
  fields.push_back(text.substr(start));
  fields.resize(n);
  return fields;
}

DWORD Number(const std::string& text) { return (DWORD)strtoul(text.c_str(), NULL, 0); }

} // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  std::string report;
  MsgBoxCatcher catcher(IDOK);
  for (int i = 2; i < argc; ++i) {
    const std::vector<std::string> f = Split(argv[i], 4);
    const std::string& verb = f[0];
    if (verb == "fmt") {
      VrkTrace(Number(f[1]), Split(argv[i], 3)[2].c_str(), 42, 43);
    } else if (verb == "long") {
      std::string text(Number(f[2]), ' ');
      for (size_t k = 0; k < text.size(); ++k)
        text[k] = "0123456789abcdefghijklmnopqrstuvwxyz"[k % 36];
      VrkTrace(Number(f[1]), "%s", text.c_str());
    } else if (verb == "timed") {
      VTrace scope(Number(f[1]), f[3].c_str(), 42);
      Sleep(Number(f[2]));
    } else if (verb == "output" || verb == "restart") {
      ProbeTrace().Send(Split(argv[i], 2)[1], verb == "restart");
    } else if (verb == "threads") {
      std::vector<std::thread> threads;
      for (int t = 0; t < (int)Number(f[1]); ++t)
        threads.emplace_back([t, &f] {
          for (int line = 0; line < (int)Number(f[2]); ++line)
            VrkTrace(0, "T%02d L%04d", t, line);
        });
      for (std::thread& thread : threads)
        thread.join();
    } else if (verb == "cover") {
      VrkTrace(0, kCoverFormats[0], 1);
      VrkTrace(0, kCoverFormats[1]);
      VrkTrace(0, kCoverFormats[0], 2);
    } else if (verb == "setname") {
      const std::string name = Split(argv[i], 2)[1];
      HKEY hKey;
      if (RegOpenKeyA(HKEY_CURRENT_USER, "Software\\Tamrix\\PELVrk Profiler", &hKey) != 0) return 4;
      RegSetValueExA(hKey, "FileName", 0, REG_SZ, (const BYTE*)name.c_str(),
                     (DWORD)name.size() + 1);
      RegCloseKey(hKey);
    } else if (verb == "flush") {
      VTraceLogger::GetGlobalLogger().FlushLog();
    } else if (verb == "state") {
      char line[128];
      sprintf(line, "enabled=%d flags=%lu filter=%lu file=%d\n", VrkTraceIsEnabled(),
              (unsigned long)VrkTraceGetFlags(), (unsigned long)VrkTraceGetFilter(),
              (int)VrkTraceGetFile());
      report += line;
    } else {
      return 3;
    }
  }
  for (const CaughtBox& box : catcher.Boxes())
    report += box.caption + "|" + box.text + "\n";
  FILE* pFile = fopen(argv[1], "wb");
  if (pFile == NULL) return 5;
  fwrite(report.data(), 1, report.size(), pFile);
  fclose(pFile);
  return 0;
}
