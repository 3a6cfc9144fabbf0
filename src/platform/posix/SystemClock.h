#pragma once

#include <orrelo/platform/Clock.h>

namespace orrelo {

class SystemClock final : public Clock {
 public:
  Date now() const override;
  std::chrono::microseconds steady() const override;
};

}  // namespace orrelo
