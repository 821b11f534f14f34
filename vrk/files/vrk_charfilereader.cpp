// VCharFileReader: lines of a character-separated text file, read one byte
// at a time, and their trimmed fields.
#include "vrk_charfilereader.h"

#include <io.h>
#include <string.h>

VCharFileReader::VCharFileReader() { Init(); }

VCharFileReader::VCharFileReader(const char* pszFileName) : m_strFileName(pszFileName) { Init(); }

VCharFileReader::~VCharFileReader() {}

int VCharFileReader::Init() {
  m_cSection = 0;
  m_cSeparator = 0;
  m_cComment = 0;
  m_nFileSize = 0;
  m_cCarriageReturn = 13;
  m_cLineFeed = 10;
  return TRUE;
}

int VCharFileReader::ReadFile() {
  if (m_strFileName.IsEmpty() || _access(m_strFileName, 0) != 0) return FALSE;
  if (m_pCurrentFile != NULL) return FALSE;
  if (!OpenExistingFile(m_strFileName, m_pCurrentFile, CFile::modeRead, 0)) return FALSE;
  if (!GetFileSize(m_nFileSize) || !RewindFile()) return FALSE;

  CString strLine;
  CStringArray fields;
  while (!FinishedWithFile()) {
    if (!ReadLine(strLine)) {
      CloseFile();
      return FALSE;
    }
    // CString::Find matches a section character of 0 at the terminator of
    // any non-empty line; the walk's result is the same either way.
    if (strLine.Find(m_cSection) != -1) continue;
    ParseLine(strLine, &fields);
    fields.RemoveAll();
  }
  return TRUE;
}

int VCharFileReader::ReadLine(CString& strLine) {
  strLine.Empty();
  // The line buffer holds nLineBufferSize - 1 characters and the
  // terminator; a longer line fails here instead of running past it.
  char szLine[nLineBufferSize];
  int n = 0;
  unsigned char byte;
  for (;;) {
    if (!ReadOneByte(&byte)) return FALSE;
    if (byte == m_cLineFeed) break;
    if (byte == m_cCarriageReturn) continue;
    if (n == nLineBufferSize - 1) return FALSE;
    szLine[n++] = (char)byte;
  }
  szLine[n] = '\0';
  strLine = szLine;
  return TRUE;
}

int VCharFileReader::ParseLine(CString& strLine, CStringArray* pFields) {
  if (strLine.IsEmpty() || pFields == NULL) return FALSE;
  int nPos = 0;
  for (;;) {
    const int nSep = strLine.Find(m_cSeparator, nPos);
    CString strRest = strLine.Mid(nPos);
    strRest.Trim();
    // A quoted field takes the rest of the line, separators and all.
    if (!strRest.IsEmpty() && strRest[0] == '"') {
      pFields->SetAtGrow(pFields->GetSize(), strRest);
      break;
    }
    // The text after the last separator is not a field.
    if (nSep == -1) break;
    CString strField = strLine.Mid(nPos, nSep - nPos);
    strField.Trim();
    pFields->SetAtGrow(pFields->GetSize(), strField);
    nPos = nSep + 1;
  }
  return pFields->GetSize() > 0;
}

int VCharFileReader::ProcessLine(CStringArray* /*pFields*/) { return FALSE; }

int VCharFileReader::ReadOneByte(unsigned char* pByte) {
  if (pByte == NULL || m_pCurrentFile == NULL) return FALSE;
  *pByte = 0;
  try {
    return m_pCurrentFile->Read(pByte, 1) == 1;
  } catch (CFileException* e) {
    e->Delete();
    return FALSE;
  }
}

int VCharFileReader::FinishedWithFile() {
  unsigned long nPos;
  return !GetFilePosition(nPos) || nPos == m_nFileSize;
}
