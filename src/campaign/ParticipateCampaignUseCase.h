#pragma once

#include "campaign/CampaignMapper.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <memory>
#include <string>

namespace orrelo {

/// The misspelled name is deliberately kept.
class ParticipageCampaignUseCase {
 public:
  virtual ~ParticipageCampaignUseCase() = default;

  /// Requests the path from the campaign's page and emits the campaign with its new page. A query in the path
  /// is deliberately dropped, since the request's own query items, which are empty, replace it. A cold stream
  /// of one element or an error. Any thread.
  virtual reactive::Observable<Campaign> participate(const Campaign& campaign, const std::string& url,
                                                     const std::string& userId) = 0;
};

/// Replies are decoded on `scheduler`, not on the network's thread.
class ParticipateCampaignUseCaseImpl final : public ParticipageCampaignUseCase {
 public:
  ParticipateCampaignUseCaseImpl(NetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient,
                                 reactive::SchedulerPtr scheduler)
      : networkConfig_(std::move(networkConfig)),
        httpClient_(std::move(httpClient)),
        scheduler_(std::move(scheduler)) {}

  reactive::Observable<Campaign> participate(const Campaign& campaign, const std::string& url,
                                             const std::string& userId) override;

 private:
  NetworkConfig networkConfig_;
  CampaignMapper mapper_;
  std::shared_ptr<HTTPClient> httpClient_;
  reactive::SchedulerPtr scheduler_;
};

}  // namespace orrelo
