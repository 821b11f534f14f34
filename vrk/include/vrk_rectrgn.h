// vrk_rectrgn.h - a region kept as an ordered list of rectangles that a
// caller can walk piece by piece, cut, and simplify.
#ifndef VRK_RECTRGN_H
#define VRK_RECTRGN_H

#include "vrkdefs.h"
#include <afxtempl.h>
#include <atltypes.h>

// A growable array of rectangles. Serialised as the element count (archive
// count encoding), then each rectangle as 16 raw bytes: left, top, right,
// bottom, little-endian signed 32-bit values.
class VRK_API VCellRectArray : public CArray<CRect, const CRect&> {
  DECLARE_SERIAL(VCellRectArray)
public:
  VCellRectArray() {}
  virtual ~VCellRectArray() {}
};

// Positions are 1-based: position p is element p-1, 0 ends a walk.
// Forward:  pos = GetFirstRectPosition(); while (pos) r = GetNextRect(pos);
// Backward: pos = GetLastRectPosition();  while (pos) r = GetPrevRect(pos);
// Element access outside the list throws CInvalidArgException.
class VRK_API VRectRgn : public CObject {
  DECLARE_DYNAMIC(VRectRgn)
public:
  VRectRgn();
  virtual ~VRectRgn();

  void Empty();
  // Appends only the parts of the rectangle no element covers yet; 0 for
  // NULL, else 1 (also when nothing was left to add).
  int AddRect(const RECT* pRect);
  // Appends the rectangle as it is, overlaps included; 0 for NULL.
  int AddRectDirect(const RECT* pRect);
  // Cuts the rectangle out of every element; 1 when any element changed.
  int RemoveRect(const RECT* pRect);
  // Replaces a list that fills its bounding box by that box, or merges
  // stacked one-unit rows; 1 when the list was replaced.
  int SimplifyRgn();

  int PtInRgn(POINT pt) const;
  // The bounding box of the union; (0,0,0,0) when the list is empty.
  void GetRectBox(RECT* pRect) const;
  int GetRectCount() const { return (int)m_rects.GetSize(); }
  int ContainsMultipleRects() const { return m_rects.GetSize() > 1; }

  int GetFirstRectPosition() const { return m_rects.GetSize() > 0 ? 1 : 0; }
  int GetLastRectPosition() const { return (int)m_rects.GetSize(); }
  // Element pos-1; pos then moves on, or becomes 0 after the last. Throws for
  // pos 0.
  CRect GetNextRect(int& pos) const;
  // Takes pos below 1 as 1; element pos-1, then pos-1 (0 after the first).
  CRect GetPrevRect(int& pos) const;

protected:
  // Appends to out the parts of a that b does not cover: the left and right
  // pieces (clipped to the rows of the overlap), then the full-width top and
  // bottom bands. 1 when a and b intersect (a wholly covered appends
  // nothing), 0 when they are disjoint or either is NULL.
  int SubtractRects(const RECT* a, const RECT* b, VCellRectArray& out) const;

  VCellRectArray m_rects;
  CRect m_rectBound; // set empty by the constructor and Empty, not maintained
};

#endif // VRK_RECTRGN_H
