#pragma once

#include <orrelo/UserDefaults.h>

#include <memory>
#include <utility>

namespace orrelo {

/// Remembers the day on which the user wants no more messages. It applies to all users of the device. Any
/// thread.
class InAppMessageSkipTimeCheckService {
 public:
  virtual ~InAppMessageSkipTimeCheckService() = default;

  virtual bool hasSkippedToday() const = 0;
  virtual void recordSkipToday() = 0;
};

/// Stores the date of the device's clock in the device's current time zone. Dates are only compared for
/// equality: a stored date in the future, after a change of the clock, suppresses nothing.
class InAppMessageSkipTimeCheckServiceImpl final : public InAppMessageSkipTimeCheckService {
 public:
  static constexpr auto key = "inAppMessageLastSkipDay";

  explicit InAppMessageSkipTimeCheckServiceImpl(std::shared_ptr<UserDefaults> userDefaults)
      : userDefaults_(std::move(userDefaults)) {}

  bool hasSkippedToday() const override;
  void recordSkipToday() override;

 private:
  const std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace orrelo
