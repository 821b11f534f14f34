// VRK.dll's start-up: the language chosen from HKCU\Software\Tamrix\PEL\Settings
// and its fallbacks, watched in a fresh process (the load host) for each
// registry state, and the module data.
#include <vrk_frame.h>
#include <gtest/gtest.h>

#include <string>

#include "child_process.h"
#include "scratch_registry.h"
#include "temp_dir.h"

namespace {

const char kSettings[] = "Software\\Tamrix\\PEL\\Settings";

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
    return ::GetUserDefaultLCID() == 1033 // an English user's load is not retried
               ? "||The dynamic link library " + std::string(name) + " could not be found"
               : std::string();
  };
  const struct {
    int useSystem; // -1: absent
    const char *language, *options;
    std::string expected;
  } cases[] = {{-1, "DEU", "anchor", E + "|" + none + "||" + none + "|1,"},
               {0, NULL, "anchor", E + "|" + none + "||" + none + "|1,"},
               {0, "DEU", "anchor init", G + "|" + G + "|lang|1|1,2,"},
               {0, "DEU", "", E + "|" + none + "||" + none + "|1," + box("vrk_DEU")},
               {0, "XYZ", "anchor init", E + "|" + E + "||" + none + "|1,3," + box("vrk_XYZ")}};
  for (const auto& c : cases) {
    ScratchRegistry::DeleteTree(kSettings);
    ASSERT_TRUE(c.useSystem < 0 ||
                ScratchRegistry::WriteDword(kSettings, "UseSystem", c.useSystem));
    ASSERT_TRUE(!c.language || ScratchRegistry::WriteString(kSettings, "Language", c.language));
    TempDir dir;
    const std::string strReport = dir.File("report.txt");
    ASSERT_EQ(0u, RunProcess("\"" + ExeDir() + "\\vrk_frame_loadhost.exe\" \"" + strReport + "\" " +
                                 c.options,
                             ExeDir().c_str()));
    // The host's file version is 3.14.15.9265.
    EXPECT_EQ(c.expected + "\n3.14 15.9265 vrk_frame_loadhost.exe\n", TempDir::ReadBytes(strReport))
        << c.useSystem << " " << c.language << " " << c.options;
    EXPECT_TRUE(ScratchRegistry::KeyExists(kSettings)); // made when missing
  }
}

// This test program has no version resource (the load host's version and
// name are checked above); the locale acronym of the English resource module.
TEST(ModuleData, NoVersionPairsWithoutAVersionResourceAndTheAcronym) {
  const tagVersionWord zero = {0, 0};
  EXPECT_TRUE(VrkPrivGetProductMajorVersion() == zero && VrkPrivGetProductMinorVersion() == zero);
  CString strName("vrk_");
  EXPECT_EQ(1, VrkPrivAppendLocaleAcronym(strName, 1));
  EXPECT_STREQ("vrk_ENU", strName);
}

} // namespace
