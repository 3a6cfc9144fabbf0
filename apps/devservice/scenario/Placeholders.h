#pragma once

#include "scenario/Caller.h"
#include "scenario/Scenario.h"

#include <string>

namespace orrelo::devservice {

/// The date so many days after the scenario's current day, or before it, as "yyyy-MM-dd" in this machine's
/// time zone.
std::string dayOf(const Scenario& scenario, int offset = 0);

/// The text with "{{service}}", "{{app}}", "{{month}}", "{{today}}" and "{{today-1}}" to "{{today+366}}"
/// replaced. All others stay as they are.
std::string fillIn(const std::string& text, const Caller& caller, const Scenario& scenario);

}  // namespace orrelo::devservice
