#include "modular/roulette/RouletteComponent.h"

#include "base/JsonFields.h"
#include "base/preconditionFailure.h"
#include "events/UserEventTracker.h"

#include <optional>

namespace orrelo {
namespace {

using State = RouletteComponent::State;

std::optional<std::int64_t> optionalInteger(const JsonObject& json, std::string_view key) {
  const auto value = json.find(key);
  return value && !value->isNull() ? std::optional(json.integer(key)) : std::nullopt;
}

State stateOf(const JsonObject& progress) {
  const auto state = progress.text("state");
  const auto index = optionalInteger(progress, "result_index");
  const auto spinDidEndActionUrl = progress.optionalText("done_url");
  if (state == "idle") return RouletteComponent::Idle();
  if (state == "running") {
    if (!index || !spinDidEndActionUrl) throw makeError(RouletteStateDecodeError::invalidResponse);
    return RouletteComponent::Running{*index, *spinDidEndActionUrl};
  }
  if (state == "done") {
    if (!index) preconditionFailure("A roulette that is \"done\" has no \"result_index\"");
    return RouletteComponent::End{*index};
  }
  throw makeError(RouletteStateDecodeError::invalidState);
}

// Falls back to the older list if the newer one is absent, but not if it is empty.
std::vector<RouletteItem> itemsOf(const JsonObject& json) {
  auto items = optionalRecords(json, "items_v2", [](const JsonObject& item) {
    return RouletteItem{item.text("reward_type"), item.text("reward_text")};
  });
  if (items) return *std::move(items);
  std::vector<RouletteItem> older;
  for (auto& text : textsOf(json, "items")) older.push_back({"", std::move(text)});
  return older;
}

struct Progress {
  RouletteView& view;

  void operator()(const RouletteComponent::Running& running) const {
    view.spin(running.endIndex, running.spinDidEndActionUrl);
    UserEventTracker::track(UserEventName::rouletteSpinWheelStart);
  }
  void operator()(const RouletteComponent::End& end) const {
    view.showResult(end.index);
    view.setEnabled(false);
    // Deliberate: the end is reported when the page with the result is built, not when the spin ends.
    UserEventTracker::track(UserEventName::rouletteSpinWheelEnd);
  }
  void operator()(const RouletteComponent::Idle&) const { view.setEnabled(true); }
};

}  // namespace

Error makeError(RouletteStateDecodeError error) {
  constexpr auto domain = "RouletteStateDecodeError";
  if (error == RouletteStateDecodeError::invalidState) return Error(domain, "invalidState");
  return Error(domain, "invalidResponse", "running state required endIndex and spinDidEndActionUrl");
}

RouletteComponent::RouletteComponent(const JsonObject& json)
    : state(stateOf(json.object("progress"))),
      items(itemsOf(json)),
      primaryColor(json.text("primary_color")),
      secondaryColor(json.text("secondary_color")) {}

void RouletteComponent::render(StackView& stackView) {
  constexpr Color white{1.0, 1.0, 1.0, 1.0};
  const auto primary = Color::fromHex(primaryColor);
  const auto view = std::make_shared<RouletteView>(primary, Color::fromHex(secondaryColor));
  view->delegate = std::static_pointer_cast<RouletteComponent>(shared_from_this());
  std::vector<RouletteItemModel> models;
  for (const auto& item : items) {
    models.push_back({item.rewardType, item.rewardText, models.size() % 2 == 1 ? white : primary});
  }
  view->configure(std::move(models));
  stackView.addArrangedSubview(view, std::nullopt);
  std::visit(Progress{*view}, state);
}

}  // namespace orrelo
