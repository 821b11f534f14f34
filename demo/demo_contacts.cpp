// The demo's first section, afx's serialisation: a small object graph goes
// to a file with CArchive and comes back whole, including a company object
// shared by two contacts.
#include <afx.h>
#include <afxcoll.h>
#include <stdio.h>

#include "demo.h"

class CDemoCompany : public CObject {
  DECLARE_SERIAL(CDemoCompany)
public:
  void Serialize(CArchive& ar) override {
    if (ar.IsStoring())
      ar << m_strName << m_nStaff;
    else
      ar >> m_strName >> m_nStaff;
  }
  CString m_strName;
  LONG m_nStaff = 0;
};
IMPLEMENT_SERIAL(CDemoCompany, CObject, 1)

class CDemoContact : public CObject {
  DECLARE_SERIAL(CDemoContact)
public:
  void Serialize(CArchive& ar) override {
    if (ar.IsStoring()) {
      ar << m_strName << m_pEmployer;
    } else {
      ar >> m_strName >> m_pEmployer;
    }
    m_phones.Serialize(ar);
  }
  CString m_strName;
  CStringArray m_phones;
  CDemoCompany* m_pEmployer = NULL; // shared: not owned
};
IMPLEMENT_SERIAL(CDemoContact, CObject, 1)

static void Report(CException* e, const char* what) {
  char text[256];
  if (!e->GetErrorMessage(text, sizeof(text))) lstrcpyA(text, "(no description)");
  printf("%s failed: %s\n", what, text);
  e->Delete();
}

int DemoContacts() {
  char dir[MAX_PATH];
  if (GetTempPathA(MAX_PATH, dir) == 0) lstrcpyA(dir, ".\\");
  CString path = CString(dir) + "vrk_demo_contacts.arc";

  // The graph: two contacts working for one company.
  CDemoCompany company;
  company.m_strName = "Tamrix Ltd";
  company.m_nStaff = 42;
  CDemoContact ann, bob;
  ann.m_strName = "Ann";
  ann.m_phones.Add("+44 20 7946 0001");
  ann.m_phones.Add("+44 7700 900001");
  ann.m_pEmployer = &company;
  bob.m_strName = "Bob";
  bob.m_phones.Add("+44 20 7946 0002");
  bob.m_pEmployer = &company;
  CDemoContact* contacts[] = {&ann, &bob};

  try {
    CFile file(path, CFile::modeCreate | CFile::modeWrite);
    CArchive ar(&file, CArchive::store);
    ar.WriteCount(2);
    for (CDemoContact* p : contacts)
      ar << p;
    ar.Close();
    file.Close();
  } catch (CException* e) {
    Report(e, "writing");
    return 1;
  }
  CFileStatus status;
  CFile::GetStatus(path, status);
  printf("stored 2 contacts and 1 shared company in %s (%u bytes)\n", (LPCTSTR)path,
         (unsigned)status.m_size);

  int rc = 0;
  CDemoContact* loaded[2] = {NULL, NULL};
  try {
    CFile file(path, CFile::modeRead);
    CArchive ar(&file, CArchive::load);
    DWORD_PTR n = ar.ReadCount();
    if (n != 2) {
      printf("expected 2 contacts, found %u\n", (unsigned)n);
      return 1;
    }
    for (CDemoContact*& p : loaded)
      ar >> p;
    ar.Close();
  } catch (CException* e) {
    Report(e, "reading");
    return 1;
  }

  int nPhones = 0;
  for (CDemoContact* p : loaded) {
    nPhones += (int)p->m_phones.GetSize();
    printf("  %s: %d phone(s), first %s, works for %s (%ld staff)\n", (LPCTSTR)p->m_strName,
           (int)p->m_phones.GetSize(), (LPCTSTR)p->m_phones[0], (LPCTSTR)p->m_pEmployer->m_strName,
           (long)p->m_pEmployer->m_nStaff);
  }
  bool shared = loaded[0]->m_pEmployer == loaded[1]->m_pEmployer;
  printf("loaded 2 contacts, %d phones; the company is %s\n", nPhones,
         shared ? "one shared object, as stored" : "NOT shared");
  if (!shared || nPhones != 3 || loaded[0]->m_strName != "Ann" ||
      loaded[1]->m_phones[0] != "+44 20 7946 0002")
    rc = 1;

  delete loaded[0]->m_pEmployer;
  delete loaded[0];
  delete loaded[1];
  CFile::Remove(path);
  return rc;
}
