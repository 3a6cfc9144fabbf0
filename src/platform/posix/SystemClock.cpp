#include "platform/posix/SystemClock.h"

namespace orrelo {
namespace {

template <class Source>
std::chrono::microseconds read() {
  return std::chrono::floor<std::chrono::microseconds>(Source::now().time_since_epoch());
}

}  // namespace

Date SystemClock::now() const {
  return Date(read<std::chrono::system_clock>());
}

std::chrono::microseconds SystemClock::steady() const {
  return read<std::chrono::steady_clock>();
}

}  // namespace orrelo
