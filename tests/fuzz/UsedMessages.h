#pragma once

#include "inappmessage/InAppMessageViewController.h"
#include "kit/InAppMessageComponent.h"
#include "require.h"
#include "support/FixedConfig.h"
#include "support/NamedCampaigns.h"
#include "support/TestPlatform.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

namespace orrelo::test {

/// Shows the messages of a service's reply and drives the carousel as a front and a user do. `count` is the
/// number of messages; nullopt if the reply cannot be read.
inline void useMessages(TestPlatform& platform, const NetworkConfig& networkConfig,
                        std::optional<std::size_t> count) {
  const auto host = std::make_shared<HostViewController>();
  host->appear(false);
  const InAppMessageComponent component(std::make_shared<FixedConfig>(), networkConfig,
                                        std::make_shared<NamedCampaigns>());
  component.navigator->show(host, "minji");
  platform.loop->run();
  const auto screen = std::dynamic_pointer_cast<InAppMessageViewController>(host->presentedViewController());
  require((screen != nullptr) == (count.value_or(0) > 0), "messages are shown where there are any");
  if (!screen) return;
  require(screen->cells.size() == *count, "each message has its page");
  require(screen->state.value().showsPageControl == (*count > 1), "a single page needs no dots");
  for (std::size_t page = 0; page < std::min<std::size_t>(*count, 40); ++page) {
    screen->didScroll(static_cast<double>(page) * 390.0, 390.0);
    require(screen->state.value().currentPage == page, "the current page is the one that is shown");
  }
  platform.loop->runFor(std::chrono::seconds(10));
  require(screen->scroll.value().item < *count, "it turns to a page that exists");
  screen->didSelect(*count - 1);
  require(host->presentedViewController() && host->presentedViewController() != screen,
          "a campaign takes the messages' place");
}

}  // namespace orrelo::test
