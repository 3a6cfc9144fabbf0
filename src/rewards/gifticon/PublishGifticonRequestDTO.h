#pragma once

#include "base/JsonWriter.h"

#include <string>

namespace orrelo {

/// The body of the request that issues a voucher.
struct PublishGifticonRequestDTO {
  std::string gifticonId;

  std::string encode() const {
    return JsonWriter().beginObject().field("gifticon_id", gifticonId).endObject().result();
  }
};

}  // namespace orrelo
