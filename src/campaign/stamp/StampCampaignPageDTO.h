#pragma once

#include "base/Json.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// The page of a stamp campaign: a board of missions and the blocks around it.
struct StampCampaignPageDTO {
  /// Both fields are required.
  struct MissionDTO {
    std::string name;
    std::string iconUrl;

    static MissionDTO decode(const JsonObject& json);

    friend bool operator==(const MissionDTO&, const MissionDTO&) = default;
  };
  /// Both fields are required.
  struct StampDTO {
    std::int64_t columnCount = 0;
    std::vector<MissionDTO> mission;

    static StampDTO decode(const JsonObject& json);

    friend bool operator==(const StampDTO&, const StampDTO&) = default;
  };
  struct LayoutDTO {
    std::vector<std::string> componentOrder;

    friend bool operator==(const LayoutDTO&, const LayoutDTO&) = default;
  };

  StampDTO stampDTO;
  LayoutDTO layoutDTO;
  /// Tolerant, like all following fields: absent if it cannot be decoded.
  std::optional<std::string> mainImageUrl;
  std::optional<std::string> subImageUrl;
  std::optional<std::string> firstTitle;
  std::optional<std::string> secondTitle;
  std::optional<std::string> guideMessage;
  std::optional<std::vector<std::string>> notice;

  static StampCampaignPageDTO decode(const JsonObject& json);

  friend bool operator==(const StampCampaignPageDTO&, const StampCampaignPageDTO&) = default;
};

}  // namespace orrelo
