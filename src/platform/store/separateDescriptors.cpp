#include "platform/store/separateDescriptors.h"

#ifdef __linux__
#include <algorithm>
#include <fcntl.h>
#include <limits>
#include <linux/close_range.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace orrelo {

void separateDescriptors() {
#ifdef __linux__
  // A copy of a descriptor would keep open what the host closes. Log lines need the standard streams.
  if (close_range(3, std::numeric_limits<unsigned>::max(), CLOSE_RANGE_UNSHARE) != 0) return;
  // The low numbers are occupied: a descriptor of another thread that is used here by mistake (a wake-up of
  // the network's thread when a request is cancelled) must not write into a store.
  constexpr rlim_t mostReserved = 512;
  rlimit limit{};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
  const auto reserved = static_cast<long>(std::min(mostReserved, limit.rlim_cur / 2));
  // System calls without wrappers, since thread sanitizers take equal numbers for the same descriptor.
  const long nothing = syscall(SYS_openat, AT_FDCWD, "/dev/null", O_RDWR | O_CLOEXEC);
  for (long last = nothing; last >= 0 && last < reserved;) {
    last = syscall(SYS_fcntl, nothing, F_DUPFD_CLOEXEC, 0);
  }
#endif
}

}  // namespace orrelo
