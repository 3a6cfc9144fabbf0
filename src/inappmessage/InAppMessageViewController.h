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

#include <chrono>
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
  static constexpr auto accessibilityLabel = "이벤트 메시지";
  static constexpr auto closeLabel = "배너 닫기";
  static constexpr auto closeAsset = "orl_ic_close_white";
  static constexpr auto entryPointName = "in_app_message";
  /// Pages within this distance have their pictures in memory; the last page is next to the first one.
  static constexpr std::size_t pictureDistance = 2;
  /// In points: a dot of 7 with a distance of 9, both enlarged by half.
  static constexpr double dotSize = 10.5;
  static constexpr double dotSpacing = 13.5;
  /// The time after a turn by the wheel in which the wheel does not turn again.
  static constexpr std::chrono::milliseconds wheelHold{400};
  /// A touch pad's movement lasts until it has sent nothing for this time.
  static constexpr std::chrono::milliseconds wheelPause{120};

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
  /// Whether a row of dots, one for each page, fits into this width. Otherwise the page's number is shown.
  static bool showsDots(std::size_t count, double width);
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
  /// The movement of a wheel or a touch pad in eighths of a degree, negative towards the last page; the
  /// longer axis counts. A notch is 120, touch pads send parts of it. Each movement turns one page, and the
  /// momentum of a touch pad none.
  void turnWheel(double dx, double dy, bool isMomentum);

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
  void keepPicturesNear();

  const std::shared_ptr<InAppMessageViewModel> viewModel_;
  const std::shared_ptr<CampaignNavigator> campaignNavigator_;
  bool isPressed_ = false;
  bool hasReaderFocus_ = false;
  /// The page that the carousel is moving to.
  std::optional<std::size_t> target_;
  double wheel_ = 0.0;
  /// A time of the steady clock.
  std::chrono::microseconds wheelHeldUntil_{0};
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
