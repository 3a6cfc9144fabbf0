#pragma once

#include "base/Error.h"
#include "base/Json.h"
#include "rewards/gifticon/Gifticon.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

/// A voucher as the service sends it. Every field but `imageUrl` is required.
struct GifticonRemoteDTO {
  enum class MappingError {
    /// The state is not one of the service's, or a downloaded voucher has no picture.
    unknownState,
    /// Declared for completeness; never raised.
    invalidArgument,
    /// The limit date is not a date with whole seconds.
    dateParsingError
  };

  std::string id;
  std::string tagText;
  std::string title;
  std::string limitDate;
  std::string state;
  std::optional<std::string> imageUrl;

  /// Throw a DecodingError.
  static GifticonRemoteDTO decode(const JsonObject& json);
  static std::vector<GifticonRemoteDTO> decodeList(std::string_view json);

  /// Throws a MappingError. The state is checked before the date.
  Gifticon map() const;

  friend bool operator==(const GifticonRemoteDTO&, const GifticonRemoteDTO&) = default;
};

Error makeError(GifticonRemoteDTO::MappingError error);

}  // namespace orrelo
