// vrk_version.h - version words: a pair of signed 32-bit parts, compared
// high part first.
#ifndef VRK_VERSION_H
#define VRK_VERSION_H

#include "vrkdefs.h"

struct tagVersionWord {
  LONG high;
  LONG low;
};

VRK_API int operator==(tagVersionWord a, tagVersionWord b);
VRK_API int operator<(tagVersionWord a, tagVersionWord b);
VRK_API int operator>(tagVersionWord a, tagVersionWord b);

#endif // VRK_VERSION_H
