#include "push/OrreloPush.h"
#include "support/ElsewhereLoop.h"
#include "support/TestPlatform.h"
#include "ui/KeyWindow.h"
#include "ui/NavigationController.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PushNotificationTest : public testing::Test, public PageRouter, public PushTokenRepository {
 protected:
  PushNotificationTest() {
    setKeyWindowRootViewController(root_);
    setCurrentUserId(std::nullopt);
    userIdStream()
        .asObservable()
        .subscribe([this](const auto& id) { published_.push_back(id); })
        .disposedBy(bag_);
  }
  ~PushNotificationTest() override { setKeyWindowRootViewController(nullptr); }

  void route(const std::shared_ptr<ViewController>& from, const Page& page) override {
    EXPECT_EQ(from, root_->topmost());
    done_.push_back(describe(page) + " for " + currentUserId().value_or("nobody"));
  }
  reactive::Observable<reactive::Unit> saveToken(const PushToken&, const std::string&) override {
    return reactive::empty<reactive::Unit>();
  }
  static std::string describe(const Page& page) {
    const auto* const campaign = std::get_if<Page::Campaign>(&page.variant());
    return std::string(page.caseName()) + (campaign != nullptr ? " " + campaign->id : "");
  }
  void tap(const EventDictionary& userInfo) {
    push_.handle(NotificationResponse{userInfo}, [this] { done_.emplace_back("completed"); });
  }
  void arrive(const EventDictionary& userInfo) {
    push_.handle(userInfo, [this](BackgroundFetchResult result) {
      done_.push_back("completed " + std::to_string(static_cast<int>(result)));
    });
  }
  std::vector<std::string> done() { return std::exchange(done_, {}); }
  template <class Interface>
  std::shared_ptr<Interface> self() {
    return {std::shared_ptr<void>(), this};
  }

  TestPlatform platform_;
  std::vector<std::string> done_;
  std::vector<std::optional<std::string>> published_;
  reactive::DisposeBag bag_;
  std::shared_ptr<ViewController> root_ = std::make_shared<HostViewController>();
  const OrreloPush push_{self<PushTokenRepository>(),
                         std::make_shared<PushRouter>(self<PageRouter>(), UserManager())};
};

TEST_F(PushNotificationTest, TheLastUserIsBackBeforeThePageOpens) {
  const auto navigation = NavigationController::create(std::make_shared<HostViewController>());
  root_->present(navigation, false);
  tap({{"Orrelo", nullptr}, {"campaignId", "c"}});
  UserManager().setUserId("minji");
  tap({{"Orrelo", true}, {"campaignId", "c"}});
  arrive({{"Orrelo", ""}, {"destination", "home"}});
  EXPECT_THAT(done(), ElementsAre("campaign c for nobody", "completed", "campaign c for minji", "completed",
                                  "home for minji", "completed 1"));
  EXPECT_THAT(published_, ElementsAre(std::nullopt, "minji", "minji", "minji"));
}

TEST_F(PushNotificationTest, WhatIsNotTheKitsIsLeftToTheHostAndWithoutAWindowNothingOpens) {
  for (const auto& foreign : {EventDictionary{}, EventDictionary{{"orrelo", 1}, {"campaignId", "c"}}}) {
    tap(foreign);
    arrive(foreign);
  }
  EXPECT_THAT(done(), IsEmpty());
  setKeyWindowRootViewController(nullptr);
  UserManager().setUserId("minji");
  tap({{"Orrelo", 1}, {"campaignId", "c"}});
  arrive({{"Orrelo", 1}});
  EXPECT_THAT(done(), ElementsAre("completed", "completed 1"));
  EXPECT_EQ(currentUserId(), std::nullopt);
  push_.handle(NotificationResponse{{{"Orrelo", 1}}}, nullptr);
  push_.handle(EventDictionary{{"Orrelo", 1}}, nullptr);
}

TEST_F(PushNotificationTest, EveryTypeOfValueUnderEveryKey) {
  EventValue deep = "x";
  for (int depth = 0; depth < 10'000; ++depth) {
    EventDictionary outer;
    outer["k"] = std::move(deep);
    deep = std::move(outer);
  }
  std::vector<EventValue> values{nullptr,
                                 true,
                                 0,
                                 0.5,
                                 "",
                                 Date(),
                                 Uuid(),
                                 EventArray{},
                                 EventSet{1},
                                 EventDictionary{{"campaignId", "inner"}},
                                 EventBytes(3),
                                 EventValue::other(done_)};
  values.push_back(std::move(deep));
  for (const std::string key : {"Orrelo", "deeplink", "campaignId", "destination"}) {
    for (auto& value : values) {
      EventDictionary userInfo{{"Orrelo", 1}, {"campaignId", "c"}};
      if (key == "campaignId") userInfo["destination"] = "home";
      auto& slot = userInfo[key];
      std::swap(slot, value);
      push_.handle(userInfo, nullptr);
      std::swap(slot, value);
      EXPECT_THAT(done(),
                  ElementsAre((key == "campaignId" ? "home" : "campaign c") + std::string(" for nobody")))
          << key << " with value " << &value - values.data();
    }
  }
}

TEST_F(PushNotificationTest, OffTheMainThreadTheRouteIsPostedAndThenTheCompletion) {
  auto platform = Platform::current();
  platform.mainLoop = std::make_shared<ElsewhereLoop>(platform_.loop);
  Platform::install(std::move(platform));
  tap({{"Orrelo", 1}, {"campaignId", "c"}});
  arrive({{"Orrelo", 1}, {"campaignId", "d"}});
  EXPECT_THAT(done(), IsEmpty());
  platform_.loop->run();
  EXPECT_THAT(done(),
              ElementsAre("campaign c for nobody", "completed", "campaign d for nobody", "completed 1"));
}

}  // namespace
}  // namespace orrelo::test
