// The pages the test printer printed, read back from the PostScript of
// Wine's driver: each page's text runs (one a TextOut) and where they start.
#ifndef VRK_TESTS_PRINTED_PAGES_H
#define VRK_TESTS_PRINTED_PAGES_H

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "../../afx/print_testing.h" // SpoolFile
#include "temp_dir.h"

struct TextRun {
  int x, y;
  std::string text;
};
typedef std::vector<TextRun> PrintedPage;

// "x y moveto" starts a run, "/name glyphshow" adds a character to it.
inline std::vector<PrintedPage> ReadPages(const std::string& ps) {
  static const std::map<std::string, char> names = {
      {"uni00A0", ' '},   {"space", ' '},      {"period", '.'}, {"comma", ','},
      {"parenleft", '('}, {"parenright", ')'}, {"zero", '0'},   {"one", '1'},
      {"two", '2'},       {"three", '3'},      {"four", '4'},   {"five", '5'},
      {"six", '6'},       {"seven", '7'},      {"eight", '8'},  {"nine", '9'}};
  std::vector<PrintedPage> pages;
  std::istringstream in(ps);
  std::string line;
  while (std::getline(in, line)) {
    std::istringstream words(line);
    std::string a, b, op;
    words >> a >> b >> op;
    if (a == "%%Page:") {
      pages.emplace_back();
    } else if (!pages.empty() && op == "moveto") {
      pages.back().push_back(TextRun{atoi(a.c_str()), atoi(b.c_str()), ""});
    } else if (!pages.empty() && !pages.back().empty() && b == "glyphshow") {
      std::string name = a.substr(1);
      auto it = names.find(name);
      pages.back().back().text += name.size() == 1 ? name[0] : it != names.end() ? it->second : '?';
    }
  }
  return pages;
}

inline std::vector<PrintedPage> ReadSpoolPages() {
  return ReadPages(TempDir::ReadBytes(SpoolFile()));
}

// Each page's runs joined by '|'.
inline std::vector<std::string> PageTexts(const std::vector<PrintedPage>& pages) {
  std::vector<std::string> texts;
  for (const PrintedPage& page : pages) {
    std::string s;
    for (const TextRun& run : page)
      s += (s.empty() ? "" : "|") + run.text;
    texts.push_back(s);
  }
  return texts;
}

#endif
