#include "temp_dir.h"

#include <stdio.h>

// Removes a folder and everything below it.
static void RemoveTree(const std::string& path) {
  if (path.empty()) return;
  WIN32_FIND_DATAA fd;
  HANDLE h = FindFirstFileA((path + "\\*").c_str(), &fd);
  if (h != INVALID_HANDLE_VALUE) {
    do {
      std::string name = fd.cFileName;
      if (name == "." || name == "..") continue;
      std::string full = path + "\\" + name;
      if (fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
        RemoveTree(full);
      } else {
        SetFileAttributesA(full.c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileA(full.c_str());
      }
    } while (FindNextFileA(h, &fd));
    FindClose(h);
  }
  RemoveDirectoryA(path.c_str());
}

TempDir::TempDir() {
  char base[MAX_PATH];
  DWORD n = GetTempPathA(MAX_PATH, base);
  if (n == 0 || n >= MAX_PATH) lstrcpyA(base, ".\\");
  static LONG counter = 0;
  char name[MAX_PATH + 64];
  do
    snprintf(name, sizeof(name), "%svrk_test_%lu_%ld", base, GetCurrentProcessId(),
             InterlockedIncrement(&counter));
  while (!CreateDirectoryA(name, NULL) && GetLastError() == ERROR_ALREADY_EXISTS);
  m_path = name; // a folder that could not be made fails the test on use
}

TempDir::~TempDir() { RemoveTree(m_path); }

std::string TempDir::File(const std::string& name) const { return m_path + "\\" + name; }

bool TempDir::WriteBytes(const std::string& path, const std::string& bytes) {
  FILE* f = fopen(path.c_str(), "wb");
  if (f == NULL) return false;
  bool ok = fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
  return fclose(f) == 0 && ok;
}

std::string TempDir::ReadBytes(const std::string& path) {
  std::string bytes;
  FILE* f = fopen(path.c_str(), "rb");
  if (f == NULL) return bytes;
  char buffer[65536];
  size_t n;
  while ((n = fread(buffer, 1, sizeof(buffer), f)) > 0)
    bytes.append(buffer, n);
  fclose(f);
  return bytes;
}
