// The trace facility, driven through the real Profiler key. The settings are
// read once per process, so every configuration runs in a process of its own,
// this program started again as the host; the trace file is then read back
// byte for byte. The file is written in text mode: each line ends in CR LF.
#include "vrk_trace.h"

#include "child_process.h"
#include "msgbox_catcher.h"
#include "scratch_registry.h"
#include "temp_dir.h"

#include <gtest/gtest.h>

#include <stdio.h>
#include <stdlib.h>

#include <algorithm>
#include <initializer_list>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

const char kProfilerKey[] = "Software\\Tamrix\\PELVrk Profiler";
const char kHarnessKey[] = "Software\\Tamrix\\PELVTstHrns";

const std::string kOff = "enabled=0 flags="; // a "state" line of tracing that is off

// "0123456789abc..." cut to n characters: what the host's long command sends.
std::string Pattern(size_t n) {
  std::string text(n, ' ');
  for (size_t k = 0; k < n; ++k)
    text[k] = "0123456789abcdefghijklmnopqrstuvwxyz"[k % 36];
  return text;
}

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

// The host: runs the commands (see TraceTest::Run) after the report file's
// name, answering every box, and writes the report.
int RunHost(const std::vector<std::string>& args) {
  std::string report;
  MsgBoxCatcher catcher(IDOK);
  for (size_t i = 1; i < args.size(); ++i) {
    const std::vector<std::string> f = Split(args[i], 4);
    const std::string& verb = f[0];
    if (verb == "fmt") {
      VrkTrace(Number(f[1]), Split(args[i], 3)[2].c_str(), 42, 43);
    } else if (verb == "long") {
      VrkTrace(Number(f[1]), "%s", Pattern(Number(f[2])).c_str());
    } else if (verb == "timed") {
      VTrace scope(Number(f[1]), f[3].c_str(), 42);
      Sleep(Number(f[2]));
    } else if (verb == "output" || verb == "restart") {
      ProbeTrace().Send(Split(args[i], 2)[1], verb == "restart");
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
      ScratchRegistry::WriteString(kProfilerKey, "FileName", Split(args[i], 2)[1]);
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
  return TempDir::WriteBytes(args[0], report) ? 0 : 5;
}

// Started with VRK_TRACE_HOST set (the report file's name and the commands,
// a line each), this program is the host: it runs them before any test and
// exits with the host's result.
struct HostMode {
  HostMode() {
    char sz[16384];
    const DWORD n = GetEnvironmentVariableA("VRK_TRACE_HOST", sz, sizeof(sz));
    if (n == 0 || n >= sizeof(sz)) return;
    std::istringstream in(std::string(sz, n));
    std::vector<std::string> args;
    for (std::string arg; std::getline(in, arg);)
      args.push_back(arg);
    ExitProcess((UINT)RunHost(args));
  }
} g_hostMode;

// The contents of the coverage files in dir. GetTempFileNameA keeps three
// characters of the prefix "vthx".
std::multiset<std::string> CoverageFiles(const std::string& dir) {
  std::multiset<std::string> contents;
  WIN32_FIND_DATAA fd;
  HANDLE h = FindFirstFileA((dir + "\\vth*.tmp").c_str(), &fd);
  for (BOOL b = h != INVALID_HANDLE_VALUE; b; b = FindNextFileA(h, &fd))
    contents.insert(TempDir::ReadBytes(dir + "\\" + fd.cFileName));
  if (h != INVALID_HANDLE_VALUE) FindClose(h);
  return contents;
}

class TraceTest : public ::testing::Test {
protected:
  TraceTest() { // from nothing; the scratch guard puts back what was there
    ScratchRegistry::DeleteTree(kProfilerKey);
    ScratchRegistry::DeleteTree(kHarnessKey);
  }

  std::string LogPath() const { return m_dir.File("trace.log"); }
  std::string Log() const { return TempDir::ReadBytes(LogPath()); }
  bool LogExists() const {
    return GetFileAttributesA(LogPath().c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  void SetDword(const char* name, DWORD value) {
    ASSERT_TRUE(ScratchRegistry::WriteDword(kProfilerKey, name, value));
  }
  void SetString(const char* name, const std::string& value) {
    ASSERT_TRUE(ScratchRegistry::WriteString(kProfilerKey, name, value));
  }
  // Tracing on to the test's log file, with the given flags and filter.
  void Configure(DWORD flags, DWORD filter = 0) {
    SetDword("Flags", flags);
    SetString("FileName", LogPath());
    SetDword("Filter", filter);
  }

  // Runs the host and returns its report: a line per "state" command, then
  // "caption|text" per box. Commands (fields split at ':', the last takes the
  // rest): fmt:<cat>:<format> (VrkTrace with 42, 43), long:<cat>:<n> (n
  // pattern characters), timed:<cat>:<ms>:<fmt> (a VTrace alive for ms),
  // output:<text> (Output of a disabled object), restart:<text> (Output with
  // the length check set), threads:<n>:<lines>, cover (two fixed formats, the
  // first twice), flush (FlushLog), setname:<path> (FileName in the key),
  // state ("enabled=.. flags=.. filter=.. file=..").
  std::string Run(std::initializer_list<std::string> commands) {
    const std::string report = m_dir.File("report.txt");
    DeleteFileA(report.c_str());
    std::string job = report;
    for (const std::string& c : commands)
      job += "\n" + c;
    SetEnvironmentVariableA("VRK_TRACE_HOST", job.c_str());
    EXPECT_EQ(0u, RunProcess("\"" + ExeDir() + "\\vrk_frame_trace.exe\"", NULL, 180000));
    SetEnvironmentVariableA("VRK_TRACE_HOST", NULL);
    return TempDir::ReadBytes(report);
  }

  ScratchRegistry m_registry;
  TempDir m_dir;
};

TEST_F(TraceTest, LinesHavePrefixAndSuffixAndOnlyCategoriesThatPassTheFilter) {
  // Each run starts a new file.
  ASSERT_TRUE(TempDir::WriteBytes(LogPath(), "an older run's lines, longer than the new ones\r\n"));
  Configure(1, 6);
  SetString("Prefix", "[");
  SetString("Suffix", "]");
  Run({"fmt:0:zero %d", "fmt:4:four %d", "fmt:8:eight", "fmt:2:two %d+%d", "fmt:12:twelve",
       "long:0:1023", "long:0:5000"});
  EXPECT_EQ("[zero 42]\r\n[four 42]\r\n[two 42+43]\r\n[twelve]\r\n[" + Pattern(1023) + "]\r\n[" +
                Pattern(1023) + "]\r\n", // messages are cut at 1023 characters
            Log());

  // Without a filter only category 0 passes; flag 32 keeps the format as it stands.
  SetDword("Filter", 0);
  SetString("Suffix", "");
  Run({"fmt:4:four", "fmt:0:100%% %d%d", "fmt:0xFFFFFFFF:all"});
  EXPECT_EQ("[100% 4243\r\n", Log());
  SetDword("Flags", 1 | 32);
  Run({"fmt:0:100%% %d%d"});
  EXPECT_EQ("[100%% %d%d\r\n", Log());
}

// A timing line: the elapsed time after the delimiter, and with flag 64
// "250, (14:03.07.120 : 14:03.07.370)": the clocks are "%H:%M.%S" plus the
// milliseconds, and their difference is the elapsed time.
TEST_F(TraceTest, TimingLinesCarryTheElapsedTimeAndFlag64TheClocks) {
  Configure(1 | 2 | 64);
  SetString("Prefix", "P:");
  SetString("Delimiter", " ms=");
  SetString("Suffix", ":S");
  const std::string report = Run({"timed:4:10:filtered out", "timed:0:250:scope %d", "state"});
  int elapsed = -1, t[8];
  ASSERT_EQ(9, sscanf(Log().c_str(), "P:scope 42 ms=%d, (%2d:%2d.%2d.%3d : %2d:%2d.%2d.%3d):S",
                      &elapsed, &t[0], &t[1], &t[2], &t[3], &t[4], &t[5], &t[6], &t[7]))
      << Log();
  EXPECT_EQ("):S\r\n", Log().substr(Log().size() - 5));
  const long day = 24L * 3600 * 1000;
  const long start = ((t[0] * 60L + t[1]) * 60L + t[2]) * 1000L + t[3];
  const long end = ((t[4] * 60L + t[5]) * 60L + t[6]) * 1000L + t[7];
  EXPECT_EQ(elapsed, (end - start + day) % day);
  EXPECT_GE(elapsed, 240);
  EXPECT_EQ(0u, report.find("enabled=1 flags=66 ")) << report;
}

// No key: off, and the key is not made. Bit 1 clear: flags kept as read,
// the filter not read, no file. An empty file name: off, without a box.
// Flag 16 shows the trace window box once, then writes nothing. The later
// "no file" box names the file the run read at loading, whatever the key
// says by then.
TEST_F(TraceTest, SettingsThatLeaveTracingOffAndTheFailureBoxes) {
  EXPECT_EQ(kOff + "0 filter=0 file=-1\n", Run({"fmt:0:line", "state"}));
  EXPECT_FALSE(ScratchRegistry::KeyExists(kProfilerKey));
  Configure(2 | 64, 0xFF);
  EXPECT_EQ(kOff + "66 filter=0 file=-1\n", Run({"fmt:0:line", "timed:0:0:scope", "state"}));
  EXPECT_FALSE(LogExists());
  SetDword("Flags", 1);
  SetString("FileName", "");
  EXPECT_EQ(kOff + "1 filter=0 file=-1\n", Run({"fmt:0:line", "state"}));
  Configure(1 | 16);
  EXPECT_EQ(kOff +
                "17 filter=0 file=-1\nVTrace|Trace can't output to TRACE window - not in DEBUG\n",
            Run({"fmt:0:first", "fmt:0:second", "state"}));
  EXPECT_FALSE(LogExists());
  const std::string bad = m_dir.File("no such folder\\trace.log");
  SetDword("Flags", 1);
  SetString("FileName", bad);
  EXPECT_EQ(kOff + "1 filter=0 file=-1\nVTrace|Trace cannot open file specified in registry\n" +
                "VTrace|Trace can't open output file specified by '" + bad + "'\n",
            Run({"fmt:0:first", "fmt:0:second", "setname:C:\\other\\trace.log", "output:lost line",
                 "state"}));
}

// Plain lines never restart the file, however long it grows; a check set by
// a subclass does when a MaxLength is set and exceeded, and resets the count.
TEST_F(TraceTest, OnlyASetLengthCheckRestartsAFilePastMaxLength) {
  Configure(1);
  Run({"fmt:0:first line", "restart:XYZ"});
  EXPECT_EQ("first line\r\nXYZ", Log());
  SetDword("MaxLength", 10);
  Run({"fmt:0:first line", "fmt:0:second line", "restart:XYZ", "restart:ABC"});
  EXPECT_EQ("XYZABC", Log());
}

TEST_F(TraceTest, EightThreadsWritingAThousandLinesEachLoseNothing) {
  Configure(1);
  SetString("Prefix", "<");
  SetString("Suffix", ">");
  Run({"threads:8:1000"});
  std::istringstream log(Log());
  std::vector<std::string> lines, expected;
  for (std::string line; std::getline(log, line);) // each ends in its CR
    lines.push_back(line);
  for (int t = 0; t < 8; t++)
    for (int i = 0; i < 1000; i++) {
      char sz[16];
      expected.push_back(std::string(sz, sprintf(sz, "<T%02d L%04d>\r", t, i)));
    }
  std::sort(lines.begin(), lines.end());
  EXPECT_TRUE(expected == lines) << lines.size() << " lines";
  EXPECT_EQ("\r\n", Log().substr(Log().size() - 2));
}

// Each format once, in address order, even with tracing off; FlushLog
// writes a file and empties the log, so only what came after it is written
// again at exit.
TEST_F(TraceTest, CoverageRecordsEachFormatOnceAndFlushEmptiesTheLog) {
  const std::string dir = m_dir.File("coverage");
  ASSERT_TRUE(CreateDirectoryA(dir.c_str(), NULL));
  ASSERT_TRUE(ScratchRegistry::WriteString(kHarnessKey, "CoverageDirectory", dir));
  const std::string ab = "alpha %d\r\nbeta\r\n";
  Run({"state"}); // nothing traced: no file
  EXPECT_TRUE(CoverageFiles(dir).empty());
  Run({"cover", "flush"});
  EXPECT_EQ(std::multiset<std::string>({ab}), CoverageFiles(dir));
  Run({"cover", "flush", "fmt:0:gamma"});
  EXPECT_EQ(std::multiset<std::string>({ab, ab, "gamma\r\n"}), CoverageFiles(dir));
}

} // namespace
