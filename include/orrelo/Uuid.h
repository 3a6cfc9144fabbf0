#pragma once

#include <orrelo/Export.h>

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// A universally unique identifier (RFC 4122). A plain value; all zeros by default.
class ORRELO_EXPORT Uuid {
 public:
  using Bytes = std::array<std::uint8_t, 16>;

  constexpr Uuid() = default;
  constexpr explicit Uuid(const Bytes& bytes) : bytes_(bytes) {}

  /// Makes a version 4 identifier from random bytes by setting its version and variant bits.
  static Uuid fromRandom(Bytes random);
  /// Parses the form 8-4-4-4-12 of hexadecimal digits, in either case; nullopt for any other text.
  static std::optional<Uuid> parse(std::string_view text);

  /// The form 8-4-4-4-12, in upper case.
  std::string text() const;
  const Bytes& bytes() const { return bytes_; }

  friend auto operator<=>(const Uuid&, const Uuid&) = default;

 private:
  Bytes bytes_{};
};

}  // namespace orrelo
