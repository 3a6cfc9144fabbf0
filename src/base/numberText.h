#pragma once

#include <cstdint>
#include <string>

namespace orrelo {

/// The decimal digits of the number.
std::string numberText(std::int64_t number);
/// The shortest text that parses to the same number: plain decimals from 1e-4 to below 1e16 ("39.9",
/// "100000", "0.0001"), an exponent outside that range ("1e+16", "1e-05"), and "inf" or "nan" if it is not
/// finite.
std::string numberText(double number);

}  // namespace orrelo
