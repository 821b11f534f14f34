// Loading resource modules by base name and language: the search beside the
// application's resource module, the English retry, the failure box, the
// holder class that never frees, and RT_RCDATA resources.
#include <vrk_frame.h>
#include <gtest/gtest.h>

#include <string>

#include "child_process.h"
#include "msgbox_catcher.h"

namespace {

std::string LangDir() { return ExeDir() + "\\lang"; }

// English is the statically imported module, its name not case-sensitive.
// A missing module shows the box only with flag 2, naming the module looked
// for (cut to 255 characters); an English retry (bit 1) only for users of
// another language.
TEST(VrkOSLoadResourceDll, EnglishAndTheBoxForMissingModulesOnlyWithFlag2) {
  MsgBoxCatcher catcher;
  HINSTANCE hEnu = ::GetModuleHandleA("vrk_enu.dll");
  ASSERT_TRUE(hEnu != NULL);
  EXPECT_TRUE(hEnu == VrkOSLoadResourceDll("vrk", 7) &&
              hEnu == VrkOSLoadResourceDll("vrk", "enu", 4));
  EXPECT_TRUE(VrkOSLoadResourceDll("nosuch", "XYZ", 1 | 4) == NULL);
  EXPECT_TRUE(VrkOSLoadResourceDll(NULL, "DEU", 2) == NULL);
  EXPECT_EQ(0u, catcher.Count());
  const std::string strBase(400, 'b');
  const struct {
    const char *base, *language;
    int flags;
    std::string text;
  } cases[] = {{"nosuch", "XYZ", 2, "nosuch_XYZ"},
               {"nosuch", NULL, 2, "nosuch_ENU"},
               {strBase.c_str(), "XYZ", 2, (strBase + "_XYZ").substr(0, 255 - 25)},
               {"vrk", "XYZ", 1 | 2, ::GetUserDefaultLCID() == 1033 ? "vrk_XYZ" : ""}};
  for (const auto& c : cases) {
    catcher.Clear();
    HINSTANCE h = c.language ? VrkOSLoadResourceDll(c.base, c.language, c.flags)
                             : VrkOSLoadResourceDll(c.base, c.flags);
    if (c.text.empty()) { // retried in English
      EXPECT_TRUE(hEnu == h && catcher.Count() == 0);
      continue;
    }
    EXPECT_TRUE(h == NULL) << c.text;
    ASSERT_EQ(1u, catcher.Count()) << c.text;
    EXPECT_EQ("The dynamic link library " + c.text +
                  (c.text.size() < 200 ? " could not be found" : ""),
              catcher.Last().text);
    EXPECT_TRUE(catcher.Last().caption.empty() && catcher.Last().owner == NULL &&
                catcher.Last().buttons == std::vector<int>(1, IDOK));
  }
}

// One test, because the order matters: once vrk_DEU.dll is mapped, a load by
// its base name finds it wherever it lies.
TEST(VrkOSLoadResourceDll, FindsAModuleBesideTheResourceModuleOnlyAndNeverFreesIt) {
  MsgBoxCatcher catcher;
  ASSERT_TRUE(::GetModuleHandleA("vrk_DEU.dll") == NULL);
  HINSTANCE hEnu = ::GetModuleHandleA("vrk_enu.dll");
  // bin\lang is not on the search path of this program in bin\.
  EXPECT_TRUE(VrkOSLoadResourceDll("vrk", "DEU", 0) == NULL);

  // Loaded through the holder, which never frees: unloaded, copied and
  // destroyed, the module stays mapped.
  HINSTANCE hDeu;
  {
    VExplicitResourceDll dll;
    // The anchor in bin\lang as the application's resource module, for the load.
    const HINSTANCE hOld = AfxGetResourceHandle();
    AfxSetResourceHandle(::LoadLibraryA((LangDir() + "\\vrk_langanchor.dll").c_str()));
    EXPECT_TRUE(dll.Load("vrk", "DEU"));
    AfxSetResourceHandle(hOld);
    hDeu = dll.GetInstance();
    ASSERT_TRUE(hDeu != NULL);
    char szPath[MAX_PATH] = "";
    ::GetModuleFileNameA(hDeu, szPath, MAX_PATH);
    EXPECT_EQ(LangDir() + "\\vrk_DEU.dll", szPath);
    VExplicitResourceDll copy(dll);
    dll.Unload();
    EXPECT_TRUE(dll.GetInstance() == NULL);
    EXPECT_EQ(hDeu, copy.GetInstance());
  }
  EXPECT_TRUE(hDeu == ::GetModuleHandleA("vrk_DEU.dll") && catcher.Count() == 0);

  // The German module joined the resource chain when it loaded: its RCDATA
  // is found through the chain, exactly its five bytes.
  CString strText("unchanged");
  EXPECT_TRUE(VrkPrivLockAndLoadText(5100, hDeu, strText) != NULL);
  EXPECT_EQ("Hallo", std::string(strText, strText.GetLength()));
  HGLOBAL hData = VrkPrivLoadData(5100);
  ASSERT_TRUE(hData != NULL);
  EXPECT_EQ(0, memcmp(::LockResource(hData), "Hallo", 5));
  // Missing resources: NULL, the text untouched.
  strText = "unchanged";
  EXPECT_TRUE(VrkPrivLockAndLoadText(5101, hDeu, strText) == NULL);
  EXPECT_STREQ("unchanged", strText);
  EXPECT_TRUE(VrkPrivLoadData(5101) == NULL && VrkPrivLoadData(5100, hEnu) == NULL);

  // A failed Load shows the box (flags 7) and holds nothing.
  VExplicitResourceDll missing;
  EXPECT_TRUE(!missing.Load("nosuch", "XYZ") && missing.GetInstance() == NULL);
  EXPECT_GE(catcher.Count(), 1u);
}

} // namespace
