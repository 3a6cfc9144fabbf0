#pragma once

#include "inappmessage/InAppMessageSkipTimeCheckService.h"

#include <memory>
#include <utility>

namespace orrelo {

/// Shared by all screens with messages.
class InAppMessageViewModel {
 public:
  explicit InAppMessageViewModel(std::shared_ptr<InAppMessageSkipTimeCheckService> service)
      : skipTimeCheckService(std::move(service)) {}

  const std::shared_ptr<InAppMessageSkipTimeCheckService> skipTimeCheckService;
};

}  // namespace orrelo
