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

size_t BoxCount(const Report& report) {
  Report::const_iterator it = report.find("box");
  return it == report.end() ? 0 : it->second.size();
}

bool EndsWith(const std::string& s, const std::string& tail) {
  return s.size() >= tail.size() && _stricmp(s.c_str() + s.size() - tail.size(), tail.c_str()) == 0;
}

bool IsEnglishUser() { return ::GetUserDefaultLCID() == 1033; }

const char kEnglishText[] = "Error code: %lu";
const char kGermanText[] = "Fehlercode: %lu";

class StartupTest : public ::testing::Test {
protected:
  void SetUp() override { ScratchRegistry::DeleteTree(kSettings); }
  ScratchRegistry m_registry;
};

// Registry states that end in English without a box: the language is read
// only when UseSystem is present and 0, and English is its default.
TEST_F(StartupTest, EnglishUnlessUseSystemIsZeroAndALanguageIsSet) {
  const struct {
    int useSystem; // -1: absent
    const char* language;
  } cases[] = {{-1, NULL}, {-1, "DEU"}, {1, "DEU"}, {0, NULL}};
  for (const auto& c : cases) {
    ScratchRegistry::DeleteTree(kSettings);
    ASSERT_TRUE(c.useSystem < 0 ||
                ScratchRegistry::WriteDword(kSettings, "UseSystem", c.useSystem));
    ASSERT_TRUE(!c.language || ScratchRegistry::WriteString(kSettings, "Language", c.language));
    Report report = RunLoadHost("anchor");
    EXPECT_EQ("1", One(report, "loaded")) << c.useSystem;
    EXPECT_EQ(kEnglishText, One(report, "text")) << c.useSystem;
    EXPECT_EQ("", One(report, "deu")) << c.useSystem;
    EXPECT_EQ(0u, BoxCount(report)) << c.useSystem;
  }
  EXPECT_TRUE(ScratchRegistry::KeyExists(kSettings)); // made when missing
}

TEST_F(StartupTest, GermanIsFoundBesideTheResourceModule) {
  ASSERT_TRUE(ScratchRegistry::WriteDword(kSettings, "UseSystem", 0));
  ASSERT_TRUE(ScratchRegistry::WriteString(kSettings, "Language", "DEU"));
  Report report = RunLoadHost("anchor init");
  EXPECT_EQ("1", One(report, "loaded"));
  EXPECT_TRUE(EndsWith(One(report, "deu"), "\\lang\\vrk_DEU.dll")) << One(report, "deu");
  EXPECT_EQ(kGermanText, One(report, "text"));
  EXPECT_EQ(0u, BoxCount(report));
  // InitVrkDll initialises English first, then the German module's own entry
  // (once), so German stays ahead in the resource chain.
  EXPECT_EQ(kGermanText, One(report, "inittext"));
  EXPECT_EQ("1", One(report, "deuinit"));
  EXPECT_EQ((std::vector<std::string>{"1", "2"}), report["enuentries"]);

  // Without the anchor the resource module is the host itself, in bin\, and
  // vrk_DEU.dll in bin\lang\ is not found: English, with a box for an
  // English user (another user's English retry inside the call succeeds).
  // The host's module data: its file version is 3.14.15.9265.
  report = RunLoadHost("");
  EXPECT_EQ("3.14 15.9265 vrk_frame_loadhost.exe",
            One(report, "major") + " " + One(report, "minor") + " " + One(report, "exename"));
  EXPECT_EQ("", One(report, "deu"));
  EXPECT_EQ(kEnglishText, One(report, "text"));
  EXPECT_EQ(IsEnglishUser() ? "|The dynamic link library vrk_DEU could not be found" : "<missing>",
            One(report, "box"));
}

TEST_F(StartupTest, MissingLanguageNamesItInTheBoxThenUsesEnglish) {
  ASSERT_TRUE(ScratchRegistry::WriteDword(kSettings, "UseSystem", 0));
  ASSERT_TRUE(ScratchRegistry::WriteString(kSettings, "Language", "XYZ"));
  Report report = RunLoadHost("anchor init");
  EXPECT_EQ("1", One(report, "loaded"));
  EXPECT_EQ(kEnglishText, One(report, "text"));
  EXPECT_EQ(kEnglishText, One(report, "inittext"));
  // English chosen: InitVrkDll initialises the English module twice.
  EXPECT_EQ((std::vector<std::string>{"1", "3"}), report["enuentries"]);
  EXPECT_EQ(IsEnglishUser() ? "|The dynamic link library vrk_XYZ could not be found" : "<missing>",
            One(report, "box"));
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
