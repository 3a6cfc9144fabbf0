// Measures a notification from its payload to its route, with settings in memory: the write of the user's id
// to the settings file is not part of the figure.
#include "Benches.h"
#include "Targets.h"
#include "push/OrreloPush.h"
#include "support/TestPlatform.h"
#include "ui/KeyWindow.h"

#include <memory>
#include <stdexcept>

namespace orrelo::bench {
namespace {

class CountingRouter final : public PageRouter {
 public:
  void route(const std::shared_ptr<ViewController>&, const Page& page) override {
    count += page == Page(Page::Campaign{"autumn-festival"}) ? 1 : 0;
  }
  int count = 0;
};

std::vector<double> measure() {
  constexpr int burst = 1'000;
  constexpr int bursts = 200;
  const test::TestPlatform platform;
  const auto router = std::make_shared<CountingRouter>();
  const OrreloPush push(std::make_shared<PushTokenRepositoryImpl>(PushNetworkConfig()),
                        std::make_shared<PushRouter>(router, UserManager()));
  const auto host = std::make_shared<HostViewController>();
  setKeyWindowRootViewController(host);
  UserManager().setUserId("user-1");
  const NotificationResponse response{
      {{"Orrelo", true},
       {"aps", EventDictionary{{"alert", "A gift has arrived"}, {"badge", 1}}},
       {"campaignId", "autumn-festival"},
       {"deeplink", ""}}};
  std::vector<double> samples;
  int completed = 0;
  for (int i = 0; i < bursts; ++i) {
    const auto start = std::chrono::steady_clock::now();
    for (int n = 0; n < burst; ++n) push.handle(response, [&completed] { ++completed; });
    samples.push_back(secondsSince(start) * 1e6 / burst);
  }
  if (router->count != burst * bursts || completed != router->count) {
    throw std::runtime_error("a notification was not routed");
  }
  return {quantile(samples, 0.5)};
}

}  // namespace

void addPush() {
  add({{"a push payload to its route, beside the settings write", "us", 3}}, measure);
}

}  // namespace orrelo::bench
