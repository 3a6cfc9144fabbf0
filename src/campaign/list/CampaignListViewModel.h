#pragma once

#include "base/Error.h"
#include "campaign/Campaign.h"
#include "campaign/FetchCampaignsUseCase.h"
#include "reactive/ObservableType.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace orrelo {

/// Loads the campaigns of a list. It holds no state, so that several lists may share it.
class CampaignListViewModel final : public std::enable_shared_from_this<CampaignListViewModel> {
 public:
  struct Input {
    /// Starts a load for this user. A load that is still running is given up.
    reactive::Observable<std::optional<std::string>> trigger;
  };

  struct Loaded {
    /// In the order of the service.
    std::vector<Campaign> campaigns;
    friend bool operator==(const Loaded&, const Loaded&) = default;
  };
  struct Failed {
    Error error;
    friend bool operator==(const Failed&, const Failed&) = default;
  };
  struct Loading {
    friend bool operator==(const Loading&, const Loading&) = default;
  };
  using ViewState = std::variant<Loaded, Failed, Loading>;

  static std::shared_ptr<CampaignListViewModel> create(FetchCampaignsUseCase fetchCampaignsUseCase) {
    return std::shared_ptr<CampaignListViewModel>(
        new CampaignListViewModel(std::move(fetchCampaignsUseCase)));
  }

  /// `Loading` for each trigger, followed by the result. The stream outlives failures, which are states: a
  /// missing user (OrreloError notLoggedIn), the destruction of this object (referenceDeallocation), and the
  /// errors of the fetch.
  reactive::Observable<ViewState> transform(const Input& input) const;

 private:
  explicit CampaignListViewModel(FetchCampaignsUseCase fetchCampaignsUseCase)
      : fetchCampaignsUseCase_(std::move(fetchCampaignsUseCase)) {}

  reactive::Observable<std::vector<Campaign>> load(const std::optional<std::string>& userId) const;

  const FetchCampaignsUseCase fetchCampaignsUseCase_;
};

}  // namespace orrelo
