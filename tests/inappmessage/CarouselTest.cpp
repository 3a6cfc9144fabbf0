#include "inappmessage/InAppMessageViewController.h"
#include "support/LogCapture.h"
#include "support/NamedCampaigns.h"
#include "support/Reports.h"
#include "support/TestPlatform.h"
#include "ui/NavigationController.h"

#include <gmock/gmock.h>
#include <limits>

namespace orrelo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

std::string campaignOf(const std::shared_ptr<ViewController>& screen) {
  const auto named = std::dynamic_pointer_cast<NamedScreen>(screen);
  return named ? named->campaignId : "";
}

class CarouselTest : public testing::Test {
 protected:
  CarouselTest() { setUserEventDelegate(reports_); }

  std::shared_ptr<InAppMessageViewController> make(std::size_t count, std::int64_t interval = 3000) const {
    std::vector<InAppMessage> messages;
    for (std::size_t i = 0; i < count; ++i) messages.push_back({"c-" + std::to_string(i), "bad url"});
    const auto service =
        std::make_shared<InAppMessageSkipTimeCheckServiceImpl>(platform_.defaults->standard());
    return std::make_shared<InAppMessageViewController>(std::make_shared<InAppMessageViewModel>(service),
                                                        std::make_shared<NamedCampaigns>(),
                                                        std::move(messages), interval, BrandTheme());
  }
  /// Runs for the span, scrolls at once as told, and returns the pages that were scrolled to.
  std::vector<std::size_t> pagesWithin(InAppMessageViewController& screen, std::chrono::milliseconds span) {
    std::vector<std::size_t> pages;
    auto number = screen.scroll.value().number;
    const auto front = screen.scroll.changes().subscribe([&](reactive::Unit) {
      const auto request = screen.scroll.value();
      if (std::exchange(number, request.number) == request.number) return;
      pages.push_back(request.item);
      screen.didScroll(static_cast<double>(request.item) * 390.0, 390.0);
      screen.didEndScrolling();
    });
    platform_.loop->runFor(span);
    front.dispose();
    return pages;
  }

  TestPlatform platform_;
  const std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  const std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
};

TEST_F(CarouselTest, ItTurnsByItselfUnlessItIsHeld) {
  const auto screen = make(2);
  host_->present(screen, true);
  host_->appear(false);
  screen->appear(false);
  EXPECT_TRUE(screen->state.value().showsPageControl);
  EXPECT_THAT(pagesWithin(*screen, 2999ms), IsEmpty());
  EXPECT_THAT(pagesWithin(*screen, 6001ms), ElementsAre(1, 0, 1));
  const auto three = make(3);
  three->appear(false);
  three->didScroll(700.0, 390.0);
  EXPECT_THAT(pagesWithin(*three, 3000ms), ElementsAre(0)) << "the user was on the last page";
  three->setPressed(true);
  EXPECT_THAT(pagesWithin(*three, 4500ms), IsEmpty());
  three->setPressed(false);
  EXPECT_THAT(pagesWithin(*three, 1499ms), IsEmpty()) << "the tick that was dropped is not made up for";
  EXPECT_THAT(pagesWithin(*three, 1ms), ElementsAre(1));
  three->setReaderFocus(true);
  EXPECT_THAT(pagesWithin(*three, 9s), IsEmpty());
  three->setReaderFocus(false);
  EXPECT_THAT(pagesWithin(*three, 3s), ElementsAre(2));
  platform_.application->setPrefersReducedMotion(true);
  EXPECT_TRUE(three->scroll.value().animated);
  EXPECT_THAT(pagesWithin(*three, 3s), ElementsAre(0));
  EXPECT_FALSE(three->scroll.value().animated);
}

TEST_F(CarouselTest, EachAppearanceAddsATimerThatEndsWithTheScreen) {
  auto screen = make(3);
  screen->appear(false);
  platform_.loop->runFor(1s);
  screen->disappear(false);
  screen->appear(false);
  EXPECT_THAT(pagesWithin(*screen, 5s), ElementsAre(1, 2, 0));
  screen.reset();
  platform_.loop->runFor(10s);
  EXPECT_EQ(platform_.loop->pending(), 0U);
  const auto single = make(1, 0);
  const LogCapture log;
  single->appear(false);
  platform_.loop->run();
  EXPECT_FALSE(single->state.value().showsPageControl);
  EXPECT_EQ(platform_.loop->pending(), 0U);
  EXPECT_THAT(log.lines(), testing::Not(testing::Contains(testing::HasSubstr("Failure"))));
}

TEST_F(CarouselTest, AnIntervalThatIsNotPositiveIsLoggedAndAnyOtherIsAccepted) {
  for (const auto interval : {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()}) {
    const auto screen = make(2, interval);
    const LogCapture log;
    screen->appear(false);
    platform_.loop->run();
    EXPECT_THAT(log.lines(),
                testing::Contains(EndsWith(" InAppMessage Auto Swipe Failure: TimerError.invalidPeriod")));
    EXPECT_EQ(platform_.loop->pending(), 0U);
    screen->turn(1);
    EXPECT_EQ(screen->scroll.value().item, 1U) << "the screen stays usable";
  }
  const auto patient = make(2, std::numeric_limits<std::int64_t>::max());
  patient->appear(false);
  EXPECT_THAT(pagesWithin(*patient, 24h * 30), IsEmpty());
}

TEST_F(CarouselTest, TheCurrentPageIsTheNearestOne) {
  const auto screen = make(3);
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  struct Case {
    double offset, width;
    std::size_t page;
  };
  for (const auto& [offset, width, page] :
       {Case{194.9, 390, 0}, Case{195, 390, 1}, Case{584.9, 390, 1}, Case{780, 390, 2}, Case{5000, 390, 2},
        Case{-200, 390, 0}, Case{390, 390, 1}, Case{390, 0, 1}, Case{0, 0, 1}, Case{none, 390, 1}}) {
    screen->didScroll(offset, width);
    EXPECT_EQ(screen->state.value().currentPage, page) << offset << " of " << width;
  }
}

TEST_F(CarouselTest, ThePicturesSquareLeavesTheLabelsRoom) {
  struct Case {
    Size screen;
    Rect square;
  };
  for (const auto& [screen, square] : {
           Case{{390, 844}, {0, 227, 390, 390}},
           Case{{320, 520}, {0, 100, 320, 320}},  // exactly as wide as the screen
           Case{{320, 480}, {0, 60, 320, 320}},   // as near to the middle as the label below allows
           Case{{1280, 800}, {320, 60, 640, 640}},
           Case{{568, 320}, {204, 60, 160, 160}},
           Case{{300, 100}, {150, 60, 0, 0}},
           Case{{0, 0}, {0, 60, 0, 0}},
       }) {
    EXPECT_EQ(InAppMessageViewController::containerFrame(screen, 60, 100), square)
        << screen.width << " by " << screen.height;
  }
}

TEST_F(CarouselTest, KeysAndTheWheelTurnOnePageEach) {
  const auto screen = make(4);
  screen->turn(-1);
  EXPECT_EQ(screen->scroll.value().number, 0U) << "there is no page before the first";
  screen->turn(1);
  screen->turn(1);
  EXPECT_EQ(screen->scroll.value().item, 2U) << "counts from the page that it is moving to";
  screen->turnWheel(1.0);
  EXPECT_EQ(screen->scroll.value().item, 2U) << "one movement of a touch pad has many events";
  screen->didScroll(780, 390);
  screen->didEndScrolling();
  for (const double notches : {0.6, -0.6, -0.3}) screen->turnWheel(notches);
  EXPECT_EQ(screen->scroll.value().item, 2U);
  screen->turnWheel(-0.2);
  EXPECT_EQ(screen->scroll.value().item, 1U);
  screen->didScroll(390, 390);
  screen->didEndScrolling();
  screen->turn(9);
  EXPECT_EQ(screen->scroll.value().item, 3U);
}

TEST_F(CarouselTest, APictureOpensItsCampaignInPlaceOfTheMessages) {
  const auto screen = make(3);
  const LogCapture log;
  screen->loadViewIfNeeded();
  screen->didSelect(1);
  EXPECT_THAT(log.lines(),
              testing::Contains(EndsWith(" InAppMessage: Cannot find presentingViewController")));
  host_->present(screen, false);
  screen->didSelect(3);
  EXPECT_EQ(host_->presentedViewController(), screen);
  EXPECT_THAT(reports_->names, ElementsAre("ol_campaign_entry_point_show"));
  screen->didSelect(2);
  EXPECT_EQ(campaignOf(host_->presentedViewController()), "c-2");
  EXPECT_THAT(reports_->names, ElementsAre("ol_campaign_entry_point_show", "ol_campaign_entry_point_click"));
  for (const auto& event : reports_->events)
    EXPECT_EQ(event.values->at("campaign_entry_point_name"), EventValue("in_app_message"));

  const auto page = std::make_shared<HostViewController>();
  const auto stack = NavigationController::create(page);
  const auto second = make(3);
  page->present(second, false);
  second->didSelect(0);
  EXPECT_FALSE(stack->presentedViewController());
  EXPECT_EQ(campaignOf(stack->topViewController()), "c-0") << "pushed onto the host's stack";
}

TEST_F(CarouselTest, ItIsClosedOrSkippedWithoutAnEvent) {
  const auto closed = make(1);
  host_->present(closed, false);
  closed->close();
  EXPECT_FALSE(host_->presentedViewController());
  EXPECT_TRUE(host_->presented().animated);
  EXPECT_EQ(platform_.defaults->standard()->text("inAppMessageLastSkipDay"), std::nullopt);
  const auto skipped = make(1);
  host_->present(skipped, false);
  skipped->skipToday();
  EXPECT_FALSE(host_->presentedViewController());
  EXPECT_NE(platform_.defaults->standard()->text("inAppMessageLastSkipDay"), std::nullopt);
  EXPECT_EQ(reports_->names.size(), 2U) << "both were shown";
}

}  // namespace
}  // namespace orrelo::test
