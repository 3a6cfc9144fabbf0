#pragma once

#include <nlohmann/json.hpp>

// Compiled once, in Json.cpp: it takes a compiler two seconds.
extern template class nlohmann::basic_json<nlohmann::ordered_map>;

namespace orrelo::test {

/// A JSON value that keeps the order of its keys.
using Json = nlohmann::ordered_json;

}  // namespace orrelo::test
