#pragma once

#include <orrelo/platform/Random.h>

namespace orrelo {

/// The system's generator. A forked child never repeats the values of its parent.
class SystemRandom final : public Random {
 public:
  void fill(std::span<std::uint8_t> bytes) override;
};

}  // namespace orrelo
