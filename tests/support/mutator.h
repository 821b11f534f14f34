// A fixed-seed mutator for tests of corrupt input: the same seed gives the
// same damaged copies on every run, so a failure can be replayed.
#ifndef VRK_TESTS_MUTATOR_H
#define VRK_TESTS_MUTATOR_H

#include <stdint.h>
#include <string>

// A small fixed-seed generator (xorshift32) so corrupt inputs repeat.
class Mutator {
public:
  explicit Mutator(uint32_t seed) : m_state(seed ? seed : 1) {}
  uint32_t Next() {
    m_state ^= m_state << 13;
    m_state ^= m_state >> 17;
    m_state ^= m_state << 5;
    return m_state;
  }
  // One of: cut the bytes short, flip bytes, write an absurd 32-bit value,
  // or insert junk.
  std::string Mutate(const std::string& in) {
    std::string s = in;
    switch (Next() % 4) {
    case 0:
      s.resize(s.empty() ? 0 : Next() % s.size());
      break;
    case 1:
      for (int n = 1 + Next() % 3; n > 0 && !s.empty(); n--)
        s[Next() % s.size()] = (char)Next();
      break;
    case 2:
      if (s.size() >= 4) {
        size_t at = Next() % (s.size() - 3);
        uint32_t v = (Next() & 1) ? 0xFFFFFFFFu - Next() % 16 : Next();
        for (int i = 0; i < 4; i++)
          s[at + i] = (char)(v >> (8 * i));
      }
      break;
    default:
      s.insert(s.empty() ? 0 : Next() % s.size(), 1 + Next() % 6, (char)Next());
      break;
    }
    return s;
  }

private:
  uint32_t m_state;
};

#endif
