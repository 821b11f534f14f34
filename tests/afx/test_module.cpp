// The module state and the resource chain with real extension modules, and
// the application object with its settings in the registry and in INI files.
#include <afxwin.h>
#include <gtest/gtest.h>

#include "fixture_ids.h"
#include "scratch_registry.h"
#include "temp_dir.h"

#include <string>

namespace {

const char kExtDll[] = "vrk_fixture_ext.dll";
const char kResDll[] = "vrk_fixture_res.dll";

std::string LoadText(UINT nID, UINT nMaxBuf = 256) {
  char buf[512];
  memset(buf, 'x', sizeof(buf));
  int n = AfxLoadString(nID, buf, nMaxBuf);
  EXPECT_EQ(n, (int)strlen(buf)) << "length and text disagree for " << nID;
  return std::string(buf);
}

int ChainLength() {
  int n = 0;
  for (CDynLinkLibrary* p = AfxGetModuleState()->m_pFirstDLL; p != NULL; p = p->m_pNextDLL)
    n++;
  return n;
}

// Loads the resource-only module for a test (not in the chain by itself).
class ResModule {
public:
  ResModule() : m_h(LoadLibraryA(kResDll)) {}
  ~ResModule() { FreeLibrary(m_h); }
  HINSTANCE m_h;
};

class ResourceChain : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_EQ(ChainLength(), 0);
    m_hOldResource = AfxGetResourceHandle();
  }
  void TearDown() override {
    AfxSetResourceHandle(m_hOldResource);
    EXPECT_EQ(ChainLength(), 0) << "a test left a library in the chain";
  }
  HINSTANCE m_hOldResource;
};

} // namespace

TEST_F(ResourceChain, ExtensionModuleJoinsWhileLoaded) {
  EXPECT_EQ(LoadText(IDS_FIXTURE_EXT_ONLY), "");
  EXPECT_EQ(CRuntimeClass::FromName("CFixtureShape"), nullptr);

  HINSTANCE hExt = AfxLoadLibrary(kExtDll);
  ASSERT_NE(hExt, (HINSTANCE)NULL);
  ASSERT_EQ(ChainLength(), 1);
  CDynLinkLibrary* pDLL = AfxGetModuleState()->m_pFirstDLL;
  EXPECT_EQ(pDLL->m_hModule, hExt);
  EXPECT_EQ(pDLL->m_hResource, hExt);
  EXPECT_FALSE(pDLL->m_bSystem);

  EXPECT_EQ(LoadText(IDS_FIXTURE_EXT_ONLY), "Extension string");
  EXPECT_EQ(AfxFindStringResourceHandle(IDS_FIXTURE_EXT_ONLY), hExt);
  EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDR_FIXTURE_DATA), RT_RCDATA), hExt);

  CObject* pObject = CRuntimeClass::CreateObject("CFixtureShape");
  ASSERT_NE(pObject, nullptr);
  EXPECT_STREQ(pObject->GetRuntimeClass()->m_lpszClassName, "CFixtureShape");
  delete pObject;

  EXPECT_TRUE(AfxFreeLibrary(hExt));
  EXPECT_EQ(ChainLength(), 0);
  EXPECT_EQ(LoadText(IDS_FIXTURE_EXT_ONLY), "");
  EXPECT_EQ(AfxFindStringResourceHandle(IDS_FIXTURE_EXT_ONLY), (HINSTANCE)NULL);
  EXPECT_EQ(CRuntimeClass::FromName("CFixtureShape"), nullptr);
}

TEST_F(ResourceChain, ResourceHandleFirstNewestLibraryNextSystemLibrariesLast) {
  HINSTANCE hExt = AfxLoadLibrary(kExtDll);
  ResModule res;
  ASSERT_NE(res.m_h, (HINSTANCE)NULL);
  // The extension has the block of IDS_FIXTURE_RES_ONLY, not the string.
  EXPECT_EQ(AfxFindStringResourceHandle(IDS_FIXTURE_RES_ONLY), (HINSTANCE)NULL);
  EXPECT_EQ(LoadText(IDS_FIXTURE_SHARED), "Shared string from the extension");
  AfxSetResourceHandle(res.m_h);
  EXPECT_EQ(LoadText(IDS_FIXTURE_SHARED), "Shared string from the resource module");
  EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDR_FIXTURE_DATA), RT_RCDATA), res.m_h);
  EXPECT_EQ(AfxFindStringResourceHandle(IDS_FIXTURE_RES_ONLY), res.m_h);
  EXPECT_EQ(LoadText(IDS_FIXTURE_EXT_ONLY), "Extension string"); // the rest from the chain
  EXPECT_EQ(AfxFindStringResourceHandle(IDS_FIXTURE_NOWHERE), (HINSTANCE)NULL);
  AfxSetResourceHandle(m_hOldResource);

  AFX_EXTENSION_MODULE state = {FALSE, NULL, NULL, NULL, NULL};
  EXPECT_FALSE(AfxInitExtensionModule(state, NULL));
  ASSERT_TRUE(AfxInitExtensionModule(state, res.m_h));

  // A system library joined after the extension still comes after it.
  CDynLinkLibrary* pSystem = new CDynLinkLibrary(state, TRUE);
  EXPECT_EQ(AfxGetModuleState()->m_pFirstDLL, pSystem);
  EXPECT_EQ(LoadText(IDS_FIXTURE_SHARED), "Shared string from the extension");
  EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDR_FIXTURE_DATA), RT_RCDATA), hExt);
  EXPECT_EQ(LoadText(IDS_FIXTURE_RES_ONLY), "Resource string");
  delete pSystem;

  // A non-system library joined later is searched first.
  new CDynLinkLibrary(state);
  EXPECT_EQ(LoadText(IDS_FIXTURE_SHARED), "Shared string from the resource module");
  EXPECT_EQ(ChainLength(), 2);
  AfxTermExtensionModule(state); // deletes only that module's library
  EXPECT_EQ(ChainLength(), 1);
  EXPECT_EQ(AfxGetModuleState()->m_pFirstDLL->m_hModule, hExt);
  AfxFreeLibrary(hExt);
}

TEST_F(ResourceChain, LoadStringTruncatesToTheBuffer) {
  HINSTANCE hExt = AfxLoadLibrary(kExtDll);
  const std::string kLong = "0123456789ABCDEFGHIJ";
  for (UINT nMax : {256u, 21u, 20u, 6u, 1u})
    EXPECT_EQ(LoadText(IDS_FIXTURE_LONG, nMax), kLong.substr(0, nMax - 1)) << nMax;
  EXPECT_EQ(AfxLoadString(IDS_FIXTURE_LONG, NULL, 10), 0);
  char c = 'x';
  EXPECT_EQ(AfxLoadString(IDS_FIXTURE_LONG, &c, 0), 0);
  EXPECT_EQ(c, 'x');
  AfxFreeLibrary(hExt);
}

TEST(WinApp, RegistersItselfAndTheNames) {
  {
    CWinApp app("VrkModuleTest");
    EXPECT_EQ(AfxGetApp(), &app);
    EXPECT_EQ(AfxGetThread(), &app);
    EXPECT_EQ(app.m_nThreadID, GetCurrentThreadId());
    EXPECT_STREQ(app.m_pszAppName, "VrkModuleTest");
    EXPECT_EQ(app.m_pszProfileName, nullptr);

    char cmdLine[] = "";
    EXPECT_TRUE(AfxWinInit(GetModuleHandleA(NULL), NULL, cmdLine, SW_SHOW));
    EXPECT_EQ(app.m_hInstance, GetModuleHandleA(NULL));
    EXPECT_EQ(app.m_nCmdShow, SW_SHOW);
    EXPECT_STREQ(app.m_pszExeName, "afx_module");
    EXPECT_STREQ(app.m_pszProfileName, "afx_module.INI");
    EXPECT_STREQ(AfxGetAppName(), "VrkModuleTest");
    char path[MAX_PATH];
    GetModuleFileNameA(NULL, path, MAX_PATH);
    std::string help(path);
    help = help.substr(0, help.rfind('.')) + ".HLP";
    EXPECT_STREQ(app.m_pszHelpFilePath, help.c_str());
  }
  EXPECT_EQ(AfxGetApp(), nullptr);
  EXPECT_EQ(AfxGetThread(), nullptr);
  EXPECT_EQ(AfxGetAppName(), nullptr);
}

namespace {
const std::string kAppKey = "Software\\Tamrix\\VrkModuleTest";

class RegistryProfile : public ::testing::Test {
protected:
  RegistryProfile() : m_app("VrkModuleTest") { m_app.SetRegistryKey("Tamrix"); }
  ScratchRegistry m_scratch; // constructed first, restores last
  CWinApp m_app;
};
} // namespace

// Integers as DWORDs, strings of any length or written without their
// terminator, binary values; wrong types and missing values as defaults.
TEST_F(RegistryProfile, IntegersStringsAndBinaryValues) {
  EXPECT_EQ(m_app.GetProfileInt("Window", "Left", 33), 33u);
  EXPECT_TRUE(m_app.WriteProfileInt("Window", "Left", -5));
  DWORD dw = 0;
  ASSERT_TRUE(ScratchRegistry::ReadDword(kAppKey + "\\Window", "Left", &dw));
  EXPECT_EQ(dw, (DWORD)-5);
  EXPECT_EQ((int)m_app.GetProfileInt("window", "LEFT", 0), -5); // names ignore case
  // A value of another type reads as the default.
  ScratchRegistry::WriteString(kAppKey + "\\Window", "Top", "12");
  EXPECT_EQ(m_app.GetProfileInt("Window", "Top", 7), 7u);
  EXPECT_EQ(m_app.GetProfileInt(NULL, "Top", 8), 8u);
  EXPECT_FALSE(m_app.WriteProfileInt("Window", NULL, 1));

  std::string longText(10000, 'q');
  EXPECT_TRUE(m_app.WriteProfileString("S", "Long", longText.c_str()));
  EXPECT_EQ(std::string(m_app.GetProfileString("S", "Long")), longText);
  // Written by another program without the terminating null.
  HKEY hKey = m_app.GetSectionKey("S");
  RegSetValueExA(hKey, "Raw", 0, REG_SZ, (const BYTE*)"abc", 3);
  RegCloseKey(hKey);
  EXPECT_STREQ(m_app.GetProfileString("S", "Raw"), "abc");

  const BYTE data[] = {0x00, 0x01, 0xFE, 0x7F, 0x80};
  EXPECT_TRUE(m_app.WriteProfileBinary("Bin", "Blob", (LPBYTE)data, sizeof(data)));
  std::vector<BYTE> stored;
  ASSERT_TRUE(ScratchRegistry::ReadBinary(kAppKey + "\\Bin", "Blob", &stored));
  EXPECT_EQ(stored, std::vector<BYTE>(data, data + sizeof(data)));
  LPBYTE pData = NULL;
  UINT nBytes = 0;
  ASSERT_TRUE(m_app.GetProfileBinary("Bin", "Blob", &pData, &nBytes));
  ASSERT_EQ(nBytes, sizeof(data));
  EXPECT_EQ(memcmp(pData, data, nBytes), 0);
  delete[] pData;
  // Missing and mistyped values fail with the outputs cleared.
  pData = (LPBYTE)1;
  nBytes = 9;
  EXPECT_FALSE(m_app.GetProfileBinary("Bin", "Nothing", &pData, &nBytes));
  EXPECT_EQ(pData, nullptr);
  EXPECT_EQ(nBytes, 0u);
  m_app.WriteProfileInt("Bin", "Number", 1);
  EXPECT_FALSE(m_app.GetProfileBinary("Bin", "Number", &pData, &nBytes));
  EXPECT_FALSE(m_app.GetProfileBinary("Bin", "Blob", NULL, &nBytes));
}

namespace {
class IniProfile : public ::testing::Test {
protected:
  IniProfile() : m_app("VrkModuleTest") {
    m_ini = m_dir.File("settings.ini");
    // As MFC documents: free the old name and give a malloc'd new one.
    free((void*)m_app.m_pszProfileName);
    m_app.m_pszProfileName = _strdup(m_ini.c_str());
  }
  std::string Ini() { return TempDir::ReadBytes(m_ini); }
  TempDir m_dir;
  std::string m_ini;
  CWinApp m_app;
};
} // namespace

TEST_F(IniProfile, ValuesGoToTheFileBinaryAsLettersLowNibbleFirst) {
  EXPECT_TRUE(m_app.WriteProfileInt("Window", "Left", -5));
  EXPECT_NE(Ini().find("Left=-5"), std::string::npos) << Ini();
  EXPECT_FALSE(ScratchRegistry::KeyExists(kAppKey + "\\Window"));
  std::string longText(6000, 'z'); // past the first 4,096-character read
  EXPECT_TRUE(m_app.WriteProfileString("S", "Long", longText.c_str()));
  EXPECT_EQ(std::string(m_app.GetProfileString("S", "Long")), longText);

  const BYTE data[] = {0x12, 0xAB, 0x00, 0xFF};
  EXPECT_TRUE(m_app.WriteProfileBinary("Bin", "Blob", (LPBYTE)data, sizeof(data)));
  EXPECT_NE(Ini().find("Blob=CBLKAAPP"), std::string::npos) << Ini();
  LPBYTE pData = NULL;
  UINT nBytes = 0;
  ASSERT_TRUE(m_app.GetProfileBinary("Bin", "Blob", &pData, &nBytes));
  ASSERT_EQ(nBytes, sizeof(data));
  EXPECT_EQ(memcmp(pData, data, nBytes), 0);
  delete[] pData;
  pData = NULL;
  for (const char* pszBad : {"ABC", "AZ"}) { // odd length, not a letter A to P
    m_app.WriteProfileString("Bin", "Bad", pszBad);
    EXPECT_FALSE(m_app.GetProfileBinary("Bin", "Bad", &pData, &nBytes)) << pszBad;
  }
  EXPECT_EQ(pData, nullptr);
}
