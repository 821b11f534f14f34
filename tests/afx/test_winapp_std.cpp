// The application's standard services: the command line read into
// CCommandLineInfo, the recent-file list (order, duplicates, size, names
// shown; the wizard application's test keeps it in the profile across
// runs), resources through the chain and the wait cursor.
#include <afxwin.h>
#include <afxadv.h>
#include <gtest/gtest.h>

#include <vector>

#include "temp_dir.h"

namespace {

CWinApp theApp("Std Test");

TEST(CommandLine, ParamsAndFlags) {
  const struct {
    std::vector<const char*> params; // a leading '/' is a flag
    int nShellCommand;
    const char* file;
  } cases[] = {{{"/p", "a.txt"}, CCommandLineInfo::FilePrint, "a.txt"},
               {{"/Unregister"}, CCommandLineInfo::AppUnregister, ""},
               {{"/Embedding", "b.txt"}, CCommandLineInfo::FileOpen, "b.txt"}};
  for (const auto& c : cases) {
    CCommandLineInfo info;
    for (size_t i = 0; i < c.params.size(); i++)
      info.ParseParam(c.params[i] + (c.params[i][0] == '/'), c.params[i][0] == '/',
                      i + 1 == c.params.size());
    EXPECT_EQ(c.nShellCommand, (int)info.m_nShellCommand) << c.file;
    EXPECT_STREQ(c.file, info.m_strFileName);
  }
  // /pt: the file, then the printer, driver and port.
  CCommandLineInfo shell;
  for (const char* psz : {"/pt", "c.txt", "Printer", "Driver", "Port"})
    shell.ParseParam(psz + (psz[0] == '/'), psz[0] == '/', FALSE);
  EXPECT_EQ(CCommandLineInfo::FilePrintTo, shell.m_nShellCommand);
  EXPECT_STREQ("Printer", shell.m_strPrinterName);
  EXPECT_STREQ("Port", shell.m_strPortName);
}

TEST(RecentFiles, NewestFirstOnceEachNamesCut) {
  TempDir dir;
  CRecentFileList list(ID_FILE_MRU_FILE1, "Recent Test", "File%d", 3, 30);
  for (const char* psz : {"a.txt", "b.txt", "a.txt", "c.txt", "d.txt"})
    list.Add(dir.File(psz).c_str());
  EXPECT_STREQ(dir.File("d.txt").c_str(), list[0]);
  EXPECT_STREQ(dir.File("c.txt").c_str(), list[1]);
  EXPECT_STREQ(dir.File("a.txt").c_str(), list[2]); // moved up once, b dropped

  // In the current folder the name alone; elsewhere the path, cut to 30.
  CString strName;
  EXPECT_TRUE(list.GetDisplayName(strName, 0, dir.Path().c_str(), (int)dir.Path().size()));
  EXPECT_STREQ("d.txt", strName);
  EXPECT_TRUE(list.GetDisplayName(strName, 0, "C:\\elsewhere", 12));
  EXPECT_EQ(dir.File("d.txt").size() > 30 ? 30 : (int)dir.File("d.txt").size(),
            strName.GetLength());
  EXPECT_NE(-1, strName.Find("d.txt"));
  list.Remove(0);
  EXPECT_FALSE(list.GetDisplayName(strName, 2, NULL, 0));
}

} // namespace

// Resources by id come through the resource chain; the wait cursor nests
// and puts back the cursor seen before.
TEST(AppResources, IconsThroughTheChainAndTheWaitCursor) {
  EXPECT_NE(nullptr, theApp.LoadIcon(AFX_IDI_STD_MDIFRAME)); // afx.dll's
  EXPECT_EQ(nullptr, theApp.LoadCursor(0x7FFF));
  HCURSOR hcurArrow = ::LoadCursor(NULL, IDC_ARROW);
  ::SetCursor(hcurArrow);
  CCmdTarget target;
  target.BeginWaitCursor();
  target.BeginWaitCursor();
  target.EndWaitCursor();
  EXPECT_EQ(::LoadCursor(NULL, IDC_WAIT), ::GetCursor()); // one level still open
  target.EndWaitCursor();
  EXPECT_EQ(hcurArrow, ::GetCursor());
}
