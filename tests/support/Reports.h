#pragma once

#include "model/Delegates.h"

#include <string>
#include <variant>
#include <vector>

namespace orrelo::test {

/// Records the events that the kit reports to the host.
class Reports final : public ORLUserEventDelegate {
 public:
  void userEventDidOccur(const ORLUserEvent& event) override {
    events.push_back(event);
    names.push_back(event.name);
    if (!event.values || !event.values->contains("page_name")) return;
    pages.push_back(std::get<std::string>(event.values->at("page_name").variant()));
  }

  std::vector<ORLUserEvent> events;
  std::vector<std::string> names;
  /// The "page_name" of the events that have one.
  std::vector<std::string> pages;
};

}  // namespace orrelo::test
