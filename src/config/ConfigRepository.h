#pragma once

#include "config/ConfigDataSources.h"
#include "reactive/Disposable.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <orrelo/Date.h>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace orrelo {

class ConfigRepository {
 public:
  virtual ~ConfigRepository() = default;

  /// One configuration, then completion; never an error. Any thread.
  virtual reactive::Observable<Config> fetch() = 0;
};

/// Answers from memory for 60 seconds after the service's last answer; then from the service; when that
/// fails, from the copy on the device, else with the defaults. What is not the service's answer is not
/// remembered, and questions asked at the same time ask the service each for itself.
class ConfigRepositoryImpl final : public ConfigRepository,
                                   public std::enable_shared_from_this<ConfigRepositoryImpl> {
 public:
  using CurrentDateGenerator = std::function<Date()>;

  /// Starts the first fetch, on `scheduler`, where the service's answers come too: they are written to the
  /// device there, and not on the network's thread.
  static std::shared_ptr<ConfigRepositoryImpl> create(ConfigLocalDataSource localDataSource,
                                                      ConfigRemoteDataSource remoteDataSource,
                                                      CurrentDateGenerator currentDateGenerator,
                                                      reactive::SchedulerPtr scheduler);

  reactive::Observable<Config> fetch() override;

 private:
  ConfigRepositoryImpl(ConfigLocalDataSource localDataSource, ConfigRemoteDataSource remoteDataSource,
                       CurrentDateGenerator currentDateGenerator, reactive::SchedulerPtr scheduler);

  std::shared_ptr<const Config> freshConfig() const;
  void save(const Config& config);

  mutable std::mutex mutex_;
  std::shared_ptr<const Config> cachedConfig_;
  std::optional<Date> cacheExpiredDate_;
  ConfigLocalDataSource localDataSource_;
  ConfigRemoteDataSource remoteDataSource_;
  CurrentDateGenerator currentDateGenerator_;
  reactive::SchedulerPtr scheduler_;
  reactive::DisposeBag disposeBag_;
};

/// What the features know of the configuration.
class FetchConfigUseCase {
 public:
  virtual ~FetchConfigUseCase() = default;

  /// As ConfigRepository::fetch.
  virtual reactive::Observable<Config> fetch() = 0;
};

class FetchConfigUseCaseImpl final : public FetchConfigUseCase {
 public:
  explicit FetchConfigUseCaseImpl(std::shared_ptr<ConfigRepository> repository)
      : repository_(std::move(repository)) {}

  reactive::Observable<Config> fetch() override { return repository_->fetch(); }

 private:
  std::shared_ptr<ConfigRepository> repository_;
};

}  // namespace orrelo
