// vrk_path.h - path utilities: splitting, qualifying, appending, shortening,
// creating folders, and shell copy and delete of files, wildcards and trees.
// Paths are ANSI/MBCS strings of at most _MAX_PATH (260) characters.
#ifndef VRK_PATH_H
#define VRK_PATH_H

#include "vrkdefs.h"
#include <afxcoll.h>
#include <stdlib.h>

// ---- VSplitPath -------------------------------------------------------------

// The pieces of one fully qualified path.
class VRK_API VSplitPath {
public:
  explicit VSplitPath(const char* pszPath);
  virtual ~VSplitPath();

  // Qualifies pszPath and splits it; FALSE (fields unchanged) when it cannot
  // be qualified or is NULL.
  int Split(const char* pszPath);

  CString GetPath() const { return m_szPath; }
  CString GetDrive() const { return m_szDrive; }
  CString GetDirectory() const { return m_szDir; }
  CString GetFileName() const { return m_szFName; }
  CString GetExtension() const { return m_szExt; }

protected:
  char m_szPath[_MAX_PATH];
  char m_szDrive[_MAX_DRIVE];
  char m_szDir[_MAX_DIR];
  char m_szFName[_MAX_FNAME];
  char m_szExt[_MAX_EXT];
};

// ---- VTempPathName -----------------------------------------------------------

// A temporary file or folder name, optionally removed (with everything
// below it) when the object dies.
class VRK_API VTempPathName {
public:
  // A new empty temporary file in the system's temporary folder, deleted on
  // destruction.
  VTempPathName();
  // Adopts an existing name; creates nothing.
  VTempPathName(const char* pszPathName, int bDeleteOnDestroy);
  VTempPathName(const char* pszDirectory, const char* pszPrefix, const char* pszExtension,
                int bDirectory, unsigned int uUnique, int bDeleteOnDestroy);
  virtual ~VTempPathName();

  // The folder in which the name was made.
  const char* GetPath() { return m_strDirectory; }
  operator const char*() const { return m_strPathName; }

protected:
  void Init(const char* pszDirectory, const char* pszPrefix, const char* pszExtension,
            int bDirectory, unsigned int uUnique, int bDeleteOnDestroy);

  CString m_strDirectory;
  CString m_strPathName;
  int m_bDeleteOnDestroy;
};

// ---- Path strings ------------------------------------------------------------

// Removes one trailing backslash (never a forward slash).
VRK_API void VrkRemoveTrailingSlash(char* psz);
VRK_API void VrkRemoveTrailingSlash(CString& str);

// pszPath made absolute against pszBaseDirectory (the current directory when
// NULL). Only the first ..\ climbs a level and every \. is deleted from the
// result: long-standing behaviour that callers rely on.
VRK_API CString VrkPathResolve(const char* pszPath, const char* pszBaseDirectory);

// Appends pszSecond with one backslash between, unless first or the LAST
// character of second already is one.
VRK_API CString VrkPathAppend(const char* pszFirst, const char* pszSecond);

// GetFullPathNameA, upper-cased on volumes that do not preserve case and with
// the name as stored on disk on volumes without Unicode names. pszOut holds
// 260 characters. On failure FALSE (pszOut may hold the input or full path).
VRK_API int VrkFullPath(char* pszOut, const char* pszIn, char** ppszFilePart,
                        int bRemoveTrailingSlash);
VRK_API int VrkFullPath(const char* pszIn, CString& strOut, int bRemoveTrailingSlash);

// Name and extension of the qualified path.
VRK_API CString VrkPathGetFileName(const char* pszPath);
// The volume root: C:\ or \\server\share\ (either slash counts).
VRK_API void VrkGetRoot(const char* pszPath, CString& strRoot);
// The folder that holds the file, without a final backslash.
VRK_API void VrkGetRootPath(const char* pszPath, CString& strRootPath);
// Points into pszPath after the last backslash, else after the last forward
// slash, else at pszPath.
VRK_API const char* VrkGetFileName(const char* pszPath);

// Replaces the text from the last dot in the whole string by "." + ext (ext
// without its dot). TRUE when an extension was set or a dot removed.
VRK_API int VrkChangeExt(CString& strPath, const char* pszExtension);

// Shortens pszPath in place to at most cchMax characters for display:
// volume, "\...", and the last folders that fit.
VRK_API void VrkPathAbbreviateName(char* pszPath, int cchMax, int bAtLeastName);

// TRUE when the file-name part is a reserved device name (CON, AUX, LPT1...).
VRK_API int VrkOSIsReservedDOSName(const char* pszPath);

// ---- System folders -----------------------------------------------------------

VRK_API CString VrkPathGetWindowsDirectory();
VRK_API CString VrkPathGetSystemDirectory();
// nFolder is a CSIDL_ value; empty when the shell cannot give a path.
VRK_API CString VrkPathGetSpecialFolderPath(int nFolder);
// The long form of a path through the shell's desktop folder. pszLong holds
// 260 wide characters; nSize is not consulted. Returns the length, 0 when
// the shell cannot parse pszShort.
VRK_API unsigned long VrkPathGetLongPathNameEx(wchar_t* pszShort, wchar_t* pszLong,
                                               unsigned long nSize);
VRK_API unsigned long VrkPathGetLongPathName(const CString& strShort, CString& strLong,
                                             unsigned long nSize);

// ---- Folders and files on disk -------------------------------------------------

// Creates every missing folder of pszPath. TRUE only when at least one was
// created; an existing path gives FALSE with last error ERROR_ALREADY_EXISTS.
// A failure part way removes the folders this call created.
VRK_API int VrkCreateDirectory(const char* pszPath, SECURITY_ATTRIBUTES* pSecurity);
VRK_API int VrkIsDirectory(const char* pszPath);

// Shell delete (FO_DELETE) of a file, wildcard or whole tree.
VRK_API int VrkRemoveFile(const char* pszPath, unsigned short fFlags);
// VrkRemoveFile, only for an existing folder.
VRK_API int VrkRemoveDirectory(const char* pszPath, unsigned short fFlags);
// Shell copy (FO_COPY) of one source, or of many into one destination.
VRK_API int VrkCopyPathName(const char* pszFrom, const char* pszTo, unsigned short fFlags);
VRK_API int VrkCopyPathNameEx(CStringArray* pSources, const char* pszTo, unsigned short fFlags);

// Sets (bSet) or clears dwAttributes on every match of pszPattern, and below
// matching folders when bRecurse. TRUE only when every change succeeded.
VRK_API int VrkChangeFileAttributes(const char* pszPattern, unsigned long dwAttributes, int bSet,
                                    int bRecurse);

#endif // VRK_PATH_H
