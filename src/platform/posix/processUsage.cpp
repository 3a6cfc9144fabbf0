#include "platform/posix/processUsage.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace orrelo {

// The fields of /proc/self/stat (proc(5)), counted from the one after the name, which may contain spaces.
ProcessUsage processUsage() {
  constexpr int fieldOfThreads = 17;
  constexpr int fieldOfResidentPages = 21;
  std::array<char, 1024> text{};
  const int descriptor = ::open("/proc/self/stat", O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return {};
  const auto size = ::read(descriptor, text.data(), text.size() - 1);
  ::close(descriptor);
  const auto nameEnd =
      std::string_view(text.data(), size < 0 ? 0 : static_cast<std::size_t>(size)).rfind(')');
  if (nameEnd == std::string_view::npos) return {};

  ProcessUsage usage;
  const char* at = text.data() + nameEnd + 1;
  for (int field = 0; *at != '\0'; ++field) {
    while (*at == ' ') ++at;
    if (field == fieldOfThreads) usage.threads = std::strtoull(at, nullptr, 10);
    if (field == fieldOfResidentPages) {
      const auto pages = std::strtoull(at, nullptr, 10);
      usage.residentBytes = pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    }
    while (*at != ' ' && *at != '\0') ++at;
  }
  return usage;
}

}  // namespace orrelo
