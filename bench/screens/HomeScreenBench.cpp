// Home: the time from the call to the first frame with the balance and the campaigns, and the memory that
// stays in use.
#include "Targets.h"
#include "navigation/HomeViewController.h"
#include "screens/ScreenBenches.h"
#include "screens/Stage.h"
#include "screens/growth.h"

#include <orrelo/Orrelo.h>

#include <string>
#include <vector>

namespace orrelo::bench {
namespace {

constexpr std::size_t campaignCount = 12;

std::string campaigns() {
  std::string rows;
  for (std::size_t i = 0; i < campaignCount; ++i) {
    rows +=
        (i > 0 ? "," : "") + test::campaignReply(test::richAttendancePage(), "c-" + std::to_string(i + 1));
  }
  return "[" + rows + "]";
}

std::string configWithAllPlugins() {
  auto reply = test::configReply();
  const std::string off = R"("gifticon":false)";
  return reply.replace(reply.find(off), off.size(), R"("gifticon":true)");
}

// While it lives, all plugins are on, and the service answers at once. The other benches have the former
// answers and configuration.
class StageWithAllPlugins {
 public:
  StageWithAllPlugins() : former_(Stage::shared().service().answers) {
    auto& answers = Stage::shared().service().answers;
    answers["/config"] = {200, configWithAllPlugins()};
    answers["/campaigns"] = {200, campaigns()};
    answers["/my-rewards"] = {200, R"({"point":1250,"ticket":3,"gifticon":12})"};
    answers["/my-point"] = {200, R"({"amount":1250,"description":"포인트","point_unit":"P","icon_url":""})"};
    answers["/icon.png"] = {404, ""};
    Orrelo::initialize(ORLConfig("bench-app"));  // fetches the configuration again
  }
  ~StageWithAllPlugins() {
    Stage::shared().service().answers = former_;
    Orrelo::initialize(ORLConfig("bench-app"));
  }
  StageWithAllPlugins(const StageWithAllPlugins&) = delete;
  StageWithAllPlugins& operator=(const StageWithAllPlugins&) = delete;

 private:
  const decltype(test::Service::answers) former_;
};

bool showsAll(const HomeViewController& home) {
  return home.campaignListViewController()->state().cells.size() == campaignCount &&
         !home.rewardViewController()->pointView->state.value().isHidden;
}

// Returns the milliseconds from the call to the first frame with everything.
double openHome() {
  auto& stage = Stage::shared();
  const auto start = std::chrono::steady_clock::now();
  Orrelo::showHome(stage.host());
  runUntil([&] { return stage.host()->presentedViewController() != nullptr; });
  const auto* const home =
      dynamic_cast<const HomeViewController*>(stage.host()->presentedViewController().get());
  stage.waitForFrame({home->campaignListViewController()->stateChanges(),
                      home->rewardViewController()->pointView->state.changes()},
                     [&] { return showsAll(*home); });
  return secondsSince(start) * 1e3;
}

std::vector<double> measureOpenings() {
  const StageWithAllPlugins plugins;
  std::vector<double> openings;
  for (int i = 0; i < 20; ++i) {
    openings.push_back(openHome());
    Stage::shared().close();
  }
  return {quantile(openings, 0.5)};
}

}  // namespace

void addHomeScreen() {
  add({{"home, from the call to the first frame with the balance and 12 campaigns", "ms", 20}},
      &measureOpenings);
  add({{"resident memory that 200 openings of home add", "MiB", 1}}, [] {
    const StageWithAllPlugins plugins;
    return growthBy([] {
      openHome();
      Stage::shared().close();
    });
  });
}

}  // namespace orrelo::bench
