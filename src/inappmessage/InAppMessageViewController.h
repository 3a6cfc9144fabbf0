#pragma once

#include "config/Config.h"
#include "inappmessage/InAppMessage.h"
#include "inappmessage/InAppMessageViewCell.h"
#include "inappmessage/InAppMessageViewModel.h"
#include "reactive/Disposable.h"
#include "ui/CampaignNavigator.h"
#include "ui/Geometry.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace orrelo {

/// A carousel of messages over the dimmed screen of the host. Its pages are as wide as the screen, with a
/// square picture in the middle of each; it turns to the next page by itself. The front scrolls: it is told
/// where to by `scroll`, and reports each position. Main thread.
class ORRELO_EXPORT InAppMessageViewController final : public ViewController {
 public:
  struct State {
    std::size_t currentPage = 0;
    /// False for a single message.
    bool showsPageControl = false;
    /// The square in which pages show their pictures.
    Rect container;

    friend bool operator==(const State&, const State&) = default;
  };
  /// The last request to scroll.
  struct Scroll {
    std::size_t item = 0;
    bool animated = false;
    /// Counts the requests; 0 if there was none.
    unsigned number = 0;

    friend bool operator==(const Scroll&, const Scroll&) = default;
  };
  static constexpr auto confirmText = "닫기";
  static constexpr auto skipTodayText = "오늘 하루 그만 보기";
  static constexpr auto closeAsset = "orl_ic_close_white";
  static constexpr auto entryPointName = "in_app_message";

  /// `messages` must not be empty.
  InAppMessageViewController(std::shared_ptr<InAppMessageViewModel> viewModel,
                             std::shared_ptr<CampaignNavigator> campaignNavigator,
                             std::vector<InAppMessage> messages, std::int64_t swipeIntervalMillis,
                             const BrandTheme& theme);

  static constexpr std::string_view kindName = "InAppMessageViewController";
  std::string_view kind() const override { return kindName; }

  const std::vector<InAppMessage> inAppMessages;
  const std::int64_t autoSwipeIntervalMillis;
  const BrandTheme brandTheme;
  /// One for each message.
  const std::vector<std::shared_ptr<InAppMessageViewCell>> cells;

  Followed<State> state;
  Followed<Scroll> scroll;

  /// The largest square that leaves room for the labels above and below it. It is as wide as the screen where
  /// the screen is high enough, and as near to the middle as the labels allow.
  static Rect containerFrame(Size screen, double roomAbove, double roomBelow);
  /// Called when the screen or the labels have changed their size.
  void layOut(Size screen, double roomAbove, double roomBelow);
  /// Called for each change of the position, in points from the first page.
  void didScroll(double contentOffset, double pageWidth);
  /// Called when a requested movement has ended or the user has taken over.
  void didEndScrolling() { target_.reset(); }
  /// While a finger or a pressed pointer holds the carousel, or while a screen reader's focus is on it, it
  /// does not turn by itself.
  void setPressed(bool isPressed) { isPressed_ = isPressed; }
  void setReaderFocus(bool hasFocus) { hasReaderFocus_ = hasFocus; }
  /// Turns by `count` pages, at most to the first or the last one. Called for the keys.
  void turn(int count);
  /// `notches` is the movement of a wheel, positive towards the last page; touch pads send fractions. Each
  /// movement turns one page at a time.
  void turnWheel(double notches);

  /// Opens the campaign of a message in place of this screen.
  void didSelect(std::size_t item);
  /// Leaves the screen and shows no more messages today.
  void skipToday();

 protected:
  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;

 private:
  void startAutoSwipe();
  void swipe();
  void scrollTo(std::size_t item);

  const std::shared_ptr<InAppMessageViewModel> viewModel_;
  const std::shared_ptr<CampaignNavigator> campaignNavigator_;
  bool isPressed_ = false;
  bool hasReaderFocus_ = false;
  /// The page that the carousel is moving to.
  std::optional<std::size_t> target_;
  double wheel_ = 0.0;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
