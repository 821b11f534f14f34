// The pages the test printer printed, read back from the PostScript that
// Wine's driver writes: each page's text runs (one per TextOut), with the
// device position each starts at.
#ifndef VRK_TESTS_PRINTED_PAGES_H
#define VRK_TESTS_PRINTED_PAGES_H

#include <windows.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "temp_dir.h"

// Where Wine's spooler writes the jobs sent to the test printer's port, as
// a Windows path ("" when the prefix has no printer).
inline std::string SpoolFile() {
  char szUnix[MAX_PATH] = "";
  DWORD cb = sizeof(szUnix);
  if (::RegGetValueA(HKEY_CURRENT_USER, "Software\\Wine\\Printing\\Spooler", "LPT1:", RRF_RT_REG_SZ,
                     NULL, szUnix, &cb) != ERROR_SUCCESS)
    return "";
  std::string path = std::string("Z:") + szUnix; // Wine's Z: is the Unix root
  for (char& ch : path)
    if (ch == '/') ch = '\\';
  return path;
}

struct TextRun {
  int x, y;
  std::string text;
};

struct PrintedPage {
  std::vector<TextRun> runs;
  // The runs' texts in order, joined by '|'.
  std::string Texts() const {
    std::string s;
    for (const TextRun& run : runs)
      s += (s.empty() ? "" : "|") + run.text;
    return s;
  }
  // The runs on the row at y, left to right.
  std::vector<TextRun> Row(int y) const {
    std::vector<TextRun> row;
    for (const TextRun& run : runs)
      if (run.y == y) row.push_back(run);
    return row;
  }
};

// The character a glyph name stands for ('?' for one not listed).
inline char GlyphChar(const std::string& name) {
  static const std::map<std::string, char> names = {
      {"space", ' '}, {"uni00A0", ' '},   {"period", '.'},     {"comma", ','}, {"hyphen", '-'},
      {"colon", ':'}, {"parenleft", '('}, {"parenright", ')'}, {"zero", '0'},  {"one", '1'},
      {"two", '2'},   {"three", '3'},     {"four", '4'},       {"five", '5'},  {"six", '6'},
      {"seven", '7'}, {"eight", '8'},     {"nine", '9'}};
  if (name.size() == 1) return name[0];
  auto it = names.find(name);
  return it != names.end() ? it->second : '?';
}

// The pages of a PostScript file from Wine's driver: "x y moveto" starts a
// run, "/name glyphshow" adds a character to it.
inline std::vector<PrintedPage> ReadPages(const std::string& ps) {
  std::vector<PrintedPage> pages;
  std::istringstream in(ps);
  std::string line;
  TextRun* pRun = nullptr;
  while (std::getline(in, line)) {
    if (line.compare(0, 8, "%%Page: ") == 0) {
      pages.push_back(PrintedPage());
      pRun = nullptr;
    } else if (pages.empty()) {
      continue;
    } else if (line.size() > 7 && line.compare(line.size() - 7, 7, " moveto") == 0) {
      TextRun run;
      std::istringstream(line) >> run.x >> run.y;
      pages.back().runs.push_back(run);
      pRun = &pages.back().runs.back();
    } else if (pRun != nullptr && line[0] == '/' && line.size() > 10 &&
               line.compare(line.size() - 10, 10, " glyphshow") == 0) {
      pRun->text += GlyphChar(line.substr(1, line.size() - 11));
    }
  }
  return pages;
}

inline std::vector<PrintedPage> ReadSpoolPages() {
  return ReadPages(TempDir::ReadBytes(SpoolFile()));
}

#endif
