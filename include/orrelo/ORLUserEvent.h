#pragma once

#include <orrelo/EventValue.h>

#include <optional>
#include <string>

namespace orrelo {

/// An action of the user on one of the kit's screens, as ORLUserEventDelegate receives it.
struct ORLUserEvent {
  /// Always starts with "ol_".
  std::string name;
  std::optional<EventValues> values;
};

}  // namespace orrelo
