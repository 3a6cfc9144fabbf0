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

/// A wheel of fortune. Nothing about it is left to chance here: the service names the sector, and is told
/// when the wheel has come to rest.
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

  /// Throws a DecodingError or a RouletteStateDecodeError. Stops the process where the wheel is done but no
  /// sector is named: the service has broken its word.
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
