// afxstr.h - CString, the reference-counted ANSI (MBCS) string.
#ifndef AFXSTR_H
#define AFXSTR_H

#include "afxver_.h"

// The header in front of every string's characters. nRefs counts the
// CString objects sharing the block; a negative count marks a locked buffer
// (LockBuffer) that is never shared. The characters follow the header.
struct CStringData {
  int nDataLength;  // characters in use, without the terminating null
  int nAllocLength; // characters that fit, without the terminating null
  long nRefs;

  char* data() { return reinterpret_cast<char*>(this + 1); }
  bool IsLocked() const { return nRefs < 0; }
  bool IsShared() const { return nRefs > 1; }
};

// The string resource's module (the resource chain of the current module
// state, looked up by string table block).
AFX_API HINSTANCE AFXAPI AfxFindStringResourceHandle(UINT nID);

// An ANSI string, copy-on-write, laid out as one pointer to its characters.
// Index arguments are byte offsets, as in MFC's MBCS build; the search, trim,
// case and reverse operations step over double-byte characters whole.
class AFX_API CString {
public:
  typedef char XCHAR;
  typedef char* PXSTR;
  typedef const char* PCXSTR;
  typedef wchar_t YCHAR;
  typedef wchar_t* PYSTR;
  typedef const wchar_t* PCYSTR;

  CString() throw();
  CString(const CString& strSrc);
  // A MAKEINTRESOURCE id loads that string resource; NULL gives "".
  CString(LPCSTR lpsz);
  CString(LPCWSTR lpsz);
  CString(const unsigned char* lpsz);
  CString(LPCSTR pch, int nLength);
  CString(LPCWSTR pch, int nLength);
  explicit CString(char ch, int nRepeat = 1);
  explicit CString(wchar_t ch, int nRepeat = 1);
  ~CString() throw();

  CString& operator=(const CString& strSrc);
  CString& operator=(LPCSTR lpsz);
  CString& operator=(LPCWSTR lpsz);
  CString& operator=(const unsigned char* lpsz);
  CString& operator=(char ch);
  CString& operator=(wchar_t ch);

  CString& operator+=(const CString& str);
  CString& operator+=(LPCSTR lpsz);
  CString& operator+=(LPCWSTR lpsz);
  CString& operator+=(char ch);
  CString& operator+=(unsigned char ch);
  CString& operator+=(wchar_t ch);

  // ---- Access -------------------------------------------------------------
  int GetLength() const throw() { return GetData()->nDataLength; }
  int GetAllocLength() const throw() { return GetData()->nAllocLength; }
  BOOL IsEmpty() const throw() { return GetLength() == 0; }
  void Empty() throw();
  PCXSTR GetString() const throw() { return m_pszData; }
  operator PCXSTR() const throw() { return m_pszData; }

  // 0..GetLength() (the terminating null can be read); else
  // CInvalidArgException.
  char GetAt(int iChar) const;
  char operator[](int iChar) const { return GetAt(iChar); }
  // 0..GetLength()-1; else CInvalidArgException.
  void SetAt(int iChar, char ch);

  void SetString(PCXSTR pszSrc);
  void SetString(PCXSTR pszSrc, int nLength);
  void Append(const CString& strSrc);
  void Append(PCXSTR pszSrc);
  void Append(PCXSTR pszSrc, int nLength);
  void AppendChar(char ch);

  // ---- Comparison ---------------------------------------------------------
  int Compare(PCXSTR psz) const;
  int CompareNoCase(PCXSTR psz) const;
  int Collate(PCXSTR psz) const;
  int CollateNoCase(PCXSTR psz) const;

  // ---- Extraction (counts are clamped to the string) ----------------------
  CString Mid(int iFirst, int nCount) const;
  CString Mid(int iFirst) const;
  CString Left(int nCount) const;
  CString Right(int nCount) const;
  CString SpanIncluding(PCXSTR pszCharSet) const;
  CString SpanExcluding(PCXSTR pszCharSet) const;
  // The token at iStart, skipping leading delimiters; iStart moves past it,
  // or becomes -1 (and the result empty) when no token is left.
  CString Tokenize(PCXSTR pszTokens, int& iStart) const;

  // ---- Changes ------------------------------------------------------------
  CString& MakeUpper();
  CString& MakeLower();
  CString& MakeReverse();
  int Replace(char chOld, char chNew);
  int Replace(PCXSTR pszOld, PCXSTR pszNew);
  int Remove(char chRemove);
  // An index past either end is clamped; the result is the new length.
  int Insert(int iIndex, char ch);
  int Insert(int iIndex, PCXSTR psz);
  int Delete(int iIndex, int nCount = 1);
  CString& Trim();
  CString& Trim(char chTarget);
  CString& Trim(PCXSTR pszTargets);
  CString& TrimLeft();
  CString& TrimLeft(char chTarget);
  CString& TrimLeft(PCXSTR pszTargets);
  CString& TrimRight();
  CString& TrimRight(char chTarget);
  CString& TrimRight(PCXSTR pszTargets);

  // ---- Searching (-1 when not found) --------------------------------------
  int Find(char ch, int iStart = 0) const throw();
  int Find(PCXSTR pszSub, int iStart = 0) const throw();
  int ReverseFind(char ch) const throw();
  int FindOneOf(PCXSTR pszCharSet) const throw();

  // ---- Formatting (no length limit) ---------------------------------------
  void AFX_CDECL Format(PCXSTR pszFormat, ...);
  void AFX_CDECL Format(UINT nFormatID, ...);
  void FormatV(PCXSTR pszFormat, va_list args);
  void AFX_CDECL AppendFormat(PCXSTR pszFormat, ...);
  void AFX_CDECL AppendFormat(UINT nFormatID, ...);
  void AppendFormatV(PCXSTR pszFormat, va_list args);
  // The FormatMessage API's %1..%99 inserts.
  void AFX_CDECL FormatMessage(PCXSTR pszFormat, ...);
  void AFX_CDECL FormatMessage(UINT nFormatID, ...);
  void FormatMessageV(PCXSTR pszFormat, va_list* pArgList);

  // ---- Resources ----------------------------------------------------------
  BOOL LoadString(UINT nID);
  BOOL LoadString(HINSTANCE hInstance, UINT nID);

  // ---- Raw buffer ---------------------------------------------------------
  PXSTR GetBuffer();
  PXSTR GetBuffer(int nMinBufferLength);
  PXSTR GetBufferSetLength(int nLength);
  void ReleaseBuffer(int nNewLength = -1);
  void ReleaseBufferSetLength(int nNewLength);
  void Preallocate(int nLength);
  void FreeExtra();
  PXSTR LockBuffer();
  void UnlockBuffer() throw();
  void Truncate(int nNewLength);

  // ---- Concatenation ------------------------------------------------------
  friend CString AFXAPI operator+(const CString& str1, const CString& str2) {
    CString s;
    Concatenate(s, str1, str1.GetLength(), str2, str2.GetLength());
    return s;
  }
  friend CString AFXAPI operator+(const CString& str1, PCXSTR psz2) {
    CString s;
    Concatenate(s, str1, str1.GetLength(), psz2, StringLength(psz2));
    return s;
  }
  friend CString AFXAPI operator+(PCXSTR psz1, const CString& str2) {
    CString s;
    Concatenate(s, psz1, StringLength(psz1), str2, str2.GetLength());
    return s;
  }
  friend CString AFXAPI operator+(const CString& str1, char ch2) {
    CString s;
    Concatenate(s, str1, str1.GetLength(), &ch2, 1);
    return s;
  }
  friend CString AFXAPI operator+(char ch1, const CString& str2) {
    CString s;
    Concatenate(s, &ch1, 1, str2, str2.GetLength());
    return s;
  }

  static int PASCAL StringLength(PCXSTR psz) throw() { return psz != NULL ? (int)strlen(psz) : 0; }

protected:
  static void PASCAL Concatenate(CString& strResult, PCXSTR psz1, int nLength1, PCXSTR psz2,
                                 int nLength2);
  CStringData* GetData() const throw() { return reinterpret_cast<CStringData*>(m_pszData) - 1; }

private:
  PXSTR PrepareWrite(int nLength);
  void PrepareWrite2(int nLength);
  void SetLength(int nLength);
  void Attach(CStringData* pData) throw() { m_pszData = pData->data(); }
  void SetWide(LPCWSTR pch, int nLength);
  BOOL CheckImplicitLoad(const void* pv);
  void TrimRightAfter(PCXSTR pszLast);

  PXSTR m_pszData;
};

typedef CString CStringA;

// ---- Comparison operators: Compare() == 0 and so on. -----------------------
inline bool AFXAPI operator==(const CString& s1, const CString& s2) { return s1.Compare(s2) == 0; }
inline bool AFXAPI operator==(const CString& s1, LPCSTR s2) { return s1.Compare(s2) == 0; }
inline bool AFXAPI operator==(LPCSTR s1, const CString& s2) { return s2.Compare(s1) == 0; }
inline bool AFXAPI operator!=(const CString& s1, const CString& s2) { return !(s1 == s2); }
inline bool AFXAPI operator!=(const CString& s1, LPCSTR s2) { return s1.Compare(s2) != 0; }
inline bool AFXAPI operator!=(LPCSTR s1, const CString& s2) { return s2.Compare(s1) != 0; }
inline bool AFXAPI operator<(const CString& s1, const CString& s2) { return s1.Compare(s2) < 0; }
inline bool AFXAPI operator<(const CString& s1, LPCSTR s2) { return s1.Compare(s2) < 0; }
inline bool AFXAPI operator<(LPCSTR s1, const CString& s2) { return s2.Compare(s1) > 0; }
inline bool AFXAPI operator>(const CString& s1, const CString& s2) { return s1.Compare(s2) > 0; }
inline bool AFXAPI operator>(const CString& s1, LPCSTR s2) { return s1.Compare(s2) > 0; }
inline bool AFXAPI operator>(LPCSTR s1, const CString& s2) { return s2.Compare(s1) < 0; }
inline bool AFXAPI operator<=(const CString& s1, const CString& s2) { return s1.Compare(s2) <= 0; }
inline bool AFXAPI operator<=(const CString& s1, LPCSTR s2) { return s1.Compare(s2) <= 0; }
inline bool AFXAPI operator<=(LPCSTR s1, const CString& s2) { return s2.Compare(s1) >= 0; }
inline bool AFXAPI operator>=(const CString& s1, const CString& s2) { return s1.Compare(s2) >= 0; }
inline bool AFXAPI operator>=(const CString& s1, LPCSTR s2) { return s1.Compare(s2) >= 0; }
inline bool AFXAPI operator>=(LPCSTR s1, const CString& s2) { return s2.Compare(s1) <= 0; }
inline bool AFXAPI operator==(const CString& s1, char ch) {
  return s1.GetLength() == 1 && s1.GetAt(0) == ch;
}
inline bool AFXAPI operator==(char ch, const CString& s2) { return s2 == ch; }
inline bool AFXAPI operator!=(const CString& s1, char ch) { return !(s1 == ch); }
inline bool AFXAPI operator!=(char ch, const CString& s2) { return !(s2 == ch); }

#endif // AFXSTR_H
