#pragma once

#include <cstdio>
#include <cstdlib>

namespace orrelo::test {

/// Ends the process unless `holds`.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken invariant: %s\n", what);
  std::abort();
}

}  // namespace orrelo::test
