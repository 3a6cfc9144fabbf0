#pragma once

#include "campaign/BrandedCampaign.h"
#include "campaign/FetchCampaignStateUseCase.h"
#include "campaign/FetchCampaignUseCase.h"
#include "campaign/FetchCampaignsUseCase.h"
#include "campaign/FetchUpdateUrlUseCase.h"
#include "campaign/ParticipateCampaignUseCase.h"
#include "campaign/SaveCampaignStateUseCase.h"
#include "config/FetchConfigUseCase.h"
#include "reactive/ObservableType.h"

#include <orrelo/ORLCampaignType.h>

#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace orrelo {

/// A request of the screen, with the user who was current at that moment.
template <class Target>
struct CampaignTrigger {
  Target target;
  std::optional<std::string> userId;
};

/// The dependencies of a campaign screen.
struct CampaignUseCases {
  FetchCampaignsUseCase fetchCampaignsUseCase;
  FetchCampaignUseCase fetchCampaignUseCase;
  std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase;
  std::shared_ptr<ParticipageCampaignUseCase> participateCampaignUseCase;
  std::shared_ptr<FetchUpdateUrlUseCase> fetchUpdateUrlUseCase;
  FetchCampaignStateUseCase fetchCampaignStateUseCase;
  SaveCampaignStateUseCase saveCampaignStateUseCase;
};

/// The state of one campaign screen.
class CampaignViewModel {
 public:
  template <class Target>
  using Triggers = reactive::Observable<CampaignTrigger<Target>>;

  struct Output {
    /// One element for each load and each participation. It ends at the first error: `notLoggedIn`,
    /// `campaignNotExists` or an error of the network, the service or the store's lookup. Later triggers are
    /// ignored, so the user has to leave the screen to retry.
    reactive::Observable<BrandedCampaign> campaign;
    /// True from each trigger until the next element or the end. Emits only changes.
    reactive::Observable<bool> isLoading;
  };

  virtual ~CampaignViewModel() = default;

  /// The triggers load by campaign id, load by type, and participate by the path of an action. Subscribe to
  /// `campaign` only once. Triggers that fire after `subscribe` has returned are not lost, whichever
  /// scheduler the subscription runs on.
  virtual Output transform(const Triggers<std::string>& loadTriggerByCampaignId,
                           const Triggers<ORLCampaignType>& loadTriggerByCampaignType,
                           const Triggers<std::string>& participateTrigger) = 0;

  /// Must be called each time a campaign is rendered. Reports "ol_visit" unless the same campaign was the
  /// last one visited.
  virtual void visit(const Campaign& campaign) = 0;

  virtual const FetchCampaignStateUseCase& fetchCampaignStateUseCase() const = 0;
  virtual const SaveCampaignStateUseCase& saveCampaignStateUseCase() const = 0;
};

/// Any thread. The streams hold the view model weakly; after its destruction they end with OrreloError
/// referenceDeallocation.
class CampaignViewModelImpl final : public CampaignViewModel,
                                    public std::enable_shared_from_this<CampaignViewModelImpl> {
 public:
  static std::shared_ptr<CampaignViewModelImpl> create(CampaignUseCases useCases);

  Output transform(const Triggers<std::string>& loadTriggerByCampaignId,
                   const Triggers<ORLCampaignType>& loadTriggerByCampaignType,
                   const Triggers<std::string>& participateTrigger) override;
  void visit(const Campaign& campaign) override;

  const FetchCampaignStateUseCase& fetchCampaignStateUseCase() const override {
    return useCases_.fetchCampaignStateUseCase;
  }
  const SaveCampaignStateUseCase& saveCampaignStateUseCase() const override {
    return useCases_.saveCampaignStateUseCase;
  }

 private:
  template <class T>
  using Stream = reactive::Observable<T>;

  explicit CampaignViewModelImpl(CampaignUseCases useCases) : useCases_(std::move(useCases)) {}

  Stream<CampaignTrigger<std::string>> lookUp(const CampaignTrigger<ORLCampaignType>& trigger);
  Stream<BrandedCampaign> load(const CampaignTrigger<std::string>& trigger);
  Stream<BrandedCampaign> participate(const CampaignTrigger<std::string>& trigger);
  Stream<BrandedCampaign> induceUpdateIfUnknown(const BrandedCampaign& branded);
  void remember(const Campaign& shown);

  template <class In, class Out>
  auto step(Stream<Out> (CampaignViewModelImpl::*method)(const In&));

  const CampaignUseCases useCases_;
  std::mutex mutex_;
  /// The displayed campaign, for participations.
  std::optional<Campaign> campaign_;
  std::optional<Campaign> lastVisitCampaign_;
};

}  // namespace orrelo
