#pragma once

#include "faults/Fault.h"

#include <nlohmann/json.hpp>
#include <string>
#include <variant>

namespace orrelo::devservice {

/// The fault that this object describes, or a message that says what is wrong with it.
std::variant<Fault, std::string> faultFromJson(const nlohmann::json& json);
/// Leaves out the body's bytes, which may be many and need not be text.
nlohmann::json faultToJson(const OrderedFault& ordered);

}  // namespace orrelo::devservice
