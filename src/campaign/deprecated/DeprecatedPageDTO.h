#pragma once

namespace orrelo {

/// A page of a kind that is no longer shown. Its content is not decoded.
struct DeprecatedPageDTO {
  friend bool operator==(const DeprecatedPageDTO&, const DeprecatedPageDTO&) = default;
};

}  // namespace orrelo
