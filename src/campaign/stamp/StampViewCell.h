#pragma once

#include "campaign/stamp/StampCampaign.h"
#include "image/ImageView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <string_view>

namespace orrelo {

/// A mission: its icon above its name.
class ORRELO_EXPORT StampViewCell final : public View {
 public:
  explicit StampViewCell(const Mission& mission) : name(mission.name) { imageView->load(mission.iconUrl); }

  std::string_view kind() const override { return "StampViewCell"; }

  const std::string name;
  const std::shared_ptr<ImageView> imageView = std::make_shared<ImageView>();
};

}  // namespace orrelo
