#pragma once

#include "campaign/entry/CampaignViewPropertyRepository.h"

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// Fetches the look of the floating button.
class FetchFloatingActionButtonPropertyUseCase {
 public:
  explicit FetchFloatingActionButtonPropertyUseCase(
      std::shared_ptr<CampaignViewPropertyRepository> repository)
      : repository_(std::move(repository)) {}

  /// See CampaignViewPropertyRepository::fetch.
  reactive::Observable<FloatingActionButtonProperty> fetch(const std::string& userId) const {
    return repository_->fetch(userId);
  }

 private:
  std::shared_ptr<CampaignViewPropertyRepository> repository_;
};

}  // namespace orrelo
