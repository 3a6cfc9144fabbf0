#pragma once

#include <functional>
#include <vector>

namespace orrelo::bench {

/// The resident memory of this process, after the C library has returned its free memory.
double residentMebibytes();

/// The resident memory in MiB that 200 calls add, after 20 calls that fill the caches.
std::vector<double> growthBy(const std::function<void()>& openAndClose);

}  // namespace orrelo::bench
