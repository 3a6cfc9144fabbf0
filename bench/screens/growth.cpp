#include "screens/growth.h"

#include <cstddef>
#include <fstream>
#include <malloc.h>
#include <unistd.h>

namespace orrelo::bench {

double residentMebibytes() {
  malloc_trim(0);
  std::size_t pages = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

std::vector<double> growthBy(const std::function<void()>& openAndClose) {
  for (int i = 0; i < 20; ++i) openAndClose();
  const double before = residentMebibytes();
  for (int i = 0; i < 200; ++i) openAndClose();
  return {residentMebibytes() - before};
}

}  // namespace orrelo::bench
