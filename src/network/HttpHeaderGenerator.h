#pragma once

#include "platform/URLSession.h"

#include <orrelo/UserDefaults.h>

#include <memory>

namespace orrelo {

/// The headers that say which installation of which application asks. Made once at `Orrelo::initialize`: what
/// the device's user changes later does not reach them.
class HttpHeaderGenerator {
 public:
  /// The suite named by the application key; it keeps the device id.
  explicit HttpHeaderGenerator(std::shared_ptr<UserDefaults> userDefaults)
      : userDefaults_(std::move(userDefaults)) {}

  HTTPHeaders generate() const;

 private:
  std::string deviceId() const;

  std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace orrelo
