// VRK.dll's start-up: the language chosen from HKCU\Software\Tamrix\PEL\Settings
// and its fallbacks, watched in a fresh process (the load host) for each
// registry state, and the module data.
#include <vrk_frame.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "child_process.h"
#include "scratch_registry.h"
#include "temp_dir.h"

namespace {

const char kSettings[] = "Software\\Tamrix\\PEL\\Settings";

typedef std::map<std::string, std::vector<std::string>> Report;

// Runs the load host with the given options and parses its report.
Report RunLoadHost(const std::string& strOptions) {
  TempDir dir;
  const std::string strReport = dir.File("report.txt");
  EXPECT_EQ(0u, RunProcess("\"" + ExeDir() + "\\vrk_frame_loadhost.exe\" \"" + strReport + "\" " +
                               strOptions,
                           ExeDir().c_str()));
  Report report;
  std::string strText = TempDir::ReadBytes(strReport);
  for (size_t nPos = 0, nEnd; nPos < strText.size(); nPos = nEnd + 1) {
    nEnd = strText.find('\n', nPos);
    if (nEnd == std::string::npos) nEnd = strText.size();
    const std::string strLine = strText.substr(nPos, nEnd - nPos);
    const size_t nEq = strLine.find('=');
    if (nEq != std::string::npos) report[strLine.substr(0, nEq)].push_back(strLine.substr(nEq + 1));
  }
  return report;
}

std::string One(const Report& report, const std::string& strKey) {
  Report::const_iterator it = report.find(strKey);
  return it == report.end() || it->second.empty() ? "<missing>" : it->second.front();
}

bool EndsWith(const std::string& s, const std::string& tail) {
  return s.size() >= tail.size() && _stricmp(s.c_str() + s.size() - tail.size(), tail.c_str()) == 0;
}

bool IsEnglishUser() { return ::GetUserDefaultLCID() == 1033; }

// A run's report in one line: the text, the text after InitVrkDll, where
// vrk_DEU.dll was loaded from, its initialisations, the English module's
// entries in the resource chain, the boxes ("caption|text").
std::string Summary(Report& report) {
  std::string deu = One(report, "deu"), s = One(report, "text") + "|" + One(report, "inittext");
  s += "|" + std::string(EndsWith(deu, "\\lang\\vrk_DEU.dll") ? "lang" : deu);
  s += "|" + One(report, "deuinit") + "|";
  for (const std::string& n : report["enuentries"])
    s += n + ",";
  for (const std::string& box : report["box"])
    s += "|" + box;
  return s;
}

// The language is read only when UseSystem is present and 0; English is the
// default. German is found beside the application's resource module (the
// anchor in bin\lang); InitVrkDll initialises English first, then the German
// module's own entry (once), so German stays ahead in the resource chain.
// Without the anchor the resource module is the host in bin\, where no
// vrk_DEU.dll lies: English, with a box for an English user (another user's
// English retry inside the call succeeds). A missing language is named in
// the box, and InitVrkDll then initialises English twice.
TEST(Startup, TheLanguageChosenForEachRegistryState) {
  ScratchRegistry registry;
  const std::string E = "Error code: %lu", G = "Fehlercode: %lu", none = "<missing>";
  auto box = [](const char* name) {
    return IsEnglishUser()
               ? "||The dynamic link library " + std::string(name) + " could not be found"
               : std::string();
  };
  const struct {
    int useSystem; // -1: absent
    const char *language, *options;
    std::string expected;
  } cases[] = {{-1, NULL, "anchor", E + "|" + none + "||" + none + "|1,"},
               {-1, "DEU", "anchor", E + "|" + none + "||" + none + "|1,"},
               {1, "DEU", "anchor", E + "|" + none + "||" + none + "|1,"},
               {0, NULL, "anchor", E + "|" + none + "||" + none + "|1,"},
               {0, "DEU", "anchor init", G + "|" + G + "|lang|1|1,2,"},
               {0, "DEU", "", E + "|" + none + "||" + none + "|1," + box("vrk_DEU")},
               {0, "XYZ", "anchor init", E + "|" + E + "||" + none + "|1,3," + box("vrk_XYZ")}};
  for (const auto& c : cases) {
    ScratchRegistry::DeleteTree(kSettings);
    ASSERT_TRUE(c.useSystem < 0 ||
                ScratchRegistry::WriteDword(kSettings, "UseSystem", c.useSystem));
    ASSERT_TRUE(!c.language || ScratchRegistry::WriteString(kSettings, "Language", c.language));
    Report report = RunLoadHost(c.options);
    EXPECT_EQ(c.expected, Summary(report)) << c.useSystem << " " << c.language << " " << c.options;
    EXPECT_TRUE(ScratchRegistry::KeyExists(kSettings)); // made when missing
    if (c.options[0] == 0) {                            // the host's file version is 3.14.15.9265
      EXPECT_EQ("3.14 15.9265 vrk_frame_loadhost.exe",
                One(report, "major") + " " + One(report, "minor") + " " + One(report, "exename"));
    }
  }
}

// This test program has no version resource; the locale acronym of the
// English resource module.
TEST(ModuleData, NoVersionPairsWithoutAVersionResourceAndTheAcronym) {
  const tagVersionWord zero = {0, 0};
  EXPECT_TRUE(VrkPrivGetProductMajorVersion() == zero && VrkPrivGetProductMinorVersion() == zero);
  EXPECT_STREQ("vrk_frame_startup.exe", VrkPrivGetExeName());
  CString strName("vrk_");
  EXPECT_EQ(1, VrkPrivAppendLocaleAcronym(strName, 1));
  EXPECT_STREQ("vrk_ENU", strName);
}

} // namespace
