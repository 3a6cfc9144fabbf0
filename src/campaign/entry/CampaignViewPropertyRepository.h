#pragma once

#include "campaign/entry/CampaignViewPropertyLocalDataSource.h"
#include "campaign/entry/CampaignViewPropertyRemoteDataSource.h"
#include "campaign/entry/FloatingActionButtonProperty.h"
#include "reactive/ObservableType.h"

#include <atomic>
#include <memory>
#include <string>
#include <utility>

namespace orrelo {

class CampaignViewPropertyRepository {
 public:
  virtual ~CampaignViewPropertyRepository() = default;

  /// Emits one look and completes, or fails. Cold. Any thread.
  virtual reactive::Observable<FloatingActionButtonProperty> fetch(const std::string& userId) = 0;
};

/// Asks the service once, since the look changes rarely, and then uses the copy on the device. Without a copy
/// it asks the service again.
class CampaignViewPropertyRepositoryImpl final
    : public CampaignViewPropertyRepository,
      public std::enable_shared_from_this<CampaignViewPropertyRepositoryImpl> {
 public:
  static std::shared_ptr<CampaignViewPropertyRepositoryImpl> create(
      CampaignViewPropertyLocalDataSource localDataSource,
      CampaignViewPropertyRemoteDataSource remoteDataSource) {
    return std::shared_ptr<CampaignViewPropertyRepositoryImpl>(
        new CampaignViewPropertyRepositoryImpl(std::move(localDataSource), std::move(remoteDataSource)));
  }

  reactive::Observable<FloatingActionButtonProperty> fetch(const std::string& userId) override;

 private:
  CampaignViewPropertyRepositoryImpl(CampaignViewPropertyLocalDataSource localDataSource,
                                     CampaignViewPropertyRemoteDataSource remoteDataSource)
      : localDataSource_(std::move(localDataSource)), remoteDataSource_(std::move(remoteDataSource)) {}

  reactive::Observable<FloatingActionButtonProperty> fetchRemote(const std::string& userId) const;

  const CampaignViewPropertyLocalDataSource localDataSource_;
  const CampaignViewPropertyRemoteDataSource remoteDataSource_;
  /// The spelling is deliberate. A failure of the first fetch does not set it back.
  std::atomic<bool> isFisrtFetch_ = true;
};

}  // namespace orrelo
