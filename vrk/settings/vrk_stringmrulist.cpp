// VStringMruList: a most-recently-used list of strings that serialises
// itself.
#include "vrk_mru.h"

// Schema 1, the first version of the format (entries, then capacity).
IMPLEMENT_SERIAL(VStringMruList, CObject, 1)

// The default capacity of 4 (the one run-time class creation uses before
// Serialize loads the real one) follows MFC's recent-file list.
VStringMruList::VStringMruList(int capacity) : m_nCapacity(0) { SetSize(capacity); }

VStringMruList::~VStringMruList() {}

void VStringMruList::CheckIndex(int index) const {
  if (index < 0 || index >= m_nCapacity) AfxThrowInvalidArgException();
}

void VStringMruList::Add(const char* text) {
  if (text == NULL) return;
  int i = m_nCapacity - 1; // not found: the oldest entry falls off
  if (m_nCapacity >= 2) {
    // The last entry is not searched: a match there falls off the same way.
    for (int k = 0; k <= m_nCapacity - 2; k++) {
      if (m_arrEntries[k] == text) {
        i = k;
        break;
      }
    }
  }
  // The text may be one of the entries: keep it before moving them.
  CString front(text);
  for (int k = i; k >= 1; k--)
    m_arrEntries[k] = m_arrEntries[k - 1];
  (*this)[0] = front; // a list of capacity 0 throws here
}

void VStringMruList::Remove(int index) {
  CheckIndex(index);
  m_arrEntries[index].Empty();
  if (index == m_nCapacity - 1) return;
  for (int k = index; k < m_nCapacity - 1; k++)
    m_arrEntries[k] = m_arrEntries[k + 1];
  m_arrEntries[m_nCapacity - 1].Empty();
}

void VStringMruList::SetSize(int capacity) {
  if (capacity < 0) AfxThrowInvalidArgException();
  m_arrEntries.SetSize(capacity);
  m_nCapacity = capacity;
}

CString& VStringMruList::operator[](int index) {
  CheckIndex(index);
  return m_arrEntries[index];
}

CString VStringMruList::GetAt(int index) const {
  CheckIndex(index);
  return m_arrEntries[index];
}

VStringMruList& VStringMruList::operator=(const VStringMruList& other) {
  if (this != &other) {
    m_arrEntries.Copy(other.m_arrEntries);
    m_nCapacity = other.m_nCapacity;
  }
  return *this;
}

void VStringMruList::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  if (ar.IsStoring()) {
    m_arrEntries.Serialize(ar);
    ar.Write(&m_nCapacity, sizeof(m_nCapacity));
  } else {
    // Loaded aside so that a corrupt archive leaves the list as it was.
    CStringArray entries;
    entries.Serialize(ar);
    int capacity;
    ar.EnsureRead(&capacity, sizeof(capacity));
    // The list always holds exactly its capacity of entries; a capacity
    // that disagrees with the count read is a corrupt archive.
    if (capacity != entries.GetSize())
      AfxThrowArchiveException(CArchiveException::badIndex, ar.m_strFileName);
    m_arrEntries.Copy(entries);
    m_nCapacity = capacity;
  }
}
