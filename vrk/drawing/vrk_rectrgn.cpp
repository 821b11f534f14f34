// VRectRgn: a region kept as a list of rectangles. Adding cuts the new
// rectangle against the list so that it never overlaps; GDI regions are used
// only for a moment, for the bounding box and the cover test.
#include "vrk_rectrgn.h"

IMPLEMENT_SERIAL(VCellRectArray, CObject, 1)
IMPLEMENT_DYNAMIC(VRectRgn, CObject)

namespace {

// A GDI region deleted when it goes out of scope; creation failure is a
// memory failure.
class ScopedRgn {
public:
  explicit ScopedRgn(HRGN h) : m_h(h) {
    if (m_h == NULL) AfxThrowMemoryException();
  }
  ~ScopedRgn() { ::DeleteObject(m_h); }
  operator HRGN() const { return m_h; }

private:
  HRGN m_h;
  ScopedRgn(const ScopedRgn&);
  ScopedRgn& operator=(const ScopedRgn&);
};

// The union of the rectangles into rgn (which starts empty).
void UnionInto(HRGN rgn, const VCellRectArray& rects) {
  for (INT_PTR i = 0; i < rects.GetSize(); i++) {
    ScopedRgn piece(::CreateRectRgnIndirect(&rects[i]));
    ::CombineRgn(rgn, rgn, piece, RGN_OR);
  }
}

// Replaces the element at index by the pieces; the index of the element that
// follows them.
INT_PTR ReplaceAt(VCellRectArray& list, INT_PTR index, VCellRectArray& pieces) {
  list.RemoveAt(index);
  if (pieces.GetSize() > 0) list.InsertAt(index, &pieces);
  return index + pieces.GetSize();
}

} // namespace

VRectRgn::VRectRgn() { m_rectBound.SetRectEmpty(); }

VRectRgn::~VRectRgn() {}

void VRectRgn::Empty() {
  m_rects.RemoveAll();
  m_rectBound.SetRectEmpty();
}

int VRectRgn::SubtractRects(const RECT* a, const RECT* b, VCellRectArray& out) const {
  if (a == NULL || b == NULL) return 0;
  RECT overlap;
  if (!::IntersectRect(&overlap, a, b)) return 0;
  if (::EqualRect(&overlap, a)) return 1; // wholly covered: nothing is left of a
  const LONG top = a->top > b->top ? a->top : b->top;
  const LONG bottom = a->bottom < b->bottom ? a->bottom : b->bottom;
  // The side pieces keep to the rows of the overlap and the bands take the
  // whole width, so the pieces never overlap each other.
  if (b->left > a->left) out.Add(CRect(a->left, top, b->left, bottom));
  if (b->right < a->right) out.Add(CRect(b->right, top, a->right, bottom));
  if (b->top > a->top) out.Add(CRect(a->left, a->top, a->right, b->top));
  if (b->bottom < a->bottom) out.Add(CRect(a->left, b->bottom, a->right, a->bottom));
  return out.GetSize() > 0 ? 1 : 0;
}

int VRectRgn::AddRect(const RECT* pRect) {
  if (pRect == NULL) return 0;
  VCellRectArray work;
  work.Add(CRect(pRect));
  const INT_PTR n = m_rects.GetSize();
  if (n < 1) {
    m_rects.Append(work);
    return 1;
  }
  VCellRectArray pieces;
  for (INT_PTR i = 0; i < n && work.GetSize() > 0; i++) {
    const CRect e = m_rects[i];
    INT_PTR j = 0;
    while (j < work.GetSize()) {
      pieces.RemoveAll();
      const CRect f = work[j];
      if (SubtractRects(&f, &e, pieces))
        j = ReplaceAt(work, j, pieces); // a covered fragment leaves j where it is
      else
        j++;
    }
  }
  if (work.GetSize() > 0) m_rects.InsertAt(n, &work);
  return 1;
}

int VRectRgn::AddRectDirect(const RECT* pRect) {
  if (pRect == NULL) return 0;
  m_rects.Add(CRect(pRect));
  return 1;
}

int VRectRgn::RemoveRect(const RECT* pRect) {
  if (pRect == NULL) return 0;
  int bChanged = 0;
  VCellRectArray pieces;
  INT_PTR i = 0;
  while (i < m_rects.GetSize()) {
    pieces.RemoveAll();
    const CRect e = m_rects[i];
    if (SubtractRects(&e, pRect, pieces)) {
      i = ReplaceAt(m_rects, i, pieces);
      bChanged = 1;
    } else {
      i++;
    }
  }
  return bChanged;
}

int VRectRgn::SimplifyRgn() {
  int bResult = 0;
  int bHasHoles = 0;
  if (m_rects.GetSize() > 1) {
    // Cover test: what is left of the bounding box once every element is
    // taken out of it. An empty rest means the elements fill the box.
    ScopedRgn rgn(::CreateRectRgn(0, 0, 0, 0));
    UnionInto(rgn, m_rects);
    CRect box;
    ::GetRgnBox(rgn, &box);
    ::SetRectRgn(rgn, box.left, box.top, box.right, box.bottom);
    for (INT_PTR i = 0; i < m_rects.GetSize(); i++) {
      ScopedRgn piece(::CreateRectRgnIndirect(&m_rects[i]));
      ::CombineRgn(rgn, rgn, piece, RGN_DIFF);
    }
    CRect rest(0, 0, 1, 1);
    ::GetRgnBox(rgn, &rest);
    if (rest.left == 0 && rest.top == 0 && rest.right == 0 && rest.bottom == 0) {
      m_rects.RemoveAll();
      m_rects.Add(box);
      bResult = 1;
    } else {
      bHasHoles = 1;
    }
  }

  const INT_PTR n = m_rects.GetSize();
  if (n > 1) {
    // Exchange sort, largest top first; two elements with equal tops are
    // never exchanged with each other.
    CRect* p = m_rects.GetData();
    for (INT_PTR i = 0; i < n - 1; i++)
      for (INT_PTR j = i + 1; j < n; j++)
        if (p[j].top > p[i].top) {
          CRect t = p[i];
          p[i] = p[j];
          p[j] = t;
        }
  }

  if (bHasHoles) {
    // Row merge: rows one unit apart join the run of the rectangle that
    // opened it; only the tops are compared (the list holds grid rows).
    VCellRectArray merged;
    CRect c = m_rects[0];
    for (INT_PTR k = 0; k < n - 1; k++) {
      // Sorted descending, so the difference cannot wrap into a false 1.
      if ((LONGLONG)m_rects[k].top - m_rects[k + 1].top == 1) {
        c.top = m_rects[k + 1].top;
      } else {
        merged.Add(c);
        c = m_rects[k + 1];
      }
    }
    merged.Add(c);
    if (merged.GetSize() < n) {
      m_rects.Copy(merged);
      bResult = 1;
    }
  }
  return bResult;
}

int VRectRgn::PtInRgn(POINT pt) const {
  for (INT_PTR i = 0; i < m_rects.GetSize(); i++)
    if (::PtInRect(&m_rects[i], pt)) return 1;
  return 0;
}

void VRectRgn::GetRectBox(RECT* pRect) const {
  if (pRect == NULL) return;
  ScopedRgn rgn(::CreateRectRgn(0, 0, 0, 0));
  UnionInto(rgn, m_rects);
  ::GetRgnBox(rgn, pRect);
}

CRect VRectRgn::GetNextRect(int& pos) const {
  if (pos < 1) AfxThrowInvalidArgException(); // no element before the first
  CRect r = m_rects.GetAt(pos - 1);
  pos = pos + 1 > m_rects.GetSize() ? 0 : pos + 1;
  return r;
}

CRect VRectRgn::GetPrevRect(int& pos) const {
  if (pos < 1) pos = 1;
  CRect r = m_rects.GetAt(pos - 1);
  pos = pos - 1;
  return r;
}
