#pragma once

#include "campaign/Campaign.h"
#include "campaign/CampaignLocalDataSource.h"
#include "campaign/CampaignRemoteDataSource.h"
#include "campaign/CampaignState.h"
#include "reactive/ObservableType.h"

#include <string>
#include <utility>
#include <vector>

namespace orrelo {

/// Campaigns are not cached: each request goes to the service. The streams are cold and emit one element or
/// an error on the data source's scheduler. Any thread.
class CampaignRepository {
 public:
  virtual ~CampaignRepository() = default;

  virtual reactive::Observable<Campaign> fetchCampaign(const std::string& campaignId,
                                                       const std::string& userId) = 0;
  /// The campaigns in the order of the service.
  virtual reactive::Observable<std::vector<Campaign>> fetchCampaigns(const std::string& userId) = 0;

  virtual std::vector<CampaignState> fetchStates() = 0;
  virtual void saveState(const CampaignState& state) = 0;
  /// Removes the states of all campaigns that are not listed.
  virtual void pruneStates(const std::vector<Campaign>& listed) = 0;
};

class CampaignRepositoryImpl final : public CampaignRepository {
 public:
  CampaignRepositoryImpl(CampaignRemoteDataSource remoteDataSource, CampaignLocalDataSource localDataSource)
      : remoteDataSource_(std::move(remoteDataSource)), localDataSource_(std::move(localDataSource)) {}

  reactive::Observable<Campaign> fetchCampaign(const std::string& campaignId,
                                               const std::string& userId) override {
    return remoteDataSource_.fetch(campaignId, userId);
  }
  reactive::Observable<std::vector<Campaign>> fetchCampaigns(const std::string& userId) override {
    return remoteDataSource_.fetchAll(userId);
  }
  std::vector<CampaignState> fetchStates() override { return localDataSource_.load(); }
  void saveState(const CampaignState& state) override { localDataSource_.save(state); }
  void pruneStates(const std::vector<Campaign>& listed) override { localDataSource_.prune(listed); }

 private:
  CampaignRemoteDataSource remoteDataSource_;
  CampaignLocalDataSource localDataSource_;
};

}  // namespace orrelo
