// The trace facility, driven through the real Profiler key. The settings are
// read once per process, so every configuration runs in its own host process
// (vrk_trace_host.exe); the trace file is then read back byte for byte. The
// file is written in text mode: each line ends in CR LF.
#include "vrk_trace.h"

#include "scratch_registry.h"
#include "temp_dir.h"

#include <gtest/gtest.h>

#include <stdio.h>

#include <initializer_list>
#include <set>
#include <string>
#include <vector>

namespace {

const char kProfilerKey[] = "Software\\Tamrix\\PELVrk Profiler";
const char kHarnessKey[] = "Software\\Tamrix\\PELVTstHrns";

const char kWindowBox[] = "VTrace|Trace can't output to TRACE window - not in DEBUG";
const char kOpenBox[] = "VTrace|Trace cannot open file specified in registry";

// What one run of the host reported.
struct HostRun {
  DWORD exitCode = 0xFFFFFFFF;
  std::vector<std::string> boxes;  // "caption|text"
  std::vector<std::string> states; // "enabled=.. flags=.. filter=.. file=.."
};

std::string HostPath() {
  char path[MAX_PATH];
  DWORD n = GetModuleFileNameA(NULL, path, MAX_PATH);
  std::string exe(path, n);
  return exe.substr(0, exe.find_last_of('\\') + 1) + "vrk_trace_host.exe";
}

std::vector<std::string> Lines(const std::string& text, const std::string& eol) {
  std::vector<std::string> lines;
  size_t start = 0, end;
  while ((end = text.find(eol, start)) != std::string::npos) {
    lines.push_back(text.substr(start, end - start));
    start = end + eol.size();
  }
  if (start < text.size()) lines.push_back(text.substr(start));
  return lines;
}

// "0123456789abc..." cut to n characters: what the host's long command sends.
std::string Pattern(size_t n) {
  std::string text(n, ' ');
  for (size_t k = 0; k < n; ++k)
    text[k] = "0123456789abcdefghijklmnopqrstuvwxyz"[k % 36];
  return text;
}

std::vector<std::string> FilesIn(const std::string& dir, const char* mask) {
  std::vector<std::string> names;
  WIN32_FIND_DATAA fd;
  HANDLE h = FindFirstFileA((dir + "\\" + mask).c_str(), &fd);
  if (h == INVALID_HANDLE_VALUE) return names;
  do {
    names.push_back(dir + "\\" + fd.cFileName);
  } while (FindNextFileA(h, &fd));
  FindClose(h);
  return names;
}

class TraceTest : public ::testing::Test {
protected:
  TraceTest() {
    // Start every configuration from nothing; the scratch guard puts back
    // whatever was there.
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

  HostRun Run(std::initializer_list<std::string> commands) {
    HostRun run;
    const std::string report = m_dir.File("report.txt");
    DeleteFileA(report.c_str());
    std::string line = "\"" + HostPath() + "\" \"" + report + "\"";
    for (const std::string& c : commands)
      line += " \"" + c + "\"";
    STARTUPINFOA si = {sizeof(si)};
    PROCESS_INFORMATION pi;
    std::vector<char> buffer(line.begin(), line.end());
    buffer.push_back('\0');
    if (!CreateProcessA(NULL, buffer.data(), NULL, NULL, FALSE, 0, NULL, NULL, &si, &pi)) {
      ADD_FAILURE() << "cannot start " << HostPath();
      return run;
    }
    if (WaitForSingleObject(pi.hProcess, 180000) != WAIT_OBJECT_0) {
      ADD_FAILURE() << "the host did not end";
      TerminateProcess(pi.hProcess, 99);
    }
    GetExitCodeProcess(pi.hProcess, &run.exitCode);
    CloseHandle(pi.hThread);
    CloseHandle(pi.hProcess);
    EXPECT_EQ(0u, run.exitCode);
    for (const std::string& l : Lines(TempDir::ReadBytes(report), "\n")) {
      if (l.compare(0, 4, "box:") == 0) run.boxes.push_back(l.substr(4));
      if (l.compare(0, 6, "state:") == 0) run.states.push_back(l.substr(6));
    }
    return run;
  }

  ScratchRegistry m_registry;
  TempDir m_dir;
};

// ---- Lines: prefix, suffix, filter, formatting --------------------------------

TEST_F(TraceTest, WritesPrefixMessageAndSuffixForCategoriesThatPassTheFilter) {
  Configure(1, 6);
  SetString("Prefix", "[");
  SetString("Suffix", "]");
  HostRun run = Run({"fmt:0:zero %d", "fmt:4:four %d", "fmt:8:eight", "fmt:2:two %d+%d",
                     "fmt:12:twelve", "state"});
  EXPECT_EQ("[zero 42]\r\n[four 42]\r\n[two 42+43]\r\n[twelve]\r\n", Log());
  EXPECT_TRUE(run.boxes.empty());
  ASSERT_EQ(1u, run.states.size());
  EXPECT_EQ(0u, run.states[0].find("enabled=1 flags=1 filter=6 file="));
  EXPECT_EQ(std::string::npos, run.states[0].find("file=-1"));
}

TEST_F(TraceTest, WithoutAFilterOnlyCategoryZeroPasses) {
  SetDword("Flags", 1);
  SetString("FileName", LogPath());
  Run({"fmt:4:four", "fmt:0:zero", "fmt:0xFFFFFFFF:all"});
  EXPECT_EQ("zero\r\n", Log());
}

TEST_F(TraceTest, Flag32WritesTheFormatAsItStandsOtherwiseItIsFormatted) {
  Configure(1 | 32);
  SetString("Prefix", "> ");
  Run({"fmt:0:100%% %d%d"});
  EXPECT_EQ("> 100%% %d%d\r\n", Log());
  SetDword("Flags", 1);
  Run({"fmt:0:100%% %d%d"});
  EXPECT_EQ("> 100% 4243\r\n", Log());
}

TEST_F(TraceTest, MessagesAreCutAt1023CharactersButPrefixAndSuffixStay) {
  Configure(1);
  SetString("Prefix", "<");
  SetString("Suffix", ">");
  Run({"long:0:1022", "long:0:1023", "long:0:1024", "long:0:5000"});
  std::vector<std::string> lines = Lines(Log(), "\r\n");
  ASSERT_EQ(4u, lines.size());
  EXPECT_EQ("<" + Pattern(1022) + ">", lines[0]);
  EXPECT_EQ("<" + Pattern(1023) + ">", lines[1]);
  EXPECT_EQ("<" + Pattern(1023) + ">", lines[2]);
  EXPECT_EQ("<" + Pattern(1023) + ">", lines[3]);
}

TEST_F(TraceTest, EachRunStartsANewFile) {
  ASSERT_TRUE(TempDir::WriteBytes(LogPath(), "an older run's lines, longer than the new one\r\n"));
  Configure(1);
  Run({"fmt:0:new"});
  EXPECT_EQ("new\r\n", Log());
}

// ---- Settings that leave tracing off ------------------------------------------

TEST_F(TraceTest, SettingsThatLeaveTracingOffShowNothing) {
  // No key: tracing is off, and the key is not made.
  HostRun run = Run({"fmt:0:line", "state"});
  EXPECT_EQ(std::vector<std::string>{"enabled=0 flags=0 filter=0 file=-1"}, run.states);
  EXPECT_FALSE(ScratchRegistry::KeyExists(kProfilerKey));

  // Bit 1 clear: flags are kept as read, the filter is not read, no file.
  Configure(2 | 64, 0xFF);
  run = Run({"fmt:0:line", "timed:0:0:scope", "state"});
  EXPECT_EQ(std::vector<std::string>{"enabled=0 flags=66 filter=0 file=-1"}, run.states);
  EXPECT_FALSE(LogExists());

  // An empty file name: off, without a message.
  SetDword("Flags", 1);
  SetString("FileName", "");
  run = Run({"fmt:0:line", "state"});
  EXPECT_EQ(std::vector<std::string>{"enabled=0 flags=1 filter=0 file=-1"}, run.states);
  EXPECT_TRUE(run.boxes.empty());
}

// ---- Timing lines ---------------------------------------------------------------

// Seconds since midnight of h:m.s plus milliseconds, from "14:03.07.120".
bool ParseClock(const std::string& text, long* ms) {
  int h, m, s, milli, used = 0;
  if (text.size() < 10 || text[2] != ':' || text[5] != '.' || text[8] != '.') return false;
  if (sscanf(text.c_str(), "%2d:%2d.%2d.%d%n", &h, &m, &s, &milli, &used) != 4) return false;
  if (used != (int)text.size() || milli < 0 || milli > 999) return false;
  *ms = ((h * 60L + m) * 60L + s) * 1000L + milli;
  return true;
}

TEST_F(TraceTest, TimingModeWritesTheElapsedTimeAtDestructionAndDropsBit1) {
  Configure(1 | 2);
  SetString("Prefix", "P:");
  SetString("Suffix", ":S");
  HostRun run = Run({"timed:0:250:scope %d", "state"});
  const std::string log = Log();
  const std::string head = "P:scope 42\t";
  ASSERT_EQ(0u, log.find(head)) << log;
  int elapsed = -1, used = 0;
  ASSERT_EQ(1, sscanf(log.c_str() + head.size(), "%d%n", &elapsed, &used));
  EXPECT_EQ(":S\r\n", log.substr(head.size() + used));
  EXPECT_GE(elapsed, 240);
  EXPECT_LT(elapsed, 5000);
  ASSERT_EQ(1u, run.states.size());
  EXPECT_EQ(0u, run.states[0].find("enabled=1 flags=2 filter=0 file="));
}

TEST_F(TraceTest, TimingLinesUseTheDelimiterAndVrkTraceTimesNothing) {
  Configure(1 | 2);
  SetString("Delimiter", " ms=");
  Run({"fmt:0:instant", "timed:4:10:filtered out", "timed:0:20:kept"});
  std::vector<std::string> lines = Lines(Log(), "\r\n");
  ASSERT_EQ(2u, lines.size()) << Log();
  int instant = -1, kept = -1;
  char tail = 0;
  EXPECT_EQ(1, sscanf(lines[0].c_str(), "instant ms=%d%c", &instant, &tail)) << lines[0];
  EXPECT_EQ(1, sscanf(lines[1].c_str(), "kept ms=%d%c", &kept, &tail)) << lines[1];
  EXPECT_GE(instant, 0);
  EXPECT_LT(instant, 100);
  EXPECT_GE(kept, 15);
}

TEST_F(TraceTest, Flag64AddsStartAndEndClocksThatMatchTheElapsedTime) {
  Configure(1 | 2 | 64);
  SetString("Prefix", "P:");
  SetString("Suffix", ":S");
  SYSTEMTIME before;
  GetLocalTime(&before);
  HostRun run = Run({"timed:0:250:scope %d", "state"});
  const std::string log = Log();
  const std::string head = "P:scope 42\t";
  ASSERT_EQ(0u, log.find(head)) << log;
  int elapsed = -1, used = 0;
  ASSERT_EQ(1, sscanf(log.c_str() + head.size(), "%d, (%n", &elapsed, &used)) << log;
  const std::string rest = log.substr(head.size() + used);
  const size_t sep = rest.find(" : "), close = rest.find(")");
  ASSERT_NE(std::string::npos, sep) << log;
  ASSERT_NE(std::string::npos, close) << log;
  EXPECT_EQ(":S\r\n", rest.substr(close + 1));
  long start = 0, end = 0;
  ASSERT_TRUE(ParseClock(rest.substr(0, sep), &start)) << log;
  ASSERT_TRUE(ParseClock(rest.substr(sep + 3, close - sep - 3), &end)) << log;
  const long day = 24L * 3600 * 1000;
  EXPECT_EQ(elapsed, (end - start + day) % day);
  EXPECT_GE(elapsed, 240);
  // The start clock is local time, taken during the run.
  const long then = ((before.wHour * 60L + before.wMinute) * 60L + before.wSecond) * 1000L;
  EXPECT_LT((start - then + day) % day, 60000L);
  ASSERT_EQ(1u, run.states.size());
  EXPECT_EQ(0u, run.states[0].find("enabled=1 flags=66 "));
}

TEST_F(TraceTest, Flag32KeepsTheFormatOfATimingLine) {
  Configure(1 | 2 | 32);
  Run({"timed:0:0:%d items"});
  const std::string log = Log();
  int elapsed = -1;
  EXPECT_EQ(0u, log.find("%d items\t")) << log;
  EXPECT_EQ(1, sscanf(log.c_str() + 9, "%d", &elapsed));
  EXPECT_EQ("\r\n", log.substr(log.size() - 2));
}

// ---- The three failure boxes ------------------------------------------------------

TEST_F(TraceTest, Flag16ShowsTheTraceWindowBoxOnceAndThenWritesNothing) {
  Configure(1 | 16);
  HostRun run = Run({"fmt:0:first", "fmt:0:second", "state"});
  ASSERT_EQ(1u, run.boxes.size());
  EXPECT_EQ(kWindowBox, run.boxes[0]);
  EXPECT_FALSE(LogExists());
  ASSERT_EQ(1u, run.states.size());
  EXPECT_EQ("enabled=0 flags=17 filter=0 file=-1", run.states[0]);
}

TEST_F(TraceTest, AFileThatCannotBeOpenedShowsOneBoxAtLoading) {
  SetDword("Flags", 1);
  SetString("FileName", m_dir.File("no such folder\\trace.log"));
  HostRun run = Run({"fmt:0:first", "fmt:0:second", "state"});
  ASSERT_EQ(1u, run.boxes.size());
  EXPECT_EQ(kOpenBox, run.boxes[0]);
  ASSERT_EQ(1u, run.states.size());
  EXPECT_EQ("enabled=0 flags=1 filter=0 file=-1", run.states[0]);
}

TEST_F(TraceTest, OutputWithoutAFileNamesTheRegisteredFile) {
  SetDword("Flags", 0);
  SetString("FileName", "C:\\nowhere\\trace.log");
  HostRun run = Run({"output:lost line", "state"});
  ASSERT_EQ(1u, run.boxes.size());
  EXPECT_EQ("VTrace|Trace can't open output file specified by 'C:\\nowhere\\trace.log'",
            run.boxes[0]);
}

// ---- The length check ---------------------------------------------------------------

TEST_F(TraceTest, OnlyASetLengthCheckRestartsAFilePastMaxLength) {
  Configure(1);
  SetDword("MaxLength", 10);
  // Plain lines never restart the file, however long it grows; a check set
  // by a subclass does, and resets the count, so the next check keeps it.
  Run({"fmt:0:first line", "fmt:0:second line", "restart:XYZ", "restart:ABC"});
  EXPECT_EQ("XYZABC", Log());
}

TEST_F(TraceTest, TheLengthCheckNeedsAMaxLengthAndMoreBytesThanIt) {
  Configure(1);
  Run({"fmt:0:first line", "restart:XYZ"});
  EXPECT_EQ("first line\r\nXYZ", Log());

  TempDir other;
  SetString("FileName", other.File("trace.log"));
  SetDword("MaxLength", 1000);
  Run({"fmt:0:first line", "restart:XYZ"});
  EXPECT_EQ("first line\r\nXYZ", TempDir::ReadBytes(other.File("trace.log")));
}

// ---- Threads ----------------------------------------------------------------------------

TEST_F(TraceTest, EightThreadsWritingAThousandLinesEachLoseNothing) {
  Configure(1);
  SetString("Prefix", "<");
  SetString("Suffix", ">");
  Run({"threads:8:1000"});
  const std::string log = Log();
  ASSERT_EQ("\r\n", log.substr(log.size() - 2));
  std::vector<std::string> lines = Lines(log, "\r\n");
  ASSERT_EQ(8000u, lines.size());
  std::set<std::pair<int, int>> seen;
  for (const std::string& line : lines) {
    int t = -1, i = -1;
    char extra = 0;
    ASSERT_EQ(11u, line.size()) << line;
    ASSERT_EQ(2, sscanf(line.c_str(), "<T%2d L%4d>%c", &t, &i, &extra)) << line;
    ASSERT_TRUE(t >= 0 && t < 8 && i >= 0 && i < 1000) << line;
    EXPECT_TRUE(seen.insert(std::make_pair(t, i)).second) << "twice: " << line;
  }
  EXPECT_EQ(8000u, seen.size());
}

// ---- Coverage log -------------------------------------------------------------------------

TEST_F(TraceTest, CoverageRecordsEachFormatOnceInAddressOrderEvenWithTracingOff) {
  const std::string dir = m_dir.File("coverage");
  ASSERT_TRUE(CreateDirectoryA(dir.c_str(), NULL));
  ASSERT_TRUE(ScratchRegistry::WriteString(kHarnessKey, "CoverageDirectory", dir));
  Run({"cover"});
  // GetTempFileNameA keeps three characters of the prefix "vthx".
  std::vector<std::string> files = FilesIn(dir, "vth*.tmp");
  ASSERT_EQ(1u, files.size());
  EXPECT_EQ("alpha %d\r\nbeta\r\n", TempDir::ReadBytes(files[0]));
}

TEST_F(TraceTest, FlushLogWritesAFileAndEmptiesTheLog) {
  const std::string dir = m_dir.File("coverage");
  ASSERT_TRUE(CreateDirectoryA(dir.c_str(), NULL));
  ASSERT_TRUE(ScratchRegistry::WriteString(kHarnessKey, "CoverageDirectory", dir));
  // Nothing traced: no file.
  Run({"state"});
  EXPECT_TRUE(FilesIn(dir, "vth*").empty());
  // Flushed once explicitly; the log is then empty at exit: no second file.
  Run({"cover", "flush"});
  EXPECT_EQ(1u, FilesIn(dir, "vth*.tmp").size());
  // Recorded again after the flush: a second file at exit.
  Run({"cover", "flush", "fmt:0:gamma"});
  std::vector<std::string> files = FilesIn(dir, "vth*.tmp");
  ASSERT_EQ(3u, files.size());
  std::multiset<std::string> contents;
  for (const std::string& f : files)
    contents.insert(TempDir::ReadBytes(f));
  EXPECT_EQ(2u, contents.count("alpha %d\r\nbeta\r\n"));
  EXPECT_EQ(1u, contents.count("gamma\r\n"));
}

} // namespace
