// The non-template maps: the members they share, their hashes, then the
// extras of the string maps and Serialize.
#include <afxcoll.h>

// The out-of-line members of AFX_MAP_MEMBERS, all through AfxCollImpl.
// NEW_ASSOC constructs the association pNew for key.
#define AFX_IMPLEMENT_MAP(class_name, KEY, ARG_KEY, VALUE, NEW_ASSOC)                              \
  class_name::~class_name() { RemoveAll(); }                                                       \
  void class_name::RemoveAll() { AfxCollImpl::RemoveAllAssocs(*this); }                            \
  void class_name::InitHashTable(UINT hashSize, BOOL bAllocNow) {                                  \
    AfxCollImpl::InitHashTable(*this, hashSize, bAllocNow);                                        \
  }                                                                                                \
  class_name::CAssoc* class_name::GetAssocAt(ARG_KEY key, UINT& nHashValue) const {                \
    nHashValue = HashKey(key);                                                                     \
    return AfxCollImpl::FindAssoc(*this, nHashValue,                                               \
                                  [key](const CAssoc* p) { return p->key == key; });               \
  }                                                                                                \
  BOOL class_name::Lookup(ARG_KEY key, VALUE& rValue) const {                                      \
    UINT nHashValue;                                                                               \
    CAssoc* pAssoc = GetAssocAt(key, nHashValue);                                                  \
    if (pAssoc == NULL) return FALSE;                                                              \
    rValue = pAssoc->value;                                                                        \
    return TRUE;                                                                                   \
  }                                                                                                \
  VALUE& class_name::operator[](ARG_KEY key) {                                                     \
    UINT nHashValue;                                                                               \
    CAssoc* pAssoc = GetAssocAt(key, nHashValue);                                                  \
    if (pAssoc == NULL)                                                                            \
      pAssoc = AfxCollImpl::NewAssoc(*this, nHashValue, [key](CAssoc* pNew) { NEW_ASSOC; });       \
    return pAssoc->value;                                                                          \
  }                                                                                                \
  BOOL class_name::RemoveKey(ARG_KEY key) {                                                        \
    return AfxCollImpl::RemoveKey(*this, HashKey(key),                                             \
                                  [key](const CAssoc* p) { return p->key == key; });               \
  }                                                                                                \
  void class_name::GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const {         \
    CAssoc* pAssoc = AfxCollImpl::GetNextAssoc(*this, rNextPosition);                              \
    rKey = pAssoc->key;                                                                            \
    rValue = pAssoc->value;                                                                        \
  }

// Value-initialized (NULL value), then the key assigned.
#define AFX_NEW_ASSOC_ASSIGN ((void)::new ((void*)pNew) CAssoc(), pNew->key = key)

IMPLEMENT_DYNAMIC(CMapPtrToPtr, CObject)
IMPLEMENT_DYNAMIC(CMapWordToPtr, CObject)
IMPLEMENT_DYNAMIC(CMapStringToPtr, CObject)
IMPLEMENT_SERIAL(CMapStringToOb, CObject, 0)
IMPLEMENT_SERIAL(CMapWordToOb, CObject, 0)
IMPLEMENT_SERIAL(CMapStringToString, CObject, 0)

AFX_IMPLEMENT_MAP(CMapPtrToPtr, void*, void*, void*, AFX_NEW_ASSOC_ASSIGN)
AFX_IMPLEMENT_MAP(CMapWordToPtr, WORD, WORD, void*, AFX_NEW_ASSOC_ASSIGN)
AFX_IMPLEMENT_MAP(CMapStringToPtr, CString, LPCTSTR, void*, AFX_NEW_ASSOC_ASSIGN)
AFX_IMPLEMENT_MAP(CMapStringToOb, CString, LPCTSTR, CObject*, AFX_NEW_ASSOC_ASSIGN)
AFX_IMPLEMENT_MAP(CMapWordToOb, WORD, WORD, CObject*, AFX_NEW_ASSOC_ASSIGN)
AFX_IMPLEMENT_MAP(CMapStringToString, CString, LPCTSTR, CString,
                  (void)::new ((void*)pNew) CAssoc(key))

// ---- hashes (as MFC's, so that iteration and serialization orders match) ----

UINT CMapPtrToPtr::HashKey(void* key) const { return (UINT)(((UINT_PTR)key) >> 4); }
UINT CMapWordToPtr::HashKey(WORD key) const { return ((UINT)key) >> 4; }
UINT CMapWordToOb::HashKey(WORD key) const { return ((UINT)key) >> 4; }
UINT CMapStringToPtr::HashKey(LPCTSTR key) const { return AfxCollImpl::HashString(key); }
UINT CMapStringToOb::HashKey(LPCTSTR key) const { return AfxCollImpl::HashString(key); }
UINT CMapStringToString::HashKey(LPCTSTR key) const { return AfxCollImpl::HashString(key); }

// ---- the string maps' extras -------------------------------------------------

// LookupKey: rKey points at the map's own copy of the key.
BOOL CMapStringToPtr::LookupKey(LPCTSTR key, LPCTSTR& rKey) const {
  UINT nHashValue;
  CAssoc* pAssoc = GetAssocAt(key, nHashValue);
  if (pAssoc == NULL) return FALSE;
  rKey = pAssoc->key;
  return TRUE;
}

BOOL CMapStringToOb::LookupKey(LPCTSTR key, LPCTSTR& rKey) const {
  UINT nHashValue;
  CAssoc* pAssoc = GetAssocAt(key, nHashValue);
  if (pAssoc == NULL) return FALSE;
  rKey = pAssoc->key;
  return TRUE;
}

BOOL CMapStringToString::LookupKey(LPCTSTR key, LPCTSTR& rKey) const {
  UINT nHashValue;
  CAssoc* pAssoc = GetAssocAt(key, nHashValue);
  if (pAssoc == NULL) return FALSE;
  rKey = pAssoc->key;
  return TRUE;
}

CMapStringToString::CPair* CMapStringToString::PLookup(LPCTSTR key) {
  UINT nHashValue;
  return GetAssocAt(key, nHashValue);
}

const CMapStringToString::CPair* CMapStringToString::PLookup(LPCTSTR key) const {
  UINT nHashValue;
  return GetAssocAt(key, nHashValue);
}

CMapStringToString::CPair* CMapStringToString::PGetFirstAssoc() {
  return AfxCollImpl::FirstAssoc(*this);
}

const CMapStringToString::CPair* CMapStringToString::PGetFirstAssoc() const {
  return AfxCollImpl::FirstAssoc(*this);
}

CMapStringToString::CPair* CMapStringToString::PGetNextAssoc(const CPair* pPair) {
  return AfxCollImpl::NextAssoc(*this, static_cast<const CAssoc*>(AfxCollImpl::Ensure(pPair)));
}

const CMapStringToString::CPair* CMapStringToString::PGetNextAssoc(const CPair* pPair) const {
  return AfxCollImpl::NextAssoc(*this, static_cast<const CAssoc*>(AfxCollImpl::Ensure(pPair)));
}

// ---- serialization ----------------------------------------------------------

// Entries are written in iteration order; loading adds each pair as it is
// read, so a corrupt count costs nothing until the archive runs out.
void CMapStringToOb::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  if (ar.IsStoring()) {
    ar.WriteCount(m_nCount);
    for (CAssoc* p = AfxCollImpl::FirstAssoc(*this); p != NULL;
         p = AfxCollImpl::NextAssoc(*this, p)) {
      ar << p->key;
      ar.WriteObject(p->value);
    }
  } else {
    DWORD_PTR nNewCount = ar.ReadCount();
    CString newKey;
    while (nNewCount-- > 0) {
      ar >> newKey;
      CObject* newValue = ar.ReadObject(NULL);
      SetAt(newKey, newValue);
    }
  }
}

void CMapWordToOb::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  if (ar.IsStoring()) {
    ar.WriteCount(m_nCount);
    for (CAssoc* p = AfxCollImpl::FirstAssoc(*this); p != NULL;
         p = AfxCollImpl::NextAssoc(*this, p)) {
      ar << p->key;
      ar.WriteObject(p->value);
    }
  } else {
    DWORD_PTR nNewCount = ar.ReadCount();
    while (nNewCount-- > 0) {
      WORD newKey;
      ar >> newKey;
      CObject* newValue = ar.ReadObject(NULL);
      SetAt(newKey, newValue);
    }
  }
}

void CMapStringToString::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  if (ar.IsStoring()) {
    ar.WriteCount(m_nCount);
    for (CAssoc* p = AfxCollImpl::FirstAssoc(*this); p != NULL;
         p = AfxCollImpl::NextAssoc(*this, p)) {
      ar << p->key;
      ar << p->value;
    }
  } else {
    DWORD_PTR nNewCount = ar.ReadCount();
    CString newKey, newValue;
    while (nNewCount-- > 0) {
      ar >> newKey;
      ar >> newValue;
      SetAt(newKey, newValue);
    }
  }
}
