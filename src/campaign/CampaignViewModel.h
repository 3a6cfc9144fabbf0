#pragma once

#include "campaign/BrandedCampaign.h"
#include "campaign/CampaignRepository.h"
#include "campaign/FetchUpdateUrlUseCase.h"
#include "campaign/ParticipateCampaignUseCase.h"
#include "config/ConfigRepository.h"
#include "reactive/ObservableType.h"

#include <orrelo/ORLCampaignType.h>

#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace orrelo {

/// What the screen is asked to do, and for whom: the current user at that moment.
template <class Target>
struct CampaignTrigger {
  Target target;
  std::optional<std::string> userId;
};

/// What a campaign screen is made from.
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
    /// `campaignNotExists` or what the network, the service or the store's lookup raised. Nothing that comes
    /// after that has an effect, so that the user leaves the screen to try again.
    reactive::Observable<BrandedCampaign> campaign;
    /// Without repeats; true from each trigger on until the next element or the end.
    reactive::Observable<bool> isLoading;
  };

  virtual ~CampaignViewModel() = default;

  /// By campaign id, by kind, and by the path of an action. Subscribe to `campaign` once. A trigger that
  /// fires after `subscribe` returned is not lost, whichever scheduler the subscription begins on.
  virtual Output transform(const Triggers<std::string>& loadTriggerByCampaignId,
                           const Triggers<ORLCampaignType>& loadTriggerByCampaignType,
                           const Triggers<std::string>& participateTrigger) = 0;

  /// Each time the campaign is rendered; reports "ol_visit" unless it was the last one that was visited.
  virtual void visit(const Campaign& campaign) = 0;

  virtual const FetchCampaignStateUseCase& fetchCampaignStateUseCase() const = 0;
  virtual const SaveCampaignStateUseCase& saveCampaignStateUseCase() const = 0;
};

/// Any thread. The streams do not keep it alive; without it they end with OrreloError referenceDeallocation.
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
  Stream<BrandedCampaign> branded(const Stream<Campaign>& stream);
  void remember(const Campaign& shown);

  template <class In, class Out>
  auto step(Stream<Out> (CampaignViewModelImpl::*method)(const In&));

  const CampaignUseCases useCases_;
  std::mutex mutex_;
  /// What is on the screen; to take part in it.
  std::optional<Campaign> campaign_;
  std::optional<Campaign> lastVisitCampaign_;
};

}  // namespace orrelo
