#include "prove/script.h"

#include "campaign/CampaignLocalDataSource.h"
#include "events/UserEventTracker.h"
#include "image/DiskCache.h"
#include "prove/VirtualKit.h"

#include <orrelo/Orrelo.h>

namespace orrelo::prove {
namespace {

using namespace std::chrono_literals;

constexpr auto appKey = "prove";

void signIn(const std::string& user, const std::string& number) {
  Orrelo::setUser(ORLUser(user, ORLMarketingStatus::optIn, {{"n", number}}));
  writeLine("told " + number);
}

void track(const std::string& number) {
  UserEventTracker().track(UserEventName::visit, {{UserEventValueKey::campaignId, number}});
  writeLine("told " + number);
}

void useCampaign(const std::string& id) {
  const CampaignLocalDataSource states(Platform::current().userDefaults->suite(appKey));
  states.load();
  states.save({id, true});
}

void usePictures(const std::string& key) {
  DiskCache cache("prove", Platform::current());
  cache.insert(makeData(std::string(5000, 'p')), key);
  cache.value(
      key, [] { return Data(); }, [](const auto&) {});
  Platform::current().mainLoop->post([] {});
}

}  // namespace

void firstLife(const std::filesystem::path& folder) {
  VirtualKit kit(folder, 0);
  Orrelo::initialize(ORLConfig(appKey));
  signIn("user-1", "1-user");
  kit.report("1-early");
  kit.run(1s);
  useCampaign("campaign-1");
  usePictures("picture-1");
  kit.report("1-a");
  track("1-own");
  kit.run(500ms);
  kit.eventStatus = 503;
  kit.report("1-refused", std::string(6000, 'r'));
  kit.run(12s);
  kit.eventStatus = 200;
  for (const char* number : {"1-b", "1-c", "1-d"}) kit.report(number);
  kit.run(65s);  // the configuration expires
  kit.configStatus = 0;
  kit.report("1-hanging");
  kit.run(2s);
  kit.configStatus = 200;
  kit.report("1-last");
}

void secondLife(const std::filesystem::path& folder) {
  VirtualKit kit(folder, 600);
  kit.configStatus = 503;
  Orrelo::initialize(ORLConfig(appKey));
  kit.report("2-early");
  kit.run(1s);
  useCampaign("campaign-2");
  usePictures("picture-1");
  signIn("user-2", "2-user");
  track("2-own");
  kit.run(5s);
  kit.configStatus = 200;
  kit.report("2-a");
  kit.run(90s);
  kit.report("2-last");
}

void settleLife(const std::filesystem::path& folder, const std::string& number) {
  VirtualKit kit(folder, 1200);
  Orrelo::initialize(ORLConfig(appKey));
  kit.report(number);
  kit.run(150s);
}

}  // namespace orrelo::prove
