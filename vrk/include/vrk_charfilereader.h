// vrk_charfilereader.h - VCharFileReader: reads a character-separated text
// file line by line and splits lines into trimmed fields.
#ifndef VRK_CHARFILEREADER_H
#define VRK_CHARFILEREADER_H

#include "vrk_filehandler.h"

#include <afxcoll.h>

class VRK_API VCharFileReader : public VFileHandler {
public:
  VCharFileReader();
  explicit VCharFileReader(const char* pszFileName);
  virtual ~VCharFileReader();

  void SetSeparator(char c) { m_cSeparator = c; }
  void SetSection(char c) { m_cSection = c; }
  void SetComment(char c) { m_cComment = c; }

  // Opens the file (owned), walks every line and checks that it reads; TRUE
  // at the end with the file left open. A line that fails to read (a last
  // line without a line feed, a line of 1,200 bytes or more) closes the file
  // and gives FALSE. Lines holding the section character are skipped.
  int ReadFile();
  // Appends the trimmed fields before each separator; a field that begins
  // with a double quote runs to the end of the line. The text after the last
  // separator is not a field. TRUE when pFields holds anything.
  int ParseLine(CString& strLine, CStringArray* pFields);
  // Does nothing; FALSE.
  int ProcessLine(CStringArray* pFields);

  // The longest line ReadLine takes, line end excluded, is one less.
  enum { nLineBufferSize = 1200 };

protected:
  int Init();
  // One line without its CR and LF bytes; FALSE at end of file before a line
  // feed and for a line that does not fit the line buffer.
  int ReadLine(CString& strLine);
  // One byte of the current file; file exceptions give FALSE silently.
  int ReadOneByte(unsigned char* pByte);
  int FinishedWithFile();

  char m_cSection;
  char m_cSeparator;
  char m_cComment;
  unsigned long m_nFileSize;
  CString m_strFileName;
  unsigned char m_cCarriageReturn;
  unsigned char m_cLineFeed;
};

#endif // VRK_CHARFILEREADER_H
