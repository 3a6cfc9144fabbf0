#pragma once

#include "campaign/CampaignDataSources.h"

#include <memory>
#include <string>
#include <vector>

namespace orrelo {

/// Campaigns are never kept: each question goes to the service. Streams are cold, give one element or an
/// error, and their elements come on the scheduler of the data source. Any thread.
class CampaignRepository {
 public:
  virtual ~CampaignRepository() = default;

  virtual reactive::Observable<Campaign> fetchCampaign(const std::string& campaignId,
                                                       const std::string& userId) = 0;
  /// In the order of the service.
  virtual reactive::Observable<std::vector<Campaign>> fetchCampaigns(const std::string& userId) = 0;

  virtual std::vector<CampaignState> fetchStates() = 0;
  virtual void saveState(const CampaignState& state) = 0;
  /// Forgets the states of all campaigns but these.
  virtual void pruneStates(const std::vector<Campaign>& listed) = 0;
};

class CampaignRepositoryImpl final : public CampaignRepository {
 public:
  CampaignRepositoryImpl(CampaignRemoteDataSource remote, CampaignLocalDataSource local)
      : remoteDataSource(std::move(remote)), localDataSource(std::move(local)) {}

  reactive::Observable<Campaign> fetchCampaign(const std::string& campaignId,
                                               const std::string& userId) override {
    return remoteDataSource.fetch(campaignId, userId);
  }
  reactive::Observable<std::vector<Campaign>> fetchCampaigns(const std::string& userId) override {
    return remoteDataSource.fetchAll(userId);
  }
  std::vector<CampaignState> fetchStates() override { return localDataSource.load(); }
  void saveState(const CampaignState& state) override { localDataSource.save(state); }
  void pruneStates(const std::vector<Campaign>& listed) override { localDataSource.prune(listed); }

 private:
  CampaignRemoteDataSource remoteDataSource;
  CampaignLocalDataSource localDataSource;
};

class FetchCampaignUseCase {
 public:
  explicit FetchCampaignUseCase(std::shared_ptr<CampaignRepository> campaignRepository)
      : repository(std::move(campaignRepository)) {}

  reactive::Observable<Campaign> fetch(const std::string& campaignId, const std::string& userId) const {
    return repository->fetchCampaign(campaignId, userId);
  }

 private:
  std::shared_ptr<CampaignRepository> repository;
};

/// A list that arrives also tells which states are still of use: the device forgets the others, and with them
/// which dialogs were shown.
class FetchCampaignsUseCase {
 public:
  explicit FetchCampaignsUseCase(std::shared_ptr<CampaignRepository> campaignRepository)
      : repository(std::move(campaignRepository)) {}

  reactive::Observable<std::vector<Campaign>> fetch(const std::string& userId) const;

 private:
  std::shared_ptr<CampaignRepository> repository;
};

class FetchCampaignStateUseCase {
 public:
  explicit FetchCampaignStateUseCase(std::shared_ptr<CampaignRepository> campaignRepository)
      : repository(std::move(campaignRepository)) {}

  std::vector<CampaignState> fetch() const { return repository->fetchStates(); }

 private:
  std::shared_ptr<CampaignRepository> repository;
};

class SaveCampaignStateUseCase {
 public:
  explicit SaveCampaignStateUseCase(std::shared_ptr<CampaignRepository> campaignRepository)
      : repository(std::move(campaignRepository)) {}

  void save(const std::string& campaignId, bool popUpDialogIsShown) const {
    repository->saveState({campaignId, popUpDialogIsShown});
  }

 private:
  std::shared_ptr<CampaignRepository> repository;
};

}  // namespace orrelo
