// vrk_keyboardmap.h - the keyboard map's document, view and container item:
// a read-only rich-text document in an MDI child, opened by
// VrkAccelShowKeyboardMap (vrk_accel.h).
//
// Each line is the key text padded to 30 characters, then the command's
// description (its string resource up to the first "\n", or
// "** No description **") padded to 60, then "\r\n". Lines are sorted by the
// number of "+" in the key column (plain keys first), then by the column's
// text. The main frame's table comes first, then each MDI template's; a
// table met twice is listed once.
#ifndef VRK_KEYBOARDMAP_H
#define VRK_KEYBOARDMAP_H

#include "vrkdefs.h"
#include <afxrich.h>

class VRK_API VKeyboardMapCntrItem : public CRichEditCntrItem {
  DECLARE_DYNAMIC(VKeyboardMapCntrItem)
public:
  VKeyboardMapCntrItem(REOBJECT* preo, CRichEditDoc* pContainer);
  virtual ~VKeyboardMapCntrItem();
};

class VRK_API VKeyboardMapDoc : public CRichEditDoc {
  DECLARE_DYNCREATE(VKeyboardMapDoc)
protected:
  VKeyboardMapDoc();

public:
  virtual ~VKeyboardMapDoc();
  virtual BOOL OnNewDocument();
  virtual CRichEditCntrItem* CreateClientItem(REOBJECT* preo = NULL) const;
};

class VRK_API VKeyboardMapView : public CRichEditView {
  DECLARE_DYNCREATE(VKeyboardMapView)
protected:
  VKeyboardMapView();

public:
  virtual ~VKeyboardMapView();

  // Builds the map from the running application (empty when its main window
  // is not a frame) and fills the control: underlined Courier, read-only,
  // unmodified, the caret at the start; titles the document "Keyboard Map"
  // and sets page margins of 720 twips.
  virtual void OnInitialUpdate();

protected:
  int m_nReserved; // part of the class's layout; always 0
};

#endif // VRK_KEYBOARDMAP_H
