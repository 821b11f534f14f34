// vrk_filereaderwriter.h - VFileReaderWriter: single bytes, 16- and 32-bit
// integers in a chosen byte order, strings, byte runs and zero-filled number
// texts, written to and read from a CFile without exceptions.
//
// Byte orders: "Normal" is most significant byte first, one byte per
// Write/Read call; "ByteSwapped" (16-bit) is the machine's own order, least
// significant byte first, as one 2-byte block; "LowByteFirst" (32-bit) is
// least significant byte first, one byte per call.
#ifndef VRK_FILEREADERWRITER_H
#define VRK_FILEREADERWRITER_H

#include "vrk_filehandler.h"

// Failures show a message box (write 5007, read or short read 5008) and give
// FALSE; a NULL file or pointer gives FALSE silently.
class VRK_API VFileReaderWriter : public VFileHandler {
public:
  VFileReaderWriter();
  explicit VFileReaderWriter(CFile* pFile);

  int WriteOneByte(CFile* pFile, const unsigned char* pByte) const;
  int WriteOneByte(const unsigned char* pByte) const;
  int WriteOneByte(CFile* pFile, unsigned char byte) const;
  int WriteOneByte(unsigned char byte) const;

  int WriteCRLF(CFile* pFile) const;
  int WriteCRLF() const;

  // "%03u": three characters.
  int WriteOneByteAsFilledBase10Text(CFile* pFile, unsigned char byte) const;
  int WriteOneByteAsFilledBase10Text(unsigned char byte) const;
  // "%02X" and its terminating zero: three bytes.
  int WriteOneByteAsFilledHexText(CFile* pFile, unsigned char byte) const;
  // "%06u": six characters.
  int WriteWordAsFilledBase10Text(CFile* pFile, unsigned short value) const;
  int WriteWordAsFilledBase10Text(unsigned short value) const;
  // "%06i", cut to its first six characters.
  int WriteIntegerAsFilledBase10Text(CFile* pFile, int value) const;
  int WriteIntegerAsFilledBase10Text(int value) const;
  // "%04X": four characters.
  int WriteWordAsFilledHexText(CFile* pFile, unsigned short value) const;

  int WriteByteBuffer(CFile* pFile, const unsigned char* pBuffer, unsigned int nCount) const;
  int WriteByteBuffer(const unsigned char* pBuffer, unsigned int nCount) const;
  int WriteLnByteBuffer(const unsigned char* pBuffer, unsigned int nCount) const;
  // nCount single-byte writes.
  int WriteThisManyOfThisByte(CFile* pFile, unsigned int nCount, unsigned char value) const;
  int WriteThisManyOfThisByte(unsigned int nCount, unsigned char value) const;
  int WriteThisManyZeroBytes(CFile* pFile, unsigned int nCount) const;
  int WriteThisManyZeroBytes(unsigned int nCount) const;

  // The characters without their terminator.
  int WriteZString(CFile* pFile, const char* const psz) const;
  int WriteZString(const char* const psz) const;
  // The characters, then CR LF.
  int WriteLnZString(CFile* pFile, const char* const psz) const;
  int WriteLnZString(const char* const psz) const;
  // CR LF, the characters, CR LF.
  int WriteNewLnZString(CFile* pFile, const char* const psz) const;
  int WriteNewLnZString(const char* const psz) const;

  int WriteTwoByteWordNormal(CFile* pFile, const unsigned short* pValue) const;
  int WriteTwoByteWordNormal(const unsigned short* pValue) const;
  int WriteTwoByteWordNormal(CFile* pFile, unsigned short value) const;
  int WriteTwoByteWordNormal(unsigned short value) const;

  int WriteTwoByteWordByteSwapped(CFile* pFile, const unsigned short* pValue) const;
  int WriteTwoByteWordByteSwapped(CFile* pFile, unsigned short value) const;
  int WriteTwoByteWordByteSwapped(const unsigned short* pValue) const;
  int WriteTwoByteWordByteSwapped(unsigned short value) const;

  int WriteFourByteDwordNormal(CFile* pFile, const unsigned long* pValue) const;
  int WriteFourByteDwordNormal(CFile* pFile, unsigned long value) const;
  int WriteFourByteDwordNormal(const unsigned long* pValue) const;
  int WriteFourByteDwordNormal(unsigned long value) const;

  int WriteFourByteDwordLowByteFirst(CFile* pFile, const unsigned long* pValue) const;
  int WriteFourByteDwordLowByteFirst(CFile* pFile, unsigned long value) const;
  int WriteFourByteDwordLowByteFirst(const unsigned long* pValue) const;
  int WriteFourByteDwordLowByteFirst(unsigned long value) const;

  // Reads that assemble single bytes keep the output unchanged on failure;
  // ReadOneByte, ReadTwoByteWordByteSwapped and ReadNumberOfBytes read
  // straight into it.
  int ReadOneByte(CFile* pFile, unsigned char* pByte) const;
  int ReadOneByte(unsigned char* pByte) const;
  int ReadTwoByteWordNormal(CFile* pFile, unsigned short* pValue) const;
  int ReadTwoByteWordNormal(unsigned short* pValue) const;
  int ReadTwoByteWordByteSwapped(CFile* pFile, unsigned short* pValue) const;
  int ReadTwoByteWordByteSwapped(unsigned short* pValue) const;
  int ReadTwoByteIntegerByteSwapped(CFile* pFile, short* pValue) const;
  int ReadTwoByteIntegerByteSwapped(short* pValue) const;
  int ReadFourByteDwordNormal(CFile* pFile, unsigned long* pValue) const;
  int ReadFourByteDwordNormal(unsigned long* pValue) const;
  int ReadFourByteDwordLowByteFirst(CFile* pFile, unsigned long* pValue) const;
  int ReadFourByteDwordLowByteFirst(unsigned long* pValue) const;
  // Zeroes nCount bytes, then reads exactly nCount.
  int ReadNumberOfBytes(CFile* pFile, unsigned char* pBuffer, unsigned int nCount) const;
  int ReadNumberOfBytes(unsigned char* pBuffer, unsigned int nCount) const;

protected:
  // Every line end is written from these two bytes (13 and 10).
  unsigned char m_cCarriageReturn;
  unsigned char m_cLineFeed;

private:
  int Init();
  // One Write or Read call inside the file-exception guard.
  int PutBytes(CFile* pFile, const void* pData, unsigned int nCount) const;
  int GetBytes(CFile* pFile, void* pData, unsigned int nCount) const;
};

#endif // VRK_FILEREADERWRITER_H
