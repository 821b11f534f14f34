// The demo's recent-list section: an MRU list and a run counter kept in an
// archive file, so that each run of the demo adds one entry to what the
// previous runs left.
#include <afxwin.h>
#include <vrk_mru.h>
#include <stdio.h>
#include <time.h>

#include "demo.h"

int DemoRecentList() {
  CString strPath = CString(DemoFolder()) + "vrk_demo_recent.arc";
  VStringMruList recent(5);
  unsigned long nRuns = 0;

  // The file: the run counter as a slim number, then the list.
  CFile file;
  if (file.Open(strPath, CFile::modeRead)) {
    try {
      CArchive ar(&file, CArchive::load);
      VrkArReadSlim(ar, nRuns);
      recent.Serialize(ar);
      ar.Close();
    } catch (CException* e) {
      printf("  %s is damaged; starting afresh\n", (const char*)strPath);
      e->Delete();
      nRuns = 0;
      recent.SetSize(5);
      for (int i = 0; i < recent.GetSize(); i++)
        recent[i].Empty();
    }
    file.Close();
    printf("  loaded %s: %lu earlier run(s)\n", (const char*)strPath, nRuns);
  } else {
    printf("  no %s yet: this is the first run\n", (const char*)strPath);
  }

  nRuns++;
  char szStamp[64];
  time_t now = time(NULL);
  strftime(szStamp, sizeof(szStamp), "%Y-%m-%d %H:%M:%S", localtime(&now));
  CString strEntry;
  strEntry.Format("run %lu at %s", nRuns, szStamp);
  recent.Add(strEntry);

  try {
    CFile out(strPath, CFile::modeCreate | CFile::modeWrite);
    CArchive ar(&out, CArchive::store);
    VrkArWriteSlim(ar, nRuns);
    recent.Serialize(ar);
    ar.Close();
  } catch (CException* e) {
    printf("  cannot store %s\n", (const char*)strPath);
    e->Delete();
    return 1;
  }
  printf("  most recent first (run the demo again to see the list grow):\n");
  for (int i = 0; i < recent.GetSize(); i++)
    printf("    %d. %s\n", i + 1, recent.GetAt(i).IsEmpty() ? "-" : (const char*)recent.GetAt(i));
  return recent.GetAt(0) == strEntry ? 0 : 1;
}
