// Loading resource modules by base name and language: the search beside the
// application's resource module, the English retry, the failure box, the
// holder class that never frees, and RT_RCDATA resources.
#include <vrk_frame.h>
#include <gtest/gtest.h>

#include <string>

#include "msgbox_catcher.h"

namespace {

std::string ModulePath(HMODULE hModule) {
  char szPath[MAX_PATH] = "";
  if (hModule != NULL) ::GetModuleFileNameA(hModule, szPath, MAX_PATH);
  return szPath;
}

std::string LangDir() {
  char szExe[MAX_PATH];
  ::GetModuleFileNameA(NULL, szExe, MAX_PATH);
  std::string strDir(szExe);
  return strDir.substr(0, strDir.rfind('\\')) + "\\lang";
}

bool IsEnglishUser() { return ::GetUserDefaultLCID() == 1033; }

// Makes a module in bin\lang the application's resource module for a scope.
class ResourceHandleInLang {
public:
  ResourceHandleInLang() : m_hOld(AfxGetResourceHandle()) {
    m_hAnchor = ::LoadLibraryA((LangDir() + "\\vrk_langanchor.dll").c_str());
    EXPECT_TRUE(m_hAnchor != NULL);
    AfxSetResourceHandle(m_hAnchor);
  }
  ~ResourceHandleInLang() { AfxSetResourceHandle(m_hOld); }

private:
  HINSTANCE m_hOld;
  HINSTANCE m_hAnchor;
};

TEST(VrkOSLoadResourceDll, EnglishIsTheStaticallyImportedModule) {
  MsgBoxCatcher catcher;
  HINSTANCE hEnu = ::GetModuleHandleA("vrk_enu.dll");
  ASSERT_TRUE(hEnu != NULL);
  EXPECT_EQ(hEnu, VrkOSLoadResourceDll("vrk", 0));
  EXPECT_EQ(hEnu, VrkOSLoadResourceDll("vrk", 7));
  EXPECT_EQ(hEnu, VrkOSLoadResourceDll("vrk", "ENU", 0));
  EXPECT_EQ(hEnu, VrkOSLoadResourceDll("vrk", "enu", 4)); // names are not case-sensitive
  EXPECT_EQ(0u, catcher.Count());
}

TEST(VrkOSLoadResourceDll, MissingModuleShowsTheBoxOnlyWithFlag2) {
  MsgBoxCatcher catcher;
  EXPECT_TRUE(VrkOSLoadResourceDll("nosuch", "XYZ", 0) == NULL);
  EXPECT_TRUE(VrkOSLoadResourceDll("nosuch", "XYZ", 1 | 4) == NULL);
  EXPECT_EQ(0u, catcher.Count());

  EXPECT_TRUE(VrkOSLoadResourceDll("nosuch", "XYZ", 2) == NULL);
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ("", catcher.Last().caption);
  EXPECT_EQ("The dynamic link library nosuch_XYZ could not be found", catcher.Last().text);
  EXPECT_TRUE(catcher.Last().owner == NULL);
  EXPECT_EQ(std::vector<int>(1, IDOK), catcher.Last().buttons);

  // The two-argument form names the English module it looked for.
  EXPECT_TRUE(VrkOSLoadResourceDll("nosuch", 2) == NULL);
  ASSERT_EQ(2u, catcher.Count());
  EXPECT_EQ("The dynamic link library nosuch_ENU could not be found", catcher.Last().text);
}

TEST(VrkOSLoadResourceDll, MissingLanguageRetriesEnglishOnlyForOtherUsers) {
  MsgBoxCatcher catcher;
  HINSTANCE hInst = VrkOSLoadResourceDll("vrk", "XYZ", 1 | 2);
  if (IsEnglishUser()) {
    // An English user gets no retry: the box names the language.
    EXPECT_TRUE(hInst == NULL);
    ASSERT_EQ(1u, catcher.Count());
    EXPECT_EQ("The dynamic link library vrk_XYZ could not be found", catcher.Last().text);
  } else {
    EXPECT_EQ(::GetModuleHandleA("vrk_enu.dll"), hInst);
    EXPECT_EQ(0u, catcher.Count());
  }
  // Without bit 1 there is never a retry.
  catcher.Clear();
  EXPECT_TRUE(VrkOSLoadResourceDll("vrk", "XYZ", 2) == NULL);
  EXPECT_EQ(1u, catcher.Count());
}

TEST(VrkOSLoadResourceDll, OverlongNamesFailCleanlyAndCutTheBoxText) {
  MsgBoxCatcher catcher;
  std::string strBase(400, 'b');
  EXPECT_TRUE(VrkOSLoadResourceDll(strBase.c_str(), "XYZ", 2) == NULL);
  ASSERT_EQ(1u, catcher.Count());
  std::string strExpected = "The dynamic link library " + strBase;
  EXPECT_EQ(strExpected.substr(0, 255), catcher.Last().text);
  EXPECT_TRUE(VrkOSLoadResourceDll(NULL, 2) == NULL);
  EXPECT_TRUE(VrkOSLoadResourceDll(NULL, "DEU", 2) == NULL);
  EXPECT_EQ(1u, catcher.Count());
}

// One test, because the order matters: once vrk_DEU.dll is mapped, a load by
// its base name finds it wherever it lies.
TEST(VrkOSLoadResourceDll, FindsAModuleBesideTheResourceModuleOnly) {
  MsgBoxCatcher catcher;
  ASSERT_TRUE(::GetModuleHandleA("vrk_DEU.dll") == NULL);
  // bin\lang is not on the search path of this program in bin\.
  EXPECT_TRUE(VrkOSLoadResourceDll("vrk", "DEU", 0) == NULL);

  HINSTANCE hDeu;
  {
    ResourceHandleInLang inLang;
    hDeu = VrkOSLoadResourceDll("vrk", "DEU", 2 | 4);
  }
  ASSERT_TRUE(hDeu != NULL);
  EXPECT_EQ(LangDir() + "\\vrk_DEU.dll", ModulePath(hDeu));
  EXPECT_EQ(0u, catcher.Count());

  // The German module joined the resource chain when it loaded: its RCDATA
  // is found through the chain, exactly its five bytes.
  CString strText("unchanged");
  EXPECT_TRUE(VrkPrivLockAndLoadText(5100, hDeu, strText) != NULL);
  EXPECT_EQ(5, strText.GetLength());
  EXPECT_STREQ("Hallo", strText);
  HGLOBAL hData = VrkPrivLoadData(5100);
  ASSERT_TRUE(hData != NULL);
  EXPECT_EQ(0, memcmp(::LockResource(hData), "Hallo", 5));
  EXPECT_TRUE(VrkPrivLoadData(5100, hDeu) != NULL);

  // Missing resources: NULL, the text untouched.
  strText = "unchanged";
  EXPECT_TRUE(VrkPrivLockAndLoadText(5101, hDeu, strText) == NULL);
  EXPECT_STREQ("unchanged", strText);
  EXPECT_TRUE(VrkPrivLoadData(5101) == NULL);
  EXPECT_TRUE(VrkPrivLoadData(5100, ::GetModuleHandleA("vrk_enu.dll")) == NULL);
}

TEST(VExplicitResourceDll, UnloadNeverFreesTheModule) {
  VExplicitResourceDll dll;
  EXPECT_TRUE(dll.GetInstance() == NULL);
  ASSERT_TRUE(dll.Load("vrk"));
  HINSTANCE hEnu = dll.GetInstance();
  EXPECT_EQ(::GetModuleHandleA("vrk_enu.dll"), hEnu);

  VExplicitResourceDll copy(dll);
  EXPECT_EQ(hEnu, copy.GetInstance());
  dll.Unload();
  EXPECT_TRUE(dll.GetInstance() == NULL);
  EXPECT_EQ(hEnu, copy.GetInstance());
  EXPECT_TRUE(dll.Load("vrk", "ENU"));
  EXPECT_EQ(hEnu, dll.GetInstance());

  MsgBoxCatcher catcher;
  {
    VExplicitResourceDll scoped;
    EXPECT_FALSE(scoped.Load("nosuch", "XYZ"));
    EXPECT_TRUE(scoped.GetInstance() == NULL);
  }
  // Load passes flags 7: a failure shows the box.
  EXPECT_GE(catcher.Count(), 1u);

  // Loaded and "unloaded" many times: still mapped, same handle.
  for (int i = 0; i < 20; i++) {
    VExplicitResourceDll temp;
    ASSERT_TRUE(temp.Load("vrk"));
    temp.Unload();
  }
  EXPECT_EQ(hEnu, ::GetModuleHandleA("vrk_enu.dll"));
  copy = dll;
  EXPECT_EQ(hEnu, copy.GetInstance());
}

} // namespace
