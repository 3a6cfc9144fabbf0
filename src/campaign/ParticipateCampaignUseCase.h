#pragma once

#include "campaign/CampaignMapper.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <memory>
#include <string>

namespace orrelo {

/// Misspelled from the start, and kept so.
class ParticipageCampaignUseCase {
 public:
  virtual ~ParticipageCampaignUseCase() = default;

  /// Calls the path that the campaign's page carries, and gives the campaign with the page that now applies.
  /// A query in that path is deliberately dropped: a request's own query items, of which this one has none,
  /// take its place. A cold stream of one element or an error. Any thread.
  virtual reactive::Observable<Campaign> participate(const Campaign& campaign, const std::string& url,
                                                     const std::string& userId) = 0;
};

/// Replies are read on `scheduler` and not on the network's thread.
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
