#pragma once

#include "rewards/RewardRepository.h"
#include "rewards/point/FetchPointRedemptionHistoriesUseCase.h"
#include "rewards/point/FetchPointUnitUseCase.h"
#include "rewards/point/FetchPointUseCase.h"
#include "support/FixedConfig.h"
#include "support/Reports.h"
#include "support/TestPlatform.h"
#include "ui/ViewController.h"

#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orrelo::test {

/// The data layer of points and rewards on a scripted network, with all plugins switched on and a user signed
/// in.
class RewardsFixture : public testing::Test {
 protected:
  RewardsFixture();
  ~RewardsFixture() override;

  static std::string pointReply(std::int64_t amount = 1250, const std::string& unit = "P");
  static std::string row(std::int64_t id, const std::string& date = "2024-03-10T01:00:00+09:00",
                         std::int64_t amount = 10);
  /// The requests whose path ends with `path`.
  std::vector<URLRequest> requestsTo(const std::string& path) const {
    return platform_.session->requestsTo(path);
  }
  /// The numbers of the pages that were asked for, in order.
  std::vector<std::string> pagesAsked() const;

  TestPlatform platform_;
  std::shared_ptr<FixedConfig> config_ = std::make_shared<FixedConfig>();
  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
  /// The replies by the end of the path. A request without one waits.
  std::map<std::string, std::optional<URLSessionResult>> replies_;
  /// The rows of the history's pages, as members of an array. Pages after them are empty.
  std::vector<std::string> pages_;
  bool historyWaits_ = false;
  std::shared_ptr<PointRepository> repository_;
  std::shared_ptr<FetchPointUseCase> fetchPoint_;
};

}  // namespace orrelo::test
