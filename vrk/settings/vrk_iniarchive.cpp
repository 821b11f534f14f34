// VIniArchive: a profile archive on one section of an INI file, through the
// system's private-profile functions.
//
// Decided here: an archive that is not open (no file set) returns 0 from
// every operation and hands back the default, as the registry archive
// does; once open, the reads report 1 whatever the file holds.
#include "vrk_profile.h"

#include <io.h>
#include <stdio.h>

namespace {
// GetPrivateProfileStringA's buffer: longer values come back cut to 4095.
const DWORD kStringBuffer = 4096;
} // namespace

VIniArchive::VIniArchive() {}

VIniArchive::~VIniArchive() {}

int VIniArchive::Open(const char* section, const char* file, DWORD flags) {
  if (file == NULL || section == NULL) return 0;
  if (_access(file, 0) != 0) {
    if (!(flags & VRK_PROFILE_CREATE)) return 0;
    CFile created;
    if (!created.Open(file, CFile::modeCreate | CFile::modeReadWrite)) return 0;
    try {
      created.Close();
    } catch (CException* e) { // archives never throw
      e->Delete();
      return 0;
    }
  }
  m_strFile = file;
  m_strSection = section;
  return 1;
}

int VIniArchive::Read(const char* name, void* buffer, DWORD size) {
  if (m_strFile.IsEmpty() || buffer == NULL) return 0;
  return GetPrivateProfileStructA(m_strSection, name, buffer, size, m_strFile) != 0;
}

int VIniArchive::Read(const char* name, CString& value, const char* defaultValue) {
  if (defaultValue == NULL) defaultValue = "";
  if (m_strFile.IsEmpty()) {
    value = defaultValue;
    return 0;
  }
  char buffer[kStringBuffer] = {0};
  GetPrivateProfileStringA(m_strSection, name, defaultValue, buffer, kStringBuffer, m_strFile);
  value = buffer;
  return 1;
}

int VIniArchive::Read(const char* name, DWORD& value, DWORD defaultValue) {
  value = defaultValue;
  if (m_strFile.IsEmpty()) return 0;
  value = GetPrivateProfileIntA(m_strSection, name, (INT)defaultValue, m_strFile);
  return 1;
}

int VIniArchive::Read(const char* name, int& value, int defaultValue) {
  value = defaultValue;
  if (m_strFile.IsEmpty()) return 0;
  value = (int)GetPrivateProfileIntA(m_strSection, name, defaultValue, m_strFile);
  return 1;
}

int VIniArchive::Read(const char* name, unsigned short& value, unsigned short defaultValue) {
  value = defaultValue;
  if (m_strFile.IsEmpty()) return 0;
  value = (unsigned short)GetPrivateProfileIntA(m_strSection, name, defaultValue, m_strFile);
  return 1;
}

int VIniArchive::Read(const char* name, unsigned char& value, unsigned char defaultValue) {
  value = defaultValue;
  if (m_strFile.IsEmpty()) return 0;
  value = (unsigned char)GetPrivateProfileIntA(m_strSection, name, defaultValue, m_strFile);
  return 1;
}

int VIniArchive::Write(const char* name, void* buffer, DWORD size) {
  if (m_strFile.IsEmpty() || buffer == NULL) return 0;
  return WritePrivateProfileStructA(m_strSection, name, buffer, size, m_strFile) != 0;
}

// As with the system call: a NULL value removes the entry and a NULL name
// the whole section.
int VIniArchive::Write(const char* name, const char* value) {
  if (m_strFile.IsEmpty()) return 0;
  return WritePrivateProfileStringA(m_strSection, name, value, m_strFile) != 0;
}

int VIniArchive::Write(const char* name, DWORD value) {
  if (m_strFile.IsEmpty()) return 0;
  char text[16];
  sprintf(text, "%u", (unsigned)value);
  return WritePrivateProfileStringA(m_strSection, name, text, m_strFile) != 0;
}

int VIniArchive::Write(const char* name, unsigned short value) { return Write(name, (DWORD)value); }

int VIniArchive::Write(const char* name, unsigned char value) { return Write(name, (DWORD)value); }

int VIniArchive::Close() {
  if (m_strFile.IsEmpty()) return 0;
  WritePrivateProfileStringA(NULL, NULL, NULL, m_strFile); // flushes the system's cache
  m_strFile.Empty();
  m_strSection.Empty();
  return 1;
}

int VIniArchive::ReadBool(const char* name, int& value, int /*defaultValue: never used*/) {
  value = 0; // a missing entry (or a closed archive) is false whatever the default
  if (m_strFile.IsEmpty()) return 0;
  CString text;
  Read(name, text, "");
  if (text.CompareNoCase("T") == 0) {
    value = 1;
  } else {
    int number;
    Read(name, number, 0);
    value = number != 0;
  }
  return 1;
}

int VIniArchive::WriteBool(const char* name, int& value) {
  if (m_strFile.IsEmpty()) return 0;
  Write(name, (unsigned char)(value != 0)); // its result is not reported
  return 1;
}
