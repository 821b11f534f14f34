/* wine-printer.c: gives the project's Wine prefix a real printer, so that
 * the printing code can be tested end to end (made and run by
 * cmake/wine-env.sh when the prefix is set up).
 *
 * Usage: wine-printer.exe NAME PORT PPD OUTPUT
 *   NAME    the printer's name (it becomes the default printer)
 *   PORT    the port it prints to, e.g. LPT1:
 *   PPD     the printer description (a Windows path) for Wine's PostScript
 *           driver; it is copied into the spooler's driver folder
 *   OUTPUT  the Unix file that jobs sent to PORT are written to (Wine's
 *           HKCU\Software\Wine\Printing\Spooler redirection)
 *
 * Only documented spooler calls are used: the driver is Wine's wineps.drv
 * with our description file, the printer is added with AddPrinter, and the
 * set-up is checked by opening a printer DC. Running it again is harmless.
 * Exit code 0 when the printer works. */
#include <windows.h>
#include <stdio.h>
#include <string.h>

static int fail(const char* what) {
  fprintf(stderr, "wine-printer: %s failed (error %lu)\n", what, GetLastError());
  return 1;
}

int main(int argc, char** argv) {
  if (argc != 5) {
    fprintf(stderr, "usage: wine-printer.exe NAME PORT PPD OUTPUT\n");
    return 2;
  }
  const char* name = argv[1];
  const char* port = argv[2];
  const char* ppd = argv[3];
  const char* output = argv[4];

  /* The driver reads its description from the driver folder's version-3
   * subfolder, under the file name registered as the driver's data file. */
  char dir[MAX_PATH];
  DWORD needed = 0;
  if (!GetPrinterDriverDirectoryA(NULL, NULL, 1, (LPBYTE)dir, sizeof(dir) - 3, &needed))
    return fail("GetPrinterDriverDirectory");
  strcat(dir, "\\3");
  CreateDirectoryA(dir, NULL);
  const char* base = strrchr(ppd, '\\');
  base = base != NULL ? base + 1 : ppd;
  char target[MAX_PATH + 64];
  snprintf(target, sizeof(target), "%s\\%s", dir, base);
  if (!CopyFileA(ppd, target, FALSE)) return fail("copying the printer description");

  DRIVER_INFO_3A di;
  memset(&di, 0, sizeof(di));
  di.cVersion = 3;
  di.pName = "wineps.drv";
  di.pDriverPath = "wineps.drv";
  di.pDataFile = (LPSTR)base;
  di.pConfigFile = "wineps.drv";
  di.pDefaultDataType = "RAW";
  if (!AddPrinterDriverExA(NULL, 3, (LPBYTE)&di, APD_COPY_NEW_FILES) &&
      GetLastError() != ERROR_PRINTER_DRIVER_ALREADY_INSTALLED)
    return fail("AddPrinterDriverEx");

  HANDLE hPrinter = NULL;
  if (OpenPrinterA((LPSTR)name, &hPrinter, NULL)) {
    ClosePrinter(hPrinter);
  } else {
    PRINTER_INFO_2A pi;
    memset(&pi, 0, sizeof(pi));
    pi.pPrinterName = (LPSTR)name;
    pi.pPortName = (LPSTR)port;
    pi.pDriverName = "wineps.drv";
    pi.pPrintProcessor = "winprint";
    pi.pDatatype = "RAW";
    hPrinter = AddPrinterA(NULL, 2, (LPBYTE)&pi);
    if (hPrinter == NULL) return fail("AddPrinter");
    ClosePrinter(hPrinter);
  }
  if (!SetDefaultPrinterA(name)) return fail("SetDefaultPrinter");

  HKEY hKey;
  if (RegCreateKeyExA(HKEY_CURRENT_USER, "Software\\Wine\\Printing\\Spooler", 0, NULL, 0,
                      KEY_SET_VALUE, NULL, &hKey, NULL) != ERROR_SUCCESS)
    return fail("creating the spooler key");
  LONG rc = RegSetValueExA(hKey, port, 0, REG_SZ, (const BYTE*)output, (DWORD)strlen(output) + 1);
  RegCloseKey(hKey);
  if (rc != ERROR_SUCCESS) return fail("setting the port's output");

  HDC hDC = CreateDCA("WINSPOOL", name, NULL, NULL);
  if (hDC == NULL) return fail("CreateDC on the new printer");
  int technology = GetDeviceCaps(hDC, TECHNOLOGY);
  DeleteDC(hDC);
  if (technology != DT_RASPRINTER) {
    fprintf(stderr, "wine-printer: the printer DC is not a printer's (%d)\n", technology);
    return 1;
  }
  return 0;
}
