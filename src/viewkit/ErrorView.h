#pragma once

#include "base/Error.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// An error illustration above a text.
class ORRELO_EXPORT ErrorView final : public View {
 public:
  struct State {
    std::string text;
    bool isHidden = false;

    friend bool operator==(const State&, const State&) = default;
  };
  /// The illustration, one of the kit's assets.
  static constexpr auto asset = "orl_ic_error";

  explicit ErrorView(std::string text) : state({std::move(text), false}) {}

  std::string_view kind() const override { return "ErrorView"; }

  void setText(const Error& error);
  void setHidden(bool isHidden);

  Followed<State> state;
};

}  // namespace orrelo
