#pragma once

#include "base/Error.h"
#include "base/Json.h"
#include "modular/UIComponent.h"
#include "modular/roulette/RouletteView.h"

#include <orrelo/Export.h>

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace orrelo {

enum class RouletteStateDecodeError { invalidResponse, invalidState };
Error makeError(RouletteStateDecodeError error);

struct RouletteItem {
  std::string rewardType;
  std::string rewardText;

  friend bool operator==(const RouletteItem&, const RouletteItem&) = default;
};

/// A wheel of fortune. The service chooses the winning sector and is notified when the spin has ended.
class ORRELO_EXPORT RouletteComponent final : public UIComponent, public RouletteViewDelegate {
 public:
  static constexpr std::string_view key = "roulette";

  struct Running {
    std::int64_t endIndex = 0;
    std::string spinDidEndActionUrl;
    friend bool operator==(const Running&, const Running&) = default;
  };
  struct End {
    std::int64_t index = 0;
    friend bool operator==(const End&, const End&) = default;
  };
  struct Idle {
    friend bool operator==(const Idle&, const Idle&) = default;
  };
  using State = std::variant<Running, End, Idle>;

  /// Throws a DecodingError or a RouletteStateDecodeError. Stops the process if the state is "done" without a
  /// result index, which violates the service's contract.
  explicit RouletteComponent(const JsonObject& json);

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override;
  void spinDidEnd(const std::string& actionUrl) override { send({Action::WithUrl{actionUrl}}); }

  const State state;
  const std::vector<RouletteItem> items;
  const std::string primaryColor;
  const std::string secondaryColor;
};

}  // namespace orrelo
