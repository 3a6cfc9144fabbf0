#pragma once

#include "referral/ReferralService.h"
#include "support/FixedConfig.h"
#include "support/Json.h"
#include "support/Reports.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>

namespace orrelo::test {

/// The service of codes on a scripted network, with a user signed in.
class ReferralFixture : public testing::Test {
 protected:
  ReferralFixture();
  ~ReferralFixture() override;

  /// A list of campaigns with two referral campaigns behind another one.
  static Json campaigns();
  /// A reply to an authorization that changes one field, or removes it.
  static std::string authorization(const std::string& key = "result",
                                   const std::optional<Json>& value = Json(true));
  static std::string verification(bool isVerified, const Json& message = nullptr);
  /// Answers the oldest request that waits.
  void answer(int status, const std::string& body);
  /// The requests to paths that end like this.
  std::vector<URLRequest> requestsTo(const std::string& path) const {
    return platform_.session->requestsTo(path);
  }

  TestPlatform platform_;
  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::shared_ptr<FixedConfig> config_ = std::make_shared<FixedConfig>();
  /// The reply to "/campaigns"; requests wait without one.
  std::optional<URLSessionResult> list_;
  std::shared_ptr<ReferralService> service_;
};

}  // namespace orrelo::test
