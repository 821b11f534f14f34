// Version words and their ordering.
#include "vrk_version.h"

int operator==(tagVersionWord a, tagVersionWord b) { return a.high == b.high && a.low == b.low; }

// Lexicographic and signed: the high part decides, the low part breaks ties.
int operator<(tagVersionWord a, tagVersionWord b) {
  return a.high < b.high || (a.high == b.high && a.low < b.low);
}

int operator>(tagVersionWord a, tagVersionWord b) { return b < a; }
