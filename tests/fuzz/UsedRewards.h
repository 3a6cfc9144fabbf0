#pragma once

#include "kit/GifticonComponent.h"
#include "kit/PointComponent.h"
#include "kit/RewardComponent.h"
#include "require.h"
#include "rewards/RewardViewController.h"
#include "rewards/gifticon/GifticonDetailViewController.h"
#include "rewards/gifticon/GifticonViewController.h"
#include "rewards/point/PointRedemptionHistoryViewController.h"
#include "support/FixedConfig.h"
#include "support/TestPlatform.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

namespace orrelo::test {

/// Opens the screens of rewards over a service's replies, and drives them as a front and a user do.
class UsedRewards {
 public:
  UsedRewards(TestPlatform& platform, NetworkConfig networkConfig)
      : platform_(platform), networkConfig_(std::move(networkConfig)) {
    config_->config.plugin = {.pointSystem = true,
                              .externalPointPlugin = ExternalPointPlugin(ExternalPointPlugin::Enabled()),
                              .gifticon = true};
    host_->appear(false);
  }

  /// `count` is the number of vouchers that the reply has; nullopt if it cannot be read.
  void useGifticons(std::optional<std::size_t> count) {
    const auto screen = open<GifticonViewController>(*GifticonComponent(config_, networkConfig_).router);
    require(screen->state().cells.size() == count.value_or(0),
            "each voucher has its cell, and an error none");
    require(screen->toastLayer->toasts.value().empty() == count.has_value(), "an error is told");
    require(screen->errorView->state.value().isHidden == (count != 0U), "an empty list says so");
    for (std::size_t row = 0; row < std::min<std::size_t>(screen->state().cells.size(), 40); ++row) {
      const auto cell = screen->state().cells[row];
      require(!cell.iconAsset.empty() && !cell.iconLabel.empty() && !cell.accessibilityLabel.empty(),
              "each cell says what it is");
      const auto before = platform_.session->requests.size();
      screen->didSelect(row);
      platform_.loop->run();
      const auto detail =
          std::dynamic_pointer_cast<GifticonDetailViewController>(screen->presentedViewController());
      const bool hasIssued = platform_.session->requests.size() > before && !detail;
      require((detail || hasIssued) == cell.isEnabled, "a tap acts where the cell says so");
      require(!screen->state().isLoading, "a request ends");
      if (!detail) continue;
      require(!detail->isLoading.value(), "a picture's load ends");
      detail->imageView->toggle(1.0, 1.0);
      detail->close();
    }
    close();
  }

  /// `rowCount` is the number of rows of a page; nullopt if it or the balance cannot be read.
  void useHistory(std::optional<std::size_t> rowCount) {
    const auto screen =
        open<PointRedemptionHistoryViewController>(*PointComponent(config_, networkConfig_).router);
    const auto count = screen->state().rowCount;
    require(count == rowCount.value_or(0), "each movement has its row, and an error none");
    require(screen->errorView->state.value().isHidden == (count > 0), "an empty page and an error say so");
    for (std::size_t row = 0; row < std::min<std::size_t>(count, 100); ++row) {
      require(!screen->cell(row).amount.empty(), "each row has an amount");
    }
    if (count > 0) screen->willDisplay(count - 1);
    platform_.loop->run();
    require(screen->state().rowCount == 2 * count, "the end of a page asks for the next one, once");
    close();
  }

  /// The parameters tell which of the replies can be read.
  void useSummary(bool hasPoint, bool hasCounts) {
    const PointComponent points(config_, networkConfig_);
    const RewardComponent rewards(config_, points.fetchPointUseCase, networkConfig_);
    const auto tab = RewardViewController::create(rewards.viewModel, nullptr);
    tab->loadViewIfNeeded();
    tab->appear(false);
    platform_.loop->run();
    require(tab->ticketButton->state.value().badgeText.empty() == !hasCounts, "the counts show the badges");
    require(tab->pointView->state.value().isHidden == !(hasCounts && hasPoint), "the balance shows its view");
    require(!hasCounts || tab->ticketButton->state.value().badgeText.size() <= 20, "a badge is short");
    tab->onClickPointView();
    tab->onClickGifticonButton();
    tab->disappear(false);
  }

 private:
  template <class Screen>
  std::shared_ptr<Screen> open(Router& router) {
    router.route(host_, nullptr, nullptr);
    platform_.loop->run();
    const auto screen = std::dynamic_pointer_cast<Screen>(host_->presentedViewController());
    require(screen != nullptr && !screen->state().isLoading, "a screen opens, and its load ends");
    return screen;
  }
  void close() {
    host_->dismiss(false);
    require(!host_->presentedViewController(), "a screen closes");
  }

  TestPlatform& platform_;
  const NetworkConfig networkConfig_;
  const std::shared_ptr<FixedConfig> config_ = std::make_shared<FixedConfig>();
  const std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
};

}  // namespace orrelo::test
