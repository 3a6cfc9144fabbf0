#pragma once

#include "base/Color.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace orrelo {

/// A button with one of the kit's icons above a title and a count badge at its corner.
class ORRELO_EXPORT IconRectangleButton final : public View {
 public:
  struct State {
    bool isHidden = false;
    /// Empty if there is no badge.
    std::string badgeText;
    Color badgeColor;

    friend bool operator==(const State&, const State&) = default;
  };

  IconRectangleButton(std::string picture, std::string text)
      : asset(std::move(picture)), title(std::move(text)) {}

  std::string_view kind() const override { return "IconRectangleButton"; }

  /// Counts of ten and more are shown as "9+".
  void setBadge(std::optional<std::int64_t> count, const Color& color);

  const std::string asset;
  const std::string title;
  Followed<State> state;
};

}  // namespace orrelo
