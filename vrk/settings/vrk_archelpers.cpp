// Archive helpers: slim numbers, lines ended by a carriage return, and a
// document serialised through an archive of its own.
#include "vrk_mru.h"
#include "vrk_exception.h"

#include <afxwin.h>
#include <string.h>

#define VRK_SOURCE_FILE ".\\vrk_archelpers.cpp"

void VrkArWriteSlim(CArchive& ar, unsigned long value) {
  if (value < 0xFF) {
    ar << (BYTE)value;
  } else if (value < 0xFFFE) {
    // 65534 would fit the WORD form too, but the writer has always stopped
    // at 65533; readers accept both.
    ar << (BYTE)0xFF << (WORD)value;
  } else {
    ar << (BYTE)0xFF << (WORD)0xFFFF << (DWORD)value;
  }
}

void VrkArReadSlim(CArchive& ar, unsigned long& value) {
  BYTE b;
  ar >> b;
  if (b < 0xFF) {
    value = b;
    return;
  }
  WORD w;
  ar >> w;
  if (w < 0xFFFF) {
    value = w;
    return;
  }
  DWORD dw;
  ar >> dw;
  value = dw;
}

// Unlike CArchive::ReadString, only a carriage return ends a line.
char* VrkArReadString(CArchive& ar, char* buffer, unsigned int limit) {
  if (buffer == NULL) VrkThrowInvalidDataException(VRK_SOURCE_FILE, __LINE__);
  const bool keepLineEnd = (int)limit < 0;
  const unsigned int count = keepLineEnd ? 0u - limit : limit;
  unsigned int n = 0;
  while (n < count) {
    BYTE b;
    ar >> b;
    if (b == '\r') {
      BYTE lineFeed;
      ar >> lineFeed;
      if (keepLineEnd) buffer[n++] = (char)lineFeed;
      break;
    }
    buffer[n++] = (char)b;
  }
  buffer[n] = '\0';
  return buffer;
}

int VrkArReadString(CArchive& ar, CString& text) {
  const unsigned int kChunk = 128;
  text.Empty();
  for (;;) {
    // Each chunk keeps its line end, so a chunk that is full and does not
    // end in a line feed means the line goes on.
    char chunk[kChunk + 2];
    VrkArReadString(ar, chunk, 0u - kChunk);
    const size_t n = strlen(chunk);
    text.Append(chunk, (int)n);
    if (n != kChunk || chunk[n - 1] == '\n') break;
  }
  const int length = text.GetLength();
  if (length > 0 && text[length - 1] == '\n') text.Truncate(length - 1);
  return 1;
}

int VrkArSerializeDocument(CDocument* document, CFile* file, int store) {
  if (document == NULL || file == NULL) return 0;
  CArchive ar(file, (store ? CArchive::store : CArchive::load) | CArchive::bNoFlushOnDelete, 4096);
  ar.m_pDocument = document;
  try {
    document->Serialize(ar);
  } catch (...) {
    // Close, then pass the document's exception on; a second failure while
    // closing must not replace (and leak) the first.
    try {
      ar.Close();
    } catch (CException* e) {
      e->Delete();
    }
    throw;
  }
  ar.Close();
  return 1;
}
