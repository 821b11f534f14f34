// CWinApp's shell registration: the keys and values RegisterShellFileTypes
// writes under HKEY_CLASSES_ROOT for the application's templates, read back,
// an extension another type owns left alone, and "/Unregister" taking back
// what was written.
#include <afxwin.h>
#include <gtest/gtest.h>
#include <shlwapi.h>

#include <string>

namespace {

// The keys the test may write; none exists before it, all go after it.
const char* const kKeys[] = {"VrkTest.Alpha", "VrkTest.Beta", ".vkalpha", ".vkbeta", ".vkgamma"};

// HKEY_CLASSES_ROOT\key's default value or value name; "<none>" if missing.
std::string ClassesValue(const std::string& key, const char* name = NULL) {
  char sz[1024];
  DWORD cb = sizeof(sz);
  LONG lResult = ::SHGetValueA(HKEY_CLASSES_ROOT, key.c_str(), name, NULL, sz, &cb);
  return lResult == ERROR_SUCCESS ? sz : "<none>";
}

class AppShellTest : public ::testing::Test {
protected:
  void SetUp() override {
    for (const char* key : kKeys)
      ASSERT_EQ("<none>", ClassesValue(key)) << key << " is left from before";
    m_app.SetCurrentHandles(); // the exe's name, as at start-up
    // Alpha: a named type; Beta: two extensions, no name, the second one
    // another type's; Gamma: no registry type.
    for (const char* psz :
         {"\nA\nA\nA Files\n.vkalpha\nVrkTest.Alpha\nVrk Alpha Sheet",
          "\nB\nB\nB Files\n*.vkbeta; .vkgamma\nVrkTest.Beta\n", "\nC\nC\nC Files\n.vkgamma\n\n"}) {
      CMultiDocTemplate* pTemplate = new CMultiDocTemplate(
          0, RUNTIME_CLASS(CDocument), RUNTIME_CLASS(CMDIChildWnd), RUNTIME_CLASS(CView));
      pTemplate->m_strDocStrings = psz;
      m_app.AddDocTemplate(pTemplate);
    }
    ::SHSetValueA(HKEY_CLASSES_ROOT, ".vkgamma", NULL, REG_SZ, "Other.Type", 11);
  }
  void TearDown() override {
    for (const char* key : kKeys)
      ::SHDeleteKeyA(HKEY_CLASSES_ROOT, key);
  }

  CWinApp m_app{"AppShellTest"};
};

TEST_F(AppShellTest, RegistersEachTypeWithItsCommandsAndExtensions) {
  char szPath[MAX_PATH];
  ::GetModuleFileNameA(NULL, szPath, MAX_PATH);
  const std::string path = szPath, exe = "\"" + path + "\"";
  // Plain, then with the print commands, icons and ShellNew. The program
  // has two icons: Alpha, the first template, shows the second; Beta, with
  // none of its own, the program's.
  m_app.RegisterShellFileTypes();
  EXPECT_EQ("<none>", ClassesValue("VrkTest.Alpha\\shell\\print\\command"));
  m_app.RegisterShellFileTypes(TRUE);
  const struct {
    const char *key, *name;
    std::string value;
  } expected[] = {
      {"VrkTest.Alpha", NULL, "Vrk Alpha Sheet"},
      {"VrkTest.Alpha\\shell\\open\\command", NULL, exe + " \"%1\""},
      {"VrkTest.Alpha\\shell\\print\\command", NULL, exe + " /p \"%1\""},
      {"VrkTest.Alpha\\shell\\printto\\command", NULL, exe + " /pt \"%1\" \"%2\" \"%3\" \"%4\""},
      {"VrkTest.Alpha\\DefaultIcon", NULL, path + ",1"},
      {".vkalpha", NULL, "VrkTest.Alpha"},
      {".vkalpha\\ShellNew", "NullFile", ""},
      {"VrkTest.Beta", NULL, "VrkTest.Beta"}, // no name: its id
      {"VrkTest.Beta\\DefaultIcon", NULL, path + ",0"},
      {".vkbeta", NULL, "VrkTest.Beta"},
      {".vkgamma", NULL, "Other.Type"}, // another type's, kept
      {".vkgamma\\ShellNew", "NullFile", "<none>"},
  };
  for (const auto& e : expected)
    EXPECT_EQ(e.value, ClassesValue(e.key, e.name)) << e.key;

  // "/Unregister" takes it back and ends the program.
  CCommandLineInfo info;
  info.ParseParam("Unregister", TRUE, TRUE);
  EXPECT_FALSE(m_app.ProcessShellCommand(info));
  for (const char* key : {"VrkTest.Alpha", "VrkTest.Beta", ".vkalpha", ".vkbeta"})
    EXPECT_EQ("<none>", ClassesValue(key)) << key;
  EXPECT_EQ("Other.Type", ClassesValue(".vkgamma"));
}

} // namespace
