#pragma once

#include <orrelo/Export.h>
#include <orrelo/Uuid.h>

#include <cstdint>
#include <span>

namespace orrelo {

/// The source of random numbers. Any thread.
class ORRELO_EXPORT Random {
 public:
  virtual ~Random() = default;

  /// Fills `bytes` with cryptographically secure random values.
  virtual void fill(std::span<std::uint8_t> bytes) = 0;

  Uuid uuid() {
    Uuid::Bytes bytes{};
    fill(bytes);
    return Uuid::fromRandom(bytes);
  }
};

}  // namespace orrelo
