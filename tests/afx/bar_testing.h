// Ids shared by the control bar tests and their resources (only #defines:
// the resource compiler reads this file too).
#ifndef VRK_TESTS_BAR_TESTING_H
#define VRK_TESTS_BAR_TESTING_H

// Status bar indicators with strings, and one without.
#define IDS_LINE 0x8001
#define IDS_MISSING 0x8002

// Toolbar commands and resources.
#define ID_TOOL_A 0x8101
#define ID_TOOL_B 0x8102
#define ID_TOOL_C 0x8103
#define ID_TOOL_D 0x8104
#define IDR_TOOLBAR 0x0200
#define IDR_TOOLBAR_BADVERSION 0x0201
#define IDR_TOOLBAR_TRUNCATED 0x0202
#define IDR_TOOLBAR_NOBITMAP 0x0203
#define IDR_TOOLBAR_WINDRES_TRUNCATED 0x0206

#ifndef RC_INVOKED
#include <atltypes.h>
#include <ostream>

// Rectangles print as their corners in failed expectations.
inline void PrintTo(const CRect& rect, std::ostream* os) {
  *os << "(" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ")";
}
#endif

#endif // VRK_TESTS_BAR_TESTING_H
