#pragma once

#include "faults/Fault.h"

#include <nlohmann/json.hpp>
#include <string>
#include <variant>

namespace orrelo::devservice {

/// The fault that this object describes, or what is wrong with it.
std::variant<Fault, std::string> faultFromJson(const nlohmann::json& json);
/// Without the body's bytes, which may be many and no text.
nlohmann::json faultToJson(const OrderedFault& ordered);

}  // namespace orrelo::devservice
