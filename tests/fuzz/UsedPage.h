#pragma once

#include "campaign/Campaign.h"
#include "campaign/attendance/AttendanceCampaignView.h"
#include "campaign/optinmarketing/OptInMarketingCampaignView.h"
#include "campaign/result/CampaignResultView.h"
#include "campaign/stamp/StampBoardView.h"
#include "campaign/stamp/StampCampaignView.h"
#include "modular/ModularCampaignView.h"
#include "modular/content/ActionButtonView.h"
#include "modular/content/PageEntryView.h"
#include "modular/content/TooltipInformationView.h"
#include "modular/roulette/RouletteView.h"
#include "modular/scratch/ScratchLotteryView.h"
#include "require.h"
#include "support/Twins.h"
#include "viewkit/CampaignRewardViewController.h"
#include "viewkit/WebView.h"

#include <cmath>
#include <memory>
#include <string>

namespace orrelo::test {

/// Counts what a page asks of its screen.
class Requests final : public ModularCampaignViewDelegate {
 public:
  void participate(const std::string&) override { ++participations; }
  void route(const Page&) override { ++routes; }
  void reload() override { ++reloads; }

  int participations = 0;
  int routes = 0;
  int reloads = 0;
};

class Screen final : public ORLUIViewController {
 public:
  std::string_view kind() const override { return "Screen"; }
};

/// Drives the views of a modular page as a front and a user do.
class UsedPage {
 public:
  UsedPage(const ModularCampaign& modular, ManualLoop& loop)
      : loop_(loop), page_(ModularCampaignView::create(modular)) {
    page_->delegate = requests_;
    for (const auto& arranged : page_->stackView->arrangedSubviews) {
      require(arranged.view && std::isfinite(arranged.spacingAfter) && arranged.spacingAfter >= 0.0,
              "blocks stand one below the other");
      arranged.view->setSize({320.0, 80.0});
      useIf<ActionButtonView>(arranged.view);
      useIf<PageEntryView>(arranged.view);
      useIf<WebView>(arranged.view);
      useIf<RouletteView>(arranged.view);
      useIf<ScratchLotteryView>(arranged.view);
    }
    useDialogs(modular.config.layout.dialogComponents.size());
  }

 private:
  template <class Block>
  void useIf(const std::shared_ptr<View>& view) {
    if (const auto block = std::dynamic_pointer_cast<Block>(view)) use(*block);
  }

  void use(const ActionButtonView& button) {
    const int before = requests_->participations;
    button.onClick();
    require(requests_->participations == before + (button.content.isEnabled ? 1 : 0),
            "a press takes part once, where the button is enabled");
  }
  void use(const PageEntryView& entry) {
    const int before = requests_->routes;
    entry.didAction();
    require(requests_->routes == before + 1, "an entry leads somewhere");
  }
  void use(WebView& web) {
    require(web.height >= 0.0 && web.width.value_or(0.0) >= 0.0, "a web page's place has a size");
    web.didStart();
    web.didFinish(true);
    require(web.state.value() != WebView::State::loading, "a load ends");
  }
  void use(RouletteView& wheel) {
    const auto drawing = wheel.drawing();
    require(drawing.wheel.texts.size() == 2 * drawing.wheel.sectors.size(), "a sector has two texts");
    const int before = requests_->participations;
    wheel.wheelDidAppear();
    loop_.run();
    const bool isSpinning = wheel.state.value().spin.has_value();
    require(!isSpinning || !drawing.wheel.sectors.empty(), "a wheel without sectors does not spin");
    wheel.animationDidStop(false);
    wheel.animationDidStop(true);
    wheel.animationDidStop(true);
    require(requests_->participations == before + (isSpinning ? 1 : 0), "the end of a spin is told once");
    require(std::isfinite(wheel.state.value().rotation), "a wheel comes to rest");
  }
  void use(ScratchLotteryView& card) {
    const int before = requests_->participations;
    const bool isDone = card.content.isDone;
    card.scratchMaskView->setSize({280.0, 80.0});
    card.touchesBegan({10.0, 40.0});
    card.touchesMoved({300.0, 40.0});
    card.touchesEnded();
    card.press();
    loop_.run();
    card.press();
    const int asked = requests_->participations - before;
    require(isDone                       ? asked == 0
            : card.content.isScratchable ? asked == 1
                                         : asked == 4,
            "a card is scratched once, and a blocked one says so each time");
  }

  void useDialogs(std::size_t count) {
    const auto screen = std::make_shared<Screen>();
    screen->appear(false);
    page_->showDialogs(*screen);
    require(screen->toastLayer->toasts.value().size() <= count, "equal toasts stand once");
    const auto reward =
        std::dynamic_pointer_cast<CampaignRewardViewController>(screen->presentedViewController());
    if (!reward) return;
    const int before = requests_->reloads;
    reward->close();
    require(requests_->reloads == before + 1 && !screen->presentedViewController(),
            "a reward that is closed asks for the page anew");
  }

  ManualLoop& loop_;
  const std::shared_ptr<ModularCampaignView> page_;
  const std::shared_ptr<Requests> requests_ = std::make_shared<Requests>();
};

inline void use(const ModularCampaign& modular, ManualLoop& loop) {
  require(!modular.components.empty(), "a modular page shows something");
  const UsedPage page(modular, loop);
}
inline void use(const AttendanceCampaign& attendance, ManualLoop&) {
  const auto view = std::make_shared<AttendanceCampaignView>(attendance);
  const auto cells = view->calendarView->cellViewState.size();
  const bool hasMonth = attendance.calendar.today != CalendarDate();
  require(cells % 7 == 0 && (hasMonth ? cells >= 35 && cells <= 49 : cells == 7), "whole weeks");
  require(view->calendarView->state.value().cells.size() == cells, "every cell has a look");
}
inline void use(const StampCampaign& stamp, ManualLoop&) {
  const auto view = std::make_shared<StampCampaignView>(stamp);
  for (const auto& arranged : view->stackView->arrangedSubviews) {
    const auto board = std::dynamic_pointer_cast<StampBoardView>(arranged.view);
    if (!board || board->cells.empty()) continue;
    require(board->cells.size() % board->columnCount == 0, "whole rows");
    require(board->cells.size() <= stamp.missions.size(), "no more cells than missions");
  }
}
inline void use(const OptInMarketingCampaign& optIn, ManualLoop& loop) {
  const auto view = OptInMarketingCampaignView::create(optIn);
  int taps = 0;
  view->onMoveButtonTapped = [&taps] { ++taps; };
  view->onTapMoveButton();
  loop.run();
  require(taps == (optIn.buttonVisibility && optIn.buttonEnabled ? 1 : 0), "only what can be pressed is");
}
inline void use(const CampaignResult& result, ManualLoop&) {
  std::make_shared<CampaignResultView>(result);
}
/// Other kinds have no view of their own.
template <class Kind>
void use(const Kind&, ManualLoop&) {}

}  // namespace orrelo::test
