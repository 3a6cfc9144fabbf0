#pragma once

#include "campaign/CampaignDataSources.h"

#include <memory>
#include <string>
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

class FetchCampaignUseCase {
 public:
  explicit FetchCampaignUseCase(std::shared_ptr<CampaignRepository> repository)
      : repository_(std::move(repository)) {}

  reactive::Observable<Campaign> fetch(const std::string& campaignId, const std::string& userId) const {
    return repository_->fetchCampaign(campaignId, userId);
  }

 private:
  std::shared_ptr<CampaignRepository> repository_;
};

/// Fetches all campaigns and removes the stored states of campaigns that are no longer listed, including
/// which dialogs were shown.
class FetchCampaignsUseCase {
 public:
  explicit FetchCampaignsUseCase(std::shared_ptr<CampaignRepository> repository)
      : repository_(std::move(repository)) {}

  reactive::Observable<std::vector<Campaign>> fetch(const std::string& userId) const;

 private:
  std::shared_ptr<CampaignRepository> repository_;
};

class FetchCampaignStateUseCase {
 public:
  explicit FetchCampaignStateUseCase(std::shared_ptr<CampaignRepository> repository)
      : repository_(std::move(repository)) {}

  std::vector<CampaignState> fetch() const { return repository_->fetchStates(); }

 private:
  std::shared_ptr<CampaignRepository> repository_;
};

class SaveCampaignStateUseCase {
 public:
  explicit SaveCampaignStateUseCase(std::shared_ptr<CampaignRepository> repository)
      : repository_(std::move(repository)) {}

  void save(const std::string& campaignId, bool popUpDialogIsShown) const {
    repository_->saveState({campaignId, popUpDialogIsShown});
  }

 private:
  std::shared_ptr<CampaignRepository> repository_;
};

}  // namespace orrelo
