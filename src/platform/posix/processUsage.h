#pragma once

#include <cstddef>

namespace orrelo {

/// What the system says about this process; 0 where it does not tell.
struct ProcessUsage {
  std::size_t threads = 0;
  std::size_t residentBytes = 0;
};

ProcessUsage processUsage();

}  // namespace orrelo
