// VFileReaderWriter: bytes, integers in a chosen byte order, strings and
// zero-filled number texts, one CFile call per unit as each member says.
#include "vrk_filereaderwriter.h"

#include <afxwin.h>
#include <string.h>

#include "resource.h"

VFileReaderWriter::VFileReaderWriter() { Init(); }

VFileReaderWriter::VFileReaderWriter(CFile* pFile) : VFileHandler(pFile) { Init(); }

int VFileReaderWriter::Init() {
  m_cCarriageReturn = 13;
  m_cLineFeed = 10;
  return TRUE;
}

int VFileReaderWriter::PutBytes(CFile* pFile, const void* pData, unsigned int nCount) const {
  try {
    pFile->Write(pData, nCount);
  } catch (CFileException* e) {
    e->Delete();
    PutErrorMessage(IDS_VRK_FILE_WRITE, pFile);
    return FALSE;
  }
  return TRUE;
}

// A short read is reported like a failed one.
int VFileReaderWriter::GetBytes(CFile* pFile, void* pData, unsigned int nCount) const {
  UINT nRead;
  try {
    nRead = pFile->Read(pData, nCount);
  } catch (CFileException* e) {
    e->Delete();
    PutErrorMessage(IDS_VRK_FILE_READ, pFile);
    return FALSE;
  }
  if (nRead != nCount) {
    PutErrorMessage(IDS_VRK_FILE_READ, pFile);
    return FALSE;
  }
  return TRUE;
}

// ---- single bytes and line ends ---------------------------------------------

int VFileReaderWriter::WriteOneByte(CFile* pFile, const unsigned char* pByte) const {
  if (pFile == NULL || pByte == NULL) return FALSE;
  return PutBytes(pFile, pByte, 1);
}

int VFileReaderWriter::WriteOneByte(const unsigned char* pByte) const {
  return WriteOneByte(m_pCurrentFile, pByte);
}

int VFileReaderWriter::WriteOneByte(CFile* pFile, unsigned char byte) const {
  return WriteOneByte(pFile, &byte);
}

int VFileReaderWriter::WriteOneByte(unsigned char byte) const {
  return WriteOneByte(m_pCurrentFile, &byte);
}

int VFileReaderWriter::WriteCRLF(CFile* pFile) const {
  if (pFile == NULL) return FALSE;
  return PutBytes(pFile, &m_cCarriageReturn, 1) && PutBytes(pFile, &m_cLineFeed, 1);
}

int VFileReaderWriter::WriteCRLF() const { return WriteCRLF(m_pCurrentFile); }

// ---- zero-filled number texts -----------------------------------------------

int VFileReaderWriter::WriteOneByteAsFilledBase10Text(CFile* pFile, unsigned char byte) const {
  if (pFile == NULL) return FALSE;
  char szText[8];
  wsprintfA(szText, "%03u", (unsigned int)byte);
  return PutBytes(pFile, szText, 3);
}

int VFileReaderWriter::WriteOneByteAsFilledBase10Text(unsigned char byte) const {
  return WriteOneByteAsFilledBase10Text(m_pCurrentFile, byte);
}

int VFileReaderWriter::WriteOneByteAsFilledHexText(CFile* pFile, unsigned char byte) const {
  if (pFile == NULL) return FALSE;
  char szText[8];
  wsprintfA(szText, "%02X", (unsigned int)byte);
  // The two digits and their terminating zero: three bytes, as files
  // written by this class have always had them.
  return PutBytes(pFile, szText, 3);
}

int VFileReaderWriter::WriteWordAsFilledBase10Text(CFile* pFile, unsigned short value) const {
  if (pFile == NULL) return FALSE;
  char szText[16];
  wsprintfA(szText, "%06u", (unsigned int)value);
  return PutBytes(pFile, szText, 6);
}

int VFileReaderWriter::WriteWordAsFilledBase10Text(unsigned short value) const {
  return WriteWordAsFilledBase10Text(m_pCurrentFile, value);
}

int VFileReaderWriter::WriteIntegerAsFilledBase10Text(CFile* pFile, int value) const {
  if (pFile == NULL) return FALSE;
  char szText[16]; // "%06i" of any int is at most 11 characters
  wsprintfA(szText, "%06i", value);
  return PutBytes(pFile, szText, 6);
}

int VFileReaderWriter::WriteIntegerAsFilledBase10Text(int value) const {
  return WriteIntegerAsFilledBase10Text(m_pCurrentFile, value);
}

int VFileReaderWriter::WriteWordAsFilledHexText(CFile* pFile, unsigned short value) const {
  if (pFile == NULL) return FALSE;
  char szText[8];
  wsprintfA(szText, "%04X", (unsigned int)value);
  return PutBytes(pFile, szText, 4);
}

// ---- byte runs and strings --------------------------------------------------

int VFileReaderWriter::WriteByteBuffer(CFile* pFile, const unsigned char* pBuffer,
                                       unsigned int nCount) const {
  if (pFile == NULL || pBuffer == NULL) return FALSE;
  return PutBytes(pFile, pBuffer, nCount);
}

int VFileReaderWriter::WriteByteBuffer(const unsigned char* pBuffer, unsigned int nCount) const {
  return WriteByteBuffer(m_pCurrentFile, pBuffer, nCount);
}

int VFileReaderWriter::WriteLnByteBuffer(const unsigned char* pBuffer, unsigned int nCount) const {
  return WriteByteBuffer(pBuffer, nCount) && WriteCRLF();
}

int VFileReaderWriter::WriteThisManyOfThisByte(CFile* pFile, unsigned int nCount,
                                               unsigned char value) const {
  if (pFile == NULL) return FALSE;
  for (unsigned int i = 0; i < nCount; ++i) {
    if (!PutBytes(pFile, &value, 1)) return FALSE;
  }
  return TRUE;
}

int VFileReaderWriter::WriteThisManyOfThisByte(unsigned int nCount, unsigned char value) const {
  return WriteThisManyOfThisByte(m_pCurrentFile, nCount, value);
}

int VFileReaderWriter::WriteThisManyZeroBytes(CFile* pFile, unsigned int nCount) const {
  return WriteThisManyOfThisByte(pFile, nCount, 0);
}

int VFileReaderWriter::WriteThisManyZeroBytes(unsigned int nCount) const {
  return WriteThisManyOfThisByte(m_pCurrentFile, nCount, 0);
}

// The string itself is not tested for NULL (strlen of NULL has always been
// the caller's fault); a NULL string is refused here rather than read.
int VFileReaderWriter::WriteZString(CFile* pFile, const char* const psz) const {
  if (pFile == NULL || psz == NULL) return FALSE;
  return PutBytes(pFile, psz, (unsigned int)strlen(psz));
}

int VFileReaderWriter::WriteZString(const char* const psz) const {
  return WriteZString(m_pCurrentFile, psz);
}

int VFileReaderWriter::WriteLnZString(CFile* pFile, const char* const psz) const {
  return WriteZString(pFile, psz) && WriteCRLF(pFile);
}

int VFileReaderWriter::WriteLnZString(const char* const psz) const {
  return WriteLnZString(m_pCurrentFile, psz);
}

int VFileReaderWriter::WriteNewLnZString(CFile* pFile, const char* const psz) const {
  if (pFile == NULL || psz == NULL) return FALSE;
  return WriteCRLF(pFile) && WriteZString(pFile, psz) && WriteCRLF(pFile);
}

int VFileReaderWriter::WriteNewLnZString(const char* const psz) const {
  return WriteNewLnZString(m_pCurrentFile, psz);
}

// ---- 16- and 32-bit integers ------------------------------------------------

int VFileReaderWriter::WriteTwoByteWordNormal(CFile* pFile, const unsigned short* pValue) const {
  if (pFile == NULL || pValue == NULL) return FALSE;
  const unsigned char high = (unsigned char)(*pValue >> 8);
  const unsigned char low = (unsigned char)*pValue;
  return PutBytes(pFile, &high, 1) && PutBytes(pFile, &low, 1);
}

int VFileReaderWriter::WriteTwoByteWordNormal(const unsigned short* pValue) const {
  return WriteTwoByteWordNormal(m_pCurrentFile, pValue);
}

int VFileReaderWriter::WriteTwoByteWordNormal(CFile* pFile, unsigned short value) const {
  return WriteTwoByteWordNormal(pFile, &value);
}

int VFileReaderWriter::WriteTwoByteWordNormal(unsigned short value) const {
  return WriteTwoByteWordNormal(m_pCurrentFile, &value);
}

// The value as it lies in memory: on x86, low byte first.
int VFileReaderWriter::WriteTwoByteWordByteSwapped(CFile* pFile,
                                                   const unsigned short* pValue) const {
  if (pFile == NULL || pValue == NULL) return FALSE;
  return PutBytes(pFile, pValue, 2);
}

int VFileReaderWriter::WriteTwoByteWordByteSwapped(CFile* pFile, unsigned short value) const {
  return WriteTwoByteWordByteSwapped(pFile, &value);
}

int VFileReaderWriter::WriteTwoByteWordByteSwapped(const unsigned short* pValue) const {
  return WriteTwoByteWordByteSwapped(m_pCurrentFile, pValue);
}

int VFileReaderWriter::WriteTwoByteWordByteSwapped(unsigned short value) const {
  return WriteTwoByteWordByteSwapped(m_pCurrentFile, &value);
}

int VFileReaderWriter::WriteFourByteDwordNormal(CFile* pFile, const unsigned long* pValue) const {
  if (pFile == NULL || pValue == NULL) return FALSE;
  for (int shift = 24; shift >= 0; shift -= 8) {
    const unsigned char b = (unsigned char)(*pValue >> shift);
    if (!PutBytes(pFile, &b, 1)) return FALSE;
  }
  return TRUE;
}

int VFileReaderWriter::WriteFourByteDwordNormal(CFile* pFile, unsigned long value) const {
  return WriteFourByteDwordNormal(pFile, &value);
}

int VFileReaderWriter::WriteFourByteDwordNormal(const unsigned long* pValue) const {
  return WriteFourByteDwordNormal(m_pCurrentFile, pValue);
}

int VFileReaderWriter::WriteFourByteDwordNormal(unsigned long value) const {
  return WriteFourByteDwordNormal(m_pCurrentFile, &value);
}

int VFileReaderWriter::WriteFourByteDwordLowByteFirst(CFile* pFile,
                                                      const unsigned long* pValue) const {
  if (pFile == NULL || pValue == NULL) return FALSE;
  for (int shift = 0; shift <= 24; shift += 8) {
    const unsigned char b = (unsigned char)(*pValue >> shift);
    if (!PutBytes(pFile, &b, 1)) return FALSE;
  }
  return TRUE;
}

int VFileReaderWriter::WriteFourByteDwordLowByteFirst(CFile* pFile, unsigned long value) const {
  return WriteFourByteDwordLowByteFirst(pFile, &value);
}

int VFileReaderWriter::WriteFourByteDwordLowByteFirst(const unsigned long* pValue) const {
  return WriteFourByteDwordLowByteFirst(m_pCurrentFile, pValue);
}

int VFileReaderWriter::WriteFourByteDwordLowByteFirst(unsigned long value) const {
  return WriteFourByteDwordLowByteFirst(m_pCurrentFile, &value);
}

// ---- reads ------------------------------------------------------------------

int VFileReaderWriter::ReadOneByte(CFile* pFile, unsigned char* pByte) const {
  if (pFile == NULL || pByte == NULL) return FALSE;
  *pByte = 0;
  return GetBytes(pFile, pByte, 1);
}

int VFileReaderWriter::ReadOneByte(unsigned char* pByte) const {
  return ReadOneByte(m_pCurrentFile, pByte);
}

int VFileReaderWriter::ReadTwoByteWordNormal(CFile* pFile, unsigned short* pValue) const {
  if (pFile == NULL || pValue == NULL) return FALSE;
  unsigned char b[2] = {0, 0};
  if (!GetBytes(pFile, &b[0], 1) || !GetBytes(pFile, &b[1], 1)) return FALSE;
  *pValue = (unsigned short)(b[0] * 256 + b[1]);
  return TRUE;
}

int VFileReaderWriter::ReadTwoByteWordNormal(unsigned short* pValue) const {
  return ReadTwoByteWordNormal(m_pCurrentFile, pValue);
}

// Straight into the output: a short read leaves it partly overwritten.
int VFileReaderWriter::ReadTwoByteWordByteSwapped(CFile* pFile, unsigned short* pValue) const {
  if (pFile == NULL || pValue == NULL) return FALSE;
  return GetBytes(pFile, pValue, 2);
}

int VFileReaderWriter::ReadTwoByteWordByteSwapped(unsigned short* pValue) const {
  return ReadTwoByteWordByteSwapped(m_pCurrentFile, pValue);
}

int VFileReaderWriter::ReadTwoByteIntegerByteSwapped(CFile* pFile, short* pValue) const {
  if (pFile == NULL || pValue == NULL) return FALSE;
  unsigned char b[2] = {0, 0};
  if (!GetBytes(pFile, &b[0], 1) || !GetBytes(pFile, &b[1], 1)) return FALSE;
  *pValue = (short)(unsigned short)(b[1] * 256 + b[0]);
  return TRUE;
}

int VFileReaderWriter::ReadTwoByteIntegerByteSwapped(short* pValue) const {
  return ReadTwoByteIntegerByteSwapped(m_pCurrentFile, pValue);
}

int VFileReaderWriter::ReadFourByteDwordNormal(CFile* pFile, unsigned long* pValue) const {
  if (pFile == NULL || pValue == NULL) return FALSE;
  unsigned char b[4] = {0, 0, 0, 0};
  for (int i = 0; i < 4; ++i) {
    if (!GetBytes(pFile, &b[i], 1)) return FALSE;
  }
  *pValue =
      ((unsigned long)b[0] << 24) | ((unsigned long)b[1] << 16) | ((unsigned long)b[2] << 8) | b[3];
  return TRUE;
}

int VFileReaderWriter::ReadFourByteDwordNormal(unsigned long* pValue) const {
  return ReadFourByteDwordNormal(m_pCurrentFile, pValue);
}

int VFileReaderWriter::ReadFourByteDwordLowByteFirst(CFile* pFile, unsigned long* pValue) const {
  if (pFile == NULL || pValue == NULL) return FALSE;
  unsigned char b[4] = {0, 0, 0, 0};
  for (int i = 0; i < 4; ++i) {
    if (!GetBytes(pFile, &b[i], 1)) return FALSE;
  }
  *pValue =
      b[0] | ((unsigned long)b[1] << 8) | ((unsigned long)b[2] << 16) | ((unsigned long)b[3] << 24);
  return TRUE;
}

int VFileReaderWriter::ReadFourByteDwordLowByteFirst(unsigned long* pValue) const {
  return ReadFourByteDwordLowByteFirst(m_pCurrentFile, pValue);
}

int VFileReaderWriter::ReadNumberOfBytes(CFile* pFile, unsigned char* pBuffer,
                                         unsigned int nCount) const {
  if (pFile == NULL || pBuffer == NULL) return FALSE;
  memset(pBuffer, 0, nCount);
  return GetBytes(pFile, pBuffer, nCount);
}

int VFileReaderWriter::ReadNumberOfBytes(unsigned char* pBuffer, unsigned int nCount) const {
  return ReadNumberOfBytes(m_pCurrentFile, pBuffer, nCount);
}
