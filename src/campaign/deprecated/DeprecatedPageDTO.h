#pragma once

namespace orrelo {

/// A page of a kind that is no longer shown; nothing of it is read.
struct DeprecatedPageDTO {
  friend bool operator==(const DeprecatedPageDTO&, const DeprecatedPageDTO&) = default;
};

}  // namespace orrelo
