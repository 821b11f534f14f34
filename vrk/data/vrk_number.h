// vrk_number.h - VNumber: one typed number with a display radix. Not
// exported: hosts create it by its run-time class name "VNumber" and use it
// through its virtual operations, declared here in their slot order.
#ifndef VRK_NUMBER_H
#define VRK_NUMBER_H

#include <afx.h>

// Type codes: 0x20-0x23 unsigned, 0x30-0x33 signed, 0x40-0x41 floating.
enum {
  VNUM_UNKNOWN = 0x00,
  VNUM_BOOLEAN = 0x10,
  VNUM_BYTE = 0x20,
  VNUM_WORD = 0x21,
  VNUM_DWORD = 0x22,
  VNUM_UINT64 = 0x23,
  VNUM_CHAR = 0x30,
  VNUM_SHORT = 0x31,
  VNUM_INT = 0x32,
  VNUM_INT64 = 0x33,
  VNUM_FLOAT = 0x40,
  VNUM_DOUBLE = 0x41
};

// Display flags; VNUM_FLAG_TRUE holds a boolean's value.
enum {
  VNUM_FLAG_HEX = 0x01,
  VNUM_FLAG_BINARY = 0x02,
  VNUM_FLAG_OCTAL = 0x04,
  VNUM_FLAG_TRUE = 0x10
};

// Parse error codes.
enum { VNUM_ERROR_BOOLEAN = 4, VNUM_ERROR_OVERFLOW = 6 };

// The value record, allocated on first use.
struct tagVNumberData {
  BYTE m_nType;
  BYTE m_nFlags;
  BYTE m_value[8]; // machine byte order, as many bytes as the type's size
};

// What a parse operation reports: the code, the byte position reached
// (stored twice, as position and as length) and the whole input text.
struct tagVNumberError {
  tagVNumberError() : m_nError(0), m_nPos(0), m_nLength(0) {}
  int m_nError;
  int m_nPos;
  int m_nLength;
  CString m_strText;
};

class VNumber : public CObject {
  DECLARE_DYNCREATE(VNumber)
public:
  VNumber();
  virtual ~VNumber();

  virtual void Serialize(CArchive& ar);
  virtual void AssertValid() const;
  virtual void Dump(CDumpContext& dc) const;

  // The per-family text conversions are this library's own choice: they
  // give what FormatText does not, an integer at its type's own bit width
  // (8 x its size) in the radix of pFlags or of the record, FALSE for other
  // types.
  virtual BOOL IntegerToText(CString& strText, const BYTE* pFlags = NULL) const;
  // A float or double as text ("%.9g" / "%.17g"); FALSE for other types.
  virtual BOOL FloatToText(CString& strText) const;
  virtual BOOL FormatText(CString& strText, const BYTE* pFlags = NULL) const;
  virtual BOOL GetTypeName(CString& strName) const;
  virtual BOOL ParseBoolean(const char* pszText, tagVNumberError* pError = NULL);
  // Checks the text only; pUnused is not read and the number is unchanged.
  virtual BOOL ValidateInteger(const char* pszText, void* pUnused, const BYTE* pFlags,
                               tagVNumberError* pError) const;
  // Always FALSE: a float is only ever loaded from an archive.
  virtual BOOL ValidateFloat(const char* pszText, void* pUnused, const BYTE* pFlags,
                             tagVNumberError* pError) const;
  virtual BOOL BoolToChar(char* pch) const;
  // Not zero-terminated; see the source for the digits each width gives.
  virtual BOOL FormatBinary(char* pszBuffer, int nBitWidth) const;
  // nBitWidth 8, 16, 32 or 64; the buffer takes at most 255 characters.
  virtual BOOL FormatSigned(char* pszBuffer, int nBitWidth, const BYTE* pFlags = NULL) const;
  virtual BOOL FormatUnsigned(char* pszBuffer, int nBitWidth, const BYTE* pFlags = NULL) const;

  // The size in bytes of a type code (0 for unknown codes and booleans).
  static int GetTypeSize(int nType) {
    switch (nType) {
    case VNUM_BYTE:
    case VNUM_CHAR:
      return 1;
    case VNUM_WORD:
    case VNUM_SHORT:
      return 2;
    case VNUM_DWORD:
    case VNUM_INT:
    case VNUM_FLOAT:
      return 4;
    case VNUM_UINT64:
    case VNUM_INT64:
    case VNUM_DOUBLE:
      return 8;
    default:
      return 0;
    }
  }
  int GetSize() const { return m_pData != NULL ? GetTypeSize(m_pData->m_nType) : 0; }

protected:
  BOOL FormatInteger(char* pszBuffer, int nBitWidth, const BYTE* pFlags, bool bSigned) const;

  tagVNumberData* m_pData; // NULL while the number is empty
};

#endif // VRK_NUMBER_H
