#include "inappmessage/FetchInAppMessageResponse.h"
#include "inappmessage/InAppMessageViewController.h"
#include "model/UserManager.h"
#include "support/Json.h"
#include "support/LogCapture.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"

#include <orrelo/Orrelo.h>

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Reply = std::optional<URLSessionResult>;

constexpr auto twoBanners = R"({"type":"banner","items":[
  {"campaign_id":"c-1","image_url":"https://img.example/1.png"},
  {"campaign_id":"c-2","image_url":"https://img.example/2.png"}]})";

/// The façade with a whole kit.
class InAppMessageFlowTest : public testing::Test {
 protected:
  ~InAppMessageFlowTest() override { setCurrentUserId(std::nullopt); }

  void initialize() {
    platform_.session->responder = [this](const URLRequest& request) -> Reply {
      if (request.url.path().ends_with("/config")) return ScriptedURLSession::reply(200, configReply());
      return request.url.path().ends_with("/in-app-message/banner") ? banners_
                                                                    : ScriptedURLSession::reply(200);
    };
    Orrelo::initialize(ORLConfig("shop"));
    platform_.loop->run();
    host_->appear(false);
  }
  std::shared_ptr<InAppMessageViewController> show() {
    Orrelo::showInAppMessage(host_);
    platform_.loop->run();
    return std::dynamic_pointer_cast<InAppMessageViewController>(host_->presentedViewController());
  }
  std::vector<URLRequest> asked() const {
    return platform_.session->requestsTo("/orreloservice/sdk/shop/in-app-message/banner");
  }

  TestPlatform platform_;
  Reply banners_ = ScriptedURLSession::reply(200, twoBanners);
  std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
};

TEST_F(InAppMessageFlowTest, TheBannersOfTheUserAreShownUntilTheNextDayIfTheyAreSkipped) {
  initialize();
  const LogCapture log;
  EXPECT_FALSE(show()) << "nobody is signed in";
  EXPECT_THAT(log.lines(), IsEmpty());
  setCurrentUserId("u-1");
  const auto screen = show();
  ASSERT_TRUE(screen);
  ASSERT_EQ(asked().size(), 1U);
  EXPECT_EQ(asked().front().method, "GET");
  EXPECT_EQ(asked().front().headers.at("buid"), "u-1");
  EXPECT_FALSE(asked().front().headers.contains("Content-Type"));
  EXPECT_THAT(screen->inAppMessages, ElementsAre(InAppMessage{"c-1", "https://img.example/1.png"},
                                                 InAppMessage{"c-2", "https://img.example/2.png"}));
  EXPECT_EQ(screen->autoSwipeIntervalMillis, 3000);
  EXPECT_EQ(screen->brandTheme.primary, (Color{1.0, 0.0, 0.0, 1.0}));
  EXPECT_EQ(screen->modalPresentationStyle, ModalPresentationStyle::overCurrentContext);
  EXPECT_EQ(screen->modalTransitionStyle, ModalTransitionStyle::crossDissolve);
  EXPECT_TRUE(host_->isVisible()) << "the host's screen stays in sight";
  EXPECT_EQ(show(), screen) << "a second presentation is refused";
  EXPECT_EQ(asked().size(), 2U) << "though it asks again";

  screen->skipToday();
  setCurrentUserId("u-2");
  EXPECT_FALSE(show()) << "a skip holds for all users";
  EXPECT_EQ(asked().size(), 2U);
  platform_.clock->setNow(platform_.clock->now() + std::chrono::hours(24));
  EXPECT_TRUE(show());
}

TEST_F(InAppMessageFlowTest, ItEndsSilentlyWhereNothingCanBeShown) {
  initialize();
  setCurrentUserId("u-1");
  const LogCapture log;
  for (const auto& reply :
       {ScriptedURLSession::reply(200, R"({"type":"banner","items":[]})"),
        ScriptedURLSession::reply(200, R"({"items":[]})"), ScriptedURLSession::reply(200),
        ScriptedURLSession::reply(500, twoBanners), ScriptedURLSession::failure(URLError::timedOut)}) {
    banners_ = reply;
    EXPECT_FALSE(show());
  }
  banners_ = std::nullopt;
  Orrelo::showInAppMessage(host_);
  Orrelo::showInAppMessage(nullptr);
  platform_.loop->run();
  auto& waiting = platform_.session->waiting;
  ASSERT_EQ(waiting.size(), 2U);
  platform_.session->answer(ScriptedURLSession::reply(200, twoBanners));
  platform_.session->answer(ScriptedURLSession::reply(200, twoBanners));
  host_.reset();
  platform_.loop->run();
  EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(InAppMessageFlowTest, EveryFieldOfTheReplyIsRequired) {
  const auto isDecoded = [](const Json& reply) {
    try {
      FetchInAppMessageResponse::decode(reply.dump());
      return true;
    } catch (const Error&) {
      return false;
    }
  };
  const auto whole = Json::parse(twoBanners);
  auto more = whole;
  more["hologram"] = more["items"][1]["depth"] = 3;
  EXPECT_TRUE(isDecoded(more)) << "unknown keys are ignored";
  for (const auto* const path :
       {"/type", "/items", "/items/1", "/items/1/campaign_id", "/items/1/image_url"}) {
    const Json::json_pointer place(path);
    for (const auto& value : {Json(), Json(5), Json::object(), Json::array({1})}) {
      auto changed = whole;
      changed[place] = value;
      EXPECT_FALSE(isDecoded(changed)) << changed;
    }
    if (place.back() == "1") continue;
    auto without = whole;
    without[place.parent_pointer()].erase(place.back());
    EXPECT_FALSE(isDecoded(without)) << without;
  }
}

}  // namespace
}  // namespace orrelo::test
