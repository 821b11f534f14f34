// The non-template arrays: the members they share, then each serializable
// array's Serialize.
#include <afxcoll.h>

// The out-of-line members of AFX_ARRAY_MEMBERS, all through AfxCollImpl.
#define AFX_IMPLEMENT_ARRAY(class_name, ARG_TYPE)                                                  \
  class_name::~class_name() { AfxCollImpl::SetSize(*this, 0, -1); }                                \
  void class_name::SetSize(INT_PTR nNewSize, INT_PTR nGrowBy) {                                    \
    AfxCollImpl::SetSize(*this, nNewSize, nGrowBy);                                                \
  }                                                                                                \
  void class_name::FreeExtra() { AfxCollImpl::FreeExtra(*this); }                                  \
  void class_name::SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement) {                                \
    AfxCollImpl::SetAtGrow<class_name, ARG_TYPE>(*this, nIndex, newElement);                       \
  }                                                                                                \
  INT_PTR class_name::Append(const class_name& src) { return AfxCollImpl::Append(*this, src); }    \
  void class_name::Copy(const class_name& src) { AfxCollImpl::Copy(*this, src); }                  \
  void class_name::InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount) {                 \
    AfxCollImpl::InsertAt<class_name, ARG_TYPE>(*this, nIndex, newElement, nCount);                \
  }                                                                                                \
  void class_name::RemoveAt(INT_PTR nIndex, INT_PTR nCount) {                                      \
    AfxCollImpl::RemoveAt(*this, nIndex, nCount);                                                  \
  }                                                                                                \
  void class_name::InsertAt(INT_PTR nStartIndex, class_name* pNewArray) {                          \
    AfxCollImpl::InsertArray(*this, nStartIndex, pNewArray);                                       \
  }

IMPLEMENT_SERIAL(CObArray, CObject, 0)
IMPLEMENT_DYNAMIC(CPtrArray, CObject)
IMPLEMENT_SERIAL(CByteArray, CObject, 0)
IMPLEMENT_SERIAL(CWordArray, CObject, 0)
IMPLEMENT_SERIAL(CDWordArray, CObject, 0)
IMPLEMENT_DYNAMIC(CUIntArray, CObject)
IMPLEMENT_SERIAL(CStringArray, CObject, 0)

AFX_IMPLEMENT_ARRAY(CObArray, CObject*)
AFX_IMPLEMENT_ARRAY(CPtrArray, void*)
AFX_IMPLEMENT_ARRAY(CByteArray, BYTE)
AFX_IMPLEMENT_ARRAY(CWordArray, WORD)
AFX_IMPLEMENT_ARRAY(CDWordArray, DWORD)
AFX_IMPLEMENT_ARRAY(CUIntArray, UINT)
AFX_IMPLEMENT_ARRAY(CStringArray, LPCTSTR)

void CStringArray::SetAtGrow(INT_PTR nIndex, const CString& newElement) {
  AfxCollImpl::SetAtGrow<CStringArray, const CString&>(*this, nIndex, newElement);
}

void CStringArray::InsertAt(INT_PTR nIndex, const CString& newElement, INT_PTR nCount) {
  AfxCollImpl::InsertAt<CStringArray, const CString&>(*this, nIndex, newElement, nCount);
}

// ---- serialization ----------------------------------------------------------

// The count, then the elements' bytes as they lie in memory (little-endian).
template <class ARR> static void SerializeRaw(ARR& a, CArchive& ar) {
  if (ar.IsStoring()) {
    ar.WriteCount(a.GetSize());
    if (a.GetSize() != 0) ar.Write(a.GetData(), (UINT)(a.GetSize() * sizeof(*a.GetData())));
  } else {
    AfxCollImpl::Load(a, ar.ReadCount(), [&ar](decltype(a.GetData()) p, INT_PTR n) {
      AfxCollReadBytes(ar, p, (UINT_PTR)n * sizeof(*p));
    });
  }
}

void CByteArray::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  SerializeRaw(*this, ar);
}

void CWordArray::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  SerializeRaw(*this, ar);
}

void CDWordArray::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  SerializeRaw(*this, ar);
}

void CObArray::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  if (ar.IsStoring()) {
    ar.WriteCount(m_nSize);
    for (INT_PTR i = 0; i < m_nSize; i++)
      ar.WriteObject(m_pData[i]);
  } else {
    AfxCollImpl::Load(*this, ar.ReadCount(), [&ar](CObject** p, INT_PTR n) {
      for (INT_PTR i = 0; i < n; i++)
        p[i] = ar.ReadObject(NULL);
    });
  }
}

void CStringArray::Serialize(CArchive& ar) {
  CObject::Serialize(ar);
  if (ar.IsStoring()) {
    ar.WriteCount(m_nSize);
    for (INT_PTR i = 0; i < m_nSize; i++)
      ar << m_pData[i];
  } else {
    AfxCollImpl::Load(*this, ar.ReadCount(), [&ar](CString* p, INT_PTR n) {
      for (INT_PTR i = 0; i < n; i++)
        ar >> p[i];
    });
  }
}
