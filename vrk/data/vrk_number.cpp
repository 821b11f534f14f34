// VNumber: formatting, validating, parsing, dumping and serializing one
// typed number. Several results below look wrong and are kept on purpose
// (hosts depend on them): format-as-text passes the byte size as the bit
// width, the 64-bit formats print "%d64" / "%ui64", the binary digits of the
// narrow widths, and code 6 for a leading zero or sign.
#include "vrk_number.h"

#include <new>
#include <stdio.h>
#include <string.h>
#include <mbstring.h>

IMPLEMENT_DYNCREATE(VNumber, CObject)

// Hosts create VNumber by name only, so the class is registered for
// CRuntimeClass::FromName although it is not serializable through
// CArchive::WriteObject (schema 0xFFFF, dynamic creation).
static AFX_CLASSINIT _init_VNumber(RUNTIME_CLASS(VNumber));

namespace {

const char* TypeName(int nType) {
  switch (nType) {
  case VNUM_BOOLEAN:
    return "boolean";
  case VNUM_BYTE:
    return "byte";
  case VNUM_WORD:
    return "word";
  case VNUM_DWORD:
    return "dword";
  case VNUM_UINT64:
    return "unsigned __int64";
  case VNUM_CHAR:
    return "char";
  case VNUM_SHORT:
    return "short";
  case VNUM_INT:
    return "int";
  case VNUM_INT64:
    return "__int64";
  case VNUM_FLOAT:
    return "float";
  case VNUM_DOUBLE:
    return "double";
  case VNUM_UNKNOWN:
    return "unknown";
  default:
    return "";
  }
}

// The value bytes zero-extended to 64 bits.
unsigned __int64 ValueBits(const tagVNumberData* pData, int nBytes) {
  unsigned __int64 v = 0;
  memcpy(&v, pData->m_value, nBytes);
  return v;
}

void SetError(tagVNumberError* pError, int nPos, const char* pszText) {
  if (pError == NULL) return;
  pError->m_nPos = nPos;
  pError->m_nLength = nPos;
  pError->m_strText = pszText;
}

} // namespace

VNumber::VNumber() : m_pData(NULL) {}

VNumber::~VNumber() { delete m_pData; }

void VNumber::Serialize(CArchive& ar) {
  if (ar.IsStoring()) {
    const BYTE nType = m_pData != NULL ? m_pData->m_nType : (BYTE)VNUM_UNKNOWN;
    ar << nType;
    if (nType != VNUM_UNKNOWN) {
      ar << m_pData->m_nFlags;
      const int nSize = GetTypeSize(nType);
      if (nSize > 0) ar.Write(m_pData->m_value, nSize);
    }
    return;
  }
  BYTE nType;
  ar >> nType;
  // A code 0 carries nothing more and leaves the number as it was.
  if (nType == VNUM_UNKNOWN) return;
  BYTE nFlags;
  ar >> nFlags;
  BYTE value[8] = {0};
  const UINT nSize = (UINT)GetTypeSize(nType);
  // Read before touching the record so that a truncated archive leaves the
  // number unchanged; at most 8 bytes whatever the data says.
  if (nSize > 0 && ar.Read(value, nSize) != nSize)
    AfxThrowArchiveException(CArchiveException::endOfFile);
  if (m_pData == NULL) {
    m_pData = new (std::nothrow) tagVNumberData;
    if (m_pData == NULL) AfxThrowMemoryException();
  }
  memset(m_pData, 0, sizeof(*m_pData));
  m_pData->m_nType = nType;
  m_pData->m_nFlags = nFlags;
  memcpy(m_pData->m_value, value, sizeof(value));
}

void VNumber::AssertValid() const { CObject::AssertValid(); }

void VNumber::Dump(CDumpContext& dc) const {
  CString strName, strText;
  GetTypeName(strName);
  FormatText(strText);
  CString strLine;
  strLine.Format("VNumber: Data Type [%s]\tSize [%u]\tFormatted [%s]\n", (LPCSTR)strName,
                 (unsigned)GetSize(), (LPCSTR)strText);
  dc << (LPCSTR)strLine;
}

BOOL VNumber::IntegerToText(CString& strText, const BYTE* pFlags) const {
  if (m_pData == NULL) return FALSE;
  const int nType = m_pData->m_nType;
  char buffer[256] = {0};
  BOOL bOk;
  if (nType >= VNUM_BYTE && nType <= VNUM_UINT64)
    bOk = FormatUnsigned(buffer, 8 * GetTypeSize(nType), pFlags);
  else if (nType >= VNUM_CHAR && nType <= VNUM_INT64)
    bOk = FormatSigned(buffer, 8 * GetTypeSize(nType), pFlags);
  else
    return FALSE;
  if (bOk) strText = buffer;
  return bOk;
}

BOOL VNumber::FloatToText(CString& strText) const {
  if (m_pData == NULL) return FALSE;
  if (m_pData->m_nType == VNUM_FLOAT) {
    float f;
    memcpy(&f, m_pData->m_value, sizeof(f));
    strText.Format("%.9g", (double)f);
    return TRUE;
  }
  if (m_pData->m_nType == VNUM_DOUBLE) {
    double d;
    memcpy(&d, m_pData->m_value, sizeof(d));
    strText.Format("%.17g", d);
    return TRUE;
  }
  return FALSE;
}

BOOL VNumber::FormatText(CString& strText, const BYTE* pFlags) const {
  if (m_pData == NULL) return FALSE;
  const int nType = m_pData->m_nType;
  char buffer[256];
  memset(buffer, 0, sizeof(buffer));
  if (nType == VNUM_UNKNOWN) {
    strText.Empty();
    return TRUE;
  }
  if (nType == VNUM_BOOLEAN) {
    BoolToChar(buffer);
    strText = buffer;
    return TRUE;
  }
  if (nType == VNUM_FLOAT || nType == VNUM_DOUBLE) {
    strText.Empty();
    return TRUE;
  }
  BOOL bOk;
  // The byte size goes where the bit width belongs (see the top of file).
  if (nType >= VNUM_BYTE && nType <= VNUM_UINT64)
    bOk = FormatUnsigned(buffer, GetTypeSize(nType), pFlags);
  else if (nType >= VNUM_CHAR && nType <= VNUM_INT64)
    bOk = FormatSigned(buffer, GetTypeSize(nType), pFlags);
  else
    return FALSE;
  if (bOk) strText = buffer;
  return bOk;
}

BOOL VNumber::GetTypeName(CString& strName) const {
  strName = m_pData != NULL ? TypeName(m_pData->m_nType) : "";
  return !strName.IsEmpty();
}

// A NULL text fails like any text that is not "0" or "1".
BOOL VNumber::ParseBoolean(const char* pszText, tagVNumberError* pError) {
  const int nLength = pszText != NULL ? (int)strlen(pszText) : 0;
  if (nLength != 1 || (pszText[0] != '0' && pszText[0] != '1')) {
    if (pError != NULL) {
      pError->m_nError = VNUM_ERROR_BOOLEAN;
      SetError(pError, nLength, pszText);
    }
    return FALSE;
  }
  if (m_pData == NULL) {
    m_pData = new (std::nothrow) tagVNumberData;
    if (m_pData == NULL) AfxThrowMemoryException();
  }
  memset(m_pData, 0, sizeof(*m_pData));
  m_pData->m_nType = VNUM_BOOLEAN;
  if (pszText[0] == '1') m_pData->m_nFlags = VNUM_FLAG_TRUE;
  return TRUE;
}

// A NULL flags pointer means decimal.
BOOL VNumber::ValidateInteger(const char* pszText, void* /*pUnused*/, const BYTE* pFlags,
                              tagVNumberError* pError) const {
  if (pszText == NULL) return TRUE;
  const BYTE nFlags = pFlags != NULL ? *pFlags : 0;
  const unsigned nRadix = (nFlags & VNUM_FLAG_BINARY)  ? 2
                          : (nFlags & VNUM_FLAG_OCTAL) ? 8
                          : (nFlags & VNUM_FLAG_HEX)   ? 16
                                                       : 10;
  unsigned __int64 value = 0;
  const unsigned char* p = (const unsigned char*)pszText;
  while (*p != 0) {
    const int nPos = (int)(p - (const unsigned char*)pszText);
    const unsigned c = *p;
    int nDigit = -1;
    if (nRadix == 2) {
      if (c == '0' || c == '1') nDigit = c - '0';
    } else if (nRadix == 8) {
      if (c >= '0' && c <= '7') nDigit = c - '0';
    } else if (nRadix == 16) {
      if (c >= '0' && c <= '9')
        nDigit = c - '0';
      else if ((c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'))
        nDigit = (c & ~0x20u) - 55;
    } else {
      if (c >= '0' && c <= '9')
        nDigit = c - '0';
      else if ((c == '+' || c == '-') && nPos == 0)
        nDigit = 0; // the sign is not applied
    }
    if (nDigit < 0) {
      SetError(pError, nPos, pszText);
      return FALSE;
    }
    const unsigned __int64 next = value * nRadix + (unsigned)nDigit;
    if (next <= value) {
      if (pError != NULL) pError->m_nError = VNUM_ERROR_OVERFLOW;
      SetError(pError, nPos, pszText);
      return FALSE;
    }
    value = next;
    p = _mbsinc(p);
  }
  return TRUE;
}

BOOL VNumber::ValidateFloat(const char*, void*, const BYTE*, tagVNumberError*) const {
  return FALSE;
}

BOOL VNumber::BoolToChar(char* pch) const {
  if (m_pData == NULL || pch == NULL) return FALSE;
  *pch = (m_pData->m_nFlags & VNUM_FLAG_TRUE) ? '1' : '0';
  return TRUE;
}

// Examines bit 63 of the zero-extended value, width + 1 times, shifting
// left after each step: a 0 is written only after a 1 or at the last step.
// So width 64 gives the significant bits and an extra 0, width 32 only the
// value's top bit, widths 8 and 16 always "0".
BOOL VNumber::FormatBinary(char* pszBuffer, int nBitWidth) const {
  if (nBitWidth != 8 && nBitWidth != 16 && nBitWidth != 32 && nBitWidth != 64) return FALSE;
  if (m_pData == NULL || pszBuffer == NULL) return FALSE;
  unsigned __int64 reg = ValueBits(m_pData, nBitWidth / 8);
  bool bSeenOne = false;
  char* out = pszBuffer;
  for (int n = nBitWidth; n >= 0; n--) {
    if (reg & 0x8000000000000000ULL) {
      *out++ = '1';
      bSeenOne = true;
    } else if (bSeenOne || n == 0) {
      *out++ = '0';
    }
    reg <<= 1;
  }
  return TRUE;
}

BOOL VNumber::FormatSigned(char* pszBuffer, int nBitWidth, const BYTE* pFlags) const {
  return FormatInteger(pszBuffer, nBitWidth, pFlags, true);
}

BOOL VNumber::FormatUnsigned(char* pszBuffer, int nBitWidth, const BYTE* pFlags) const {
  return FormatInteger(pszBuffer, nBitWidth, pFlags, false);
}

// An empty number or a NULL buffer gives FALSE and writes nothing.
BOOL VNumber::FormatInteger(char* pszBuffer, int nBitWidth, const BYTE* pFlags,
                            bool bSigned) const {
  if (m_pData == NULL || pszBuffer == NULL) return FALSE;
  const BYTE nFlags = pFlags != NULL ? *pFlags : m_pData->m_nFlags;
  if (nFlags & VNUM_FLAG_BINARY) return FormatBinary(pszBuffer, nBitWidth);
  const char* pszFormat = (nFlags & VNUM_FLAG_HEX)     ? "%x"
                          : (nFlags & VNUM_FLAG_OCTAL) ? "%o"
                                                       : "%d";
  const size_t nMax = 255; // the buffer's capacity without the terminator
  switch (nBitWidth) {
  case 8:
  case 16:
  case 32: {
    const unsigned __int64 bits = ValueBits(m_pData, nBitWidth / 8);
    int v;
    if (nBitWidth == 8)
      v = bSigned ? (int)(signed char)bits : (int)(unsigned char)bits;
    else if (nBitWidth == 16)
      v = bSigned ? (int)(short)bits : (int)(unsigned short)bits;
    else
      v = (int)(unsigned int)bits;
    snprintf(pszBuffer, nMax + 1, pszFormat, v);
    return TRUE;
  }
  case 64: {
    // "%i64" / "%ui64" with the two halves: the low half in decimal, then
    // the literal text "64" or "i64"; the display flags play no part.
    const unsigned __int64 bits = ValueBits(m_pData, 8);
    const unsigned int low = (unsigned int)bits;
    if (bSigned)
      snprintf(pszBuffer, nMax + 1, "%d64", (int)low);
    else
      snprintf(pszBuffer, nMax + 1, "%ui64", low);
    return TRUE;
  }
  default:
    return FALSE;
  }
}
