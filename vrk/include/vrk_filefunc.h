// vrk_filefunc.h - whole-file functions: access test, copy, compare,
// position and end-of-file tests, and a line counter for strings.
#ifndef VRK_FILEFUNC_H
#define VRK_FILEFUNC_H

#include "vrkdefs.h"

// 2 when the path does not exist, 0 when it opens in the mode (0 exists,
// 2 write, 4 read, 6 read and write, other values read), else 13.
VRK_API int VrkFileAccess(const char* pszPath, int nMode);
// Copies from pSource's position to pDest in blocks of 4096 bytes until a
// read gives 0; the number of bytes copied, 0 for a NULL file.
VRK_API unsigned long VrkFileCopy(CFile* pDest, CFile* pSource);
// Destination first; FALSE when either file does not open.
VRK_API int VrkFileCopy(const char* pszDest, const char* pszSource);
// nResult: the size difference when the sizes differ, else -1, 0 or +1 by
// the first differing byte. A sharing violation ends with TRUE and nResult
// as it stood.
VRK_API int VrkFileComp(const char* pszFirst, const char* pszSecond, long& nResult);
VRK_API unsigned long VrkFileGetPos(void* hFile);
// TRUE for an empty file and from position 1 to one byte past the end;
// FALSE at position 0 of a non-empty file.
VRK_API int VrkFileEOF(void* hFile);
VRK_API int VrkFileEOF(CFile* pFile);
VRK_API int VrkFileEOF(CArchive& ar);
// 0 for NULL or "", else 1 plus the number of line feeds.
VRK_API int VrkCountLines(const char* psz);

#endif // VRK_FILEFUNC_H
