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
  for (const auto interval : {std::int64_t{0}, std::numeric_limits<std::int64_t>::min()}) {
    const LogCapture log;
    const auto single = make(1, interval);
    single->appear(false);
    platform_.loop->run();
    EXPECT_FALSE(single->state.value().showsPageControl);
    EXPECT_THAT(log.lines(), testing::Not(testing::Contains(testing::HasSubstr("Failure"))));
    const auto still = make(2, interval);
    still->appear(false);
    platform_.loop->run();
    EXPECT_THAT(log.lines(),
                testing::Contains(EndsWith(" InAppMessage Auto Swipe Failure: TimerError.invalidPeriod")));
    EXPECT_EQ(platform_.loop->pending(), 0U);
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
  EXPECT_TRUE(InAppMessageViewController::showsDots(15, 346.5));
  EXPECT_FALSE(InAppMessageViewController::showsDots(15, 346.4));
}

TEST_F(CarouselTest, KeysAndTheWheelTurnOnePageEach) {
  const auto screen = make(6);
  screen->turn(-1);
  EXPECT_EQ(screen->scroll.value().number, 0U) << "there is no page before the first";
  screen->turn(1);
  screen->turn(1);
  EXPECT_EQ(screen->scroll.value().item, 2U) << "counts from the page that it is moving to";
  struct Movement {
    std::chrono::milliseconds pause;
    double dx, dy;
    bool isMomentum;
    std::size_t item;
  };
  for (const auto& [pause, dx, dy, isMomentum, item] : {
           Movement{0ms, 0, -120, false, 3},
           Movement{399ms, 0, -120, false, 3},  // too soon
           Movement{1ms, -120, 90, false, 4},   // the longer axis counts
           Movement{390ms, 0, -100, false, 4},  // one long movement of a touch pad
           Movement{110ms, 0, -100, false, 4},
           Movement{119ms, 0, -100, false, 4},
           Movement{120ms, 0, -119, false, 4},  // parts of a notch add up
           Movement{0ms, 0, -120, true, 4},
           Movement{0ms, 0, 60, false, 4},  // another direction starts anew
           Movement{500ms, 0, 61, false, 3},
       }) {
    platform_.loop->runFor(pause);
    screen->didScroll(static_cast<double>(screen->scroll.value().item) * 390.0, 390.0);
    screen->didEndScrolling();
    screen->turnWheel(dx, dy, isMomentum);
    EXPECT_EQ(screen->scroll.value().item, item) << pause.count() << ": " << dx << ", " << dy;
  }
  screen->turn(9);
  EXPECT_EQ(screen->scroll.value().item, 5U);
}

TEST_F(CarouselTest, PicturesOfPagesFarAwayAreDropped) {
  const auto screen = make(7);
  screen->loadViewIfNeeded();
  screen->didScroll(3 * 390.0, 390.0);
  for (const auto& cell : screen->cells) cell->imageView->setImage(std::make_shared<const Image>());
  screen->didScroll(390.0, 390.0);
  std::vector<std::size_t> kept;
  for (std::size_t i = 0; i < screen->cells.size(); ++i)
    if (screen->cells[i]->imageView->state.value().image) kept.push_back(i);
  // 0 and 6, next to the first, are loaded anew; 4 and 5 are too far away.
  EXPECT_THAT(kept, ElementsAre(1, 2, 3));
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

}  // namespace
}  // namespace orrelo::test
