// A host process for the trace tests. The trace settings are read once per
// process, so each configuration runs in a process of its own:
//
//   vrk_trace_host.exe <report file> <command>...
//
// runs the commands in order on the main thread, with a message-box catcher
// that answers every box, and writes one line per box ("box:caption|text")
// and per "state" command to the report file.
//
// Commands (fields separated by ':', the last one takes the rest):
//   fmt:<cat>:<format>      VrkTrace(cat, format, 42, 43)
//   long:<cat>:<n>          VrkTrace(cat, "%s", n characters "0123456789...")
//   timed:<cat>:<ms>:<fmt>  a VTrace(cat, fmt, 42) alive for ms milliseconds
//   output:<text>           VTrace::Output(text) on a disabled object
//   restart:<text>          VTrace::Output(text) with the length check set
//   threads:<n>:<lines>     n threads trace "T<t> L<i>" lines at once
//   cover                   traces two fixed formats, the first one twice
//   flush                   VTraceLogger::FlushLog
//   setname:<path>          writes "FileName" in the Profiler key
//   state                   "state:enabled=.. flags=.. filter=.. file=.."
#include "vrk_trace.h"

#include "msgbox_catcher.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

namespace {

// Reaches the protected output step the way a subclass would.
class ProbeTrace : public VTrace {
public:
  ProbeTrace() : VTrace(0, NULL) {}
  void Send(const char* text, BOOL bCheckLength) {
    m_bCheckLength = bCheckLength;
    Output(text, (int)strlen(text));
  }
};

// Two formats in one array, so that their addresses (the log's keys) are in
// a known order.
const char kCoverFormats[2][16] = {"alpha %d", "beta"};

struct ThreadJob {
  int index;
  int lines;
};

DWORD WINAPI TraceThread(LPVOID pv) {
  const ThreadJob* job = static_cast<const ThreadJob*>(pv);
  for (int i = 0; i < job->lines; ++i)
    VrkTrace(0, "T%02d L%04d", job->index, i);
  return 0;
}

bool RunThreads(int count, int lines) {
  std::vector<ThreadJob> jobs(count);
  std::vector<HANDLE> threads;
  for (int t = 0; t < count; ++t) {
    jobs[t].index = t;
    jobs[t].lines = lines;
    HANDLE h = CreateThread(NULL, 0, TraceThread, &jobs[t], 0, NULL);
    if (h == NULL) return false;
    threads.push_back(h);
  }
  bool ok =
      WaitForMultipleObjects((DWORD)threads.size(), threads.data(), TRUE, 120000) != WAIT_TIMEOUT;
  for (HANDLE h : threads)
    CloseHandle(h);
  return ok;
}

// Splits "a:b:c" into at most n fields, the last one keeping any ':'.
std::vector<std::string> Split(const std::string& text, size_t n) {
  std::vector<std::string> fields;
  size_t start = 0;
  while (fields.size() + 1 < n) {
    size_t colon = text.find(':', start);
    if (colon == std::string::npos) break;
    fields.push_back(text.substr(start, colon - start));
    start = colon + 1;
  }
  fields.push_back(text.substr(start));
  return fields;
}

DWORD Number(const std::string& text) { return (DWORD)strtoul(text.c_str(), NULL, 0); }

} // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  std::string report;
  MsgBoxCatcher catcher(IDOK);
  for (int i = 2; i < argc; ++i) {
    const std::string command = argv[i];
    const std::string verb = command.substr(0, command.find(':'));
    if (verb == "fmt") {
      std::vector<std::string> f = Split(command, 3);
      if (f.size() != 3) return 3;
      VrkTrace(Number(f[1]), f[2].c_str(), 42, 43);
    } else if (verb == "long") {
      std::vector<std::string> f = Split(command, 3);
      if (f.size() != 3) return 3;
      std::string text(Number(f[2]), ' ');
      for (size_t k = 0; k < text.size(); ++k)
        text[k] = "0123456789abcdefghijklmnopqrstuvwxyz"[k % 36];
      VrkTrace(Number(f[1]), "%s", text.c_str());
    } else if (verb == "timed") {
      std::vector<std::string> f = Split(command, 4);
      if (f.size() != 4) return 3;
      VTrace scope(Number(f[1]), f[3].c_str(), 42);
      Sleep(Number(f[2]));
    } else if (verb == "output" || verb == "restart") {
      if (command.size() <= verb.size()) return 3;
      ProbeTrace probe;
      probe.Send(command.c_str() + verb.size() + 1, verb == "restart");
    } else if (verb == "threads") {
      std::vector<std::string> f = Split(command, 3);
      if (f.size() != 3 || !RunThreads((int)Number(f[1]), (int)Number(f[2]))) return 4;
    } else if (verb == "cover") {
      VrkTrace(0, kCoverFormats[0], 1);
      VrkTrace(0, kCoverFormats[1]);
      VrkTrace(0, kCoverFormats[0], 2);
    } else if (verb == "setname") {
      const std::string name = command.substr(verb.size() + 1);
      HKEY hKey;
      if (RegOpenKeyA(HKEY_CURRENT_USER, "Software\\Tamrix\\PELVrk Profiler", &hKey) != 0) return 4;
      RegSetValueExA(hKey, "FileName", 0, REG_SZ, (const BYTE*)name.c_str(),
                     (DWORD)name.size() + 1);
      RegCloseKey(hKey);
    } else if (verb == "flush") {
      VTraceLogger::GetGlobalLogger().FlushLog();
    } else if (verb == "state") {
      char line[128];
      sprintf(line, "state:enabled=%d flags=%lu filter=%lu file=%d\n", VrkTraceIsEnabled(),
              (unsigned long)VrkTraceGetFlags(), (unsigned long)VrkTraceGetFilter(),
              (int)VrkTraceGetFile());
      report += line;
    } else {
      return 3;
    }
  }
  for (const CaughtBox& box : catcher.Boxes())
    report += "box:" + box.caption + "|" + box.text + "\n";

  FILE* pFile = fopen(argv[1], "wb");
  if (pFile == NULL) return 5;
  fwrite(report.data(), 1, report.size(), pFile);
  fclose(pFile);
  return 0;
}
