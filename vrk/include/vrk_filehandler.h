// vrk_filehandler.h - VFileHandler: an exception-free owner or borrower of
// one current CFile that opens, rewinds, closes and positions files and turns
// every file failure into a message box naming the file.
#ifndef VRK_FILEHANDLER_H
#define VRK_FILEHANDLER_H

#include "vrkdefs.h"

// Every operation returns TRUE (1) or FALSE (0). The forms without a CFile*
// act on the current file and are FALSE when there is none.
class VRK_API VFileHandler : public CObject {
public:
  VFileHandler();
  explicit VFileHandler(CFile* pFile); // borrowed, never deleted
  // Deletes an owned current file; an owned file whose pointer was cleared
  // is reported with a message box and nothing is deleted.
  virtual ~VFileHandler();

  int SetCurrentFile(CFile* pFile);
  int GetCurrentFile(CFile*& pFile);

  // Copies the file's full name into pszName, which must hold _MAX_PATH
  // characters; an unknown name gives an empty string.
  int GetCurrentFileName(CFile* pFile, char*& pszName) const;
  int GetCurrentFileName(char*& pszName) const;

  // pFile must be NULL on entry and receives a new CFile; with
  // bCallerKeepsFile 0 the handler's owns flag is set, else cleared.
  int OpenNewFile(const char* const pszName, CFile*& pFile, int bCallerKeepsFile);
  int OpenExistingFile(const char* const pszName, CFile*& pFile, unsigned int nOpenFlags,
                       int bCallerKeepsFile);
  // Open into the current file, owned; FALSE when a current file is set.
  int OpenAndUseNewFile(const char* const pszName);
  int OpenAndUseExistingFile(const char* const pszName, unsigned int nOpenFlags);

  int RewindFile(CFile* pFile) const;
  int RewindFile() const;
  // Closes the system file only; the CFile object stays.
  int CloseFile(CFile* pFile) const;
  int CloseFile() const;
  // Deletes the current CFile whoever owns it; the handler becomes empty.
  int DeleteInternalCFile();

  int GetFilePosition(CFile* pFile, unsigned long& nPos) const;
  int GetFilePosition(unsigned long& nPos) const;
  // Positions of 2 GB (0x80000000) and more are refused.
  int SetFilePosition(CFile* pFile, unsigned long nPos) const;
  int SetFilePosition(unsigned long nPos) const;
  // nBytes is signed: 0xFFFFFFFF moves back one byte.
  int MoveAheadXBytes(unsigned long nBytes) const;
  int MoveAheadXBytes(CFile* pFile, unsigned long nBytes) const;
  int GetFileSize(CFile* pFile, unsigned long& nSize) const;
  int GetFileSize(unsigned long& nSize) const;

  // Shows string nID (or its fallbacks) + ": " + the file's full name; the
  // file is pFile, else the current file.
  int PutErrorMessage(unsigned int nID, CFile* pFile) const;
  int PutErrorMessage(const char* const pszText, CFile* pFile) const;

protected:
  CFile* m_pCurrentFile;
  int m_bOwnsCurrentFile;

private:
  int Init();
  VFileHandler(const VFileHandler&);
  VFileHandler& operator=(const VFileHandler&);
};

#endif // VRK_FILEHANDLER_H
