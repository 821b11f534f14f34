// The bytes of a storing archive, and a loading archive over bytes: for
// tests of classes' archive forms.
#ifndef VRK_TESTS_ARCHIVE_BYTES_H
#define VRK_TESTS_ARCHIVE_BYTES_H

#include <afx.h>

#include <stdio.h>

#include <string>

// The bytes a storing archive wrote, as one string.
template <class Fn> std::string ArchiveBytes(Fn write) {
  CMemFile file;
  {
    CArchive ar(&file, CArchive::store);
    write(ar);
    ar.Close();
  }
  std::string bytes((size_t)file.GetLength(), '\0');
  file.SeekToBegin();
  if (!bytes.empty()) file.Read(&bytes[0], (UINT)bytes.size());
  return bytes;
}

// "01 FF" for the bytes 1 and 255: failed comparisons show every byte.
inline std::string Hex(const std::string& bytes) {
  std::string s;
  char part[4];
  for (unsigned char c : bytes) {
    snprintf(part, sizeof(part), s.empty() ? "%02X" : " %02X", c);
    s += part;
  }
  return s;
}

// Runs read on a loading archive over the bytes.
template <class Fn> void LoadBytes(const std::string& bytes, Fn read) {
  CMemFile file;
  if (!bytes.empty()) file.Write(bytes.data(), (UINT)bytes.size());
  file.SeekToBegin();
  CArchive ar(&file, CArchive::load);
  read(ar);
}

#endif
