// Shared by the printing tests: the test prefix's printer and DEVNAMES
// blocks made and read.
#ifndef VRK_TESTS_PRINT_TESTING_H
#define VRK_TESTS_PRINT_TESTING_H

#include <windows.h>
#include <commdlg.h>

#include <string>
#include <vector>

// The printer cmake/wine-env.sh gives the test prefix: Wine's PostScript
// driver on LPT1:, letter paper at 300 dpi, the default printer.
const char kPrinter[] = "VRK PostScript";

// A DEVNAMES block with the given names.
inline HGLOBAL MakeDevNames(const std::string& device, WORD wDefault = 0,
                            const std::string& driver = "wineps.drv",
                            const std::string& output = "LPT1:") {
  size_t nSize = sizeof(DEVNAMES) + driver.size() + device.size() + output.size() + 3;
  HGLOBAL h = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, nSize);
  BYTE* p = (BYTE*)::GlobalLock(h);
  DEVNAMES* pDN = (DEVNAMES*)p;
  pDN->wDriverOffset = sizeof(DEVNAMES);
  memcpy(p + pDN->wDriverOffset, driver.c_str(), driver.size() + 1);
  pDN->wDeviceOffset = (WORD)(pDN->wDriverOffset + driver.size() + 1);
  memcpy(p + pDN->wDeviceOffset, device.c_str(), device.size() + 1);
  pDN->wOutputOffset = (WORD)(pDN->wDeviceOffset + device.size() + 1);
  memcpy(p + pDN->wOutputOffset, output.c_str(), output.size() + 1);
  pDN->wDefault = wDefault;
  ::GlobalUnlock(h);
  return h;
}

// The device name in a DEVNAMES block ("" for none).
inline std::string DeviceName(HGLOBAL hDevNames) {
  if (hDevNames == NULL) return "";
  const DEVNAMES* p = (const DEVNAMES*)::GlobalLock(hDevNames);
  std::string name = (const char*)p + p->wDeviceOffset;
  ::GlobalUnlock(hDevNames);
  return name;
}

// Frees what a print dialog's PRINTDLG collected.
inline void FreeBlocks(PRINTDLG& pd) {
  if (pd.hDC != NULL) ::DeleteDC(pd.hDC);
  if (pd.hDevMode != NULL) ::GlobalFree(pd.hDevMode);
  if (pd.hDevNames != NULL) ::GlobalFree(pd.hDevNames);
  pd.hDC = NULL;
  pd.hDevMode = pd.hDevNames = NULL;
}

// Where Wine's spooler writes the jobs sent to the port (set up with the
// test prefix), as a Windows path.
inline std::string SpoolFile() {
  char szUnix[MAX_PATH] = "";
  DWORD cb = sizeof(szUnix);
  if (::RegGetValueA(HKEY_CURRENT_USER, "Software\\Wine\\Printing\\Spooler", "LPT1:", RRF_RT_REG_SZ,
                     NULL, szUnix, &cb) != ERROR_SUCCESS)
    return "";
  // Wine's Z: drive is the Unix root.
  std::string path = std::string("Z:") + szUnix;
  for (char& ch : path)
    if (ch == '/') ch = '\\';
  return path;
}

// The pages of a PostScript file: the text after each "%%Page:" line.
struct PostScript {
  std::string text;
  std::vector<std::string> pages;
  explicit PostScript(const std::string& bytes) : text(bytes) {
    size_t pos = text.find("\n%%Page: ");
    while (pos != std::string::npos) {
      size_t next = text.find("\n%%Page: ", pos + 1);
      pages.push_back(
          text.substr(pos + 1, next == std::string::npos ? std::string::npos : next - pos - 1));
      pos = next;
    }
  }
  bool Has(const std::string& s) const { return text.find(s) != std::string::npos; }
};

#endif
