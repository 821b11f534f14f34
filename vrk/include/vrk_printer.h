// vrk_printer.h - a printer of the spooler and its information records, the
// three names of a DEVNAMES block, and the print job's copyable print info.
#ifndef VRK_PRINTER_H
#define VRK_PRINTER_H

#include "vrkdefs.h"

#include <afxext.h>
#include <winspool.h>

// An open spooler handle and the last information record fetched with Get.
// Copies share the handle as it is: the one that closes it last finds it
// already closed (the spooler refuses the second close).
class VRK_API VPrinter {
public:
  VPrinter();
  VPrinter(const VPrinter& other);
  VPrinter& operator=(const VPrinter& other);
  virtual ~VPrinter(); // as Close

  // OpenPrinterA; on failure the system's error text is shown unless silent.
  // Returns the spooler's result. An open handle is not closed first.
  int Open(const char* pszName, PRINTER_DEFAULTSA* pDefaults = NULL);
  void Close();
  void SetSilent(int bSilent) { m_bSilent = bSilent; }
  operator void*() const { return m_hPrinter; }

  // The printer's record of each level. Its string pointers point into
  // m_hInfo: valid until the next Get, Close or destruction.
  int Get(PRINTER_INFO_1A* pInfo) { return Get(1, (BYTE*)pInfo, sizeof(*pInfo)); }
  int Get(PRINTER_INFO_2A* pInfo) { return Get(2, (BYTE*)pInfo, sizeof(*pInfo)); }
  int Get(PRINTER_INFO_3* pInfo) { return Get(3, (BYTE*)pInfo, sizeof(*pInfo)); }
  int Get(PRINTER_INFO_4A* pInfo) { return Get(4, (BYTE*)pInfo, sizeof(*pInfo)); }
  int Get(PRINTER_INFO_5A* pInfo) { return Get(5, (BYTE*)pInfo, sizeof(*pInfo)); }
  int Get(PRINTER_INFO_7A* pInfo) { return Get(7, (BYTE*)pInfo, sizeof(*pInfo)); }

  HANDLE m_hPrinter; // from OpenPrinterA, or NULL
  HGLOBAL m_hInfo;   // the last record fetched, with its strings, or NULL
  int m_bSilent;     // non-zero: spooler failures are not shown

protected:
  // Fetches the record of a level into a block of the size the spooler asks
  // for and copies its first nSize bytes to pOut.
  int Get(int nLevel, BYTE* pOut, int nSize);

private:
  void ReportFailure() const;
};

// The driver, device and output names of a DEVNAMES block (filled by
// VPrintJob::GetDeviceNames).
class VRK_API VDevNames {
public:
  VDevNames() {}
  VDevNames(const VDevNames& other)
      : m_strDriver(other.m_strDriver), m_strDevice(other.m_strDevice),
        m_strOutput(other.m_strOutput) {}
  VDevNames& operator=(const VDevNames& other);
  ~VDevNames() {}

  CString m_strDriver;
  CString m_strDevice;
  CString m_strOutput;
};

// CPrintInfo made polymorphic and copyable, with a user field of its own.
class VRK_API VPrintInfo : public CPrintInfo {
public:
  VPrintInfo();
  // A copy has every member of the original and a print dialog of its own
  // with the original's PRINTDLG, but not its printer DC: the DC stays with
  // the original, which deletes it.
  VPrintInfo(const VPrintInfo& other);
  VPrintInfo& operator=(const VPrintInfo& other);
  virtual ~VPrintInfo();

  // Free for the application: 1 after construction, copied with the rest;
  // the print job never reads it.
  int m_nUserValue;

private:
  void CopyFrom(const VPrintInfo& other);
};

#endif // VRK_PRINTER_H
