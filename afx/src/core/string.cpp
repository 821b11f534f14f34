// CString: reference-counted, copy-on-write ANSI strings.
#include <afx.h>

#include <stdio.h>

namespace {

// The shared empty string. Its count of 2 makes every writer fork it; it is
// never counted up or down, so it is never freed.
struct NilBlock {
  CStringData header;
  char chars[4];
};
NilBlock g_nil = {{0, 0, 2}, {0, 0, 0, 0}};

inline bool IsNil(const CStringData* p) { return p == &g_nil.header; }

// Longest string: keeps every size computation inside an int, and bounds what
// a corrupt length can make us allocate.
const int kMaxLength = 0x7FFFFFFF / 2;

CStringData* Allocate(int nLength) {
  if (nLength < 0) AfxThrowInvalidArgException();
  if (nLength > kMaxLength) AfxThrowMemoryException();
  CStringData* p = static_cast<CStringData*>(malloc(sizeof(CStringData) + nLength + 1));
  if (p == NULL) AfxThrowMemoryException();
  p->nDataLength = 0;
  p->nAllocLength = nLength;
  p->nRefs = 1;
  p->data()[0] = '\0';
  return p;
}

inline void AddRef(CStringData* p) {
  if (!IsNil(p)) InterlockedIncrement(&p->nRefs);
}

inline void Release(CStringData* p) {
  if (!IsNil(p) && InterlockedDecrement(&p->nRefs) <= 0) free(p);
}

// A sum of lengths, checked so that it cannot wrap.
inline int AddLengths(int a, int b) {
  if (b > kMaxLength - a) AfxThrowMemoryException();
  return a + b;
}

inline const unsigned char* U(const char* p) { return reinterpret_cast<const unsigned char*>(p); }
inline unsigned char* U(char* p) { return reinterpret_cast<unsigned char*>(p); }

// The next character of an MBCS string: two bytes for a lead byte that has
// its trail byte, else one (never past a terminating null, as _mbsinc can).
inline const char* NextChar(const char* p) {
  return _ismbblead((unsigned char)p[0]) && p[1] != '\0' ? p + 2 : p + 1;
}
inline char* NextChar(char* p) { return const_cast<char*>(NextChar(const_cast<const char*>(p))); }

inline bool IsSpaceAt(const char* p) {
  return !_ismbblead((unsigned char)*p) && _ismbcspace((unsigned char)*p);
}

// Whether the character at p (one or two bytes) is one of pszSet's.
inline bool InSet(const char* pszSet, const char* p) {
  return _mbschr(U(pszSet), _mbsnextc(U(p))) != NULL;
}

} // namespace

// ---- Construction ----------------------------------------------------------

CString::CString() throw() { Attach(&g_nil.header); }

CString::CString(const CString& strSrc) {
  CStringData* pSrc = strSrc.GetData();
  if (!pSrc->IsLocked()) {
    AddRef(pSrc);
    Attach(pSrc);
  } else {
    // A locked buffer belongs to its string alone.
    Attach(&g_nil.header);
    SetString(strSrc.GetString(), strSrc.GetLength());
  }
}

CString::CString(LPCSTR lpsz) {
  Attach(&g_nil.header);
  if (!CheckImplicitLoad(lpsz)) SetString(lpsz, StringLength(lpsz));
}

CString::CString(LPCWSTR lpsz) {
  Attach(&g_nil.header);
  if (!CheckImplicitLoad(lpsz)) SetWide(lpsz, lpsz != NULL ? (int)wcslen(lpsz) : 0);
}

CString::CString(const unsigned char* lpsz) {
  Attach(&g_nil.header);
  SetString(reinterpret_cast<LPCSTR>(lpsz));
}

CString::CString(LPCSTR pch, int nLength) {
  Attach(&g_nil.header);
  SetString(pch, nLength);
}

CString::CString(LPCWSTR pch, int nLength) {
  Attach(&g_nil.header);
  SetWide(pch, nLength);
}

CString::CString(char ch, int nRepeat) {
  Attach(&g_nil.header);
  if (nRepeat > 0) {
    PXSTR p = GetBuffer(nRepeat);
    memset(p, ch, nRepeat);
    ReleaseBufferSetLength(nRepeat);
  }
}

CString::CString(wchar_t ch, int nRepeat) {
  Attach(&g_nil.header);
  if (nRepeat > 0) {
    // The character's multi-byte form, repeated.
    char mb[8];
    int n = WideCharToMultiByte(CP_THREAD_ACP, 0, &ch, 1, mb, sizeof(mb), NULL, NULL);
    if (n <= 0) return;
    int nTotal = (int)((long long)n * nRepeat > kMaxLength ? kMaxLength + 1 : n * nRepeat);
    PXSTR p = GetBuffer(nTotal);
    for (int i = 0; i < nTotal; i += n)
      memcpy(p + i, mb, n);
    ReleaseBufferSetLength(nTotal);
  }
}

CString::~CString() throw() { Release(GetData()); }

// A pointer whose high word is zero is a MAKEINTRESOURCE string id.
BOOL CString::CheckImplicitLoad(const void* pv) {
  if (pv == NULL || !IS_INTRESOURCE(pv)) return FALSE;
  LoadString((UINT)LOWORD((DWORD_PTR)pv));
  return TRUE;
}

void CString::SetWide(LPCWSTR pch, int nLength) {
  if (nLength < 0 || (pch == NULL && nLength != 0)) AfxThrowInvalidArgException();
  if (nLength == 0) {
    Empty();
    return;
  }
  int nBytes = WideCharToMultiByte(CP_THREAD_ACP, 0, pch, nLength, NULL, 0, NULL, NULL);
  if (nBytes <= 0) {
    Empty();
    return;
  }
  PXSTR p = GetBuffer(nBytes);
  WideCharToMultiByte(CP_THREAD_ACP, 0, pch, nLength, p, nBytes, NULL, NULL);
  ReleaseBufferSetLength(nBytes);
}

// ---- Assignment ------------------------------------------------------------

CString& CString::operator=(const CString& strSrc) {
  CStringData* pSrc = strSrc.GetData();
  CStringData* pOld = GetData();
  if (pSrc == pOld) return *this;
  if (pOld->IsLocked() || pSrc->IsLocked()) {
    // Keep a locked buffer; never share one.
    SetString(strSrc.GetString(), strSrc.GetLength());
  } else {
    AddRef(pSrc);
    Release(pOld);
    Attach(pSrc);
  }
  return *this;
}

CString& CString::operator=(LPCSTR lpsz) {
  SetString(lpsz);
  return *this;
}

CString& CString::operator=(LPCWSTR lpsz) {
  SetWide(lpsz, lpsz != NULL ? (int)wcslen(lpsz) : 0);
  return *this;
}

CString& CString::operator=(const unsigned char* lpsz) {
  SetString(reinterpret_cast<LPCSTR>(lpsz));
  return *this;
}

CString& CString::operator=(char ch) {
  SetString(&ch, 1);
  return *this;
}

CString& CString::operator=(wchar_t ch) {
  SetWide(&ch, 1);
  return *this;
}

void CString::SetString(PCXSTR pszSrc) { SetString(pszSrc, StringLength(pszSrc)); }

void CString::SetString(PCXSTR pszSrc, int nLength) {
  if (nLength < 0 || (pszSrc == NULL && nLength != 0)) AfxThrowInvalidArgException();
  if (nLength == 0) {
    Empty();
    return;
  }
  CStringData* pOld = GetData();
  if (pOld->IsShared() || pOld->nAllocLength < nLength) {
    // pszSrc may lie in the old block: copy before letting it go. A block
    // too small for nLength cannot hold all of pszSrc, so unique blocks that
    // are reallocated here never alias it.
    CStringData* pNew = Allocate(nLength);
    memcpy(pNew->data(), pszSrc, nLength);
    pNew->data()[nLength] = '\0';
    pNew->nDataLength = nLength;
    if (pOld->IsLocked()) pNew->nRefs = pOld->nRefs;
    Release(pOld);
    Attach(pNew);
  } else {
    memmove(m_pszData, pszSrc, nLength);
    SetLength(nLength);
  }
}

// ---- Appending -------------------------------------------------------------

CString& CString::operator+=(const CString& str) {
  Append(str);
  return *this;
}

CString& CString::operator+=(LPCSTR lpsz) {
  Append(lpsz);
  return *this;
}

CString& CString::operator+=(LPCWSTR lpsz) {
  CString str(lpsz);
  Append(str);
  return *this;
}

CString& CString::operator+=(char ch) {
  AppendChar(ch);
  return *this;
}

CString& CString::operator+=(unsigned char ch) {
  AppendChar((char)ch);
  return *this;
}

CString& CString::operator+=(wchar_t ch) {
  CString str(ch, 1);
  Append(str);
  return *this;
}

void CString::Append(const CString& strSrc) { Append(strSrc.GetString(), strSrc.GetLength()); }

void CString::Append(PCXSTR pszSrc) { Append(pszSrc, StringLength(pszSrc)); }

void CString::Append(PCXSTR pszSrc, int nLength) {
  if (nLength < 0 || (pszSrc == NULL && nLength != 0)) AfxThrowInvalidArgException();
  if (nLength == 0) return;
  // The source may be part of this string: remember it as an offset, as
  // PrepareWrite can move the characters.
  UINT_PTR nOffset = (UINT_PTR)(pszSrc - m_pszData);
  int nOldLength = GetLength();
  int nNewLength = AddLengths(nOldLength, nLength);
  PXSTR pszBuffer = PrepareWrite(nNewLength);
  if (nOffset <= (UINT_PTR)nOldLength) pszSrc = pszBuffer + nOffset;
  memcpy(pszBuffer + nOldLength, pszSrc, nLength);
  SetLength(nNewLength);
}

void CString::AppendChar(char ch) {
  int nOldLength = GetLength();
  PXSTR pszBuffer = PrepareWrite(AddLengths(nOldLength, 1));
  pszBuffer[nOldLength] = ch;
  SetLength(nOldLength + 1);
}

void PASCAL CString::Concatenate(CString& strResult, PCXSTR psz1, int nLength1, PCXSTR psz2,
                                 int nLength2) {
  int nNewLength = AddLengths(nLength1, nLength2);
  PXSTR pszBuffer = strResult.GetBuffer(nNewLength);
  if (nLength1 > 0) memcpy(pszBuffer, psz1, nLength1);
  if (nLength2 > 0) memcpy(pszBuffer + nLength1, psz2, nLength2);
  strResult.ReleaseBufferSetLength(nNewLength);
}

// ---- Buffer management -----------------------------------------------------

// Makes the block unique and at least nLength long, keeping its characters.
CString::PXSTR CString::PrepareWrite(int nLength) {
  CStringData* pOld = GetData();
  if (pOld->IsShared() || pOld->nAllocLength < nLength) PrepareWrite2(nLength);
  return m_pszData;
}

void CString::PrepareWrite2(int nLength) {
  if (nLength < 0) AfxThrowInvalidArgException();
  CStringData* pOld = GetData();
  if (nLength < pOld->nDataLength) nLength = pOld->nDataLength;
  if (pOld->IsShared()) {
    CStringData* pNew = Allocate(nLength);
    memcpy(pNew->data(), pOld->data(), pOld->nDataLength + 1);
    pNew->nDataLength = pOld->nDataLength;
    Release(pOld);
    Attach(pNew);
  } else if (pOld->nAllocLength < nLength) {
    // Grow by half again so that a run of appends is linear overall.
    int nNewAlloc = pOld->nAllocLength;
    nNewAlloc = nNewAlloc > kMaxLength - nNewAlloc / 2 ? kMaxLength : nNewAlloc + nNewAlloc / 2;
    if (nNewAlloc < nLength) nNewAlloc = nLength;
    if (nNewAlloc > kMaxLength) AfxThrowMemoryException();
    CStringData* pNew =
        static_cast<CStringData*>(realloc(pOld, sizeof(CStringData) + nNewAlloc + 1));
    if (pNew == NULL) AfxThrowMemoryException();
    pNew->nAllocLength = nNewAlloc;
    Attach(pNew);
  }
}

void CString::SetLength(int nLength) {
  CStringData* pData = GetData();
  if (nLength < 0 || nLength > pData->nAllocLength) AfxThrowInvalidArgException();
  if (IsNil(pData)) return; // only length 0 fits, and the nil block is already so
  pData->nDataLength = nLength;
  m_pszData[nLength] = '\0';
}

CString::PXSTR CString::GetBuffer() { return PrepareWrite(GetLength()); }

CString::PXSTR CString::GetBuffer(int nMinBufferLength) { return PrepareWrite(nMinBufferLength); }

CString::PXSTR CString::GetBufferSetLength(int nLength) {
  PXSTR p = GetBuffer(nLength);
  SetLength(nLength);
  return p;
}

void CString::ReleaseBuffer(int nNewLength) {
  if (nNewLength == -1) {
    // Bounded by the buffer: a caller that wrote no terminator gets the
    // whole buffer, not a run past its end.
    int nAlloc = GetData()->nAllocLength;
    const void* pEnd = memchr(m_pszData, 0, nAlloc);
    nNewLength = pEnd != NULL ? (int)(static_cast<const char*>(pEnd) - m_pszData) : nAlloc;
  }
  SetLength(nNewLength);
}

void CString::ReleaseBufferSetLength(int nNewLength) { SetLength(nNewLength); }

void CString::Truncate(int nNewLength) {
  if (nNewLength < 0 || nNewLength > GetLength()) AfxThrowInvalidArgException();
  GetBuffer(nNewLength);
  ReleaseBufferSetLength(nNewLength);
}

void CString::Preallocate(int nLength) { PrepareWrite(nLength); }

void CString::FreeExtra() {
  CStringData* pOld = GetData();
  int nLength = pOld->nDataLength;
  // A locked buffer stays where its owner's pointer points.
  if (pOld->nAllocLength == nLength || pOld->IsLocked()) return;
  if (nLength == 0) {
    Release(pOld);
    Attach(&g_nil.header);
    return;
  }
  CStringData* pNew = static_cast<CStringData*>(malloc(sizeof(CStringData) + nLength + 1));
  if (pNew == NULL) return; // keeping the larger block is harmless
  pNew->nDataLength = nLength;
  pNew->nAllocLength = nLength;
  pNew->nRefs = 1;
  memcpy(pNew->data(), pOld->data(), nLength + 1);
  Release(pOld);
  Attach(pNew);
}

CString::PXSTR CString::LockBuffer() {
  PXSTR psz = GetBuffer();
  CStringData* pData = GetData();
  // Locks nest: 1 becomes -1, -1 becomes -2, and so on.
  pData->nRefs--;
  if (pData->nRefs == 0) pData->nRefs = -1;
  return psz;
}

void CString::UnlockBuffer() throw() {
  CStringData* pData = GetData();
  if (pData->IsLocked()) {
    pData->nRefs++;
    if (pData->nRefs == 0) pData->nRefs = 1;
  }
}

void CString::Empty() throw() {
  CStringData* pOld = GetData();
  if (pOld->nDataLength == 0) return;
  if (pOld->IsLocked()) {
    pOld->nDataLength = 0;
    m_pszData[0] = '\0';
  } else {
    Release(pOld);
    Attach(&g_nil.header);
  }
}

// ---- Access ----------------------------------------------------------------

char CString::GetAt(int iChar) const {
  if (iChar < 0 || iChar > GetLength()) AfxThrowInvalidArgException();
  return m_pszData[iChar];
}

void CString::SetAt(int iChar, char ch) {
  if (iChar < 0 || iChar >= GetLength()) AfxThrowInvalidArgException();
  int nLength = GetLength();
  PXSTR p = GetBuffer();
  p[iChar] = ch;
  ReleaseBufferSetLength(nLength);
}

// ---- Comparison ------------------------------------------------------------
// A NULL argument compares as "".

int CString::Compare(PCXSTR psz) const { return _mbscmp(U(m_pszData), U(psz != NULL ? psz : "")); }

int CString::CompareNoCase(PCXSTR psz) const {
  return _mbsicmp(U(m_pszData), U(psz != NULL ? psz : ""));
}

int CString::Collate(PCXSTR psz) const { return _mbscoll(U(m_pszData), U(psz != NULL ? psz : "")); }

int CString::CollateNoCase(PCXSTR psz) const {
  return _mbsicoll(U(m_pszData), U(psz != NULL ? psz : ""));
}

// ---- Extraction ------------------------------------------------------------

CString CString::Mid(int iFirst) const {
  if (iFirst < 0) iFirst = 0; // keeps GetLength() - iFirst from overflowing
  return Mid(iFirst, GetLength() - iFirst);
}

CString CString::Mid(int iFirst, int nCount) const {
  int nLength = GetLength();
  if (iFirst < 0) iFirst = 0;
  if (nCount < 0) nCount = 0;
  if (iFirst > nLength) iFirst = nLength;
  if (nCount > nLength - iFirst) nCount = nLength - iFirst;
  if (iFirst == 0 && nCount == nLength) return *this; // shares the block
  return CString(m_pszData + iFirst, nCount);
}

CString CString::Left(int nCount) const {
  if (nCount < 0) nCount = 0;
  if (nCount >= GetLength()) return *this;
  return CString(m_pszData, nCount);
}

CString CString::Right(int nCount) const {
  if (nCount < 0) nCount = 0;
  int nLength = GetLength();
  if (nCount >= nLength) return *this;
  return CString(m_pszData + nLength - nCount, nCount);
}

CString CString::SpanIncluding(PCXSTR pszCharSet) const {
  if (pszCharSet == NULL) return CString();
  const char* p = m_pszData;
  while (*p != '\0' && InSet(pszCharSet, p))
    p = NextChar(p);
  return Left((int)(p - m_pszData));
}

CString CString::SpanExcluding(PCXSTR pszCharSet) const {
  if (pszCharSet == NULL) return *this;
  const char* p = m_pszData;
  while (*p != '\0' && !InSet(pszCharSet, p))
    p = NextChar(p);
  return Left((int)(p - m_pszData));
}

CString CString::Tokenize(PCXSTR pszTokens, int& iStart) const {
  if (iStart < 0) AfxThrowInvalidArgException();
  int nLength = GetLength();
  if (pszTokens == NULL || *pszTokens == '\0') {
    // No delimiters: the rest of the string (iStart stays).
    if (iStart < nLength) return CString(m_pszData + iStart, nLength - iStart);
  } else if (iStart < nLength) {
    const char* pEnd = m_pszData + nLength;
    const char* p = m_pszData + iStart;
    while (p < pEnd && *p != '\0' && InSet(pszTokens, p))
      p = NextChar(p);
    if (p < pEnd && *p != '\0') {
      const char* q = p;
      while (q < pEnd && *q != '\0' && !InSet(pszTokens, q))
        q = NextChar(q);
      int iFrom = (int)(p - m_pszData);
      int nUntil = (int)(q - p);
      iStart = iFrom + nUntil + 1;
      return Mid(iFrom, nUntil);
    }
  }
  iStart = -1;
  return CString();
}

// ---- Changes ---------------------------------------------------------------

CString& CString::MakeUpper() {
  int nLength = GetLength();
  if (nLength == 0) return *this;
  PXSTR p = GetBuffer();
  _mbsupr(U(p));
  ReleaseBufferSetLength(nLength);
  return *this;
}

CString& CString::MakeLower() {
  int nLength = GetLength();
  if (nLength == 0) return *this;
  PXSTR p = GetBuffer();
  _mbslwr(U(p));
  ReleaseBufferSetLength(nLength);
  return *this;
}

CString& CString::MakeReverse() {
  int nLength = GetLength();
  if (nLength == 0) return *this;
  PXSTR p = GetBuffer();
  _mbsrev(U(p)); // keeps each double-byte character's bytes in order
  ReleaseBufferSetLength(nLength);
  return *this;
}

int CString::Replace(char chOld, char chNew) {
  if (chOld == chNew) return 0;
  int nCount = 0;
  int nLength = GetLength();
  PXSTR p = m_pszData;
  bool bCopied = false;
  // Only whole characters match: a trail byte equal to chOld is kept.
  for (int i = 0; i < nLength;) {
    int nNext = (int)(NextChar(p + i) - p);
    if (p[i] == chOld) {
      if (!bCopied) {
        bCopied = true;
        p = GetBuffer(nLength);
      }
      p[i] = chNew;
      nCount++;
    }
    i = nNext;
  }
  if (bCopied) ReleaseBufferSetLength(nLength);
  return nCount;
}

int CString::Replace(PCXSTR pszOld, PCXSTR pszNew) {
  int nSourceLen = StringLength(pszOld);
  if (nSourceLen == 0) return 0;
  int nReplacementLen = StringLength(pszNew);
  if (pszNew == NULL) pszNew = "";

  // Count first, so that the result is built in one allocation.
  int nCount = 0;
  const char* pStart = m_pszData;
  const char* pEnd = m_pszData + GetLength();
  while (pStart < pEnd) {
    const char* pTarget;
    while ((pTarget = reinterpret_cast<const char*>(_mbsstr(U(pStart), U(pszOld)))) != NULL) {
      nCount++;
      pStart = pTarget + nSourceLen;
    }
    pStart += strlen(pStart) + 1; // past an embedded null
  }
  if (nCount == 0) return 0;

  int nOldLength = GetLength();
  long long llNew = (long long)nOldLength + (long long)(nReplacementLen - nSourceLen) * nCount;
  if (llNew > kMaxLength) AfxThrowMemoryException();
  int nNewLength = (int)llNew;

  // pszOld/pszNew may point into this string: build into a new string.
  CString strResult;
  PXSTR pDest = strResult.GetBuffer(nNewLength);
  const char* pSrc = m_pszData;
  pStart = m_pszData;
  while (pStart < pEnd) {
    const char* pTarget;
    while ((pTarget = reinterpret_cast<const char*>(_mbsstr(U(pStart), U(pszOld)))) != NULL) {
      memcpy(pDest, pSrc, pTarget - pSrc);
      pDest += pTarget - pSrc;
      memcpy(pDest, pszNew, nReplacementLen);
      pDest += nReplacementLen;
      pStart = pSrc = pTarget + nSourceLen;
    }
    pStart += strlen(pStart) + 1;
  }
  if (pSrc < pEnd) memcpy(pDest, pSrc, pEnd - pSrc);
  strResult.ReleaseBufferSetLength(nNewLength);
  *this = strResult;
  return nCount;
}

int CString::Remove(char chRemove) {
  int nLength = GetLength();
  if (nLength == 0) return 0;
  PXSTR pBuffer = GetBuffer(nLength);
  const char* pSource = pBuffer;
  const char* pEnd = pBuffer + nLength;
  PXSTR pDest = pBuffer;
  while (pSource < pEnd) {
    const char* pNext = NextChar(pSource);
    if (*pSource != chRemove) {
      while (pSource < pNext)
        *pDest++ = *pSource++;
    } else {
      pSource = pNext;
    }
  }
  int nCount = (int)(pEnd - pDest);
  ReleaseBufferSetLength(nLength - nCount);
  return nCount;
}

int CString::Insert(int iIndex, char ch) { return Insert(iIndex, CString(ch, 1)); }

int CString::Insert(int iIndex, PCXSTR psz) {
  int nLength = GetLength();
  if (iIndex < 0) iIndex = 0;
  if (iIndex > nLength) iIndex = nLength;
  int nInsertLength = StringLength(psz);
  if (nInsertLength == 0) return nLength;
  // psz may point into this string; offsets survive a move of the buffer.
  UINT_PTR nOffset = (UINT_PTR)(psz - m_pszData);
  int nNewLength = AddLengths(nLength, nInsertLength);
  PXSTR p = GetBuffer(nNewLength);
  if (nOffset <= (UINT_PTR)nLength) {
    // Copy the source out first: the move below would overwrite it.
    CString strCopy(p + nOffset, nInsertLength);
    memmove(p + iIndex + nInsertLength, p + iIndex, nLength - iIndex + 1);
    memcpy(p + iIndex, strCopy.GetString(), nInsertLength);
  } else {
    memmove(p + iIndex + nInsertLength, p + iIndex, nLength - iIndex + 1);
    memcpy(p + iIndex, psz, nInsertLength);
  }
  ReleaseBufferSetLength(nNewLength);
  return nNewLength;
}

int CString::Delete(int iIndex, int nCount) {
  int nLength = GetLength();
  if (iIndex < 0) iIndex = 0;
  if (nCount < 0) nCount = 0;
  if (iIndex > nLength) iIndex = nLength;
  if (nCount > nLength - iIndex) nCount = nLength - iIndex;
  if (nCount > 0) {
    int nNewLength = nLength - nCount;
    PXSTR p = GetBuffer();
    memmove(p + iIndex, p + iIndex + nCount, nLength - iIndex - nCount + 1);
    ReleaseBufferSetLength(nNewLength);
  }
  return GetLength();
}

// ---- Trimming --------------------------------------------------------------

// Cuts the string at pszLast (a position in it), or leaves it when NULL.
void CString::TrimRightAfter(PCXSTR pszLast) {
  if (pszLast == NULL) return;
  int nLength = (int)(pszLast - m_pszData);
  Truncate(nLength);
}

CString& CString::TrimRight() {
  const char* pszLast = NULL;
  for (const char* p = m_pszData; *p != '\0'; p = NextChar(p)) {
    if (IsSpaceAt(p)) {
      if (pszLast == NULL) pszLast = p;
    } else {
      pszLast = NULL;
    }
  }
  TrimRightAfter(pszLast);
  return *this;
}

CString& CString::TrimRight(char chTarget) {
  const char* pszLast = NULL;
  for (const char* p = m_pszData; *p != '\0'; p = NextChar(p)) {
    if (*p == chTarget && !_ismbblead((unsigned char)*p)) {
      if (pszLast == NULL) pszLast = p;
    } else {
      pszLast = NULL;
    }
  }
  TrimRightAfter(pszLast);
  return *this;
}

CString& CString::TrimRight(PCXSTR pszTargets) {
  if (pszTargets == NULL || *pszTargets == '\0') return *this;
  const char* pszLast = NULL;
  for (const char* p = m_pszData; *p != '\0'; p = NextChar(p)) {
    if (InSet(pszTargets, p)) {
      if (pszLast == NULL) pszLast = p;
    } else {
      pszLast = NULL;
    }
  }
  TrimRightAfter(pszLast);
  return *this;
}

CString& CString::TrimLeft() {
  const char* p = m_pszData;
  while (IsSpaceAt(p))
    p = NextChar(p);
  if (p != m_pszData) Delete(0, (int)(p - m_pszData));
  return *this;
}

CString& CString::TrimLeft(char chTarget) {
  const char* p = m_pszData;
  while (*p == chTarget && *p != '\0' && !_ismbblead((unsigned char)*p))
    p = NextChar(p);
  if (p != m_pszData) Delete(0, (int)(p - m_pszData));
  return *this;
}

CString& CString::TrimLeft(PCXSTR pszTargets) {
  if (pszTargets == NULL || *pszTargets == '\0') return *this;
  const char* p = m_pszData;
  while (*p != '\0' && InSet(pszTargets, p))
    p = NextChar(p);
  if (p != m_pszData) Delete(0, (int)(p - m_pszData));
  return *this;
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }
CString& CString::Trim(char chTarget) { return TrimRight(chTarget).TrimLeft(chTarget); }
CString& CString::Trim(PCXSTR pszTargets) { return TrimRight(pszTargets).TrimLeft(pszTargets); }

// ---- Searching -------------------------------------------------------------

int CString::Find(char ch, int iStart) const throw() {
  int nLength = GetLength();
  if (iStart < 0 || iStart >= nLength) return -1;
  const unsigned char* p = _mbschr(U(m_pszData + iStart), (unsigned char)ch);
  return p == NULL ? -1 : (int)(reinterpret_cast<const char*>(p) - m_pszData);
}

int CString::Find(PCXSTR pszSub, int iStart) const throw() {
  if (pszSub == NULL) return -1;
  int nLength = GetLength();
  if (iStart < 0 || iStart > nLength) return -1;
  const unsigned char* p = _mbsstr(U(m_pszData + iStart), U(pszSub));
  return p == NULL ? -1 : (int)(reinterpret_cast<const char*>(p) - m_pszData);
}

int CString::ReverseFind(char ch) const throw() {
  const unsigned char* p = _mbsrchr(U(m_pszData), (unsigned char)ch);
  return p == NULL ? -1 : (int)(reinterpret_cast<const char*>(p) - m_pszData);
}

int CString::FindOneOf(PCXSTR pszCharSet) const throw() {
  if (pszCharSet == NULL) return -1;
  const unsigned char* p = _mbspbrk(U(m_pszData), U(pszCharSet));
  return p == NULL ? -1 : (int)(reinterpret_cast<const char*>(p) - m_pszData);
}

// ---- Formatting ------------------------------------------------------------
// The C run-time's own printf (msvcrt), as MFC uses its C run-time's: the
// same conversions (%I64d, three-digit exponents) as a Visual C++ program.

void CString::AppendFormatV(PCXSTR pszFormat, va_list args) {
  if (pszFormat == NULL) AfxThrowInvalidArgException();
  va_list argsCopy;
  va_copy(argsCopy, args);
  int nAppend = _vscprintf(pszFormat, argsCopy);
  va_end(argsCopy);
  if (nAppend < 0) AfxThrowInvalidArgException();
  if (nAppend == 0) return;
  int nOldLength = GetLength();
  int nNewLength = AddLengths(nOldLength, nAppend);
  PXSTR p = GetBuffer(nNewLength);
  // The buffer has room for the terminator too (nAlloc + 1 bytes).
  _vsnprintf(p + nOldLength, nAppend + 1, pszFormat, args);
  ReleaseBufferSetLength(nNewLength);
}

void CString::FormatV(PCXSTR pszFormat, va_list args) {
  // Formatted into a new block: the format or an argument may be this
  // string's own text, which formatting in place would overwrite.
  CString strResult;
  strResult.AppendFormatV(pszFormat, args);
  *this = strResult;
}

void AFX_CDECL CString::Format(PCXSTR pszFormat, ...) {
  va_list args;
  va_start(args, pszFormat);
  FormatV(pszFormat, args);
  va_end(args);
}

void AFX_CDECL CString::Format(UINT nFormatID, ...) {
  CString strFormat;
  if (!strFormat.LoadString(nFormatID)) AfxThrowInvalidArgException();
  va_list args;
  va_start(args, nFormatID);
  FormatV(strFormat, args);
  va_end(args);
}

void AFX_CDECL CString::AppendFormat(PCXSTR pszFormat, ...) {
  va_list args;
  va_start(args, pszFormat);
  AppendFormatV(pszFormat, args);
  va_end(args);
}

void AFX_CDECL CString::AppendFormat(UINT nFormatID, ...) {
  CString strFormat;
  if (!strFormat.LoadString(nFormatID)) AfxThrowInvalidArgException();
  va_list args;
  va_start(args, nFormatID);
  AppendFormatV(strFormat, args);
  va_end(args);
}

void CString::FormatMessageV(PCXSTR pszFormat, va_list* pArgList) {
  if (pszFormat == NULL) AfxThrowInvalidArgException();
  LPSTR pszTemp = NULL;
  DWORD n = ::FormatMessageA(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ALLOCATE_BUFFER, pszFormat,
                             0, 0, reinterpret_cast<LPSTR>(&pszTemp), 0, pArgList);
  if (n == 0 || pszTemp == NULL) {
    if (pszTemp != NULL) LocalFree(pszTemp);
    AfxThrowMemoryException();
  }
  // Free the system's buffer even when the copy throws.
  struct Freer {
    LPSTR p;
    ~Freer() { LocalFree(p); }
  } freer = {pszTemp};
  SetString(pszTemp, (int)n);
}

void AFX_CDECL CString::FormatMessage(PCXSTR pszFormat, ...) {
  va_list args;
  va_start(args, pszFormat);
  FormatMessageV(pszFormat, &args);
  va_end(args);
}

void AFX_CDECL CString::FormatMessage(UINT nFormatID, ...) {
  CString strFormat;
  if (!strFormat.LoadString(nFormatID)) AfxThrowInvalidArgException();
  va_list args;
  va_start(args, nFormatID);
  FormatMessageV(strFormat, &args);
  va_end(args);
}

// ---- Resources -------------------------------------------------------------

BOOL CString::LoadString(UINT nID) {
  HINSTANCE hInst = AfxFindStringResourceHandle(nID);
  if (hInst == NULL) return FALSE;
  return LoadString(hInst, nID);
}

// Reads the string table block itself (16 counted UTF-16 strings), so that
// strings of any length load whole.
BOOL CString::LoadString(HINSTANCE hInstance, UINT nID) {
  HRSRC hResource =
      FindResourceA(hInstance, MAKEINTRESOURCEA(((nID >> 4) & 0xFFFF) + 1), (LPCSTR)RT_STRING);
  if (hResource == NULL) return FALSE;
  DWORD nSize = SizeofResource(hInstance, hResource);
  HGLOBAL hGlobal = LoadResource(hInstance, hResource);
  if (hGlobal == NULL) return FALSE;
  const WORD* p = static_cast<const WORD*>(LockResource(hGlobal));
  if (p == NULL) return FALSE;
  const WORD* pEnd = p + nSize / sizeof(WORD);
  // Skip the strings before ours, never walking past the block.
  for (UINT i = 0; i < (nID & 15); i++) {
    if (p >= pEnd) return FALSE;
    p += 1 + *p;
  }
  if (p >= pEnd || *p == 0) return FALSE;
  int nChars = *p;
  if (p + 1 + nChars > pEnd) return FALSE;
  SetWide(reinterpret_cast<LPCWSTR>(p + 1), nChars);
  return TRUE;
}
