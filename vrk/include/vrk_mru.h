// vrk_mru.h - archive helpers (slim numbers, carriage-return lines, a
// document serialised to any file) and the most-recently-used string list.
#ifndef VRK_MRU_H
#define VRK_MRU_H

#include "vrkdefs.h"
#include <afxcoll.h>

class CDocument;

// ---- Archive helpers --------------------------------------------------------

// Slim numbers: 0..254 as one byte; 255..65533 as 0xFF and a WORD;
// 65534 and above as 0xFF, 0xFFFF and a DWORD (little-endian).
VRK_API void VrkArWriteSlim(CArchive& ar, unsigned long value);
// Accepts 65534 in the WORD form: only 0xFFFF announces the DWORD.
VRK_API void VrkArReadSlim(CArchive& ar, unsigned long& value);

// Reads one line ended by a carriage return (a bare line feed is an ordinary
// byte), at most |limit| bytes; the byte after the carriage return is
// consumed and kept only when limit is negative (as a signed int). The
// buffer must hold |limit| + 1 bytes (+ 2 with a kept line end). Returns
// buffer. The end of the archive throws CArchiveException::endOfFile.
VRK_API char* VrkArReadString(CArchive& ar, char* buffer, unsigned int limit);
// Reads one line of any length into text, without its line end; returns 1.
VRK_API int VrkArReadString(CArchive& ar, CString& text);

// Serialises the document to (store non-zero) or from the file through a
// CArchive of its own; 0 for a NULL document or file. Exceptions of the
// document's Serialize reach the caller after the archive is closed.
VRK_API int VrkArSerializeDocument(CDocument* document, CFile* file, int store);

// ---- VStringMruList ----------------------------------------------------------

// A most-recently-used list of strings: entry 0 is the most recent, the
// list always holds its capacity of entries and empty ones are free places.
// Indexes outside 0..capacity-1 throw CInvalidArgException.
class VRK_API VStringMruList : public CObject {
  DECLARE_SERIAL(VStringMruList)
public:
  explicit VStringMruList(int capacity = 4);
  virtual ~VStringMruList();

  // Puts text in front; an equal entry (case-sensitive) moves to the front,
  // otherwise the oldest entry falls off. NULL does nothing.
  virtual void Add(const char* text);
  // Empties the entry and closes the gap behind it.
  virtual void Remove(int index);
  // Cuts the entries or extends them with empty ones.
  virtual void SetSize(int capacity);

  int GetSize() const { return m_nCapacity; }
  CString& operator[](int index);
  CString GetAt(int index) const;
  VStringMruList& operator=(const VStringMruList& other);

  // The entries (as CStringArray writes them), then the capacity as a
  // 4-byte integer.
  virtual void Serialize(CArchive& ar);

protected:
  int m_nCapacity;
  CStringArray m_arrEntries;

private:
  void CheckIndex(int index) const;
};

#endif // VRK_MRU_H
