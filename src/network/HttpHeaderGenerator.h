#pragma once

#include <orrelo/UserDefaults.h>
#include <orrelo/platform/URLSession.h>

#include <memory>

namespace orrelo {

/// Generates the headers that identify the application and its installation. They are generated once, at
/// `Orrelo::initialize`, and do not reflect later changes of the device's settings.
class HttpHeaderGenerator {
 public:
  /// `userDefaults` is the suite named by the application key, which stores the device id.
  explicit HttpHeaderGenerator(std::shared_ptr<UserDefaults> userDefaults)
      : userDefaults_(std::move(userDefaults)) {}

  HTTPHeaders generate() const;
  /// Identifies this installation of the application; made by the first call.
  std::string deviceId() const;

 private:
  std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace orrelo
