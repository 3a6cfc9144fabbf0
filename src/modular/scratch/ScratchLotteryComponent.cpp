#include "modular/scratch/ScratchLotteryComponent.h"

#include "base/Error.h"
#include "events/UserEventTracker.h"

namespace orrelo {
namespace {

ScratchLotteryComponent::State stateOf(const std::string& text) {
  if (text == "idle") return ScratchLotteryComponent::State::idle;
  if (text == "done") return ScratchLotteryComponent::State::done;
  throw makeError(DecodingError::dataCorrupted, "\"" + text + "\" is no state of a card.");
}

}  // namespace

ScratchLotteryComponent::ScratchLotteryComponent(const JsonObject& json)
    : state(stateOf(json.text("state"))),
      scratchable(json.boolean("scratchable")),
      result(json.text("result")),
      unscratchableUrl(json.text("mot_url")),  // deliberate: the service's spelling
      doneUrl(json.text("done_url")),
      primaryColor(Color::fromHex(json.text("primary_color"))),
      secondaryColor(Color::fromHex(json.text("secondary_color"))) {}

void ScratchLotteryComponent::render(StackView& stackView) {
  const auto card =
      ScratchLotteryView::create({result, primaryColor, secondaryColor, state == State::done, scratchable});
  card->delegate = std::static_pointer_cast<ScratchLotteryComponent>(shared_from_this());
  stackView.addArrangedSubview(card, ScratchLotteryView::inset);
  view_ = card;
}

void ScratchLotteryComponent::didScratch(double ratio) {
  if (!(ratio >= doneRatio) || !scratchable || scratchDone_) return;
  scratchDone_ = true;
  if (const auto card = view_.lock()) card->hideMask();
  send({Action::WithUrl{doneUrl}});
  UserEventTracker::track(UserEventName::scratchLotteryScratchEnd);
}

void ScratchLotteryComponent::handleUnscratchable() {
  // Deliberate: every report sends another request, however often the finger moves.
  send({Action::WithUrl{unscratchableUrl}});
  UserEventTracker::track(UserEventName::scratchLotteryScratchBlock);
}

}  // namespace orrelo
