#pragma once

#include "page/Page.h"

#include <string>
#include <variant>

namespace orrelo {

/// The message that a block or a dialog of a page sends to the screen.
struct Action {
  /// Participate by requesting this path of the service.
  struct WithUrl {
    std::string url;
    friend bool operator==(const WithUrl&, const WithUrl&) = default;
  };
  struct Routing {
    Page page;
    friend bool operator==(const Routing&, const Routing&) = default;
  };
  /// Reload the campaign.
  struct UpdateNeeded {
    friend bool operator==(const UpdateNeeded&, const UpdateNeeded&) = default;
  };

  std::variant<WithUrl, Routing, UpdateNeeded> kind;

  friend bool operator==(const Action&, const Action&) = default;
};

}  // namespace orrelo
