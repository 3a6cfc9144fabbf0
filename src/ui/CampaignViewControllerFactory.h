#pragma once

#include "ui/ViewController.h"

#include <orrelo/Export.h>
#include <orrelo/ORLCampaignType.h>

#include <memory>
#include <string>

namespace orrelo {

/// Creates the screens of campaigns.
class ORRELO_EXPORT CampaignViewControllerFactory {
 public:
  virtual ~CampaignViewControllerFactory() = default;

  virtual std::shared_ptr<ViewController> make(const std::string& id) const = 0;
  virtual std::shared_ptr<ViewController> make(ORLCampaignType type) const = 0;
};

}  // namespace orrelo
