// VGlobal: one HGLOBAL with a cached lock.
#include "vrk_global.h"

VGlobal::VGlobal() : m_hGlobal(NULL), m_pLocked(NULL) {}

VGlobal::VGlobal(void* hGlobal) : m_hGlobal(hGlobal), m_pLocked(NULL) {}

// Kept as callers know it: the size and flags are ignored.
VGlobal::VGlobal(unsigned long, unsigned int) : m_hGlobal(NULL), m_pLocked(NULL) {}

VGlobal::VGlobal(const VGlobal& other) : m_hGlobal(other.m_hGlobal), m_pLocked(other.m_pLocked) {}

VGlobal& VGlobal::operator=(const VGlobal& other) {
  m_hGlobal = other.m_hGlobal;
  m_pLocked = other.m_pLocked;
  return *this;
}

VGlobal::~VGlobal() {
  if (m_hGlobal != NULL) {
    Unlock();
    GlobalFree(m_hGlobal);
    m_hGlobal = NULL;
  }
}

void* VGlobal::Alloc(unsigned long nSize, unsigned int nFlags) {
  m_hGlobal = GlobalAlloc(nFlags, nSize);
  return m_hGlobal;
}

void* VGlobal::ReAlloc(unsigned long nSize, unsigned int nFlags) {
  m_hGlobal = GlobalReAlloc(m_hGlobal, (SIZE_T)nFlags, (UINT)nSize);
  return m_hGlobal;
}

void VGlobal::Free() {
  Unlock();
  if (m_hGlobal != NULL) GlobalFree(m_hGlobal);
  m_hGlobal = NULL;
}

void* VGlobal::Lock() {
  if (m_pLocked == NULL) m_pLocked = GlobalLock(m_hGlobal);
  return m_pLocked;
}

void VGlobal::Unlock() {
  if (m_hGlobal != NULL && m_pLocked != NULL) {
    GlobalUnlock(m_hGlobal);
    m_pLocked = NULL;
  }
}

unsigned long VGlobal::Size() { return (unsigned long)GlobalSize(m_hGlobal); }

unsigned int VGlobal::Flags() { return GlobalFlags(m_hGlobal); }

void* VGlobal::Detach() {
  Unlock();
  void* hGlobal = m_hGlobal;
  m_hGlobal = NULL;
  return hGlobal;
}

void VGlobal::Attach(void* hGlobal) { m_hGlobal = hGlobal; }

void* VGlobal::operator=(void* hGlobal) {
  m_hGlobal = hGlobal;
  return m_hGlobal;
}
