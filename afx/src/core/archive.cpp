// CArchive: the buffered reader/writer of MFC's persistent object format,
// and CRuntimeClass::Store/Load, the class references inside it.
//
// Objects and classes share one id sequence per archive. Id 0 is the null
// object; each new class and each new object takes the next id as it first
// appears. In the stream:
//   WORD 0                      null object
//   WORD id (< 0x7FFF)          an object already read/written
//   WORD 0x7FFF, DWORD id       the same, for ids >= 0x7FFF
//   WORD 0xFFFF + class record  a new object of a new class
//   WORD 0x8000|id              a new object of a class seen before
//   WORD 0x7FFF, DWORD 0x80000000|id   the same, for class ids >= 0x7FFF
// A class record is WORD schema, WORD name length, the name's characters.
#include <afx.h>

#include <new>
#include <unordered_map>
#include <vector>

namespace {

const WORD wNullTag = 0;                // the null object
const WORD wNewClassTag = 0xFFFF;       // a class record follows
const WORD wClassTag = 0x8000;          // or-ed into the id of a known class
const DWORD dwBigClassTag = 0x80000000; // the same, in a 32-bit id
const WORD wBigObjectTag = 0x7FFF;      // a 32-bit id follows
const UINT nMaxMapCount = 0x3FFFFFFE;   // ids must stay below this

// Longest class name a class record may carry (MFC's limit, with the null).
const UINT nMaxClassName = 64;

// Allocation failures inside the standard containers become
// CMemoryException, as everywhere in afx.
template <class F> void Guarded(F f) {
  try {
    f();
  } catch (const std::bad_alloc&) {
    AfxThrowMemoryException();
  }
}

} // namespace

// Storing: pointer -> id. Loading: id -> pointer, with what the id names so
// that a corrupt archive cannot make a class of an object or the reverse.
struct CArchiveMaps {
  struct Loaded {
    void* p;
    BYTE type;   // CArchive::LoadArrayObjType
    UINT schema; // for classes: the schema read from the archive
  };
  std::unordered_map<const void*, DWORD> store;
  std::vector<Loaded> load;
};

// ---- construction ----------------------------------------------------------

CArchive::CArchive(CFile* pFile, UINT nMode, int nBufSize, void* lpBuf)
    : m_pDocument(NULL), m_bForceFlat(TRUE), m_bDirectBuffer(FALSE), m_bBlocking(FALSE),
      m_nObjectSchema((UINT)-1), m_pFile(pFile), m_nMode(nMode), m_bUserBuf(FALSE),
      m_nBufSize(nBufSize), m_lpBufCur(NULL), m_lpBufMax(NULL), m_lpBufStart(NULL), m_nMapCount(0),
      m_pMaps(NULL), m_nGrowSize(1024), m_nHashSize(2053) {
  if (pFile == NULL) AfxThrowInvalidArgException();
  m_strFileName = pFile->GetFilePath();

  // A loading archive over a file with its own buffer (CMemFile) reads it in
  // place. Storing always goes through the archive's buffer, so a file that
  // cannot grow fails exactly where its own Write would.
  UINT nCheck = pFile->GetBufferPtr(CFile::bufferCheck);
  if (IsLoading() && lpBuf == NULL && (nCheck & CFile::bufferDirect)) {
    m_bDirectBuffer = TRUE;
    m_bBlocking = (nCheck & CFile::bufferBlocking) != 0;
    if (m_nBufSize < 128) m_nBufSize = 128;
    return;
  }

  if (lpBuf != NULL) {
    // The caller's buffer must hold the largest value read or written whole.
    if (nBufSize < (int)sizeof(ULONGLONG)) AfxThrowInvalidArgException();
    m_lpBufStart = (BYTE*)lpBuf;
    m_bUserBuf = TRUE;
  } else {
    if (m_nBufSize < 128) m_nBufSize = 128;
    m_lpBufStart = new (std::nothrow) BYTE[m_nBufSize];
    if (m_lpBufStart == NULL) AfxThrowMemoryException();
  }
  m_lpBufMax = m_lpBufStart + m_nBufSize;
  m_lpBufCur = IsLoading() ? m_lpBufMax : m_lpBufStart;
}

CArchive::~CArchive() {
  if (m_pFile != NULL && !(m_nMode & bNoFlushOnDelete)) {
    // A destructor may run during unwinding: a failure here cannot be
    // reported, which is why callers Close() archives themselves.
    try {
      Close();
    } catch (CException* e) {
      e->Delete();
    }
  }
  Abort();
}

void CArchive::Abort() {
  if (!m_bUserBuf && !m_bDirectBuffer) delete[] m_lpBufStart;
  m_lpBufStart = m_lpBufCur = m_lpBufMax = NULL;
  delete m_pMaps;
  m_pMaps = NULL;
  m_nMapCount = 0;
  m_pFile = NULL;
}

void CArchive::Close() {
  Flush();
  m_pFile = NULL;
  // Any later use reaches the slow path, which finds no file.
  m_lpBufMax = m_lpBufCur;
}

void PASCAL CArchive::ThrowReadOnly(const CArchive* ar) {
  AfxThrowArchiveException(CArchiveException::readOnly, ar->m_strFileName);
}

void PASCAL CArchive::ThrowWriteOnly(const CArchive* ar) {
  AfxThrowArchiveException(CArchiveException::writeOnly, ar->m_strFileName);
}

UINT CArchive::GetObjectSchema() {
  UINT nResult = m_nObjectSchema;
  m_nObjectSchema = (UINT)-1; // a schema is read once
  return nResult;
}

BOOL CArchive::IsBufferEmpty() const { return m_lpBufCur == m_lpBufMax; }

// ---- the buffer ------------------------------------------------------------

void CArchive::Flush() {
  if (m_pFile == NULL) AfxThrowArchiveException(CArchiveException::genericException, m_strFileName);
  if (IsLoading()) {
    // Give back what was read ahead: the file's position then follows what
    // the archive has actually consumed.
    if (m_lpBufMax != m_lpBufCur) {
      LONGLONG nUnused = m_lpBufMax - m_lpBufCur;
      m_lpBufCur = m_lpBufMax;
      m_pFile->Seek(-nUnused, CFile::current);
    }
  } else if (m_lpBufCur != m_lpBufStart) {
    m_pFile->Write(m_lpBufStart, (UINT)(m_lpBufCur - m_lpBufStart));
    m_lpBufCur = m_lpBufStart;
  }
}

// Reads more into the buffer; returns how many bytes were added (0 at the
// end of the file).
UINT CArchive::FillSome(UINT nWanted) {
  if (m_pFile == NULL) AfxThrowArchiveException(CArchiveException::genericException, m_strFileName);
  UINT nUnused = (UINT)(m_lpBufMax - m_lpBufCur);
  if (m_bDirectBuffer) {
    // Step back over the unused part of the last window and take a new one
    // that starts there.
    if (nUnused != 0) m_pFile->Seek(-(LONGLONG)nUnused, CFile::current);
    UINT nAsk = nUnused + nWanted < nWanted ? (UINT)-1 : nUnused + nWanted;
    if (nAsk < (UINT)m_nBufSize) nAsk = (UINT)m_nBufSize;
    void* pStart = NULL;
    void* pMax = NULL;
    UINT nGot = m_pFile->GetBufferPtr(CFile::bufferRead, nAsk, &pStart, &pMax);
    m_lpBufStart = m_lpBufCur = (BYTE*)pStart;
    m_lpBufMax = (BYTE*)pMax;
    return nGot > nUnused ? nGot - nUnused : 0;
  }
  if (m_lpBufCur != m_lpBufStart && nUnused != 0) memmove(m_lpBufStart, m_lpBufCur, nUnused);
  m_lpBufCur = m_lpBufStart;
  m_lpBufMax = m_lpBufStart + nUnused;
  UINT nRoom = (UINT)m_nBufSize - nUnused;
  UINT nRead = nRoom != 0 ? m_pFile->Read(m_lpBufMax, nRoom) : 0;
  m_lpBufMax += nRead;
  return nRead;
}

void CArchive::FillBuffer(UINT nBytesNeeded) {
  if (!IsLoading()) ThrowWriteOnly(this);
  UINT nUnused = (UINT)(m_lpBufMax - m_lpBufCur);
  // The archive's own buffer cannot hold more than its size at once.
  if (!m_bDirectBuffer && nBytesNeeded > (UINT)m_nBufSize - nUnused)
    AfxThrowArchiveException(CArchiveException::bufferFull, m_strFileName);
  UINT nTotal = nUnused + nBytesNeeded;
  while ((UINT)(m_lpBufMax - m_lpBufCur) < nTotal) {
    if (FillSome(nTotal - (UINT)(m_lpBufMax - m_lpBufCur)) == 0)
      AfxThrowArchiveException(CArchiveException::endOfFile, m_strFileName);
  }
}

UINT CArchive::Read(void* lpBuf, UINT nMax) {
  if (!IsLoading()) ThrowWriteOnly(this);
  if (nMax == 0) return 0;
  if (lpBuf == NULL) AfxThrowInvalidArgException();
  BYTE* pDest = (BYTE*)lpBuf;
  UINT nLeft = nMax;
  while (nLeft != 0) {
    UINT nAvail = (UINT)(m_lpBufMax - m_lpBufCur);
    if (nAvail == 0) {
      if (m_pFile == NULL)
        AfxThrowArchiveException(CArchiveException::genericException, m_strFileName);
      // A large block goes straight from the file to the caller.
      if (!m_bDirectBuffer && nLeft >= (UINT)m_nBufSize) {
        UINT n = m_pFile->Read(pDest, nLeft);
        if (n == 0) break;
        pDest += n;
        nLeft -= n;
      } else if (FillSome(nLeft) == 0) {
        break;
      }
      continue;
    }
    UINT n = nAvail < nLeft ? nAvail : nLeft;
    memcpy(pDest, m_lpBufCur, n);
    m_lpBufCur += n;
    pDest += n;
    nLeft -= n;
  }
  return nMax - nLeft;
}

void CArchive::EnsureRead(void* lpBuf, UINT nCount) {
  if (Read(lpBuf, nCount) != nCount)
    AfxThrowArchiveException(CArchiveException::endOfFile, m_strFileName);
}

void CArchive::Write(const void* lpBuf, UINT nMax) {
  if (IsLoading()) ThrowReadOnly(this);
  if (nMax == 0) return;
  if (lpBuf == NULL) AfxThrowInvalidArgException();
  const BYTE* pSrc = (const BYTE*)lpBuf;
  UINT nRoom = (UINT)(m_lpBufMax - m_lpBufCur);
  if (nMax <= nRoom) {
    memcpy(m_lpBufCur, pSrc, nMax);
    m_lpBufCur += nMax;
    return;
  }
  memcpy(m_lpBufCur, pSrc, nRoom);
  m_lpBufCur += nRoom;
  pSrc += nRoom;
  nMax -= nRoom;
  Flush();
  if (nMax >= (UINT)m_nBufSize) {
    m_pFile->Write(pSrc, nMax); // a large block goes straight to the file
  } else {
    memcpy(m_lpBufCur, pSrc, nMax);
    m_lpBufCur += nMax;
  }
}

ULONGLONG CArchive::GetBytesAvailable() const {
  ULONGLONG nBuffered = (ULONGLONG)(m_lpBufMax - m_lpBufCur);
  if (m_pFile == NULL) return nBuffered;
  try {
    ULONGLONG nLength = m_pFile->GetLength();
    ULONGLONG nPosition = m_pFile->GetPosition();
    return nBuffered + (nLength > nPosition ? nLength - nPosition : 0);
  } catch (CException* e) {
    e->Delete(); // a stream that cannot tell its length
    return (ULONGLONG)-1;
  }
}

// ---- text ------------------------------------------------------------------

void CArchive::WriteString(LPCTSTR lpsz) {
  if (lpsz == NULL) AfxThrowInvalidArgException();
  Write(lpsz, (UINT)lstrlen(lpsz));
}

namespace {

// The next byte of a loading archive, or -1 at the end of the file.
struct ByteReader {
  CArchive& ar;
  int Next() {
    BYTE by;
    return ar.Read(&by, 1) == 1 ? by : -1;
  }
};

} // namespace

// A line ends at "\n", "\r\n" or a lone "\r" (which leaves the next byte for
// the next line). A negative nMax (as -(n)) keeps the newline, stored as
// '\n'. lpsz holds |nMax| characters plus the terminating null.
LPTSTR CArchive::ReadString(LPTSTR lpsz, UINT nMax) {
  if (!IsLoading()) ThrowWriteOnly(this);
  int nStop = (int)nMax < 0 ? -(int)nMax : (int)nMax;
  if (nStop == 0) return NULL;
  if (lpsz == NULL) AfxThrowInvalidArgException();
  bool bKeepNewline = (int)nMax < 0;
  int nRead = 0;
  while (nRead < nStop) {
    BYTE by;
    if (Read(&by, 1) != 1) {
      if (nRead == 0) return NULL;
      break;
    }
    if (by == '\n' || by == '\r') {
      if (by == '\r') {
        BYTE next;
        if (Read(&next, 1) == 1 && next != '\n') --m_lpBufCur; // not ours
      }
      if (bKeepNewline) lpsz[nRead++] = '\n';
      break;
    }
    lpsz[nRead++] = (TCHAR)by;
  }
  lpsz[nRead] = '\0';
  return lpsz;
}

BOOL CArchive::ReadString(CString& rString) {
  rString.Empty();
  if (!IsLoading()) ThrowWriteOnly(this);
  // Collected in pieces so that a line of any length costs only its size.
  char piece[128];
  int nPiece = 0;
  bool bAny = false;
  for (;;) {
    BYTE by;
    if (Read(&by, 1) != 1) break;
    bAny = true;
    if (by == '\n') break;
    if (by == '\r') {
      BYTE next;
      if (Read(&next, 1) == 1 && next != '\n') --m_lpBufCur;
      break;
    }
    piece[nPiece++] = (char)by;
    if (nPiece == (int)sizeof(piece)) {
      rString.Append(piece, nPiece);
      nPiece = 0;
    }
  }
  if (nPiece != 0) rString.Append(piece, nPiece);
  return bAny;
}

// ---- counts ----------------------------------------------------------------

void CArchive::WriteCount(DWORD_PTR dwCount) {
  if (dwCount < 0xFFFF) {
    *this << (WORD)dwCount;
  } else {
    *this << (WORD)0xFFFF;
    *this << (DWORD)dwCount;
  }
}

DWORD_PTR CArchive::ReadCount() {
  WORD wCount;
  *this >> wCount;
  if (wCount != 0xFFFF) return wCount;
  DWORD dwCount;
  *this >> dwCount;
  return dwCount;
}

// ---- strings ---------------------------------------------------------------

void AFXAPI AfxWriteStringLength(CArchive& ar, UINT_PTR nLength, BOOL bUnicode) {
  if (bUnicode) {
    ar << (BYTE)0xFF;
    ar << (WORD)0xFFFE;
  }
  if (nLength < 0xFF) {
    ar << (BYTE)nLength;
  } else {
    ar << (BYTE)0xFF;
    if (nLength < 0xFFFE) {
      ar << (WORD)nLength;
    } else {
      ar << (WORD)0xFFFF;
      ar << (DWORD)nLength;
    }
  }
}

UINT_PTR AFXAPI AfxReadStringLength(CArchive& ar, int& nCharSize) {
  nCharSize = (int)sizeof(char);
  BYTE bLength;
  ar >> bLength;
  if (bLength < 0xFF) return bLength;
  WORD wLength;
  ar >> wLength;
  if (wLength == 0xFFFE) {
    // A wide string: its own length prefix follows the marker.
    nCharSize = (int)sizeof(wchar_t);
    ar >> bLength;
    if (bLength < 0xFF) return bLength;
    ar >> wLength;
  }
  if (wLength < 0xFFFF) return wLength;
  DWORD dwLength;
  ar >> dwLength;
  if (dwLength < 0xFFFFFFFF) return dwLength;
  // 64-bit writers go on to a ULONGLONG; no such string fits here.
  ULONGLONG qwLength;
  ar >> qwLength;
  return qwLength > 0xFFFFFFFEULL ? (UINT_PTR)0xFFFFFFFF : (UINT_PTR)qwLength;
}

void CArchive::StoreCString(const CString& str) {
  UINT nLength = (UINT)str.GetLength();
  AfxWriteStringLength(*this, nLength, FALSE);
  Write(str.GetString(), nLength);
}

namespace {

// The step in which a string's storage grows while its bytes arrive: memory
// follows the bytes actually read, never just the length claimed.
const UINT kStringChunk = 64 * 1024;

// Refuses a length the rest of the file cannot hold (endOfFile) or a string
// cannot represent (CMemoryException), before anything is allocated. Lengths
// within one chunk need no check: reading them allocates at most a chunk.
void CheckStringLength(CArchive& ar, UINT_PTR nLength, int nCharSize) {
  ULONGLONG nBytes = (ULONGLONG)nLength * (ULONGLONG)nCharSize;
  if (nBytes <= kStringChunk) return;
  ULONGLONG nAvail = ar.GetBytesAvailable();
  if (nAvail != (ULONGLONG)-1 && nBytes > nAvail)
    AfxThrowArchiveException(CArchiveException::endOfFile, ar.m_strFileName);
  if (nLength > (UINT_PTR)(INT_MAX / 2)) AfxThrowMemoryException();
}

void ReadAnsi(CArchive& ar, CString& str, UINT nLength) {
  UINT nHave = 0;
  while (nHave < nLength) {
    UINT nStep = nLength - nHave;
    UINT nCap = nHave < kStringChunk ? kStringChunk : nHave;
    if (nStep > nCap) nStep = nCap;
    LPTSTR p = str.GetBuffer((int)(nHave + nStep));
    UINT nGot = ar.Read(p + nHave, nStep);
    nHave += nGot;
    str.ReleaseBuffer((int)nHave);
    if (nGot < nStep) {
      str.Empty();
      AfxThrowArchiveException(CArchiveException::endOfFile, ar.m_strFileName);
    }
  }
}

void ReadWide(CArchive& ar, CString& str, UINT nLength) {
  std::vector<wchar_t> wide;
  UINT nHave = 0;
  while (nHave < nLength) {
    UINT nStep = nLength - nHave;
    UINT nCap = nHave < kStringChunk ? kStringChunk : nHave;
    if (nStep > nCap) nStep = nCap;
    Guarded([&] { wide.resize(nHave + nStep); });
    UINT nBytes = ar.Read(&wide[nHave], nStep * (UINT)sizeof(wchar_t));
    if (nBytes < nStep * sizeof(wchar_t))
      AfxThrowArchiveException(CArchiveException::endOfFile, ar.m_strFileName);
    nHave += nStep;
  }
  if (nLength == 0) return;
  int nAnsi = WideCharToMultiByte(CP_ACP, 0, &wide[0], (int)nLength, NULL, 0, NULL, NULL);
  if (nAnsi <= 0) return; // nothing convertible: an empty string
  LPTSTR p = str.GetBuffer(nAnsi);
  WideCharToMultiByte(CP_ACP, 0, &wide[0], (int)nLength, p, nAnsi, NULL, NULL);
  str.ReleaseBuffer(nAnsi);
}

} // namespace

void CArchive::LoadCString(CString& str) {
  CArchive& ar = *this;
  int nCharSize;
  UINT_PTR nLength = AfxReadStringLength(ar, nCharSize);
  CheckStringLength(ar, nLength, nCharSize);
  if (nCharSize == (int)sizeof(char) && nLength <= kStringChunk) {
    // The common case: one buffer, reusing the string's own when it fits.
    LPTSTR p = str.GetBufferSetLength((int)nLength);
    if (ar.Read(p, (UINT)nLength) != nLength) {
      str.Empty();
      AfxThrowArchiveException(CArchiveException::endOfFile, ar.m_strFileName);
    }
    str.ReleaseBuffer((int)nLength);
    return;
  }
  str.Empty();
  if (nCharSize == (int)sizeof(char))
    ReadAnsi(ar, str, (UINT)nLength);
  else
    ReadWide(ar, str, (UINT)nLength);
}

// ---- classes and objects ---------------------------------------------------

void CRuntimeClass::Store(CArchive& ar) const {
  WORD nLen = (WORD)lstrlenA(m_lpszClassName);
  ar << (WORD)m_wSchema << nLen;
  ar.Write(m_lpszClassName, nLen * sizeof(char));
}

CRuntimeClass* PASCAL CRuntimeClass::Load(CArchive& ar, UINT* pwSchemaNum) {
  WORD wSchema, nLen;
  ar >> wSchema >> nLen;
  if (pwSchemaNum != NULL) *pwSchemaNum = wSchema;
  // An over-long or cut-off name is no class of ours.
  char szClassName[nMaxClassName];
  if (nLen >= nMaxClassName || ar.Read(szClassName, nLen) != nLen) return NULL;
  szClassName[nLen] = '\0';
  return FromName(szClassName);
}

void CArchive::CheckCount() {
  if (m_nMapCount >= nMaxMapCount)
    AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
}

void CArchive::SetStoreParams(UINT nHashSize, UINT nBlockSize) {
  (void)nBlockSize; // the store map allocates per entry
  if (m_pMaps == NULL) m_nHashSize = nHashSize;
}

void CArchive::SetLoadParams(UINT nGrowBy) {
  if (m_pMaps == NULL) m_nGrowSize = nGrowBy;
}

void CArchive::MapObject(const CObject* pOb) {
  if (m_pMaps == NULL) {
    CArchiveMaps* pMaps = new (std::nothrow) CArchiveMaps;
    if (pMaps == NULL) AfxThrowMemoryException();
    m_pMaps = pMaps;
    // Id 0 is the null object.
    Guarded([&] {
      if (IsStoring()) {
        pMaps->store.reserve(m_nHashSize);
        pMaps->store[NULL] = wNullTag;
      } else {
        pMaps->load.reserve(m_nGrowSize < 4096 ? m_nGrowSize : 4096);
        pMaps->load.push_back(CArchiveMaps::Loaded{NULL, (BYTE)typeUndefined, 0});
      }
    });
    m_nMapCount = 1;
  }
  if (pOb == NULL) return;
  CheckCount();
  Guarded([&] {
    if (IsStoring())
      m_pMaps->store[pOb] = m_nMapCount;
    else
      m_pMaps->load.push_back(CArchiveMaps::Loaded{(void*)pOb, (BYTE)typeCObject, 0});
  });
  ++m_nMapCount;
}

void CArchive::WriteClass(const CRuntimeClass* pClassRef) {
  if (IsLoading()) ThrowReadOnly(this);
  if (pClassRef == NULL) AfxThrowInvalidArgException();
  if (pClassRef->m_wSchema == 0xFFFF) AfxThrowNotSupportedException(); // not serializable
  MapObject(NULL);

  std::unordered_map<const void*, DWORD>::const_iterator it = m_pMaps->store.find(pClassRef);
  if (it != m_pMaps->store.end()) {
    DWORD nClassIndex = it->second;
    if (nClassIndex < wBigObjectTag) {
      *this << (WORD)(wClassTag | nClassIndex);
    } else {
      *this << wBigObjectTag;
      *this << (DWORD)(dwBigClassTag | nClassIndex);
    }
    return;
  }
  CheckCount();
  *this << wNewClassTag;
  pClassRef->Store(*this);
  Guarded([&] { m_pMaps->store[pClassRef] = m_nMapCount; });
  ++m_nMapCount;
}

CRuntimeClass* CArchive::ReadClass(const CRuntimeClass* pClassRefRequested, UINT* pSchema,
                                   DWORD* pObTag) {
  if (!IsLoading()) ThrowWriteOnly(this);
  if (pClassRefRequested != NULL && pClassRefRequested->m_wSchema == 0xFFFF)
    AfxThrowNotSupportedException();
  MapObject(NULL);

  WORD wTag;
  *this >> wTag;
  DWORD obTag;
  if (wTag == wBigObjectTag)
    *this >> obTag;
  else
    obTag = ((DWORD)(wTag & wClassTag) << 16) | (wTag & ~wClassTag);

  if (!(obTag & dwBigClassTag)) {
    // An object id, not a class: only ReadObject may take it.
    if (pObTag == NULL) AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
    *pObTag = obTag;
    return NULL;
  }

  CRuntimeClass* pClassRef;
  UINT nSchema;
  if (wTag == wNewClassTag) {
    pClassRef = CRuntimeClass::Load(*this, &nSchema);
    if (pClassRef == NULL) AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    // A different schema is an error unless the class reads old versions
    // itself (VERSIONABLE_SCHEMA); then the archived one is kept for it.
    UINT nCurrent = pClassRef->m_wSchema & ~VERSIONABLE_SCHEMA;
    if (nCurrent != nSchema && !(pClassRef->m_wSchema & VERSIONABLE_SCHEMA))
      AfxThrowArchiveException(CArchiveException::badSchema, m_strFileName);
    CheckCount();
    Guarded([&] {
      m_pMaps->load.push_back(CArchiveMaps::Loaded{pClassRef, (BYTE)typeCRuntimeClass, nSchema});
    });
    ++m_nMapCount;
  } else {
    DWORD nClassIndex = obTag & ~dwBigClassTag;
    if (nClassIndex == 0 || nClassIndex >= m_nMapCount ||
        m_pMaps->load[nClassIndex].type != typeCRuntimeClass)
      AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
    pClassRef = (CRuntimeClass*)m_pMaps->load[nClassIndex].p;
    nSchema = m_pMaps->load[nClassIndex].schema;
  }

  if (pClassRefRequested != NULL && !pClassRef->IsDerivedFrom(pClassRefRequested))
    AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
  if (pSchema != NULL)
    *pSchema = nSchema;
  else
    m_nObjectSchema = nSchema;
  return pClassRef;
}

void CArchive::SerializeClass(const CRuntimeClass* pClassRef) {
  if (IsStoring())
    WriteClass(pClassRef);
  else
    ReadClass(pClassRef);
}

void CArchive::WriteObject(const CObject* pOb) {
  if (IsLoading()) ThrowReadOnly(this);
  MapObject(NULL);
  if (pOb == NULL) {
    *this << wNullTag;
    return;
  }
  std::unordered_map<const void*, DWORD>::const_iterator it = m_pMaps->store.find(pOb);
  if (it != m_pMaps->store.end()) {
    DWORD nObIndex = it->second;
    if (nObIndex < wBigObjectTag) {
      *this << (WORD)nObIndex;
    } else {
      *this << wBigObjectTag;
      *this << nObIndex;
    }
    return;
  }
  // The class first, then the object's own id, then its data.
  WriteClass(pOb->GetRuntimeClass());
  CheckCount();
  Guarded([&] { m_pMaps->store[pOb] = m_nMapCount; });
  ++m_nMapCount;
  const_cast<CObject*>(pOb)->Serialize(*this);
}

CObject* CArchive::ReadObject(const CRuntimeClass* pClassRefRequested) {
  if (!IsLoading()) ThrowWriteOnly(this);
  UINT nSchema;
  DWORD obTag;
  CRuntimeClass* pClassRef = ReadClass(pClassRefRequested, &nSchema, &obTag);

  if (pClassRef == NULL) {
    // An object read before (or the null object, id 0).
    if (obTag >= m_nMapCount || (obTag != 0 && m_pMaps->load[obTag].type != typeCObject))
      AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
    CObject* pOb = (CObject*)m_pMaps->load[obTag].p;
    if (pOb != NULL && pClassRefRequested != NULL && !pOb->IsKindOf(pClassRefRequested))
      AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    return pOb;
  }

  CObject* pOb = pClassRef->CreateObject();
  if (pOb == NULL) AfxThrowMemoryException();
  // Mapped before its data is read, so that the data may refer back to it.
  try {
    CheckCount();
    Guarded([&] { m_pMaps->load.push_back(CArchiveMaps::Loaded{pOb, (BYTE)typeCObject, 0}); });
  } catch (...) {
    delete pOb;
    throw;
  }
  ++m_nMapCount;
  UINT nSchemaSave = m_nObjectSchema;
  m_nObjectSchema = nSchema;
  pOb->Serialize(*this);
  m_nObjectSchema = nSchemaSave;
  return pOb;
}

CArchive& AFXAPI operator<<(CArchive& ar, const CObject* pOb) {
  ar.WriteObject(pOb);
  return ar;
}

CArchive& AFXAPI operator>>(CArchive& ar, CObject*& pOb) {
  pOb = ar.ReadObject(NULL);
  return ar;
}

CArchive& AFXAPI operator>>(CArchive& ar, const CObject*& pOb) {
  pOb = ar.ReadObject(NULL);
  return ar;
}
