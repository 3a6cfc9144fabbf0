#pragma once

#include <orrelo/EventValue.h>

#include <optional>
#include <string>

namespace orrelo {

/// Something that the user did on one of the kit's screens, as ORLUserEventDelegate hears it.
struct ORLUserEvent {
  /// Begins with "ol_".
  std::string name;
  std::optional<EventValues> values;
};

}  // namespace orrelo
